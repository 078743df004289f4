#include "database/connection.hpp"
#include "database/embedded/amount_in_words.hpp"
#include "support/temporary_folder.hpp"
#include "support/text_io.hpp"

#include <fstream>
#include <gtest/gtest.h>

namespace tolvex {

namespace {

struct Case
{
    Text amount, currency, words;
};

std::vector<Case> cases()
{
    std::ifstream table(TOLVEX_SOURCE_DIR "/tests/database/importes_con_letra.txt");
    std::vector<Case> cases;
    for (std::string line; std::getline(table, line);) {
        const std::vector<Text> fields = split(to_text(line), u'|');
        if (line.empty() || line.front() == '#') continue;
        if (fields.size() != 3) throw std::runtime_error("not three fields: " + line);
        cases.push_back({fields[0], fields[1], fields[2]});
    }
    return cases;
}

TEST(AmountInWords, are_those_of_the_table)
{
    ASSERT_GT(cases().size(), 100u);
    for (const auto& [amount, currency, words] : cases())
        EXPECT_EQ(amount_in_words(to_currency(amount), currency), words) << to_utf8(amount);
}

TEST(AmountInWords, reach_the_statement_that_asks_for_them)
{
    const TemporaryFolder folder;
    Connection connection;
    connection.connection_string = u"server=sqlite:;database=" + folder.file("letra.db");
    connection.open();
    constexpr std::size_t digits_of_a_double = 15;
    for (const auto& [amount, currency, words] : cases()) {
        if (amount.size() > digits_of_a_double + 1) continue; // the engine reads number literals as doubles
        const auto row =
            connection.query(u"Select Letra=dbo.fg_Numero2Letra(" + amount + u",'" + currency + u"')");
        EXPECT_EQ(row[u"Letra"].text(), words) << to_utf8(amount);
    }
    EXPECT_TRUE(connection.query(u"Select Letra=dbo.fg_Numero2Letra(null,'PESOS')")[u"Letra"].is_null());
    EXPECT_THROW(connection.query(u"Select Letra=dbo.fg_Numero2Letra(1e15,'PESOS')"), Error);
}

} // namespace

} // namespace tolvex
