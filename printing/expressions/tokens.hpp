// The words of an expression.
#pragma once

#include "printing/expressions/variant.hpp"

namespace tolvex::printing {

struct Token
{
    enum class Kind
    {
        end,
        value, // a literal: number, text, date
        name,
        sign
    } kind = Kind::end;
    Text text; // a name as it is written, a sign
    Text key;  // a name in lower case
    Variant value;
    std::size_t begin = 0, end = 0; // in the source

    bool is_sign(TextView sign) const { return kind == Kind::sign && text == sign; }
    bool is_name(TextView lower) const { return kind == Kind::name && key == lower; }
};

// Of the source from a place on; the last one is the end. Throws Error 5 with the place for what is no word.
std::vector<Token> tokens_of(TextView source, std::size_t begin);

// "en la posición 12", from 1.
Text place_in_source(std::size_t position);

} // namespace tolvex::printing
