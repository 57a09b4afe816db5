#include "screen/chosen_file.h"

#include <QFileDialog>

#include "screen/screen_texts.h"
#include "screen/shown.h"

namespace chengheng {

std::string chooseSheetToRead(QWidget* window, const char* title) {
    return QFileDialog::getOpenFileName(window, shown(title), {}, shown(screen_texts::sheetFilter),
                                        nullptr, QFileDialog::DontUseNativeDialog)
        .toStdString();
}

std::string chooseSheetToWrite(QWidget* window, const char* title,
                               const std::string& proposedName) {
    // A name of the books may hold what stands between folders.
    QString name = shown(proposedName);
    for (const QChar separator : {QLatin1Char('/'), QLatin1Char('\\')})
        name.replace(separator, QLatin1Char('-'));
    return QFileDialog::getSaveFileName(window, shown(title), name,
                                        shown(screen_texts::sheetFilter), nullptr,
                                        QFileDialog::DontUseNativeDialog)
        .toStdString();
}

}  // namespace chengheng
