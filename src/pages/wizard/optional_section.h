#pragma once

#include "shell/page.h"

namespace vrix {

// What one optional section of a document is called, on its page and in its controls' names.
struct SectionNames {
    std::string_view page;
    std::string title;
    std::string_view path;
    std::string_view mayDisable;
    std::string_view display;
    std::string_view byDefault;
};

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
    OptionalSection(Toolkit& owner, const SectionNames& names);
    // Next: stores the section and returns to the hub when editing, goes on to that page otherwise.
    void goOn(Page& next);

private:
    void load() override;
    void pathChanged();
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
