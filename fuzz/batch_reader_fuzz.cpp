#include <string>
#include <vector>

#include "base/values/utf8.h"
#include "data/sql/translation.h"
#include "fuzz/fuzz_support.h"

// Any text as a batch: it is read or refused, always the same way, and what is read can be
// translated into a statement with a parameter for each value.

namespace {

using namespace chengheng;

struct Seen {
    std::string shape;
    std::vector<ValueKind> kinds;
    bool operator==(const Seen&) const = default;
};

/// How often a parameter stands in a statement, outside quotes.
int parametersIn(std::string_view sql) {
    int count = 0;
    char quote = '\0';
    for (const char letter : sql) {
        if (quote == '\0' && letter == '$') ++count;
        if (quote == '\0' && (letter == '\'' || letter == '"'))
            quote = letter;
        else if (letter == quote)
            quote = '\0';
    }
    return count;
}

void checkValues(const ReadStatement& statement) {
    std::size_t at = 0;
    for (const Value& value : statement.values) {
        require(value.kind != ValueKind::null, "a value is of a kind");
        require(isUtf8(value.text), "texts are UTF-8");
        require(value.text.find('\0') == std::string_view::npos, "texts hold no NUL");
        require(++at <= statement.shape.size(), "no more values than characters");
    }
}

void checkTranslation(const ReadStatement& statement) {
    for (const std::string_view escape : {"", " ESCAPE '\\'"}) {
        TranslatedShape translated;
        const EngineDialect dialect{escape, "", nullptr};
        const Status status = translate(statement.kind, statement.shape, dialect, translated);
        if (!status) {
            require(status.failure == Failure::unreadable, "a refused statement is unreadable");
            require(!status.detail.empty(), "a failure tells why");
            continue;
        }
        require(translated.parameters == static_cast<int>(statement.values.size()),
                "a parameter for each value");
        require(parametersIn(translated.sql) == translated.parameters, "each stands once");
        for (const int date : translated.dateParameters)
            require(date >= 0 && date < translated.parameters, "dates are among the parameters");
        std::vector<Value> values(statement.values.begin(), statement.values.end());
        std::deque<std::string> storage;
        const Status dates = normaliseDates(translated, values, storage);
        require(dates || dates.failure == Failure::unreadable, "a date that is none is unreadable");
    }
}

std::vector<Seen> readAll(std::string_view batch, Status& status) {
    std::vector<Seen> seen;
    BatchReader reader(batch);
    ReadStatement statement;
    while (reader.next(statement)) {
        checkValues(statement);
        checkTranslation(statement);
        seen.push_back({std::string(statement.shape), {}});
        for (const Value& value : statement.values) seen.back().kinds.push_back(value.kind);
    }
    status = reader.status();
    return seen;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzInput input(data, size);
    const std::string_view batch = input.text();
    Status first;
    Status second;
    const auto seen = readAll(batch, first);
    require(seen == readAll(batch, second), "reading twice gives the same");
    require(first.failure == second.failure && first.detail == second.detail,
            "failing twice gives the same");
    if (first) {
        Status third;
        auto longer = seen;
        longer.push_back({"delete a", {}});
        require(longer == readAll(std::string(batch) + "\nDELETE A", third),
                "a statement on the next line changes nothing before it");
        require(third.isDone(), "a statement on the next line is read");
    } else {
        require(first.failure == Failure::unreadable, "what is refused is unreadable");
        require(first.detail.starts_with("line "), "a failure names its place");
    }
    return 0;
}
