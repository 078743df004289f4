#include "printing/expressions/variant.hpp"

#include "core/decimal_reader.hpp"
#include "core/errors.hpp"
#include "printing/expressions/arithmetic.hpp"
#include "printing/expressions/culture.hpp"
#include "printing/expressions/date_reader.hpp"
#include "printing/expressions/text_order.hpp"

#include <cmath>

namespace tolvex::printing {

namespace {

// Where a kind stands when values of several kinds are sorted.
int rank(const Variant& value)
{
    if (value.is_nothing()) return 0;
    if (value.get_if<Date>()) return 2;
    if (value.get_if<Text>()) return 3;
    if (value.get_if<Bytes>()) return 4;
    return value.get_if<Variant::List>() ? 5 : 1;
}

int compare_lists(const Variant::List& a, const Variant::List& b)
{
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i)
        if (const int order = compare(a[i], b[i])) return order;
    return sign_of_difference(a.size(), b.size());
}

} // namespace

bool Variant::boolean() const
{
    if (const bool* value = get_if<bool>()) return *value;
    if (const Text* text = get_if<Text>()) {
        if (equal_ignoring_case(*text, u"True")) return true;
        if (equal_ignoring_case(*text, u"False")) return false;
    }
    return number() != 0;
}

double Variant::number() const
{
    if (const double* value = get_if<double>()) return *value;
    if (const std::int64_t* value = get_if<std::int64_t>()) return static_cast<double>(*value);
    if (const Currency* value = get_if<Currency>()) return value->units();
    if (const Date* value = get_if<Date>()) return value->days;
    if (const bool* value = get_if<bool>()) return *value ? -1 : 0;
    if (is_nothing()) return 0;
    return to_double(exact_decimal(*this));
}

std::int64_t Variant::whole_number() const
{
    if (const std::int64_t* value = get_if<std::int64_t>()) return *value;
    if (get_if<Text>() || get_if<Currency>()) return whole_of(rounded(exact_decimal(*this), 0, Tie::to_even));
    return nearest_whole(number());
}

Date Variant::date() const
{
    if (const Date* value = get_if<Date>()) return *value;
    if (const Text* text = get_if<Text>()) return read_date(*text, culture({}));
    if (is_nothing()) throw invalid_use_of_null();
    throw type_mismatch();
}

Text Variant::text() const { return formatted(*this, {}, culture({})); }

int compare(const Variant& a, const Variant& b)
{
    if (const int order = rank(a) - rank(b)) return order < 0 ? -1 : 1;
    switch (rank(a)) {
    case 0:
        return 0;
    case 2:
        return sign_of_difference(a.get_if<Date>()->days, b.get_if<Date>()->days);
    case 3:
        return compare_letters(*a.get_if<Text>(), *b.get_if<Text>());
    case 4:
        return sign_of_difference(a.get_if<Bytes>()->data, b.get_if<Bytes>()->data);
    case 5:
        return compare_lists(*a.get_if<Variant::List>(), *b.get_if<Variant::List>());
    default:
        return compare_numbers(a, b);
    }
}

} // namespace tolvex::printing
