#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/members/auxiliary_member.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QPushButton;

namespace chengheng {

/// How wide a dialog with these fields is at least.
inline constexpr int entryDialogCharacters = 62;

/// A field for a name of a dimension, and the button beside it that shows what there is.
struct DimensionField {
    Dimension dimension;
    QLineEdit* edit;
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
    QLineEdit* summary = nullptr;
    std::vector<DimensionField> dimensions;
    QLineEdit* money = nullptr;
    QLineEdit* foreign = nullptr;
    QLineEdit* quantity = nullptr;

    /// Adds rows with their labels; the buttons of `directions` come between names and amounts.
    void build(QFormLayout& rows, const AuxiliaryMember& member, QWidget& directions);
    /// The field by the name that a refusal gives; null when there is none.
    QWidget* named(const std::string& name) const;
    std::string signCode() const;
    void showSign(const std::string& code) const;

  private:
    void orderTabs(QWidget& directions) const;
};

/// A calendar below a field; the day that is clicked is written into it.
void pickDateFor(QLineEdit& field, QWidget& window);

}  // namespace chengheng
