#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/text_table.h"
#include "shell/toolkit.h"

namespace vrix {

// The Topics and their order while Create20 edits it. An order number exists only here; the store keeps the order in
// which the Topics are written.
class TopicOrderModule {
public:
    struct Columns {
        TextTable names;
        std::vector<std::int16_t> numbers;
        TextTable paths;
    };
    enum class Direction { down, up };  // of the row number

    explicit TopicOrderModule(Toolkit& toolkit) : toolkit_(toolkit) {}

    Columns OrderTable;
    std::int16_t OrderRowCount = 0;
    std::int16_t OrderPageCount = 0;
    std::int16_t OrderPageSize = 0;

    // Builds the table from the Topics page or, when editing, from the store, and shows its first page. Failure 9 when
    // there are no Topics at all.
    void loadOrderTable();
    // Draws a page, from 1, and chooses its first button.
    void showOrderPage(int page);
    // Swaps the chosen row with its neighbour, if there is one, and follows the Topic to its new place.
    void moveOrderRow(const std::int16_t& chosen, Direction direction);
    // Adds the number of rows in the table to OrderRowCount.
    void countOrderRows();
    // Puts the rows in the order of their numbers and redraws.
    void applyOrderNumbers();
    // The text with every "&" escaped as "&&", for a caption.
    static std::string doubleAmpersands(const std::string& text);

private:
    void loadFromPage();
    void loadFromStore();
    void sizeColumns(int upper);
    void followDown(int a);
    void followUp(int a);
    void choose(int option);
    Toolkit& toolkit_;
};

}  // namespace vrix
