// Values for the receiver's addenda of the document being staged, keyed by node and parent node.
#pragma once

#include "session/session.hpp"

namespace tolvex {

// Each appends one value; nothing is clipped. They throw Error 6 past the largest 32-bit count.
void stage_addenda(Session& session, const Text& cRfcCte, std::int16_t nRama, std::int16_t nPadre,
                   const Text& cValor);
void stage_line_addenda(Session& session, std::int32_t nRenglon, const Text& cRfcCte, std::int16_t nRama,
                        std::int16_t nPadre, const Text& cValor);
// Header and line values together.
void empty_addenda(Session& session);

} // namespace tolvex
