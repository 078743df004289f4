// A report layout, whatever schema it was written in (2005, 2008, 2010, 2016): the Table, Matrix and List of
// the first are Tablixes here too. Lengths are in points.
#pragma once

#include "printing/expressions/expression.hpp"

#include <map>
#include <optional>
#include <variant>

namespace tolvex::printing {

struct Tablix;

// Where something stands in the layout, for messages.
struct Place
{
    Text element; // Textbox "Total"
    int line = 0;
};

struct BorderStyle
{
    Expression style, width, color; // None, Solid, Dashed, Dotted, Double; 1pt; Black
};

// An empty expression means the default, or what the parent says where a style is inherited.
struct Style
{
    BorderStyle left, top, right, bottom; // the common border is already in each of them
    Expression background_color, color, font_family, font_size, font_weight, font_style, decoration;
    Expression format, language, text_align, vertical_align, writing_mode, line_height;
    Expression padding_left, padding_top, padding_right, padding_bottom;
};

struct Action
{
    Expression hyperlink;
};

struct TextRun
{
    Expression value;
    Style style;
    Action action;
};

struct Paragraph
{
    std::vector<TextRun> runs;
    Style style; // text_align, line_height
    Expression left_indent, right_indent, hanging_indent, space_before, space_after;
    int list_level = 0;
    enum class List
    {
        none,
        bulleted,
        numbered
    } list = List::none;
};

struct Textbox
{
    std::vector<Paragraph> paragraphs;
    bool can_grow = false, can_shrink = false;
    Text hide_duplicates; // the scope within which a value that repeats is left out; empty: never
};

struct Line // from corner to corner of its box, upwards when the layout gives it a negative height
{
    bool upwards = false;
};

struct ReportItem;

enum class Break
{
    none,
    start,
    end,
    start_and_end,
    between
};

struct PageBreak
{
    Break location = Break::none;
    Expression disabled, reset_page_number;
};

struct Rectangle
{
    std::vector<ReportItem> items;
    PageBreak page_break;
    bool keep_together = false;
};

struct Image
{
    enum class Source
    {
        embedded,
        external,
        database
    } source = Source::embedded;
    enum class Sizing
    {
        auto_size,
        fit,
        fit_proportional,
        clip
    } sizing = Sizing::auto_size;
    Expression value, mime_type;
};

struct SubreportParameter
{
    Text name;
    Expression value;
};

struct Subreport
{
    Text report; // its file, beside the layout, with or without ".rdl"
    std::vector<SubreportParameter> parameters;
    Expression no_rows_message;
};

// What the engine does not draw; a thin frame with its name stands in its place.
struct Unsupported
{
    Text element; // Chart
};

struct ReportItem
{
    Text name;
    Place place;
    double left = 0, top = 0, width = 0, height = 0;
    int z_index = 0;
    Style style;
    Expression hidden, bookmark, document_map_label;
    Action action;
    std::variant<Textbox, Line, Rectangle, Image, Subreport, Unsupported, std::shared_ptr<const Tablix>>
        content;
};

struct Filter
{
    Expression value;
    // Equal, NotEqual, Like, GreaterThan, GreaterThanOrEqual, LessThan, LessThanOrEqual, In, Between, TopN,
    // BottomN, TopPercent, BottomPercent
    Text comparison;
    std::vector<Expression> operands;
};

struct Sorting
{
    Expression value;
    bool descending = false;
};

struct Variable
{
    Text name;
    Expression value;
};

struct Group
{
    Text name;
    std::vector<Expression> by; // none: every row by itself
    std::vector<Filter> filters;
    std::vector<Variable> variables;
    PageBreak page_break;
    Expression document_map_label;
};

enum class KeepWithGroup
{
    none,
    before,
    after
};

struct TablixHeader
{
    double size = 0; // width of a row's header, height of a column's
    std::shared_ptr<const ReportItem> content;
};

// A row or column of the hierarchy: static, or repeated for each instance of its group. Leaves match the rows
// and columns of the body, in order.
struct TablixMember
{
    Place place;
    std::optional<Group> group;
    std::vector<Sorting> sorting;
    std::optional<TablixHeader> header;
    std::vector<TablixMember> members;
    Expression hidden;
    KeepWithGroup keep_with_group = KeepWithGroup::none;
    bool repeat_on_new_page = false, keep_together = false, hide_if_no_rows = false;
};

struct TablixCell // empty where an earlier cell spans over it
{
    std::shared_ptr<const ReportItem> content;
    int column_span = 1, row_span = 1;
};

struct TablixRow
{
    double height = 0;
    std::vector<TablixCell> cells;
};

struct Tablix
{
    Text data_set; // empty: the one of the data region around it, or the only one
    std::vector<double> column_widths;
    std::vector<TablixRow> rows;
    std::vector<TablixMember> row_members, column_members;
    std::vector<std::vector<TablixCell>> corner;
    std::vector<Filter> filters;
    std::vector<Sorting> sorting;
    PageBreak page_break;
    Expression no_rows_message;
    bool keep_together = false, repeat_column_headers = false, repeat_row_headers = false;
};

struct QueryParameter
{
    Text name;
    Expression value;
};

struct Field
{
    Text name;
    Text column;      // of the query; empty when it is calculated
    Expression value; // calculated
};

struct DataSet
{
    Text name;
    Place place;
    Expression command; // the statement, or the name of a stored procedure or of a table taken whole
    bool stored_procedure = false, whole_table = false;
    std::vector<QueryParameter> parameters;
    std::vector<Field> fields;
    std::vector<Filter> filters;
    std::vector<Sorting> sorting;
};

struct ParameterValue // what may be chosen for a parameter, and the words that are shown for it
{
    Expression value, label;
};

struct ReportParameter
{
    Text name;
    Text type; // String, Integer, Float, Boolean, DateTime
    bool nullable = false, multi_value = false, allow_blank = false;
    std::vector<Expression> defaults;
    Text default_data_set, default_field; // where the defaults come from a query
    std::vector<ParameterValue> valid_values;
    Place place;
};

struct PageSection
{
    double height = 0;
    bool on_first_page = true, on_last_page = true;
    std::vector<ReportItem> items;
    Style style;
};

struct EmbeddedImage
{
    Text mime_type;
    std::string bytes;
};

// What a layout uses and the engine leaves out.
struct Remark
{
    Place place;
    Text text; // in Spanish: "Chart no se dibuja"
};

// For a person: where it is, and what.
Text in_words(const Place& place);
Text in_words(const Remark& remark);

struct Layout
{
    Text file, name, description, author;
    Expression language;
    double page_width = 612, page_height = 792;
    double left_margin = 0, top_margin = 0, right_margin = 0, bottom_margin = 0;
    int columns = 1;
    double column_spacing = 0;
    double width = 0; // of the body
    std::optional<PageSection> header, footer;
    Rectangle body;
    double body_height = 0;
    Style body_style, page_style;
    std::vector<ReportParameter> parameters;
    std::vector<DataSet> data_sets;
    std::vector<Variable> variables;
    std::map<Text, EmbeddedImage> images;
    std::vector<Remark> remarks;
};

// Reads a layout file. Throws Error 53 when it is missing, 5 when it is no XML, no report layout, or declares
// entities, with line and element.
Layout read_layout(TextView path);
// The same from the text of a file.
Layout parse_layout(std::string_view xml);

// The file of a subreport, which lies beside the layout, whatever folder of a server its name tells; empty
// when there is none.
Text subreport_file(const Layout& layout, TextView report);

} // namespace tolvex::printing
