#include "tests/support/statement_forms.h"

#include <gtest/gtest.h>

#include "base/values/text.h"
#include "data/sql/translation.h"

namespace chengheng {
namespace {

/// The form as the text that reaches the reader.
std::string statementText(const StatementForm& form) {
    if (form.kind != FormKind::condition) return form.text;
    return "SELECT * FROM " + form.table + " WHERE " + form.text;
}

TEST(StatementForms, EachIsReadAndTranslated) {
    const EngineDialect dialect{" ESCAPE '\\'", "", nullptr};
    for (const StatementForm& form : statementForms()) {
        const std::string text = statementText(form);
        BatchReader reader(text);
        ReadStatement statement;
        int count = 0;
        while (reader.next(statement)) {
            TranslatedShape translated;
            const Status status = translate(statement.kind, statement.shape, dialect, translated);
            ASSERT_TRUE(status) << text << ": " << status.detail;
            EXPECT_EQ(translated.parameters, static_cast<int>(statement.values.size())) << text;
            ++count;
        }
        EXPECT_TRUE(reader.status()) << text << ": " << reader.status().detail;
        EXPECT_GT(count, 0) << text;
    }
}

TEST(StatementForms, OnlyAListOfIdsIsNotWorthKeeping) {
    for (const StatementForm& form : statementForms()) {
        const std::string text = statementText(form);
        BatchReader reader(text);
        ReadStatement statement;
        while (reader.next(statement))
            EXPECT_EQ(statement.isWorthKeeping, !containsInAnyCase(text, " in (")) << text;
    }
}

TEST(StatementForms, OfConditionsAreOneSelect) {
    for (const StatementForm& form : statementForms()) {
        if (form.kind == FormKind::batch) continue;
        const std::string text = statementText(form);
        BatchReader reader(text);
        ReadStatement statement;
        ASSERT_TRUE(reader.next(statement)) << text;
        EXPECT_EQ(statement.kind, StatementKind::select);
        EXPECT_FALSE(reader.next(statement)) << text;
    }
}

}  // namespace
}  // namespace chengheng
