#include "platform/windows/forms/icon_image.hpp"

#include "platform/windows/shapes.hpp"

namespace tolvex {

namespace {

using shapes::Color, shapes::Shape;

constexpr Color outline{86, 98, 112}, paper{255, 255, 255}, fold{205, 213, 222}, ruling{170, 182, 196},
    plus{34, 139, 58}, wood{246, 211, 160}, paint{240, 173, 35}, shade{214, 142, 16}, lead{60, 66, 74},
    ferrule{176, 184, 192}, rubber{222, 108, 104};

// A sheet with a folded corner, two ruled lines and a plus.
const std::vector<Shape> new_record = {{outline, {{2, 0.5}, {9, 0.5}, {13, 4.5}, {13, 15}, {2, 15}}},
                                       {paper, {{3, 1.5}, {8.5, 1.5}, {12, 5}, {12, 14}, {3, 14}}},
                                       {outline, {{8, 0.8}, {12.7, 5.5}, {8, 5.5}}},
                                       {fold, {{9, 2.2}, {11.3, 4.5}, {9, 4.5}}},
                                       {ruling, {{4.5, 7}, {10.5, 7}, {10.5, 8}, {4.5, 8}}},
                                       {ruling, {{4.5, 9.5}, {7.5, 9.5}, {7.5, 10.5}, {4.5, 10.5}}},
                                       {paper,
                                        {{9, 7.5},
                                         {14, 7.5},
                                         {14, 9},
                                         {16, 9},
                                         {16, 14},
                                         {14, 14},
                                         {14, 16},
                                         {9, 16},
                                         {9, 14},
                                         {7, 14},
                                         {7, 9},
                                         {9, 9}}},
                                       {plus,
                                        {{10.3, 8.3},
                                         {12.7, 8.3},
                                         {12.7, 10.8},
                                         {15.2, 10.8},
                                         {15.2, 13.2},
                                         {12.7, 13.2},
                                         {12.7, 15.7},
                                         {10.3, 15.7},
                                         {10.3, 13.2},
                                         {7.8, 13.2},
                                         {7.8, 10.8},
                                         {10.3, 10.8}}}};

// A pencil that points to the lower left.
const std::vector<Shape> edit_record = {
    {outline, {{11.6, 0.4}, {15.6, 4.4}, {5.2, 14.8}, {0.4, 15.6}, {1.2, 10.8}}},
    {rubber, {{11.6, 1.6}, {14.4, 4.4}, {13.2, 5.6}, {10.4, 2.8}}},
    {ferrule, {{10, 3.2}, {12.8, 6}, {11.8, 7}, {9, 4.2}}},
    {paint, {{8.6, 4.6}, {10, 6}, {3.6, 12.4}, {2.2, 11}}},
    {shade, {{10, 6}, {11.4, 7.4}, {5, 13.8}, {3.6, 12.4}}},
    {wood, {{2, 11.4}, {4.6, 14}, {1.4, 14.6}}},
    {lead, {{1.7, 13}, {3, 14.3}, {1.3, 14.7}}}};

const std::vector<Shape>& shapes_of(Icon icon) { return icon == Icon::new_record ? new_record : edit_record; }

} // namespace

HBITMAP draw_icon(Icon icon, int pixels) { return shapes::drawn(shapes_of(icon), pixels); }

} // namespace tolvex
