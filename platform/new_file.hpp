// A file that appears whole or not at all: written under a name beside its own, then renamed over an older
// one.
#pragma once

#include "core/errors.hpp"
#include "platform/files.hpp"

#include <utility>

namespace tolvex {

class NewFile
{
public:
    // What an interrupted one left beside the file is removed.
    explicit NewFile(TextView path) : path_(path) { files::remove_if_there(path_beside()); }
    NewFile(const NewFile&) = delete;
    ~NewFile()
    {
        if (!in_place_) quietly([&] { files::remove_if_there(path_beside()); });
    }

    // Where to write it.
    Text path_beside() const { return path_ + u".tmp"; }
    // Throws Error 57 when the disk does not take it; so does putting in place, which flushes by itself.
    void flush()
    {
        if (!std::exchange(flushed_, true)) files::flush(path_beside());
    }
    // On disk before it takes its name. Throws Error 75 when it cannot be renamed; an older file then stays
    // as it was.
    void put_in_place()
    {
        flush();
        files::move_over(path_beside(), path_);
        in_place_ = true;
    }

private:
    const Text path_;
    bool flushed_ = false, in_place_ = false;
};

} // namespace tolvex
