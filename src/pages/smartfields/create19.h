#pragma once

#include <cstdint>

#include "common/text_table.h"
#include "shell/page.h"

namespace vrix {

// The SmartFields of the Product at work, with their delimiters. How many there are, Create19 counts; elements behind
// them hold old text.
struct SmartFieldModule {
    TextTable SmartFieldList;
};

// The SmartFields of a Product: replacement texts that stand in documents as "<!" text "!>". They are listed and stored
// with these delimiters and typed without.
class Create19 final : public Page {
public:
    Label SmartFieldsLbl{Frame2, "SmartFieldsLbl", {0, 0, 0, 18}, "SmartFields:"};
    ComboBox SmartFields{Frame2, "SmartFields", {0, 22, 400, 24}};
    Label OpenLbl{Frame2, "OpenLbl", {0, 93, 20, 18}, "<!"};
    Label SmartFieldTextLbl{Frame2, "SmartFieldTextLbl", {0, 68, 0, 18}, "SmartField Text:"};
    TextBox SmartFieldText{Frame2, "SmartFieldText", {24, 90, 352, 24}};
    Label CloseLbl{Frame2, "CloseLbl", {382, 93, 20, 18}, "!>"};
    ImageButton CreateBtn{Frame2, "CreateBtn", {0, 140, 88, 28}, "Create", 'C'};
    ImageButton UpdateBtn{Frame2, "UpdateBtn", {100, 140, 88, 28}, "Update", 'U'};
    ImageButton DeleteBtn{Frame2, "DeleteBtn", {200, 140, 88, 28}, "Delete", 'D'};
    CheckBox SmartFieldsDefault{Frame2, "SmartFieldsDefault", {0, 196, 0, 22}, "SmartFields Updated By Default"};

    std::int16_t SmartFieldCount = 0;

    explicit Create19(Toolkit& owner);
    void initThis() override;

private:
    void loadFromStore();
    void showCurrent();
    std::string delimited() const;
    void createThis19();
    void updateThis19();
    void deleteThis19();
    void compact();
    void nextThis19();
    void save();
    TextTable& list();
};

}  // namespace vrix
