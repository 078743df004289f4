// A station whose maintenance forms live in memory, a test playing their user.
#pragma once

#include "platform/in_memory/forms_in_memory.hpp"
#include "support/station.hpp"
#include "support/tables.hpp"

namespace tolvex::testing {

class FormsStation : public Station
{
protected:
    FormsStation() { use_toolkit(&toolkit_); }
    ~FormsStation() override { use_toolkit(nullptr); }

    ToolkitInMemory toolkit_;
};

} // namespace tolvex::testing
