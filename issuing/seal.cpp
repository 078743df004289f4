#include "issuing/seal.hpp"

#include "core/base64.hpp"
#include "core/code_pages.hpp"
#include "core/dates.hpp"
#include "core/errors.hpp"
#include "core/text.hpp"
#include "platform/batch_runner.hpp"
#include "platform/files.hpp"
#include "platform/last_line.hpp"

namespace tolvex {

namespace {

// The lead byte of characters from U+9000 on would not fit.
Error no_such_character(TextView text, std::size_t place)
{
    constexpr std::size_t shown = 20;
    const std::size_t from = place < shown ? 0 : place - shown;
    return invalid_call(u"La cadena original no puede llevar el carácter que sigue a «" +
                        Text(text.substr(from, place - from)) + u"»");
}

constexpr TextView seal_files[] = {u"\\sello.bat", u"\\sello.txt", u"\\fi_md5.txt", u"\\utf8.txt"};

Error no_seal(const Text& path)
{
    return {numbers::file_not_found,
            u"openssl no dejó el sello en " + files::native_path(path) +
                u": revise que openssl y pkey.key.pem estén en la carpeta de trabajo y que la llave sirva"};
}

Sealing& sealing()
{
    static Sealing one = Sealing::openssl_program;
    return one;
}

// The key of a folder, parsed anew only when the file says something else.
const PrivateKey& key_of(const Text& folder)
{
    static std::string known;
    static std::unique_ptr<PrivateKey> key;
    const Text path = folder + u"\\pkey.key.pem";
    std::string pem = files::read(path);
    if (!key || pem != known) {
        key.reset();
        try {
            key = std::make_unique<PrivateKey>(pem);
        } catch (const Error& error) {
            throw Error(error.number(), files::native_path(path) + u": " + error.description());
        }
        known = std::move(pem);
    }
    return *key;
}

// In lines as openssl writes them.
Text base64_lines(std::string_view bytes)
{
    constexpr std::size_t width = 64;
    Text lines = to_base64(bytes);
    for (std::size_t end = width; end < lines.size(); end += width + 1) lines.insert(end, 1, u'\n');
    return lines + u"\n";
}

} // namespace

void set_sealing(Sealing one) { sealing() = one; }

Digest digest_for(Date date) { return year_of(date) > 2010 ? Digest::sha1 : Digest::md5; }

Text utf8_characters(TextView text)
{
    Text bytes;
    bytes.reserve(text.size() + text.size() / 8);
    const auto append = [&](unsigned byte) { bytes += static_cast<char16_t>(byte); };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned c = text[i];
        if (c < 128) {
            append(c);
        } else if (c < 2048) {
            append((c / 64) | 192);
            append((c & 63) | 128);
        } else {
            // Deliberate: 144 and 234 are not UTF-8's own lead byte; stored strings must stay as they are.
            if (((c / 144) | 234) > 0xFF) throw no_such_character(text, i);
            append((c / 144) | 234);
            append(((c / 64) & 63) | 128);
            append((c & 63) | 128);
        }
    }
    return bytes;
}

void write_seal_batch(const Text& folder, Digest digest)
{
    require_batch_folder(folder);
    const bool sha1 = digest == Digest::sha1;
    // Deliberate: two blanks before "-out", and before "-in" for SHA-1 only.
    const Text sign = folder + u"\\openssl dgst " + (sha1 ? u"-sha1" : u"-md5") + u" -sign " + folder +
                      u"\\pkey.key.pem" + u"  -out " + folder + u"\\fi_md5.txt " + folder + u"\\utf8.txt\r\n";
    const Text encode = folder + u"\\openssl enc -base64" + (sha1 ? u"  -in " : u" -in ") + folder +
                        u"\\fi_md5.txt" + u" -out " + folder + u"\\sello.txt\r\n";
    files::write_anew(folder + u"\\sello.bat", batch_file_bytes(sign + encode));
}

void write_original_string(const Text& folder, const Text& utf8)
{
    files::write_anew(folder + u"\\utf8.txt", bytes_of_text(utf8));
}

Text run_seal_batch(const Text& folder)
{
    // Deliberate: the exit code is not examined, so a seal left by an earlier failure is taken for this
    // one's.
    run_batch_file(folder + u"\\SELLO.BAT");
    const Text result = folder + u"\\Sello.txt";
    if (!files::exists(result)) throw no_seal(result);
    return last_line(result);
}

bool seals_in_process() { return sealing() == Sealing::in_process; }

Text seal_in_process(const Text& folder, Digest digest, const Text& utf8)
{
    const std::string signature = key_of(folder).signature(digest, bytes_of_text(utf8));
    const Text seal = base64_lines(signature);
    files::write_anew(folder + u"\\fi_md5.txt", signature);
    files::write_anew(folder + u"\\sello.txt", to_utf8(seal));
    return seal;
}

Text clean_seal(const Text& seal)
{
    return keep_only(seal, u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=");
}

bool discard_old_batch(const Text& folder) { return files::remove_if_there(folder + u"\\sello.bat"); }

void remove_seal_files(const Text& folder)
{
    for (const TextView name : seal_files) files::remove_if_there(folder + Text(name));
}

} // namespace tolvex
