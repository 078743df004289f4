#include "core/errors.hpp"
#include "printing/composing/place.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

// The files of the reports that are being placed, one within the other.
class Opened
{
public:
    Opened(std::vector<Text>& files, const Text& file) : files_(files)
    {
        if (std::find(files.begin(), files.end(), file) != files.end())
            throw invalid_call(u"El reporte " + file + u" se contiene a sí mismo");
        files_.push_back(file);
    }
    ~Opened() { files_.pop_back(); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

private:
    std::vector<Text>& files_;
};

const Layout& layout_of(Composition& composition, const Text& file)
{
    auto& known = composition.subreports[file];
    if (!known) known = std::make_unique<Layout>(read_layout(file));
    return *known;
}

std::vector<GivenValue> values_for(const Subreport& subreport, const ScopeEnvironment& here)
{
    std::vector<GivenValue> values;
    for (const SubreportParameter& parameter : subreport.parameters)
        values.push_back({parameter.name, parameter.value.evaluate(here)});
    return values;
}

} // namespace

double place_subreport(Canvas& canvas, const ReportItem& item, const pages::Box& box, const Setting& setting)
{
    const auto& subreport = std::get<Subreport>(item.content);
    Composition& composition = canvas.report().composition();
    const ScopeEnvironment here = canvas.environment(setting.scope);
    try {
        const Text file = subreport_file(canvas.report().layout(), subreport.report);
        if (file.empty()) throw file_not_found(subreport.report);
        const Opened opened(composition.open_files, file);
        const Layout& layout = layout_of(composition, file);
        const Report report(layout, values_for(subreport, here), composition);
        if (report.outermost() && report.outermost()->empty())
            if (const Text words = property(subreport.no_rows_message, here, item.place); !words.empty())
                return place_notice(canvas, box, words);
        Canvas inner(report, canvas.strip());
        const double end = place_items(inner, layout.body.items, box.left, box.top, layout.body_height,
                                       {report.outermost(), setting.alone});
        return std::max(end, box.bottom());
    } catch (const Error& error) {
        throw with_detail(error, u"subreporte «" + item.name + u"»");
    }
}

} // namespace tolvex::printing
