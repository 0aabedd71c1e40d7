#pragma once

#include <cstdint>
#include <exception>
#include <span>
#include <string>
#include <string_view>

#include "basics/Dates.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "data/Connection.h"
#include "data/RecordSet.h"
#include "data/Statement.h"
#include "tables/XArrayDB.h"

/// What all operations have in common; inside the statement layer only.
namespace zelvo::data::running {

/// An operation with a status: 1, or -1 when a step fails.
template <class Steps>
std::int16_t status(Steps&& steps) {
    try {
        steps();
        return 1;
    } catch (const std::exception&) {
        return -1;
    }
}

/// An operation with a flag: what its steps say, false when one fails.
template <class Steps>
bool flag(Steps&& steps) {
    try {
        return steps();
    } catch (const std::exception&) {
        return false;
    }
}

/// A column's placeholder in a statement that bears its name.
inline std::string placeholder(std::string_view column) {
    return "[" + std::string(column) + "]";
}

/// Asks whether a text column holds what is filled in for it. A server compares no text column that is
/// declared as TEXT or NTEXT, but what it was made into.
inline std::string saysText(std::string_view column) {
    return "AND coalesce(CAST(" + std::string(column) + " AS NVARCHAR(MAX)), '') = '" + placeholder(column) +
           "' ";
}

inline void execute(Connection& connection, const Statement& statement,
                    Connection::From from = Connection::From::current()) {
    connection.execute(statement.text(), from);
}

/// Reads one row with a result set of its own: `take` gets it on its first row. False when no row came, and
/// then nothing is taken. Throws Fault.
template <class Take>
bool readRow(Connection& connection, const Statement& statement, Take&& take,
             Connection::From from = Connection::From::current()) {
    RecordSet own;
    connection.open(own, statement.text(), Cursor::Static, {}, from);
    if (own.atEnd()) return false;
    take(static_cast<const RecordSet&>(own));
    return true;
}

/// The server's date and time as its driver says it. Throws Fault.
inline std::string serverTime(Connection& connection, std::string_view statement,
                              Connection::From from = Connection::From::current()) {
    RecordSet own;
    connection.open(own, std::string(statement), Cursor::Static, {}, from);
    return own.text(0);
}

/// A column as a number, NULL and blanks as 0. Throws Fault when it is none or too large.
inline std::int32_t int32Of(const RecordSet& row, std::string_view field) {
    const std::string text = row.text(field);
    return basics::isBlank(text) ? 0 : basics::toInt32(text);
}
inline float singleOf(const RecordSet& row, std::string_view field) {
    const std::string text = row.text(field);
    return basics::isBlank(text) ? 0.0F : basics::toSingle(text);
}
/// A flag, whatever type its column was declared with: "True" or a number other than 0; NULL is no.
bool isTrue(std::string_view text);

/// One cell of a row that a walk fills.
struct Cell {
    enum class Content { Field, Flag, FirstSix, RunningNumber, Unselected, Blank };

    int column = 0;
    Content content = Content::Blank;
    std::string_view field = {};
};

enum class WalkEnd { Done, StepFailed, OpenFailed };

/// The status of the two searches whose callers see only a failed open as a failure: 1, 0 for a failed step,
/// -1.
constexpr std::int16_t searchStatus(WalkEnd end) {
    if (end == WalkEnd::OpenFailed) return -1;
    return end == WalkEnd::Done ? 1 : 0;
}

/// Opens `Rs` and copies its rows into `Array` from row 0 on, before what stands there; lets the event loop
/// work once a row. A step that fails is passed over, a move that fails ends the walk. `Rs` is left open at
/// its end.
WalkEnd walk(Connection& connection, RecordSet& Rs, tables::XArrayDB& Array, const Statement& statement,
             std::span<const Cell> cells, Connection::From from = Connection::From::current());

}  // namespace zelvo::data::running
