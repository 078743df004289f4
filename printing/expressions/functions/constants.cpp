#include "printing/expressions/functions/constants.hpp"

#include <numbers>
#include <unordered_map>

namespace tolvex::printing {

namespace {

using Constants = std::unordered_map<Text, Variant>;

// "vbSunday" and "FirstDayOfWeek.Sunday"
void add_days_of_week(Constants& constants)
{
    int day = 0;
    for (const Text name :
         {u"sunday", u"monday", u"tuesday", u"wednesday", u"thursday", u"friday", u"saturday"}) {
        constants[u"dayofweek." + name] = day++;
        constants[u"firstdayofweek." + name] = constants[u"vb" + name] = day;
    }
    constants[u"firstdayofweek.system"] = constants[u"vbusesystemdayofweek"] = 0;
}

// Intervals are the texts that DateAdd and its like take too.
void add_intervals(Constants& constants)
{
    static constexpr std::pair<TextView, const char16_t*> intervals[] = {
        {u"year", u"yyyy"}, {u"quarter", u"q"}, {u"month", u"m"},       {u"dayofyear", u"y"},
        {u"day", u"d"},     {u"weekday", u"w"}, {u"weekofyear", u"ww"}, {u"hour", u"h"},
        {u"minute", u"n"},  {u"second", u"s"}};
    for (const auto& [name, interval] : intervals) constants[u"dateinterval." + Text(name)] = interval;
}

void add_texts(Constants& constants)
{
    static constexpr std::pair<TextView, const char16_t*> texts[] = {
        {u"crlf", u"\r\n"},   {u"newline", u"\r\n"}, {u"cr", u"\r"},       {u"lf", u"\n"},
        {u"tab", u"\t"},      {u"back", u"\b"},      {u"formfeed", u"\f"}, {u"verticaltab", u"\v"},
        {u"nullstring", u""}, {u"quote", u"\""}};
    for (const auto& [name, text] : texts)
        constants[u"controlchars." + Text(name)] = constants[u"vb" + Text(name)] = text;
    constants[u"environment.newline"] = u"\r\n";
    constants[u"string.empty"] = u"";
    constants[u"midpointrounding.toeven"] = u"ToEven";
    constants[u"midpointrounding.awayfromzero"] = u"AwayFromZero";
    constants[u"cultureinfo.invariantculture"] = u"invariant";
    constants[u"cultureinfo.currentculture"] = Variant(); // the one of the environment
}

void add_numbers(Constants& constants)
{
    static constexpr std::pair<TextView, int> numbers[] = {{u"dateformat.generaldate", 0},
                                                           {u"dateformat.longdate", 1},
                                                           {u"dateformat.shortdate", 2},
                                                           {u"dateformat.longtime", 3},
                                                           {u"dateformat.shorttime", 4},
                                                           {u"vbgeneraldate", 0},
                                                           {u"vblongdate", 1},
                                                           {u"vbshortdate", 2},
                                                           {u"vblongtime", 3},
                                                           {u"vbshorttime", 4},
                                                           {u"vbstrconv.none", 0},
                                                           {u"vbstrconv.uppercase", 1},
                                                           {u"vbstrconv.lowercase", 2},
                                                           {u"vbstrconv.propercase", 3},
                                                           {u"vbuppercase", 1},
                                                           {u"vblowercase", 2},
                                                           {u"vbpropercase", 3},
                                                           {u"tristate.true", -1},
                                                           {u"tristate.false", 0},
                                                           {u"tristate.usedefault", -2},
                                                           {u"vbtrue", -1},
                                                           {u"vbfalse", 0},
                                                           {u"vbusedefault", -2},
                                                           {u"comparemethod.binary", 0},
                                                           {u"comparemethod.text", 1},
                                                           {u"vbbinarycompare", 0},
                                                           {u"vbtextcompare", 1},
                                                           {u"firstweekofyear.system", 0},
                                                           {u"firstweekofyear.jan1", 1},
                                                           {u"firstweekofyear.firstfourdays", 2},
                                                           {u"firstweekofyear.firstfullweek", 3},
                                                           {u"vbfirstjan1", 1},
                                                           {u"vbfirstfourdays", 2},
                                                           {u"vbfirstfullweek", 3},
                                                           {u"integer.maxvalue", 2'147'483'647},
                                                           {u"int32.maxvalue", 2'147'483'647}};
    for (const auto& [name, number] : numbers) constants[Text(name)] = number;
    constants[u"math.pi"] = std::numbers::pi;
    constants[u"math.e"] = std::numbers::e;
}

Constants all_constants()
{
    Constants constants{
        {u"true", true}, {u"false", false}, {u"nothing", {}}, {u"null", {}}, {u"dbnull.value", {}}};
    add_days_of_week(constants);
    add_intervals(constants);
    add_texts(constants);
    add_numbers(constants);
    return constants;
}

} // namespace

const Variant* constant_named(const Text& key)
{
    static const Constants constants = all_constants();
    const auto found = constants.find(key);
    return found == constants.end() ? nullptr : &found->second;
}

} // namespace tolvex::printing
