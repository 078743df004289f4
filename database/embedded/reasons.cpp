#include "database/embedded/reasons.hpp"

#include <algorithm>
#include <optional>
#include <vector>

namespace tolvex::embedded {

namespace {

// "%" stands for a piece that is taken over, in the same order.
struct Reason
{
    TextView words, in_spanish;
};

constexpr Reason reasons[] = {
    {u"near \"%\": syntax error", u"Error de sintaxis cerca de «%»"},
    {u"incomplete input", u"La instrucción termina antes de tiempo"},
    {u"unrecognized token: \"%\"", u"No se entiende «%»: quizá un texto entre apóstrofos no termina"},
    {u"no such table: %", u"No existe la tabla %"},
    {u"no such column: %", u"No existe la columna %"},
    {u"no such function: %", u"No existe la función %"},
    {u"ambiguous column name: %", u"Más de una tabla tiene la columna %"},
    {u"table % has no column named %", u"La tabla % no tiene la columna %"},
    {u"table % has % columns but % values were supplied",
     u"La tabla % tiene % columnas y se dieron % valores"},
    {u"% values for % columns", u"Se dieron % valores para % columnas"},
    {u"wrong number of arguments to function %()", u"La función % lleva otro número de argumentos"},
    {u"misuse of aggregate: %()", u"La función de grupo % no puede ir ahí"},
    {u"no tables specified", u"Falta la tabla"},
    {u"UNIQUE constraint failed: %", u"Ya hay un registro con ese valor de %"},
    {u"NOT NULL constraint failed: %", u"Falta el valor de %"},
    {u"CHECK constraint failed: %", u"Un valor no cumple la regla %"},
    {u"FOREIGN KEY constraint failed", u"El registro depende de otro que no existe, u otro depende de él"},
    {u"datatype mismatch", u"Un valor no es del tipo de su columna"},
    {u"integer overflow", u"Un número es demasiado grande"},
    {u"string or blob too big", u"Un texto es demasiado largo"},
    {u"out of memory", u"No hay memoria suficiente"},
    {u"interrupted", u"Tardó más de lo que la conexión permite, y se interrumpió"},
    {u"cannot start a transaction within a transaction", u"Ya hay una transacción abierta"},
    {u"cannot commit - no transaction is active", u"No hay una transacción abierta"},
    {u"cannot rollback - no transaction is active", u"No hay una transacción abierta"},
};

// What stands for each "%" when the words are of that pattern.
std::optional<std::vector<TextView>> pieces(TextView pattern, TextView words)
{
    std::vector<TextView> found;
    for (;;) {
        const auto gap = pattern.find(u'%');
        if (gap == TextView::npos) return words == pattern ? std::optional(std::move(found)) : std::nullopt;
        if (!words.starts_with(pattern.substr(0, gap))) return std::nullopt;
        words.remove_prefix(gap);
        pattern.remove_prefix(gap + 1);
        const TextView next = pattern.substr(0, pattern.find(u'%'));
        const auto end =
            pattern == next ? words.size() - std::min(next.size(), words.size()) : words.find(next);
        if (end == TextView::npos) return std::nullopt;
        found.push_back(words.substr(0, end));
        words.remove_prefix(end);
    }
}

Text filled(TextView pattern, const std::vector<TextView>& pieces)
{
    Text text;
    auto piece = pieces.begin();
    for (const char16_t c : pattern)
        if (c == u'%')
            text += *piece++;
        else
            text += c;
    return text;
}

} // namespace

Text reason_in_spanish(TextView words)
{
    for (const Reason& reason : reasons)
        if (const auto found = pieces(reason.words, words)) return filled(reason.in_spanish, *found);
    return Text(words);
}

} // namespace tolvex::embedded
