#include "platform/pages/true_type.hpp"
#include "platform/pages/byte_order.hpp"

#include "core/errors.hpp"

#include <algorithm>
#include <map>

namespace tolvex::pages {

namespace {

[[noreturn]] void fail(TextView reason) { throw invalid_call(reason); }

std::string_view within(std::string_view bytes, std::size_t at, std::size_t size)
{
    if (at > bytes.size() || size > bytes.size() - at) fail(u"la fuente está dañada");
    return bytes.substr(at, size);
}

std::size_t start_of_font(std::string_view file, unsigned index)
{
    if (!file.starts_with("ttcf")) return 0;
    if (index >= u32(file, 8)) fail(u"la colección no tiene esa fuente");
    return u32(file, 12 + std::size_t{4} * index);
}

// --- characters --------------------------------------------------------------------------------------------

// Where the list of Unicode characters begins in the table "cmap"; that of a symbol font if it has no other.
std::size_t start_of_characters(std::string_view characters)
{
    std::size_t found = 0;
    for (std::size_t entry = 4, count = u16(characters, 2); count > 0; --count, entry += 8) {
        const unsigned platform = u16(characters, entry), encoding = u16(characters, entry + 2);
        const std::size_t start = u32(characters, entry + 4);
        if (u16(characters, start) != 4) continue;
        if (platform == 3 && encoding == 1) return start;
        if (platform == 0 || (platform == 3 && encoding == 0)) found = start;
    }
    if (found == 0) fail(u"la fuente no dice qué caracteres tiene");
    return found;
}

// A list of format 4: ranges of characters that ascend and do not overlap.
std::vector<std::uint16_t> glyphs_by_character(std::string_view list, unsigned glyphs)
{
    std::vector<std::uint16_t> found(65'536);
    const std::size_t size = u16(list, 6) & ~1U; // of each of four arrays, a number for each range
    const std::size_t ends = 14, starts = ends + size + 2, deltas = starts + size, offsets = deltas + size;
    unsigned next = 0;
    for (std::size_t range = 0; range < size; range += 2) {
        const unsigned start = u16(list, starts + range), end = u16(list, ends + range);
        if (start < next || end < start) continue;
        const unsigned delta = u16(list, deltas + range), offset = u16(list, offsets + range);
        for (unsigned c = start; c <= end; ++c) {
            unsigned glyph = c;
            if (offset != 0) glyph = u16(list, offsets + range + offset + std::size_t{2} * (c - start));
            if (offset == 0 || glyph != 0) glyph = (glyph + delta) & 0xFFFFU;
            if (glyph < glyphs) found[c] = static_cast<std::uint16_t>(glyph);
        }
        next = end + 1;
    }
    return found;
}

// Symbol fonts keep the characters of a byte in the private area.
void offer_private_characters(std::vector<std::uint16_t>& glyph_of)
{
    for (unsigned c = u' '; c <= 0xFF; ++c)
        if (glyph_of[c] == 0) glyph_of[c] = glyph_of[0xF000 + c];
}

// --- composite glyphs --------------------------------------------------------------------------------------

// Where an outline names its pieces, by the place of each glyph number in it; empty for one that has none.
std::vector<std::size_t> pieces(std::string_view outline)
{
    constexpr unsigned words = 1, one_scale = 8, more = 32, two_scales = 64, matrix = 128;
    std::vector<std::size_t> places;
    if (s16(outline, 0) >= 0) return places;
    unsigned flags = more;
    for (std::size_t at = 10; (flags & more) && at + 4 <= outline.size();) {
        flags = u16(outline, at);
        places.push_back(at + 2);
        at += 4 + (flags & words ? 4 : 2);
        at += flags & one_scale ? 2 : flags & two_scales ? 4 : flags & matrix ? 8 : 0;
    }
    return places;
}

// The glyphs of a part, which are numbered anew in the order in which they are met.
class ChosenGlyphs
{
public:
    unsigned add(unsigned glyph)
    {
        const auto [entry, is_new] = numbers_.try_emplace(glyph, static_cast<unsigned>(glyphs_.size()));
        if (is_new) glyphs_.push_back(glyph);
        return entry->second;
    }

    std::size_t size() const { return glyphs_.size(); }
    unsigned operator[](std::size_t i) const { return glyphs_[i]; }

private:
    std::vector<unsigned> glyphs_;
    std::map<unsigned, unsigned> numbers_;
};

// --- writing -----------------------------------------------------------------------------------------------

struct Mapped
{
    char16_t character;
    unsigned glyph;
};

// One list of format 4, a range for each run of characters whose glyphs follow one another too.
std::string character_table(const std::vector<Mapped>& characters)
{
    std::string ends, starts, deltas;
    const auto add_range = [&](unsigned first, unsigned last, unsigned glyph) {
        put16(starts, first);
        put16(ends, last);
        put16(deltas, glyph - first);
    };
    for (std::size_t i = 0, first = 0; i < characters.size(); ++i) {
        const bool goes_on = i + 1 < characters.size() &&
                             characters[i + 1].character == characters[i].character + 1 &&
                             characters[i + 1].glyph == characters[i].glyph + 1;
        if (goes_on) continue;
        add_range(characters[first].character, characters[i].character, characters[first].glyph);
        first = i + 1;
    }
    add_range(0xFFFF, 0xFFFF, 0); // closes the list, without a glyph
    std::string table;
    for (const unsigned header : {0U, 1U, 3U, 1U, 0U, 12U}) put16(table, header);
    put16(table, 4);
    put16(table, static_cast<std::uint32_t>(16 + 4 * ends.size()));
    put16(table, 0);
    put16(table, static_cast<std::uint32_t>(ends.size()));
    table.append(6, '\0'); // hints for a binary search
    return table + ends + std::string(2, '\0') + starts + deltas + std::string(starts.size(), '\0');
}

std::string name_table(std::string_view name)
{
    constexpr std::string_view style = "Regular";
    std::string table;
    put16(table, 0);
    put16(table, 2);
    put16(table, 6 + 2 * 12);
    const auto add_entry = [&](unsigned kind, std::size_t size, std::size_t offset) {
        for (const unsigned field : {1U, 0U, 0U, kind}) put16(table, field);
        put16(table, static_cast<std::uint32_t>(size));
        put16(table, static_cast<std::uint32_t>(offset));
    };
    add_entry(2, style.size(), 0);
    add_entry(6, name.size(), style.size());
    return table.append(style).append(name);
}

std::string with16(std::string_view table, std::size_t at, std::uint32_t value)
{
    std::string changed(table);
    replace16(changed, at, value);
    return changed;
}

std::string font_file(const std::vector<std::pair<std::string_view, std::string>>& tables)
{
    std::string file, body;
    put32(file, 0x00010000);
    put16(file, static_cast<std::uint32_t>(tables.size()));
    file.append(6, '\0'); // hints for a binary search
    for (const auto& [tag, bytes] : tables) {
        file += tag;
        put32(file, 0); // check sums are made where the font is embedded
        put32(file, static_cast<std::uint32_t>(12 + 16 * tables.size() + body.size()));
        put32(file, static_cast<std::uint32_t>(bytes.size()));
        body += bytes;
        body.append((4 - bytes.size() % 4) % 4, '\0');
    }
    return file + body;
}

} // namespace

TrueTypeFont::TrueTypeFont(std::string file, unsigned index)
    : file_(std::move(file)), directory_(start_of_font(file_, index))
{
    const std::uint32_t kind = u32(within(file_, directory_, 12), 0);
    if (kind != 0x00010000 && kind != 0x74727565) fail(u"la fuente no tiene contornos TrueType");
    check_that_documents_may_carry_it();
    read_sizes();
    read_characters();
    read_measures();
    read_name();
    read_family();
}

FontPart TrueTypeFont::part(TextView characters) const
{
    ChosenGlyphs chosen;
    chosen.add(0);
    std::vector<Mapped> mapped;
    for (const char16_t c : characters)
        if (has(c)) mapped.push_back({c, chosen.add(glyph_of_[c])});
    const std::size_t whole = chosen.size();

    FontPart part;
    std::string outlines, offsets, metrics;
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        std::string copy(outline(chosen[i]));
        for (const std::size_t place : pieces(copy)) {
            const unsigned piece = chosen.add(std::min<unsigned>(u16(copy, place), glyphs_ - 1));
            replace16(copy, place, piece);
            if (i >= whole) part.inner_pieces.push_back(piece);
        }
        put32(offsets, static_cast<std::uint32_t>(outlines.size()));
        outlines += copy;
        outlines.append((4 - outlines.size() % 4) % 4, '\0');
        put16(metrics, static_cast<std::uint32_t>(advance(chosen[i])));
        put16(metrics, left_bearing(chosen[i]));
    }
    put32(offsets, static_cast<std::uint32_t>(outlines.size()));

    const auto count = static_cast<std::uint32_t>(chosen.size());
    part.file = font_file({{"OS/2", std::string(96, '\0')},
                           {"cmap", character_table(mapped)},
                           {"glyf", outlines},
                           {"cvt ", std::string(optional_table("cvt "))},
                           {"fpgm", std::string(optional_table("fpgm"))},
                           {"head", with16(table("head"), 50, 1)},
                           {"hhea", with16(table("hhea"), 34, count)},
                           {"hmtx", metrics},
                           {"loca", offsets},
                           {"maxp", with16(table("maxp"), 4, count)},
                           {"prep", std::string(optional_table("prep"))},
                           {"name", name_table(name_)}}); // libharu finds no empty table at the end
    return part;
}

std::string_view TrueTypeFont::optional_table(std::string_view tag) const
{
    const std::string_view file = file_;
    for (std::size_t entry = directory_ + 12, count = u16(file, directory_ + 4); count > 0;
         --count, entry += 16)
        if (within(file, entry, 16).substr(0, 4) == tag)
            return within(file, u32(file, entry + 8), u32(file, entry + 12));
    return {};
}

std::string_view TrueTypeFont::table(std::string_view tag) const
{
    static const std::map<std::string_view, std::size_t> least = {{"head", 54}, {"hhea", 36}, {"maxp", 6}};
    const std::string_view found = optional_table(tag);
    const auto size = least.find(tag);
    if (found.size() < (size == least.end() ? 1 : size->second)) fail(u"a la fuente le falta una tabla");
    return found;
}

void TrueTypeFont::check_that_documents_may_carry_it() const
{
    constexpr unsigned never = 2, only_whole = 0x100, only_bitmaps = 0x200;
    const unsigned rights = u16(optional_table("OS/2"), 8);
    if (rights & (never | only_whole | only_bitmaps)) fail(u"la fuente no permite incluirla en documentos");
}

void TrueTypeFont::read_sizes()
{
    units_per_em_ = u16(table("head"), 18);
    long_offsets_ = u16(table("head"), 50) != 0;
    glyphs_ = u16(table("maxp"), 4);
    advances_ = u16(table("hhea"), 34);
    metrics_ = table("hmtx");
    offsets_ = table("loca");
    outlines_ = table("glyf");
    if (units_per_em_ == 0 || glyphs_ == 0 || advances_ == 0 || metrics_.size() / 4 < advances_)
        fail(u"la fuente está dañada");
}

void TrueTypeFont::read_characters()
{
    const std::string_view characters = table("cmap");
    glyph_of_ = glyphs_by_character(characters.substr(start_of_characters(characters)), glyphs_);
    offer_private_characters(glyph_of_);
}

// The system of most designers spaces lines by the sizes that OS/2 states.
void TrueTypeFont::read_measures()
{
    const std::string_view windows = optional_table("OS/2"), others = table("hhea");
    const auto share = [&](int units) { return static_cast<double>(units) / units_per_em_; };
    measures_.ascent = share(windows.size() >= 78 ? u16(windows, 74) : s16(others, 4));
    measures_.descent = share(windows.size() >= 78 ? u16(windows, 76) : -s16(others, 6));
    const std::string_view post = optional_table("post");
    if (s16(post, 8) < 0) measures_.underline = share(s16(post, 10) / 2 - s16(post, 8));
}

// Documents spell it with letters, digits and hyphens.
void TrueTypeFont::read_name()
{
    constexpr std::size_t longest = 60;
    const std::string_view names = optional_table("name");
    for (std::size_t entry = 6, count = u16(names, 2); count > 0 && name_.empty(); --count, entry += 12) {
        if (u16(names, entry + 6) != 6 || entry + 12 > names.size()) continue;
        const std::size_t start = std::size_t{u16(names, 4)} + u16(names, entry + 10);
        for (const char c : names.substr(std::min(start, names.size()), u16(names, entry + 8)))
            if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-')
                name_ += c;
    }
    name_.resize(std::min(name_.size(), longest));
    if (name_.empty()) name_ = "Fuente";
}

// As Windows spells it; in English where it has several names.
void TrueTypeFont::read_family()
{
    constexpr unsigned windows = 3, english = 0x409, family = 1;
    const std::string_view names = optional_table("name");
    for (std::size_t entry = 6, count = u16(names, 2); count > 0; --count, entry += 12) {
        if (entry + 12 > names.size() || u16(names, entry) != windows || u16(names, entry + 6) != family)
            continue;
        if (!family_.empty() && u16(names, entry + 4) != english) continue;
        const std::size_t start = std::size_t{u16(names, 4)} + u16(names, entry + 10);
        const std::string_view letters = names.substr(std::min(start, names.size()), u16(names, entry + 8));
        family_.clear();
        for (std::size_t i = 0; i + 1 < letters.size(); i += 2)
            family_ += static_cast<char16_t>(u16(letters, i));
    }
}

// The last one holds for all glyphs after it.
int TrueTypeFont::advance(unsigned glyph) const
{
    return u16(metrics_, std::size_t{4} * std::min(glyph, advances_ - 1));
}

unsigned TrueTypeFont::left_bearing(unsigned glyph) const
{
    const std::size_t of_advances = std::size_t{4} * std::min(glyph, advances_ - 1) + 2;
    return u16(metrics_, of_advances + (glyph < advances_ ? 0 : std::size_t{2} * (glyph - advances_ + 1)));
}

// Empty for a blank and for one whose place cannot be right.
std::string_view TrueTypeFont::outline(unsigned glyph) const
{
    const auto offset = [this](std::size_t i) {
        return long_offsets_ ? u32(offsets_, 4 * i) : std::size_t{2} * u16(offsets_, 2 * i);
    };
    constexpr std::size_t smallest = 10;
    const std::size_t start = offset(glyph), end = offset(std::size_t{glyph} + 1);
    if (end > outlines_.size() || end < start + smallest) return {};
    return outlines_.substr(start, end - start);
}

} // namespace tolvex::pages
