#include "printing/expressions/nodes.hpp"

#include "core/errors.hpp"

#include <algorithm>

namespace tolvex::printing {

const NodePtr& Argument::value() const
{
    if (!node) throw invalid_call(u"Nombre desconocido: " + source);
    return node;
}

Expression Argument::expression() const { return {source, value()}; }

std::optional<Text> Argument::constant_text() const
{
    const auto* constant = dynamic_cast<const Constant*>(value().get());
    if (constant && constant->value.is_nothing()) return std::nullopt;
    const Text* text = constant ? constant->value.get_if<Text>() : nullptr;
    if (!text) throw invalid_call(u"Se esperaba un texto entre comillas en lugar de " + source);
    return *text;
}

int height_above(const std::vector<NodePtr>& nodes)
{
    int highest = 0;
    for (const NodePtr& node : nodes) highest = std::max(highest, node->height);
    return highest + 1;
}

void for_each_mention(const std::vector<NodePtr>& nodes, const MentionVisitor& visit)
{
    for (const NodePtr& node : nodes) node->for_each_mention(visit);
}

} // namespace tolvex::printing
