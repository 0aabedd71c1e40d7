#pragma once

#include <windows.h>

#include <oleauto.h>

#include <list>
#include <memory>
#include <optional>
#include <string>

#include "ChartObject.h"
#include "Charts.h"
#include "Com.h"

namespace automation {

/// The program as it serves a chart: on one thread, to all that call, from the first object to the last. The
/// next chart gets a program of its own. The wait for the first object counts as a chart that holds it, so
/// that the system turns charts away from it in the moment in which it decides to end.
class Server final : private IClassFactory, private IMessageFilter {
public:
    /// One call, for as long as it runs: the first one opens a window, another meanwhile finds it open.
    class Session {
    public:
        explicit Session(Server& server) : server_(server), first_(server.sessions_++ == 0) {}
        ~Session() { --server_.sessions_; }
        Session(const Session&) = delete;
        Session& operator=(const Session&) = delete;

        bool isFirst() const { return first_; }

    private:
        Server& server_;
        bool first_;
    };

    /// `script`, where one is given, works the windows, which stand in the terminal then; "" is the standard
    /// input. Throws Fault when the system's side can't be set up.
    explicit Server(std::optional<std::string> script);
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    ~Server();

    /// Serves until the last object has gone, or none has been asked for in a minute.
    void serve();

    const std::optional<std::string>& script() const { return script_; }
    ITypeLib* types() const { return types_.get(); }
    /// The thread that the call that runs has come from; 0 where the system does not say.
    DWORD callingThread() const { return callingThread_; }
    Charts& charts() { return charts_; }
    /// Nobody holds this object any more.
    void drop(const ChartObject& object);

private:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID which, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID which, void** out) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;
    DWORD STDMETHODCALLTYPE HandleInComingCall(DWORD kind, HTASK caller, DWORD waited,
                                               LPINTERFACEINFO info) override;
    DWORD STDMETHODCALLTYPE RetryRejectedCall(HTASK callee, DWORD waited, DWORD how) override;
    DWORD STDMETHODCALLTYPE MessagePending(HTASK callee, DWORD waited, DWORD kind) override;

    void take();
    void waited();
    void letGo();

    std::optional<std::string> script_;
    Ref<ITypeLib> types_;
    std::list<std::unique_ptr<ChartObject>> objects_;
    Charts charts_;
    DWORD registered_ = 0;
    DWORD callingThread_ = 0;
    int sessions_ = 0;
    /// What ends the wait for the first chart; 0 once one is there, or none has come in time.
    UINT_PTR unasked_ = 0;
};

}  // namespace automation
