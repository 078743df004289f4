// The list of documents, for persons and for programs.
#include "command.hpp"

#include "console/csv.hpp"
#include "console/json.hpp"
#include "support/schema_change.hpp"

#include <gmock/gmock.h>

namespace tolvex::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class Documents : public Command
{
protected:
    // What is printed of the demonstration's documents with these options.
    std::string listed(std::vector<std::string> options)
    {
        options.insert(options.begin(), {"documentos", "--bd", database});
        const Outcome outcome = tolvex(options);
        EXPECT_EQ(outcome.exit_code, 0) << outcome.errors;
        return outcome.output;
    }

    void in_database(const std::string& sql) { in_sqlite(to_text((path() / database).string()), sql); }
};

TEST_F(Documents, are_chosen_by_what_is_known_of_them)
{
    demo();
    in_database("update FE_VENTAS_RESUMEN set dFecha='2011-03-15 23:59:59' where cDocumento='2';"
                "update FE_VENTAS_RESUMEN set nSucursal=2 where cDocumento='3'");
    struct Case
    {
        std::vector<std::string> options;
        std::vector<std::string> folios;
    };
    for (const auto& [options, folios] :
         std::initializer_list<Case>{{{}, {"A1", "A2", "NC1", "A3"}},
                                     {{"--serie", "nc"}, {"NC1"}},
                                     {{"--folio", "1"}, {"A1", "NC1"}},
                                     {{"--estado", "cancelada"}, {"A1"}},
                                     {{"--estado", "vigente", "--serie", "A"}, {"A2", "A3"}},
                                     {{"--desde", "2011-03-15", "--hasta", "2011-03-15"}, {"A2"}},
                                     {{"--hasta", "2011-03-14"}, {}},
                                     {{"--receptor", "CONSULTORIA nandu"}, {"A2"}},
                                     {{"--receptor", "pegm8"}, {"A1", "NC1"}},
                                     {{"--receptor", "%"}, {}},
                                     {{"--empresa", "1", "--sucursal", "2"}, {"A3"}},
                                     {{"--empresa", "2"}, {}}}) {
        std::vector<std::string> order = options;
        order.emplace_back("--csv");
        std::string expected;
        for (const std::string& folio : folios) expected += folio + "\n";
        write_file(path() / "lista.csv", listed(order));
        EXPECT_EQ(in_shell("tail -n +2 lista.csv | awk -F, '{print $4 $5}'").output, expected)
            << ::testing::PrintToString(options);
    }
}

TEST_F(Documents, are_told_whole_to_programs)
{
    demo();
    in_database("update FE_VENTAS_RESUMEN set dFecha='2011-03-15 14:05:09', dFechaCan='2011-04-01';"
                "update FE_ClienteFactura set cNombreCte='Peña \"La Güera\", 1\\2'||char(10)");
    EXPECT_EQ(listed({"--json", "--folio", "1", "--serie", "A"}),
              R"({"empresa":1,"sucursal":1,"tipo":"factura","serie":"A","folio":"1",)"
              R"("fecha":"2011-03-15 14:05:09","rfc":"PEGM800101AB1","receptor":"Peña \"La Güera\", 1\\2\n",)"
              R"("subtotal":1370.00,"iva":219.20,"total":1589.20,"moneda":"PESOS","estado":"cancelada",)"
              R"("cancelada":"2011-04-01"})"
              "\n");
    EXPECT_EQ(
        listed({"--csv", "--serie", "NC"}),
        "empresa,sucursal,tipo,serie,folio,fecha,rfc,receptor,subtotal,iva,total,moneda,estado,cancelada\r\n"
        "1,1,nota de crédito,NC,1,2011-03-15 14:05:09,PEGM800101AB1,\"Peña \"\"La Güera\"\", 1\\2\n\","
        "250.00,40.00,290.00,PESOS,vigente,2011-04-01\r\n");
}

TEST_F(Documents, whose_rows_are_not_whole_are_told_as_far_as_they_go)
{
    demo();
    in_database(
        "delete from FE_ClienteFactura; update FE_VENTAS_RESUMEN set nTotal=Null, dFecha='ayer', nSucursal='x'");
    EXPECT_THAT(
        listed({"--json", "--serie", "NC"}),
        HasSubstr(R"("sucursal":"x","tipo":"nota de crédito","serie":"NC","folio":"1","fecha":"ayer",)"
                  R"("rfc":null,"receptor":null,"subtotal":250.00,"iva":40.00,"total":null)"));
}

// More than are read at a time.
TEST_F(Documents, by_the_thousand_are_all_listed_once)
{
    demo();
    in_database("insert into FE_VENTAS_RESUMEN(cDocumento,cTipoDocumento,nEmpresa,nSucursal,cSerie,cStatus)"
                " with recursive n(i) as (select 1 union all select i+1 from n where i<1500)"
                " select i,'F',1,1,'M','A' from n");
    write_file(path() / "tabla", listed({}));
    EXPECT_EQ(in_shell("wc -l < tabla").output, "1505\n");
    EXPECT_EQ(in_shell("awk '$4==\"M\" {print $5}' tabla | sort -un | wc -l").output, "1500\n");
    EXPECT_EQ(in_shell("grep -c '^empresa  sucursal' tabla").output, "1\n");
}

TEST(Json, texts_are_escaped_as_far_as_they_must)
{
    using console::json_text;
    EXPECT_EQ(json_text(""), R"("")");
    EXPECT_EQ(json_text("Ñandú 😀 / '\x7F'"), "\"Ñandú 😀 / '\x7F'\"");
    EXPECT_EQ(json_text("\" \\ \b\f\n\r\t"), R"("\" \\ \b\f\n\r\t")");
    EXPECT_EQ(json_text(std::string("\0\x1B\x1F", 3)), R"("\u0000\u001b\u001f")");
}

TEST(Json, numbers_stand_as_they_are_and_what_is_none_as_a_text)
{
    for (const char* number : {"0", "-1", "12.50", "-0.05"}) EXPECT_EQ(console::json_number(number), number);
    for (const char* text : {"", "-", "007", ".5", "1.", "1,000.00", "1.2.3", "x"})
        EXPECT_EQ(console::json_number(text), std::string("\"") + text + "\"");
}

TEST(Csv, fields_are_quoted_where_they_must)
{
    EXPECT_EQ(console::csv_record({"a", "", "b c", "1,5", "\"x\"", "y\nz"}),
              "a,,b c,\"1,5\",\"\"\"x\"\"\",\"y\nz\"\r\n");
}

} // namespace
} // namespace tolvex::testing
