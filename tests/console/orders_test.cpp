// What orders do to a database, and what they refuse to do.
#include "command.hpp"

#include "support/schema_change.hpp"
#include "support/terminal.hpp"

#include <gmock/gmock.h>

namespace tolvex::testing {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class Orders : public Command
{
protected:
    Outcome on_demo(std::vector<std::string> words)
    {
        words.insert(words.end(), {"--empresa", "1", "--sucursal", "1", "--bd", database});
        return tolvex(words);
    }

    std::string documents()
    {
        return in_shell("sqlite3 " + database + " 'select count(*) from FE_VENTAS_RESUMEN'").output;
    }
};

TEST_F(Orders, an_apostrophe_in_an_argument_reaches_no_statement)
{
    demo();
    const std::string all = "1' Or '1'='1";
    for (const auto& [order, argument] : {std::pair{"borra", "FOLIO"},
                                          {"cancela", "FOLIO"},
                                          {"xml", "FOLIO"},
                                          {"folio", "CLAVE"},
                                          {"imprime", "FOLIO"}}) {
        std::vector<std::string> words{order, all, "--bd", database};
        if (argument == std::string("FOLIO")) words.insert(words.end(), {"--empresa", "1"});
        if (order != std::string("folio") && order != std::string("imprime"))
            words.insert(words.end(), {"--sucursal", "1"});
        const Outcome refused = tolvex(words);
        EXPECT_EQ(refused.exit_code, 2) << order;
        EXPECT_THAT(refused.errors,
                    StartsWith(std::string("tolvex: ") + argument + ": no puede llevar apóstrofos"))
            << order;
    }
    EXPECT_EQ(documents(), "4\n");
    EXPECT_THAT(
        tolvex({"documentos", "--json", "--bd", database, "--serie", all, "--folio", all, "--receptor", all})
            .output,
        "");
}

TEST_F(Orders, borra_tells_what_it_deletes_and_asks_before)
{
    demo();
    const std::string invoice = "  factura 1, serie A, ", receiver = "PEGM800101AB1 María Peña Güemes, ",
                      note = "  nota de crédito 1, serie NC, ";
    const Outcome unasked = on_demo({"borra", "1"});
    EXPECT_EQ(unasked.exit_code, 1);
    EXPECT_THAT(unasked.errors, HasSubstr("agregue --si"));
    EXPECT_THAT(unasked.errors, HasSubstr(invoice));
    const std::string order = TOLVEX_COMMAND " borra 1 --empresa 1 --sucursal 1 --bd " + database;
    const auto answered = [&](const char* answer) {
        return at_terminal(
                   answer, [&] { std::system(("cd " + quoted(path()) + " && " + order).c_str()); }, "[s/N] ")
            .shown;
    };
    EXPECT_THAT(answered("n"), HasSubstr("no se borró nada"));
    EXPECT_EQ(documents(), "4\n");
    const std::string deleted = answered("s");
    EXPECT_THAT(deleted, HasSubstr("Borrados 2 documentos con el folio 1 de la empresa 1, sucursal 1:"));
    for (const std::string& told :
         {invoice, note, receiver + "total 1589.20, cancelada", receiver + "total 290.00, vigente"})
        EXPECT_THAT(deleted, HasSubstr(told));
    EXPECT_THAT(on_demo({"borra", "2", "--si"}).output, StartsWith("Borrado 1 documento con el folio 2 de"));
    EXPECT_EQ(documents(), "1\n");
}

TEST_F(Orders, only_what_makes_a_shop_creates_its_database)
{
    write_file(path() / "tienda.toml", "[[empresa]]\nnombre = 'Ferretería'\nrfc = 'fna010101aaa'\n");
    write_file(path() / "ventas.txt", "");
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{"folio", "1"},
                                               {"conexion"},
                                               {"verifica"},
                                               {"documentos"},
                                               {"emite", "ventas.txt"},
                                               {"lista", "empresas"}}) {
        const Outcome refused = tolvex(words);
        EXPECT_EQ(refused.exit_code, 1) << words[0];
        EXPECT_THAT(refused.errors,
                    HasSubstr("no existe la base de datos " + (path() / "tolvex.db").string()))
            << words[0];
        EXPECT_FALSE(exists(path() / "tolvex.db")) << words[0];
    }
    EXPECT_THAT(tolvex({"diagnostico"}).output, StartsWith("MAL    base de datos: no existe "));
    EXPECT_EQ(tolvex({"esquema", "--crea"}).exit_code, 0);
    EXPECT_EQ(tolvex({"maestros", "tienda.toml", "--bd", "otra.db"}).exit_code, 0);
    EXPECT_TRUE(exists(path() / "tolvex.db") && exists(path() / "otra.db"));
    // A path as it may be written elsewhere is no other file.
    EXPECT_EQ(tolvex({"lista", "empresas", "--bd", "OTRA.DB"}).exit_code, 0);
    EXPECT_FALSE(exists(path() / "OTRA.DB"));
}

TEST_F(Orders, the_database_is_one_file_after_every_order_failed_ones_too)
{
    demo();
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{"emite", sales(1)},
                                               {"emite", sales(1, "DETALLE|mal\n")},
                                               {"emite", "no_hay.txt"},
                                               {"folio", "9"},
                                               {"lista", "folios", "--empresa", "7"},
                                               {"documentos"},
                                               {"verifica", "--desde", "ayer"},
                                               {"diagnostico"}}) {
        std::vector<std::string> order = words;
        order.insert(order.end(), {"--bd", database});
        tolvex(order);
        EXPECT_FALSE(exists(path() / (database + "-wal")) || exists(path() / (database + "-shm")))
            << words[0];
    }
}

} // namespace
} // namespace tolvex::testing
