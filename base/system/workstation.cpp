#include "base/system/workstation.h"

#include <pwd.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <initializer_list>

namespace chengheng {
namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

std::string userFolder() {
    if (const std::string home = environment("HOME"); !home.empty()) return home;
    const passwd* user = getpwuid(getuid());
    return user == nullptr || user->pw_dir == nullptr ? std::string() : user->pw_dir;
}

/// The name of the program a process runs; empty when it cannot be told.
std::string programOf(const std::string& process) {
    std::ifstream file("/proc/" + process + "/comm");
    std::string name;
    std::getline(file, name);
    return name;
}

/// Whether a process lives and runs one of these programs.
bool isAliveAs(std::int32_t process, std::initializer_list<std::string> programs) {
    if (process <= 0) return false;
    if (kill(process, 0) != 0 && errno == ESRCH) return false;
    // A number is given again to other programs; one that cannot be looked at counts as ours.
    const std::string found = programOf(std::to_string(process));
    return found.empty() || std::ranges::find(programs, found) != programs.end();
}

std::tm localTime(std::time_t moment = std::time(nullptr)) {
    std::tm local{};
    localtime_r(&moment, &local);
    return local;
}

}  // namespace

std::string booksHome() {
    if (std::string own = environment("CHENGHENG_HOME"); !own.empty()) return own;
    // A relative path in the variable counts as none given.
    if (const std::string data = environment("XDG_DATA_HOME"); data.starts_with('/'))
        return data + "/chengheng";
    const std::string user = userFolder();
    return user.empty() ? std::string() : user + "/.local/share/chengheng";
}

std::string systemUserName() {
    const passwd* user = getpwuid(getuid());
    return user == nullptr ? environment("USER") : user->pw_name;
}

std::int32_t ownProcess() { return static_cast<std::int32_t>(getpid()); }

bool isOwnProgramAlive(std::int32_t process) { return isAliveAs(process, {programOf("self")}); }

bool isBooksProgramAlive(std::int32_t process) {
    return isAliveAs(process, {programOf("self"), "chengheng"});
}

bool hasBooksProgramEnded(std::string_view station, std::int32_t process) {
    return station == stationName() && !isBooksProgramAlive(process);
}

Date today() {
    const std::tm local = localTime();
    return {static_cast<std::int16_t>(local.tm_year + 1900),
            static_cast<std::uint8_t>(local.tm_mon + 1), static_cast<std::uint8_t>(local.tm_mday)};
}

ClockTime timeOfDay() {
    const std::tm local = localTime();
    return {local.tm_hour, local.tm_min, local.tm_sec};
}

std::string minuteText(double moment) {
    constexpr double latest = 253'000'000'000;  // in the year 9987
    if (!(moment > 0 && moment < latest)) return {};
    const std::tm local = localTime(static_cast<std::time_t>(moment));
    std::array<char, 32> text{};
    const std::size_t size = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local);
    return {text.data(), size};
}

}  // namespace chengheng
