#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "auxiliary/entries/entry_input.h"
#include "auxiliary/members/auxiliary_member.h"
#include "base/messages/messages.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QPushButton;

namespace chengheng {
class LimitedEdit;

/// How wide a dialog with these fields is at least.
inline constexpr int entryDialogCharacters = 62;

/// A field for a name of a dimension, and the button beside it that shows what there is.
struct DimensionField {
    Dimension dimension;
    LimitedEdit* edit;
    QPushButton* view;
};

/// The fields that the record dialog and the find dialog have in common, in the order of the Tab
/// key; the dialog owns them.
class EntryFields {
  public:
    QLineEdit* date = nullptr;
    QPushButton* pickDate = nullptr;
    QComboBox* sign = nullptr;  ///< its data is the type's code; the first one is none
    QLineEdit* number = nullptr;
    LimitedEdit* summary = nullptr;
    std::vector<DimensionField> dimensions;
    QLineEdit* money = nullptr;
    QLineEdit* foreign = nullptr;
    QLineEdit* quantity = nullptr;

    /// Adds rows with their labels; the buttons of `directions` come between names and amounts.
    /// A summary or name too long is cut, which the operator is told; other texts are taken whole.
    void build(QFormLayout& rows, const AuxiliaryMember& member, QWidget& directions,
               IMessages& messages);
    /// The field by the name that a refusal gives; null when there is none.
    QWidget* named(const std::string& name) const;

    /// Stored texts are shown whole, however long.
    void show(const EntryFieldTexts& texts) const;
    void read(EntryFieldTexts& texts) const;

  private:
    void showSign(const std::string& code) const;
    void orderTabs(QWidget& directions) const;
};

/// A calendar below a field; the day that is clicked is written into it.
void pickDateFor(QLineEdit& field, QWidget& window);

}  // namespace chengheng
