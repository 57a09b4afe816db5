#pragma once

#include "screen/grid/cell_editor.h"

namespace chengheng {

/// Edits a figure in its cell: thousands separators come as one types.
class FigureEditor final : public CellEditor {
    Q_OBJECT

  public:
    using CellEditor::CellEditor;

  protected:
    QLineEdit* makeField(QWidget* parent) const override;
};

}  // namespace chengheng
