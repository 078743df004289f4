#include "printing/expressions/forms.hpp"

#include "core/errors.hpp"

#include <unordered_map>

namespace tolvex::printing {

Form form_named(const Text& key)
{
    static const auto forms = [] {
        std::unordered_map<Text, Form> all;
        for (const auto family : {branch_forms(), scope_forms()})
            for (const NamedForm& each : family) all.emplace(each.key, each.form);
        return all;
    }();
    const auto found = forms.find(key);
    return found == forms.end() ? nullptr : found->second;
}

void require_arguments(const std::vector<Argument>& arguments, std::size_t least, std::size_t most,
                       TextView name)
{
    if (arguments.size() < least) throw invalid_call(u"Faltan argumentos de " + Text(name));
    if (arguments.size() > most) throw invalid_call(u"Sobran argumentos de " + Text(name));
}

} // namespace tolvex::printing
