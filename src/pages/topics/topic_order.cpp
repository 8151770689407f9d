#include "pages/topics/topic_order.h"

#include <string>

#include "common/number.h"
#include "common/runtime_failure.h"
#include "pages/topics/create20.h"
#include "pages/topics/create8.h"
#include "store/product_reg.h"
#include "store/selected_product.h"

namespace vrix {

void TopicOrderModule::loadOrderTable() {
    if (toolkit_.create20.Edit) {
        loadFromStore();
    } else {
        loadFromPage();
    }
    OrderRowCount = 0;
    countOrderRows();
    Create20& page = toolkit_.create20;
    page.OrderCurrentView = 1;
    page.PageDownBtn.setDisabled(true);
    showOrderPage(1);
    page.OrderChosenOption = 0;
}

void TopicOrderModule::loadFromPage() {
    const Create8& topics = toolkit_.create8;
    sizeColumns(topics.i - 1);
    for (int r = 0; r < topics.i; ++r) {
        OrderTable.names.at(r) = topics.TopicNames.at(r);
        OrderTable.paths.at(r) = topics.TopicPaths.at(r);
    }
}

void TopicOrderModule::loadFromStore() {
    ProductReg& reg = toolkit_.productReg;
    reg.GetTopics(toolkit_.selectedProduct.ProductRegKey);
    sizeColumns(reg.CountTopics - 1);
    for (int r = 0; r < reg.CountTopics; ++r) {
        const Topic topic = reg.topic(r);
        OrderTable.names.at(r) = topic.name;
        OrderTable.paths.at(r) = topic.path;
    }
}

void TopicOrderModule::sizeColumns(int upper) {
    OrderTable.names.sizeTo(upper);
    OrderTable.paths.sizeTo(upper);
    OrderTable.numbers.resize(OrderTable.names.count());
    for (int r = 0; r <= upper; ++r) OrderTable.numbers[static_cast<std::size_t>(r)] = add16(0, r);
}

void TopicOrderModule::countOrderRows() { OrderRowCount = add16(OrderRowCount, count16(OrderTable.names.count())); }

void TopicOrderModule::showOrderPage(int page) {
    OrderPageSize = Create20::optionCount;
    OrderPageCount = add16(0, (OrderRowCount + OrderPageSize - 1) / OrderPageSize);
    Create20& view = toolkit_.create20;
    if (page <= OrderPageCount) {
        const int start = page * OrderPageSize - OrderPageSize;
        for (OptionButton& option : view.OrderOption) option.setVisible(false);
        for (int j = 0; j < OrderPageSize && start + j < OrderRowCount; ++j) {
            OptionButton& option = view.OrderOption[static_cast<std::size_t>(j)];
            option.setCaption(doubleAmpersands(OrderTable.names.at(start + j)));
            option.setVisible(true);
        }
    }
    view.PageDownBtn.setDisabled(page == 1);
    view.PageUpBtn.setDisabled(page == OrderPageCount);
    view.PageNum.setCaption(std::to_string(page) + "/" + std::to_string(OrderPageCount));
    view.OrderCurrentView = add16(0, page);
    choose(0);
}

void TopicOrderModule::choose(int option) {
    if (option < 0 || option >= Create20::optionCount) throw RuntimeFailure(FailureNumber::subscript);
    toolkit_.create20.OrderOption[static_cast<std::size_t>(option)].choose();
}

void TopicOrderModule::moveOrderRow(const std::int16_t& chosen, Direction direction) {
    const int a = OrderPageSize * toolkit_.create20.OrderCurrentView + chosen - OrderPageSize;
    const int neighbour = direction == Direction::down ? a - 1 : a + 1;
    if (neighbour >= 0 && neighbour < OrderRowCount) {
        OrderTable.numbers.at(static_cast<std::size_t>(a)) = add16(0, neighbour);
        OrderTable.numbers.at(static_cast<std::size_t>(neighbour)) = add16(0, a);
    }
    applyOrderNumbers();
    if (direction == Direction::down) {
        followDown(a);
    } else {
        followUp(a);
    }
}

// Chooses the Topic again that moved from row `a` to the row before.
void TopicOrderModule::followDown(int a) {
    const int view = toolkit_.create20.OrderCurrentView;
    const int size = OrderPageSize;
    if (a - 1 < 0) return;
    if (view == 1) {
        choose(a - 1);
    } else if (a > (view - 1) * size) {
        choose(a - 1 - (view - 1) * size);
    } else {
        showOrderPage(view - 1);
        choose(a - 1 - (toolkit_.create20.OrderCurrentView - 1) * size);
    }
}

// Chooses the Topic again that moved from row `a` to the row behind.
void TopicOrderModule::followUp(int a) {
    const int view = toolkit_.create20.OrderCurrentView;
    const int size = OrderPageSize;
    if (a + 1 >= OrderRowCount) {
        choose(OrderRowCount - (view - 1) * size - 1);
    } else if (a + 1 >= view * size) {
        showOrderPage(view + 1);
        choose(a + 1 - (toolkit_.create20.OrderCurrentView - 1) * size);
    } else if (view < 2) {
        choose(a + 1);
    } else {
        showOrderPage(view);
        choose(a + 1 - (view - 1) * size);
    }
}

// Changes only the rows to which another row moves. Where two numbers are equal, the later row wins.
void TopicOrderModule::applyOrderNumbers() {
    constexpr int none = -1;
    std::vector<int> coming(static_cast<std::size_t>(OrderRowCount), none);  // for each place, the row that moves to it
    for (int row = 0; row < static_cast<int>(OrderTable.numbers.size()); ++row) {
        const int place = OrderTable.numbers[static_cast<std::size_t>(row)];
        if (place >= 0 && place < OrderRowCount) coming[static_cast<std::size_t>(place)] = row;
    }
    struct Row {
        int place;
        std::string name;
        std::string path;
    };
    std::vector<Row> moved;
    for (int place = 0; place < OrderRowCount; ++place) {
        const int row = coming[static_cast<std::size_t>(place)];
        if (row == none || row == place) continue;
        moved.push_back({place, OrderTable.names.at(row), OrderTable.paths.at(row)});
    }
    for (const Row& row : moved) {
        OrderTable.names.at(row.place) = row.name;
        OrderTable.numbers[static_cast<std::size_t>(row.place)] = static_cast<std::int16_t>(row.place);
        OrderTable.paths.at(row.place) = row.path;
    }
    showOrderPage(toolkit_.create20.OrderCurrentView);
}

std::string TopicOrderModule::doubleAmpersands(const std::string& text) {
    std::string doubled;
    for (const char c : text) doubled += c == '&' ? std::string("&&") : std::string(1, c);
    return doubled;
}

}  // namespace vrix
