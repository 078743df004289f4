#include "issuing/addenda_xml.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"

#include <algorithm>
#include <map>
#include <tuple>

namespace tolvex {

namespace {

// Staged values by node, parent and line (0 for header values); of two for one place the first staged wins.
// Deliberate: the receiver's RFC that was staged with them is not compared.
class StagedValues
{
public:
    explicit StagedValues(const Session& session)
    {
        for (std::int32_t i = 1; i <= session.gNumAddenda; ++i) {
            const auto& row = session.gAddenda[i];
            values_.try_emplace({number(row.nRama), number(row.nPadre), header}, trim(row.cValor));
        }
        for (std::int32_t i = 1; i <= session.gNumAddendaDet; ++i) {
            const auto& row = session.gAddendaDet[i];
            line_values_.try_emplace({number(row.nRama), number(row.nPadre), number(row.nRenglon)},
                                     trim(row.cValor));
        }
    }

    // The value staged for a node, empty when there is none.
    Text find(std::int32_t nRama, std::int32_t nPadre) const
    {
        return value_at(values_, {nRama, nPadre, header});
    }
    Text find(std::int32_t nRama, std::int32_t nPadre, std::int32_t line) const
    {
        return value_at(line_values_, {nRama, nPadre, line});
    }

private:
    using Place = std::tuple<std::int32_t, std::int32_t, std::int32_t>;
    using Values = std::map<Place, Text>;
    static constexpr std::int32_t header = 0;

    static std::int32_t number(const Text& staged) { return to_int32(leading_number(staged)); }

    static Text value_at(const Values& values, const Place& place)
    {
        const auto found = values.find(place);
        return found == values.end() ? Text() : found->second;
    }

    Values values_, line_values_;
};

// One row of a control table.
struct Node
{
    std::int16_t nRama, nPadre;
    Text cNombre, CTipo, cValor;
};

Node read_node(const Recordset& row)
{
    const auto text = [&](TextView column) { return trim(row[column].text()); };
    return {to_int16(leading_number(text(u"nRama"))), to_int16(leading_number(text(u"nPadre"))),
            text(u"cNombre"), text(u"CTipo"), text(u"cValor")};
}

// Walks the receiver's control rows depth first and adds what they describe.
class AddendaWriter
{
public:
    AddendaWriter(Session& session, const Text& receiver)
        : session_(session), staged_(session), receiver_(without(receiver, u'|'))
    {}

    void add_nodes(XmlElement parent, std::int16_t nPadre);

private:
    void add_line_nodes(XmlElement parent, std::int16_t nPadre, std::int32_t line);
    XmlElement add_node(XmlElement parent, const Node& node, const Text& staged);
    Recordset rows_of(const Text& table, std::int16_t nPadre);

    // Keeps the numbers of the nodes from the root to the current one, to stop at a cycle or before the stack
    // ends.
    class Descent
    {
        static constexpr std::size_t deepest = 1000;

    public:
        Descent(std::vector<std::int16_t>& path, std::int16_t nRama) : path_(path)
        {
            if (std::find(path.begin(), path.end(), nRama) != path.end())
                throw invalid_call(u"La estructura de la addenda tiene un ciclo en el nodo " +
                                   decimal(nRama));
            if (path.size() >= deepest)
                throw invalid_call(u"La estructura de la addenda tiene más de " + decimal(deepest) +
                                   u" niveles");
            path.push_back(nRama);
        }
        ~Descent() { path_.pop_back(); }
        Descent(const Descent&) = delete;

    private:
        std::vector<std::int16_t>& path_;
    };

    Session& session_;
    const StagedValues staged_;
    const Text receiver_;
    std::optional<XmlElement> addenda_;
    std::vector<std::int16_t> path_, line_path_;
};

Recordset AddendaWriter::rows_of(const Text& table, std::int16_t nPadre)
{
    return shared_connection(session_).query(u"select * from " + table + u" (nolock) where crfccte='" +
                                             receiver_ + u"'  and npadre=" + decimal(nPadre) +
                                             u" order by npadre,nrama");
}

void AddendaWriter::add_nodes(XmlElement parent, std::int16_t nPadre)
{
    const Descent descent(path_, nPadre);
    Recordset rows = rows_of(u"fe_ctl_adendas", nPadre);
    if (!rows.eof() && nPadre == 0) addenda_ = parent.append(u"Addenda");
    for (; !rows.eof(); rows.move_next()) {
        const Node node = read_node(rows);
        if (node.cNombre == u"Det@lle") { // the place of the subtree that repeats for every line
            for (std::int32_t line = 1; line <= session_.gNumDetalle; ++line)
                add_line_nodes(parent, node.nRama, line);
            continue;
        }
        const XmlElement made = node.nPadre == 0
                                    ? addenda_->append(node.cNombre)
                                    : add_node(parent, node, staged_.find(node.nRama, node.nPadre));
        add_nodes(made, node.nRama);
    }
}

void AddendaWriter::add_line_nodes(XmlElement parent, std::int16_t nPadre, std::int32_t line)
{
    const Descent descent(line_path_, nPadre);
    for (Recordset rows = rows_of(u"fe_ctl_adendasDet", nPadre); !rows.eof(); rows.move_next()) {
        const Node node = read_node(rows);
        const XmlElement made = add_node(parent, node, staged_.find(node.nRama, node.nPadre, line));
        add_line_nodes(made, node.nRama, line);
    }
}

// The element made, or the parent itself when the node is one of its attributes.
XmlElement AddendaWriter::add_node(XmlElement parent, const Node& node, const Text& staged)
{
    const Text& value = staged.empty() ? node.cValor : staged;
    if (node.CTipo != u"E") {
        parent.set_attribute(node.cNombre, value);
        return parent;
    }
    XmlElement element = parent.append(node.cNombre);
    if (!value.empty()) element.set_text(value);
    return element;
}

} // namespace

void add_addenda(Session& session, const DocumentValues& document, XmlElement& comprobante)
{
    AddendaWriter(session, document.RecRfc).add_nodes(comprobante, 0);
}

} // namespace tolvex
