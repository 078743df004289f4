#include "core/text.hpp"
#include "printing/composing/look.hpp"

#include <algorithm>
#include <array>

namespace tolvex::printing {

namespace {

struct NamedColor
{
    TextView name;
    std::uint32_t rgb;
};

// The color names of the web (CSS Color Module Level 4), which layouts use; sorted.
constexpr NamedColor named_colors[] = {{u"aliceblue", 0xF0F8FF},
                                       {u"antiquewhite", 0xFAEBD7},
                                       {u"aqua", 0x00FFFF},
                                       {u"aquamarine", 0x7FFFD4},
                                       {u"azure", 0xF0FFFF},
                                       {u"beige", 0xF5F5DC},
                                       {u"bisque", 0xFFE4C4},
                                       {u"black", 0x000000},
                                       {u"blanchedalmond", 0xFFEBCD},
                                       {u"blue", 0x0000FF},
                                       {u"blueviolet", 0x8A2BE2},
                                       {u"brown", 0xA52A2A},
                                       {u"burlywood", 0xDEB887},
                                       {u"cadetblue", 0x5F9EA0},
                                       {u"chartreuse", 0x7FFF00},
                                       {u"chocolate", 0xD2691E},
                                       {u"coral", 0xFF7F50},
                                       {u"cornflowerblue", 0x6495ED},
                                       {u"cornsilk", 0xFFF8DC},
                                       {u"crimson", 0xDC143C},
                                       {u"cyan", 0x00FFFF},
                                       {u"darkblue", 0x00008B},
                                       {u"darkcyan", 0x008B8B},
                                       {u"darkgoldenrod", 0xB8860B},
                                       {u"darkgray", 0xA9A9A9},
                                       {u"darkgreen", 0x006400},
                                       {u"darkkhaki", 0xBDB76B},
                                       {u"darkmagenta", 0x8B008B},
                                       {u"darkolivegreen", 0x556B2F},
                                       {u"darkorange", 0xFF8C00},
                                       {u"darkorchid", 0x9932CC},
                                       {u"darkred", 0x8B0000},
                                       {u"darksalmon", 0xE9967A},
                                       {u"darkseagreen", 0x8FBC8F},
                                       {u"darkslateblue", 0x483D8B},
                                       {u"darkslategray", 0x2F4F4F},
                                       {u"darkturquoise", 0x00CED1},
                                       {u"darkviolet", 0x9400D3},
                                       {u"deeppink", 0xFF1493},
                                       {u"deepskyblue", 0x00BFFF},
                                       {u"dimgray", 0x696969},
                                       {u"dodgerblue", 0x1E90FF},
                                       {u"firebrick", 0xB22222},
                                       {u"floralwhite", 0xFFFAF0},
                                       {u"forestgreen", 0x228B22},
                                       {u"fuchsia", 0xFF00FF},
                                       {u"gainsboro", 0xDCDCDC},
                                       {u"ghostwhite", 0xF8F8FF},
                                       {u"gold", 0xFFD700},
                                       {u"goldenrod", 0xDAA520},
                                       {u"gray", 0x808080},
                                       {u"green", 0x008000},
                                       {u"greenyellow", 0xADFF2F},
                                       {u"honeydew", 0xF0FFF0},
                                       {u"hotpink", 0xFF69B4},
                                       {u"indianred", 0xCD5C5C},
                                       {u"indigo", 0x4B0082},
                                       {u"ivory", 0xFFFFF0},
                                       {u"khaki", 0xF0E68C},
                                       {u"lavender", 0xE6E6FA},
                                       {u"lavenderblush", 0xFFF0F5},
                                       {u"lawngreen", 0x7CFC00},
                                       {u"lemonchiffon", 0xFFFACD},
                                       {u"lightblue", 0xADD8E6},
                                       {u"lightcoral", 0xF08080},
                                       {u"lightcyan", 0xE0FFFF},
                                       {u"lightgoldenrodyellow", 0xFAFAD2},
                                       {u"lightgray", 0xD3D3D3},
                                       {u"lightgreen", 0x90EE90},
                                       {u"lightgrey", 0xD3D3D3},
                                       {u"lightpink", 0xFFB6C1},
                                       {u"lightsalmon", 0xFFA07A},
                                       {u"lightseagreen", 0x20B2AA},
                                       {u"lightskyblue", 0x87CEFA},
                                       {u"lightslategray", 0x778899},
                                       {u"lightsteelblue", 0xB0C4DE},
                                       {u"lightyellow", 0xFFFFE0},
                                       {u"lime", 0x00FF00},
                                       {u"limegreen", 0x32CD32},
                                       {u"linen", 0xFAF0E6},
                                       {u"magenta", 0xFF00FF},
                                       {u"maroon", 0x800000},
                                       {u"mediumaquamarine", 0x66CDAA},
                                       {u"mediumblue", 0x0000CD},
                                       {u"mediumorchid", 0xBA55D3},
                                       {u"mediumpurple", 0x9370DB},
                                       {u"mediumseagreen", 0x3CB371},
                                       {u"mediumslateblue", 0x7B68EE},
                                       {u"mediumspringgreen", 0x00FA9A},
                                       {u"mediumturquoise", 0x48D1CC},
                                       {u"mediumvioletred", 0xC71585},
                                       {u"midnightblue", 0x191970},
                                       {u"mintcream", 0xF5FFFA},
                                       {u"mistyrose", 0xFFE4E1},
                                       {u"moccasin", 0xFFE4B5},
                                       {u"navajowhite", 0xFFDEAD},
                                       {u"navy", 0x000080},
                                       {u"oldlace", 0xFDF5E6},
                                       {u"olive", 0x808000},
                                       {u"olivedrab", 0x6B8E23},
                                       {u"orange", 0xFFA500},
                                       {u"orangered", 0xFF4500},
                                       {u"orchid", 0xDA70D6},
                                       {u"palegoldenrod", 0xEEE8AA},
                                       {u"palegreen", 0x98FB98},
                                       {u"paleturquoise", 0xAFEEEE},
                                       {u"palevioletred", 0xDB7093},
                                       {u"papayawhip", 0xFFEFD5},
                                       {u"peachpuff", 0xFFDAB9},
                                       {u"peru", 0xCD853F},
                                       {u"pink", 0xFFC0CB},
                                       {u"plum", 0xDDA0DD},
                                       {u"powderblue", 0xB0E0E6},
                                       {u"purple", 0x800080},
                                       {u"red", 0xFF0000},
                                       {u"rosybrown", 0xBC8F8F},
                                       {u"royalblue", 0x4169E1},
                                       {u"saddlebrown", 0x8B4513},
                                       {u"salmon", 0xFA8072},
                                       {u"sandybrown", 0xF4A460},
                                       {u"seagreen", 0x2E8B57},
                                       {u"seashell", 0xFFF5EE},
                                       {u"sienna", 0xA0522D},
                                       {u"silver", 0xC0C0C0},
                                       {u"skyblue", 0x87CEEB},
                                       {u"slateblue", 0x6A5ACD},
                                       {u"slategray", 0x708090},
                                       {u"snow", 0xFFFAFA},
                                       {u"springgreen", 0x00FF7F},
                                       {u"steelblue", 0x4682B4},
                                       {u"tan", 0xD2B48C},
                                       {u"teal", 0x008080},
                                       {u"thistle", 0xD8BFD8},
                                       {u"tomato", 0xFF6347},
                                       {u"turquoise", 0x40E0D0},
                                       {u"violet", 0xEE82EE},
                                       {u"wheat", 0xF5DEB3},
                                       {u"white", 0xFFFFFF},
                                       {u"whitesmoke", 0xF5F5F5},
                                       {u"yellow", 0xFFFF00},
                                       {u"yellowgreen", 0x9ACD32}};

pages::Color from_rgb(std::uint32_t rgb)
{
    return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
            static_cast<std::uint8_t>(rgb)};
}

int hex_digit(char16_t c)
{
    if (is_digit(c)) return c - u'0';
    const char16_t low = c | 0x20;
    return low >= u'a' && low <= u'f' ? low - u'a' + 10 : -1;
}

// "RRGGBB", "AARRGGBB" (opacity is ignored) or "RGB".
std::optional<pages::Color> from_hex(TextView digits)
{
    std::uint32_t number = 0;
    for (const char16_t c : digits) {
        if (hex_digit(c) < 0) return {};
        number = number << 4 | static_cast<std::uint32_t>(hex_digit(c));
    }
    if (digits.size() == 6 || digits.size() == 8) return from_rgb(number);
    if (digits.size() != 3) return {};
    return from_rgb((number & 0xF00) * 0x1100 | (number & 0xF0) * 0x110 | (number & 0xF) * 0x11);
}

} // namespace

std::optional<pages::Color> color(TextView text)
{
    const Text name = lower_case(trim(text));
    if (name.starts_with(u'#')) return from_hex(TextView(name).substr(1));
    const auto* found =
        std::lower_bound(std::begin(named_colors), std::end(named_colors), name,
                         [](const NamedColor& each, TextView sought) { return each.name < sought; });
    if (found == std::end(named_colors) || found->name != name) return {};
    return from_rgb(found->rgb);
}

} // namespace tolvex::printing
