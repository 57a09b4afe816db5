#pragma once

#include <QProgressDialog>

#include "screen/report/report_document.h"

namespace chengheng {

/// A box with a bar and 取消 that comes up when a work takes more than a moment. Windows go on
/// painting while the work asks it.
class WorkProgressBox {
  public:
    WorkProgressBox(const char* text, QWidget* parent);

    /// For as long as the box lives.
    WorkProgress progress();
    /// Takes the box away; whether it was cancelled stays known.
    void close();
    bool isCancelled() const { return m_isCancelled || m_box.wasCanceled(); }

  private:
    QProgressDialog m_box;
    bool m_isCancelled = false;
};

}  // namespace chengheng
