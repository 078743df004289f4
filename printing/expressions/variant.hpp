// A value as the expressions of a layout know it.
#pragma once

#include "core/bytes.hpp"
#include "core/text.hpp"

#include <variant>
#include <vector>

namespace tolvex::printing {

struct Nothing
{
    friend bool operator==(Nothing, Nothing) = default;
};

// Nothing, Boolean, whole number, floating number, decimal number (exact to four decimals), date, text, the
// bytes of a picture, or a list of values (several values of a parameter, the parts that Split gives).
class Variant
{
public:
    using List = std::vector<Variant>;

    Variant() = default;
    Variant(bool value) : held_(value) {}
    Variant(int value) : held_(std::int64_t{value}) {}
    Variant(std::int64_t value) : held_(value) {}
    Variant(double value) : held_(value) {}
    Variant(Currency value) : held_(value) {}
    Variant(Date value) : held_(value) {}
    Variant(Text value) : held_(std::move(value)) {}
    Variant(const char16_t* value) : held_(Text(value)) {}
    Variant(Bytes value) : held_(std::move(value)) {}
    Variant(List value) : held_(std::move(value)) {}

    bool is_nothing() const { return std::holds_alternative<Nothing>(held_); }
    template <class T>
    const T* get_if() const
    {
        return std::get_if<T>(&held_);
    }
    template <class Visitor>
    decltype(auto) visit(Visitor&& visitor) const
    {
        return std::visit(std::forward<Visitor>(visitor), held_);
    }

    // Conversions of Visual Basic: Nothing is 0, "" or False; True is -1; "$1,234.50" is a number. They throw
    // Error 13 for what cannot be converted, 6 for what does not fit, 94 for Nothing as a date.
    bool boolean() const;
    double number() const;
    std::int64_t whole_number() const; // to the nearest, ties to even
    Date date() const;
    // As the culture of Mexico writes it: True and False, numbers at 15 digits, dates without time by their
    // day.
    Text text() const;

    friend bool operator==(const Variant&, const Variant&) = default;

private:
    std::variant<Nothing, bool, std::int64_t, double, Currency, Date, Text, Bytes, List> held_;
};

// -1, 0, 1 as sorting, grouping and filters see two values: Nothing before everything, numbers by value
// whatever their kind, texts by letters, accents deciding between those that are alike, letter case never.
// The operators of expressions differ as in Visual Basic: there "a" = "A" is False, and Nothing = 0 True.
int compare(const Variant& a, const Variant& b);

} // namespace tolvex::printing
