#include "tool/tool_session.h"

#include <ostream>

#include "data/engine/engine.h"
#include "data/engines/open_engine.h"
#include "data/layout/layout.h"

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
                         const std::string& setName)
    : m_session(
          SessionFacts{.database = &m_database, .databaseName = databaseName, .setName = setName}) {
    int layout = 0;
    if (!readLayoutNumber(*engine, layout)) layout = 0;
    m_database.adopt(std::move(engine), shownLocation(location).c_str(), databaseName, layout);
}

}  // namespace chengheng
