#include "pages/topics/create20.h"

#include <cstdlib>

#include "common/number.h"
#include "pages/smartfields/create19.h"
#include "pages/topics/create8.h"
#include "pages/topics/create9.h"
#include "pages/topics/topic_order.h"
#include "pages/topics/topic_rewrite.h"

namespace vrix {

Create20::Create20(Toolkit& owner) : Page(owner, "Create20", "Reorder Topics") {
    for (int n = 0; n < optionCount; ++n) {
        OrderOption[static_cast<std::size_t>(n)].onClick = [this, n] { OrderChosenOption = add16(0, n); };
    }
    using Direction = TopicOrderModule::Direction;
    MoveUpBtn.action = [this] { toolkit.topicOrderModule.moveOrderRow(OrderChosenOption, Direction::up); };
    MoveDownBtn.action = [this] { toolkit.topicOrderModule.moveOrderRow(OrderChosenOption, Direction::down); };
    PageUpBtn.action = [this] { turnPage(1, toolkit.topicOrderModule.OrderPageCount); };
    PageDownBtn.action = [this] { turnPage(-1, 1); };
    MoveDownBtn.tip = "Move the Topic up (Alt+Up)";
    MoveUpBtn.tip = "Move the Topic down (Alt+Down)";
    PageDownBtn.counterpart = &PageUpBtn;
    PageUpBtn.counterpart = &PageDownBtn;
    shortcuts = {{Key::altUp, MoveDownBtn.action},
                 {Key::altDown, MoveUpBtn.action},
                 {Key::home, [this] { moveTo(0, MoveDownBtn); }},
                 {Key::end, [this] { moveTo(toolkit.topicOrderModule.OrderRowCount - 1, MoveUpBtn); }}};
    NextBtn.action = [this] { nextThis20(); };
    BackBtn.action = [this] { backInGroup(toolkit.create8); };
    ExitBtn.action = [this] { exitThis20(); };
}

// When editing, only the hub's call starts the page.
void Create20::load() {
    if (!Edit) initThis();
}

void Create20::initThis() {
    showTaskOfLastPage();
    toolkit.topicOrderModule.loadOrderTable();
}

void Create20::turnPage(int step, int lastPage) {
    if (OrderCurrentView != lastPage) OrderCurrentView = add16(OrderCurrentView, step);
    toolkit.topicOrderModule.showOrderPage(OrderCurrentView);
}

void Create20::moveTo(int row, const ImageButton& button) {
    const int chosen = (OrderCurrentView - 1) * optionCount + OrderChosenOption;
    for (int steps = std::abs(row - chosen); steps > 0; --steps) button.action();
}

void Create20::nextThis20() {
    const TopicOrderModule::Columns& ordered = toolkit.topicOrderModule.OrderTable;
    if (Edit) {
        TopicRewrite(toolkit, FailuresAre::fatal)
            .run({ordered.names, ordered.paths, toolkit.topicOrderModule.OrderRowCount});
        endEdit();
        return;
    }
    toolkit.create8.TopicNames = ordered.names;
    toolkit.create8.TopicPaths = ordered.paths;
    setEnabled(false);
    hide();
    toolkit.create9.initThis();
    toolkit.create9.show();
    toolkit.create9.setEnabled(true);
}

// On purpose this ends the edit mode of Create19, and not its own.
void Create20::exitThis20() {
    if (Edit) {
        goToHub();
        toolkit.create19.Edit = false;
    } else {
        goToMain();
    }
}

}  // namespace vrix
