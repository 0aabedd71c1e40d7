#include "PointList.h"

namespace automation {

HRESULT PointList::make(IConnectionPoint& point, ULONG taken, IEnumConnectionPoints** out) {
    *out = nullptr;
    return withinMemory([&] {
        auto made = std::make_unique<PointList>(point, taken);
        PointList& list = *made;
        list.self_ = std::move(made);
        *out = &list;
        return S_OK;
    });
}

HRESULT PointList::QueryInterface(REFIID which, void** out) {
    if (!out) return E_POINTER;
    const bool known = which == IID_IUnknown || which == IID_IEnumConnectionPoints;
    *out = known ? this : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG PointList::Release() {
    const ULONG left = --references_;
    if (left == 0) {
        const std::unique_ptr<PointList> last = std::move(self_);
    }
    return left;
}

HRESULT PointList::Next(ULONG wanted, IConnectionPoint** points, ULONG* given) {
    if (!points || (!given && wanted != 1)) return E_POINTER;
    const ULONG count = wanted > 0 && taken_ == 0 ? 1 : 0;
    if (count == 1) {
        *points = Ref<IConnectionPoint>(point_).release();
        taken_ = 1;
    }
    if (given) *given = count;
    return count == wanted ? S_OK : S_FALSE;
}

HRESULT PointList::Skip(ULONG count) {
    const ULONG left = 1 - taken_;
    if (count > 0) taken_ = 1;
    return count <= left ? S_OK : S_FALSE;
}

HRESULT PointList::Reset() {
    taken_ = 0;
    return S_OK;
}

HRESULT PointList::Clone(IEnumConnectionPoints** out) {
    if (!out) return E_POINTER;
    return make(*point_.get(), taken_, out);
}

}  // namespace automation
