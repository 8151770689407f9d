#pragma once

#include "common/text_table.h"
#include "shell/page.h"

namespace vrix {

// Which Topics each Topic depends on. The rows marked in DependsList are those on which the shown Topic depends.
class Create9 final : public Page {
public:
    Label TopicsLbl{Frame2, "TopicsLbl", {0, 0, 0, 18}, "Topic:"};
    ComboBox Topics{Frame2, "Topics", {0, 22, 400, 24}};
    Label DependsLbl{Frame2, "DependsLbl", {0, 64, 0, 18}, "This Topic depends on:"};
    MarkList DependsList{Frame2, "DependsList", {0, 86, 0, 0}};

    TextTable Depends;         // the dependency row of each row of Topics: row numbers, separated by single blanks
    TextTable EditTopicNames;  // when editing, the Topics' names in list order

    explicit Create9(Toolkit& owner);
    void initThis() override;

private:
    void load() override {}  // those who show the page start it
    void loadTopics();
    void loadMatrix();
    // Fills DependsList with every Topic but the one at that row, and marks those on which that one depends. Failure 9
    // or 13 for rows that the list of Topics does not have; a row outside Depends marks nothing.
    void fillDependsList(int topicRow);
    void rebuildRow();
    void nextThis9();
    void save();
};

}  // namespace vrix
