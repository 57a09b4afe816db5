#include <fstream>

#include "tests/support/engine_cases.h"
#include "tests/window/next_modal.h"
#include "tests/window/plan_hands.h"
#include "tests/window/voucher_type_fixture.h"

namespace chengheng {
namespace {

/// The window whose operator imports and exports files.
class VoucherTypeFilesTest : public VoucherTypeWindowTest {
  protected:
    /// Imports a file, acting in the window that shows what would become of it.
    void bring(const std::string& content, const std::function<void(QWidget&)>& act) {
        std::ofstream(path) << content;
        std::optional<NextModal> preview;
        const NextModal chooser([&](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "导入凭证类别");
            giveFile(dialog, path);
            preview.emplace([&](QWidget& plan) {
                act(plan);
                if (plan.isVisible()) pressButton(plan, "取消");
            });
        });
        choose("导入...");
    }

    std::string path = freshFolder() + "/types.csv";
};

TEST_F(VoucherTypeFilesTest, ShowsWhatBecomesOfEachRowThenDoesItAndStaysAtItsPlace) {
    open({receipt, "记 记帐凭证 0"});
    clickLeaf(1);
    bring("类别,名称,限制,科目一,科目二\n转,转帐凭证,借贷必无,1001,1002\n记,凭证,,,\n",
          [this](QWidget& plan) {
              EXPECT_EQ(plan.windowTitle(), "导入凭证类别");
              EXPECT_TRUE(hasLabelText(plan, "新增 1 行,修改 1 行,不变 0 行,拒绝 0 行。"));
              EXPECT_EQ(planCell(plan, 0, 2), "转");
              EXPECT_EQ(planCell(plan, 1, 3), "凭证");
              EXPECT_EQ(leaves().size(), 2u);
              pressButton(plan, "导入");
          });
    EXPECT_EQ(books.messages.onlyNotice().text, "导入完成:新增 1 个凭证类别,修改 1 个。");
    EXPECT_EQ(leaves(), (Texts{"收 收款凭证", "记 凭证", "转 转帐凭证"}));
    EXPECT_EQ(shownInput(), "记 凭证");
}

TEST_F(VoucherTypeFilesTest, ImportsNothingWhileARowIsRefusedOrTheOperatorGivesItUp) {
    open({receipt});
    bring("类别,名称,限制,科目一,科目二\n付,付款凭证,贷方必有,1001,9999\n", [](QWidget& plan) {
        EXPECT_EQ(planCell(plan, 0, 4), "E2 科目二");
        EXPECT_EQ(planCell(plan, 0, 5), "非法科目");
        EXPECT_FALSE(buttonOf(plan, "导入").isEnabled());
    });
    bring("类别,名称\n付,付款凭证\n", [](QWidget&) {});
    EXPECT_EQ(leaves(), Texts{"收 收款凭证"});
    EXPECT_TRUE(books.messages.texts().empty());
}

TEST_F(VoucherTypeFilesTest, AsksBeforeUnsavedInputIsGivenUpForAnImport) {
    open({receipt});
    type(name(), "收入");
    books.messages.willAnswer("当前输入尚未保存,是否放弃?", Answer::no);
    choose("导入...");
    EXPECT_EQ(shownInput(), "收 收入 限制 借方必有 1001 1002");
    EXPECT_EQ(window->focusWidget(), &name());
    type(name(), "收款凭证");
}

TEST_F(VoucherTypeFilesTest, WritesAFileThatChangesNothingWhenItIsReadBack) {
    open({receipt, "付 付款凭证 2 1002 1012", "记 记帐凭证 0"});
    {
        const NextModal chooser([&](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "导出凭证类别");
            giveFile(dialog, path);
        });
        choose("导出...");
    }
    EXPECT_EQ(books.messages.onlyNotice().text, "凭证类别已导出到“" + path + "”。");
    std::ifstream file(path);
    bring({std::istreambuf_iterator<char>(file), {}}, [](QWidget& plan) {
        EXPECT_TRUE(hasLabelText(plan, "没有需要导入的内容。"));
        EXPECT_FALSE(buttonOf(plan, "导入").isEnabled());
    });
}

}  // namespace
}  // namespace chengheng
