// vrix_bench LETTERS FOLDER PROGRAMS: measures the figures whose letters are given. Files lie in the folder FOLDER; the
// programs are those in PROGRAMS. Both end with a backslash.

#include <ctime>
#include <exception>
#include <iostream>
#include <memory>

#include "backup/backup_folder.h"
#include "makers/headless/headless_user.h"
#include "makers/standard/standard_files.h"
#include "makers/win32/win32_registry.h"
#include "makers/win32/win32_screen.h"
#include "measure.h"
#include "pages/edit/edit1.h"
#include "pages/finish/new_product.h"
#include "pages/wizard/product_options.h"
#include "platform/disk.h"
#include "program/program.h"
#include "store/product_export.h"

namespace vrix::bench {

namespace {

constexpr const char* productKey = "Bench";

void forget() { RegDeleteTreeA(HKEY_LOCAL_MACHINE, "Software\\Vrix"); }

// The program over the machine's registry and over windows. Its keys are deleted before and after.
struct Running {
    explicit Running(Screen& screen) : program(Platform{*store, screen, dialog, files, clock}) { forget(); }
    ~Running() { forget(); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    std::unique_ptr<Registry> store = narrowRegistry();
    HeadlessFileDialog dialog;
    StandardFiles files;
    SetClock clock;
    Program program;
    Toolkit& pages = program.toolkit();
};

void fillTopics(Toolkit& pages, int topics) {
    Create8& page = pages.create8;
    page.Topics.clear();
    page.TopicNames.sizeTo(topics);
    page.TopicPaths.sizeTo(topics);
    for (int row = 0; row < topics; ++row) {
        page.TopicNames.at(row) = "Topic number " + std::to_string(row);
        page.TopicPaths.at(row) = "C:\\Courses\\Manual\\topic" + std::to_string(row) + ".doc";
        page.Topics.addItem(page.TopicNames.at(row));
    }
    page.i = static_cast<std::int16_t>(topics);
    page.Topics.setListIndex(topics - 1);
}

// Fills the pages as a user would have: the options, that many Topics, and a dependency for each.
void fillProduct(Toolkit& pages, int topics) {
    pages.create2.ProductName.setText(productKey);
    pages.create2.ProductKey.setText(productKey);
    for (const Option& option : pages.options.all()) {
        const std::string folder = option.isPath ? "C:\\Courses\\Manual\\" : "";
        if (is<TextBox>(*option.control)) option.control->restore(folder + option.name + ".doc");
    }
    fillTopics(pages, topics);
    pages.create9.Depends.sizeTo(topics);
    for (int row = 1; row < topics; ++row) pages.create9.Depends.at(row) = std::to_string(row - 1);
}

void finish(Running& running, const std::string& file) {
    saveNewProduct(running.pages, running.clock.text);
    writeNewProduct(running.pages, file, running.clock.text);
}

void exportStored(Toolkit& pages, const std::string& file) {
    ProductExport(pages.settings, pages.selectedProduct)
        .write(pages.platform.files, file, pages.edit1.ProductList.text());
}

// Finish and export against the platform's programs. Those are measured with their start, as a user waits for it; the
// Toolkit is open already.
void measureTools(const std::string& folder) {
    const std::string file = folder + "bench.kls";
    const std::string out = folder + "bench_out.reg";
    HeadlessWindows windows;
    Running running(windows);
    Toolkit& pages = running.pages;
    for (const int topics : {1'000, 10'000}) {
        const int rounds = topics == 1'000 ? 15 : 5;
        const double limit = topics == 1'000 ? 1 : 0;
        const std::string size = ", " + std::to_string(topics) + " Topics";
        fillProduct(pages, topics);
        compare("c Finish to regedit /S" + size, rounds, limit, {[&] { finish(running, file); }, forget},
                {program("regedit.exe /S " + file), forget});
        forget();
        finish(running, file);
        pages.edit1.initEdit1();
        pages.edit1.isDeveloper = true;
        pages.edit1.ProductRegKey = std::string("Toolkit\\") + productKey;
        compare("c export to reg export" + size, rounds, limit, {[&] { exportStored(pages, file); }},
                {program("reg.exe export HKLM\\Software\\Vrix " + out + " /y")});
    }
    for (const std::string& path : {file, out}) DeleteFileA(path.c_str());
}

// From the release of a wizard's Next until the other page is painted, with 4,000 Topics.
void measurePageChange() {
    Win32Screen screen;
    Running running(screen);
    Toolkit& pages = running.pages;
    const auto event = [&](const Work& work) {
        screen.event(work);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    };
    event([&] {
        fillTopics(pages, 4'000);
        pages.create5.show();
    });
    std::vector<double> times;
    for (int round = -1; round < 15; ++round) {
        event([&] { pages.create5.NextBtn.mouseDown(); });
        const double time = timed([&] { event([&] { pages.create5.NextBtn.mouseUp(); }); });
        event([&] { pages.create6.BackBtn.action(); });
        if (round >= 0) times.push_back(time);
    }
    report("d real windows, page change, ms", median(times), 8);
}

// From the start to the first visible window, and the memory taken until the window rests, against notepad.
void measureStart(const std::string& programs) {
    double kilobytes = 0;
    const auto start = [&kilobytes](const std::string& command) {
        std::unique_ptr<Process> process;
        const double time = timed([&] {
            process = std::make_unique<Process>(command);
            while (!process->showsWindow()) Sleep(1);
        });
        Sleep(300);
        kilobytes = process->peakKilobytes();
        process->end();
        return time;
    };
    for (const std::string name : {"VrixToolkitTrial", "VrixToolkit"}) {
        std::vector<double> times, memories, ours, theirs;
        for (int round = -1; round < 15; ++round) {
            const double mine = start(programs + name + ".exe");
            const double memory = kilobytes;
            const double notepad = start("notepad.exe");
            if (round < 0) continue;
            times.push_back(mine / notepad);
            memories.push_back(memory / kilobytes);
            ours.push_back(mine);
            theirs.push_back(notepad);
        }
        report("e " + name + ", time to the first window", median(times), 1,
               text(median(ours)) + " to " + text(median(theirs)) + " ms");
        report("e " + name + ", peak private memory", median(memories), 1);
    }
}

// The command line against the platform's, on the values of a Product with 10,000 Topics.
void measureCommand(const std::string& folder, const std::string& programs) {
    constexpr int rounds = 7;
    const std::string file = folder + "bench.kls";
    const std::string out = folder + "bench_out.kls";
    const std::string vrix = programs + "vrix.exe ";
    const Side regExport{program("reg.exe export HKLM\\Software\\Vrix " + out + " /y")};
    HeadlessWindows windows;
    Running running(windows);
    fillProduct(running.pages, 10'000);
    finish(running, file);
    compare("g vrix list to reg query", rounds, 1, {program(vrix + "list")},
            {program("reg.exe query HKLM\\Software\\Vrix /s")});
    compare("g vrix export to reg export", rounds, 1, {program(vrix + "export Bench " + out)}, regExport);
    Disk& disk = systemDisk();
    BackupFolder backups(folder, disk);
    const auto machine = wideRegistry();
    compare("g a backup to reg export", rounds, 1, {[&] { backups.keep(*machine, std::time(nullptr)); }}, regExport);
    compare("g vrix apply to reg import", rounds, 1, {program(vrix + "apply " + file), forget},
            {program("reg.exe import " + file), forget});
    for (const std::string& name : backups.names()) disk.remove(backups.pathOf(name));
    for (const std::string& path : {file, out}) DeleteFileA(path.c_str());
}

}  // namespace

}  // namespace vrix::bench

int main(int count, char** arguments) {
    using namespace vrix::bench;
    if (count != 4) return 2;
    const std::string letters = arguments[1];
    const auto wanted = [&](char letter) { return letters.find(letter) != std::string::npos; };
    try {
        if (wanted('c')) measureTools(arguments[2]);
        if (wanted('d')) measurePageChange();
        if (wanted('e')) measureStart(arguments[3]);
        if (wanted('g')) measureCommand(arguments[2], arguments[3]);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
