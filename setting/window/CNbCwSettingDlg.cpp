#include "setting/window/CNbCwSettingDlg.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <optional>

#include "screen/current_dialog.h"
#include "screen/dialog_templates.h"
#include "screen/help/help_pages.h"
#include "screen/help/help_window.h"
#include "screen/resources.h"
#include "session/host_globals.h"
#include "setting/hub_functions.h"
#include "setting/hub_texts.h"
#include "setting/window/hub_labels.h"
#include "setting/window/hub_windows.h"

using chengheng::HubFunction;

namespace {

constexpr int hubPicture = 130;
constexpr int hubMenu = 130;
// Beside the picture the window has room for the frame of a dialog.
constexpr int frameWidth = 6;
constexpr int frameHeight = 15;
constexpr int cornerRadius = 6;

/// The background as a brush, made when a hub first paints and shared by all hubs until the
/// module unloads.
std::optional<QBrush> sharedBackgroundBrush;

/// Pixels to a unit of the sharpest screen: on the others the picture is scaled down.
qreal sharpestPixelRatio() {
    qreal ratio = 1;
    for (const QScreen* screen : QGuiApplication::screens()) {
        ratio = std::max(ratio, screen->devicePixelRatio());
    }
    return ratio;
}

void openFunction(chengheng::IMessages& messages, HubFunction function) {
    chengheng::HubWindows windows;
    chengheng::HubFunctions(messages, windows).open(function);
}

}  // namespace

CNbCwSettingDlg::CNbCwSettingDlg(QWidget* parent)
    : CImgDlg(chengheng::dialog_templates::setting, parent) {
    m_process.SetDialog(this);
    g_pDlgWnd = this;
}

CNbCwSettingDlg::~CNbCwSettingDlg() {
    if (g_pDlgWnd == this) g_pDlgWnd = nullptr;
}

bool CNbCwSettingDlg::OnInitDialog() {
    if (chengheng::opensOnlyOpeningBalances(g_lpArgument)) {
        OnNxSettingBegleft();
        EndDialog(Rejected);
        return false;
    }
    CImgDlg::OnInitDialog();
    m_background = chengheng::loadBitmap(hubPicture, sharpestPixelRatio());
    const QSize picture = m_background.deviceIndependentSize().toSize();
    setFixedSize(picture.width() + frameWidth, picture.height() + frameHeight);
    setWindowTitle(QString::fromUtf8(chengheng::hub_texts::title));
    const QRect area =
        (parentWidget() ? parentWidget()->frameGeometry() : screen()->availableGeometry());
    move(area.center() - rect().center());
    InitSettingWnd();
    chengheng::placeHubLabels(*this);
    UpdateData(false);
    return true;
}

void CNbCwSettingDlg::InitSettingWnd() {
    _RCII record;
    record.lCorner = cornerRadius;
    for (const chengheng::HubRegion& region : chengheng::hubRegions) {
        record.lCommand = region.command;
        record.lLeft = region.left;
        record.lTop = region.top;
        record.lWidth = region.width;
        record.lHeight = region.height;
        record.lImage = region.image;
        record.sCaption.clear();
        record.bHighlight = 1;
        record.bTabStop = 1;
        InsertCmdImage(record);
    }
}

void CNbCwSettingDlg::OnNxSettingDivide() { openFunction(messages(), HubFunction::divide); }
void CNbCwSettingDlg::OnNxSettingBursar() { openFunction(messages(), HubFunction::bursar); }
void CNbCwSettingDlg::OnNxSettingExchange() { openFunction(messages(), HubFunction::exchange); }
void CNbCwSettingDlg::OnNxSettingBegleft() { openFunction(messages(), HubFunction::begleft); }
void CNbCwSettingDlg::OnNxSettingSpecies() { openFunction(messages(), HubFunction::species); }
void CNbCwSettingDlg::OnNxSettingMethod() { openFunction(messages(), HubFunction::method); }

void CNbCwSettingDlg::OnNxSettingExit() {
    UpdateData();
    EndDialog(Accepted);
}

void CNbCwSettingDlg::OnOK() { UpdateData(); }

void CNbCwSettingDlg::OnCancel() { UpdateData(false); }

QBrush CNbCwSettingDlg::OnCtlColor(int kind) {
    if (kind != chengheng::dialogBackground) return CImgDlg::OnCtlColor(kind);
    if (!sharedBackgroundBrush) sharedBackgroundBrush = QBrush(m_background);
    return *sharedBackgroundBrush;
}

bool CNbCwSettingDlg::OnEraseBkgnd(QPainter& painter) {
    if (m_pPicture) painter.drawImage(rect(), m_pPicture->mirrored(false, true));
    return true;
}

void CNbCwSettingDlg::OnMouseMove(QPoint point) { CImgDlg::OnMouseMove(point); }

void CNbCwSettingDlg::OnLButtonDown(QPoint point) { CImgDlg::OnLButtonDown(point); }

void CNbCwSettingDlg::OnLButtonUp(QPoint point) { CImgDlg::OnLButtonUp(point); }

void CNbCwSettingDlg::OnRButtonDown(QPoint point) {
    m_process.SetMenuPosition(mapToGlobal(point));
    m_process.PopupAMenu(0, hubMenu, true);
    CImgDlg::OnRButtonDown(point);
}

bool CNbCwSettingDlg::OnHelpInfo() {
    chengheng::showHelp(chengheng::hubHelpContext, *this);
    return true;
}

bool CNbCwSettingDlg::PreTranslateMessage(QEvent& event) {
    return CImgDlg::PreTranslateMessage(event);
}

bool CNbCwSettingDlg::WindowProc(QEvent& event) {
    if (m_process.ProcessWindowProc(event)) return true;
    if (event.type() == QEvent::Close) EndDialog(Rejected);
    return CImgDlg::WindowProc(event);
}

bool CNbCwSettingDlg::OnCommand(int command) {
    struct Handler {
        int command;
        void (CNbCwSettingDlg::*handle)();
    };
    static constexpr Handler handlers[] = {
        {32776, &CNbCwSettingDlg::OnNxSettingDivide},  {32775, &CNbCwSettingDlg::OnNxSettingBursar},
        {200, &CNbCwSettingDlg::OnNxSettingExchange},  {298, &CNbCwSettingDlg::OnNxSettingBegleft},
        {32777, &CNbCwSettingDlg::OnNxSettingSpecies}, {32778, &CNbCwSettingDlg::OnNxSettingMethod},
        {32774, &CNbCwSettingDlg::OnNxSettingExit},
    };
    const auto listed =
        std::ranges::find(chengheng::hubMenuCommands, command, &chengheng::HubMenuCommand::command);
    if (listed != chengheng::hubMenuCommands.end()) {
        openFunction(messages(), listed->function);
        UpdateData(false);  // the books may have another name
        return true;
    }
    const auto found = std::ranges::find(handlers, command, &Handler::command);
    if (found == std::end(handlers)) return CImgDlg::OnCommand(command);
    (this->*found->handle)();
    return true;
}

void CNbCwSettingDlg::PostNcDestroy() {
    if (!m_process.DoPostNcDestroy()) CImgDlg::PostNcDestroy();
}

void CNbCwSettingDlg::DoDataExchange(bool isSaving) {
    // Nothing is entered in the hub itself; what it shows is read again from the host.
    if (!isSaving) chengheng::showHubStatus(*this);
}
