// Changes in a folder, as its system tells them.
#pragma once

#include "core/text.hpp"

#include <memory>

namespace tolvex {

class FolderWatch
{
public:
    virtual ~FolderWatch() = default;
    FolderWatch(const FolderWatch&) = delete;

    // Throws Error 75 when the folder cannot be watched.
    static std::unique_ptr<FolderWatch> of(TextView folder);

    // Waits until a file came, went or changed since the last call, or for so long; an interruption of the
    // program ends it too. Folders of other machines may tell nothing.
    virtual void wait(int milliseconds) = 0;

protected:
    FolderWatch() = default;
};

} // namespace tolvex
