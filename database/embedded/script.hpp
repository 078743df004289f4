// A text of one T-SQL statement or several, prepared one after the other.
#pragma once

#include "database/embedded/statement.hpp"

#include <optional>

namespace tolvex::embedded {

class Script
{
public:
    // Throws Error for a text with a NUL, which the engine would take for its end.
    Script(std::shared_ptr<const Database> database, TextView sql);
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    // Prepares the next statement; nothing when there is none left. Each may need what those before it did.
    std::optional<Statement> next();

private:
    std::shared_ptr<const Database> database_;
    std::optional<Statement> only_; // of a text that holds one
    std::string text_;
    std::string_view rest_;
};

} // namespace tolvex::embedded
