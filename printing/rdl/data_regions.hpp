// Data regions: the Tablix, and the Table, Matrix and List of 2005, which are read as Tablixes too.
#pragma once

#include "printing/rdl/reading.hpp"

namespace tolvex::printing {

// Each of these gives the item its content, and the size of the content's grid.
void read_tablix(Reading& in, const Element& element, ReportItem& item);
void read_table(Reading& in, const Element& element, ReportItem& item);
void read_matrix(Reading& in, const Element& element, ReportItem& item);
void read_list(Reading& in, const Element& element, ReportItem& item);

// What they have in common: data set, filters, sorting, page break, message without rows.
Tablix read_data_region(Reading& in, const Element& element);
void set_content(ReportItem& item, Tablix tablix);
// From one column, or row, over so many.
double extent(const std::vector<double>& sizes, std::size_t first, std::size_t count);
double extent(const std::vector<double>& sizes);
std::vector<double> heights_of(const std::vector<TablixRow>& rows);

} // namespace tolvex::printing
