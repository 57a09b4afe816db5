#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/messages/messages.h"

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
    void willAnswer(Answer answer) { m_answers.push_back({std::nullopt, answer}); }
    /// The same, and that question must have this text.
    void willAnswer(std::string questionText, Answer answer) {
        m_answers.push_back({std::move(questionText), answer});
    }
    /// Called while a box is up, for facts that must hold at that moment.
    void whileShown(std::function<void(const std::string& text)> watcher) {
        m_watcher = std::move(watcher);
    }

    /// The texts of notices and questions alike, in order.
    const std::vector<std::string>& texts() const { return m_texts; }
    const std::vector<Notice>& notices() const { return m_notices; }
    const std::vector<Question>& questions() const { return m_questions; }
    /// The one notice so far; with more or fewer, or with questions beside it, the test fails
    /// and the notice is empty.
    Notice onlyNotice() const;
    /// Forgets what was said. Answers in the queue stay.
    void forget();

  private:
    struct QueuedAnswer {
        std::optional<std::string> questionText;
        Answer answer;
    };

    std::vector<std::string> m_texts;
    std::vector<Notice> m_notices;
    std::vector<Question> m_questions;
    std::deque<QueuedAnswer> m_answers;
    std::function<void(const std::string& text)> m_watcher;
};

}  // namespace chengheng
