#include "core/numbers.hpp"

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

TEST(ToNumber, takes_whole_texts_only)
{
    expect_all<Text, double>(to_number, {{u" 12.50 ", 12.5}, {u"-3", -3}, {u"+.5", 0.5}, {u"5.", 5}});
    expect_all<Text, double>(to_number, {{u"1,234,567.5", 1234567.5}, {u"1E-2", 0.01}, {u"1e-400", 0}});
    for (const Text text : {u"", u" ", u"12a", u"1 2", u"1.2.3", u"--1", u"1e", u".", u"1,23", u"1234,567",
                            u",1", u"0x10", u"١", u"14,321", u"-1,234"})
        EXPECT_EQ(error_number([&] { to_number(text); }), numbers::type_mismatch) << to_utf8(text);
    EXPECT_EQ(error_number([] { to_number(u"1e400"); }), numbers::overflow);
}

TEST(ToCurrency, is_exact_and_ties_go_to_even)
{
    const auto scaled = [](const Text& text) { return to_currency(text).scaled(); };
    expect_all<Text, std::int64_t>(scaled, {{u"0.00005", 0}, {u"0.00015", 2}, {u"-0.00025", -2}});
    expect_all<Text, std::int64_t>(scaled, {{u"0.000250001", 3}, {u"922337203685477.5807", largest}});
    for (const Text text : {u"922337203685477.5808", u"-922337203685477.5809", u"1e300"})
        EXPECT_EQ(error_number([&] { to_currency(text); }), numbers::overflow) << to_utf8(text);
    EXPECT_EQ(error_number([] { to_currency(u"12 pesos"); }), numbers::type_mismatch);
    EXPECT_EQ(Currency(1.00005), Currency(1.0));
    EXPECT_EQ(error_number([] { Currency(std::numeric_limits<double>::quiet_NaN()); }), numbers::overflow);
}

TEST(CurrencyOfInteger, is_exact_for_every_type_and_never_wraps)
{
    for (const Currency two :
         {Currency(short{2}), Currency(2), Currency(2U), Currency(2L), Currency(2UL), Currency(2LL),
          Currency(2ULL), Currency(std::int8_t{2}), Currency(std::uint16_t{2}), Currency(std::size_t{2})})
        EXPECT_EQ(two.scaled(), 20'000);
    constexpr std::int64_t most = largest / 10'000;
    EXPECT_EQ(Currency(most).scaled(), most * 10'000);
    EXPECT_EQ(Currency(-most).scaled(), -most * 10'000);
    EXPECT_EQ(Currency(std::uint32_t{4'294'967'295}).scaled(), 42'949'672'950'000);
    for (const std::int64_t units : {most + 1, -most - 1, largest, -largest - 1})
        EXPECT_EQ(error_number([&] { Currency{units}; }), numbers::overflow) << units;
    EXPECT_EQ(error_number([] { Currency(std::numeric_limits<std::uint64_t>::max()); }), numbers::overflow);
}

TEST(LeadingNumber, reads_as_far_as_it_can)
{
    expect_all<Text, double>(leading_number, {{u"", 0}, {u" 12 abc", 12}, {u"1 2 3", 123}, {u"-4.5x", -4.5}});
    expect_all<Text, double>(leading_number,
                             {{u"1.2.3", 1.2}, {u"1e2z", 100}, {u"1,234", 1}, {u"1e-999", 0}});
    EXPECT_EQ(leading_number(u"12 de marzo"), 12);
    EXPECT_EQ(error_number([] { leading_number(u"1e999"); }), numbers::overflow);
}

TEST(WholeNumbers, round_to_even_and_overflow)
{
    expect_all<double, std::int16_t>(to_int16,
                                     {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-1.5, -2}, {-32768.5, -32768}});
    for (const double number : {32767.5, -32768.6, 1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(error_number([=] { to_int16(number); }), numbers::overflow) << number;
    EXPECT_EQ(to_int32(2147483647.4), 2147483647);
    EXPECT_EQ(error_number([] { to_int32(2147483647.5); }), numbers::overflow);
    EXPECT_EQ(error_number([] { to_int32(-2147483649.0); }), numbers::overflow);
}

TEST(RoundHalfEven, works_on_the_decimal_form)
{
    const auto cents = [](double number) { return round_half_even(number, 2); };
    expect_all<double, double>(
        cents, {{2.675, 2.68}, {2.665, 2.66}, {1.005, 1}, {-0.125, -0.12}, {0.1250001, 0.13}, {0.015, 0.02}});
    EXPECT_EQ(round_half_even(0.5, 0), 0);
    EXPECT_EQ(round_half_even(1.5, 0), 2);
}

} // namespace
} // namespace tolvex
