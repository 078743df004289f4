// Registers one authorised folio range: company, branch or all branches, certificate, kind of document,
// series, approval and numbers.
#pragma once

#include "maintenance/edit_form.hpp"

namespace tolvex {

class FrmCatSerieyFolios : public EditForm
{
public:
    using EditForm::EditForm;
    const FormDescription& description() const override;

protected:
    EditPattern pattern() const override;
    void load_lists(FormView& view) override;
};

} // namespace tolvex
