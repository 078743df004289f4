// Any bytes may be handed over as a report layout: the result is a layout whose parts fit each other, or a
// message with a line.
#include "core/errors.hpp"
#include "printing/rdl/layout_visitor.hpp"
#include "printing/rdl/review.hpp"
#include "trials/fuzz/require.hpp"

#include <cmath>

namespace {

using namespace tolvex::printing;

std::size_t leaves(const std::vector<TablixMember>& members)
{
    std::size_t count = 0;
    for (const TablixMember& member : members) count += member.members.empty() ? 1 : leaves(member.members);
    return count;
}

void require_grid(const Tablix& tablix)
{
    require(leaves(tablix.row_members) == tablix.rows.size());
    require(leaves(tablix.column_members) == tablix.column_widths.size());
    for (const TablixRow& row : tablix.rows) {
        require(row.cells.size() == tablix.column_widths.size());
        for (std::size_t i = 0; i < row.cells.size(); ++i)
            require(row.cells[i].column_span >= 1 && i + row.cells[i].column_span <= row.cells.size());
    }
}

class Requirements : public LayoutVisitor
{
public:
    void visit_item(const ReportItem& item, const Surroundings&) override
    {
        require(std::isfinite(item.left + item.top) && item.width >= 0 && item.height >= 0);
        if (const auto* const tablix = std::get_if<std::shared_ptr<const Tablix>>(&item.content))
            require_grid(**tablix);
    }
    void visit_member(const TablixMember&, const Surroundings&) override {}
    void visit_expression(const Expression&, const Surroundings&) override {}
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    try {
        const Layout layout = parse_layout({reinterpret_cast<const char*>(bytes), size});
        Requirements requirements;
        visit(layout, requirements);
        remarks_about(layout);
    } catch (const tolvex::Error& error) {
        require(error.number() == 5 && error.description().starts_with(u"Línea "));
    }
    return 0;
}
