#include "tool/password_input.h"

#include "books/logon/password_file.h"
#include "books/making/new_books.h"
#include "session/failure_texts.h"
#include "tool/parameters_texts.h"
#include "tool/terminal.h"
#include "tool/tool_texts.h"

namespace chengheng {
namespace {

std::optional<Refusal> readFromFile(const std::string& file, std::string& password) {
    const Status status = readPasswordFile(file, password);
    if (status) return std::nullopt;
    return failureRefusal(failureText(status, file, FailureSubject::passwordFile));
}

}  // namespace

std::optional<Refusal> readNewPassword(const std::string& file, std::string& password) {
    if (!file.empty()) return readFromFile(file, password);
    std::string again;
    Status status = askSecret(tool_texts::passwordPrompt, password);
    if (status) status = askSecret(tool_texts::passwordAgainPrompt, again);
    if (status.failure == Failure::missing)
        return inputRefusal(tool_texts::passwordNowhere, books_field::password);
    if (!status) return inputRefusal(tool_texts::passwordNotTyped, books_field::password);
    if (password != again) return inputRefusal(tool_texts::passwordsDiffer, books_field::password);
    return std::nullopt;
}

}  // namespace chengheng
