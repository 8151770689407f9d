#pragma once

#include <cstdint>
#include <string>

#include "common/runtime_failure.h"
#include "common/text_table.h"
#include "store/selected_product.h"

namespace vrix {

class cRegistryFunctions;

// A list of Topics: names and paths by row, and the number of rows.
struct TopicRows {
    const TextTable& names;
    const TextTable& paths;
    std::int16_t count;
};

enum class FailuresAre { ignored, fatal };

// Rewrites the Topics of an existing Product in the order of a list, which is the one way in which their order reaches
// the store, and carries each Topic's index and dependency row over as far as they are found. With failures ignored,
// a statement that fails is skipped and the next one runs, and one more entry of index and row is written behind the
// last Topic. Otherwise a failure leaves the keys half written.
class TopicRewrite {
public:
    // Rows below `standardRows` belong to the standard set of an installed Product. In the develop tree all rows count
    // alike.
    TopicRewrite(cRegistryFunctions& settings, const SelectedProduct& product, int standardRows, FailuresAre failures)
        : settings_(settings),
          root_(product.ProductRegKey),
          isDeveloper_(product.isDeveloper),
          standardRows_(standardRows),
          statement_{failures == FailuresAre::ignored} {}

    void run(const TopicRows& topics);

private:
    void sizeTables(std::int16_t n);
    void deleteTopics();
    void readOldIndexTable();
    void saveSingleTopic(const TopicRows& topics);
    void saveTopic(const TopicRows& topics, int r);
    void writeBack(const TopicRows& topics);

    cRegistryFunctions& settings_;
    std::string root_;
    bool isDeveloper_;
    int standardRows_;
    StatementRunner statement_;

    TextTable keptIndex_;
    TextTable keptRows_;
    TextTable oldIndexCells_;
    std::string old_;  // keeps its text from row to row when a read of it fails
};

}  // namespace vrix
