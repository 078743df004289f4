#include "console/command.hpp"
#include "console/csv.hpp"
#include "console/document_words.hpp"
#include "console/given_day.hpp"
#include "console/json.hpp"
#include "console/output.hpp"
#include "console/table.hpp"
#include "platform/terminal.hpp"

#include <fmt/core.h>

namespace tolvex::console {

namespace {

// What is told of a document, in this order; a number stands without quotes in JSON.
struct Told
{
    const char16_t* name;
    bool is_number, in_table;
    Text (*of)(const ListedDocument&);
};

constexpr std::size_t widest_name = 40; // in a table

constexpr Told all_told[] = {
    {u"empresa", true, true, [](const ListedDocument& d) { return d.company; }},
    {u"sucursal", true, true, [](const ListedDocument& d) { return d.branch; }},
    {u"tipo", false, true, kind_in_words},
    {u"serie", false, true, [](const ListedDocument& d) { return d.serie; }},
    {u"folio", false, true, [](const ListedDocument& d) { return d.folio; }},
    {u"fecha", false, true, [](const ListedDocument& d) { return d.date; }},
    {u"rfc", false, true, [](const ListedDocument& d) { return d.rfc; }},
    {u"receptor", false, true, [](const ListedDocument& d) { return d.name; }},
    {u"subtotal", true, false, [](const ListedDocument& d) { return d.subtotal; }},
    {u"iva", true, false, [](const ListedDocument& d) { return d.tax; }},
    {u"total", true, true, [](const ListedDocument& d) { return d.total; }},
    {u"moneda", false, true, [](const ListedDocument& d) { return d.currency; }},
    {u"estado", false, true, status_in_words},
    {u"cancelada", false, false, [](const ListedDocument& d) { return d.cancelled_on; }},
};

// One way to print a list.
class Printout
{
public:
    virtual ~Printout() = default;
    virtual void print(const std::vector<ListedDocument>& documents) = 0;
};

class Table : public Printout
{
public:
    void print(const std::vector<ListedDocument>& documents) override
    {
        std::vector<ListRow> rows;
        for (const ListedDocument& document : documents) rows.push_back(row(document));
        table_.print(rows);
    }

private:
    static std::vector<ListColumn> columns()
    {
        std::vector<ListColumn> columns;
        for (const Told& told : all_told)
            if (told.in_table) columns.push_back({told.name, 0, told.is_number});
        return columns;
    }

    static ListRow row(const ListedDocument& document)
    {
        ListRow row;
        for (const Told& told : all_told)
            if (told.in_table) row.push_back(clip(told.of(document), widest_name));
        return row;
    }

    GrowingTable table_{columns()};
};

class Csv : public Printout
{
public:
    Csv()
    {
        terminal::print_bytes();
        print_record([](const Told& told) { return Text(told.name); });
    }

    void print(const std::vector<ListedDocument>& documents) override
    {
        for (const ListedDocument& document : documents)
            print_record([&](const Told& told) { return told.of(document); });
    }

private:
    template <class Field>
    static void print_record(Field field)
    {
        std::vector<std::string> fields;
        for (const Told& told : all_told) fields.push_back(to_utf8(field(told)));
        fmt::print("{}", csv_record(fields));
    }
};

class Json : public Printout
{
public:
    void print(const std::vector<ListedDocument>& documents) override
    {
        for (const ListedDocument& document : documents) fmt::print("{}\n", object(document));
    }

private:
    static std::string object(const ListedDocument& document)
    {
        std::string members;
        for (const Told& told : all_told)
            members += (members.empty() ? "" : ",") + json_text(to_utf8(told.name)) + ":" +
                       value(told, to_utf8(told.of(document)));
        return "{" + members + "}";
    }

    static std::string value(const Told& told, const std::string& text)
    {
        if (text.empty()) return "null";
        return told.is_number ? json_number(text) : json_text(text);
    }
};

class Documentos : public Command
{
public:
    const char* name() const override { return "documentos"; }
    const char* purpose() const override { return "Lista los documentos emitidos"; }
    const char* example() const override
    {
        return "tolvex documentos --desde 2011-03-01 --csv --bd tienda.db";
    }

    void declare(Options& options) override
    {
        options.option("--empresa", filter_.company, "Número de la empresa (si falta, todas)");
        options.option("--sucursal", filter_.branch, "Número de la sucursal (si falta, todas)");
        options.option("--desde", from_, "Primer día, aaaa-mm-dd");
        options.option("--hasta", to_, "Último día, aaaa-mm-dd");
        options.option("--serie", serie_, "Serie");
        options.option("--folio", folio_, "Folio del documento, como se emitió");
        options.option("--estado", status_, {"vigente", "cancelada"}, "vigente o cancelada");
        options.option("--receptor", receiver_, "Parte del RFC o del nombre, con o sin acentos");
        options.flag("--json", json_, "Escribe un objeto JSON por renglón");
        options.flag("--csv", csv_, "Escribe valores separados por comas, para una hoja de cálculo");
    }

    int run(const Place& place) override
    {
        if (json_ && csv_) throw WrongOrder("--json y --csv no van juntos");
        take_filter();
        connect(place);
        DocumentList list(session(), filter_);
        const std::unique_ptr<Printout> printout = chosen_printout();
        auto page = list.next();
        if (page.empty()) say_warning(u"no hay documentos que cumplan con lo pedido");
        for (; !page.empty() && is_heard(); page = list.next()) printout->print(page);
        return 0;
    }

private:
    void take_filter()
    {
        filter_.from = given_day("--desde", from_);
        filter_.to = given_day("--hasta", to_);
        filter_.serie = to_text(serie_);
        filter_.folio = to_text(folio_);
        filter_.receiver = to_text(receiver_);
        if (!status_.empty()) filter_.status = status_ == "vigente" ? u"A" : u"C";
    }

    std::unique_ptr<Printout> chosen_printout() const
    {
        if (json_) return std::make_unique<Json>();
        if (csv_) return std::make_unique<Csv>();
        return std::make_unique<Table>();
    }

    DocumentFilter filter_;
    std::string from_, to_, serie_, folio_, status_, receiver_;
    bool json_ = false, csv_ = false;
};

} // namespace

std::unique_ptr<Command> documentos_command() { return std::make_unique<Documentos>(); }

} // namespace tolvex::console
