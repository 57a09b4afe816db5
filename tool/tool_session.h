#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/messages/messages.h"
#include "books/logon/books_session.h"
#include "data/access/CNbCwDB.h"
#include "session/host_globals.h"
#include "tool/tool.h"

namespace chengheng {

/// Messages of a program without a screen: notices go to the error output, questions get the
/// answer that the command line gave.
class ToolMessages final : public IMessages {
  public:
    ToolMessages(Tool& tool, bool acceptsAll) : m_tool(tool), m_acceptsAll(acceptsAll) {}

    void tell(const Notice& notice) override;
    Answer ask(const Question& question) override;

  private:
    Tool& m_tool;
    bool m_acceptsAll;
};

/// Books open for the services that work on g_pDB, as long as it lives.
class ToolSession {
  public:
    ToolSession(std::unique_ptr<Engine> engine, const std::string& location,
                const std::string& setName = {});

    /// Works on as the operator whom the command line names, with his rights; with none it goes on
    /// as the administrator of the file or server. What keeps him out has been said: the exit code.
    std::optional<ExitCode> logOn(Tool& tool, const std::string& location);

  private:
    CNbCwDB m_database;
    WrongTries m_tries;
    std::optional<HostSession> m_session;
    std::optional<BooksSession> m_operator;
};

}  // namespace chengheng
