// The table of amounts and the words that every database must answer for them.
#pragma once

#include "core/text.hpp"

#include <fstream>
#include <stdexcept>

namespace tolvex::testing {

struct AmountCase
{
    Text amount, currency, words;
};

inline std::vector<AmountCase> amounts_in_words()
{
    std::ifstream table(TOLVEX_SOURCE_DIR "/tests/database/importes_con_letra.txt");
    std::vector<AmountCase> cases;
    for (std::string line; std::getline(table, line);) {
        const std::vector<Text> fields = split(to_text(line), u'|');
        if (line.empty() || line.front() == '#') continue;
        if (fields.size() != 3) throw std::runtime_error("not three fields: " + line);
        cases.push_back({fields[0], fields[1], fields[2]});
    }
    return cases;
}

} // namespace tolvex::testing
