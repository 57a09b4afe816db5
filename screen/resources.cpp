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
    {1302, ":/host/accounts.svg", "会计科目", PictureKind::entry},
    {1303, ":/host/currency.svg", "外币汇率", PictureKind::entry},
    {1304, ":/host/opening.svg", "期初余额", PictureKind::entry},
    {1305, ":/host/vouchertype.svg", "凭证类别", PictureKind::entry},
    {1306, ":/host/settle.svg", "结算方式", PictureKind::entry},
    {1308, ":/host/exit.svg", "退出", PictureKind::outlinedEntry},
    {1309, ":/host/operators.svg", "财务分工", PictureKind::entry},
};

constexpr MenuItemResource hubMenu[] = {
    {32776, "财务分工(&1)"},
    {32775, "会计科目(&2)"},
    {200, "外币汇率(&3)"},
    {298, "期初余额(&4)"},
    {32777, "凭证类别(&5)"},
    {32778, "结算方式(&6)"},
    {0, ""},
    {helpCommandNumber, screen_texts::helpCommand},
    {0, ""},
    {32774, "退出(&7)"},
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
