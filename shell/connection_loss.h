#pragma once

#include <QObject>

#include "base/messages/messages.h"
#include "books/logon/books_session.h"
#include "data/access/CNbCwDB.h"

namespace chengheng {

/// Tells the operator that the server of the open books was lost. Actions that a lost server
/// ends often say nothing themselves; however many calls failed in one, this speaks once.
class ConnectionLoss : public QObject {
    Q_OBJECT
  public:
    /// All outlive this.
    ConnectionLoss(CNbCwDB& database, const BooksSession& session, IMessages& messages);
    ~ConnectionLoss() override;

  private:
    void note(const Status& status);
    void tell();

    CNbCwDB& m_database;
    const BooksSession& m_session;
    IMessages& m_messages;
    Status m_loss;
    bool m_isToBeTold = false;
};

}  // namespace chengheng
