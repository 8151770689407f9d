#include "backup/backup_folder.h"

#include <algorithm>
#include <array>
#include <functional>

#include "common/refusal.h"
#include "makers/embedded/journal_file.h"
#include "makers/embedded/journal_registry.h"
#include "product/product_store.h"

namespace vrix {

namespace {

constexpr std::string_view latest = "latest";
constexpr std::string_view ending = ".journal";
constexpr std::string_view timeForm = "0000-00-00 00-00-00";

std::string timeText(std::time_t time) {
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H-%M-%S", std::localtime(&time));
    return text.data();
}

// The family key, if it is there, and all below it, as records of a journal.
std::string recordsOf(Registry& registry) {
    std::string records;
    const auto add = [&](const Change& change) { records += journal::framed(journalRecord(change)); };
    ProductStore(registry).walk({}, [&](StoredKey key) {
        const std::string place = joined(joinedPaths({"Software", "Vrix"}, key.path));
        add({Change::Kind::makeKey, place});
        for (StoredValue& value : key.values) {
            add({Change::Kind::setValue, place, std::move(value.name), value.type, std::move(value.data)});
        }
    });
    return records;
}

}  // namespace

bool BackupFolder::isName(const std::string& text) {
    if (text == latest) return true;
    return text.size() >= timeForm.size() &&
           std::equal(timeForm.begin(), timeForm.end(), text.begin(),
                      [](char form, char c) { return form == '0' ? c >= '0' && c <= '9' : c == form; });
}

// Other files in the folder are not ours to list, nor to remove.
std::vector<std::string> BackupFolder::names() const {
    std::vector<std::string> found = disk_.namesIn(path_);
    std::erase_if(found, [](const std::string& name) { return !name.ends_with(ending) || !isName(name); });
    for (std::string& name : found) name.resize(name.size() - ending.size());
    std::sort(found.begin(), found.end(), std::greater<>());
    return found;
}

std::optional<std::string> BackupFolder::find(const std::string& text) const {
    const std::vector<std::string> all = names();
    const auto found = text == latest ? all.begin() : std::find(all.begin(), all.end(), text);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

std::string BackupFolder::keep(Registry& registry, std::time_t time) {
    const std::string name = unusedName(time);
    if (!journal::write(pathOf(name), disk_, recordsOf(registry))) {
        throw Refusal(Refusal::Kind::refused, "The backup \"" + pathOf(name) + "\" could not be written");
    }
    removeOldest();
    return name;
}

std::string BackupFolder::unusedName(std::time_t time) const {
    std::string name = timeText(time);
    for (int number = 2; disk_.kindOf(pathOf(name)) != PathKind::nothing; ++number) {
        name = timeText(time) + " " + std::to_string(number);
    }
    return name;
}

void BackupFolder::removeOldest() const {
    const std::vector<std::string> all = names();
    for (std::size_t i = most; i < all.size(); ++i) disk_.remove(pathOf(all[i]));
}

}  // namespace vrix
