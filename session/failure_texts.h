#pragma once

#include <string>
#include <string_view>

#include "base/messages/refusal.h"
#include "base/values/status.h"

namespace chengheng {

/// What was being worked on when something failed.
enum class FailureSubject { books, registry, passwordFile };

/// What the operator is told about a failure: which file or server, what is the matter with
/// it, and what to do. The location may carry a password; the text does not.
std::string failureText(const Status& status, std::string_view location,
                        FailureSubject subject = FailureSubject::books);

/// The same as a refusal, of its own kind where a server's password is missing.
Refusal failureRefusalOf(const Status& status, std::string_view location, const char* field = "");

}  // namespace chengheng
