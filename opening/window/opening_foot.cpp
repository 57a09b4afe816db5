#include "opening/window/opening_foot.h"

#include <fmt/format.h>

#include <QHBoxLayout>
#include <QLabel>

#include "base/values/numbers.h"
#include "opening/sheet/opening_texts.h"
#include "opening/window/opening_look.h"
#include "screen/elided_label.h"
#include "screen/shown.h"

namespace chengheng {
namespace {

void showAmount(QLabel& label, fmt::format_string<std::string> text, double amount) {
    label.setText(shown(fmt::format(text, ftoaWithSap(amount, 2))));
}

}  // namespace

OpeningFoot::OpeningFoot(QWidget* parent) : QWidget(parent) {
    using namespace opening_layout;
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(margin / 2, margin, margin / 2, 0);
    auto* line = new QHBoxLayout;
    line->setSpacing(2 * spacing);
    lines->addLayout(line);
    m_debits = addSum(*line, "debits");
    m_credits = addSum(*line, "credits");
    m_difference = addSum(*line, "difference");
    m_account = new ElidedLabel(this);
    m_account->setObjectName(QStringLiteral("account"));
    m_account->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    line->addWidget(m_account, 1);
    m_remark = new ElidedLabel(this);
    m_remark->setObjectName(QStringLiteral("remark"));
    lines->addWidget(m_remark);
}

QLabel* OpeningFoot::addSum(QLayout& line, const char* name) {
    auto* label = new QLabel(this);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    line.addWidget(label);
    return label;
}

void OpeningFoot::showTotals(const TrialBalance& totals) {
    showAmount(*m_debits, opening_texts::debitSum, totals.debitTotal());
    showAmount(*m_credits, opening_texts::creditSum, totals.creditTotal());
    showAmount(*m_difference, opening_texts::difference, totals.difference());
    QPalette colours = palette();
    if (!totals.isBalanced()) colours.setColor(QPalette::WindowText, opening_colours::negative);
    m_difference->setPalette(colours);
}

void OpeningFoot::showAccount(const OpeningAccount& account) {
    m_account->setText(shown(account.code + ' ' + account.name));
}

void OpeningFoot::showRemark(const std::string& remark, bool isOnSuccess) {
    QPalette colours = palette();
    if (!isOnSuccess) colours.setColor(QPalette::WindowText, opening_colours::negative);
    m_remark->setPalette(colours);
    m_remark->setText(shown(remark));
}

}  // namespace chengheng
