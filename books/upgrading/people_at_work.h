#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/engine/engine.h"

namespace chengheng {

/// Somebody who works with a set of books.
struct PersonAtWork {
    std::string name;
    std::string station;
    std::int64_t process = 0;  ///< of the program there
};

/// Those who are listed as logged on, without those of this workstation whose program has ended.
Status listPeopleAtWork(Engine& books, std::vector<PersonAtWork>& people);

/// The same without whoever works with this program.
Status listOthersAtWork(Engine& books, std::vector<PersonAtWork>& people);

/// "王芳(PC1)、李明(PC2)"; some program, when nobody is known.
std::string namesOf(const std::vector<PersonAtWork>& people);

}  // namespace chengheng
