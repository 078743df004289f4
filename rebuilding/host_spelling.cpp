#include "rebuilding/host_spelling.hpp"

#include "core/text.hpp"
#include "issuing/seal.hpp"

namespace tolvex {

namespace {

// Reads the original string from one of its bars on.
class Reading
{
public:
    explicit Reading(TextView rest) : rest_(rest) {}

    // The value as it stands here; false when something else does. Bars that the row lost stand before the
    // next character that it kept.
    bool take(Text& value, bool row_lost_bars)
    {
        Text spelling;
        TextView rest = rest_;
        for (const char16_t c : value) {
            while (row_lost_bars && rest.starts_with(u'|')) move(rest, 1, spelling);
            const Text bytes = utf8_characters(TextView(&c, 1));
            if (!rest.starts_with(bytes)) return false;
            rest.remove_prefix(bytes.size());
            spelling += c;
            if (c == u'\'' && rest.starts_with(u"'")) move(rest, 1, spelling);
        }
        value = spelling;
        rest_ = rest;
        return true;
    }

    bool take_bar()
    {
        if (!rest_.starts_with(u'|')) return false;
        rest_.remove_prefix(1);
        return true;
    }

    // The bars that end the last value of a part, before one that is never empty.
    Text take_bars()
    {
        Text bars;
        while (rest_.starts_with(u'|')) move(rest_, 1, bars);
        return bars;
    }

    // Past a value of any text and the bar after it.
    bool skip_value()
    {
        const auto bar = rest_.find(u'|');
        if (bar == TextView::npos) return false;
        rest_.remove_prefix(bar + 1);
        return true;
    }

    bool at_taxes() const { return rest_.starts_with(u"IVA|") || rest_.starts_with(u"ISR|"); }

private:
    static void move(TextView& rest, std::size_t count, Text& to)
    {
        to += rest.substr(0, count);
        rest.remove_prefix(count);
    }

    TextView rest_;
};

bool follow_receiver(Reading& reading, Session& staged)
{
    Text* last = &staged.gNombreCliente;
    for (Text* value :
         {&staged.gRfcCliente, &staged.gNombreCliente, &staged.gCalle, &staged.gNumeroExt, &staged.gColonia,
          &staged.gMunicipio, &staged.gEstado, &staged.gPais, &staged.gCodigoPos}) {
        const bool is_always_there = value == &staged.gRfcCliente || value == &staged.gNombreCliente;
        if (value->empty() && !is_always_there) continue;
        if (!reading.take(*value, true) || !reading.take_bar()) return false;
        last = value;
    }
    *last += reading.take_bars();
    return true;
}

bool follow_lines(Reading& reading, Session& staged)
{
    for (std::int32_t i = 1; i <= staged.gNumDetalle; ++i) {
        DetalleRow& line = staged.gDetalle[i];
        line.Unidad = trim(line.Unidad); // as the string has them
        line.Producto = trim(line.Producto);
        if (!reading.skip_value()) return false; // quantity
        if (!reading.take(line.Unidad, false) || !reading.take_bar()) return false;
        if (!reading.take(line.Producto, false) || !reading.take_bar()) return false;
        if (!reading.skip_value() || !reading.skip_value()) return false; // price, amount
    }
    return true;
}

bool follow(TextView from_receiver, Session& staged)
{
    Reading reading(from_receiver);
    return follow_receiver(reading, staged) && follow_lines(reading, staged) && reading.at_taxes();
}

// Where the receiver may begin: after the values of header and issuer, of which some may be missing. The last
// place first, since a value that is empty there would else be taken for a bar of the receiver.
std::vector<TextView> possible_receivers(TextView original)
{
    constexpr int fewest_bars = 9, most_bars = 24;
    std::vector<TextView> places;
    for (int bars = 1; bars <= most_bars; ++bars) {
        const auto bar = original.find(u'|');
        if (bar == TextView::npos) break;
        original.remove_prefix(bar + 1);
        if (bars >= fewest_bars) places.insert(places.begin(), original);
    }
    return places;
}

} // namespace

void restore_host_spelling(StoredIssue& issue)
{
    for (const TextView from_receiver : possible_receivers(issue.original_string)) {
        Session staged = issue.staged;
        if (!follow(from_receiver, staged)) continue;
        issue.staged = std::move(staged);
        return;
    }
}

} // namespace tolvex
