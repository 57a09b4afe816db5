#pragma once

#include <memory>
#include <string>

#include "accounts/screen/chart_screen.h"
#include "data/tables/accounts.h"
#include "report/output/report_printer.h"
#include "screen/CNxMiddleDialog.h"
#include "screen/module_export.h"

class QTabBar;
namespace chengheng {
class AccountActions;
class ChartFinder;
class ChartGrid;
class ChartHeading;
class WindowCommands;
}  // namespace chengheng

/// The chart of accounts (会计科目): the accounts of one class or of all in a grid, and every
/// command on them.
class CHENGHENG_MODULE_EXPORT CNbCwBursarDlg : public CNxMiddleDialog {
    Q_OBJECT

  public:
    explicit CNbCwBursarDlg(QWidget* parent = nullptr);
    ~CNbCwBursarDlg() override;

    /// A command that no menu sends: an empty box.
    void OnMenuOutput();
    bool OnHelpInfo() override;

  protected:
    /// False, told, without account classes.
    bool OnCreate() override;
    bool OnInitDialog() override;
    bool OnCommand(int command) override;
    /// Enter outside the grid and Escape leave the chart open; only 退出 and the frame close it.
    void OnOK() override { UpdateData(); }
    void OnCancel() override { UpdateData(false); }
    void PostNcDestroy() override;

    /// Lists the accounts of a class, or all.
    void OnInitMessage(const std::string& category);
    /// Shows level lengths and number of accounts above the grid.
    void OnPaint();

    void OnButtonAllBuc();
    void OnButtonAsset();
    void OnButtonOwned();
    void OnButtonRights();
    void OnButtonCosting();
    void OnButtonIdcrease();  // sic

    void OnMenuPrint();
    void OnMenuPreview();
    void OnMenuExit();
    void OnMenuInsert();
    void OnMenuCopy();
    void OnMenuDelete();
    void OnMenuModify();
    void OnMenuAppoint();
    void OnMenuFind();
    void OnMenuRefurbish();  // sic
    void OnMenuWhereUsed();
    void OnMenuHistory();
    void OnMenuResetColumns();
    void OnMenuImport();
    void OnMenuExport();
    void OnMenuHelp();
    void OnMenuSearch();
    void OnMenuAbout();

    void OnClickVcf1ctrlInfoitem(int row);
    void OnDblClickVcf1ctrlInfoitem();
    void OnKeyDownVcf1ctrlInfoitem(int key);
    void OnKeyUpVcf1ctrlInfoitem(int key);
    void OnMouseDownVcf1ctrlInfoitem();
    void OnMouseMoveVcf1ctrlInfoitem(QPoint position);

  private:
    void buildControls();
    void connectGrid();
    std::string activeCategory() const;
    void listActiveCategory();
    void showTab(int tab);
    void reflectAccounts();
    void printChart(chengheng::ReportOutput output);

    chengheng::ChartScreen m_screen;
    std::unique_ptr<chengheng::WindowCommands> m_commands;
    std::unique_ptr<chengheng::ChartFinder> m_finder;
    std::unique_ptr<chengheng::AccountActions> m_actions;
    std::string m_levelPattern;
    bool m_swallowsKeyUp = false;
    bool m_isEnterDown = false;

    QTabBar* m_tabs = nullptr;
    chengheng::ChartGrid* m_grid = nullptr;
    chengheng::ChartHeading* m_heading = nullptr;
};
