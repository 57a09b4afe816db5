// The commands of the chart that change accounts or print them.

#include <fmt/format.h>

#include <QFileDialog>
#include <algorithm>

#include "accounts/chart/account_texts.h"
#include "accounts/screen/account_form.h"
#include "accounts/transfer/import_texts.h"
#include "accounts/window/CNbCwBursarDlg.h"
#include "accounts/window/account_window.h"
#include "accounts/window/chart_model.h"
#include "accounts/window/designation_window.h"
#include "accounts/window/import_window.h"
#include "accounts/window/print_range_window.h"
#include "accounts/window/used_window.h"
#include "data/lookups/existence.h"
#include "screen/grid/CVCF1.h"
#include "screen/shown.h"

using chengheng::AccountForm;
using chengheng::CodeLevels;
using chengheng::Outcome;
using chengheng::shown;
namespace import_texts = chengheng::import_texts;

bool CNbCwBursarDlg::isStillThere(const std::string& code) {
    const int existence = SelectDatabase() ? CodeIsExist(code) : -1;
    if (existence < 0) return isRead(Outcome::failed, code);
    return isRead(existence == 0 ? Outcome::done : Outcome::stale, code);
}

bool CNbCwBursarDlg::isRead(Outcome outcome, const std::string& code) {
    if (outcome == Outcome::failed) TellFailure();
    if (outcome == Outcome::stale) tellGone(code);
    return outcome == Outcome::done;
}

void CNbCwBursarDlg::tellGone(const std::string& code) {
    messages().tell({.text = chengheng::account_texts::deletedMeanwhile(code)});
    listAgain();
}

void CNbCwBursarDlg::listAgain() {
    const int row = m_grid->currentRow();
    listActiveCategory();
    m_grid->setCurrentRow(std::min(row, m_model->rowCount() - 1));
}

void CNbCwBursarDlg::runAccountWindow(AccountForm& form) {
    chengheng::AccountWindow window(
        form,
        {.saved = [this](const _CodeInfo& account) { showSaved(account); },
         .moved =
             [this](const std::string& code) { m_grid->setCurrentRow(m_screen.rowOfCode(code)); }},
        this);
    window.DoModal();
    if (window.hasMetForeignChange()) listAgain();
    m_grid->viewport()->update();
    m_grid->setFocus();
}

void CNbCwBursarDlg::showSaved(const _CodeInfo& account) {
    m_grid->setCurrentRow(m_model->place(account));
    reflectAccounts();
}

void CNbCwBursarDlg::OnMenuInsert() {
    AccountForm form(messages(), CodeLevels(m_levelPattern), m_screen);
    const std::string code = currentCode();
    if (isRead(form.beginNew(code, activeCategory()), code)) runAccountWindow(form);
}

void CNbCwBursarDlg::OnMenuCopy() {
    const std::string code = currentCode();
    if (!isStillThere(code)) return;
    AccountForm form(messages(), CodeLevels(m_levelPattern), m_screen);
    if (isRead(form.beginCopy(code), code)) runAccountWindow(form);
}

void CNbCwBursarDlg::OnMenuModify() {
    const std::string code = currentCode();
    if (!isStillThere(code)) return;
    AccountForm form(messages(), CodeLevels(m_levelPattern), m_screen);
    if (isRead(form.beginModification(code), code)) runAccountWindow(form);
}

void CNbCwBursarDlg::OnMenuDelete() {
    const int row = m_grid->currentRow();
    const std::string code = currentCode();
    chengheng::AccountService service(messages(), CodeLevels(m_levelPattern));
    const auto change = service.remove(code, m_screen.text(row, chengheng::ListColumn::name));
    if (change.outcome == chengheng::Outcome::stale) tellGone(code);
    if (change.outcome != chengheng::Outcome::done) return;
    m_model->remove(row);
    m_grid->setCurrentRow(std::min(row, m_model->rowCount() - 1));
    reflectAccounts();
}

void CNbCwBursarDlg::OnMenuAppoint() {
    if (chengheng::DesignationWindow(this).DoModal() != Accepted) return;
    listAgain();
}

void CNbCwBursarDlg::OnMenuWhereUsed() { chengheng::UsedWindow(currentCode(), this).DoModal(); }

void CNbCwBursarDlg::OnMenuImport() {
    const QString file = QFileDialog::getOpenFileName(this, shown(import_texts::openTitle), {},
                                                      shown(import_texts::fileFilter), nullptr,
                                                      QFileDialog::DontUseNativeDialog);
    if (file.isEmpty()) return;
    chengheng::ChartImport import(messages());
    const auto plan = import.plan(file.toStdString());
    if (!plan) return;
    chengheng::ImportWindow window(import, *plan, file.toStdString(), this);
    if (window.DoModal() == Accepted) listActiveCategory();
}

void CNbCwBursarDlg::OnMenuExport() {
    const QString file = QFileDialog::getSaveFileName(
        this, shown(import_texts::saveTitle), shown(import_texts::defaultFile),
        shown(import_texts::fileFilter), nullptr, QFileDialog::DontUseNativeDialog);
    if (file.isEmpty()) return;
    if (chengheng::exportChart(messages(), file.toStdString()) != chengheng::Outcome::done) return;
    messages().tell(
        {.text = fmt::format(fmt::runtime(import_texts::exported), file.toStdString())});
}

void CNbCwBursarDlg::printChart(chengheng::ReportOutput output) {
    chengheng::PrintRangeWindow window(CodeLevels(m_levelPattern).count(), this);
    if (window.DoModal() != Accepted) return;
    chengheng::printList(chengheng::chartList(window.range()), output, messages());
}

void CNbCwBursarDlg::OnMenuPrint() { printChart(chengheng::ReportOutput::print); }

void CNbCwBursarDlg::OnMenuPreview() { printChart(chengheng::ReportOutput::preview); }
