#include "books/copying/books_source.h"

#include <fmt/format.h>

#include <filesystem>

#include "books/copying/transfer_texts.h"
#include "data/layout/layout.h"
#include "session/failure_texts.h"

namespace chengheng {
namespace {

std::optional<Refusal> verified(Engine& engine, const std::string& location) {
    std::vector<std::string> faults;
    if (Status status = engine.verify(faults); !status) return failureRefusalOf(status, location);
    if (faults.empty()) return std::nullopt;
    return failureRefusal(
        fmt::format(transfer_texts::sourceDamaged, shownLocation(location), faults.front()));
}

Status openToRead(const BooksOpener& opener, const std::string& location,
                  std::unique_ptr<Engine>& engine, int* layout = nullptr) {
    const Status status = opener(location, OpenMode::readable, engine);
    return status ? checkReadable(*engine, layout) : status;
}

}  // namespace

BooksOpener plainOpener() {
    return [](const std::string& location, OpenMode mode, std::unique_ptr<Engine>& engine) {
        return openEngine(location, mode, engine);
    };
}

bool isSameLocation(const std::string& one, const std::string& other) {
    if (one == other) return true;
    if (isServerAddress(one) || isServerAddress(other)) return false;
    std::error_code unseen;
    return std::filesystem::equivalent(one, other, unseen);
}

BooksSource::~BooksSource() {
    // Nothing was written; a connection that is gone has ended the transaction itself.
    if (m_isReading) static_cast<void>(m_engine->rollback().isDone());
}

std::optional<Refusal> BooksSource::open(const TableChoice& choice) {
    Status status = openToRead(m_open, m_location, m_engine, &m_layout);
    if (!status) return failureRefusalOf(status, m_location);
    if (std::optional<Refusal> refusal = verified(*m_engine, m_location)) return refusal;
    status = m_engine->beginReading();
    m_isReading = status.isDone();
    if (status) status = digestContent(*m_engine, m_layout, m_digests, choice);
    if (status) status = foreignObjects(*m_engine, m_objects);
    if (!status) return failureRefusalOf(status, m_location);
    return std::nullopt;
}

std::optional<Refusal> digestFinished(const std::string& path, const std::string& shown,
                                      std::vector<TableDigest>& digests,
                                      const BooksOpener& opener) {
    std::unique_ptr<Engine> copy;
    Status status = openToRead(opener, path, copy);
    if (!status) return failureRefusalOf(status, shown);
    if (std::optional<Refusal> refusal = verified(*copy, shown)) return refusal;
    status = digestContent(*copy, digests);
    return status ? std::optional<Refusal>() : failureRefusalOf(status, shown);
}

bool isEmptySchema(Engine& engine, const std::string& address) {
    std::unique_ptr<Engine> created;
    bool hasBooks = true;
    const Status status = engine.hasTable("BooksFormat", hasBooks);
    return status && !hasBooks && isServerAddress(address) &&
           openEngine(address, OpenMode::create, created).isDone();
}

}  // namespace chengheng
