#include "core/base64.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "platform/files.hpp"
#include "printing/rdl/data_sets.hpp"
#include "printing/rdl/groups.hpp"
#include "printing/rdl/layout.hpp"
#include "printing/rdl/reading.hpp"
#include "printing/rdl/report_items.hpp"
#include "printing/rdl/styles.hpp"

#include <algorithm>
#include <array>

namespace tolvex::printing {

namespace {

constexpr std::uint64_t most_bytes = 64 << 20;

constexpr TextView namespaces = u"http://schemas.microsoft.com/sqlserver/reporting/";
constexpr TextView namespace_end = u"/reportdefinition";
constexpr std::array<TextView, 7> known_schemas = {u"2003/10", u"2005/01", u"2007/01", u"2008/01",
                                                   u"2009/01", u"2010/01", u"2016/01"};

// The year and month of the schema; empty for another language, or none.
Text schema_of(const Element& root)
{
    const TextView name = root.name_space;
    if (root.name != u"Report" || !starts_with_ignoring_case(name, namespaces) ||
        !name.ends_with(namespace_end))
        return {};
    return Text(name.substr(namespaces.size(), name.size() - namespaces.size() - namespace_end.size()));
}

void expect_report(Reading& in, const Element& root)
{
    const Text schema = schema_of(root);
    if (schema.empty()) throw wrong(root, u"no es un formato de reporte (RDL)");
    if (std::ranges::find(known_schemas, schema) == known_schemas.end())
        in.remark(root, u"el esquema " + schema + u" no se conoce y se lee como el de 2016");
}

// A designer's own element, in its own namespace, that says what text is set in by default.
Expression read_default_font(const Element& report)
{
    for (const Element* element : report.children)
        if (element->name == u"DefaultFontFamily") return Expression::of(trim(element->text));
    return {};
}

void remark_code(Reading& in, const Element& report)
{
    for (const TextView name : {u"Code", u"CodeModules", u"Classes"}) {
        const Element* const code = in.child(report, name);
        if (code == nullptr || (code->children.empty() && trim(code->text).empty())) continue;
        in.remark(*code, Text(name) + u": el código propio de un formato no se ejecuta");
        in.pass_over(*code);
    }
}

std::map<Text, EmbeddedImage> read_images(Reading& in, const Element& report)
{
    std::map<Text, EmbeddedImage> images;
    for (const Element* element : in.members(report, u"EmbeddedImages", u"EmbeddedImage")) {
        const std::optional<std::string> bytes = from_base64(in.text(*element, u"ImageData"));
        if (!bytes) in.remark(*element, u"la imagen no está en Base64 y no se dibuja");
        images[attribute(*element, u"Name")] = {in.text(*element, u"MIMEType"), bytes.value_or("")};
    }
    return images;
}

std::optional<PageSection> read_page_section(Reading& in, const Element& page, TextView name, double width)
{
    const Element* const element = in.child(page, name);
    if (element == nullptr) return {};
    PageSection section;
    section.height = in.length(*element, u"Height").value_or(0);
    section.on_first_page = in.boolean(*element, u"PrintOnFirstPage");
    section.on_last_page = in.boolean(*element, u"PrintOnLastPage");
    section.style = read_style(in, *element);
    section.items = read_items(in, *element, {width, section.height});
    return section;
}

// Columns are told by the body in 2005, by the page later.
void read_columns(Reading& in, const Element& element, Layout& layout)
{
    layout.columns = in.whole_number(element, u"Columns").value_or(layout.columns);
    if (layout.columns < 1 || layout.columns > 1'000)
        throw wrong(*in.child(element, u"Columns"),
                    u"no puede haber " + decimal(layout.columns) + u" columnas");
    layout.column_spacing = in.length(element, u"ColumnSpacing").value_or(layout.column_spacing);
}

void read_page(Reading& in, const Element& page, Layout& layout)
{
    layout.page_width = in.length(page, u"PageWidth").value_or(layout.page_width);
    layout.page_height = in.length(page, u"PageHeight").value_or(layout.page_height);
    layout.left_margin = in.length(page, u"LeftMargin").value_or(0);
    layout.top_margin = in.length(page, u"TopMargin").value_or(0);
    layout.right_margin = in.length(page, u"RightMargin").value_or(0);
    layout.bottom_margin = in.length(page, u"BottomMargin").value_or(0);
    layout.header = read_page_section(in, page, u"PageHeader", layout.width);
    layout.footer = read_page_section(in, page, u"PageFooter", layout.width);
}

const Element& body_of(Reading& in, const Element& section)
{
    const Element* const body = in.child(section, u"Body");
    if (body == nullptr) throw wrong(section, u"falta Body");
    return *body;
}

// Below what the sections before it hold.
void add_body(Reading& in, const Element& body, Layout& layout)
{
    const double height = in.length(body, u"Height").value_or(0);
    for (ReportItem& item : read_items(in, body, {layout.width, height})) {
        item.top += layout.body_height;
        layout.body.items.push_back(std::move(item));
    }
    layout.body_height += height;
}

// Page and body of a report section, or of the whole report in the schemas without sections. In 2005 there
// is no Page: what it holds stands in the report itself.
void read_first_section(Reading& in, const Element& section, Layout& layout)
{
    const Element& body = body_of(in, section);
    layout.width = in.length(section, u"Width").value_or(0);
    if (const Element* const page = in.child(section, u"Page")) {
        read_page(in, *page, layout);
        read_columns(in, *page, layout);
        layout.page_style = read_style(in, *page);
    } else {
        read_page(in, section, layout);
        read_columns(in, body, layout);
    }
    layout.body_style = read_style(in, body);
    add_body(in, body, layout);
}

void read_further_section(Reading& in, const Element& section, Layout& layout)
{
    in.remark(section, u"esta sección se imprime en las páginas de la primera, a continuación");
    layout.width = std::max(layout.width, in.length(section, u"Width").value_or(0));
    if (const Element* const page = in.child(section, u"Page")) in.pass_over(*page);
    add_body(in, body_of(in, section), layout);
}

void read_sections(Reading& in, const Element& report, Layout& layout)
{
    const std::vector<const Element*> sections = in.members(report, u"ReportSections", u"ReportSection");
    read_first_section(in, sections.empty() ? report : *sections.front(), layout);
    for (std::size_t i = 1; i < sections.size(); ++i) read_further_section(in, *sections[i], layout);
}

void read_report(Reading& in, const Element& report, Layout& layout)
{
    expect_report(in, report);
    in.default_font = read_default_font(report);
    layout.description = in.text(report, u"Description");
    layout.author = in.text(report, u"Author");
    layout.language = in.expression(report, u"Language");
    remark_code(in, report);
    layout.images = read_images(in, report);
    layout.parameters = read_parameters(in, report);
    layout.data_sets = read_data_sets(in, report);
    layout.variables = read_variables(in, report);
    read_sections(in, report, layout);
    in.remark_unread(report);
}

Text name_of(TextView path) { return Text(path.substr(path.find_last_of(u"\\/") + 1)); }

} // namespace

Layout read_layout(TextView path)
{
    if (files::size(path) > most_bytes) throw invalid_call(u"El formato mide más de 64 MB: " + Text(path));
    Layout layout = parse_layout(files::read(path));
    layout.file = path;
    layout.name = name_of(path);
    layout.name.resize(std::min(layout.name.size(), layout.name.rfind(u'.')));
    return layout;
}

Layout parse_layout(std::string_view xml)
{
    if (xml.size() > most_bytes) throw invalid_call(u"El formato mide más de 64 MB");
    const XmlTree tree(xml);
    Layout layout;
    Reading in(layout.remarks);
    read_report(in, tree.root(), layout);
    std::ranges::stable_sort(layout.remarks, {}, [](const Remark& remark) { return remark.place.line; });
    return layout;
}

Text subreport_file(const Layout& layout, TextView report)
{
    const Text path = files::resolved(layout.file, name_of(report));
    for (const Text& name : {path, path + u".rdl"})
        if (files::exists(name) && !files::folder_exists(name)) return name;
    return {};
}

Text in_words(const Place& place)
{
    if (place.line == 0) return place.element;
    return place.element + (place.element.empty() ? u"" : u", ") + u"renglón " + decimal(place.line);
}

Text in_words(const Remark& remark)
{
    const Text where = in_words(remark.place);
    return where.empty() ? remark.text : where + u": " + remark.text;
}

} // namespace tolvex::printing
