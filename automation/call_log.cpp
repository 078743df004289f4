#include "automation/call_log.hpp"

#include "automation/variants.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/clock.hpp"

#include <algorithm>

namespace tolvex::automation {

namespace {

const Method& method_of(const Class& called, EntryPoint early)
{
    return *std::find_if(called.methods.begin(), called.methods.end(),
                         [&](const Method& method) { return method.early == early; });
}

Text name_of(const Class& called, const Method& method)
{
    return from_wide(called.name) + u"." + from_wide(method.name);
}

// The two names that the surface has for them.
bool is_password(const Parameter& parameter)
{
    return std::wstring_view(parameter.name) == L"PswBd" ||
           std::wstring_view(parameter.name) == L"prtContraseña";
}

// As every locale writes it, texts in quotes.
Text in_words(const Travelling& value)
{
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = static_cast<VARTYPE>(VT_BYREF | value.type);
    reference.byref = const_cast<void*>(value.place);
    Variant text;
    if (FAILED(VariantChangeTypeEx(&text, &reference, LOCALE_INVARIANT, VARIANT_ALPHABOOL, VT_BSTR)))
        return u"…";
    return value.type == VT_BSTR ? u"\"" + text_of(text.bstrVal) + u"\"" : text_of(text.bstrVal);
}

} // namespace

CallLog::CallLog(const Class& called, EntryPoint early, std::vector<Travelling> arguments)
    : method_(method_of(called, early)), name_(name_of(called, method_)), arguments_(std::move(arguments)),
      start_(milliseconds_running())
{
    std::vector<Text> words;
    for (std::size_t i = 0; i < arguments_.size(); ++i)
        words.push_back(is_password(method_.parameters[i]) ? Text(u"***") : in_words(arguments_[i]));
    log(u"LLAMADA " + name_ + u"(" + join(words, u", ") + u")");
}

void log_refused_call(const Class& called, const Method& method, const Text& reason) noexcept
try {
    if (log_is_kept()) log(u"LLAMADA " + name_of(called, method) + u" ERROR en los argumentos: " + reason);
} catch (...) {
    return; // the host gets the reason all the same
}

void CallLog::ended(const std::vector<Travelling>& results, const Text& error) const
{
    Text line = u"RESULTADO " + name_;
    for (const Travelling& result : results)
        if (result.type != VT_VARIANT) line += u" " + in_words(result); // those are always Empty
    for (std::size_t i = 0; i < arguments_.size(); ++i)
        if (method_.parameters[i].written)
            line += u" " + from_wide(method_.parameters[i].name) + u"=" + in_words(arguments_[i]);
    line += u" (" + decimal(milliseconds_running() - start_) + u" ms)";
    log(error.empty() ? line : line + u" ERROR: " + error);
}

} // namespace tolvex::automation
