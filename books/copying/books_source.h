#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/messages/refusal.h"
#include "data/engines/open_engine.h"
#include "data/transfer/content_digest.h"
#include "data/transfer/foreign_objects.h"

namespace chengheng {

/// How databases are opened; openEngine does it.
using BooksOpener = std::function<Status(const std::string& location, OpenMode mode,
                                         std::unique_ptr<Engine>& engine)>;
BooksOpener plainOpener();

/// Whether two locations lead to the same books, by whatever spelling or link.
bool isSameLocation(const std::string& one, const std::string& other);

/// A set of books that is read as it stands at one moment, whoever goes on working with it.
class BooksSource {
  public:
    explicit BooksSource(std::string location, BooksOpener opener = plainOpener())
        : m_location(std::move(location)), m_open(std::move(opener)) {}
    ~BooksSource();
    BooksSource(const BooksSource&) = delete;
    BooksSource& operator=(const BooksSource&) = delete;

    /// Opens books that are sound, of this layout or an older one, and takes the digests of the
    /// chosen tables.
    std::optional<Refusal> open(const TableChoice& choice = {});

    const std::string& location() const { return m_location; }
    Engine& engine() { return *m_engine; }
    const std::vector<TableDigest>& digests() const { return m_digests; }
    /// The number of its layout.
    int layout() const { return m_layout; }
    /// What a copy leaves out.
    const std::vector<ForeignObject>& objects() const { return m_objects; }

  private:
    std::string m_location;
    BooksOpener m_open;
    std::unique_ptr<Engine> m_engine;
    int m_layout = 0;
    std::vector<TableDigest> m_digests;
    std::vector<ForeignObject> m_objects;
    bool m_isReading = false;
};

/// Opens books that were just written at a path, as anybody will, and takes their digests. What is
/// said of them names `shown`.
std::optional<Refusal> digestFinished(const std::string& path, const std::string& shown,
                                      std::vector<TableDigest>& digests,
                                      const BooksOpener& opener = plainOpener());

/// Whether an open database is a schema of a server in which nothing lies yet.
bool isEmptySchema(Engine& engine, const std::string& address);

}  // namespace chengheng
