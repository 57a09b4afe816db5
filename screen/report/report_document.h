#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>

#include "report/engine/report_pages.h"
#include "screen/report/paper_fonts.h"

class QPainter;
class QPagedPaintDevice;

namespace chengheng {

/// Told how much of a work is done; false ends the work.
using WorkProgress = std::function<bool(std::size_t done, std::size_t all)>;

/// A report on pages that can be painted on any device. The report outlives it and takes other
/// pages only through it.
class ReportDocument {
  public:
    explicit ReportDocument(CReport& report);

    const CReport& report() const { return m_report; }
    ReportPages& pages() { return *m_pages; }
    const ReportPages& pages() const { return *m_pages; }
    /// Begins anew with other paper and margins; nothing is laid out then.
    void useLayout(const ReportLayout& layout);
    /// Lays out every row; false when the progress ended it.
    bool layOutAll(const WorkProgress& progress);

    /// Paints a page, counted from 0, its corner at the painter's origin, in paper units.
    void paint(QPainter& painter, std::size_t page) const;
    /// Paints pages onto a printer or file, whose paper is set before; false when the device
    /// failed or the progress ended it.
    bool paintPages(QPagedPaintDevice& device, std::span<const std::size_t> pages,
                    const WorkProgress& progress) const;
    /// What a page reads, a row a line, cells parted by tabs, for whoever cannot see the picture.
    QString readText(std::size_t page) const;

  private:
    void paintText(QPainter& painter, const DrawnText& text) const;

    CReport& m_report;
    PaperMeasure m_measure;
    std::optional<ReportPages> m_pages;
};

}  // namespace chengheng
