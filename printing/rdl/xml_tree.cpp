#include "printing/rdl/xml_tree.hpp"

#include "core/code_pages.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "platform/expat_reason.hpp"

#include <expat.h>

#include <algorithm>
#include <memory>
#include <type_traits>

namespace tolvex::printing {

namespace {

constexpr std::size_t most_levels = 200;
constexpr std::size_t most_elements = 200'000;

struct Free
{
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free>;

// Gives expat what the bytes of Windows code page 1252 stand for.
int XMLCALL know_encoding(void*, const XML_Char* name, XML_Encoding* encoding)
{
    const Text wanted = lower_case(to_text(name));
    if (wanted != u"windows-1252" && wanted != u"cp1252") return XML_STATUS_ERROR;
    std::string bytes(256, '\0');
    for (int i = 0; i < 256; ++i) bytes[i] = static_cast<char>(i);
    std::ranges::copy(from_windows_1252(bytes), encoding->map);
    encoding->convert = nullptr;
    encoding->release = nullptr;
    return XML_STATUS_OK;
}

// Builds the tree from what expat meets. No exception may pass through expat, so a refusal is kept until it
// is back.
class Builder
{
public:
    explicit Builder(std::deque<Element>& elements) : elements_(elements), parser_(new_parser())
    {
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), &Builder::on_start, &Builder::on_end);
        XML_SetCharacterDataHandler(parser_.get(), &Builder::on_text);
        XML_SetStartDoctypeDeclHandler(parser_.get(), &Builder::on_doctype);
        XML_SetUnknownEncodingHandler(parser_.get(), &know_encoding, nullptr);
    }

    void build(std::string_view bytes)
    {
        const XML_Status status =
            XML_Parse(parser_.get(), bytes.data(), static_cast<int>(bytes.size()), true);
        if (status == XML_STATUS_OK) return;
        throw invalid_call(u"Línea " + decimal(line()) + u": " +
                           (refusal_.empty() ? expat_reason(XML_GetErrorCode(parser_.get())) : refusal_));
    }

private:
    static constexpr char separator = '\n'; // between namespace and name; no namespace holds one

    static Parser new_parser()
    {
        Parser parser(XML_ParserCreateNS(nullptr, separator));
        if (!parser) throw std::bad_alloc();
        return parser;
    }

    static void XMLCALL on_start(void* builder, const XML_Char* name, const XML_Char** attributes)
    {
        static_cast<Builder*>(builder)->start(name, attributes);
    }

    static void XMLCALL on_end(void* builder, const XML_Char*) { static_cast<Builder*>(builder)->end(); }

    static void XMLCALL on_text(void* builder, const XML_Char* text, int length)
    {
        static_cast<Builder*>(builder)->pending_.append(text, static_cast<std::size_t>(length));
    }

    static void XMLCALL on_doctype(void* builder, const XML_Char*, const XML_Char*, const XML_Char*, int)
    {
        static_cast<Builder*>(builder)->refuse(u"no se admite DOCTYPE (entidades propias o externas)");
    }

    void start(const char* name, const char** attributes)
    {
        if (open_.size() == most_levels) return refuse(u"hay demasiados niveles de elementos");
        if (elements_.size() == most_elements) return refuse(u"hay demasiados elementos");
        take_text();
        Element& element = elements_.emplace_back();
        std::tie(element.name_space, element.name) = parts(name);
        for (; *attributes != nullptr; attributes += 2)
            element.attributes.emplace(parts(attributes[0]).second, to_text(attributes[1]));
        element.line = line();
        if (!open_.empty()) {
            element.parent = open_.back();
            open_.back()->children.push_back(&element);
        }
        open_.push_back(&element);
    }

    void end()
    {
        take_text();
        open_.pop_back();
    }

    // Gives the text that came since the last tag to the open element. What only indents its children is
    // none.
    void take_text()
    {
        const bool indents = pending_.find_first_not_of(" \t\n") == std::string::npos;
        if (!open_.empty() && !(indents && pending_.find('\n') != std::string::npos))
            open_.back()->text += to_text(pending_);
        pending_.clear();
    }

    void refuse(Text why)
    {
        if (refusal_.empty()) refusal_ = std::move(why);
        XML_StopParser(parser_.get(), false);
    }

    int line() const { return static_cast<int>(XML_GetCurrentLineNumber(parser_.get())); }

    static std::pair<Text, Text> parts(std::string_view name)
    {
        const auto end = name.find(separator);
        if (end == std::string_view::npos) return {Text(), to_text(name)};
        return {to_text(name.substr(0, end)), to_text(name.substr(end + 1))};
    }

    std::deque<Element>& elements_;
    std::vector<Element*> open_;
    std::string pending_;
    Text refusal_;
    const Parser parser_;
};

} // namespace

XmlTree::XmlTree(std::string_view bytes) { Builder(elements_).build(bytes); }

} // namespace tolvex::printing
