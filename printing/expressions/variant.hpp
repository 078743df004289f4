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

// Nothing, Boolean, whole number, floating number, decimal number (exact to four decimals), date, text, the bytes of
// a picture, or a list of values (several values of a parameter, the parts that Split gives).
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

    // Conversions of Visual Basic: Nothing is 0, "" or False. They throw Error 13 for what cannot be converted.
    bool boolean() const;
    double number() const;
    std::int64_t whole_number() const; // to the nearest, ties to even
    Date date() const;
    // True and False, numbers at 15 digits with ".", dates in the general form of the culture of Mexico.
    Text text() const;

    friend bool operator==(const Variant&, const Variant&) = default;

private:
    std::variant<Nothing, bool, std::int64_t, double, Currency, Date, Text, Bytes, List> held_;
};

// Less, equal or greater (-1, 0, 1) as sorting and the operators of comparison see it: Nothing before everything,
// numbers by value whatever their kind, texts by letters without regard to case and accents when they sort.
int compare(const Variant& a, const Variant& b);

} // namespace tolvex::printing
