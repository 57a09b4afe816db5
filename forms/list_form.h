#pragma once

#include <optional>
#include <vector>

#include "base/messages/messages.h"
#include "forms/leaf_list.h"
#include "session/record_change.h"

namespace chengheng {

/// What 确定 would save.
enum class SaveMode { nothing = 0, modification = 1, addition = 2 };

/// What a window with a list at the left and a form at the right is doing, without a screen:
/// which record is selected, whether one is being added, what may be done next. A function
/// derives from it, keeps what is typed into its form, and reads and writes its records; the
/// window carries out commands here and then shows what has become of it.
///
/// Input that was not saved is given up only after a question: by selecting another leaf,
/// adding one, closing.
class ListForm {
  public:
    explicit ListForm(IMessages& messages) : m_messages(messages) {}
    virtual ~ListForm() = default;
    ListForm(const ListForm&) = delete;
    ListForm& operator=(const ListForm&) = delete;

    /// Reads the list and selects its first leaf; with none, or when it cannot be read, a
    /// record is being added.
    void open();
    /// False when the selection stays where it was.
    bool select(int id);
    /// False when the operator goes on with the input there is.
    bool startAdding();
    /// Saves what `canSave` allows; the saved record is selected afterwards. False when it was
    /// not saved, and the operator knows why.
    bool save();
    /// Deletes the leaf of the id; 0: none is selected.
    void remove(int id);
    /// Whether there is nothing to lose, or the operator gives it up.
    bool mayLeaveInput();
    /// The list as it is now, with the same record selected and as it is now in the form; one being
    /// added stays that, begun anew. What is not saved is given up.
    void refresh();
    void filter(std::string text) { m_leaves.setFilter(std::move(text)); }

    const LeafList& leaves() const { return m_leaves; }
    /// Whose record is in the form; 0 while one is being added.
    int selectedId() const { return m_selectedId; }
    bool isAdding() const { return m_isAdding; }
    /// Whether other records refer to the selected one.
    bool isUsed() const { return m_isUsed; }
    /// How that reads.
    virtual std::string usedWords() const;
    SaveMode saveMode() const;
    virtual bool canSave() const { return saveMode() != SaveMode::nothing && isComplete(); }
    virtual bool canDelete() const { return m_selectedId != 0 && !m_isUsed; }
    bool hasUnsavedInput() const { return isChanged(); }

  protected:
    // What a function supplies. Whatever does not give `done` has told the operator why.

    /// Nothing when the records cannot be read.
    virtual std::optional<std::vector<Leaf>> readLeaves() = 0;
    /// Brings a record into the form.
    virtual Outcome load(int id, bool& isUsed) = 0;
    /// Makes the form that of a record to be added.
    virtual void clear() = 0;
    /// Whether everything is filled in that a record must have.
    virtual bool isComplete() const = 0;
    /// Whether the form differs from the record in it.
    virtual bool isChanged() const = 0;
    /// Writes the form as a new record or as that of the selected leaf, and keeps it as the
    /// one in the form. Gives the leaf to show.
    virtual Outcome write(SaveMode mode, Leaf& saved) = 0;
    /// Remembers what was typed and over what, while the record is read anew.
    virtual void holdTyped() = 0;
    /// Puts what was typed over the record in the form and leaves the rest as it is.
    virtual void takeTypedBack() = 0;
    /// Asks and deletes; null: no leaf is selected.
    virtual Outcome erase(const Leaf* leaf) = 0;
    /// The leaf to select in the place of one that is being removed; 0: none is shown beside it.
    virtual int leafAfter(int removed) const { return m_leaves.neighbourOf(removed); }

    IMessages& messages() const { return m_messages; }
    /// The list as it is now. What was typed stays, on top of the record as it is now; where that
    /// is gone, for a new one.
    void readAgainBelowTyped();
    /// What leaves are found by besides their text.
    void findBy(std::function<std::string(const Leaf&)> initials) {
        m_leaves.findBy(std::move(initials));
    }

  private:
    void beginAddition();
    Outcome show(int id);
    /// Adds where there is no such record to show.
    void showOrAdd(int id);
    void showSelected();
    /// Another workstation changed the records: the list as it is now.
    void readAgain();

    IMessages& m_messages;
    LeafList m_leaves;
    int m_selectedId = 0;
    bool m_isAdding = false;
    bool m_isUsed = false;
};

}  // namespace chengheng
