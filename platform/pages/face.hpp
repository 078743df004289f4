// A face: one cut of a family (bold, say) as this machine has it, in a font file or, without one, among the
// fourteen that every reader of PDF files brings along.
#pragma once

#include "platform/pages/true_type.hpp"

#include <map>

namespace tolvex::pages {

class Face
{
public:
    virtual ~Face() = default;

    virtual bool has(char16_t c) const = 0;
    // In thousandths of the font's size.
    virtual int width(char16_t c) const = 0;
    virtual const FontMeasures& measures() const = 0;
    // Its name in a document; several faces may have the same one.
    virtual const std::string& name() const = 0;
    // The family that the system knows it by.
    virtual const Text& family() const = 0;
    // What a document carries of it when it uses that character; null when readers bring the face along.
    virtual const FontPart* part_with(char16_t c) const = 0;
};

// A face in a font file. Documents carry its western characters, and blocks of 256 others.
class FileFace : public Face
{
public:
    // Throws Error 5 when the file holds no font that documents may carry, 53, 57 or 75 when it cannot be
    // read.
    explicit FileFace(const FontFile& file);

    bool has(char16_t c) const override { return font_.has(c); }
    int width(char16_t c) const override { return font_.width(c); }
    const FontMeasures& measures() const override { return font_.measures(); }
    const std::string& name() const override { return font_.name(); }
    const Text& family() const override { return font_.family(); }
    const FontPart* part_with(char16_t c) const override;

private:
    const TrueTypeFont font_;
    mutable std::map<int, FontPart> parts_; // cut when they are first asked for
};

// One of the fourteen: western characters only.
class BaseFace : public Face
{
public:
    explicit BaseFace(const std::string& name);

    bool has(char16_t c) const override;
    int width(char16_t c) const override;
    const FontMeasures& measures() const override { return measures_; }
    const std::string& name() const override { return name_; }
    const Text& family() const override { return family_; }
    const FontPart* part_with(char16_t) const override { return nullptr; }

private:
    const std::string name_;
    const Text family_; // the word before the cut: Helvetica, Times, Courier
    FontMeasures measures_;
    int widths_[256] = {}; // by western byte
};

} // namespace tolvex::pages
