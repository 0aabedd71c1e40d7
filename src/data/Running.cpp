#include "data/Running.h"

#include <vector>

#include "basics/Utf8.h"

namespace zelvo::data::running {

bool isTrue(std::string_view text) {
    return text == "True" || text == "true" || (basics::IsNumeric(text) && basics::toNumber(text) != 0);
}

namespace {

/// Runs a step of a walk; false when it failed.
template <class Step>
bool tried(Step&& step) {
    try {
        step();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void fill(tables::XArrayDB& Array, int row, const Cell& cell, const RecordSet& Rs, int from) {
    switch (cell.content) {
        case Cell::Content::Field:
            return Array.set(row, cell.column, Rs.view(from));
        case Cell::Content::Flag:
            return Array.set(row, cell.column, isTrue(Rs.view(from)));
        case Cell::Content::FirstSix:
            return Array.set(row, cell.column, basics::part(Rs.view(from), 0, 6));
        case Cell::Content::RunningNumber:
            return Array.set(row, cell.column, std::int32_t{row + 1});
        case Cell::Content::Unselected:
            return Array.set(row, cell.column, false);
        case Cell::Content::Blank:
            return Array.set(row, cell.column, "");
    }
}

}  // namespace

WalkEnd walk(Connection& connection, RecordSet& Rs, tables::XArrayDB& Array, const Statement& statement,
             std::span<const Cell> cells, Connection::From asked) {
    if (!tried([&] { connection.open(Rs, statement.text(), Cursor::Keyset, {}, asked); }))
        return WalkEnd::OpenFailed;
    std::vector<int> from;
    for (const Cell& cell : cells) from.push_back(Rs.columnOf(cell.field));

    WalkEnd end = WalkEnd::Done;
    int row = 0;
    while (!Rs.atEnd()) {
        if (!tried([&] { connection.yield(); })) end = WalkEnd::StepFailed;
        if (tried([&] { Array.insertRows(row); })) {
            for (std::size_t i = 0; i < cells.size(); ++i) {
                if (!tried([&] { fill(Array, row, cells[i], Rs, from[i]); })) end = WalkEnd::StepFailed;
            }
            ++row;
        } else {
            end = WalkEnd::StepFailed;
        }
        if (!tried([&] { Rs.moveNext(); })) return WalkEnd::StepFailed;
    }
    return end;
}

}  // namespace zelvo::data::running
