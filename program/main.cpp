#include <string>
#include <vector>

#include "setting/window/CNbCwSettingDlg.h"
#include "shell/program.h"

int main(int count, char** arguments) {
    const std::vector<std::string> given(arguments + 1, arguments + count);
    return chengheng::startProgram(given, [] { CNbCwSettingDlg(nullptr).DoModal(); });
}
