#include "platform/http/RequestThread.h"

namespace zelvo::http {

// No signal ends a process here, and names are asked for in UTF-16.
struct RequestThread::Guards {};

RequestThread::RequestThread() = default;
RequestThread::~RequestThread() = default;

}  // namespace zelvo::http
