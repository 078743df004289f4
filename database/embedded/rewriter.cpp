#include "database/embedded/rewriter.hpp"

#include "core/text.hpp"
#include "database/embedded/tokens.hpp"

#include <algorithm>
#include <array>

namespace tolvex::embedded {

namespace {

using Kind = Token::Kind;

const Token nothing;

const Token& at(const Tokens& tokens, std::size_t i) { return i < tokens.size() ? tokens[i] : nothing; }

bool is_word(const Token& token, TextView word)
{
    return token.kind == Kind::word && equal_ignoring_case(token.text, word);
}

bool is_identifier(const Token& token) { return token.kind == Kind::word || token.kind == Kind::name; }

void drop(Token& token) { token.kind = Kind::dropped; }

void remove_dropped(Tokens& tokens)
{
    std::erase_if(tokens, [](const Token& token) { return token.kind == Kind::dropped; });
}

bool is_hint(const Token& token)
{
    static constexpr std::array<TextView, 10> hints = {
        u"nolock",  u"readuncommitted", u"readcommitted", u"readpast", u"rowlock",
        u"updlock", u"holdlock",        u"xlock",         u"tablock",  u"paglock"};
    return std::any_of(hints.begin(), hints.end(), [&](TextView hint) { return is_word(token, hint); });
}

// Position past a list of hints in parentheses; the position itself when there is none.
std::size_t past_hints(const Tokens& tokens, std::size_t opening)
{
    std::size_t i = opening;
    do {
        if (!is_hint(at(tokens, i + 1))) return opening;
        i += 2;
    } while (at(tokens, i).is(u","));
    return at(tokens, i).is(u")") ? i + 1 : opening;
}

// T s(nolock), T with (nolock, rowlock)
void drop_hints(Tokens& tokens)
{
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].is(u"(")) continue;
        const std::size_t end = past_hints(tokens, i);
        if (end > i && i > 0 && tokens[i - 1].is(u"with")) drop(tokens[i - 1]);
        std::for_each(tokens.begin() + i, tokens.begin() + end, drop);
    }
}

bool is_owner(const Token& token)
{
    return is_word(token, u"dbo") || (token.kind == Kind::name && equal_ignoring_case(token.text, u"[dbo]"));
}

// dbo.T, dbo.f(x)
void drop_owner(Tokens& tokens)
{
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i)
        if (is_owner(tokens[i]) && tokens[i + 1].is(u".")) {
            drop(tokens[i]);
            drop(tokens[i + 1]);
        }
}

bool changes_rows(const Token& token)
{
    return token.is(u"insert") || token.is(u"update") || token.is(u"delete");
}

bool ends_transaction(const Token& token) { return token.is(u"commit") || token.is(u"rollback"); }

bool opens_statement(const Token& token)
{
    return changes_rows(token) || token.is(u"select") || token.is(u"begin") || ends_transaction(token);
}

// Statements that are over before any verb of another one.
bool is_short(const Token& verb) { return verb.is(u"set") || verb.is(u"begin") || ends_transaction(verb); }

// Marks where statements start: T-SQL needs no ";" between them. Settings (set dateformat ymd) have no
// counterpart and are left out.
void divide_statements(Tokens& tokens)
{
    Token verb;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        Token& token = tokens[i];
        const bool first = i == 0 || tokens[i - 1].is(u";");
        const bool parts = changes_rows(token) || ends_transaction(token);
        const bool next = is_short(verb) ? opens_statement(token) : parts && opens_statement(verb);
        if (first || next) {
            token.starts_statement = true;
            verb = token;
        }
        if (verb.is(u"set") && !token.is(u";")) drop(token);
    }
}

// Delete T, Insert T, begin tran, commit tran
void complete_statements(Tokens& tokens)
{
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        const Token& verb = tokens[i];
        Token& next = tokens[i + 1];
        if (!verb.starts_statement) continue;
        if (verb.is(u"delete") && !next.is(u"from")) next.before = u"from ";
        if (verb.is(u"insert") && !next.is(u"into")) next.before = u"into ";
        const bool transaction = next.is(u"tran") || next.is(u"transaction");
        if (verb.is(u"begin") && transaction) next.text = u"immediate";
        if (ends_transaction(verb) && transaction) next.text = u"transaction";
    }
}

// For every parenthesis the position of the other one; the number of tokens where there is none.
std::vector<std::size_t> partners_of(const Tokens& tokens)
{
    std::vector<std::size_t> partners(tokens.size(), tokens.size()), open;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].is(u"(")) open.push_back(i);
        if (!tokens[i].is(u")") || open.empty()) continue;
        partners[i] = open.back();
        partners[open.back()] = i;
        open.pop_back();
    }
    return partners;
}

using Partners = std::vector<std::size_t>;

void quote(Tokens& tokens, std::size_t first, std::size_t end)
{
    if (first >= end || end > tokens.size()) return;
    tokens[first].before = u"'";
    tokens[end - 1].after = u"'";
}

// convert(varchar(10), x, 103) to convert('varchar(10)', x, 103)
void rewrite_convert(Tokens& tokens, std::size_t opening, const Partners& partners)
{
    std::size_t comma = opening + 2;
    if (at(tokens, comma).is(u"(")) comma = partners[comma] + 1;
    if (at(tokens, comma).is(u",")) quote(tokens, opening + 1, comma);
}

// cast(x as varchar(10)) to cast_to(x, 'varchar(10)')
void rewrite_cast(Tokens& tokens, std::size_t opening, const Partners& partners)
{
    const std::size_t closing = partners[opening];
    if (closing == tokens.size()) return;
    constexpr std::size_t longest_type = 6; // decimal(18,2)
    const std::size_t furthest = closing - std::min(closing - opening, longest_type + 1);
    std::size_t as = closing;
    while (as > furthest && !tokens[as].is(u"as")) --as;
    if (!tokens[as].is(u"as")) return;
    tokens[opening - 1].text = u"cast_to";
    tokens[as].text = u",";
    tokens[as].kind = Kind::symbol;
    quote(tokens, as + 1, closing);
}

void rename(Token& function, TextView name)
{
    function.kind = Kind::word;
    function.text = name;
}

// Functions whose names or arguments the engine would take for something else.
void rewrite_functions(Tokens& tokens, const Partners& partners)
{
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        Token& function = tokens[i];
        if (!tokens[i + 1].is(u"(")) continue;
        if (function.is(u"left"))
            rename(function, u"\"left\"");
        else if (function.is(u"right"))
            rename(function, u"\"right\"");
        else if (is_word(function, u"isnull"))
            rename(function, u"ifnull");
        else if (is_word(function, u"convert"))
            rewrite_convert(tokens, i + 1, partners);
        else if (is_word(function, u"cast"))
            rewrite_cast(tokens, i + 1, partners);
        else if (is_word(function, u"getdate")) {
            rename(function, u"datetime");
            tokens[i + 1].after = u"'now','localtime'";
        }
    }
}

// Before a union too, where the engine takes no limit and says so: it would otherwise apply to the whole.
bool ends_select(const Token& token)
{
    return token.is(u")") || token.is(u";") || token.is(u"select") || token.is(u"union") ||
           token.is(u"except") || token.is(u"intersect") || token.starts_statement;
}

bool ends_select_list(const Token& token)
{
    return ends_select(token) || token.is(u"from") || token.is(u"into") || token.is(u"where") ||
           token.is(u"order") || token.is(u"group");
}

std::size_t past_operand(const Tokens& tokens, std::size_t i, const Partners& partners)
{
    return tokens[i].is(u"(") ? std::min(partners[i], tokens.size() - 1) + 1 : i + 1;
}

// One item of a select list: Alias=expression to expression as Alias. Gives the position past the item.
std::size_t rewrite_item(Tokens& tokens, std::size_t i, const Partners& partners)
{
    TextView alias;
    const bool may_name = is_identifier(at(tokens, i)) || at(tokens, i).kind == Kind::literal;
    if (may_name && at(tokens, i + 1).is(u"=")) {
        alias = tokens[i].text;
        drop(tokens[i]);
        drop(tokens[i + 1]);
        i += 2;
    }
    while (i < tokens.size() && !tokens[i].is(u",") && !ends_select_list(tokens[i]))
        i = past_operand(tokens, i, partners);
    if (!alias.empty()) tokens[i - 1].alias = alias;
    return i;
}

// top n: dropped here, a limit at the end of the select. Gives the position past it.
std::size_t rewrite_top(Tokens& tokens, std::size_t top, const Partners& partners)
{
    const bool parenthesized = at(tokens, top + 1).is(u"(");
    const std::size_t count = top + (parenthesized ? 2 : 1);
    const std::size_t past = count + (parenthesized ? 2 : 1);
    if (at(tokens, count).kind != Kind::number || past > tokens.size()) return top + 1;
    std::for_each(tokens.begin() + top, tokens.begin() + past, drop);
    std::size_t end = past;
    while (end < tokens.size() && !ends_select(tokens[end])) end = past_operand(tokens, end, partners);
    tokens[end - 1].limit = tokens[count].text;
    return past;
}

void rewrite_selects(Tokens& tokens, const Partners& partners)
{
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (!tokens[i].is(u"select")) continue;
        std::size_t item = i + 1;
        if (at(tokens, item).is(u"distinct") || at(tokens, item).is(u"all")) ++item;
        if (at(tokens, item).is(u"top")) item = rewrite_top(tokens, item, partners);
        item = rewrite_item(tokens, item, partners);
        while (at(tokens, item).is(u",")) item = rewrite_item(tokens, item + 1, partners);
    }
}

// "a + b - c + d" to plus(plus(a,b) - c,d): what "+" means in T-SQL is settled by its operands' values.
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
        if (token.kind != Kind::symbol) return token.kind == Kind::keyword;
        return token.is(u",") || token.is(u";") ||
               TextView(u"<>=!").find(token.text.front()) != TextView::npos;
    }

    bool is_binary(const Token& token)
    {
        if (!(token.is(u"+") || token.is(u"-")) || !chain().start) return false;
        const Token& previous = tokens_[position_ - 1];
        return previous.kind != Kind::symbol || previous.is(u")");
    }

    Tokens& tokens_;
    std::size_t position_ = 0;
    std::vector<Chain> chains_;
};

Text text_of(const Tokens& tokens, std::size_t expected_size)
{
    Text sql;
    sql.reserve(expected_size);
    for (const Token& token : tokens) {
        if (token.starts_statement && !sql.empty()) sql += u';';
        sql.append(u" ").append(token.before);
        for (int i = 0; i < token.sums_begun; ++i) sql += u"plus(";
        sql.append(token.text).append(token.after).append(token.sums_ended, u')');
        if (!token.alias.empty()) sql.append(u" as ").append(token.alias);
        if (!token.limit.empty()) sql.append(u" limit ").append(token.limit);
    }
    return sql;
}

} // namespace

Text to_sqlite(TextView sql)
{
    Tokens tokens = tokenize(sql);
    drop_hints(tokens);
    drop_owner(tokens);
    remove_dropped(tokens);
    divide_statements(tokens);
    remove_dropped(tokens);
    complete_statements(tokens);
    const Partners partners = partners_of(tokens);
    rewrite_functions(tokens, partners);
    rewrite_selects(tokens, partners);
    remove_dropped(tokens);
    Sums(tokens).rewrite();
    return text_of(tokens, sql.size() + 2 * tokens.size());
}

} // namespace tolvex::embedded
