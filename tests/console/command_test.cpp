#include "command.hpp"

#include "core/code_pages.hpp"
#include "core/text.hpp"
#include "database/connection.hpp"
#include "support/authority_check.hpp"
#include "support/certificates.hpp"
#include "support/schema_change.hpp"
#include "support/terminal.hpp"

#include <gmock/gmock.h>
#include <set>

namespace tolvex::testing {
namespace {

using ::testing::AllOf;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::Not;
using ::testing::StartsWith;

TEST_F(Command, demonstration_runs_again_and_again)
{
    const Text good_seal = u"Verified OK";
    for (int run = 1; run <= 2; ++run) {
        const Outcome made = tolvex({"demo", "--carpeta", "prueba"});
        EXPECT_EQ(made.exit_code, 0) << made.errors;
        const Text output = to_text(made.output), without_seals = replace_all(output, good_seal, u"");
        EXPECT_EQ((output.size() - without_seals.size()) / good_seal.size(), 4u) << made.output;
    }
    for (const char* name : {"A1", "A2", "A3", "NC1", "A4", "A5", "A6", "NC2"})
        EXPECT_TRUE(exists(path() / "prueba/Facturas" / (std::string(name) + ".xml"))) << name;
}

TEST_F(Command, demonstration_has_the_seals_that_the_authority_computes_but_with_withholdings)
{
    demo();
    for (const auto& [name, verified] : {std::pair{"A1", true}, {"A2", false}, {"A3", true}, {"NC1", true}})
        EXPECT_EQ(seal_verifies(read_file(path() / "demo/Facturas" / (std::string(name) + ".xml"))), verified)
            << name;
}

TEST_F(Command, demonstration_stands_beside_companies_and_files_of_others)
{
    std::filesystem::create_directory(path() / "demo");
    write_file(path() / "tienda.toml", "[[empresa]]\nnombre = 'Abarrotes'\nrfc = 'AES010101AAA'\n"
                                       "[[empresa.sucursal]]\nnombre = 'Matriz'\n"
                                       "[[empresa.folios]]\ndocumento = 'FACTURAS'\nserie = 'A'\n"
                                       "sucursal = 'Matriz'\nanio = 2011\ndesde = 1\nhasta = 50\n");
    ASSERT_EQ(tolvex({"maestros", "tienda.toml", "--bd", database}).exit_code, 0);
    in_sqlite(to_text((path() / database).string()),
              "insert into FE_VENTAS_RESUMEN(cDocumento,nEmpresa,nSucursal,cStatus) values('1',1,1,'A');"
              "insert into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre) values('TIE010203ABC',1,0,'Orden')");
    const std::string theirs =
        "sqlite3 " + database +
        " \"select * from FE_EMPRESAS where nEmpresa=1; select * from FE_SUCURSALES where "
        "nEmpresa=1; select * from FE_FOLIOS where nEmpresa=1; select * from "
        "FE_VENTAS_RESUMEN where nEmpresa=1; select * from fe_ctl_adendas where crfccte not "
        "like 'DEM%'\"";
    const std::string before = in_shell(theirs).output;
    EXPECT_THAT(before, HasSubstr("AES010101AAA"));
    for (int run = 1; run <= 2; ++run) {
        demo();
        EXPECT_EQ(in_shell(theirs).output, before);
    }
    EXPECT_EQ(tolvex({"folio", "2", "--bd", database}).output, "7\n");

    std::filesystem::create_directory(path() / "ajena");
    write_file(path() / "ajena/pkey.key.pem", "de otra empresa");
    const Outcome refused = tolvex({"demo", "--carpeta", "ajena"});
    EXPECT_EQ(refused.exit_code, 1);
    EXPECT_THAT(refused.errors, HasSubstr("pkey.key.pem; indique otra con --carpeta"));
    EXPECT_EQ(in_shell("cat ajena/*").output, "de otra empresa");
}

TEST_F(Command, imprime_makes_the_pdf_of_a_document_and_says_what_its_layout_lacks)
{
    demo();
    const std::vector<std::string> print = {"imprime", "2", "--empresa", "1", "--bd", database, "--pdf"};
    const auto printed = [&](std::vector<std::string> more) {
        more.insert(more.begin(), print.begin(), print.end());
        return tolvex(more);
    };
    std::filesystem::remove(path() / "demo/FacturaElec_2.pdf");
    EXPECT_EQ(printed({}).output, (path() / "demo/FacturaElec_2.pdf").string() + "\n");
    EXPECT_TRUE(exists(path() / "demo/FacturaElec_2.pdf"));
    write_file(
        path() / "grafica.rdl",
        "<Report xmlns='http://schemas.microsoft.com/sqlserver/reporting/2008/01/reportdefinition'><Body>"
        "<ReportItems><Chart Name='g'/></ReportItems><Height>1in</Height></Body><Width>1in</Width>\n"
        "<ReportParameters><ReportParameter Name='cIndFactura'/><ReportParameter Name='nEmpresa'/>"
        "</ReportParameters><Page/></Report>");
    const Outcome own = printed({"mio.pdf", "--reporte", "grafica.rdl"});
    EXPECT_EQ(own.output, (path() / "mio.pdf").string() + "\n") << own.errors;
    EXPECT_THAT(tolvex({"revisa-reporte", "grafica.rdl"}).output, HasSubstr("Chart \"g\", renglón 1"));
    EXPECT_THAT(printed({"--reporte", "no_hay.rdl"}).errors, HasSubstr("no_hay.rdl"));
    const Outcome unknown = tolvex({"imprime", "77", "--empresa", "1", "--bd", database, "--pdf"});
    EXPECT_EQ(unknown.exit_code, 1);
    EXPECT_EQ(unknown.errors, "tolvex: no existe el documento 77 de la empresa 1\n");
}

TEST_F(Command, emite_tells_each_document_as_it_is_issued)
{
    demo();
    for (const char* left : {"demo/sello.bat", "demo/Facturas/A77.xml.tmp"}) write_file(path() / left, "");
    const std::string folder = (path() / "demo/Facturas").string();
    const Outcome issued = tolvex({"emite", sales(2), "--bd", database});
    EXPECT_EQ(issued.exit_code, 0) << issued.errors;
    EXPECT_EQ(issued.output, "A4                  11.60  " + folder + "/A4.xml\n" +
                                 "A5                  11.60  " + folder + "/A5.xml\n");
    EXPECT_THAT(issued.errors,
                MatchesRegex("2 documentos emitidos en [0-9.]+ s \\([0-9.]+ por segundo\\)\n"));
    EXPECT_FALSE(exists(path() / "demo/Facturas/A77.xml.tmp")); // of an issue that was interrupted
    EXPECT_EQ(tolvex({"emite", sales(1), "--bd", database, "--raiz-extendida"}).exit_code, 0);
    EXPECT_THAT(read_file(path() / "demo/Facturas/A6.xml"), HasSubstr(" folio=\"6\""));

    const Outcome as_json =
        in_shell(TOLVEX_COMMAND " emite - --json --bd tolvex.db < ../" + sales(1), path() / "demo");
    EXPECT_THAT(as_json.output,
                MatchesRegex("\\{\"serie\":\"A\",\"folio\":\"7\",\"nID\":8,\"total\":11.60,\"ruta\":\"" +
                             folder + "/A7.xml\",\"segundos\":[0-9.]+,\"error\":\"\"\\}\n"));
    std::filesystem::create_directory(path() / "demo/otros");
    for (const char* name : {"b.txt", "a.TXT", "nota.md"})
        std::filesystem::copy(path() / "demo/ventas.txt", path() / "demo/otros" / name);
    std::filesystem::copy(path() / "demo/pkey.key.pem", path() / "demo/otros/pkey.key.pem");
    const Outcome folders = tolvex({"emite", "demo/otros", sales(1), "--bd", database});
    EXPECT_THAT(folders.output, AllOf(HasSubstr("otros/Facturas/A8.xml"), HasSubstr("otros/Facturas/A9.xml"),
                                      HasSubstr("A10  "), Not(HasSubstr("A11"))));

    const Outcome without_openssl =
        in_shell("PATH=/nada " TOLVEX_COMMAND " emite - --sello-interno --bd tolvex.db < ../" + sales(1),
                 path() / "demo");
    EXPECT_THAT(without_openssl.output, HasSubstr("A11  ")) << without_openssl.errors;
    EXPECT_THAT(read_file(path() / "demo/Facturas/A11.xml"), ContainsRegex("sello=\"[A-Za-z0-9+/]{342}==\""));
}

TEST_F(Command, who_stops_reading_what_is_printed_ends_nothing_half_way)
{
    demo();
    in_shell(TOLVEX_COMMAND " emite " + sales(3) + " --bd " + database + " | true");
    EXPECT_EQ(tolvex({"folio", "1", "--bd", database}).output, "7\n");
    EXPECT_FALSE(exists(path() / "demo/sello.bat") || exists(path() / "demo/tolvex.db-wal"));
}

TEST_F(Command, emite_looks_a_file_over_first_and_goes_on_where_it_stopped)
{
    demo();
    std::filesystem::rename(path() / sales(1, "DETALLE|mal\nEMITE\n"), path() / "demo/mal.txt");
    const Outcome wrong = tolvex({"emite", "demo/mal.txt", sales(1), "--bd", database});
    EXPECT_EQ(wrong.exit_code, 1);
    EXPECT_THAT(wrong.output, HasSubstr("A4 ")); // the other file
    EXPECT_THAT(wrong.errors, AllOf(HasSubstr("Línea 5: DETALLE"), HasSubstr("Línea 6: EMITE"),
                                    HasSubstr("no se emitió nada")));
    const Outcome reviewed = tolvex({"emite", sales(3), "--revisa", "--bd", database});
    EXPECT_EQ(reviewed.output, "demo/ventas.txt: 3 documentos; se puede emitir\n");
    EXPECT_EQ(reviewed.exit_code, 0);

    // Ctrl-C at the first of many.
    const Outcome interrupted =
        in_shell("(exec " TOLVEX_COMMAND " emite " + sales(40) + " --bd " + database +
                 ") > salida & while ! [ -s salida ]; do sleep 0.01; done; kill -INT $!; wait $!; echo $?");
    EXPECT_EQ(interrupted.output, "1\n");
    const std::string told = interrupted.errors;
    EXPECT_THAT(told, HasSubstr("se interrumpió después de este documento"));
    const std::string line = told.substr(
        told.rfind(" --desde ") + 9, told.find('\n', told.rfind(" --desde ")) - told.rfind(" --desde ") - 9);
    const Outcome rest = tolvex({"emite", "demo/ventas.txt", "--desde", line, "--bd", database});
    EXPECT_EQ(rest.exit_code, 0) << rest.errors;
    EXPECT_EQ(tolvex({"folio", "1", "--bd", database}).output, "45\n"); // none twice, none left out
    EXPECT_THAT(tolvex({"verifica", "--bd", database}).output, HasSubstr("no está bien: 0"));
}

TEST_F(Command, emite_issues_what_is_dropped_into_a_folder)
{
    demo();
    const std::filesystem::path box = path() / "buzón";
    std::filesystem::create_directory(box);
    std::filesystem::copy(path() / "demo/pkey.key.pem", box / "pkey.key.pem");
    std::filesystem::rename(path() / sales(2), box / "antes.txt"); // while nobody watched
    const Outcome watched = in_shell(
        TOLVEX_COMMAND " emite --vigila buzón --bd " + database +
        " > salida & sleep 0.3; echo FACTURA > buzón/mal.txt; i=0; while [ ! -e buzón/procesados/antes.txt -o ! "
        "-e buzón/rechazados/mal.txt ] && [ $((i += 1)) -lt 100 ]; do sleep 0.1; done; kill -INT $!; wait $!; "
        "cat salida buzón/*/*.reporte.txt; ls buzón/en_proceso");
    const std::string folder = (box / "Facturas").string();
    EXPECT_EQ(watched.output, "Vigilando " + box.string() + "; Ctrl-C termina\n" +
                                  "A4                  11.60  " + folder +
                                  "/A4.xml\nA5                  11.60  " + folder + "/A5.xml\n" +
                                  "A4  11.6  " + folder + "/A4.xml\nA5  11.6  " + folder + "/A5.xml\n" +
                                  "Línea 1: no se conoce el registro \"FACTURA\"\nNo se emitió nada.\n");
    EXPECT_THAT(watched.errors, HasSubstr("tolvex: mal.txt: Línea 1"));
}

// Each sale has one line, named as its customer.
TEST_F(Command, ten_stations_in_one_folder_on_one_range_do_not_mix_their_documents)
{
    demo();
    std::string all;
    for (int station = 1; station <= 10; ++station) {
        const std::string name = "Estacion " + std::to_string(station), file = name + ".txt";
        std::string sales = "EMISOR|1|1\n";
        for (int i = 0; i < 3; ++i)
            sales += "CLIENTE|XAXX010101000|" + name +
                     "||||||||México||10|0|1.6|11.6|1|1|2011-03-15 14:05:09|\n" + "DETALLE|1|F|X|" + name +
                     "|1|PZA|10|1.6|10|16\nEMITE||1|||0\n";
        write_file(path() / "demo" / file, sales);
        all += TOLVEX_COMMAND " emite 'demo/" + file + "' --bd " + database + " & ";
    }
    EXPECT_THAT(in_shell(all + "wait").errors, Not(HasSubstr("tolvex:")));

    Connection connection;
    connection.connection_string = u"server=sqlite:;database=" + (path() / database).u16string();
    connection.open();
    int documents = 0;
    std::set<Text> folios;
    for (
        Recordset row = connection.query(
            u"Select r.cDocumento, r.nFolioFE, r.cSelloDigital, r.cCadenaOriginal, c.cNombreCte, d.cProducto "
            u"From FE_VENTAS_RESUMEN r Inner Join FE_ClienteFactura c On c.nidFE=r.nID Inner Join "
            u"FE_VENTAS_RESUMEN_DET d On d.nIdFe=r.nID Where c.cNombreCte Like 'Estacion%'");
        !row.eof(); row.move_next(), ++documents) {
        const Text folio = row[u"cDocumento"].text(), name = row[u"cNombreCte"].text();
        folios.insert(folio);
        EXPECT_EQ(row[u"cProducto"].text(), name) << to_utf8(folio);
        const std::string original = bytes_of_text(row[u"cCadenaOriginal"].text());
        EXPECT_THAT(original, HasSubstr("|" + to_utf8(name) + "|"));
        write_file(path() / "cadena", original);
        write_file(path() / "sello", bytes_of_text(row[u"cSelloDigital"].text()));
        EXPECT_EQ(in_shell("openssl base64 -d -A -in sello -out firma && openssl x509 -inform DER -in "
                           "demo/certificado.cer -pubkey -noout > llave && openssl dgst -sha1 -verify llave "
                           "-signature firma cadena")
                      .output,
                  "Verified OK\n")
            << to_utf8(folio);
    }
    EXPECT_EQ(documents, 30);
    EXPECT_EQ(folios.size(), 30u);
}

TEST_F(Command, a_log_is_kept_where_the_environment_names_a_file)
{
    demo();
    EXPECT_EQ(tolvex({"emite", sales(1), "--bd", database}, "TOLVEX_BITACORA=bitacora.txt").exit_code, 0);
    const std::string log = read_file(path() / "bitacora.txt");
    for (const char* told : {" SQL set dateformat ymd (", "PROGRAMA ", "openssl enc -base64 ", "(código 0, ",
                             " SQL update fe_folios set nultimofolio=4\\rwhere nfolio=1 ("})
        EXPECT_THAT(log, HasSubstr(told));
    EXPECT_EQ(tolvex({"folio", "1", "--bd", database}, "TOLVEX_BITACORA=no/hay/bitacora.txt").exit_code, 0);
}

TEST_F(Command, what_cannot_be_done_is_told_with_the_place_and_what_was_issued)
{
    demo();
    EXPECT_EQ(tolvex({"emite", sales(0), "--bd", database}).exit_code, 1);
    const Outcome blank = tolvex({"demo", "--carpeta", "con blanco"});
    EXPECT_EQ(blank.exit_code, 1);
    EXPECT_THAT(blank.errors, StartsWith("tolvex: "));
    const Outcome missing = tolvex({"emite", "no hay.txt", "--bd", database});
    EXPECT_EQ(missing.exit_code, 1);
    EXPECT_EQ(missing.output, "");
    EXPECT_THAT(missing.errors, HasSubstr("no hay.txt"));
}

TEST_F(Command, connection_comes_from_options_anywhere_or_the_environment)
{
    demo();
    EXPECT_EQ(tolvex({"--bd", database, "folio", "1"}).output, "4\n");
    EXPECT_EQ(tolvex({"folio", "1"}, "TOLVEX_BD=" + database).output, "4\n");
    EXPECT_EQ(tolvex({"folio", "1", "--bd", database}, "TOLVEX_BD=otra.db").output, "4\n");
    const Outcome reached = tolvex({"conexion", "--bd", database}), script = tolvex({"esquema"});
    EXPECT_EQ(reached.exit_code, 0) << reached.output << reached.errors;
    EXPECT_THAT(reached.output, HasSubstr("SQLite"));
    EXPECT_THAT(script.output, HasSubstr("cEstaadoCte"));
}

TEST_F(Command, a_password_is_asked_at_the_terminal_where_it_is_needed_and_missing)
{
    const std::string command = TOLVEX_COMMAND " ", server = " --servidor 127.0.0.1,1 --usuario caja";
    const auto shown = [&](const std::string& words) {
        return at_terminal(
                   "muy secreta", [&] { in_shell(command + words); }, "127.0.0.1,1: ")
            .shown;
    };
    const std::string asked = shown("conexion" + server);
    EXPECT_THAT(asked, HasSubstr("Contraseña de caja en 127.0.0.1,1: "));
    EXPECT_THAT(asked, Not(HasSubstr("secreta")));
    for (const std::string& words :
         {"conexion --clave x" + server, std::string("conexion --usuario caja"), "esquema" + server})
        EXPECT_THAT(shown(words), Not(HasSubstr("Contraseña"))) << words;
    EXPECT_EQ(tolvex({"conexion", "--servidor", "127.0.0.1,1", "--usuario", "caja"}, "setsid -w").exit_code,
              1);
    EXPECT_THAT(tolvex({"--help"}).output, HasSubstr("otros usuarios del equipo pueden verla"));
}

TEST_F(Command, what_the_database_lacks_is_told_and_completed)
{
    demo();
    in_sqlite(to_text((path() / database).string()), "drop table fe_ctl_adendas");
    const Outcome lacking = tolvex({"conexion", "--bd", database});
    EXPECT_EQ(lacking.exit_code, 1);
    EXPECT_THAT(lacking.output, HasSubstr("fe_ctl_adendas"));
    EXPECT_EQ(tolvex({"esquema", "--crea", "--bd", database}).output, "Esquema: completo\n");
}

TEST_F(Command, documents_are_cancelled_and_deleted_by_their_key)
{
    demo();
    const auto on_demo = [&](std::vector<std::string> words) {
        words.insert(words.end(), {"--empresa", "1", "--sucursal", "1", "--bd", database});
        return tolvex(words);
    };
    EXPECT_THAT(on_demo({"cancela", "2", "--fecha", "2011-12-31"}).output, HasSubstr("2011-12-31"));
    EXPECT_EQ(on_demo({"cancela", "1", "--nota-de-credito"}).exit_code, 0);
    EXPECT_EQ(on_demo({"cancela", "2", "--nota-de-credito"}).exit_code, 1); // no such credit note
    EXPECT_EQ(on_demo({"cancela", "2", "--fecha", "31/02/2011"}).exit_code, 1);
    EXPECT_EQ(on_demo({"borra", "3", "--si"}).exit_code, 0);
    for (const Outcome& gone : {on_demo({"borra", "3", "--si"}), on_demo({"cancela", "3"})}) {
        EXPECT_EQ(gone.exit_code, 1);
        EXPECT_EQ(gone.output, "");
        EXPECT_THAT(gone.errors, StartsWith("tolvex: "));
    }
    EXPECT_EQ(tolvex({"folio", "9", "--bd", database}).exit_code, 1);
}

TEST_F(Command, what_was_issued_is_verified_and_a_lost_xml_written_again)
{
    demo();
    const auto xml = path() / "demo/Facturas/A3.xml"; // the one with an addenda
    const std::string issued = read_file(xml);
    const Outcome right = tolvex({"verifica", "--bd", database});
    EXPECT_EQ(right.exit_code, 0) << right.output;
    EXPECT_EQ(right.output, "Documentos revisados: 4; no está bien: 0\n");
    EXPECT_EQ(right.errors, "");
    std::filesystem::remove(xml);
    const Outcome lost = tolvex({"verifica", "--bd", database, "--empresa", "1"});
    EXPECT_EQ(lost.exit_code, 1);
    EXPECT_THAT(lost.output,
                StartsWith("serie A, folio 3, empresa 1, sucursal 1: falta su XML, " + xml.string()));
    EXPECT_THAT(lost.output, HasSubstr("escríbalo de nuevo: tolvex xml 3 --empresa 1 --sucursal 1 --bd " +
                                       database + "\n"));
    EXPECT_THAT(lost.output, HasSubstr("Documentos revisados: 4; no está bien: 1\n"));
    const std::vector<std::string> rewrite{"xml", "3", "--empresa", "1", "--sucursal", "1", "--bd", database};
    const Outcome written = tolvex(rewrite);
    EXPECT_EQ(written.exit_code, 0) << written.errors;
    EXPECT_EQ(written.output, xml.string() + "\n");
    EXPECT_THAT(written.errors, HasSubstr("aviso: el receptor lleva addenda"));
    EXPECT_EQ(read_file(xml), issued.substr(0, issued.find("<Addenda>")) + "</cfdi:Comprobante>\n");
    EXPECT_THAT(tolvex(rewrite).errors, HasSubstr("ya estaba"));
    EXPECT_EQ(tolvex({"verifica", "--bd", database, "--desde", "1999-01-01", "--hasta", "1999-12-31"}).output,
              "Documentos revisados: 0; no está bien: 0\n");
    EXPECT_EQ(tolvex({"xml", "1", "--empresa", "1", "--sucursal", "1", "--nota-de-credito", "--carpeta",
                      "demo/.", "--bd", database})
                  .exit_code,
              0);
    for (const std::vector<std::string>& wrong : std::vector<std::vector<std::string>>{
             {"xml", "9", "--empresa", "1", "--sucursal", "1", "--bd", database},
             {"xml", "1", "--empresa", "1", "--sucursal", "1", "--carpeta", "no/hay", "--bd", database},
             {"verifica", "--empresa", "7", "--bd", database},
             {"verifica", "--desde", "ayer", "--bd", database}}) {
        const Outcome refused = tolvex(wrong);
        EXPECT_EQ(refused.exit_code, 1) << wrong[1];
        EXPECT_EQ(refused.output, "");
        EXPECT_THAT(refused.errors, StartsWith("tolvex: "));
    }
}

TEST_F(Command, master_data_come_from_a_file_and_are_modified_when_it_is_run_again)
{
    write_file(path() / "tienda.toml", "[[empresa]]\nnombre = 'Ferretería'\nrfc = 'fna010101aaa'\n"
                                       "[[empresa.sucursal]]\nnombre = 'Norte'\n"
                                       "[[empresa.folios]]\ndocumento = 'FACTURAS'\nserie = 'A'\n"
                                       "sucursal = 'norte'\nanio = 2011\ndesde = 1\nhasta = 50\n");
    for (int run = 1; run <= 2; ++run) {
        const Outcome registered = tolvex({"maestros", "tienda.toml"});
        EXPECT_EQ(registered.exit_code, 0) << registered.errors;
        EXPECT_EQ(registered.output,
                  "Empresa 1: fna010101aaa\n  Sucursal 1: Norte\n  Rango de folios 1: FACTURAS A\n");
        EXPECT_THAT(registered.errors, HasSubstr("aviso: No existen certificaciones configuradas"));
    }
    EXPECT_EQ(tolvex({"lista", "sucursales", "--empresa", "1"}).output,
              "nSucursal  cNombre  cRfc  nEmpresa  cNombreEmpresa\n"
              "        1  NORTE                 1  FERRETERÍA\n");
    EXPECT_THAT(tolvex({"lista", "folios", "--empresa", "1", "--json"}).output,
                HasSubstr("\"cDocumento\" : \"FACTURAS\""));
    for (
        const auto& [wrong, told] :
        {std::pair{"[[empresa]]\nrfc = 'x'\nnombr = 'y'\n", "Línea 3: no se conoce «nombr»"},
         {"[[empresa]]\nnombre = 'y'\n", "Línea 1: falta «rfc»"},
         {"[[empresa]]\nrfc = 1.5\n", "Línea 2: «rfc» lleva un texto"},
         {"empresa = 1\n", "no trae ninguna [[empresa]]"},
         {"[[empresa]\n", "Línea 1: no es TOML"},
         {"[[empresa]]\nrfc = 'x'\n[[empresa.folio]]\n", "no se conoce la tabla «folio»"},
         {"[[empresa]]\nrfc = 'x'\n[[empresa.folios]]\ndocumento='FACTURAS'\nserie='A'\ndesde=1\nanio=70000\n",
          "No se pudo guardar: Año aprobación: Desbordamiento: 70000"}}) {
        write_file(path() / "mal.toml", wrong);
        const Outcome refused = tolvex({"maestros", "mal.toml"});
        EXPECT_EQ(refused.exit_code, 1) << wrong;
        EXPECT_THAT(refused.errors, HasSubstr(told));
    }
}

TEST_F(Command, a_certificate_is_registered_with_the_password_that_openssl_asks_for)
{
    make_certificate(path(), "sello", 2049);
    make_certificate(path(), "vencido", 2011);
    write_file(path() / "tienda.toml", "[[empresa]]\nnombre = 'Ferretería'\nrfc = 'fna010101aaa'\n");
    ASSERT_EQ(tolvex({"maestros", "tienda.toml"}).exit_code, 0);
    const std::string command = "setsid -w " TOLVEX_COMMAND " certificado --empresa 1 --carpeta-sello . ";
    const auto certify = [&](const std::string& files, const char* password) {
        write_file(path() / "clave.txt", std::string(password) + "\n");
        return in_shell(command + files + " <clave.txt");
    };
    EXPECT_EQ(certify("--cer sello.cer --key sello.key", key_password).output,
              "Certificado 1 de la empresa 1\n");
    EXPECT_TRUE(exists(path() / "pkey.key.pem"));
    EXPECT_THAT(certify("--cer sello.cer --key sello.key", "otra").errors,
                HasSubstr("con la contraseña correcta"));
    EXPECT_THAT(certify("--cer sello.cer --key vencido.key", key_password).errors,
                HasSubstr("La llave no corresponde al certificado"));
    EXPECT_THAT(certify("--cer clave.txt --key sello.key", key_password).errors,
                HasSubstr("no se pudo leer el certificado"));
    // The same number: the record is modified. It expired, which is told but stops nothing.
    const Outcome expired = certify("--cer vencido.cer --key vencido.key", key_password);
    EXPECT_EQ(expired.output, "Certificado 1 de la empresa 1\n");
    EXPECT_THAT(expired.errors, HasSubstr("aviso: El certificado ha caducado"));
}

TEST_F(Command, the_monthly_report_names_its_file_and_a_month_without_documents_is_told)
{
    demo();
    ASSERT_EQ(tolvex({"emite", sales(1), "--bd", database}).exit_code, 0);
    const auto report = [&](const char* month) {
        return tolvex({"reporte", "--empresa", "1", "--mes", month, "--anio", "2011", "--carpeta", "demo/.",
                       "--bd", database});
    };
    EXPECT_EQ(report("3").output, (path() / "demo/1DEM110101AAA032011.TXT").string() + "\n");
    EXPECT_EQ(read_file(path() / "demo/1DEM110101AAA032011.TXT"),
              "|XAXX010101000|A|4|20112011|15/03/2011 14:05:09|11.60|1.60|1|I||||\r\n");
    EXPECT_THAT(report("4").errors, HasSubstr("no hay documentos"));
    EXPECT_EQ(report("13").exit_code, 1);
}

TEST_F(Command, nothing_is_done_for_a_company_that_is_not_there)
{
    demo();
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"lista", "certificados"},
          {"certificado", "--cer", "demo/certificado.cer", "--key", "demo/llave.key", "--carpeta-sello", "."},
          {"reporte", "--mes", "3", "--anio", "2011", "--carpeta", "."}}) {
        std::vector<std::string> order = words;
        order.insert(order.end(), {"--empresa", "2", "--bd", database});
        const Outcome refused = tolvex(order);
        EXPECT_EQ(refused.exit_code, 1) << words[0];
        EXPECT_THAT(refused.errors, HasSubstr("no existe la empresa 2")) << words[0];
    }
    EXPECT_FALSE(exists(path() / "pkey.key.pem"));
}

TEST_F(Command, output_that_cannot_be_written_is_no_success)
{
    demo();
    const std::string tolvex = TOLVEX_COMMAND " ";
    const Outcome lost = in_shell(tolvex + "folio 1 --bd " + database + " >/dev/full");
    EXPECT_EQ(lost.exit_code, 1);
    EXPECT_THAT(lost.errors, HasSubstr("salida estándar"));
    EXPECT_EQ(in_shell(tolvex + "folio 9 --bd " + database + " 2>/dev/full").exit_code, 1);
    EXPECT_EQ(in_shell(tolvex + "folio 1 --bd no/hay.db 2>/dev/full").exit_code, 1);
}

// Words of the command line's library that a user must not meet.
void expect_spanish(const std::string& text)
{
    for (const char* english : {"Usage", "Option", "OPTION", "Positional", "REQUIRED", "TEXT ", "INT ",
                                "Env:", "ubcommand", "SUBCOMMAND", "Print", "help message", "required",
                                "Could not", "following", "Run with", "expected"})
        EXPECT_THAT(text, Not(HasSubstr(english)));
}

TEST_F(Command, help_is_in_spanish)
{
    for (const char* command : {"demo", "emite", "cancela", "borra", "folio", "esquema", "conexion",
                                "maestros", "certificado", "lista", "reporte", "documentos", "diagnostico"}) {
        const Outcome help = tolvex({command, "--help"});
        EXPECT_EQ(help.exit_code, 0);
        EXPECT_THAT(help.output,
                    AllOf(HasSubstr("Uso: tolvex"), HasSubstr(std::string("Ejemplo:\n  tolvex ") + command)));
        expect_spanish(help.output);
    }
    for (const char* whole : {"--help", "--man"}) expect_spanish(tolvex({whole}).output);
}

TEST_F(Command, a_badly_written_order_says_so_in_spanish_with_exit_code_2)
{
    struct Case
    {
        std::vector<std::string> words;
        std::string told;
    };
    for (const auto& [words, told] : std::initializer_list<Case>{
             {{}, "falta la orden"},
             {{"factura"}, "no se conoce la orden factura"},
             {{"emitte", "a"}, "no se conoce la orden emitte (¿quiso decir «emite»?)"},
             {{"folio", "--bdd", "x.db", "1"}, "no se conoce o sobra: --bdd (¿quiso decir «--bd»?)"},
             {{"documentos", "--estadoo", "x"}, "no se conoce o sobra: --estadoo (¿quiso decir «--estado»?)"},
             {{"emite"}, "falta ARCHIVO"},
             {{"folio", "a", "b"}, "no se conoce o sobra: b"},
             {{"emite", "a", "b", "--desde", "3"}, "--desde vale para un solo archivo, y hay 2"},
             {{"cancela", "1", "--empresa", "1"}, "falta --sucursal"},
             {{"cancela", "1", "--empresa", "40000", "--sucursal", "1"},
              "no es un número válido: --empresa = 40000"},
             {{"folio", "1'"}, "CLAVE: no puede llevar apóstrofos"},
             {{"demo", "--bd", "x.db"}, "sobra --bd: no se usa con «demo»"},
             {{"folio", "1", "--otra"}, "no se conoce o sobra: --otra"},
             {{"folio", "1", "--bd"}, "falta el valor de --bd"}}) {
        const Outcome outcome = tolvex(words);
        EXPECT_EQ(outcome.exit_code, 2) << told;
        EXPECT_EQ(outcome.output, "");
        EXPECT_THAT(outcome.errors, StartsWith("tolvex: " + told + "\n"));
        expect_spanish(outcome.errors);
    }
}

} // namespace
} // namespace tolvex::testing
