// What the items of a report are placed on, and what is remembered between them.
#pragma once

#include "printing/composing/look.hpp"
#include "printing/composing/strip.hpp"

#include <set>

namespace tolvex::printing {

// Items of one body, rectangle or page section, from the top, each with those directly above it: it keeps its
// distance to them when they grow.
struct Arrangement
{
    struct Place
    {
        const ReportItem* item;
        std::vector<std::size_t> above;
        bool alone; // all that comes later stands below it
    };
    std::vector<Place> places;
    std::vector<std::size_t> above_bottom; // those that the lower edge keeps its distance to
};

class Canvas
{
public:
    Canvas(const Report& report, Strip& strip) : report_(report), strip_(&strip) {}

    const Report& report() const { return report_; }
    Strip& strip() const { return *strip_; }

    // The environment of a scope, with what stands on the page for page headers and footers.
    ScopeEnvironment environment(const Scope* scope) const;
    void set_page_items(const PageItems* items) { page_items_ = items; }

    const Arrangement& arrangement(const std::vector<ReportItem>& items);
    const Look& look(const ReportItem& item, const ScopeEnvironment& here);
    // The look of text whose style has no expression; null when it has one.
    const TextLook* literal_text_look(const Style& style, const ScopeEnvironment& here, const Place& place);
    // Throws Error when it cannot be had or is no picture.
    std::shared_ptr<const pages::Picture> picture(const Image& image, const ScopeEnvironment& here);

    // True when the same text box had the same value just before, on the page of y and within that scope.
    bool is_duplicate(const ReportItem& item, const Scope* within, const Variant& value, double y);
    bool is_read_by_page_sections(const ReportItem& item) const
    {
        return read_items_.contains(lower_case(item.name));
    }
    void set_read_items(std::set<Text> names) { read_items_ = std::move(names); }

    // While it lives, what is placed leaves no mark.
    class Rehearsal
    {
    public:
        explicit Rehearsal(Canvas& canvas)
            : canvas_(canvas), endless_(Strip::rehearsal(canvas.strip().page_height())), real_(canvas.strip_)
        {
            canvas_.strip_ = &endless_;
        }
        ~Rehearsal() { canvas_.strip_ = real_; }
        Rehearsal(const Rehearsal&) = delete;
        Rehearsal& operator=(const Rehearsal&) = delete;

    private:
        Canvas& canvas_;
        Strip endless_;
        Strip* real_;
    };

    int outline_level = 0;

private:
    const Report& report_;
    Strip* strip_;
    const PageItems* page_items_ = nullptr;
    std::set<Text> read_items_;
    std::unordered_map<const void*, Arrangement> arrangements_;
    std::unordered_map<const ReportItem*, Look> literal_looks_;
    std::unordered_map<const Style*, std::optional<TextLook>> literal_text_looks_;
    Look computed_look_;
    std::unordered_map<Text, std::shared_ptr<const pages::Picture>> pictures_;
    struct Shown
    {
        std::size_t page = 0;
        std::uint32_t scope = 0; // its first row
        Variant value;

        friend bool operator==(const Shown&, const Shown&) = default;
    };
    std::unordered_map<const ReportItem*, Shown> last_shown_;
};

} // namespace tolvex::printing
