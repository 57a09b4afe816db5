#include "settle/window/CNbCwSettleDlg.h"

#include <QCheckBox>

#include "data/lookups/CGetData.h"
#include "report/output/list_printing.h"
#include "screen/dialog_templates.h"
#include "screen/forms/limited_edit.h"
#include "screen/help/help_pages.h"
#include "session/host_globals.h"
#include "settle/settle_texts.h"
#include "settle/settlement_list.h"

using namespace chengheng;

namespace {

constexpr ListFormWindow settleWindow{.templateNumber = dialog_templates::method,
                                      .title = settle_texts::title,
                                      .helpContext = settleHelpContext};

}  // namespace

CNbCwSettleDlg::CNbCwSettleDlg(QWidget* parent)
    : ListFormDialog(settleWindow, parent), m_form(messages()) {}

CNbCwSettleDlg::~CNbCwSettleDlg() {
    runGuarded(messages(), windowTitle(), [this] {
        if (CGetData::LoadSettleMemoryMapTable(g_lpszNbZwDBName) < 0) TellFailure();
    });
}

void CNbCwSettleDlg::addFields() {
    m_number = addEdit(settle_texts::number, 'U', settleNumberField, settleNumberWidth);
    m_name = addEdit(settle_texts::name, 'M', settleNameField, settleNameWidth);
    m_usesChequeRegister = new QCheckBox(QString::fromUtf8(settle_texts::usesChequeRegister));
    m_usesChequeRegister->setObjectName(QStringLiteral("bNote"));
    addField(*m_usesChequeRegister);
    connect(m_usesChequeRegister, &QCheckBox::toggled, this,
            guarded([this] { inputEdited(*m_usesChequeRegister); }));
}

void CNbCwSettleDlg::DoDataExchange(bool isSaving) {
    SettleInput& input = m_form.input;
    if (isSaving) {
        input = {.number = m_number->text().toStdString(),
                 .name = m_name->text().toStdString(),
                 .usesChequeRegister = m_usesChequeRegister->isChecked()};
        return;
    }
    m_number->showText(QString::fromStdString(input.number));
    m_name->showText(QString::fromStdString(input.name));
    m_usesChequeRegister->setChecked(input.usesChequeRegister);
}

void CNbCwSettleDlg::printRecords(ReportOutput output) {
    printList(settlementList(), output, messages());
}
