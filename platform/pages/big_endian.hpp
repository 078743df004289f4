// Numbers in the byte order of font files and of most pictures, read within bounds and written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tolvex::pages {

// Zero beyond the end: a reader that minds looks at the size first.
inline std::uint32_t big_endian(std::string_view bytes, std::size_t at, unsigned count)
{
    std::uint32_t value = 0;
    for (std::size_t i = at; i < at + count; ++i)
        value = value << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
    return value;
}

inline std::uint16_t u16(std::string_view bytes, std::size_t at)
{
    return static_cast<std::uint16_t>(big_endian(bytes, at, 2));
}
inline std::int16_t s16(std::string_view bytes, std::size_t at)
{
    return static_cast<std::int16_t>(u16(bytes, at));
}
inline std::uint32_t u32(std::string_view bytes, std::size_t at) { return big_endian(bytes, at, 4); }

inline void put16(std::string& bytes, std::uint32_t value)
{
    bytes += static_cast<char>(value >> 8);
    bytes += static_cast<char>(value);
}
inline void put32(std::string& bytes, std::uint32_t value)
{
    put16(bytes, value >> 16);
    put16(bytes, value);
}
inline void replace16(std::string& bytes, std::size_t at, std::uint32_t value)
{
    bytes[at] = static_cast<char>(value >> 8);
    bytes[at + 1] = static_cast<char>(value);
}

} // namespace tolvex::pages
