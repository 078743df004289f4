// The viewer's window from within its process: what it costs, and what would take a host down.
#include "platform/pages/viewer.hpp"

#include "../pages/components.hpp"
#include "core/errors.hpp"
#include "platform/windows/viewer/commands.hpp"
#include "support/sample_page.hpp"

#include <chrono>
#include <functional>

namespace tolvex::testing {
namespace {

HWND viewer() { return FindWindowW(L"FrmGenImprimirEnCrystal", nullptr); }
HWND pages_of(HWND viewer) { return FindWindowExW(viewer, nullptr, L"CRViewer", nullptr); }

void run_waiting_messages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void command(ViewerCommand command)
{
    SendMessageW(viewer(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    run_waiting_messages();
}

// The boxes and labels in their order: page, pages, scale, words, found.
std::wstring shown(int number)
{
    HWND box = nullptr;
    for (HWND child = GetWindow(viewer(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t kind[20] = {};
        GetClassNameW(child, kind, std::size(kind));
        if ((kind == std::wstring_view(L"Edit") || kind == std::wstring_view(L"Static")) && number-- == 0)
            box = child;
    }
    wchar_t text[100] = {};
    GetWindowTextW(box, text, std::size(text));
    return text;
}

double milliseconds(const std::function<void()>& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

// As many marks as a page of an invoice, the last word its number.
pages::Page full_page(int number)
{
    pages::Page page = sample_page();
    for (int row = 0; row < 60; ++row)
        for (int column = 0; column < 6; ++column)
            page.marks.push_back(
                pages::TextMark{{40.0 + 90 * column, 160.0 + 10 * row}, u"Café 1,234.50", {u"Arial", 8}});
    page.marks.push_back(
        pages::TextMark{{40, 780}, u"hoja" + to_text(std::to_string(number)), {u"Arial", 8}});
    return page;
}

class Viewer : public ::testing::Test
{
protected:
    void TearDown() override
    {
        while (viewer()) {
            command(ViewerCommand::leave_box);
            SendMessageW(viewer(), WM_CLOSE, 0, 0);
            run_waiting_messages();
        }
    }
};

TEST_F(Viewer, a_thousand_pages_are_no_burden)
{
    std::vector<pages::Page> pages;
    for (int i = 1; i <= 1000; ++i) pages.push_back(full_page(i));
    const double opening = milliseconds([&] {
        show_pages(std::move(pages), {u"Mil hojas", u""});
        run_waiting_messages();
    });
    const int turns = 40;
    const double scrolling = milliseconds([] {
        for (int i = 0; i < turns; ++i) {
            SendMessageW(pages_of(viewer()), WM_VSCROLL, SB_PAGEDOWN, 0);
            UpdateWindow(pages_of(viewer()));
        }
    });
    command(ViewerCommand::find);
    const double searching = milliseconds([] {
        SetWindowTextW(GetFocus(), L"HOJA999");
        run_waiting_messages();
    });
    EXPECT_EQ(shown(0), L"999");
    EXPECT_EQ(shown(4), L" 1 de 1");
    std::printf("abrir %.0f ms, una pantalla %.1f ms, buscar %.0f ms\n", opening, scrolling / turns,
                searching);
    EXPECT_LT(opening, 3000);
    EXPECT_LT(scrolling / turns, 250);
    EXPECT_LT(searching, 3000);
}

TEST_F(Viewer, odd_pages_and_sizes_are_shown)
{
    pages::Picture damaged = *sample_picture("logo.png");
    damaged.bytes.resize(60);
    pages::Page faulty;
    faulty.marks = {
        pages::PictureMark{{40, 40, 64, 48}, {40, 40, 64, 48}, std::make_shared<pages::Picture>(damaged)}};
    show_pages({faulty, {14'400, 3, {}}, {3, 14'400, sample_page().marks}}, {});
    for (const auto& [width, height] : {std::pair(2000, 1500), {1, 1}, {700, 300}})
        for (const ViewerCommand each :
             {ViewerCommand::fit_width, ViewerCommand::whole_page, ViewerCommand::real_size,
              ViewerCommand::document_end, ViewerCommand::screen_down, ViewerCommand::zoom_out}) {
            SetWindowPos(viewer(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
            command(each);
            UpdateWindow(pages_of(viewer()));
        }
    for (int i = 0; i < 30; ++i) command(ViewerCommand::zoom_in);
    EXPECT_EQ(shown(2), L"800 %");
    for (int i = 0; i < 30; ++i) command(ViewerCommand::zoom_out);
    EXPECT_EQ(shown(2), L"10 %");
    command(ViewerCommand::document_start);
    EXPECT_EQ(shown(0), L"1");
}

// Another monitor: everything is drawn anew at its resolution, at the same place of the document.
TEST_F(Viewer, follows_the_resolution_of_its_monitor)
{
    show_pages({full_page(1), full_page(2), full_page(3)}, {u"Tres hojas", u""});
    command(ViewerCommand::real_size);
    command(ViewerCommand::next_page);
    const RECT place{0, 0, 1000, 900};
    SendMessageW(viewer(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&place));
    EXPECT_EQ(shown(0), L"2");
    EXPECT_EQ(shown(2), L"100 %");
    SCROLLINFO down{};
    down.cbSize = sizeof down;
    down.fMask = SIF_RANGE;
    GetScrollInfo(pages_of(viewer()), SB_VERT, &down);
    EXPECT_NEAR(down.nMax, 3 * 792 * 192 / 72 + 4 * 24, 10);
}

TEST_F(Viewer, several_are_open_and_each_closes_by_itself)
{
    for (const char16_t* title : {u"uno", u"dos", u"tres"}) show_pages({sample_page()}, {title, u""});
    const HWND second = FindWindowW(L"FrmGenImprimirEnCrystal", L"dos");
    SendMessageW(second, WM_CLOSE, 0, 0);
    run_waiting_messages();
    EXPECT_FALSE(IsWindow(second));
    EXPECT_TRUE(FindWindowW(nullptr, L"uno") && FindWindowW(nullptr, L"tres"));
}

} // namespace
} // namespace tolvex::testing
