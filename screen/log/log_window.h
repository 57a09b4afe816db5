#pragma once

#include <memory>

#include "operationlog/screen/log_screen.h"
#include "report/output/report_printer.h"
#include "screen/CNxMiddleDialog.h"
#include "screen/window_commands.h"
#include "session/function_at_work.h"

class CVCF1;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace chengheng {
class LogChangeModel;
class LogEntryModel;

/// The operation log (操作日志): a filter above, the entries at the left, what the selected one
/// did at the right.
class LogWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    explicit LogWindow(QWidget* parent = nullptr);
    ~LogWindow() override;

    bool OnHelpInfo() override;

  protected:
    bool OnInitDialog() override;
    /// Enter in the filter looks for what it says; in a grid it goes to the other one.
    void OnOK() override { search(); }
    bool OnCommand(int command) override;

  private:
    void buildControls();
    QWidget* buildFilter();
    QWidget* buildGrids();
    void fillChoices();
    LogFilter typedFilter() const;
    void search();
    void clearFilter();
    void refresh();
    void goToNewest();
    void showCount();
    void showSelected();
    /// Not while a grid is being laid out.
    void tellFailureLater();
    void print(ReportOutput output);

    const FunctionAtWork m_atWork;
    LogScreen m_screen;
    std::unique_ptr<WindowCommands> m_commands;
    LogEntryModel* m_entryModel = nullptr;
    LogChangeModel* m_changeModel = nullptr;
    CVCF1* m_entries = nullptr;
    CVCF1* m_changes = nullptr;
    QComboBox* m_operator = nullptr;
    QComboBox* m_function = nullptr;
    QLineEdit* m_from = nullptr;
    QLineEdit* m_to = nullptr;
    QLineEdit* m_text = nullptr;
    QLineEdit* m_account = nullptr;
    QPushButton* m_search = nullptr;
    QLabel* m_count = nullptr;
    QLabel* m_heading = nullptr;
};

}  // namespace chengheng
