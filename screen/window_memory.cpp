#include "screen/window_memory.h"

#include <QSettings>
#include <QWidget>

#include "session/host_globals.h"

namespace chengheng {
namespace {

QString& keptFile() {
    static QString file;
    return file;
}

QString ofOperator(const QString& key) {
    const bool isLoggedOn = g_lpLogonUserInfo != nullptr;
    const QString name =
        isLoggedOn ? QString::fromStdString(g_lpLogonUserInfo->sUserName) : QString();
    return partOfKey(name) + QLatin1Char('/') + key;
}

}  // namespace

WindowMemory::WindowMemory(const QString& file) { keptFile() = file; }

WindowMemory::~WindowMemory() { keptFile().clear(); }

QVariant rememberedOfWindows(const QString& key) {
    if (keptFile().isEmpty()) return {};
    return QSettings(keptFile(), QSettings::IniFormat).value(ofOperator(key));
}

void rememberOfWindows(const QString& key, const QVariant& value) {
    if (keptFile().isEmpty()) return;
    QSettings(keptFile(), QSettings::IniFormat).setValue(ofOperator(key), value);
}

void forgetOfWindows(const QString& key) {
    if (keptFile().isEmpty()) return;
    QSettings(keptFile(), QSettings::IniFormat).remove(ofOperator(key));
}

QString partOfKey(const QString& text) {
    QString part = text;
    for (const char reserved : {'/', '\\', '\n', ' '})
        part.replace(QLatin1Char(reserved), QLatin1Char('_'));
    // An empty part would name the group above it.
    return part.isEmpty() ? QStringLiteral("_") : part;
}

QString keyOfWindow(const QWidget& widget) {
    QString name = QString::fromLatin1(widget.window()->metaObject()->className());
    return name.replace(QLatin1Char(':'), QLatin1Char('_'));
}

}  // namespace chengheng
