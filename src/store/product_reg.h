#pragma once

#include <cstdint>
#include <string>

#include "store/settings_table.h"

namespace vrix {

class cRegistryFunctions;

// A Topic: its name and the path of its file.
struct Topic {
    const std::string& name;
    const std::string& path;
};

// The Products that exist, and the Topics of the selected one, as tables and counts that the pages read. They show the
// store as it was at the last call; later changes show after the next one.
class ProductReg {
public:
    explicit ProductReg(cRegistryFunctions& settings) : settings_(settings) {}

    SettingsTable Products;          // of the installed tree: name and key
    SettingsTable DevelopProducts;   // of the develop tree
    std::int16_t CountProducts = 0;  // of both trees together
    std::int16_t DevelopCountProducts = 0;
    bool DevelopSomeProducts = false;  // DevelopProducts is a table

    SettingsTable ProductTopics;   // name and path
    SettingsTable ToolkitTopics;   // those added to an installed Product
    std::int16_t CountTopics = 0;  // of both tables together
    std::int16_t ToolkitCountTopics = 0;
    bool ToolkitTopicsValid = false;  // ToolkitTopics is a table

    // Rereads the lists of both trees. Failure 9 for a list with nothing but an unnamed value.
    void GetProducts();
    // Rereads the Topics below the Product root. Failure 9 as above.
    void GetTopics(const std::string& ProductRegKey);

    // In a list of all Products, rows from here on are of the develop tree.
    int installedRows() const { return CountProducts - DevelopCountProducts; }
    // In a list of all Topics, rows below this one are the standard installation set.
    int standardRows() const { return CountTopics - ToolkitCountTopics; }
    // The Topic at a row of a list of all Topics; failure 9 or 13 outside the tables.
    Topic topic(int row) const;

private:
    cRegistryFunctions& settings_;
};

}  // namespace vrix
