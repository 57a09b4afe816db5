#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "opening/screen/opening_work.h"
#include "tests/support/engine_cases.h"
#include "tests/support/opening_books.h"

namespace chengheng {

/// The opening balances of a small chart on each engine: bank accounts on four levels, one of
/// them in foreign currency, goods with a quantity, and a credit account.
class OpeningCase : public testing::TestWithParam<EngineCase> {
  protected:
    using Texts = std::vector<std::string>;
    static constexpr auto foreign = Measure::foreign;
    static constexpr auto quantity = Measure::quantity;

    void SetUp() override {
        m_books.addAccounts({"1001", "1002", "100201", "10020101", "10020102", "100202", "1405"});
        m_books.change("10020102", "byExchId = 1");
        m_books.change("1405", "bAmount = 1, sUnit = '件'");
        m_books.addCredit("2001");
        ASSERT_EQ(m_books.work().refresh(), Outcome::done);
    }
    OpeningWork& work() { return m_books.work(); }
    RecordingMessages& messages() { return m_books.messages(); }

    OpeningTestBooks m_books{freshLocation(GetParam())};
};

}  // namespace chengheng
