#include "session/host_messages.h"

#include <cstdio>

namespace chengheng {
namespace {

/// Serves a program that has no screen and installed nothing.
class PlainMessages : public IMessages {
  public:
    void tell(const Notice& notice) override { write(notice.text); }
    Answer ask(const Question& question) override {
        write(question.text);
        return question.buttons == AnswerButtons::yesNo ? Answer::no : Answer::cancel;
    }

  private:
    static void write(const std::string& text) { std::fputs((text + '\n').c_str(), stderr); }
};

PlainMessages plainMessages;
IMessages* installed = &plainMessages;

}  // namespace

IMessages& hostMessages() { return *installed; }

HostMessages::HostMessages(IMessages& messages) : m_before(installed) { installed = &messages; }

HostMessages::~HostMessages() { installed = m_before; }

}  // namespace chengheng
