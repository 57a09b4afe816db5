#include "auxiliary/window/find_entry_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "auxiliary/members/auxiliary_texts.h"
#include "screen/screen_texts.h"
#include "screen/shown.h"

namespace chengheng {
FindEntryWindow::FindEntryWindow(const AuxiliaryMember& member, EntrySearch& search,
                                 QWidget* parent)
    : DialogFrame(parent), m_member(member), m_search(search) {
    setWindowTitle(shown(member.findingTitle));
    setMinimumWidth(entryDialogCharacters * fontMetrics().horizontalAdvance(QLatin1Char('0')));
}

bool FindEntryWindow::OnInitDialog() {
    buildControls();
    UpdateData(false);
    m_fields.summary->setFocus();
    return false;
}

void FindEntryWindow::buildControls() {
    auto* directions = new QWidget(this);
    m_debit = new QCheckBox(shown(auxiliary_texts::debitChoice), directions);
    m_credit = new QCheckBox(shown(auxiliary_texts::creditChoice), directions);
    auto* line = new QHBoxLayout(directions);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_debit);
    line->addWidget(m_credit);
    line->addStretch(1);
    auto* rows = new QVBoxLayout(this);
    auto* fields = new QFormLayout;
    rows->addLayout(fields);
    m_fields.build(*fields, m_member, *directions);
    for (const DimensionField& field : m_fields.dimensions) field.view->hide();
    auto* buttons = new QDialogButtonBox(this);
    auto* confirm = buttons->addButton(shown(screen_texts::confirm), QDialogButtonBox::AcceptRole);
    confirm->setDefault(true);
    buttons->addButton(shown(screen_texts::cancel), QDialogButtonBox::RejectRole);
    rows->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, guarded([this] { OnOK(); }));
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { EndDialog(Rejected); });
    connect(m_fields.pickDate, &QPushButton::clicked, this,
            guarded([this] { pickDateFor(*m_fields.date, *this); }));
}

void FindEntryWindow::DoDataExchange(bool isSaving) {
    if (isSaving) {
        m_search.date = m_fields.date->text().toStdString();
        m_search.sign = m_fields.signCode();
        m_search.number = m_fields.number->text().toStdString();
        m_search.summary = m_fields.summary->text().toStdString();
        for (const DimensionField& field : m_fields.dimensions)
            nameOf(m_search.names, field.dimension) = field.edit->text().toStdString();
        m_search.isDebit = m_debit->isChecked();
        m_search.isCredit = m_credit->isChecked();
        m_search.money = m_fields.money->text().toStdString();
        m_search.foreign = m_fields.foreign->text().toStdString();
        m_search.quantity = m_fields.quantity->text().toStdString();
        return;
    }
    m_fields.date->setText(shown(m_search.date));
    m_fields.showSign(m_search.sign);
    m_fields.number->setText(shown(m_search.number));
    m_fields.summary->setText(shown(m_search.summary));
    for (const DimensionField& field : m_fields.dimensions)
        field.edit->setText(shown(nameOf(m_search.names, field.dimension)));
    m_debit->setChecked(m_search.isDebit);
    m_credit->setChecked(m_search.isCredit);
    m_fields.money->setText(shown(m_search.money));
    m_fields.foreign->setText(shown(m_search.foreign));
    m_fields.quantity->setText(shown(m_search.quantity));
}

void FindEntryWindow::OnOK() {
    UpdateData();
    EndDialog(Accepted);
}

}  // namespace chengheng
