#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "opening/screen/opening_work.h"
#include "opening/window/figure_editor.h"
#include "report/output/report_printer.h"
#include "screen/CNxMiddleDialog.h"
#include "session/function_at_work.h"

class CVCF1;
class QLabel;
class QLineEdit;
namespace chengheng {
class OpeningModel;
class SearchBar;
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
    void OnMenuRefurbish();  // sic
    void OnMenuBalance();
    void OnMenuFind();
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
    /// A figure's cell, whatever line it stands on by now.
    struct Place {
        std::int32_t accountId = 0;
        chengheng::Measure measure = chengheng::Measure::money;
        int column = 0;
    };

    /// As wide as the columns.
    QSize fittingSize() const;
    void buildControls();
    QWidget* buildHeading();
    QWidget* buildTotals();
    void connectGrid();
    void connectEditor();
    void connectSearch();
    void keyPressed(int key, Qt::KeyboardModifiers modifiers);

    const chengheng::OpeningSheet& sheet() const { return m_work.sheet(); }
    bool hasLine() const;
    std::size_t currentLine() const;
    /// Where the typing begins: the first line that takes a figure.
    std::size_t firstLine() const;
    std::size_t openingColumn() const;
    std::size_t firstFigureColumn() const;
    Place placeAt(const QModelIndex& index) const;
    std::optional<Place> currentPlace() const;
    void goTo(const Place& place);
    void goToLine(std::optional<std::size_t> line);
    void moveOn(chengheng::NextCell to);
    /// False where there is no further figure.
    bool moveSideways(int direction);

    /// Ends an edit that is under way, as leaving its cell would; false when it was not written.
    bool finishEditing();
    void endEdit(const QModelIndex& index, const QString& text);
    /// Goes back to a figure that was not written, with what was typed for it.
    void takeUpAgain(const Place& place, const QString& text);
    /// Does something with the sheet and shows what has become of it.
    bool change(const std::function<bool()>& work);
    void showFigures();
    void showTotals();
    /// Names the account that the keyboard is on: its columns may be out of sight.
    void showAccount();
    void reflectCommands();
    void goToStep(const chengheng::EditStep& step);
    bool retrace(const chengheng::EditStep* step, bool (chengheng::OpeningWork::*how)());
    /// Shows a plan and writes it when the operator wants it.
    bool applyPlan(const chengheng::FigurePlan& plan, const char* title,
                   const std::string& heading);
    void goToMatch(std::optional<std::size_t> line);
    void print(chengheng::ReportOutput output);
    void tryClose();

    const chengheng::FunctionAtWork m_atWork;
    chengheng::OpeningWork m_work{messages()};
    std::unique_ptr<chengheng::OpeningModel> m_model;
    std::unique_ptr<chengheng::WindowCommands> m_commands;
    std::uint64_t m_shownReadings = 0;
    bool m_isRefused = false;  ///< the edit that ended last was not written

    CVCF1* m_grid = nullptr;
    chengheng::FigureEditor* m_editor = nullptr;
    QLineEdit* m_mode = nullptr;
    QLabel* m_debits = nullptr;
    QLabel* m_credits = nullptr;
    QLabel* m_difference = nullptr;
    QLabel* m_account = nullptr;
    chengheng::SearchBar* m_searchBar = nullptr;
};
