// How a T-SQL text becomes the engine's.
//
// The text is cut into tokens, views into it without blanks and comments, and passes go over them in the
// order of to_sqlite(). No pass builds text or moves a token: it drops tokens, changes what one says, or
// hangs on one what is to be written with it. At the end each token is written as
//
//     [;] before plus(…plus( text after )…) as alias limit n
//
// where ";" is starts_statement, sums_begun and sums_ended count the "plus(" and the ")", and most tokens
// have nothing but their text. Thus
//
//     Select top 1 Nombre=cRfc+'+'+cNombre From dbo.FE_EMPRESAS(nolock) Delete T
//
// becomes
//
//     select plus(plus(cRfc , '+') , cNombre) as Nombre from FE_EMPRESAS limit 1; delete from T
//
// by these tokens, "top 1", "Nombre=", "dbo." and "(nolock)" dropped:
//
//     select       starts_statement
//     cRfc         sums_begun 2
//     ,            was "+"
//     '+'          sums_ended 1
//     ,            was "+"
//     cNombre      sums_ended 1, alias Nombre
//     from
//     FE_EMPRESAS  limit 1
//     delete       starts_statement
//     T            before "from "
//
// Hints and owners go first, so that no later pass takes "T(nolock)" for a call. Statements are divided
// before the selects, which end where the next statement starts. Sums come last: they count on neighbours
// that stay. A literal is one token, and no pass looks into it.
#include "database/embedded/tsql/rewriter.hpp"

#include "database/embedded/tsql/passes.hpp"
#include "database/embedded/tsql/tokenizer.hpp"

namespace tolvex::embedded {

namespace {

Text text_of(const Tokens& tokens, std::size_t expected_size)
{
    Text sql;
    sql.reserve(expected_size);
    for (const Token& token : tokens) {
        if (token.starts_statement && !sql.empty()) sql += u';';
        sql.append(u" ").append(token.before);
        for (int i = 0; i < token.sums_begun; ++i) sql += u"plus(";
        sql.append(token.text).append(token.after).append(token.sums_ended, u')');
        if (!token.alias.empty()) sql.append(u" as ").append(token.alias);
        if (!token.limit.empty()) sql.append(u" limit ").append(token.limit);
    }
    return sql;
}

} // namespace

Text to_sqlite(TextView sql)
{
    Tokens tokens = tokenize(sql);
    drop_hints(tokens);
    drop_owner(tokens);
    remove_dropped(tokens);
    divide_statements(tokens);
    remove_dropped(tokens);
    complete_statements(tokens);
    const Partners partners = partners_of(tokens);
    rewrite_functions(tokens, partners);
    rewrite_selects(tokens, partners);
    remove_dropped(tokens);
    rewrite_sums(tokens);
    return text_of(tokens, sql.size() + 2 * tokens.size());
}

} // namespace tolvex::embedded
