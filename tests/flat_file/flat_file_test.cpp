#include "flat_file/flat_file.hpp"

#include "core/code_pages.hpp"
#include "core/errors.hpp"
#include "core/text.hpp"
#include "support/station.hpp"

namespace tolvex::testing {
namespace {

// The shortest good records; a document takes all four.
const std::string emisor = "EMISOR|1|1\n";
const std::string cliente =
    "CLIENTE|PEGM800101AB1|María Peña|Niños Héroes|120||Del Valle||Distrito Federal|Benito Juárez"
    "|México|03100|900|0|144|1044|1|1|2011-03-15 14:05:09|\n";
const std::string detalle = "DETALLE|1|F|CAF-01|Café|5|KG|180|144|900|16\n";
const std::string emite = "EMITE||1|Ingreso || 0 \n";
const std::string document = cliente + detalle + emite;

class FlatFile : public Station
{
protected:
    Text issue_file(const std::string& bytes)
    {
        write_file(folder() / "ventas.txt", bytes);
        messages.clear();
        return genera_docto.GeneraFacturaElectronicaDesdeArchivoPlano(folder_text(), u"ventas.txt", u"", u"",
                                                                      u"sqlite:", database_path());
    }

    // The file stops with a message that holds each of the texts.
    void expect_stop(const std::string& bytes, const Text& issued, const std::vector<Text>& texts)
    {
        EXPECT_EQ(issue_file(bytes), issued) << bytes;
        ASSERT_EQ(messages.size(), 1u) << bytes;
        EXPECT_EQ(messages[0].title, u"Facturación Electronica");
        EXPECT_EQ(last_error(), messages[0].text);
        for (const Text& text : texts)
            EXPECT_NE(messages[0].text.find(text), Text::npos)
                << to_utf8(messages[0].text) << "\n lacks " << to_utf8(text);
    }
};

TEST_F(FlatFile, issues_its_documents_one_after_the_other)
{
    const std::string nota =
        "cliente|XAXX010101000|Público||||||||||10|0|1.6|11.6|2|2|2011-03-15T14:05:09||0.5|0.25"
        "|USD|12.5|a|b|c\nDetalle|1|N|X|Y|1|PZA|10|1.6|10|16\nemite|ignorado|1| EGRESO |11|0\n";
    EXPECT_EQ(issue_file("# comentario\n\n   \n" + emisor + document + nota + document), u"A1,NC8,A2");
    EXPECT_TRUE(messages.empty());
    EXPECT_TRUE(exists("Facturas/A1.xml") && exists("Facturas/NC8.xml") && exists("Facturas/A2.xml"));
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN_DET", u"nIdFe=2"), 1); // each with its own lines only
    EXPECT_EQ(rows(u"Select cTipoDocumento,cFormaDePago,cMoneda,nParidad,nIvaRetenido,nIsrRetenido"
                   u" From FE_VENTAS_RESUMEN Where nID=2"),
              u"N|Credito|USD|12.5|0.5|0.25");
    EXPECT_EQ(
        rows(u"Select cDatoAdicional1,cDatoAdicional2,cDatoAdicional3 From FE_ClienteFactura Where nidFE=2"),
        u"a|b|c");
    EXPECT_NE(rows(u"Select cCadenaOriginal From FE_VENTAS_RESUMEN Where nID=2").find(u"IVA|11.00|1.60||"),
              Text::npos);
}

TEST_F(FlatFile, empty_and_missing_values_take_their_defaults)
{
    EXPECT_EQ(issue_file(emisor + cliente + detalle + "EMITE|A0077"), u"AA0077"); // no line end after it
    EXPECT_EQ(rows(u"Select cTipoDocumento,cMoneda,nParidad From FE_VENTAS_RESUMEN"), u"F|PESOS|1");
    EXPECT_NE(rows(u"Select cCadenaOriginal From FE_VENTAS_RESUMEN").find(u"IVA|16.00|"), Text::npos);
    EXPECT_TRUE(exists("Facturas/A77.xml")); // the file's own folder
    std::filesystem::create_directory(folder() / "otra");
    std::filesystem::copy(folder() / "pkey.key.pem", folder() / "otra/pkey.key.pem");
    const std::string there = "09|" + (folder() / "otra").string() + "\n";
    std::string elsewhere = cliente;
    elsewhere.replace(elsewhere.find("09|\n"), 4, there);
    EXPECT_EQ(issue_file(emisor + elsewhere + detalle + "EMITE||1|||\n"), u"A1");
    EXPECT_TRUE(exists("otra/Facturas/A1.xml"));
}

TEST_F(FlatFile, is_read_in_the_encodings_and_line_ends_that_windows_and_linux_write)
{
    const std::string unix_text = emisor + document;
    std::string windows_text = to_utf8(replace_all(to_text(unix_text), u"\n", u"\r\n"));
    EXPECT_EQ(issue_file(windows_text), u"A1");
    EXPECT_EQ(issue_file("\xEF\xBB\xBF" + windows_text), u"A2");
    EXPECT_EQ(issue_file(bytes_of_text(to_text(unix_text))), u"A3"); // the letters' Windows-1252 codes
    EXPECT_EQ(count(u"FE_ClienteFactura", u"cNombreCte='María Peña'"), 3);
    EXPECT_EQ(count(u"FE_ClienteFactura", u"cCodPostalCte='03100'"), 3);
}

TEST_F(FlatFile, addenda_values_go_to_their_nodes)
{
    add_layout(u"fe_ctl_adendas", {u"1,0,'Pedido','E',''", u"2,1,'orden','A',''", u"3,1,'Det@lle','E',''"});
    add_layout(u"fe_ctl_adendasDet", {u"4,3,'Partida','E','-'"});
    EXPECT_EQ(issue_file(emisor + cliente + detalle + detalle +
                         "ADDENDA|X|2|1|OC-1\nADDENDADET|2|X|4|3|dos\n"
                         "ADDENDADET|1|X|4|3\nEMITE||1|||1\n" +
                         cliente + detalle + "EMITE||1\n"),
              u"A1,A2");
    EXPECT_NE(content("Facturas/A1.xml")
                  .find("<Addenda><Pedido orden=\"OC-1\"><Partida>-</Partida><Partida>dos</Partida>"),
              std::string::npos);
    // CLIENTE emptied them.
    EXPECT_NE(content("Facturas/A2.xml").find("<Addenda><Pedido orden=\"\"><Partida>-</Partida></Pedido>"),
              std::string::npos);
}

TEST_F(FlatFile, the_first_wrong_record_stops_it_with_its_line_and_reason)
{
    const auto with = [](std::string record, const std::string& what, const std::string& instead) {
        return record.replace(record.find(what), what.size(), instead);
    };
    const std::string receiver = emisor + cliente, line = receiver + detalle;
    for (const auto& [bytes, reason] : std::initializer_list<std::pair<std::string, std::vector<Text>>>{
             {"FACTURA|1\n", {u"Línea 1", u"FACTURA"}},
             {"EMISOR|1\n", {u"EMISOR lleva 2 valores y trae 1"}},
             {"EMISOR|uno|1\n", {u"nEmpresa", u"uno"}},
             {"EMISOR|1.5|1\n", {u"nEmpresa"}},
             {"EMISOR|40000|1\n", {u"nEmpresa"}},
             {"\n# otra\nEMISOR|7|1\n", {u"Línea 3", u"empresa 7"}},
             {"EMISOR|1|9\n", {u"sucursal 9"}},
             {"EMISOR|1|2\n", {u"certificado 0"}},
             {emisor + with(cliente, "|900|", "|novecientos|"), {u"Línea 2", u"Subtotal", u"novecientos"}},
             {emisor + with(cliente, "|144|", "||"), {u"Impuesto"}},
             {emisor + with(cliente, "|1044|1|", "|1044|uno|"), {u"FormaPago"}},
             {emisor + with(cliente, "03-15", "02-29"), {u"FechaHoraDocto", u"2011-02-29"}},
             {emisor + with(cliente, "09|\n", "09\n"), {u"CLIENTE lleva 19 a 26 valores y trae 18"}},
             {emisor + with(cliente, "09|\n", "09||||||||x|y\n"), {u"CLIENTE", u"27"}},
             {emisor + with(cliente, "09|\n", "09||mucho\n"), {u"IvaRet"}},
             {receiver + with(detalle, "|5|", "|cinco|"), {u"Línea 3", u"Cantidad", u"cinco"}},
             {receiver + with(detalle, "|5|", "|999999999999999999|"), {u"Cantidad"}},
             {receiver + with(detalle, "|16\n", "\n"), {u"DETALLE lleva 10 valores y trae 9"}},
             {receiver + "ADDENDA|X|2\n", {u"ADDENDA lleva 3 a 4 valores y trae 2"}},
             {receiver + "ADDENDA|X|dos|1|v\n", {u"nRama"}},
             {receiver + "ADDENDADET|3000000000|X|2|1|v\n", {u"nRenglon"}},
             {line + "EMITE|1|si\n", {u"CtrlFolioInterno", u"si"}},
             {line + "EMITE|1|1||dieciséis\n", {u"vlTasaDeIva"}},
             {line + "EMITE|1|1|||1|1\n", {u"EMITE lleva 0 a 5 valores y trae 6"}},
             {emisor + detalle + emite, {u"Línea 3", u"CLIENTE"}},
             {document, {u"Línea 3", u"EMISOR"}}})
        expect_stop(bytes, u"", reason);
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 0);
}

TEST_F(FlatFile, what_was_issued_before_the_stop_stays_and_the_result_tells_it)
{
    expect_stop(emisor + document + document + "DETALLE|mal\n" + document, u"A1,A2", {u"8"});
    expect_stop(emisor + document + emite, u"A3",
                {u"5", u"CLIENTE"}); // a document begins with its own CLIENTE
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 3);
    EXPECT_EQ(counter(1).int32(), 3);
}

TEST_F(FlatFile, a_document_that_is_not_issued_stops_it_with_the_reason)
{
    expect_stop(emisor + document + cliente + detalle + "EMITE|A1\n" + document, u"A1",
                {u"7", u"no se emitió"});
    std::string quoted = document;
    quoted.replace(quoted.find("María"), 6, "O'Hara");
    expect_stop(emisor + quoted, u"", {u"4"});
    std::filesystem::remove(folder() / "pkey.key.pem");
    std::filesystem::remove_all(folder() / "Facturas");
    write_file(folder() / "Facturas", "");
    expect_stop(emisor + document, u"", {u"4", u"Facturas"});

    std::string of_missing_range = document;
    of_missing_range.replace(of_missing_range.find("|1|1|2011"), 9, "|1|9|2011");
    EXPECT_EQ(issue_file(emisor + of_missing_range), u"");
    ASSERT_EQ(messages.size(), 2u); // told by the issue, and again by the file
    EXPECT_NE(messages[1].text.find(messages[0].text), Text::npos);
}

TEST_F(FlatFile, an_empty_seal_stops_it_after_the_document_that_has_it)
{
    write_file(folder() / "pkey.key.pem", "esto no es una llave");
    expect_stop(emisor + document + document, u"A1", {u"Línea 4", u"sello vacío", u"pkey.key.pem"});
}

TEST_F(FlatFile, files_and_databases_that_are_not_there_are_told)
{
    EXPECT_EQ(issue_file(""), u"");
    EXPECT_TRUE(messages.empty());
    write_file(folder() / "ventas.txt", emisor + document);
    const Text here = folder_text(), good = u"ventas.txt", missing = folder_text() + u"/no hay";
    for (const auto& [folder_name, name, database] : {std::tuple{here, Text(u"otro.txt"), database_path()},
                                                      {missing, good, database_path()},
                                                      {here, Text(), database_path()},
                                                      {here, good, missing + u"/tolvex.db"},
                                                      {here, good, here + u"/ventas.txt"}}) {
        messages.clear();
        EXPECT_EQ(genera_docto.GeneraFacturaElectronicaDesdeArchivoPlano(folder_name, name, u"", u"",
                                                                         u"sqlite:", database),
                  u"");
        EXPECT_EQ(messages.size(), 1u);
    }
    EXPECT_EQ(content("ventas.txt"), emisor + document); // taken for a database, it was not harmed
}

TEST_F(FlatFile, the_hosts_own_connection_is_untouched_and_the_files_own_is_closed)
{
    const std::shared_ptr<Connection> host = session().gConexion;
    host->begin_transaction();
    host->roll_back();
    issue_file(emisor + document);
    EXPECT_EQ(session().gConexion, host);
    EXPECT_TRUE(host->is_open());
    ConfigFE().CierraConexion();
    EXPECT_EQ(issue_file(emisor + document), u"A2");
    EXPECT_FALSE(session().gConexion->is_open());
    EXPECT_FALSE(exists("tolvex.db-wal")); // nobody holds the database open
    issue_file("EMISOR|9|9\n");
    EXPECT_FALSE(exists("tolvex.db-wal"));
}

TEST_F(FlatFile, odd_bytes_are_refused_or_read_but_never_harm)
{
    for (const std::string& bytes : {std::string("\0\0\0", 3), std::string("|||||\n"), std::string("\r\r\r"),
                                     std::string("\xEF\xBB\xBF"), std::string("EMISOR|1|1\0|x\n", 15),
                                     "EMISOR|" + std::string(100'000, '9') + "|1\n",
                                     emisor + "CLIENTE|" + std::string(1'000'000, 'x') + "\n"})
        EXPECT_EQ(issue_file(bytes), u"");
}

} // namespace
} // namespace tolvex::testing
