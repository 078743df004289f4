// One column of one row, as a driver reads or writes it.
#pragma once

#include "core/bytes.hpp"
#include "core/numbers.hpp"

#include <variant>

namespace tolvex {

struct Null
{
    friend bool operator==(Null, Null) = default;
};

// Null, bit, whole number, float, money or decimal, date-time, text, or bytes.
class Value
{
public:
    Value() = default;
    Value(bool bit) : held_(bit) {}
    Value(std::int16_t number) : held_(std::int64_t{number}) {}
    Value(std::int32_t number) : held_(std::int64_t{number}) {}
    Value(std::int64_t number) : held_(number) {}
    Value(double number) : held_(number) {}
    Value(Currency amount) : held_(amount) {}
    Value(Date date) : held_(date) {}
    Value(Text text) : held_(std::move(text)) {}
    Value(const char16_t* text) : held_(Text(text)) {}
    Value(Bytes bytes) : held_(std::move(bytes)) {}

    bool is_null() const { return std::holds_alternative<Null>(held_); }
    bool is_text() const { return std::holds_alternative<Text>(held_); }

    // The value as text; Null is the empty text, dates are "yyyy-mm-dd hh:mm:ss", True and False -1 and 0.
    Text text() const;
    // The value as a number. Throws Error 94 for Null, 13 for a text that is no number.
    double number() const;
    std::int16_t int16() const { return to_int16(number()); }
    std::int32_t int32() const { return to_int32(number()); }
    Currency currency() const;
    // Non-zero is true. Throws as number() does.
    bool boolean() const { return number() != 0; }
    // Throws Error 94 for Null, 13 for what is no date.
    Date date() const;

    template <class Visitor>
    decltype(auto) visit(Visitor&& visitor) const
    {
        return std::visit(std::forward<Visitor>(visitor), held_);
    }

    friend bool operator==(const Value&, const Value&) = default;

private:
    std::variant<Null, bool, std::int64_t, double, Currency, Date, Text, Bytes> held_;
};

} // namespace tolvex
