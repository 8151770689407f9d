#pragma once

#include <memory>
#include <vector>

#include "shell/page.h"

namespace vrix {

// One user defined field: its name, where it stands in the document, and its file.
struct UserField {
    UserField(Container& page, int number, int slot);
    Label title;
    Label nameLbl;
    TextBox name;
    Label posLbl;
    ComboBox pos;
    Label pathLbl;
    TextBox path;
    ImageButton browse;
};

// A page for some of the ten user defined fields. All such pages and the pages of their options are one group, which
// Create10 begins and Create16 ends.
class FieldsPage : public Page {
public:
    Label Label3{Frame2, "Label3", {0, 0, 0, 18}, "These User Defined Fields will appear on the Vrix Options screen."};
    // One for all fields.
    CommonDialog CommonDialog1{toolkit.platform.fileDialog, "Browse For User Defined Documents", wordDocuments, ".doc"};

    void initThis() override;
    UserField& field(int number) { return *fields_[static_cast<std::size_t>(number - first_)]; }

protected:
    FieldsPage(Toolkit& owner, std::string_view name, int first, int last);

private:
    Page& group() override;
    int first_;
    std::vector<std::unique_ptr<UserField>> fields_;
};

class Create10 final : public FieldsPage {
public:
    explicit Create10(Toolkit& owner);

private:
    Form& pageBefore() const;
};

class Create11 final : public FieldsPage {
public:
    explicit Create11(Toolkit& owner);
};

class Create12 final : public FieldsPage {
public:
    explicit Create12(Toolkit& owner);
};

class Create13 final : public FieldsPage {
public:
    explicit Create13(Toolkit& owner);

private:
    void nextThis13();
};

inline constexpr int userFieldCount = 10;

// The field of that number, from 1.
UserField& userField(const Toolkit& toolkit, int number);

// Whether any field has a path. A name alone does not count.
bool anyFieldHasPath(const Toolkit& toolkit);

}  // namespace vrix
