// The toolkit of Windows against its port: a form with every kind of control does what a form may do.
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "platform/forms.hpp"
#include "platform/messages.hpp"
#include "platform/windows/windows.hpp"

#include <gtest/gtest.h>

namespace tolvex {
namespace {

using enum ControlKind;

const FormDescription description = {
    .name = u"Prueba",
    .sections = {{u"Marco & marco",
                  {{{text, u"texto", u"Texto"}, {label, u"rótulo", u"Aquí"}},
                   {{combo, u"lista", u"Lista"}, {check, u"casilla", u"Casilla"}},
                   {{.kind = text, .name = u"leído", .caption = u"Leído", .width = 12, .read_only = true}},
                   {{.kind = list, .name = u"tabla", .lines = 5}}}}},
    .buttons = {{button, u"cierra", u"&Cierra"}}};

// Does what a test asks for: while it is loaded, and when its button is clicked.
class TriedForm : public Form
{
public:
    std::function<void(FormView&)> while_loading = [](FormView&) {};
    std::function<void(FormView&)> when_clicked = [](FormView& view) { view.close(); };
    int unloaded = 0;

    const FormDescription& description() const override { return tolvex::description; }
    void load(FormView& view) override { while_loading(view); }
    void clicked(FormView& view, TextView) override { when_clicked(view); }
    void unload(FormView&) override { ++unloaded; }
};

class WindowsToolkit : public ::testing::Test
{
protected:
    WindowsToolkit()
    {
        set_message_handler([this](const Message& message) {
            messages_.push_back(message.text);
            return MessageAnswer::ok;
        });
    }
    ~WindowsToolkit() override { set_message_handler({}); }

    // The form as it opens, closed at once.
    void while_loading(std::function<void(FormView&)> act)
    {
        form_.while_loading = [&](FormView& view) {
            act(view);
            view.close();
        };
        native_toolkit().show_modal(form_);
        EXPECT_EQ(form_.unloaded, 1);
    }

    // The form once it is seen, its button pressed.
    void when_clicked(std::function<void(FormView&)> act)
    {
        form_.while_loading = [](FormView& view) { press_button(view); };
        form_.when_clicked = [&](FormView& view) {
            act(view);
            view.close();
        };
        native_toolkit().show_modal(form_);
        EXPECT_EQ(form_.unloaded, 1);
    }

    static HWND window(FormView& view) { return reinterpret_cast<HWND>(view.window()); }
    static HWND next_text_box(FormView& view, HWND after)
    {
        return FindWindowExW(window(view), after, L"Edit", nullptr);
    }
    static void press_button(FormView& view)
    {
        const HWND button = FindWindowExW(window(view), nullptr, L"Button", L"&Cierra");
        PostMessageW(button, BM_CLICK, 0, 0);
    }

    static void pump()
    {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }

    TriedForm form_;
    std::vector<Text> messages_;
};

TEST_F(WindowsToolkit, keeps_texts_and_checks)
{
    while_loading([](FormView& view) {
        for (const TextView control : {u"texto", u"rótulo", u"leído"}) {
            view.set_text(control, u"Ñandú & Cía. ‰");
            EXPECT_EQ(view.text(control), u"Ñandú & Cía. ‰") << to_utf8(control);
        }
        EXPECT_FALSE(view.checked(u"casilla"));
        view.set_checked(u"casilla", true);
        EXPECT_TRUE(view.checked(u"casilla"));
        EXPECT_THROW(view.set_text(u"nada", u""), Error);
        EXPECT_THROW(view.clear_rows(u"texto"), Error);
    });
    EXPECT_TRUE(messages_.empty());
}

TEST_F(WindowsToolkit, keeps_items_with_their_values)
{
    while_loading([](FormView& view) {
        view.fill(u"lista", {{u"Uno", u"1"}, {u"Otro uno", u"1"}, {u"Dos", u"2"}});
        EXPECT_EQ(view.chosen(u"lista"), u"");
        view.choose(u"lista", u"2");
        EXPECT_EQ(view.text(u"lista"), u"Dos");
        view.choose(u"lista", u"1");
        EXPECT_EQ(view.text(u"lista"), u"Uno");
        EXPECT_EQ(view.chosen(u"lista"), u"1");
        view.choose(u"lista", u"9");
        EXPECT_EQ(view.text(u"lista"), u"");
        view.choose(u"lista", u"1");
        view.fill(u"lista", {{u"Tres", u"3"}});
        EXPECT_EQ(view.chosen(u"lista"), u"");
    });
}

TEST_F(WindowsToolkit, shows_the_rows_that_it_was_given)
{
    when_clicked([](FormView& view) {
        view.set_columns(u"tabla", {{u"Número", 8, true}, {u"Nombre", 20}});
        for (int i = 0; i < 20'000; ++i) view.add_row(u"tabla", {decimal(i), u"Ñandú"});
        EXPECT_FALSE(view.selected_row(u"tabla"));
        pump();
        const HWND table = FindWindowExW(window(view), nullptr, L"SysListView32", nullptr);
        SendMessageW(table, WM_KEYDOWN, VK_END, 0);
        EXPECT_EQ(view.selected_row(u"tabla"), (ListRow{u"19999", u"Ñandú"}));
        view.clear_rows(u"tabla");
        EXPECT_FALSE(view.selected_row(u"tabla"));
    });
}

// The color at the right end of a box, where its text does not reach.
COLORREF color_of(HWND box)
{
    RECT place;
    GetClientRect(box, &place);
    UpdateWindow(box);
    const HDC paper = GetDC(box);
    const COLORREF found = GetPixel(paper, place.right - 4, place.bottom / 2);
    ReleaseDC(box, paper);
    return found;
}

TEST_F(WindowsToolkit, an_alarm_is_red)
{
    when_clicked([](FormView& view) {
        view.set_text(u"leído", u"22-10-2010");
        const HWND box = next_text_box(view, next_text_box(view, nullptr));
        view.set_background(u"leído", Background::alarm);
        EXPECT_EQ(color_of(box), RGB(255, 0, 0));
        view.set_background(u"leído", Background::plain);
        EXPECT_NE(color_of(box), RGB(255, 0, 0));
    });
}

TEST_F(WindowsToolkit, a_control_that_goes_hands_the_focus_on)
{
    when_clicked([](FormView& view) {
        const HWND text_box = next_text_box(view, nullptr);
        const HWND combo = FindWindowExW(window(view), nullptr, L"ComboBox", nullptr);
        SetFocus(text_box);
        view.enable(u"texto", false);
        EXPECT_EQ(GetFocus(), combo);
        view.set_visible(u"lista", false);
        EXPECT_NE(GetFocus(), combo);
        EXPECT_TRUE(IsChild(window(view), GetFocus()));
    });
}

TEST_F(WindowsToolkit, a_failing_event_is_told_and_leaves_the_form_open)
{
    int clicks = 0;
    form_.while_loading = [](FormView& view) {
        press_button(view);
        throw invalid_call(u"al abrir");
    };
    form_.when_clicked = [&](FormView& view) {
        if (++clicks == 2) return view.close();
        press_button(view);
        throw invalid_call(u"al oprimir");
    };
    native_toolkit().show_modal(form_);
    EXPECT_EQ(clicks, 2);
    ASSERT_EQ(messages_.size(), 2u);
    EXPECT_NE(messages_[0].find(u"al abrir"), Text::npos);
    EXPECT_NE(messages_[1].find(u"al oprimir"), Text::npos);
    EXPECT_EQ(form_.unloaded, 1);
}

TEST_F(WindowsToolkit, an_event_that_comes_while_one_runs_is_none)
{
    int clicks = 0;
    when_clicked([&](FormView& view) {
        ++clicks;
        press_button(view);
        pump();
        EXPECT_TRUE(IsWindow(window(view)));
    });
    EXPECT_EQ(clicks, 1);
}

} // namespace
} // namespace tolvex
