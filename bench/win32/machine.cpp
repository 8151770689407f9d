#include "machine.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <stdexcept>

#include "backup/backup_folder.h"
#include "makers/kept/kept_keys.h"
#include "makers/win32/win32_registry.h"
#include "makers/win32/win32_screen.h"
#include "pages/edit/edit1.h"
#include "product.h"

namespace vrix::bench {

std::unique_ptr<Registry> makeStore() {
    static Win32Registry machine;
    auto store = std::make_unique<KeptKeys>(machine);
    removeTree(*store, "Software\\Vrix");
    return store;
}

void endEvent(Registry& store) { static_cast<KeptKeys&>(store).release(); }

namespace {

HKEY native(RegistryKey key) { return reinterpret_cast<HKEY>(key); }

}  // namespace

BareKey::BareKey(Registry& store, const std::string& path, For use) : store_(store) {
    HKEY key = nullptr;
    char noClass[] = "";
    SECURITY_ATTRIBUTES security{};
    security.nLength = sizeof security;
    if (use == For::writing) {
        RegCreateKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, noClass, 0, access::change, &security, &key, nullptr);
    } else {
        RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, access::queryValue, &key);
    }
    key_ = reinterpret_cast<RegistryKey>(key);
}

BareKey::~BareKey() { RegCloseKey(native(key_)); }

void BareKey::set(const std::string& name, const std::string& text) {
    RegSetValueExA(native(key_), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), sizeOf(text));
}

std::string BareKey::get(const std::string& name) {
    DWORD type = 0;
    DWORD size = 0;
    DWORD scratch = 0;
    RegQueryValueExA(native(key_), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&scratch), &size);
    std::string text(size, '\0');
    RegQueryValueExA(native(key_), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size);
    return text;
}

// ---- Processes ----

namespace {

// A program whose output nobody reads.
class Process {
public:
    explicit Process(std::string command) {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        STARTUPINFOA start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = start.hStdError =
            CreateFileA("NUL", GENERIC_WRITE, FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr);
        const BOOL started = CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                                            nullptr, &start, &process_);
        CloseHandle(start.hStdOutput);
        if (started == FALSE) throw std::runtime_error("cannot start " + command);
    }
    ~Process() {
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    HANDLE handle() const { return process_.hProcess; }
    // Its exit code.
    DWORD wait() const {
        DWORD code = 0;
        WaitForSingleObject(handle(), INFINITE);
        GetExitCodeProcess(handle(), &code);
        return code;
    }

    bool showsWindow() const {
        struct Search {
            DWORD process;
            bool found;
        } search{process_.dwProcessId, false};
        const auto look = [](HWND window, LPARAM parameter) WINAPI -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(parameter);
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            wanted.found = process == wanted.process && IsWindowVisible(window);
            return !wanted.found;
        };
        EnumWindows(look, reinterpret_cast<LPARAM>(&search));
        return search.found;
    }

private:
    PROCESS_INFORMATION process_{};
};

PROCESS_MEMORY_COUNTERS memory(HANDLE process) {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(process, &counters, sizeof counters);
    return counters;
}

double kilobytes(SIZE_T bytes) { return static_cast<double>(bytes) / 1024; }

}  // namespace

Resources resources() {
    DWORD handles = 0;
    GetProcessHandleCount(GetCurrentProcess(), &handles);
    return {static_cast<long>(handles), kilobytes(memory(GetCurrentProcess()).PagefileUsage)};
}

// ---- Screens ----

namespace {

// The real screen, with a user who says yes to every question.
class AgreeingScreen final : public Screen {
public:
    void formChanged(Form& form) override { real.formChanged(form); }
    void controlChanged(Control& control) override { real.controlChanged(control); }
    void rowsChanged(Control& list, RowChange change) override { real.rowsChanged(list, change); }
    void timerChanged(Timer& timer) override { real.timerChanged(timer); }
    Answer ask(const std::string&, const std::string&, Buttons) override { return Answer::ok; }
    Size screenSize() override { return real.screenSize(); }
    void quit() override { real.quit(); }

    Win32Screen real;
};

class RealDisplay final : public Display {
public:
    std::string name() const override { return "real windows"; }
    Screen& screen() override { return screen_; }
    void event(const Work& event) override {
        screen_.real.event(orEnd(event));
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
    }

private:
    AgreeingScreen screen_;
};

}  // namespace

std::vector<DisplayMaker> displays() {
    return {&makeHeadlessDisplay, [] { return std::make_unique<RealDisplay>(); }};
}

// ---- Against the platform's own programs ----

// Each program is measured as a user waits for it: with its start, which the Toolkit, being open, does not need.
void measureTools(const Scale& scale, const std::string& folder) {
    const std::string file = folder + "bench.kls";
    const std::string out = folder + "bench_out.reg";
    const auto store = makeStore();
    HeadlessWindows windows;
    Running running(*store, windows);
    const auto process = [](const std::string& command) -> Work { return [command] { Process(command).wait(); }; };
    const Work forget = [&] { removeTree(*store, "Software\\Vrix"); };
    const auto tell = [&](const std::string& what, int rounds, const std::vector<Side>& sides) {
        const auto times = inTurns(rounds, sides);
        report("c " + what, ratio(times[0], times[1]), 1,
               text(median(times[0])) + " to " + text(median(times[1])) + " ms");
    };
    for (const int topics : scale.sizes({10, 100, 1'000, 10'000})) {
        const int rounds = scale.rounds(topics > 1'000 ? 5 : topics > 100 ? 11 : 31);
        const std::string size = std::to_string(topics) + " Topics";
        fillProduct(running.pages, topics);
        const Work finish = [&] {
            saveNewProduct(running.pages, running.clock.text);
            writeNewProduct(running.pages, file, running.clock.text);
            endEvent(*store);
        };
        tell("Finish to regedit /S, " + size, rounds, {{finish, forget}, {process("regedit.exe /S " + file), forget}});

        forget();
        finish();
        chooseProduct(running.pages);
        const Work exportIt = [&] {
            ProductExport(running.pages.settings, running.pages.selectedProduct)
                .write(running.pages.platform.files, file, running.pages.edit1.ProductList.text());
            endEvent(*store);
        };
        tell("export to reg export, " + size, rounds,
             {{exportIt}, {process("reg.exe export HKLM\\Software\\Vrix " + out + " /y")}});
        forget();
    }
    for (const std::string& path : {file, out}) DeleteFileA(path.c_str());
}

// The command line against the platform's own, on the values of a Product with 10,000 Topics.
void measureCommand(const Scale& scale, const std::string& folder, const std::string& programs) {
    const std::string file = folder + "bench.kls";
    const std::string out = folder + "bench_out.kls";
    const auto store = makeStore();
    HeadlessWindows windows;
    Running running(*store, windows);
    const auto process = [](const std::string& command) -> Work {
        return [command] {
            if (Process(command).wait() != 0) throw std::runtime_error("failed: " + command);
        };
    };
    const std::string vrix = programs + "vrix.exe ";
    const auto tell = [&](const std::string& what, const Side& ours, const Side& theirs) {
        const auto times = inTurns(scale.rounds(7), {ours, theirs});
        report("g " + what, ratio(times[0], times[1]), 1,
               text(median(times[0])) + " to " + text(median(times[1])) + " ms");
    };
    fillProduct(running.pages, scale.sizes({10'000}).back());
    saveNewProduct(running.pages, running.clock.text);
    writeNewProduct(running.pages, file, running.clock.text);
    endEvent(*store);
    const Work regExport = process("reg.exe export HKLM\\Software\\Vrix " + out + " /y");
    tell("vrix list to reg query", {process(vrix + "list")}, {process("reg.exe query HKLM\\Software\\Vrix /s")});
    tell("vrix export to reg export", {process(vrix + "export Bench " + out)}, {regExport});
    Disk& disk = systemDisk();
    Win32Registry machine;
    tell("a backup to reg export", {[&] { BackupFolder(folder, disk).keep(machine, std::time(nullptr)); }},
         {regExport});
    const Work forget = [&] { removeTree(*store, "Software\\Vrix"); };
    tell("vrix apply to reg import", {process(vrix + "apply " + file), forget},
         {process("reg.exe import " + file), forget});
    forget();
    for (const std::string& name : BackupFolder(folder, disk).names()) {
        disk.remove(BackupFolder(folder, disk).pathOf(name));
    }
    for (const std::string& path : {file, out}) DeleteFileA(path.c_str());
}

// From the start to the first visible window, and the memory taken until the window rests, against notepad.
void measureStart(const Scale& scale, const std::string& programs) {
    struct Start {
        double time;
        double memory;
    };
    const auto start = [](const std::string& command) {
        Start result{};
        std::unique_ptr<Process> process;
        result.time = timed([&] {
            process = std::make_unique<Process>(command);
            while (!process->showsWindow()) Sleep(1);
        });
        Sleep(300);
        result.memory = kilobytes(memory(process->handle()).PeakPagefileUsage);
        TerminateProcess(process->handle(), 0);
        process->wait();
        return result;
    };
    for (const std::string name : {"VrixToolkitTrial", "VrixToolkit"}) {
        std::vector<double> times, memories, ours, theirs;
        for (int round = -1; round < scale.rounds(15); ++round) {
            const Start mine = start(programs + name + ".exe");
            const Start notepad = start("notepad.exe");
            if (round < 0) continue;
            times.push_back(mine.time / notepad.time);
            memories.push_back(mine.memory / notepad.memory);
            ours.push_back(mine.time);
            theirs.push_back(notepad.time);
        }
        report("e " + name + ", time to the first window", median(times), 1,
               text(median(ours)) + " to " + text(median(theirs)) + " ms");
        report("e " + name + ", peak private memory", median(memories), 1,
               text(start(programs + name + ".exe").memory) + " kB");
    }
}

}  // namespace vrix::bench
