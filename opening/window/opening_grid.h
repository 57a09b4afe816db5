#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "opening/screen/opening_work.h"
#include "opening/window/figure_editor.h"
#include "opening/window/opening_model.h"
#include "screen/grid/CVCF1.h"

namespace chengheng {

/// The opening balances in their grid: what it shows, where the keyboard is and where it goes.
class OpeningGrid final : public CVCF1 {
    Q_OBJECT

  public:
    /// The work has been refreshed and outlives the grid.
    OpeningGrid(OpeningWork& work, QWidget* parent);
    ~OpeningGrid() override;

    /// Shows what has changed. Lines that were read anew leave the operator's place as it is:
    /// the keyboard, the cell, what is selected and where on the screen it stands.
    void showChanges();

    bool hasLine() const;
    std::size_t currentLine() const;
    std::size_t currentColumn() const;
    std::size_t openingColumn() const;
    bool isOnFigure() const;
    FigurePlace placeAt(const QModelIndex& index) const;
    /// Whether a double click there opens an auxiliary window.
    bool opensAuxiliary(const QModelIndex& index) const;

    /// The first line that takes a figure: where the typing begins.
    void goToFirst();
    void goTo(const FigurePlace& place);
    void goToLine(std::size_t line);
    void goToAccount(std::size_t place);
    /// To the first figure that a step changes.
    void goToStep(const EditStep& step);
    void moveOn(NextCell to);
    /// From figure to figure; false where there is no further one.
    bool moveSideways(int direction);
    /// What Enter does where nothing is edited.
    void moveOnByEnter(bool isBack);

    /// The selected figures that may be typed over, each as zero.
    std::vector<TypedFigure> selectedAsZero() const;
    /// Of what is selected, wherever the selecting began.
    OpeningCell upperLeft() const;

  protected:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    const OpeningSheet& sheet() const { return m_work.sheet(); }
    void showLinesReadAnew();
    std::optional<std::size_t> lineOf(const FigurePlace& place) const;
    void select(const std::vector<FigurePlace>& corners);
    std::size_t firstFigureColumn() const;
    void goToCell(std::size_t line, std::size_t column);
    void goToNextEditable(int direction);

    OpeningWork& m_work;
    std::unique_ptr<OpeningModel> m_model;
    std::uint64_t m_shownReadings;
};

}  // namespace chengheng
