#pragma once

#include <span>
#include <string>

#include "base/messages/checks.h"

namespace chengheng {

/// What is known of the books of a year and of those that are to follow.
struct NewYearFacts {
    std::string setName = {};
    std::string company = {};
    int fromYear = 0;         ///< 0: the books have no parameters
    std::string source = {};  ///< where they lie
    int year = 0;             ///< that is to be made
    std::string place = {};   ///< where
    bool isListed = true;     ///< whether the new books are to be entered in the list
    bool hasHome = true;      ///< whether there is a folder for the list
    /// Where the list has the ending year of that name, if elsewhere, and where the new one.
    std::string listedSource = {};
    std::string listedPlace = {};
    bool isPlaceFree = true;
};

/// Names of the fields, for the focus after a refusal.
namespace new_year_field {
inline constexpr const char* books = "books";
inline constexpr const char* target = "target";
}  // namespace new_year_field

/// What is asked before a new year is made.
std::span<const Check<NewYearFacts>> newYearChecks();
/// Those of them that another workstation may have changed meanwhile.
std::span<const Check<NewYearFacts>> newYearListChecks();

}  // namespace chengheng
