#include "screen/resources.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <iterator>

#include "screen/host_events.h"
#include "screen/screen_texts.h"

// Outside every namespace, as the toolkit asks.
static void initialiseHostResources() { Q_INIT_RESOURCE(host); }

namespace chengheng {
namespace {

constexpr PictureResource pictures[] = {
    {130, ":/host/hub_background.svg", "", PictureKind::scene},
    {1302, ":/host/accounts.svg", screen_texts::accountsPicture, PictureKind::entry},
    {1303, ":/host/currency.svg", screen_texts::currencyPicture, PictureKind::entry},
    {1304, ":/host/opening.svg", screen_texts::openingPicture, PictureKind::entry},
    {1305, ":/host/vouchertype.svg", screen_texts::voucherTypePicture, PictureKind::entry},
    {1306, ":/host/settle.svg", screen_texts::settlePicture, PictureKind::entry},
    {1308, ":/host/exit.svg", screen_texts::exitPicture, PictureKind::outlinedEntry},
    {1309, ":/host/operators.svg", screen_texts::operatorsPicture, PictureKind::entry},
};

constexpr MenuItemResource hubMenu[] = {
    {32776, screen_texts::operatorsItem},
    {32775, screen_texts::accountsItem},
    {200, screen_texts::currencyItem},
    {298, screen_texts::openingItem},
    {32777, screen_texts::voucherTypeItem},
    {32778, screen_texts::settleItem},
    {0, ""},
    {33001, screen_texts::departmentsItem},
    {33002, screen_texts::personsItem},
    {33003, screen_texts::unitClassesItem},
    {33004, screen_texts::unitsItem},
    {33005, screen_texts::projectClassesItem},
    {33006, screen_texts::projectItemsItem},
    {0, ""},
    {33007, screen_texts::parametersItem},
    {33008, screen_texts::ownPasswordItem},
    {33009, screen_texts::logItem},
    {0, ""},
    {helpCommandNumber, screen_texts::helpCommand},
    {0, ""},
    {32774, screen_texts::exitItem},
};

constexpr int applicationIconSizes[] = {16, 24, 32, 48, 64, 128, 256};

}  // namespace

const PictureResource* pictureResource(int number) {
    const auto found = std::ranges::find(pictures, number, &PictureResource::number);
    return found == std::end(pictures) ? nullptr : found;
}

QPixmap loadBitmap(int number, qreal pixelRatio) {
    const PictureResource* resource = pictureResource(number);
    if (!resource) return {};
    loadHostResources();
    QSvgRenderer renderer(QString::fromUtf8(resource->file));
    const QSize size = renderer.defaultSize();
    QPixmap bitmap((QSizeF(size) * pixelRatio).toSize());
    bitmap.fill(Qt::transparent);
    QPainter painter(&bitmap);
    renderer.render(&painter, QRectF(QPointF(), QSizeF(size) * pixelRatio));
    painter.end();
    bitmap.setDevicePixelRatio(pixelRatio);
    return bitmap;
}

std::span<const MenuItemResource> menuResource(int menu, int part) {
    if (menu == 130 && part == 0) return hubMenu;
    return {};
}

QIcon applicationIcon() {
    loadHostResources();
    QSvgRenderer renderer(QStringLiteral(":/host/application.svg"));
    QIcon icon;
    for (int size : applicationIconSizes) {
        QPixmap bitmap(size, size);
        bitmap.fill(Qt::transparent);
        QPainter painter(&bitmap);
        renderer.render(&painter);
        painter.end();
        icon.addPixmap(bitmap);
    }
    return icon;
}

QIcon toolIcon(const char* name) {
    loadHostResources();
    const QString file = QStringLiteral(":/tools/%1.svg").arg(QLatin1String(name));
    return QFile::exists(file) ? QIcon(file) : QIcon();
}

void loadHostResources() { initialiseHostResources(); }

}  // namespace chengheng
