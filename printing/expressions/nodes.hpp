// A parsed expression: a tree whose nodes know how to find their value.
#pragma once

#include "printing/expressions/expression.hpp"

namespace tolvex::printing {

using NodePtr = std::shared_ptr<const Node>;
using MentionVisitor = std::function<void(Expression::Mention, const Text& name)>;

struct Node
{
    // One more than the highest of the nodes below.
    explicit Node(int h = 1) : height(h) {}
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    virtual ~Node() = default;
    virtual Variant evaluate(const Environment& environment) const = 0;
    virtual void for_each_mention(const MentionVisitor&) const {}

    int height; // set while the node is made
};

struct Constant : Node
{
    explicit Constant(Variant v) : value(std::move(v)) {}
    Variant evaluate(const Environment&) const override { return value; }

    Variant value;
};

// What a call or a special form is given. A bare name is no expression: Sum in RunningValue(…, Sum, …).
struct Argument
{
    NodePtr node; // none: a bare name
    Text source;

    // Throws Error 5 for a bare name.
    const NodePtr& value() const;
    Expression expression() const;
    // The text that it always is; nothing for Nothing. Throws Error 5 when it is not known before evaluation.
    std::optional<Text> constant_text() const;
};

int height_above(const std::vector<NodePtr>& nodes);
void for_each_mention(const std::vector<NodePtr>& nodes, const MentionVisitor& visit);

} // namespace tolvex::printing
