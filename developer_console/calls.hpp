// The calls that the console makes, as a host would write them.
#pragma once

#include "core/text.hpp"

#include <vector>

namespace tolvex::developer_console {

struct Argument
{
    enum class Kind
    {
        text,
        number,   // digits with a point
        boolean,  // True or False
        date,     // as it was typed; empty for the present moment
        password, // a text that is never shown
        variable  // a text by reference: what stands in it, and the method writes there
    };
    Kind kind;
    Text value;
};

struct Call
{
    TextView class_name; // without "TOLVEX."
    TextView method;
    bool gives_result;
    std::vector<Argument> arguments;
};

// What became of a call.
struct Outcome
{
    bool raised = false; // an error that the host has to catch
    Text result;         // empty when there is none
    Text error;          // what the component says, also when it did not raise it
    Text variable;       // what the method left there

    bool succeeded() const { return !raised && result != u"False"; }
};

class Component
{
public:
    virtual ~Component() = default;
    // Throws nothing of the component's: its errors are in the outcome.
    virtual Outcome call(const Call& call) = 0;
};

// A number as it stands; anything else that was typed as a text, so that the component itself says what it
// thinks of it.
Argument number_or_text(const Text& typed);

// The argument that the method writes; null when there is none.
const Argument* variable_of(const Call& call);

// The arguments in VBScript, separated by commas; a password by the name of its variable.
Text arguments_in_vbscript(const Call& call);
// The call alone: "documento.GetDatosEmpresa(1)".
Text call_in_vbscript(const Call& call);
// A whole script that makes those calls and shows what they give. Save it as ANSI or UTF-16.
Text script_of(const std::vector<Call>& calls);

} // namespace tolvex::developer_console
