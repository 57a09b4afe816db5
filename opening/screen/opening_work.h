#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/messages/held_messages.h"
#include "base/messages/messages.h"
#include "opening/balance/imbalance_causes.h"
#include "opening/balance/trial_balance.h"
#include "opening/editing/figure_plan.h"
#include "opening/editing/step_writer.h"
#include "opening/editing/typed_figures.h"
#include "opening/sheet/changed_cells.h"
#include "opening/sheet/edit_journal.h"
#include "opening/storing/opening_reading.h"

namespace chengheng {

/// What came of carrying last year's balances forward.
struct CarriedForward {
    Outcome outcome = Outcome::failed;
    /// Balances are there already, so that the command is not to be offered again.
    bool isFilled = false;
    /// One line on what was carried.
    std::string remark = {};
};

/// What carries again what last year's books have meanwhile become, and one line on it.
struct CarriedAgain {
    StepMaker make;
    BesideStep beside;
    std::string remark;
};

/// Has a long work done, wherever it likes, and comes back when that has ended.
using WorkRunner = std::function<void(const std::function<void(const WritingTold& told)>& work)>;

/// The opening balance window without its screen: the sheet of the open set of books, what may
/// be done with it now, and the doing. Every edit is in the books when it ends. Whatever fails
/// has told the operator why and has changed nothing.
class OpeningWork {
  public:
    explicit OpeningWork(IMessages& messages) : m_messages(messages) {}

    /// Reads the books anew; when they may be edited, rows that carry nothing are swept away
    /// first. To be called once before anything else. When they could not be read, the sheet stays
    /// as it was.
    Outcome refresh();

    const OpeningSheet& sheet() const { return m_books.sheet; }
    int accountingYear() const { return m_books.year; }
    /// Grows whenever lines may have come, gone or moved.
    std::uint64_t readings() const { return m_readings; }
    /// The cells that steps have changed since this was last asked; lines read anew are not told
    /// by cells.
    std::vector<OpeningCell> takeChangedCells() { return std::exchange(m_changedCells, {}); }
    /// What there is to say of the last edit until the next: that a text was no number and what
    /// became of it, that another figure followed, or that the figures of the line disagree.
    const std::string& remark() const { return m_remark; }
    /// Whether it tells of something that came out well and needs no second look.
    bool remarksOnSuccess() const { return !m_remark.empty() && m_remark == m_success; }
    bool isBrowsing() const { return m_books.sheet.isBrowsing(); }
    /// "浏览,只读" or nothing.
    const char* modeText() const;
    bool mayAdjustDirection() const { return !isBrowsing(); }
    /// Only empty books take over last year's balances.
    bool mayCarryForward() const { return !isBrowsing() && !m_books.hasSums; }
    /// Where there are balances they may differ from last year's.
    bool mayRepeatCarry() const { return !isBrowsing() && m_books.hasSums; }
    /// What an undo or redo would change; null when there is nothing to.
    const EditStep* stepToUndo() const { return m_journal.toUndo(); }
    const EditStep* stepToRedo() const { return m_journal.toRedo(); }
    bool canUndo() const { return stepToUndo() != nullptr; }
    bool canRedo() const { return stepToRedo() != nullptr; }

    /// A cell is being edited: from now on there is something to save.
    void beginEdit() {
        m_isChanged = true;
        m_remark.clear();
    }
    /// Writes what was typed into an editable cell. A text that is no number is written as 0. An
    /// opening balance in foreign currency proposes the one in home currency.
    Outcome endEdit(std::size_t line, std::size_t column, std::string_view typed);
    /// Writes many figures as one step; nothing is written unless everything is. Foreign currency
    /// that is emptied empties what it had proposed.
    Outcome writeFigures(const std::vector<TypedFigure>& figures);
    /// What pasting a block with its first cell on a cell would do.
    FigurePlan planPaste(std::size_t line, std::size_t column, const Sheet& block) const;
    /// A paste or an import as it was shown; refused as well when a cell of it is.
    Outcome apply(const FigurePlan& plan);
    /// What the cells of a CSV or XLSX file become; nothing when it cannot be read.
    std::optional<FigurePlan> planImport(const std::string& path);
    /// Writes the sheet as such a file, by the end of its name.
    Outcome exportTo(const std::string& path);
    /// A step whose accounts or figures another workstation has changed is told and forgotten.
    Outcome undo();
    Outcome redo();

    /// Of the sheet as it stands, for the running line.
    TrialBalance totals() const { return {m_books.classes, m_books.sheet.accounts()}; }
    /// What may keep the books from balancing; after a trial balance.
    std::vector<ImbalanceCause> causes();
    /// The totals after a roll-up in editable mode, by the classes as they are stored now.
    TrialBalance trialBalance();

    /// Turns the direction of the account on a line after asking.
    Outcome adjustDirection(std::size_t line);

    /// Takes over what somebody else put into books without balances, and says of it what there is
    /// to say. The carrying tells the operator itself.
    Outcome carryForward(const std::function<CarriedForward()>& carry);
    /// Writes what is carried again as one step, which can be undone until there are vouchers.
    Outcome carryAgain(const CarriedAgain& carried, const WorkRunner& run);

    /// The kind of window that a double-click on a line opens, its directories being there.
    AuxiliaryKind auxiliaryToOpen(std::size_t line, std::size_t column);
    /// After an auxiliary window: its figures are taken over and rolled up.
    Outcome afterAuxiliary();

    /// Writes the sums of the accounts above others, when anything was changed.
    Outcome save();
    /// Whether the window may close, having saved. Books that do not balance are asked about.
    bool mayClose();

  private:
    Outcome write(const StepMaker& make, EditStep& written, const BesideWork& beside = {});
    Outcome write(StepWriter& writer, const StepMaker& make, EditStep& written,
                  const BesideWork& beside, const WritingTold& told);
    Outcome writeTyped(const std::vector<TypedFigure>& figures, bool& hasChanged,
                       const HomeRateOf& rateOf);
    /// The rate of a figure in foreign currency; false when it could not be read, which is told.
    bool readRate(const TypedFigure& figure, std::optional<HomeRate>& rate);
    /// What is told of the home currency of a figure written in foreign currency: that it was
    /// worked out, or that there is no rate for it. Nothing where nothing came of it.
    std::string remarkOnHome(const TypedFigure& figure, const std::optional<HomeRate>& rate) const;
    Outcome goTo(const EditStep& step, const BesideWork& beside, void (EditJournal::*arrived)(),
                 void (EditJournal::*forget)());

    HeldMessages m_messages;
    OpeningBooks m_books;
    EditJournal m_journal;
    bool m_isChanged = false;
    std::uint64_t m_readings = 0;
    std::vector<OpeningCell> m_changedCells;
    std::string m_remark;
    std::string m_success;  ///< the last remark of a kind that is no warning
};

}  // namespace chengheng
