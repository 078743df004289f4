#include "printing/composing/canvas.hpp"

#include "core/errors.hpp"
#include "platform/files.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

bool is_literal(const BorderStyle& border)
{
    return border.style.is_literal() && border.width.is_literal() && border.color.is_literal();
}

bool is_literal(const Style& style)
{
    return is_literal(style.left) && is_literal(style.top) && is_literal(style.right) &&
           is_literal(style.bottom) && style.background_color.is_literal() &&
           style.padding_left.is_literal() && style.padding_top.is_literal() &&
           style.padding_right.is_literal() && style.padding_bottom.is_literal() &&
           style.vertical_align.is_literal() && style.writing_mode.is_literal();
}

bool has_literal_text(const Style& style)
{
    return style.color.is_literal() && style.font_family.is_literal() && style.font_size.is_literal() &&
           style.font_weight.is_literal() && style.font_style.is_literal() && style.decoration.is_literal() &&
           style.format.is_literal() && style.language.is_literal();
}

const EmbeddedImage* embedded(const Layout& layout, TextView name)
{
    for (const auto& [known, image] : layout.images)
        if (equal_ignoring_case(known, name)) return &image;
    return nullptr;
}

std::string embedded_bytes(const Layout& layout, const Text& name)
{
    const EmbeddedImage* image = embedded(layout, name);
    if (!image) throw invalid_call(u"El reporte no contiene la imagen «" + name + u"»");
    return image->bytes;
}

std::string file_bytes(const Layout& layout, const Text& name)
{
    if (name.find(u"://") != Text::npos && !starts_with_ignoring_case(name, u"file://"))
        throw invalid_call(u"No se traen imágenes de la red: " + name);
    const Text path = starts_with_ignoring_case(name, u"file:///") ? name.substr(8) : name;
    const Text file = files::resolved(layout.file, path);
    constexpr std::uint64_t most = 100'000'000; // devices have no size: they are not found
    if (files::size(file) > most) throw invalid_call(u"La imagen es demasiado grande: " + name);
    return files::read(file);
}

} // namespace

ScopeEnvironment Canvas::environment(const Scope* scope) const
{
    ScopeEnvironment here(report_, scope);
    here.set_page_items(page_items_);
    return here;
}

const Look& Canvas::look(const ReportItem& item, const ScopeEnvironment& here)
{
    const auto known = literal_looks_.find(&item);
    if (known != literal_looks_.end()) return known->second;
    if (is_literal(item.style))
        return literal_looks_.emplace(&item, look_of(item.style, here, item.place)).first->second;
    return computed_look_ = look_of(item.style, here, item.place);
}

const TextLook* Canvas::literal_text_look(const Style& style, const ScopeEnvironment& here,
                                          const Place& place)
{
    const auto [known, is_new] = literal_text_looks_.try_emplace(&style);
    if (is_new && has_literal_text(style)) known->second = text_look_of(style, here, place);
    return known->second ? &*known->second : nullptr;
}

std::shared_ptr<const pages::Picture> Canvas::picture(const Image& image, const ScopeEnvironment& here)
{
    const Variant value = image.value.evaluate(here);
    if (image.source == Image::Source::database) {
        const auto* bytes = value.get_if<Bytes>();
        if (!bytes) throw invalid_call(u"La imagen no es un dato binario");
        return std::make_shared<pages::Picture>(pages::open_picture(bytes->data));
    }
    const Text name = value.text();
    auto& known = pictures_[name];
    if (known) return known;
    const Layout& layout = report_.layout();
    const bool is_embedded = image.source == Image::Source::embedded;
    return known = std::make_shared<pages::Picture>(
               pages::open_picture(is_embedded ? embedded_bytes(layout, name) : file_bytes(layout, name)));
}

bool Canvas::is_duplicate(const ReportItem& item, const Scope* within, const Variant& value, double y)
{
    if (strip_->is_rehearsal()) return false;
    const std::uint32_t first_row = within && !within->empty() ? (*within->order)[within->begin] : 0;
    Shown shown{strip_->page_of(y), first_row, value};
    const auto known = last_shown_.find(&item);
    if (known != last_shown_.end() && known->second == shown) return true;
    last_shown_[&item] = std::move(shown);
    return false;
}

} // namespace tolvex::printing
