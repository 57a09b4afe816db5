#include "tests/support/statement_forms.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "data/access/CNbCwDB.h"
#include "data/access/record_table.h"
#include "data/access/row_lease.h"
#include "data/tables/directories.h"
#include "tests/support/engine_cases.h"
#include "tests/support/small_books.h"

namespace {

using chengheng::EngineCase;
using chengheng::Failure;
using chengheng::formatSql;
using chengheng::FormKind;
using chengheng::StatementForm;

/// Small books with the item table of one project class, on each engine.
class StatementFormsOnEngines : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        const std::string location = chengheng::freshLocation(GetParam());
        chengheng::fillSmallBooks(*chengheng::openForTest(location));
        NbCwDBInfo info;
        ASSERT_NE(m_db.DBOpen(info, location.c_str(), "books", 1), 0) << m_db.lastStatus().detail;
        ASSERT_NE(m_db.DBSelect("books"), 0);
    }

    /// Reads a list by the condition; gives the number of rows, -1 at a failure.
    int readCondition(const StatementForm& form) {
        const auto types = chengheng::allRecordTypes();
        const auto type = std::ranges::find(
            types, form.table, [](const auto* declared) { return declared->table.name; });
        if (type == types.end()) return -1;
        chengheng::RecordTable table(**type);
        const auto status = table.read(*m_db.selectedDatabase(), form.text.c_str());
        m_detail = status.detail;
        return status || status.failure == Failure::missing
                   ? static_cast<int>(table.records().count())
                   : -1;
    }

    CNbCwDB m_db;
    std::string m_detail;  ///< why the last condition could not be read
};

TEST_P(StatementFormsOnEngines, EveryBatchRuns) {
    for (const StatementForm& form : chengheng::statementForms()) {
        if (form.kind != FormKind::batch) continue;
        EXPECT_NE(m_db.QRYExecuteSQL(form.text), 0)
            << form.text << ": " << m_db.lastStatus().detail;
    }
}

TEST_P(StatementFormsOnEngines, EverySelectRuns) {
    for (const StatementForm& form : chengheng::statementForms()) {
        if (form.kind != FormKind::select) continue;
        char** cells = nullptr;
        int columns = 0;
        int rows = 0;
        const bool isRead = m_db.QRYGetData(form.text, cells, columns, rows) == 0;
        EXPECT_TRUE(isRead || m_db.lastStatus().failure == Failure::missing)
            << form.text << ": " << m_db.lastStatus().detail;
        if (isRead) m_db.QRYReleaseBuffer(cells, columns, rows);
    }
}

TEST_P(StatementFormsOnEngines, EveryConditionReadsAList) {
    for (const StatementForm& form : chengheng::statementForms()) {
        if (form.kind != FormKind::condition) continue;
        EXPECT_GE(readCondition(form), 0) << form.table << ": " << form.text << ": " << m_detail;
    }
}

TEST_P(StatementFormsOnEngines, ConditionsFindTheRowsTheyName) {
    const auto rowsOf = [this](const char* table, std::string text) {
        return readCondition({FormKind::condition, table, std::move(text)});
    };
    EXPECT_EQ(rowsOf("Code", "lId > -1 ORDER BY sCode"), 6);
    EXPECT_EQ(rowsOf("Code", formatSql("sCode LIKE '%s%%'", "1002")), 3);
    EXPECT_EQ(rowsOf("Code", formatSql("sCode LIKE '%s%%'", "1_02")), 0);
    EXPECT_EQ(rowsOf("Code", formatSql("sCode Like '%s%%' AND sCode <> '%s'", "1002", "1002")), 2);
    EXPECT_EQ(rowsOf("Code", formatSql("sHelp LIKE '%s'", "kcxj")), 0) << "case counts";
    EXPECT_EQ(rowsOf("RegSub", "mMoney <> 0 AND lPersonId is NULL"), 1);
    EXPECT_EQ(rowsOf("RegSub", "mMoney > 100.05 AND lId > 0.5 AND lId < 1.5"), 1);
    EXPECT_EQ(rowsOf("RegMain", formatSql("dtDate = '%d/%d/%d'", 2025, 12, 31)), 1);
    EXPECT_EQ(rowsOf("RegMain", "dtDate BETWEEN '2025/12/30' AND '2026.1.1'"), 1);
    EXPECT_EQ(rowsOf("RegMain", "dtDate > '2025/12/31'"), 0);
    EXPECT_EQ(rowsOf("RegMain", "dtDate IN ('2025/12/31')"), 1);
}

const std::vector<std::string> awkwardTexts{
    "O'Brien", "50%_\\ \\'", "a\r\nDELETE Dept\n;", "\xF0\x9F\x98\x80“引号”‘单’", "$1 ? # -- /* */",
    ""};

TEST_P(StatementFormsOnEngines, AwkwardTextComesBackAsItWent) {
    std::vector<std::string> texts = awkwardTexts;
    texts.emplace_back(1 << 20, 'x');
    for (const std::string& text : texts) {
        ASSERT_NE(m_db.QRYExecuteSQL(formatSql("UPDATE Dept SET sDeptName = '%s'\r\n", text)), 0)
            << m_db.lastStatus().detail;
        const auto rows =
            chengheng::readRows<_DeptInfo>(m_db, formatSql("sDeptName = '%s'", text).c_str());
        ASSERT_EQ(rows.size(), 1U) << text.substr(0, 40) << m_db.lastStatus().detail;
        EXPECT_EQ(rows[0].sDeptName, text);
    }
}

TEST_P(StatementFormsOnEngines, APatternOfAwkwardTextMatchesThatTextOnly) {
    for (const std::string& text : awkwardTexts) {
        const auto countOf = [&](const std::string& name) {
            EXPECT_NE(m_db.QRYExecuteSQL(formatSql("UPDATE Dept SET sDeptName = '%s'", name)), 0);
            const std::string condition = formatSql("sDeptName LIKE '%s'", text);
            return chengheng::readRows<_DeptInfo>(m_db, condition.c_str()).size();
        };
        EXPECT_EQ(countOf(text), 1U) << text;
        EXPECT_EQ(countOf("x" + text), 0U) << text;
    }
    ASSERT_NE(m_db.QRYExecuteSQL("UPDATE Dept SET sDeptName = '50x'"), 0);
    EXPECT_EQ(readCondition({FormKind::condition, "Dept", formatSql("sDeptName LIKE '%s'", "50_")}),
              0);
    EXPECT_EQ(readCondition({FormKind::condition, "Dept", formatSql("sDeptName LIKE '%s%%'", "5")}),
              1);
}

CHENGHENG_ON_SHARED_ENGINES(StatementFormsOnEngines);

}  // namespace
