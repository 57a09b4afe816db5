#pragma once

#include <QCheckBox>
#include <QRadioButton>

#include "tests/support/voucher_type_books.h"
#include "tests/window/list_form_fixture.h"
#include "vouchertype/window/voucher_type_window.h"

namespace chengheng {

/// The voucher types and the hands of their operator.
class VoucherTypeWindowTest : public ListFormWindowTest<VoucherTypeBooks, VoucherTypeWindow> {
  protected:
    static constexpr const char* receipt = "收 收款凭证 1 1001 1002";

    void open(const std::vector<std::string>& types = {}) {
        if (!hasAccounts) books.addAccounts();
        hasAccounts = true;
        books.insert(types);
        ListFormWindowTest::open();
    }
    QLineEdit& number() const { return control<QLineEdit>("sSign"); }
    QLineEdit& name() const { return control<QLineEdit>("sSignName"); }
    QCheckBox& restricted() const { return control<QCheckBox>("byLimit"); }
    QLineEdit& one() const { return control<QLineEdit>("sCode1"); }
    QLineEdit& two() const { return control<QLineEdit>("sCode2"); }
    QRadioButton& radio(const char* kind) const { return control<QRadioButton>(kind); }
    QPushButton& choice(const char* accessibleName) const {
        for (auto* button : window->findChildren<QPushButton*>())
            if (button->accessibleName() == QString::fromUtf8(accessibleName)) return *button;
        throw std::runtime_error(accessibleName);
    }

    /// What stands in the form: "收 收款凭证", and where 限制 is checked " 限制", the radio that is
    /// chosen and the accounts, an empty one as "-".
    std::string shownInput() const {
        QString shown = number().text() + ' ' + name().text();
        if (restricted().isChecked()) shown += " 限制";
        for (const char* kind : {"debitRequired", "creditRequired", "bothForbidden"})
            if (radio(kind).isChecked()) shown += ' ' + radio(kind).text();
        for (const QLineEdit* account : {&one(), &two()})
            if (restricted().isChecked() || !account->text().isEmpty())
                shown += ' ' + (account->text().isEmpty() ? "-" : account->text());
        return shown.toStdString();
    }
    /// Whether kinds, accounts and their buttons can all be used; none of them, or the test fails.
    bool isRestrictionOpen() const {
        const QWidget* parts[] = {&radio("debitRequired"),
                                  &radio("creditRequired"),
                                  &radio("bothForbidden"),
                                  &one(),
                                  &two(),
                                  &choice("选择科目一"),
                                  &choice("选择科目二")};
        const auto open = std::ranges::count_if(parts, std::mem_fn(&QWidget::isEnabled));
        EXPECT_TRUE(open == 0 || open == static_cast<std::ptrdiff_t>(std::size(parts))) << open;
        return open > 0;
    }
    /// Types where the keyboard is, and Enter.
    void enter(const char* text) {
        typeText(window->focusWidget(), QString::fromUtf8(text));
        press(Qt::Key_Return);
    }

    bool hasAccounts = false;
};

}  // namespace chengheng
