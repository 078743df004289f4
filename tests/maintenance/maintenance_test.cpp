#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "maintenance/list_filler.hpp"
#include "support/forms.hpp"

namespace tolvex::testing {
namespace {

const Message saved{u"Se han guardado correctamente los datos", u"Aviso", MessageIcon::information};
const Message question{u"Desea guardar la información?", u"Mensaje...", MessageIcon::information,
                       MessageButtons::yes_no};
constexpr TextView list = u"LstLQS3";

class Maintenance : public FormsStation
{
protected:
    void show_companies() { Maestros().MuestraEmpresas(u"", u"", database_path(), u"sqlite:"); }
    void show_branches(std::int16_t company = 1)
    {
        Maestros().MuestraSucursales(u"", u"", database_path(), u"sqlite:", company);
    }
    void show_folios(std::int16_t company = 1)
    {
        Maestros().MuestraSeriesyFolios(u"", u"", database_path(), u"sqlite:", company);
    }

    // What the user does in the edit form that a picker's button opens.
    void edit(TextView picker, TextView form, ToolkitInMemory::User user, const Text& record = u"")
    {
        toolkit_.set_user(form, std::move(user));
        FormInMemory& open = toolkit_.open_form(picker);
        if (!record.empty()) open.select_row(list, record);
        open.click(record.empty() ? u"Nuevo" : u"Modificar");
    }

    Text row(const Text& table, const Text& condition)
    {
        return rows_as_text(shared_connection(session()), u"Select * From " + table + u" Where " + condition,
                            true);
    }
};

TEST_F(Maintenance, a_new_company_is_stored_whole_in_upper_case_and_listed)
{
    show_companies();
    edit(u"FrmMuestraEmpresas", u"FrmCatEmpresas", [](FormInMemory& form) {
        EXPECT_EQ(form.caption(), u"Alta de Empresas");
        EXPECT_EQ(form.text(u"txtId"), u"");
        int i = 0;
        for (const char16_t* name :
             {u"txtNombre", u"txtCalle", u"txtNumExterior", u"txtNumInterior", u"txtColonia", u"txtLocalidad",
              u"txtMunicipio", u"txtEstado", u"txtPais", u"txtCP", u"txtTelefono", u"txtRFC"})
            form.type(name, u" ñandú " + decimal(++i) + u" ");
        form.click(u"Command1");
        EXPECT_FALSE(form.is_open());
    });
    EXPECT_EQ(row(u"FE_EMPRESAS", u"nEmpresa=2"),
              u"nEmpresa=2|cNombre=ÑANDÚ 1|cCalle=ÑANDÚ 2|cNumExterior=ÑANDÚ 3|cNumInterior=ÑANDÚ 4"
              u"|cColonia=ÑANDÚ 5|cLocalidad=ÑANDÚ 6|cMunicipio=ÑANDÚ 7|cEstado=ÑANDÚ 8|cPais=ÑANDÚ 9"
              u"|cCodigoPostal=ÑANDÚ 10|cTelefono=ÑANDÚ 11|cRfc=ÑANDÚ 12|cCurp=|nMostrarVersion=1"
              u"|nMostrarSerie=1|nMostrarAnnoAprobacion=1|nMostrarTipoDeComprobante=1|nMostrarFormadePago=1"
              u"|nMostrarCondicionesDePago=1|nMostrarSubtotal=1|nMostrarDescuento=1|nMostrarTotal=1"
              u"|nMostrarNameSpacePosition=1|nMostrarxmlns=1|nMostrarxmlnsxsi=1|nMostrarxsischemaLocation=1");
    const FormInMemory& picker = toolkit_.open_form(u"FrmMuestraEmpresas");
    EXPECT_EQ(picker.caption(), u"Maestro de Empresas");
    EXPECT_EQ(picker.rows(list).back(), (ListRow{u"2", u"ÑANDÚ 1", u"ÑANDÚ 12"}));
    EXPECT_EQ(messages, (std::vector<Message>{question, saved}));
}

TEST_F(Maintenance, the_first_company_is_number_1_and_a_modified_one_gets_its_switches_back)
{
    execute(u"Delete FE_EMPRESAS");
    show_companies();
    edit(u"FrmMuestraEmpresas", u"FrmCatEmpresas", [](FormInMemory& form) { form.click(u"Command1"); });
    execute(u"Update FE_EMPRESAS Set nMostrarVersion=0, nMostrarTotal=0, cCurp='X', cCalle='Vieja'");
    edit(
        u"FrmMuestraEmpresas", u"FrmCatEmpresas",
        [](FormInMemory& form) {
            EXPECT_EQ(form.caption(), u"Modificación de Empresas");
            EXPECT_EQ(form.text(u"txtId") + u"|" + form.text(u"txtCalle"), u"1|Vieja");
            form.click(u"Command1");
        },
        u"1");
    EXPECT_EQ(rows(u"Select nEmpresa,nMostrarVersion,nMostrarTotal,cCurp,cCalle From FE_EMPRESAS"),
              u"1|1|1||VIEJA");
}

TEST_F(Maintenance, without_a_yes_or_with_the_cancel_button_nothing_is_stored)
{
    show_companies();
    set_message_handler([](const Message&) { return MessageAnswer::no; });
    edit(u"FrmMuestraEmpresas", u"FrmCatEmpresas", [](FormInMemory& form) {
        form.click(u"Command1");
        EXPECT_TRUE(form.is_open());
        form.click(u"Command2");
        EXPECT_FALSE(form.is_open());
    });
    EXPECT_EQ(count(u"FE_EMPRESAS"), 1);
}

TEST_F(Maintenance, a_branch_gets_the_next_number_of_its_company_and_one_of_its_certificates)
{
    execute(u"Update FE_CERTIFICADOS Set cDescripcion='Sello'");
    show_branches();
    edit(u"frmMuestraSucursales", u"FrmCatSucursales", [](FormInMemory& form) {
        EXPECT_EQ(form.caption(), u"Alta de Sucursal");
        EXPECT_EQ(form.text(u"txtId") + u"|" + form.text(u"txtNombreEmpresa"), u"1| ABARROTES LA ESPERANZA ");
        form.type(u"txtNombre", u"norte");
        form.pick(u"cmbCertificado1", u"1");
        EXPECT_EQ(form.text(u"cmbCertificado1"), u"Sello");
        form.click(u"Command1");
    });
    EXPECT_EQ(
        row(u"FE_SUCURSALES", u"nSucursal=3"),
        u"nEmpresa=1|nSucursal=3|nCertificado=1|nFolio=Null|cNombre=NORTE|cCalle=|cNumExterior="
        u"|cNumInterior=|cColonia=|cLocalidad=|cMunicipio=|cEstado=|cPais=|cCodigoPostal=|cTelefono=|cRfc="
        u"|cCurp=");
    edit(
        u"frmMuestraSucursales", u"FrmCatSucursales",
        [](FormInMemory& form) {
            EXPECT_EQ(form.caption(), u"Modificación de Sucursal");
            EXPECT_EQ(form.chosen(u"cmbCertificado1"), u"1");
            form.type(u"txtNombre", u"sur");
            form.click(u"Command1");
        },
        u"3");
    EXPECT_EQ(rows(u"Select nSucursal,cNombre,nFolio From FE_SUCURSALES Order By nSucursal"),
              u"1|MATRIZ|1/2|PLAZA|Null/3|SUR|Null");

    execute(u"Insert Into FE_EMPRESAS(nEmpresa,cNombre) Values(2,'OTRA')");
    messages.clear();
    show_branches(2);
    edit(u"frmMuestraSucursales", u"FrmCatSucursales", [](FormInMemory& form) {
        EXPECT_TRUE(form.is_open());
        form.click(u"Command1");
    });
    EXPECT_EQ(messages, (std::vector<Message>{
                            {u"No existen certificaciones configuradas para la empresa activa, verifique",
                             u"Atención", MessageIcon::exclamation},
                            question,
                            saved}));
    EXPECT_EQ(count(u"FE_SUCURSALES", u"nEmpresa=2 And nSucursal=1"), 1);
}

TEST_F(Maintenance, a_folio_range_is_stored_with_what_was_chosen_and_always_in_use)
{
    execute(u"Update FE_CERTIFICADOS Set cDescripcion='Sello'");
    show_folios();
    edit(u"frmMuestraSeriesyFolios", u"FrmCatSerieyFolios", [](FormInMemory& form) {
        EXPECT_EQ(form.caption(), u"Alta de Series y Folios");
        EXPECT_EQ(form.items(u"CboSucursal").front().text, u"<TODAS LAS SUCURSALE>");
        form.pick(u"CboSucursal", u"0");
        form.pick(u"CboCertificado", u"1");
        form.pick(u"CboDocumento", u"NC");
        form.type(u"txtSerie", u" b ");
        form.type(u"TxtAprobacion", u"ap-7");
        form.type(u"txtAnno", u"2011 ");
        form.type(u"txtDesde", u"1");
        form.type(u"txtHasta", u"2147483647");
        form.type(u"txtUltimo", u"ninguno"); // what leads in a text counts, and nothing is 0
        form.click(u"Command1");
    });
    EXPECT_EQ(row(u"FE_FOLIOS", u"nFolio=4"),
              u"nFolio=4|nEmpresa=1|nSucursal=0|nCertificado=1|cDocumento=NOTAS DE CREDITO|cFolio=NC|cSerie=B"
              u"|cNumero_Aprobacion=AP-7|nAnno=2011|nDesde=1|nHasta=2147483647|cStatus=USANDO|cEsquema=1"
              u"|nUltimoFolio=0");
    execute(u"Update FE_FOLIOS Set cStatus='AGOTADO', cEsquema='2' Where nFolio=1");
    edit(
        u"frmMuestraSeriesyFolios", u"FrmCatSerieyFolios",
        [](FormInMemory& form) {
            EXPECT_EQ(form.chosen(u"CboSucursal") + form.chosen(u"CboCertificado") +
                          form.chosen(u"CboDocumento") + form.text(u"txtSerie") + form.text(u"txtHasta"),
                      u"11FDA100");
            EXPECT_EQ(form.text(u"txtUltimo"), u"");
            form.type(u"txtUltimo", u"41");
            form.click(u"Command1");
        },
        u"1");
    EXPECT_EQ(rows(u"Select nSucursal,cStatus,cEsquema,nUltimoFolio From FE_FOLIOS Where nFolio=1"),
              u"1|USANDO|1|41");
}

TEST_F(Maintenance, what_cannot_be_stored_is_told_with_its_field_and_leaves_the_row_as_it_was)
{
    show_folios();
    const auto refused = [&](TextView control, const Text& value, const Text& told) {
        messages.clear();
        edit(
            u"frmMuestraSeriesyFolios", u"FrmCatSerieyFolios",
            [&](FormInMemory& form) {
                form.type(control, value);
                form.click(u"Command1");
                EXPECT_TRUE(form.is_open());
            },
            u"2");
        EXPECT_EQ(messages.back(),
                  (Message{u"No se pudo guardar: " + told, u"Error", MessageIcon::critical}));
    };
    const Text before = row(u"FE_FOLIOS", u"nFolio=2");
    refused(u"txtAnno", u"70000", u"Año aprobación: Desbordamiento: 70000");
    refused(u"txtHasta", u"3000000000", u"Hasta: Desbordamiento: 3000000000");
    refused(u"txtSerie", Text(51, u'x'), u"Serie: el valor tiene 51 caracteres y caben 50");
    EXPECT_EQ(row(u"FE_FOLIOS", u"nFolio=2"), before);
    // Bound, not pasted into a statement: a quote is a letter like any other.
    edit(
        u"frmMuestraSeriesyFolios", u"FrmCatSerieyFolios",
        [](FormInMemory& form) {
            form.type(u"txtSerie", u"O'H");
            form.click(u"Command1");
        },
        u"2");
    EXPECT_EQ(answer(u"Select cSerie From FE_FOLIOS Where nFolio=2").text(), u"O'H");
}

TEST_F(Maintenance, a_record_that_is_gone_or_a_lost_connection_is_told_and_nobody_is_held_up)
{
    show_companies();
    edit(
        u"FrmMuestraEmpresas", u"FrmCatEmpresas",
        [&](FormInMemory& form) {
            execute(u"Delete FE_EMPRESAS");
            form.click(u"Command1");
            EXPECT_TRUE(form.is_open());
        },
        u"1");
    EXPECT_EQ(messages.back().title, u"Error");
    Connection other; // the failed save's transaction is over
    other.connection_string = u"server=sqlite:;database=" + database_path();
    other.command_timeout = 1;
    other.open();
    other.execute(u"Insert Into FE_EMPRESAS(nEmpresa) Values(1)");

    show_companies();
    messages.clear();
    ConfigFE().CierraConexion();
    edit(
        u"FrmMuestraEmpresas", u"FrmCatEmpresas",
        [](FormInMemory& form) { EXPECT_FALSE(form.is_open()); }, // saved, it would be another record
        u"1");
    ASSERT_FALSE(messages.empty());
    EXPECT_EQ(messages.back().title, u"Seguridad");
    EXPECT_TRUE(messages.back().text.starts_with(u"      Un error ha Ocurrido - "));
}

TEST_F(Maintenance, a_record_asked_for_in_vain_and_a_company_that_is_none_are_told)
{
    for (const auto& [show, missing] :
         std::initializer_list<std::pair<std::function<void(std::int16_t)>, Text>>{
             {[&](std::int16_t company) { show_branches(company); }, u"frmMuestraSucursales"},
             {[&](std::int16_t company) { show_folios(company); }, u"frmMuestraSeriesyFolios"},
             {[&](std::int16_t company) {
                  Maestros().MuestraCertificados(u"", u"", database_path(), u"sqlite:", company);
              },
              u"frmMuestraCertificados"}}) {
        messages.clear();
        show(9);
        EXPECT_FALSE(toolkit_.is_open(missing));
        EXPECT_EQ(messages, (std::vector<Message>{{u"Ocurrio un error al conectar la empresa, verifique",
                                                   u"Atención", MessageIcon::critical}}));
    }
    show_folios();
    FormInMemory& picker = toolkit_.open_form(u"frmMuestraSeriesyFolios");
    messages.clear();
    picker.click(u"Modificar"); // no row is selected
    picker.double_click(list);
    EXPECT_TRUE(messages.empty());
    execute(u"Delete FE_FOLIOS");
    edit(
        u"frmMuestraSeriesyFolios", u"FrmCatSerieyFolios", [](FormInMemory&) {}, u"3"); // still listed
    EXPECT_EQ(messages.front().text,
              u"La clave de la Empresa no existe o no pertenece a la empresa activa, verifique");
    EXPECT_TRUE(picker.rows(list).empty()); // filled anew after the form
}

TEST_F(Maintenance, a_connection_that_cannot_be_opened_reaches_the_host_and_the_shared_one_stays)
{
    const auto shared = session().gConexion;
    EXPECT_EQ(error_number([&] { Maestros().MuestraEmpresas(u"", u"", u"/no/hay.db", u"sqlite:"); }),
              database_error);
    EXPECT_EQ(session().gConexion, shared);
    EXPECT_EQ(count(u"FE_EMPRESAS"), 1);
    use_toolkit(nullptr);
    EXPECT_EQ(error_number([&] { show_companies(); }), numbers::not_available); // no windows here
}

TEST_F(Maintenance, lists_show_dates_amounts_and_nulls_as_people_read_them)
{
    show_companies();
    FormInMemory& picker = toolkit_.open_form(u"FrmMuestraEmpresas");
    execute(
        u"Insert Into FE_VENTAS_RESUMEN(nID,cSerie,dFecha,nTotal) Values(7,Null,'2011-03-15 14:05',1234.5)");
    LlenaLista(session(), picker, list, u"Select nID,cSerie,dFecha,nTotal From FE_VENTAS_RESUMEN");
    EXPECT_EQ(picker.rows(list), (std::vector<ListRow>{{u"7", u"", u"2011-03-15", u"1,234.50"}}));
    Text alignment;
    for (const ListColumn& column : picker.columns(list))
        alignment += column.caption + (column.right_aligned ? u">" : u"<");
    EXPECT_EQ(alignment, u"nID>cSerie<dFecha<nTotal>");
}

} // namespace
} // namespace tolvex::testing
