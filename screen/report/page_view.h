#pragma once

#include <QPixmap>
#include <QScrollArea>

#include "screen/report/report_document.h"

namespace chengheng {

/// How large a page is shown: so that all of it is seen, as wide as the view, or by a factor.
enum class PageFit { whole, width, factor };

/// One page of a document as it will be on paper, with its keyboard: arrows and Page keys move
/// over the page and on to the next, Home and End lead to the first and last. Who cannot see it
/// is told what it reads.
class PageView final : public QScrollArea {
    Q_OBJECT

  public:
    PageView(const ReportDocument& document, QWidget* parent);

    std::size_t page() const { return m_page; }
    void showPage(std::size_t page);
    /// Paints the page again: its rows or the count of pages have changed.
    void refresh();

    PageFit fit() const { return m_fit; }
    void setFit(PageFit fit);
    void setFactor(double factor);
    /// Screen size over paper size, whatever the fit.
    double shownFactor() const;

  signals:
    /// The keyboard or the wheel leads to another page; negative ones lie before the first.
    void pageWanted(qsizetype page);
    void zoomWanted(int steps);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    class Sheet;

    double pixelsPerUnit() const;
    void place();
    bool turnAtEdge(int steps);

    const ReportDocument& m_document;
    Sheet* m_sheet;
    std::size_t m_page = 0;
    PageFit m_fit = PageFit::whole;
    double m_factor = 1;
};

}  // namespace chengheng
