#include "rebuilding/rebuilt_document.hpp"

#include "core/code_pages.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "issuing/original_string.hpp"
#include "issuing/seal.hpp"
#include "rebuilding/host_spelling.hpp"

#include <algorithm>

namespace tolvex {

namespace {

// The VAT rate stands nowhere but in the string: after the last "IVA".
std::int16_t rate_of(TextView original)
{
    constexpr TextView before = u"|IVA|";
    const auto place = original.rfind(before);
    if (place == TextView::npos) return 0;
    const TextView rate = original.substr(place + before.size());
    return trapping(std::int16_t{0}, [&] { return to_int16(to_number(rate.substr(0, rate.find(u'|')))); });
}

// The pieces of a string as it is stored, one character per byte.
struct Pieces
{
    std::vector<Text> values;
    std::vector<Text> names;
    std::size_t issuer_begins = 0, issuer_ends = 0; // among these pieces
};

Text name_of(const OriginalPiece& piece)
{
    const Text name(piece.name);
    return piece.line == 0 ? name : name + u" del renglón " + decimal(piece.line);
}

// A value with bars in it is several pieces.
Pieces pieces_of_rows(const OriginalPieces& pieces)
{
    Pieces split_up;
    for (const OriginalPiece& piece : pieces) {
        const bool of_header = piece.of == OriginalPiece::Of::header;
        for (Text& value : split(utf8_characters(piece.value), u'|')) {
            split_up.values.push_back(std::move(value));
            split_up.names.push_back(name_of(piece));
        }
        if (of_header) split_up.issuer_begins = split_up.values.size();
        if (of_header || piece.of == OriginalPiece::Of::issuer) split_up.issuer_ends = split_up.values.size();
    }
    return split_up;
}

Text text_of(const Pieces& pieces) { return u"||" + join(pieces.values, u"|") + u"||"; }

std::vector<Text> pieces_of_string(TextView original)
{
    constexpr TextView bars = u"||";
    if (original.starts_with(bars)) original.remove_prefix(bars.size());
    if (original.ends_with(bars)) original.remove_suffix(bars.size());
    return split(Text(original), u'|');
}

// For a person: bytes become characters again, long texts are cut.
Text shown(const std::vector<Text>& values, std::size_t begin, std::size_t end)
{
    constexpr std::size_t longest = 120;
    Text bytes;
    for (std::size_t i = begin; i < end; ++i) bytes += (i > begin ? u"|" : u"") + values[i];
    const Text text = trapping(bytes, [&] { return to_text(bytes_of_text(bytes)); });
    return text.size() <= longest ? text : text.substr(0, longest) + u"…";
}

// Where two strings part and where they are one again.
struct Middle
{
    std::size_t begin, stored_end, rows_end;
};

Middle middle_of(const std::vector<Text>& stored, const std::vector<Text>& rows)
{
    Middle middle{0, stored.size(), rows.size()};
    while (middle.begin < std::min(stored.size(), rows.size()) && stored[middle.begin] == rows[middle.begin])
        ++middle.begin;
    while (middle.stored_end > middle.begin && middle.rows_end > middle.begin &&
           stored[middle.stored_end - 1] == rows[middle.rows_end - 1]) {
        --middle.stored_end;
        --middle.rows_end;
    }
    return middle;
}

// One by one where as many stand on both sides, else all that lies between as one.
std::vector<Difference> differences_in(const Middle& middle, const std::vector<Text>& stored,
                                       const Pieces& rows)
{
    std::vector<Difference> differences;
    const auto name = [&](std::size_t i) {
        return i < rows.names.size() ? rows.names[i] : Text(u"final de la cadena");
    };
    if (middle.stored_end != middle.rows_end)
        return {{name(middle.begin), shown(stored, middle.begin, middle.stored_end),
                 shown(rows.values, middle.begin, middle.rows_end)}};
    for (std::size_t i = middle.begin; i < middle.rows_end; ++i)
        if (stored[i] != rows.values[i])
            differences.push_back({name(i), shown(stored, i, i + 1), shown(rows.values, i, i + 1)});
    return differences;
}

// Everything but the issuer is the same on both sides.
void compare(RebuiltDocument& document, const Pieces& rows)
{
    const std::vector<Text> stored = pieces_of_string(document.values.original_string);
    const Middle middle = middle_of(stored, rows.values);
    document.differences = differences_in(middle, stored, rows);
    const bool within_issuer = middle.begin >= rows.issuer_begins && middle.rows_end <= rows.issuer_ends;
    if (!within_issuer) return;
    document.other_issuer = true;
    const auto after_issuer = static_cast<std::ptrdiff_t>(rows.values.size() - rows.issuer_ends);
    document.issuer_then.assign(stored.begin() + static_cast<std::ptrdiff_t>(rows.issuer_begins),
                                stored.end() - after_issuer);
}

Pieces build_pieces(StoredIssue& issue, RebuiltDocument& document)
{
    document.values = stored_values(issue);
    return pieces_of_rows(original_pieces(issue.staged, document.values));
}

} // namespace

RebuiltDocument rebuild(StoredIssue& issue)
{
    RebuiltDocument document;
    Pieces rows = build_pieces(issue, document);
    if (text_of(rows) == issue.original_string) return document;
    restore_host_spelling(issue);
    rows = build_pieces(issue, document);
    if (text_of(rows) != issue.original_string) compare(document, rows);
    return document;
}

DocumentValues stored_values(const StoredIssue& issue)
{
    IssueOptions options;
    options.vlTipoDocumento = issue.kind == u"N" ? u"egreso" : u"ingreso";
    options.vlTasaDeIva = rate_of(issue.original_string);
    DocumentValues values = document_values(issue.staged, issue.folio_number, options);
    values.original_string = issue.original_string;
    values.sello = issue.sello;
    return values;
}

Text in_words(const Difference& difference)
{
    const auto quoted = [](const Text& value) { return value.empty() ? u"nada" : u"«" + value + u"»"; };
    return difference.what + u": se guardó " + quoted(difference.stored) + u" y los registros dan " +
           quoted(difference.rows);
}

} // namespace tolvex
