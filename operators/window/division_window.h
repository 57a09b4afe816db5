#pragma once

#include <array>
#include <functional>
#include <memory>

#include "operators/screen/division_screen.h"
#include "report/output/list_printing.h"
#include "screen/CNxMiddleDialog.h"
#include "screen/window_commands.h"
#include "session/function_at_work.h"

class QGroupBox;
class QLabel;
class QTreeView;

namespace chengheng {
class DivisionTree;
class StateBox;

/// The division of work (财务分工): operators at the left, what they may do at the right. Each
/// click on a box is written at once.
class DivisionWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    explicit DivisionWindow(QWidget* parent = nullptr);
    ~DivisionWindow() override;

    bool OnHelpInfo() override;

  protected:
    bool OnInitDialog() override;
    /// Enter goes on to the next control.
    void OnOK() override { focusNextChild(); }
    bool OnCommand(int command) override;

  private:
    void buildControls();
    QWidget* buildTree();
    QWidget* buildBoxes();
    void showState();
    void showTree();
    void showBoxes();
    void followTree();
    void boxClicked(int box);
    /// Runs one command and shows what has become of it. While it runs, a box may be up and the
    /// toolkit go on: what then comes is left out.
    void carryOut(const std::function<void()>& command);
    void addOperator();
    void modifyOperator();
    void runForm(OperatorForm form);
    void giveRights();
    void showWhoMay();
    void showHistory();
    void print(const PrintedList& list, ReportOutput output);

    const FunctionAtWork m_atWork;
    DivisionScreen m_screen;
    std::unique_ptr<WindowCommands> m_commands;
    DivisionTree* m_items = nullptr;
    QTreeView* m_tree = nullptr;
    QGroupBox* m_panel = nullptr;
    QLabel* m_duties = nullptr;
    std::array<StateBox*, rightsGroupCount> m_boxes{};
    bool m_isCarryingOut = false;
    bool m_isShowing = false;
};

}  // namespace chengheng
