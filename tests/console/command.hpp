// The command as a user runs it, in a folder of its own.
#pragma once

#include "support/files.hpp"
#include "support/shell.hpp"
#include "support/temporary_folder.hpp"

#include <gtest/gtest.h>

namespace tolvex::testing {

class Command : public ::testing::Test
{
protected:
    // An order of the shell, given in the test's folder.
    Outcome in_shell(const std::string& order) { return in_shell(order, path()); }
    Outcome in_shell(const std::string& order, const std::filesystem::path& folder)
    {
        return run_in_shell(order, folder);
    }

    Outcome tolvex(const std::vector<std::string>& words, const std::string& variables = "")
    {
        std::string order = variables + " " TOLVEX_COMMAND;
        for (const std::string& word : words) order += " " + quoted(word);
        return in_shell(order);
    }

    void demo()
    {
        const Outcome made = tolvex({"demo"});
        ASSERT_EQ(made.exit_code, 0) << made.errors;
    }

    // A file in the demonstration's folder with as many invoices as asked for, and what is given after them.
    std::string sales(int documents, const std::string& end = "")
    {
        std::string file = "EMISOR|1|1\n";
        for (int i = 0; i < documents; ++i)
            file += "CLIENTE|XAXX010101000|Público||||||||México||10|0|1.6|11.6|1|1|2011-03-15 14:05:09|\n"
                    "DETALLE|1|F|X|Pan|1|PZA|10|1.6|10|16\nEMITE||1|||0\n";
        write_file(path() / "demo/ventas.txt", file + end);
        return "demo/ventas.txt";
    }

    const std::filesystem::path& path() const { return folder_.path(); }
    const std::string database = "demo/tolvex.db";

private:
    TemporaryFolder folder_;
};

} // namespace tolvex::testing
