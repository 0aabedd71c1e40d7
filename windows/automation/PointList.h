#pragma once

#include <windows.h>

#include <ocidl.h>

#include <memory>

#include "Com.h"

namespace automation {

/// The object's connection points, one after the other, for charts that look for their event so. It lives for
/// as long as somebody holds it.
class PointList final : public IEnumConnectionPoints {
public:
    PointList(IConnectionPoint& point, ULONG taken) : point_(&point), taken_(taken) {}
    /// Puts a list of this one point into `out`; `taken` of it have been handed out already.
    static HRESULT make(IConnectionPoint& point, ULONG taken, IEnumConnectionPoints** out);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID which, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE Next(ULONG wanted, IConnectionPoint** points, ULONG* given) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** out) override;

private:
    std::unique_ptr<PointList> self_;
    Ref<IConnectionPoint> point_;
    ULONG taken_;
    ULONG references_ = 1;
};

}  // namespace automation
