// The statements of the system, and T-SQL that its users write, on the embedded database with real rows.
#include "core/errors.hpp"
#include "database/connection.hpp"
#include "support/tables.hpp"
#include "support/temporary_folder.hpp"

#include <gmock/gmock.h>

namespace tolvex {

namespace {

using namespace std::string_literals;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

class EmbeddedStatements : public ::testing::Test
{
protected:
    EmbeddedStatements()
    {
        connection_.connection_string =
            u"uid=;pwd=;driver={SQL Server};server=sqlite:;database=" + folder_.file("t.db");
        connection_.open();
        connection_.execute(master_rows);
        connection_.execute(document_rows);
    }

    // Rows joined by "/", their columns by "|"; what fails answers with its description.
    Text answer(const Text& sql)
    {
        try {
            Text rows;
            for (Recordset set = connection_.query(sql); !set.eof(); set.move_next())
                rows += (rows.empty() ? u"" : u"/") + row(set);
            return rows;
        } catch (const Error& error) {
            return u"Error: " + error.description();
        }
    }

    static Text row(const Recordset& set)
    {
        Text columns;
        for (std::size_t i = 0; i < set.columns().size(); ++i)
            columns += (i == 0 ? u"" : u"|") + (set.value(i).is_null() ? u"Null" : set.value(i).text());
        return columns;
    }

    using Case = std::pair<Text, Text>;

    void expect(const std::vector<Case>& cases)
    {
        for (const auto& [sql, rows] : cases) EXPECT_EQ(answer(sql), rows) << to_utf8(sql);
    }

    // Runs a statement and looks at what it left.
    void expect_after(const Text& statement, const Text& query, const Text& rows)
    {
        connection_.execute(statement);
        EXPECT_EQ(answer(query), rows) << to_utf8(statement);
    }

    static constexpr const char16_t* master_rows =
        u"set dateformat ymd "
        u"insert into FE_EMPRESAS(nEmpresa,cNombre,cRfc) values(1,'Ñandú, S.A.','AAA010101AAA')"
        u"insert FE_EMPRESAS(nEmpresa,cNombre,cRfc) values(2,'Otra','BBB020202BBB');"
        u"insert into FE_SUCURSALES(nEmpresa,nSucursal,nCertificado,nFolio,cNombre) values(1,1,7,3,'Matriz');"
        u"insert into FE_SUCURSALES(nEmpresa,nSucursal,nCertificado,nFolio,cNombre) "
        u"values(1,2,null,9,'Norte');"
        u"insert into "
        u"FE_CERTIFICADOS(nEmpresa,nCertificado,cDescripcion,dVigencia_Cert_Hasta,bVerificaVigencia)"
        u" values(1,7,'Sello','2012-10-22',1);"
        u"insert into FE_FOLIOS(nFolio,nEmpresa,nSucursal,nCertificado,cDocumento,cSerie,nAnno,nDesde,nHasta,"
        u"nUltimoFolio) values(3,1,1,7,'FACTURAS','A',2011,1,120,119);"
        u"insert into FE_FOLIOS(nFolio,nEmpresa,nSucursal,nCertificado,cDocumento,cSerie,nHasta) "
        u"values(4,1,1,7,'NOTAS DE CREDITO','NC',5);";

    static constexpr const char16_t* document_rows =
        u"insert into "
        u"FE_VENTAS_RESUMEN(cDocumento,cTipoDocumento,nEmpresa,nSucursal,cEfecto,dFecha,cSerie,nFolioFE,"
        u"nIva,nTotal,cStatus) values('A001','F',1,1,'I','2011-03-05T14:05:09','A',1,16,116.5,'A');"
        u"insert into "
        u"FE_VENTAS_RESUMEN(cDocumento,cTipoDocumento,nEmpresa,nSucursal,cEfecto,dFecha,cSerie,nFolioFE,"
        u"nIva,nTotal,cStatus) values('A001','N',1,1,'E','2011-04-01 00:00:00','A',2,0,10,'A');"
        u"insert into FE_ClienteFactura(nidFE,nFolioDocto,cTipoDocumento,dFecha,cRfcCte)"
        u"values(1,'A001','F','2011-03-05T14:05:09','ABC-010101 AAA');"
        u"insert into FE_VENTAS_RESUMEN_DET(nIdFe,nFolioDocto,cTipoDocumento ,cProducto ,nCantidad ,cunidad "
        u",nPrecio "
        u",nIva ,nImporte ,nImpuesto, nRenglon,cArticulo,nEmpresa,nSucursal)"
        u"values(1,'A001','F','Año (nolock) dbo.x + isnull(1,2)',2.5,'PZA',10.1234,16,25.3085,16,2,'P1',1,1);"
        u"insert into FE_VENTAS_RESUMEN_DET(nIdFe,nRenglon,cProducto,nCantidad) values(1,1,'Primero',-1);"
        u"insert into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre,cTipo) "
        u"values('ABC010101AAA',2,0,'Segundo','E');"
        u"insert into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre,cTipo) "
        u"values('ABC010101AAA',1,0,'Primero','A');"
        u"insert into fe_ctl_adendasDet(crfccte,nRama,nPadre,cNombre,cTipo) "
        u"values('ABC010101AAA',5,2,'Linea','E');";

    TemporaryFolder folder_;
    Connection connection_;
};

TEST_F(EmbeddedStatements, master_data_is_found)
{
    expect({
        {u"Select nIva from FE_VENTAS_RESUMEN where nID=1; set nocount on", u"16"},
        {u"set dateformat ymd", u""},
        {u"Select cNombre,nMostrarVersion from FE_EMPRESAS(Nolock) Where nEmpresa = 1", u"Ñandú, S.A.|1"},
        {u"Select nCertificado from FE_SUCURSALES(Nolock) Where nEmpresa = 1 And nSucursal = '2'", u"Null"},
        {u"Select dVigencia_Cert_Hasta,bVerificaVigencia from FE_CERTIFICADOS(Nolock) Where nEmpresa = 1 And "
         u"nCertificado = 7",
         u"2012-10-22 00:00:00|-1"},
        {u"Select fe.* from FE_FOLIOS fe(Nolock) Where nfolio= '4'",
         u"4|1|1|7|NOTAS DE CREDITO|Null|NC|Null|Null|Null|5|Null|Null|Null"},
        {u"Select f.nUltimoFolio From FE_SUCURSALES s(nolock) \rInner Join  FE_FOLIOS f(Nolock) on "
         u"(s.nEmpresa = "
         u"f.nEmpresa And s.nFolio = f.nFolio) \r Where s.nEmpresa = 1 And s.nSucursal = 1",
         u"119"},
        {u"Select isnull(nultimoFolio,0) as nultimofolio from FE_FOLIOS fe(Nolock) Where nfolio= '3'\rand "
         u"isnull(nultimoFolio,0)+1 <=nhasta",
         u"119"},
        {u"Select isnull(nultimoFolio,0) as nultimofolio from FE_FOLIOS fe(Nolock) Where nfolio= '4'\rand "
         u"isnull(nultimoFolio,0)+1 <=nhasta",
         u"0"},
        {u" select cRfc from fe_empresas (nolock) where nEmpresa=2", u"BBB020202BBB"},
        {u"Select nEmpresa,cNombre from  fe_Empresas(nolock)", u"1|Ñandú, S.A./2|Otra"},
        {u"Select nEmpresa from FE_Empresas (nolock) where NEmpresa=9", u""},
        {u"Select nEmpresa as Id,cNombre as Empresa,cRfc From FE_EMPRESAS",
         u"1|Ñandú, S.A.|AAA010101AAA/2|Otra|BBB020202BBB"},
        {u"select s.nSucursal,s.cNombre,s.cRfc ,s.nEmpresa,e.cNombre as cNombreEmpresa\r from fe_sucursales "
         u"s "
         u"(nolock) join fe_empresas e(nolock) on (s.nEmpresa=e.nEmpresa) where s.nEmpresa =1",
         u"1|Matriz|Null|1|Ñandú, S.A./2|Norte|Null|1|Ñandú, S.A."},
        {u"select s.nCertificado,s.cDescripcion,s.nEmpresa,e.cNombre as cNombreEmpresa\r from "
         u"fe_Certificados s "
         u"(nolock) join fe_empresas e(nolock) on (s.nEmpresa=e.nEmpresa) where s.nEmpresa =1",
         u"7|Sello|1|Ñandú, S.A."},
        {u"select s.nFolio,s.cDocumento,s.cSerie,s.cNumero_Aprobacion\r from fe_Folios s (nolock) where "
         u"s.nEmpresa =1",
         u"3|FACTURAS|A|Null/4|NOTAS DE CREDITO|NC|Null"},
        {u"select coalesce(max(nempresa),0) + 1 as nEmpresa from fe_empresas (nolock)", u"3"},
        {u"select coalesce(max(nCertificado),0) + 1 as nCertificado from fe_Certificados (nolock) ", u"8"},
        {u"select coalesce(max(nSucursal),0) + 1 as nSucursal from fe_sucursales (nolock) where nEmpresa=2",
         u"1"},
        {u"select coalesce(max(nFolio),0) + 1 as nFolio from fe_Folios (nolock)", u"5"},
        {u"select s.nEmpresa from fe_sucursales s(nolock) where s.nEmpresa=1 and nSucursal=2", u"1"},
        {u"Select nFolio , nEmpresa, nSucursal, nCertificado, cDocumento, cFolio, cSerie, "
         u"cNumero_Aprobacion, nAnno, "
         u"nDesde, nHasta, cStatus, cEsquema, nUltimoFolio from fe_Folios where nFolio=3",
         u"3|1|1|7|FACTURAS|Null|A|Null|2011|1|120|Null|Null|119"},
    });
}

TEST_F(EmbeddedStatements, documents_and_addendas_are_found)
{
    expect({
        {u"select isnull(max(nid),0) as nidfe from FE_VENTAS_RESUMEN(nolock)", u"2"},
        {u"select * from FE_VENTAS_RESUMEN_DET d(nolock)\rWhere d.nIdFe = 1 order by nrenglon",
         u"1|Null|Null|Primero|-1|Null|Null|Null|Null|Null|1|Null|Null|Null/"
         u"1|A001|F|Año (nolock) dbo.x + isnull(1,2)|2.5|PZA|10.1234|16|25.3085|16|2|P1|1|1"},
        {u"select * from fe_ctl_adendas (nolock) where crfccte='abc010101aaa'  and npadre=0 order by "
         u"npadre,nrama",
         u"ABC010101AAA|1|0|Primero|A|Null/ABC010101AAA|2|0|Segundo|E|Null"},
        {u"select * from fe_ctl_adendasDet (nolock) where crfccte='ABC010101AAA'  and npadre=2 order by "
         u"npadre,nrama",
         u"ABC010101AAA|5|2|Linea|E|Null"},
        {u"Select Letra=dbo.fg_Numero2Letra(1160.5,'PESOS')", u"MIL CIENTO SESENTA PESOS 50/100 M.N."},
    });
}

TEST_F(EmbeddedStatements, the_monthly_report_reads_its_month)
{
    const auto report = [](const Text& month) {
        return u"SELECT Fe.nTotal,substring(convert(varchar(10),fe.DFECHA,103),1,6) + "
               u"convert(char(4),year(fe.DFECHA)) + ' ' + convert(varchar(8),fe.DFECHA,108) as FechaFormato,"
               u"replace(replace(c.crfcCte,' ',''),'-','') as cRfc,fo.nAnno \r From FE_VENTAS_RESUMEN "
               u"fe(Nolock) "
               u"INNER JOIN  \r FE_EMPRESAS em(Nolock) ON (fe.nEmpresa = em.nEmpresa) INNER JOIN  \r "
               u"FE_SUCURSALES "
               u"S(Nolock) ON (fe.nEmpresa = s.nEmpresa AND fe.nSucursal = s.nSucursal) INNER JOIN  \r "
               u"FE_FOLIOS "
               u"fo(nolock) ON (fo.nempresa = s.nempresa AND fo.nsucursal = s.nsucursal AND fo.ncertificado "
               u"= "
               u"s.ncertificado AND fo.cserie = fe.cserie) INNER JOIN  \r FE_ClienteFactura c(nolock) ON "
               u"(c.nfoliodocto = fe.cdocumento AND c.nIdFe = fe.nID)\r WHERE  fe.nEmpresa = 1 And "
               u"year(fe.dFecha) = 2011 AND month(fe.dFecha) =" +
               month;
    };
    expect({{report(u"03"), u"116.5|05/03/2011 14:05:09|ABC010101AAA|2011"}, {report(u"05"), u""}});
}

TEST_F(EmbeddedStatements, counters_and_cancellation_change_their_rows_alone)
{
    expect_after(
        u"Update FE_FOLIOS set nUltimoFolio = nUltimoFolio + 1 From FE_SUCURSALES s(nolock) \r Where "
        u"s.nEmpresa = FE_FOLIOS.nEmpresa And s.nFolio = FE_FOLIOS.nFolio And s.nEmpresa = 1 And s.nSucursal "
        u"= 1",
        u"select nUltimoFolio from FE_FOLIOS order by nFolio", u"120/Null");
    expect_after(u"update fe_folios set nultimofolio=00007\rwhere nfolio=4",
                 u"select nUltimoFolio from FE_FOLIOS order by nFolio", u"120/7");
    expect_after(u"Update FE_ClienteFactura set cDatoAdicional1 = 'a', cDatoAdicional2 = '',cDatoAdicional3 "
                 u"= 'c' Where "
                 u"nidFE = 1",
                 u"select cDatoAdicional1,cDatoAdicional2,cDatoAdicional3 from FE_ClienteFactura", u"a||c");
    expect_after(
        u"update FE_VENTAS_RESUMEN set cstatus='C', dFechaCan='2011-12-31'   where cdocumento='a001' and "
        u"ctipodocumento='N'\r and nempresa= 1 and nsucursal= 1",
        u"select nID,cStatus,dFechaCan from FE_VENTAS_RESUMEN", u"1|A|Null/2|C|2011-12-31 00:00:00");
}

TEST_F(EmbeddedStatements, a_date_written_by_somebody_else_shows_as_it_is)
{
    expect_after(u"update FE_VENTAS_RESUMEN set dFechaCan='ayer' where nID=1",
                 u"select dFechaCan from FE_VENTAS_RESUMEN", u"ayer/Null");
}

TEST_F(EmbeddedStatements, searches_use_an_index)
{
    const Text document = u"cdocumento='A001'\r and nempresa= 1 and nsucursal= 1";
    for (
        const Text& sql : {
            u"select isnull(max(nid),0) as nidfe from FE_VENTAS_RESUMEN(nolock)"s,
            u"select * from FE_VENTAS_RESUMEN_DET d(nolock)\rWhere d.nIdFe = 1 order by nrenglon"s,
            u"Update FE_ClienteFactura set cDatoAdicional1 = 'a' Where nidFE = 1"s,
            u"update FE_VENTAS_RESUMEN set cstatus='C' where "s + document,
            u"Delete from FE_VENTAS_RESUMEN_DET  where nIdFe in (Select nID from FE_VENTAS_RESUMEN  where "s +
                document + u")",
            u"select * from fe_ctl_adendas (nolock) where crfccte='X'  and npadre=0 order by npadre,nrama"s,
            u"select * from fe_ctl_adendasDet (nolock) where crfccte='X'  and npadre=0 order by npadre,nrama"s,
            u"Select * From FE_VENTAS_RESUMEN fe(Nolock) WHERE  fe.nEmpresa = 1 And year(fe.dFecha) = 2011"s,
        }) {
        const std::string plan = to_utf8(answer(u"explain query plan " + sql));
        EXPECT_THAT(plan, AllOf(HasSubstr("SEARCH"), Not(HasSubstr("SCAN")), Not(HasSubstr("TEMP"))))
            << to_utf8(sql);
    }
}

TEST_F(EmbeddedStatements, a_deleted_document_takes_its_rows_with_it)
{
    const Text filter = u"cdocumento='A001'\r and nempresa= 1 and nsucursal= 1";
    connection_.execute(u"insert into FE_VENTAS_RESUMEN(cDocumento,nEmpresa,nSucursal) values('B2',1,1)");
    connection_.execute(u"insert into FE_VENTAS_RESUMEN_DET(nIdFe,nRenglon) values(3,1)");
    for (const char16_t* child : {u"FE_ClienteFactura", u"FE_VENTAS_RESUMEN_DET"})
        connection_.execute(u"Delete " + Text(child) +
                            u"  where nIdFe in (Select nID from FE_VENTAS_RESUMEN  where " + filter + u")");
    for (int i = 0; i < 2; ++i) connection_.execute(u"Delete FE_VENTAS_RESUMEN  where " + filter);
    expect({{u"select nID from FE_VENTAS_RESUMEN", u"3"},
            {u"select nIdFe from FE_VENTAS_RESUMEN_DET", u"3"},
            {u"select nIdFe from FE_ClienteFactura", u""}});
    // The highest number is free again once its document is gone.
    expect_after(u"delete from FE_VENTAS_RESUMEN; insert into FE_VENTAS_RESUMEN(cDocumento) values('C1')",
                 u"select nID from FE_VENTAS_RESUMEN", u"1");
}

TEST_F(EmbeddedStatements, a_quote_in_a_value_breaks_the_statement_and_nothing_else)
{
    const Text statement = u"update FE_VENTAS_RESUMEN set cstatus='C' where cdocumento='A'001'";
    EXPECT_EQ(testing::error_number([&] { connection_.execute(statement); }), database_error);
    expect({{u"select cStatus from FE_VENTAS_RESUMEN", u"A/A"}});
}

TEST_F(EmbeddedStatements, expressions_mean_what_they_mean_in_tsql)
{
    expect({
        {u"select 'a' + 'b'", u"ab"},
        {u"select N'ñ'+[cRfc] from dbo.[FE_EMPRESAS] e with (nolock, rowlock) where nEmpresa=2",
         u"ñBBB020202BBB"},
        {u"select 1 + 2 * 3 - -4 + 5", u"16"},
        {u"select 10 - 2 + 3 - 1", u"10"},
        {u"select 2 * +3 - +1, t.top + 'a' from (select 'x' as [top]) t", u"5|xa"},
        {u"select 'a' + null", u"Null"},
        {u"select '1' + 2", u"3"},
        {u"select 0.1 + 0.2", u"0.3"},
        {u"select 1e+2 + 1", u"101"},
        {u"select 'it''s' + ' + ' + \"cRfc\" from FE_EMPRESAS where nEmpresa=2", u"it's + BBB020202BBB"},
        {u"select case when 1 + 1 = 2 then 'a' + 'b' else 'c' end + 'd'", u"abd"},
        {u"select (1 + 2) * 3, left('abc' + 'def',4), right('abc',2)", u"9|abcd|bc"},
        {u"select substring('abcdef',0,3), substring('abcdef',5,9), substring('abc',-5,3)", u"ab|ef|"},
        {u"select len('ab  '), upper('ñandú'), lower('ÉL'), ltrim('  a'), rtrim('a  ') + '.', char(65)",
         u"2|ÑANDÚ|él|a|a.|A"},
        {u"select cast('12' as int) + 1, cast(2.345 as decimal(18,2)), cast(12 as varchar(10)) + 'x', "
         u"cast('2011-03-05T14:05:09' as datetime)",
         u"13|2.35|12x|2011-03-05 14:05:09"},
        {u"select convert(char(4),2) + '.', convert(varchar(2),'abc'), convert(varchar(2),123), "
         u"convert(int,'7')",
         u"2   .|ab|*|7"},
        {u"select year('20110305'), month('2011-03-05T14:05:09'), day('2011-03-05 14:05:09')", u"2011|3|5"},
        {u"select year(null), substring(null,1,1), len(null)", u"Null|Null|Null"},
        {u"select len(convert(varchar(19),getdate(),120)) where year(getdate()) >= 2024", u"19"},
        {u"select sum(nTotal) + 1, count(*) from FE_VENTAS_RESUMEN where nTotal between 9+1 and 200",
         u"127.5|2"},
        {u"select /* nota ' */ 1 -- y otra '\n + 1", u"2"},
    });
}

TEST_F(EmbeddedStatements, dates_are_written_and_read_in_every_style)
{
    const Case styles[] = {
        {u"101", u"03/05/2011"},
        {u"102", u"2011.03.05"},
        {u"103", u"05/03/2011"},
        {u"104", u"05.03.2011"},
        {u"105", u"05-03-2011"},
        {u"106", u"05 Mar 2011"},
        {u"108", u"14:05:09"},
        {u"110", u"03-05-2011"},
        {u"111", u"2011/03/05"},
        {u"112", u"20110305"},
        {u"113", u"05 Mar 2011 14:05:09:000"},
        {u"120", u"2011-03-05 14:05:09"},
        {u"121", u"2011-03-05 14:05:09.000"},
        {u"126", u"2011-03-05T14:05:09"},
    };
    for (const auto& [style, text] : styles)
        expect({{u"select convert(varchar(30),dFecha," + style + u") from FE_VENTAS_RESUMEN where nID=1",
                 text}});
    for (const char16_t* written :
         {u"'03/05/2011',101", u"'05/03/2011',103", u"'05.03.2011',104", u"'05-03-2011',105",
          u"'2011/03/05',111", u"'20110305',112", u"'2011-03-05',120"})
        expect({{u"select convert(datetime," + Text(written) + u")", u"2011-03-05 00:00:00"}});
}

TEST_F(EmbeddedStatements, aliases_and_limits_belong_to_their_own_select)
{
    expect({
        {u"select Total=nTotal+1, 'Id'=nID, [Doc]=cDocumento from FE_VENTAS_RESUMEN where nID=1",
         u"117.5|1|A001"},
        {u"select top 1 nID from FE_VENTAS_RESUMEN order by nID desc", u"2"},
        {u"select top (1) x.n from (select top 2 n=nID from FE_VENTAS_RESUMEN order by nID) x order by x.n "
         u"desc",
         u"2"},
        {u"select distinct E=nEmpresa, (select D=max(nID) from FE_VENTAS_RESUMEN where nID=1) from "
         u"FE_VENTAS_RESUMEN "
         u"where nEmpresa=1",
         u"1|1"},
    });
    EXPECT_EQ(connection_.query(u"select Total=nTotal+1 from FE_VENTAS_RESUMEN")[u"Total"].number(), 117.5);
}

TEST_F(EmbeddedStatements, batches_and_transactions_run_whole)
{
    expect_after(
        u"begin tran update FE_EMPRESAS set cRfc='X' where nEmpresa=1 delete FE_EMPRESAS where nEmpresa=2 "
        u"rollback tran",
        u"select cRfc from FE_EMPRESAS", u"AAA010101AAA/BBB020202BBB");
    expect_after(u"begin transaction; update FE_EMPRESAS set cRfc='X';; commit;",
                 u"select cRfc from FE_EMPRESAS", u"X/X");
}

TEST_F(EmbeddedStatements, what_is_wrong_comes_back_in_the_engines_own_words)
{
    expect({
        {u"select * from FE_NADA", u"Error: no such table: FE_NADA"},
        {u"select cNada from FE_EMPRESAS", u"Error: no such column: cNada"},
        {u"select nID from FE_VENTAS_RESUMEN where cDocumento='abc", u"Error: unrecognized token: \"'abc\""},
        {u"select 'a' + 1", u"Error: No coinciden los tipos"},
        {u"select convert(varchar(10),dFecha,999) from FE_VENTAS_RESUMEN",
         u"Error: convert: el estilo 999 no existe para fechas"},
        {u"select convert(punto,1)", u"Error: convert: el tipo punto no se conoce"},
        {u"select left('a',-1)", u"Error: Llamada a procedimiento o argumento no válidos"},
        {u"select year('ayer')", u"Error: No coinciden los tipos"},
        {u"select top 1 nID from FE_VENTAS_RESUMEN union select 9",
         u"Error: LIMIT clause should come after UNION not before"},
        {u"select @cIndFactura", u"Error: Faltan valores para los parámetros de la instrucción SQL"},
        {Text(u"select 1\0drop", 13), u"Error: La instrucción SQL contiene un carácter nulo"},
        {u"", u""},
        {u"))((+ - case end , [ \"", u"Error: near \")\": syntax error"},
    });
    for (const char16_t* sql :
         {u"select top", u"select a=", u"cast(", u"convert(int", u"select x=,", u"delete", u"end+1",
          u"with (nolock", u"dbo.", u"select (", u"+", u"1+", u"begin", u"N'"})
        answer(sql); // whatever it answers, it answers
}

} // namespace

} // namespace tolvex
