#include "printing/expressions/call.hpp"

#include "core/errors.hpp"

#include <limits>

namespace tolvex::printing {

namespace {

struct Call : Node
{
    Call(Function f, std::vector<NodePtr> nodes)
        : Node(height_above(nodes)), function(f), arguments(std::move(nodes))
    {}

    Variant evaluate(const Environment& environment) const override
    {
        std::array<Variant, 4> few; // most calls need no memory of their own
        if (arguments.size() <= few.size()) return evaluate(environment, {few.data(), arguments.size()});
        std::vector<Variant> many(arguments.size());
        return evaluate(environment, many);
    }

    Variant evaluate(const Environment& environment, std::span<Variant> values) const
    {
        for (std::size_t i = 0; i < values.size(); ++i) values[i] = arguments[i]->evaluate(environment);
        return function(Arguments(values, environment));
    }

    void for_each_mention(const MentionVisitor& visit) const override
    {
        printing::for_each_mention(arguments, visit);
    }

    Function function;
    std::vector<NodePtr> arguments;
};

Variant as_list(const Arguments& given)
{
    return Variant::List(given.values().begin(), given.values().end());
}

} // namespace

NodePtr make_call(const NamedFunction& function, const Text& spelled, std::vector<NodePtr> arguments)
{
    const int count = static_cast<int>(arguments.size());
    if (count < function.least) throw invalid_call(u"Faltan argumentos de " + spelled);
    if (count > function.most) throw invalid_call(u"Sobran argumentos de " + spelled);
    return std::make_shared<Call>(function.function, std::move(arguments));
}

NodePtr element_of(NodePtr list, NodePtr index)
{
    return std::make_shared<Call>(&element, std::vector{std::move(list), std::move(index)});
}

NodePtr list_of(const std::vector<Argument>& elements)
{
    std::vector<NodePtr> nodes;
    for (const Argument& each : elements) nodes.push_back(each.value());
    return std::make_shared<Call>(as_list, std::move(nodes));
}

} // namespace tolvex::printing
