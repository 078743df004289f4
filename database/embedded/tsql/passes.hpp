// The passes of the rewriter, in the order in which they go over a text's tokens. Each leaves positions as
// they are and takes what it does not understand as it is.
#pragma once

#include "database/embedded/tsql/tokens.hpp"

namespace tolvex::embedded {

// T s(nolock), T with (nolock, rowlock): the engine has no hints.
void drop_hints(Tokens& tokens);

// dbo.T, dbo.f(x)
void drop_owner(Tokens& tokens);

// Marks where statements start: T-SQL needs no ";" between them. Settings (set dateformat ymd) have no
// counterpart and are left out.
void divide_statements(Tokens& tokens);

// Delete T, Insert T, begin tran, commit tran
void complete_statements(Tokens& tokens);

// Functions whose names or arguments the engine would take for something else.
void rewrite_functions(Tokens& tokens, const Partners& partners);

// Alias=expression to expression as Alias; top n to a limit at the end of the select.
void rewrite_selects(Tokens& tokens, const Partners& partners);

// "a + b - c + d" to plus(plus(a,b) - c,d): what "+" means in T-SQL is settled by its operands' values. No
// token may be dropped.
void rewrite_sums(Tokens& tokens);

} // namespace tolvex::embedded
