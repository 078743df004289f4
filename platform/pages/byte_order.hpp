// Numbers as files of fonts and pictures hold them, read within bounds and written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tolvex::pages {

// Zero beyond the end: a reader that minds looks at the size first.
inline std::uint8_t u8(std::string_view bytes, std::size_t at)
{
    return at < bytes.size() ? static_cast<std::uint8_t>(bytes[at]) : 0;
}

// Most significant byte first.
inline std::uint32_t big_endian(std::string_view bytes, std::size_t at, unsigned count)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i) value = value << 8 | u8(bytes, at + i);
    return value;
}

// Least significant byte first.
inline std::uint32_t little_endian(std::string_view bytes, std::size_t at, unsigned count)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i) value |= std::uint32_t{u8(bytes, at + i)} << (8 * i);
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
