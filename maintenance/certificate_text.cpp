#include "maintenance/certificate_text.hpp"

#include <algorithm>

namespace tolvex {

namespace {

// As many characters as there are, from a position that counts from 1.
TextView part(TextView text, std::size_t position, std::size_t length)
{
    return text.size() < position ? TextView() : text.substr(position - 1, length);
}

// "Oct 22 16:42:26 2010", without the name before it.
TextView moment_of(TextView line)
{
    constexpr std::size_t length = 20;
    if (upper_case(part(line, 1, 9)) == u"NOTBEFORE") return part(line, 11, length);
    if (upper_case(part(line, 1, 8)) == u"NOTAFTER") return part(line, 10, length);
    return line;
}

Text month_number(TextView name)
{
    constexpr TextView names = u"JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC", numbers = u"010203040506070809101112";
    const Text wanted = upper_case(name);
    for (std::size_t month = 0; month < 12; ++month)
        if (names.substr(month * 3, 3) == wanted) return Text(numbers.substr(month * 2, 2));
    return u"00";
}

bool is_marker(TextView line)
{
    const Text upper = upper_case(line);
    const auto names = {u"CERTIFICATE", u"X509 CERTIFICATE", u"TRUSTED CERTIFICATE"};
    return std::any_of(names.begin(), names.end(), [&](const Text& name) {
        return upper.find(u"BEGIN " + name) != Text::npos || upper.find(u"END " + name) != Text::npos;
    });
}

} // namespace

Text FiltraCaracteres(TextView text, TextView allowed) { return keep_only(text, allowed); }

Text ConvierteFecha(TextView line)
{
    const Text trimmed = trim(line);
    const TextView moment = moment_of(trimmed);
    if (moment.empty()) return {};
    const TextView month = part(moment, 1, 3), day = part(moment, 5, 2), year = part(moment, 16, 5);
    return FiltraCaracteres(Text(day) + u"-" + month_number(month) + u"-" + Text(year), u"0123456789-/");
}

Text ObtenNumeroCertificado(TextView serial)
{
    if (serial.size() < 2) return {};
    const Text digits = FiltraCaracteres(serial, u"0123456789");
    Text number;
    for (std::size_t i = 0; i < digits.size(); i += 2) number += digits[std::min(i + 1, digits.size() - 1)];
    return number;
}

Text ExtraeCertificado(TextView pem)
{
    Text body, line;
    for (const char16_t c : pem) {
        if (c != u'\r' && c != u'\n') {
            line += c;
            continue;
        }
        if (!is_marker(line)) body += line + u"\r\n";
        line.clear();
    }
    return body;
}

} // namespace tolvex
