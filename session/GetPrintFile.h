#pragma once

#include <string>

/// The path of a layout file such as "Normal.rpn": the user's own in the folder "print" of the
/// home of the books, else the one that came with the program. A name that no folder holds
/// gives the place where the program's own should be, so that a message can name it.
std::string GetPrintFile(const char* fileName);
