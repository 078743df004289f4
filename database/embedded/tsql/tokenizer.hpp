// Cuts a T-SQL text into its tokens.
#pragma once

#include "database/embedded/tsql/tokens.hpp"

namespace tolvex::embedded {

// Gives views into the text, without blanks and comments. A quote that nobody closes runs to the end.
class Tokenizer
{
public:
    explicit Tokenizer(TextView sql) : sql_(sql) {}
    // False at the end of the text.
    bool next(Token& token);

private:
    char16_t at(std::size_t position) const { return position < sql_.size() ? sql_[position] : u'\0'; }
    bool is_at(TextView text) const { return sql_.substr(position_).starts_with(text); }
    void skip_blanks();
    std::size_t past(TextView closing, std::size_t from) const;
    std::size_t past_quoted(std::size_t opening, TextView closing) const;
    std::size_t end_of_number() const;
    void take(Token& token, Token::Kind kind, std::size_t end);
    void take_word(Token& token);

    TextView sql_;
    std::size_t position_ = 0;
    bool qualified_ = false; // what comes next stands behind a point
};

Tokens tokenize(TextView sql);

} // namespace tolvex::embedded
