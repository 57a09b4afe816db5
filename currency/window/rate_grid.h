#pragma once

#include <set>

#include "currency/rate_sheet.h"
#include "currency/window/rate_model.h"
#include "screen/grid/CVCF1.h"
#include "screen/grid/cell_editor.h"

namespace chengheng {

/// The grid of rates and the typing in it. A digit or a point replaces what stands in a cell, F2
/// and a double click keep it; no other key begins an edit.
class RateGrid final : public CVCF1 {
    Q_OBJECT

  public:
    explicit RateGrid(QWidget* parent);

    /// Shows a sheet as it is now. The operator stays in his cell unless it is of another place.
    void show(const RateSheet& sheet, bool isOpen, bool isSamePlace);
    void goTo(const RateCell& cell);
    /// Which days have strange rates.
    void mark(std::set<Date> rates, std::set<Date> adjustments);
    /// The current cell.
    RateCell current() const;
    /// Begins an edit with a text that was typed before.
    void takeUp(const RateCell& cell, const QString& text);
    /// Ends an edit that is under way, as leaving its cell would; and as Escape would.
    void finish();
    void giveUp();

  signals:
    void editBegun();
    /// What was typed is to be written.
    void typed(const RateCell& cell, const QString& text);
    void editEnded();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    bool beginEdit();
    void beginAnew(QEvent& typing);
    QWidget* openEditor() const;
    void moveOn(NextCell to);

    RateModel* m_model;
    CellEditor* m_editor;
};

}  // namespace chengheng
