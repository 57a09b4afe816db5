#pragma once

#include <string>

#include "screen/dialog_frame.h"

class QLineEdit;

namespace chengheng {

/// Asks for the code or name of an account to find.
class FindAccountWindow final : public DialogFrame {
    Q_OBJECT

  public:
    explicit FindAccountWindow(QWidget* parent);

    std::string wanted() const;

  private:
    QLineEdit* m_field;
};

}  // namespace chengheng
