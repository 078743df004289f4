#include "maintenance/certificate_files.hpp"

#include "core/errors.hpp"
#include "maintenance/certificate_text.hpp"
#include "platform/batch_runner.hpp"
#include "platform/files.hpp"
#include "platform/last_line.hpp"

namespace tolvex {

namespace {

constexpr TextView certificate_files[] = {u"\\Cert1.bat",    u"\\Cert1.txt",   u"\\Vigencia.txt",
                                          u"\\SHA1.txt",     u"\\Serial.txt",  u"\\NotBefore.txt",
                                          u"\\NotAfter.txt", u"\\ModulusC.txt"};
constexpr TextView key_files[] = {u"\\Key1.bat", u"\\ModulusK.txt", u"\\ModulKey.bat"};

Text pem_path(const Text& folder, const Text& title) { return folder + u"\\" + title + u".pem"; }

// Without one the paths would be those of the disk's root.
void require_folder(const Text& folder)
{
    if (trim(folder).empty()) throw invalid_call(u"Elija antes la carpeta del sello (Ruta Sello PEM)");
    require_batch_folder(folder);
}

void write_batch(const Text& path, const std::vector<Text>& lines)
{
    files::write_anew(path, batch_file_bytes(join(lines, u"\r\n") + u"\r\n"));
}

// The last line of a file that openssl wrote, the same whatever version of it ended the lines.
Text read_result(const Text& path)
{
    restore_line_feeds(path);
    return last_line(path);
}

void write_certificate_batch(const Text& folder, const Text& certificate, const Text& title)
{
    const Text openssl = folder + u"\\openssl x509 ", pem = pem_path(folder, title);
    write_batch(folder + u"\\Cert1.bat",
                {openssl + u"-inform DER -outform PEM -in " + certificate + u" -pubkey > " + pem,
                 openssl + u"-in " + pem + u" -text > " + folder + u"\\Cert1.txt",
                 openssl + u"-in " + pem + u" -noout -dates > " + folder + u"\\Vigencia.txt",
                 openssl + u"-in " + pem + u" -sha1 > " + folder + u"\\SHA1.txt",
                 openssl + u"-in " + pem + u" -noout -sha1 -serial > " + folder + u"\\Serial.txt",
                 openssl + u"-in " + pem + u" -noout -sha1 -startdate > " + folder + u"\\NotBefore.txt",
                 openssl + u"-in " + pem + u" -noout -sha1 -enddate > " + folder + u"\\NotAfter.txt",
                 openssl + u"-in " + pem + u" -noout -modulus > " + folder + u"\\ModulusC.txt"});
}

Text read_date_line(const Text& path)
{
    return FiltraCaracteres(trim_right(read_result(path)),
                            u":= ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
}

CertificateReading read_certificate(const Text& folder)
{
    CertificateReading reading;
    reading.serial =
        FiltraCaracteres(trim_right(read_result(folder + u"\\Serial.txt")), u"serialSERIAL=0123456789");
    reading.not_before = read_date_line(folder + u"\\NotBefore.txt");
    reading.not_after = read_date_line(folder + u"\\NotAfter.txt");
    reading.last_file = read_result(folder + u"\\SHA1.txt");
    reading.body = ExtraeCertificado(reading.last_file);
    return reading;
}

} // namespace

CertificateReading convert_certificate(const Text& folder, const Text& certificate, const Text& title)
{
    require_folder(folder);
    for (const TextView name : certificate_files) files::remove_if_there(folder + Text(name));
    files::remove_if_there(pem_path(folder, title));
    write_certificate_batch(folder, certificate, title);
    run_batch_file(folder + u"\\Cert1.bat", WindowStyle::hidden);
    return read_certificate(folder);
}

KeyReading unlock_key(const Text& folder, const Text& key)
{
    require_folder(folder);
    const Text unlocked = folder + u"\\pkey.key.pem";
    files::remove_if_there(folder + u"\\Key1.bat");
    files::remove_if_there(unlocked);
    // Deliberate: no separator, so it is not the file that is written later.
    files::remove_if_there(folder + u"ModulusK.txt");

    write_batch(folder + u"\\Key1.bat",
                {folder + u"\\openssl pkcs8 -inform DER -in " + key + u" -out " + unlocked});
    run_batch_file(folder + u"\\Key1.bat", WindowStyle::visible);
    if (!files::exists(unlocked)) return {KeyCheck::not_unlocked, {}, {}};
    files::keep_private(unlocked);
    if (files::size(unlocked) == 0) return {KeyCheck::empty, {}, {}};

    // Deliberate: two blanks after "rsa" and after the key's name.
    write_batch(folder + u"\\ModulKey.bat", {folder + u"\\openssl rsa  -in " + unlocked +
                                             u"  -noout -modulus > " + folder + u"\\ModulusK.txt"});
    run_batch_file(folder + u"\\ModulKey.bat", WindowStyle::hidden);
    const Text of_certificate = read_result(folder + u"\\ModulusC.txt");
    const Text of_key = read_result(folder + u"\\ModulusK.txt");
    return {of_certificate == of_key ? KeyCheck::matching : KeyCheck::of_another_one, of_certificate, of_key};
}

void remove_certificate_files(const Text& folder, const Text& title)
{
    if (trim(folder).empty()) return;
    for (const TextView name : certificate_files) files::remove_if_there(folder + Text(name));
    for (const TextView name : key_files) files::remove_if_there(folder + Text(name));
    if (!title.empty()) files::remove_if_there(pem_path(folder, title));
}

} // namespace tolvex
