#include "automation/failures.hpp"

#include <new>

namespace tolvex::automation {

namespace {

// Run-time numbers become codes of the control facility, as Visual Basic does it; driver codes stay.
HRESULT code_of(std::int32_t number)
{
    return number > 0 && number <= 0xFFFF ? MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number) : number;
}

void set_error_information(const Class& source, const Text& description)
{
    ComPtr<ICreateErrorInfo> created;
    if (FAILED(CreateErrorInfo(created.GetAddressOf()))) return;
    std::wstring name = program_id(source);
    Text words = description;
    created->SetGUID(source.interface_id);
    created->SetSource(name.data());
    created->SetDescription(wide(words));
    ComPtr<IErrorInfo> information;
    if (SUCCEEDED(created.As(&information))) SetErrorInfo(0, information.Get());
}

HRESULT report(const Class& source, HRESULT code, const Text& description)
{
    set_error_information(source, description);
    return FAILED(code) ? code : E_FAIL;
}

} // namespace

void begin_call() noexcept { SetErrorInfo(0, nullptr); }

void report_trapped(const Class& source)
{
    const Text description = last_error();
    if (!description.empty()) set_error_information(source, description);
}

HRESULT report_exception(const Class& source) noexcept
try {
    try {
        throw;
    } catch (const Error& error) {
        return report(source, code_of(error.number()), error.description());
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        return report(source, code_of(numbers::internal), u"Error interno: " + to_text(error.what()));
    } catch (...) {
        return report(source, code_of(numbers::internal), u"Error interno");
    }
} catch (...) {
    return E_OUTOFMEMORY; // telling the error itself failed
}

HRESULT as_late_failure(HRESULT failure, EXCEPINFO* exception) noexcept
{
    ComPtr<IErrorInfo> information;
    if (GetErrorInfo(0, information.GetAddressOf()) != S_OK) return failure;
    if (exception) {
        *exception = {};
        exception->scode = failure;
        information->GetSource(&exception->bstrSource);
        information->GetDescription(&exception->bstrDescription);
    }
    return DISP_E_EXCEPTION;
}

} // namespace tolvex::automation
