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
    expect_all<std::int64_t, Text>(
        [](std::int64_t scaled) { return amount_as_text(Currency::from_scaled(scaled)); },
        {{0, u"0"},
         {10'000, u"1"},
         {135'000, u"13.5"},
         {1'000'000, u"100"},
         {12'345'678, u"1234.5678"},
         {-5, u"-0.0005"},
         {-10'100, u"-1.01"},
         {largest, u"922337203685477.5807"},
         {std::numeric_limits<std::int64_t>::min(), u"-922337203685477.5808"}});
}

TEST(NumberAsText, has_fifteen_digits_and_no_exponent)
{
    expect_all<double, Text>(number_as_text, {{90, u"90"},
                                              {0.1 + 0.2, u"0.3"},
                                              {-0.0, u"0"},
                                              {1234567.895, u"1234567.895"},
                                              {1e15, u"1000000000000000"},
                                              {1e-7, u"0.0000001"},
                                              {-2.5, u"-2.5"}});
}

TEST(Format, rounds_the_decimal_form_half_away_from_zero)
{
    for (const Text pattern : {u"####0.00", u"#######0.00", u"########0.00", u"#########0.00",
                               u"##########0.00", u"###########0.00", u"############0.00"})
        expect_all<double, Text>([&](double number) { return format(number, pattern); },
                                 {{0, u"0.00"},
                                  {16, u"16.00"},
                                  {2.675, u"2.68"},
                                  {1.005, u"1.01"},
                                  {1.015, u"1.02"},
                                  {0.125, u"0.13"},
                                  {-0.125, u"-0.13"},
                                  {-0.004, u"0.00"},
                                  {0.995, u"1.00"},
                                  {99.995, u"100.00"},
                                  {0.0049999, u"0.00"},
                                  {1234567890.5, u"1234567890.50"},
                                  {0.1 + 0.2, u"0.30"},
                                  {1e15, u"1000000000000000.00"}});
}

TEST(Format, keeps_the_decimals_of_its_pattern)
{
    EXPECT_EQ(format(17.5, u"#######0.0000"), u"17.5000");
    EXPECT_EQ(format(12.73505, u"#######0.0000"), u"12.7351");
    EXPECT_EQ(format(1234567.891, u"#,##0.00"), u"1,234,567.89");
    EXPECT_EQ(format(-999.995, u"#,##0.00"), u"-1,000.00");
    EXPECT_EQ(format(0.5, u"#0"), u"1");
    EXPECT_EQ(format(7, u"0000"), u"0007");
    EXPECT_EQ(format(Currency::from_scaled(largest), u"#0.0000"), u"922337203685477.5807");
}

TEST(Format, a_pattern_without_placeholders_stands_for_itself)
{
    for (const double rate : {0.0, 1.0, 17.5}) EXPECT_EQ(format(rate, u"1"), u"1");
}

TEST(Format, a_text_that_is_no_number_stays_as_it_is)
{
    expect_all<Text, Text>([](const Text& text) { return format(text, u"########0.00"); },
                           {{u"1370", u"1370.00"},
                            {u" 2.675 ", u"2.68"},
                            {u"1,370.5", u"1370.50"},
                            {u"-.5", u"-0.50"},
                            {u"abc", u"abc"},
                            {u"", u""}});
}

TEST(ToNumber, takes_whole_texts_only)
{
    expect_all<Text, double>(to_number, {{u"0", 0},
                                         {u" 12.50 ", 12.5},
                                         {u"-3", -3},
                                         {u"+3", 3},
                                         {u".5", 0.5},
                                         {u"5.", 5},
                                         {u"1,234,567.5", 1234567.5},
                                         {u"1e3", 1000},
                                         {u"1E-2", 0.01},
                                         {u"1e-400", 0},
                                         {u"00123", 123}});
    for (const Text text : {u"", u" ", u"abc", u"12a", u"1 2", u"1.2.3", u"--1", u"1e", u".", u"-", u"1,23",
                            u"1234,567", u",1", u"0x10", u"١"})
        EXPECT_EQ(error_number([&] { to_number(text); }), 13) << to_utf8(text);
    EXPECT_EQ(error_number([] { to_number(u"1e400"); }), 6);
}

TEST(ToCurrency, is_exact_and_ties_go_to_even)
{
    expect_all<Text, std::int64_t>([](const Text& text) { return to_currency(text).scaled(); },
                                   {{u"0.00005", 0},
                                    {u"0.00015", 2},
                                    {u"-0.00025", -2},
                                    {u"0.000250001", 3},
                                    {u"922337203685477.5807", largest},
                                    {u"1,000.10", 10'001'000}});
    for (const Text text : {u"922337203685477.5808", u"-922337203685477.5809", u"1e300"})
        EXPECT_EQ(error_number([&] { to_currency(text); }), 6) << to_utf8(text);
    EXPECT_EQ(error_number([] { to_currency(u"12 pesos"); }), 13);
    EXPECT_EQ(Currency(2.5), Currency::from_scaled(25'000));
    EXPECT_EQ(Currency(1.00005), Currency(1.0));
    EXPECT_EQ(error_number([] { Currency(1e15); }), 6);
    EXPECT_EQ(error_number([] { Currency(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(LeadingNumber, reads_as_far_as_it_can)
{
    expect_all<Text, double>(leading_number, {{u"", 0},
                                              {u"abc", 0},
                                              {u" 12 abc", 12},
                                              {u"1 2 3", 123},
                                              {u"-4.5x", -4.5},
                                              {u"1.2.3", 1.2},
                                              {u"0123", 123},
                                              {u"1e2z", 100},
                                              {u"12 de marzo", 12},
                                              {u"-", 0},
                                              {u".", 0},
                                              {u"1e-999", 0},
                                              {u"1,234", 1}});
    EXPECT_EQ(error_number([] { leading_number(u"1e999"); }), 6);
}

TEST(WholeNumbers, round_to_even_and_overflow)
{
    expect_all<double, std::int16_t>(
        to_int16,
        {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {32767.4, 32767}, {-32768.5, -32768}});
    for (const double number : {32767.5, -32768.6, 1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(error_number([=] { to_int16(number); }), 6) << number;
    EXPECT_EQ(to_int32(2147483647.4), 2147483647);
    EXPECT_EQ(error_number([] { to_int32(2147483647.5); }), 6);
    EXPECT_EQ(error_number([] { to_int32(-2147483649.0); }), 6);
}

TEST(RoundHalfEven, works_on_the_decimal_form)
{
    const auto cents = [](double number) { return round_half_even(number, 2); };
    expect_all<double, double>(cents, {{2.675, 2.68},
                                       {2.665, 2.66},
                                       {1.005, 1},
                                       {1.015, 1.02},
                                       {-0.125, -0.12},
                                       {0.1250001, 0.13},
                                       {12.5, 12.5},
                                       {0.005, 0},
                                       {0.015, 0.02}});
    EXPECT_EQ(round_half_even(0.5, 0), 0);
    EXPECT_EQ(round_half_even(0.51, 0), 1);
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
    const Text iso = u"yyyy-mm-ddThh:mm:ss";
    EXPECT_EQ(format(Date::of(2011, 1, 5, 9, 7, 3), iso), u"2011-01-05T09:07:03");
    EXPECT_EQ(format(Date::of(2011, 1, 5, 21, 7, 3), iso), u"2011-01-05T21:07:03");
    EXPECT_EQ(format(Date::of(1821, 9, 27, 18), iso), u"1821-09-27T18:00:00");
    EXPECT_EQ(format(Date{-0.75}, iso), u"1899-12-30T18:00:00");
    EXPECT_EQ(format(Date::of(2011, 12, 31, 23, 59, 59), u"yyyy-mm-dd"), u"2011-12-31");
    EXPECT_EQ(format(Date::of(2011, 1, 5, 9, 7, 3), u"DD/MM/YYYY HH:MM:SS"), u"05/01/2011 09:07:03");
}

TEST(Dates, the_last_half_second_belongs_to_the_next_day)
{
    const Text iso = u"yyyy-mm-dd hh:mm:ss";
    EXPECT_EQ(format(Date{Date::of(2010, 12, 31).days + 0.999999}, iso), u"2011-01-01 00:00:00");
    EXPECT_EQ(year_of(Date{Date::of(2010, 12, 31).days + 0.999999}), 2011);
    EXPECT_EQ(format(Date{Date::of(2010, 12, 31).days + 0.99999}, iso), u"2010-12-31 23:59:59");
    EXPECT_EQ(format(Date{-1.999999}, iso), u"1899-12-30 00:00:00");
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
    expect_all<Text, Date>(to_date, {{u"2011-03-15 14:05:09", moment},
                                     {u"2011-03-15T14:05:09", moment},
                                     {u" 2011-03-15T14:05:09.997 ", moment},
                                     {u"2011/3/15 14:05:09", moment},
                                     {u"15-03-2011 14:05:09", moment},
                                     {u"2011-03-15 14:05", Date::of(2011, 3, 15, 14, 5)},
                                     {u"2011-03-15", Date::of(2011, 3, 15)},
                                     {u"2012-02-29", Date::of(2012, 2, 29)}});
}

TEST(Dates, that_do_not_exist_are_refused)
{
    for (const Text text :
         {u"", u"hoy", u"2011-02-29", u"2011-13-01", u"2011-00-01", u"2011-01-32", u"2011-03-15 24:00:00",
          u"2011-03-15 14:60:00", u"2011-03-15 14:05:60", u"2011-03-15 14", u"2011-03", u"2011-03-15x",
          u"2011-03-15 14:05:09 pm", u"99999-01-01", u"-2011-01-01", u"2011-257-01"})
        EXPECT_EQ(error_number([&] { to_date(text); }), 13) << to_utf8(text);
    // Numbers that a byte would fold into a good month or day.
    EXPECT_EQ(error_number([] { Date::of(2011, 257, 1); }), 13);
    EXPECT_EQ(error_number([] { Date::of(2011, 1, 257); }), 13);
    EXPECT_EQ(error_number([] { Date::of(2011, -255, 1); }), 13);
    EXPECT_EQ(error_number([] { Date::of(99, 1, 1); }), 13);
}

} // namespace
} // namespace tolvex
