#pragma once

#include <QLabel>

class QAbstractItemView;

namespace chengheng {

/// What is read in a view where it has no rows: why, and what to do.
class EmptyWords final : public QLabel {
    Q_OBJECT

  public:
    /// The view must have its model.
    explicit EmptyWords(QAbstractItemView& view, const QString& words = {});

    void setWords(const QString& words);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void follow();

    QAbstractItemView& m_view;
};

}  // namespace chengheng
