#include "ChartObject.h"

#include <olectl.h>

#include <exception>
#include <list>

#include "Caller.h"
#include "Guard.h"
#include "PointList.h"
#include "Server.h"

namespace automation {

namespace {

/// What the library says of a second call in its own program.
constexpr auto alreadyOpen =
    "ZELVO 창이 이미 열려 있습니다. 열려 있는 창을 닫은 후에 다시 실행하여 주십시오.";

/// One call, as the component's functions see it.
struct Call {
    const ChartEvents& events;
    const Charts& charts;
    const Guard* guard = nullptr;
    std::string reason = {};

    static void tell(const char* reason, void* context) { static_cast<Call*>(context)->reason = reason; }

    static int send2Chart(const doctorzelvo_chart_record* order, doctorzelvo_text* error, void* context) {
        try {
            const Call& call = *static_cast<Call*>(context);
            const ChartEvents::Answer answer = call.events.send2Chart(*order);
            if (answer.lost) call.charts.lost();
            if (call.guard) call.guard->holdAgain();
            if (answer.reason.empty()) return doctorzelvo_confirmed;
            error->give(error, answer.reason.c_str());
        } catch (const std::exception& failure) {
            error->give(error, failure.what());
        }
        return doctorzelvo_failed;
    }
};

/// The chart's texts, for as long as its call runs.
class Texts {
public:
    const char* operator()(BSTR text) { return kept_.emplace_back(utf8Of(text)).c_str(); }

private:
    std::list<std::string> kept_;
};

/// An error of our own, with its text, as every language's charts raise it.
HRESULT raise(const char* reason) {
    return withinMemory([&] {
        Ref<ICreateErrorInfo> made;
        Ref<IErrorInfo> error;
        if (SUCCEEDED(::CreateErrorInfo(reinterpret_cast<ICreateErrorInfo**>(made.put())))) {
            const Text text(reason), source("DoctorZELVO.clsZELVOInterface");
            made->SetGUID(__uuidof(_clsZELVOInterface));
            made->SetSource(source.get());
            made->SetDescription(text.get());
            if (SUCCEEDED(made->QueryInterface(IID_IErrorInfo, error.put()))) ::SetErrorInfo(0, error.get());
        }
        return E_FAIL;
    });
}

}  // namespace

ChartObject::ChartObject(Server& server) : server_(server) {}

void ChartObject::disconnect() {
    ::CoDisconnectObject(&events_, 0);
    ::CoDisconnectObject(static_cast<_clsZELVOInterface*>(this), 0);
}

HRESULT ChartObject::QueryInterface(REFIID which, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (which == IID_IUnknown || which == IID_IDispatch || which == __uuidof(_clsZELVOInterface)) {
        *out = static_cast<_clsZELVOInterface*>(this);
    } else if (which == IID_ISupportErrorInfo) {
        *out = static_cast<ISupportErrorInfo*>(this);
    } else if (which == IID_IProvideClassInfo || which == IID_IProvideClassInfo2) {
        *out = static_cast<IProvideClassInfo2*>(this);
    } else if (which == IID_IConnectionPointContainer) {
        *out = static_cast<IConnectionPointContainer*>(this);
    }
    if (!*out) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG ChartObject::Release() {
    const ULONG left = --references_;
    if (left == 0) server_.drop(*this);
    return left;
}

HRESULT ChartObject::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT ChartObject::GetTypeInfo(UINT which, LCID /*language*/, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (which != 0) return DISP_E_BADINDEX;
    return server_.types()->GetTypeInfoOfGuid(__uuidof(_clsZELVOInterface), info);
}

HRESULT ChartObject::GetIDsOfNames(REFIID /*none*/, LPOLESTR* names, UINT count, LCID language, DISPID* ids) {
    Ref<ITypeInfo> info;
    const HRESULT found = GetTypeInfo(0, language, reinterpret_cast<ITypeInfo**>(info.put()));
    return FAILED(found) ? found : info->GetIDsOfNames(names, count, ids);
}

HRESULT ChartObject::Invoke(DISPID member, REFIID /*none*/, LCID language, WORD flags, DISPPARAMS* handed,
                            VARIANT* result, EXCEPINFO* failure, UINT* wrong) {
    Ref<ITypeInfo> info;
    const HRESULT found = GetTypeInfo(0, language, reinterpret_cast<ITypeInfo**>(info.put()));
    if (FAILED(found)) return found;
    return info->Invoke(static_cast<_clsZELVOInterface*>(this), member, flags, handed, result, failure,
                        wrong);
}

HRESULT ChartObject::ZELVOInterface(VARIANT conSQL, BSTR YakGukIP, BSTR DoctorIDPWD, LONG PatientPK,
                                    BSTR PatientName, BSTR PatientJumin, SHORT PatientAge, SHORT PatientSex,
                                    BSTR PatientCell, BSTR PatientTel, BSTR PatientEmail, BSTR PatientZipCode,
                                    BSTR PatientJuso, BSTR HospitalName, BSTR DoctorName, BSTR HospitalTel,
                                    BSTR DoctorCell, BSTR HospitalZipCode, BSTR HospitalJuso,
                                    VARIANT_BOOL* result) {
    return call(result, [&](const doctorzelvo_chart& chart) {
        Texts texts;
        doctorzelvo_patient patient = {};
        patient.PatientPK = PatientPK;
        patient.PatientName = texts(PatientName);
        patient.PatientJumin = texts(PatientJumin);
        patient.PatientAge = PatientAge;
        patient.PatientSex = PatientSex;
        patient.PatientCell = texts(PatientCell);
        patient.PatientTel = texts(PatientTel);
        patient.PatientEmail = texts(PatientEmail);
        patient.PatientZipCode = texts(PatientZipCode);
        patient.PatientJuso = texts(PatientJuso);
        patient.HospitalName = texts(HospitalName);
        patient.DoctorName = texts(DoctorName);
        patient.HospitalTel = texts(HospitalTel);
        patient.DoctorCell = texts(DoctorCell);
        patient.HospitalZipCode = texts(HospitalZipCode);
        patient.HospitalJuso = texts(HospitalJuso);
        return doctorzelvo_open(&conSQL, texts(YakGukIP), texts(DoctorIDPWD), &patient, &chart);
    });
}

HRESULT ChartObject::ZELVOInterface_Nurse(VARIANT conSQL, BSTR YakGukIP, BSTR DoctorIDPWD,
                                          VARIANT_BOOL* result) {
    return call(result, [&](const doctorzelvo_chart& chart) {
        Texts texts;
        return doctorzelvo_open_nurse(&conSQL, texts(YakGukIP), texts(DoctorIDPWD), &chart);
    });
}

HRESULT ChartObject::get_errorText(BSTR* text) {
    if (!text) return E_POINTER;
    *text = nullptr;
    return withinMemory([&] {
        *text = Text(errorText_.c_str()).release();
        return S_OK;
    });
}

HRESULT ChartObject::call(VARIANT_BOOL* result, const Open& open) {
    if (!result) return E_POINTER;
    *result = VARIANT_FALSE;
    // The chart may let go of its object while the window is open.
    const Ref<_clsZELVOInterface> kept(this);
    errorText_.clear();
    try {
        Call running{events_, server_.charts()};
        doctorzelvo_chart chart = {};
        chart.size = sizeof chart;
        chart.context = &running;
        chart.tell = &Call::tell;
        chart.Send2Chart = &Call::send2Chart;
        int outcome = doctorzelvo_broken;
        if (const Server::Session session(server_); session.isFirst()) {
            const Caller caller(server_.callingThread());
            if (caller.isHeld()) {
                errorText_ = alreadyOpen;
                return S_OK;
            }
            const Guard guard(server_.charts(), caller);
            running.guard = &guard;
            chart.owner_window = reinterpret_cast<std::uintptr_t>(caller.window());
            outcome = run(chart, open, running.reason);
        } else {
            // It is turned away, and nothing that the open window stands on is touched for it.
            outcome = open(chart);
        }
        errorText_ = outcome == doctorzelvo_closed ? "" : running.reason;
        return outcome == doctorzelvo_broken ? raise(running.reason.c_str()) : S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception& failure) {
        return raise(failure.what());
    }
}

int ChartObject::run(doctorzelvo_chart& chart, const Open& open, std::string& reason) const {
    if (!server_.script()) return open(chart);
    struct Terminal {
        doctorzelvo_chart& chart;
        const Open& open;
        int outcome;
    };
    Terminal run{chart, open, doctorzelvo_broken};
    const int code = doctorzelvo_run_in_terminal(
        server_.script()->c_str(),
        [](doctorzelvo_terminal* terminal, void* context) {
            auto& [brought, opens, outcome] = *static_cast<Terminal*>(context);
            brought.terminal = terminal;
            outcome = opens(brought);
            return 1;
        },
        [](const char* why, void* context) {
            static_cast<Terminal*>(context)->chart.tell(why, static_cast<Terminal*>(context)->chart.context);
        },
        &run);
    if (code == 0 || run.outcome != doctorzelvo_closed) return run.outcome;
    reason = "the script came to " + std::to_string(code);
    return doctorzelvo_broken;
}

HRESULT ChartObject::InterfaceSupportsErrorInfo(REFIID which) {
    return which == __uuidof(_clsZELVOInterface) ? S_OK : S_FALSE;
}

HRESULT ChartObject::GetClassInfo(ITypeInfo** info) {
    if (!info) return E_POINTER;
    return server_.types()->GetTypeInfoOfGuid(__uuidof(clsZELVOInterface), info);
}

HRESULT ChartObject::GetGUID(DWORD kind, GUID* guid) {
    if (!guid) return E_POINTER;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *guid = __uuidof(__clsZELVOInterface);
    return S_OK;
}

HRESULT ChartObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
    if (!points) return E_POINTER;
    return PointList::make(events_, 0, points);
}

HRESULT ChartObject::FindConnectionPoint(REFIID which, IConnectionPoint** point) {
    if (!point) return E_POINTER;
    *point = nullptr;
    // Some charts ask for the events by the one interface that all events share.
    if (which != __uuidof(__clsZELVOInterface) && which != IID_IDispatch) return CONNECT_E_NOCONNECTION;
    *point = &events_;
    AddRef();
    return S_OK;
}

}  // namespace automation
