// Files as the system uses them. Paths are the documented ones: joined with a backslash, names without regard
// to case; each adapter turns them into its host's own.
#pragma once

#include "core/text.hpp"

#include <cstdint>
#include <memory>

namespace tolvex::files {

// A documented path in the host's own spelling: its separator and, where the file system tells cases apart,
// the existing spelling of every name.
Text native_path(TextView path);

bool exists(TextView path);
bool folder_exists(TextView path);
// One level only. Throws Error 75.
void create_folder(TextView path);
// In bytes. Throws Error 53 when there is no such file.
std::uint64_t size(TextView path);
// Throws Error 53 when there is no such file, 75 when it cannot be opened, 57 when reading fails.
std::string read(TextView path);
// Replaces the file. Throws Error 75 when it cannot be opened, 57 when the disk does not take all of it.
void write(TextView path, std::string_view bytes);

// A file that is written piece by piece.
class OutputFile
{
public:
    virtual ~OutputFile() = default;
    // Both throw Error 57 when the disk does not take all of it. Without finish() the last pieces may be
    // missing.
    virtual void write(std::string_view bytes) = 0;
    virtual void finish() = 0;
};

// Replaces the file. Throws Error 75 when it cannot be opened.
std::unique_ptr<OutputFile> create(TextView path);

// Only its owner may read and write it from then on, where files tell their owner by themselves. Throws Error
// 75.
void keep_private(TextView path);
// Renames a file over an older one; the second name is taken as it is spelt. Throws Error 75.
void move_over(TextView from, TextView to);
// Throws Error 53 when there is no such file, 75 when it cannot be removed.
void remove(TextView path);
// Names of the files in a folder that end so, in any order; none when there is no such folder.
std::vector<Text> names_ending(TextView folder, TextView ending);
// Absolute form of a host path, from the current folder.
Text absolute_path(TextView path);
// A host path as a file means it that names it: relative to that file's folder, unless it is absolute.
Text resolved(TextView naming_file, TextView path);
// The folder of the running application.
Text program_folder();

} // namespace tolvex::files
