#include "platform/in_memory/forms_in_memory.hpp"

#include "core/errors.hpp"

#include <algorithm>

namespace tolvex {

namespace {

Error impossible(TextView control, const Text& why)
{
    return invalid_call(u"El control " + Text(control) + u" " + why);
}

} // namespace

FormInMemory::FormInMemory(Form& form) : form_(form)
{
    const FormDescription& description = form.description();
    for (const Section& section : description.sections)
        for (const Row& row : section.rows)
            for (const Control& control : row) add(control);
    for (const Control& button : description.buttons) add(button);
    run_event([&] { form_.load(*this); });
}

FormInMemory::~FormInMemory()
{
    run_event([&] { form_.unload(*this); });
}

void FormInMemory::add(const Control& control)
{
    Held& held = controls_[Text(control.name)];
    held.kind = control.kind;
    held.enabled = control.enabled;
    held.visible = control.visible;
    held.read_only = control.read_only;
    if (control.kind == ControlKind::label) held.text = control.caption;
}

const FormInMemory::Held& FormInMemory::at(TextView control) const
{
    const auto found = controls_.find(control);
    if (found == controls_.end()) throw impossible(control, u"no existe");
    return found->second;
}

FormInMemory::Held& FormInMemory::at(TextView control)
{
    return const_cast<Held&>(std::as_const(*this).at(control));
}

FormInMemory::Held& FormInMemory::usable(TextView control)
{
    Held& held = at(control);
    if (!held.enabled) throw impossible(control, u"está deshabilitado");
    if (!held.visible) throw impossible(control, u"está oculto");
    if (held.read_only) throw impossible(control, u"es de sólo lectura");
    return held;
}

void FormInMemory::type(TextView text_box, const Text& text) { usable(text_box).text = text; }

void FormInMemory::pick(TextView combo, TextView item_value)
{
    usable(combo);
    choose(combo, item_value);
    if (!at(combo).chosen) throw impossible(combo, u"no ofrece " + Text(item_value));
    run_event([&] { form_.item_chosen(*this, combo); });
}

void FormInMemory::tick(TextView check, bool on) { usable(check).checked = on; }

void FormInMemory::click(TextView name)
{
    const auto& tools = form_.description().tools;
    const bool is_tool =
        std::any_of(tools.begin(), tools.end(), [&](const Tool& t) { return t.key == name; });
    if (!is_tool) usable(name);
    run_event([&] { form_.clicked(*this, name); });
}

void FormInMemory::select_row(TextView list, TextView first_column)
{
    Held& held = usable(list);
    const auto found = std::find_if(held.rows.begin(), held.rows.end(),
                                    [&](const ListRow& row) { return row.at(0) == first_column; });
    if (found == held.rows.end()) throw impossible(list, u"no muestra " + Text(first_column));
    held.selected = found - held.rows.begin();
}

void FormInMemory::double_click(TextView list)
{
    usable(list);
    run_event([&] { form_.row_activated(*this, list); });
}

Text FormInMemory::text(TextView control) const
{
    const Held& held = at(control);
    if (held.kind != ControlKind::combo) return held.text;
    return held.chosen ? held.items[*held.chosen].text : Text();
}

void FormInMemory::set_background(TextView control, Background background)
{
    at(control).background = background;
}

void FormInMemory::fill(TextView combo, const std::vector<Item>& items)
{
    at(combo).items = items;
    at(combo).chosen.reset();
}

Text FormInMemory::chosen(TextView combo) const
{
    const Held& held = at(combo);
    return held.chosen ? held.items[*held.chosen].value : Text();
}

void FormInMemory::choose(TextView combo, TextView value)
{
    Held& held = at(combo);
    const auto found = std::find_if(held.items.begin(), held.items.end(),
                                    [&](const Item& item) { return item.value == value; });
    held.chosen.reset();
    if (found != held.items.end()) held.chosen = found - held.items.begin();
}

void FormInMemory::clear_rows(TextView list)
{
    at(list).rows.clear();
    at(list).selected.reset();
}

void FormInMemory::set_columns(TextView list, const std::vector<ListColumn>& columns)
{
    at(list).columns = columns;
}

std::optional<ListRow> FormInMemory::selected_row(TextView list) const
{
    const Held& held = at(list);
    return held.selected ? std::optional(held.rows[*held.selected]) : std::nullopt;
}

FormInMemory& ToolkitInMemory::open_form(TextView form_name)
{
    if (!is_open(form_name)) throw invalid_call(u"La ventana " + Text(form_name) + u" no está abierta");
    return *windows_.find(form_name)->second.view;
}

bool ToolkitInMemory::is_open(TextView form_name) const
{
    const auto found = windows_.find(form_name);
    return found != windows_.end() && found->second.view->is_open();
}

void ToolkitInMemory::show_modal(Form& form)
{
    FormInMemory view(form);
    const auto user = users_.find(form.description().name);
    if (user != users_.end()) user->second(view);
}

void ToolkitInMemory::show(std::unique_ptr<Form> form)
{
    const Text name(form->description().name);
    windows_.erase(name);
    auto view = std::make_unique<FormInMemory>(*form);
    windows_[name] = {std::move(form), std::move(view)};
}

Text ToolkitInMemory::choose_folder(WindowHandle, const Text& title)
{
    last_title = title;
    return next_folder;
}

Text ToolkitInMemory::choose_file(WindowHandle, const Text& title, const FileKind&)
{
    last_title = title;
    return next_file;
}

} // namespace tolvex
