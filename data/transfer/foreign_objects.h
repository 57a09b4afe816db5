#pragma once

#include <string>
#include <vector>

#include "data/engine/engine.h"

namespace chengheng {

/// What else than tables a database holds that is not ours to have there.
struct ForeignObject {
    bool isView = false;  ///< else a trigger
    std::string name;
};

/// The triggers and views of a database: a set of books has none.
Status foreignObjects(Engine& engine, std::vector<ForeignObject>& objects);

}  // namespace chengheng
