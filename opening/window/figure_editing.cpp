#include "opening/window/figure_editing.h"

#include "opening/editing/typed_amount.h"
#include "screen/guarded.h"
#include "screen/shown.h"

namespace chengheng {

FigureEditing::FigureEditing(OpeningGrid& grid, OpeningWork& work, IMessages& messages)
    : QObject(&grid),
      m_grid(grid),
      m_work(work),
      m_messages(messages),
      m_editor(new FigureEditor(&grid, [&work](const QModelIndex& index, const QString& typed) {
          const auto& line = work.sheet().line(static_cast<std::size_t>(index.row()));
          return shown(shownSum(typed.toStdString(), line.measure));
      })) {
    m_grid.setItemDelegate(m_editor);
    connect(m_editor, &FigureEditor::begun, this, [this] {
        m_work.beginEdit();
        m_isRefused = false;
        emit begun();
    });
    connect(m_editor, &FigureEditor::typed, this,
            [this](const QModelIndex& index, const QString& text) {
                guarded([&] { write(index, text); });
            });
    // A figure that was not written is looked at again.
    connect(m_editor, &FigureEditor::movedOn, this, [this](NextCell to) {
        if (!m_isRefused) m_grid.moveOn(to);
    });
}

template <class Work>
void FigureEditing::guarded(Work work) {
    runGuarded(m_messages, m_grid.window()->windowTitle(), work);
}

bool FigureEditing::finish() {
    m_isRefused = false;
    const QWidget* focus = m_grid.window()->focusWidget();
    if (focus != nullptr && focus != &m_grid && m_grid.isAncestorOf(focus)) m_grid.setFocus();
    return !m_isRefused;
}

void FigureEditing::write(const QModelIndex& index, const QString& text) {
    const FigurePlace place = m_grid.placeAt(index);
    m_isRefused = Outcome::done != m_work.endEdit(static_cast<std::size_t>(index.row()),
                                                  static_cast<std::size_t>(index.column()),
                                                  text.toStdString());
    emit ended();
    if (!m_isRefused) return;
    // Once the editor that ends now has closed.
    const auto again = [this, place, text] { guarded([&] { takeUpAgain(place, text); }); };
    QMetaObject::invokeMethod(this, again, Qt::QueuedConnection);
}

void FigureEditing::takeUpAgain(const FigurePlace& place, const QString& text) {
    const bool hasEnded = !m_grid.isVisible();
    if (hasEnded || !m_work.sheet().placeOfId(place.accountId)) return;
    m_grid.goTo(place);
    m_grid.setFocus();
    if (!m_work.sheet().isEditable(m_grid.currentLine(), m_grid.currentColumn())) return;
    m_grid.edit(m_grid.currentIndex());
    m_editor->takeUp(m_grid.indexWidget(m_grid.currentIndex()), text);
}

}  // namespace chengheng
