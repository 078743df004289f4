#include "platform/form_layout.hpp"

#include "maintenance/branches_form.hpp"
#include "maintenance/certificates_form.hpp"
#include "maintenance/companies_form.hpp"
#include "maintenance/folios_form.hpp"
#include "maintenance/pickers.hpp"
#include "support/text_io.hpp"

#include <gtest/gtest.h>

namespace tolvex::testing {
namespace {

std::vector<std::unique_ptr<Form>> all_forms()
{
    std::vector<std::unique_ptr<Form>> forms;
    forms.push_back(std::make_unique<FrmCatEmpresas>(session(), RecordKey{}, nullptr));
    forms.push_back(std::make_unique<FrmCatSucursales>(session(), RecordKey{}, nullptr));
    forms.push_back(std::make_unique<FrmCatSerieyFolios>(session(), RecordKey{}, nullptr));
    forms.push_back(std::make_unique<FrmCatCertificados>(session(), RecordKey{}, nullptr));
    forms.push_back(companies_picker(session()));
    forms.push_back(branches_picker(session(), 1));
    forms.push_back(certificates_picker(session(), 1));
    forms.push_back(folios_picker(session(), 1));
    return forms;
}

// At the smallest size, and drawn larger by a user.
void for_all_layouts(const std::function<void(const FormDescription&, const FormLayout&)>& check)
{
    for (const auto& form : all_forms()) {
        SCOPED_TRACE(to_utf8(form->description().name));
        const FormLayout least = lay_out(form->description());
        check(form->description(), least);
        check(form->description(),
              lay_out(form->description(), {least.size.width * 2, least.size.height + 99}));
    }
}

bool overlap(const Box& a, const Box& b)
{
    return !a.empty() && !b.empty() && a.x < b.right() && b.x < a.right() && a.y < b.bottom() &&
           b.y < a.bottom();
}

bool within(const Box& inner, const Box& outer)
{
    return inner.x >= outer.x && inner.y >= outer.y && inner.right() <= outer.right() &&
           inner.bottom() <= outer.bottom();
}

const PlacedControl& placed(const FormLayout& layout, TextView name)
{
    for (const PlacedControl& control : layout.controls)
        if (control.control->name == name) return control;
    throw std::out_of_range("no such control");
}

TEST(FormLayout, keeps_everything_apart_and_inside)
{
    for_all_layouts([](const FormDescription&, const FormLayout& layout) {
        std::vector<Box> boxes = {layout.tool_bar};
        for (const PlacedControl& control : layout.controls) {
            EXPECT_EQ(control.box.empty(), !control.control->visible) << to_utf8(control.control->name);
            boxes.push_back(control.box);
            boxes.push_back(control.label);
        }
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            EXPECT_TRUE(within(boxes[i], {0, 0, layout.size.width, layout.size.height})) << i;
            for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(overlap(boxes[i], boxes[j])) << i << " " << j;
        }
    });
}

TEST(FormLayout, puts_labels_close_before_their_fields)
{
    for_all_layouts([](const FormDescription&, const FormLayout& layout) {
        for (const auto& [control, box, label, page] : layout.controls) {
            const bool labelled = control->kind == ControlKind::text || control->kind == ControlKind::combo;
            EXPECT_EQ(!label.empty(), labelled && !control->caption.empty()) << to_utf8(control->name);
            if (label.empty()) continue;
            EXPECT_EQ(label.y, box.y) << to_utf8(control->name);
            EXPECT_LE(label.right(), box.x) << to_utf8(control->name);
            EXPECT_LE(box.x - label.right(), 4) << to_utf8(control->name);
            EXPECT_GE(label.width, 4 * static_cast<int>(control->caption.size())) << to_utf8(control->name);
        }
    });
}

TEST(FormLayout, keeps_the_order_of_the_description)
{
    for_all_layouts([](const FormDescription& form, const FormLayout& layout) {
        std::vector<Text> described, laid_out;
        for (const Section& section : form.sections)
            for (const Row& row : section.rows)
                for (const Control& control : row) described.emplace_back(control.name);
        for (const Control& button : form.buttons) described.emplace_back(button.name);
        for (const PlacedControl& control : layout.controls) laid_out.emplace_back(control.control->name);
        EXPECT_EQ(laid_out, described);
    });
}

TEST(FormLayout, frames_hold_their_rows_and_no_others)
{
    const FrmCatSerieyFolios folios(session(), {}, nullptr);
    const FormLayout layout = lay_out(folios.description());
    ASSERT_EQ(layout.frames.size(), 1u);
    EXPECT_EQ(layout.frames[0].caption, u"Rango asignado");
    for (const TextView inside : {u"txtDesde", u"txtHasta", u"txtUltimo"}) {
        EXPECT_TRUE(within(placed(layout, inside).box, layout.frames[0].box)) << to_utf8(inside);
        EXPECT_TRUE(within(placed(layout, inside).label, layout.frames[0].box)) << to_utf8(inside);
    }
    for (const TextView outside : {u"TxtAprobacion", u"txtAnno", u"Command1"})
        EXPECT_FALSE(overlap(placed(layout, outside).box, layout.frames[0].box)) << to_utf8(outside);
}

TEST(FormLayout, aligns_fields_below_each_other)
{
    const FrmCatSucursales branches(session(), {}, nullptr);
    const FormLayout layout = lay_out(branches.description());
    for (const TextView first : {u"txtNombre", u"cmbCertificado1", u"txtCalle", u"txtTelefono"})
        EXPECT_EQ(placed(layout, first).box.x, placed(layout, u"txtId").box.x) << to_utf8(first);
    for (const TextView second : {u"txtCP", u"txtRFC"})
        EXPECT_EQ(placed(layout, second).box.x, placed(layout, u"txtNumInterior").box.x) << to_utf8(second);
}

TEST(FormLayout, aligns_first_fields_within_and_without_frames)
{
    const FrmCatSerieyFolios folios(session(), {}, nullptr);
    const FormLayout layout = lay_out(folios.description());
    for (const TextView first : {u"CboSucursal", u"TxtAprobacion", u"txtDesde", u"txtUltimo"})
        EXPECT_EQ(placed(layout, first).box.x, placed(layout, u"txtId").box.x) << to_utf8(first);
}

TEST(FormLayout, gives_lists_and_open_fields_what_a_larger_form_leaves)
{
    const auto picker = branches_picker(session(), 1);
    const FormLayout least = lay_out(picker->description());
    const FormLayout larger = lay_out(picker->description(), {least.size.width + 50, least.size.height + 30});
    EXPECT_EQ(placed(larger, u"LstLQS3").box.width, placed(least, u"LstLQS3").box.width + 50);
    EXPECT_EQ(placed(larger, u"LstLQS3").box.height, placed(least, u"LstLQS3").box.height + 30);
    EXPECT_EQ(placed(larger, u"lblEmpresa").box.height, placed(least, u"lblEmpresa").box.height);

    const FormLayout smaller = lay_out(picker->description(), {1, 1});
    EXPECT_EQ(smaller.size.width, least.size.width);
    EXPECT_EQ(smaller.size.height, least.size.height);
}

TEST(FormLayout, keeps_buttons_at_the_bottom_right)
{
    const FrmCatEmpresas companies(session(), {}, nullptr);
    const FormLayout least = lay_out(companies.description());
    const FormLayout larger =
        lay_out(companies.description(), {least.size.width + 50, least.size.height + 30});
    for (const TextView button : {u"Command1", u"Command2"}) {
        EXPECT_EQ(placed(larger, button).box.x, placed(least, button).box.x + 50) << to_utf8(button);
        EXPECT_EQ(placed(larger, button).box.y, placed(least, button).box.y + 30) << to_utf8(button);
    }
}

} // namespace
} // namespace tolvex::testing
