#pragma once

#include <string>
#include <vector>

#include "books/parameters/parameter_checks.h"

namespace chengheng {

/// One parameter that becomes another one, and what that touches.
struct ParameterChange {
    const char* field;  ///< as books_field names it
    const char* title;
    std::string before;
    std::string after;
    std::string effect;

    bool operator==(const ParameterChange&) const = default;
};

/// What becomes of parameters that no check refuses.
struct ParametersPlan {
    std::vector<ParameterChange> changes;
    std::string othersAtWork;  ///< who works with the former parameters for now; mostly empty

    /// The changes and what they touch, a line each and more.
    std::string text() const;
    std::string question() const;
};

ParametersPlan planOf(const WantedParameters& given);

/// Each parameter as it reads, a line each.
std::string parameterLines(const BooksParameters& parameters);

}  // namespace chengheng
