#pragma once

#include <span>
#include <string>
#include <vector>

#include "operators/roles/role_passwords.h"
#include "operators/roles/role_plan.h"
#include "session/record_change.h"

namespace chengheng {

/// What became of the roles, or would.
struct RolesOutcome {
    RolesPlan plan;
    /// What roles can write beside what the rights list says, as everybody or as members of others.
    std::vector<std::string> furtherUses;
};

/// The login roles of the operators of the open books on a server: one for each, which may write
/// what his rights say. All that changes is one transaction, under the locks of the operators.
class ServerRoles {
  public:
    explicit ServerRoles(IMessages& messages) : m_messages(messages) {}

    /// What bringIntoLine would do.
    Outcome look(std::span<const RolePassword> passwords, RolesOutcome& outcome);
    Outcome bringIntoLine(std::span<const RolePassword> passwords, RolesOutcome& outcome);
    /// What end would do.
    Outcome lookAtEnd(RolesOutcome& outcome);
    /// Takes all roles away.
    Outcome end(RolesOutcome& outcome);

  private:
    IMessages& m_messages;
};

}  // namespace chengheng
