#pragma once

#include <string>
#include <vector>

#include "screen/dialog_frame.h"

class CVCF1;
class QLineEdit;
namespace chengheng {
class PickerRows;

/// A record to choose: what stands in the two columns of the list.
struct PickerRow {
    std::string code;
    std::string name;
};

/// A list of records with a field that narrows it, by code, name and the initials of the name:
/// looked through, or chosen from with a double click, Enter or 确定.
class PickerWindow final : public DialogFrame {
    Q_OBJECT

  public:
    PickerWindow(const QString& title, std::vector<PickerRow> rows, QWidget* parent);
    ~PickerWindow() override;

    /// Shows the list with a row selected; the position of the row chosen, -1 for none.
    int choose(int current = -1);

  private:
    void buildControls();
    void narrow(const QString& wanted);

    std::unique_ptr<PickerRows> m_rows;
    CVCF1* m_grid;
    QLineEdit* m_wanted;
};

}  // namespace chengheng
