// Calls per second of SetDetalleDocto from an early-bound and from a late-bound host.
#include "../../tests/windows/client.hpp"

#include <chrono>
#include <cstdio>

namespace {

constexpr int calls = 200'000, lines_per_document = 100;

template <class Call>
double calls_per_second(TOLVEX::_DetFacturas* detalle, Call call)
{
    Variant result;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < calls; ++i) {
        if (i % lines_per_document == 0) detalle->InicializaDetalleFactura(&result);
        call();
    }
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    return calls / elapsed.count();
}

double early(TOLVEX::_DetFacturas* detalle)
{
    Bstr folio(L"1"), kind(L"F"), code(L"CAF-01"), product(L"Café de altura, 1 kg"), unit(L"KG");
    CY amount{};
    amount.int64 = 1'800'000;
    Variant result;
    return calls_per_second(detalle, [&] {
        detalle->SetDetalleDocto(&folio, &kind, &code, &product, &amount, &unit, &amount, &amount, &amount,
                                 &amount, &result);
    });
}

double late(TOLVEX::_DetFacturas* detalle)
{
    // Last argument first; numbers are doubles, as scripts have them.
    Variant folio(L"1"), kind(L"F"), code(L"CAF-01"), product(L"Café de altura, 1 kg"), unit(L"KG"),
        amount(180.5);
    VARIANT arguments[] = {amount, amount, amount, amount, unit, amount, product, code, kind, folio};
    DISPPARAMS call{arguments, nullptr, 10, 0};
    return calls_per_second(detalle, [&] {
        // As a script does it, the name is looked up for every call.
        wchar_t name[] = L"SetDetalleDocto";
        LPOLESTR names[] = {name};
        DISPID id = 0;
        Variant result;
        detalle->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
        detalle->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &call, &result, nullptr, nullptr);
    });
}

} // namespace

int main()
{
    const Apartment apartment;
    const auto detalle = create<TOLVEX::_DetFacturas>(L"TOLVEX.DetFacturas");
    std::printf(
        "SetDetalleDocto, %d bits: %.0f llamadas por segundo con enlace temprano, %.0f con enlace tardío\n",
        static_cast<int>(sizeof(void*) * 8), early(detalle.Get()), late(detalle.Get()));
}
