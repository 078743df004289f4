#include "maintenance/certificates_form.hpp"

#include "core/dates.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "maintenance/certificate_files.hpp"
#include "maintenance/certificate_text.hpp"
#include "maintenance/company_rows.hpp"
#include "platform/clock.hpp"
#include "platform/messages.hpp"
#include "session/configuracion.hpp"

#include <cmath>

namespace tolvex {

namespace {

using enum ControlKind;

constexpr TextView save_button = u"Command2";

// What is read of the certificate, not typed.
Control read_only_text(TextView name, TextView caption = {}, int width = 0, int lines = 1)
{
    return {
        .kind = text, .name = name, .caption = caption, .width = width, .lines = lines, .read_only = true};
}

Control work_field(TextView name) { return {.kind = text, .name = name, .width = 8, .visible = false}; }

Row with_chooser(TextView text_box, TextView caption, TextView chooser)
{
    return {{text, text_box, caption}, {button, chooser, u"Examinar…", 12}};
}

const FormDescription form = {
    .name = u"FrmCatCertificados",
    .sections = {{u"",
                  {company_row(),
                   number_row(u"txtIdCertificado", u"Certificado"),
                   {{text, u"txtDescripcion", u"Descripción"}},
                   with_chooser(u"txtRutaSelloPEM", u"Ruta Sello PEM:", u"Command1")}},
                 {u"Certificado y Llave Privada",
                  {with_chooser(u"txtCertificado", u"Certificado:", u"cmdCertificado"),
                   with_chooser(u"txtLlavePrivada", u"Llave Privada:", u"cmdLlavePrivada")}},
                 {u"",
                  {{read_only_text(u"txtSerial", u"Serial:")}, // forty digits: a row of its own
                   {read_only_text(u"txtSerie", u"Serie:", 22)},
                   {read_only_text(u"txtCertificado1", u"", 0, 2)}}},
                 {u"Vigencia del certificado",
                  {{read_only_text(u"txtVigenciaDesde", u"Desde:", 12), read_only_text(u"txtNotBefore")},
                   {read_only_text(u"txtVigenciaHasta", u"Hasta:", 12), read_only_text(u"txtNotAfter")}}},
                 {u"Aviso de vencimiento",
                  {{{check, u"chkAviso", u"Avisar"}, {combo, u"cmbAlarma", u"", 32}},
                   {work_field(u"txtDummy"), work_field(u"txtModulusC"), work_field(u"txtModulusK"),
                    work_field(u"txtConfirmarPassword")}}}},
    .buttons = {{.kind = button, .name = save_button, .caption = u"&Aceptar", .enabled = false},
                {button, u"Command3", u"&Cancelar"}}};

Text file_title(const Text& path) { return path.substr(path.find_last_of(u"\\/") + 1); }

bool is_past(const Text& date)
{
    try {
        return std::floor(to_date(date).days) < std::floor(local_now().days);
    } catch (const Error&) {
        return false; // no date
    }
}

void show_expiry(FormView& view)
{
    const bool expired = is_past(view.text(u"txtVigenciaHasta"));
    view.set_background(u"txtVigenciaHasta", expired ? Background::alarm : Background::plain);
    if (expired) show_message(u"El certificado ha caducado", Text(component_title), MessageIcon::information);
}

void tell(KeyCheck check)
{
    switch (check) {
    case KeyCheck::not_unlocked:
        return show_message(u"La contraseña es incorrecta, vuelva a seleccionar el archivo llave",
                            u"Contraseña incorrecta", MessageIcon::information);
    case KeyCheck::empty:
        return show_message(u"Por favor vuelva a ejecutar el proceso con la contraseña correcta",
                            u"(0) Bytes", MessageIcon::information);
    case KeyCheck::of_another_one:
        return show_message(u"La llave no corresponde al certificado. Vuelva a seleccionar",
                            Text(component_title), MessageIcon::critical);
    case KeyCheck::matching:
        return show_message(u"Proceso concluido exitosamente", Text(component_title),
                            MessageIcon::information);
    }
}

std::function<Value(const FormView&)> text_without_blanks(TextView control)
{
    return [=](const FormView& view) { return without(view.text(control), u' '); };
}

std::vector<SavedColumn> saved_columns()
{
    return {{u"cDescripcion", plain_text(u"txtDescripcion")},
            {u"cRuta_Certificado", plain_text(u"txtCertificado")},
            {u"cRuta_LlavePrivada", plain_text(u"txtLlavePrivada")},
            {u"dVigencia_Cert_Desde", date_text(u"txtVigenciaDesde")},
            {u"dVigencia_Cert_Hasta", date_text(u"txtVigenciaHasta")},
            {u"cVigencia_Cert_Desde", plain_text(u"txtNotBefore")},
            {u"cVigencia_Cert_Hasta", plain_text(u"txtNotAfter")},
            {u"cSerial_Certificado", plain_text(u"txtSerial")},
            {u"cSerie_Certificado", plain_text(u"txtSerie")},
            {u"cCertificado", text_without_blanks(u"txtCertificado1")},
            // Deliberate: whatever cmbAlarma shows.
            {u"nDiasDeAviso", constant(std::int16_t{15})},
            {u"bVerificaVigencia", check_number(u"chkAviso")},
            {u"cRutaArchivoSelloDigital", plain_text(u"txtRutaSelloPEM")}};
}

} // namespace

const FormDescription& FrmCatCertificados::description() const { return form; }

EditPattern FrmCatCertificados::pattern() const
{
    const Text company = decimal(key().company), number = decimal(key().number);
    const Text columns =
        u"Select "
        u"nEmpresa,nCertificado,cDescripcion,cRuta_Certificado,cRuta_LlavePrivada,dVigencia_Cert_Desde,"
        u"dVigencia_Cert_Hasta,cVigencia_Cert_Desde,cVigencia_Cert_Hasta,cSerial_Certificado,"
        u"cSerie_Certificado,cCertificado,nDiasDeAviso,bVerificaVigencia,cRutaArchivoSelloDigital from "
        u"fe_Certificados";
    return {.new_caption = u"Alta de Certificado",
            .modify_caption = u"Modificación de Certificado",
            .save_button = save_button,
            .cancel_button = u"Command3",
            .number_control = u"txtIdCertificado",
            .belongs_to_company = true,
            .in_transaction = false,
            .number_column = u"nCertificado",
            .next_number =
                u"select coalesce(max(nCertificado),0) + 1 as nCertificado from fe_Certificados (nolock) ",
            .empty_row = columns + u" where 1=0",
            .changed_row = columns + u" where nEmpresa=" + company + u" and nCertificado=" + number,
            .stored_row = u"select s.* from fe_Certificados s(nolock) where s.nEmpresa=" + company +
                          u" and nCertificado =" + number,
            .missing_row =
                u"La clave del certificado no existe o no pertenece a la empresa activa, verifique",
            .shown = {{u"txtIdCertificado", u"nCertificado"},
                      {u"txtDescripcion", u"cDescripcion"},
                      {u"txtCertificado", u"cRuta_Certificado"},
                      {u"txtLlavePrivada", u"cRuta_LlavePrivada"},
                      {u"txtVigenciaDesde", u"dVigencia_Cert_Desde"},
                      {u"txtVigenciaHasta", u"dVigencia_Cert_Hasta"},
                      {u"txtNotBefore", u"cVigencia_Cert_Desde"},
                      {u"txtNotAfter", u"cVigencia_Cert_Hasta"},
                      {u"txtSerial", u"cSerial_Certificado"},
                      {u"txtSerie", u"cSerie_Certificado"},
                      {u"txtCertificado1", u"cCertificado"},
                      {u"cmbAlarma", u"nDiasDeAviso"},
                      {u"chkAviso", u"bVerificaVigencia"},
                      {u"txtRutaSelloPEM", u"cRutaArchivoSelloDigital"}},
            .saved_in_new = {{u"nEmpresa", constant(key().company)}},
            .saved = saved_columns()};
}

void FrmCatCertificados::load(FormView& view)
{
    EditForm::load(view);
    // What is stored has its key already.
    view.enable(save_button, !view.text(u"txtIdCertificado").empty());
}

void FrmCatCertificados::load_lists(FormView& view)
{
    view.fill(u"cmbAlarma", {{u"30 Dias antes del vencimiento", u"30"},
                             {u"15 Dias antes del vencimiento", u"15"},
                             // Deliberate: two blanks after the 8.
                             {u"8  Dias antes del vencimiento", u"8"}});
}

void FrmCatCertificados::other_clicked(FormView& view, TextView control)
{
    if (control == u"cmdCertificado") choose_certificate(view);
    if (control == u"cmdLlavePrivada") choose_key(view);
    if (control != u"Command1") return;
    const Text folder = fgSeleccionaCarpeta(view.window(), u"Seleccione directorio");
    if (!folder.empty()) view.set_text(u"txtRutaSelloPEM", folder);
}

void FrmCatCertificados::choose_certificate(FormView& view)
{
    const Text path = toolkit().choose_file(view.window(), u"Especifique el certificado",
                                            {u"Certificados (*.cer)", u"*.cer"});
    if (path.empty()) return;
    view.set_text(u"txtCertificado", path);
    ProcesaCertificado(view, path, file_title(path));
}

void FrmCatCertificados::choose_key(FormView& view)
{
    const Text path =
        toolkit().choose_file(view.window(), u"Especifique la llave", {u"Llaves (*.key)", u"*.key"});
    if (path.empty()) return;
    view.set_text(u"txtLlavePrivada", path);
    ProcesaLlave(view, path);
}

void FrmCatCertificados::ProcesaCertificado(FormView& view, const Text& certificate, const Text& title)
{
    title_ = title;
    const CertificateReading reading = while_busy(
        view, [&] { return convert_certificate(view.text(u"txtRutaSelloPEM"), certificate, title); });
    // Another certificate is not saved with the key of the one before.
    if (reading.body != view.text(u"txtCertificado1")) view.enable(save_button, false);
    view.set_text(u"txtDummy", reading.last_file);
    view.set_text(u"txtSerial", reading.serial);
    view.set_text(u"txtNotBefore", reading.not_before);
    view.set_text(u"txtNotAfter", reading.not_after);
    view.set_text(u"txtCertificado1", reading.body);
    view.set_text(u"txtVigenciaDesde", ConvierteFecha(reading.not_before));
    view.set_text(u"txtVigenciaHasta", ConvierteFecha(reading.not_after));
    view.set_text(u"txtSerie", ObtenNumeroCertificado(reading.serial));
    show_expiry(view);
}

void FrmCatCertificados::ProcesaLlave(FormView& view, const Text& key)
{
    view.enable(save_button, false);
    const KeyReading reading =
        while_busy(view, [&] { return unlock_key(view.text(u"txtRutaSelloPEM"), key); });
    view.set_text(u"txtDummy", reading.modulus_of_key);
    view.set_text(u"txtModulusC", reading.modulus_of_certificate);
    view.set_text(u"txtModulusK", reading.modulus_of_key);
    tell(reading.check);
    if (reading.check == KeyCheck::matching) view.enable(save_button, true);
}

void FrmCatCertificados::unload(FormView& view)
{
    remove_certificate_files(view.text(u"txtRutaSelloPEM"), title_);
}

} // namespace tolvex
