#include "store/product_reg.h"

#include "common/number.h"
#include "store/cregistry_functions.h"

namespace vrix {

namespace {

std::size_t filledCells(const SettingsTable& table) {
    if (!table.isTable()) return 0;
    std::size_t filled = 0;
    for (std::size_t index = 0; index < table.cellCount(); ++index) {
        if (!table.cell(index).empty()) ++filled;
    }
    return filled;
}

}  // namespace

void ProductReg::GetProducts() {
    Products = settings_.GetAllSettings(application, "Products");
    DevelopProducts = settings_.GetAllSettings(application, "Toolkit\\Products");
    DevelopSomeProducts = DevelopProducts.isTable();
    // The rows are half of the cells; a cell with empty text is not counted.
    const std::size_t installed = filledCells(Products);
    const std::size_t develop = filledCells(DevelopProducts);
    CountProducts = halved(cappedCount16(installed + develop));
    DevelopCountProducts = halved(cappedCount16(develop));
}

void ProductReg::GetTopics(const std::string& ProductRegKey) {
    ProductTopics = settings_.GetAllSettings(application, ProductRegKey + "\\Topics");
    // Where the develop tree has any Product, the second table is not read, whatever Product is selected.
    const bool onlyFirst = DevelopSomeProducts && installedRows() >= 0;
    ToolkitTopics =
        onlyFirst ? SettingsTable() : settings_.GetAllSettings(application, ProductRegKey + "\\Toolkit\\Topics");
    ToolkitTopicsValid = ToolkitTopics.isTable();
    // A missing first table counts as one cell. Alone that is half a row, which rounds to none.
    const std::size_t first = ProductTopics.isTable() ? ProductTopics.cellCount() : 1;
    const std::size_t second = ToolkitTopicsValid ? ToolkitTopics.cellCount() : 0;
    CountTopics = halved(cappedCount16(first + second));
    ToolkitCountTopics = halved(cappedCount16(second));
}

Topic ProductReg::topic(int row) const {
    const bool standard = !ToolkitTopicsValid || row < standardRows();
    const SettingsTable& table = standard ? ProductTopics : ToolkitTopics;
    const int place = standard ? row : row - standardRows();
    return {table.name(place), table.text(place)};
}

}  // namespace vrix
