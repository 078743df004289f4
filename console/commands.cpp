#include "console/commands.hpp"

#include "core/errors.hpp"
#include "core/values.hpp"
#include "issuing/flat_file.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "session/session.hpp"
#include "tolvex/tolvex.hpp"

#include <fmt/core.h>
#include <unistd.h>

namespace tolvex::console {

namespace {

void print_line(const Text& text) { fmt::print("{}\n", to_utf8(text)); }

int fail(const Text& reason)
{
    say_error(to_utf8(reason));
    return 1;
}

// One line that is rewritten while a long file goes through; nothing when standard error is no terminal.
class ProgressLine
{
public:
    void show(std::size_t line, std::size_t lines)
    {
        const std::size_t percent = 100 * line / lines;
        if (!on_terminal_ || percent == shown_) return;
        shown_ = percent;
        fmt::print(stderr, "\rlínea {} de {} ({} %)", line, lines, percent);
        std::fflush(stderr);
    }

    void clear()
    {
        if (on_terminal_ && shown_ != none) fmt::print(stderr, "\r\033[K");
        shown_ = none;
    }

private:
    static constexpr std::size_t none = 101;
    const bool on_terminal_ = isatty(STDERR_FILENO) != 0;
    std::size_t shown_ = none;
};

// How many documents have that key; `kind` "F" or "N", or empty for both.
std::int64_t count_documents(const DocumentKey& key, const Text& kind)
{
    const Text sql = u"Select count(*) as n From FE_VENTAS_RESUMEN(nolock) Where cDocumento='" +
                     to_text(key.folio) + u"' And nEmpresa=" + decimal(key.company) + u" And nSucursal=" +
                     decimal(key.branch) + (kind.empty() ? Text() : u" And cTipoDocumento='" + kind + u"'");
    return shared_connection(session()).query(sql)[u"n"].int32();
}

Text described(const DocumentKey& key)
{
    return to_text(key.folio) + u" de la empresa " + decimal(key.company) + u", sucursal " +
           decimal(key.branch);
}

} // namespace

void say_error(const std::string& reason) noexcept { std::fprintf(stderr, "tolvex: %s\n", reason.c_str()); }

void connect(const Place& place)
{
    ConfigFE connection;
    connection.SetDatosConexion(to_text(place.user), to_text(place.password), to_text(place.database),
                                to_text(place.server));
    connection.AbrirConexion();
}

void disconnect() { ConfigFE().CierraConexion(); }

int emite(const Place& place, const std::string& file, bool extended_root)
{
    connect(place);
    set_root_layout(extended_root ? RootLayout::extended : RootLayout::standard);
    ProgressLine progress;
    const auto issued = [&](const IssuedDocument& document) {
        progress.clear();
        print_line(files::native_path(document.xml_path));
    };
    const auto line_done = [&](std::size_t line, std::size_t lines) { progress.show(line, lines); };
    const FlatFileResult result =
        issue_flat_file_records(session(), files::absolute_path(to_text(file)), {issued, line_done});
    progress.clear();
    disconnect();
    if (!result.failure.empty()) return fail(to_text(file) + u": " + result.failure);
    if (result.documents.empty()) return fail(to_text(file) + u": no trae ningún registro EMITE");
    return 0;
}

int cancela(const Place& place, const DocumentKey& key, const std::string& date, bool credit_note)
{
    connect(place);
    const Text kind = credit_note ? u"nota de crédito " : u"factura ";
    if (count_documents(key, credit_note ? u"N" : u"F") == 0)
        return fail(u"no existe la " + kind + described(key));
    const Date day = date.empty() ? local_now() : to_date(to_text(date));
    if (!GeneraDocto().CancelaFacturaElectronica(to_text(key.folio), day, key.company, key.branch,
                                                 credit_note))
        return fail(u"no se pudo cancelar: " + last_error());
    print_line(u"Cancelada la " + kind + described(key) + u" con fecha " + format(day, u"yyyy-mm-dd"));
    return 0;
}

int borra(const Place& place, const DocumentKey& key)
{
    connect(place);
    const std::int64_t documents = count_documents(key, u"");
    if (documents == 0) return fail(u"no existe el documento " + described(key));
    if (!GeneraDocto().BorraFacturaElectronica(key.company, key.branch, to_text(key.folio)))
        return fail(u"no se pudo borrar: " + last_error());
    print_line(u"Borrados " + decimal(documents) + u" documentos con el folio " + described(key));
    return 0;
}

int folio(const Place& place, const std::string& range)
{
    connect(place);
    Text next;
    if (!GeneraDocto().fgObtenFolioFactura(to_text(range), next))
        return fail(u"el rango de folios " + to_text(range) + u" no existe o ya se agotó");
    print_line(next);
    return 0;
}

} // namespace tolvex::console
