#include "developer_console/methods.hpp"

#include "core/errors.hpp"

#include <algorithm>

namespace tolvex::developer_console {

namespace {

using Arguments = std::vector<Argument>;
using ArgumentsOfCalls = std::vector<Arguments>;

Argument text(const FormView& view, TextView field) { return {Argument::Kind::text, view.text(field)}; }
Argument number(const FormView& view, TextView field) { return number_or_text(view.text(field)); }
Argument date(const FormView& view, TextView field) { return {Argument::Kind::date, view.text(field)}; }
Argument password(const FormView& view) { return {Argument::Kind::password, view.text(u"Contraseña")}; }
Argument variable(const FormView& view, TextView field)
{
    return {Argument::Kind::variable, view.text(field)};
}
Argument boolean(const FormView& view, TextView check)
{
    return {Argument::Kind::boolean, view.checked(check) ? u"True" : u"False"};
}

ArgumentsOfCalls nothing(const FormView&) { return {{}}; }
ArgumentsOfCalls company(const FormView& view) { return {{number(view, u"Empresa")}}; }

Arguments connection(const FormView& view)
{
    return {text(view, u"Usuario"), password(view), text(view, u"Base"), text(view, u"Servidor")};
}

ArgumentsOfCalls connection_alone(const FormView& view) { return {connection(view)}; }

ArgumentsOfCalls connection_and_company(const FormView& view)
{
    Arguments arguments = connection(view);
    arguments.push_back(number(view, u"Empresa"));
    return {arguments};
}

// What stands in a box of several lines: each line's values, between bars.
std::vector<std::vector<Text>> lines_in(const FormView& view, TextView field)
{
    std::vector<std::vector<Text>> lines;
    for (const Text& line : split(without(view.text(field), u'\r'), u'\n'))
        if (!trim(line).empty()) lines.push_back(split(line, u'|'));
    return lines;
}

ArgumentsOfCalls detail_lines(const FormView& view)
{
    ArgumentsOfCalls calls;
    const bool is_credit_note = view.chosen(u"Tipo") == u"egreso";
    for (const auto& line : lines_in(view, u"Renglones")) {
        Arguments arguments = {text(view, u"Folio"), {Argument::Kind::text, is_credit_note ? u"N" : u"F"}};
        constexpr std::size_t key = 0, product = 1, unit = 3;
        for (std::size_t i = 0; i < line.size(); ++i) {
            const bool is_text = i == key || i == product || i == unit;
            arguments.push_back(is_text ? Argument{Argument::Kind::text, line[i]} : number_or_text(line[i]));
        }
        calls.push_back(arguments);
    }
    return calls;
}

// Nodes of an addenda: numbers and a value at the end; the receiver stands after `before` of the numbers.
ArgumentsOfCalls addenda_nodes(const FormView& view, TextView field, std::size_t before)
{
    ArgumentsOfCalls calls;
    for (const auto& line : lines_in(view, field)) {
        Arguments arguments;
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (i == before) arguments.push_back(text(view, u"RfcAddenda"));
            const bool is_value = i == before + 2;
            arguments.push_back(is_value ? Argument{Argument::Kind::text, line[i]} : number_or_text(line[i]));
        }
        calls.push_back(arguments);
    }
    return calls;
}

Arguments receiver(const FormView& view)
{
    Arguments arguments;
    for (const TextView field :
         {u"Rfc", u"Nombre", u"Calle", u"NumeroExt", u"NumeroInt", u"Colonia", u"Localidad", u"Estado",
          u"Municipio", u"Pais", u"CodigoPos", u"Subtotal", u"Descuento", u"Impuesto", u"Total"})
        arguments.push_back(text(view, field));
    const Arguments header = {
        number(view, u"FormaPago"),     text(view, u"ClaveFolio"),     date(view, u"FechaHoraDocto"),
        text(view, u"RutaDeArchivos"),  number(view, u"IvaRet"),       number(view, u"ISRRet"),
        text(view, u"moneda"),          number(view, u"Paridad"),      text(view, u"DatoAdicional"),
        text(view, u"DatoAdicional_2"), text(view, u"DatoAdicional_3")};
    arguments.insert(arguments.end(), header.begin(), header.end());
    return arguments;
}

Arguments document(const FormView& view)
{
    return {text(view, u"Folio"), number(view, u"Empresa"), number(view, u"Sucursal"),
            boolean(view, u"NotaDeCredito"), text(view, u"Reporte")};
}

} // namespace

const std::vector<Method>& methods()
{
    static const std::vector<Method> all = {
        {u"GeneraDocto", u"GetDatosSucursal", true,
         [](const FormView& view) -> ArgumentsOfCalls {
             return {{number(view, u"Empresa"), number(view, u"Sucursal")}};
         }},
        {u"GeneraDocto", u"GetDatosCertificado", true, company},
        {u"GeneraDocto", u"GetDatosEmpresa", true, company},
        {u"GeneraDocto", u"GeneraFacturaElectronica", true,
         [](const FormView& view) -> ArgumentsOfCalls {
             return {{variable(view, u"Folio"),
                      boolean(view, u"CtrlFolioInterno"),
                      {Argument::Kind::text, view.chosen(u"Tipo")},
                      number(view, u"TasaDeIva"),
                      boolean(view, u"GeneraAddenda")}};
         }},
        {u"GeneraDocto", u"Main", false, nothing},
        {u"GeneraDocto", u"ImprimeDocuento", false,
         [](const FormView& view) -> ArgumentsOfCalls {
             Arguments arguments = document(view);
             arguments.push_back(boolean(view, u"GenerarPDF"));
             arguments.push_back(number(view, u"NumeroDeCopias"));
             return {arguments};
         }},
        {u"GeneraDocto", u"ImprimeDocuentoConVisor", false,
         [](const FormView& view) -> ArgumentsOfCalls { return {document(view)}; }},
        {u"GeneraDocto", u"CancelaFacturaElectronica", true,
         [](const FormView& view) -> ArgumentsOfCalls {
             return {{text(view, u"Folio"), date(view, u"FechaCancelacion"), number(view, u"Empresa"),
                      number(view, u"Sucursal"), boolean(view, u"NotaDeCredito")}};
         }},
        {u"GeneraDocto", u"BorraFacturaElectronica", true,
         [](const FormView& view) -> ArgumentsOfCalls {
             return {{number(view, u"Empresa"), number(view, u"Sucursal"), text(view, u"Folio")}};
         }},
        {u"GeneraDocto", u"fgObtenFolioFactura", true,
         [](const FormView& view) -> ArgumentsOfCalls {
             return {{text(view, u"Caja"), variable(view, u"Folio")}};
         }},
        {u"GeneraDocto", u"GeneraFacturaElectronicaDesdeArchivoPlano", true,
         [](const FormView& view) -> ArgumentsOfCalls {
             return {{text(view, u"RutaDeArchivos"), text(view, u"Archivo"), text(view, u"Usuario"),
                      password(view), text(view, u"Servidor"), text(view, u"Base")}};
         }},
        {u"ConfigFE", u"AbrirConexion", true, nothing},
        {u"ConfigFE", u"SetDatosConexion", false, connection_alone},
        {u"ConfigFE", u"CierraConexion", true, nothing},
        {u"Cliente", u"SetDatosClientes", false,
         [](const FormView& view) -> ArgumentsOfCalls { return {receiver(view)}; }},
        {u"DetFacturas", u"SetDetalleDocto", false, detail_lines},
        {u"DetFacturas", u"InicializaDetalleFactura", false, nothing},
        {u"Addenda", u"SetAddenda", false,
         [](const FormView& view) { return addenda_nodes(view, u"NodosDeAddenda", 0); }},
        {u"Addenda", u"InicializaAddenda", false, nothing},
        {u"Addenda", u"SetAddendaDet", false,
         [](const FormView& view) { return addenda_nodes(view, u"NodosDeRenglones", 1); }},
        {u"Maestros", u"MuestraEmpresas", false, connection_alone},
        {u"Maestros", u"MuestraSucursales", false, connection_and_company},
        {u"Maestros", u"MuestraCertificados", false, connection_and_company},
        {u"Maestros", u"GeneraReporteDeFoliosUtilizados", false,
         [](const FormView& view) -> ArgumentsOfCalls {
             Arguments arguments = connection(view);
             arguments.push_back(text(view, u"RutaDelReporte"));
             return {arguments};
         }},
        {u"Maestros", u"MuestraSeriesyFolios", false, connection_and_company},
    };
    return all;
}

const Method& method_named(TextView name)
{
    const auto found =
        std::find_if(methods().begin(), methods().end(), [&](const Method& m) { return m.name == name; });
    if (found == methods().end()) throw invalid_call(u"El método " + Text(name) + u" no existe");
    return *found;
}

std::vector<Call> calls_of(const Method& method, const FormView& view)
{
    std::vector<Call> calls;
    for (Arguments& arguments : method.arguments(view))
        calls.push_back({method.class_name, method.name, method.gives_result, std::move(arguments)});
    return calls;
}

} // namespace tolvex::developer_console
