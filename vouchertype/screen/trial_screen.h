#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/messages/messages.h"
#include "vouchertype/tester/trial_voucher.h"

namespace chengheng {

/// The columns of the tester's lines.
enum class TrialColumn { account, name, debit, credit };
inline constexpr int trialColumns = 4;

struct TrialCell {
    int row = 0;
    TrialColumn column = TrialColumn::account;

    bool operator==(const TrialCell&) const = default;
};

/// Something said about the voucher.
struct TrialWord {
    enum class Kind { fault, note, allowed, refused };

    Kind kind = Kind::note;
    std::string text;
    std::vector<int> lines = {};  ///< numbers of those that it blames

    bool operator==(const TrialWord&) const = default;
};

/// The tester of vouchers without its screen: lines as they were typed, with blank ones below
/// them, and what there is to say of them at once. It writes nothing.
class TrialScreen {
  public:
    explicit TrialScreen(IMessages& messages) : m_messages(messages) {}

    /// Reads types and accounts as they are now, and says anew what there is to say. What cannot
    /// be read is told, and then nothing is said of any type.
    void refresh();

    int rowCount() const;
    /// As it was typed; a name by its account.
    std::string text(const TrialCell& cell) const;
    /// An amount of whole cents reads with its separators, anything else as it was typed.
    std::string shownText(const TrialCell& cell) const;
    static bool isEditable(const TrialCell& cell) { return cell.column != TrialColumn::name; }

    void type(const TrialCell& cell, std::string_view text);
    void erase(const std::vector<TrialCell>& cells);
    void clear();
    /// Puts the lines of a block from a row on, over what stands there; a single text into its
    /// cell. False when it holds none or cannot be read, which the operator has been told.
    bool paste(const TrialCell& cell, const std::string& block);

    /// Where Enter goes on, from account to debit, to credit, to the next line; past the credit
    /// of a line that has a debit.
    TrialCell afterEnter(const TrialCell& cell) const;
    TrialCell beforeEnter(const TrialCell& cell) const;

    /// The first faults and how many more there are, then notes, then each type.
    const std::vector<TrialWord>& words() const { return m_words; }

  private:
    TrialLine& lineAt(int row);
    void say();

    IMessages& m_messages;
    std::vector<TrialLine> m_lines;
    std::optional<TrialBooks> m_books;
    std::vector<TrialWord> m_words;
};

}  // namespace chengheng
