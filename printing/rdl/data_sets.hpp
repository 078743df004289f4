// What a layout asks for: data sets with their queries, and report parameters.
#pragma once

#include "printing/rdl/reading.hpp"

namespace tolvex::printing {

std::vector<DataSet> read_data_sets(Reading& in, const Element& report);
std::vector<ReportParameter> read_parameters(Reading& in, const Element& report);

} // namespace tolvex::printing
