#include "com/com_error.h"

#include <new>

#include "com/com_handles.h"
#include "com/identities.h"
#include "frame/invoke.h"

namespace telvaro::com {

namespace {

constexpr HRESULT kAutomationErrorBase = static_cast<HRESULT>(0x800A0000);

// The runtime's number an HRESULT stands for: the low word of an
// automation error, else the standard mapping of common failures.
int numberOf(HRESULT hr) {
    const auto bits = static_cast<unsigned long>(hr);
    if ((bits & 0xFFFF0000UL) == static_cast<unsigned long>(kAutomationErrorBase))
        return static_cast<int>(bits & 0xFFFF);
    switch (hr) {
        case DISP_E_UNKNOWNNAME:
        case DISP_E_MEMBERNOTFOUND: return err::ObjectDoesNotSupport;
        case DISP_E_TYPEMISMATCH: return err::TypeMismatch;
        case DISP_E_OVERFLOW: return err::Overflow;
        case DISP_E_BADPARAMCOUNT: return err::WrongNumberOfArguments;
        case DISP_E_PARAMNOTOPTIONAL: return err::ArgumentNotOptional;
        case DISP_E_BADINDEX: return err::SubscriptOutOfRange;
        case DISP_E_DIVBYZERO: return err::DivisionByZero;
        case E_OUTOFMEMORY: return err::OutOfMemory;
        case E_INVALIDARG: return err::InvalidProcedureCall;
        default: return -1;
    }
}

}  // namespace

HRESULT hresultOf(int number) {
    // A failure that is no run-time error keeps its own HRESULT as number.
    if (number < 0) return static_cast<HRESULT>(number);
    return kAutomationErrorBase + (number & 0xFFFF);
}

RuntimeError currentError() {
    try {
        throw;
    } catch (RuntimeError& e) {
        if (e.source().empty()) e.setSource(String(kErrorSource));
        return e;
    } catch (const std::bad_alloc&) {
        return RuntimeError(err::OutOfMemory, standardDescription(err::OutOfMemory), String(kErrorSource));
    } catch (...) {
        return RuntimeError(err::InternalError, standardDescription(err::InternalError), String(kErrorSource));
    }
}

HRESULT reportError(const RuntimeError& error) {
    ComPtr<ICreateErrorInfo> created;
    if (SUCCEEDED(CreateErrorInfo(created.put()))) {
        Bstr description(error.description());
        Bstr source(error.source());
        created->SetGUID(kFunInterfaceId);
        created->SetDescription(description.get());
        created->SetSource(source.get());
        ComPtr<IErrorInfo> info;
        if (SUCCEEDED(created->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(info.put()))))
            SetErrorInfo(0, info.get());
    }
    return hresultOf(error.number());
}

HRESULT reportError(const RuntimeError& error, EXCEPINFO* exception) {
    if (!exception) return reportError(error);
    *exception = EXCEPINFO{};
    exception->scode = hresultOf(error.number());
    exception->bstrDescription = Bstr(error.description()).detach();
    exception->bstrSource = Bstr(error.source()).detach();
    return DISP_E_EXCEPTION;
}

void throwFromFailure(HRESULT hr, EXCEPINFO& exception) {
    if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    Bstr description, source, help;
    *description.put() = exception.bstrDescription;
    *source.put() = exception.bstrSource;
    *help.put() = exception.bstrHelpFile;
    HRESULT reported = hr;
    if (hr == DISP_E_EXCEPTION) reported = exception.scode != 0 ? exception.scode : hresultOf(exception.wCode);
    int number = numberOf(reported);
    if (number < 0) number = static_cast<int>(reported);
    String text = textOf(description.get());
    if (text.empty()) text = standardDescription(number);
    throw RuntimeError(number, std::move(text), textOf(source.get()));
}

}  // namespace telvaro::com
