#include "console/reference.hpp"

#include <CLI/CLI.hpp>

namespace tolvex::console {

namespace {

std::vector<const CLI::App*> orders_of(const CLI::App& app)
{
    return app.get_subcommands([](const CLI::App*) { return true; });
}

std::vector<const CLI::Option*> options_of(const CLI::App& app)
{
    return app.get_options([](const CLI::Option*) { return true; });
}

// As troff takes it: a line that begins with a dot or an apostrophe would be a request.
std::string troff(const std::string& text)
{
    std::string escaped;
    bool at_start = true;
    for (const char c : text) {
        if (at_start && (c == '.' || c == '\'')) escaped += "\\&";
        if (c == '\\' || c == '-') escaped += '\\';
        escaped += c;
        at_start = c == '\n';
    }
    return escaped;
}

std::string option_in_man(const CLI::Option& option)
{
    std::string name = option.get_name(false, true);
    if (option.get_items_expected_max() > 0 && !option.get_positional()) name += " VALOR";
    return ".TP\n.B " + troff(name) + "\n" + troff(option.get_description()) + "\n";
}

std::string as_it_stands(const std::string& text) { return ".nf\n" + troff(text) + "\n.fi\n"; }

std::string order_in_man(const CLI::App& order)
{
    std::string text = ".SS " + troff(order.get_name()) + "\n" + troff(order.get_description()) + ".\n";
    for (const CLI::Option* option : options_of(order))
        if (option->get_group() == "Opciones" && option != order.get_help_ptr())
            text += option_in_man(*option);
    return text + ".PP\n" + as_it_stands(order.get_footer());
}

std::string words_of(const CLI::App& app)
{
    std::string words;
    for (const CLI::Option* option : options_of(app))
        if (!option->get_positional()) words += "--" + option->get_lnames().front() + " ";
    return words;
}

} // namespace

std::string man_page(const CLI::App& app)
{
    std::string page =
        ".TH TOLVEX 1 \"\" \"" + app.version() + "\"\n.SH NOMBRE\n" +
        "tolvex \\- facturas y notas de crédito electrónicas (CFDI 3.0)\n.SH SINOPSIS\n.B tolvex\nORDEN [OPCIONES]\n" +
        ".SH DESCRIPCIÓN\n" + as_it_stands(app.get_description()) + ".SH CONEXIÓN\n";
    for (const CLI::Option* option : options_of(app))
        if (option->get_group() == "Conexión") page += option_in_man(*option);
    page += ".PP\n" + as_it_stands(app.get_footer()) + ".SH ÓRDENES\n";
    for (const CLI::App* order : orders_of(app)) page += order_in_man(*order);
    return page;
}

std::string bash_completion(const CLI::App& app)
{
    std::string orders, cases;
    for (const CLI::App* order : orders_of(app)) {
        orders += order->get_name() + " ";
        cases += "        " + order->get_name() + ") words=\"" + words_of(*order) + "\" ;;\n";
    }
    return "# Completion of tolvex's words in bash.\n"
           "_tolvex()\n{\n"
           "    local word=${COMP_WORDS[COMP_CWORD]} order=${COMP_WORDS[1]} words=\n"
           "    if [ \"$COMP_CWORD\" = 1 ]; then\n"
           "        COMPREPLY=($(compgen -W \"" +
           orders + words_of(app) +
           "\" -- \"$word\"))\n"
           "        return\n"
           "    fi\n"
           "    case $order in\n" +
           cases +
           "    esac\n"
           "    case $word in\n"
           "        -*) COMPREPLY=($(compgen -W \"$words\" -- \"$word\")) ;;\n"
           "        *) COMPREPLY=($(compgen -f -- \"$word\")) ;;\n"
           "    esac\n"
           "}\n"
           "complete -o filenames -F _tolvex tolvex\n";
}

} // namespace tolvex::console
