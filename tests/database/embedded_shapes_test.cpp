// A statement that shares its prepared form with others of its shape does what it does alone. Each goes to
// two databases: as it is, twice, so that the second time it finds its shape prepared; and behind another
// statement, where it never stays prepared.
#include "core/errors.hpp"
#include "database/statement_listener.hpp"
#include "support/rows.hpp"
#include "support/station.hpp"

namespace tolvex::testing {
namespace {

std::vector<Text> heard;

// From before the station opens its database on.
struct Listening
{
    Listening()
    {
        heard.clear();
        listen_to_statements([](const EndedStatement& ended) { heard.emplace_back(ended.sql); });
    }
    ~Listening() { listen_to_statements(nullptr); }
};

class EmbeddedShapes : private Listening, public Station
{
protected:
    static Connection open(const Text& file)
    {
        Connection connection;
        connection.connection_string = u"server=sqlite:;database=" + file;
        connection.open();
        return connection;
    }

    static Text answer(Connection& connection, const Text& sql)
    {
        try {
            return rows_as_text(connection, sql, true);
        } catch (const Error& error) {
            return u"Error: " + error.description();
        }
    }

    void expect_the_same(const Text& sql)
    {
        for (int i = 0; i < 2; ++i)
            EXPECT_EQ(answer(as_it_is_, sql), answer(alone_, nothing + sql)) << to_utf8(sql);
        for (const Text& table : tables) {
            const Text all = nothing + u"Select *,typeof(nTotal) From " + table + u" Order By 1,2,3";
            ASSERT_EQ(answer(as_it_is_, all), answer(alone_, all)) << to_utf8(sql);
        }
    }

    static inline const Text nothing = u"delete from FE_EMPRESAS where 1=0;";
    static inline const std::vector<Text> tables = {
        u"(select *,0 as nTotal from FE_EMPRESAS)",
        u"(select *,0 as nTotal from FE_SUCURSALES)",
        u"(select *,0 as nTotal from FE_CERTIFICADOS)",
        u"(select *,0 as nTotal from FE_FOLIOS)",
        u"FE_VENTAS_RESUMEN",
        u"(select *,nCantidad as nTotal from FE_VENTAS_RESUMEN_DET)",
        u"(select *,nImporteTotal as nTotal from FE_ClienteFactura)"};

    Connection as_it_is_ = open(folder_text() + u"/igual.db");
    Connection alone_ = open(folder_text() + u"/sola.db");
};

TEST_F(EmbeddedShapes, every_statement_of_a_documents_life_does_the_same)
{
    add_layout(u"fe_ctl_adendas", {u"1,0,'Raiz','E',''", u"2,1,'orden','A','7'"});
    for (const Text& kind : {Text(u"ingreso"), Text(u"egreso")}) {
        stage_document();
        ASSERT_TRUE(issue(u"A00" + decimal(kind.size()), kind, true));
    }
    stage_document();
    ASSERT_TRUE(issue_from_counter());
    Text folio;
    genera_docto.fgObtenFolioFactura(u"1", folio);
    genera_docto.CancelaFacturaElectronica(u"A007", Date::of(2011, 4, 1), 1, 1);
    genera_docto.BorraFacturaElectronica(1, 1, u"A006");
    const std::vector<Text> statements = heard;
    ASSERT_GT(statements.size(), 40U);
    for (const Text& sql : statements) expect_the_same(sql);
}

TEST_F(EmbeddedShapes, literals_keep_their_kinds_and_places)
{
    const Text documents = u"insert into FE_VENTAS_RESUMEN(cDocumento,nTotal) ";
    const Text lines = u"insert into FE_VENTAS_RESUMEN_DET(nIdFe,cProducto,nCantidad,nPrecio) ";
    for (const Text& sql : {
             documents + u"values('A''1',116.50)",
             documents + u"values(N'Ñ','12.30')",
             documents + u"values(12.0,-5)",
             documents + u"values(-12.50,-0.30)",
             documents + u"values('A'+'2',1+2)",
             documents + u"values('4',2*3.50)",
             documents + u"values(convert(varchar(10),12.50),cast('7' as decimal(18,2)))",
             documents + u"values('5',.5)",
             documents + u"values('6',5.)",
             documents + u"values('7',1e3)",
             documents + u"values('8',0x1F)",
             lines + u"values(123456789012345678901234567890,1234567890123456789012,1,1)",
             documents + u"values('10',999999999999999999)",
             documents + u"values('11',0.1234567890123456789)",
             documents + u"values('12',2.675),('13','a')",
             documents + u"values('14',1) insert into FE_VENTAS_RESUMEN(cDocumento) values('15')",
             documents + u"values(null,'')",
             documents + u"values('sin cerrar,1)",
             documents + u"values('a' 'b',1)",
             documents + u"values(1,2,3)",
             documents + u"select 'x',1.50 where 1=1",
             lines + u"values(1,'?',1,1)",
             lines + u"values(1,'@nombre',1,1)",
             lines + u"values(@n,'x',1,1)",
             Text(u"update FE_VENTAS_RESUMEN set cSerie='B',nTotal=1.10+2 where cDocumento='4' and 1=1"),
             Text(u"update FE_VENTAS_RESUMEN set nTotal=-1.50 where nTotal=-5"),
             Text(u"select Nombre='Ana',Uno=1,Real=2.50 from FE_VENTAS_RESUMEN where cDocumento=12"),
             Text(u"select 7,'x' from FE_VENTAS_RESUMEN"),
             Text(u"select 'Nombre'=cDocumento from FE_VENTAS_RESUMEN where nTotal = '116.5' order by 1"),
             Text(u"select cDocumento from FE_VENTAS_RESUMEN where nTotal=116.50 order by 1"),
             Text(u"select top 2 cDocumento from FE_VENTAS_RESUMEN where cDocumento like 'A%' order by 1"),
             Text(u"select count(*) as n from FE_VENTAS_RESUMEN where cDocumento='a''1' or cDocumento = '' "),
             Text(u"select case when cDocumento='4' then 1 else 2.50 end as n from FE_VENTAS_RESUMEN"),
             Text(u"select cDocumento from nada where a='1'"),
             Text(u"select cDocumento from FE_VENTAS_RESUMEN where dFecha='2011-03-15' and"),
         })
        expect_the_same(sql);
}

// A result set that is still read keeps what it reads, however many others of its shape there are.
TEST_F(EmbeddedShapes, statements_of_one_shape_run_within_each_other)
{
    const auto folios = [&](const Text& range) {
        return shared_connection(session()).query(u"Select nFolio,cSerie From FE_FOLIOS Where nFolio>=" +
                                                  range + u" And nEmpresa=1 Order By nFolio");
    };
    Text read;
    for (Recordset outer = folios(u"1"); !outer.eof(); outer.move_next()) {
        read += outer[u"nFolio"].text();
        for (Recordset inner = folios(outer[u"nFolio"].text()); !inner.eof(); inner.move_next())
            read += inner[u"cSerie"].text();
        read += u" ";
    }
    EXPECT_EQ(read, u"1ANCB 2NCB 3B ");
}

} // namespace
} // namespace tolvex::testing
