// The whole system on a real SQL Server, the one that TOLVEX_PRUEBA_SQLSERVER names.
#include "core/code_pages.hpp"
#include "core/errors.hpp"
#include "database/connection_keywords.hpp"
#include "diagnosis/diagnosis.hpp"
#include "issuing/document_list.hpp"
#include "issuing/master_data.hpp"
#include "schema/check.hpp"
#include "schema/schema.hpp"
#include "session/configuracion.hpp"
#include "support/amounts_in_words.hpp"
#include "support/monthly_report.hpp"
#include "support/sql_server.hpp"
#include "support/tables.hpp"
#include "support/test_certificate.hpp"

#include <atomic>
#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <thread>

namespace tolvex::testing {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

// What the driver says when a connection string does not work.
std::string refusal(const Text& connection_string)
{
    Connection connection;
    connection.connection_string = connection_string;
    return database_failure([&] { connection.open(); });
}

// Ends every network connection of this process, as when the server or the network goes away.
void cut_connections()
{
    std::signal(SIGPIPE, SIG_IGN); // as in a host whose driver still writes
    for (int descriptor = 3; descriptor < 1024; ++descriptor) {
        sockaddr_storage peer{};
        socklen_t size = sizeof(peer);
        const bool connected = getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) == 0;
        if (connected && peer.ss_family != AF_UNIX) shutdown(descriptor, SHUT_RDWR);
    }
}

TEST_F(SqlServer, what_the_schema_lacks_is_told_and_made_again_without_harm)
{
    const auto findings = [&] {
        std::vector<std::string> told;
        for (const Text& finding : schema_findings(shared_connection(session())))
            told.push_back(to_utf8(finding));
        return told;
    };
    const auto column = [](const char* nid) { // of a table that others made
        return u"Create Table dbo.FE_VENTAS_RESUMEN (nID int " + to_text(nid) + u", cDocumento int Null)";
    };
    execute(u"Drop Table fe_ctl_adendas");
    execute(u"Drop Function dbo.fg_Numero2Letra");
    EXPECT_THAT(findings(),
                ElementsAre(AllOf(HasSubstr("fe_ctl_adendas: no se puede leer; créela"), HasSubstr("[")),
                            HasSubstr("dbo.fg_Numero2Letra: no se puede usar; créela")));
    execute(
        u"Create Function dbo.fg_Numero2Letra(@importe money, @moneda varchar(20)) Returns varchar(200) As "
        u"Begin Return 'VEINTI?N PESOS 50/100 M.N.' End");
    execute(u"Drop Table FE_VENTAS_RESUMEN");
    execute(column("Null"));
    EXPECT_THAT(
        findings(),
        AllOf(Contains(HasSubstr("FE_VENTAS_RESUMEN.cDocumento: no es de tipo texto; cámbiela a nvarchar"
                                 "(255): ALTER TABLE dbo.FE_VENTAS_RESUMEN ALTER COLUMN cDocumento "
                                 "nvarchar(255) NULL")),
              Contains(HasSubstr("FE_VENTAS_RESUMEN.nTotal: falta la columna; agréguela: ALTER TABLE "
                                 "dbo.FE_VENTAS_RESUMEN ADD nTotal decimal(19, 4) NULL")),
              Contains(HasSubstr("FE_VENTAS_RESUMEN.nID: la base de datos no da el número")),
              Contains(HasSubstr("da «VEINTI?N PESOS 50/100 M.N.»"))));
    execute(u"Drop Table FE_VENTAS_RESUMEN");
    execute(column("Default 1"));
    EXPECT_THAT(findings(), Not(Contains(HasSubstr("FE_VENTAS_RESUMEN.nID"))));
    execute(u"Drop Table FE_VENTAS_RESUMEN");
    execute(u"Drop Function dbo.fg_Numero2Letra");
    create_schema(shared_connection(session()));
    EXPECT_THAT(findings(), IsEmpty());
    EXPECT_EQ(count(u"FE_FOLIOS"), 3);
}

TEST_F(SqlServer, stations_that_create_the_schema_at_once_all_succeed)
{
    for (const char16_t* table : {u"FE_FOLIOS", u"fe_ctl_adendas", u"fe_ctl_adendasDet"})
        execute(u"Drop Table " + Text(table));
    execute(u"Drop Function dbo.fg_Numero2Letra");
    std::vector<std::thread> stations;
    std::atomic<int> succeeded = 0;
    for (int i = 0; i < 5; ++i)
        stations.emplace_back([&] {
            Connection connection;
            connection.connection_string = sql_server();
            connection.open();
            if (error_number([&] { create_schema(connection); }) == 0) ++succeeded;
        });
    for (std::thread& station : stations) station.join();
    EXPECT_EQ(succeeded, 5);
    EXPECT_THAT(schema_findings(shared_connection(session())), IsEmpty());
}

TEST_F(SqlServer, a_deleted_documents_number_is_never_given_again)
{
    const auto add = [&] {
        execute(u"Insert Into FE_VENTAS_RESUMEN(cDocumento) Values('A')");
        return answer(u"Select max(nID) From FE_VENTAS_RESUMEN").int32();
    };
    const int first = add();
    execute(u"Delete FE_VENTAS_RESUMEN");
    EXPECT_GT(add(), first);
}

TEST_F(SqlServer, amounts_in_words_are_those_of_the_table)
{
    for (const auto& [amount, currency, words] : amounts_in_words())
        EXPECT_EQ(answer(u"Select Letra=dbo.fg_Numero2Letra(" + amount + u",'" + currency + u"')").text(),
                  words)
            << to_utf8(amount);
    EXPECT_TRUE(answer(u"Select Letra=dbo.fg_Numero2Letra(null,'PESOS')").is_null());
}

TEST_F(SqlServer, every_type_of_column_reads_into_its_kind_of_value)
{
    const Text huge = u"12345678901234567890123"; // too big for an amount
    const std::pair<Text, Value> types[] = {
        {u"cast(-7.25 as money)", Currency(-7.25)},
        {u"cast(0.0001 as decimal(19,4))", Currency::from_scaled(1)},
        {u"cast(" + huge + u" as numeric(30,0))", huge},
        {u"cast(1.5 as float)", 1.5},
        {u"cast(-32768 as smallint)", -32'768},
        {u"cast(5000000000 as bigint)", std::int64_t{5'000'000'000}},
        {u"cast(1 as bit)", true},
        {u"cast('2011-03-05T14:05:09.997' as datetime)", Date::of(2011, 3, 5, 14, 5, 9)},
        {u"cast('2011-03-05' as date)", Date::of(2011, 3, 5)},
        {u"cast('ñ' as varchar(9))", u"ñ"},
        {u"cast(N'€' as nvarchar(max))", u"€"},
        {u"cast('a' as char(3))", u"a  "},
        {u"cast(null as money)", Value()},
    };
    for (const auto& [expression, value] : types)
        EXPECT_EQ(answer(u"Select " + expression), value) << to_utf8(expression);
}

TEST_F(SqlServer, a_batch_fails_with_any_of_its_statements)
{
    const Text duplicate = u" insert into FE_EMPRESAS(nEmpresa) values(1)";
    EXPECT_EQ(error_number([&] { execute(u"Select 1 as n" + duplicate); }), database_error);
    EXPECT_EQ(error_number([&] { answer(u"Select 1 as n" + duplicate); }), database_error);
    EXPECT_EQ(answer(u"declare @n int set @n = 4 update FE_FOLIOS set nUltimoFolio=@n where nFolio=1 "
                     u"Select @n as n Select 5 as n"),
              Value(4));
}

TEST_F(SqlServer, an_issued_document_is_stored_whole_and_reported)
{
    stage_document();
    ASSERT_TRUE(issue(u"A00123")) << to_utf8(last_error());
    EXPECT_TRUE(exists("Facturas/A123.xml"));
    EXPECT_EQ(work_files(), "");

    EXPECT_EQ(rows(u"Select nID,cDocumento,nFolioFE,dFecha,nSubTotalDD,nTotal,nImporteConLetra from "
                   u"FE_VENTAS_RESUMEN"),
              answer(u"Select nidFE from FE_ClienteFactura").text() +
                  u"|A00123|123|2011-03-15 14:05:09|1300|1508|MIL QUINIENTOS OCHO PESOS 00/100 M.N.");
    EXPECT_THAT(bytes_of_text(answer(u"Select cCadenaOriginal from FE_VENTAS_RESUMEN").text()),
                HasSubstr("|María Peña|Niños Héroes|"));
    EXPECT_EQ(answer(u"Select cSelloDigital from FE_VENTAS_RESUMEN").text().size(), 344u);
    EXPECT_EQ(rows(u"Select cNombreCte from FE_ClienteFactura"), u"María Peña");
    EXPECT_EQ(rows(u"Select cArticulo,nPrecio from FE_VENTAS_RESUMEN_DET order by nRenglon"),
              u"CAF-01|180/PAN-07|188.005");

    const Recordset report = shared_connection(session()).query(monthly_report(u"03"));
    EXPECT_EQ(report[u"FechaFormato"].text(), u"15/03/2011 14:05:09");
    EXPECT_EQ(report[u"cRfc"].text(), u"PEGM800101AB1");
    EXPECT_EQ(report[u"nAnno"].int32(), 2011);
}

TEST_F(SqlServer, what_was_issued_is_verified_and_a_lost_xml_written_again)
{
    execute(u"Update FE_CERTIFICADOS Set cCertificado='" + Text(test_certificate) + u"'");
    stage_document();
    ASSERT_TRUE(issue_from_counter()) << to_utf8(last_error());
    ASSERT_TRUE(issue_from_counter()) << to_utf8(last_error());
    const auto findings = [&] {
        std::vector<std::string> told;
        const auto found = [&](const Finding& finding) { told.push_back(to_utf8(finding.what)); };
        verify_documents({.company = 1,
                          .from = Date::of(2011, 3, 15),
                          .to = Date::of(2011, 3, 15),
                          .folder = folder_text()},
                         {found, {}});
        return told;
    };
    EXPECT_THAT(findings(), IsEmpty());
    const std::string issued = content("Facturas/A2.xml");
    std::filesystem::remove(folder() / "Facturas/A2.xml");
    EXPECT_THAT(findings(), ElementsAre(HasSubstr("falta su XML")));
    write_xml(u"2", 1, 1, false, folder_text());
    EXPECT_EQ(content("Facturas/A2.xml"), issued);
    execute(u"Update FE_VENTAS_RESUMEN_DET Set nPrecio=1 Where nRenglon=1");
    EXPECT_THAT(findings(),
                ElementsAre(HasSubstr("precio del renglón 1"), HasSubstr("precio del renglón 1")));
}

TEST_F(SqlServer, what_was_issued_is_listed_by_every_condition_and_every_check_of_the_diagnosis_runs)
{
    stage_document();
    ASSERT_TRUE(issue(u"A00123")) << to_utf8(last_error());
    DocumentFilter filter{1, 1, Date::of(2011, 3, 15), Date::of(2011, 3, 15)};
    filter.serie = u"A";
    filter.folio = u"A00123";
    filter.status = u"A";
    filter.receiver = u"PENA";
    const auto listed = DocumentList(session(), filter).next();
    ASSERT_EQ(listed.size(), 1u);
    EXPECT_EQ(listed.front().date + u"|" + listed.front().name + u"|" + listed.front().total,
              u"2011-03-15 14:05:09|María Peña|1508.00");

    std::vector<std::string> told;
    diagnose(session(), {1, 1, folder_text()}, Date::of(2011, 3, 15),
             [&](const Observation& seen) { told.push_back(to_utf8(seen.about + u": " + seen.what)); });
    EXPECT_THAT(told, Not(Contains(HasSubstr("no se pudo revisar"))));
    EXPECT_THAT(told, Contains("XML: documentos: 1; no falta ninguno"));
}

TEST_F(SqlServer, folios_come_from_the_counter)
{
    stage_document();
    ASSERT_TRUE(issue_from_counter()) << to_utf8(last_error());
    ASSERT_TRUE(issue_from_counter()) << to_utf8(last_error());
    Text folio;
    EXPECT_TRUE(genera_docto.fgObtenFolioFactura(u"1", folio));
    EXPECT_EQ(folio, u"3");
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 3);
    EXPECT_EQ(counter(1).int32(), 3);
}

TEST_F(SqlServer, a_credit_note_with_an_addenda_is_cancelled_and_both_kinds_are_deleted)
{
    add_layout(u"fe_ctl_adendas",
               {u"1,0,'Pedido','E',Null", u"2,1,'numero','A','77'", u"4,1,'Det@lle','E',Null"});
    add_layout(u"fe_ctl_adendasDet", {u"5,4,'Renglon','E','x'"});
    Receiver receiver;
    receiver.ClaveFolio = u"2";
    stage_document(receiver);
    ASSERT_TRUE(issue(u"A00007", u"egreso", true)) << to_utf8(last_error());
    EXPECT_THAT(content("Facturas/NC7.xml"),
                HasSubstr("<Pedido numero=\"77\"><Renglon>x</Renglon><Renglon>x</Renglon></Pedido>"));
    ASSERT_TRUE(issue(u"A00007")) << to_utf8(last_error());

    EXPECT_TRUE(
        genera_docto.CancelaFacturaElectronica(u"A00007", Date::of(2011, 12, 31, 23, 59), 1, 1, true));
    EXPECT_EQ(rows(u"Select cTipoDocumento,cStatus,dFechaCan from FE_VENTAS_RESUMEN order by nID"),
              u"N|C|2011-12-31 00:00:00/F|A|Null");
    EXPECT_TRUE(genera_docto.BorraFacturaElectronica(1, 1, u"A00007"));
    for (const char16_t* table : {u"FE_VENTAS_RESUMEN", u"FE_ClienteFactura", u"FE_VENTAS_RESUMEN_DET"})
        EXPECT_EQ(count(table), 0) << to_utf8(table);
}

TEST_F(SqlServer, an_original_string_of_many_thousand_characters_is_stored_whole)
{
    stage_document();
    for (int i = 0; i < 40; ++i)
        DetFacturas().SetDetalleDocto(u"A00123", u"F", u"L", Text(2'000, u'x'), 1, u"PZA", 1, 0, 1, 16);
    ASSERT_TRUE(issue(u"A00123")) << to_utf8(last_error());
    const Text stored = answer(u"Select cCadenaOriginal from FE_VENTAS_RESUMEN").text();
    EXPECT_GT(stored.size(), 80'000u);
    EXPECT_EQ(stored.substr(stored.size() - 2), u"||");
    EXPECT_EQ(answer(u"Select cCadenaOriginal from FE_ClienteFactura").text().size(), stored.size());
}

TEST_F(SqlServer, what_the_database_refuses_ends_the_issue_with_its_words)
{
    stage_document();
    EXPECT_FALSE(issue(Text(300, u'X') + u"01")) << "a folio key longer than its column";
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 0);
    EXPECT_THAT(to_utf8(last_error()), HasSubstr("["));
}

TEST_F(SqlServer, a_login_that_does_not_work_is_told_in_the_drivers_words)
{
    const Text server = sql_server();
    EXPECT_THAT(refusal(with_keyword(server, u"pwd", u"no-es-esta")), HasSubstr("(18456)"));
    EXPECT_THAT(refusal(with_keyword(server, u"database", u"tolvex_no_existe")),
                HasSubstr("tolvex_no_existe"));
    EXPECT_THAT(refusal(u"uid=a;pwd=b;driver={SQL Server};server=127.0.0.1,1;database=c"),
                AllOf(StartsWith("["), HasSubstr("[08")))
        << "nothing was lost that was not there";
}

TEST_F(SqlServer, a_statement_that_waits_for_a_lock_ends_with_its_time_out)
{
    const Text update = u"Update FE_FOLIOS set nUltimoFolio = 9 where nFolio=1";
    Connection& holder = shared_connection(session());
    holder.begin_transaction();
    holder.execute(update);
    Connection waiting;
    waiting.connection_string = sql_server();
    waiting.command_timeout = 2;
    waiting.open();
    EXPECT_EQ(error_number([&] { waiting.execute(update); }), database_error);
    holder.roll_back();
    waiting.open(); // not every server keeps a connection whose statement was given up
    waiting.execute(update);
    EXPECT_EQ(counter(1).int32(), 9);
}

TEST_F(SqlServer, a_server_that_went_away_is_an_error_and_serves_again_after_opening)
{
    stage_document();
    cut_connections();

    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(issue(u"A00123"));
    EXPECT_EQ(error_number([&] { answer(u"Select 1"); }), database_error);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    ASSERT_FALSE(messages.empty());
    EXPECT_THAT(to_utf8(messages.front().text),
                AllOf(StartsWith("Se perdió la conexión con el servidor"), HasSubstr("[")))
        << "what it means, and the driver's words";

    open_database();
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 0);
    EXPECT_TRUE(issue(u"A00123")) << to_utf8(last_error());
}

} // namespace
} // namespace tolvex::testing
