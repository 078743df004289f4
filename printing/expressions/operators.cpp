#include "printing/expressions/operators.hpp"

#include "core/errors.hpp"
#include "core/text.hpp"
#include "printing/expressions/arithmetic.hpp"
#include "printing/expressions/date_reader.hpp"
#include "printing/expressions/lengths.hpp"
#include "printing/expressions/moments.hpp"

namespace tolvex::printing {

namespace {

bool either_is_nothing(const Variant& a, const Variant& b) { return a.is_nothing() || b.is_nothing(); }

template <class Kind>
bool either_is(const Variant& a, const Variant& b)
{
    return a.get_if<Kind>() || b.get_if<Kind>();
}

Text joined(const Variant& left, const Variant& right, const Culture& culture)
{
    Text text = formatted(left, {}, culture);
    const Text rest = formatted(right, {}, culture);
    require_length(text.size() + rest.size());
    return text += rest;
}

Date plus_days(Date date, double days) { return plus_milliseconds(date, days * milliseconds_a_day); }

// Adds what are numbers; joins what are texts.
Variant added(const Variant& left, const Variant& right, const Culture& culture)
{
    if (either_is<Text>(left, right)) {
        const bool both = left.get_if<Text>() && right.get_if<Text>();
        if (both || either_is_nothing(left, right) || either_is<Date>(left, right))
            return joined(left, right, culture);
    }
    if (const Date* date = left.get_if<Date>()) return plus_days(*date, right.number());
    if (const Date* date = right.get_if<Date>()) return plus_days(*date, left.number());
    return sum(left, right);
}

// Two dates are days apart.
Variant subtracted(const Variant& left, const Variant& right)
{
    const Date *a = left.get_if<Date>(), *b = right.get_if<Date>();
    if (!a) return difference(left, right);
    if (!b) return plus_days(*a, -right.number());
    return static_cast<double>(milliseconds_of(*a) - milliseconds_of(*b)) / milliseconds_a_day;
}

Date date_in(const Variant& value, const Culture& culture)
{
    if (const Text* text = value.get_if<Text>()) return read_date(*text, culture);
    return value.date();
}

// As "=" and "<" see two values: unlike in a sorted list, Nothing is 0, "" and False, and letter case counts.
int compare_as_operators_do(const Variant& a, const Variant& b, const Culture& culture)
{
    if (a.is_nothing() && b.is_nothing()) return 0;
    if (either_is<Bytes>(a, b) || either_is<Variant::List>(a, b)) {
        if (!either_is_nothing(a, b)) throw type_mismatch();
        return a.is_nothing() ? -1 : 1;
    }
    if (either_is<Date>(a, b)) {
        if (either_is_nothing(a, b)) return a.is_nothing() ? -1 : 1;
        return sign_of_difference(milliseconds_of(date_in(a, culture)), milliseconds_of(date_in(b, culture)));
    }
    if (either_is<Text>(a, b) && !is_number(a) && !is_number(b) && !either_is<bool>(a, b)) {
        static const Text empty;
        const Text& x = a.is_nothing() ? empty : *a.get_if<Text>();
        return sign_of_difference(x, b.is_nothing() ? empty : *b.get_if<Text>());
    }
    if (either_is<bool>(a, b) && !is_number(a) && !is_number(b))
        return b.boolean() - a.boolean(); // True is -1
    return compare_numbers(a, b);
}

// Numbers bit by bit, anything else as true or false.
template <class Bits, class Truth>
Variant logical(const Variant& left, const Variant& right, Bits bits, Truth truth)
{
    if (is_number(left) && is_number(right)) return bits(left.whole_number(), right.whole_number());
    return truth(left.boolean(), right.boolean());
}

bool is_same(const Variant& left, const Variant& right)
{
    return either_is_nothing(left, right) ? left.is_nothing() == right.is_nothing() : left == right;
}

} // namespace

Variant apply(Operator how, const Variant& left, const Variant& right, const Culture& culture)
{
    const auto order = [&] { return compare_as_operators_do(left, right, culture); };
    switch (how) {
    case Operator::xor_:
        return logical(left, right, std::bit_xor<>(), std::not_equal_to<>());
    case Operator::or_:
        return logical(left, right, std::bit_or<>(), std::logical_or<>());
    case Operator::or_else:
        return left.boolean() || right.boolean();
    case Operator::and_:
        return logical(left, right, std::bit_and<>(), std::logical_and<>());
    case Operator::and_also:
        return left.boolean() && right.boolean();
    case Operator::equal:
        return order() == 0;
    case Operator::not_equal:
        return order() != 0;
    case Operator::less:
        return order() < 0;
    case Operator::less_or_equal:
        return order() <= 0;
    case Operator::greater:
        return order() > 0;
    case Operator::greater_or_equal:
        return order() >= 0;
    case Operator::like:
        return is_like(formatted(left, {}, culture), formatted(right, {}, culture));
    case Operator::is:
        return is_same(left, right);
    case Operator::is_not:
        return !is_same(left, right);
    case Operator::join:
        return joined(left, right, culture);
    case Operator::add:
        return added(left, right, culture);
    case Operator::subtract:
        return subtracted(left, right);
    case Operator::modulo:
        return remainder(left, right);
    case Operator::divide_whole:
        return whole_quotient(left, right);
    case Operator::multiply:
        return product(left, right);
    case Operator::divide:
        return quotient(left, right);
    case Operator::power:
        return power(left, right);
    }
    throw invalid_call();
}

Variant negated_or_not(const Variant& value, bool logically)
{
    if (!logically) return negated(value);
    if (is_number(value)) return ~value.whole_number();
    return !value.boolean();
}

} // namespace tolvex::printing
