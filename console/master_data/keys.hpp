// The keys of a file of master data and the controls of the forms that they fill.
#pragma once

#include "tolvex/types.hpp"

#include <string>
#include <vector>

namespace tolvex::console {

struct KeyOfControl
{
    const char* key;
    TextView control;
};

std::vector<KeyOfControl> company_controls();
std::vector<KeyOfControl> certificate_controls();
std::vector<KeyOfControl> branch_controls();
std::vector<KeyOfControl> folio_controls();

// All keys that a record may carry: those of its controls, "numero", and of a certificate its files.
std::vector<std::string> company_keys();
std::vector<std::string> certificate_keys();
std::vector<std::string> branch_keys();
std::vector<std::string> folio_keys();

} // namespace tolvex::console
