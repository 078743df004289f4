#include "printing/expressions/culture.hpp"

#include "core/text.hpp"

namespace tolvex::printing {

namespace {

// What the countries of a language share; the functions below name what is a country's own.
Culture spanish(const Text& name)
{
    Culture culture;
    culture.name = name;
    culture.short_date = u"dd/MM/yyyy";
    culture.long_date = u"dddd, d 'de' MMMM 'de' yyyy";
    culture.short_time = u"hh:mm tt";
    culture.long_time = u"hh:mm:ss tt";
    culture.month_day = u"d 'de' MMMM";
    culture.year_month = u"MMMM 'de' yyyy";
    culture.months = {u"enero", u"febrero", u"marzo",      u"abril",   u"mayo",      u"junio",
                      u"julio", u"agosto",  u"septiembre", u"octubre", u"noviembre", u"diciembre"};
    culture.short_months = {u"ene", u"feb", u"mar", u"abr", u"may", u"jun",
                            u"jul", u"ago", u"sep", u"oct", u"nov", u"dic"};
    culture.days = {u"domingo", u"lunes", u"martes", u"miércoles", u"jueves", u"viernes", u"sábado"};
    culture.short_days = {u"dom", u"lun", u"mar", u"mié", u"jue", u"vie", u"sáb"};
    culture.am = u"a. m.";
    culture.pm = u"p. m.";
    return culture;
}

Culture english(const Text& name)
{
    Culture culture;
    culture.name = name;
    culture.short_date = u"M/d/yyyy";
    culture.long_date = u"dddd, MMMM d, yyyy";
    culture.short_time = u"h:mm tt";
    culture.long_time = u"h:mm:ss tt";
    culture.month_day = u"MMMM d";
    culture.year_month = u"MMMM yyyy";
    culture.months = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                      u"July",    u"August",   u"September", u"October", u"November", u"December"};
    culture.short_months = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                            u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
    culture.days = {u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"};
    culture.short_days = {u"Sun", u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat"};
    culture.am = u"AM";
    culture.pm = u"PM";
    return culture;
}

Culture french(const Text& name)
{
    Culture culture;
    culture.name = name;
    culture.short_date = u"dd/MM/yyyy";
    culture.long_date = u"dddd d MMMM yyyy";
    culture.short_time = u"HH:mm";
    culture.long_time = u"HH:mm:ss";
    culture.month_day = u"d MMMM";
    culture.year_month = u"MMMM yyyy";
    culture.months = {u"janvier", u"février", u"mars",      u"avril",   u"mai",      u"juin",
                      u"juillet", u"août",    u"septembre", u"octobre", u"novembre", u"décembre"};
    culture.short_months = {u"janv.", u"févr.", u"mars",  u"avr.", u"mai",  u"juin",
                            u"juil.", u"août",  u"sept.", u"oct.", u"nov.", u"déc."};
    culture.days = {u"dimanche", u"lundi", u"mardi", u"mercredi", u"jeudi", u"vendredi", u"samedi"};
    culture.short_days = {u"dim.", u"lun.", u"mar.", u"mer.", u"jeu.", u"ven.", u"sam."};
    culture.percent_apart = true;
    return culture;
}

Culture german(const Text& name)
{
    Culture culture;
    culture.name = name;
    culture.short_date = u"dd.MM.yyyy";
    culture.long_date = u"dddd, d. MMMM yyyy";
    culture.short_time = u"HH:mm";
    culture.long_time = u"HH:mm:ss";
    culture.month_day = u"d. MMMM";
    culture.year_month = u"MMMM yyyy";
    culture.months = {u"Januar", u"Februar", u"März",      u"April",   u"Mai",      u"Juni",
                      u"Juli",   u"August",  u"September", u"Oktober", u"November", u"Dezember"};
    culture.short_months = {u"Jan", u"Feb", u"Mrz", u"Apr", u"Mai", u"Jun",
                            u"Jul", u"Aug", u"Sep", u"Okt", u"Nov", u"Dez"};
    culture.days = {u"Sonntag", u"Montag", u"Dienstag", u"Mittwoch", u"Donnerstag", u"Freitag", u"Samstag"};
    culture.short_days = {u"So", u"Mo", u"Di", u"Mi", u"Do", u"Fr", u"Sa"};
    culture.percent_apart = true;
    return culture;
}

Culture italian(const Text& name)
{
    Culture culture;
    culture.name = name;
    culture.short_date = u"dd/MM/yyyy";
    culture.long_date = u"dddd d MMMM yyyy";
    culture.short_time = u"HH:mm";
    culture.long_time = u"HH:mm:ss";
    culture.month_day = u"d MMMM";
    culture.year_month = u"MMMM yyyy";
    culture.months = {u"gennaio", u"febbraio", u"marzo",     u"aprile",  u"maggio",   u"giugno",
                      u"luglio",  u"agosto",   u"settembre", u"ottobre", u"novembre", u"dicembre"};
    culture.short_months = {u"gen", u"feb", u"mar", u"apr", u"mag", u"giu",
                            u"lug", u"ago", u"set", u"ott", u"nov", u"dic"};
    culture.days = {u"domenica", u"lunedì", u"martedì", u"mercoledì", u"giovedì", u"venerdì", u"sabato"};
    culture.short_days = {u"dom", u"lun", u"mar", u"mer", u"gio", u"ven", u"sab"};
    return culture;
}

Culture portuguese(const Text& name)
{
    Culture culture;
    culture.name = name;
    culture.short_date = u"dd/MM/yyyy";
    culture.long_date = u"dddd, d 'de' MMMM 'de' yyyy";
    culture.short_time = u"HH:mm";
    culture.long_time = u"HH:mm:ss";
    culture.month_day = u"d 'de' MMMM";
    culture.year_month = u"MMMM 'de' yyyy";
    culture.months = {u"janeiro", u"fevereiro", u"março",    u"abril",   u"maio",     u"junho",
                      u"julho",   u"agosto",    u"setembro", u"outubro", u"novembro", u"dezembro"};
    culture.short_months = {u"jan", u"fev", u"mar", u"abr", u"mai", u"jun",
                            u"jul", u"ago", u"set", u"out", u"nov", u"dez"};
    culture.days = {u"domingo",      u"segunda-feira", u"terça-feira", u"quarta-feira",
                    u"quinta-feira", u"sexta-feira",   u"sábado"};
    culture.short_days = {u"dom", u"seg", u"ter", u"qua", u"qui", u"sex", u"sáb"};
    return culture;
}

Culture with_numbers(Culture culture, const Text& decimal_point, const Text& group_separator)
{
    culture.decimal_point = decimal_point;
    culture.group_separator = group_separator;
    return culture;
}

enum class Symbol
{
    before,
    before_apart,
    after_apart
};

Culture with_currency(Culture culture, const Text& symbol, Symbol place)
{
    culture.currency_symbol = symbol;
    culture.symbol_first = place != Symbol::after_apart;
    culture.symbol_apart = place != Symbol::before;
    return culture;
}

Culture with_dates(Culture culture, const Text& short_date, const Text& short_time, const Text& long_time)
{
    culture.short_date = short_date;
    culture.short_time = short_time;
    culture.long_time = long_time;
    return culture;
}

Culture spain()
{
    Culture culture = with_currency(with_numbers(spanish(u"es-ES"), u",", u"."), u"€", Symbol::after_apart);
    culture.percent_apart = true;
    return with_dates(culture, u"dd/MM/yyyy", u"H:mm", u"H:mm:ss");
}

Culture argentina()
{
    const Culture culture =
        with_currency(with_numbers(spanish(u"es-AR"), u",", u"."), u"$", Symbol::before_apart);
    return with_dates(culture, u"d/M/yyyy", u"HH:mm", u"HH:mm:ss");
}

Culture colombia()
{
    const Culture culture =
        with_currency(with_numbers(spanish(u"es-CO"), u",", u"."), u"$", Symbol::before_apart);
    return with_dates(culture, u"d/MM/yyyy", u"h:mm tt", u"h:mm:ss tt");
}

Culture chile()
{
    const Culture culture = with_numbers(spanish(u"es-CL"), u",", u".");
    return with_dates(culture, u"dd-MM-yyyy", u"H:mm", u"H:mm:ss");
}

Culture peru()
{
    const Culture culture = with_currency(spanish(u"es-PE"), u"S/", Symbol::before_apart);
    return with_dates(culture, u"d/MM/yyyy", u"HH:mm", u"HH:mm:ss");
}

Culture guatemala()
{
    const Culture culture = with_currency(spanish(u"es-GT"), u"Q", Symbol::before);
    return with_dates(culture, u"d/MM/yyyy", u"HH:mm", u"HH:mm:ss");
}

Culture united_states()
{
    Culture culture = english(u"en-US");
    culture.negative_in_parentheses = true;
    culture.percent_apart = true;
    return culture;
}

Culture great_britain()
{
    Culture culture = with_currency(english(u"en-GB"), u"£", Symbol::before);
    culture.long_date = u"dd MMMM yyyy";
    culture.month_day = u"d MMMM";
    return with_dates(culture, u"dd/MM/yyyy", u"HH:mm", u"HH:mm:ss");
}

Culture english_canada()
{
    Culture culture = english(u"en-CA");
    culture.long_date = u"MMMM d, yyyy";
    culture.am = u"a.m.";
    culture.pm = u"p.m.";
    return with_dates(culture, u"yyyy-MM-dd", u"h:mm tt", u"h:mm:ss tt");
}

Culture france()
{
    return with_currency(with_numbers(french(u"fr-FR"), u",", u"\u00A0"), u"€", Symbol::after_apart);
}

Culture french_canada()
{
    Culture culture =
        with_currency(with_numbers(french(u"fr-CA"), u",", u"\u00A0"), u"$", Symbol::after_apart);
    culture.long_date = u"d MMMM yyyy";
    return with_dates(culture, u"yyyy-MM-dd", u"HH:mm", u"HH:mm:ss");
}

Culture germany()
{
    return with_currency(with_numbers(german(u"de-DE"), u",", u"."), u"€", Symbol::after_apart);
}

Culture italy()
{
    return with_currency(with_numbers(italian(u"it-IT"), u",", u"."), u"€", Symbol::after_apart);
}

Culture brazil()
{
    return with_currency(with_numbers(portuguese(u"pt-BR"), u",", u"."), u"R$", Symbol::before_apart);
}

Culture portugal()
{
    return with_currency(with_numbers(portuguese(u"pt-PT"), u",", u"\u00A0"), u"€", Symbol::after_apart);
}

Culture of_no_country()
{
    Culture culture = with_currency(english(u"invariant"), u"¤", Symbol::before);
    culture.long_date = u"dddd, dd MMMM yyyy";
    culture.month_day = u"MMMM dd";
    culture.year_month = u"yyyy MMMM";
    culture.negative_in_parentheses = true;
    culture.percent_apart = true;
    return with_dates(culture, u"MM/dd/yyyy", u"HH:mm", u"HH:mm:ss");
}

// The first of a language stands for its other countries.
const std::vector<Culture>& cultures()
{
    static const std::vector<Culture> all = {spanish(u"es-MX"), spain(),         argentina(),
                                             colombia(),        chile(),         peru(),
                                             guatemala(),       united_states(), great_britain(),
                                             english_canada(),  france(),        french_canada(),
                                             germany(),         italy(),         brazil(),
                                             portugal(),        of_no_country()};
    return all;
}

} // namespace

const Culture& culture(TextView name)
{
    for (const Culture& known : cultures())
        if (equal_ignoring_case(known.name, name)) return known;
    const TextView language = name.substr(0, name.find(u'-'));
    for (const Culture& known : cultures())
        if (equal_ignoring_case(TextView(known.name).substr(0, known.name.find(u'-')), language))
            return known;
    return cultures().front();
}

} // namespace tolvex::printing
