#include "support/station.hpp"
#include "support/tables.hpp"

namespace tolvex::testing {
namespace {

class StoredDocuments : public Station
{
protected:
    StoredDocuments()
    {
        // 1: invoice 15, 2: credit note 15, 3: invoice 16, 4: invoice 15 of another branch.
        for (const TextView row :
             {u"1,'15','F',1,1", u"2,'15','N',1,1", u"3,'16','F',1,1", u"4,'15','F',1,2"})
            execute(u"Insert Into "
                    u"FE_VENTAS_RESUMEN(nID,cDocumento,cTipoDocumento,nEmpresa,nSucursal,cStatus) Values(" +
                    Text(row) + u",'A')");
        execute(u"Insert Into FE_ClienteFactura(nidFE) Select nID From FE_VENTAS_RESUMEN");
        for (int line = 0; line < 2; ++line)
            execute(u"Insert Into FE_VENTAS_RESUMEN_DET(nIdFe) Select nID From FE_VENTAS_RESUMEN");
    }

    // Identifiers of a table's rows, joined by blanks.
    Text ids(const Text& table, const Text& condition = u"1=1")
    {
        const Text column = table == u"FE_VENTAS_RESUMEN" ? u"nID" : u"nIdFe";
        Text list;
        for (Recordset rows = shared_connection(session()).query(
                 u"Select " + column + u" From " + table + u" Where " + condition + u" Order By " + column);
             !rows.eof(); rows.move_next())
            list += (list.empty() ? u"" : u" ") + rows.value(0).text();
        return list;
    }
};

TEST_F(StoredDocuments, cancelling_marks_the_one_kind_with_the_day_alone)
{
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"15", Date::of(2011, 12, 31, 23, 59), 1, 1));
    EXPECT_EQ(ids(u"FE_VENTAS_RESUMEN", u"cStatus='C'"), u"1");
    EXPECT_EQ(answer(u"Select dFechaCan From FE_VENTAS_RESUMEN Where nID=1").date(), Date::of(2011, 12, 31));
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"15", Date::of(2011, 12, 31), 1, 1, true));
    EXPECT_EQ(ids(u"FE_VENTAS_RESUMEN", u"cStatus='C'"), u"1 2");
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"15", Date::of(2011, 12, 31), 1, 2));
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"16", Date::of(2011, 12, 31), 2, 1));
    EXPECT_EQ(ids(u"FE_VENTAS_RESUMEN", u"cStatus='C'"), u"1 2 4");
}

TEST_F(StoredDocuments, cancelling_what_does_not_exist_or_is_cancelled_is_true)
{
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"99", Date::of(2011, 1, 1), 1, 1));
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"15", Date::of(2011, 1, 1), 1, 1));
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"15", Date::of(2011, 1, 2), 1, 1));
    EXPECT_EQ(ids(u"FE_VENTAS_RESUMEN", u"cStatus='C'"), u"1");
}

TEST_F(StoredDocuments, deleting_takes_both_kinds_with_their_receivers_and_lines)
{
    EXPECT_TRUE(genera_docto.BorraFacturaElectronica(1, 1, u"15"));
    EXPECT_EQ(ids(u"FE_VENTAS_RESUMEN"), u"3 4");
    EXPECT_EQ(ids(u"FE_ClienteFactura"), u"3 4");
    EXPECT_EQ(ids(u"FE_VENTAS_RESUMEN_DET"), u"3 3 4 4");
    EXPECT_TRUE(genera_docto.BorraFacturaElectronica(1, 1, u"15")); // nothing left
    EXPECT_TRUE(genera_docto.BorraFacturaElectronica(2, 1, u"16"));
    EXPECT_TRUE(genera_docto.BorraFacturaElectronica(1, 2, u"15"));
    EXPECT_EQ(ids(u"FE_VENTAS_RESUMEN"), u"3");
}

TEST_F(StoredDocuments, a_statement_that_fails_is_false_and_keeps_what_ran_before_it)
{
    EXPECT_FALSE(genera_docto.CancelaFacturaElectronica(u"O'Hara", Date::of(2011, 1, 1), 1, 1));
    EXPECT_FALSE(genera_docto.CancelaFacturaElectronica(u"15", Date{1e9}, 1, 1));
    EXPECT_FALSE(genera_docto.BorraFacturaElectronica(1, 1, u"O'Hara"));
    EXPECT_EQ(ids(u"FE_VENTAS_RESUMEN", u"cStatus='A'"), u"1 2 3 4");
    execute(u"Alter Table FE_VENTAS_RESUMEN_DET Rename To otra");
    EXPECT_FALSE(genera_docto.BorraFacturaElectronica(1, 1, u"15"));
    EXPECT_EQ(ids(u"FE_ClienteFactura"), u"3 4");
    EXPECT_EQ(ids(u"FE_VENTAS_RESUMEN"), u"1 2 3 4");
    EXPECT_TRUE(messages.empty());
}

TEST_F(StoredDocuments, the_folio_lookup_tells_the_next_folio_without_taking_it)
{
    for (const auto& [range, available, folio] :
         {std::tuple{u"1", true, u"1"}, {u"2", true, u"8"}, {u"3", false, u"0"}, {u"9", false, u"0"}}) {
        Text next = u"antes";
        EXPECT_EQ(genera_docto.fgObtenFolioFactura(range, next), available) << to_utf8(range);
        EXPECT_EQ(next, folio) << to_utf8(range);
    }
    execute(u"Update FE_FOLIOS Set nUltimoFolio=99 Where nFolio=2");
    Text next;
    EXPECT_TRUE(genera_docto.fgObtenFolioFactura(u"2", next)); // the last one
    EXPECT_TRUE(genera_docto.fgObtenFolioFactura(u"2", next));
    EXPECT_EQ(next, u"100");
    execute(u"Update FE_FOLIOS Set nUltimoFolio=123456788, nHasta=2147483647 Where nFolio=2");
    EXPECT_TRUE(genera_docto.fgObtenFolioFactura(u"2", next));
    EXPECT_EQ(next, u"123456789");
}

TEST_F(StoredDocuments, an_error_of_the_folio_lookup_reaches_the_host)
{
    Text next = u"antes";
    EXPECT_NE(error_number([&] { genera_docto.fgObtenFolioFactura(u"1'", next); }), 0);
    EXPECT_EQ(next, u"0");
}

} // namespace
} // namespace tolvex::testing
