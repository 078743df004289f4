// What the readers of a layout's parts share: looking up what stands below an element, saying what is wrong
// with it, and knowing at the end what nobody looked at.
#pragma once

#include "core/errors.hpp"
#include "printing/rdl/layout.hpp"
#include "printing/rdl/xml_tree.hpp"

#include <set>
#include <unordered_set>

namespace tolvex::printing {

// The room that what stands in something has, in points.
struct Size
{
    double width = 0, height = 0;
};

// The innermost element around this one, or this one, that has a name.
Place place_of(const Element& element);
// Error 5: "Línea 12, Textbox "Total": " and the reason.
Error wrong(const Element& element, const Text& reason);
Text attribute(const Element& element, TextView name);

class Reading
{
public:
    // What a text run is set in that names no font.
    Expression default_font;

    explicit Reading(std::vector<Remark>& remarks) : remarks_(remarks) {}

    // Looking something up marks it as read. The schemas have older and newer names for the same.
    const Element* child(const Element& parent, TextView name);
    const Element* child(const Element& parent, TextView name, TextView older_name);
    std::vector<const Element*> children(const Element& parent, TextView name);
    std::vector<const Element*> children(const Element& parent);
    // Those of a collection: members(style, u"Filters", u"Filter").
    std::vector<const Element*> members(const Element& parent, TextView collection, TextView name);

    // What a child says; where there is none: an empty text or expression, False, nothing.
    Text text(const Element& parent, TextView name);
    Expression expression(const Element& parent, TextView name);
    Expression expression(const Element& parent, TextView name, TextView older_name);
    // Empty also for Default, where a property may name its own default.
    Expression choice(const Element& parent, TextView name);
    // A length as styles have it; one that is no expression must be right.
    Expression length_expression(const Element& parent, TextView name);
    bool boolean(const Element& parent, TextView name);
    std::optional<int> whole_number(const Element& parent, TextView name);
    std::optional<double> length(const Element& parent, TextView name);
    std::optional<double> signed_length(const Element& parent, TextView name);
    // The expression that the element itself holds. A literal with a data type is of that type.
    Expression value(const Element& element);

    // Once for each element, which may be looked at more than once.
    void remark(const Element& element, const Text& text);
    // An element with all that it holds counts as looked at.
    void pass_over(const Element& element) { passed_over_.insert(&element); }
    // Item names are one space of names, those of data sets, data regions and groups another.
    void name_item(const Element& element) { remark_duplicate(element, item_names_); }
    void name_scope(const Element& element) { remark_duplicate(element, scope_names_); }
    // Remarks on each element that was not looked at and could change what is seen.
    void remark_unread(const Element& root);

private:
    void remark_duplicate(const Element& element, std::map<Text, const Element*>& names);

    std::vector<Remark>& remarks_;
    std::unordered_set<const Element*> read_, passed_over_;
    std::set<std::pair<const Element*, Text>> told_;
    std::map<Text, const Element*> item_names_, scope_names_;
};

} // namespace tolvex::printing
