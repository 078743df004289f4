#include "database/embedded/tsql/passes.hpp"

namespace tolvex::embedded {

namespace {

// Goes once over the tokens and keeps, for each depth, the sum that it is in.
class Sums
{
public:
    explicit Sums(Tokens& tokens) : tokens_(tokens) {}

    void rewrite()
    {
        for (position_ = 0; position_ < tokens_.size(); ++position_) visit(tokens_[position_]);
        while (!chains_.empty()) close();
    }

private:
    // Operands joined by "+" and "-", at one depth of parentheses or of a "case".
    struct Chain
    {
        Token* start = nullptr;
        bool plus_open = false;
        bool of_case = false;
    };

    void visit(Token& token)
    {
        if (token.is(u")"))
            close();
        else if (token.is(u"end") && chain().of_case)
            close();
        else if (token.is(u"("))
            open(token, false);
        else if (token.is(u"case"))
            open(token, true);
        else if (divides(token))
            end_chain();
        else if (is_binary(token))
            join(token);
        else
            operand(token);
    }

    Chain& chain()
    {
        if (chains_.empty()) chains_.emplace_back();
        return chains_.back();
    }

    void operand(Token& token)
    {
        if (!chain().start) chain().start = &token;
    }

    void open(Token& token, bool of_case)
    {
        operand(token);
        chains_.push_back({nullptr, false, of_case});
    }

    void close()
    {
        end_chain();
        chains_.pop_back();
    }

    void end_chain()
    {
        end_plus();
        chain().start = nullptr;
    }

    void end_plus()
    {
        if (chain().plus_open) ++tokens_[position_ - 1].sums_ended;
        chain().plus_open = false;
    }

    void join(Token& token)
    {
        end_plus();
        if (!token.is(u"+")) return;
        ++chain().start->sums_begun;
        chain().plus_open = true;
        token.text = u",";
    }

    static bool divides(const Token& token)
    {
        if (token.kind != Token::Kind::symbol) return token.kind == Token::Kind::keyword;
        return token.is(u",") || token.is(u";") ||
               TextView(u"<>=!").find(token.text.front()) != TextView::npos;
    }

    bool is_binary(const Token& token)
    {
        if (!(token.is(u"+") || token.is(u"-")) || !chain().start) return false;
        const Token& previous = tokens_[position_ - 1];
        return previous.kind != Token::Kind::symbol || previous.is(u")");
    }

    Tokens& tokens_;
    std::size_t position_ = 0;
    std::vector<Chain> chains_;
};

} // namespace

void rewrite_sums(Tokens& tokens) { Sums(tokens).rewrite(); }

} // namespace tolvex::embedded
