#include "printing/composing/canvas.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

constexpr double tolerance = 0.1; // points by which items of a designer's grid overlap unnoticed

double bottom(const ReportItem& item) { return item.top + item.height; }

// Of those that end above `top`, the ones with none of the others between.
std::vector<std::size_t> directly_above(const std::vector<Arrangement::Place>& places, double top)
{
    std::vector<std::size_t> above;
    for (std::size_t i = 0; i < places.size(); ++i)
        if (bottom(*places[i].item) <= top + tolerance) above.push_back(i);
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

Arrangement arranged(const std::vector<ReportItem>& items)
{
    Arrangement arrangement;
    for (const ReportItem& item : items) arrangement.places.push_back({&item, {}, false});
    auto& places = arrangement.places;
    std::stable_sort(places.begin(), places.end(),
                     [](const auto& a, const auto& b) { return a.item->top < b.item->top; });
    double lowest = 1e9;
    for (std::size_t i = places.size(); i-- > 0;) {
        places[i].above = directly_above(places, places[i].item->top);
        std::erase(places[i].above, i);
        places[i].alone = lowest + tolerance >= bottom(*places[i].item);
        lowest = std::min(lowest, places[i].item->top);
    }
    arrangement.above_bottom = directly_above(places, 1e9);
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
