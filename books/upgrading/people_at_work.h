#pragma once

#include <string>
#include <vector>

#include "data/engine/engine.h"

namespace chengheng {

/// Somebody who works with a set of books.
struct PersonAtWork {
    std::string name;
    std::string station;
};

/// Those who are listed as logged on, without those of this workstation whose program has ended.
Status listPeopleAtWork(Engine& books, std::vector<PersonAtWork>& people);

/// "王芳(PC1)、李明(PC2)"; some program, when nobody is known.
std::string namesOf(const std::vector<PersonAtWork>& people);

}  // namespace chengheng
