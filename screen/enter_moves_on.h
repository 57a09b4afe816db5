#pragma once

#include <QList>
#include <QObject>
#include <QWidget>

namespace chengheng {

/// Enter in a field goes on to the next one, as bookkeepers expect; in the last field it does
/// what Enter does in a dialog.
class EnterMovesOn : public QObject {
    Q_OBJECT
  public:
    /// The fields in their order; the parent owns this.
    EnterMovesOn(QWidget* parent, QList<QWidget*> fields);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QList<QWidget*> m_fields;
};

}  // namespace chengheng
