#include "printing/expressions/parser.hpp"

#include "core/errors.hpp"
#include "core/text.hpp"
#include "printing/expressions/call.hpp"
#include "printing/expressions/collections.hpp"
#include "printing/expressions/forms.hpp"
#include "printing/expressions/functions/constants.hpp"
#include "printing/expressions/operator_nodes.hpp"
#include "printing/expressions/tokens.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

// How far parentheses, calls and signs may stand within one another, and how high the tree may become that
// they make together with operators and members: what parses and what evaluates goes down through them.
constexpr int deepest = 200, highest = 500;

struct BinaryOperator
{
    TextView word;
    Operator how;
    int level; // a higher one binds closer
};
constexpr int not_level = 4, sign_level = 12;
constexpr BinaryOperator binary_operators[] = {{u"xor", Operator::xor_, 0},
                                               {u"or", Operator::or_, 1},
                                               {u"orelse", Operator::or_else, 1},
                                               {u"and", Operator::and_, 2},
                                               {u"andalso", Operator::and_also, 2},
                                               {u"=", Operator::equal, 4},
                                               {u"<>", Operator::not_equal, 4},
                                               {u"<", Operator::less, 4},
                                               {u"<=", Operator::less_or_equal, 4},
                                               {u">", Operator::greater, 4},
                                               {u">=", Operator::greater_or_equal, 4},
                                               {u"like", Operator::like, 4},
                                               {u"is", Operator::is, 4},
                                               {u"isnot", Operator::is_not, 4},
                                               {u"&", Operator::join, 6},
                                               {u"+", Operator::add, 7},
                                               {u"-", Operator::subtract, 7},
                                               {u"mod", Operator::modulo, 8},
                                               {u"\\", Operator::divide_whole, 9},
                                               {u"*", Operator::multiply, 10},
                                               {u"/", Operator::divide, 10},
                                               {u"^", Operator::power, 12}};

class Parser
{
public:
    Parser(TextView source, std::size_t begin) : source_(source), tokens_(tokens_of(source, begin)) {}

    NodePtr whole();

private:
    NodePtr expression(int least_level);
    const BinaryOperator* binary_operator() const;
    NodePtr operand();
    NodePtr primary();
    NodePtr parenthesized();
    NodePtr with_members(NodePtr target);
    NodePtr indexed(const NodePtr& target);
    NodePtr member(const NodePtr& target);

    NodePtr named();
    NodePtr created();
    NodePtr known_name(const Text& key, const Text& spelled);
    NodePtr call(const NamedFunction& function, const Text& spelled);
    NodePtr collection_item(const Collection& collection);
    NodePtr global();
    Text dotted_name();

    std::vector<Argument> arguments(TextView closing);
    Argument argument();
    bool is_bare_name() const;

    const Token& token(std::size_t ahead = 0) const;
    bool take_sign(TextView sign);
    void expect(TextView sign);
    Text take_name();
    [[noreturn]] void fail_here() const;

    TextView source_;
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    int depth_ = 0;
};

[[noreturn]] void fail_too_deep() { throw invalid_call(u"La expresión está anidada a demasiados niveles"); }

NodePtr not_too_high(NodePtr node)
{
    if (node->height > highest) fail_too_deep();
    return node;
}

// Counts a level of nesting for as long as it is parsed.
class Descent
{
public:
    explicit Descent(int& depth) : depth_(depth)
    {
        if (++depth_ > deepest) fail_too_deep();
    }
    ~Descent() { --depth_; }
    Descent(const Descent&) = delete;
    Descent& operator=(const Descent&) = delete;

private:
    int& depth_;
};

NodePtr Parser::whole()
{
    NodePtr root = expression(0);
    if (token().kind != Token::Kind::end) fail_here();
    return root;
}

// Operators of one level that follow one another become one chain, however many they are.
NodePtr Parser::expression(int least_level)
{
    const Descent descent(depth_);
    NodePtr left = operand();
    std::shared_ptr<Chain> chain;
    int chain_level = -1;
    for (const auto* found = binary_operator(); found && found->level >= least_level;
         found = binary_operator()) {
        ++at_;
        NodePtr right = expression(found->level + 1);
        if (found->level != chain_level) {
            chain = std::make_shared<Chain>(left);
            chain_level = found->level;
            left = chain;
        }
        chain->add(found->how, std::move(right));
    }
    return not_too_high(left);
}

const BinaryOperator* Parser::binary_operator() const
{
    const Token& here = token();
    if (here.kind != Token::Kind::name && here.kind != Token::Kind::sign) return nullptr;
    const Text& word = here.kind == Token::Kind::name ? here.key : here.text;
    for (const BinaryOperator& known : binary_operators)
        if (known.word == word) return &known;
    return nullptr;
}

NodePtr Parser::operand()
{
    if (take_sign(u"-")) return std::make_shared<Negation>(expression(sign_level), false);
    if (take_sign(u"+")) return expression(sign_level);
    if (token().is_name(u"not")) {
        ++at_;
        return std::make_shared<Negation>(expression(not_level), true);
    }
    return with_members(primary());
}

NodePtr Parser::primary()
{
    const Token& here = token();
    if (here.kind == Token::Kind::name) return named();
    if (here.kind == Token::Kind::value) {
        ++at_;
        return std::make_shared<Constant>(here.value);
    }
    if (take_sign(u"(")) return parenthesized();
    if (take_sign(u"{")) return list_of(arguments(u"}"));
    fail_here();
}

NodePtr Parser::parenthesized()
{
    NodePtr inside = expression(0);
    expect(u")");
    return inside;
}

NodePtr Parser::with_members(NodePtr target)
{
    for (;;) {
        if (take_sign(u"."))
            target = not_too_high(member(target));
        else if (take_sign(u"("))
            target = not_too_high(indexed(target));
        else
            return target;
    }
}

NodePtr Parser::indexed(const NodePtr& target)
{
    const std::vector<Argument> index = arguments(u")");
    if (index.size() != 1) fail_here();
    return element_of(target, index.front().value());
}

NodePtr Parser::member(const NodePtr& target)
{
    const Text name = take_name();
    const NamedFunction* function = member_named(lower_case(name));
    if (!function) throw invalid_call(u"Miembro desconocido: " + name);
    std::vector<NodePtr> given{target};
    const bool empty_list = token().is_sign(u"(") && token(1).is_sign(u")");
    if ((function->most > 1 || empty_list) && take_sign(u"("))
        for (const Argument& argument : arguments(u")")) given.push_back(argument.value());
    return make_call(*function, name, std::move(given));
}

// Qualifiers that a layout may write before a function: System.Math.Round,
// Microsoft.VisualBasic.Strings.Left.
bool is_qualifier(TextView key)
{
    static constexpr TextView qualifiers[] = {
        u"system",        u"microsoft",  u"visualbasic", u"strings", u"interaction",
        u"dateandtime",   u"conversion", u"information", u"vbmath",  u"constants",
        u"globalization", u"math",       u"global",      u"text"};
    return std::find(std::begin(qualifiers), std::end(qualifiers), key) != std::end(qualifiers);
}

NodePtr Parser::named()
{
    if (const Collection* collection = collection_named(token().key)) {
        ++at_;
        return collection_item(*collection);
    }
    if (token().is_name(u"globals") || token().is_name(u"user")) return global();
    if (token().is_name(u"code")) throw invalid_call(u"El código propio (Code) no está soportado");
    if (token().is_name(u"new")) return created();
    const Text spelled = dotted_name();
    return known_name(lower_case(spelled), spelled);
}

// New Date(2010, 1, 31) and the few others that are functions here.
NodePtr Parser::created()
{
    ++at_;
    const Text spelled = dotted_name();
    if (token().is_sign(u"(") && token(1).is_sign(u")") && token(2).is_sign(u"{")) {
        at_ += 3; // New String() {"a", "b"}
        return list_of(arguments(u"}"));
    }
    const NamedFunction* function = function_named(u"new " + lower_case(spelled));
    if (!function) throw invalid_call(u"New " + spelled + u" no está soportado");
    return call(*function, spelled);
}

NodePtr Parser::known_name(const Text& key, const Text& spelled)
{
    if (const Form form = form_named(key)) {
        expect(u"(");
        return form(arguments(u")"));
    }
    if (const Variant* constant = constant_named(key)) return std::make_shared<Constant>(*constant);
    if (const NamedFunction* function = function_named(key)) return call(*function, spelled);
    throw invalid_call((token().is_sign(u"(") ? u"Función desconocida: " : u"Nombre desconocido: ") +
                       spelled);
}

NodePtr Parser::call(const NamedFunction& function, const Text& spelled)
{
    std::vector<NodePtr> given;
    const bool empty_list = token().is_sign(u"(") && token(1).is_sign(u")");
    if ((function.most > 0 || empty_list) && take_sign(u"("))
        for (const Argument& argument : arguments(u")")) given.push_back(argument.value());
    return make_call(function, spelled, std::move(given));
}

// Fields!Total.Value, Fields("Total").Value, Fields.Item("Total").Value.
NodePtr Parser::collection_item(const Collection& collection)
{
    Argument name;
    if (take_sign(u"!")) {
        name.source = take_name();
        name.node = std::make_shared<Constant>(name.source);
    } else {
        if (token().is_sign(u".") && token(1).is_name(u"item")) at_ += 2;
        expect(u"(");
        const std::vector<Argument> key = arguments(u")");
        if (key.size() != 1) fail_here();
        name = key.front();
    }
    const CollectionProperty* property = &collection.properties.front();
    if (token().is_sign(u".")) {
        if (const CollectionProperty* named = property_named(collection, token(1).key)) {
            property = named;
            at_ += 2;
        } else if (!member_named(token(1).key)) // Fields!X.ToString() speaks of the value
            throw invalid_call(u"Propiedad desconocida: " + name.source + u"." + token(1).text);
    }
    return item_of(collection, *property, name);
}

// Globals!PageNumber, Globals.PageNumber, Globals("PageNumber"), Globals!RenderFormat.Name, User!Language.
NodePtr Parser::global()
{
    const Text collection = token().text;
    ++at_;
    Text name;
    if (take_sign(u"!") || (token().is_sign(u".") && !token(1).is_name(u"item") && take_sign(u"."))) {
        name = take_name();
    } else {
        if (take_sign(u".")) ++at_;
        expect(u"(");
        const std::vector<Argument> key = arguments(u")");
        if (key.size() != 1) fail_here();
        name = key.front().constant_text().value_or(Text());
    }
    if (token().is_sign(u".") && global_named(name + u"." + token(1).text)) {
        name += u"." + token(1).text;
        at_ += 2;
    } else if (token().is_sign(u".") && token(1).is_name(u"value"))
        at_ += 2;
    const Text* known = global_named(name);
    if (!known) throw invalid_call(u"Nombre desconocido: " + collection + u"!" + name);
    return global_value(*known);
}

bool is_known_name(const Text& key) { return form_named(key) || constant_named(key) || function_named(key); }

// A name with its class before it, where there is one: "Math.Max" of System.Math.Max, "Now" of Now.Year.
Text Parser::dotted_name()
{
    Text name = take_name();
    while (token().is_sign(u".") && token(1).kind == Token::Kind::name) {
        const Text dotted = name + u"." + token(1).text;
        if (is_known_name(lower_case(dotted))) {
            at_ += 2;
            return dotted;
        }
        if (!is_qualifier(lower_case(name))) {
            if (is_known_name(lower_case(name))) return name;
            at_ += 2;
            return dotted; // unknown, and named whole
        }
        ++at_;
        name = take_name();
    }
    return name;
}

std::vector<Argument> Parser::arguments(TextView closing)
{
    std::vector<Argument> given;
    if (take_sign(closing)) return given;
    do given.push_back(argument());
    while (take_sign(u","));
    expect(closing);
    return given;
}

Argument Parser::argument()
{
    if (token().is_sign(u",") || token().is_sign(u")"))
        return {std::make_shared<Constant>(Variant()), Text()}; // left out
    if (is_bare_name()) return {nullptr, take_name()};
    const std::size_t begin = token().begin;
    NodePtr node = expression(0);
    return {std::move(node), Text(source_.substr(begin, tokens_[at_ - 1].end - begin))};
}

bool Parser::is_bare_name() const
{
    if (token().kind != Token::Kind::name || !(token(1).is_sign(u",") || token(1).is_sign(u")")))
        return false;
    return form_named(token().key) || !is_known_name(token().key);
}

const Token& Parser::token(std::size_t ahead) const
{
    return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

bool Parser::take_sign(TextView sign)
{
    if (!token().is_sign(sign)) return false;
    ++at_;
    return true;
}

void Parser::expect(TextView sign)
{
    if (take_sign(sign)) return;
    throw invalid_call(u"Se esperaba «" + Text(sign) + u"» " + place_in_source(token().begin));
}

Text Parser::take_name()
{
    if (token().kind != Token::Kind::name)
        throw invalid_call(u"Se esperaba un nombre " + place_in_source(token().begin));
    return tokens_[at_++].text;
}

void Parser::fail_here() const
{
    if (token().kind == Token::Kind::end) throw invalid_call(u"La expresión está incompleta");
    const Text found(source_.substr(token().begin, token().end - token().begin));
    throw invalid_call(u"No se esperaba «" + clip(found, 40) + u"» " + place_in_source(token().begin));
}

} // namespace

NodePtr parse(TextView source, std::size_t begin) { return Parser(source, begin).whole(); }

} // namespace tolvex::printing
