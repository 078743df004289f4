// Bytes that are no text: a picture, a file.
#pragma once

#include <string>

namespace tolvex {

struct Bytes
{
    std::string data;

    friend bool operator==(const Bytes&, const Bytes&) = default;
};

} // namespace tolvex
