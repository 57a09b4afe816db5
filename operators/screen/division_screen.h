#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "operators/operator_service.h"
#include "operators/screen/operator_form.h"

namespace chengheng {

/// Leaves that stand for no group of rights.
inline constexpr int noLeaf = -1;  ///< the operator himself
inline constexpr int supervisorLeaf = -2;

/// A place in the tree of operators.
struct DivisionPlace {
    std::int32_t userId = 0;  ///< 0: none
    int leaf = noLeaf;        ///< or a group of rights, counted from 0

    bool operator==(const DivisionPlace&) const = default;
};

struct DivisionLeaf {
    int leaf;
    std::string text;

    bool operator==(const DivisionLeaf&) const = default;
};

/// An operator in the tree with what hangs under him.
struct DivisionItem {
    std::int32_t userId;
    std::string name;
    std::vector<DivisionLeaf> leaves;

    bool operator==(const DivisionItem&) const = default;
};

/// One of the boxes at the right: a group, or a function of the opened one.
struct DivisionBox {
    std::string caption;
    GroupState state = GroupState::none;
    bool isShown = false;
    bool isEnabled = false;

    bool operator==(const DivisionBox&) const = default;
};

using DivisionBoxes = std::array<DivisionBox, rightsGroupCount>;

/// Rights that can be given as a whole: those of a preset or of another operator.
struct RightsSource {
    std::string name;
    OperatorRights rights;
};

/// The window of the division of work without its screen. Each change of rights is written at
/// once; one that could not be written is not there.
class DivisionScreen {
  public:
    explicit DivisionScreen(IMessages& messages, PasswordCost cost = PasswordCost::usual)
        : m_messages(messages), m_service(messages, cost), m_cost(cost) {}

    /// Reads the operators and selects the first. Where they cannot be read or are not whole,
    /// nobody is listed and nothing can be changed.
    void open() { readOperators({}); }
    /// The operators as they are now, with the same place selected where it is still there.
    void refresh() { readOperators(m_selected); }

    std::vector<DivisionItem> items() const;
    DivisionBoxes boxes() const;
    /// Whose boxes these are.
    std::string boxesTitle() const;
    const DivisionPlace& selected() const { return m_selected; }
    void select(const DivisionPlace& place);
    /// "该用户...已使用", with who uses this workstation.
    static std::string userText();

    bool canAdd() const { return m_isRead; }
    bool canModify() const { return m_isRead; }
    /// An operator and a group can be taken away, a supervisor's leaf cannot.
    bool canDelete() const { return m_isRead && m_selected.leaf != supervisorLeaf; }

    /// A box was clicked to be checked or not. What is partly checked is never checked by it.
    void setBox(int box, bool isChecked);
    /// What the selected operator may do that one person is not to do, as a line; mostly empty.
    std::string dutiesText() const;

    bool canGiveRights() const { return canMakeSupervisor(); }
    std::vector<RightsSource> rightsSources() const;
    bool hasSelectedOperator() const { return selectedRecord() != nullptr; }
    /// Only when an operator is selected.
    const OperatorRecord& selectedOperator() const { return *selectedRecord(); }
    /// Gives the selected operator just these rights.
    void giveRights(const OperatorRights& rights);

    /// Who may use a function, in words.
    std::string whoMay(int function) const;

    /// Of the selected operator, who is none yet or one already.
    bool canMakeSupervisor() const;
    bool canEndSupervisor() const;
    void setSupervisor(bool isSupervisor);

    /// The selected operator after a question, or the selected group at once.
    void remove();

    OperatorForm formToAdd() const { return OperatorForm(m_messages, m_cost); }
    /// Whether an operator to modify is selected and could be read; tells when not.
    bool mayModify();
    /// Only when one is selected.
    OperatorForm formToModify() const { return {m_messages, *selectedRecord(), m_cost}; }
    /// Shows what has come of a form.
    void take(const OperatorForm& form);

  private:
    void readOperators(DivisionPlace wanted);
    const OperatorRecord* selectedRecord() const { return recordOf(m_selected.userId); }
    const OperatorRecord* recordOf(std::int32_t userId) const;
    std::vector<DivisionLeaf> leavesOf(const OperatorRecord& record) const;
    /// Where the selection goes when a leaf is taken away.
    DivisionPlace placeAfter(int leaf) const;
    DivisionPlace nearest(const DivisionPlace& wanted) const;
    OperatorRecord& selectedForChange();
    bool saveRights(const OperatorRights& wanted);
    void removeOperator();
    void removeGroup();

    IMessages& m_messages;
    OperatorService m_service;
    PasswordCost m_cost;
    std::vector<OperatorRecord> m_operators;
    DivisionPlace m_selected;
    bool m_isRead = false;
};

}  // namespace chengheng
