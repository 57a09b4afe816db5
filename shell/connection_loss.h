#pragma once

#include <QObject>

#include "base/messages/messages.h"
#include "books/logon/books_session.h"
#include "data/access/CNbCwDB.h"

namespace chengheng {

/// Tells the operator that the server of the open books was lost: one box, however many calls of
/// an action failed. All messages go through it. Where the action says itself that it failed, that
/// is the box, with the loss as its detail; many say nothing, then this does.
class ConnectionLoss : public QObject, public IMessages {
    Q_OBJECT
  public:
    /// All outlive this.
    ConnectionLoss(CNbCwDB& database, const BooksSession& session, IMessages& messages);
    ~ConnectionLoss() override;

    void tell(const Notice& notice) override;
    Answer ask(const Question& question) override;

  protected:
    /// A key, a click or the frame of a window begins another action.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void note(const Status& status);
    void tellWhatNobodyTold();
    std::string words() const;
    /// The loss, when nothing has told it yet, as the detail of a box with this text.
    std::string takeDetail(const std::string& text);

    CNbCwDB& m_database;
    const BooksSession& m_session;
    IMessages& m_messages;
    Status m_loss;
    bool m_isToBeTold = false;
    bool m_wasTold = false;  ///< in this action
    bool m_isTelling = false;
};

}  // namespace chengheng
