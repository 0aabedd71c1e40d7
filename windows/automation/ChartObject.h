#pragma once

#include <windows.h>

#include <ocidl.h>

#include <functional>
#include <string>

#include "ChartEvents.h"
#include "Com.h"
#include "DoctorZELVO_h.h"
#include "doctorzelvo/doctorzelvo.h"

namespace automation {

class Server;

/// What a chart gets for "DoctorZELVO.clsZELVOInterface": its calls, early and late bound, and its event.
class ChartObject final : public _clsZELVOInterface,
                          public ISupportErrorInfo,
                          public IProvideClassInfo2,
                          public IConnectionPointContainer {
public:
    explicit ChartObject(Server& server);

    /// Takes it from whoever holds it: the program ends.
    void disconnect();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID which, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT which, LCID language, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID none, LPOLESTR* names, UINT count, LCID language,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID none, LCID language, WORD flags,
                                     DISPPARAMS* handed, VARIANT* result, EXCEPINFO* failure,
                                     UINT* wrong) override;

    HRESULT STDMETHODCALLTYPE ZELVOInterface(VARIANT conSQL, BSTR YakGukIP, BSTR DoctorIDPWD, LONG PatientPK,
                                             BSTR PatientName, BSTR PatientJumin, SHORT PatientAge,
                                             SHORT PatientSex, BSTR PatientCell, BSTR PatientTel,
                                             BSTR PatientEmail, BSTR PatientZipCode, BSTR PatientJuso,
                                             BSTR HospitalName, BSTR DoctorName, BSTR HospitalTel,
                                             BSTR DoctorCell, BSTR HospitalZipCode, BSTR HospitalJuso,
                                             VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE ZELVOInterface_Nurse(VARIANT conSQL, BSTR YakGukIP, BSTR DoctorIDPWD,
                                                   VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE get_errorText(BSTR* text) override;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID which) override;
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID which, IConnectionPoint** point) override;

private:
    using Open = std::function<int(const doctorzelvo_chart&)>;
    HRESULT call(VARIANT_BOOL* result, const Open& open);
    int run(doctorzelvo_chart& chart, const Open& open, std::string& reason) const;

    Server& server_;
    ChartEvents events_{*this};
    std::string errorText_;
    ULONG references_ = 0;
};

}  // namespace automation
