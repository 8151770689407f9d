#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"  // in std::regex, by mistake, with sanitizers

#include <cstdlib>
#include <iostream>
#include <regex>
#include <sstream>

#include "forms/event.h"
#include "stubs.h"
#include "walk.h"

namespace vrix {
namespace {

using Cells = std::vector<std::string>;

// The outcome of a walk.
struct Outcome {
    std::string report;  // the number of the run-time report, if there was one
    bool sound = true;   // no key stayed open, and the program ended with the report or goes on
    std::string state;   // of store and file
    Cells calls;         // of registry and files
    Cells states;        // before each of them, where none was refused
};

const std::regex& pattern(const std::string& text) {
    static std::map<std::string, std::regex> known;
    return known.try_emplace(text, text).first->second;
}

// Store and file. What is written may not have reached the disk yet.
std::string state(Walk& walk, const std::string& written = {}) {
    std::string all = walk.tree() + "[file]\n" + (written.empty() ? walk.file("out") : written);
    std::erase(all, '\r');
    std::replace(all.begin(), all.end(), '\\', '/');
    return all;
}

// The lines of a state by their sections, without those that may have changed.
std::map<std::string, std::string> without(const std::string& changes, const std::string& all) {
    std::istringstream lines(all);
    std::map<std::string, std::string> kept;
    std::string section;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('[')) section = line.substr(1, line.size() - 2) + '/', line.clear();
        if (!std::regex_match(section + line, pattern(changes))) kept[section] += line + '\n';
    }
    return kept;
}

bool isReport(const Cells& verdict) { return verdict[0] <= "99"; }

// Whether it is the last call.
bool isLast(const Cells& verdict) { return verdict[0] == "stays" || (isReport(verdict) && verdict[1].empty()); }

class Faults : public testing::Test {
protected:
    static void TearDownTestSuite() {
        std::cout << "| walk | calls | faults | silent | default | reports | defects |\n|---|---|---|---|---|---|---|\n"
                  << report_.str();
    }

    Faults() {
        std::istringstream lines(expected("faults.table"));
        for (std::string line; std::getline(lines, line);) {
            if (line.empty() || line[0] == '#') continue;
            const std::sregex_token_iterator cells(line.begin(), line.end(), pattern("  +"), -1);
            table_.emplace_back(cells, std::sregex_token_iterator()).resize(4);
        }
    }

    // A Product of this program, and the table's additions to it and to the store.
    void makeStore() {
        Walk walk(store_);
        walk.start().createProduct("K");
        for (const Cells& row : table_) {
            if (row[0] == "put") walk.put(row[1], row[2], row[3]);
        }
    }

    void act(Walk& walk, const std::string& words) {
        std::istringstream stream(words);
        for (std::string word; stream >> word;) {
            if (word == "Create18") {
                walk.createTo(word);
            } else if (word == "import") {
                writeBytes(folder_.path("list"), "D:1\r\nE:2\r\n");
                runEvent(walk.windows, [&] { walk.pages.create8.ImportFile(folder_.path("list")); });
            } else if (word.ends_with("=@")) {
                walk.user.type(word.substr(0, word.size() - 2), walk.path("out"));
            } else {
                walk.act(word);
            }
        }
    }

    Outcome run(const Cells& plan, int first = -1, int last = -1) {
        const auto store = std::make_shared<StubRegistry>();
        store->copy(*store_);
        Walk walk(store);
        FailingMachine& machine = walk.machine;
        Outcome ran;
        writeBytes(walk.path("out"), "old\n");
        act(walk.start(), plan[2]);
        if (first < 0) machine.before = [&] { ran.states.push_back(state(walk, machine.written)); };
        machine.first = first;
        machine.last = last;
        machine.counts = true;
        try {
            act(walk, plan[3]);
        } catch (const std::logic_error&) {
            // The user cannot go on: this is not the expected page.
        }
        machine.counts = false;
        ran.calls = machine.calls;
        ran.state = state(walk);
        std::smatch found;
        const std::string said = walk.message();
        if (std::regex_search(said, found, pattern("Run-time error '(\\d+)'"))) ran.report = found[1];
        const bool ended = walk.windows.ended;
        for (int n = 0; n < 3 && !ended && walk.front() != "ToolkitMain"; ++n) walk.user.press("ExitBtn");
        const bool goesOn = !ended && walk.front() == "ToolkitMain" && walk.windows.visibleForms().size() == 1;
        ran.sound = machine.openKeys() == 0 && (ran.report.empty() ? goesOn : ended);
        return ran;
    }

    // For each call the expected outcome and changes, from the table.
    std::vector<Cells> verdicts(const std::string& walk, const Cells& calls) {
        std::vector<Cells> all;
        std::map<std::string, int> seen;
        for (std::string call : calls) {
            std::replace(call.begin(), call.end(), '\\', '/');
            call += " #" + std::to_string(++seen[call]);
            std::smatch found;
            const auto row = std::find_if(table_.begin(), table_.end(), [&](const Cells& r) {
                return std::regex_match(walk, pattern(r[1])) && std::regex_match(call, found, pattern(r[2]));
            });
            if (row == table_.end()) throw std::logic_error(walk + ": nothing is told of " + call);
            all.push_back({row->front(), found.format(row->back())});
        }
        return all;
    }

    // Whether a call is tested: of a long walk every fifth one, which still covers each kind of call on each kind of
    // value. VRIX_FAULTS may ask for "all", or for those of "files", for builds where only the files differ.
    static bool isTried(const Cells& calls, std::size_t n) {
        const char* asked = std::getenv("VRIX_FAULTS");
        const std::string which = asked == nullptr ? "" : asked;
        if (which == "files")
            return std::regex_match(calls[n], pattern("(drop|make|write|finish|openText|readLine)\\b.*"));
        return which == "all" || calls.size() <= 300 || n % 5 == 0;
    }

    // Refuses each call of the walk: alone, and together with all later ones.
    void refuseEach(const Cells& walk) {
        const Outcome calm = run(walk);
        const std::vector<Cells> told = verdicts(walk[1], calm.calls);
        ASSERT_TRUE(calm.sound && calm.report.empty()) << walk[1];
        std::map<std::string, int> count, reports;
        for (std::size_t fault = 0; fault < 2 * told.size(); ++fault) {
            const std::size_t n = fault / 2;
            const bool onwards = fault % 2 == 1;
            if (!isTried(calm.calls, n)) continue;
            const auto own = told.begin() + static_cast<std::ptrdiff_t>(n);
            const auto last = onwards ? std::find_if(own, told.end(), isLast) : own;
            const std::string report = last != told.end() && isReport(*last) ? last->front() : "";
            const bool writesOn = !onwards && !isReport(*own) && own->front() != "stays";
            const std::string& reference = writesOn ? calm.state : calm.states[n];
            const std::string changes = onwards ? "" : own->back();
            const Outcome ran = run(walk, static_cast<int>(n), static_cast<int>(onwards ? told.size() + 9'999 : n));
            const bool same = ran.state == reference;
            const bool asTold = writesOn && own->front() == "default" ? !same : same || !changes.empty();
            const bool good = ran.sound && ran.report == report && asTold &&
                              (n == 0 || ran.calls.at(n - 1) == calm.calls[n - 1]) &&
                              (same || without(changes, ran.state) == without(changes, reference));
            EXPECT_TRUE(good) << walk[1] << ": " << n << ' ' << calm.calls[n]
                              << (onwards ? " and all behind it: " : ": ") << own->front() << ' ' << changes
                              << ", reported " << ran.report << '\n'
                              << ran.state;
            ++count["faults"];
            if (!good) ++count["defects"];
            ++(report.empty() ? count[own->front() == "silent" ? "silent" : "default"] : reports[report]);
        }
        report_ << "| " << walk[1] << " | " << told.size();
        for (const char* column : {"faults", "silent", "default"}) report_ << " | " << count[column];
        report_ << " |";
        for (const auto& [number, times] : reports) report_ << ' ' << number << ": " << times;
        report_ << " | " << count["defects"] << " |\n";
    }

    TemporaryFolder folder_;
    std::shared_ptr<StubRegistry> store_ = std::make_shared<StubRegistry>();
    std::vector<Cells> table_;
    static inline std::ostringstream report_;
};

TEST_F(Faults, AreIgnoredReportedOrReadAsDefaults) {
    makeStore();
    for (const Cells& row : table_) {
        if (row[0] == "walk") refuseEach(row);
    }
}

}  // namespace
}  // namespace vrix
