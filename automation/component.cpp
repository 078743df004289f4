#include "automation/component.hpp"

#include "platform/windows/windows.hpp"

#include <atomic>

namespace tolvex::automation::component {

namespace {

std::atomic<long> uses = 0;
std::atomic<long> locks = 0;
std::atomic<bool> session_used = false;

} // namespace

Use::Use() noexcept { ++uses; }

Use::~Use() { --uses; }

void lock(bool locked) noexcept { locks += locked ? 1 : -1; }

void session_in_use() noexcept { session_used = true; }

bool can_unload() noexcept { return uses == 0 && locks == 0 && !session_used; }

std::wstring path()
{
    std::wstring buffer(32768, L'\0'); // the longest path there is
    const DWORD length = GetModuleFileNameW(this_module(), buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length == 0) throw Error(HRESULT_FROM_WIN32(GetLastError()), u"No se conoce la ruta del componente");
    buffer.resize(length);
    return buffer;
}

HRESULT type_information(REFIID interface_id, ITypeInfo** found) noexcept
try {
    ComPtr<ITypeLib> library;
    const HRESULT outcome = LoadTypeLibEx(path().c_str(), REGKIND_NONE, library.GetAddressOf());
    return SUCCEEDED(outcome) ? library->GetTypeInfoOfGuid(interface_id, found) : outcome;
} catch (...) {
    return E_OUTOFMEMORY;
}

} // namespace tolvex::automation::component
