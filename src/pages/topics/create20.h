#pragma once

#include <array>
#include <cstdint>

#include "shell/page.h"

namespace vrix {

// The order of the Topics, in pages of six option buttons. The names of the move and page buttons follow the numbers:
// "up" raises a Topic's row number, which moves it down the screen.
class Create20 final : public Page {
public:
    static constexpr int optionCount = 6;

    Label OrderLbl{Frame2, "OrderLbl", {0, 0, 0, 18}, "Topics:"};
    std::array<OptionButton, optionCount> OrderOption{
        OptionButton{Frame2, "OrderOption(0)", {0, 26, -80, 22}},
        OptionButton{Frame2, "OrderOption(1)", {0, 58, -80, 22}},
        OptionButton{Frame2, "OrderOption(2)", {0, 90, -80, 22}},
        OptionButton{Frame2, "OrderOption(3)", {0, 122, -80, 22}},
        OptionButton{Frame2, "OrderOption(4)", {0, 154, -80, 22}},
        OptionButton{Frame2, "OrderOption(5)", {0, 186, -80, 22}},
    };
    ImageButton MoveDownBtn{Frame2, "MoveDownBtn", {-56, 26, 56, 28}, "-"};
    ImageButton MoveUpBtn{Frame2, "MoveUpBtn", {-56, 64, 56, 28}, "+"};
    ImageButton PageDownBtn{Frame2, "PageDownBtn", {0, 236, 120, 28}, "Previous Page"};
    ImageButton PageUpBtn{Frame2, "PageUpBtn", {130, 236, 120, 28}, "Next Page"};
    Label PageNum{Frame2, "PageNum", {266, 241, 120, 18}, "x/x"};

    std::int16_t OrderCurrentView = 0;   // the page on show, from 1
    std::int16_t OrderChosenOption = 0;  // the chosen row on the page
    std::int16_t ordermodulecount = 0;   // a public member that nothing uses

    explicit Create20(Toolkit& owner);
    void initThis() override;

private:
    void load() override;
    void turnPage(int step, int lastPage);
    // Moves the chosen Topic to a row, one step of the button after the other.
    void moveTo(int row, const ImageButton& button);
    void nextThis20();
    void exitThis20();
};

}  // namespace vrix
