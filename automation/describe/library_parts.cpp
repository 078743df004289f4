#include "automation/describe/library_parts.hpp"

#include "core/code_pages.hpp"

#include <cstring>
#include <stdexcept>

namespace tolvex::automation {

namespace {

std::string bytes_of(const wchar_t* text) { return to_windows_1252(from_wide(text)); }

void put_short(std::string& part, std::size_t value)
{
    part += static_cast<char>(value & 0xFF);
    part += static_cast<char>(value >> 8);
}

template <std::size_t count>
std::string words_of(const std::array<Word, count>& heads)
{
    std::string words;
    for (const Word head : heads) put(words, {head});
    return words;
}

Word inline_value(VARTYPE type, std::uint16_t value)
{
    return 0x80000000 | static_cast<Word>(type) << 26 | value;
}

} // namespace

void put(std::string& part, std::initializer_list<Word> words)
{
    for (const Word word : words) {
        put_short(part, word & 0xFFFF);
        put_short(part, word >> 16);
    }
}

void pad(std::string& part) { part.resize((part.size() + 3) / 4 * 4, 'W'); }

Word LibraryTexts::add(const wchar_t* text)
{
    const auto place = static_cast<Word>(part_.size());
    const auto [known, is_new] = places_.emplace(text, place);
    if (!is_new) return known->second;
    const std::string bytes = bytes_of(text);
    put_short(part_, bytes.size());
    part_ += bytes;
    pad(part_);
    return place;
}

Word LibraryNames::add(const std::wstring& name, Word owner, Word kind)
{
    const auto place = static_cast<Word>(part_.size());
    const auto [known, is_new] = places_.emplace(name, place);
    if (!is_new) return known->second;
    const std::string bytes = bytes_of(name.c_str());
    const Word hash = LHashValOfNameSys(system_, name_language, name.c_str()) & 0xFFFF;
    Word& head = heads_[hash % heads_.size()];
    put(part_, {owner, head, static_cast<Word>(bytes.size()) | kind << 8 | hash << 16});
    part_ += bytes;
    pad(part_);
    head = place;
    characters_ += static_cast<Word>(bytes.size());
    return place;
}

std::string LibraryNames::heads() const { return words_of(heads_); }

Word LibraryIdentifiers::add(const GUID& id, Word owner)
{
    const auto place = static_cast<Word>(part_.size());
    std::array<std::uint16_t, 8> halves{};
    std::memcpy(halves.data(), &id, sizeof id);
    unsigned hash = 0;
    for (const std::uint16_t half : halves) hash ^= half;
    Word& head = heads_[hash % heads_.size()];
    part_.append(reinterpret_cast<const char*>(&id), sizeof id);
    put(part_, {owner, head});
    head = place;
    return place;
}

std::string LibraryIdentifiers::heads() const { return words_of(heads_); }

Word LibraryPointers::add(VARTYPE pointed)
{
    const auto [known, is_new] = places_.emplace(pointed, static_cast<Word>(part_.size()));
    if (is_new)
        put(part_, {VT_PTR | Word{0x4000u | pointed} << 16, 0x80000000 | Word{pointed} << 16 | pointed});
    return known->second;
}

Word LibraryDefaults::add(const VARIANT& value)
{
    if (value.vt == VT_BOOL || (value.vt == VT_I2 && value.iVal >= 0))
        return inline_value(value.vt, static_cast<std::uint16_t>(value.iVal));
    const auto place = static_cast<Word>(part_.size());
    put_short(part_, value.vt);
    if (value.vt == VT_CY) {
        put(part_, {value.cyVal.Lo, static_cast<Word>(value.cyVal.Hi)});
    } else if (value.vt == VT_BSTR) {
        const std::string bytes = value.bstrVal ? bytes_of(value.bstrVal) : std::string();
        put(part_, {static_cast<Word>(bytes.size())});
        part_ += bytes;
    } else {
        throw std::logic_error("a default value of a type that the writer does not know");
    }
    pad(part_);
    return place;
}

} // namespace tolvex::automation
