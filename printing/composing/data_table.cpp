#include "printing/composing/data_table.hpp"

namespace tolvex::printing {

namespace {

int search(const std::vector<Field>& fields, TextView name)
{
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (equal_ignoring_case(fields[i].name, name)) return static_cast<int>(i);
    return -1;
}

} // namespace

DataTable::DataTable(const DataSet& definition) : definition_(definition), columns_(definition.fields.size())
{}

const Variant& DataTable::value(std::uint32_t row, std::size_t field) const
{
    static const Variant nothing;
    const Column& column = columns_[field];
    return column.given ? column.values[column.places[row]] : nothing;
}

int DataTable::field(TextView name) const
{
    const auto known = fields_.find(Text(name));
    if (known != fields_.end()) return known->second;
    return fields_[Text(name)] = search(definition_.fields, name);
}

void DataTable::add(std::size_t field, Variant value)
{
    Column& column = columns_[field];
    if (column.values.empty() || !(column.values.back() == value)) column.values.push_back(std::move(value));
    column.places.push_back(static_cast<std::uint32_t>(column.values.size() - 1));
}

} // namespace tolvex::printing
