#include "books/upgrading/people_at_work.h"

#include <fmt/format.h>

#include "base/system/workstation.h"
#include "base/values/text.h"
#include "books/upgrading/upgrade_sql.h"
#include "books/upgrading/upgrade_texts.h"
#include "data/transfer/stored_tables.h"

namespace chengheng {

Status listPeopleAtWork(Engine& books, std::vector<PersonAtWork>& people) {
    return forEachRow(books, upgrade_sql::loggedOn, {}, [&people](const Cursor& row) {
        const std::string station(row.text(1));
        if (!hasBooksProgramEnded(station, static_cast<std::int32_t>(row.integer(2))))
            people.push_back({std::string(row.text(0)), station, row.integer(2)});
        return Status::done();
    });
}

Status listOthersAtWork(Engine& books, std::vector<PersonAtWork>& people) {
    const Status status = listPeopleAtWork(books, people);
    std::erase_if(people, [](const PersonAtWork& person) {
        return person.station == stationName() && person.process == ownProcess();
    });
    return status;
}

std::string namesOf(const std::vector<PersonAtWork>& people) {
    std::string names;
    for (const PersonAtWork& person : people) {
        if (!names.empty()) names += upgrade_texts::between;
        names += person.station.empty()
                     ? printableLine(person.name)
                     : fmt::format(upgrade_texts::person, printableLine(person.name),
                                   printableLine(person.station));
    }
    return names.empty() ? upgrade_texts::someProgram : names;
}

}  // namespace chengheng
