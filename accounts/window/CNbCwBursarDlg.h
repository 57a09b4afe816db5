#pragma once

#include "host/screen/CNxMiddleDialog.h"
#include "host/screen/module_export.h"

/// The chart of accounts (会计科目).
class CHENGHENG_MODULE_EXPORT CNbCwBursarDlg : public CNxMiddleDialog {
    Q_OBJECT

  public:
    explicit CNbCwBursarDlg(QWidget* parent = nullptr);
    ~CNbCwBursarDlg() override;

  protected:
    bool OnInitDialog() override;
};
