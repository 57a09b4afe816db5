#pragma once

#include <memory>
#include <string>

#include "auxiliary/screen/auxiliary_work.h"
#include "report/output/report_printer.h"
#include "screen/CNxMiddleDialog.h"
#include "session/function_at_work.h"

class CVCF1;
class QComboBox;
class QLabel;
class QLineEdit;
class QTabWidget;

namespace chengheng {
class CombinationModel;
class EntryModel;
class WindowCommands;

/// The auxiliary opening balances of an account (部门核算期初 and its six like): its opening
/// entries, one for each department, person, unit or project item, and the commands on them. What
/// is entered is in the books at once.
class AuxiliaryWindow : public CNxMiddleDialog {
    Q_OBJECT

  public:
    AuxiliaryWindow(const AuxiliaryMember& member, std::string accountCode, bool isBrowsing,
                    QWidget* parent);
    ~AuxiliaryWindow() override;

    bool OnHelpInfo() override;

  protected:
    /// False, told, when there is nothing to open.
    bool OnCreate() override;
    bool OnInitDialog() override;
    bool OnCommand(int command) override;
    void OnOK() override {}

    void OnMenuAdd();
    void OnMenuModify();
    void OnMenuDelete();
    void OnMenuUndo();
    void OnMenuRedo();
    void OnMenuFind();
    void OnMenuRefresh();
    void OnMenuHistory();
    void OnMenuCopy();
    void OnMenuPaste();
    void OnMenuImport();
    void OnMenuExport();
    void OnMenuPrint();
    void OnMenuPreview();
    void OnMenuExit() { EndDialog(Rejected); }
    void OnMenuHelp() { OnHelpInfo(); }
    void OnMenuSearch();

  private:
    void buildControls();
    QWidget* buildHeading();
    QWidget* buildTabs();
    QWidget* buildFoot();
    void connectControls();
    void fillAccounts();
    void accountChosen(int place);
    std::optional<std::size_t> currentRow() const;
    void showChanges();
    void showTotals();
    void showFoot();
    void goToLine(std::int32_t lineId);
    /// Goes to an entry that was added, whatever the filter shows.
    void goToAdded(std::int32_t lineId);
    /// Does something with the entries, then shows what became of it where the operator stood.
    void change(const std::function<void()>& work);
    void print(ReportOutput output);

    const FunctionAtWork m_atWork;
    const AuxiliaryMember& m_member;
    const std::string m_accountCode;
    AuxiliaryWork m_work;
    EntrySearch m_search;
    std::unique_ptr<WindowCommands> m_commands;
    std::unique_ptr<EntryModel> m_entries;
    std::unique_ptr<CombinationModel> m_combinations;
    QComboBox* m_accounts = nullptr;
    QLineEdit* m_mode = nullptr;
    QLineEdit* m_filter = nullptr;
    QTabWidget* m_tabs = nullptr;
    CVCF1* m_grid = nullptr;
    CVCF1* m_totals = nullptr;
    QLabel* m_count = nullptr;
    QLabel* m_sums = nullptr;
    QLabel* m_posted = nullptr;
    QLabel* m_difference = nullptr;
};

}  // namespace chengheng
