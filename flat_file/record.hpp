// One record of a flat file: its name and its values.
#pragma once

#include "flat_file/record_layout.hpp"
#include "tolvex/errors.hpp"

#include <vector>

namespace tolvex {

// What is wrong with a record, in words for the user.
Error wrong(const Text& reason);

// Values are read by their position, counted from 1. All readings throw wrong(…) with record, value and what
// was expected.
class Record
{
public:
    // Throws for a name that no record has and for a wrong number of values; empty ones too many are
    // overlooked.
    explicit Record(const Text& line);

    const RecordLayout& layout() const { return layout_; }
    bool is(TextView name) const { return layout_.name == name; }

    // As it stands; the other text when it is empty or missing.
    Text text(std::size_t i, const Text& otherwise = u"") const;
    std::int16_t int16(std::size_t i) const;
    std::int16_t int16(std::size_t i, std::int16_t otherwise) const;
    std::int32_t int32(std::size_t i) const;
    Currency amount(std::size_t i) const;
    Currency amount(std::size_t i, Currency otherwise) const;
    // An amount that is handed on as the text it is.
    Text amount_text(std::size_t i) const;
    Date date(std::size_t i) const;
    bool boolean(std::size_t i, bool otherwise) const;
    // "ingreso" or "egreso", in any letter case; the first when it is empty.
    Text document_kind(std::size_t i) const;

    // Puts plain forms for the signs that have one (plain_text.hpp); the positions of the values that
    // changed.
    std::vector<std::size_t> make_plain();
    // "el valor 4 de DETALLE (Producto)"
    Text value_in_words(std::size_t i) const;

private:
    bool has(std::size_t i) const;
    Error wrong_value(std::size_t i, const Text& expected) const;
    template <class Convert>
    auto converted(std::size_t i, const Text& expected, Convert convert) const;

    std::vector<Text> fields_;
    const RecordLayout& layout_;
};

} // namespace tolvex
