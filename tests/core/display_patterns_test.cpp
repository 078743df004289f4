#include "core/display_patterns.hpp"

#include "support/tables.hpp"

#include <limits>

namespace tolvex {
namespace {

using testing::expect_all;

TEST(Format, rounds_the_decimal_form_half_away_from_zero)
{
    for (const Text pattern : {u"####0.00", u"############0.00"}) {
        const auto formatted = [&](double number) { return format(number, pattern); };
        expect_all<double, Text>(
            formatted, {{2.675, u"2.68"}, {1.005, u"1.01"}, {-0.125, u"-0.13"}, {99.995, u"100.00"}});
        expect_all<double, Text>(formatted, {{0, u"0.00"}, {-0.004, u"0.00"}, {0.1 + 0.2, u"0.30"}});
        EXPECT_EQ(formatted(1e15), u"1000000000000000.00");
    }
}

TEST(Format, keeps_to_its_pattern)
{
    EXPECT_EQ(format(12.73505, u"#######0.0000"), u"12.7351");
    EXPECT_EQ(format(-999999.995, u"#,##0.00"), u"-1,000,000.00");
    EXPECT_EQ(format(0.5, u"#0"), u"1");
    EXPECT_EQ(format(7, u"0000"), u"0007");
    EXPECT_EQ(format(17.5, u"1"), u"1"); // without placeholders it stands for itself
    EXPECT_EQ(format(Currency::from_scaled(std::numeric_limits<std::int64_t>::max()), u"#0.0000"),
              u"922337203685477.5807");
}

TEST(Format, a_text_that_is_no_number_stays_as_it_is)
{
    const auto formatted = [](const Text& text) { return format(text, u"########0.00"); };
    expect_all<Text, Text>(formatted,
                           {{u" 2.675 ", u"2.68"}, {u"1,370.5", u"1370.50"}, {u"abc", u"abc"}, {u"", u""}});
    expect_all<Text, Text>(formatted,
                           {{u"1e99999", u"1e99999"}, {u"-1e309", u"-1e309"}, {u"1e-99999", u"0.00"}});
}

TEST(Format, shows_dates_as_people_and_documents_write_them)
{
    const double new_year_eve = Date::of(2010, 12, 31).days;
    expect_all<Date, Text>([](Date date) { return format(date, u"yyyy-mm-ddThh:mm:ss"); },
                           {{Date::of(2011, 1, 5, 9, 7, 3), u"2011-01-05T09:07:03"},
                            {Date::of(1821, 9, 27, 18), u"1821-09-27T18:00:00"},
                            {Date{-0.75}, u"1899-12-30T18:00:00"},
                            {Date{new_year_eve + 0.99999}, u"2010-12-31T23:59:59"},
                            {Date{new_year_eve + 0.999999}, u"2011-01-01T00:00:00"}, // its last half second
                            {Date{-1.999999}, u"1899-12-30T00:00:00"}});
    EXPECT_EQ(format(Date::of(2011, 1, 5, 21, 7, 3), u"DD/MM/YYYY HH:MM:SS"), u"05/01/2011 21:07:03");
}

} // namespace
} // namespace tolvex
