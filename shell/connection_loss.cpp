#include "shell/connection_loss.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>
#include <array>
#include <utility>

#include "session/failure_texts.h"

namespace chengheng {

ConnectionLoss::ConnectionLoss(CNbCwDB& database, const BooksSession& session, IMessages& messages)
    : m_database(database), m_session(session), m_messages(messages) {
    m_database.setLossObserver([this](const Status& status) { note(status); });
    QCoreApplication::instance()->installEventFilter(this);
}

ConnectionLoss::~ConnectionLoss() { m_database.setLossObserver({}); }

bool ConnectionLoss::eventFilter(QObject*, QEvent* event) {
    const bool isFrame = event->type() == QEvent::Close && event->spontaneous();
    constexpr std::array inputs{QEvent::KeyPress, QEvent::Shortcut, QEvent::MouseButtonPress};
    const bool isInput = isFrame || std::ranges::find(inputs, event->type()) != inputs.end();
    if (isInput && !m_isTelling) m_wasTold = false;
    return false;
}

void ConnectionLoss::note(const Status& status) {
    // Before the log-on has succeeded its own refusal tells.
    if (!m_session.isLoggedOn()) return;
    m_loss = status;
    if (m_isTelling || std::exchange(m_isToBeTold, true)) return;
    QTimer::singleShot(0, this, &ConnectionLoss::tellWhatNobodyTold);
}

std::string ConnectionLoss::words() const { return failureText(m_loss, m_session.shownLocation()); }

void ConnectionLoss::tellWhatNobodyTold() {
    if (!std::exchange(m_isToBeTold, false) || m_wasTold) return;
    tell({.text = words(), .icon = MessageIcon::warning, .beep = true});
}

std::string ConnectionLoss::takeDetail(const std::string& text) {
    const bool isNew = std::exchange(m_isToBeTold, false);
    if (isNew) m_wasTold = true;
    return isNew && text != words() ? words() : std::string();
}

void ConnectionLoss::tell(const Notice& notice) {
    if (m_wasTold && !m_loss.isDone() && notice.text == words()) {
        m_isToBeTold = false;
        return;
    }
    Notice shown = notice;
    const std::string detail = takeDetail(notice.text);
    if (shown.detail.empty()) shown.detail = detail;
    if (!m_loss.isDone() && notice.text == words()) m_wasTold = true;
    const QScopedValueRollback telling(m_isTelling, true);
    m_messages.tell(shown);
}

Answer ConnectionLoss::ask(const Question& question) {
    Question shown = question;
    const std::string detail = takeDetail(question.text);
    if (shown.detail.empty()) shown.detail = detail;
    const QScopedValueRollback telling(m_isTelling, true);
    return m_messages.ask(shown);
}

}  // namespace chengheng
