#pragma once

#include "shell/page.h"

namespace vrix {

// A page for one optional section of a document: its file, and three switches. A group of its own.
class OptionalSection : public Page {
public:
    Label Label3;
    TextBox path;
    ImageButton Browse1Btn{Frame2, "Browse1Btn", {-88, 20, 88, 28}, "Browse"};
    CheckBox mayDisable;
    CheckBox display;
    CheckBox byDefault;

    CommonDialog CommonDialog1{toolkit.platform.fileDialog, "Browse For Course Briefing", wordDocuments, ".doc"};

    void initThis() override;

protected:
    // The controls' names are made of the stems: that of the file and the default, and that of the other switches.
    OptionalSection(Toolkit& owner, std::string_view name, const std::string& title, const std::string& stem,
                    const std::string& switchStem);
    // Next: stores the section and returns to the hub when editing, goes on to that page otherwise.
    void goOn(Page& next);

private:
    void load() override;
};

// The content summary, in its controls still called by its older name.
class Create5 final : public OptionalSection {
public:
    explicit Create5(Toolkit& owner);
};

// The table of contents.
class Create6 final : public OptionalSection {
public:
    explicit Create6(Toolkit& owner);
};

// The conclusion.
class Create7 final : public OptionalSection {
public:
    explicit Create7(Toolkit& owner);
};

}  // namespace vrix
