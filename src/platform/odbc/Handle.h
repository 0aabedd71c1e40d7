#pragma once

#include <string>
#include <utility>

#include "data/Failure.h"
#include "platform/odbc/Wide.h"

namespace zelvo::odbc {

/// A fault of the driver or the server. Its text is theirs, for a developer's eyes.
class ServerFault : public data::DriverFault {
public:
    enum class Kind {
        Refusal,  ///< the server, or the driver, says no
        Late,     ///< no answer within the time; the statement may have run or not
        Broken    ///< the line is gone
    };

    ServerFault(const std::string& description, Kind kind, std::string code = {}, bool said = false)
        : DriverFault(description, std::move(code)), kind_(kind), saidByServer_(said) {}
    Kind kind() const { return kind_; }
    /// True for an answer of the server's, false when the driver could not even ask it.
    bool saidByServer() const { return saidByServer_; }

private:
    Kind kind_;
    bool saidByServer_;
};

/// All that a handle has to say of its last call: "[SQLSTATE] message (number)" a record.
ServerFault faultOf(SQLSMALLINT kind, SQLHANDLE handle);

/// An ODBC handle, freed with the object.
template <SQLSMALLINT Kind>
class Handle {
public:
    /// Throws ServerFault when the parent has none to give.
    explicit Handle(SQLHANDLE parent) {
        if (SQL_SUCCEEDED(SQLAllocHandle(Kind, parent, &handle_))) return;
        constexpr auto parentKind =
            static_cast<SQLSMALLINT>(Kind == SQL_HANDLE_STMT ? SQL_HANDLE_DBC : SQL_HANDLE_ENV);
        throw parent == SQL_NULL_HANDLE ? ServerFault("no ODBC environment", ServerFault::Kind::Refusal)
                                        : faultOf(parentKind, parent);
    }
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&&) = delete;
    ~Handle() {
        if (handle_ != SQL_NULL_HANDLE) SQLFreeHandle(Kind, handle_);
    }

    SQLHANDLE get() const { return handle_; }
    /// Throws what the handle has to say unless the call succeeded.
    void require(SQLRETURN result) const {
        if (!SQL_SUCCEEDED(result)) throw faultOf(Kind, handle_);
    }

private:
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

using EnvironmentHandle = Handle<SQL_HANDLE_ENV>;
using ConnectionHandle = Handle<SQL_HANDLE_DBC>;
using StatementHandle = Handle<SQL_HANDLE_STMT>;

/// A number as ODBC takes attributes.
inline SQLPOINTER attribute(SQLULEN value) {
    return reinterpret_cast<SQLPOINTER>(value);
}

}  // namespace zelvo::odbc
