#pragma once

#include <QCheckBox>

#include "settle/window/CNbCwSettleDlg.h"
#include "tests/support/settle_books.h"
#include "tests/window/list_form_fixture.h"

namespace chengheng {

/// The settlement methods and the hands of their operator.
class SettleWindowTest : public ListFormWindowTest<SettleBooks, CNbCwSettleDlg> {
  protected:
    void open(const std::vector<std::string>& methods = {}) {
        if (!methods.empty()) books.insert(methods);
        ListFormWindowTest::open();
    }
    QLineEdit& number() const { return control<QLineEdit>("sStlId"); }
    QLineEdit& name() const { return control<QLineEdit>("sSettle"); }
    QCheckBox& box() const { return control<QCheckBox>("bNote"); }

    /// What stands in the form: "1 现金", with " 支票" when the box is checked.
    std::string shownInput() const {
        return (number().text() + ' ' + name().text() + (box().isChecked() ? " 支票" : ""))
            .toStdString();
    }
    /// Adds by keys alone; the last Enter saves.
    void add(const char* newNumber, const char* newName) {
        press(Qt::Key_N, Qt::ControlModifier);
        typeText(window->focusWidget(), QString::fromUtf8(newNumber));
        press(Qt::Key_Return);
        typeText(window->focusWidget(), QString::fromUtf8(newName));
        press(Qt::Key_Return);
    }
};

}  // namespace chengheng
