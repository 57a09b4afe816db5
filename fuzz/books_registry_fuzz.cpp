// Reads any bytes as the list of the sets of books: what is read is written and read back the
// same, and a list that cannot be read stays as it is.

#include "books/list/books_registry.h"

#include "base/values/utf8.h"
#include "fuzz/fuzz_support.h"

using namespace chengheng;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzFolder folder;
    const FuzzInput input(data, size);
    const BooksRegistry registry(folder.path());
    folder.put("books.json", input.text());
    std::vector<BooksSet> sets;
    const Status status = registry.read(sets);
    if (!status) {
        require(sets.empty(), "a failure gives no sets");
        require(status.failure == Failure::damaged || status.failure == Failure::newerVersion,
                "a list is damaged or newer");
        return 0;
    }
    for (std::size_t at = 1; at < sets.size(); ++at)
        require(sets[at - 1].id <= sets[at].id, "sets stand in the order of their ids");
    for (const BooksSet& set : sets) require(isUtf8(set.name), "names are UTF-8");
    RegistryChange change(registry);
    require(change.save().isDone(), "what was read can be written");
    std::vector<BooksSet> again;
    require(registry.read(again).isDone() && again == sets, "it reads back the same");
    return 0;
}
