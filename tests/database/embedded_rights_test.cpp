// What a customer's name can do to an embedded database: nothing but spoil its own statement.
#include "support/station.hpp"
#include "support/tables.hpp"

#include <gmock/gmock.h>

namespace tolvex::testing {
namespace {

using ::testing::HasSubstr;

class EmbeddedRights : public Station
{
protected:
    // Every table, view, trigger and index, and the rows of two tables that names would like to change.
    Text state()
    {
        return rows(u"Select name,sql From sqlite_master Order By name") +
               rows(u"Select nFolio,cSerie From FE_FOLIOS Order By nFolio") +
               rows(u"Select name,seq From sqlite_sequence");
    }

    Text other_file() const { return folder_text() + u"/otra.db"; }
};

TEST_F(EmbeddedRights, a_name_that_carries_statements_gets_none_of_them_through)
{
    stage_document();
    ASSERT_TRUE(issue());
    const Text before = state();
    for (const Text& statement :
         {Text(u"drop table FE_FOLIOS"),
          Text(u"alter table FE_FOLIOS rename to otra"),
          Text(u"create trigger espia after insert on FE_FOLIOS begin delete from FE_FOLIOS; end"),
          Text(u"create temp trigger espia after insert on FE_FOLIOS begin delete from FE_FOLIOS; end"),
          Text(u"create view espia as select * from FE_FOLIOS"),
          Text(u"create virtual table espia using fts5(a)"),
          Text(u"create table espia(a)"),
          Text(u"create index espia on FE_FOLIOS(nFolio)"),
          Text(u"drop index FE_ClienteFactura_documento"),
          Text(u"reindex"),
          Text(u"analyze"),
          Text(u"vacuum"),
          u"vacuum into '" + other_file() + u"'",
          u"attach '" + other_file() + u"' as otra",
          Text(u"detach main"),
          Text(u"pragma writable_schema=on"),
          Text(u"pragma synchronous=off"),
          Text(u"select * from pragma_table_info('FE_FOLIOS')"),
          Text(u"update sqlite_master set sql='' where name='FE_FOLIOS'"),
          Text(u"delete from sqlite_sequence"),
          Text(u"select load_extension('espia')")}) {
        EXPECT_THAT(database_failure([&] {
                        execute(u"Update FE_EMPRESAS Set cNombre='O'; " + statement +
                                u"; --' Where nEmpresa=1");
                    }),
                    HasSubstr("sólo admite consultar, agregar, cambiar y borrar registros"))
            << to_utf8(statement);
        EXPECT_EQ(state(), before) << to_utf8(statement);
    }
    EXPECT_FALSE(exists("otra.db"));
}

TEST_F(EmbeddedRights, a_receiver_with_such_a_name_is_not_issued_and_says_why)
{
    Receiver receiver;
    receiver.vlDatoAdicional = u"x'; drop table FE_FOLIOS; --";
    stage_document(receiver);
    EXPECT_FALSE(issue());
    EXPECT_THAT(to_utf8(last_error()), HasSubstr("apóstrofos"));
    EXPECT_EQ(count(u"FE_FOLIOS"), 3);
}

TEST_F(EmbeddedRights, the_systems_own_words_work_in_views_and_every_reading_statement_passes)
{
    change_schema(u"create view empresas as select len(cRfc) as nLargo from FE_EMPRESAS");
    EXPECT_EQ(rows(u"Select nLargo From empresas"), u"12");
    EXPECT_EQ(rows(u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 3) "
                   u"Select sum(i), dbo.fg_Numero2Letra(max(i), 'PESOS') from n"),
              u"6|TRES PESOS 00/100 M.N.");
    execute(u"savepoint uno; delete from FE_FOLIOS; rollback to uno; release uno");
    EXPECT_EQ(count(u"FE_FOLIOS"), 3);
}

} // namespace
} // namespace tolvex::testing
