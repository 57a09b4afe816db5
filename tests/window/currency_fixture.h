#pragma once

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolBar>
#include <QTreeView>

#include <memory>
#include <optional>

#include "currency/window/currency_window.h"
#include "data/lookups/cached_records.h"
#include "screen/grid/CVCF1.h"
#include "tests/support/currency_books.h"
#include "tests/window/typing.h"

namespace chengheng {

/// The window on books in memory, whose operator logged on in May 2026, and his hands.
class CurrencyWindowTest : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    void SetUp() override {
        books.run("INSERT zAccountM (lId, sCompany) VALUES(1, '澄恒贸易有限公司')");
        lookups.emplace("books");
        ASSERT_TRUE(lookups->status()) << lookups->status().detail;
    }
    /// With dollars and yen.
    void openWithTwo() {
        books.insert("USD", "美元");
        books.insert("JPY", "日元");
        open();
    }
    void open() {
        window = std::make_unique<CurrencyWindow>();
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
        return *window->findChild<Control*>(QLatin1String(name));
    }
    QLineEdit& symbol() const { return control<QLineEdit>("sExchCode"); }
    QLineEdit& name() const { return control<QLineEdit>("sExchName"); }
    QLineEdit& decimals() const { return control<QLineEdit>("byDecimal"); }
    QLineEdit& maxError() const { return control<QLineEdit>("fMaxError"); }
    QRadioButton& divided() const { return control<QRadioButton>("divided"); }
    QRadioButton& fixedRate() const { return control<QRadioButton>("fixedRate"); }
    QRadioButton& floatingRate() const { return control<QRadioButton>("floatingRate"); }
    QComboBox& month() const { return control<QComboBox>("month"); }
    QPushButton& ok() const { return control<QPushButton>("ok"); }
    QTreeView& tree() const { return control<QTreeView>("Tree Coin"); }
    CVCF1& grid() const { return control<CVCF1>("rates"); }
    bool isMarkedUsed() const { return control<QLabel>("usedMark").isVisible(); }

    QAction& command(const char* text) const {
        for (const QAction* menu : qobject_cast<QMenuBar*>(window->layout()->menuBar())->actions())
            for (QAction* action : menu->menu()->actions())
                if (action->text() == QString::fromUtf8(text)) return *action;
        throw std::runtime_error(text);
    }
    bool canDelete() const { return command("删除").isEnabled(); }
    void choose(const char* text) {
        command(text).trigger();
        settle();
    }

    /// "USD 美元 * 5 0.00001", with a slash where it is divided.
    std::string shownInput() const {
        return QStringLiteral("%1 %2 %3 %4 %5")
            .arg(symbol().text(), name().text(), divided().isChecked() ? "/" : "*",
                 decimals().text(), maxError().text())
            .toStdString();
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
    std::string cell(int row, int column) const {
        return grid().model()->index(row, column).data().toString().toStdString();
    }
    Texts headers() const {
        Texts texts;
        for (int column = 0; column < grid().model()->columnCount(); ++column)
            if (!grid().isColumnHidden(column))
                texts.push_back(
                    grid().model()->headerData(column, Qt::Horizontal).toString().toStdString());
        return texts;
    }
    int rows() const { return grid().model()->rowCount(); }
    /// Where the keyboard is in the grid: "row column".
    std::string place() const {
        const QModelIndex index = grid().currentIndex();
        return std::to_string(index.row()) + " " + std::to_string(index.column());
    }
    void stand(int row, int column) {
        grid().setFocus();
        grid().setCurrentIndex(grid().model()->index(row, column));
    }
    /// The one on the screen: editors that have closed linger for a while.
    QLineEdit* editor() const {
        for (auto* field : window->findChildren<QLineEdit*>("rate"))
            if (field->isVisible()) return field;
        return nullptr;
    }
    std::string typed() const { return editor() ? editor()->text().toStdString() : "no editor"; }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* focused = window->focusWidget();
        QTest::keyClick(focused ? focused : window.get(), Qt::Key(key), modifiers);
        settle();
    }
    /// Types letter by letter where the keyboard is.
    void keys(const char* text) {
        for (const char* letter = text; *letter != 0; ++letter) {
            QWidget* focused = window->focusWidget();
            QTest::keyClick(focused ? focused : window.get(), *letter);
        }
        settle();
    }
    /// Fills a field over what stands in it.
    void type(QLineEdit& field, const char* text) {
        field.setFocus();
        field.selectAll();
        if (*text == 0) QTest::keyClick(&field, Qt::Key_Delete);
        typeText(&field, QString::fromUtf8(text));
    }
    void clickLeaf(int row) {
        const QModelIndex index = tree().model()->index(row, 0);
        tree().scrollTo(index);
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree().visualRect(index).center());
        settle();
    }
    void use(int currency) {
        books.run("INSERT Code (lId, sCode, byExchId) VALUES(1, '1001', " +
                  std::to_string(currency) + ")");
    }
    std::string said() const {
        return books.messages.texts().empty() ? "" : books.messages.texts().back();
    }

    CurrencyBooks books{":memory:"};
    std::optional<BookLookups> lookups;
    std::unique_ptr<CurrencyWindow> window;
};

}  // namespace chengheng
