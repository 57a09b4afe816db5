#pragma once

#include <optional>
#include <span>
#include <type_traits>

#include "base/messages/refusal.h"

namespace chengheng {

/// One of an ordered list of checks over facts: why it refuses, or nothing. An array of them is
/// the order in which they are told, which a test compares by the names.
template <class Facts>
struct Check {
    const char* name;
    std::optional<Refusal> (*refusal)(const Facts& facts);
};

/// Why the first check that refuses does so; those behind it are not asked. Nothing when none
/// refuses.
template <class Facts>
std::optional<Refusal> firstRefusal(std::span<const Check<Facts>> checks,
                                    const std::type_identity_t<Facts>& facts) {
    for (const Check<Facts>& check : checks)
        if (std::optional<Refusal> refusal = check.refusal(facts)) return refusal;
    return std::nullopt;
}

}  // namespace chengheng
