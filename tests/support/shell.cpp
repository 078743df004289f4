#include "support/shell.hpp"

#include "core/text.hpp"
#include "support/files.hpp"
#include "support/temporary_folder.hpp"

#include <cstdlib>
#include <sys/wait.h>

namespace tolvex::testing {

std::string quoted(const std::string& word)
{
    return to_utf8(u"'" + replace_all(to_text(word), u"'", u"'\\''") + u"'");
}

Outcome run_in_shell(const std::string& order, const std::filesystem::path& folder)
{
    const TemporaryFolder said;
    const std::string output = said.path() / "output", errors = said.path() / "errors",
                      line = "cd " + quoted(folder) + " && (" + order + ") >" + output + " 2>" + errors;
    const int status = std::system(line.c_str());
    return {WEXITSTATUS(status), read_file(output), read_file(errors)};
}

} // namespace tolvex::testing
