#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/values/status.h"
#include "data/engine/engine.h"
#include "operators/roles/role_names.h"
#include "operators/roles/role_rights.h"

namespace chengheng {

/// A row policy of ours as it stands.
struct StandingPolicy {
    std::string table;
    std::string name;
    std::string role;  ///< empty: everybody's
    std::string condition;
};

/// What a server knows of the roles of some books.
struct RolesState {
    BooksPlace place;
    std::string connectedAs;
    bool mayMakeRoles = false;
    bool mayEverybodyConnect = true;
    std::vector<std::string> tables;
    std::set<std::string> othersTables;      ///< of them those that are not one's own
    std::set<std::string> guardedTables;     ///< of them those that keep rows back
    std::set<std::string> foreignlyGuarded;  ///< by policies that are not ours, too
    std::set<std::string> allRoles;
    std::map<std::int32_t, std::string> roles;              ///< of the operators
    std::map<std::string, std::set<Privilege>> privileges;  ///< by role
    std::vector<StandingPolicy> policies;
};

Status readRolesState(Engine& engine, RolesState& state);

/// What roles of these books may do to tables beside what they were granted, "books.李明 settle
/// INSERT": as everybody or as members of other roles.
Status readFurtherUses(Engine& engine, std::vector<std::string>& uses);

}  // namespace chengheng
