#include "screen/report/report_paper.h"

#include <QSizeF>
#include <cmath>

namespace chengheng {
namespace {

void take(double& length, double given) {
    constexpr double rounding = 0.5;  // millimetres; the toolkit counts paper in points
    if (std::abs(length - given) > rounding) length = given;
}

}  // namespace

QPageLayout paperOf(const ReportLayout& layout) {
    const QPageSize size(QSizeF(layout.paperWidth, layout.paperHeight), QPageSize::Millimeter);
    const QMarginsF margins(layout.marginLeft, layout.marginTop, layout.marginRight,
                            layout.marginBottom);
    QPageLayout paper(size, layout.isPortrait ? QPageLayout::Portrait : QPageLayout::Landscape,
                      margins, QPageLayout::Millimeter);
    paper.setMode(QPageLayout::FullPageMode);
    return paper;
}

ReportLayout onPaper(ReportLayout layout, const QPageLayout& paper) {
    const QSizeF size = paper.pageSize().size(QPageSize::Millimeter);
    const QMarginsF margins = paper.margins(QPageLayout::Millimeter);
    take(layout.paperWidth, size.width());
    take(layout.paperHeight, size.height());
    layout.isPortrait = paper.orientation() == QPageLayout::Portrait;
    take(layout.marginLeft, margins.left());
    take(layout.marginTop, margins.top());
    take(layout.marginRight, margins.right());
    take(layout.marginBottom, margins.bottom());
    return layout;
}

}  // namespace chengheng
