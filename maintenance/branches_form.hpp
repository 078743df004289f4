// Adds or modifies one branch of a company and ties it to one of the company's certificates.
#pragma once

#include "maintenance/edit_form.hpp"

namespace tolvex {

class FrmCatSucursales : public EditForm
{
public:
    using EditForm::EditForm;
    const FormDescription& description() const override;

protected:
    EditPattern pattern() const override;
    void load_lists(FormView& view) override;
};

} // namespace tolvex
