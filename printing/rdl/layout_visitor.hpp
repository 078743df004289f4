// A way through all that a layout holds.
#pragma once

#include "printing/rdl/layout.hpp"

namespace tolvex::printing {

struct Surroundings
{
    Place place;
    Text data_set; // the one whose rows are gone through; empty where that could be any
};

class LayoutVisitor
{
public:
    virtual ~LayoutVisitor() = default;
    virtual void visit_item(const ReportItem& item, const Surroundings& at) = 0;
    virtual void visit_member(const TablixMember& member, const Surroundings& at) = 0;
    virtual void visit_expression(const Expression& expression, const Surroundings& at) = 0;
};

// An item comes before its properties and what stands in it. Empty expressions are left out.
void visit(const Layout& layout, LayoutVisitor& visitor);

} // namespace tolvex::printing
