#include "auxiliary/window/find_entry_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "auxiliary/members/auxiliary_texts.h"
#include "screen/forms/limited_edit.h"
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
    m_fields.build(*fields, m_member, *directions, messages());
    for (const DimensionField& field : m_fields.dimensions) field.view->hide();
    auto* buttons = makeConfirmation();
    rows->addWidget(buttons);
    connect(m_fields.pickDate, &QPushButton::clicked, this,
            guarded([this] { pickDateFor(*m_fields.date, *this); }));
}

void FindEntryWindow::DoDataExchange(bool isSaving) {
    if (isSaving) {
        m_fields.read(m_search);
        m_search.isDebit = m_debit->isChecked();
        m_search.isCredit = m_credit->isChecked();
        return;
    }
    m_fields.show(m_search);
    m_debit->setChecked(m_search.isDebit);
    m_credit->setChecked(m_search.isCredit);
}

void FindEntryWindow::OnOK() {
    UpdateData();
    EndDialog(Accepted);
}

}  // namespace chengheng
