#pragma once

#include <cstdint>

#include "common/text_table.h"
#include "shell/page.h"

namespace vrix {

// The Topics of a Product: names and files. When creating, the page fills tables in memory; when editing, its Next
// rewrites the store.
class Create8 final : public Page {
public:
    Label TopicsLbl{Frame2, "TopicsLbl", {0, 0, 0, 18}, "Topic:"};
    ComboBox Topics{Frame2, "Topics", {0, 22, 400, 24}};
    Label TopicNameLbl{Frame2, "TopicNameLbl", {0, 68, 0, 18}, "Topic Name:"};
    TextBox TopicName{Frame2, "TopicName", {0, 90, 400, 24}};
    Label TopicPathLbl{Frame2, "TopicPathLbl", {0, 128, 0, 18}, "Topic File:"};
    TextBox TopicPath{Frame2, "TopicPath", {0, 150, -102, 24}};
    ImageButton Browse1Btn{Frame2, "Browse1Btn", {-88, 148, 88, 28}, "Browse"};
    ImageButton CreateBtn{Frame2, "CreateBtn", {0, 204, 88, 28}, "Create", 'C'};
    ImageButton UpdateBtn{Frame2, "UpdateBtn", {100, 204, 88, 28}, "Update", 'U'};
    ImageButton DeleteBtn{Frame2, "DeleteBtn", {200, 204, 88, 28}, "Delete", 'D'};

    CommonDialog CommonDialog1{toolkit.platform.fileDialog, "Browse For Course Briefing", wordDocuments, ".doc"};

    TextTable TopicNames;  // has more than i elements once a Topic was created; from element i on stale text
    TextTable TopicPaths;
    std::int16_t i = 0;               // the number of rows, and the next free one
    std::int16_t thisTopicCount = 0;  // elements of TopicNames less 1, set by Next alone
    bool Edit = false;

    explicit Create8(Toolkit& owner);
    void initThis8();
    // Adds the Topics of a text file, one "name:stem" line each; the files lie in the folder of the text file. Failures
    // as in Files, and 9 for a line without ":"; the Topics before it stay.
    void ImportFile(const std::string& path);

private:
    void load() override { initThis8(); }
    void loadTopics();
    void showCurrentTopic();
    void emptyBoxes();
    void growTables();
    void appendRow(const std::string& name);
    void createThis8();
    void updateThis8();
    void deleteThis8();
    void removeTopic(int row);
    void compact();
    void countDeleted(int row);
    void nextThis8();
    void rewriteTopicKeys();
    void backThis8();
};

}  // namespace vrix
