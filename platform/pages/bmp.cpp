#include "platform/pages/bmp.hpp"
#include "platform/pages/byte_order.hpp"

#include "core/errors.hpp"

#include <algorithm>
#include <array>
#include <bit>

namespace tolvex::pages {

namespace {

[[noreturn]] void fail() { throw invalid_call(u"la imagen está dañada"); }

enum class Compression : std::uint32_t
{
    none,
    runs_of_8_bits,
    runs_of_4_bits,
    masks,
    masks_with_opacity = 6
};

using Color = std::array<char, 4>;

class Bitmap
{
public:
    explicit Bitmap(const Picture& picture)
        : bytes_(picture.bytes), header_(little_endian(bytes_, 14, 4)), width_(picture.width),
          height_(picture.height)
    {
        rows_from_top_ = !is_oldest() && static_cast<std::int32_t>(little_endian(bytes_, 22, 4)) < 0;
        bits_ = little_endian(bytes_, is_oldest() ? 24 : 28, 2);
        compression_ = is_oldest() ? Compression::none : Compression(little_endian(bytes_, 30, 4));
        read_masks();
        read_palette();
    }

    Pixels decode()
    {
        const std::size_t start = little_endian(bytes_, 10, 4);
        if (start >= bytes_.size()) fail();
        const std::string_view body = bytes_.substr(start);
        if (compression_ == Compression::runs_of_8_bits && bits_ == 8)
            read_runs(body);
        else if (compression_ == Compression::runs_of_4_bits && bits_ == 4)
            read_runs(body);
        else
            read_rows(body);
        return std::move(pixels_);
    }

private:
    bool is_oldest() const { return header_ == 12; }
    bool has_masks() const
    {
        return compression_ == Compression::masks || compression_ == Compression::masks_with_opacity;
    }

    void read_masks()
    {
        if (compression_ == Compression::none) {
            masks_ = bits_ == 16 ? std::array{0x7C00U, 0x03E0U, 0x001FU, 0U}
                                 : std::array{0xFF0000U, 0xFF00U, 0xFFU, 0U};
            return;
        }
        const bool opacity = compression_ == Compression::masks_with_opacity || header_ >= 56;
        for (std::size_t i = 0; i < 3; ++i) masks_[i] = little_endian(bytes_, 54 + 4 * i, 4);
        masks_[3] = opacity ? little_endian(bytes_, 66, 4) : 0;
    }

    void read_palette()
    {
        const std::size_t entry = is_oldest() ? 3 : 4;
        std::size_t at = std::size_t{14} + header_;
        if (header_ == 40 && has_masks()) at += compression_ == Compression::masks ? 12 : 16;
        for (Color& color : palette_) {
            color = {char(u8(bytes_, at + 2)), char(u8(bytes_, at + 1)), char(u8(bytes_, at)), '\xFF'};
            at += entry;
        }
    }

    // Once it is known that the file has something for all of it.
    void start() { pixels_ = {width_, height_, std::string(std::size_t{4} * width_ * height_, '\0')}; }

    void set(int x, int y, const Color& color)
    {
        const int row = rows_from_top_ ? y : height_ - 1 - y;
        pixels_.rgba.replace(4 * (static_cast<std::size_t>(row) * width_ + x), 4, color.data(), 4);
    }

    // Whole rows, each to a multiple of four bytes.
    void read_rows(std::string_view body)
    {
        const bool known_size =
            bits_ == 1 || bits_ == 4 || bits_ == 8 || bits_ == 16 || bits_ == 24 || bits_ == 32;
        if (!known_size || (compression_ != Compression::none && !(has_masks() && bits_ >= 16))) fail();
        const std::size_t size = (static_cast<std::size_t>(width_) * bits_ + 31) / 32 * 4;
        if (body.size() / size < static_cast<std::size_t>(height_)) fail();
        start();
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x) set(x, y, color_at(body.substr(size * y, size), x));
    }

    Color color_at(std::string_view row, std::size_t x) const
    {
        if (bits_ > 8) return masked(little_endian(row, x * (bits_ / 8), bits_ / 8));
        const unsigned per_byte = 8 / bits_, shift = 8 - bits_ * (x % per_byte + 1);
        return palette_[(u8(row, x / per_byte) >> shift) & ((1U << bits_) - 1)];
    }

    Color masked(std::uint32_t pixel) const
    {
        Color color;
        for (std::size_t i = 0; i < 4; ++i) color[i] = static_cast<char>(part(pixel, masks_[i]));
        if (masks_[3] == 0) color[3] = '\xFF';
        return color;
    }

    // The bits under a mask as a byte.
    static unsigned part(std::uint32_t pixel, std::uint32_t mask)
    {
        if (mask == 0) return 0;
        const int shift = std::countr_zero(mask);
        return static_cast<unsigned>(std::uint64_t{(pixel & mask) >> shift} * 255 / (mask >> shift));
    }

    // Pairs of bytes: a count and what is repeated, or zero and an order; the higher orders count pixels
    // that follow as they are.
    void read_runs(std::string_view body)
    {
        constexpr unsigned end_of_row = 0, end_of_picture = 1, move = 2;
        start();
        for (std::size_t at = 0; at + 2 <= body.size() && y_ < height_;) {
            const unsigned count = u8(body, at), order = u8(body, at + 1);
            at += 2;
            if (count > 0)
                repeat(order, count);
            else if (order == end_of_row)
                move_to(0, y_ + 1);
            else if (order == end_of_picture)
                return;
            else if (order == move) {
                move_to(x_ + u8(body, at), y_ + u8(body, at + 1));
                at += 2;
            } else
                at += draw(body.substr(at), order);
        }
        if (y_ < height_) fail(); // cut off
    }

    void move_to(int x, int y)
    {
        x_ = std::min(x, width_);
        y_ = std::min(y, height_);
    }

    // Two of four bits stand in a byte, which are taken in turn.
    void repeat(unsigned byte, unsigned count)
    {
        for (unsigned i = 0; i < count; ++i) draw(byte, i);
    }

    // Returns the bytes that these pixels take, a multiple of two.
    std::size_t draw(std::string_view bytes, unsigned count)
    {
        const std::size_t per_byte = bits_ == 8 ? 1 : 2;
        for (unsigned i = 0; i < count; ++i) draw(u8(bytes, i / per_byte), i);
        return (count + 2 * per_byte - 1) / (2 * per_byte) * 2;
    }

    void draw(unsigned byte, unsigned turn)
    {
        const unsigned number = bits_ == 8 ? byte : turn % 2 == 0 ? byte >> 4 : byte & 15;
        if (x_ < width_ && y_ < height_) set(x_++, y_, palette_[number]);
    }

    const std::string_view bytes_;
    const std::uint32_t header_; // its size, which tells its kind
    const int width_, height_;
    Pixels pixels_;
    bool rows_from_top_ = false;
    int x_ = 0, y_ = 0; // where runs go on
    unsigned bits_ = 0;
    Compression compression_ = Compression::none;
    std::array<std::uint32_t, 4> masks_{}; // red, green, blue, opacity
    std::array<Color, 256> palette_;
};

} // namespace

Pixels decoded_bmp(const Picture& picture) { return Bitmap(picture).decode(); }

} // namespace tolvex::pages
