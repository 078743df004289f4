// Adds or modifies one issuing company.
#pragma once

#include "maintenance/edit_form.hpp"

namespace tolvex {

class FrmCatEmpresas : public EditForm
{
public:
    using EditForm::EditForm;
    const FormDescription& description() const override;

protected:
    EditPattern pattern() const override;
};

} // namespace tolvex
