#include "opening/balance/trial_balance.h"

#include <fmt/format.h>

#include <cmath>

#include "opening/sheet/opening_texts.h"

namespace chengheng {
namespace {

namespace texts = opening_texts;

constexpr std::size_t classesWithoutCut = 5;
constexpr double largestBalanced = 0.00001;

/// The three words of a line: for a sum above zero, for zero, for one below.
struct SideWords {
    const char* above;
    const char* below;
};

constexpr SideWords debitWords{texts::debit, texts::credit};
constexpr SideWords creditWords{texts::credit, texts::debit};

using SideText = fmt::format_string<const char* const&, double>;

/// The word goes by the sign of one value, the amount may be another's.
std::string sideLine(SideText format, const SideWords& words, double sign, double amount) {
    const char* const word = sign > 0 ? words.above : sign < 0 ? words.below : texts::level;
    return fmt::format(format, word, sign < 0 ? std::fabs(amount) : amount);
}

}  // namespace

TrialBalance::TrialBalance(std::span<const _zCodeClassInfo> classes,
                           std::span<const OpeningAccount> accounts) {
    if (classes.size() > classesWithoutCut) classes = classes.first(classes.size() - 1);
    for (const _zCodeClassInfo& each : classes)
        m_classes.push_back({each.sClsName, each.bDirect == 1, {}});
    // Accounts of one class come one after the other.
    const std::string* type = nullptr;
    std::vector<ClassSum*> ofType;
    for (const OpeningAccount& account : accounts) {
        if (!account.isEnd || account.opening() == 0) continue;
        if (type == nullptr || account.type != *type) {
            type = &account.type;
            ofType.clear();
            for (ClassSum& each : m_classes)
                if (each.name == *type) ofType.push_back(&each);
        }
        for (ClassSum* const each : ofType) add(account, *each);
    }
    for (const ClassSum& each : m_classes) (each.isDebit ? m_debits : m_credits) += each.sum;
}

void TrialBalance::add(const OpeningAccount& account, ClassSum& sum) {
    if (sum.isDebit == account.isDebit)
        sum.sum.add(account.opening());
    else
        sum.sum.subtract(account.opening());
}

double TrialBalance::surplus() const {
    MoneySum surplus = m_debits;
    surplus -= m_credits;
    return surplus.value();
}

double TrialBalance::difference() const { return std::fabs(surplus()); }

bool TrialBalance::isBalanced() const { return difference() <= largestBalanced; }

TrialBalanceTexts TrialBalance::texts() const {
    TrialBalanceTexts made;
    for (const ClassSum& each : m_classes) {
        const double sum = each.sum.value();
        std::string& lines = each.isDebit ? made.debitClasses : made.creditClasses;
        lines += fmt::format(texts::className, each.name);
        lines += sideLine(texts::classLine, each.isDebit ? debitWords : creditWords, sum, sum);
    }
    const double debits = debitTotal();
    made.debitTotal = sideLine(texts::totalLine, debitWords, debits, debits);
    // The label of the credit total goes by the sign of the debit total.
    made.creditTotal = sideLine(texts::totalLine, creditWords, debits, creditTotal());
    made.result = isBalanced() ? texts::balanced : fmt::format(texts::notBalanced, difference());
    return made;
}

std::string TrialBalance::closePrompt() const {
    return fmt::format(texts::closePrompt, difference());
}

}  // namespace chengheng
