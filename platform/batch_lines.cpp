#include "platform/batch_lines.hpp"

#include "core/numbers.hpp"
#include "platform/log.hpp"

namespace tolvex {

namespace {

// The words of a command line; a ">" outside quotes is a word of its own.
std::vector<Text> words_of(TextView line)
{
    std::vector<Text> words;
    Text word;
    bool quoted = false, in_word = false;
    const auto end_word = [&] {
        if (in_word) words.push_back(word);
        word.clear();
        in_word = false;
    };
    for (const char16_t c : line) {
        if (c == u'"') {
            quoted = !quoted;
            in_word = true;
        } else if (!quoted && (c == u' ' || c == u'\t')) {
            end_word();
        } else if (!quoted && c == u'>') {
            end_word();
            words.emplace_back(u">");
        } else {
            word += c;
            in_word = true;
        }
    }
    end_word();
    return words;
}

BatchCommand parse_line(TextView line)
{
    BatchCommand command;
    const std::vector<Text> words = words_of(line);
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == u">" && i + 1 < words.size())
            command.output = words[++i];
        else
            command.words.push_back(words[i]);
    }
    return command;
}

bool announces_password(const Text& word) { return word == u"-passin" || word == u"-passout"; }

} // namespace

std::vector<BatchCommand> parse_batch(TextView batch)
{
    std::vector<BatchCommand> commands;
    for (const Text& line : split(batch, u'\n')) {
        const BatchCommand command = parse_line(without(line, u'\r'));
        if (!command.words.empty()) commands.push_back(command);
    }
    return commands;
}

void log_program(const BatchCommand& command, int exit_code, std::int64_t milliseconds)
{
    if (!log_is_kept()) return;
    Text line = u"PROGRAMA";
    bool is_password = false;
    for (const Text& word : command.words) {
        line += u" " + (is_password ? Text(u"***") : word);
        is_password = announces_password(word);
    }
    log(line + u" (código " + decimal(exit_code) + u", " + decimal(milliseconds) + u" ms)");
}

} // namespace tolvex
