#include "core/errors.hpp"
#include "printing/composing/place.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

using pages::Box;
using pages::Picture;

Box inner_box(const Look& look, const Box& box)
{
    return {box.left + look.padding_left, box.top + look.padding_top,
            std::max(box.width - look.padding_left - look.padding_right, 0.0),
            std::max(box.height - look.padding_top - look.padding_bottom, 0.0)};
}

double natural_width(const Picture& picture) { return picture.width / picture.dpi_x * 72; }
double natural_height(const Picture& picture) { return picture.height / picture.dpi_y * 72; }

Box drawn_box(const Picture& picture, Image::Sizing sizing, const Box& room)
{
    const double width = natural_width(picture), height = natural_height(picture);
    if (sizing == Image::Sizing::fit) return room;
    if (sizing != Image::Sizing::fit_proportional) return {room.left, room.top, width, height};
    const double scale = std::min(room.width / width, room.height / height);
    return {room.left, room.top, width * scale, height * scale};
}

} // namespace

double place_picture(Canvas& canvas, const ReportItem& item, const Box& box, const Setting& setting)
{
    const auto& image = std::get<Image>(item.content);
    const ScopeEnvironment here = canvas.environment(setting.scope);
    const Look look = canvas.look(item, here);
    try {
        const auto picture = canvas.picture(image, here);
        Box frame = box;
        if (image.sizing == Image::Sizing::auto_size) {
            frame.width =
                std::max(box.width, natural_width(*picture) + look.padding_left + look.padding_right);
            frame.height =
                std::max(box.height, natural_height(*picture) + look.padding_top + look.padding_bottom);
        }
        frame.top = canvas.strip().make_room(frame.top, frame.height);
        const Box room = inner_box(look, frame);
        put_background(canvas, look, frame);
        canvas.strip().put(pages::PictureMark{drawn_box(*picture, image.sizing, room), room, picture});
        put_borders(canvas, look, frame);
        put_marks_of(canvas, item, frame, setting.scope);
        return frame.bottom();
    } catch (const Error& error) {
        canvas.report().composition().remark(item.place, error.description());
        return place_notice(canvas, box, item.name);
    }
}

} // namespace tolvex::printing
