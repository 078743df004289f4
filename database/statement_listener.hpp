// Who hears of every statement that the system runs: the log, while one is kept.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

struct EndedStatement
{
    TextView sql;
    std::int64_t milliseconds;
    TextView failure; // empty when it ended well
};

using StatementListener = void (*)(const EndedStatement&);

// One for the process; null for none, as at first.
void listen_to_statements(StatementListener one);

} // namespace tolvex
