#pragma once

#include <functional>
#include <memory>
#include <span>

#include "forms/list_form.h"
#include "operationlog/row_history.h"
#include "report/output/report_printer.h"
#include "screen/CNxMiddleDialog.h"
#include "screen/window_commands.h"
#include "session/function_at_work.h"

class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;

namespace chengheng {
class EmptyWords;
class LeafModel;
class LimitedEdit;

/// What a window with a list and a form is called and where its help stands.
struct ListFormWindow {
    int templateNumber = 0;  ///< 0: the host does not know it
    const char* title = "";
    int helpContext = 0;
    const char* tree = "Tree1";  ///< the control's own name
    int formCharacters = 32;     ///< width of what stands beside the tree at first
    int lines = 22;              ///< height of the window at first
};

/// A window with a tree of records at the left and a form at the right: menu, tool bar, filter,
/// tree, mark of a used record, 确定. It carries out commands in a ListForm and then shows what
/// has become of it; it decides nothing itself. A function's window adds its fields, moves
/// their values in DoDataExchange and prints.
class ListFormDialog : public CNxMiddleDialog {
    Q_OBJECT

  public:
    ~ListFormDialog() override;
    bool OnHelpInfo() override;
    void reject() override;

  protected:
    ListFormDialog(const ListFormWindow& window, QWidget* parent);

    virtual ListForm& form() = 0;
    /// Adds the fields, by addEdit and addField, in the order of the Tab key.
    virtual void addFields() = 0;
    /// What stands at the right of the tree: the panel with the fields, or that among others.
    virtual QWidget* arrangeForm(QWidget* fields) { return fields; }
    virtual void printRecords(ReportOutput output) = 0;
    /// Where the history of the selected record is found.
    virtual HistorySubject selectedHistory() = 0;
    /// Commands of its own in the file menu, from firstOwnCommand on; they come to its OnCommand.
    virtual std::span<const MenuItemResource> ownFileItems() const { return {}; }
    virtual std::span<const MenuItemResource> ownEditItems() const { return {}; }
    static constexpr int firstOwnCommand = 100;
    void setCommandEnabled(int command, bool isEnabled);

    /// Ends what is being typed elsewhere than in the fields, before a command that is not to lose
    /// it; false when it could not be kept and the command is left out.
    virtual bool finishTyping() { return true; }
    /// The same before an addition, which gives it up.
    virtual void giveUpTyping() {}

    /// Brings the fields into sight, where they are not always: one of them is to get the keyboard.
    virtual void showFields() {}

    /// A field with its label, reached by Alt and the key; its name is that of what it holds. A
    /// button behind it is part of it.
    LimitedEdit* addEdit(const char* label, char key, const char* name, int limit,
                         QWidget* button = nullptr);
    /// Adds another control, with a label before it or without, and a button behind it that is part
    /// of it; its changes are to be told by inputEdited.
    void addField(QWidget& field, const QString& label = {}, QWidget* button = nullptr);
    /// Adds several controls in one line, without a label.
    void addFieldLine(std::span<QWidget* const> fields);
    /// Shows what has become of the form by other means than a command.
    void showAnew() { showForm(); }
    void inputEdited(QWidget& field);
    /// Whether tree and fields can be used.
    void setFormOpen(bool isOpen);
    /// Runs one command and shows what has become of the form. While it runs, a box may be up and
    /// the toolkit go on: what then comes is left out.
    void carryOut(const std::function<void()>& command);
    /// Does work that may change records, unless the operator goes on with the input there is.
    /// Where it gives true the list is read anew and stays at its place.
    void workOnRecords(const std::function<bool()>& work);

    bool OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    bool OnCommand(int command) override;

    void OnMenuPreview();
    void OnMenuPrint();
    void OnMenuInsert();
    void OnMenuDelete();
    void OnMenuHelp() { OnHelpInfo(); }
    void OnMenuSearch();
    void OnMenuAbout();

  private:
    void buildControls();
    QWidget* buildList();
    QWidget* buildForm();
    void readAnew();
    void offerHistoryOfLeaf();
    void showForm();
    void showState();
    void followTree();
    void enterTree();
    void moveOn();
    void returnToInput();
    int selectedLeaf() const;

    const ListFormWindow m_window;
    const FunctionAtWork m_atWork;
    std::unique_ptr<WindowCommands> m_commands;
    LeafModel* m_leaves = nullptr;
    QWidget* m_list = nullptr;
    QWidget* m_panel = nullptr;
    QTreeView* m_tree = nullptr;
    EmptyWords* m_emptyWords = nullptr;
    QWidget* m_filterBar = nullptr;
    QLineEdit* m_filter = nullptr;
    QFormLayout* m_fieldRows = nullptr;
    QLabel* m_usedMark = nullptr;
    QPushButton* m_ok = nullptr;
    QList<QWidget*> m_fields;
    QWidget* m_lastInOrder = nullptr;  ///< of them and their buttons, by the Tab key
    QWidget* m_editedField = nullptr;
    bool m_isCarryingOut = false;
    bool m_isShowing = false;
};

}  // namespace chengheng
