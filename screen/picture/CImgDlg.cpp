#include "screen/picture/CImgDlg.h"

#include <QContextMenuEvent>
#include <QShortcut>

#include "screen/picture/hot_region.h"
#include "screen/resources.h"

using chengheng::HotRegion;

CImgDlg::CImgDlg(int templateNumber, QWidget* parent) : DialogFrame(templateNumber, parent) {
    setMouseTracking(true);
    chengheng::loadHostResources();
}

CImgDlg::~CImgDlg() = default;

bool CImgDlg::OnInitDialog() {
    // The picture itself has the focus at first, so that Enter runs nothing by accident.
    setFocus(Qt::OtherFocusReason);
    return true;
}

void CImgDlg::InsertCmdImage(const _RCII& record) {
    const chengheng::PictureResource* picture = chengheng::pictureResource(record.lImage);
    if (!picture) return;
    auto* region = new HotRegion(*picture, record.lCommand, record.lCorner, this);
    region->setGeometry(record.lLeft, record.lTop, record.lWidth, record.lHeight);
    region->setObjectName(QStringLiteral("command%1").arg(record.lCommand));
    if (!record.sCaption.empty()) {
        region->setText(QString::fromStdString(record.sCaption));
        region->setAccessibleName(region->text());
    }
    if (record.bTabStop == 0) region->setFocusPolicy(Qt::NoFocus);
    m_regions.push_back({record, *region});
    connectRegion(*region);
    region->show();
}

void CImgDlg::connectRegion(HotRegion& region) {
    connect(&region, &QAbstractButton::clicked, this,
            [this, command = region.command()] { PostCommand(command); });
    const auto forward = [this](void (CImgDlg::*handler)(QPoint)) {
        return [this, handler](QPoint point) {
            chengheng::runGuarded(messages(), windowTitle(), [&] { (this->*handler)(point); });
        };
    };
    connect(&region, &HotRegion::pointerMoved, this, forward(&CImgDlg::OnMouseMove));
    connect(&region, &HotRegion::pointerPressed, this, forward(&CImgDlg::OnLButtonDown));
    connect(&region, &HotRegion::pointerReleased, this, forward(&CImgDlg::OnLButtonUp));
    connect(&region, &HotRegion::pointerLeft, this, [this] { light(nullptr); });

    const auto digit = static_cast<int>(m_regions.size());
    if (digit > 9) return;
    region.setDigit(digit);
    auto* shortcut = new QShortcut(QKeySequence(Qt::Key_0 + digit), this);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, &region, [&region] { region.click(); });
}

HotRegion* CImgDlg::regionAt(QPoint point) const {
    for (const InsertedRegion& inserted : m_regions) {
        if (inserted.region.geometry().contains(point)) return &inserted.region;
    }
    return nullptr;
}

void CImgDlg::light(const HotRegion* lit) {
    for (const InsertedRegion& inserted : m_regions) {
        inserted.region.setHighlighted(&inserted.region == lit && inserted.record.bHighlight != 0);
    }
}

void CImgDlg::OnMouseMove(QPoint point) { light(regionAt(point)); }

void CImgDlg::OnLButtonDown(QPoint point) { light(regionAt(point)); }

void CImgDlg::leaveEvent(QEvent* event) {
    light(nullptr);
    DialogFrame::leaveEvent(event);
}

void CImgDlg::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Keyboard) return;
    const QWidget* focus = focusWidget();
    OnRButtonDown(focus && focus != this ? focus->geometry().center() : rect().center());
}
