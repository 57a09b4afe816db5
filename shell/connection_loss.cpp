#include "shell/connection_loss.h"

#include <QTimer>

#include "session/failure_texts.h"

namespace chengheng {

ConnectionLoss::ConnectionLoss(CNbCwDB& database, const BooksSession& session, IMessages& messages)
    : m_database(database), m_session(session), m_messages(messages) {
    m_database.setLossObserver([this](const Status& status) { note(status); });
}

ConnectionLoss::~ConnectionLoss() { m_database.setLossObserver({}); }

void ConnectionLoss::note(const Status& status) {
    // Before the log-on has succeeded its own refusal tells.
    if (m_isToBeTold || !m_session.isLoggedOn()) return;
    m_isToBeTold = true;
    m_loss = status;
    QTimer::singleShot(0, this, &ConnectionLoss::tell);
}

void ConnectionLoss::tell() {
    m_messages.tell({.text = failureText(m_loss, m_session.shownLocation()),
                     .icon = MessageIcon::warning,
                     .beep = true});
    m_isToBeTold = false;
}

}  // namespace chengheng
