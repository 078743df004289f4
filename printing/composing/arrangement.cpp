#include "printing/composing/canvas.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

constexpr double tolerance = 0.1; // points by which items of a designer's grid overlap unnoticed

double bottom(const ReportItem& item) { return item.top + item.height; }

bool stand_over_each_other(const ReportItem& a, const ReportItem& b)
{
    return a.left + tolerance < b.left + b.width && b.left + tolerance < a.left + a.width;
}

// Makers of layouts let text boxes overlap a little: up to a third, the lower one still moves with the upper
// one.
bool is_above(const ReportItem& upper, const ReportItem& lower)
{
    const bool in_line = stand_over_each_other(upper, lower) && upper.top < lower.top;
    const double allowed = in_line ? std::min(upper.height, lower.height) / 3 : 0;
    return bottom(upper) <= lower.top + std::max(allowed, tolerance);
}

// Of those above an item (or above the lower edge, for none), the ones with none of the others between.
std::vector<std::size_t> directly_above(const std::vector<Arrangement::Place>& places, const ReportItem* item)
{
    std::vector<std::size_t> above;
    for (std::size_t i = 0; i < places.size(); ++i)
        if (places[i].item != item && (!item || is_above(*places[i].item, *item))) above.push_back(i);
    const auto has_one_below = [&](std::size_t i) {
        return std::any_of(above.begin(), above.end(), [&](std::size_t j) {
            return j != i && places[j].item->top + tolerance >= bottom(*places[i].item) &&
                   bottom(*places[j].item) > bottom(*places[i].item);
        });
    };
    std::vector<std::size_t> direct;
    std::copy_if(above.begin(), above.end(), std::back_inserter(direct),
                 [&](std::size_t i) { return !has_one_below(i); });
    return direct;
}

bool covers_less(const Arrangement::Place& a, const Arrangement::Place& b)
{
    if (a.item->z_index != b.item->z_index) return a.item->z_index < b.item->z_index;
    return a.item->top < b.item->top;
}

// The order to place in: what covers others comes after them, but nothing before what stands above it.
std::vector<Arrangement::Place> in_order(const std::vector<Arrangement::Place>& places)
{
    std::vector<Arrangement::Place> ordered;
    std::vector<std::size_t> new_place(places.size(), places.size());
    while (ordered.size() < places.size()) {
        std::size_t next = places.size();
        for (std::size_t i = 0; i < places.size(); ++i) {
            const auto is_placed = [&](std::size_t above) { return new_place[above] < places.size(); };
            if (is_placed(i) || !std::all_of(places[i].above.begin(), places[i].above.end(), is_placed))
                continue;
            if (next == places.size() || covers_less(places[i], places[next])) next = i;
        }
        new_place[next] = ordered.size();
        ordered.push_back(places[next]);
        for (std::size_t& above : ordered.back().above) above = new_place[above];
    }
    return ordered;
}

Arrangement arranged(const std::vector<ReportItem>& items)
{
    std::vector<Arrangement::Place> places;
    for (const ReportItem& item : items) places.push_back({&item, {}, false});
    for (Arrangement::Place& place : places) place.above = directly_above(places, place.item);
    // Of lines without height, each may seem to stand above the other: only the earlier one does.
    for (std::size_t i = 0; i < places.size(); ++i)
        std::erase_if(places[i].above, [&](std::size_t above) {
            const ReportItem &item = *places[i].item, &other = *places[above].item;
            return other.top > item.top || (other.top == item.top && above > i);
        });
    Arrangement arrangement{in_order(places), {}};
    double highest = 1e9;
    for (auto place = arrangement.places.rbegin(); place != arrangement.places.rend(); ++place) {
        place->alone = highest + tolerance >= bottom(*place->item);
        highest = std::min(highest, place->item->top);
    }
    arrangement.above_bottom = directly_above(arrangement.places, nullptr);
    return arrangement;
}

} // namespace

const Arrangement& Canvas::arrangement(const std::vector<ReportItem>& items)
{
    const auto known = arrangements_.find(&items);
    if (known != arrangements_.end()) return known->second;
    return arrangements_.emplace(&items, arranged(items)).first->second;
}

} // namespace tolvex::printing
