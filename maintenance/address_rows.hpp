// The rows of a fiscal address, the same in the forms of companies and branches.
#pragma once

#include "maintenance/edit_form.hpp"

namespace tolvex {

// Street to country, postal code, telephone and tax identity.
std::vector<Row> address_rows();

// Where each is shown, and what it is saved from; the saved ones in the order of the columns.
std::vector<ShownColumn> shown_address();
std::vector<SavedColumn> saved_address();

} // namespace tolvex
