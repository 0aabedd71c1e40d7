#pragma once

#include <windows.h>

#include <ocidl.h>

#include <map>
#include <string>

#include "Com.h"
#include "doctorzelvo/doctorzelvo.h"

namespace automation {

/// The listeners of Send2Chart: the object's one connection point. It lives and dies with its object.
class ChartEvents final : public IConnectionPoint {
public:
    explicit ChartEvents(IConnectionPointContainer& object) : object_(object) {}

    struct Answer {
        /// "" when all have taken it, else what the last that failed has said.
        std::string reason;
        /// One could not be reached.
        bool lost = false;
    };
    /// Tells every listener of an order.
    Answer send2Chart(const doctorzelvo_chart_record& order) const;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID which, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return object_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return object_.Release(); }
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* which) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** object) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* listener, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

private:
    IConnectionPointContainer& object_;
    std::map<DWORD, Ref<IDispatch>> listeners_;
    DWORD last_ = 0;
};

}  // namespace automation
