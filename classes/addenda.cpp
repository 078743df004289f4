#include "staging/addenda.hpp"

#include "classes/call.hpp"
#include "tolvex/classes.hpp"

namespace tolvex {

void Addenda::SetAddenda(const Text& cRfcCte, std::int16_t nRama, std::int16_t nPadre, const Text& cValor)
{
    stage_addenda(begin_call(), cRfcCte, nRama, nPadre, cValor);
}

void Addenda::InicializaAddenda() { empty_addenda(begin_call()); }

void Addenda::SetAddendaDet(std::int32_t nRenglon, const Text& cRfcCte, std::int16_t nRama,
                            std::int16_t nPadre, const Text& cValor)
{
    stage_line_addenda(begin_call(), nRenglon, cRfcCte, nRama, nPadre, cValor);
}

} // namespace tolvex
