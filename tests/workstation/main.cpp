// A workstation that does what it is told: a command a line on standard input, an answer a
// line on standard output. Tests start it to have a second, real process on the same books.

#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

#include "data/engines/open_engine.h"

namespace chengheng {
namespace {

struct Workstation {
    std::unique_ptr<Engine> engine;
    PatientWaiter waiter{std::chrono::seconds(5)};
};

Status openBooks(Workstation& station, std::istream& words) {
    std::string location;
    std::getline(words >> std::ws, location);
    Status status = openEngine(location, OpenMode::existing, station.engine);
    if (status) station.engine->locks().setWaiter(&station.waiter);
    return status;
}

Status setIdentity(Workstation& station, std::istream& words) {
    LockIdentity identity;
    words >> identity.operatorName >> identity.function;
    station.engine->locks().setIdentity(identity);
    return Status::done();
}

Status setPatience(Workstation& station, std::istream& words) {
    int milliseconds = 0;
    words >> milliseconds;
    station.waiter = PatientWaiter(std::chrono::milliseconds(milliseconds));
    return Status::done();
}

Status lockNames(Workstation& station, std::istream& words) {
    int mode = 0;
    bool isWaiting = false;
    std::string names;
    std::getline(words >> mode >> isWaiting, names);
    return station.engine->locks().lock(names, static_cast<LockMode>(mode), isWaiting);
}

Status unlockNames(Workstation& station, std::istream& words) {
    int mode = 0;
    std::string names;
    std::getline(words >> mode, names);
    station.engine->locks().unlock(names, static_cast<LockMode>(mode));
    return Status::done();
}

Status runScript(Workstation& station, std::istream& words) {
    std::string sql;
    std::getline(words, sql);
    return station.engine->script(sql);
}

using Action = std::function<Status(Workstation&, std::istream&)>;

const std::map<std::string, Action> actions{
    {"open", openBooks},
    {"identity", setIdentity},
    {"patience", setPatience},
    {"lock", lockNames},
    {"unlock", unlockNames},
    {"sql", runScript},
    {"begin", [](Workstation& station, std::istream&) { return station.engine->begin(); }},
    {"commit", [](Workstation& station, std::istream&) { return station.engine->commit(); }},
};

void answer(const Workstation& station, const Status& status) {
    const LockHolder holder = station.engine ? station.engine->locks().lastHolder() : LockHolder{};
    std::cout << static_cast<int>(status.failure) << '\t' << status.detail << '\t'
              << holder.lockName << '\t' << holder.operatorName << '\t' << holder.function << '\t'
              << holder.station << std::endl;
}

}  // namespace
}  // namespace chengheng

int main() {
    chengheng::Workstation station;
    std::string line;
    while (std::getline(std::cin, line)) {
        std::istringstream words(line);
        std::string command;
        words >> command;
        const auto action = chengheng::actions.find(command);
        if (action == chengheng::actions.end()) return 1;
        chengheng::answer(station, action->second(station, words));
    }
    return 0;
}
