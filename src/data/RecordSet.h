#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tables/GridSource.h"

namespace zelvo::data {

/// Cursor of a result set: Keyset takes row updates and deletes, Static is read-only.
enum class Cursor { Keyset, Static };

/// Where the rows of an updatable result set live: a driver cannot learn it from a result.
struct UpdateTarget {
    std::string table;  ///< "t_UserChubang"
    std::string key;    ///< "UCB_PK", a column of the result
};

/// Writes one changed row or deletes it where it came from; given by the connection that opened the set.
class RowWriter {
public:
    virtual ~RowWriter() = default;
    /// Both throw Fault when the database refuses.
    virtual void update(const UpdateTarget& target, std::string_view keyValue,
                        const std::vector<std::pair<std::string, std::string>>& changed) = 0;
    virtual void remove(const UpdateTarget& target, std::string_view keyValue) = 0;
};

/// A result set, fetched whole when it opens, with a position. A grid can show it live. The owner makes it,
/// an operation opens it, the owner closes it. NULL reads as "" (text) and 0 (numbers); isNull tells the
/// difference.
class RecordSet : public tables::GridSource {
    struct Rows;

public:
    RecordSet();
    ~RecordSet() override;
    RecordSet(const RecordSet&) = delete;
    RecordSet& operator=(const RecordSet&) = delete;

    /// Told of a change that the database refused, as a statement's beginning.
    std::function<void(std::string_view change, const std::exception_ptr& fault)> onWriteFailed;

    bool isOpen() const;
    /// Takes the rows of another set over, and stands on the first.
    void takeOver(RecordSet& other);
    /// Empties the set; the columns stay known to nobody.
    void close();

    /// Position: a fresh set stands on its first row, or at its end when it has none.
    bool atEnd() const;
    std::size_t position() const;
    void moveFirst();
    void moveNext();
    void moveTo(std::size_t row);

    /// A column of the current row by name (any case) or position from 0. Throw Fault for an unknown column
    /// or at the end.
    std::string text(std::string_view field) const;
    std::string text(int column) const;
    bool isNull(std::string_view field) const;
    bool isNull(int column) const;
    /// The cell without a copy, valid until the set closes or changes; NULL is "".
    std::string_view view(int column) const;
    /// Column position for a name. Throws Fault when there is none.
    int column(std::string_view field) const;
    const std::vector<std::string>& fields() const;

    /// Client-side sort by a text such as "UCB_Name DESC " (surplus blanks allowed); numbers by value, texts
    /// by the server's order; stable. Then stands on the first row. Throws Fault for an unknown column.
    void sort(std::string_view order);
    /// Puts the rows into the order of their ranks, one a row; rows of one rank stay as they stood. Then
    /// stands on the first row.
    void arrange(const std::vector<std::size_t>& ranks);
    /// Moves to the first row that fulfils "DGL_PK = 17"; at the end when none does. Throws Fault when it
    /// can't be read.
    void find(std::string_view condition);

    std::size_t rowCount() const override;
    int columnCount() const override;
    int columnOf(std::string_view field) const override;
    std::string cellText(std::size_t row, int column) const override;
    /// Changes the cell here; writeRow sends it to the database. False for a static set.
    bool setCellText(std::size_t row, int column, std::string_view text) override;
    bool removeRow(std::size_t row) override;
    bool writeRow(std::size_t row) override;
    std::uint64_t generation() const override;

    /// For drivers: begins a new result, appends its cells row by row, and ends it. Until `finish` the former
    /// rows stay, so that a failed open leaves the set as it was. Every driver hands over what it fetched in
    /// its native type; the texts are made here, so that all of them say "4", "0.1", "True".
    class Filler {
    public:
        Filler(RecordSet& set, std::vector<std::string> fields);
        ~Filler();
        Filler(const Filler&) = delete;
        Filler& operator=(const Filler&) = delete;
        /// The next cell, from left to right. Bytes that are not UTF-8 are replaced.
        void add(std::string_view text);
        void addNumber(std::int64_t value);
        void addNumber(float value);
        void addNumber(double value);
        /// A number as a server writes it, its scale to the last zero: "12500.0000" is "12500", ".50" is
        /// "0.5".
        void addDecimal(std::string_view digits);
        void addFlag(bool value) { add(value ? "True" : "False"); }
        void addNull();
        void finish(Cursor cursor, UpdateTarget target, std::unique_ptr<RowWriter> writer);

    private:
        RecordSet& set_;
        std::unique_ptr<Rows> rows_;
    };

private:
    void tellFailure(const std::string& verb) const;
    bool holds(std::size_t row, int column) const;
    /// Throws Fault when there is no current row or no such column.
    void requireCurrent(int column) const;
    /// Row i becomes what was row `places[i]`.
    void take(const std::vector<std::size_t>& places);

    std::unique_ptr<Rows> rows_;
    std::size_t position_ = 0;
    std::uint64_t generation_ = 0;
};

}  // namespace zelvo::data
