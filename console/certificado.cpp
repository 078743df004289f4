#include "console/command.hpp"
#include "console/master_data/registrar.hpp"
#include "console/output.hpp"
#include "core/numbers.hpp"
#include "platform/files.hpp"

namespace tolvex::console {

namespace {

class Certificado : public Command
{
public:
    const char* name() const override { return "certificado"; }
    const char* purpose() const override
    {
        return "Registra un certificado con su llave; openssl pide la contraseña de la llave";
    }
    const char* example() const override
    {
        return "tolvex certificado --empresa 1 --cer sello.cer --key sello.key --carpeta-sello . --bd tienda.db";
    }

    void declare(Options& options) override
    {
        options.required("--empresa", company_, "Número de la empresa");
        options.required("--cer", certificate_, "Archivo del certificado (.cer)");
        options.required("--key", key_, "Archivo de la llave privada (.key)");
        options.required("--carpeta-sello", folder_, "Carpeta donde queda pkey.key.pem para sellar");
        options.option("--descripcion", description_, "Descripción del certificado");
    }

    int run(const Place& place) override
    {
        connect(place, company_);
        Entry entry;
        if (!description_.empty()) entry.values["descripcion"] = to_text(description_);
        const auto absolute = [](const std::string& path) { return files::absolute_path(to_text(path)); };
        const std::int16_t number = Registrar(session()).save_certificate(
            company_, entry, {absolute(certificate_), absolute(key_), absolute(folder_)});
        print_line(u"Certificado " + decimal(number) + u" de la empresa " + decimal(company_));
        return 0;
    }

private:
    std::int16_t company_ = 0;
    std::string certificate_, key_, folder_, description_;
};

} // namespace

std::unique_ptr<Command> certificado_command() { return std::make_unique<Certificado>(); }

} // namespace tolvex::console
