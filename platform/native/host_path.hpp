// Documented paths as this host spells them: its separator and, since its file systems tell cases apart, the
// spelling that exists.
#pragma once

#include "core/text.hpp"

#include <filesystem>

namespace tolvex::files {

// "/" for "\\", every name as it is given.
std::filesystem::path separated(TextView path);

// The existing spelling of every name. A name that is not there in any costs a look through its folder.
std::filesystem::path host_path(TextView path);

// The same for a file that may be missing or new: its own name is taken as it is given, in small letters or
// in capitals, whichever is there, else as given. However full the folder is, it is not looked through.
std::filesystem::path new_host_path(TextView path);

} // namespace tolvex::files
