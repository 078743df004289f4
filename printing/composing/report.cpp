#include "printing/composing/report.hpp"

#include "core/dates.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "printing/composing/rows.hpp"
#include "printing/composing/scope_environment.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

TextView without_at(TextView name) { return name.substr(name.starts_with(u'@') ? 1 : 0); }

const Variant* find(const std::vector<GivenValue>& values, TextView name)
{
    for (const GivenValue& each : values)
        if (equal_ignoring_case(without_at(each.name), without_at(name))) return &each.value;
    return nullptr;
}

Variant of_type(const Variant& value, TextView type)
{
    if (value.is_nothing()) return value;
    if (const auto* list = value.get_if<Variant::List>()) {
        Variant::List typed;
        for (const Variant& each : *list) typed.push_back(of_type(each, type));
        return typed;
    }
    if (type == u"Integer") return value.whole_number();
    if (type == u"Float") return value.number();
    if (type == u"Boolean") return value.boolean();
    if (type == u"DateTime") return value.date();
    return value.text();
}

struct ToVariant
{
    Variant operator()(Null) const { return {}; }
    template <class T>
    Variant operator()(const T& value) const
    {
        return value;
    }
};

struct ToValue
{
    Value operator()(Nothing) const { return {}; }
    Value operator()(const Bytes&) const { throw type_mismatch(); }
    Value operator()(const Variant::List&) const { throw type_mismatch(); }
    template <class T>
    Value operator()(const T& value) const
    {
        return value;
    }
};

// A parameter that takes several values stands for the list of them in "In (@it)".
void expand_list(Text& sql, const Text& name, const Variant::List& values, std::vector<NamedValue>& bound)
{
    Text list;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Text each = name + u"_" + decimal(static_cast<std::int64_t>(i));
        list += (i == 0 ? u"@" : u", @") + each;
        bound.push_back({each, values[i].visit(ToValue{})});
    }
    sql = replace_all(sql, u"@" + name, list.empty() ? u"Null" : list);
}

void bind_value(Text& sql, const Text& name, const Variant& value, std::vector<NamedValue>& bound)
{
    if (const auto* list = value.get_if<Variant::List>())
        expand_list(sql, name, *list, bound);
    else
        bound.push_back({name, value.visit(ToValue{})});
}

Error in_data_set(const Error& error, const DataSet& data_set)
{
    Text where = u"conjunto de datos «" + data_set.name + u"»";
    if (data_set.place.line > 0) where += u", renglón " + decimal(data_set.place.line);
    return with_detail(error, where);
}

} // namespace

void Composition::remark(const Place& place, const Text& text)
{
    const auto same = [&](const Remark& each) {
        return each.place.line == place.line && each.place.element == place.element && each.text == text;
    };
    if (std::none_of(remarks.begin(), remarks.end(), same)) remarks.push_back({place, text});
}

void Composition::count_cells(std::size_t more)
{
    constexpr std::size_t most = 10'000'000;
    if ((cells += more) > most)
        throw invalid_call(u"Las tablas del reporte pasan de " + decimal(most) + u" celdas");
}

Report::Report(const Layout& layout, const std::vector<GivenValue>& given, Composition& composition)
    : layout_(layout), composition_(composition), culture_(&printing::culture(u"")), index_(layout)
{
    check_names(given);
    set_parameters(given);
    culture_ = &printing::culture(layout.language.evaluate(ScopeEnvironment(*this, nullptr)).text());
    for (const DataSet& data_set : layout.data_sets)
        if (!this->data_set(data_set.name)) run_data_set(data_set, given);
}

void Report::check_names(const std::vector<GivenValue>& given) const
{
    const auto knows = [this](TextView name) {
        const auto is_it = [name](const auto& each) {
            return equal_ignoring_case(without_at(each.name), without_at(name));
        };
        return std::any_of(layout_.parameters.begin(), layout_.parameters.end(), is_it) ||
               std::any_of(layout_.data_sets.begin(), layout_.data_sets.end(), [&](const DataSet& data_set) {
                   return std::any_of(data_set.parameters.begin(), data_set.parameters.end(), is_it);
               });
    };
    for (const GivenValue& each : given)
        if (!knows(each.name)) throw invalid_call(u"El reporte no tiene el parámetro «" + each.name + u"»");
}

void Report::set_parameters(const std::vector<GivenValue>& given)
{
    for (const ReportParameter& parameter : layout_.parameters) {
        const Variant* value = find(given, parameter.name);
        try {
            parameters_.emplace_back(parameter.name,
                                     of_type(value ? *value : default_of(parameter, given), parameter.type));
        } catch (const Error& error) {
            throw with_detail(error, u"parámetro «" + parameter.name + u"»");
        }
    }
}

Variant Report::default_of(const ReportParameter& parameter, const std::vector<GivenValue>& given)
{
    Variant::List values;
    const ScopeEnvironment here(*this, nullptr);
    for (const Expression& each : parameter.defaults) values.push_back(each.evaluate(here));
    if (!parameter.default_data_set.empty()) {
        for (const DataSet& data_set : layout_.data_sets)
            if (equal_ignoring_case(data_set.name, parameter.default_data_set) &&
                !this->data_set(data_set.name))
                run_data_set(data_set, given);
        if (const Scope* rows = data_set(parameter.default_data_set))
            for (RowEnvironment row(*this, *rows, 0); values.size() < rows->size();) {
                row.move_to(static_cast<std::uint32_t>(values.size()));
                values.push_back((*row).field(parameter.default_field));
            }
    }
    if (values.empty() && !parameter.nullable && !parameter.multi_value)
        throw invalid_call(u"El reporte pide un valor que no se le da");
    if (parameter.multi_value) return values;
    return values.empty() ? Variant() : values.front();
}

void Report::run_data_set(const DataSet& data_set, const std::vector<GivenValue>& given)
{
    try {
        const ScopeEnvironment here(*this, nullptr);
        Text sql = data_set.command.evaluate(here).text();
        if (data_set.whole_table) sql.insert(0, u"Select * From ");
        std::vector<NamedValue> bound;
        for (const QueryParameter& parameter : data_set.parameters) {
            const Variant* value = find(given, parameter.name);
            bind_value(sql, Text(without_at(parameter.name)), value ? *value : parameter.value.evaluate(here),
                       bound);
        }
        DataTable& table = tables_.emplace_back(data_set);
        fill(table, data_set.stored_procedure ? composition_.connection.call(sql, bound)
                                              : composition_.connection.query(sql, bound));
        RowOrder& order = orders_.emplace_back(all_rows(table));
        Scope& scope = data_sets_.emplace_back();
        scope.name = data_set.name;
        scope.table = &table;
        scope.order = &order;
        scope.end = static_cast<std::uint32_t>(order.size());
        keep_filtered(*this, data_set.filters, scope, order);
        sort_rows(*this, data_set.sorting, scope, order);
    } catch (const Error& error) {
        throw in_data_set(error, data_set);
    }
}

void Report::fill(DataTable& table, Recordset rows)
{
    const auto& fields = table.definition().fields;
    const auto& all = rows.columns();
    std::vector<std::pair<std::size_t, std::size_t>>
        columns; // of fields that the query gives, and theirs in it
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto is_it = [&](const Column& column) {
            return equal_ignoring_case(column.name, fields[i].column);
        };
        const auto found = std::find_if(all.begin(), all.end(), is_it);
        if (fields[i].column.empty() || found == all.end()) continue;
        columns.emplace_back(i, static_cast<std::size_t>(found - all.begin()));
        table.set_given(i);
    }
    for (; !rows.eof(); rows.move_next()) {
        for (const auto& [field, column] : columns) table.add(field, rows.value(column).visit(ToVariant{}));
        table.end_row();
    }
}

const Scope* Report::data_set(TextView name) const
{
    if (name.empty()) return outermost();
    for (const Scope& scope : data_sets_)
        if (equal_ignoring_case(scope.name, name)) return &scope;
    return nullptr;
}

const Variant* Report::parameter(TextView name) const
{
    for (const auto& [known, value] : parameters_)
        if (equal_ignoring_case(known, name)) return &value;
    return nullptr;
}

Variant Report::parameter_label(TextView name, const Variant& value) const
{
    if (const auto* several = value.get_if<Variant::List>()) {
        Variant::List labels;
        for (const Variant& each : *several) labels.push_back(parameter_label(name, each));
        return labels;
    }
    const ScopeEnvironment here(*this, nullptr);
    for (const ReportParameter& parameter : layout_.parameters) {
        if (!equal_ignoring_case(parameter.name, name)) continue;
        for (const ParameterValue& valid : parameter.valid_values)
            if (!valid.label.is_empty() && of_type(valid.value.evaluate(here), parameter.type) == value)
                return valid.label.evaluate(here);
    }
    return value;
}

const Variable* Report::variable(TextView name) const
{
    for (const Variable& variable : layout_.variables)
        if (equal_ignoring_case(variable.name, name)) return &variable;
    return nullptr;
}

Report::Running& Report::running(const AggregateCall& call, const Scope& scope) const
{
    const std::uint32_t first_row = scope.empty() ? 0 : (*scope.order)[scope.begin];
    for (Running& each : running_)
        if (each.call == &call && each.order == scope.order && each.begin == scope.begin &&
            each.first_row == first_row)
            return each;
    const auto of_this_call = [&call](const Running& each) { return each.call == &call; };
    if (running_.size() > 200) std::erase_if(running_, of_this_call); // groups that are done with
    running_.push_back({&call, scope.begin, scope.begin, scope.order, first_row, Accumulator(call.running)});
    return running_.back();
}

} // namespace tolvex::printing
