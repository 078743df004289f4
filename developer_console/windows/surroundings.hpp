// The clipboard, and the user's part of the registry, in which the fields are kept.
#pragma once

#include "developer_console/console_form.hpp"

namespace tolvex::developer_console {

// Throws Error when another program holds the clipboard.
void copy_to_clipboard(const Text& text);

class RegistryMemory : public FieldMemory
{
public:
    std::optional<Text> recall(TextView field) override;
    // A value that cannot be kept is forgotten.
    void keep(TextView field, const Text& value) override;
};

} // namespace tolvex::developer_console
