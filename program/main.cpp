#include <string>
#include <vector>

#include "data/engines/open_engine.h"
#include "setting/window/CNbCwSettingDlg.h"
#include "shell/program.h"

int main(int count, char** arguments) {
    const std::vector<std::string> given(arguments + 1, arguments + count);
    for (int at = 1; at < count; ++at) chengheng::hideServerPassword(arguments[at]);
    return chengheng::startProgram(given, [] { CNbCwSettingDlg(nullptr).DoModal(); });
}
