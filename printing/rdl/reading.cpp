#include "printing/rdl/reading.hpp"

#include "core/numbers.hpp"
#include "printing/rdl/lengths.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>

namespace tolvex::printing {

namespace {

// What does not change a printed page: for screens, exports, designers, servers and queries. The end colour
// of a gradient depends on its type, which tells whether there is one; KeepTogether stands here for items
// without rows. A line for each, as the formatter would have it, is too long a list.
// clang-format off
const std::set<TextView> harmless = {
    u"AccentSensitivity", u"AutoRefresh", u"BackgroundGradientEndColor", u"BackgroundHatchType",
    u"CaseSensitivity", u"CellDataElementName", u"CellDataElementOutput", u"Collation",
    u"ConsumeContainerWhitespace", u"CustomProperties", u"DataCollectionName", u"DataElementLabel",
    u"DataElementName", u"DataElementOutput", u"DataElementStyle", u"DataInstanceElementOutput",
    u"DataInstanceName", u"DataSchema", u"DataSourceName", u"DataSources", u"DataTransform",
    u"DeferVariableEvaluation", u"DetailDataCollectionName", u"DetailDataElementName",
    u"DetailDataElementOutput", u"FillPage", u"FixedColumnHeaders", u"FixedData", u"FixedHeader",
    u"FixedRowHeaders", u"InitialPageName", u"InteractiveHeight", u"InteractiveWidth",
    u"InterpretSubtotalsAsDetails", u"KanatypeSensitivity", u"KeepTogether", u"LinkToChild",
    u"MergeTransactions", u"NaturalGroup", u"NaturalSort", u"OmitBorderOnPageBreak", u"PageName",
    u"PrintBetweenSections", u"Prompt", u"ReportParametersLayout", u"Timeout", u"ToggleImage",
    u"ToggleItem", u"ToolTip", u"Transaction", u"TypeName", u"UsedInQuery", u"UserSort", u"WidthSensitivity",
    u"Writable"};
// clang-format on

struct PlainValue
{
    TextView name, value;
};

// What changes nothing with the value that it has by itself.
constexpr std::array<PlainValue, 15> plain_values = {{{u"BackgroundGradientType", u"None"},
                                                      {u"BackgroundGradientType", u"Default"},
                                                      {u"Calendar", u"Default"},
                                                      {u"Calendar", u"Gregorian"},
                                                      {u"Direction", u"LTR"},
                                                      {u"Direction", u"Default"},
                                                      {u"GroupsBeforeRowHeaders", u"0"},
                                                      {u"LayoutDirection", u"LTR"},
                                                      {u"MarkupType", u"None"},
                                                      {u"NumeralVariant", u"1"},
                                                      {u"NumeralVariant", u"2"},
                                                      {u"Omit", u"false"},
                                                      {u"TextEffect", u"Default"},
                                                      {u"UnicodeBiDi", u"Normal"},
                                                      {u"UnicodeBiDi", u"Default"}}};

bool is_harmless(const Element& element)
{
    if (element.children.empty() && trim(element.text).empty()) return true;
    return harmless.contains(element.name) || std::ranges::any_of(plain_values, [&](const PlainValue& plain) {
               return plain.name == element.name && plain.value == trim(element.text);
           });
}

// What designers add of their own lies in other namespaces.
bool is_foreign(const Element& element) { return element.name_space != element.parent->name_space; }

bool is_number(TextView text)
{
    const std::string digits = to_utf8(text);
    double number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() && end == digits.data() + digits.size();
}

// A literal of a data type as an expression of that type, which a bare literal would be a text of.
Text typed_literal(const Text& type, const Text& text)
{
    const Text value = trim(text);
    if ((type == u"Integer" || type == u"Float") && is_number(value)) return u"=" + value;
    if (type == u"Boolean" && (value == u"true" || value == u"false")) return u"=" + value;
    if (type == u"DateTime" && !value.empty()) return u"=CDate(" + basic_literal(value) + u")";
    return text;
}

Text source_of(const Element& element)
{
    if (attribute(element, u"nil") == u"true") return u"=Nothing";
    const bool is_expression = element.text.starts_with(u'=');
    if (!is_expression) return typed_literal(attribute(element, u"DataType"), element.text);
    const bool is_constant = attribute(element, u"EvaluationMode") == u"Constant";
    return is_constant ? u"=" + basic_literal(element.text) : element.text;
}

Text not_a_length(const Element& element)
{
    return element.name + u" \"" + element.text + u"\" no es una medida (in, cm, mm, pt, pc)";
}

} // namespace

Place place_of(const Element& element)
{
    const Element* named = &element;
    while (named->parent != nullptr && attribute(*named, u"Name").empty()) named = named->parent;
    const Text name = attribute(*named, u"Name");
    return {name.empty() ? named->name : named->name + u" \"" + name + u"\"", element.line};
}

Error wrong(const Element& element, const Text& reason)
{
    const Place place = place_of(element);
    return invalid_call(u"Línea " + decimal(place.line) + u", " + place.element + u": " + reason);
}

Text attribute(const Element& element, TextView name)
{
    const auto found = element.attributes.find(Text(name));
    return found == element.attributes.end() ? Text() : found->second;
}

const Element* Reading::child(const Element& parent, TextView name)
{
    for (const Element* element : parent.children)
        if (element->name == name && !is_foreign(*element)) return read_.insert(element), element;
    return nullptr;
}

const Element* Reading::child(const Element& parent, TextView name, TextView older_name)
{
    const Element* const newer = child(parent, name);
    return newer != nullptr ? newer : child(parent, older_name);
}

std::vector<const Element*> Reading::children(const Element& parent)
{
    std::vector<const Element*> found = parent.children;
    std::erase_if(found, [](const Element* element) { return is_foreign(*element); });
    read_.insert(found.begin(), found.end());
    return found;
}

std::vector<const Element*> Reading::children(const Element& parent, TextView name)
{
    std::vector<const Element*> found = parent.children;
    std::erase_if(found, [&](const Element* e) { return e->name != name || is_foreign(*e); });
    read_.insert(found.begin(), found.end());
    return found;
}

std::vector<const Element*> Reading::members(const Element& parent, TextView collection, TextView name)
{
    const Element* const all = child(parent, collection);
    return all == nullptr ? std::vector<const Element*>() : children(*all, name);
}

Text Reading::text(const Element& parent, TextView name)
{
    const Element* const element = child(parent, name);
    return element == nullptr ? Text() : trim(element->text);
}

Expression Reading::expression(const Element& parent, TextView name)
{
    const Element* const element = child(parent, name);
    return element == nullptr ? Expression() : value(*element);
}

Expression Reading::expression(const Element& parent, TextView name, TextView older_name)
{
    const Element* const element = child(parent, name, older_name);
    return element == nullptr ? Expression() : value(*element);
}

Expression Reading::choice(const Element& parent, TextView name)
{
    const Expression chosen = expression(parent, name);
    return chosen.is_literal() && chosen.source() == u"Default" ? Expression() : chosen;
}

Expression Reading::length_expression(const Element& parent, TextView name)
{
    const Expression length = expression(parent, name);
    if (length.is_literal() && !length.is_empty() && !points(length.source()))
        throw wrong(*child(parent, name), not_a_length(*child(parent, name)));
    return length;
}

bool Reading::boolean(const Element& parent, TextView name)
{
    const Element* const element = child(parent, name);
    const Text value = element == nullptr ? Text() : lower_case(trim(element->text));
    if (value == u"true" || value == u"1") return true;
    if (value.empty() || value == u"false" || value == u"0") return false;
    throw wrong(*element, element->name + u" \"" + element->text + u"\" no es true ni false");
}

std::optional<int> Reading::whole_number(const Element& parent, TextView name)
{
    const Element* const element = child(parent, name);
    if (element == nullptr) return {};
    const std::string digits = to_utf8(trim(element->text));
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error == std::errc() && end == digits.data() + digits.size()) return number;
    throw wrong(*element, element->name + u" \"" + element->text + u"\" no es un número entero");
}

std::optional<double> Reading::length(const Element& parent, TextView name)
{
    const std::optional<double> length = signed_length(parent, name);
    if (length && *length < 0) throw wrong(*child(parent, name), Text(name) + u" no puede ser negativo");
    return length;
}

std::optional<double> Reading::signed_length(const Element& parent, TextView name)
{
    const Element* const element = child(parent, name);
    if (element == nullptr) return {};
    const std::optional<double> length = points(element->text);
    if (!length) throw wrong(*element, not_a_length(*element));
    return length;
}

Expression Reading::value(const Element& element)
{
    Expression expression = Expression::of(source_of(element));
    if (!expression.fault().empty())
        remark(element, u"la expresión de " + element.name + u" no se puede evaluar: " + expression.fault());
    return expression;
}

void Reading::remark(const Element& element, const Text& text)
{
    if (told_.emplace(&element, text).second) remarks_.push_back({place_of(element), text});
}

void Reading::remark_duplicate(const Element& element, std::map<Text, const Element*>& names)
{
    const Text name = attribute(element, u"Name");
    if (name.empty()) return;
    const Element& first = *names.try_emplace(name, &element).first->second;
    if (&first != &element)
        remark(element, u"ya se llama así el elemento de la línea " + decimal(first.line));
}

void Reading::remark_unread(const Element& root)
{
    for (const Element* element : root.children) {
        if (is_foreign(*element) || passed_over_.contains(element)) continue;
        if (read_.contains(element))
            remark_unread(*element);
        else if (!is_harmless(*element))
            remark(*element, element->name + u" no se toma en cuenta");
    }
}

} // namespace tolvex::printing
