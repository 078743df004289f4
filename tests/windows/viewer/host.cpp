// A host that shows documents and runs the plainest message loop there is. It says what a viewer shows
// whenever that changes, and ends with the last viewer or when its own window is closed.
//
//   host DATABASE LAYOUT FOLIO…
#include "../client.hpp"
#include "../own_window.hpp"

#include <cstdio>

namespace {

ComPtr<TOLVEX::_GeneraDocto> documents_of(const wchar_t* database)
{
    const auto connection = create<TOLVEX::_ConfigFE>(L"TOLVEX.ConfigFE");
    Bstr none(L""), file(database), server(L"sqlite:");
    VARIANT_BOOL done = VARIANT_FALSE;
    Variant nothing;
    connection->SetDatosConexion(&none, &none, &file, &server, &nothing);
    connection->AbrirConexion(&done);
    return create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
}

void show(TOLVEX::_GeneraDocto& documents, const wchar_t* layout, const wchar_t* folio)
{
    Bstr report(layout), document(folio);
    SHORT one = 1;
    VARIANT_BOOL is_credit_note = VARIANT_FALSE;
    documents.ImprimeDocuentoConVisor(&document, &one, &one, &is_credit_note, &report);
}

std::wstring text_of(HWND window)
{
    wchar_t text[200] = {};
    SendMessageW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    return text;
}

BOOL CALLBACK add_text(HWND child, LPARAM parameter)
{
    wchar_t kind[20] = {};
    GetClassNameW(child, kind, std::size(kind));
    const std::wstring_view name = kind;
    if (name == L"Edit" || name == L"Static")
        *reinterpret_cast<std::wstring*>(parameter) += L"[" + text_of(child) + L"]";
    return TRUE;
}

// The boxes and labels of the viewer in front, every tenth of a second.
void CALLBACK say_what_changed(HWND, UINT, UINT_PTR, DWORD)
{
    static std::wstring before;
    const HWND viewer = FindWindowW(L"FrmGenImprimirEnCrystal", nullptr);
    std::wstring now = viewer ? text_of(viewer) + L": " : L"cerrado";
    if (viewer) EnumChildWindows(viewer, add_text, reinterpret_cast<LPARAM>(&now));
    if (now == before) return;
    before = now;
    char said[1000] = {};
    WideCharToMultiByte(CP_UTF8, 0, now.c_str(), -1, said, sizeof said, nullptr, nullptr);
    std::puts(said);
    std::fflush(stdout);
}

} // namespace

int wmain(int count, wchar_t** arguments)
{
    if (count < 4) return 2;
    const Apartment apartment;
    const HWND own = own_window::open();
    const auto documents = documents_of(arguments[1]);
    for (int i = 3; i < count; ++i) show(*documents.Get(), arguments[2], arguments[i]);
    SetTimer(nullptr, 0, 100, say_what_changed);
    own_window::run_messages(own);
    std::puts("fin");
    return 0;
}
