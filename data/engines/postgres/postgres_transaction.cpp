#include "data/engines/postgres/postgres_transaction.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace chengheng {
namespace {

std::string unitName(int depth) { return "unit" + std::to_string(depth); }
std::string savepointSql(int depth) { return "SAVEPOINT " + unitName(depth); }

Status noTransaction() { return Status::of(Failure::refused, "no transaction is open"); }

}  // namespace

Status PostgresTransaction::mayRun() const {
    if (m_isOpen && (!m_connection.isConnected() || m_generation != m_connection.generation()))
        return Status::of(Failure::lost, "the transaction was lost with its connection");
    if (!m_connection.isConnected()) return Status::of(Failure::lost, "not connected");
    return Status::done();
}

Status PostgresTransaction::mayGoOn() const {
    if (!m_isOpen) return noTransaction();
    return mayRun();
}

Status PostgresTransaction::begin(const char* control) {
    if (m_isOpen) return Status::of(Failure::refused, "a transaction is open already");
    if (m_connection.isClosedByServer()) return m_connection.lost();
    m_isOpen = true;
    m_isSent = false;
    m_generation = m_connection.generation();
    m_heldBack.assign({control});
    return Status::done();
}

Status PostgresTransaction::commit() {
    Status status = mayGoOn();
    PostgresResult result;
    if (status && m_isSent) {
        status = run("COMMIT", &result);
        if (status.failure == Failure::lost) status.failure = Failure::unconfirmed;
    }
    // What was held back can have failed before the commit was reached.
    if (!status && mayRun() && PQtransactionStatus(m_connection.handle()) != PQTRANS_IDLE) {
        if (Status undone = m_connection.run("ROLLBACK"); !undone)
            status.detail += "; " + undone.detail;
    }
    end();
    // A transaction in which a statement failed can be asked to commit; it is then undone.
    if (result && std::string_view(PQcmdStatus(result.get())) == "ROLLBACK")
        status = Status::of(Failure::refused, "the transaction had failed and was undone");
    return status;
}

Status PostgresTransaction::rollback() {
    if (!m_isOpen) return noTransaction();
    const bool isNeeded = m_isSent && mayRun();
    end();
    Status status = isNeeded ? m_connection.run("ROLLBACK") : Status::done();
    // With a lost connection the server undoes it by itself.
    return status.failure == Failure::lost ? Status::done() : status;
}

Status PostgresTransaction::savepoint(int depth) { return holdBack(savepointSql(depth)); }

Status PostgresTransaction::releaseSavepoint(int depth) {
    return holdBack("RELEASE SAVEPOINT " + unitName(depth));
}

Status PostgresTransaction::rollbackToSavepoint(int depth) {
    if (Status status = mayGoOn(); !status) return status;
    const auto held = std::find(m_heldBack.rbegin(), m_heldBack.rend(), savepointSql(depth));
    if (held != m_heldBack.rend()) {
        m_heldBack.erase(held.base(), m_heldBack.end());
        return Status::done();
    }
    if (!m_isSent) return Status::of(Failure::refused, "no such savepoint");
    // Whatever is held back came after the savepoint.
    m_heldBack.clear();
    return m_connection.run("ROLLBACK TO SAVEPOINT " + unitName(depth));
}

Status PostgresTransaction::beginPart() { return holdBack("SAVEPOINT part"); }

void PostgresTransaction::endPart(const Status& outcome) {
    if (outcome) {
        m_heldBack.emplace_back("RELEASE SAVEPOINT part");
    } else if (mayRun()) {
        // What fails here leaves the transaction as the failed statement left it.
        static_cast<void>(m_connection.run("ROLLBACK TO SAVEPOINT part; RELEASE SAVEPOINT part"));
    }
}

std::vector<std::string> PostgresTransaction::takeHeldBack() {
    m_isSent = m_isOpen;
    return std::exchange(m_heldBack, {});
}

Status PostgresTransaction::run(const std::string& sql, PostgresResult* result) {
    std::string text;
    for (const std::string& control : takeHeldBack()) text += control + "; ";
    return m_connection.run(text + sql, result);
}

Status PostgresTransaction::holdBack(std::string control) {
    if (Status status = mayGoOn(); !status) return status;
    if (PQtransactionStatus(m_connection.handle()) == PQTRANS_INERROR)
        return Status::of(Failure::refused, "a statement of the transaction has failed");
    m_heldBack.push_back(std::move(control));
    return Status::done();
}

void PostgresTransaction::end() {
    m_isOpen = false;
    m_heldBack.clear();
}

}  // namespace chengheng
