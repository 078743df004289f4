// What is wrong with the values of one record, each by itself.
#pragma once

#include "flat_file/record.hpp"

namespace tolvex {

// In words for the user: of what kind a value should be; which character a document cannot carry, where it is
// and what to write instead. Empty when all is well.
std::vector<Text> faults_of_values(const Record& record);

// Values that look odd and are taken as they stand.
std::vector<Text> oddities_of_values(const Record& record);

} // namespace tolvex
