#include "session/session.hpp"

#include "database/errors.hpp"
#include "session/configuracion.hpp"
#include "session/opening.hpp"
#include "support/station.hpp"
#include "support/tables.hpp"

namespace tolvex::testing {
namespace {

using SessionTest = Station;

TEST_F(SessionTest, connection_data_are_kept_as_given_and_used_at_the_next_opening_only)
{
    ConfigFE().SetDatosConexion(u" sa ", u"cla;ve", u"otra.db", u"SERVIDOR\\SQL");
    const Session& s = session();
    EXPECT_EQ(s.gUserBd + u"|" + s.gPswBd + u"|" + s.gBd + u"|" + s.gServerBd,
              u" sa |cla;ve|otra.db|SERVIDOR\\SQL");
    EXPECT_EQ(count(u"FE_FOLIOS"), 3); // still connected to the station's database
    EXPECT_EQ(connection_string({u" sa ", u"cla;ve", u"ventas", u"SRV"}),
              u"uid= sa ;pwd=cla;ve;driver={SQL Server};server=SRV;database=ventas");
}

TEST_F(SessionTest, opening_an_open_connection_opens_it_anew)
{
    const Connection* before = session().gConexion.get();
    ConfigFE().SetDatosConexion(u"", u"", folder_text() + u"/otra.db", u"sqlite:");
    EXPECT_TRUE(ConfigFE().AbrirConexion());
    EXPECT_EQ(session().gConexion.get(), before);
    EXPECT_EQ(session().gConexion->command_timeout, 360);
    EXPECT_EQ(count(u"FE_FOLIOS"), 0);
}

TEST_F(SessionTest, a_failed_opening_reaches_the_host_and_leaves_the_connection_closed)
{
    ConfigFE().SetDatosConexion(u"", u"", folder_text() + u"/no hay/tolvex.db", u"sqlite:");
    EXPECT_EQ(error_number([] { ConfigFE().AbrirConexion(); }), database_error);
    EXPECT_EQ(error_number([&] { count(u"FE_FOLIOS"); }), numbers::connection_closed);
}

TEST_F(SessionTest, closing_never_fails)
{
    EXPECT_TRUE(ConfigFE().CierraConexion());
    EXPECT_TRUE(ConfigFE().CierraConexion());
    session() = Session();
    EXPECT_TRUE(ConfigFE().CierraConexion()); // before any connection existed
    EXPECT_TRUE(session().gConexion);
    GeneraDocto().Main();
}

TEST_F(SessionTest, the_value_of_a_query_is_that_of_its_first_row_or_null)
{
    const Text ranges = u"Select nFolio,cSerie From FE_FOLIOS(nolock) Where nFolio>=";
    EXPECT_EQ(fgValorCampo(session(), u"CSERIE", ranges + u"2 Order By nFolio").text(), u"NC");
    EXPECT_TRUE(fgValorCampo(session(), u"cSerie", ranges + u"9").is_null());
    EXPECT_EQ(error_number([&] { fgValorCampo(session(), u"cOtra", ranges + u"1"); }),
              numbers::no_such_column);
}

} // namespace
} // namespace tolvex::testing
