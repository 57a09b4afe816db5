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
    return QFileDialog::getSaveFileName(window, shown(title), shown(proposedName),
                                        shown(screen_texts::sheetFilter), nullptr,
                                        QFileDialog::DontUseNativeDialog)
        .toStdString();
}

}  // namespace chengheng
