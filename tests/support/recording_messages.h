#pragma once

#include <deque>
#include <string>
#include <vector>

#include "host/messages/messages.h"

namespace chengheng {

/// Messages without a screen: keeps everything said, in order, and answers questions from a
/// queue. A question with no answer waiting fails the test, as do answers left over at the
/// end.
class RecordingMessages : public IMessages {
  public:
    RecordingMessages() = default;
    ~RecordingMessages() override;
    RecordingMessages(const RecordingMessages&) = delete;
    RecordingMessages& operator=(const RecordingMessages&) = delete;

    void tell(const Notice& notice) override;
    Answer ask(const Question& question) override;

    /// The next question not yet provided for gets this answer.
    void willAnswer(Answer answer) { m_answers.push_back(answer); }

    /// The texts of notices and questions alike, in order.
    const std::vector<std::string>& texts() const { return m_texts; }
    const std::vector<Notice>& notices() const { return m_notices; }
    const std::vector<Question>& questions() const { return m_questions; }

  private:
    std::vector<std::string> m_texts;
    std::vector<Notice> m_notices;
    std::vector<Question> m_questions;
    std::deque<Answer> m_answers;
};

}  // namespace chengheng
