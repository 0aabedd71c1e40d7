// A chart that makes the automation object: chart early|late SERVER
// [fail|hold|box|again|second|keep|stranger]. It prints what the object gives. Its handler fails, calls the
// object again or a second one, or holds the order, with the chart's window as ours would leave it, until
// somebody gives the window back, or leaves a held one free, as a box over it does. It tells how the first
// two windows that come over its own stand there, and whether its field has the keys in the end. By "keep" it
// holds the object when the call has returned, by "stranger" it brings a wrong password.
#include <windows.h>

#include <ocidl.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "DoctorZELVO_h.h"

namespace {

void must(HRESULT result, const char* what) {
    if (SUCCEEDED(result)) return;
    std::printf("%s 0x%08lX\n", what, static_cast<unsigned long>(result));
    std::exit(1);
}

std::wstring wide(const char* utf8) {
    std::wstring text(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8, -1, nullptr, 0)), 0);
    ::MultiByteToWideChar(CP_UTF8, 0, utf8, -1, text.data(), static_cast<int>(text.size()));
    text.pop_back();
    return text;
}

std::string narrow(const wchar_t* text) {
    std::string utf8(
        static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr)),
        0);
    ::WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.pop_back();
    return utf8;
}

/// What a call brings of each value, with its kind.
void print(const VARIANTARG& value) {
    switch (value.vt) {
        case VT_BSTR:
            std::printf(" \"%s\"", narrow(value.bstrVal ? value.bstrVal : L"").c_str());
            break;
        case VT_I2:
            std::printf(" short:%d", value.iVal);
            break;
        case VT_I4:
            std::printf(" long:%ld", value.lVal);
            break;
        case VT_R4:
            std::printf(" float:%g", static_cast<double>(value.fltVal));
            break;
        default:
            std::printf(" ?%u", value.vt);
    }
}

VARIANT text(const char* utf8) {
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = ::SysAllocString(wide(utf8).c_str());
    return value;
}

/// A number as scripts hand it over, of one width wherever it goes.
VARIANT number(int value) {
    VARIANT held{};
    held.vt = VT_I4;
    held.lVal = value;
    return held;
}

/// Whether it comes true within so many looks, of 10 ms each; the chart hears meanwhile what is said to its
/// windows, as any does.
template <class Condition>
bool comesTrue(int looks, const Condition& condition) {
    MSG message{};
    for (int i = 0; i < looks && !condition(); ++i) {
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
        ::Sleep(10);
    }
    return condition();
}

/// How a program that has ended leaves the chart's window.
void tellWindow() {
    const HWND window = ::FindWindowW(L"STATIC", L"chart");
    std::printf("its window is %s\n",
                comesTrue(500, [&] { return ::IsWindowEnabled(window); }) ? "free" : "held");
}

const char* account = "doctor1/$/pass1";

std::vector<VARIANT> arguments(const char* server) {
    return {VARIANT{},
            text(server),
            text(account),
            number(1024),
            text("김하늘"),
            text(""),
            number(41),
            number(2),
            text("01012345678"),
            text(""),
            text(""),
            text("06236"),
            text("테헤란로 152"),
            text("하늘한의원"),
            text("이정민"),
            text("025550123"),
            text(""),
            text("03045"),
            text("효자로 12")};
}

void callLate(IDispatch& object, const char* server) {
    std::vector<VARIANT> handed = arguments(server);
    std::vector<VARIANT> backwards(handed.rbegin(), handed.rend());
    wchar_t name[] = L"zelvointerface", other[] = L"errorText";
    LPOLESTR names[] = {name};
    DISPID id = 0;
    must(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), "GetIDsOfNames");
    DISPPARAMS params{backwards.data(), nullptr, static_cast<UINT>(backwards.size()), 0};
    VARIANT result{};
    EXCEPINFO failure{};
    const HRESULT called = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, &result,
                                         &failure, nullptr);
    if (failure.bstrDescription) std::printf("raised: %s\n", narrow(failure.bstrDescription).c_str());
    if (FAILED(called)) tellWindow();
    must(called, "ZELVOInterface");
    names[0] = other;
    must(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), "GetIDsOfNames");
    VARIANT reason{};
    DISPPARAMS none{};
    must(object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &reason, nullptr,
                       nullptr),
         "errorText");
    std::printf("result %d errorText", result.boolVal);
    print(reason);
}

/// The chart's handler of Send2Chart.
class Listener : public IDispatch {
public:
    Listener(std::string how, HWND window, std::function<void()> call)
        : how_(std::move(how)), window_(window), call_(std::move(call)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID which, void** out) override {
        const bool known =
            which == IID_IUnknown || which == IID_IDispatch || which == __uuidof(__clsZELVOInterface);
        *out = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* handed, VARIANT*,
                                     EXCEPINFO* failure, UINT*) override {
        std::printf("event %ld:", static_cast<long>(member));
        for (UINT i = handed->cArgs; i > 0; --i) print(handed->rgvarg[i - 1]);
        std::printf("\n");
        if (how_ == "hold") hold();
        if (how_ == "box" || how_ == "second") mark();
        if (how_ == "second") ::SetForegroundWindow(window_);
        if (how_ == "again" || how_ == "second") call_();
        if (how_ != "fail") return S_OK;
        failure->bstrDescription = ::SysAllocString(L"진료부가 바쁩니다.");
        return DISP_E_EXCEPTION;
    }

private:
    void mark() const {
        const std::uintptr_t holder = ::GetCurrentProcessId();
        ::SetPropW(window_, L"DoctorZELVO.held", reinterpret_cast<HANDLE>(holder));
    }
    void hold() const {
        mark();
        ::EnableWindow(window_, FALSE);
        std::printf("held\n");
        while (!comesTrue(500, [&] { return ::IsWindowEnabled(window_); })) {
        }
        std::printf("given back\n");
    }

    std::string how_;
    HWND window_;
    std::function<void()> call_;
};

void callEarly(IDispatch& object, const char* server) {
    _clsZELVOInterface* early = nullptr;
    must(object.QueryInterface(__uuidof(_clsZELVOInterface), reinterpret_cast<void**>(&early)),
         "QueryInterface");
    const auto a = arguments(server);
    const auto s = [&](std::size_t i) { return a[i].bstrVal; };
    VARIANT_BOOL result = VARIANT_TRUE;
    must(early->ZELVOInterface(a[0], s(1), s(2), 1024, s(4), s(5), 41, 2, s(8), s(9), s(10), s(11), s(12),
                               s(13), s(14), s(15), s(16), s(17), s(18), &result),
         "ZELVOInterface");
    VARIANT reason{};
    reason.vt = VT_BSTR;
    must(early->get_errorText(&reason.bstrVal), "errorText");
    std::printf("result %d errorText", result);
    print(reason);
    early->Release();
}

/// The event is asked for by its interface, or looked for among all that the object has.
void findEvents(IConnectionPointContainer& container, bool byInterface, IConnectionPoint** point) {
    if (byInterface) {
        must(container.FindConnectionPoint(__uuidof(__clsZELVOInterface), point), "FindConnectionPoint");
        return;
    }
    IEnumConnectionPoints* all = nullptr;
    IConnectionPoint* more = nullptr;
    must(container.EnumConnectionPoints(&all), "EnumConnectionPoints");
    must(all->Next(1, point, nullptr), "Next");
    if (all->Next(1, &more, nullptr) != S_FALSE) must(E_UNEXPECTED, "one event");
    all->Release();
}

BOOL CALLBACK takeOwned(HWND window, LPARAM searched) {
    auto& [owner, found] = *reinterpret_cast<std::pair<HWND, HWND>*>(searched);
    if (!::IsWindowVisible(window) || ::GetWindow(window, GW_OWNER) != owner) return TRUE;
    found = window;
    return FALSE;
}

LRESULT CALLBACK tellTaken(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_ENABLE) std::printf("%s\n", first ? "free again" : "taken again");
    return ::DefWindowProcW(window, message, first, second);
}

HWND ownedBy(HWND window) {
    std::pair<HWND, HWND> searched{window, nullptr};
    ::EnumWindows(takeOwned, reinterpret_cast<LPARAM>(&searched));
    return searched.second;
}

void watch(HWND window) {
    HWND first = nullptr;
    for (; !first; first = ownedBy(window)) ::Sleep(50);
    while (::GetForegroundWindow() != first) ::Sleep(50);
    std::printf("over the chart, which is %s\n", ::IsWindowEnabled(window) ? "free" : "held");
    while (::IsWindowVisible(first)) ::Sleep(10);
    int free = 0;
    for (; !ownedBy(window); ::Sleep(1)) free += ::IsWindowEnabled(window) ? 1 : 0;
    std::printf("the next one, over the chart, which was %s\n", free > 20 ? "free" : "held");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    const bool early = std::string(argv[1]) == "early";
    const std::string how = argc > 3 ? argv[3] : "";
    if (how == "stranger") account = "doctor1/$/pass2";
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    must(::CoInitialize(nullptr), "CoInitialize");
    CLSID which{};
    must(::CLSIDFromProgID(L"DoctorZELVO.clsZELVOInterface", &which), "CLSIDFromProgID");
    const auto make = [&] {
        void* made = nullptr;
        must(::CoCreateInstance(which, nullptr, CLSCTX_LOCAL_SERVER, IID_IDispatch, &made),
             "CoCreateInstance");
        return static_cast<IDispatch*>(made);
    };
    IDispatch* const object = make();
    const HWND window = ::CreateWindowExW(0, L"STATIC", L"chart", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300,
                                          200, nullptr, nullptr, nullptr, nullptr);
    ::SetForegroundWindow(window);
    if (how == "box") {
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(tellTaken));
    }
    const HWND field = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 200, 20, window,
                                         nullptr, nullptr, nullptr);
    ::SetFocus(field);
    std::thread(watch, window).detach();
    const auto call = [&](IDispatch& called) {
        early ? callEarly(called, argv[2]) : callLate(called, argv[2]);
        std::printf("\n");
    };
    Listener listener(how, window, [&] { call(how == "second" ? *make() : *object); });
    IConnectionPointContainer* container = nullptr;
    IConnectionPoint* point = nullptr;
    DWORD cookie = 0;
    must(object->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container)),
         "container");
    findEvents(*container, early, &point);
    must(point->Advise(&listener, &cookie), "Advise");
    call(*object);
    std::printf("the chart has its keys %s\n",
                comesTrue(100, [&] { return ::GetFocus() == field; }) ? "again" : "not");
    if (how == "keep") ::Sleep(INFINITE);
    must(point->Unadvise(cookie), "Unadvise");
    point->Release();
    container->Release();
    object->Release();
    ::CoUninitialize();
    return 0;
}
