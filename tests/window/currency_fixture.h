#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QRadioButton>

#include "currency/window/currency_window.h"
#include "screen/grid/CVCF1.h"
#include "tests/support/currency_books.h"
#include "tests/window/list_form_fixture.h"

namespace chengheng {

/// The currencies and the hands of their operator, who logged on in May 2026.
class CurrencyWindowTest : public ListFormWindowTest<CurrencyBooks, CurrencyWindow> {
  protected:
    /// With dollars and yen.
    void openWithTwo() {
        books.insert("USD", "美元");
        books.insert("JPY", "日元");
        open();
    }
    QLineEdit& symbol() const { return control<QLineEdit>("sExchCode"); }
    QLineEdit& name() const { return control<QLineEdit>("sExchName"); }
    QLineEdit& decimals() const { return control<QLineEdit>("byDecimal"); }
    QLineEdit& maxError() const { return control<QLineEdit>("fMaxError"); }
    QRadioButton& divided() const { return control<QRadioButton>("divided"); }
    QRadioButton& fixedRate() const { return control<QRadioButton>("fixedRate"); }
    QRadioButton& floatingRate() const { return control<QRadioButton>("floatingRate"); }
    QComboBox& month() const { return control<QComboBox>("month"); }
    CVCF1& grid() const { return control<CVCF1>("rates"); }

    /// "USD 美元 * 5 0.00001", with a slash where it is divided.
    std::string shownInput() const {
        return QStringLiteral("%1 %2 %3 %4 %5")
            .arg(symbol().text(), name().text(), divided().isChecked() ? "/" : "*",
                 decimals().text(), maxError().text())
            .toStdString();
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

    /// Types letter by letter where the keyboard is.
    void keys(const char* text) {
        for (const char* letter = text; *letter != 0; ++letter) {
            QWidget* focused = window->focusWidget();
            QTest::keyClick(focused ? focused : window.get(), *letter);
        }
        settle();
    }
    void use(int currency) {
        books.run("INSERT Code (lId, sCode, byExchId) VALUES(1, '1001', " +
                  std::to_string(currency) + ")");
    }
};

}  // namespace chengheng
