#include "core/numbers.hpp"
#include "database/connection.hpp"
#include "database/embedded/tsql/amount_in_words.hpp"
#include "support/amounts_in_words.hpp"
#include "support/temporary_folder.hpp"
#include "support/text_io.hpp"
#include "tolvex/errors.hpp"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

TEST(AmountInWords, are_those_of_the_table_in_a_statement_too)
{
    const TemporaryFolder folder;
    Connection connection;
    connection.connection_string = u"server=sqlite:;database=" + folder.file("letra.db");
    connection.open();
    constexpr std::size_t digits_of_a_double = 15; // the engine reads number literals as doubles
    const auto table = testing::amounts_in_words();
    ASSERT_GT(table.size(), 80u);
    for (const auto& [amount, currency, words] : table) {
        EXPECT_EQ(amount_in_words(to_currency(amount), currency), words) << to_utf8(amount);
        if (amount.size() > digits_of_a_double + 1) continue;
        const Text sql = u"Select Letra=dbo.fg_Numero2Letra(" + amount + u",'" + currency + u"')";
        EXPECT_EQ(connection.query(sql)[u"Letra"].text(), words) << to_utf8(amount);
    }
    EXPECT_TRUE(connection.query(u"Select Letra=dbo.fg_Numero2Letra(null,'PESOS')")[u"Letra"].is_null());
    EXPECT_THROW(connection.query(u"Select Letra=dbo.fg_Numero2Letra(1e15,'PESOS')"), Error);
}

} // namespace
} // namespace tolvex
