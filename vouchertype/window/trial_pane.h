#pragma once

#include <QWidget>
#include <memory>

#include "vouchertype/screen/trial_screen.h"

class QListView;

namespace chengheng {
class TrialGrid;
class TrialWordModel;

/// The tester of vouchers: lines typed or pasted, and below them what every voucher type says of
/// them. A type that is chosen there marks the lines that it blames.
class TrialPane final : public QWidget {
    Q_OBJECT

  public:
    explicit TrialPane(IMessages& messages, QWidget* parent = nullptr);
    ~TrialPane() override;

    /// The types may have changed: they are read anew, as they are each time the pane comes into
    /// sight.
    void typesChanged();
    void enter();

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void guarded(void (TrialPane::*work)());
    void refresh();
    void showWords();
    void blameChosen();
    void paste();
    void clear();

    IMessages& m_messages;
    TrialScreen m_screen;
    TrialGrid* m_grid;
    std::unique_ptr<TrialWordModel> m_words;
    QListView* m_list;
};

}  // namespace chengheng
