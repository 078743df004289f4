// Files as the system uses them. Paths are the documented ones: joined with a backslash, names without regard
// to case; each adapter turns them into its host's own. A file that is made has its name as it is spelt.
#pragma once

#include "core/text.hpp"

#include <cstdint>
#include <memory>
#include <vector>

namespace tolvex::files {

// A documented path in the host's own spelling: its separator and, where the file system tells cases apart,
// the existing spelling of every name.
Text native_path(TextView path);

bool exists(TextView path);
// The same for a name that the system gave itself: as it is spelt, without a look through a folder however
// full.
bool exists_as_spelt(TextView path);
bool folder_exists(TextView path);
// One level only. Throws Error 75.
void create_folder(TextView path);
// In bytes. Throws Error 53 when there is no such file.
std::uint64_t size(TextView path);
// Throws Error 53 when there is no such file, 75 when it cannot be opened, 57 when reading fails.
std::string read(TextView path);
// Replaces the file. Throws Error 75 when it cannot be opened, 57 when the disk does not take all of it.
void write(TextView path, std::string_view bytes);
// The same for a new file of its owner alone (where files tell their owner by themselves): what had its name
// is removed before, so a link there is never followed.
void write_anew(TextView path, std::string_view bytes);
// Adds to the end of a file, which is made when it is missing; it has reached the disk when this returns.
// Throws Error 75 or 57.
void append(TextView path, std::string_view bytes);
// What was written of the file reaches the disk before this returns. Throws Error 57.
void flush(TextView path);

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

// Bytes that a folder's disk still takes from us. Throws Error 75 when it cannot be told.
std::uint64_t free_space(TextView folder);

// Only its owner may read and write it from then on, where files tell their owner by themselves. Throws Error
// 75.
void keep_private(TextView path);
// Renames a file over an older one, for good: a failing power supply does not undo it. Throws Error 75.
void move_over(TextView from, TextView to);
// Renames a file unless something has the new name already; whether it did. Throws Error 53 when there is no
// such file, 75 when it cannot be renamed.
bool move_unless_taken(TextView from, TextView to);
// Throws Error 53 when there is no such file, 75 when it cannot be removed.
void remove(TextView path);
// Whether it was there. Throws Error 75 when it is and cannot be removed.
bool remove_if_there(TextView path);
// The names in a folder that end so, in any letter case and order; none when there is no such folder.
std::vector<Text> names_ending(TextView folder, TextView ending);
// Absolute form of a host path, from the current folder; no separator at its end, unless it is a root.
Text absolute_path(TextView path);
// A host path as a file means it that names it: relative to that file's folder, unless it is absolute.
Text resolved(TextView naming_file, TextView path);
// The folder of the running application.
Text program_folder();

} // namespace tolvex::files
