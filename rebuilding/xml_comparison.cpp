#include "rebuilding/xml_comparison.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "platform/expat_reason.hpp"

#include <memory>
#include <type_traits>

namespace tolvex {

namespace {

constexpr std::size_t most_levels = 50; // a document of ours has five

struct Free
{
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free>;

// Keeps what expat meets. No exception may pass through expat: what it may throw is memory that is not there,
// which ends the program there too.
class Collector
{
public:
    explicit Collector(XmlValues& values) : values_(values), parser_(XML_ParserCreate(nullptr))
    {
        if (!parser_) throw std::bad_alloc();
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), &Collector::on_start, &Collector::on_end);
        XML_SetCharacterDataHandler(parser_.get(), &Collector::on_text);
        XML_SetStartDoctypeDeclHandler(parser_.get(), &Collector::on_doctype);
    }

    void collect(std::string_view bytes)
    {
        if (XML_Parse(parser_.get(), bytes.data(), static_cast<int>(bytes.size()), true) == XML_STATUS_OK)
            return;
        const Text reason = refusal_.empty() ? expat_reason(XML_GetErrorCode(parser_.get())) : Text(refusal_);
        throw invalid_call(u"línea " +
                           decimal(static_cast<std::int64_t>(XML_GetCurrentLineNumber(parser_.get()))) +
                           u": " + reason);
    }

private:
    static void XMLCALL on_start(void* collector, const XML_Char* name, const XML_Char** attributes)
    {
        static_cast<Collector*>(collector)->start(name, attributes);
    }
    static void XMLCALL on_end(void* collector, const XML_Char*)
    {
        static_cast<Collector*>(collector)->end();
    }
    static void XMLCALL on_text(void* collector, const XML_Char* text, int length)
    {
        static_cast<Collector*>(collector)->add_text({text, static_cast<std::size_t>(length)});
    }
    static void XMLCALL on_doctype(void* collector, const XML_Char*, const XML_Char*, const XML_Char*, int)
    {
        static_cast<Collector*>(collector)->refuse(u"no se admite DOCTYPE");
    }

    void refuse(TextView reason)
    {
        refusal_ = reason;
        XML_StopParser(parser_.get(), XML_FALSE);
    }

    // An open element: the path of what lies in it, and how many of each name it has had.
    struct Level
    {
        std::string path;
        std::map<std::string, int> children;
    };

    void start(const char* name, const char** attributes)
    {
        if (skipped_ > 0 || (levels_.size() == 1 && std::string_view(name) == "Addenda")) {
            ++skipped_;
            return;
        }
        if (levels_.size() == most_levels) return refuse(u"hay demasiados niveles de elementos");
        const std::string path = levels_.empty() ? std::string() : path_of_child(levels_.back(), name);
        values_[path.empty() ? name : path.substr(0, path.size() - 1)]; // it is there, attributes or not
        for (; *attributes != nullptr; attributes += 2) values_[path + "@" + attributes[0]] = attributes[1];
        levels_.push_back({path, {}});
    }

    static std::string path_of_child(Level& parent, const std::string& name)
    {
        const int number = ++parent.children[name];
        return parent.path + name + (number > 1 ? "[" + std::to_string(number) + "]" : "") + "/";
    }

    void end()
    {
        if (skipped_ > 0)
            --skipped_;
        else
            levels_.pop_back();
    }

    void add_text(std::string_view text)
    {
        if (skipped_ > 0 || text.find_first_not_of(" \t\r\n") == std::string_view::npos) return;
        values_[levels_.back().path + "text()"] += text;
    }

    XmlValues& values_;
    const Parser parser_;
    std::vector<Level> levels_;
    int skipped_ = 0; // levels below and with an Addenda
    TextView refusal_;
};

Text quoted(const std::string& value)
{
    constexpr std::size_t longest = 120;
    const Text text = to_text(value);
    return u"«" + (text.size() <= longest ? text : text.substr(0, longest) + u"…") + u"»";
}

} // namespace

XmlValues xml_values(std::string_view bytes)
{
    XmlValues values;
    Collector(values).collect(bytes);
    return values;
}

std::vector<Text> differences(const XmlValues& expected, const XmlValues& found)
{
    std::vector<Text> told;
    for (const auto& [place, value] : expected) {
        const auto there = found.find(place);
        if (there == found.end())
            told.push_back(u"falta " + to_text(place) + (value.empty() ? Text() : u" " + quoted(value)));
        else if (there->second != value)
            told.push_back(to_text(place) + u": el XML dice " + quoted(there->second) + u" y debe decir " +
                           quoted(value));
    }
    for (const auto& [place, value] : found)
        if (!expected.contains(place))
            told.push_back(u"sobra " + to_text(place) + (value.empty() ? Text() : u" " + quoted(value)));
    return told;
}

} // namespace tolvex
