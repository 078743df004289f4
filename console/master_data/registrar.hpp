// Registers master data through the forms themselves, played by a program: their loads, checks, numbering and
// messages are those of the windows.
#pragma once

#include "console/master_data/entries.hpp"
#include "console/master_data/keys.hpp"
#include "maintenance/edit_form.hpp"
#include "platform/in_memory/forms_in_memory.hpp"

namespace tolvex::console {

// A certificate's files, as a user would choose them in its form. The key's password is asked by openssl.
struct CertificateFiles
{
    Text certificate, key, seal_folder;
};

class Registrar
{
public:
    // Messages of the forms are answered and, but for those of success, kept and printed on standard error.
    explicit Registrar(Session& session);
    ~Registrar();
    Registrar(const Registrar&) = delete;

    // Each adds or, when it is there already, modifies a record and gives its number. Throws Error 5 with
    // what the form said when it was not saved.
    std::int16_t save_company(const Entry& entry);
    std::int16_t save_certificate(std::int16_t company, const Entry& entry, const CertificateFiles& files);
    std::int16_t save_branch(std::int16_t company, const Entry& entry);
    std::int16_t save_folio_range(std::int16_t company, const Entry& entry);

private:
    void fill(FormInMemory& form, const std::vector<KeyOfControl>& controls, const Entry& entry);
    void require_open(const FormInMemory& form);
    void save(FormInMemory& form, TextView save_button);
    Text number_of_certificate(std::int16_t company, const CertificateFiles& files);
    void choose_certificate(FormInMemory& form, const CertificateFiles& files);

    Session& session_;
    ToolkitInMemory toolkit_;
    std::vector<Text> complaints_; // of the forms, since the last save
};

} // namespace tolvex::console
