#include "core/values.hpp"

#include "support/tables.hpp"

#include <limits>

namespace tolvex {
namespace {

using testing::error_number;
using testing::expect_all;

constexpr auto largest = std::numeric_limits<std::int64_t>::max();

TEST(AmountAsText, is_the_shortest_decimal_form)
{
    const auto text_of = [](std::int64_t scaled) { return amount_as_text(Currency::from_scaled(scaled)); };
    expect_all<std::int64_t, Text>(text_of,
                                   {{0, u"0"}, {135'000, u"13.5"}, {1'000'000, u"100"}, {-5, u"-0.0005"}});
    EXPECT_EQ(text_of(largest), u"922337203685477.5807");
    EXPECT_EQ(text_of(-largest - 1), u"-922337203685477.5808");
}

TEST(NumberAsText, has_fifteen_digits_and_no_exponent)
{
    expect_all<double, Text>(number_as_text,
                             {{90, u"90"}, {0.1 + 0.2, u"0.3"}, {-0.0, u"0"}, {-2.5, u"-2.5"}});
    expect_all<double, Text>(number_as_text, {{1e15, u"1000000000000000"}, {1e-7, u"0.0000001"}});
}

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
    EXPECT_EQ(format(Currency::from_scaled(largest), u"#0.0000"), u"922337203685477.5807");
}

TEST(Format, a_text_that_is_no_number_stays_as_it_is)
{
    const auto formatted = [](const Text& text) { return format(text, u"########0.00"); };
    expect_all<Text, Text>(formatted,
                           {{u" 2.675 ", u"2.68"}, {u"1,370.5", u"1370.50"}, {u"abc", u"abc"}, {u"", u""}});
}

TEST(ToNumber, takes_whole_texts_only)
{
    expect_all<Text, double>(to_number, {{u" 12.50 ", 12.5}, {u"-3", -3}, {u"+.5", 0.5}, {u"5.", 5}});
    expect_all<Text, double>(to_number, {{u"1,234,567.5", 1234567.5}, {u"1E-2", 0.01}, {u"1e-400", 0}});
    for (const Text text : {u"", u" ", u"12a", u"1 2", u"1.2.3", u"--1", u"1e", u".", u"1,23", u"1234,567",
                            u",1", u"0x10", u"١"})
        EXPECT_EQ(error_number([&] { to_number(text); }), 13) << to_utf8(text);
    EXPECT_EQ(error_number([] { to_number(u"1e400"); }), 6);
}

TEST(ToCurrency, is_exact_and_ties_go_to_even)
{
    const auto scaled = [](const Text& text) { return to_currency(text).scaled(); };
    expect_all<Text, std::int64_t>(scaled, {{u"0.00005", 0}, {u"0.00015", 2}, {u"-0.00025", -2}});
    expect_all<Text, std::int64_t>(scaled, {{u"0.000250001", 3}, {u"922337203685477.5807", largest}});
    for (const Text text : {u"922337203685477.5808", u"-922337203685477.5809", u"1e300"})
        EXPECT_EQ(error_number([&] { to_currency(text); }), 6) << to_utf8(text);
    EXPECT_EQ(error_number([] { to_currency(u"12 pesos"); }), 13);
    EXPECT_EQ(Currency(1.00005), Currency(1.0));
    EXPECT_EQ(error_number([] { Currency(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(LeadingNumber, reads_as_far_as_it_can)
{
    expect_all<Text, double>(leading_number, {{u"", 0}, {u" 12 abc", 12}, {u"1 2 3", 123}, {u"-4.5x", -4.5}});
    expect_all<Text, double>(leading_number,
                             {{u"1.2.3", 1.2}, {u"1e2z", 100}, {u"1,234", 1}, {u"1e-999", 0}});
    EXPECT_EQ(leading_number(u"12 de marzo"), 12);
    EXPECT_EQ(error_number([] { leading_number(u"1e999"); }), 6);
}

TEST(WholeNumbers, round_to_even_and_overflow)
{
    expect_all<double, std::int16_t>(to_int16,
                                     {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-1.5, -2}, {-32768.5, -32768}});
    for (const double number : {32767.5, -32768.6, 1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(error_number([=] { to_int16(number); }), 6) << number;
    EXPECT_EQ(to_int32(2147483647.4), 2147483647);
    EXPECT_EQ(error_number([] { to_int32(2147483647.5); }), 6);
    EXPECT_EQ(error_number([] { to_int32(-2147483649.0); }), 6);
}

TEST(RoundHalfEven, works_on_the_decimal_form)
{
    const auto cents = [](double number) { return round_half_even(number, 2); };
    expect_all<double, double>(
        cents, {{2.675, 2.68}, {2.665, 2.66}, {1.005, 1}, {-0.125, -0.12}, {0.1250001, 0.13}, {0.015, 0.02}});
    EXPECT_EQ(round_half_even(0.5, 0), 0);
    EXPECT_EQ(round_half_even(1.5, 0), 2);
}

TEST(Dates, count_days_since_the_last_of_1899)
{
    EXPECT_EQ(Date::of(1899, 12, 30).days, 0);
    EXPECT_EQ(Date::of(2011, 3, 15, 12).days, 40617.5);
    EXPECT_EQ(Date::of(1899, 12, 29, 6).days, -1.25); // the time counts forward before day 0, too
    EXPECT_EQ(Date::of(100, 1, 1).days, -657434);
    EXPECT_EQ(Date::of(9999, 12, 31).days, 2958465);
}

TEST(Dates, format_as_people_and_documents_write_them)
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

TEST(Dates, outside_the_years_100_to_9999_are_an_overflow)
{
    for (const double days :
         {-657435.0, 2958466.0, 2958465.9999999, 1e18, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(error_number([=] { calendar(Date{days}); }), 6) << days;
}

TEST(Dates, are_read_in_the_forms_that_people_use)
{
    const Date moment = Date::of(2011, 3, 15, 14, 5, 9);
    for (const Text text : {u"2011-03-15 14:05:09", u" 2011-03-15T14:05:09.997 ", u"2011/3/15 14:05:09",
                            u"15-03-2011 14:05:09"})
        EXPECT_EQ(to_date(text), moment) << to_utf8(text);
    EXPECT_EQ(to_date(u"2011-03-15 14:05"), Date::of(2011, 3, 15, 14, 5));
    EXPECT_EQ(to_date(u"2012-02-29"), Date::of(2012, 2, 29));
}

TEST(Dates, that_do_not_exist_are_refused)
{
    for (const Text text :
         {u"", u"hoy", u"2011-02-29", u"2011-13-01", u"2011-01-32", u"2011-03-15 24:00:00",
          u"2011-03-15 14:60:00", u"2011-03-15 14", u"2011-03", u"2011-03-15 14:05:09 pm", u"99999-01-01",
          u"-2011-01-01", u"0099-01-01", u"2011-257-01"}) // 257 would be 1 in a byte
        EXPECT_EQ(error_number([&] { to_date(text); }), 13) << to_utf8(text);
    EXPECT_EQ(error_number([] { Date::of(2011, 1, 257); }), 13);
}

} // namespace
} // namespace tolvex
