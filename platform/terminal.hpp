// The terminal of a command-line program, and what it was told there.
#pragma once

#include "tolvex/messages.hpp"

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace tolvex::terminal {

// Makes this process a program of the terminal, at its start: what it prints there is UTF-8, its messages go
// there, and the programs that it runs ask and answer there instead of in windows of their own. The words of
// the command line after the program's name, in UTF-8.
std::vector<std::string> take(int argc, char** argv);

// Writes text in UTF-8 on standard output or error so that a person can read it there, whatever letters the
// terminal takes. A failure is seen in the stream.
void print(std::FILE* stream, const std::string& text) noexcept;

// Whether a person sees standard error, on a terminal that can take a line back; whether one types what is
// read from standard input.
bool shows_errors();
bool takes_answers();

// All of standard input, as it stands.
std::string input();

// From the first call on, Ctrl-C and the request to end are kept in mind instead of ending the process; when
// they come again, they end it. Whether one has come.
bool is_interrupted();

// From now on standard output takes bytes as they are, ends of lines too.
void print_bytes();

// A variable of the environment, in UTF-8. One that is forgotten is inherited by no program.
std::optional<std::string> environment(const char* variable);
void forget_environment(const char* variable);

// Asks the question and reads a line without showing it; nothing where there is no terminal.
std::optional<std::string> ask_for_password(const std::string& question);

// Prints a message on standard error. Where nobody answers, the answer to a question is no.
MessageAnswer show(const Message& message);

} // namespace tolvex::terminal
