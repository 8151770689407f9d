#include "pages/topics/topic_rewrite.h"

#include "common/number.h"
#include "store/cregistry_functions.h"

namespace vrix {

namespace {

constexpr const char* topicsKey = "\\Topics";
constexpr const char* addedTopicsKey = "\\Toolkit\\Topics";
constexpr const char* indexTableKey = "\\Dependencies\\IndexTable";
constexpr const char* matrixKey = "\\Dependencies\\Matrix";

}  // namespace

void TopicRewrite::run(const TopicRows& topics) {
    const auto kept = settings_.keepKeys();
    sizeTables(topics.count);
    deleteTopics();
    readOldIndexTable();
    if (topics.count < 2) {
        saveSingleTopic(topics);
        return;
    }
    for (int r = 0; r < topics.count; ++r) saveTopic(topics, r);
    writeBack(topics);
}

void TopicRewrite::sizeTables(std::int16_t n) {
    statement_([&] { keptIndex_.sizeTo(n); });
    statement_([&] { keptRows_.sizeTo(n); });
    statement_([&] { oldIndexCells_.sizeTo(add16(n, n)); });
}

void TopicRewrite::deleteTopics() {
    settings_.DeleteSetting(application, root_ + topicsKey, "");
    SettingsTable added;
    statement_([&] { added = settings_.GetAllSettings(application, root_ + addedTopicsKey); });
    // The delete stands under the condition that the listing is empty text. A table cannot be compared with text: that
    // failure ends the routine, or it is ignored and the delete runs all the same.
    statement_([&] {
        if (added.isTable()) throw RuntimeFailure(FailureNumber::typeMismatch);
    });
    settings_.DeleteSetting(application, root_ + addedTopicsKey, "");
}

void TopicRewrite::readOldIndexTable() {
    SettingsTable table;
    statement_([&] { table = settings_.GetAllSettings(application, root_ + indexTableKey); });
    std::size_t cells = 0;
    statement_([&] { cells = table.cellCount(); });
    for (std::size_t c = 0; c < cells; ++c) {
        statement_([&] { oldIndexCells_.at(static_cast<int>(c)) = table.cell(c); });
    }
}

void TopicRewrite::saveSingleTopic(const TopicRows& topics) {
    const char* home = isDeveloper_ || standardRows_ >= 0 ? topicsKey : addedTopicsKey;
    statement_([&] { settings_.SaveSetting(application, root_ + home, topics.names.at(0), topics.paths.at(0)); });
}

void TopicRewrite::saveTopic(const TopicRows& topics, int r) {
    const char* home = isDeveloper_ || r < standardRows_ ? topicsKey : addedTopicsKey;
    const std::string indexTable = root_ + indexTableKey;
    statement_([&] { old_ = settings_.GetSetting(application, indexTable, oldIndexCells_.at(r), ""); });
    statement_([&] { settings_.SaveSetting(application, root_ + home, topics.names.at(r), topics.paths.at(r)); });
    statement_([&] { keptIndex_.at(r) = settings_.GetSetting(application, indexTable, topics.names.at(r), ""); });
    statement_([&] {
        if (keptIndex_.at(r).empty()) keptIndex_.at(r) = std::to_string(r);
    });
    // The old index at this row takes precedence over the Topic's own. In the develop tree only one with two digits
    // does.
    const bool placeWins = isDeveloper_ ? old_.size() > 1 : !old_.empty();
    statement_([&] {
        if (placeWins) keptIndex_.at(r) = old_;
    });
    statement_([&] { keptRows_.at(r) = settings_.GetSetting(application, root_ + matrixKey, keptIndex_.at(r), ""); });
}

void TopicRewrite::writeBack(const TopicRows& topics) {
    const std::string indexTable = root_ + indexTableKey;
    const std::string matrix = root_ + matrixKey;
    settings_.DeleteSetting(application, indexTable, "");
    settings_.DeleteSetting(application, matrix, "");
    const int last = statement_.ignoreFailures ? topics.count : topics.count - 1;
    for (int k = 0; k <= last; ++k) {
        statement_([&] { settings_.SaveSetting(application, indexTable, topics.names.at(k), keptIndex_.at(k)); });
        statement_([&] { settings_.SaveSetting(application, matrix, keptIndex_.at(k), keptRows_.at(k)); });
    }
}

}  // namespace vrix
