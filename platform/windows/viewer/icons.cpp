#include "platform/windows/viewer/icons.hpp"

#include <cmath>
#include <numbers>

namespace tolvex {

namespace {

using shapes::Color, shapes::Point, shapes::Shape;

constexpr Color ink{70, 82, 96}, paper{255, 255, 255}, ruling{170, 182, 196}, accent{24, 104, 176},
    glass{222, 236, 248}, body{150, 162, 176}, seal{176, 44, 52};

using Picture = std::vector<Shape>;

Shape bar(Color color, double left, double top, double right, double bottom)
{
    return {color, {{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
}

Shape disc(Color color, Point centre, double radius)
{
    constexpr int corners = 40;
    Shape shape{color, {}};
    for (int i = 0; i < corners; ++i) {
        const double turn = 2 * std::numbers::pi * i / corners;
        shape.corners.push_back({centre.x + radius * std::cos(turn), centre.y + radius * std::sin(turn)});
    }
    return shape;
}

Picture joined(Picture first, const Picture& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// --- what several pictures share ---

Picture sheet(double left, double top, double right, double bottom)
{
    return {bar(ink, left, top, right, bottom), bar(paper, left + 1, top + 1, right - 1, bottom - 1)};
}

Picture magnifier()
{
    return {{ink, {{9.6, 11}, {11, 9.6}, {15.6, 14.2}, {14.2, 15.6}}},
            disc(ink, {6.5, 6.5}, 6),
            disc(glass, {6.5, 6.5}, 4.7)};
}

Picture arrow(Color color, bool up, double middle, double from, double to)
{
    const double head = (from + to) / 2, begin = up ? to : from, end = up ? from : to;
    return {{color, {{middle - 5, head}, {middle, end}, {middle + 5, head}}},
            bar(color, middle - 1.8, std::min(begin, head), middle + 1.8, std::max(begin, head))};
}

Picture chevron(bool up)
{
    const double tip = up ? 4 : 12, ends = up ? 10 : 6, thick = up ? 2.6 : -2.6;
    return {
        {ink, {{2, ends}, {8, tip}, {14, ends}, {14, ends + thick}, {8, tip + thick}, {2, ends + thick}}}};
}

Picture turned(Picture picture)
{
    for (Shape& shape : picture)
        for (Point& corner : shape.corners) std::swap(corner.x, corner.y);
    return picture;
}

// --- the pictures ---

Picture printer()
{
    return {bar(ink, 3, 1, 13, 6),       bar(paper, 4, 2, 12, 6),      bar(ink, 0.5, 5, 15.5, 12),
            bar(body, 1.5, 6, 14.5, 11), bar(paper, 12, 7, 13.4, 8.2), bar(ink, 3, 9, 13, 15.5),
            bar(paper, 4, 10, 12, 14.5), bar(ruling, 5, 11, 11, 12),   bar(ruling, 5, 12.7, 9, 13.7)};
}

Picture file()
{
    return joined({{ink, {{2, 0.5}, {9, 0.5}, {13, 4.5}, {13, 15.5}, {2, 15.5}}},
                   {paper, {{3, 1.5}, {8.5, 1.5}, {12, 5}, {12, 14.5}, {3, 14.5}}},
                   {ink, {{8, 0.8}, {12.7, 5.5}, {8, 5.5}}},
                   {ruling, {{9, 2.2}, {11.3, 4.5}, {9, 4.5}}}},
                  arrow(seal, false, 7.5, 6, 13.5));
}

Picture one_to_one()
{
    return joined(sheet(0.5, 1.5, 15.5, 14.5),
                  {bar(accent, 4, 4.5, 5.6, 11.5),
                   {accent, {{2.6, 6}, {4, 4.5}, {4, 6.6}, {2.6, 7.4}}},
                   bar(accent, 7.2, 6, 8.8, 7.5),
                   bar(accent, 7.2, 9.5, 8.8, 11),
                   bar(accent, 11.8, 4.5, 13.4, 11.5),
                   {accent, {{10.4, 6}, {11.8, 4.5}, {11.8, 6.6}, {10.4, 7.4}}}});
}

Picture arrows_across()
{
    return {{accent, {{2, 8}, {5.4, 4.8}, {5.4, 11.2}}},
            {accent, {{14, 8}, {10.6, 4.8}, {10.6, 11.2}}},
            bar(accent, 5, 7.2, 11, 8.8)};
}

Picture page_width() { return joined(sheet(0.5, 1.5, 15.5, 14.5), arrows_across()); }

Picture page_height() { return joined(sheet(2.5, 0.5, 13.5, 15.5), turned(arrows_across())); }

Picture smaller() { return joined(magnifier(), {bar(accent, 3.5, 5.7, 9.5, 7.3)}); }

Picture larger() { return joined(smaller(), {bar(accent, 5.7, 3.5, 7.3, 9.5)}); }

} // namespace

const std::vector<Shape>& picture_of(ViewerCommand command)
{
    static const std::vector<std::pair<ViewerCommand, Picture>> pictures = {
        {ViewerCommand::print, printer()},
        {ViewerCommand::save, file()},
        {ViewerCommand::previous_page, arrow(accent, true, 8, 2, 14)},
        {ViewerCommand::next_page, arrow(accent, false, 8, 2, 14)},
        {ViewerCommand::zoom_out, smaller()},
        {ViewerCommand::zoom_in, larger()},
        {ViewerCommand::real_size, one_to_one()},
        {ViewerCommand::fit_width, page_width()},
        {ViewerCommand::whole_page, page_height()},
        {ViewerCommand::find_previous, chevron(true)},
        {ViewerCommand::find_next, chevron(false)}};
    static const Picture none;
    for (const auto& [of, picture] : pictures)
        if (of == command) return picture;
    return none;
}

const std::vector<Shape>& viewer_picture()
{
    static const Picture page =
        joined(sheet(2, 0.5, 14, 15.5),
               {bar(accent, 4, 2.5, 12, 4.5), bar(ruling, 4, 6, 12, 7), bar(ruling, 4, 8, 12, 9),
                bar(ruling, 4, 10, 12, 11), bar(seal, 9, 12, 12, 13.6)});
    return page;
}

} // namespace tolvex
