#include "shell/new_books_window.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "books/logon/known_books.h"
#include "data/access/CNbCwDB.h"
#include "data/tables/books.h"
#include "tests/support/engine_cases.h"
#include "tests/support/recording_messages.h"
#include "tests/window/remembered_secrets.h"
#include "tests/window/typing.h"

using namespace chengheng;

namespace {

constexpr const char* discardQuestion = "当前输入尚未保存,是否放弃?";

struct Form {
    Form() { showActive(window); }
    void type(const char* name, const QString& text) {
        auto* edit = window.findChild<QLineEdit*>(name);
        edit->selectAll();
        typeText(edit, text);
    }
    void fill() {
        type("name", "示例帐套");
        type("company", "示例贸易有限公司");
        window.findChild<QSpinBox*>("year")->setValue(2026);
        type("supervisor", "王芳");
        type("password", "secret");
        type("confirmation", "secret");
    }
    QString example() const { return window.findChild<QLabel*>("levelExample")->text(); }
    QString focused() const {
        return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : "";
    }

    BooksRegistry registry{freshFolder()};
    RecordingMessages messages;
    RememberedSecrets secrets;
    ServerPasswords passwords{secrets, messages};
    NewBooksWindow window{registry, messages, passwords, nullptr};
};

}  // namespace

TEST(NewBooksWindow, MakesWhatWasFilledIn) {
    Form form;
    form.fill();
    form.window.findChild<QSpinBox*>("startMonth")->setValue(4);
    form.window.findChild<QComboBox*>("chart")->setCurrentIndex(1);
    form.window.accept();
    EXPECT_EQ(form.window.result(), QDialog::Accepted);
    const std::string place = form.window.created().year.location;
    EXPECT_EQ(place, form.registry.folder() + "/001/2026/Nbzw.db");
    EXPECT_EQ(form.messages.texts(),
              std::vector<std::string>{"帐套“示例帐套”的2026年度已建立,存放在:\n" + place});
    _zAccountMInfo parameters;
    ASSERT_FALSE(readBooks(place, parameters).has_value());
    EXPECT_EQ(parameters.dtStart, (Date{2026, 4, 1}));
    EXPECT_EQ(parameters.bFgn, 1);
    EXPECT_EQ(form.window.supervisor(), "王芳");
}

TEST(NewBooksWindow, KeepsForeignCurrencyUnlessItIsSwitchedOff) {
    Form form;
    form.fill();
    auto* foreign = form.window.findChild<QCheckBox*>("foreignCurrency");
    EXPECT_TRUE(foreign->isChecked());
    QTest::keyClick(foreign, Qt::Key_Space);
    form.window.accept();
    _zAccountMInfo parameters;
    ASSERT_FALSE(readBooks(form.window.created().year.location, parameters).has_value());
    EXPECT_EQ(parameters.bFgn, 0);
}

TEST(NewBooksWindow, ShowsTheCodesOfAPatternWhileItIsTyped) {
    Form form;
    EXPECT_EQ(form.example(), "各级编码示例:1001 / 100101 / 10010101 / 1001010101");
    form.type("levelPattern", "432");
    EXPECT_EQ(form.example(), "各级编码示例:1001 / 1001001 / 100100101");
    form.type("levelPattern", "40");
    EXPECT_EQ(form.example(), "1到6位数字,每位1到9,表示该级编码的位数");
}

TEST(NewBooksWindow, FirstFaultIsToldWithItsField) {
    Form form;
    form.window.accept();
    form.fill();
    form.type("levelPattern", "322");
    form.window.accept();
    form.type("levelPattern", "4222");
    form.type("confirmation", "Secret");
    form.window.accept();
    ASSERT_EQ(form.messages.notices().size(), 3U);
    EXPECT_EQ(form.messages.notices()[0].text, "请输入帐套名称");
    EXPECT_EQ(form.messages.notices()[0].focusField, "name");
    EXPECT_EQ(form.messages.notices()[1].focusField, "levelPattern");
    EXPECT_EQ(form.messages.notices()[2].text, "口令和确认口令不一致,请重新输入");
    EXPECT_EQ(form.messages.notices()[2].focusField, "confirmation");
    EXPECT_TRUE(form.window.isVisible());
    std::vector<BooksSet> sets;
    ASSERT_TRUE(form.registry.read(sets));
    EXPECT_TRUE(sets.empty());
}

TEST(NewBooksWindow, EscapeAndTheFrameAskBeforeWhatWasTypedGoes) {
    Form form;
    form.fill();
    form.messages.willAnswer(discardQuestion, Answer::no);
    QTest::keyClick(&form.window, Qt::Key_Escape);
    ASSERT_EQ(form.messages.questions().size(), 1U);
    EXPECT_EQ(form.messages.questions().front().preset, std::nullopt);
    EXPECT_TRUE(form.window.isVisible());
    EXPECT_EQ(form.window.findChild<QLineEdit*>("name")->text(), "示例帐套");
    form.messages.willAnswer(discardQuestion, Answer::no);
    form.window.close();
    EXPECT_TRUE(form.window.isVisible());
    form.messages.willAnswer(discardQuestion, Answer::yes);
    QTest::keyClick(&form.window, Qt::Key_Escape);
    EXPECT_FALSE(form.window.isVisible());
    EXPECT_EQ(form.window.result(), QDialog::Rejected);
}

TEST(NewBooksWindow, EscapeAsksForAConfirmationAlone) {
    Form form;
    form.type("confirmation", "secret");
    form.messages.willAnswer(discardQuestion, Answer::no);
    QTest::keyClick(&form.window, Qt::Key_Escape);
    EXPECT_TRUE(form.window.isVisible());
}

TEST(NewBooksWindow, ClosesWithoutAQuestionWhereNothingWasTypedAndByItsButton) {
    {
        Form form;
        QTest::keyClick(&form.window, Qt::Key_Escape);
        EXPECT_FALSE(form.window.isVisible());
        EXPECT_TRUE(form.messages.texts().empty());
    }
    Form form;
    form.fill();
    auto* cancel = form.window.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel);
    cancel->setFocus();
    QTest::keyClick(cancel, Qt::Key_Return);
    EXPECT_FALSE(form.window.isVisible());
    EXPECT_EQ(form.window.result(), QDialog::Rejected);
    EXPECT_TRUE(form.messages.texts().empty());
}

TEST(NewBooksWindow, EnterGoesFromFieldToField) {
    Form form;
    EXPECT_EQ(form.focused(), "name");
    QStringList order;
    for (int step = 0; step < 10; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        order << form.focused();
    }
    EXPECT_EQ(order, (QStringList{"company", "year", "startMonth", "chart", "levelPattern",
                                  "foreignCurrency", "location", "supervisor", "password",
                                  "confirmation"}));
    EXPECT_TRUE(form.messages.texts().empty());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(form.messages.texts(), std::vector<std::string>{"请输入帐套名称"});
}

TEST(NewBooksWindow, EveryFieldHasALabelThatLeadsToIt) {
    Form form;
    for (const char* name : {"name", "company", "year", "startMonth", "chart", "levelPattern",
                             "location", "supervisor", "password", "confirmation"}) {
        const auto* label = form.window.findChild<QLabel*>(QString(name) + "Label");
        ASSERT_NE(label, nullptr) << name;
        ASSERT_NE(label->buddy(), nullptr) << name;
        EXPECT_EQ(label->buddy()->objectName(), name);
    }
}
