#include "screen/host_style.h"

#include <QPainter>
#include <QStyleOptionMenuItem>
#include <algorithm>
#include <array>

#include "screen/resources.h"

namespace chengheng {
namespace {

struct OwnPicture {
    QStyle::StandardPixmap picture;
    const char* file;
};

constexpr std::array ownPictures{
    OwnPicture{QStyle::SP_MessageBoxInformation, ":/boxes/information.svg"},
    OwnPicture{QStyle::SP_MessageBoxQuestion, ":/boxes/question.svg"},
    OwnPicture{QStyle::SP_MessageBoxWarning, ":/boxes/warning.svg"},
    OwnPicture{QStyle::SP_MessageBoxCritical, ":/boxes/stop.svg"},
    OwnPicture{QStyle::SP_DialogHelpButton, ":/tools/help.svg"},
    OwnPicture{QStyle::SP_DialogSaveButton, ":/tools/save.svg"},
    OwnPicture{QStyle::SP_BrowserReload, ":/tools/refresh.svg"},
    OwnPicture{QStyle::SP_TrashIcon, ":/tools/delete.svg"},
};

QIcon ownPicture(QStyle::StandardPixmap picture) {
    const auto* const found = std::ranges::find(ownPictures, picture, &OwnPicture::picture);
    if (found == ownPictures.end()) return {};
    loadHostResources();
    return QIcon(QLatin1String(found->file));
}

QPixmap coloured(QPixmap picture, const QColor& colour) {
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), colour);
    return picture;
}

}  // namespace

HostStyle::HostStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

QIcon HostStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                              const QWidget* widget) const {
    const QIcon own = ownPicture(picture);
    return own.isNull() ? QProxyStyle::standardIcon(picture, option, widget) : own;
}

QPixmap HostStyle::standardPixmap(StandardPixmap picture, const QStyleOption* option,
                                  const QWidget* widget) const {
    const QIcon own = ownPicture(picture);
    if (own.isNull()) return QProxyStyle::standardPixmap(picture, option, widget);
    const int size = pixelMetric(PM_LargeIconSize, option, widget);
    return own.pixmap(QSize(size, size), widget != nullptr ? widget->devicePixelRatio() : 1);
}

void HostStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    const bool isChosen = element == CE_MenuItem && item != nullptr &&
                          item->state.testFlag(State_Selected) &&
                          item->state.testFlag(State_Enabled) && !item->icon.isNull();
    if (!isChosen) return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionMenuItem chosen = *item;
    const int size = pixelMetric(PM_SmallIconSize, option, widget);
    const qreal ratio = widget != nullptr ? widget->devicePixelRatio() : 1;
    chosen.icon = QIcon(coloured(item->icon.pixmap(QSize(size, size), ratio),
                                 item->palette.color(QPalette::HighlightedText)));
    QProxyStyle::drawControl(element, &chosen, painter, widget);
}

}  // namespace chengheng
