// The one pattern of all edit forms: a record is new or modified, is shown, and is saved after a question.
#pragma once

#include "platform/forms.hpp"
#include "session/session.hpp"

#include <functional>

namespace tolvex {

// The record that a form edits; a number below 1 means a new one.
struct RecordKey
{
    std::int16_t company = 0, number = 0;

    bool is_new() const { return number < 1; }
};

// What a column is saved from.
struct SavedColumn
{
    TextView column;
    std::function<Value(const FormView&)> value;
};

// Where a column is shown: in a text box (a date days first), as the chosen item of a combo box, or as a
// check.
struct ShownColumn
{
    TextView control, column;
};

// Sources of saved columns. Texts are trimmed and upper-cased; numbers are what leads in a text, 0 for none,
// and throw Error 6 when they do not fit; a date is Null where there is none.
std::function<Value(const FormView&)> upper_text(TextView control);
std::function<Value(const FormView&)> plain_text(TextView control);
std::function<Value(const FormView&)> whole_number_16(TextView control);
std::function<Value(const FormView&)> whole_number_32(TextView control);
std::function<Value(const FormView&)> date_text(TextView control);
std::function<Value(const FormView&)> check_number(TextView check);
std::function<Value(const FormView&)> item_text(TextView combo);
std::function<Value(const FormView&)> item_value(TextView combo);
std::function<Value(const FormView&)> item_number(TextView combo);
std::function<Value(const FormView&)> constant(const Value& value);

// What tells one edit form from another.
struct EditPattern
{
    Text new_caption, modify_caption;
    TextView save_button, cancel_button;
    TextView number_control; // empty while the record is new
    bool belongs_to_company; // whose number and name stand in txtId and txtNombreEmpresa
    bool in_transaction;     // the row is saved within one

    TextView number_column; // set in new rows, with the next number
    Text next_number;       // query for it, in a column of that name
    Text empty_row;         // statement without rows to add one to
    Text changed_row;       // statement of the row that is modified
    Text stored_row;        // query for the row that is shown
    Text missing_row;       // said when there is none
    std::vector<ShownColumn> shown;
    std::vector<SavedColumn> saved_in_new; // in order, before the others
    std::vector<SavedColumn> saved;
};

class EditForm : public Form
{
public:
    // The function is called after a save, before the form closes.
    EditForm(Session& session, RecordKey key, std::function<void()> saved)
        : session_(session), key_(key), saved_(std::move(saved))
    {}

    void load(FormView& view) override;
    void clicked(FormView& view, TextView control) override;

protected:
    virtual EditPattern pattern() const = 0;
    // The items of combo boxes, before the record is shown.
    virtual void load_lists(FormView&) {}
    // Buttons besides the two that save and close.
    virtual void other_clicked(FormView&, TextView) {}

    Session& session() const { return session_; }
    const RecordKey& key() const { return key_; }
    // Fills a combo box with a query's rows, after the items given; says so when there are no rows.
    void fill_from(FormView& view, TextView combo, const Text& sql, const Text& none,
                   std::vector<Item> items = {});
    // The company's certificates.
    void fill_certificates(FormView& view, TextView combo);

private:
    void show_company(FormView& view);
    void show_record(FormView& view, const EditPattern& form);
    bool may_save(FormView& view, const EditPattern& form) const;
    void save(FormView& view);
    void store(FormView& view, const EditPattern& form);
    void fail_to_save(const Text& reason);
    Connection& connection() const { return shared_connection(session_); }

    Session& session_;
    const RecordKey key_;
    const std::function<void()> saved_;
};

} // namespace tolvex
