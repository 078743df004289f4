// A file that appears whole or not at all: written under a name beside its own, then renamed over an older
// one.
#pragma once

#include "core/errors.hpp"
#include "platform/files.hpp"

namespace tolvex {

class NewFile
{
public:
    explicit NewFile(TextView path) : path_(path) {}
    NewFile(const NewFile&) = delete;
    ~NewFile()
    {
        if (!in_place_ && files::exists(path_beside())) quietly([&] { files::remove(path_beside()); });
    }

    // Where to write it.
    Text path_beside() const { return path_ + u".tmp"; }
    // Throws Error 75 when it cannot be renamed; an older file then stays as it was.
    void put_in_place()
    {
        files::move_over(path_beside(), path_);
        in_place_ = true;
    }

private:
    const Text path_;
    bool in_place_ = false;
};

} // namespace tolvex
