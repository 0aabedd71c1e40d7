#include "ChartEvents.h"

#include <olectl.h>

#include <array>

#include "DoctorZELVO_h.h"

namespace automation {

namespace {

constexpr DISPID send2ChartId = 1;

VARIANTARG argument(const Text& text) {
    VARIANTARG value{};
    value.vt = VT_BSTR;
    value.bstrVal = text.get();
    return value;
}

VARIANTARG argument(short number) {
    VARIANTARG value{};
    value.vt = VT_I2;
    value.iVal = number;
    return value;
}

VARIANTARG argument(float number) {
    VARIANTARG value{};
    value.vt = VT_R4;
    value.fltVal = number;
    return value;
}

VARIANTARG argument(std::int32_t number) {
    VARIANTARG value{};
    value.vt = VT_I4;
    value.lVal = number;
    return value;
}

/// A chart that has something else to do, and will be there again.
bool isBusy(HRESULT result) {
    return result == RPC_E_CALL_REJECTED || result == RPC_E_SERVERCALL_RETRYLATER ||
           result == RPC_E_SERVERCALL_REJECTED;
}

/// The system's numbers of faults between two programs (RPC_S_...).
constexpr int firstOfTheLine = 1700, lastOfTheLine = 1999;

/// A call that did not come to its listener, or not back: the system says so, not the chart.
bool isLost(HRESULT result) {
    if (!FAILED(result) || isBusy(result)) return false;
    // The others are a listener's own faults: a wrong argument, a want of rights or of memory.
    const int code = HRESULT_CODE(result);
    if (HRESULT_FACILITY(result) == FACILITY_WIN32) return code >= firstOfTheLine && code <= lastOfTheLine;
    return HRESULT_FACILITY(result) == FACILITY_RPC && result != RPC_E_SERVERFAULT;
}

/// What a listener has said of its failure, in its own words where it has any.
std::string wordsOf(HRESULT result, EXCEPINFO& failure) {
    if (failure.pfnDeferredFillIn) failure.pfnDeferredFillIn(&failure);
    std::string words = utf8Of(failure.bstrDescription);
    ::SysFreeString(failure.bstrDescription);
    ::SysFreeString(failure.bstrSource);
    ::SysFreeString(failure.bstrHelpFile);
    if (!words.empty()) return words;
    std::array<char, 32> code{};
    std::snprintf(code.data(), code.size(), "0x%08lX", static_cast<unsigned long>(result));
    return code.data();
}

}  // namespace

ChartEvents::Answer ChartEvents::send2Chart(const doctorzelvo_chart_record& order) const {
    const Text job(order.strJob), message(order.strMessage), drugs(order.strxDrugList);
    // The last argument stands first.
    std::array<VARIANTARG, 9> values = {
        argument(drugs),
        argument(order.lngSumCost),
        argument(message),
        argument(order.intPouchTotal),
        argument(order.intTuyakilsu),
        argument(order.sglDayTuYak),
        argument(order.intPouchAmount),
        argument(order.intChupSu),
        argument(job),
    };
    Answer answer;
    // A listener may come or go while another one is told.
    const auto listeners = listeners_;
    for (const auto& [cookie, listener] : listeners) {
        DISPPARAMS handed{values.data(), nullptr, static_cast<UINT>(values.size()), 0};
        EXCEPINFO failure{};
        const HRESULT result = listener->Invoke(send2ChartId, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                                &handed, nullptr, &failure, nullptr);
        // One that listens to no event of this name has nothing against it.
        if (FAILED(result) && result != DISP_E_MEMBERNOTFOUND) answer.reason = wordsOf(result, failure);
        answer.lost = answer.lost || isLost(result);
    }
    return answer;
}

HRESULT ChartEvents::QueryInterface(REFIID which, void** out) {
    if (!out) return E_POINTER;
    const bool known = which == IID_IUnknown || which == IID_IConnectionPoint;
    *out = known ? static_cast<IConnectionPoint*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT ChartEvents::GetConnectionInterface(IID* which) {
    if (!which) return E_POINTER;
    *which = __uuidof(__clsZELVOInterface);
    return S_OK;
}

HRESULT ChartEvents::GetConnectionPointContainer(IConnectionPointContainer** object) {
    if (!object) return E_POINTER;
    *object = &object_;
    object_.AddRef();
    return S_OK;
}

HRESULT ChartEvents::Advise(IUnknown* listener, DWORD* cookie) {
    if (!listener || !cookie) return E_POINTER;
    *cookie = 0;
    Ref<IDispatch> events;
    // A chart's compiler may know its listener by the interface of the events alone.
    if (FAILED(listener->QueryInterface(__uuidof(__clsZELVOInterface), events.put())) &&
        FAILED(listener->QueryInterface(IID_IDispatch, events.put()))) {
        return CONNECT_E_CANNOTCONNECT;
    }
    return withinMemory([&] {
        listeners_[++last_] = events;
        *cookie = last_;
        return S_OK;
    });
}

HRESULT ChartEvents::Unadvise(DWORD cookie) {
    return listeners_.erase(cookie) == 0 ? CONNECT_E_NOCONNECTION : S_OK;
}

HRESULT ChartEvents::EnumConnections(IEnumConnections** connections) {
    if (!connections) return E_POINTER;
    *connections = nullptr;
    return E_NOTIMPL;
}

}  // namespace automation
