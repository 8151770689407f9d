#pragma once

#include "shell/page.h"

namespace vrix {

// What one optional section of a document is called, on its page and in its controls' names.
struct SectionNames {
    std::string_view page;
    std::string_view heading;
    std::string_view fileCaption;
    std::string_view pathName;
    std::string_view mayDisableName;
    std::string_view mayDisableCaption;
    std::string_view displayName;
    std::string_view displayCaption;
    std::string_view byDefaultName;
    std::string_view byDefaultCaption;
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

    CommonDialog CommonDialog1;
    bool Edit = false;

    void initThis();

protected:
    OptionalSection(Toolkit& owner, const SectionNames& names);
    virtual void goToNext() = 0;
    virtual void goToPrevious() = 0;

private:
    void load() override;
    void pathChanged();
    void nextThis();
    void backThis();
};

// The content summary, in its controls still called by its older name.
class Create5 final : public OptionalSection {
public:
    explicit Create5(Toolkit& owner);

private:
    void goToNext() override;
    void goToPrevious() override;
};

// The table of contents.
class Create6 final : public OptionalSection {
public:
    explicit Create6(Toolkit& owner);

private:
    void goToNext() override;
    void goToPrevious() override;
};

// The conclusion.
class Create7 final : public OptionalSection {
public:
    explicit Create7(Toolkit& owner);

private:
    void goToNext() override;
    void goToPrevious() override;
};

}  // namespace vrix
