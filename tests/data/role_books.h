#pragma once

#include <memory>
#include <string>
#include <vector>

#include "operators/operator_rights.h"
#include "tests/support/run_tool.h"

struct pg_conn;

namespace chengheng {

/// A program other than ours that is logged on to a server as an operator. Nothing that it does
/// stays.
class ForeignProgram {
  public:
    /// Throws when it may not log on.
    ForeignProgram(const std::string& address, const std::string& schema);

    /// The state that a statement ends in, "" when it is done.
    std::string stateOf(const std::string& sql) { return tell(sql).state; }
    /// The first cell of what it gives, or how many rows it met.
    std::string rowsOf(const std::string& sql);

  private:
    struct Told {
        std::string state;
        std::string rows;
    };
    Told tell(const std::string& sql);

    std::shared_ptr<pg_conn> m_connection;
};

/// Books on the server of the tests, with operators who are to get roles there. Supervisor is 王芳,
/// number 1, with the password "secret". What is left of the roles goes with this object.
class RoleBooks {
  public:
    RoleBooks();
    ~RoleBooks();
    RoleBooks(const RoleBooks&) = delete;
    RoleBooks& operator=(const RoleBooks&) = delete;

    const std::string& location() const { return m_location; }
    const std::string& schema() const { return m_schema; }

    /// Adds the next operator; gives the number.
    int add(const std::string& name, const OperatorRights& rights,
            const std::string& password = "p");
    int add(const std::string& name, std::initializer_list<int> functions,
            const std::string& password = "p");
    void setRights(int userId, std::initializer_list<int> functions);
    /// A file of passwords, "name<TAB>password" a line.
    static std::string passwordFile(const std::string& lines);
    /// Runs the command on the books.
    ToolRun run(std::vector<std::string> options = {}) const;
    /// The same with the passwords of all operators; must come to its end.
    void bringIntoLine();

    std::string roleOf(const std::string& name) const { return m_schema + "." + name; }
    /// The roles of the server that are marked as those of operators of these books.
    std::vector<std::string> roles() const;
    /// The address of the books for an operator.
    std::string addressFor(const std::string& name, const std::string& password = "p") const;
    ForeignProgram programOf(const std::string& name) const;
    /// What a ForeignProgram that logs on for it is told.
    std::string stateOf(const std::string& name, const std::string& sql) const;
    std::string rowsOf(const std::string& name, const std::string& sql) const;
    /// Runs statements as the owner of the books; gives the first cell.
    std::string ask(const std::string& sql) const;

  private:
    std::string m_location;
    std::string m_schema;
    std::string m_passwords = "王芳\tsecret\n";
};

}  // namespace chengheng
