#include "books/logon/foreign_objects_text.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/values/text.h"
#include "books/logon/logon_texts.h"
#include "data/engines/open_engine.h"

namespace chengheng {

std::string nameOf(const ForeignObject& object) {
    return fmt::format("{}“{}”", object.isView ? logon_texts::view : logon_texts::trigger,
                       printableLine(object.name));
}

std::string foreignObjectsText(const std::vector<ForeignObject>& objects,
                               const std::string& location) {
    if (objects.empty()) return {};
    constexpr std::size_t mostNamed = 5;
    std::string names;
    for (std::size_t at = 0; at < std::min(objects.size(), mostNamed); ++at) {
        if (at > 0) names += logon_texts::objectSeparator;
        names += nameOf(objects[at]);
    }
    if (objects.size() > mostNamed) names += fmt::format(logon_texts::moreObjects, objects.size());
    const std::string shown = shownLocation(location);
    return isServerAddress(location) ? fmt::format(logon_texts::foreignOnServer, shown, names)
                                     : fmt::format(logon_texts::foreignInFile, shown, names);
}

}  // namespace chengheng
