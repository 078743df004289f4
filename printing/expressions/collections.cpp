#include "printing/expressions/collections.hpp"

#include "core/text.hpp"

namespace tolvex::printing {

namespace {

using Mention = Expression::Mention;

Variant number_of_values(const Environment& environment, TextView parameter)
{
    const Variant value = environment.parameter(parameter);
    const auto* list = value.get_if<Variant::List>();
    return list ? static_cast<std::int64_t>(list->size()) : std::int64_t{1};
}

constexpr CollectionProperty field_properties[] = {
    {u"value", [](const Environment& e, TextView name) { return e.field(name); }},
    {u"ismissing", [](const Environment& e, TextView name) { return Variant(!e.has_field(name)); }}};

constexpr CollectionProperty parameter_properties[] = {
    {u"value", [](const Environment& e, TextView name) { return e.parameter(name); }},
    {u"label", [](const Environment& e, TextView name) { return e.parameter_label(name); }},
    {u"count", number_of_values},
    {u"ismultivalue", [](const Environment& e, TextView name) {
         return Variant(e.parameter(name).get_if<Variant::List>() != nullptr);
     }}};

constexpr CollectionProperty report_item_properties[] = {
    {u"value", [](const Environment& e, TextView name) { return e.report_item(name); }}};

constexpr CollectionProperty variable_properties[] = {
    {u"value", [](const Environment& e, TextView name) { return e.variable(name); }}};

constexpr Collection collections[] = {{u"fields", Mention::field, field_properties},
                                      {u"parameters", Mention::parameter, parameter_properties},
                                      {u"reportitems", Mention::report_item, report_item_properties},
                                      {u"variables", Mention::variable, variable_properties}};

struct Item : Node
{
    Item(const Collection& c, const CollectionProperty& p, Text n)
        : mention(c.mention), read(p.read), name(std::move(n))
    {}
    Variant evaluate(const Environment& environment) const override { return read(environment, name); }
    void for_each_mention(const MentionVisitor& visit) const override { visit(mention, name); }

    Mention mention;
    decltype(CollectionProperty::read) read;
    Text name;
};

// Fields(Parameters!Columna.Value).Value
struct ComputedItem : Node
{
    ComputedItem(const CollectionProperty& p, NodePtr n)
        : Node(n->height + 1), read(p.read), name(std::move(n))
    {}
    Variant evaluate(const Environment& environment) const override
    {
        return read(environment, name->evaluate(environment).text());
    }
    void for_each_mention(const MentionVisitor& visit) const override { name->for_each_mention(visit); }

    decltype(CollectionProperty::read) read;
    NodePtr name;
};

struct GlobalValue : Node
{
    explicit GlobalValue(Text n) : name(std::move(n)) {}
    Variant evaluate(const Environment& environment) const override { return environment.global(name); }
    void for_each_mention(const MentionVisitor& visit) const override { visit(Mention::global, name); }

    Text name;
};

} // namespace

const Collection* collection_named(TextView key)
{
    for (const Collection& known : collections)
        if (known.key == key) return &known;
    return nullptr;
}

const CollectionProperty* property_named(const Collection& collection, TextView key)
{
    for (const CollectionProperty& known : collection.properties)
        if (known.key == key) return &known;
    return nullptr;
}

NodePtr item_of(const Collection& collection, const CollectionProperty& property, const Argument& name)
{
    const auto* constant = dynamic_cast<const Constant*>(name.value().get());
    if (!constant) return std::make_shared<ComputedItem>(property, name.value());
    return std::make_shared<Item>(collection, property, name.constant_text().value_or(Text()));
}

const Text* global_named(TextView name)
{
    static const Text names[] = {u"PageNumber",
                                 u"TotalPages",
                                 u"OverallPageNumber",
                                 u"OverallTotalPages",
                                 u"PageName",
                                 u"ExecutionTime",
                                 u"ReportName",
                                 u"ReportFolder",
                                 u"ReportServerUrl",
                                 u"RenderFormat.Name",
                                 u"RenderFormat.IsInteractive",
                                 u"Language",
                                 u"UserID"};
    for (const Text& known : names)
        if (equal_ignoring_case(known, name)) return &known;
    return nullptr;
}

NodePtr global_value(const Text& name) { return std::make_shared<GlobalValue>(name); }

} // namespace tolvex::printing
