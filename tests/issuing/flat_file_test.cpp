#include "issuing/flat_file.hpp"

#include "core/errors.hpp"
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
    void expect_stop(const std::string& bytes, const Text& issued, std::initializer_list<Text> texts)
    {
        EXPECT_EQ(issue_file(bytes), issued) << bytes;
        ASSERT_EQ(messages.size(), 1u) << bytes;
        EXPECT_EQ(messages[0].title, u"Facturación Electronica");
        EXPECT_EQ(last_error(), messages[0].text);
        for (const Text& text : texts)
            EXPECT_NE(messages[0].text.find(text), Text::npos)
                << to_utf8(messages[0].text) << "\n lacks " << to_utf8(text);
    }

    Text stored(const Text& column)
    {
        return answer(u"Select " + column + u" From FE_VENTAS_RESUMEN Order By nID Desc").text();
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
    const Text condition = u" From FE_VENTAS_RESUMEN Where nID=2";
    for (const auto& [column, value] :
         std::initializer_list<std::pair<Text, Text>>{{u"cTipoDocumento", u"N"},
                                                      {u"cFormaDePago", u"Credito"},
                                                      {u"cMoneda", u"USD"},
                                                      {u"nParidad", u"12.5"},
                                                      {u"nIvaRetenido", u"0.5"},
                                                      {u"nIsrRetenido", u"0.25"}})
        EXPECT_EQ(answer(u"Select " + column + condition).text(), value) << to_utf8(column);
    EXPECT_EQ(
        answer(u"Select cDatoAdicional1+cDatoAdicional2+cDatoAdicional3 From FE_ClienteFactura Where nidFE=2")
            .text(),
        u"abc");
    EXPECT_NE(answer(u"Select cCadenaOriginal" + condition).text().find(u"IVA|11.00|1.60||"), Text::npos);
}

TEST_F(FlatFile, empty_and_missing_values_take_their_defaults)
{
    EXPECT_EQ(issue_file(emisor + cliente + detalle + "EMITE|A0077"),
              u"AA0077"); // no line end after the last record
    EXPECT_EQ(stored(u"cTipoDocumento"), u"F");
    EXPECT_EQ(stored(u"cMoneda"), u"PESOS");
    EXPECT_EQ(stored(u"nParidad"), u"1");
    EXPECT_NE(stored(u"cCadenaOriginal").find(u"IVA|16.00|"), Text::npos);
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
    EXPECT_EQ(issue_file(bytes_of_text(to_text(unix_text))),
              u"A3"); // Latin letters have their Windows-1252 codes
    EXPECT_EQ(count(u"FE_ClienteFactura", u"cNombreCte='María Peña'"), 3);
    EXPECT_EQ(count(u"FE_ClienteFactura", u"cCodPostalCte='03100'"), 3);
}

TEST_F(FlatFile, addenda_values_go_to_their_nodes)
{
    for (const Text row : {u"1,0,'Pedido','E',''", u"2,1,'orden','A',''", u"3,1,'Det@lle','E',''"})
        execute(
            u"Insert Into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre,cTipo,cValor) Values('PEGM800101AB1'," +
            row + u")");
    execute(u"Insert Into fe_ctl_adendasDet(crfccte,nRama,nPadre,cNombre,cTipo,cValor) "
            u"Values('PEGM800101AB1',4,3,'Partida','E','-')");
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
    expect_stop("FACTURA|1\n", u"", {u"1", u"FACTURA"});
    expect_stop("EMISOR|1\n", u"", {u"1", u"EMISOR"});
    expect_stop("EMISOR|1|1|1\n", u"", {u"EMISOR"});
    expect_stop("EMISOR|uno|1\n", u"", {u"nEmpresa", u"uno"});
    expect_stop("EMISOR|1.5|1\n", u"", {u"nEmpresa"});
    expect_stop("EMISOR|40000|1\n", u"", {u"nEmpresa"});
    expect_stop("\n# otra\nEMISOR|7|1\n", u"", {u"3", u"empresa 7"});
    expect_stop("EMISOR|1|9\n", u"", {u"sucursal 9"});
    expect_stop("EMISOR|1|2\n", u"", {u"certificado 0"});
    expect_stop(emisor + with(cliente, "|900|", "|novecientos|"), u"", {u"2", u"Subtotal", u"novecientos"});
    expect_stop(emisor + with(cliente, "|144|", "||"), u"", {u"Impuesto"});
    expect_stop(emisor + with(cliente, "|1044|1|", "|1044|uno|"), u"", {u"FormaPago"});
    expect_stop(emisor + with(cliente, "03-15", "02-29"), u"", {u"FechaHoraDocto", u"2011-02-29"});
    expect_stop(emisor + with(cliente, "03-15 14", "03-15 25"), u"", {u"FechaHoraDocto"});
    expect_stop(emisor + with(cliente, "09|\n", "09\n"), u"", {u"CLIENTE", u"18"});
    expect_stop(emisor + with(cliente, "09|\n", "09||||||||x|y\n"), u"", {u"CLIENTE", u"27"});
    expect_stop(emisor + with(cliente, "09|\n", "09||mucho\n"), u"", {u"IvaRet"});
    expect_stop(emisor + cliente + with(detalle, "|5|", "|cinco|"), u"", {u"3", u"Cantidad", u"cinco"});
    expect_stop(emisor + cliente + with(detalle, "|5|", "|999999999999999999|"), u"", {u"Cantidad"});
    expect_stop(emisor + cliente + with(detalle, "|16\n", "\n"), u"", {u"DETALLE", u"9"});
    expect_stop(emisor + cliente + "ADDENDA|X|2\n", u"", {u"ADDENDA"});
    expect_stop(emisor + cliente + "ADDENDA|X|dos|1|v\n", u"", {u"nRama"});
    expect_stop(emisor + cliente + "ADDENDADET|3000000000|X|2|1|v\n", u"", {u"nRenglon"});
    expect_stop(emisor + cliente + detalle + "EMITE|1|si\n", u"", {u"CtrlFolioInterno", u"si"});
    expect_stop(emisor + cliente + detalle + "EMITE|1|1||dieciséis\n", u"", {u"vlTasaDeIva"});
    expect_stop(emisor + cliente + detalle + "EMITE|1|1|||1|1\n", u"", {u"EMITE"});
    expect_stop(emisor + detalle + emite, u"", {u"3", u"CLIENTE"});
    expect_stop(cliente + detalle + emite, u"", {u"3", u"EMISOR"});
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 0);
}

TEST_F(FlatFile, what_was_issued_before_the_stop_stays_and_the_result_tells_it)
{
    expect_stop(emisor + document + document + "DETALLE|mal\n" + document, u"A1,A2", {u"8"});
    expect_stop(emisor + document + emite, u"A3",
                {u"5", u"CLIENTE"}); // a document begins with its own CLIENTE
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 3);
    EXPECT_EQ(answer(u"Select nUltimoFolio From FE_FOLIOS Where nFolio=1").int32(), 3);
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
}

TEST_F(FlatFile, an_empty_seal_stops_it_after_the_document_that_has_it)
{
    write_file(folder() / "pkey.key.pem", "esto no es una llave");
    expect_stop(emisor + document + document, u"A1", {u"Línea 4", u"sello vacío", u"pkey.key.pem"});
}

TEST_F(FlatFile, a_missing_range_is_told_once_by_the_issue_and_once_by_the_file)
{
    std::string other = document;
    other.replace(other.find("|1|1|2011"), 9, "|1|9|2011");
    EXPECT_EQ(issue_file(emisor + other), u"");
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_NE(messages[1].text.find(messages[0].text), Text::npos);
}

TEST_F(FlatFile, files_and_databases_that_are_not_there_are_told)
{
    EXPECT_EQ(issue_file(""), u"");
    EXPECT_TRUE(messages.empty());
    for (const auto& [folder_name, name, database] :
         {std::tuple{folder_text(), Text(u"otro.txt"), database_path()},
          {folder_text() + u"/no hay", Text(u"ventas.txt"), database_path()},
          {folder_text(), Text(u""), database_path()},
          {folder_text(), Text(u"ventas.txt"), folder_text() + u"/no hay/tolvex.db"},
          {folder_text(), Text(u"ventas.txt"), folder_text() + u"/ventas.txt"}}) {
        write_file(folder() / "ventas.txt", emisor + document);
        messages.clear();
        EXPECT_EQ(genera_docto.GeneraFacturaElectronicaDesdeArchivoPlano(folder_name, name, u"", u"",
                                                                         u"sqlite:", database),
                  u"");
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0].title, u"Facturación Electronica");
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
    for (const std::string& bytes :
         {std::string("\0\0\0", 3), std::string("|||||\n"), std::string("\r\r\r"),
          std::string("EMISOR|1|1\0|x\n", 15), "EMISOR|" + std::string(100'000, '9') + "|1\n",
          emisor + std::string(1'000, '|'), std::string("\xEF\xBB\xBF"),
          emisor + "CLIENTE|" + std::string(1'000'000, 'x') + "\n",
          emisor + cliente + "DETALLE|1|F|X|\0|1|P|1|1|1|1\n"})
        EXPECT_EQ(issue_file(bytes), u"");
}

} // namespace
} // namespace tolvex::testing
