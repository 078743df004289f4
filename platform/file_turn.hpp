// A turn among processes that share a file's name: one has it at a time, until it lets go or ends; on Linux
// until the programs that it started have ended too. The file is there meanwhile only; one that a process
// left behind when it was ended is nobody's turn.
#pragma once

#include "core/text.hpp"

#include <memory>

namespace tolvex {

class FileTurn
{
public:
    virtual ~FileTurn() = default;
    FileTurn(const FileTurn&) = delete;

    // Null while another process has the turn, or another part of this one. Throws Error 75 when the file
    // cannot be made.
    static std::unique_ptr<FileTurn> take(TextView path);

protected:
    FileTurn() = default;
};

} // namespace tolvex
