// The whole system on a real SQL Server, the one that TOLVEX_PRUEBA_SQLSERVER names.
#include "core/errors.hpp"
#include "database/connection_keywords.hpp"
#include "issuing/master_data.hpp"
#include "schema/schema.hpp"
#include "session/configuracion.hpp"
#include "support/amounts_in_words.hpp"
#include "support/sql_server.hpp"
#include "support/tables.hpp"
#include "support/tcp_relay.hpp"

#include <chrono>
#include <gmock/gmock.h>

namespace tolvex::testing {

namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// What the driver says when a connection string does not work.
std::string refusal(const Text& connection_string)
{
    Connection connection;
    connection.connection_string = connection_string;
    try {
        connection.open();
        return "";
    } catch (const Error& error) {
        return error.what();
    }
}

TEST_F(SqlServer, creating_the_schema_again_harms_nothing)
{
    create_schema(shared_connection(session()));
    EXPECT_THAT(missing_from_schema(shared_connection(session())), IsEmpty());
    EXPECT_EQ(count(u"FE_EMPRESAS"), 1);
    EXPECT_EQ(count(u"FE_FOLIOS"), 3);
}

TEST_F(SqlServer, what_the_schema_lacks_is_told_and_made_again)
{
    execute(u"Drop Table fe_ctl_adendas");
    execute(u"Drop Function dbo.fg_Numero2Letra");
    const std::vector<Text> missing = missing_from_schema(shared_connection(session()));
    ASSERT_EQ(missing.size(), 2u);
    EXPECT_THAT(to_utf8(missing[0]), AllOf(HasSubstr("fe_ctl_adendas: ["), HasSubstr("fe_ctl_adendas")));
    EXPECT_THAT(to_utf8(missing[1]), HasSubstr("dbo.fg_Numero2Letra: ["));
    create_schema(shared_connection(session()));
    EXPECT_THAT(missing_from_schema(shared_connection(session())), IsEmpty());
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
    const std::pair<Text, Value> types[] = {
        {u"cast(-7.25 as money)", Currency(-7.25)},
        {u"cast(7.25 as smallmoney)", Currency(7.25)},
        {u"cast(0.0001 as decimal(19,4))", Currency::from_scaled(1)},
        {u"cast(12345678901234567890123 as numeric(30,0))",
         u"12345678901234567890123"}, // too big for an amount
        {u"cast(1.5 as float)", 1.5},
        {u"cast(1.5 as real)", 1.5},
        {u"cast(255 as tinyint)", 255},
        {u"cast(-32768 as smallint)", -32'768},
        {u"cast(5000000000 as bigint)", std::int64_t{5'000'000'000}},
        {u"cast(1 as bit)", true},
        {u"cast('2011-03-05T14:05:09.997' as datetime)", Date::of(2011, 3, 5, 14, 5, 9)},
        {u"cast('2011-03-05' as date)", Date::of(2011, 3, 5)},
        {u"cast('ñ' as varchar(9))", u"ñ"},
        {u"cast(N'€' as nvarchar(max))", u"€"},
        {u"cast('y' as text)", u"y"},
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
    EXPECT_EQ(
        answer(
            u"declare @n int set @n = 4 update FE_FOLIOS set nUltimoFolio=@n where nFolio=1 Select @n as n "
            u"Select 5 as n"),
        Value(4));
}

TEST_F(SqlServer, an_issued_document_is_stored_whole)
{
    stage_document();
    ASSERT_TRUE(issue(u"A00123")) << to_utf8(last_error());
    EXPECT_TRUE(exists("Facturas/A123.xml"));
    EXPECT_EQ(work_files(), "");

    const Recordset row = shared_connection(session()).query(u"Select * from FE_VENTAS_RESUMEN");
    EXPECT_EQ(row[u"cDocumento"].text(), u"A00123");
    EXPECT_EQ(row[u"nFolioFE"].int32(), 123);
    EXPECT_EQ(row[u"dFecha"], Value(Date::of(2011, 3, 15, 14, 5, 9)));
    EXPECT_EQ(row[u"nSubTotalDD"], Value(Currency(1300)));
    EXPECT_EQ(row[u"nTotal"], Value(Currency(1508)));
    EXPECT_EQ(row[u"nImporteConLetra"].text(), u"MIL QUINIENTOS OCHO PESOS 00/100 M.N.");
    EXPECT_THAT(bytes_of_text(row[u"cCadenaOriginal"].text()), HasSubstr("|María Peña|Niños Héroes|"));
    EXPECT_EQ(row[u"cSelloDigital"].text().size(), 344u);

    const Text of_document = u"nIdFe=" + row[u"nID"].text();
    EXPECT_EQ(answer(u"Select cNombreCte from FE_ClienteFactura where " + of_document).text(), u"María Peña");
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN_DET", of_document), 2);
    EXPECT_EQ(answer(u"Select nPrecio from FE_VENTAS_RESUMEN_DET where cArticulo='PAN-07'"),
              Value(Currency(188.005)));
}

TEST_F(SqlServer, folios_come_from_the_counter_until_the_range_is_used_up)
{
    stage_document();
    ASSERT_TRUE(issue_from_counter()) << to_utf8(last_error());
    ASSERT_TRUE(issue_from_counter()) << to_utf8(last_error());
    EXPECT_EQ(answer(u"Select nUltimoFolio from FE_FOLIOS where nFolio=1").int32(), 2);
    Text folio;
    EXPECT_TRUE(genera_docto.fgObtenFolioFactura(u"1", folio));
    EXPECT_EQ(folio, u"3");
    EXPECT_EQ(fgSiguienteFolio(session(), 1, 1), 3);
    EXPECT_EQ(answer(u"Select nUltimoFolio from FE_FOLIOS where nFolio=1").int32(), 3);

    Receiver of_used_up_range;
    of_used_up_range.ClaveFolio = u"3";
    stage_document(of_used_up_range);
    EXPECT_FALSE(issue_from_counter());
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 2);
}

TEST_F(SqlServer, a_credit_note_with_an_addenda_is_cancelled_and_both_kinds_are_deleted)
{
    execute(u"insert into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre,cTipo,cValor) values"
            u"('PEGM800101AB1',1,0,'Pedido','E',Null),('PEGM800101AB1',2,1,'numero','A','77'),"
            u"('PEGM800101AB1',3,1,'Linea','E','fija'),('PEGM800101AB1',4,1,'Det@lle','E',Null)");
    execute(u"insert into fe_ctl_adendasDet(crfccte,nRama,nPadre,cNombre,cTipo,cValor) values"
            u"('PEGM800101AB1',5,4,'Renglon','E','x')");
    Receiver receiver;
    receiver.ClaveFolio = u"2";
    stage_document(receiver);
    ASSERT_TRUE(issue(u"A00007", u"egreso", true)) << to_utf8(last_error());
    EXPECT_THAT(content("Facturas/NC7.xml"),
                HasSubstr("<Addenda><Pedido numero=\"77\"><Linea>fija</Linea>"
                          "<Renglon>x</Renglon><Renglon>x</Renglon></Pedido></Addenda>"));
    ASSERT_TRUE(issue(u"A00007")) << to_utf8(last_error());

    EXPECT_TRUE(
        genera_docto.CancelaFacturaElectronica(u"A00007", Date::of(2011, 12, 31, 23, 59), 1, 1, true));
    EXPECT_EQ(answer(u"Select dFechaCan from FE_VENTAS_RESUMEN where cStatus='C' and cTipoDocumento='N'"),
              Value(Date::of(2011, 12, 31)));
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN", u"cStatus='A' and cTipoDocumento='F'"), 1);

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

TEST_F(SqlServer, the_queries_of_screens_and_report_run)
{
    stage_document();
    ASSERT_TRUE(issue(u"A00123")) << to_utf8(last_error());
    const std::pair<Text, int> queries[] = {
        // and how many columns they have
        {u"Select nEmpresa as Id,cNombre as Empresa,cRfc From FE_EMPRESAS", 3},
        {u"select s.nSucursal,s.cNombre,s.cRfc ,s.nEmpresa,e.cNombre as cNombreEmpresa\r from fe_sucursales "
         u"s "
         u"(nolock) join fe_empresas e(nolock) on (s.nEmpresa=e.nEmpresa) where s.nEmpresa =1",
         5},
        {u"select s.nCertificado,s.cDescripcion,s.nEmpresa,e.cNombre as cNombreEmpresa\r from "
         u"fe_Certificados s "
         u"(nolock) join fe_empresas e(nolock) on (s.nEmpresa=e.nEmpresa) where s.nEmpresa =1",
         4},
        {u"select s.nFolio,s.cDocumento,s.cSerie,s.cNumero_Aprobacion\r from fe_Folios s (nolock) where "
         u"s.nEmpresa =1",
         4},
        {u"Select nEmpresa from FE_Empresas (nolock) where NEmpresa=1", 1},
        {u"select * from fe_empresas (nolock) where nEmpresa=1", 27},
        {u"select coalesce(max(nempresa),0) + 1 as nEmpresa from fe_empresas (nolock)", 1},
        {u"select s.* from fe_Certificados s(nolock) where s.nEmpresa=1 and nCertificado =1", 15},
        {u"select coalesce(max(nCertificado),0) + 1 as nCertificado from fe_Certificados (nolock) ", 1},
        {u"select nCertificado,cDescripcion from fe_certificados (nolock) where nempresa=1", 2},
        {u"select s.* from fe_sucursales s(nolock) where s.nEmpresa=1 and nSucursal=1", 17},
        {u"select coalesce(max(nSucursal),0) + 1 as nSucursal from fe_sucursales (nolock) where nEmpresa=1",
         1},
        {u"select s.* from fe_Folios s(nolock) where s.nEmpresa=1 and nFolio=1", 14},
        {u"select coalesce(max(nFolio),0) + 1 as nFolio from fe_Folios (nolock)", 1},
        {u"Select nFolio , nEmpresa, nSucursal, nCertificado, cDocumento, cFolio, cSerie, "
         u"cNumero_Aprobacion, nAnno, "
         u"nDesde, nHasta, cStatus, cEsquema, nUltimoFolio from fe_Folios where nFolio=1",
         14},
        {u" select cRfc from fe_empresas (nolock) where nEmpresa=1", 1},
        {u"Select nEmpresa,cNombre from  fe_Empresas(nolock)", 2},
    };
    for (const auto& [sql, columns] : queries) {
        const Recordset rows = shared_connection(session()).query(sql);
        EXPECT_FALSE(rows.eof()) << to_utf8(sql);
        EXPECT_EQ(rows.columns().size(), static_cast<std::size_t>(columns)) << to_utf8(sql);
    }
    const Recordset report = shared_connection(session()).query(
        u"SELECT Fe.*,substring(convert(varchar(10),fe.DFECHA,103),1,6) + convert(char(4),year(fe.DFECHA)) + "
        u"' ' + "
        u"convert(varchar(8),fe.DFECHA,108) as FechaFormato,replace(replace(c.crfcCte,' ',''),'-','') as "
        u"cRfc,fo.nAnno \r From FE_VENTAS_RESUMEN fe(Nolock) INNER JOIN  \r FE_EMPRESAS em(Nolock) ON "
        u"(fe.nEmpresa = "
        u"em.nEmpresa) INNER JOIN  \r FE_SUCURSALES S(Nolock) ON (fe.nEmpresa = s.nEmpresa AND fe.nSucursal "
        u"= "
        u"s.nSucursal) INNER JOIN  \r FE_FOLIOS fo(nolock) ON (fo.nempresa = s.nempresa AND fo.nsucursal = "
        u"s.nsucursal AND fo.ncertificado = s.ncertificado AND fo.cserie = fe.cserie) INNER JOIN  \r "
        u"FE_ClienteFactura c(nolock) ON (c.nfoliodocto = fe.cdocumento AND c.nIdFe = fe.nID)\r WHERE  "
        u"fe.nEmpresa = "
        u"1 And year(fe.dFecha) = 2011 AND month(fe.dFecha) =03");
    ASSERT_FALSE(report.eof());
    EXPECT_EQ(report[u"FechaFormato"].text(), u"15/03/2011 14:05:09");
    EXPECT_EQ(report[u"cRfc"].text(), u"PEGM800101AB1");
    EXPECT_EQ(report[u"nAnno"].int32(), 2011);
}

TEST_F(SqlServer, what_the_database_refuses_ends_the_issue_with_its_words)
{
    stage_document();
    EXPECT_FALSE(issue(Text(300, u'X') + u"01")) << "a folio key longer than its column";
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 0);
    EXPECT_THAT(to_utf8(last_error()), HasSubstr("["));

    Receiver with_quote;
    with_quote.Nombre = u"O'Brien";
    stage(with_quote);
    EXPECT_FALSE(issue(u"A00123"));
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 1) << "the document row was stored before the receiver's failed";
    EXPECT_EQ(count(u"FE_ClienteFactura"), 0);
    EXPECT_FALSE(exists("Facturas/A123.xml"));
}

TEST_F(SqlServer, a_login_that_does_not_work_is_told_in_the_drivers_words)
{
    const Text server = sql_server();
    EXPECT_THAT(refusal(with_keyword(server, u"pwd", u"no-es-esta")), HasSubstr("(18456)"));
    EXPECT_THAT(refusal(with_keyword(server, u"database", u"tolvex_no_existe")),
                HasSubstr("tolvex_no_existe"));
    EXPECT_THAT(refusal(with_keyword(server, u"server", u"127.0.0.1,1")), HasSubstr("[08"));
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
    EXPECT_EQ(answer(u"Select nUltimoFolio from FE_FOLIOS where nFolio=1").int32(), 9);
}

TEST_F(SqlServer, a_server_that_went_away_is_an_error_and_serves_again_after_opening)
{
    const Text server = session().gServerBd;
    const std::vector<Text> place = split(server, u',');
    TcpRelay relay(to_utf8(place[0]), place.size() > 1 ? to_utf8(place[1]) : "1433");
    ConfigFE connection;
    connection.SetDatosConexion(session().gUserBd, session().gPswBd, session().gBd,
                                u"127.0.0.1," + decimal(relay.port()));
    connection.AbrirConexion();
    stage_document();
    relay.cut();

    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(issue(u"A00123"));
    EXPECT_EQ(error_number([&] { answer(u"Select 1"); }), database_error);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    ASSERT_FALSE(messages.empty());
    EXPECT_THAT(to_utf8(messages.front().text), HasSubstr("[")) << "the driver's words";

    connection.AbrirConexion();
    EXPECT_EQ(count(u"FE_VENTAS_RESUMEN"), 0);
    EXPECT_TRUE(issue(u"A00123")) << to_utf8(last_error());
    connection.SetDatosConexion(session().gUserBd, session().gPswBd, session().gBd, server);
    connection.AbrirConexion();
}

} // namespace

} // namespace tolvex::testing
