#include "pages/topics/create8.h"

#include "common/code_page.h"
#include "common/number.h"
#include "common/runtime_failure.h"
#include "pages/topics/create20.h"
#include "pages/topics/topic_rewrite.h"
#include "pages/wizard/fields_page.h"
#include "pages/wizard/optional_section.h"
#include "platform/files.h"
#include "store/product_reg.h"
#include "store/selected_product.h"

namespace vrix {

Create8::Create8(Toolkit& owner) : Page(owner, "Create8", "Topics") {
    TopicName.enterPresses = TopicPath.enterPresses = &CreateBtn;
    Topics.onClick = [this] { showCurrentTopic(); };
    Browse1Btn.action = [this] { browse(CommonDialog1, TopicPath); };
    CreateBtn.action = [this] { createThis8(); };
    UpdateBtn.action = [this] { updateThis8(); };
    DeleteBtn.action = [this] { deleteThis8(); };
    NextBtn.action = [this] { nextThis8(); };
    BackBtn.action = [this] { backThis8(); };
    ExitBtn.action = [this] { exitGroup(Edit); };
}

void Create8::initThis8() {
    Topics.clear();
    TopicNames = TextTable();
    TopicPaths = TextTable();
    showTaskOfLastPage(Edit);
    if (Edit) {
        loadTopics();
    } else {
        i = 0;
    }
    emptyBoxes();
}

void Create8::loadTopics() {
    ProductReg& reg = toolkit.productReg;
    reg.GetTopics(toolkit.selectedProduct.ProductRegKey);
    TopicNames.sizeTo(reg.CountTopics);
    TopicPaths.sizeTo(reg.CountTopics);
    for (i = 0; i < reg.CountTopics; ++i) {
        const Topic topic = reg.topic(i);
        TopicNames.at(i) = topic.name;
        TopicPaths.at(i) = topic.path;
        Topics.addItem(topic.name);
    }
    Topics.setListIndex(i - 1);
}

void Create8::showCurrentTopic() {
    TopicName.setText(TopicNames.at(Topics.listIndex()));
    TopicPath.setText(TopicPaths.at(Topics.listIndex()));
}

void Create8::emptyBoxes() {
    TopicName.clear();
    TopicPath.clear();
}

void Create8::createThis8() {
    if (TopicName.text().empty()) {
        TopicName.takeFocus();
        tell("Empty Topic Name", "You have not entered a name for your topic.");
        return;
    }
    if (TopicPath.text().empty()) {
        TopicPath.takeFocus();
        tell("Empty Topic Path", "You have not entered a path for your topic.");
        return;
    }
    const std::string name = TopicName.text();
    growTables();
    TopicNames.at(i) = name;
    TopicPaths.at(i) = TopicPath.text();
    appendRow(name);
    TopicName.takeFocus();
}

void Create8::growTables() {
    TopicNames.growTo(add16(i, 1));
    TopicPaths.growTo(add16(i, 1));
}

// Adds to the list the row that stands in the tables already.
void Create8::appendRow(const std::string& name) {
    Topics.addItem(name);
    Topics.setListIndex(i);
    i = add16(i, 1);
    emptyBoxes();
}

void Create8::ImportFile(const std::string& path) {
    const auto stream = toolkit.platform.files.openText(path);
    const std::string folder = path.substr(0, findLastCharacter(path, '\\') + 1);
    while (!stream->atEnd()) {
        const std::string line = wholeCharacters(stream->readLine());
        const auto colon = findCharacter(line, ':');
        const std::string name = line.substr(0, colon);
        growTables();
        TopicNames.at(i) = name;
        if (colon == std::string::npos) throw RuntimeFailure(FailureNumber::subscript);
        const std::string stem = line.substr(colon + 1, findCharacter(line, ':', colon + 1) - colon - 1);
        TopicPaths.at(i) = folder + lowerCase(stem) + ".doc";
        appendRow(name);
    }
}

void Create8::updateThis8() {
    if (i < 1) return;
    const int row = Topics.listIndex();
    TopicNames.at(row) = TopicName.text();
    TopicPaths.at(row) = TopicPath.text();
    Topics.removeItem(row);
    Topics.insertItem(TopicName.text(), row);
    Topics.setListIndex(row);
    emptyBoxes();
}

void Create8::deleteThis8() {
    const int row = Topics.listIndex();
    const bool standard = Edit && !toolkit.selectedProduct.isDeveloper && row < toolkit.productReg.standardRows();
    const Answer answer = screen().ask(
        standard ? "This topic is part of the standard installation set for this product. If you delete it, you will "
                   "not be able to recreate this topic, except with a reinstallation of the product. Are you sure you "
                   "would like to continue?"
                 : "Are you sure you want to delete this topic?",
        "Confirm Deletion", Buttons::okCancel);
    if (answer == Answer::ok) removeTopic(row);
    emptyBoxes();
}

void Create8::removeTopic(int row) {
    Topics.removeItem(row);
    TopicNames.at(row).clear();
    TopicPaths.at(row).clear();
    compact();
    i = add16(i, -1);
    if (Edit && i < toolkit.productReg.CountTopics) countDeleted(row);
    Topics.setListIndex(i - 1);
}

// Moves every Topic that has a name to the front. The elements behind the last of them keep stale text.
void Create8::compact() {
    int written = 0;
    const int elements = static_cast<int>(TopicNames.count());
    for (int read = 0; read < elements; ++read) {
        if (TopicNames.at(read).empty()) continue;
        TopicNames.at(written) = TopicNames.at(read);
        TopicPaths.at(written) = TopicPaths.at(read);
        ++written;
    }
}

// Updates the counts of the Topics. For a Topic behind the standard set only the second count is decremented: until the
// counts are read again, the standard set has one row more.
void Create8::countDeleted(int row) {
    ProductReg& reg = toolkit.productReg;
    if (toolkit.selectedProduct.isDeveloper || row < reg.standardRows()) {
        reg.CountTopics = add16(reg.CountTopics, -1);
    } else {
        reg.ToolkitCountTopics = add16(reg.ToolkitCountTopics, -1);
    }
}

// Failures of its own statements and of the save are ignored. Those of the page that it opens are not.
void Create8::nextThis8() {
    emptyBoxes();
    if (ignoring([&] { static_cast<void>(TopicNames.at(0)); }) != FailureNumber::none) {
        tell("Invalid Number Of Topics",
             "You have not created any topics yet. Please create at least one topic before continuing");
        return;
    }
    if (Edit) {
        rewriteTopicKeys();
        endEdit(Edit);
        return;
    }
    ignoring([&] { thisTopicCount = count16(TopicNames.count() - 1); });
    if (thisTopicCount > 1) {
        goForward(toolkit.create20, &Create20::initThis20);
    } else {
        goForward(toolkit.create10, &Create10::initThis);
    }
}

void Create8::rewriteTopicKeys() {
    TopicRewrite(toolkit.settings, toolkit.selectedProduct, toolkit.productReg.standardRows(), FailuresAre::ignored)
        .run({TopicNames, TopicPaths, i});
}

void Create8::backThis8() {
    emptyBoxes();
    backInGroup(Edit, toolkit.create7);
}

}  // namespace vrix
