#include "database/odbc/driver_choice.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/connection_keywords.hpp"

#include <algorithm>
#include <optional>

namespace tolvex::odbc {

namespace {

Text without_braces(const Text& name)
{
    const bool braces = name.size() >= 2 && name.front() == u'{' && name.back() == u'}';
    return braces ? name.substr(1, name.size() - 2) : name;
}

bool is_installed(const std::vector<Text>& installed, const Text& name)
{
    return std::any_of(installed.begin(), installed.end(),
                       [&](const Text& driver) { return equal_ignoring_case(driver, name); });
}

// "ODBC Driver 18 for SQL Server": 18; 0 for any other name.
double vendor_version(const Text& name)
{
    const Text prefix = u"ODBC Driver ";
    const bool is_vendors =
        starts_with_ignoring_case(name, prefix) && name.find(u" for SQL Server") != Text::npos;
    return is_vendors ? leading_number(name.substr(prefix.size())) : 0;
}

std::optional<Text> newest_vendor_driver(const std::vector<Text>& installed)
{
    const auto newest =
        std::max_element(installed.begin(), installed.end(),
                         [](const Text& a, const Text& b) { return vendor_version(a) < vendor_version(b); });
    if (newest == installed.end() || vendor_version(*newest) == 0) return {};
    return *newest;
}

// These drivers encrypt by themselves and refuse the certificate that a server makes for itself; the driver
// named in the string does neither. Of a repeated keyword they take the first.
Text for_vendor_driver(const Text& connection_string, const Text& name)
{
    Text mapped = with_keyword(connection_string, u"driver", u"{" + name + u"}");
    if (!has_keyword(mapped, u"TrustServerCertificate")) mapped += u";TrustServerCertificate=yes";
    return mapped;
}

// Port of "server=host,port"; else the standard one, except for a named instance, whose port FreeTDS asks
// for.
Text port_of(const Text& server)
{
    const auto comma = server.find(u',');
    if (comma != Text::npos) return trim(server.substr(comma + 1));
    return server.find(u'\\') == Text::npos ? u"1433" : u"";
}

// FreeTDS ends a value in braces where a ";" follows the brace, and knows no doubled one. The driver manager
// stumbles over that, unless it has read all else before.
Text with_password_last(const Text& connection_string)
{
    const Text password = keyword(connection_string, u"pwd");
    if (!password.starts_with(u'{')) return connection_string;
    return without_keyword(connection_string, u"pwd") + u";pwd=" + replace_all(password, u"}}", u"}") + u";";
}

// FreeTDS has to be told the protocol, the character set, not to cut long texts, and host and port one by
// one: left to split them by itself, it sends the host's name with a NUL in it.
Text for_freetds(const Text& connection_string, const Text& driver)
{
    const Text server = keyword(connection_string, u"server");
    const Text port = port_of(server);
    Text mapped = with_keyword(connection_string, u"driver", driver);
    mapped = with_keyword(mapped, u"server", trim(server.substr(0, server.find(u','))));
    if (!port.empty() && !has_keyword(mapped, u"port")) mapped += u";port=" + port;
    return with_password_last(mapped + u";TDS_Version=7.4;ClientCharset=UTF-8;TextSize=2147483647");
}

} // namespace

Text for_installed_driver(const Text& connection_string, const std::vector<Text>& installed)
{
    const Text whole = with_password_in_braces(connection_string);
    const Text name = without_braces(keyword(whole, u"driver"));
    if (!equal_ignoring_case(name, u"SQL Server") || is_installed(installed, name)) return whole;
    if (const auto vendors = newest_vendor_driver(installed)) return for_vendor_driver(whole, *vendors);
    // Not registered, its library may still be installed: the driver manager also takes a library's name.
    return for_freetds(whole, is_installed(installed, u"FreeTDS") ? u"{FreeTDS}" : u"libtdsodbc.so");
}

} // namespace tolvex::odbc
