#pragma once

#include <memory>
#include <vector>

#include "shell/page.h"

namespace vrix {

// A page with one check box for each user defined field.
class FieldOptionsPage : public Page {
public:
    Label Label3;

    void initThis() override;
    // The ten boxes, in number order.
    std::vector<Control*> boxes() const;

protected:
    // `boxName` is the name of the boxes without their number.
    FieldOptionsPage(Toolkit& owner, std::string_view name, std::string_view prompt, std::string_view boxName);

private:
    Page& group() override;
    std::vector<std::unique_ptr<CheckBox>> boxes_;
};

class Create14 final : public FieldOptionsPage {
public:
    explicit Create14(Toolkit& owner);
};

class Create15 final : public FieldOptionsPage {
public:
    explicit Create15(Toolkit& owner);
};

// Ends the group of the user defined fields, and alone writes it.
class Create16 final : public FieldOptionsPage {
public:
    explicit Create16(Toolkit& owner);

private:
    std::vector<Control*> groupControls() const;
    void nextThis16();
};

}  // namespace vrix
