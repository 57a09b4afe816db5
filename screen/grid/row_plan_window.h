#pragma once

#include <functional>
#include <string>

#include "screen/grid/plan_window.h"
#include "session/record_change.h"
#include "sheets/plan_texts.h"
#include "sheets/row_plan.h"

namespace chengheng {

/// What an import has of its own in its window.
struct RowPlanWords {
    std::string title;
    const char* code;  ///< heads the column of the codes
    const char* name;
    const char* working;      ///< while it is written
    std::string done;         ///< told afterwards; nothing is where it is empty
    std::string source = {};  ///< the line above the rows; empty: the file
    const char* button = plan_texts::apply;
    const char* ready = plan_texts::isReady;  ///< advises to look and to press the button
};

/// Shows what an import would make of each row of a file, and does it when the operator says
/// so: exactly what is shown, or nothing.
class RowPlanWindow final : public PlanWindow {
    Q_OBJECT

  public:
    /// Carries the plan out; whatever does not give `done` has told the operator why.
    using Apply = std::function<Outcome(const ImportProgress& progress)>;

    /// The plan outlives the window.
    RowPlanWindow(RowPlanWords words, const RowPlan& plan, const std::string& file, Apply apply,
                  QWidget* parent);

  protected:
    void apply() override;

  private:
    const RowPlanWords m_words;
    const Apply m_apply;
};

}  // namespace chengheng
