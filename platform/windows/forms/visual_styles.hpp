// Makes the windows that are created meanwhile themed ones, whatever the host process asks for.
#pragma once

#include "platform/windows/windows.hpp"

namespace tolvex {

class VisualStyles
{
public:
    VisualStyles();
    ~VisualStyles();
    VisualStyles(const VisualStyles&) = delete;

private:
    ULONG_PTR cookie_ = 0;
};

} // namespace tolvex
