#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "common/code_page.h"
#include "failing_machine.h"
#include "files.h"
#include "makers/embedded/code_page_registry.h"
#include "makers/embedded/embedded_registry.h"
#include "makers/headless/headless_user.h"
#include "makers/standard/standard_files.h"
#include "program/program.h"

namespace vrix {

// The whole program on a registry in memory, windows without a screen, a stopped clock, and files in a folder of its
// own, with a user at its windows.
class Walk {
public:
    Walk();
    // On a store that another run of the program left behind.
    explicit Walk(std::shared_ptr<EmbeddedRegistry> left);
    // At a page of the create chain.
    explicit Walk(const std::string& page) : Walk() { createTo(page); }

    std::shared_ptr<EmbeddedRegistry> stored;
    CodePageRegistry registry{*stored};
    HeadlessWindows windows;
    HeadlessFileDialog dialog;
    StandardFiles files;
    FailingMachine machine{registry, files};  // between these and the program
    SetClock clock;
    Program program;
    HeadlessUser user{windows};
    Toolkit& pages = program.toolkit();

    // From the splash to the main screen.
    Walk& start();
    // Through the create chain to that page, with the least that each page before it needs: two Topics, one path of a
    // user defined field.
    Walk& createTo(const std::string& page);
    // What a page of the create chain needs before its Next leads on.
    void fillLeast(const std::string& page);
    // Makes a Product of the develop tree with two Topics, and comes back to the main screen.
    Walk& createProduct(const std::string& name);
    // From the main screen through the selection of a Product to the hub.
    Walk& editProduct(int row = 0);
    // What a user does at the window in front, word by word: "NextBtn" presses, "OrderOption(2)" chooses;
    // "TopicName=R&D" types, "ShowTOC=0" checks, "Topics=1" chooses a row, "DependsList=1" marks it, "DependsList=-1"
    // takes the mark away. "_" stands for a blank. "NextBtn*3" presses three times.
    Walk& act(const std::string& words);
    // Puts into the controls of the options, or of those on one page, their contents for that run.
    void setOptions(unsigned run, const std::string& page = {});

    std::string front() { return user.form().name(); }
    // The last message as "title: text", or nothing; it is forgotten then.
    std::string message();
    std::string text(const std::string& form, const std::string& name);  // a control's content or caption
    std::string path(const std::string& name) const { return folder_.path(name); }
    std::string file(const std::string& name) const { return bytesOf(systemEncoding().decode(path(name))); }

    void put(const std::string& section, const std::string& name, const std::string& data);
    // All keys and values below a section of the family key, or of another key of the machine, in the registry's order:
    // "[key]" and "name=text" lines.
    std::string tree(const std::string& section = "", const std::string& root = "Software\\Vrix\\");

private:
    TemporaryFolder folder_;
};

// A file that lies beside the tests.
std::string expected(const std::string& name);

// An option of a Product, a row of expected/options.table: the name of its value, the control that it is typed into,
// and whether it is a "flag", an "index", a "text" or a "path".
struct ToldOption {
    std::string name, page, control, kind;
    unsigned number = 0;

    // A content for one of several runs: no two texts are alike, and no two flags are alike in seven runs on end.
    std::string content(unsigned run) const;
};
const std::vector<ToldOption>& toldOptions();

}  // namespace vrix
