#include "console/document_words.hpp"
#include "console/named_document.hpp"
#include "console/output.hpp"
#include "core/numbers.hpp"
#include "platform/terminal.hpp"
#include "tolvex/errors.hpp"

namespace tolvex::console {

namespace {

// "factura 3, serie A, 2011-03-15 14:05:09, DEM010203ABC Tiendas El Águila, total 336.40, vigente"
Text described(const ListedDocument& document)
{
    const Text receiver = document.rfc.empty() ? Text(u"sin receptor") : document.rfc + u" " + document.name;
    return kind_in_words(document) + u" " + document.folio + u", serie " + document.serie + u", " +
           document.date + u", " + receiver + u", total " + document.total + u", " +
           status_in_words(document);
}

class Borra : public Command
{
public:
    const char* name() const override { return "borra"; }
    const char* purpose() const override
    {
        return "Borra los documentos de un folio, con su receptor y sus renglones; pregunta antes";
    }
    const char* example() const override { return "tolvex borra 15 --empresa 1 --sucursal 1 --bd tienda.db"; }

    void declare(Options& options) override
    {
        document_.declare(options);
        options.flag("--si", sure_, "Borra sin preguntar");
    }

    int run(const Place& place) override
    {
        connect(place);
        const Text documents = read_documents();
        if (count_ == 0) return fail(u"no existe el documento " + document_.described());
        if (!sure_ && !terminal::takes_answers())
            return fail(u"no se borró nada: no hay terminal en que preguntar; agregue --si para borrar" +
                        documents);
        if (!sure_ && !confirmed(documents)) return fail(u"no se borró nada");
        if (!delete_document(session(), document_.key())) return fail(u"no se pudo borrar: " + last_error());
        print_line((count_ == 1 ? u"Borrado 1 documento" : u"Borrados " + decimal(count_) + u" documentos") +
                   u" con el folio " + document_.described() + u":" + documents);
        return 0;
    }

private:
    // A line each, after a line end; an invoice and a credit note may share the folio.
    Text read_documents()
    {
        const DocumentKey key = document_.key();
        DocumentFilter filter{key.company, key.branch};
        filter.folio = key.folio;
        DocumentList list(session(), filter);
        Text lines;
        for (auto page = list.next(); !page.empty(); page = list.next())
            for (const ListedDocument& document : page) {
                lines += u"\n  " + tolvex::console::described(document);
                ++count_;
            }
        return lines;
    }

    static bool confirmed(const Text& documents)
    {
        const Message question{u"se borrará, sin que se pueda recuperar:" + documents, u"tolvex",
                               MessageIcon::exclamation, MessageButtons::yes_no};
        return terminal::show(question) == MessageAnswer::yes;
    }

    NamedDocument document_;
    bool sure_ = false;
    int count_ = 0;
};

} // namespace

std::unique_ptr<Command> borra_command() { return std::make_unique<Borra>(); }

} // namespace tolvex::console
