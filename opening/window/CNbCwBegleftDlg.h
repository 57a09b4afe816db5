#pragma once

#include <functional>
#include <memory>

#include "opening/screen/opening_work.h"
#include "report/output/report_printer.h"
#include "screen/CNxMiddleDialog.h"
#include "session/function_at_work.h"

namespace chengheng {
class CarryCommands;
class FigureEditing;
class FigureTransfer;
class OpeningFoot;
class OpeningGrid;
class OpeningHeading;
class WindowCommands;
}  // namespace chengheng

/// The opening balances (期初余额录入): the whole chart in a grid, figures typed into its end
/// accounts, and the commands on them. What is typed is in the books when the edit ends.
class CNbCwBegleftDlg : public CNxMiddleDialog {
    Q_OBJECT

  public:
    explicit CNbCwBegleftDlg(QWidget* parent = nullptr);
    ~CNbCwBegleftDlg() override;

    bool OnHelpInfo() override;

  protected:
    /// False, told, when the books could not be read.
    bool OnCreate() override;
    bool OnInitDialog() override;
    bool OnCommand(int command) override;
    /// Enter outside the grid does nothing.
    void OnOK() override {}
    void OnCancel() override;
    bool PreTranslateMessage(QEvent& event) override;
    bool WindowProc(QEvent& event) override;
    /// Tab goes from figure to figure before it leaves the grid.
    bool focusNextPrevChild(bool isForward) override;

    void OnMenuPrint();
    void OnMenuPreview();
    void OnMenuExit();
    /// Turns the direction of the current account.
    void OnMenuAdjust();
    void OnMenuCarry();
    void OnMenuPreviewCarry();
    void OnMenuRepeatCarry();
    void OnMenuVerifyCarry();
    void OnMenuRefurbish();  // sic
    void OnMenuBalance();
    void OnMenuFind();
    /// Of the current figure.
    void OnMenuHistory();
    void OnMenuResetColumns();
    void OnMenuHelp();
    void OnMenuSearch();
    void OnMenuAbout();
    void OnMenuUndo();
    void OnMenuRedo();
    void OnMenuClear();
    void OnMenuCopy();
    void OnMenuPaste();
    void OnMenuImport();
    void OnMenuExport();
    void OnMenuCauses();
    void OnMenuAuxiliary();
    void OnMenuCalendar();
    void OnMenuCalculator();

  private:
    void buildControls();
    void connectGrid();
    void keyPressed(int key, Qt::KeyboardModifiers modifiers);
    void currentMoved();

    /// Does something with the sheet and shows what has become of it.
    chengheng::Outcome change(const std::function<chengheng::Outcome()>& work);
    void showChanges();
    void reflectCommands();
    void retrace(const chengheng::EditStep* step,
                 chengheng::Outcome (chengheng::OpeningWork::*how)());
    void print(chengheng::ReportOutput output);
    void tryClose();

    const chengheng::FunctionAtWork m_atWork;
    chengheng::OpeningWork m_work{messages()};
    std::unique_ptr<chengheng::WindowCommands> m_commands;
    std::unique_ptr<chengheng::FigureTransfer> m_transfer;
    std::unique_ptr<chengheng::CarryCommands> m_carrying;
    chengheng::OpeningGrid* m_grid = nullptr;
    chengheng::FigureEditing* m_editing = nullptr;
    chengheng::OpeningHeading* m_heading = nullptr;
    chengheng::OpeningFoot* m_foot = nullptr;
    bool m_leavesOutZeros = false;  ///< when it is printed, as chosen last
};
