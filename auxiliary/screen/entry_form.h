#pragma once

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "auxiliary/entries/auxiliary_entry.h"
#include "auxiliary/entries/dimension_lookup.h"
#include "auxiliary/entries/entry_input.h"
#include "base/messages/messages.h"

namespace chengheng {

/// Lets the operator pick one of several; nothing: none was picked.
using ChoicePicker = std::function<std::optional<DimensionChoice>(
    Dimension dimension, const std::vector<DimensionChoice>& choices)>;

/// What stands in the first column of a list of choices: codes, behind that of the project class
/// where the choices are of several.
std::vector<std::string> codesToPickFrom(const std::vector<DimensionChoice>& choices);

/// What the text in a field came to.
enum class Settling : std::uint8_t {
    named,      ///< it means one record
    unknown,    ///< it is empty, or means none
    undecided,  ///< it means several, of which none was picked
    failed,     ///< the books could not be asked, which the operator has been told
};

/// The record dialog without its screen: what is typed, what a typed code or name stands for,
/// whether it may become an entry.
class EntryForm {
  public:
    /// For a new entry of an account, or to modify one.
    EntryForm(IMessages& messages, const AuxiliaryMember& member, const AuxiliaryAccount& account,
              const AuxiliaryEntry* modified = nullptr);

    /// What stands in the fields; the window writes into it what is typed.
    EntryInput input;

    const AuxiliaryMember& member() const { return m_member; }
    const AuxiliaryAccount& account() const { return m_account; }
    bool isAdding() const { return !m_isModifying; }
    const char* title() const;
    bool isChanged() const { return input != m_loaded; }
    /// Whether the dialog may go without its input. `isByButton`: by 取消, which asks in one
    /// member only.
    bool mayGiveUp(bool isByButton);

    /// A field was left: a code in it becomes a name, a person brings the department along.
    /// Among several of the same name the picker decides.
    Settling settle(Dimension dimension, const ChoicePicker& pick);
    /// Everything that a field may name; nothing when it could not be read, which the operator
    /// has been told.
    std::optional<std::vector<DimensionChoice>> choices(Dimension dimension);
    /// False when what it brings along could not be read, which the operator has been told.
    bool choose(Dimension dimension, const DimensionChoice& choice);

    /// The entry that the input makes; nothing when it is refused: then `focusField` is where to
    /// go on. The operator has been told why, or gave up picking and knows it.
    std::optional<AuxiliaryEntry> accept(const ChoicePicker& pick);
    const std::string& focusField() const { return m_focusField; }

  private:
    struct Chosen {
        std::string name;  ///< as it stands in the field
        DimensionChoice choice;
    };

    const DimensionChoice* chosen(Dimension dimension) const;
    std::optional<Chosen>& chosenOf(Dimension dimension) {
        return m_chosen[static_cast<std::size_t>(dimension)];
    }
    Status readScope(LookupScope& scope);
    bool find(Dimension dimension, std::vector<DimensionChoice>& found);
    Settling settleForGood(Dimension dimension, const ChoicePicker& pick);
    bool takeDepartmentOf(const DimensionChoice& person);

    IMessages& m_messages;
    const AuxiliaryMember& m_member;
    AuxiliaryAccount m_account;
    bool m_isModifying;
    AuxiliaryEntry m_modified;
    EntryInput m_loaded;
    std::array<std::optional<Chosen>, 4> m_chosen;
    std::string m_focusField;
};

}  // namespace chengheng
