#pragma once

#include <gtest/gtest.h>

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
#include "tests/window/typing.h"

namespace chengheng {

/// A window with a list and a form on books in memory, and the hands of its operator.
template <class Books, class Window>
class ListFormWindowTest : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    void SetUp() override {
        books.run("INSERT zAccountM (lId, sCompany) VALUES(1, '澄恒贸易有限公司')");
        lookups.emplace("books");
        ASSERT_TRUE(lookups->status()) << lookups->status().detail;
    }
    void open() {
        window = std::make_unique<Window>();
        showActive(*window);
        settle();
    }
    /// Lets posted commands and selections be carried out.
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    template <class Control>
    Control& control(const char* name) const {
        return *window->template findChild<Control*>(QLatin1String(name));
    }
    QPushButton& ok() const { return control<QPushButton>("ok"); }
    QTreeView& tree() const { return *window->template findChild<QTreeView*>(); }
    bool isMarkedUsed() const { return control<QLabel>("usedMark").isVisible(); }

    QList<QAction*> menus() const {
        return qobject_cast<QMenuBar*>(window->layout()->menuBar())->actions();
    }
    QAction& command(const char* text) const {
        for (const QAction* menu : menus())
            for (QAction* action : menu->menu()->actions())
                if (action->text() == QString::fromUtf8(text)) return *action;
        throw std::runtime_error(text);
    }
    bool canDelete() const { return command("删除").isEnabled(); }
    void choose(const char* text) {
        command(text).trigger();
        settle();
    }

    Texts leaves() const {
        Texts texts;
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
        if (*text == 0) QTest::keyClick(&field, Qt::Key_Delete);
        typeText(&field, QString::fromUtf8(text));
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

    Books books{":memory:"};
    std::optional<BookLookups> lookups;
    std::unique_ptr<Window> window;
};

}  // namespace chengheng
