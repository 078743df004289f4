// The parts that a type library file (MSFT) is made of. Records name each other by their place in a part.
#pragma once

#include "automation/description.hpp"

#include <array>
#include <map>

namespace tolvex::automation {

using Word = std::uint32_t;

inline constexpr LCID name_language = 0x409; // names are hashed by the rules of English
inline constexpr Word nothing = 0xFFFFFFFF;  // where a place could stand

void put(std::string& part, std::initializer_list<Word> words);
// Up to the next word.
void pad(std::string& part);

// Texts that users read, each once, in code page 1252.
class LibraryTexts
{
public:
    Word add(const wchar_t* text);
    const std::string& part() const { return part_; }

private:
    std::map<std::wstring, Word> places_;
    std::string part_;
};

// Every name once, found through lists of those whose hash ends alike.
class LibraryNames
{
public:
    explicit LibraryNames(SYSKIND system) : system_(system) { heads_.fill(nothing); }

    // OWNER: the place of the type that it names or whose method it names. KIND: the word's second byte.
    Word add(const std::wstring& name, Word owner = nothing, Word kind = 0);
    Word count() const { return static_cast<Word>(places_.size()); }
    Word characters() const { return characters_; }
    const std::string& part() const { return part_; }
    std::string heads() const;

private:
    SYSKIND system_;
    std::array<Word, 128> heads_;
    std::map<std::wstring, Word> places_;
    Word characters_ = 0;
    std::string part_;
};

// Unique identifiers, hashed likewise.
class LibraryIdentifiers
{
public:
    LibraryIdentifiers() { heads_.fill(nothing); }

    Word add(const GUID& id, Word owner);
    const std::string& part() const { return part_; }
    std::string heads() const;

private:
    std::array<Word, 32> heads_;
    std::string part_;
};

// Pointers to plain types.
class LibraryPointers
{
public:
    Word add(VARTYPE pointed);
    const std::string& part() const { return part_; }

private:
    std::map<VARTYPE, Word> places_;
    std::string part_;
};

// What an omitted argument becomes. A number of at most 26 bits stands in the function's record itself.
class LibraryDefaults
{
public:
    Word add(const VARIANT& value);
    const std::string& part() const { return part_; }

private:
    std::string part_;
};

} // namespace tolvex::automation
