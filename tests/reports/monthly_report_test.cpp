#include "reports/monthly_report.hpp"

#include "support/forms.hpp"
#include "support/monthly_report.hpp"

namespace tolvex::testing {
namespace {

class MonthlyReport : public FormsStation
{
protected:
    // A document of range A of 2011, approval 2011. The values: date, total, VAT, status.
    void add_document(int number, const Text& rfc, const Text& values, const Text& effect = u"I")
    {
        const Text folio = u"A" + decimal(number);
        execute(u"Insert Into FE_VENTAS_RESUMEN(cDocumento,nEmpresa,nSucursal,cSerie,nFolioFE"
                u",cNumero_Aprobacion,cEfecto,dFecha,nTotal,nIva,cStatus) Values('" +
                folio + u"',1,1,'A'," + decimal(number) + u",'2011','" + effect + u"'," + values + u")");
        execute(u"Insert Into FE_ClienteFactura(nidFE,nFolioDocto,cRfcCte) Values(" +
                answer(u"Select max(nID) From FE_VENTAS_RESUMEN").text() + u",'" + folio + u"','" + rfc +
                u"')");
    }

    void add_march()
    {
        add_document(8, u"ABC-010101 AAA", u"'2012-03-01 00:00:00',1234.5,0,'A'");
        add_document(9, u"ÑU&990101AB9", u"'2012-03-31 23:59:59',0,1234567.125,'C'", u"E");
    }

    FormInMemory& open_report(const Text& folder)
    {
        Maestros().GeneraReporteDeFoliosUtilizados(u"", u"", database_path(), u"sqlite:", folder);
        FormInMemory& form = toolkit_.open_form(u"frmReporteFE");
        form.pick(u"CBoEmpresas", u"1");
        form.pick(u"cmbMes", u"03");
        form.pick(u"cmbAnio", u"2012");
        return form;
    }

    // Reports, and what is left of any that was not finished.
    int reports_in_folder() const
    {
        int count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder()))
            count += entry.path().filename().string().find(".TXT") != std::string::npos;
        return count;
    }

    static constexpr auto march = "1AES010101AAA032012.TXT";
    static constexpr auto first_line =
        "|ABC010101AAA|A|8|20112011|01/03/2012 00:00:00|1234.50|0.00|1|I||||\r\n";
};

TEST_F(MonthlyReport, has_a_line_for_each_document_of_the_month_in_code_page_1252)
{
    add_march();
    add_document(10, u"X", u"'2012-04-01 00:00:00',1,1,'A'");
    add_document(11, u"X", u"'2011-03-01 00:00:00',1,1,'A'");
    open_report(folder_text()).click(u"Command1");
    EXPECT_EQ(messages, (std::vector<Message>{{u"Se ha creado el siguiente archivo :\r\n" + folder_text() +
                                                   u"/" + to_text(march),
                                               u"TOLVEX", MessageIcon::information}}));
    EXPECT_EQ(content(march), std::string(first_line) +
                                  "|\xD1U&990101AB9|A|9|20112011|31/03/2012 23:59:59|0.00|1234567.13|0|E||||"
                                  "\r\n");
}

TEST_F(MonthlyReport, says_whether_a_document_is_active_and_leaves_empty_what_is_null)
{
    add_document(1, u"X", u"'2012-03-01 12:30:00',1,Null,'A'");
    execute(u"Update FE_VENTAS_RESUMEN Set cNumero_Aprobacion=Null");
    for (const auto& [status, eighth] : std::initializer_list<std::pair<Text, Text>>{{u"'A'", u"1"},
                                                                                     {u"Null", u"1"},
                                                                                     {u"''", u"1"},
                                                                                     {u"' '", u"1"},
                                                                                     {u"'C'", u"0"},
                                                                                     {u"'a'", u"0"}}) {
        execute(u"Update FE_VENTAS_RESUMEN Set cStatus=" + status);
        const Recordset row = shared_connection(session()).query(report_query({1, u"2012", u"03"}));
        EXPECT_EQ(report_line(row), u"|X|A|1|2011|01/03/2012 12:30:00|1.00||" + eighth + u"|I||||\r\n");
    }
}

TEST_F(MonthlyReport, asks_for_the_documents_with_the_statement_that_servers_know)
{
    EXPECT_EQ(report_query({1, u"2011", u"03"}), monthly_report(u"03"));
}

TEST_F(MonthlyReport, the_window_offers_companies_months_and_years_and_names_the_file)
{
    execute(u"Insert Into FE_EMPRESAS(nEmpresa,cNombre,cRfc) Values(2,'OTRA',' OTR010101AAA ')");
    FormInMemory& form = open_report(u"");
    EXPECT_EQ(form.text(u"Text1"), std::filesystem::read_symlink("/proc/self/exe").parent_path().u16string());
    form.type(u"Text1", u" C:\\R ");
    EXPECT_EQ(form.items(u"CBoEmpresas").back().text, u"OTRA");
    EXPECT_EQ(form.text(u"cmbMes"), u"Marzo");
    EXPECT_EQ(form.items(u"cmbMes").back().text + form.items(u"cmbMes").back().value, u"Diciembre12");
    EXPECT_EQ(form.items(u"cmbAnio").front().value + form.items(u"cmbAnio").back().value, u"20102020");
    const auto file_after = [&](TextView combo, TextView item) {
        form.pick(combo, item);
        return form.text(u"txtArchivo");
    };
    EXPECT_EQ(file_after(u"CBoEmpresas", u"2"), u"C:/R/1OTR010101AAA032012.TXT");
    EXPECT_EQ(file_after(u"cmbMes", u"12"), u"C:/R/1OTR010101AAA122012.TXT");
    EXPECT_EQ(file_after(u"cmbAnio", u"2020"), u"C:/R/1OTR010101AAA122020.TXT");
    toolkit_.next_folder = u"/x";
    form.click(u"cmdCarpeta");
    EXPECT_EQ(form.text(u"txtArchivo"), u"/x/1OTR010101AAA122020.TXT");
    EXPECT_EQ(plCreaNombreArchivo(u"C:\\R", u"AAA010101AAA", u"03", u"2012"),
              u"C:\\R\\1AAA010101AAA032012.TXT");
}

TEST_F(MonthlyReport, without_a_folder_or_a_document_there_is_a_message_and_no_file)
{
    const Message no_folder{u"No se encontro una ruta valida para el archivo, verifique", u"Atención",
                            MessageIcon::critical};
    const Message nothing{u"No se encontro información para mostrar, verifique", u"Atención",
                          MessageIcon::information};
    for (const Text& folder : {folder_text() + u"/no_existe", database_path()})
        open_report(folder).click(u"Command1");
    open_report(folder_text()).click(u"Command1");
    execute(u"Delete FE_EMPRESAS");
    Maestros().GeneraReporteDeFoliosUtilizados(u"", u"", database_path(), u"sqlite:", folder_text());
    toolkit_.open_form(u"frmReporteFE").click(u"Command1");
    EXPECT_EQ(messages, (std::vector<Message>{no_folder, no_folder, nothing, nothing}));
    EXPECT_EQ(reports_in_folder(), 0);
}

TEST_F(MonthlyReport, a_character_that_the_code_page_lacks_is_named_and_an_older_file_stays)
{
    add_march();
    add_document(10, u"Ω", u"'2012-03-31 23:59:59',1,1,'A'");
    for (const int older : {0, 1}) {
        if (older == 1) write_file(folder() / march, "anterior");
        open_report(folder_text()).click(u"Command1");
        EXPECT_EQ(messages.back(), (Message{u"Documento A10: El carácter «Ω» no existe en la página de "
                                            u"códigos 1252 de Windows",
                                            u"Error", MessageIcon::critical}));
        EXPECT_EQ(reports_in_folder(), older);
    }
    EXPECT_EQ(content(march), "anterior");
}

TEST_F(MonthlyReport, any_other_error_ends_it_and_leaves_the_file_as_far_as_it_was_written)
{
    add_march();
    execute(u"Update FE_VENTAS_RESUMEN Set nTotal='mil' Where nFolioFE=9");
    open_report(folder_text()).click(u"Command1");
    EXPECT_EQ(messages, (std::vector<Message>{
                            {u"Documento A9: No coinciden los tipos", u"Error", MessageIcon::critical}}));
    EXPECT_EQ(content(march), first_line);
    EXPECT_EQ(reports_in_folder(), 1);
}

} // namespace
} // namespace tolvex::testing
