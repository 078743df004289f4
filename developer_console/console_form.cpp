#include "developer_console/console_form.hpp"

#include "core/numbers.hpp"
#include "developer_console/methods.hpp"
#include "developer_console/sample_data.hpp"
#include "platform/clock.hpp"
#include "platform/messages.hpp"

#include <algorithm>

namespace tolvex::developer_console {

namespace {

constexpr auto label = ControlKind::label, text = ControlKind::text, combo = ControlKind::combo,
               check = ControlKind::check, button = ControlKind::button, list = ControlKind::list;

constexpr TextView log_name = u"Llamadas", state_name = u"Resultado", password_name = u"Contraseña",
                   kind_name = u"Tipo";
constexpr TextView issue_button = u"EmitirTodo", copy_button = u"Copiar", clear_button = u"Limpiar",
                   close_button = u"Cerrar";

Control field(TextView name, int width = 0)
{
    return {.kind = text, .name = name, .caption = name, .width = width};
}
Control lines(TextView name, int count) { return {.kind = text, .name = name, .lines = count}; }
Control hint(TextView name, TextView words) { return {.kind = label, .name = name, .caption = words}; }
Control tick(TextView name) { return {.kind = check, .name = name, .caption = name}; }
Control call(TextView method) { return {.kind = button, .name = method, .caption = method}; }

// The pages follow the order in which a host calls.
std::vector<Section> pages()
{
    constexpr TextView issuer = u"Conexión y emisor", receiver = u"Receptor y encabezado",
                       lines_page = u"Renglones y addenda", document = u"Documento",
                       printing = u"Impresión y archivo plano", maintenance = u"Maestros";
    constexpr int amount = 12, short_text = 18;
    return {
        {{},
         {{field(u"Servidor")},
          {field(u"Base")},
          {field(u"Usuario", short_text),
           {.kind = text,
            .name = password_name,
            .caption = password_name,
            .width = short_text,
            .secret = true}},
          {call(u"SetDatosConexion"), call(u"AbrirConexion"), call(u"CierraConexion")},
          {field(u"Empresa", 5), field(u"Sucursal", 5)},
          {call(u"GetDatosEmpresa"), call(u"GetDatosSucursal"), call(u"GetDatosCertificado")}},
         issuer},
        {{},
         {{field(u"Rfc", short_text), field(u"Nombre")},
          {field(u"Calle"), field(u"NumeroExt", 6), field(u"NumeroInt", 6)},
          {field(u"Colonia"), field(u"Localidad")},
          {field(u"Municipio"), field(u"Estado", short_text)},
          {field(u"Pais", short_text), field(u"CodigoPos", 8), field(u"FormaPago", 4),
           field(u"ClaveFolio", 6)},
          {field(u"Subtotal", amount), field(u"Descuento", amount), field(u"Impuesto", amount),
           field(u"Total", amount)},
          {field(u"IvaRet", amount), field(u"ISRRet", amount), field(u"moneda", amount),
           field(u"Paridad", amount)},
          {field(u"RutaDeArchivos")},
          {field(u"FechaHoraDocto", short_text),
           hint(u"PistaFecha", u"aaaa-mm-dd hh:mm:ss; vacía, este momento")},
          {field(u"DatoAdicional"), field(u"DatoAdicional_2", short_text),
           field(u"DatoAdicional_3", short_text)},
          {call(u"SetDatosClientes")}},
         receiver},
        {{},
         {{hint(u"PistaRenglones",
                u"Un renglón por línea: CveProducto|Producto|Cantidad|Unidad|PrecioSinIva|Iva|"
                u"Importe|PorcIva")},
          {lines(u"Renglones", 4)},
          {call(u"InicializaDetalleFactura"), call(u"SetDetalleDocto")},
          {field(u"RfcAddenda", short_text),
           hint(u"PistaAddenda", u"Abajo: nRama|nPadre|cValor, y nRenglon|nRama|nPadre|cValor")},
          {lines(u"NodosDeAddenda", 3), lines(u"NodosDeRenglones", 3)},
          {call(u"InicializaAddenda"), call(u"SetAddenda"), call(u"SetAddendaDet")}},
         lines_page},
        {{},
         {{field(u"Folio", short_text),
           {.kind = combo, .name = kind_name, .caption = kind_name, .width = 10},
           field(u"TasaDeIva", 4)},
          {tick(u"CtrlFolioInterno"), tick(u"GeneraAddenda"), tick(u"NotaDeCredito")},
          {call(u"GeneraFacturaElectronica"), call(u"BorraFacturaElectronica")},
          {field(u"FechaCancelacion", short_text), call(u"CancelaFacturaElectronica")},
          {field(u"Caja", 8), call(u"fgObtenFolioFactura")},
          {call(u"Main")}},
         document},
        {{},
         {{field(u"Reporte")},
          {field(u"NumeroDeCopias", 4), tick(u"GenerarPDF")},
          {call(u"ImprimeDocuento"), call(u"ImprimeDocuentoConVisor")},
          {field(u"Archivo"), hint(u"PistaArchivo", u"en RutaDeArchivos")},
          {call(u"GeneraFacturaElectronicaDesdeArchivoPlano")}},
         printing},
        {{},
         {{call(u"MuestraEmpresas"), call(u"MuestraSucursales")},
          {call(u"MuestraCertificados"), call(u"MuestraSeriesyFolios")},
          {field(u"RutaDelReporte"), hint(u"PistaReporte", u"vacía, la carpeta de la consola")},
          {call(u"GeneraReporteDeFoliosUtilizados")}},
         maintenance},
    };
}

FormDescription describe()
{
    FormDescription form{.name = u"frmConsola", .sections = pages(), .resizable = true, .enter_moves = false};
    form.sections.push_back({{},
                             {{{.kind = list, .name = log_name, .lines = 8}},
                              {{.kind = label, .name = state_name, .caption = u" "}}}});
    form.buttons = {{.kind = button, .name = copy_button, .caption = u"Copiar como &VBScript"},
                    {.kind = button, .name = clear_button, .caption = u"&Limpiar"},
                    {.kind = button, .name = issue_button, .caption = u"&Emitir todo"},
                    {.kind = button, .name = close_button, .caption = u"&Cerrar"}};
    return form;
}

// What a user fills in, in any of the form's pages.
bool is_remembered(const Control& control)
{
    return !control.secret && (control.kind == text || control.kind == combo || control.kind == check);
}

void for_each_field(const FormDescription& form, const std::function<void(const Control&)>& visit)
{
    for (const Section& section : form.sections)
        for (const Row& row : section.rows) std::for_each(row.begin(), row.end(), visit);
}

void show(FormView& view, const Control& control, const Text& value)
{
    if (control.kind == check)
        view.set_checked(control.name, value == u"1");
    else if (control.kind == combo)
        view.choose(control.name, value);
    else
        view.set_text(control.name, value);
}

// Methods that trap their errors go on, and may give True nonetheless.
Text state_after(const Call& call, const Outcome& outcome)
{
    const Text method(call.method);
    if (!outcome.succeeded()) return method + u" no se logró. " + outcome.error;
    return outcome.error.empty() ? method + u": listo." : method + u" dejó un error: " + outcome.error;
}

Text value_of(const FormView& view, const Control& control)
{
    if (control.kind == check) return view.checked(control.name) ? u"1" : u"0";
    return control.kind == combo ? view.chosen(control.name) : view.text(control.name);
}

} // namespace

const FormDescription& ConsoleForm::description() const
{
    static const FormDescription form = describe();
    return form;
}

void ConsoleForm::load(FormView& view)
{
    view.set_caption(u"Consola de TOLVEX");
    view.fill(kind_name, {{u"ingreso", u"ingreso"}, {u"egreso", u"egreso"}});
    view.set_columns(log_name, {{u"Núm.", 6, true},
                                {u"Llamada", 38},
                                {u"Resultado", 10},
                                {u"ms", 6, true},
                                {u"Error", 40},
                                {u"Argumentos", 60}});
    show_sample_data(view);
    recall_fields(view);
}

void ConsoleForm::show_sample_data(FormView& view) const
{
    const auto samples = sample_data(surroundings_.working_folder, surroundings_.layout);
    for_each_field(description(), [&](const Control& control) {
        const auto sample = samples.find(control.name);
        if (sample != samples.end()) show(view, control, sample->second);
    });
}

void ConsoleForm::recall_fields(FormView& view) const
{
    for_each_field(description(), [&](const Control& control) {
        if (!is_remembered(control)) return;
        if (const auto value = surroundings_.memory.recall(control.name)) show(view, control, *value);
    });
}

void ConsoleForm::keep_fields(FormView& view) const
{
    for_each_field(description(), [&](const Control& control) {
        if (is_remembered(control)) surroundings_.memory.keep(control.name, value_of(view, control));
    });
}

void ConsoleForm::clicked(FormView& view, TextView control)
{
    if (control == close_button) return view.close();
    if (control == clear_button) return clear_log(view);
    if (control == copy_button) return surroundings_.copy(script_of(calls_));
    keep_fields(view); // a call may end the process
    if (control == issue_button) return issue_all(view);
    call_method(view, control);
}

// The whole calling order; it ends with the first call that fails.
void ConsoleForm::issue_all(FormView& view)
{
    std::vector<TextView> order = {u"SetDatosConexion",         u"AbrirConexion",    u"SetDatosClientes",
                                   u"GetDatosEmpresa",          u"GetDatosSucursal", u"GetDatosCertificado",
                                   u"InicializaDetalleFactura", u"SetDetalleDocto"};
    if (view.checked(u"GeneraAddenda"))
        order.insert(order.end(), {u"InicializaAddenda", u"SetAddenda", u"SetAddendaDet"});
    order.push_back(u"GeneraFacturaElectronica");
    for (const TextView method : order)
        if (!call_method(view, method)) return;
    view.set_text(state_name, u"Se emitió el folio " + view.text(u"Folio") + u".");
}

// Did its calls succeed?
bool ConsoleForm::call_method(FormView& view, TextView method)
{
    const auto calls = calls_of(method_named(method), view);
    return std::all_of(calls.begin(), calls.end(), [&](const Call& call) { return make(view, call); });
}

bool ConsoleForm::make(FormView& view, const Call& call)
{
    const std::int64_t start = milliseconds_running();
    const Outcome outcome = while_busy(view, [&] { return surroundings_.component.call(call); });
    add_to_log(view, call, outcome, milliseconds_running() - start);
    if (variable_of(call)) view.set_text(u"Folio", outcome.variable);
    return outcome.succeeded();
}

void ConsoleForm::add_to_log(FormView& view, const Call& call, const Outcome& outcome,
                             std::int64_t milliseconds)
{
    calls_.push_back(call);
    outcomes_.push_back(outcome);
    const Text method = Text(call.class_name) + u"." + Text(call.method);
    view.add_row(log_name, {decimal(static_cast<std::int64_t>(calls_.size())), method, outcome.result,
                            decimal(milliseconds), outcome.error, arguments_in_vbscript(call)});
    view.show_last_row(log_name);
    view.set_text(state_name, state_after(call, outcome));
}

void ConsoleForm::clear_log(FormView& view)
{
    calls_.clear();
    outcomes_.clear();
    view.clear_rows(log_name);
    view.set_text(state_name, {});
}

// The whole of a call, of which the list shows what has room.
void ConsoleForm::row_activated(FormView& view, TextView)
{
    const auto row = view.selected_row(log_name);
    if (!row) return;
    const auto index = static_cast<std::size_t>(leading_number(row->at(0))) - 1;
    Text whole = call_in_vbscript(calls_.at(index));
    for (const Text& part : {outcomes_.at(index).result, outcomes_.at(index).error})
        if (!part.empty()) whole += u"\r\n\r\n" + part;
    show_message(whole, u"Llamada");
}

} // namespace tolvex::developer_console
