#include "database/embedded/tsql/amount_in_words.hpp"

#include "core/text.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace tolvex {

namespace {

constexpr std::int64_t thousand = 1'000;
constexpr std::int64_t million = 1'000'000;
constexpr std::int64_t billon = million * million;

// Masculine, in the short form that stands before what is counted: un, veintiún.
constexpr std::array<TextView, 30> up_to_twenty_nine = {
    u"CERO",         u"UN",          u"DOS",        u"TRES",        u"CUATRO",     u"CINCO",
    u"SEIS",         u"SIETE",       u"OCHO",       u"NUEVE",       u"DIEZ",       u"ONCE",
    u"DOCE",         u"TRECE",       u"CATORCE",    u"QUINCE",      u"DIECISÉIS",  u"DIECISIETE",
    u"DIECIOCHO",    u"DIECINUEVE",  u"VEINTE",     u"VEINTIÚN",    u"VEINTIDÓS",  u"VEINTITRÉS",
    u"VEINTICUATRO", u"VEINTICINCO", u"VEINTISÉIS", u"VEINTISIETE", u"VEINTIOCHO", u"VEINTINUEVE"};
constexpr std::array<TextView, 10> tens = {u"",          u"",        u"",        u"TREINTA", u"CUARENTA",
                                           u"CINCUENTA", u"SESENTA", u"SETENTA", u"OCHENTA", u"NOVENTA"};
constexpr std::array<TextView, 10> hundreds = {
    u"",           u"CIENTO",      u"DOSCIENTOS",  u"TRESCIENTOS", u"CUATROCIENTOS",
    u"QUINIENTOS", u"SEISCIENTOS", u"SETECIENTOS", u"OCHOCIENTOS", u"NOVECIENTOS"};

Text words(std::int64_t number);

// The words of a leading part, then those of the rest unless it is zero.
Text followed_by(Text leading, std::int64_t rest, TextView joint = u" ")
{
    return rest == 0 ? leading : leading.append(joint) + words(rest);
}

Text counted(std::int64_t count, TextView one, TextView many)
{
    return words(count) + u" " + Text(count == 1 ? one : many);
}

Text words(std::int64_t number)
{
    if (number < 30) return Text(up_to_twenty_nine[number]);
    if (number < 100) return followed_by(Text(tens[number / 10]), number % 10, u" Y ");
    if (number == 100) return u"CIEN";
    if (number < thousand) return followed_by(Text(hundreds[number / 100]), number % 100);
    if (number < 2 * thousand) return followed_by(u"MIL", number % thousand);
    if (number < million) return followed_by(words(number / thousand) + u" MIL", number % thousand);
    if (number < billon)
        return followed_by(counted(number / million, u"MILLÓN", u"MILLONES"), number % million);
    return followed_by(counted(number / billon, u"BILLÓN", u"BILLONES"), number % billon);
}

struct CurrencyName
{
    Text one, many;
    TextView mark; // what follows the cents
};

// One of what a Spanish plural names, each word of it: DOLARES CANADIENSES is DOLAR CANADIENSE. What begins
// with "DE" stays: DOLAR DE LOS ESTADOS UNIDOS.
Text singular(const Text& plural)
{
    static constexpr std::pair<TextView, TextView> endings[] = {{u"RES ", u"R "}, {u"LES ", u"L "},
                                                                {u"NES ", u"N "}, {u"OS ", u"O "},
                                                                {u"AS ", u"A "},  {u"ES ", u"E "}};
    const auto complement = std::min(plural.find(u" DE "), plural.size());
    Text head = plural.substr(0, complement) + u" ";
    for (const auto& [many, one] : endings) head = replace_all(head, many, one);
    head.pop_back();
    return head + plural.substr(complement);
}

CurrencyName name_of(TextView currency)
{
    const Text name = upper_case(trim(currency));
    if (name.empty() || name == u"PESOS" || name == u"PESO" || name == u"MXN")
        return {u"PESO", u"PESOS", u" M.N."};
    return {singular(name), name, u""};
}

std::uint64_t cents_of(std::uint64_t ten_thousandths) { return (ten_thousandths + 50) / 100; }

Text two_digits(std::uint64_t number)
{
    return {static_cast<char16_t>(u'0' + number / 10), static_cast<char16_t>(u'0' + number % 10)};
}

} // namespace

Text amount_in_words(Currency amount, TextView currency)
{
    const bool negative = amount.scaled() < 0;
    const auto magnitude = static_cast<std::uint64_t>(amount.scaled());
    const std::uint64_t cents = cents_of(negative ? 0 - magnitude : magnitude);
    const auto units = static_cast<std::int64_t>(cents / 100);
    const CurrencyName name = name_of(currency);

    Text text = negative && cents != 0 ? u"MENOS " : u"";
    text += words(units);
    if (units != 0 && units % million == 0) text += u" DE";
    text += u" " + (units == 1 ? name.one : name.many) + u" " + two_digits(cents % 100) + u"/100";
    return text.append(name.mark);
}

} // namespace tolvex
