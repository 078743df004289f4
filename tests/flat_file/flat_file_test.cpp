#include "flat_file/flat_file_station.hpp"

#include "core/code_pages.hpp"

namespace tolvex::testing {
namespace {

using FlatFile = FlatFileStation;

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

// The rest of the file begins after the last document whose rows are all there.
TEST_F(FlatFile, a_document_that_fails_stops_it_and_what_was_issued_stays)
{
    std::filesystem::create_directory(folder() / "otra");
    std::filesystem::copy(folder() / "pkey.key.pem", folder() / "otra/pkey.key.pem");
    write_file(folder() / "otra/Facturas", ""); // no folder: the XML cannot be written
    std::string without_xml = document;
    without_xml.replace(without_xml.find("09|\n"), 4, "09|" + (folder() / "otra").string() + "\n");
    expect_stop(emisor + document + document + without_xml + document, u"A1,A2",
                {u"Línea 10: El documento quedó guardado con el folio 3", u"Facturas",
                 u"Se emitieron 2 documentos, el último A2; lo que falta comienza en la línea 11"});
    execute(u"Delete From FE_FOLIOS Where nFolio=3");
    change_schema(u"alter table FE_VENTAS_RESUMEN rename to otra");
    expect_stop(emisor + document, u"",
                {u"Línea 4", u"FE_VENTAS_RESUMEN",
                 u"No se emitió ningún documento; lo que falta comienza en la línea 1"});
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
