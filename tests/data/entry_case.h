#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"

namespace chengheng {

/// Opening entries of every member, written through the service.
class EntryCase : public testing::TestWithParam<EngineCase> {
  protected:
    using Kind = AuxiliaryKind;

    AuxiliaryEntry added(const AuxiliaryMember& member, int which, double money,
                         bool isDebit = true) {
        AuxiliaryEntry entry = EntryBooks::entry(member, which, money, isDebit);
        EXPECT_EQ(m_books.service(member).add(m_books.account(member), entry), Outcome::done);
        return entry;
    }
    Outcome modify(const AuxiliaryMember& member, const AuxiliaryEntry& before,
                   AuxiliaryEntry after) {
        return m_books.service(member).modify(m_books.account(member), before, after);
    }
    Outcome remove(const AuxiliaryMember& member, const AuxiliaryEntry& entry) {
        return m_books.service(member).remove(m_books.account(member), entry);
    }
    std::string openings(const AuxiliaryMember& member) {
        return m_books.opening().openings(accountCode(member));
    }
    /// The last thing said, with what must hold when nothing happened.
    std::string refusal(const std::vector<std::string>& before) {
        EXPECT_EQ(m_books.rows(), before);
        EXPECT_FALSE(m_books.books().locks().holds("Code", LockMode::shared));
        EXPECT_FALSE(m_books.books().locks().holds("AssAcc", LockMode::exclusive));
        const auto& texts = m_books.messages().texts();
        return texts.empty() ? "" : texts.back();
    }

    EntryBooks m_books{freshLocation(GetParam())};
    const AuxiliaryMember& m_department = memberOf(Kind::department);
};

}  // namespace chengheng
