#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <memory>
#include <ostream>

#include "base/values/text.h"
#include "books/logon/password_file.h"
#include "data/engines/open_engine.h"
#include "operators/roles/role_texts.h"
#include "operators/roles/server_roles.h"
#include "session/lock_wait_text.h"
#include "tool/command_line.h"
#include "tool/commands.h"
#include "tool/json_text.h"
#include "tool/tool_session.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

namespace texts = role_texts;

struct RolesOptions {
    std::string books;
    std::string passwordFile;
    bool isDropping = false;
    bool isDryRun = false;
    bool isJson = false;
};

const char* wordOf(const std::string& what) {
    if (what == "INSERT") return texts::adding;
    if (what == "UPDATE") return texts::changing;
    return what == "DELETE" ? texts::deleting : what.c_str();
}

/// A line for each table that is written, one for all that are only read.
std::string textOf(const std::vector<Privilege>& privileges,
                   fmt::format_string<std::size_t&> reading,
                   fmt::format_string<std::string&, std::string&> writing) {
    std::size_t read = 0;
    std::map<std::string, std::string> written;
    for (const Privilege& each : privileges) {
        if (each.what == "SELECT") ++read;
        if (each.table.empty() || each.what == "SELECT") continue;
        std::string& uses = written[each.table];
        const std::string word = wordOf(each.what);
        if (uses.ends_with(word)) continue;  // of several columns
        uses += (uses.empty() ? "" : texts::betweenUses) + word;
    }
    std::string text = read == 0 ? "" : fmt::format(reading, read);
    for (auto& [table, uses] : written) {
        std::string title = printableLine(tableTitle(table));
        text += fmt::format(writing, title, uses);
    }
    return text;
}

std::string headOf(const RoleChange& change) {
    const std::string role = printableLine(change.role);
    const std::string name = printableLine(change.operatorName);
    switch (change.fate) {
        case RoleFate::made:
            return fmt::format(texts::made, role, name);
        case RoleFate::renamed:
            return fmt::format(texts::renamed, printableLine(change.formerRole), role, name);
        case RoleFate::dropped:
            return fmt::format(texts::dropped, role);
        case RoleFate::kept:
            break;
    }
    return change.isChange() ? fmt::format(texts::changed, role, name)
                             : fmt::format(texts::kept, role, name);
}

std::string textOf(const RoleChange& change) {
    std::string text = headOf(change);
    if (change.fate == RoleFate::dropped) return text;
    text += textOf(change.granted, texts::readsTables, texts::grants);
    text += textOf(change.revoked, texts::readsNoMore, texts::revokes);
    if (change.hasOtherRows && change.fate != RoleFate::made) text += texts::otherRows;
    if (change.getsPassword) return text + texts::passwordSet;
    return change.fate == RoleFate::made ? text + texts::passwordMissing : text;
}

std::string summaryOf(const RolesPlan& plan) {
    const auto count = [&plan](RoleFate fate, bool isChange) {
        return std::ranges::count_if(plan.roles, [=](const RoleChange& each) {
            return each.fate == fate && each.isChange() == isChange;
        });
    };
    return fmt::format(texts::summary, plan.roles.size(), count(RoleFate::made, true),
                       count(RoleFate::renamed, true), count(RoleFate::kept, true),
                       count(RoleFate::kept, false), count(RoleFate::dropped, true));
}

Json jsonOf(const std::vector<Privilege>& privileges) {
    Json list = Json::array();
    for (const Privilege& each : privileges)
        list.push_back({{"table", each.table}, {"use", each.what}, {"column", each.column}});
    return list;
}

const char* keyOf(const RoleChange& change) {
    switch (change.fate) {
        case RoleFate::made:
            return "made";
        case RoleFate::renamed:
            return "renamed";
        case RoleFate::dropped:
            return "dropped";
        case RoleFate::kept:
            break;
    }
    return change.isChange() ? "changed" : "kept";
}

std::string jsonOf(const RolesOutcome& outcome, bool isDone) {
    Json roles = Json::array();
    for (const RoleChange& each : outcome.plan.roles)
        roles.push_back({{"operator", each.operatorName},
                         {"number", each.userId},
                         {"role", each.role},
                         {"formerRole", each.formerRole},
                         {"change", keyOf(each)},
                         {"granted", jsonOf(each.granted)},
                         {"revoked", jsonOf(each.revoked)},
                         {"password", each.getsPassword}});
    return jsonText({{"done", isDone}, {"roles", roles}, {"furtherUses", outcome.furtherUses}}) +
           '\n';
}

Outcome work(ServerRoles& roles, const RolesOptions& options,
             const std::vector<RolePassword>& passwords, RolesOutcome& outcome) {
    if (options.isDropping) return options.isDryRun ? roles.lookAtEnd(outcome) : roles.end(outcome);
    return options.isDryRun ? roles.look(passwords, outcome)
                            : roles.bringIntoLine(passwords, outcome);
}

void show(Tool& tool, const RolesOptions& options, const RolesOutcome& outcome) {
    if (options.isJson) {
        tool.out << jsonOf(outcome, !options.isDryRun);
    } else {
        for (const RoleChange& each : outcome.plan.roles) tool.out << textOf(each);
        tool.out << summaryOf(outcome.plan) << '\n';
        if (options.isDryRun) tool.out << texts::nothingDone << '\n';
    }
    for (const std::string& use : outcome.furtherUses)
        tool.err << fmt::format(texts::furtherUse, printableLine(use)) << '\n';
}

ExitCode runServerRoles(Tool& tool, const RolesOptions& options) {
    if (!isServerAddress(options.books)) {
        tool.err << fmt::format(texts::onlyOnServer, options.books) << '\n';
        return ExitCode::wrongInput;
    }
    std::vector<RolePassword> passwords;
    if (!options.passwordFile.empty()) {
        if (const auto refusal = readRolePasswordFile(options.passwordFile, passwords))
            return tellRefusal(tool, *refusal);
        if (const auto warning = passwordFileWarning(options.passwordFile))
            tool.err << *warning << '\n';
    }
    auto engine =
        openBooks(tool, options.books, options.isDryRun ? BooksUse::reading : BooksUse::changing);
    if (engine == nullptr) return ExitCode::failed;
    const ToolSession session(std::move(engine), options.books);
    ToolMessages messages(tool, false);
    ServerRoles roles(messages);
    RolesOutcome outcome;
    const Outcome result = work(roles, options, passwords, outcome);
    if (result != Outcome::done) return exitCodeOf(result);
    show(tool, options, outcome);
    return outcome.furtherUses.empty() ? ExitCode::done : ExitCode::faultsFound;
}

}  // namespace

void addServerRolesCommand(CLI::App& app, Tool& tool) {
    const auto options = std::make_shared<RolesOptions>();
    CLI::App* command =
        addBooksCommand(app, tool, "server-roles", texts::command, options->books,
                        [&tool, options] { return runServerRoles(tool, *options); });
    CLI::Option* passwords =
        command->add_option("--passwords", options->passwordFile, texts::passwordsOption);
    command->add_flag("--drop", options->isDropping, texts::dropOption)->excludes(passwords);
    command->add_flag("--dry-run", options->isDryRun, texts::dryRunOption);
    command->add_flag("--json", options->isJson, tool_texts::jsonOption);
}

}  // namespace chengheng
