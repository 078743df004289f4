#include "platform/windows/pages/resampling.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tolvex {

namespace {

constexpr int channels = 4, opacity = 3;

// What the pixels of a line count in one pixel of another line; the shares make one.
struct Shares
{
    int first = 0;
    std::vector<float> of;
};

// A tent over the middle of each new pixel, as wide as what it covers.
std::vector<Shares> shares(int from, int to)
{
    const double step = static_cast<double>(from) / to, reach = std::max(step, 1.0);
    std::vector<Shares> all(static_cast<std::size_t>(to));
    for (int i = 0; i < to; ++i) {
        const double middle = (i + 0.5) * step;
        Shares& shares = all[static_cast<std::size_t>(i)];
        shares.first = std::max(static_cast<int>(std::floor(middle - reach)), 0);
        const int last = std::min(static_cast<int>(std::ceil(middle + reach)), from);
        double sum = 0;
        for (int source = shares.first; source < last; ++source) {
            const double share = std::max(1 - std::abs(source + 0.5 - middle) / reach, 0.0);
            shares.of.push_back(static_cast<float>(share));
            sum += share;
        }
        for (float& share : shares.of) share = static_cast<float>(share / sum);
    }
    return all;
}

using Line = std::vector<float>; // four numbers a pixel, colours weighed by their opacity

Line weighed_row(const pages::Pixels& pixels, int row)
{
    const std::size_t size = static_cast<std::size_t>(pixels.width) * channels;
    Line line(size);
    for (std::size_t i = 0; i < size; ++i) {
        const auto byte = [&](std::size_t at) {
            return static_cast<float>(static_cast<unsigned char>(pixels.rgba[row * size + at]));
        };
        const float weight = byte(i / channels * channels + opacity) / 255;
        line[i] = i % channels == opacity ? byte(i) : byte(i) * weight;
    }
    return line;
}

Line resampled_row(const Line& row, const std::vector<Shares>& columns)
{
    Line line(columns.size() * channels);
    for (std::size_t x = 0; x < columns.size(); ++x)
        for (std::size_t i = 0; i < columns[x].of.size(); ++i)
            for (std::size_t channel = 0; channel < channels; ++channel)
                line[x * channels + channel] +=
                    columns[x].of[i] *
                    row[(static_cast<std::size_t>(columns[x].first) + i) * channels + channel];
    return line;
}

void append_row(std::string& rgba, const Line& line)
{
    for (std::size_t i = 0; i < line.size(); ++i) {
        const float alpha = line[i / channels * channels + opacity];
        const float value = i % channels == opacity ? alpha : alpha > 0 ? line[i] * 255 / alpha : 0;
        rgba += static_cast<char>(static_cast<unsigned char>(std::clamp(std::lround(value), 0L, 255L)));
    }
}

// The rows of a picture, each made narrower or wider when it is first needed; those above are let go.
class Rows
{
public:
    Rows(const pages::Pixels& pixels, int width)
        : pixels_(pixels), columns_(shares(pixels.width, width)),
          rows_(static_cast<std::size_t>(pixels.height))
    {}

    const Line& row(int number)
    {
        Line& row = rows_[static_cast<std::size_t>(number)];
        if (row.empty()) row = resampled_row(weighed_row(pixels_, number), columns_);
        return row;
    }
    void let_go_above(int number)
    {
        for (; let_go_ < number; ++let_go_) Line().swap(rows_[static_cast<std::size_t>(let_go_)]);
    }

private:
    const pages::Pixels& pixels_;
    const std::vector<Shares> columns_;
    std::vector<Line> rows_;
    int let_go_ = 0;
};

} // namespace

pages::Pixels resampled(const pages::Pixels& pixels, int width, int height)
{
    if (pixels.width == width && pixels.height == height) return pixels;
    pages::Pixels made{width, height, {}};
    made.rgba.reserve(std::size_t{4} * width * height);
    Rows rows(pixels, width);
    for (const Shares& covered : shares(pixels.height, height)) {
        Line line(static_cast<std::size_t>(width) * channels);
        rows.let_go_above(covered.first);
        for (std::size_t i = 0; i < covered.of.size(); ++i) {
            const Line& row = rows.row(covered.first + static_cast<int>(i));
            for (std::size_t x = 0; x < line.size(); ++x) line[x] += covered.of[i] * row[x];
        }
        append_row(made.rgba, line);
    }
    return made;
}

} // namespace tolvex
