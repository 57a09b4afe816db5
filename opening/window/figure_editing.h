#pragma once

#include <QObject>

#include "opening/window/opening_grid.h"

namespace chengheng {

/// Typing figures into the grid: each is written when its edit ends. One that was not written is
/// taken up again with what was typed for it.
class FigureEditing final : public QObject {
    Q_OBJECT

  public:
    FigureEditing(OpeningGrid& grid, OpeningWork& work, IMessages& messages);

    /// Ends an edit that is under way, as leaving its cell would; false when it was not written.
    bool finish();

  signals:
    /// Typing has begun.
    void begun();
    /// What was typed has been written or refused.
    void ended();

  private:
    void write(const QModelIndex& index, const QString& text);
    void takeUpAgain(const FigurePlace& place, const QString& text);
    template <class Work>
    void guarded(Work work);

    OpeningGrid& m_grid;
    OpeningWork& m_work;
    IMessages& m_messages;
    FigureEditor* m_editor;
    bool m_isRefused = false;  ///< the edit that ended last was not written
};

}  // namespace chengheng
