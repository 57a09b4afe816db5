#pragma once

#include <set>

#include "screen/grid/CVCF1.h"
#include "screen/grid/cell_editor.h"
#include "screen/grid/grid_model.h"
#include "vouchertype/screen/trial_screen.h"

namespace chengheng {

/// The lines of a tried voucher in their grid.
class TrialModel final : public GridModel {
    Q_OBJECT

  public:
    /// The screen outlives the model.
    TrialModel(const TrialScreen& screen, QObject* parent);

    static TrialCell cellAt(const QModelIndex& index);
    QModelIndex indexOf(const TrialCell& cell) const;
    /// The lines have changed.
    void show();
    /// The numbers of lines that may not be there.
    void blame(const std::vector<int>& lines);

    int rowCount(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    QString text(int row, int column) const override;
    QColor foreground(int row, int column) const override;

  private:
    const TrialScreen& m_screen;
    int m_rows = 0;
    std::set<int> m_blamed;
};

/// The typing in it: a letter or digit replaces what stands in a cell, F2 and a double click keep
/// it, Enter goes on as a voucher is filled in, Delete empties what is selected.
class TrialGrid final : public CVCF1 {
    Q_OBJECT

  public:
    TrialGrid(TrialScreen& screen, QWidget* parent);

    TrialModel& lines() { return *m_model; }
    /// The cell that has the keyboard; the first one where none has.
    TrialCell current() const;
    void goTo(const TrialCell& cell);
    void pasteClipboard();

  signals:
    /// What was typed, erased or pasted has changed the lines.
    void changed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void eraseSelected();
    void moveOn(NextCell to);

    TrialScreen& m_screen;
    TrialModel* m_model;
};

}  // namespace chengheng
