#include "rebuilding/document_file.hpp"

#include "core/errors.hpp"
#include "core/text.hpp"
#include "issuing/seal.hpp"
#include "issuing/xml_files.hpp"
#include "platform/files.hpp"
#include "rebuilding/xml_comparison.hpp"

#include <algorithm>

namespace tolvex {

namespace {

using State = DocumentFile::State;

constexpr std::uint64_t largest_file = 64u << 20;

// The files that may be the document's, one after another: its own name, then the ones of earlier documents.
class Candidates
{
public:
    Candidates(const Text& working_folder, const DocumentValues& values)
        : working_folder_(working_folder), name_(comprobante_name(values)), moment_(values.DocFecha)
    {}

    // Empty after the last one.
    Text next()
    {
        while (times_ <= last_) {
            Text path = path_of(times_++);
            if (!files::exists_as_spelt(path)) continue;
            if (times_ > last_) ++last_; // they are counted without gaps
            return path;
        }
        return {};
    }

private:
    Text path_of(int times) const
    {
        return times == 0 ? xml_path(working_folder_, name_)
                          : earlier_xml_path(working_folder_, name_, moment_, times);
    }

    const Text working_folder_, name_, moment_;
    int times_ = 0, last_ = 2; // one may have been taken away
};

std::string value_at(const XmlValues& values, const std::string& place)
{
    const auto found = values.find(place);
    return found == values.end() ? "" : found->second;
}

// Whether a file that differs is this document's nevertheless.
bool is_of_same_document(const XmlValues& wanted, const XmlValues& found)
{
    const auto same = [&](const char* place) { return value_at(wanted, place) == value_at(found, place); };
    return same("@sello") || (same("@fecha") && same("@total") && same("cfdi:Receptor/@rfc"));
}

bool holds_attribute(const std::string& bytes, const std::string& name, const Text& value)
{
    return !value.empty() && bytes.find(name + "=\"" + to_utf8(value) + "\"") != std::string::npos;
}

// The extended root names the payment method before the issuer begins.
RootLayout layout_of(std::string_view bytes)
{
    return bytes.substr(0, bytes.find("<cfdi:Emisor")).find(" metodoDePago=") == std::string_view::npos
               ? RootLayout::standard
               : RootLayout::extended;
}

// As the original string spells it.
Text issuer_value(const XmlValues& values, const std::string& place)
{
    return utf8_characters(to_text(value_at(values, "cfdi:Emisor/" + place)));
}

// The issuer as the file has it, in the order of the original string, which knows the colonia too.
bool is_issuer_of(const std::vector<Text>& in_string, const XmlValues& values)
{
    std::vector<Text> in_file;
    for (const char* place : {"@rfc", "@nombre", "cfdi:DomicilioFiscal/@calle"})
        in_file.push_back(issuer_value(values, place));
    for (const char* place : {"noExterior", "municipio", "estado", "pais", "codigoPostal"}) {
        Text value = issuer_value(values, std::string("cfdi:DomicilioFiscal/@") + place);
        if (!value.empty()) in_file.push_back(std::move(value));
    }
    auto next = in_file.begin();
    for (const Text& value : in_string)
        if (next != in_file.end() && *next == value) ++next;
    const auto unmatched = std::ranges::count_if(in_string, [](const Text& v) { return !v.empty(); });
    const auto in_xml = std::ranges::count_if(in_file, [](const Text& v) { return !v.empty(); });
    return next == in_file.end() && unmatched - in_xml <= 1; // the colonia
}

void leave_out_issuer(XmlValues& values)
{
    std::erase_if(values, [](const auto& value) { return value.first.starts_with("cfdi:Emisor"); });
}

// Of a document whose company has changed since, the issuer is held to the original string instead.
void compare_issuer(const RebuiltDocument& document, XmlValues& wanted, XmlValues& found,
                    std::vector<Text>& told)
{
    if (!is_issuer_of(document.issuer_then, found))
        told.push_back(u"cfdi:Emisor: el emisor no es el de la cadena original");
    leave_out_issuer(wanted);
    leave_out_issuer(found);
}

DocumentFile compared(const RebuiltDocument& document, const std::string& expected, const std::string& bytes)
{
    XmlValues wanted = xml_values(expected), found;
    try {
        found = xml_values(bytes);
    } catch (const Error& error) {
        return {State::no_xml, {}, {error.description()}};
    }
    std::vector<Text> told;
    if (document.other_issuer) compare_issuer(document, wanted, found, told);
    std::ranges::move(differences(wanted, found), std::back_inserter(told));
    if (told.empty()) return {State::right, {}, {}};
    if (!is_of_same_document(wanted, found)) return {State::another, {}, {}};
    return {State::different, {}, std::move(told)};
}

DocumentFile read_file(const StoredIssue& issue, const RebuiltDocument& document, const Text& path)
{
    if (files::size(path) > largest_file) return {State::no_xml, {}, {u"es demasiado grande"}};
    const std::string bytes = files::read(path);
    const std::string expected =
        comprobante_bytes(issue.staged, document.values, issue.conceptos, layout_of(bytes));
    if (bytes == expected) return {State::right, {}, {}};
    return compared(document, expected, bytes);
}

} // namespace

DocumentFile find_file(const StoredIssue& issue, const RebuiltDocument& document)
{
    DocumentFile best;
    Candidates candidates(issue.staged.gRutaDeArchivos, document.values);
    for (Text path = candidates.next(); !path.empty(); path = candidates.next()) {
        DocumentFile file = read_file(issue, document, path);
        file.path = path;
        if (file.state < best.state) best = std::move(file);
        if (best.state == State::right) break;
    }
    return best;
}

bool has_file_of_its_own(const StoredIssue& issue, const DocumentValues& values)
{
    Candidates candidates(issue.staged.gRutaDeArchivos, values);
    for (Text path = candidates.next(); !path.empty(); path = candidates.next()) {
        if (files::size(path) > largest_file) continue;
        const std::string bytes = files::read(path);
        if (holds_attribute(bytes, "sello", issue.sello) || holds_attribute(bytes, "fecha", values.DocFecha))
            return true;
    }
    return false;
}

} // namespace tolvex
