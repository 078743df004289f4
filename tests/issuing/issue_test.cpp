#include "core/errors.hpp"
#include "support/station.hpp"

#include <cstdlib>

namespace tolvex::testing {
namespace {

constexpr TextView original_of_the_sale =
    u"||3.0|2011-03-15T14:05:09|ingreso|PAGO EN UNA SOLA EXHIBICION|1370.00|1|MXN|1508.00|AES010101AAA"
    u"|ABARROTES LA ESPERANZA|ALHÓNDIGA|15|CENTRO|GUANAJUATO|GTO|MÉXICO|36000|PEGM800101AB1|María Peña|Niños "
    u"Héroes"
    u"|120|Del Valle|Benito Juárez|Distrito Federal|México|03100|5.00|KG|Café de altura, 1 "
    u"kg|180.00|900.00|2.50|PZA"
    u"|Pan|188.00|470.02|IVA|16.00|208.00|208.00||";

// A text as the system stores it: one character per byte of its UTF-8 form.
Text stored_bytes(TextView text) { return text_of_bytes(to_utf8(text)); }

class Issuing : public Station
{
protected:
    struct Expected
    {
        TextView column;
        Value value;
    };

    // Every column of the one row, in the table's own order, so that none is forgotten.
    void expect_row(const Text& table, const Text& condition, std::initializer_list<Expected> expected)
    {
        const Recordset row =
            shared_connection(session()).query(u"Select * From " + table + u" Where " + condition);
        ASSERT_FALSE(row.eof());
        EXPECT_EQ(row.columns().size(), expected.size());
        for (const auto& [column, value] : expected) {
            const Value stored = row[column];
            EXPECT_EQ(stored.is_null(), value.is_null()) << to_utf8(column);
            EXPECT_EQ(stored.text(), value.text()) << to_utf8(column);
        }
    }

    Text seal_of_last()
    {
        return answer(u"Select cSelloDigital From FE_VENTAS_RESUMEN Order By nID Desc").text();
    }
    Value counter(int range)
    {
        return answer(u"Select nUltimoFolio From FE_FOLIOS Where nFolio=" + decimal(range));
    }

    // Documents, receivers and lines stored.
    std::string stored()
    {
        std::string counts;
        for (const Text table : {u"FE_VENTAS_RESUMEN", u"FE_ClienteFactura", u"FE_VENTAS_RESUMEN_DET"})
            counts += (counts.empty() ? "" : " ") + std::to_string(count(table));
        return counts;
    }

    static constexpr auto all_work_files = "sello.bat sello.txt fi_md5.txt utf8.txt";
};

// A variable of the environment for the life of a test.
class Variable
{
public:
    Variable(const char* name, const std::string& value) : name_(name), before_(getenv(name))
    {
        setenv(name, value.c_str(), 1);
    }
    ~Variable() { setenv(name_, before_.c_str(), 1); }
    Variable(const Variable&) = delete;

private:
    const char* name_;
    const std::string before_;
};

TEST_F(Issuing, an_invoice_stores_every_column_and_cleans_up)
{
    Receiver r;
    r.Nombre = u"María|Peña|";
    r.FormaPago = 2;
    stage_document(r);
    ASSERT_TRUE(issue(u"A00123")) << to_utf8(last_error());
    EXPECT_EQ(work_files(), "");
    EXPECT_TRUE(exists("Facturas/A123.xml"));
    EXPECT_TRUE(messages.empty());
    const Text original = stored_bytes(replace_all(original_of_the_sale, u"María Peña", u"María|Peña|")),
               seal = seal_of_last();
    EXPECT_EQ(seal.size(), 344u);

    expect_row(u"FE_VENTAS_RESUMEN", u"1=1",
               {{u"nID", 1},
                {u"cDocumento", u"A00123"},
                {u"cTipoDocumento", u"F"},
                {u"nEmpresa", 1},
                {u"nSucursal", 1},
                {u"cEfecto", u"I"},
                {u"cCliente", u"000000"},
                {u"dFecha", Date::of(2011, 3, 15, 14, 5, 9)},
                {u"cSerieFolioFE", u"A"},
                {u"cSerie", u"A"},
                {u"nFolioFE", 123},
                {u"cNumero_Aprobacion", u"2011"},
                {u"cSerie_Certificado", u"20001000000100005867"},
                {u"cSelloDigital", seal},
                {u"cCadenaOriginal", original},
                {u"cFormaDePago", u"Credito"},
                {u"nSubTotalAD", 1370},
                {u"nDescuento", 70},
                {u"nSubTotalDD", 1300},
                {u"nIva", 208},
                {u"nTotal", 1508},
                {u"nImporteConLetra", u"MIL QUINIENTOS OCHO PESOS 00/100 M.N."},
                {u"cStatus", u"A"},
                {u"dFechaCan", Value()},
                {u"cMoneda", u"PESOS"},
                {u"nParidad", 1},
                {u"nIvaRetenido", 0},
                {u"nIsrRetenido", 0}});
    expect_row(u"FE_ClienteFactura", u"1=1",
               {{u"nidFE", 1},
                {u"nFolioDocto", u"A00123"},
                {u"cTipoDocumento", u"F"},
                {u"cEmpresa", u"1"},
                {u"cSucursal", u"1"},
                {u"cEfecto", u"I"},
                {u"dFecha", Date::of(2011, 3, 15, 14, 5, 9)},
                {u"cSerieFolioFE", u"A"},
                {u"cSerie", u"A"},
                {u"cNumero_Aprobacion", u"2011"},
                {u"cSerie_Certificado", u"20001000000100005867"},
                {u"cSelloDigital", seal},
                {u"cCadenaOriginal", original},
                {u"cRfcCte", u"PEGM800101AB1"},
                {u"cNombreCte", u"MaríaPeña"},
                {u"cCalleCte", u"Niños Héroes"},
                {u"cNumExteriorCte", u"120"},
                {u"cNumInteriorCte", u"4 B"},
                {u"cColoniaCte", u"Del Valle"},
                {u"cLocalidadCte", u"Ciudad de México"},
                {u"cEstaadoCte", u"Distrito Federal"},
                {u"cMunicipioCte", u"Benito Juárez"},
                {u"cPaisCte", u"México"},
                {u"cCodPostalCte", u"03100"},
                {u"nSubtotalDocto", 1370},
                {u"nImporteDescto", 70},
                {u"nSubtotalConDescto", 1300},
                {u"nImporteIva", 208},
                {u"nImporteTotal", 1508},
                {u"cDatoAdicional1", u"caja 3"},
                {u"cDatoAdicional2", u""},
                {u"cDatoAdicional3", u"mostrador"}});
    expect_row(u"FE_VENTAS_RESUMEN_DET", u"nRenglon=2",
               {{u"nIdFe", 1},
                {u"nFolioDocto", u"A00123"},
                {u"cTipoDocumento", u"F"},
                {u"cProducto", u"Pan"},
                {u"nCantidad", 2.5},
                {u"cunidad", u"PZA"},
                {u"nPrecio", 188.005},
                {u"nIva", 64},
                {u"nImporte", 470.015},
                {u"nImpuesto", 16},
                {u"nRenglon", 2},
                {u"cArticulo", u"PAN-07"},
                {u"nEmpresa", 1},
                {u"nSucursal", 1}});
    EXPECT_EQ(answer(u"Select cProducto From FE_VENTAS_RESUMEN_DET Where nRenglon=1").text(),
              u" Café de altura, 1 kg ");
    EXPECT_TRUE(counter(1).is_null()); // a folio given by the host leaves the counter alone
}

TEST_F(Issuing, a_credit_note_is_one_in_the_header_row_alone)
{
    Receiver r;
    r.ClaveFolio = u"2";
    r.moneda = u"DOLARES";
    r.Paridad = 12.735;
    r.IvaRet = 146.6667;
    r.ISRRet = 137;
    r.Total = u"1,508.005";
    stage_document(r);
    Text folio;
    ASSERT_TRUE(genera_docto.GeneraFacturaElectronica(folio, true, u"Egreso", 11, false))
        << to_utf8(last_error());
    EXPECT_EQ(folio, u"8");
    EXPECT_EQ(counter(2).int32(), 8);
    EXPECT_TRUE(counter(1).is_null());
    for (const auto& [column, expected] :
         std::initializer_list<std::pair<Text, Text>>{{u"cTipoDocumento", u"N"},
                                                      {u"cEfecto", u"E"},
                                                      {u"cDocumento", u"8"},
                                                      {u"cSerie", u"NC"},
                                                      {u"nTotal", u"1508.01"},
                                                      {u"cMoneda", u"DOLARES"},
                                                      {u"nParidad", u"12.735"},
                                                      {u"nIvaRetenido", u"146.6667"},
                                                      {u"nIsrRetenido", u"137"}})
        EXPECT_EQ(answer(u"Select " + column + u" From FE_VENTAS_RESUMEN").text(), expected)
            << to_utf8(column);
    EXPECT_EQ(answer(u"Select cTipoDocumento+cEfecto From FE_ClienteFactura").text(), u"FI");
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN_DET", u"cTipoDocumento='F'"), 2);
    EXPECT_TRUE(exists("Facturas/NC8.xml"));
    const Text original = answer(u"Select cCadenaOriginal From FE_VENTAS_RESUMEN").text();
    EXPECT_NE(original.find(u"|egreso|"), Text::npos);
    EXPECT_TRUE(original.ends_with(u"ISR|137.00|IVA|146.67|IVA|11.00|208.00||"));
}

TEST_F(Issuing, the_kind_is_ingreso_in_any_letter_case_and_else_a_credit_note)
{
    stage_document();
    for (const auto& [kind, stored_kind] : {std::pair{u"ingreso", u"F"},
                                            {u"INGRESO", u"F"},
                                            {u"iNgReSo", u"F"},
                                            {u"ingreso ", u"N"},
                                            {u"", u"N"},
                                            {u"traslado", u"N"}}) {
        EXPECT_TRUE(issue(u"A01", kind));
        EXPECT_EQ(answer(u"Select cTipoDocumento From FE_VENTAS_RESUMEN Order By nID Desc").text(),
                  stored_kind);
    }
}

TEST_F(Issuing, the_numeric_folio_starts_at_the_first_zero)
{
    stage_document();
    for (const auto& [folio, number] :
         {std::pair{u"A00123", 123}, {u"120", 0}, {u"7", 7}, {u"10203", 203}, {u" 15 ", 15}, {u"A0", 0}}) {
        EXPECT_TRUE(issue(folio)) << to_utf8(folio);
        EXPECT_EQ(answer(u"Select nFolioFE From FE_VENTAS_RESUMEN Order By nID Desc").int32(), number)
            << to_utf8(folio);
    }
    const std::string before = stored();
    for (const Text folio : {u"A123", u"", u"A0B", u"FACTURA"}) {
        EXPECT_FALSE(issue(folio)) << to_utf8(folio);
        EXPECT_EQ(last_error(), type_mismatch().description());
    }
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(work_files(), ""); // nothing was even prepared
}

TEST_F(Issuing, the_counter_folio_is_set_to_the_one_taken_once_all_is_stored)
{
    stage_document();
    EXPECT_TRUE(issue_from_counter());
    EXPECT_TRUE(issue_from_counter());
    EXPECT_EQ(counter(1).int32(), 2);
    EXPECT_EQ(answer(u"Select cDocumento From FE_VENTAS_RESUMEN Order By nID Desc").text(), u"2");
    EXPECT_EQ(answer(u"Select max(nIdFe) From FE_VENTAS_RESUMEN_DET").int32(), 2);
    std::filesystem::remove_all(folder() / "Facturas");
    write_file(folder() / "Facturas", "");
    EXPECT_FALSE(issue_from_counter());
    EXPECT_EQ(counter(1).int32(), 3); // the row is stored, so its folio is taken
}

TEST_F(Issuing, a_second_document_without_staging_anew_repeats_receiver_and_lines)
{
    stage_document();
    EXPECT_TRUE(issue(u"A01"));
    DetFacturas().SetDetalleDocto(u"", u"F", u"", u"Otro", 1, u"PZA", 1, 0, 1, 16);
    EXPECT_TRUE(issue(u"A02"));
    EXPECT_EQ(stored(), "2 2 5");
}

TEST_F(Issuing, documents_up_to_2010_are_sealed_with_md5)
{
    write_file(folder() / "Facturas", ""); // the issue fails at its end, so that the batch file stays
    for (const auto& [moment, digest] : {std::pair{Date::of(2010, 12, 31, 23, 59, 59), "dgst -md5 "},
                                         {Date::of(2011, 1, 1), "dgst -sha1 "}}) {
        Receiver r;
        r.FechaHoraDocto = moment;
        stage_document(r);
        EXPECT_FALSE(issue());
        EXPECT_NE(content("sello.bat").find(digest), std::string::npos) << digest;
    }
}

TEST_F(Issuing, a_missing_folio_range_is_told_and_nothing_is_written)
{
    Receiver r;
    r.ClaveFolio = u"9";
    stage_document(r);
    EXPECT_FALSE(issue());
    EXPECT_EQ(messages,
              (std::vector<Message>{{u"No se pudo obtener los datos de los folios digitales para la empresa "
                                     u"No 1 y el Registro No. 9",
                                     u"TOLVEX", 0}}));
    EXPECT_EQ(stored(), "0 0 0");
    EXPECT_EQ(work_files(), "");
}

TEST_F(Issuing, a_used_up_range_is_told_and_nothing_is_written)
{
    Receiver r;
    r.ClaveFolio = u"3";
    stage_document(r);
    Text folio = u"antes";
    EXPECT_FALSE(genera_docto.GeneraFacturaElectronica(folio, true));
    EXPECT_EQ(folio, u"0");
    EXPECT_EQ(messages, (std::vector<Message>{{u"No se pudo obtener folio de factura, favor de verificar",
                                               u"Facturación Electronica", 64}}));
    EXPECT_EQ(stored(), "0 0 0");
    EXPECT_EQ(counter(3).int32(), 5);
    EXPECT_TRUE(issue(u"A077")); // the host's own folio still goes
}

TEST_F(Issuing, a_used_up_range_rolls_the_hosts_open_transaction_back)
{
    Receiver r;
    r.ClaveFolio = u"3";
    stage_document(r);
    shared_connection(session()).begin_transaction();
    execute(u"Update FE_FOLIOS Set cEsquema='x'");
    EXPECT_FALSE(issue_from_counter());
    EXPECT_EQ(count(u"FE_FOLIOS", u"cEsquema='x'"), 0);
}

TEST_F(Issuing, a_closed_connection_is_told)
{
    stage_document();
    ConfigFE().CierraConexion();
    EXPECT_FALSE(issue());
    ASSERT_FALSE(messages.empty());
    EXPECT_NE(messages.front().text.find(u"AbrirConexion"), Text::npos);
    EXPECT_EQ(work_files(), "");
}

TEST_F(Issuing, without_openssl_there_is_no_seal_and_no_row)
{
    stage_document();
    const Variable path("PATH", folder());
    EXPECT_FALSE(issue());
    EXPECT_EQ(stored(), "0 0 0");
    EXPECT_EQ(work_files(), "sello.bat utf8.txt");
    EXPECT_EQ(content("utf8.txt"), to_utf8(original_of_the_sale)); // no line end after it
    EXPECT_NE(last_error().find(u"openssl"), Text::npos);
}

TEST_F(Issuing, a_stale_seal_is_taken_for_the_documents_own)
{
    stage_document();
    const Variable path("PATH", folder());
    write_file(folder() / "sello.txt", "PRIMERO\r\nVie jo==\n");
    EXPECT_TRUE(issue());
    EXPECT_EQ(seal_of_last(), u"Viejo==");
    EXPECT_EQ(stored(), "1 1 2");
}

// A failing openssl is not noticed: it writes an empty signature, which is encoded into an empty seal.
TEST_F(Issuing, a_key_that_does_not_serve_or_is_missing_leaves_an_empty_seal)
{
    stage_document();
    write_file(folder() / "pkey.key.pem", "esto no es una llave");
    EXPECT_TRUE(issue(u"01"));
    std::filesystem::remove(folder() / "pkey.key.pem");
    EXPECT_TRUE(issue(u"02"));
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN", u"cSelloDigital=''"), 2);
    EXPECT_NE(content("Facturas/A2.xml").find(" sello=\"\""), std::string::npos);
}

TEST_F(Issuing, a_blank_in_the_working_folder_breaks_the_seals_lines_and_is_told)
{
    Receiver r;
    r.RutaDeArchivos = folder_text() + u"/mis ventas";
    std::filesystem::create_directory(folder() / "mis ventas");
    stage_document(r);
    EXPECT_FALSE(issue());
    EXPECT_NE(last_error().find(u"blancos"), Text::npos);
    EXPECT_EQ(stored(), "0 0 0");
}

TEST_F(Issuing, a_missing_working_folder_stops_before_any_row)
{
    Receiver r;
    r.RutaDeArchivos = folder_text() + u"/no hay";
    stage_document(r);
    EXPECT_FALSE(issue());
    EXPECT_NE(last_error().find(u"no hay"), Text::npos);
    EXPECT_EQ(stored(), "0 0 0");
}

TEST_F(Issuing, a_file_in_place_of_the_facturas_folder_keeps_rows_and_work_files)
{
    stage_document();
    write_file(folder() / "Facturas", "");
    EXPECT_FALSE(issue());
    EXPECT_EQ(stored(), "1 1 2");
    EXPECT_EQ(work_files(), all_work_files);
    EXPECT_NE(last_error().find(u"Facturas"), Text::npos);
}

TEST_F(Issuing, a_folder_in_place_of_a_work_file_is_an_error)
{
    stage_document();
    std::filesystem::create_directories(folder() / "utf8.txt");
    EXPECT_FALSE(issue());
    EXPECT_EQ(stored(), "0 0 0");
}

TEST_F(Issuing, a_work_file_that_cannot_be_removed_does_not_undo_the_document)
{
    stage_document();
    // Instead of openssl, a program that leaves a seal and no signature: fi_md5.txt is not there to be
    // removed.
    write_file(folder() / "openssl",
               "#!/bin/sh\nfor last; do :; done\ncase $1 in enc) echo SELLO > \"$last\";; esac\n");
    std::filesystem::permissions(folder() / "openssl", std::filesystem::perms::owner_all);
    EXPECT_TRUE(issue()) << to_utf8(last_error());
    EXPECT_EQ(seal_of_last(), u"SELLO");
}

TEST_F(Issuing, a_full_disk_stops_before_any_row)
{
    stage_document();
    std::filesystem::create_symlink("/dev/full", folder() / "utf8.txt");
    EXPECT_FALSE(issue());
    EXPECT_EQ(stored(), "0 0 0");
    std::filesystem::remove(folder() / "utf8.txt");
    std::filesystem::create_directory(folder() / "Facturas");
    std::filesystem::create_symlink("/dev/full", folder() / "Facturas/A123.xml.tmp");
    EXPECT_FALSE(issue());
    EXPECT_FALSE(exists("Facturas/A123.xml"));
    EXPECT_EQ(stored(), "1 1 2");
    EXPECT_EQ(work_files(), all_work_files);
}

// Where the quote stands decides how far the storing goes: amount in words, receiver, free values, lines.
TEST_F(Issuing, a_quote_in_a_value_breaks_the_statement_it_goes_into)
{
    struct Case
    {
        const char* what;
        Text folio;
        void (*change)(Receiver&);
        bool in_line;
        const char* left;
    };
    for (const Case& c : std::initializer_list<Case>{
             {"currency", u"A01", [](Receiver& r) { r.moneda = u"PES'OS"; }, false, "0 0 0"},
             {"name", u"A01", [](Receiver& r) { r.Nombre = u"O'Hara"; }, false, "1 0 0"},
             {"folio", u"A'01", [](Receiver&) {}, false, "1 0 0"},
             {"free value", u"A01", [](Receiver& r) { r.vlDatoAdicional_2 = u"5'"; }, false, "1 1 0"},
             {"product code", u"A01", [](Receiver&) {}, true, "1 1 2"}}) {
        for (const Text table : {u"FE_VENTAS_RESUMEN", u"FE_ClienteFactura", u"FE_VENTAS_RESUMEN_DET"})
            execute(u"Delete " + table);
        Receiver r;
        c.change(r);
        stage_document(r);
        if (c.in_line) DetFacturas().SetDetalleDocto(u"", u"F", u"5'", u"Cable", 1, u"PZA", 1, 0, 1, 16);
        EXPECT_FALSE(issue(c.folio)) << c.what;
        EXPECT_EQ(stored(), c.left) << c.what;
        EXPECT_EQ(work_files(), all_work_files) << c.what;
        EXPECT_FALSE(exists("Facturas")) << c.what;
        EXPECT_TRUE(messages.empty()) << c.what;
    }
    EXPECT_TRUE(counter(1).is_null());
}

TEST_F(Issuing, a_failure_while_storing_leaves_the_counter)
{
    stage_document();
    execute(u"Drop Table FE_VENTAS_RESUMEN_DET");
    EXPECT_FALSE(issue_from_counter());
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 1);
    EXPECT_TRUE(counter(1).is_null());
}

TEST_F(Issuing, an_amount_that_is_no_number_stores_no_row)
{
    for (Text Receiver::*amount :
         {&Receiver::Subtotal, &Receiver::Descuento, &Receiver::Impuesto, &Receiver::Total}) {
        Receiver r;
        r.*amount = u"abc";
        stage_document(r);
        EXPECT_FALSE(issue());
        r.*amount = u"";
        stage_document(r);
        EXPECT_FALSE(issue());
        EXPECT_EQ(stored(), "0 0 0");
    }
    EXPECT_TRUE(messages.empty());
}

TEST_F(Issuing, a_character_past_the_systems_own_utf8_stores_no_row)
{
    Receiver r;
    r.Nombre = u"株式会社\u9AD8";
    stage_document(r);
    EXPECT_FALSE(issue());
    EXPECT_EQ(last_error(), invalid_call().description());
    EXPECT_EQ(stored(), "0 0 0");
}

TEST_F(Issuing, long_documents_and_trailing_separators_go_through)
{
    Receiver r;
    r.RutaDeArchivos = folder_text() + u"/";
    stage_document(r);
    for (int i = 0; i < 500; ++i)
        DetFacturas().SetDetalleDocto(u"", u"F", u"", Text(2000, u'ñ'), 1, u"PZA", 1, 0, 1, 16);
    EXPECT_TRUE(issue()) << to_utf8(last_error());
    EXPECT_EQ(stored(), "1 1 502");
}

} // namespace
} // namespace tolvex::testing
