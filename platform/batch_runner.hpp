// Runs batch files, as the script host shell's Run does with wait-on-return.
#pragma once

#include "core/text.hpp"

namespace tolvex {

// The window that the batch file's programs get.
enum class WindowStyle
{
    unset,  // as the host chooses
    hidden, // none
    visible // one in which they can ask the user
};

// Runs the batch file to its end; the exit code of its last command. Throws Error 53 when there is no such
// file.
int run_batch_file(TextView path, WindowStyle style = WindowStyle::unset);

// The file of the program that a line of a batch file with that first word runs in a program of the terminal;
// empty when there is none.
Text program_of_batch(TextView word);

// Throws Error 5, with the reason, for a folder that a batch file cannot name on this host: its paths are not
// quoted, so a blank would end them and what stands before it be run or written.
void require_batch_folder(TextView folder);

// Text as the bytes that the host's command interpreter reads in a batch file. Throws Error 5 for a character
// that it cannot read.
std::string batch_file_bytes(TextView text);

} // namespace tolvex
