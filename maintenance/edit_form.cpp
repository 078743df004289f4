#include "maintenance/edit_form.hpp"

#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/connection_keywords.hpp"
#include "platform/messages.hpp"
#include "session/configuracion.hpp"

#include <cmath>

namespace tolvex {

namespace {

constexpr TextView attention = u"Atención";

const Control* find_control(const FormDescription& description, TextView name)
{
    for (const Section& section : description.sections)
        for (const Row& row : section.rows)
            for (const Control& control : row)
                if (control.name == name) return &control;
    return nullptr;
}

// The label that the user sees before a control, without its colon.
Text label_of(const FormDescription& description, TextView name)
{
    const Control* control = find_control(description, name);
    return control && !control->caption.empty() ? without(control->caption, u':') : Text(name);
}

template <class Convert>
std::function<Value(const FormView&)> number_in(TextView control, Convert convert)
{
    return [=](const FormView& view) -> Value {
        const Text text = upper_case(trim(view.text(control)));
        try {
            return convert(leading_number(text));
        } catch (const Error& error) {
            throw with_detail(error, text);
        }
    };
}

// Dates as the forms write them, days first; the time only where there is one.
struct AsShown
{
    Text operator()(Date date) const
    {
        const bool has_time = date.days != std::floor(date.days);
        return format(date, has_time ? u"dd-mm-yyyy hh:mm:ss" : u"dd-mm-yyyy");
    }
    template <class Held>
    Text operator()(const Held& held) const
    {
        return Value(held).text();
    }
    Text operator()(Null) const { return {}; }
};

void show_value(FormView& view, const Control& control, const Text& value)
{
    if (control.kind == ControlKind::combo)
        view.choose(control.name, value);
    else if (control.kind == ControlKind::check)
        view.set_checked(control.name, leading_number(value) != 0);
    else
        view.set_text(control.name, value);
}

// A value that is longer than its column, which the embedded database would take and a server refuse in its
// own words.
void require_room(const Column& column, const Value& value)
{
    const std::size_t length = value.text().size();
    if (column.kind != ColumnKind::text || column.size == 0 || length <= column.size) return;
    throw invalid_call(u"el valor tiene " + decimal(length) + u" caracteres y caben " + decimal(column.size));
}

// The place in a form whose value a column takes, for messages.
Text place_of(const FormDescription& description, const EditPattern& pattern, TextView column)
{
    for (const ShownColumn& shown : pattern.shown)
        if (equal_ignoring_case(shown.column, column)) return label_of(description, shown.control);
    return Text(column);
}

} // namespace

std::function<Value(const FormView&)> upper_text(TextView control)
{
    return [=](const FormView& view) { return upper_case(trim(view.text(control))); };
}

std::function<Value(const FormView&)> plain_text(TextView control)
{
    return [=](const FormView& view) { return view.text(control); };
}

std::function<Value(const FormView&)> whole_number_16(TextView control)
{
    return number_in(control, to_int16);
}

std::function<Value(const FormView&)> whole_number_32(TextView control)
{
    return number_in(control, to_int32);
}

std::function<Value(const FormView&)> date_text(TextView control)
{
    return [=](const FormView& view) {
        const Text text = view.text(control);
        return trim(text).empty() ? Value() : Value(text);
    };
}

std::function<Value(const FormView&)> check_number(TextView check)
{
    return [=](const FormView& view) { return std::int16_t{view.checked(check)}; };
}

std::function<Value(const FormView&)> item_text(TextView combo) { return plain_text(combo); }

std::function<Value(const FormView&)> item_value(TextView combo)
{
    return [=](const FormView& view) { return view.chosen(combo); };
}

std::function<Value(const FormView&)> item_number(TextView combo)
{
    return [=](const FormView& view) { return to_int16(leading_number(view.chosen(combo))); };
}

std::function<Value(const FormView&)> constant(const Value& value)
{
    return [=](const FormView&) { return value; };
}

void EditForm::load(FormView& view)
try {
    const EditPattern form = pattern();
    view.set_caption(key_.is_new() ? form.new_caption : form.modify_caption);
    view.set_visible(u"lblNuevo", key_.is_new());
    if (form.belongs_to_company) show_company(view);
    load_lists(view);
    if (!key_.is_new()) show_record(view, form);
} catch (...) {
    view.close(); // what was not read whole would be saved over what is stored, or as another record
    throw;
}

void EditForm::show_company(FormView& view)
{
    if (key_.company <= 0) return;
    view.set_text(u"txtId", decimal(key_.company));
    const Text sql = u"select cNombre from fe_empresas (nolock) where nempresa=" + decimal(key_.company);
    view.set_text(u"txtNombreEmpresa", fgValorCampo(session_, u"cNombre", sql).text());
}

void EditForm::show_record(FormView& view, const EditPattern& form)
{
    const Recordset row = connection().query(form.stored_row);
    if (row.eof()) return show_message(form.missing_row, Text(attention), MessageIcon::exclamation);
    for (const auto& [control, column] : form.shown)
        show_value(view, *find_control(description(), control), row[column].visit(AsShown()));
}

void EditForm::fill_from(FormView& view, TextView combo, const Text& sql, const Text& none,
                         std::vector<Item> items)
{
    Recordset rows = connection().query(sql);
    const bool empty = rows.eof();
    for (; !rows.eof(); rows.move_next()) items.push_back({rows.value(1).text(), rows.value(0).text()});
    view.fill(combo, items);
    if (empty) show_message(none, Text(attention), MessageIcon::exclamation);
}

void EditForm::fill_certificates(FormView& view, TextView combo)
{
    fill_from(view, combo,
              u"select nCertificado,cDescripcion from fe_certificados (nolock) where nempresa=" +
                  decimal(key_.company),
              u"No existen certificaciones configuradas para la empresa activa, verifique");
}

void EditForm::clicked(FormView& view, TextView control)
{
    const EditPattern form = pattern();
    if (control == form.save_button)
        save(view);
    else if (control == form.cancel_button)
        view.close();
    else
        other_clicked(view, control);
}

bool EditForm::may_save(FormView& view, const EditPattern& form) const
{
    if (form.belongs_to_company && trim(view.text(u"txtId")).empty()) {
        show_message(u"Error, es necesario configurar una empresa para poder guardar, verifique",
                     Text(attention), MessageIcon::critical);
        return false;
    }
    return ask(u"Desea guardar la información?", u"Mensaje...", MessageIcon::information);
}

void EditForm::save(FormView& view)
{
    const EditPattern form = pattern();
    if (!may_save(view, form)) return;
    try {
        if (form.in_transaction) connection().begin_transaction();
        store(view, form);
        if (form.in_transaction) connection().commit();
    } catch (const std::exception& error) {
        return fail_to_save(words_of(error));
    }
    show_message(u"Se han guardado correctamente los datos", u"Aviso", MessageIcon::information);
    if (saved_) saved_();
    view.close();
}

void EditForm::store(FormView& view, const EditPattern& form)
{
    const bool is_new = trim(view.text(form.number_control)).empty();
    Value number;
    if (is_new)
        number = to_int16(
            leading_number(fgValorCampo(session_, Text(form.number_column), form.next_number).text()));
    UpdatableRecordset row = connection().open_updatable(is_new ? form.empty_row : form.changed_row);
    const auto set = [&](const SavedColumn& saved) {
        try {
            const Value value = saved.value(view);
            require_room(row.column(saved.column), value);
            row.set(saved.column, value);
        } catch (const Error& error) {
            throw Error(error.number(),
                        place_of(description(), form, saved.column) + u": " + error.description());
        }
    };
    if (is_new) {
        row.add_new();
        for (const SavedColumn& saved : form.saved_in_new) set(saved);
        row.set(form.number_column, number);
    }
    for (const SavedColumn& saved : form.saved) set(saved);
    row.update();
}

// Deliberate: nothing is rolled back on a server; the transaction stays open until the connection ends. On
// the embedded database that would hold up every other station.
void EditForm::fail_to_save(const Text& reason)
{
    if (asks_for_embedded(connection().connection_string)) quietly([&] { connection().roll_back(); });
    show_message(u"No se pudo guardar: " + reason, u"Error", MessageIcon::critical);
}

} // namespace tolvex
