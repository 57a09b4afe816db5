#include "screen/help/help_pages.h"

#include <QFile>
#include <QTextDocumentFragment>
#include <algorithm>
#include <iterator>

#include "screen/resources.h"

namespace chengheng {
namespace {

constexpr HelpPage pages[] = {
    {hubHelpContext, "基础设置", ":/help/hub.html"},
    {197779, "第一次建帐的步骤", ":/help/first_steps.html"},
    {197780, "键盘操作", ":/help/keyboard.html"},
    {197781, "操作员与权限", ":/help/rights.html"},
    {chartHelpContext, "会计科目", ":/help/chart.html"},
    {openingHelpContext, "期初余额录入", ":/help/opening.html"},
    {settleHelpContext, "结算方式", ":/help/settle.html"},
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
