#include "database/embedded/tsql/passes.hpp"

namespace tolvex::embedded {

namespace {

bool changes_rows(const Token& token)
{
    return token.is(u"insert") || token.is(u"update") || token.is(u"delete");
}

bool ends_transaction(const Token& token) { return token.is(u"commit") || token.is(u"rollback"); }

bool opens_statement(const Token& token)
{
    return changes_rows(token) || token.is(u"select") || token.is(u"begin") || ends_transaction(token);
}

// Statements that are over before any verb of another one.
bool is_short(const Token& verb) { return verb.is(u"set") || verb.is(u"begin") || ends_transaction(verb); }

} // namespace

void divide_statements(Tokens& tokens)
{
    Token verb;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        Token& token = tokens[i];
        const bool first = i == 0 || tokens[i - 1].is(u";");
        const bool parts = changes_rows(token) || ends_transaction(token);
        const bool next = is_short(verb) ? opens_statement(token) : parts && opens_statement(verb);
        if (first || next) {
            token.starts_statement = true;
            verb = token;
        }
        if (verb.is(u"set") && !token.is(u";")) drop(token);
    }
}

void complete_statements(Tokens& tokens)
{
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        const Token& verb = tokens[i];
        Token& next = tokens[i + 1];
        if (!verb.starts_statement) continue;
        if (verb.is(u"delete") && !next.is(u"from")) next.before = u"from ";
        if (verb.is(u"insert") && !next.is(u"into")) next.before = u"into ";
        const bool transaction = next.is(u"tran") || next.is(u"transaction");
        if (verb.is(u"begin") && transaction) next.text = u"immediate";
        if (ends_transaction(verb) && transaction) next.text = u"transaction";
    }
}

} // namespace tolvex::embedded
