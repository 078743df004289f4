#include "printing/expressions/operator_nodes.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

// Whether what stands on the left is the result already. And and Or too leave the rest out then, which nobody
// notices but by the errors that a guard before them is there to avoid.
bool is_decided(Operator how, const Variant& left)
{
    const bool* truth = left.get_if<bool>();
    if (!truth) return false;
    if (how == Operator::and_ || how == Operator::and_also) return !*truth;
    return (how == Operator::or_ || how == Operator::or_else) && *truth;
}

} // namespace

void Chain::add(Operator how, NodePtr operand)
{
    height = std::max(height, operand->height + 1);
    links.push_back({how, std::move(operand)});
}

Variant Chain::evaluate(const Environment& environment) const
{
    Variant value = first->evaluate(environment);
    for (const Link& link : links)
        if (!is_decided(link.how, value))
            value = apply(link.how, value, link.operand->evaluate(environment), environment.culture());
    return value;
}

void Chain::for_each_mention(const MentionVisitor& visit) const
{
    first->for_each_mention(visit);
    for (const Link& link : links) link.operand->for_each_mention(visit);
}

} // namespace tolvex::printing
