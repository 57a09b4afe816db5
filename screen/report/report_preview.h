#pragma once

#include <QTimer>
#include <vector>

#include "screen/dialog_frame.h"
#include "screen/report/page_view.h"
#include "screen/report/report_export.h"

class QAction;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QToolBar;

namespace chengheng {

/// The pages of a report on the screen: turned, enlarged, printed, exported. Long reports are
/// laid out while their first pages are read already; the operator may stop that, and whatever
/// needs every page goes on with it.
class ReportPreview final : public DialogFrame {
    Q_OBJECT

  public:
    /// The document outlives it.
    ReportPreview(ReportDocument& document, QWidget* parent);

  protected:
    void OnOK() override;

  private:
    void buildToolBar();
    void addPageControls(QToolBar& bar);
    void addZoomControls(QToolBar& bar);
    void buildStatus();
    QAction* addAction(QToolBar& bar, const char* text, const char* picture,
                       const QKeySequence& key, std::function<void()> work);

    void layOutSome();
    void stopLayingOut();
    void tellPages();
    void turnTo(qsizetype page);
    void zoomTo(int choice);
    void zoomBy(int steps);
    void printPages();
    void exportTo(ExportKind kind);

    ReportDocument& m_document;
    PageView* m_view = nullptr;
    QAction* m_first = nullptr;
    QAction* m_previous = nullptr;
    QAction* m_next = nullptr;
    QAction* m_last = nullptr;
    QSpinBox* m_page = nullptr;
    QLabel* m_pageCount = nullptr;
    QComboBox* m_zoom = nullptr;
    QLabel* m_status = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_stop = nullptr;
    QTimer m_layingOut;
};

}  // namespace chengheng
