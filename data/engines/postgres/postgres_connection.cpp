#include "data/engines/postgres/postgres_connection.h"

#include <algorithm>
#include <charconv>
#include <chrono>

#include "data/engines/postgres/socket_wait.h"

namespace chengheng {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int oldestServer = 130000;

struct StateMeaning {
    std::string_view sqlState;
    Failure failure;
};

constexpr StateMeaning stateMeanings[] = {
    {"53100", Failure::full},          // disk full
    {"25006", Failure::readOnly},      // read-only transaction
    {"42501", Failure::notPermitted},  // insufficient privilege
    {"XX001", Failure::damaged},       // data corrupted
    {"XX002", Failure::damaged},       // index corrupted
    {"3D000", Failure::missing},       // no such database
    {"3F000", Failure::missing},       // no such schema
    {"22003", Failure::notStorable},   // numeric value out of range
    {"23514", Failure::notStorable},   // check violation
    {"55P03", Failure::busy},          // lock not available
    {"40001", Failure::busy},          // serialization failure
    {"40P01", Failure::crossedWait},   // deadlock detected
    {"28P01", Failure::passwordNeeded},
    {"57P01", Failure::lost},  // administrator ended the session
    {"57P02", Failure::lost},  // another session crashed the server
    {"57P03", Failure::lost},  // the server is shutting down
    {"57P05", Failure::lost},  // idle session ended
    {"25P03", Failure::lost},  // idle transaction ended
};

Failure meaningOf(std::string_view sqlState) {
    const auto* found = std::ranges::find(stateMeanings, sqlState, &StateMeaning::sqlState);
    return found == std::end(stateMeanings) ? Failure::refused : found->failure;
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.remove_suffix(1);
    return text;
}

std::string messageOf(const PGconn* connection) {
    return std::string(trimmed(PQerrorMessage(connection)));
}

/// The verbose message of a refused log-on, "...:  3D000: database ... does not exist" and a
/// line that names a place in the server's source, read into its parts.
Status logOnFailure(const PGconn* connection) {
    const std::string message = messageOf(connection);
    constexpr std::string_view mark = ":  ";
    constexpr std::size_t stateLength = 5;
    std::size_t at = message.find(mark);
    for (; at != std::string::npos; at = message.find(mark, at + 1)) {
        const std::size_t after = at + mark.size() + stateLength;
        if (after + 1 < message.size() && message[after] == ':' && message[after + 1] == ' ') break;
    }
    if (at == std::string::npos)
        return Status::of(PQconnectionNeedsPassword(connection) != 0 ? Failure::passwordNeeded
                                                                     : Failure::unreachable,
                          message);
    const std::string_view state = std::string_view(message).substr(at + mark.size(), stateLength);
    std::string_view text = std::string_view(message).substr(at + mark.size() + stateLength + 2);
    text = text.substr(0, text.find('\n'));
    const Failure meaning = meaningOf(state);
    const bool tellsMore = meaning == Failure::missing || meaning == Failure::damaged ||
                           meaning == Failure::passwordNeeded;
    return Status::of(tellsMore ? meaning : Failure::unreachable, std::string(text));
}

std::chrono::seconds connectLimit(PGconn* connection) {
    int seconds = 0;
    const std::unique_ptr<PQconninfoOption, void (*)(PQconninfoOption*)> options(
        PQconninfo(connection), PQconninfoFree);
    for (const PQconninfoOption* option = options.get(); option && option->keyword; ++option) {
        const std::string_view value = option->val ? option->val : "";
        if (std::string_view(option->keyword) == "connect_timeout")
            std::from_chars(value.data(), value.data() + value.size(), seconds);
    }
    constexpr int shortest = 2;
    return std::chrono::seconds(std::max(seconds, shortest));
}

void ignoreNotice(void*, const PGresult*) {}

}  // namespace

Status PostgresConnection::connect() {
    drop();
    Status status = logOn();
    if (status) status = setUpSession();
    if (!status) {
        drop();
        return status;
    }
    ++m_generation;
    return status;
}

Status PostgresConnection::logOn() {
    // What stands before the address can be changed by it, what stands behind it cannot.
    const char* const keywords[] = {"connect_timeout",  "application_name",    "keepalives_idle",
                                    "tcp_user_timeout", "keepalives_interval", "keepalives_count",
                                    "dbname",           "client_encoding",     nullptr};
    const char* const values[] = {
        "5",    "chengheng", "30", "30000", "10", "3", m_address.serverAddress.c_str(),
        "UTF8", nullptr};
    m_handle.reset(PQconnectStartParams(keywords, values, 1));
    PGconn* connection = handle();
    if (connection == nullptr) return Status::of(Failure::unreachable, "out of memory");
    if (PQstatus(connection) == CONNECTION_BAD) return logOnFailure(connection);
    // A refused log-on has no result that could be asked for its state.
    PQsetErrorVerbosity(connection, PQERRORS_VERBOSE);
    PQsetNoticeReceiver(connection, ignoreNotice, nullptr);
    const auto deadline = Clock::now() + connectLimit(connection);
    PostgresPollingStatusType step = PGRES_POLLING_WRITING;
    while (step != PGRES_POLLING_OK) {
        if (step == PGRES_POLLING_FAILED) return logOnFailure(connection);
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        const auto use = step == PGRES_POLLING_READING ? SocketUse::reading : SocketUse::writing;
        if (left.count() <= 0 || !waitForSocket(PQsocket(connection), use, left))
            return Status::of(Failure::unreachable, "the server does not answer");
        step = PQconnectPoll(connection);
    }
    PQsetErrorVerbosity(connection, PQERRORS_DEFAULT);
    return Status::done();
}

Status PostgresConnection::setUpSession() {
    if (PQserverVersion(handle()) < oldestServer)
        return Status::of(Failure::refused, "PostgreSQL 13 or newer is needed");
    // The compiler of long queries (jit) starts up slower than our selects run. A row that
    // another workstation keeps locked must not freeze the program for good.
    PostgresResult result;
    const Status status = run("SET search_path TO " + quotedIdentifier(m_address.schema) +
                                  "; SET standard_conforming_strings TO on"
                                  "; SET DateStyle TO ISO"
                                  "; SET extra_float_digits TO 1"
                                  "; SET jit TO off"
                                  "; SET lock_timeout TO '20s'"
                                  "; SHOW transaction_read_only",
                              &result);
    m_isReadOnly = status && std::string_view(PQgetvalue(result.get(), 0, 0)) == "on";
    if (status.failure == Failure::lost) return Status::of(Failure::unreachable, status.detail);
    return status;
}

void PostgresConnection::leave() {
    // A server that does not answer keeps nobody from closing.
    constexpr auto patience = std::chrono::seconds(1);
    if (isConnected()) static_cast<void>(giveUpAll(Clock::now() + patience));
    drop();
}

bool PostgresConnection::giveUpAll(Clock::time_point deadline) const {
    const bool isIdle = PQtransactionStatus(handle()) == PQTRANS_IDLE;
    const std::string sql =
        std::string(isIdle ? "" : "ROLLBACK; ") + "SELECT pg_advisory_unlock_all()";
    if (PQsendQuery(handle(), sql.c_str()) == 0) return false;
    while (true) {
        while (PQisBusy(handle()) != 0) {
            const auto left =
                std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
            if (left.count() <= 0 || !waitForSocket(PQsocket(handle()), SocketUse::reading, left) ||
                PQconsumeInput(handle()) == 0)
                return false;
        }
        if (PostgresResult(PQgetResult(handle())) == nullptr) return true;
    }
}

bool PostgresConnection::isClosedByServer() const {
    if (!isConnected()) return true;
    while (waitForSocket(PQsocket(handle()), SocketUse::reading, std::chrono::milliseconds(0))) {
        if (PQconsumeInput(handle()) == 0 || PQstatus(handle()) == CONNECTION_BAD) return true;
    }
    return false;
}

Status PostgresConnection::run(const std::string& sql, PostgresResult* result) {
    if (!isConnected()) return Status::of(Failure::lost, "not connected");
    PostgresResult answer(PQexec(handle(), sql.c_str()));
    switch (PQresultStatus(answer.get())) {
        case PGRES_COMMAND_OK:
        case PGRES_TUPLES_OK:
        case PGRES_EMPTY_QUERY:
            break;
        default:
            return failureOf(answer.get());
    }
    if (result != nullptr) *result = std::move(answer);
    return Status::done();
}

Status PostgresConnection::failureOf(const PGresult* result) {
    if (result == nullptr) return lost();
    const char* state = PQresultErrorField(result, PG_DIAG_SQLSTATE);
    const char* text = PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
    Status status =
        Status::of(state ? meaningOf(state) : Failure::refused,
                   text ? std::string(text) : std::string(trimmed(PQresultErrorMessage(result))));
    if (PQstatus(handle()) == CONNECTION_BAD) status.failure = Failure::lost;
    if (status.failure == Failure::lost) drop();
    return status;
}

Status PostgresConnection::lost() {
    Status status = Status::of(Failure::lost, "not connected");
    if (isConnected()) status.detail = messageOf(handle());
    drop();
    return status;
}

}  // namespace chengheng
