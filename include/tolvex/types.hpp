// The values that hosts exchange with the system: text, amounts, dates.
#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

// What the shared library shows to its hosts.
#ifdef _WIN32
#define TOLVEX_API
#else
#define TOLVEX_API __attribute__((visibility("default")))
#endif

namespace tolvex {

// Counted UTF-16 text, as automation hosts, ODBC and the databases hold it.
using Text = std::u16string;
using TextView = std::u16string_view;

// UTF-8 to Text; bytes that are no valid UTF-8 become U+FFFD.
TOLVEX_API Text to_text(std::string_view utf8);
// Text to UTF-8; lone surrogates become U+FFFD.
TOLVEX_API std::string to_utf8(TextView text);

// Fixed-point amount with four decimals in 64 bits (automation "currency").
class TOLVEX_API Currency
{
public:
    constexpr Currency() = default;
    // Nearest amount, ties to even. Throws Error 6 when it does not fit.
    Currency(double units);
    // Exact, from an integer of any width. Throws Error 6 when it does not fit.
    template <std::integral Integer>
    constexpr Currency(Integer units) : scaled_(fits(units) ? std::int64_t(units) * unit : does_not_fit())
    {}

    // From the count of ten-thousandths.
    static constexpr Currency from_scaled(std::int64_t scaled) { return Currency(scaled, Exact{}); }

    constexpr std::int64_t scaled() const { return scaled_; }
    double units() const { return static_cast<double>(scaled_) / unit; }

    friend constexpr bool operator==(Currency, Currency) = default;

private:
    static constexpr std::int64_t unit = 10'000;

    template <std::integral Integer>
    static constexpr bool fits(Integer units)
    {
        constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / unit;
        if constexpr (std::is_signed_v<Integer>)
            return -most <= units && units <= most;
        else
            return std::uint64_t{units} <= std::uint64_t{most};
    }
    [[noreturn]] static std::int64_t does_not_fit();

    struct Exact
    {};
    constexpr Currency(std::int64_t scaled, Exact) : scaled_(scaled) {}

    std::int64_t scaled_ = 0;
};

// Automation date: days since 30 December 1899, the time of day as the fraction.
struct TOLVEX_API Date
{
    double days = 0;

    // From the calendar (proleptic Gregorian, years 100 to 9999). Throws Error 13 when there is no such
    // moment.
    static Date of(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

    friend bool operator==(Date, Date) = default;
};

} // namespace tolvex
