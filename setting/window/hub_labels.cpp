#include "setting/window/hub_labels.h"

#include <QLabel>

#include "screen/colours.h"
#include "screen/fonts.h"
#include "setting/hub_status.h"
#include "setting/hub_texts.h"

namespace chengheng {
namespace {

constexpr int headingPixels = 22;
constexpr int groupPixels = 12;
constexpr int statusPixels = 12;
constexpr int hintPixels = 11;

constexpr QRect headingPlace(40, 22, 200, 32);
constexpr QRect startingGroupPlace(95, 63, 122, 18);
constexpr QRect voucherGroupPlace(261, 202, 121, 18);
constexpr QRect logonPlace(40, 326, 420, 18);
constexpr QRect hintPlace(40, 349, 300, 18);
constexpr int statusLeft = 40;
constexpr int statusValueLeft = 88;
constexpr int statusTop = 255;
constexpr int statusStep = 22;
constexpr int statusLines = 3;
constexpr int statusCaptionWidth = 44;
constexpr int statusValueWidth = 138;

QLabel* placeLabel(QWidget& hub, const QRect& place, const QFont& font, const QColor& colour,
                   const QString& text) {
    auto* label = new QLabel(text, &hub);
    label->setGeometry(place);
    label->setFont(font);
    label->setTextFormat(Qt::PlainText);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, colour);
    label->setPalette(palette);
    // The picture under a text stays the operator's: its clicks are the hub's.
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->show();
    return label;
}

constexpr const char* logonName = "logonHistory";

QString statusName(const char* kind, int line) {
    return QStringLiteral("status%1%2").arg(QLatin1String(kind)).arg(line);
}

void showLogon(QLabel& label) {
    const HubLogonLine line = hubLogonLine();
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, line.isWarning ? colours::seal : colours::quietInk);
    label.setPalette(palette);
    label.setText(QString::fromStdString(line.text));
}

}  // namespace

void placeHubLabels(QWidget& hub) {
    const auto text = [](const char* utf8) { return QString::fromUtf8(utf8); };
    placeLabel(hub, headingPlace, headingFont(headingPixels), colours::ink, text(hub_texts::title));
    placeLabel(hub, startingGroupPlace, pictureFont(groupPixels), colours::quietInk,
               text(hub_texts::startingGroup));
    placeLabel(hub, voucherGroupPlace, pictureFont(groupPixels), colours::quietInk,
               text(hub_texts::voucherGroup));
    placeLabel(hub, hintPlace, pictureFont(hintPixels), colours::quietInk,
               text(hub_texts::keysHint));
    placeLabel(hub, logonPlace, pictureFont(hintPixels), colours::quietInk, {})
        ->setObjectName(logonName);
    for (int line = 0; line < statusLines; ++line) {
        const int top = statusTop + line * statusStep;
        placeLabel(hub, {statusLeft, top, statusCaptionWidth, statusStep},
                   pictureFont(statusPixels), colours::quietInk, {})
            ->setObjectName(statusName("Caption", line));
        placeLabel(hub, {statusValueLeft, top, statusValueWidth, statusStep},
                   pictureFont(statusPixels), colours::ink, {})
            ->setObjectName(statusName("Value", line));
    }
}

void showHubStatus(QWidget& hub) {
    showLogon(*hub.findChild<QLabel*>(logonName));
    const auto lines = hubStatus();
    for (int line = 0; line < statusLines; ++line) {
        const auto place = static_cast<std::size_t>(line);
        const HubStatusLine shown = place < lines.size() ? lines[place] : HubStatusLine{};
        hub.findChild<QLabel*>(statusName("Caption", line))
            ->setText(QString::fromStdString(shown.caption));
        auto* value = hub.findChild<QLabel*>(statusName("Value", line));
        const QString whole = QString::fromStdString(shown.value);
        value->setText(value->fontMetrics().elidedText(whole, Qt::ElideRight, value->width()));
        value->setAccessibleName(whole);
    }
}

}  // namespace chengheng
