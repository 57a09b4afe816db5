#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "operators/roles/role_state.h"

namespace chengheng {

enum class RoleFate { made, kept, renamed, dropped };

/// What becomes of one role.
struct RoleChange {
    std::int32_t userId = 0;
    std::string operatorName;  ///< empty of one who is gone
    std::string role;
    std::string formerRole;  ///< where it had another name
    RoleFate fate = RoleFate::kept;
    std::vector<Privilege> granted;
    std::vector<Privilege> revoked;
    bool hasOtherRows = false;  ///< other rows of a table than before are open to it
    bool getsPassword = false;

    bool isChange() const {
        return fate != RoleFate::kept || !granted.empty() || !revoked.empty() || hasOtherRows ||
               getsPassword;
    }
};

struct RolesPlan {
    std::vector<RoleChange> roles;
    std::string script;  ///< without the passwords, which are set behind it

    bool isNeeded() const { return !script.empty(); }
};

/// What brings the roles in line with the operators and their rights as they stand now.
RolesPlan planRoles(const RolesState& state, std::span<const OperatorRecord> operators);

/// What takes all roles of the books away, and all that was done for them.
RolesPlan planRolesEnd(const RolesState& state);

}  // namespace chengheng
