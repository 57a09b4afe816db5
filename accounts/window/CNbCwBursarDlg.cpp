#include "accounts/window/CNbCwBursarDlg.h"

#include "setting/window/unbuilt_functions.h"

namespace {

constexpr int bursarTemplate = 124;

}  // namespace

CNbCwBursarDlg::CNbCwBursarDlg(QWidget* parent) : CNxMiddleDialog(bursarTemplate, parent) {}

CNbCwBursarDlg::~CNbCwBursarDlg() = default;

bool CNbCwBursarDlg::OnInitDialog() {
    chengheng::tellUnbuilt(messages(), chengheng::HubFunction::bursar);
    EndDialog(Rejected);
    return false;
}
