// Operators over parts of an expression.
#pragma once

#include "printing/expressions/nodes.hpp"
#include "printing/expressions/operators.hpp"

namespace tolvex::printing {

// Operators of one level, applied from the left.
struct Chain : Node
{
    explicit Chain(NodePtr start) : Node(start->height + 1), first(std::move(start)) {}
    void add(Operator how, NodePtr operand);
    Variant evaluate(const Environment& environment) const override;
    void for_each_mention(const MentionVisitor& visit) const override;

    struct Link
    {
        Operator how;
        NodePtr operand;
    };
    NodePtr first;
    std::vector<Link> links;
};

// A minus, or Not, before an operand.
struct Negation : Node
{
    Negation(NodePtr node, bool logically)
        : Node(node->height + 1), operand(std::move(node)), logical(logically)
    {}
    Variant evaluate(const Environment& environment) const override
    {
        return negated_or_not(operand->evaluate(environment), logical);
    }
    void for_each_mention(const MentionVisitor& visit) const override { operand->for_each_mention(visit); }

    NodePtr operand;
    bool logical;
};

} // namespace tolvex::printing
