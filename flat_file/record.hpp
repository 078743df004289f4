// One record of a flat file: its name and its values.
#pragma once

#include "tolvex/errors.hpp"
#include "tolvex/types.hpp"

#include <vector>

namespace tolvex {

// What is wrong with a record, in words for the user.
Error wrong(const Text& reason);

// Values are read by their position, counted from 1; their names are for messages. All readings throw
// wrong(…) with record, value and what was expected.
class Record
{
public:
    explicit Record(const Text& line);

    // In upper case.
    Text name() const;
    void expect_values(std::size_t least, std::size_t most) const;

    // As it stands; the other text when it is empty or missing.
    Text text(std::size_t i, const Text& otherwise = u"") const;
    std::int16_t int16(std::size_t i, const char16_t* value_name) const;
    std::int32_t int32(std::size_t i, const char16_t* value_name) const;
    Currency amount(std::size_t i, const char16_t* value_name) const;
    Currency amount(std::size_t i, const char16_t* value_name, Currency otherwise) const;
    // An amount that is handed on as the text it is.
    Text amount_text(std::size_t i, const char16_t* value_name) const;
    Date date(std::size_t i, const char16_t* value_name) const;
    // 0 or 1.
    bool boolean(std::size_t i, const char16_t* value_name, bool otherwise) const;

private:
    bool has(std::size_t i) const;
    Error wrong_value(std::size_t i, const char16_t* value_name, const Text& expected) const;
    template <class Convert>
    auto converted(std::size_t i, const char16_t* value_name, const Text& expected, Convert convert) const;

    std::vector<Text> fields_;
};

} // namespace tolvex
