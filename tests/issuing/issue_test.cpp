#include "core/code_pages.hpp"
#include "core/errors.hpp"
#include "core/text.hpp"
#include "issuing/turn.hpp"
#include "platform/clock.hpp"
#include "support/station.hpp"
#include "support/watched_disk.hpp"

#include <atomic>
#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tolvex::testing {
namespace {

constexpr TextView original_of_the_sale =
    u"||3.0|2011-03-15T14:05:09|ingreso|PAGO EN UNA SOLA EXHIBICION|1370.00|1|MXN|1508.00|AES010101AAA"
    u"|ABARROTES LA ESPERANZA|ALHÓNDIGA|15|CENTRO|GUANAJUATO|GTO|MÉXICO|36000|PEGM800101AB1|María Peña"
    u"|Niños Héroes|120|Del Valle|Benito Juárez|Distrito Federal|México|03100"
    u"|5.00|KG|Café de altura, 1 kg|180.00|900.00|2.50|PZA|Pan|188.00|470.02|IVA|16.00|208.00|208.00||";

class Issuing : public Station
{
protected:
    // Every column of a table's one row, in the table's own order, so that none is forgotten.
    Text row(const Text& table, const Text& condition = u"1=1")
    {
        return rows_as_text(shared_connection(session()), u"Select * From " + table + u" Where " + condition,
                            true);
    }

    // A column of the document stored last.
    Text stored(const Text& column)
    {
        return answer(u"Select " + column + u" From FE_VENTAS_RESUMEN Order By nID Desc").text();
    }

    // Documents, receivers and lines stored.
    std::string stored_rows()
    {
        return std::to_string(count(u"FE_VENTAS_RESUMEN")) + " " +
               std::to_string(count(u"FE_ClienteFactura")) + " " +
               std::to_string(count(u"FE_VENTAS_RESUMEN_DET"));
    }

    // Instead of openssl, a program of the working folder, which goes first.
    void install_openssl(const std::string& script)
    {
        write_file(folder() / "openssl", "#!/bin/sh\n" + script);
        std::filesystem::permissions(folder() / "openssl", std::filesystem::perms::owner_all);
    }

    static constexpr auto all_work_files = "sello.bat sello.txt fi_md5.txt utf8.txt";
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
    // Stored as one character per byte of its UTF-8 form.
    const Text original =
        text_of_bytes(to_utf8(replace_all(original_of_the_sale, u"María Peña", u"María|Peña|")));
    const Text seal = stored(u"cSelloDigital");
    EXPECT_EQ(seal.size(), 344u);

    EXPECT_EQ(
        row(u"FE_VENTAS_RESUMEN"),
        u"nID=1|cDocumento=A00123|cTipoDocumento=F|nEmpresa=1|nSucursal=1|cEfecto=I|cCliente=000000"
        u"|dFecha=2011-03-15 14:05:09|cSerieFolioFE=A|cSerie=A|nFolioFE=123|cNumero_Aprobacion=2011"
        u"|cSerie_Certificado=20001000000100005867|cSelloDigital=" +
            seal + u"|cCadenaOriginal=" + original +
            u"|cFormaDePago=Credito|nSubTotalAD=1370|nDescuento=70|nSubTotalDD=1300|nIva=208|nTotal=1508"
            u"|nImporteConLetra=MIL QUINIENTOS OCHO PESOS 00/100 M.N.|cStatus=A|dFechaCan=Null"
            u"|cMoneda=PESOS|nParidad=1|nIvaRetenido=0|nIsrRetenido=0");
    EXPECT_EQ(row(u"FE_ClienteFactura"),
              u"nidFE=1|nFolioDocto=A00123|cTipoDocumento=F|cEmpresa=1|cSucursal=1|cEfecto=I"
              u"|dFecha=2011-03-15 14:05:09|cSerieFolioFE=A|cSerie=A|cNumero_Aprobacion=2011"
              u"|cSerie_Certificado=20001000000100005867|cSelloDigital=" +
                  seal + u"|cCadenaOriginal=" + original +
                  u"|cRfcCte=PEGM800101AB1|cNombreCte=MaríaPeña|cCalleCte=Niños Héroes|cNumExteriorCte=120"
                  u"|cNumInteriorCte=4 B|cColoniaCte=Del Valle|cLocalidadCte=Ciudad de México"
                  u"|cEstaadoCte=Distrito Federal|cMunicipioCte=Benito Juárez|cPaisCte=México"
                  u"|cCodPostalCte=03100|nSubtotalDocto=1370|nImporteDescto=70|nSubtotalConDescto=1300"
                  u"|nImporteIva=208|nImporteTotal=1508|cDatoAdicional1=caja 3|cDatoAdicional2="
                  u"|cDatoAdicional3=mostrador");
    EXPECT_EQ(row(u"FE_VENTAS_RESUMEN_DET", u"nRenglon=2"),
              u"nIdFe=1|nFolioDocto=A00123|cTipoDocumento=F|cProducto=Pan|nCantidad=2.5|cunidad=PZA"
              u"|nPrecio=188.005|nIva=64|nImporte=470.015|nImpuesto=16|nRenglon=2|cArticulo=PAN-07|nEmpresa=1"
              u"|nSucursal=1");
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
    EXPECT_EQ(rows(u"Select cTipoDocumento,cEfecto,cDocumento,cSerie,nTotal,cMoneda,nParidad,nIvaRetenido"
                   u",nIsrRetenido From FE_VENTAS_RESUMEN"),
              u"N|E|8|NC|1508.01|DOLARES|12.735|146.6667|137");
    EXPECT_EQ(rows(u"Select cTipoDocumento,cEfecto From FE_ClienteFactura"), u"F|I");
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN_DET", u"cTipoDocumento='F'"), 2);
    EXPECT_TRUE(exists("Facturas/NC8.xml"));
    EXPECT_TRUE(stored(u"cCadenaOriginal").ends_with(u"ISR|137.00|IVA|146.67|IVA|11.00|208.00||"));
}

TEST_F(Issuing, the_numeric_folio_starts_at_the_first_zero_and_any_kind_but_ingreso_is_a_credit_note)
{
    stage_document();
    for (const auto& [folio, kind, number_and_kind] : {std::tuple{u"120", u"INGRESO", u"0|F"},
                                                       {u"7", u"iNgReSo", u"7|F"},
                                                       {u"10203", u"ingreso ", u"203|N"},
                                                       {u" 15 ", u"", u"15|N"}}) {
        EXPECT_TRUE(issue(folio, kind)) << to_utf8(folio);
        EXPECT_EQ(stored(u"nFolioFE") + u"|" + stored(u"cTipoDocumento"), number_and_kind) << to_utf8(folio);
    }
    const std::string before = stored_rows();
    for (const Text folio : {u"A123", u"", u"A0B"}) {
        EXPECT_FALSE(issue(folio)) << to_utf8(folio);
        EXPECT_EQ(last_error(), type_mismatch().description());
    }
    EXPECT_EQ(stored_rows(), before);
    EXPECT_EQ(work_files(), ""); // nothing was even prepared
}

TEST_F(Issuing, the_counter_is_set_to_the_folio_taken_once_all_is_stored)
{
    stage_document();
    EXPECT_TRUE(issue_from_counter());
    EXPECT_TRUE(issue_from_counter()); // without staging anew it repeats receiver and lines
    EXPECT_EQ(counter(1).int32(), 2);
    EXPECT_EQ(stored(u"cDocumento"), u"2");
    EXPECT_EQ(stored_rows(), "2 2 4");
    std::filesystem::remove_all(folder() / "Facturas");
    write_file(folder() / "Facturas", "");
    EXPECT_FALSE(issue_from_counter());
    EXPECT_EQ(counter(1).int32(), 3); // the row is stored, so its folio is taken
    change_schema(u"Drop Table FE_VENTAS_RESUMEN_DET");
    EXPECT_FALSE(issue_from_counter());
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 4);
    EXPECT_EQ(counter(1).int32(), 3);
}

class DurableIssue : protected WatchedDisk, public Station
{};

TEST_F(DurableIssue, reaches_the_disk_once_after_its_last_row_and_before_its_xml)
{
    stage_document();
    bool xml_was_there = true;
    on_flush = [&] { xml_was_there = exists("Facturas/A1.xml"); };
    log_events();
    EXPECT_TRUE(issue_from_counter());
    on_flush = nullptr; // closing flushes too
    EXPECT_EQ(log_events(), "wf");
    EXPECT_FALSE(xml_was_there);

    change_schema(u"Drop Table FE_VENTAS_RESUMEN_DET");
    log_events();
    EXPECT_FALSE(issue_from_counter());
    EXPECT_EQ(log_events(), "wf"); // what was stored until then
}

TEST_F(Issuing, an_error_of_before_is_not_told_again)
{
    stage_document();
    EXPECT_FALSE(genera_docto.BorraFacturaElectronica(1, 1, u"O'Hara"));
    ASSERT_NE(last_error(), u"");
    EXPECT_TRUE(issue());
    EXPECT_TRUE(messages.empty());
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
              (std::vector<Message>{{u"No se pudo obtener los datos de los folios digitales para la "
                                     u"empresa No 1 y el Registro No. 9",
                                     u"TOLVEX"}}));
    EXPECT_EQ(last_error(), messages[0].text + u": no existe el rango de folios 9");
    EXPECT_EQ(stored_rows(), "0 0 0");
    EXPECT_EQ(work_files(), "");
}

TEST_F(Issuing, a_used_up_range_is_told_and_rolls_the_hosts_open_transaction_back)
{
    Receiver r;
    r.ClaveFolio = u"3";
    stage_document(r);
    shared_connection(session()).begin_transaction();
    execute(u"Update FE_FOLIOS Set cEsquema='x'");
    Text folio = u"antes";
    EXPECT_FALSE(genera_docto.GeneraFacturaElectronica(folio, true));
    EXPECT_EQ(folio, u"0");
    EXPECT_EQ(messages, (std::vector<Message>{{u"No se pudo obtener folio de factura, favor de verificar",
                                               u"Facturación Electronica", MessageIcon::information}}));
    EXPECT_EQ(last_error(), messages[0].text + u": al rango de folios 3 ya no le quedan folios");
    EXPECT_EQ(count(u"FE_FOLIOS", u"cEsquema='x'"), 0);
    EXPECT_EQ(stored_rows(), "0 0 0");
    EXPECT_EQ(counter(3).int32(), 5);
    EXPECT_TRUE(issue(u"A077")); // the host's own folio still goes
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

TEST_F(Issuing, without_a_seal_there_is_no_row_unless_a_stale_seal_is_taken_for_the_documents_own)
{
    stage_document();
    install_openssl("exit 1\n");
    EXPECT_FALSE(issue());
    EXPECT_EQ(stored_rows(), "0 0 0");
    EXPECT_EQ(work_files(), "sello.bat utf8.txt");
    EXPECT_EQ(content("utf8.txt"), to_utf8(original_of_the_sale)); // no line end after it
    EXPECT_NE(last_error().find(u"openssl"), Text::npos);
    write_file(folder() / "sello.txt", "PRIMERO\r\nVie jo==\n");
    EXPECT_TRUE(issue());
    EXPECT_EQ(stored(u"cSelloDigital"), u"Viejo==");
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

TEST_F(Issuing, a_working_folder_that_is_missing_or_has_a_blank_is_told_before_any_row)
{
    std::filesystem::create_directory(folder() / "mis ventas");
    for (const auto& [name, told] : {std::pair{u"/mis ventas", u"blancos"}, {u"/nohay", u"nohay"}}) {
        Receiver r;
        r.RutaDeArchivos = folder_text() + name;
        stage_document(r);
        EXPECT_FALSE(issue());
        EXPECT_NE(last_error().find(told), Text::npos) << to_utf8(last_error());
        EXPECT_EQ(stored_rows(), "0 0 0");
    }
}

TEST_F(Issuing, files_that_cannot_be_written_stop_it_where_it_stands)
{
    stage_document();
    const auto expect_stop = [&](const char* rows) {
        EXPECT_FALSE(issue());
        EXPECT_EQ(stored_rows(), rows);
        EXPECT_FALSE(exists("Facturas/A123.xml"));
    };
    std::filesystem::create_directories(folder() / "utf8.txt");
    expect_stop("0 0 0");
    std::filesystem::remove(folder() / "utf8.txt");
    write_file(folder() / "Facturas", "");
    expect_stop("1 1 2");
    EXPECT_TRUE(last_error().starts_with(u"El documento quedó guardado con el folio A00123 de la empresa 1, "
                                         u"sucursal 1; falta el XML."));
    EXPECT_NE(last_error().find(u"Facturas"), Text::npos);
    EXPECT_EQ(work_files(), all_work_files);
    std::filesystem::remove(folder() / "Facturas");
}

TEST_F(DurableIssue, a_disk_that_fills_up_leaves_the_rows_and_no_piece_of_the_xml)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before;
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit full{100, before.rlim_max};
    stage_document();
    on_flush = [&] { setrlimit(RLIMIT_FSIZE, &full); }; // once the rows are on disk
    EXPECT_FALSE(issue());
    on_flush = nullptr;
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN_DET"), 2);
    EXPECT_TRUE(std::filesystem::is_empty(folder() / "Facturas"));
    EXPECT_NE(last_error().find(u"falta el XML"), Text::npos);
}

TEST_F(Issuing, work_files_are_made_anew_and_what_an_interrupted_issue_left_goes)
{
    write_file(folder() / "ajeno.txt", "de otro");
    for (const char* name : {"utf8.txt", "sello.bat"})
        std::filesystem::create_symlink(folder() / "ajeno.txt", folder() / name);
    std::filesystem::create_directory(folder() / "Facturas");
    write_file(folder() / "Facturas/A7.xml.tmp", "<cfdi:Compro");
    stage_document();
    EXPECT_TRUE(issue()) << to_utf8(last_error());
    EXPECT_EQ(content("ajeno.txt"), "de otro");
    EXPECT_FALSE(exists("Facturas/A7.xml.tmp"));
    EXPECT_EQ(work_files(), "");
}

// Folios 10, 20, 30 … name one file.
TEST_F(Issuing, a_file_whose_name_another_document_takes_is_kept)
{
    stage_document();
    for (int folio = 10; folio <= 70; folio += 10)
        ASSERT_TRUE(issue(decimal(folio))) << to_utf8(last_error());
    const auto has_seal_of = [&](const std::string& file, const Text& folio) {
        const Text seal =
            answer(u"Select cSelloDigital From FE_VENTAS_RESUMEN Where cDocumento='" + folio + u"'").text();
        return content("Facturas/" + file).find(to_utf8(seal)) != std::string::npos;
    };
    EXPECT_TRUE(has_seal_of("A0.xml", u"70"));
    EXPECT_TRUE(has_seal_of("Anteriores/A0_2011-03-15T14-05-09.xml", u"10"));
    for (int times = 2; times <= 6; ++times)
        EXPECT_TRUE(has_seal_of("Anteriores/A0_2011-03-15T14-05-09-" + std::to_string(times) + ".xml",
                                decimal(10 * times)));

    write_file(folder() / "Facturas/A5.xml", "<ajeno fecha=\"ayer\"/>");
    ASSERT_TRUE(issue(u"5")) << to_utf8(last_error());
    EXPECT_TRUE(has_seal_of("A5.xml", u"5"));
    int kept = 0;
    for (const auto& file : std::filesystem::directory_iterator(folder() / "Facturas/Anteriores"))
        kept += read_file(file.path()) == "<ajeno fecha=\"ayer\"/>";
    EXPECT_EQ(kept, 1);
}

TEST_F(Issuing, one_waits_for_another_at_the_database_and_at_the_folder)
{
    Connection other;
    other.connection_string = shared_connection(session()).connection_string;
    other.open();
    Connection elsewhere;
    elsewhere.connection_string = replace_all(other.connection_string, u"tolvex.db", u"otra.db");
    elsewhere.open();
    std::filesystem::create_directory(folder() / "caja2");
    const Text own_folder = folder_text() + u"\\caja2";
    constexpr int moment = 30; // milliseconds
    {
        write_file(folder() / "turno.tmp", ""); // of a process that was killed
        const Turn turn(shared_connection(session()), folder_text(), moment);
        EXPECT_FALSE(turn.waited_in_vain());
        EXPECT_TRUE(Turn(other, own_folder, moment).waited_in_vain());
        EXPECT_TRUE(Turn(elsewhere, folder_text(), moment).waited_in_vain());
        EXPECT_FALSE(Turn(elsewhere, own_folder, moment).waited_in_vain());
    }
    EXPECT_FALSE(Turn(other, folder_text(), moment).waited_in_vain());
    EXPECT_FALSE(exists("turno.tmp") || exists("tolvex.db-turno"));
}

TEST_F(Issuing, who_waits_is_next_however_often_another_comes_back)
{
    Connection other;
    other.connection_string = shared_connection(session()).connection_string;
    other.open();
    std::atomic<int> turns = 0;
    std::atomic<bool> enough = false;
    std::thread busy([&] {
        while (!enough) {
            const Turn turn(other, folder_text());
            ++turns;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    });
    while (turns < 3) std::this_thread::yield();
    const int before = turns;
    EXPECT_FALSE(Turn(shared_connection(session()), folder_text()).waited_in_vain());
    EXPECT_LE(turns - before, 4); // at each of the two files the one under way, and one that was faster
    enough = true;
    busy.join();
}

// As a station that is killed while openssl runs for it.
TEST_F(Issuing, a_program_that_outlives_its_station_keeps_the_turn)
{
    const Text path = folder_text() + u"\\turno.tmp";
    int pipe_to_program[2];
    ASSERT_EQ(pipe(pipe_to_program), 0);
    const pid_t station = fork();
    if (station == 0) {
        const auto turn = FileTurn::take(path);
        if (fork() == 0) {
            dup2(pipe_to_program[0], STDIN_FILENO);
            close(pipe_to_program[1]);
            execlp("cat", "cat", nullptr); // until its input ends
        }
        kill(getpid(), SIGKILL);
    }
    waitpid(station, nullptr, 0);
    EXPECT_EQ(FileTurn::take(path), nullptr);
    close(pipe_to_program[0]);
    close(pipe_to_program[1]);
    std::unique_ptr<FileTurn> ours;
    for (int tries = 0; !ours && tries < 1000; ++tries) {
        tolvex::pause(5);
        ours = FileTurn::take(path);
    }
    EXPECT_NE(ours, nullptr);
}

TEST_F(Issuing, a_work_file_that_cannot_be_removed_does_not_undo_the_document)
{
    stage_document();
    install_openssl("for last; do :; done\ncase $1 in enc) echo SELLO > \"$last\";; esac\n"); // no fi_md5.txt
    EXPECT_TRUE(issue()) << to_utf8(last_error());
    EXPECT_EQ(stored(u"cSelloDigital"), u"SELLO");
}

// Where the quote stands decides how far the storing goes: amount in words, receiver, free values, lines.
TEST_F(Issuing, a_quote_in_a_value_breaks_the_statement_it_goes_into)
{
    struct Case
    {
        Text folio, product;
        Text Receiver::*changed;
        Text value;
        const char* left;
    };
    for (const Case& c :
         std::initializer_list<Case>{{u"A01", u"P", &Receiver::moneda, u"PES'OS", "0 0 0"},
                                     {u"A01", u"P", &Receiver::Nombre, u"O'Hara", "1 0 0"},
                                     {u"A'01", u"P", &Receiver::Nombre, u"María", "1 0 0"},
                                     {u"A01", u"P", &Receiver::vlDatoAdicional_2, u"5'", "1 1 0"},
                                     {u"A01", u"5'", &Receiver::Nombre, u"María", "1 1 2"}}) {
        for (const Text table : {u"FE_VENTAS_RESUMEN", u"FE_ClienteFactura", u"FE_VENTAS_RESUMEN_DET"})
            execute(u"Delete " + table);
        Receiver r;
        r.*c.changed = c.value;
        stage_document(r);
        DetFacturas().SetDetalleDocto(u"", u"F", c.product, u"Cable", 1, u"PZA", 1, 0, 1, 16);
        EXPECT_FALSE(issue(c.folio)) << to_utf8(c.value);
        EXPECT_EQ(stored_rows(), c.left) << to_utf8(c.value);
        EXPECT_EQ(work_files(), all_work_files);
        EXPECT_FALSE(exists("Facturas"));
    }
    EXPECT_TRUE(messages.empty());
}

TEST_F(Issuing, a_value_that_cannot_be_used_stores_no_row)
{
    const std::pair<Text Receiver::*, Text> unusable[] = {
        {&Receiver::Subtotal, u"abc"},   {&Receiver::Descuento, u""}, {&Receiver::Impuesto, u"abc"},
        {&Receiver::Impuesto, u""},      {&Receiver::Total, u""},     {&Receiver::Total, u"abc"},
        {&Receiver::Nombre, u"株\u9AD8"}}; // past the system's own UTF-8
    for (const auto& [member, value] : unusable) {
        Receiver r;
        r.*member = value;
        stage_document(r);
        EXPECT_FALSE(issue()) << to_utf8(value);
        EXPECT_EQ(stored_rows(), "0 0 0");
    }
    EXPECT_TRUE(last_error().ends_with(u"|PEGM800101AB1|株»")) << to_utf8(last_error());
    EXPECT_TRUE(messages.empty());
}

TEST_F(Issuing, long_documents_and_trailing_separators_go_through)
{
    Receiver r;
    r.RutaDeArchivos = folder_text() + u"/";
    stage_document(r);
    for (int i = 0; i < 500; ++i)
        DetFacturas().SetDetalleDocto(u"", u"F", u"", Text(2000, u'ñ'), 1, u"PZA", 1, 0, 1, 16);
    EXPECT_TRUE(issue()) << to_utf8(last_error());
    EXPECT_EQ(stored_rows(), "1 1 502");
}

} // namespace
} // namespace tolvex::testing
