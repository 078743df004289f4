// The public methods as buttons of the console: which arguments each takes from the form's fields.
#pragma once

#include "developer_console/calls.hpp"
#include "platform/forms.hpp"

namespace tolvex::developer_console {

struct Method
{
    TextView class_name, name;
    bool gives_result;
    // The arguments of each of its calls: a method that takes a line is called once for each.
    std::vector<std::vector<Argument>> (*arguments)(const FormView&);
};

// In interface order.
const std::vector<Method>& methods();
// Throws Error 5 for a name that is none.
const Method& method_named(TextView name);
std::vector<Call> calls_of(const Method& method, const FormView& view);

} // namespace tolvex::developer_console
