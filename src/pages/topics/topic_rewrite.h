#pragma once

#include <cstdint>
#include <string>

#include "common/runtime_failure.h"
#include "common/text_table.h"
#include "shell/toolkit.h"

namespace vrix {

// A list of Topics: names and paths by row, and the number of rows.
struct TopicRows {
    const TextTable& names;
    const TextTable& paths;
    std::int16_t count;
};

enum class FailuresAre { ignored, fatal };

// Rewrites the Topics of an existing Product in the order of a list. The store keeps the order in which values are
// written, so this alone changes it. Each Topic keeps its index and its dependency row as far as they are found. With
// failures ignored, a statement that fails is skipped, and one more index and row are written behind the last Topic.
// Otherwise a failure ends the routine, and the keys stay half written.
class TopicRewrite {
public:
    // For the selected Product. Rows of the standard set of an installed Product are told by their place; in the
    // develop tree all rows count alike.
    TopicRewrite(const Toolkit& toolkit, FailuresAre failures);

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
    std::string old_;  // of the row; when its read fails, still that of the row before
};

}  // namespace vrix
