#pragma once

#include <cstdint>
#include <functional>

namespace zelvo::odbc {

/// A socket's number among the process's files; its node, which is nobody else's as long as it lives; the
/// port of its other end.
using Told = std::function<void(int descriptor, std::uint64_t node, std::uint16_t port)>;

/// Tells each connection over TCP of this process; none on a system that keeps them to itself.
void eachSocket(const Told& told);
/// Ends a connection so that whoever reads from it gets an error.
void tearSocket(int descriptor);
/// True when the other end says no more.
bool hasEnded(int descriptor);
/// True when something waits to be read, the end of what comes too.
bool hasUnread(int descriptor);

}  // namespace zelvo::odbc
