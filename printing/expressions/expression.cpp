#include "printing/expressions/expression.hpp"

#include "core/errors.hpp"
#include "printing/expressions/nodes.hpp"
#include "printing/expressions/parser.hpp"

namespace tolvex::printing {

Expression::Expression(Text source, std::shared_ptr<const Node> root)
    : source_(std::move(source)), root_(std::move(root))
{}

Expression Expression::of(TextView source)
{
    Expression expression;
    expression.source_ = source;
    const auto first = source.find_first_not_of(u" \t\r\n");
    if (first == TextView::npos || source[first] != u'=') return expression;
    try {
        expression.root_ = parse(source, first + 1);
    } catch (const Error& error) {
        expression.fault_ = error.description();
    }
    return expression;
}

Variant Expression::evaluate(const Environment& environment) const
{
    if (!fault_.empty()) throw invalid_call(fault_);
    return root_ ? root_->evaluate(environment) : Variant(source_);
}

void Expression::for_each_mention(const MentionVisitor& visit) const
{
    if (root_) root_->for_each_mention(visit);
}

} // namespace tolvex::printing
