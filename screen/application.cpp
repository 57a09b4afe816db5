#include "screen/application.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QTranslator>

#include "screen/colours.h"
#include "screen/fonts.h"
#include "screen/host_style.h"
#include "screen/resources.h"
#include "screen/screen_texts.h"

namespace chengheng {
namespace {

QPalette hostPalette() {
    QPalette palette(QColor(0xf1, 0xef, 0xea), colours::paper);
    palette.setColor(QPalette::Window, colours::paper);
    palette.setColor(QPalette::WindowText, colours::ink);
    palette.setColor(QPalette::Text, colours::ink);
    palette.setColor(QPalette::ButtonText, colours::ink);
    palette.setColor(QPalette::Button, QColor(0xf1, 0xef, 0xea));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf6, 0xf4, 0xee));
    palette.setColor(QPalette::PlaceholderText, colours::quietInk);
    palette.setColor(QPalette::Highlight, colours::teal);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, colours::teal);
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(0xa2, 0xac, 0xad));
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xf1, 0xef, 0xea));
    return palette;
}

}  // namespace

void prepareApplication(QApplication& application) {
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    auto* translator = new QTranslator(&application);
    if (translator->load(QStringLiteral("qtbase_zh_CN"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(translator);
    }
    QApplication::setStyle(new HostStyle);
    QApplication::setPalette(hostPalette());
    QApplication::setFont(windowFont());
    QApplication::setWindowIcon(applicationIcon());
    QApplication::setApplicationDisplayName(QString());
    QApplication::setApplicationName(QStringLiteral("chengheng"));
}

}  // namespace chengheng
