#include "diagnosis/working_folder.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "issuing/seal.hpp"
#include "issuing/xml_files.hpp"
#include "platform/batch_runner.hpp"
#include "platform/files.hpp"

#include <cmath>

namespace tolvex {

namespace {

constexpr std::uint64_t megabyte = 1u << 20;
constexpr std::uint64_t too_little_space = 10 * megabyte, little_space = 500 * megabyte;

constexpr TextView install_openssl = u"; instálelo, o ponga el programa en la carpeta de trabajo",
                   convert_key = u"; déjela allí con «tolvex certificado» o la ventana de certificados";

Text in_words(std::uint64_t bytes)
{
    const double megabytes = static_cast<double>(bytes) / megabyte;
    if (megabytes < 1024) return decimal(std::llround(megabytes)) + u" MB";
    return number_as_text(std::round(megabytes / 102.4) / 10) + u" GB";
}

// A file of the trial, gone at its end. Its name is nobody else's.
class TrialFile
{
public:
    TrialFile(const Text& folder, TextView ending) : path_(folder + u"\\tolvex_prueba" + Text(ending)) {}
    ~TrialFile()
    {
        quietly([&] { files::remove_if_there(path_); });
    }
    TrialFile(const TrialFile&) = delete;

    const Text& path() const { return path_; }
    void write(std::string_view bytes) const { files::write_anew(path_, bytes); }
    // Empty when it is not there.
    std::string read() const { return files::exists(path_) ? files::read(path_) : std::string(); }

private:
    const Text path_;
};

class FolderDiagnosis
{
public:
    FolderDiagnosis(const Text& folder, const Sealer& sealer, const Tell& tell)
        : folder_(folder), sealer_(sealer), tell_(tell)
    {}

    void run();

private:
    bool is_usable();
    void look_at_space();
    bool look_at_openssl();
    bool look_at_key();
    void look_at_seal();
    // Runs openssl there as an issue does, with no window; whether it ended well.
    bool openssl(const Text& arguments) const;
    void tell(Verdict verdict, const Text& about, const Text& what) const { tell_({verdict, about, what}); }

    const Text& folder_;
    const Sealer& sealer_;
    const Tell& tell_;
};

void FolderDiagnosis::run()
{
    if (!is_usable()) return;
    look_at_space();
    const bool seals = look_at_openssl(), has_key = look_at_key();
    if (seals && has_key) look_at_seal();
}

bool FolderDiagnosis::is_usable()
{
    const Text about = u"carpeta " + files::native_path(folder_);
    if (!files::folder_exists(folder_)) {
        tell(Verdict::wrong, about, u"no existe; créela, o indique la de trabajo con --carpeta");
        return false;
    }
    try {
        require_batch_folder(folder_);
        TrialFile(folder_, u".tmp").write("x");
        if (const Text facturas = facturas_path(folder_); files::folder_exists(facturas))
            TrialFile(facturas, u".tmp").write("x");
        tell(Verdict::well, about, u"se puede escribir en ella");
        return true;
    } catch (const Error& error) {
        tell(Verdict::wrong, about, error.description());
        return false;
    }
}

void FolderDiagnosis::look_at_space()
{
    const std::uint64_t space = files::free_space(folder_);
    const Text what = u"quedan " + in_words(space) + u" libres";
    if (space >= little_space) return tell(Verdict::well, u"disco", what);
    tell(space < too_little_space ? Verdict::wrong : Verdict::warning, u"disco", what + u"; libere espacio");
}

bool FolderDiagnosis::look_at_openssl()
{
    const Text program = program_of_batch(folder_ + u"\\openssl");
    if (program.empty()) {
        tell(Verdict::wrong, u"openssl", u"no está en la carpeta ni en el PATH" + Text(install_openssl));
        return false;
    }
    const TrialFile version(folder_, u".txt");
    if (!openssl(u"version > " + version.path())) {
        tell(Verdict::wrong, u"openssl", program + u" no se pudo ejecutar" + Text(install_openssl));
        return false;
    }
    const Text said = to_text(version.read());
    tell(Verdict::well, u"openssl", program + u", " + said.substr(0, said.find_first_of(u"\r\n")));
    return true;
}

bool FolderDiagnosis::look_at_key()
{
    const Text key = folder_ + u"\\pkey.key.pem", name = files::native_path(key);
    if (!files::exists(key)) {
        tell(Verdict::wrong, u"llave", u"falta " + name + Text(convert_key));
        return false;
    }
    // Asked for its password, openssl would wait for a person.
    if (files::read(key).find("ENCRYPTED") != std::string::npos) {
        tell(Verdict::wrong, u"llave", name + u" está cifrada con una contraseña" + Text(convert_key));
        return false;
    }
    return true;
}

void FolderDiagnosis::look_at_seal()
{
    constexpr std::string_view original = "||TOLVEX||";
    const TrialFile text(folder_, u".txt"), signature(folder_, u".tmp");
    text.write(original);
    const Digest digest = digest_for(sealer_.day);
    const bool ended_well =
        openssl((digest == Digest::sha1 ? u"dgst -sha1 -sign " : u"dgst -md5 -sign ") + folder_ +
                u"\\pkey.key.pem -out " + signature.path() + u" " + text.path());
    const std::string sealed = signature.read();
    if (!ended_well || sealed.empty())
        return tell(Verdict::wrong, u"llave",
                    u"openssl no sella con pkey.key.pem: está dañada o no se puede leer" + Text(convert_key));
    if (!sealer_.certificate) return;
    if (!sealer_.certificate->verifies(digest, original, sealed))
        return tell(Verdict::wrong, u"llave",
                    u"pkey.key.pem no es del certificado " + sealer_.number + Text(convert_key));
    tell(Verdict::well, u"llave", u"pkey.key.pem sella, y es del certificado " + sealer_.number);
}

bool FolderDiagnosis::openssl(const Text& arguments) const
{
    const TrialFile batch(folder_, u".bat");
    batch.write(batch_file_bytes(folder_ + u"\\openssl " + arguments + u"\r\n"));
    return run_batch_file(batch.path(), WindowStyle::hidden) == 0;
}

} // namespace

void look_at_working_folder(const Text& folder, const Sealer& sealer, const Tell& tell)
{
    FolderDiagnosis(folder, sealer, tell).run();
}

} // namespace tolvex
