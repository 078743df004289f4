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

int DataTable::field(TextView name) const
{
    const auto known = places_.find(Text(name));
    if (known != places_.end()) return known->second;
    return places_[Text(name)] = search(definition->fields, name);
}

} // namespace tolvex::printing
