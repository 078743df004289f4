// The developer console's form: a button for every public method, fields with sample data for their
// arguments, and a log of the calls.
#pragma once

#include "developer_console/calls.hpp"
#include "platform/forms.hpp"

namespace tolvex::developer_console {

// Where fields are kept from one day to the next, by the names of their controls.
class FieldMemory
{
public:
    virtual ~FieldMemory() = default;
    virtual std::optional<Text> recall(TextView field) = 0;
    virtual void keep(TextView field, const Text& value) = 0;
};

// What the console needs of its surroundings.
struct Surroundings
{
    Component& component;
    FieldMemory& memory;
    std::function<void(const Text&)> copy; // to the clipboard
    Text working_folder;                   // of the demonstration, which the sample data issue in
    Text layout;                           // a report to print with
};

class ConsoleForm : public Form
{
public:
    explicit ConsoleForm(Surroundings surroundings) : surroundings_(std::move(surroundings)) {}

    const FormDescription& description() const override;
    void load(FormView& view) override;
    void clicked(FormView& view, TextView control) override;
    void row_activated(FormView& view, TextView list) override;
    void unload(FormView& view) override { keep_fields(view); }

private:
    void show_sample_data(FormView& view) const;
    void recall_fields(FormView& view) const;
    void keep_fields(FormView& view) const;
    void issue_all(FormView& view);
    bool call_method(FormView& view, TextView method);
    bool make(FormView& view, const Call& call);
    void add_to_log(FormView& view, const Call& call, const Outcome& outcome, std::int64_t milliseconds);
    void clear_log(FormView& view);

    const Surroundings surroundings_;
    std::vector<Call> calls_;
    std::vector<Outcome> outcomes_; // of each call
};

} // namespace tolvex::developer_console
