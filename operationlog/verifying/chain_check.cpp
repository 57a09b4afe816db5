#include "operationlog/verifying/chain_check.h"

#include "data/transfer/stored_tables.h"
#include "operationlog/verifying/log_walk.h"
#include "operationlog/verifying/verifying_sql.h"

namespace chengheng {
namespace {

class ChainCheck final : public LogReceiver {
  public:
    ChainCheck(std::int64_t sealed, ChainFindings& findings)
        : m_sealed(sealed), m_findings(findings) {}

    Status begin(const LogEntry& entry) override {
        if (m_suspect && !isEnough()) judgeSuspect(entry);
        if (isEnough()) return Status::done();
        m_parts = {};
        m_partCount = 0;
        m_rowCount = 0;
        m_areNumbersRight = true;
        if (entry.number < m_expected)
            fault(Tampering::putIn, entry.number);
        else if (entry.number > m_expected)
            fault(Tampering::takenOut, m_expected, entry.number - 1);
        else if (entryHash(m_before, entry) != entry.hash)
            doubt(entry);
        return Status::done();
    }

    Status take(const LogEntry&, const LogPart& part) override {
        ++m_partCount;
        m_rowCount += part.rows;
        m_areNumbersRight = m_areNumbersRight && part.number == m_partCount;
        addPart(m_parts, part);
        return Status::done();
    }

    Status end(const LogEntry& entry) override {
        if (isEnough()) return Status::done();
        const bool arePartsRight = m_partCount == entry.parts && m_rowCount == entry.rows &&
                                   m_areNumbersRight && m_parts.text() == entry.partsHash;
        // What is said of the parts may have been changed itself.
        if (!arePartsRight && !m_suspect) fault(Tampering::partsChanged, entry.number);
        if (entry.number == m_sealed) {
            m_findings.sealedHash = entry.hash;
            m_findings.sealedTime = entry.time;
        }
        ++m_findings.entries;
        m_findings.end = {.number = entry.number, .time = entry.time, .hash = entry.hash};
        m_beforeThat = m_before;
        m_before = entry.hash;
        ++m_expected;
        return Status::done();
    }

    bool isEnough() const override { return m_findings.fault.has_value(); }

    /// What the note of the end adds.
    void endWith(const std::optional<LogEnd>& head) {
        if (m_suspect && !isEnough())
            fault(head && head->hash == m_before ? Tampering::changed : Tampering::exchanged,
                  *m_suspect);
        if (isEnough()) return;
        const std::int64_t last = m_expected - 1;
        if (!head) {
            if (last > 0) fault(Tampering::headGone, 0);
        } else if (head->number > last) {
            fault(Tampering::takenOut, m_expected, head->number);
        } else if (head->number < last && head->number >= 0) {
            fault(Tampering::putIn, head->number + 1, last);
        } else if (head->hash != m_before || head->number < 0) {
            fault(Tampering::headChanged, 0);
        }
    }

  private:
    void fault(Tampering kind, std::int64_t first, std::int64_t last = 0) {
        m_findings.fault = {.kind = kind, .first = first, .last = last == 0 ? first : last};
    }

    /// Whether it was changed where it is, the next entry tells, unless the last one is the one
    /// that does not belong.
    void doubt(const LogEntry& entry) {
        const bool followsOneBefore =
            m_expected > 1 && entryHash(m_beforeThat, entry) == entry.hash;
        if (followsOneBefore)
            fault(Tampering::putIn, entry.number - 1);
        else
            m_suspect = entry.number;
    }

    void judgeSuspect(const LogEntry& next) {
        if (entryHash(m_before, next) == next.hash)
            fault(Tampering::changed, *m_suspect);
        else if (entryHash(m_beforeThat, next) == next.hash)
            fault(Tampering::putIn, *m_suspect);
        else
            fault(Tampering::exchanged, *m_suspect);
    }

    std::int64_t m_sealed;
    ChainFindings& m_findings;
    std::int64_t m_expected = 1;
    std::string m_before{noHashBefore};
    std::string m_beforeThat{noHashBefore};
    std::optional<std::int64_t> m_suspect;
    ChainHash m_parts;
    std::int64_t m_partCount = 0;
    std::int64_t m_rowCount = 0;
    bool m_areNumbersRight = true;
};

}  // namespace

Status readLogHead(Engine& engine, std::optional<LogEnd>& head) {
    head.reset();
    return forEachRow(engine, verifying_sql::head, {}, [&head](const Cursor& row) {
        if (!head) head = {.number = row.integer(0), .time = {}, .hash = std::string(row.text(1))};
        return Status::done();
    });
}

Status checkChain(Engine& engine, std::int64_t sealed, ChainFindings& findings) {
    findings = {};
    ChainCheck check(sealed, findings);
    std::optional<LogEnd> head;
    Status status = readLogHead(engine, head);
    if (status) status = walkLog(engine, LogOrder::oldestFirst, check);
    if (status) check.endWith(head);
    return status;
}

Status countStrayParts(Engine& engine, std::int64_t& count) {
    return forEachRow(engine, verifying_sql::strayParts, {}, [&count](const Cursor& row) {
        count = row.integer(0);
        return Status::done();
    });
}

}  // namespace chengheng
