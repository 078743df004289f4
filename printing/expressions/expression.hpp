// The expression language of report layouts: what stands after "=" is Visual Basic with Fields, Parameters,
// Globals, ReportItems, Variables and aggregates over scopes.
#pragma once

#include "printing/expressions/variant.hpp"

#include <functional>
#include <memory>
#include <optional>

namespace tolvex::printing {

class Environment;
struct Culture;
struct Node; // a parsed expression, immutable

// A property of a layout: a literal, or an expression that is evaluated again wherever it stands.
class Expression
{
public:
    Expression() = default; // the empty literal
    // What begins with "=" is an expression, anything else the text that it is. Never throws: what cannot be
    // parsed throws when it is evaluated, and fault() tells it before.
    static Expression of(TextView source);

    // Throws Error with the reason: an unknown name, values that do not go together, a division by zero.
    Variant evaluate(const Environment& environment) const;

    const Text& source() const { return source_; }
    bool is_literal() const { return !root_ && fault_.empty(); }
    bool is_empty() const { return source_.empty(); }
    // Why it cannot be parsed; empty when it can.
    const Text& fault() const { return fault_; }

    // What an expression mentions, for the looks that a layout is given before it runs.
    enum class Mention
    {
        field,
        parameter,
        global,
        report_item,
        variable,
        scope // of an aggregate, or the data set of a lookup
    };
    void for_each_mention(const std::function<void(Mention, const Text& name)>& visit) const;

private:
    friend struct Argument; // of an aggregate
    Expression(Text source, std::shared_ptr<const Node> root);

    Text source_, fault_;
    std::shared_ptr<const Node> root_;
};

// The aggregate functions. Those over rows of a scope take an expression; count_rows and row_number take
// none.
enum class AggregateFunction
{
    sum,
    first,
    last,
    count,
    count_rows,
    count_distinct,
    avg,
    min,
    max,
    st_dev,
    st_dev_p,
    var,
    var_p,
    running_value, // of `running` over the rows of the scope up to the current one
    row_number,
    previous
};

// One that stands in an expression keeps its address as long as a copy of the expression lives.
struct AggregateCall
{
    AggregateFunction function;
    AggregateFunction running = AggregateFunction::sum;
    Expression argument;
    std::optional<Text> scope; // a data set, data region or group; none: the innermost one
};

// What Sum and the others make of the values of a scope, row by row. Nothing is left out, as in SQL.
class Accumulator
{
public:
    explicit Accumulator(AggregateFunction function);
    ~Accumulator();
    Accumulator(Accumulator&&) noexcept;
    Accumulator& operator=(Accumulator&&) noexcept;
    void add(const Variant& value);
    Variant result() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

// Lookup and LookupSet: `result` in the rows of another data set whose `destination` equals `source`.
struct LookupCall
{
    Expression source, destination, result;
    Text data_set;
    bool every_match = false;
};

// What an expression reads. Names come without regard to letter case. Each of these throws Error for a name
// that it does not know.
class Environment
{
public:
    virtual ~Environment() = default;
    virtual Variant field(TextView name) const = 0;
    // False also for a field that the layout declares and the query did not give.
    virtual bool has_field(TextView name) const = 0;
    virtual Variant parameter(TextView name) const = 0;       // a List when it takes several values
    virtual Variant parameter_label(TextView name) const = 0; // the same for what a person reads
    // PageNumber, TotalPages, OverallPageNumber, OverallTotalPages, PageName, ExecutionTime, ReportName,
    // ReportFolder, ReportServerUrl, RenderFormat.Name, RenderFormat.IsInteractive, Language, UserID: spelled
    // so, never otherwise.
    virtual Variant global(TextView name) const = 0;
    virtual Variant report_item(TextView name) const = 0;
    virtual Variant variable(TextView name) const = 0;
    virtual Variant own_value() const = 0; // Me.Value, in the properties of a text box
    virtual Variant aggregate(const AggregateCall& call) const = 0;
    virtual Variant lookup(const LookupCall& call) const = 0;
    virtual bool in_scope(TextView scope) const = 0;
    virtual std::int64_t level(std::optional<Text> scope) const = 0;
    virtual const Culture& culture() const = 0;
    virtual Date now() const = 0;
};

} // namespace tolvex::printing
