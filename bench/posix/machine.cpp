#include "machine.h"

#include <malloc.h>

#include <filesystem>

#include "forms/event.h"
#include "makers/embedded/memory_registry.h"
#include "makers/headless/headless_windows.h"

namespace vrix::bench {

std::unique_ptr<Registry> makeStore() { return std::make_unique<MemoryRegistry>(); }

void endEvent(Registry&) {}

BareKey::BareKey(Registry& store, const std::string& path, For use) : store_(store) {
    if (use == For::writing) {
        static_cast<void>(store_.createKey(hive::localMachine, path, access::change, key_));
    } else {
        static_cast<void>(store_.openKey(hive::localMachine, path, access::queryValue, key_));
    }
}

BareKey::~BareKey() { store_.closeKey(key_); }

void BareKey::set(const std::string& name, const std::string& text) {
    static_cast<void>(store_.setValue(key_, name, valuetype::string, text.c_str(), sizeOf(text)));
}

std::string BareKey::get(const std::string& name) {
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    std::uint32_t scratch = 0;
    static_cast<void>(store_.queryValue(key_, name, type, &scratch, size));
    std::string text(size, '\0');
    static_cast<void>(store_.queryValue(key_, name, type, text.data(), size));
    return text;
}

Resources resources() {
    long handles = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) ++handles;
    return {handles, static_cast<double>(mallinfo2().uordblks) / 1024};
}

std::vector<DisplayMaker> displays() { return {&makeHeadlessDisplay}; }

void measureTools(const Scale&, const std::string&) {}

void measureCommand(const Scale&, const std::string&, const std::string&) {}
void measureStart(const Scale&, const std::string&) {}

}  // namespace vrix::bench
