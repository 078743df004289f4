// The public surface as surface.txt, written by hand, tells it: one line for each method, in interface order.
#pragma once

#include "client.hpp"

#include <fstream>

constexpr UINT methods_of_dispatch = 7; // the first entries of a dual interface

inline std::vector<std::string> surface_lines()
{
    std::vector<std::string> lines;
    std::ifstream file(TOLVEX_SOURCE_DIR "/tests/windows/surface.txt");
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line[0] != '#') lines.push_back(line);
    return lines;
}
