#include "tests/support/recording_messages.h"

#include <gtest/gtest.h>

namespace chengheng {
namespace {

/// Whether a box with these buttons can give this answer.
bool hasAnswer(AnswerButtons buttons, Answer answer) {
    switch (buttons) {
        case AnswerButtons::yesNo:
            return answer == Answer::yes || answer == Answer::no;
        case AnswerButtons::okCancel:
            return answer == Answer::ok || answer == Answer::cancel;
        case AnswerButtons::yesNoCancel:
            return answer != Answer::ok;
    }
    return false;
}

}  // namespace

RecordingMessages::~RecordingMessages() {
    EXPECT_TRUE(m_answers.empty()) << m_answers.size() << " answers were never asked for";
}

void RecordingMessages::tell(const Notice& notice) {
    m_texts.push_back(notice.text);
    m_notices.push_back(notice);
    if (m_watcher) m_watcher(notice.text);
}

Answer RecordingMessages::ask(const Question& question) {
    m_texts.push_back(question.text);
    m_questions.push_back(question);
    if (m_watcher) m_watcher(question.text);
    if (m_answers.empty()) {
        ADD_FAILURE() << "an unexpected question: " << question.text;
        return question.buttons == AnswerButtons::yesNo ? Answer::no : Answer::cancel;
    }
    const QueuedAnswer queued = m_answers.front();
    m_answers.pop_front();
    EXPECT_EQ(question.text, queued.questionText.value_or(question.text));
    EXPECT_TRUE(hasAnswer(question.buttons, queued.answer))
        << "no button gives the answer to: " << question.text;
    return queued.answer;
}

Notice RecordingMessages::onlyNotice() const {
    EXPECT_EQ(m_texts.size(), 1u);
    EXPECT_EQ(m_notices.size(), 1u);
    return m_texts.size() == 1 && m_notices.size() == 1 ? m_notices.front() : Notice{};
}

void RecordingMessages::forget() {
    m_texts.clear();
    m_notices.clear();
    m_questions.clear();
}

}  // namespace chengheng
