#include "makers/backup/backup_folder.h"

#include <algorithm>
#include <array>
#include <functional>

#include "makers/embedded/journal_file.h"
#include "makers/embedded/journal_registry.h"
#include "product/product_store.h"

namespace vrix {

namespace {

constexpr std::string_view ending = ".journal";
constexpr std::string_view timeForm = "0000-00-00 00-00-00";

std::string timeText(std::time_t time) {
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H-%M-%S", std::localtime(&time));
    return text.data();
}

// Whether a file of that name is a backup: others in the folder are not ours to remove.
bool isBackup(const std::string& name) {
    if (name.size() < timeForm.size() + ending.size() || !name.ends_with(ending)) return false;
    return std::equal(timeForm.begin(), timeForm.end(), name.begin(),
                      [](char form, char c) { return form == '0' ? c >= '0' && c <= '9' : c == form; });
}

// Hands a key below the family key, and all that it holds, to the journal.
// NOLINTNEXTLINE(misc-no-recursion): the platform ends it at 512 levels.
void copyKey(const ProductStore& store, const KeyPath& path, const journal::Writer& write) {
    std::string place = "Software\\Vrix";
    for (const std::string& name : path) place += '\\' + name;
    write(journalRecord(Change(Change::Kind::makeKey, place)));
    for (StoredValue& value : store.values(path)) {
        write(journalRecord(
            Change(Change::Kind::setValue, place, std::move(value.name), value.type, std::move(value.data))));
    }
    for (const std::string& name : store.subkeys(path)) {
        KeyPath below = path;
        below.push_back(name);
        copyKey(store, below, write);
    }
}

bool hasFamilyKey(Registry& registry) {
    RegistryKey key = 0;
    const RegistryStatus status = openBelowFamily(registry, {}, access::queryValue, false, key);
    if (status == RegistryStatus::success) registry.closeKey(key);
    return status != RegistryStatus::fileNotFound;
}

}  // namespace

std::vector<std::string> BackupFolder::names() const {
    std::vector<std::string> found = disk_.namesIn(path_);
    std::erase_if(found, [](const std::string& name) { return !isBackup(name); });
    for (std::string& name : found) name.resize(name.size() - ending.size());
    std::sort(found.begin(), found.end(), std::greater<>());
    return found;
}

std::string BackupFolder::keep(Registry& registry, std::time_t time) {
    const std::string name = unusedName(time);
    try {
        const bool written = journal::write(pathOf(name), disk_, [&](const journal::Writer& write) {
                                 if (hasFamilyKey(registry)) copyKey(ProductStore(registry), {}, write);
                             }).has_value();
        if (!written) throw BackupFailed("The backup \"" + pathOf(name) + "\" could not be written.");
    } catch (const StoreRefused& refused) {
        throw BackupFailed("The backup could not be made: " + std::string(refused.what()) + ".");
    }
    removeOldest();
    return name;
}

std::string BackupFolder::unusedName(std::time_t time) const {
    std::string name = timeText(time);
    for (int number = 2; disk_.isFile(pathOf(name)); ++number) {
        name = timeText(time) + " " + std::to_string(number);
    }
    return name;
}

void BackupFolder::removeOldest() const {
    const std::vector<std::string> all = names();
    for (std::size_t i = most; i < all.size(); ++i) disk_.remove(pathOf(all[i]));
}

}  // namespace vrix
