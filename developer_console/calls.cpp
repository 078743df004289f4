#include "developer_console/calls.hpp"

#include <algorithm>

namespace tolvex::developer_console {

namespace {

constexpr TextView password_variable = u"clave", text_variable = u"folio";

bool is_number(TextView typed)
{
    if (!typed.empty() && typed.front() == u'-') typed.remove_prefix(1);
    const auto point = std::min(typed.find(u'.'), typed.size());
    const TextView whole = typed.substr(0, point);
    const TextView decimals = point < typed.size() ? typed.substr(point + 1) : u"0";
    const auto are_digits = [](TextView digits) {
        return !digits.empty() && std::all_of(digits.begin(), digits.end(), is_digit);
    };
    return are_digits(whole) && are_digits(decimals);
}

Text in_vbscript(const Argument& argument)
{
    switch (argument.kind) {
    case Argument::Kind::number:
    case Argument::Kind::boolean:
        return argument.value;
    case Argument::Kind::date:
        return argument.value.empty() ? u"Now"
                                      : u"CDate(\"" + replace_all(argument.value, u"\"", u"") + u"\")";
    case Argument::Kind::password:
        return Text(password_variable);
    case Argument::Kind::variable:
        return Text(text_variable);
    case Argument::Kind::text:
        break;
    }
    return basic_literal(argument.value);
}

// What a script calls its object of a class.
TextView object_name(TextView class_name)
{
    if (class_name == u"ConfigFE") return u"conexion";
    if (class_name == u"Cliente") return u"cliente";
    if (class_name == u"DetFacturas") return u"renglones";
    if (class_name == u"Addenda") return u"addenda";
    if (class_name == u"Maestros") return u"maestros";
    return u"documento";
}

Text creation_of(TextView class_name)
{
    const Text object(object_name(class_name));
    return u"Dim " + object + u"\r\nSet " + object + u" = CreateObject(\"TOLVEX." + Text(class_name) +
           u"\")\r\n";
}

// Lines of a script: a call with what is needed before and after it.
Text statements_of(const Call& call)
{
    const Argument* variable = variable_of(call);
    const Text name(text_variable);
    Text lines;
    if (variable) lines += name + u" = " + basic_literal(variable->value) + u"\r\n";
    if (call.gives_result)
        lines += u"WScript.Echo \"" + Text(call.method) + u": \" & " + call_in_vbscript(call) + u"\r\n";
    else
        lines += call_in_vbscript(call) + u"\r\n";
    if (variable) lines += u"WScript.Echo \"" + name + u": \" & " + name + u"\r\n";
    return lines;
}

} // namespace

Argument number_or_text(const Text& typed)
{
    return {is_number(typed) ? Argument::Kind::number : Argument::Kind::text, typed};
}

const Argument* variable_of(const Call& call)
{
    const auto found = std::find_if(call.arguments.begin(), call.arguments.end(),
                                    [](const Argument& a) { return a.kind == Argument::Kind::variable; });
    return found == call.arguments.end() ? nullptr : &*found;
}

Text arguments_in_vbscript(const Call& call)
{
    std::vector<Text> list;
    for (const Argument& argument : call.arguments) list.push_back(in_vbscript(argument));
    return join(list, u", ");
}

Text call_in_vbscript(const Call& call)
{
    const Text name = Text(object_name(call.class_name)) + u"." + Text(call.method);
    const Text list = arguments_in_vbscript(call);
    if (call.gives_result) return name + u"(" + list + u")";
    return list.empty() ? name : name + u" " + list;
}

Text script_of(const std::vector<Call>& calls)
{
    Text script =
        u"' Llamadas hechas en la consola de TOLVEX. Guarde este archivo como ANSI o Unicode (UTF-16).\r\n"
        u"Option Explicit\r\n\r\n"
        u"Dim folio, clave\r\n"
        u"clave = \"\" ' la contraseña de la base de datos\r\n\r\n";
    std::vector<TextView> created;
    for (const Call& call : calls) {
        if (std::find(created.begin(), created.end(), call.class_name) == created.end()) {
            script += creation_of(call.class_name);
            created.push_back(call.class_name);
        }
        script += statements_of(call);
    }
    return script;
}

} // namespace tolvex::developer_console
