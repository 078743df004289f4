#include "database/embedded/tsql/functions.hpp"

#include "core/dates.hpp"
#include "core/errors.hpp"
#include "core/text.hpp"
#include "database/embedded/stored_dates.hpp"
#include "database/embedded/tsql/amount_in_words.hpp"
#include "database/embedded/tsql/convert.hpp"

#include <algorithm>
#include <cmath>
#include <sqlite3.h>

namespace tolvex::embedded {

namespace {

using Arguments = std::vector<Value>;

struct Function
{
    const char* name;
    int least_arguments, most_arguments;
    // Not called when the first argument is Null: the result is then Null, as in T-SQL.
    Value (*body)(const Arguments&);
};

const std::int64_t* whole(const Value& value)
{
    return value.visit([]<class Held>(const Held& held) -> const std::int64_t* {
        if constexpr (std::is_same_v<Held, std::int64_t>)
            return &held;
        else
            return nullptr;
    });
}

Value plus(const Arguments& terms)
{
    const auto &a = terms[0], &b = terms[1];
    if (b.is_null()) return {};
    if (a.is_text() && b.is_text()) return a.text() + b.text();
    std::int64_t sum = 0;
    if (whole(a) && whole(b) && !__builtin_add_overflow(*whole(a), *whole(b), &sum)) return sum;
    return a.number() + b.number();
}

Value convert(const Arguments& arguments)
{
    const int style = arguments.size() > 2 ? arguments[2].int32() : no_style;
    return converted(arguments[1], arguments[0].text(), style);
}

Value cast_to(const Arguments& arguments) { return converted(arguments[0], arguments[1].text()); }

CalendarDate calendar_of(const Value& value) { return calendar(read_date(value.text())); }

Value year(const Arguments& arguments) { return calendar_of(arguments[0]).year; }
Value month(const Arguments& arguments) { return calendar_of(arguments[0]).month; }
Value day(const Arguments& arguments) { return calendar_of(arguments[0]).day; }

// Count of characters that an argument asks for. Throws Error 5 when it is negative.
std::int64_t count_of(const Value& value)
{
    const double count = std::trunc(value.number());
    if (count < 0) throw invalid_call(u"se pide un número negativo de caracteres de un texto");
    return static_cast<std::int64_t>(std::min(count, 2e9));
}

// From the position, counted from 1; what lies before the first character counts too and gives nothing.
Value substring(const Arguments& arguments)
{
    if (arguments[1].is_null() || arguments[2].is_null()) return {};
    const Text text = arguments[0].text();
    const std::int64_t start = arguments[1].int32() - std::int64_t{1};
    const auto size = static_cast<std::int64_t>(text.size());
    const std::int64_t end = std::clamp(start + count_of(arguments[2]), std::int64_t{0}, size);
    const std::int64_t first = std::clamp(start, std::int64_t{0}, end);
    return text.substr(first, end - first);
}

Value left(const Arguments& arguments)
{
    if (arguments[1].is_null()) return {};
    return clip(arguments[0].text(), count_of(arguments[1]));
}

Value right(const Arguments& arguments)
{
    if (arguments[1].is_null()) return {};
    const Text text = arguments[0].text();
    const auto count = std::min<std::size_t>(count_of(arguments[1]), text.size());
    return text.substr(text.size() - count);
}

Value len(const Arguments& arguments)
{
    return static_cast<std::int64_t>(trim_right(arguments[0].text()).size());
}

Value upper(const Arguments& arguments) { return upper_case(arguments[0].text()); }
Value lower(const Arguments& arguments) { return lower_case(arguments[0].text()); }

Value fg_Numero2Letra(const Arguments& arguments)
{
    return amount_in_words(arguments[0].currency(), arguments[1].text());
}

constexpr Function functions[] = {{"plus", 2, 2, plus},
                                  {"convert", 2, 3, convert},
                                  {"cast_to", 2, 2, cast_to},
                                  {"year", 1, 1, year},
                                  {"month", 1, 1, month},
                                  {"day", 1, 1, day},
                                  {"left", 2, 2, left},
                                  {"right", 2, 2, right},
                                  {"substring", 3, 3, substring},
                                  {"len", 1, 1, len},
                                  {"upper", 1, 1, upper},
                                  {"lower", 1, 1, lower},
                                  {"fg_Numero2Letra", 2, 2, fg_Numero2Letra}};

Value value_of(sqlite3_value* value)
{
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return std::int64_t{sqlite3_value_int64(value)};
    case SQLITE_FLOAT:
        return sqlite3_value_double(value);
    }
    const auto* text = static_cast<const char16_t*>(sqlite3_value_text16(value));
    return Text(text ? text : u"", text ? sqlite3_value_bytes16(value) / sizeof(char16_t) : 0);
}

struct Answer
{
    sqlite3_context* context;

    void operator()(std::int64_t number) const { sqlite3_result_int64(context, number); }
    void operator()(double number) const { sqlite3_result_double(context, number); }
    void operator()(const Text& text) const
    {
        sqlite3_result_text16(context, text.data(), static_cast<int>(text.size() * sizeof(char16_t)),
                              SQLITE_TRANSIENT);
    }
    template <class Other>
    void operator()(const Other&) const
    {
        sqlite3_result_null(context);
    }
};

void call(sqlite3_context* context, int count, sqlite3_value** values)
{
    const auto* function = static_cast<const Function*>(sqlite3_user_data(context));
    try {
        Arguments arguments;
        for (int i = 0; i < count; ++i) arguments.push_back(value_of(values[i]));
        const Value result = arguments[0].is_null() ? Value() : function->body(arguments);
        result.visit(Answer{context});
    } catch (const std::exception& error) {
        sqlite3_result_error(context, to_utf8(words_of(error)).c_str(), -1);
    }
}

// Innocuous: views and triggers may call them too.
constexpr int kind_of_functions = SQLITE_UTF16 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

} // namespace

int add_functions(sqlite3* connection)
{
    for (const Function& function : functions)
        for (int count = function.least_arguments; count <= function.most_arguments; ++count) {
            const int code =
                sqlite3_create_function_v2(connection, function.name, count, kind_of_functions,
                                           const_cast<Function*>(&function), call, nullptr, nullptr, nullptr);
            if (code != SQLITE_OK) return code;
        }
    return SQLITE_OK;
}

} // namespace tolvex::embedded
