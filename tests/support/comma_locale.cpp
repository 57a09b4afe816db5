#include "tests/support/comma_locale.h"

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "tests/support/engine_cases.h"
#include "tests/support/run_program.h"

namespace chengheng {
namespace {

/// Makes the locale in a folder of its own: which ones the machine has does not matter.
std::string madeLocales() {
    std::string folder = freshFolder();
    std::ofstream(folder + "/source") << "LC_NUMERIC\n"
                                         "decimal_point \"<U002C>\"\n"
                                         "thousands_sep \"<U002E>\"\n"
                                         "grouping 3;3\n"
                                         "END LC_NUMERIC\n";
    // It has no other category, which is told by a warning and the exit code.
    runProgram({"/usr/bin/env", "localedef", "--force", "--quiet",
                "--inputfile=" + folder + "/source", folder + "/comma"});
    return folder;
}

}  // namespace

CommaLocale::CommaLocale() : m_before(std::setlocale(LC_NUMERIC, nullptr)) {
    static const std::string folder = madeLocales();
    setenv("LOCPATH", folder.c_str(), 1);
    const bool isSet = std::setlocale(LC_NUMERIC, "comma") != nullptr;
    unsetenv("LOCPATH");
    if (!isSet) throw std::runtime_error("localedef made no locale with a comma");
}

CommaLocale::~CommaLocale() { std::setlocale(LC_NUMERIC, m_before.c_str()); }

}  // namespace chengheng
