#include "forms/list_form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "tests/support/recording_messages.h"

using namespace chengheng;

namespace {

constexpr const char* discard = "当前输入尚未保存,是否放弃?";

/// A function whose records are texts in memory.
class TextForm final : public ListForm {
  public:
    explicit TextForm(IMessages& messages) : ListForm(messages) {}

    std::string input;
    std::map<int, std::string> stored;
    std::vector<int> used;
    Outcome reading = Outcome::done;
    Outcome writing = Outcome::done;
    Outcome erasing = Outcome::done;
    bool canReadList = true;

  protected:
    std::optional<std::vector<Leaf>> readLeaves() override {
        if (!canReadList) return std::nullopt;
        std::vector<Leaf> leaves;
        for (const auto& [id, text] : stored) leaves.push_back({id, text});
        return leaves;
    }
    Outcome load(int id, bool& isUsed) override {
        if (reading != Outcome::done) return reading;
        if (!stored.contains(id)) return Outcome::stale;
        input = m_loaded = stored[id];
        isUsed = std::ranges::find(used, id) != used.end();
        return Outcome::done;
    }
    void clear() override { input = m_loaded = {}; }
    bool isComplete() const override { return !input.empty(); }
    bool isChanged() const override { return input != m_loaded; }
    Outcome write(SaveMode mode, Leaf& saved) override {
        if (writing != Outcome::done) return writing;
        if (mode == SaveMode::addition) saved.id = static_cast<int>(stored.size()) + 1;
        stored[saved.id] = m_loaded = saved.text = input;
        return Outcome::done;
    }
    void holdTyped() override { m_typed = input; }
    void takeTypedBack() override { input = m_typed; }
    Outcome erase(const Leaf* leaf) override {
        if (leaf == nullptr) return Outcome::refused;
        if (erasing == Outcome::done) stored.erase(leaf->id);
        return erasing;
    }

  private:
    std::string m_loaded;
    std::string m_typed;
};

struct ListFormTest : testing::Test {
    RecordingMessages messages;
    TextForm form{messages};

    void open(std::map<int, std::string> records) {
        form.stored = std::move(records);
        form.open();
    }
};

}  // namespace

TEST_F(ListFormTest, OpensWithItsFirstRecordAndNothingToSave) {
    open({{4, "a"}, {5, "b"}});
    EXPECT_EQ(form.selectedId(), 4);
    EXPECT_EQ(form.input, "a");
    EXPECT_EQ(form.saveMode(), SaveMode::nothing);
    EXPECT_FALSE(form.isAdding());
    EXPECT_FALSE(form.canSave());
    EXPECT_TRUE(form.canDelete());
}

TEST_F(ListFormTest, OpensForAnAdditionWithoutRecords) {
    open({});
    EXPECT_TRUE(form.isAdding());
    EXPECT_EQ(form.saveMode(), SaveMode::addition);
    EXPECT_FALSE(form.canSave());
    EXPECT_FALSE(form.canDelete());
}

TEST_F(ListFormTest, OpensForAnAdditionWhenTheListCannotBeRead) {
    form.canReadList = false;
    open({{4, "a"}});
    EXPECT_TRUE(form.isAdding());
    EXPECT_EQ(form.leaves().rowCount(), 0);
}

TEST_F(ListFormTest, OpensForAnAdditionWhenTheFirstRecordCannotBeRead) {
    form.reading = Outcome::failed;
    open({{4, "a"}});
    EXPECT_TRUE(form.isAdding());
    EXPECT_EQ(form.leaves().rowCount(), 1);
}

TEST_F(ListFormTest, ReadAnewShowsTheSameRecordAsItIsNow) {
    open({{4, "a"}, {5, "b"}});
    form.select(5);
    form.stored = {{3, "x"}, {4, "a"}, {5, "c"}};
    form.used = {5};
    form.input = "typed";
    form.refresh();
    EXPECT_EQ(form.leaves().rowCount(), 3);
    EXPECT_EQ(form.selectedId(), 5);
    EXPECT_EQ(form.input, "c");
    EXPECT_TRUE(form.isUsed());
    form.stored = {{3, "x"}};
    form.refresh();
    EXPECT_EQ(form.selectedId(), 3);
}

TEST_F(ListFormTest, ReadAnewGoesOnAddingUnlessTheListWasEmpty) {
    open({{4, "a"}});
    form.startAdding();
    form.input = "typed";
    form.stored[5] = "b";
    form.refresh();
    EXPECT_TRUE(form.isAdding());
    EXPECT_EQ(form.input, "");
    EXPECT_EQ(form.leaves().rowCount(), 2);
    open({});
    form.stored[6] = "c";
    form.refresh();
    EXPECT_EQ(form.selectedId(), 6);
}

TEST_F(ListFormTest, ReadAnewStaysAsItIsWhereTheListCannotBeRead) {
    open({{4, "a"}});
    form.input = "typed";
    form.canReadList = false;
    form.refresh();
    EXPECT_EQ(form.selectedId(), 4);
    EXPECT_EQ(form.input, "typed");
}

TEST_F(ListFormTest, DeletesOnlyWhatIsNotUsed) {
    form.used = {4};
    open({{4, "a"}, {5, "b"}});
    EXPECT_TRUE(form.isUsed());
    EXPECT_FALSE(form.canDelete());
    EXPECT_TRUE(form.select(5));
    EXPECT_FALSE(form.isUsed());
    EXPECT_TRUE(form.canDelete());
}

TEST_F(ListFormTest, SavesAModificationThatIsCompleteAndChangesSomething) {
    open({{4, "a"}});
    form.input = "b";
    EXPECT_EQ(form.saveMode(), SaveMode::modification);
    EXPECT_TRUE(form.canSave());
    form.input = "";
    EXPECT_FALSE(form.canSave());
    form.input = "a";
    EXPECT_EQ(form.saveMode(), SaveMode::nothing);
    EXPECT_FALSE(form.save());
}

TEST_F(ListFormTest, SavesAnAdditionAndSelectsIt) {
    open({});
    form.input = "a";
    EXPECT_TRUE(form.save());
    EXPECT_EQ(form.selectedId(), 1);
    EXPECT_FALSE(form.isAdding());
    EXPECT_EQ(form.leaves().atRow(0), (Leaf{1, "a"}));
    EXPECT_TRUE(form.canDelete());
}

TEST_F(ListFormTest, KeepsInputThatWasNotSaved) {
    open({{1, "a"}});
    form.input = "b";
    for (const Outcome outcome : {Outcome::refused, Outcome::failed}) {
        form.writing = outcome;
        EXPECT_FALSE(form.save());
        EXPECT_EQ(form.input, "b");
        EXPECT_TRUE(form.canSave());
        EXPECT_EQ(form.leaves().atRow(0).text, "a");
    }
}

TEST_F(ListFormTest, IsNoLongerAddingWhenTheSavedRecordCannotBeReadBack) {
    open({});
    form.input = "a";
    form.reading = Outcome::failed;
    EXPECT_TRUE(form.save());
    EXPECT_FALSE(form.isAdding());
    EXPECT_FALSE(form.canSave());
    EXPECT_EQ(form.selectedId(), 1);
}

TEST_F(ListFormTest, ReadsTheListAgainWhenARecordIsNoLongerWhatItWas) {
    open({{1, "a"}, {2, "b"}});
    form.select(2);
    form.input = "c";
    form.stored = {{2, "z"}, {3, "y"}};
    form.writing = Outcome::stale;
    EXPECT_FALSE(form.save());
    const auto leaves = form.leaves().all();
    EXPECT_EQ(std::vector(leaves.begin(), leaves.end()), (std::vector<Leaf>{{2, "z"}, {3, "y"}}));
    EXPECT_EQ(form.selectedId(), 2);
    EXPECT_EQ(form.input, "c") << "what was typed stays";
    EXPECT_TRUE(form.hasUnsavedInput());
    form.writing = Outcome::done;
    EXPECT_TRUE(form.save());
    EXPECT_EQ(form.stored[2], "c");
}

TEST_F(ListFormTest, AddsWhatWasTypedWhereTheRecordHasGone) {
    open({{1, "a"}, {2, "b"}});
    form.select(2);
    form.input = "c";
    form.stored = {{1, "a"}};
    form.writing = Outcome::stale;
    EXPECT_FALSE(form.save());
    EXPECT_TRUE(form.isAdding());
    EXPECT_EQ(form.input, "c");
}

TEST_F(ListFormTest, KeepsListAndInputWhereTheListCannotBeReadAgain) {
    open({{1, "a"}});
    form.input = "c";
    form.writing = Outcome::stale;
    form.canReadList = false;
    EXPECT_FALSE(form.save());
    EXPECT_EQ(form.input, "c");
    EXPECT_EQ(form.selectedId(), 1);
}

TEST_F(ListFormTest, SelectsTheFirstRecordWhenItsOwnHasGone) {
    open({{1, "a"}, {2, "b"}, {3, "c"}});
    form.select(2);
    form.stored = {{1, "a"}, {3, "c"}};
    form.erasing = Outcome::stale;
    form.remove(2);
    EXPECT_EQ(form.selectedId(), 1);
    EXPECT_EQ(form.leaves().rowCount(), 2);
}

TEST_F(ListFormTest, StaysWithItsRecordWhenTheOneChosenHasGone) {
    open({{1, "a"}, {2, "b"}});
    form.stored = {{1, "a"}};
    EXPECT_FALSE(form.select(2));
    EXPECT_EQ(form.selectedId(), 1);
    EXPECT_EQ(form.leaves().rowCount(), 1);
}

TEST_F(ListFormTest, AddsWhenAllRecordsHaveGone) {
    open({{1, "a"}});
    form.stored = {};
    form.erasing = Outcome::stale;
    form.remove(1);
    EXPECT_TRUE(form.isAdding());
}

TEST_F(ListFormTest, SelectsTheNextRecordAfterADeletionAndElseTheOneBefore) {
    open({{1, "a"}, {2, "b"}, {3, "c"}});
    form.select(2);
    form.remove(2);
    EXPECT_EQ(form.selectedId(), 3);
    form.remove(3);
    EXPECT_EQ(form.selectedId(), 1);
    form.remove(1);
    EXPECT_TRUE(form.isAdding());
    EXPECT_FALSE(form.canDelete());
}

TEST_F(ListFormTest, KeepsARecordWhoseDeletionWasRefused) {
    open({{1, "a"}});
    form.erasing = Outcome::refused;
    form.remove(1);
    EXPECT_EQ(form.selectedId(), 1);
    EXPECT_EQ(form.leaves().rowCount(), 1);
}

TEST_F(ListFormTest, AsksBeforeInputIsLostAndReturnsToIt) {
    open({{1, "a"}, {2, "b"}});
    form.input = "c";
    for (int question = 0; question < 3; ++question) messages.willAnswer(discard, Answer::no);
    EXPECT_FALSE(form.select(2));
    EXPECT_FALSE(form.startAdding());
    EXPECT_FALSE(form.mayLeaveInput());
    EXPECT_EQ(form.input, "c");
    EXPECT_EQ(form.selectedId(), 1);
    EXPECT_EQ(messages.questions()[0].preset, std::nullopt);
    EXPECT_EQ(messages.questions()[0].buttons, AnswerButtons::yesNo);
    EXPECT_EQ(messages.questions()[0].icon, MessageIcon::warning);
}

TEST_F(ListFormTest, GivesInputUpWhenTheOperatorAgrees) {
    open({{1, "a"}, {2, "b"}});
    form.input = "c";
    messages.willAnswer(discard, Answer::yes);
    EXPECT_TRUE(form.select(2));
    EXPECT_EQ(form.input, "b");
    form.input = "";
    messages.willAnswer(discard, Answer::yes);
    EXPECT_TRUE(form.startAdding());
    EXPECT_TRUE(form.isAdding());
    EXPECT_EQ(form.selectedId(), 0);
}

TEST_F(ListFormTest, AsksNothingWithoutInput) {
    open({{1, "a"}, {2, "b"}});
    EXPECT_TRUE(form.select(2));
    EXPECT_TRUE(form.startAdding());
    EXPECT_TRUE(form.startAdding());
    EXPECT_TRUE(form.mayLeaveInput());
}

TEST_F(ListFormTest, AsksNothingWhenTheSelectedRecordIsSelectedAgain) {
    open({{1, "a"}});
    form.input = "b";
    EXPECT_TRUE(form.select(1));
    EXPECT_EQ(form.input, "b");
}

TEST_F(ListFormTest, ShowsASavedRecordThatTheFilterHides) {
    std::map<int, std::string> records;
    for (int id = 1; id <= 20; ++id) records[id] = "a" + std::to_string(id);
    open(records);
    form.filter("a7");
    form.startAdding();
    form.input = "new";
    EXPECT_TRUE(form.save());
    EXPECT_GE(form.leaves().rowOf(21), 0);
    EXPECT_EQ(form.leaves().filter(), "");
}

TEST_F(ListFormTest, ShowsAllAgainWhenTheLastRecordThatTheFilterShowsIsDeleted) {
    std::map<int, std::string> records;
    for (int id = 1; id <= 30; ++id) records[id] = "a" + std::to_string(id);
    open(records);
    form.filter("a17");
    form.select(17);
    form.remove(17);
    EXPECT_EQ(form.leaves().rowCount(), 29);
    EXPECT_EQ(form.selectedId(), 1);
}
