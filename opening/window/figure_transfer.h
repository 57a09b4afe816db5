#pragma once

#include <functional>
#include <string>

#include "opening/screen/opening_work.h"

class QWidget;

namespace chengheng {

/// Figures from the clipboard and from files, and into them. What comes in is shown as a plan
/// first, and written when the operator wants it.
class FigureTransfer {
  public:
    using Apply = std::function<Outcome(const FigurePlan& plan)>;

    /// `apply` writes a plan and shows what has become of it.
    FigureTransfer(OpeningWork& work, IMessages& messages, QWidget& window, Apply apply);

    /// The clipboard's block, with its first cell on a cell of the sheet.
    void paste(const OpeningCell& first);
    void importFile();
    void exportFile();

  private:
    Outcome applyShown(const FigurePlan& plan, const char* title, const std::string& heading);

    OpeningWork& m_work;
    IMessages& m_messages;
    QWidget& m_window;
    Apply m_apply;
};

}  // namespace chengheng
