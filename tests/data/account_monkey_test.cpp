#include <gtest/gtest.h>

#include <fmt/format.h>

#include <map>
#include <random>

#include "accounts/changing/designation.h"
#include "accounts/chart/account_sql.h"
#include "accounts/transfer/chart_import.h"
#include "data/access/row_lease.h"
#include "data/tables/accounts.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"

using namespace chengheng;

namespace {

/// Answers every question as chance has it.
class ChanceMessages final : public IMessages {
  public:
    explicit ChanceMessages(std::mt19937& chance) : m_chance(chance) {}

    void tell(const Notice&) override {}
    Answer ask(const Question&) override {
        return m_chance() % 4 == 0 ? Answer::cancel : Answer::ok;
    }

  private:
    std::mt19937& m_chance;
};

/// An operator who does anything, in books that change beneath.
class Monkey {
  public:
    explicit Monkey(unsigned seed) : m_chance(seed) {
        for (const char* code : {"1001", "1002", "2202"}) m_books.add(code);
    }

    std::string act() {
        using Deed = Outcome (Monkey::*)();
        static constexpr std::pair<const char*, Deed> deeds[] = {
            {"add", &Monkey::add},
            {"add", &Monkey::add},
            {"modify", &Monkey::modify},
            {"modify", &Monkey::modify},
            {"remove", &Monkey::remove},
            {"designate", &Monkey::designate},
            {"import", &Monkey::import},
            {"use", &Monkey::use},
            {"use no more", &Monkey::useNoMore}};
        const auto& [name, deed] = deeds[below(std::size(deeds))];
        const Outcome outcome = (this->*deed)();
        return fmt::format("{} {}", name, outcome == Outcome::done ? "done" : "not done");
    }
    AccountBooks& books() { return m_books; }

  private:
    std::size_t below(std::size_t end) { return m_chance() % end; }
    bool rarely() { return below(5) == 0; }

    std::string code() {
        static const char* tops[] = {"1001", "1002", "1003", "10%_", "2202", "2203", "9'01"};
        std::string text = tops[below(std::size(tops))];
        while (below(2) == 0) text += fmt::format("0{}", 1 + below(3));
        if (rarely()) text += rarely() ? " " : "1";
        return text;
    }
    void scramble(AccountEntry& entry) {
        entry.name = rarely() ? "" : fmt::format("名{}", below(9));
        entry.className = below(3) == 0 ? "负债" : "资产";
        entry.mnemonic = below(2) == 0 ? "" : fmt::format("M{}", below(9));
        entry.keepsForeign = rarely();
        entry.currencyId = static_cast<int>(below(3));
        entry.keepsQuantity = rarely();
        entry.unit = rarely() ? "吨" : "";
        entry.books = booksOfLetters(rarely() ? "BC" : rarely() ? "RE" : "");
    }
    _CodeInfo account() {
        const auto rows = readRows<_CodeInfo>(m_books.database(), account_sql::all);
        return rows.empty() ? _CodeInfo{} : rows[below(rows.size())];
    }

    AccountService service() { return {m_messages, CodeLevels("4222")}; }

    Outcome add() {
        AccountEntry entry{.code = code()};
        scramble(entry);
        return service().add(entry).outcome;
    }
    Outcome modify() {
        const _CodeInfo shown = account();
        AccountEntry entry = entryOf(shown);
        if (below(2) == 0) scramble(entry);
        if (below(2) == 0) entry.code = code();
        return service().modify(shown, entry).outcome;
    }
    Outcome remove() { return service().remove(rarely() ? code() : account().sCode, "名").outcome; }
    Outcome designate() {
        DesignationService designation(m_messages);
        const auto texts = designation.choices().accounts;
        const auto text = [&] {
            // The dialog offers the first level alone, whose codes have four characters.
            return texts.empty() || rarely() ? code().substr(0, 4) + "   名"
                                             : texts[below(texts.size())];
        };
        const std::string cash = text();
        return designation.designate(cash, text()) ? Outcome::done : Outcome::refused;
    }
    Outcome import() {
        std::string csv = "code,name,class,mnemonic,currency,quantity,unit,partner\n";
        for (std::size_t row = 0; row <= below(3); ++row)
            csv += fmt::format("\"{}\",名{},{},{},{},{},吨,{}\n", code(), below(9),
                               rarely() ? "" : "资产", rarely() ? "M1" : "", rarely() ? "USD" : "",
                               rarely() ? "是" : "否", rarely() ? "是" : "");
        Sheet sheet;
        if (readCsv(csv, sheet)) return Outcome::failed;
        ChartImport chart(m_messages);
        const auto plan = chart.plan(sheet, "科目.csv");
        return plan ? chart.apply(*plan) : Outcome::failed;
    }
    Outcome use() {
        const _CodeInfo used = account();
        const UsePlace place = usePlaces[below(usePlaces.size())];
        // A total without auxiliary totals beside it would be no sound book to begin with.
        if (place == UsePlace::sums && !lettersOf(entryOf(used).books).empty())
            return Outcome::refused;
        if (used.lId == 0 || used.bEnd == 0 || !m_uses.emplace(place, used.lId).second)
            return Outcome::refused;
        m_books.use(place, used.sCode);
        return Outcome::done;
    }
    Outcome useNoMore() {
        m_uses.clear();
        m_books.run(
            "DELETE FROM UnregSub\r\nDELETE FROM UnregMain\r\nDELETE FROM RegSub\r\n"
            "DELETE FROM RegMain\r\nDELETE FROM AccSum\r\nDELETE FROM FreqSub\r\n"
            "DELETE FROM _Digest\r\nDELETE FROM AutoSub\r\nDELETE FROM ProjCodes");
        return Outcome::done;
    }

    std::mt19937 m_chance;
    AccountBooks m_books{freshLocation({"sqliteMemory"})};
    ChanceMessages m_messages{m_chance};
    std::set<std::pair<UsePlace, int>> m_uses;
};

}  // namespace

TEST(AccountMonkey, LeavesSoundBooksAfterEachOfAThousandActions) {
    constexpr unsigned seed = 20261121;
    Monkey monkey(seed);
    std::map<std::string, int> counts;
    for (int number = 1; number <= 1000; ++number) {
        const std::string deed = monkey.act();
        ++counts[deed];
        const bool isWholeLook = number % 100 == 0;
        ASSERT_EQ(isWholeLook ? monkey.books().faults() : monkey.books().chartFaults(),
                  std::vector<std::string>{})
            << number << ": " << deed;
        ASSERT_FALSE(monkey.books().holdsLocks()) << number << ": " << deed;
    }
    for (const char* name : {"add", "modify", "remove", "designate", "import"})
        for (const char* end : {" done", " not done"})
            EXPECT_GT(counts[std::string(name) + end], 10) << name << end;
}
