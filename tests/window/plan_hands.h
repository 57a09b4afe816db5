#pragma once

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <stdexcept>
#include <string>

#include "screen/grid/CVCF1.h"

namespace chengheng {

// What an operator does in a file chooser and in a window that shows what would be written.

inline void giveFile(QWidget& chooser, const std::string& path) {
    auto* dialog = qobject_cast<QFileDialog*>(&chooser);
    ASSERT_NE(dialog, nullptr);
    dialog->findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path));
    QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
}

inline QPushButton& buttonOf(QWidget& window, const QString& text) {
    for (auto* candidate : window.findChildren<QPushButton*>())
        if (candidate->text() == text) return *candidate;
    throw std::runtime_error("no such button");
}

inline void pressButton(QWidget& window, const QString& text) {
    QTest::mouseClick(&buttonOf(window, text), Qt::LeftButton);
}

inline std::string planCell(QWidget& plan, int row, int column) {
    auto* model = plan.findChild<CVCF1*>()->model();
    return model->index(row, column).data().toString().toStdString();
}

inline bool hasLabelText(QWidget& plan, const QString& text) {
    for (const auto* label : plan.findChildren<QLabel*>())
        if (label->text() == text) return true;
    return false;
}

}  // namespace chengheng
