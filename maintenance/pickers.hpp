// The record pickers: a list of the records of one kind, with a tool bar to add one or modify the selected
// one.
#pragma once

#include "maintenance/edit_form.hpp"

namespace tolvex {

// The four kinds. The company is given for all but the companies themselves.
std::unique_ptr<Form> companies_picker(Session& session);
std::unique_ptr<Form> branches_picker(Session& session, std::int16_t company);
std::unique_ptr<Form> certificates_picker(Session& session, std::int16_t company);
std::unique_ptr<Form> folios_picker(Session& session, std::int16_t company);

} // namespace tolvex
