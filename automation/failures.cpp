#include "automation/failures.hpp"

#include "automation/variants.hpp"
#include "core/errors.hpp"
#include "tolvex/tolvex.hpp"

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
    ICreateErrorInfo* created = nullptr;
    if (FAILED(CreateErrorInfo(&created))) return;
    Text name = text_from(library_name) + u"." + text_from(source.name);
    Text words = description;
    created->SetGUID(source.interface_id);
    created->SetSource(reinterpret_cast<LPOLESTR>(name.data()));
    created->SetDescription(reinterpret_cast<LPOLESTR>(words.data()));
    IErrorInfo* information = nullptr;
    if (SUCCEEDED(created->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&information)))) {
        SetErrorInfo(0, information);
        information->Release();
    }
    created->Release();
}

HRESULT report(const Class& source, HRESULT code, const Text& description)
{
    set_error_information(source, description);
    return FAILED(code) ? code : E_FAIL;
}

} // namespace

void begin_call() noexcept
{
    SetErrorInfo(0, nullptr);
    forget_error();
}

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
    IErrorInfo* information = nullptr;
    if (GetErrorInfo(0, &information) != S_OK) return failure;
    if (exception) {
        *exception = {};
        exception->scode = failure;
        information->GetSource(&exception->bstrSource);
        information->GetDescription(&exception->bstrDescription);
    }
    information->Release();
    return DISP_E_EXCEPTION;
}

} // namespace tolvex::automation
