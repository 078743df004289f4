// Pictures are decoded by a component of the system: a test program that draws them has components for all
// its life.
#pragma once

#include "platform/windows/windows.hpp"

#include <gtest/gtest.h>

namespace tolvex::testing {

class ComponentsOfTheSystem : public ::testing::Environment
{
    void SetUp() override { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    void TearDown() override { CoUninitialize(); }
};
inline const auto* const components = ::testing::AddGlobalTestEnvironment(new ComponentsOfTheSystem);

} // namespace tolvex::testing
