#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "screen/dialog_frame.h"

class CVCF1;
class QDialogButtonBox;
class QLineEdit;
namespace chengheng {
class EmptyWords;
class PickerRows;

/// A record to choose: what stands in the two columns of the list.
struct PickerRow {
    std::string code;
    std::string name;
};

/// The records as a command of a picker leaves them.
struct PickerChange {
    std::vector<PickerRow> rows;
    int chosen = -1;  ///< position of the one chosen there; -1 for none
};

/// A list of records with a field that narrows it, by code, name and the initials of the name:
/// looked through, or chosen from with a double click, Enter or 确定.
class PickerWindow final : public DialogFrame {
    Q_OBJECT

  public:
    PickerWindow(const QString& title, std::vector<PickerRow> rows, QWidget* parent);
    /// Shows each record in one column, headed as given: code, two blanks, name.
    PickerWindow(const QString& title, const char* heading, std::vector<PickerRow> rows,
                 QWidget* parent);
    ~PickerWindow() override;

    enum class Afterwards { stay, takeTheChosen };

    /// Adds a button whose work gives the records as they are then; nothing when they cannot be
    /// read, which the operator has been told.
    void addCommand(const QString& text, std::function<std::optional<PickerChange>()> work,
                    Afterwards afterwards);
    /// What is read where there is nothing to choose: why, and what to do.
    void setWordsWhenEmpty(const QString& words);
    /// Position of the row that is selected; -1 for none.
    int selected() const;
    /// Shows the list with a row selected; the position of the row chosen, -1 for none.
    int choose(int current = -1);

  private:
    PickerWindow(const QString& title, std::unique_ptr<PickerRows> rows, QWidget* parent);
    void buildControls();
    void narrow(const QString& wanted);
    void explainNothing();

    void take(PickerChange change, Afterwards afterwards);

    std::unique_ptr<PickerRows> m_rows;
    CVCF1* m_grid;
    EmptyWords* m_emptyWords = nullptr;
    QString m_wordsWhenEmpty;
    QLineEdit* m_wanted;
    QDialogButtonBox* m_buttons = nullptr;
};

}  // namespace chengheng
