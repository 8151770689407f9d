#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "harness.h"
#include "platform/registry.h"
#include "platform/screen.h"

// What the figures need of the machine. Each platform has its own maker.
namespace vrix::bench {

// The store under test, without any key of the program.
std::unique_ptr<Registry> makeStore();
// The end of an event of the program, as the store sees it.
void endEvent(Registry& store);

// A key of the machine's hive worked by nothing but the platform's calls, with the arguments that the store gives them.
class BareKey {
public:
    enum class For { writing, reading };
    BareKey(Registry& store, const std::string& path, For use);
    ~BareKey();
    BareKey(const BareKey&) = delete;
    BareKey& operator=(const BareKey&) = delete;
    void set(const std::string& name, const std::string& text);
    std::string get(const std::string& name);

private:
    Registry& store_;
    RegistryKey key_ = 0;
};

// The size of a text in the store, with its terminator.
inline std::uint32_t sizeOf(const std::string& text) { return static_cast<std::uint32_t>(text.size() + 1); }

struct Resources {
    long handles;
    double kilobytes;  // of private memory
};
Resources resources();

// Windows to work pages in.
class Display {
public:
    virtual ~Display() = default;
    virtual std::string name() const = 0;
    virtual Screen& screen() = 0;
    // Runs one event of the program and lets the display settle behind it.
    virtual void event(const Work& event) = 0;
};
using DisplayMaker = std::function<std::unique_ptr<Display>()>;
std::unique_ptr<Display> makeHeadlessDisplay();
std::vector<DisplayMaker> displays();
// The event, but a failure in it, which would ask a user, ends the measuring.
Work orEnd(const Work& event);

// The figures against the platform's own programs, where it has any. Files lie in one folder, the program's own exe
// files in another.
void measureTools(const Scale& scale, const std::string& folder);
void measureCommand(const Scale& scale, const std::string& folder, const std::string& programs);
void measureStart(const Scale& scale, const std::string& programs);

}  // namespace vrix::bench
