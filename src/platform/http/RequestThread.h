#pragma once

#include <memory>

namespace zelvo::http {

/// What a request needs of the host's thread that makes it, given back at the end: a connection that breaks
/// must not end the process, and the name of a server is read as UTF-8, whatever the host's locale is.
class RequestThread {
public:
    RequestThread();
    ~RequestThread();
    RequestThread(const RequestThread&) = delete;
    RequestThread& operator=(const RequestThread&) = delete;

private:
    struct Guards;
    std::unique_ptr<Guards> guards_;
};

}  // namespace zelvo::http
