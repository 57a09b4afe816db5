#pragma once

#include <QCheckBox>

namespace chengheng {

/// A check box that may be shown partly checked and is never made so by a click: what is partly
/// checked becomes unchecked, by the mouse, the space bar and a screen reader alike.
class StateBox final : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;

  protected:
    void nextCheckState() override {
        setCheckState(checkState() == Qt::Unchecked ? Qt::Checked : Qt::Unchecked);
    }
};

}  // namespace chengheng
