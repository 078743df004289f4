// How a report item looks: its style with every expression evaluated.
#pragma once

#include "platform/pages/page.hpp"
#include "printing/composing/scope_environment.hpp"

namespace tolvex::printing {

// A color by its name or as "#RRGGBB"; empty for Transparent and what is none.
std::optional<pages::Color> color(TextView text);

struct Stroke
{
    double width = 0; // 0: no line
    pages::Color color;
    pages::Dashes dashes = pages::Dashes::solid;
    bool twofold = false;
};

struct Look
{
    Stroke left, top, right, bottom;
    std::optional<pages::Color> background;
    double padding_left = 0, padding_top = 0, padding_right = 0, padding_bottom = 0;
    enum class Vertical
    {
        top,
        middle,
        bottom
    } vertical = Vertical::top;
    int rotation = 0; // 90 reads downwards, 270 upwards

    // Neither background nor borders.
    bool is_plain() const { return !background && left.width + top.width + right.width + bottom.width == 0; }
};
Look look_of(const Style& style, const ScopeEnvironment& here, const Place& place);

enum class Horizontal
{
    general, // numbers and dates to the right, the rest to the left
    left,
    center,
    right
};

struct TextLook
{
    pages::Font font;
    pages::Color color;
    bool underlined = false, overlined = false, struck = false;
    Text format;
    const Culture* culture = nullptr;
};
TextLook text_look_of(const Style& style, const ScopeEnvironment& here, const Place& place);
Horizontal horizontal_of(const Style& style, const ScopeEnvironment& here, const Place& place);

// The value of a property; what fails is remarked and gives the empty text.
Text property(const Expression& expression, const ScopeEnvironment& here, const Place& place);
// The same for a length; `otherwise` when it is empty or none.
double length_property(const Expression& expression, const ScopeEnvironment& here, const Place& place,
                       double otherwise = 0);
bool is_true(const Expression& expression, const ScopeEnvironment& here, const Place& place);

} // namespace tolvex::printing
