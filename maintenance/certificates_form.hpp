// Registers one signing certificate of a company, and its private key.
#pragma once

#include "maintenance/edit_form.hpp"

namespace tolvex {

class FrmCatCertificados : public EditForm
{
public:
    using EditForm::EditForm;
    const FormDescription& description() const override;

protected:
    EditPattern pattern() const override;
};

} // namespace tolvex
