// Registers one signing certificate of a company, and its private key.
#pragma once

#include "maintenance/edit_form.hpp"

namespace tolvex {

class FrmCatCertificados : public EditForm
{
public:
    using EditForm::EditForm;
    const FormDescription& description() const override;
    void load(FormView& view) override;
    void unload(FormView& view) override;

protected:
    EditPattern pattern() const override;
    void load_lists(FormView& view) override;
    void other_clicked(FormView& view, TextView control) override;

private:
    void choose_certificate(FormView& view);
    void choose_key(FormView& view);
    void ProcesaCertificado(FormView& view, const Text& certificate, const Text& title);
    void ProcesaLlave(FormView& view, const Text& key);

    Text title_; // of the certificate converted last: its file's name
};

} // namespace tolvex
