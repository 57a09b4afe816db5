#pragma once

#include <libpq-fe.h>

#include <charconv>
#include <functional>
#include <initializer_list>
#include <string>

namespace bench {

/// A number as text, in a buffer of its own.
struct NumberText {
    char text[32];

    template <class Number>
    const char* operator()(Number number) {
        *std::to_chars(text, text + sizeof text - 1, number).ptr = '\0';
        return text;
    }
};

/// The address of a server with the schema that the books are in.
std::string withSchema(const std::string& address, const std::string& schema);

/// A connection to a PostgreSQL server, for the floor. What fails ends the program.
class RawServer {
  public:
    /// A schema of that name that is there already goes.
    RawServer(const std::string& address, const std::string& schema);
    ~RawServer() { PQfinish(m_server); }
    RawServer(const RawServer&) = delete;
    RawServer& operator=(const RawServer&) = delete;

    void run(const std::string& sql);
    void prepare(const char* name, const char* sql);
    /// Runs a prepared statement and waits for it.
    void execute(const char* name, std::initializer_list<const char*> values);
    /// Sends what `sending` sends without waiting, then takes all results.
    void pipeline(const std::function<void()>& sending);
    /// In a pipeline.
    void send(const char* name, std::initializer_list<const char*> values);
    void query(const char* sql, const std::function<void(const PGresult* rows, int row)>& take);

  private:
    void takeResults();

    PGconn* m_server;
};

}  // namespace bench
