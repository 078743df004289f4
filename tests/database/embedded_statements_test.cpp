// The statements of the system, and T-SQL that its users write, on the embedded database with real rows.
// Those that issuing sends are tested where it sends them.
#include "core/errors.hpp"
#include "support/monthly_report.hpp"
#include "support/rows.hpp"
#include "support/temporary_folder.hpp"

#include <gmock/gmock.h>

namespace tolvex {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

class EmbeddedStatements : public ::testing::Test
{
protected:
    EmbeddedStatements()
    {
        connection_.connection_string =
            u"driver={SQL Server};server=sqlite:;database=" + folder_.file("t.db");
        connection_.open();
        connection_.execute(stored_rows);
    }

    // The rows; what fails answers with its description.
    Text answer(const Text& sql)
    {
        try {
            return testing::rows_as_text(connection_, sql);
        } catch (const Error& error) {
            return u"Error: " + error.description();
        }
    }

    void expect(const std::vector<std::pair<Text, Text>>& cases)
    {
        for (const auto& [sql, rows] : cases) EXPECT_EQ(answer(sql), rows) << to_utf8(sql);
    }

    static constexpr const char16_t* stored_rows =
        u"set dateformat ymd "
        u"insert into FE_EMPRESAS(nEmpresa,cNombre,cRfc) values(1,'Ñandú, S.A.','AAA010101AAA')"
        u"insert FE_EMPRESAS(nEmpresa,cNombre,cRfc) values(2,'Otra','BBB020202BBB');"
        u"insert into FE_SUCURSALES(nEmpresa,nSucursal,nCertificado,nFolio,cNombre) values(1,1,7,3,'Matriz');"
        u"insert into FE_SUCURSALES(nEmpresa,nSucursal,nCertificado,cNombre) values(1,2,null,'Norte');"
        u"insert into FE_CERTIFICADOS(nEmpresa,nCertificado,dVigencia_Cert_Hasta,bVerificaVigencia)"
        u" values(1,7,'2012-10-22',1);"
        u"insert into FE_FOLIOS(nFolio,nEmpresa,nSucursal,nCertificado,cDocumento,cSerie,nAnno)"
        u" values(3,1,1,7,'FACTURAS','A',2011);"
        u"insert into FE_VENTAS_RESUMEN(cDocumento,nEmpresa,nSucursal,dFecha,cSerie,nTotal)"
        u" values('A001',1,1,'2011-03-05T14:05:09','A',116.5);"
        u"insert into FE_VENTAS_RESUMEN(cDocumento,nEmpresa,nSucursal,dFecha,cSerie,nTotal,dFechaCan)"
        u" values('A002',1,1,'2011-04-01 00:00:00','A',10,'ayer');"
        u"insert into FE_ClienteFactura(nidFE,nFolioDocto,cRfcCte) values(1,'A001','ABC-010101 AAA');"
        u"insert into FE_ClienteFactura(nidFE,nFolioDocto,cRfcCte) values(2,'A002','ABC-010101 AAA');"
        u"insert into FE_VENTAS_RESUMEN_DET(nIdFe,cProducto,nCantidad,nPrecio,nRenglon)"
        u"values(1,'Año (nolock) dbo.x + isnull(1,2)',2.5,10.1234,2)"
        u"insert into FE_VENTAS_RESUMEN_DET(nIdFe,cProducto,nCantidad,nRenglon)values(1,'Primero',-1,1)";

    TemporaryFolder folder_;
    Connection connection_;
};

TEST_F(EmbeddedStatements, rows_are_found)
{
    expect({
        {u"Select dVigencia_Cert_Hasta,bVerificaVigencia from FE_CERTIFICADOS(Nolock) Where nEmpresa = 1",
         u"2012-10-22 00:00:00|-1"},
        {u"select cProducto,nCantidad,nPrecio from FE_VENTAS_RESUMEN_DET d(nolock)\rorder by nrenglon",
         u"Primero|-1|Null/Año (nolock) dbo.x + isnull(1,2)|2.5|10.1234"},
        {u"select s.nSucursal,s.cNombre,s.nCertificado,e.cNombre as cNombreEmpresa\r from fe_sucursales s "
         u"(nolock) join fe_empresas e(nolock) on (s.nEmpresa=e.nEmpresa) where s.nEmpresa =1",
         u"1|Matriz|7|Ñandú, S.A./2|Norte|Null|Ñandú, S.A."},
        {u"select coalesce(max(nempresa),0) + 1 as nEmpresa from fe_empresas (nolock)", u"3"},
        {u"select coalesce(max(nFolio),0) + 1 as nFolio from fe_Folios (nolock) where nEmpresa=2", u"1"},
        {u"select nTotal from FE_VENTAS_RESUMEN where cdocumento='a001'; set nocount on", u"116.5"},
        {u"select dFechaCan from FE_VENTAS_RESUMEN", u"Null/ayer"}, // written by somebody else
    });
}

TEST_F(EmbeddedStatements, the_monthly_report_reads_its_month)
{
    const Recordset report = connection_.query(testing::monthly_report(u"03"));
    EXPECT_EQ(report[u"nTotal"].text(), u"116.5");
    EXPECT_EQ(report[u"FechaFormato"].text(), u"05/03/2011 14:05:09");
    EXPECT_EQ(report[u"cRfc"].text(), u"ABC010101AAA");
    EXPECT_EQ(report[u"nAnno"].int32(), 2011);
    EXPECT_TRUE(connection_.query(testing::monthly_report(u"05")).eof());
}

TEST_F(EmbeddedStatements, searches_use_an_index)
{
    const Text document = u"cdocumento='A001'\r and nempresa= 1 and nsucursal= 1";
    for (const Text& sql : std::initializer_list<Text>{
             u"select isnull(max(nid),0) as nidfe from FE_VENTAS_RESUMEN(nolock)",
             u"select * from FE_VENTAS_RESUMEN_DET d(nolock)\rWhere d.nIdFe = 1 order by nrenglon",
             u"Update FE_ClienteFactura set cDatoAdicional1 = 'a' Where nidFE = 1",
             u"Delete from FE_VENTAS_RESUMEN_DET  where nIdFe in (Select nID from FE_VENTAS_RESUMEN  where " +
                 document + u")",
             u"select * from fe_ctl_adendas (nolock) where crfccte='X'  and npadre=0 order by npadre,nrama",
             u"select * from fe_ctl_adendasDet (nolock) where crfccte='X'  and npadre=2 order by "
             u"npadre,nrama",
             u"Select * From FE_VENTAS_RESUMEN fe(Nolock) WHERE  fe.nEmpresa = 1 And year(fe.dFecha) = 2011"})
        EXPECT_THAT(to_utf8(answer(u"explain query plan " + sql)),
                    AllOf(HasSubstr("SEARCH"), Not(HasSubstr("SCAN")), Not(HasSubstr("TEMP"))))
            << to_utf8(sql);
}

TEST_F(EmbeddedStatements, a_deleted_documents_identifier_is_never_given_again)
{
    connection_.execute(u"delete from FE_VENTAS_RESUMEN where nID=2");
    connection_.execute(u"insert into FE_VENTAS_RESUMEN(cDocumento) values('C1')");
    expect({{u"select nID,cDocumento from FE_VENTAS_RESUMEN", u"1|A001/3|C1"}});
}

TEST_F(EmbeddedStatements, expressions_mean_what_they_mean_in_tsql)
{
    expect({
        {u"select N'ñ'+[cRfc] from dbo.[FE_EMPRESAS] e with (nolock, rowlock) where nEmpresa=2",
         u"ñBBB020202BBB"},
        {u"select 1 + 2 * 3 - -4 + 5, 10 - 2 + 3 - 1, 2 * +3 - +1, 0.1 + 0.2, 1e+2 + 1", u"16|10|5|0.3|101"},
        {u"select 'a' + null, '1' + 2, 'it''s' + ' + '", u"Null|3|it's + "},
        {u"select case when 1 + 1 = 2 then 'a' + 'b' else 'c' end + 'd'", u"abd"},
        {u"select (1 + 2) * 3, left('abc' + 'def',4), right('abc',2)", u"9|abcd|bc"},
        {u"select substring('abcdef',0,3), substring('abcdef',5,9), substring(null,1,1)", u"ab|ef|Null"},
        {u"select len('ab  '), upper('ñandú'), lower('ÉL'), year('20110305'), year(null)",
         u"2|ÑANDÚ|él|2011|Null"},
        {u"select cast('12' as int) + 1, cast(2.345 as decimal(18,2)), cast(12 as varchar(10)) + 'x'",
         u"13|2.35|12x"},
        {u"select convert(char(4),2) + '.', convert(varchar(2),'abc'), convert(varchar(2),123)",
         u"2   .|ab|*"},
        {u"select len(convert(varchar(19),getdate(),120)) where year(getdate()) >= 2024", u"19"},
        {u"select sum(nTotal) + 1 from FE_VENTAS_RESUMEN where nTotal between 9+1 and 200", u"127.5"},
        {u"select /* nota ' */ 1 -- y otra '\n + 1", u"2"},
        {u"select Zona=nTotal+1, 'Id'=nID, [Doc]=cDocumento from FE_VENTAS_RESUMEN where nID=1",
         u"117.5|1|A001"},
        {u"select top (1) x.n from (select top 2 n=nID from FE_VENTAS_RESUMEN order by nID) x order by x.n "
         u"desc",
         u"2"},
        {u"select distinct top 1 cSerie from FE_VENTAS_RESUMEN", u"A"},
    });
    EXPECT_EQ(connection_.query(u"select Total=nTotal+1 from FE_VENTAS_RESUMEN")[u"Total"].number(), 117.5);
}

TEST_F(EmbeddedStatements, dates_are_written_and_read_in_the_common_styles)
{
    for (const auto& [style, text] :
         std::initializer_list<std::pair<Text, Text>>{{u"101", u"03/05/2011"},
                                                      {u"103", u"05/03/2011"},
                                                      {u"106", u"05 Mar 2011"},
                                                      {u"108", u"14:05:09"},
                                                      {u"112", u"20110305"},
                                                      {u"120", u"2011-03-05 14:05:09"},
                                                      {u"126", u"2011-03-05T14:05:09"}})
        expect({{u"select convert(varchar(30),dFecha," + style + u") from FE_VENTAS_RESUMEN where nID=1",
                 text}});
    for (const Text written :
         {u"'03/05/2011',101", u"'05/03/2011',103", u"'05.03.2011',104", u"'20110305',112"})
        expect({{u"select convert(datetime," + written + u")", u"2011-03-05 00:00:00"}});
    expect({{u"select convert(datetime,'19990909')", u"1999-09-09 00:00:00"}});
}

TEST_F(EmbeddedStatements, batches_and_transactions_run_whole)
{
    connection_.execute(u"begin tran update FE_EMPRESAS set cRfc='X' where nEmpresa=1 "
                        u"delete FE_EMPRESAS where nEmpresa=2 rollback tran");
    expect({{u"select cRfc from FE_EMPRESAS", u"AAA010101AAA/BBB020202BBB"}});
    connection_.execute(u"begin transaction; update FE_EMPRESAS set cRfc='X';; commit;");
    expect({{u"select cRfc from FE_EMPRESAS", u"X/X"}});
}

TEST_F(EmbeddedStatements, what_is_wrong_comes_back_in_spanish)
{
    expect({
        {u"select * from FE_NADA", u"Error: No existe la tabla FE_NADA"},
        {u"select 'a' + 1", u"Error: No coinciden los tipos"},
        {u"select convert(varchar(10),dFecha,999) from FE_VENTAS_RESUMEN",
         u"Error: convert: el estilo 999 no existe para fechas"},
        {u"select @cIndFactura", u"Error: Faltan valores para los parámetros de la instrucción SQL"},
        {Text(u"select 1\0drop", 13), u"Error: La instrucción SQL contiene un carácter nulo"},
        {u"", u""},
        {u"))((+ - case end , [ \"", u"Error: Error de sintaxis cerca de «)»"},
        {u"select 1 where '", u"Error: No se entiende «'»: quizá un texto entre apóstrofos no termina"},
        {u"insert into FE_FOLIOS values(1,2)",
         u"Error: La tabla FE_FOLIOS tiene 14 columnas y se dieron 2 valores"},
        {u"insert into FE_FOLIOS(nFolio,cNada) values(1,2)",
         u"Error: La tabla FE_FOLIOS no tiene la columna cNada"},
        {u"select left('abc', -1)", u"Error: se pide un número negativo de caracteres de un texto"},
    });
    for (const Text sql : {u"select top", u"select a=", u"cast(", u"convert(int", u"delete", u"with (nolock",
                           u"dbo.", u"select (", u"1+", u"begin", u"N'"})
        answer(sql); // whatever it answers, it answers
}

TEST_F(EmbeddedStatements, one_without_end_is_ended_by_the_time_out_of_the_connection)
{
    connection_.command_timeout = 1;
    connection_.open();
    expect({{u"with recursive n(i) as (select 1 union all select i + 1 from n) select count(*) from n",
             u"Error: Tardó más de lo que la conexión permite, y se interrumpió"},
            {u"select count(*) from FE_EMPRESAS", u"2"}});
}

} // namespace
} // namespace tolvex
