#include "staging/addenda.hpp"

#include "core/numbers.hpp"
#include "staging/staged_rows.hpp"

namespace tolvex {

void stage_addenda(Session& session, const Text& cRfcCte, std::int16_t nRama, std::int16_t nPadre,
                   const Text& cValor)
{
    add_row(session.gAddenda, session.gNumAddenda) = {cRfcCte, decimal(nRama), decimal(nPadre), cValor};
}

// Deliberate: the line number, first of the parameters, is the last field.
void stage_line_addenda(Session& session, std::int32_t nRenglon, const Text& cRfcCte, std::int16_t nRama,
                        std::int16_t nPadre, const Text& cValor)
{
    add_row(session.gAddendaDet, session.gNumAddendaDet) = {cRfcCte, decimal(nRama), decimal(nPadre), cValor,
                                                            decimal(nRenglon)};
}

void empty_addenda(Session& session)
{
    empty_rows(session.gAddenda, session.gNumAddenda);
    empty_rows(session.gAddendaDet, session.gNumAddendaDet);
}

} // namespace tolvex
