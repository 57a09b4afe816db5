#include "books/logon/launch_options.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <string_view>

#include "base/system/program_version.h"
#include "books/logon/logon_texts.h"

namespace chengheng {
namespace {

constexpr std::array<std::string_view, 2> launchArguments{"-ERPCONSOLE", "-ERPSINGLE"};

char upperAscii(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

bool isLaunchArgument(const std::string& argument) {
    return std::ranges::any_of(launchArguments, [&](std::string_view known) {
        return std::ranges::equal(argument, known, {}, upperAscii);
    });
}

LaunchReading ended(ProgramExit exit, std::string text) { return {{}, exit, std::move(text)}; }

LaunchReading refused(std::string_view fault) {
    return ended(ProgramExit::wrongUsage, fmt::format(logon_texts::seeHelp, fault));
}

/// The option out of "--books: 1 required TEXT missing".
std::string optionNamedBy(const CLI::ParseError& error) {
    const std::string message = error.what();
    return message.substr(0, message.find(':'));
}

/// Takes the arguments with one dash and many letters out: the parser of the others would
/// read them as a row of short options.
std::vector<std::string> takeLaunchArguments(std::vector<std::string>& arguments) {
    const auto rest = std::ranges::stable_partition(
        arguments, [](const std::string& argument) { return !isLaunchArgument(argument); });
    std::vector<std::string> taken(rest.begin(), rest.end());
    arguments.erase(rest.begin(), rest.end());
    return taken;
}

}  // namespace

LaunchReading readLaunchOptions(std::vector<std::string> arguments) {
    LaunchReading reading;
    LaunchOptions& options = reading.options;
    const std::vector<std::string> launch = takeLaunchArguments(arguments);
    if (launch.size() > 1) return refused(logon_texts::argumentTwice);
    if (!launch.empty()) options.launchArgument = launch.front();

    std::string date;
    CLI::App app;
    app.set_help_flag("-h,--help");
    app.set_version_flag("--version", programVersion());
    app.add_option("--books", options.books);
    app.add_option("--operator", options.operatorName);
    app.add_option("--password-file", options.passwordFile);
    app.add_option("--date", date);
    std::ranges::reverse(arguments);  // the parser takes them from the back
    try {
        app.parse(arguments);
    } catch (const CLI::CallForHelp&) {
        return ended(ProgramExit::done, logon_texts::help);
    } catch (const CLI::CallForVersion&) {
        return ended(ProgramExit::done, fmt::format(logon_texts::version, programVersion()));
    } catch (const CLI::ExtrasError&) {
        return refused(fmt::format(logon_texts::unknownArgument, fmt::join(app.remaining(), " ")));
    } catch (const CLI::ParseError& error) {
        return refused(fmt::format(logon_texts::valueMissing, optionNamedBy(error)));
    }
    if (date.empty()) return reading;
    options.date = parseDate(date);
    if (!options.date) return refused(fmt::format(logon_texts::dateMalformed, date));
    return reading;
}

}  // namespace chengheng
