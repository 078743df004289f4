// What the expressions of a layout read where they stand.
#pragma once

#include "printing/composing/page_items.hpp"
#include "printing/composing/report.hpp"
#include "printing/expressions/culture.hpp"

namespace tolvex::printing {

class ScopeEnvironment : public Environment
{
public:
    ScopeEnvironment(const Report& report, const Scope* scope) : report_(report), scope_(scope) {}

    const Report& report() const { return report_; }
    const Scope* scope() const { return scope_; }
    void set_own_value(const Variant& value) { own_value_ = value; }
    // In page headers and footers ReportItems are those of the page.
    void set_page_items(const PageItems* items) { page_items_ = items; }

    Variant field(TextView name) const override;
    bool has_field(TextView name) const override;
    Variant parameter(TextView name) const override;
    Variant parameter_label(TextView name) const override
    {
        return report_.parameter_label(name, parameter(name));
    }
    Variant global(TextView name) const override;
    Variant report_item(TextView name) const override;
    Variant variable(TextView name) const override;
    Variant own_value() const override { return own_value_; }
    Variant aggregate(const AggregateCall& call) const override;
    Variant lookup(const LookupCall& call) const override;
    bool in_scope(TextView scope) const override { return scope_named(scope_, scope) != nullptr; }
    std::int64_t level(std::optional<Text> scope) const override;
    const Culture& culture() const override { return report_.culture(); }
    Date now() const override { return report_.composition().now; }

private:
    const Scope& scope_of(const AggregateCall& call) const;
    Variant over_rows(const AggregateCall& call, const Scope& scope) const;
    Variant running_value(const AggregateCall& call, const Scope& scope) const;
    Variant running_on(const AggregateCall& call, const Scope& rows) const;
    Variant running_in_matrix(const AggregateCall& call, const Scope& scope) const;
    void add_rows(Accumulator& accumulator, const AggregateCall& call, const Scope& rows) const;
    Variant previous(const AggregateCall& call, const Scope& scope) const;
    Variant over_page_items(const AggregateCall& call) const;
    const Variant* on_page(TextView name) const;

    const Report& report_;
    const Scope* scope_;
    Variant own_value_;
    const PageItems* page_items_ = nullptr;
    const Variant* current_page_item_ = nullptr; // the one that an aggregate has come to
};

// The environment of one row of a scope, which lives as long as this.
class RowEnvironment
{
public:
    RowEnvironment(const Report& report, const Scope& scope, std::uint32_t position);
    RowEnvironment(const RowEnvironment&) = delete;
    RowEnvironment& operator=(const RowEnvironment&) = delete;
    const ScopeEnvironment& operator*() const { return environment_; }
    void move_to(std::uint32_t position);

private:
    Scope row_;
    ScopeEnvironment environment_;
};

} // namespace tolvex::printing
