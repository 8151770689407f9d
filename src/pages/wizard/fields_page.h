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
    CommonDialog CommonDialog1;  // one for all fields

    void initThis();
    UserField& field(int number) { return *fields_[static_cast<std::size_t>(number - first_)]; }

protected:
    FieldsPage(Toolkit& owner, std::string_view name, int first, int last);
    virtual void nextThis() = 0;
    virtual void backThis() = 0;

private:
    void load() override { initThis(); }
    int first_;
    std::vector<std::unique_ptr<UserField>> fields_;
};

class Create10 final : public FieldsPage {
public:
    bool Edit = false;  // of the whole group
    explicit Create10(Toolkit& owner) : FieldsPage(owner, "Create10", 1, 3) {}

private:
    void nextThis() override;
    void backThis() override;
};

class Create11 final : public FieldsPage {
public:
    explicit Create11(Toolkit& owner) : FieldsPage(owner, "Create11", 4, 5) {}

private:
    void nextThis() override;
    void backThis() override;
};

class Create12 final : public FieldsPage {
public:
    explicit Create12(Toolkit& owner) : FieldsPage(owner, "Create12", 6, 8) {}

private:
    void nextThis() override;
    void backThis() override;
};

class Create13 final : public FieldsPage {
public:
    explicit Create13(Toolkit& owner) : FieldsPage(owner, "Create13", 9, 10) {}

private:
    void nextThis() override;
    void backThis() override;
};

inline constexpr int userFieldCount = 10;

// The field of that number, from 1, on whichever page it lies.
UserField& userField(const Toolkit& toolkit, int number);

// Whether any field has a path. Names do not count.
bool anyFieldHasPath(const Toolkit& toolkit);

}  // namespace vrix
