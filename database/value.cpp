#include "database/value.hpp"

#include "core/dates.hpp"
#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"

namespace tolvex {

namespace {

struct ToText
{
    Text operator()(Null) const { return {}; }
    Text operator()(bool bit) const { return bit ? u"-1" : u"0"; }
    Text operator()(std::int64_t number) const { return decimal(number); }
    Text operator()(double number) const { return number_as_text(number); }
    Text operator()(Currency amount) const { return amount_as_text(amount); }
    Text operator()(Date date) const { return format(date, u"yyyy-mm-dd hh:mm:ss"); }
    Text operator()(const Text& text) const { return text; }
    Text operator()(const Bytes& bytes) const { return to_text(bytes.data); }
};

struct ToNumber
{
    double operator()(Null) const { throw invalid_use_of_null(); }
    double operator()(bool bit) const { return bit ? -1 : 0; }
    double operator()(std::int64_t number) const { return static_cast<double>(number); }
    double operator()(double number) const { return number; }
    double operator()(Currency amount) const { return amount.units(); }
    double operator()(Date date) const { return date.days; }
    double operator()(const Text& text) const { return to_number(text); }
    double operator()(const Bytes&) const { throw type_mismatch(); }
};

struct ToCurrency
{
    Currency operator()(Null) const { throw invalid_use_of_null(); }
    Currency operator()(Currency amount) const { return amount; }
    Currency operator()(const Text& text) const { return to_currency(text); }
    template <class Number>
    Currency operator()(const Number& number) const
    {
        return Currency(ToNumber()(number));
    }
};

struct ToDate
{
    Date operator()(Null) const { throw invalid_use_of_null(); }
    Date operator()(Date date) const { return date; }
    Date operator()(const Text& text) const { return to_date(text); }
    template <class Number>
    Date operator()(const Number& number) const
    {
        return {ToNumber()(number)};
    }
};

} // namespace

Text Value::text() const { return visit(ToText()); }

double Value::number() const { return visit(ToNumber()); }

Currency Value::currency() const { return visit(ToCurrency()); }

Date Value::date() const { return visit(ToDate()); }

} // namespace tolvex
