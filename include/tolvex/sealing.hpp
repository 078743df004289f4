// What computes the seals of documents.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// The openssl program, as documented, or this process: the same bytes without programs to start, for whoever
// issues thousands of documents.
enum class Sealing
{
    openssl_program,
    in_process
};
// Of the documents issued from now on; the program at first.
TOLVEX_API void set_sealing(Sealing sealing);

} // namespace tolvex
