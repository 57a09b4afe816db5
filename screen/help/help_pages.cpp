#include "screen/help/help_pages.h"

#include <QFile>
#include <QTextDocumentFragment>
#include <algorithm>
#include <iterator>

#include "screen/resources.h"
#include "screen/screen_texts.h"

namespace chengheng {
namespace {

constexpr HelpPage pages[] = {
    {hubHelpContext, screen_texts::hubPage, ":/help/hub.html"},
    {197779, screen_texts::firstStepsPage, ":/help/first_steps.html"},
    {197780, screen_texts::keyboardPage, ":/help/keyboard.html"},
    {operatorHelpContext, screen_texts::rightsPage, ":/help/rights.html"},
    {chartHelpContext, screen_texts::chartPage, ":/help/chart.html"},
    {openingHelpContext, screen_texts::openingPage, ":/help/opening.html"},
    {directoryHelpContext, screen_texts::directoryPage, ":/help/directories.html"},
    {auxiliaryHelpContext, screen_texts::auxiliaryPage, ":/help/auxiliary.html"},
    {currencyHelpContext, screen_texts::currencyPage, ":/help/currency.html"},
    {voucherTypeHelpContext, screen_texts::voucherTypePage, ":/help/voucher_types.html"},
    {settleHelpContext, screen_texts::settlePage, ":/help/settle.html"},
    {parametersHelpContext, screen_texts::parametersPage, ":/help/parameters.html"},
    {newYearHelpContext, screen_texts::newYearPage, ":/help/new_year.html"},
    {logHelpContext, screen_texts::logPage, ":/help/log.html"},
};

}  // namespace

std::span<const HelpPage> helpPages() { return pages; }

int helpPageIndex(int context) {
    const auto found = std::ranges::find(pages, context, &HelpPage::context);
    return found == std::end(pages) ? 0 : static_cast<int>(found - std::begin(pages));
}

QString helpPageSource(const HelpPage& page) {
    loadHostResources();
    QFile file(QString::fromUtf8(page.file));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll());
}

bool isFoundOnPage(const HelpPage& page, const QString& wanted) {
    if (QString::fromUtf8(page.title).contains(wanted, Qt::CaseInsensitive)) return true;
    const QString text = QTextDocumentFragment::fromHtml(helpPageSource(page)).toPlainText();
    return text.contains(wanted, Qt::CaseInsensitive);
}

}  // namespace chengheng
