#include "Server.h"

#include <utility>

#include "Caller.h"
#include "basics/Fault.h"
#include "doctorzelvo/doctorzelvo.h"

namespace automation {

namespace {

/// How long a chart that is busy is waited for with an event, and how often it is asked meanwhile.
constexpr DWORD patience = 60'000;
constexpr DWORD pause = 200;

/// How long a started program waits for the chart that it was started for.
constexpr UINT firstObject = 60'000;

void check(HRESULT result, const char* what) {
    if (FAILED(result)) throw zelvo::basics::Fault(std::string(what) + " failed");
}

}  // namespace

Server::Server(std::optional<std::string> script) : script_(std::move(script)) {
    check(::OleInitialize(nullptr), "OleInitialize");
    check(::LoadTypeLibEx(ownPath().c_str(), REGKIND_NONE, reinterpret_cast<ITypeLib**>(types_.put())),
          "LoadTypeLibEx");
    check(::CoRegisterMessageFilter(static_cast<IMessageFilter*>(this), nullptr), "CoRegisterMessageFilter");
    ::CoAddRefServerProcess();
    check(::CoRegisterClassObject(__uuidof(clsZELVOInterface), static_cast<IClassFactory*>(this),
                                  CLSCTX_LOCAL_SERVER, REGCLS_SINGLEUSE, &registered_),
          "CoRegisterClassObject");
}

Server::~Server() {
    ::CoRevokeClassObject(registered_);
    // A chart that let go of its object may end while things are put away.
    charts_.forget();
    // What is still held goes while its listeners can be told.
    for (const auto held = std::move(objects_); const auto& object : held) object->disconnect();
    ::CoRegisterMessageFilter(nullptr, nullptr);
    doctorzelvo_shutdown();
    types_ = {};
    ::OleUninitialize();
}

void Server::serve() {
    unasked_ = ::SetTimer(nullptr, 0, firstObject, nullptr);
    if (unasked_ == 0) throw zelvo::basics::Fault("SetTimer failed");
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_TIMER && !message.hwnd && message.wParam == unasked_) waited();
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

void Server::drop(const ChartObject& object) {
    std::erase_if(objects_, [&](const auto& each) { return each.get() == &object; });
    letGo();
}

void Server::take() {
    ::CoAddRefServerProcess();
    waited();
}

void Server::waited() {
    if (unasked_ == 0) return;
    ::KillTimer(nullptr, std::exchange(unasked_, 0));
    letGo();
}

void Server::letGo() {
    // From here on no chart gets this program; one that comes now starts another.
    if (::CoReleaseServerProcess() == 0) ::PostQuitMessage(0);
}

HRESULT Server::QueryInterface(REFIID which, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (which == IID_IUnknown || which == IID_IClassFactory) *out = static_cast<IClassFactory*>(this);
    if (which == IID_IMessageFilter) *out = static_cast<IMessageFilter*>(this);
    return *out ? S_OK : E_NOINTERFACE;
}

HRESULT Server::CreateInstance(IUnknown* outer, REFIID which, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    try {
        ChartObject& object = *objects_.emplace_back(std::make_unique<ChartObject>(*this));
        take();
        const Ref<_clsZELVOInterface> made(&object);
        return object.QueryInterface(which, out);
    } catch (const std::exception&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT Server::LockServer(BOOL lock) {
    if (lock) {
        take();
    } else {
        letGo();
    }
    return S_OK;
}

DWORD Server::HandleInComingCall(DWORD /*kind*/, HTASK caller, DWORD /*waited*/, LPINTERFACEINFO /*info*/) {
    callingThread_ = static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(caller));
    // The first that the object hears of a chart is often a call of the system's own.
    static_cast<void>(withinMemory([this] {
        charts_.watch(Caller::processOf(callingThread_));
        return S_OK;
    }));
    return SERVERCALL_ISHANDLED;
}

DWORD Server::RetryRejectedCall(HTASK /*callee*/, DWORD waited, DWORD /*how*/) {
    return waited < patience ? pause : static_cast<DWORD>(-1);
}

DWORD Server::MessagePending(HTASK /*callee*/, DWORD /*waited*/, DWORD /*kind*/) {
    return PENDINGMSG_WAITDEFPROCESS;
}

}  // namespace automation
