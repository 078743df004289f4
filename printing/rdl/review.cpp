#include "printing/rdl/review.hpp"

#include "core/numbers.hpp"
#include "platform/files.hpp"
#include "printing/rdl/layout_visitor.hpp"

#include <algorithm>
#include <set>

namespace tolvex::printing {

namespace {

using Names = std::set<Text>; // in lower case

Names names_of(const auto& named)
{
    Names names;
    for (const auto& one : named) names.insert(lower_case(one.name));
    return names;
}

// All that a layout defines and an expression may mention.
class Definitions : public LayoutVisitor
{
public:
    explicit Definitions(const Layout& layout)
        : parameters(names_of(layout.parameters)), variables(names_of(layout.variables))
    {
        for (const DataSet& data_set : layout.data_sets) {
            fields[lower_case(data_set.name)] = names_of(data_set.fields);
            scopes[lower_case(data_set.name)] = lower_case(data_set.name);
        }
        visit(layout, *this);
    }

    void visit_item(const ReportItem& item, const Surroundings& at) override
    {
        items.insert(lower_case(item.name));
        if (const auto* const tablix = std::get_if<std::shared_ptr<const Tablix>>(&item.content))
            scopes[lower_case(item.name)] =
                lower_case((*tablix)->data_set.empty() ? at.data_set : (*tablix)->data_set);
    }

    void visit_member(const TablixMember& member, const Surroundings& at) override
    {
        if (!member.group) return;
        scopes[lower_case(member.group->name)] = lower_case(at.data_set);
        variables.merge(names_of(member.group->variables));
    }

    void visit_expression(const Expression&, const Surroundings&) override {}

    bool has_field(const Text& name) const
    {
        return std::ranges::any_of(fields,
                                   [&](const auto& set) { return set.second.contains(lower_case(name)); });
    }

    std::map<Text, Names> fields; // by data set
    std::map<Text, Text> scopes;  // data sets, data regions and groups, each with its data set
    Names items, parameters, variables;
};

class Review : public LayoutVisitor
{
public:
    explicit Review(const Layout& layout) : layout_(layout), defined_(layout), remarks_(layout.remarks) {}

    std::vector<Remark> remarks()
    {
        visit(layout_, *this);
        look_at_page();
        for (const ReportParameter& parameter : layout_.parameters) look_at_parameter(parameter);
        for (const DataSet& data_set : layout_.data_sets) look_at_query(data_set);
        std::ranges::stable_sort(remarks_, {}, [](const Remark& remark) { return remark.place.line; });
        return std::move(remarks_);
    }

    void visit_item(const ReportItem& item, const Surroundings& at) override
    {
        std::visit([&](const auto& content) { look_at(content, at); }, item.content);
    }

    void visit_member(const TablixMember&, const Surroundings&) override {}

    void visit_expression(const Expression& expression, const Surroundings& at) override
    {
        Names data_sets{lower_case(at.data_set)}; // whose fields the expression may read
        expression.for_each_mention([&](Expression::Mention mention, const Text& name) {
            const auto scope = defined_.scopes.find(lower_case(name));
            if (mention == Expression::Mention::scope && scope != defined_.scopes.end())
                data_sets.insert(scope->second);
        });
        expression.for_each_mention([&](Expression::Mention mention, const Text& name) {
            look_at_mention(mention, name, data_sets, at.place);
        });
    }

private:
    void remark(const Place& place, const Text& text)
    {
        if (told_.emplace(place.line, text).second) remarks_.push_back({place, text});
    }

    void expect(bool is_there, const Place& place, const Text& what, const Text& name)
    {
        if (!is_there) remark(place, u"no hay " + what + u" \"" + name + u"\"");
    }

    void expect_scope(const Text& name, const Place& place)
    {
        expect(defined_.scopes.contains(lower_case(name)), place, u"ningún conjunto de datos, tabla ni grupo",
               name);
    }

    void look_at_mention(Expression::Mention mention, const Text& name, const Names& data_sets,
                         const Place& place)
    {
        const Text key = lower_case(name);
        switch (mention) {
        case Expression::Mention::field:
            return look_at_field(name, data_sets, place);
        case Expression::Mention::parameter:
            return expect(defined_.parameters.contains(key), place, u"ningún parámetro", name);
        case Expression::Mention::report_item:
            return expect(defined_.items.contains(key), place, u"ningún elemento", name);
        case Expression::Mention::variable:
            return expect(defined_.variables.contains(key), place, u"ninguna variable", name);
        case Expression::Mention::scope:
            return expect_scope(name, place);
        case Expression::Mention::global:
            return;
        }
    }

    // Where several data sets could be meant, it is enough that one of them has the field.
    void look_at_field(const Text& name, const Names& data_sets, const Place& place)
    {
        bool is_there = data_sets.contains(u"") && defined_.has_field(name);
        for (const Text& data_set : data_sets) {
            const auto fields = defined_.fields.find(data_set);
            is_there |= fields != defined_.fields.end() && fields->second.contains(lower_case(name));
        }
        expect(is_there, place, u"ningún campo", name);
    }

    void look_at(const Textbox& textbox, const Surroundings& at)
    {
        if (!textbox.hide_duplicates.empty()) expect_scope(textbox.hide_duplicates, at.place);
    }

    void look_at(const Image& image, const Surroundings& at)
    {
        if (image.source == Image::Source::embedded && image.value.is_literal())
            expect(layout_.images.contains(image.value.source()), at.place, u"ninguna imagen incrustada",
                   image.value.source());
    }

    void look_at(const Subreport& subreport, const Surroundings& at)
    {
        if (!layout_.file.empty() && subreport_file(layout_, subreport.report).empty())
            remark(at.place, u"junto al formato no está el subreporte \"" + subreport.report + u"\"");
    }

    void look_at(const std::shared_ptr<const Tablix>& tablix, const Surroundings& at)
    {
        const Text data_set = tablix->data_set.empty() ? at.data_set : tablix->data_set;
        if (!data_set.empty())
            expect(defined_.fields.contains(lower_case(data_set)), at.place, u"ningún conjunto de datos",
                   data_set);
        else if (layout_.data_sets.size() > 1)
            remark(at.place, u"no dice de qué conjunto de datos toma sus renglones");
    }

    static void look_at(const Line&, const Surroundings&) {}
    static void look_at(const Rectangle&, const Surroundings&) {}
    static void look_at(const Unsupported&, const Surroundings&) {}

    void look_at_page()
    {
        const double columns =
            layout_.width * layout_.columns + layout_.column_spacing * (layout_.columns - 1);
        const double needed = layout_.left_margin + columns + layout_.right_margin;
        if (needed > layout_.page_width + 0.5) // half a point is rounding
            remark({u"Report", 1}, u"el cuerpo y los márgenes miden " + centimeters(needed) +
                                       u" de ancho y la página " + centimeters(layout_.page_width) +
                                       u": saldrán páginas de más");
    }

    void look_at_parameter(const ReportParameter& parameter)
    {
        if (!parameter.default_data_set.empty()) {
            const auto fields = defined_.fields.find(lower_case(parameter.default_data_set));
            expect(fields != defined_.fields.end(), parameter.place, u"ningún conjunto de datos",
                   parameter.default_data_set);
            if (fields != defined_.fields.end())
                expect(fields->second.contains(lower_case(parameter.default_field)), parameter.place,
                       u"ningún campo", parameter.default_field);
        } else if (!is_given(parameter.name) && !parameter.nullable && parameter.defaults.empty()) {
            remark(parameter.place, u"el parámetro no tiene valor predeterminado, y al imprimir sólo se dan "
                                    u"cIndFactura y nEmpresa");
        }
    }

    void look_at_query(const DataSet& data_set)
    {
        for (const QueryParameter& parameter : data_set.parameters)
            if (!is_given(parameter.name) && parameter.value.is_empty())
                remark(data_set.place, u"el parámetro " + parameter.name + u" de la consulta no tiene valor");
    }

    static bool is_given(TextView parameter)
    {
        const Text name = lower_case(parameter.substr(parameter.starts_with(u'@') ? 1 : 0));
        return name == u"cindfactura" || name == u"nempresa";
    }

    static Text centimeters(double points)
    {
        return number_as_text(round_half_even(points / 72 * 2.54, 2)) + u" cm";
    }

    const Layout& layout_;
    const Definitions defined_;
    std::vector<Remark> remarks_;
    std::set<std::pair<int, Text>> told_;
};

} // namespace

std::vector<Remark> remarks_about(const Layout& layout) { return Review(layout).remarks(); }

} // namespace tolvex::printing
