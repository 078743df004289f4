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
            execute(u"Insert Into FE_VENTAS_RESUMEN(nID,cDocumento,cTipoDocumento,nEmpresa,nSucursal,cStatus)"
                    u" Values(" +
                    Text(row) + u",'A')");
        execute(u"Insert Into FE_ClienteFactura(nidFE) Select nID From FE_VENTAS_RESUMEN");
        for (int line = 0; line < 2; ++line)
            execute(u"Insert Into FE_VENTAS_RESUMEN_DET(nIdFe) Select nID From FE_VENTAS_RESUMEN");
    }

    // Documents that are cancelled, with the day.
    Text cancelled()
    {
        return rows(u"Select nID,dFechaCan From FE_VENTAS_RESUMEN Where cStatus='C' Order By nID");
    }
    Text documents() { return rows(u"Select nID From FE_VENTAS_RESUMEN Order By nID"); }
    Text receivers() { return rows(u"Select nidFE From FE_ClienteFactura Order By nidFE"); }
};

TEST_F(StoredDocuments, cancelling_marks_the_one_kind_with_the_day_alone_and_is_true_for_none)
{
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"15", Date::of(2011, 12, 31, 23, 59), 1, 1));
    EXPECT_EQ(cancelled(), u"1|2011-12-31 00:00:00");
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"15", Date::of(2011, 1, 2), 1, 1, true));
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"15", Date::of(2011, 1, 3), 1, 2));
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"15", Date::of(2011, 1, 4), 1, 1)); // again
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"16", Date::of(2011, 1, 5), 2, 1));
    EXPECT_TRUE(genera_docto.CancelaFacturaElectronica(u"99", Date::of(2011, 1, 6), 1, 1));
    EXPECT_EQ(cancelled(), u"1|2011-01-04 00:00:00/2|2011-01-02 00:00:00/4|2011-01-03 00:00:00");
}

TEST_F(StoredDocuments, deleting_takes_both_kinds_with_their_receivers_and_lines)
{
    EXPECT_TRUE(genera_docto.BorraFacturaElectronica(1, 1, u"15"));
    EXPECT_EQ(documents(), u"3/4");
    EXPECT_EQ(receivers(), u"3/4");
    EXPECT_EQ(rows(u"Select nIdFe From FE_VENTAS_RESUMEN_DET Order By nIdFe"), u"3/3/4/4");
    EXPECT_TRUE(genera_docto.BorraFacturaElectronica(1, 1, u"15")); // nothing left
    EXPECT_TRUE(genera_docto.BorraFacturaElectronica(2, 1, u"16"));
    EXPECT_TRUE(genera_docto.BorraFacturaElectronica(1, 2, u"15"));
    EXPECT_EQ(documents(), u"3");
}

TEST_F(StoredDocuments, a_statement_that_fails_is_false_and_keeps_what_ran_before_it)
{
    EXPECT_FALSE(genera_docto.CancelaFacturaElectronica(u"O'Hara", Date::of(2011, 1, 1), 1, 1));
    EXPECT_FALSE(genera_docto.CancelaFacturaElectronica(u"15", Date{1e9}, 1, 1));
    EXPECT_FALSE(genera_docto.BorraFacturaElectronica(1, 1, u"O'Hara"));
    EXPECT_EQ(cancelled(), u"");
    change_schema(u"Alter Table FE_VENTAS_RESUMEN_DET Rename To otra");
    EXPECT_FALSE(genera_docto.BorraFacturaElectronica(1, 1, u"15"));
    EXPECT_EQ(receivers(), u"3/4");
    EXPECT_EQ(documents(), u"1/2/3/4");
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
    EXPECT_TRUE(genera_docto.fgObtenFolioFactura(u"2", next));
    EXPECT_EQ(next, u"100"); // the last one
    execute(u"Update FE_FOLIOS Set nUltimoFolio=123456788, nHasta=2147483647 Where nFolio=2");
    EXPECT_TRUE(genera_docto.fgObtenFolioFactura(u"2", next));
    EXPECT_EQ(next, u"123456789");
    EXPECT_NE(error_number([&] { genera_docto.fgObtenFolioFactura(u"1'", next); }), 0); // reaches the host
    EXPECT_EQ(next, u"0");
}

} // namespace
} // namespace tolvex::testing
