// Preloaded over a program: calls of the system fail when the program says so.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/types.h>

#include <cerrno>
#include <cstdarg>
#include <cstring>

namespace {

const char* failingKind = "";
int callsLeft = 0;
bool failsFromThenOn = false;

bool fails(const char* kind) {
    if (std::strcmp(kind, failingKind) != 0) return false;
    --callsLeft;
    if (callsLeft > 0 || (callsLeft < 0 && !failsFromThenOn)) return false;
    errno = EIO;
    return true;
}

template <class Call>
Call* next(const char* name, Call* /*own*/) {
    return reinterpret_cast<Call*>(::dlsym(RTLD_NEXT, name));
}

bool unlocks(int command, const void* argument) {
    return command == F_SETLK && static_cast<const struct flock*>(argument)->l_type == F_UNLCK;
}

}  // namespace

#define PASSES(name, kind, result, parameters, arguments)                           \
    result name parameters {                                                        \
        return fails(kind) ? static_cast<result>(-1) : next(#name, name) arguments; \
    }
#define PASSES_CONTROL(name)                                          \
    int name(int file, int command, ...) {                            \
        va_list rest;                                                 \
        va_start(rest, command);                                      \
        void* const argument = va_arg(rest, void*);                   \
        va_end(rest);                                                 \
        if (unlocks(command, argument) && fails("unlock")) return -1; \
        return next(#name, name)(file, command, argument);            \
    }

extern "C" {

/// From now on the N-th call of a kind fails, and those behind it too if asked for.
void failCalls(const char* kind, int nth, bool andAllBehind) {
    failingKind = kind;
    callsLeft = nth;
    failsFromThenOn = andAllBehind;
}
/// Whether the program came to the failing call.
bool cameToFailure() {
    return callsLeft <= 0;
}

PASSES(write, "write", ssize_t, (int file, const void* bytes, size_t count), (file, bytes, count))
PASSES(pwrite, "write", ssize_t, (int file, const void* bytes, size_t count, off_t at),
       (file, bytes, count, at))
PASSES(pwrite64, "write", ssize_t, (int file, const void* bytes, size_t count, off64_t at),
       (file, bytes, count, at))
PASSES(fsync, "sync", int, (int file), (file))
PASSES(fdatasync, "sync", int, (int file), (file))
PASSES(rename, "rename", int, (const char* from, const char* to), (from, to))
PASSES(renameat2, "rename", int, (int from, const char* one, int to, const char* other, unsigned flags),
       (from, one, to, other, flags))
PASSES(unlink, "unlink", int, (const char* path), (path))
PASSES_CONTROL(fcntl)
PASSES_CONTROL(fcntl64)
}
