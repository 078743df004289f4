#include "database/connection.hpp"
#include "database/embedded/amount_in_words.hpp"
#include "support/amounts_in_words.hpp"
#include "support/temporary_folder.hpp"
#include "support/text_io.hpp"

#include <gtest/gtest.h>

namespace tolvex {

namespace {

using testing::amounts_in_words;

TEST(AmountInWords, are_those_of_the_table)
{
    ASSERT_GT(amounts_in_words().size(), 100u);
    for (const auto& [amount, currency, words] : amounts_in_words())
        EXPECT_EQ(amount_in_words(to_currency(amount), currency), words) << to_utf8(amount);
}

TEST(AmountInWords, reach_the_statement_that_asks_for_them)
{
    const TemporaryFolder folder;
    Connection connection;
    connection.connection_string = u"server=sqlite:;database=" + folder.file("letra.db");
    connection.open();
    constexpr std::size_t digits_of_a_double = 15;
    for (const auto& [amount, currency, words] : amounts_in_words()) {
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
