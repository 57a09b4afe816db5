#pragma once

#include <string>

class QWidget;

namespace chengheng {

// The spreadsheet file that an operator chooses; empty when none is.

std::string chooseSheetToRead(QWidget* window, const char* title);
std::string chooseSheetToWrite(QWidget* window, const char* title, const std::string& proposedName);

}  // namespace chengheng
