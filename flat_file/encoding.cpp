#include "flat_file/encoding.hpp"

#include "core/code_pages.hpp"
#include "core/errors.hpp"
#include "core/utf8.hpp"

#include <algorithm>

namespace tolvex {

namespace {

// The Spanish letters and signs beyond ASCII, in either code page.
constexpr std::string_view spanish_in_1252 =
    "\xE1\xE9\xED\xF3\xFA\xFC\xF1\xC1\xC9\xCD\xD3\xDA\xDC\xD1\xBF\xAA\xBA\xB0";
constexpr std::string_view spanish_in_850 =
    "\xA0\x82\xA1\xA2\xA3\x81\xA4\xB5\x90\xD6\xE0\x9A\xA5\xA8\xA6\xA7";

bool is_utf16(std::string_view bytes)
{
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return true;
    const auto zeros = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\0'));
    return zeros > 0 && zeros >= bytes.size() / 4; // every second byte of plain letters
}

bool ends_lines_with_cr_alone(std::string_view bytes)
{
    return bytes.find('\n') == std::string_view::npos && bytes.find('\r') != std::string_view::npos;
}

bool is_utf8(std::string_view bytes)
{
    std::size_t sound = 0, bad = 0;
    while (!bytes.empty()) {
        const std::size_t length = utf8_length(bytes);
        if (length == 0) ++bad;
        if (length > 1) ++sound;
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return bad == 0 || sound > bad;
}

std::size_t count_of(std::string_view letters, std::string_view bytes)
{
    return static_cast<std::size_t>(std::count_if(
        bytes.begin(), bytes.end(), [&](char byte) { return letters.find(byte) != std::string_view::npos; }));
}

Error wrong_file(const Text& what) { return invalid_call(u"El archivo " + what); }

} // namespace

Encoding encoding_of(std::string_view bytes)
{
    if (is_utf16(bytes))
        throw wrong_file(u"está en UTF-16 («Unicode» en el Bloc de notas): guárdelo como UTF-8");
    if (ends_lines_with_cr_alone(bytes))
        throw wrong_file(
            u"termina sus renglones sólo con CR: guárdelo con finales de renglón de Windows (CR LF)");
    if (is_utf8(bytes)) return Encoding::utf8;
    if (count_of(spanish_in_850, bytes) > count_of(spanish_in_1252, bytes))
        throw wrong_file(
            u"parece de un programa de DOS (página de códigos 850), y leído como Windows-1252 tendría "
            u"otras letras: guárdelo como UTF-8, o emítalo con «tolvex emite --codificacion cp850»");
    return Encoding::windows_1252;
}

Text decoded(std::string_view bytes, Encoding encoding)
{
    switch (encoding) {
    case Encoding::windows_1252:
        return from_windows_1252(bytes);
    case Encoding::code_page_850:
        return from_code_page_850(bytes);
    case Encoding::utf8:
        break;
    }
    return to_text(bytes);
}

} // namespace tolvex
