#include "accounts/changing/account_service.h"

#include <fmt/format.h>

#include <algorithm>

#include "accounts/changing/account_locks.h"
#include "accounts/changing/chart_writing.h"
#include "accounts/chart/account_texts.h"
#include "accounts/chart/stored_chart.h"
#include "accounts/rules/account_record.h"
#include "accounts/rules/deletion_checks.h"
#include "data/access/host_database.h"
#include "data/lookups/existence.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

UntoldOutcome refused(const Refusal& refusal, AccountChange& change) {
    change.focusField = refusal.notice.focusField;
    change.usedCode = refusal.obstacle;
    return UntoldOutcome::refused(refusal.notice);
}

/// Asks one question after the other; the first one answered with Cancel ends the action.
UntoldOutcome askAll(IMessages& messages, const std::vector<AccountQuestion>& questions,
                     AccountChange& change) {
    for (const AccountQuestion& asked : questions) {
        if (messages.ask(asked.question) == Answer::ok) continue;
        change.focusField = asked.focusField;
        return {Outcome::refused};
    }
    return UntoldOutcome::done();
}

std::string nameOf(const _CodeInfo& account) {
    return fmt::format(account_texts::codeAndName, account.sCode, account.sName);
}

UntoldOutcome addChecked(IMessages& messages, const AccountFacts& facts, const StoredChart& chart,
                         AccountChange& change) {
    const auto refusal = firstRefusal(additionChecks(), facts);
    if (refusal && !refusal->obstacle.empty()) change.isKeptOutByTotals = passesWithTotals(facts);
    if (!chart.isRead()) return UntoldOutcome::failed();
    if (refusal) return refused(*refusal, change);
    UntoldOutcome asked = askAll(messages, additionQuestions(facts), change);
    if (asked.outcome != Outcome::done) return asked;
    _CodeInfo& account = change.account;
    account = newAccount(facts);
    return inOneUnit(
        account_locks::inOrder.right,
        [&] { return fmt::format(account_texts::loggedAddition, nameOf(account)); },
        [&] {
            return inTurn(
                {[&] { return addAccount(account); }, [&] { return endsNoMore(facts.parent); }});
        });
}

UntoldOutcome modifyChecked(IMessages& messages, const AccountFacts& facts,
                            const StoredChart& chart, AccountChange& change) {
    const auto refusal = firstRefusal(modificationChecks(), facts);
    if (!chart.isRead()) return UntoldOutcome::failed();
    if (refusal) return refused(*refusal, change);
    const auto questions = modificationQuestions(facts);
    if (!chart.isRead()) return UntoldOutcome::failed();
    UntoldOutcome asked = askAll(messages, questions, change);
    if (asked.outcome != Outcome::done) return asked;
    _CodeInfo& account = change.account;
    account = modifiedAccount(facts);
    const auto write = [&] { return editAccount(account); };
    const auto words = [&] {
        return fmt::format(account_texts::loggedChange,
                           changedName(nameOf(*facts.before), nameOf(account)));
    };
    if (!facts.isCodeChanged()) return inOneUnit(account_locks::inOrder.right, words, write);
    return inOneUnit(account_locks::inOrder.right, words, [&] {
        const std::string parentBefore = facts.levels.parentOf(facts.before->sCode);
        return inTurn({write, [&] { return endsAgainWithoutChildren(parentBefore); },
                       [&] { return endsNoMore(facts.parent); }});
    });
}

UntoldOutcome removeChecked(std::string_view code, const CodeLevels& levels,
                            AccountChange& change) {
    const int existence = CodeIsExist(code);
    if (existence < 0) return UntoldOutcome::failed();
    if (existence > 0) return {Outcome::stale};
    StoredChart chart(*g_pDB);
    const auto account = chart.accountOf(code);
    if (!account) return UntoldOutcome::failed();
    const auto refusal =
        firstRefusal(deletionChecks(), {*account, chart.idsWithBelow(code), chart});
    if (!chart.isRead()) return UntoldOutcome::failed();
    if (refusal) return refused(*refusal, change);
    return inOneUnit(
        account_locks::ofDeletion.right,
        [&] { return fmt::format(account_texts::loggedDeletion, nameOf(*account)); },
        [&] {
            return inTurn({[&] { return deleteAccount(account->lId); },
                           [&] { return endsAgainWithoutChildren(levels.parentOf(code)); }});
        });
}

}  // namespace

AccountChange AccountService::add(const AccountEntry& entry, ParentSums parentSums) {
    AccountChange change;
    change.outcome = underLocks(m_messages, account_locks::inOrder, [&] {
        StoredChart chart(*g_pDB);
        const auto classes = chart.classes();
        AccountFacts facts{tidied(entry), nullptr, m_levels, classes, chart};
        facts.parentSums = parentSums;
        return addChecked(m_messages, facts, chart, change);
    });
    return change;
}

AccountChange AccountService::modify(const _CodeInfo& shown, const AccountEntry& entry) {
    AccountChange change;
    change.outcome = underLocks(m_messages, account_locks::inOrder, [&] {
        StoredChart chart(*g_pDB);
        const auto stored = chart.accountOfId(shown.lId);
        const auto classes = chart.classes();
        if (!chart.isRead()) return UntoldOutcome::failed();
        if (!stored)
            return UntoldOutcome::stale(
                {.text = account_texts::deletedMeanwhile(shown.sCode), .beep = true});
        const AccountEntry before = entryOf(shown);
        const AccountEntry now = entryOf(*stored);
        if (now != before) {
            change.changedThere = *stored;
            const std::string lines = foreignChanges(before, tidied(entry), now);
            return UntoldOutcome::stale(
                {.text = account_texts::changedMeanwhile(shown.sCode, lines), .beep = true});
        }
        const AccountFacts facts{tidied(entry), &*stored, m_levels, classes, chart};
        return modifyChecked(m_messages, facts, chart, change);
    });
    return change;
}

AccountChange AccountService::remove(std::string_view code, std::string_view name) {
    AccountChange change;
    const Question question{.text = account_texts::askDeletion(code, name),
                            .buttons = AnswerButtons::okCancel};
    if (m_messages.ask(question) != Answer::ok) {
        change.outcome = Outcome::refused;
        return change;
    }
    change.outcome = underLocks(m_messages, account_locks::ofDeletion,
                                [&] { return removeChecked(code, m_levels, change); });
    return change;
}

Status AccountService::find(std::string_view code, _CodeInfo& account) {
    if (Status selected = selectOpenBooks(); !selected) return selected;
    StoredChart chart(*g_pDB);
    auto found = chart.accountOf(code);
    if (!found) return chart.isRead() ? Status::of(Failure::missing) : chart.status();
    account = *std::move(found);
    return Status::done();
}

Status AccountService::readUse(const _CodeInfo& account, bool& isUsed) {
    if (Status selected = selectOpenBooks(); !selected) return selected;
    StoredChart chart(*g_pDB);
    isUsed = std::ranges::any_of(usePlaces, [&](UsePlace place) {
        return chart.isUsed(place, {account.lId}, SumsUse::anyRow);
    });
    return chart.status();
}

Status AccountService::readClasses(std::vector<_zCodeClassInfo>& classes) {
    if (Status selected = selectOpenBooks(); !selected) return selected;
    StoredChart chart(*g_pDB);
    classes = chart.classes();
    return chart.status();
}

}  // namespace chengheng
