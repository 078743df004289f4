// What has to hold for every input; a target whose requirement does not hold has a finding.
#pragma once

#include <cstdlib>

inline void require(bool holds)
{
    if (!holds) std::abort();
}
