#pragma once

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QTreeView>

#include <memory>
#include <optional>

#include "data/lookups/cached_records.h"
#include "settle/window/CNbCwSettleDlg.h"
#include "tests/support/settle_books.h"
#include "tests/window/typing.h"

namespace chengheng {

/// The window on books in memory, and the hands of its operator.
class SettleWindowTest : public testing::Test {
  protected:
    void SetUp() override {
        books.run("INSERT zAccountM (lId, sCompany) VALUES(1, '澄恒贸易有限公司')");
        lookups.emplace("books");
        ASSERT_TRUE(lookups->status()) << lookups->status().detail;
    }
    void open(const std::vector<std::string>& methods = {}) {
        if (!methods.empty()) books.insert(methods);
        window = std::make_unique<CNbCwSettleDlg>();
        showActive(*window);
        settle();
    }
    /// Lets posted commands and selections be carried out.
    static void settle() { QCoreApplication::processEvents(); }

    template <class Control>
    Control& control(const char* name) const {
        return *window->findChild<Control*>(QLatin1String(name));
    }
    QLineEdit& number() const { return control<QLineEdit>("sStlId"); }
    QLineEdit& name() const { return control<QLineEdit>("sSettle"); }
    QCheckBox& box() const { return control<QCheckBox>("bNote"); }
    QPushButton& ok() const { return control<QPushButton>("ok"); }
    QTreeView& tree() const { return control<QTreeView>("Tree1"); }
    bool isMarkedUsed() const { return control<QLabel>("usedMark").isVisible(); }

    QAction& command(const char* text) const {
        for (const QAction* menu : qobject_cast<QMenuBar*>(window->layout()->menuBar())->actions())
            for (QAction* action : menu->menu()->actions())
                if (action->text() == QString::fromUtf8(text)) return *action;
        throw std::runtime_error(text);
    }
    bool canDelete() const { return command("删除").isEnabled(); }

    /// What stands in the form: "1 现金", with " 支票" when the box is checked.
    std::string shownInput() const {
        return (number().text() + ' ' + name().text() + (box().isChecked() ? " 支票" : ""))
            .toStdString();
    }
    std::vector<std::string> leaves() const {
        std::vector<std::string> texts;
        for (int row = 0; row < tree().model()->rowCount(); ++row)
            texts.push_back(tree().model()->index(row, 0).data().toString().toStdString());
        return texts;
    }
    std::string selectedLeaf() const {
        const auto selected = tree().selectionModel()->selectedIndexes();
        return selected.isEmpty() ? "" : selected.first().data().toString().toStdString();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* focused = window->focusWidget();
        QTest::keyClick(focused ? focused : window.get(), Qt::Key(key), modifiers);
        settle();
    }
    /// Fills a field over what stands in it.
    void type(QLineEdit& field, const char* text) {
        field.setFocus();
        field.selectAll();
        typeText(&field, QString::fromUtf8(text));
    }
    /// Adds by keys alone; the last Enter saves.
    void add(const char* newNumber, const char* newName) {
        press(Qt::Key_N, Qt::ControlModifier);
        typeText(window->focusWidget(), QString::fromUtf8(newNumber));
        press(Qt::Key_Return);
        typeText(window->focusWidget(), QString::fromUtf8(newName));
        press(Qt::Key_Return);
    }
    void clickLeaf(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const QModelIndex index = tree().model()->index(row, 0);
        tree().scrollTo(index);
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, modifiers,
                          tree().visualRect(index).center());
        settle();
    }
    std::string said() const {
        return books.messages.texts().empty() ? "" : books.messages.texts().back();
    }

    SettleBooks books{":memory:"};
    std::optional<BookLookups> lookups;
    std::unique_ptr<CNbCwSettleDlg> window;
};

}  // namespace chengheng
