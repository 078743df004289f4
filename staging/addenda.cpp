#include "staging/staged_rows.hpp"
#include "tolvex/tolvex.hpp"

namespace tolvex {

void Addenda::SetAddenda(const Text& cRfcCte, std::int16_t nRama, std::int16_t nPadre, const Text& cValor)
{
    auto& row = add_row<4>(session().gAddenda, session().gNumAddenda);
    row[1] = cRfcCte;
    row[2] = decimal(nRama);
    row[3] = decimal(nPadre);
    row[4] = cValor;
}

void Addenda::InicializaAddenda()
{
    empty_rows<4>(session().gAddenda, session().gNumAddenda);
    empty_rows<5>(session().gAddendaDet, session().gNumAddendaDet);
}

void Addenda::SetAddendaDet(std::int32_t nRenglon, const Text& cRfcCte, std::int16_t nRama,
                            std::int16_t nPadre, const Text& cValor)
{
    auto& row = add_row<5>(session().gAddendaDet, session().gNumAddendaDet);
    row[1] = cRfcCte;
    row[2] = decimal(nRama);
    row[3] = decimal(nPadre);
    row[4] = cValor;
    row[5] = decimal(nRenglon); // Deliberate: first parameter, last field.
}

} // namespace tolvex
