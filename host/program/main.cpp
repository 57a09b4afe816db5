#include <string>
#include <vector>

#include "host/shell/program.h"
#include "setting/window/CNbCwSettingDlg.h"

int main(int count, char** arguments) {
    const std::vector<std::string> given(arguments + 1, arguments + count);
    return chengheng::startProgram(given, [] { CNbCwSettingDlg(nullptr).DoModal(); });
}
