#include "operators/roles/server_roles.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/values/text.h"
#include "data/access/CNbCwDB.h"
#include "data/access/host_database.h"
#include "data/connection/database.h"
#include "operators/operator_reading.h"
#include "operators/operator_texts.h"
#include "operators/roles/role_sql.h"
#include "operators/roles/role_texts.h"
#include "session/log_notes.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

namespace texts = role_texts;

constexpr LockLists lockLists{WriteRight::supervisor, "ProjClass ProjItems", "Users UserAuth"};

using Operators = std::optional<std::vector<OperatorRecord>>;
using OperatorReader = Status (&)(CNbCwDB& database, Operators& operators);

UntoldOutcome onEngine(const std::function<Status(Engine&)>& work) {
    const Status status =
        g_pDB->onSelected([&work](Database& database) { return work(database.engine()); });
    return status ? UntoldOutcome::done() : UntoldOutcome::failed();
}

UntoldOutcome plan(OperatorReader read, std::span<const RolePassword> passwords, RolesState& state,
                   RolesPlan& plan) {
    Operators operators;
    if (!read(*g_pDB, operators)) return UntoldOutcome::failed();
    if (!operators) return UntoldOutcome::refused({.text = operator_texts::safetyFault});
    if (const auto refusal = rolePasswordRefusal(passwords, *operators))
        return UntoldOutcome::refused(refusal->notice);
    UntoldOutcome result =
        onEngine([&state](Engine& engine) { return readRolesState(engine, state); });
    if (result.outcome != Outcome::done) return result;
    plan = planRoles(state, *operators);
    for (RoleChange& change : plan.roles)
        change.getsPassword = std::ranges::find(passwords, change.operatorName,
                                                &RolePassword::operatorName) != passwords.end();
    return result;
}

UntoldOutcome planEnd(RolesState& state, RolesPlan& plan) {
    UntoldOutcome result =
        onEngine([&state](Engine& engine) { return readRolesState(engine, state); });
    if (result.outcome == Outcome::done) plan = planRolesEnd(state);
    return result;
}

/// A server passes over what somebody may not grant, so it is asked before.
UntoldOutcome refuseConnected(const RolesState& state) {
    const std::string role = printableLine(state.connectedAs);
    if (!state.mayMakeRoles)
        return {Outcome::failed, Notice{.text = fmt::format(texts::mayNotMakeRoles, role)}};
    if (!state.othersTables.empty())
        return {Outcome::failed,
                Notice{.text = fmt::format(texts::notOwner, role, *state.othersTables.begin())}};
    return UntoldOutcome::done();
}

Status passwordScript(Engine& engine, std::span<const RolePassword> passwords,
                      const RolesPlan& plan, std::string& script) {
    for (const RoleChange& change : plan.roles) {
        if (!change.getsPassword) continue;
        const auto given =
            std::ranges::find(passwords, change.operatorName, &RolePassword::operatorName);
        std::string verifier;
        const Status status = engine.passwordVerifier(change.role, given->password, verifier);
        if (!status) return status;
        script += role_sql::setPassword(change.role, verifier);
    }
    return Status::done();
}

UntoldOutcome carryOut(std::span<const RolePassword> passwords, const RolesState& state,
                       RolesOutcome& outcome) {
    const bool isNeeded = outcome.plan.isNeeded() || !passwords.empty();
    UntoldOutcome result = isNeeded ? refuseConnected(state) : UntoldOutcome::done();
    if (result.outcome != Outcome::done) return result;
    if (isNeeded) tellThisUnit();
    return onEngine([&](Engine& engine) {
        std::string script = outcome.plan.script;
        Status status = passwordScript(engine, passwords, outcome.plan, script);
        if (status && !script.empty()) status = engine.script(script);
        return status ? readFurtherUses(engine, outcome.furtherUses) : status;
    });
}

}  // namespace

Outcome ServerRoles::look(std::span<const RolePassword> passwords, RolesOutcome& outcome) {
    if (!selectOpenBooks()) return told(m_messages, UntoldOutcome::failed());
    RolesState state;
    return told(m_messages, plan(readOperators, passwords, state, outcome.plan));
}

Outcome ServerRoles::bringIntoLine(std::span<const RolePassword> passwords, RolesOutcome& outcome) {
    const auto words = [] { return std::string(texts::logged); };
    return changeRecords(m_messages, lockLists, words, [&] {
        RolesState state;
        const UntoldOutcome planned = plan(readLockedOperators, passwords, state, outcome.plan);
        return planned.outcome == Outcome::done ? carryOut(passwords, state, outcome) : planned;
    });
}

Outcome ServerRoles::lookAtEnd(RolesOutcome& outcome) {
    if (!selectOpenBooks()) return told(m_messages, UntoldOutcome::failed());
    RolesState state;
    return told(m_messages, planEnd(state, outcome.plan));
}

Outcome ServerRoles::end(RolesOutcome& outcome) {
    const auto words = [] { return std::string(texts::loggedEnd); };
    return changeRecords(m_messages, lockLists, words, [&] {
        RolesState state;
        const UntoldOutcome planned = planEnd(state, outcome.plan);
        return planned.outcome == Outcome::done ? carryOut({}, state, outcome) : planned;
    });
}

}  // namespace chengheng
