#include "tool/tool_session.h"

#include <ostream>

#include "books/logon/password_file.h"
#include "data/engine/engine.h"
#include "data/engines/open_engine.h"
#include "data/layout/layout.h"
#include "session/failure_texts.h"
#include "setting/hub_status.h"
#include "tool/commands.h"
#include "tool/tool_texts.h"
#include "tool/writer_texts.h"

namespace chengheng {
namespace {

constexpr const char* databaseName = "books";

}  // namespace

void ToolMessages::tell(const Notice& notice) {
    m_tool.err << notice.text;
    if (!notice.detail.empty()) m_tool.err << detailHeading << notice.detail;
    m_tool.err << '\n';
}

Answer ToolMessages::ask(const Question& question) {
    m_tool.err << question.text << '\n';
    if (question.buttons == AnswerButtons::okCancel)
        return m_acceptsAll ? Answer::ok : Answer::cancel;
    return m_acceptsAll ? Answer::yes : Answer::no;
}

ToolSession::ToolSession(std::unique_ptr<Engine> engine, const std::string& location,
                         const std::string& setName) {
    m_session.emplace(
        SessionFacts{.database = &m_database, .databaseName = databaseName, .setName = setName});
    int layout = 0;
    if (!readLayoutNumber(*engine, layout)) layout = 0;
    m_database.adopt(std::move(engine), shownLocation(location).c_str(), databaseName, layout);
}

std::optional<ExitCode> ToolSession::logOn(Tool& tool, const std::string& location) {
    const ToolOperator& writer = tool.writer;
    if (writer.name.empty()) return std::nullopt;
    LogonRequest request{.location = location, .operatorName = writer.name};
    const Status read = readPasswordFile(writer.passwordFile, request.password);
    if (!read)
        return tellRefusal(tool, failureRefusal(failureText(read, writer.passwordFile,
                                                            FailureSubject::passwordFile)));
    m_session.reset();
    m_database.DBClose(databaseName);
    m_operator.emplace(m_database, m_tries);
    if (const auto refusal = m_operator->logOn(request)) {
        const ExitCode code = tellRefusal(tool, *refusal);
        if (refusal->kind == RefusalKind::newPassword)
            tool.err << tool_texts::newPasswordFirst << '\n';
        return code;
    }
    if (const HubLogonLine line = hubLogonLine(); line.isWarning) tool.err << line.text << '\n';
    if (const auto warning = passwordFileWarning(writer.passwordFile)) tool.err << *warning << '\n';
    return std::nullopt;
}

}  // namespace chengheng
