#include "platform/odbc/Fetch.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <vector>

#include "basics/Dates.h"
#include "basics/Fault.h"

namespace zelvo::odbc {
namespace {

using basics::Fault;
using Filler = data::RecordSet::Filler;

constexpr std::size_t blockBytes = 1U << 18;
constexpr std::size_t mostRows = 1024;
constexpr std::size_t longestBound = 4000;  // characters; what may be longer is fetched piece by piece
constexpr std::size_t decimalBytes = 64;

enum class Kind { Flag, Whole, Single, Double, Decimal, Moment, Text, LongText };

Kind kindOf(SQLSMALLINT type, SQLULEN size) {
    switch (type) {
        case SQL_BIT:
            return Kind::Flag;
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return Kind::Whole;
        case SQL_REAL:
            return Kind::Single;
        case SQL_FLOAT:
        case SQL_DOUBLE:
            return Kind::Double;
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            return Kind::Decimal;
        case SQL_TYPE_DATE:
        case SQL_TYPE_TIMESTAMP:
        case SQL_DATE:
        case SQL_TIMESTAMP:
            return Kind::Moment;
        case SQL_CHAR:
        case SQL_VARCHAR:
        case SQL_WCHAR:
        case SQL_WVARCHAR:
            return size == 0 || size > longestBound ? Kind::LongText : Kind::Text;
        default:
            return Kind::LongText;
    }
}

SQLSMALLINT targetOf(Kind kind) {
    switch (kind) {
        case Kind::Flag:
            return SQL_C_BIT;
        case Kind::Whole:
            return SQL_C_SBIGINT;
        case Kind::Single:
            return SQL_C_FLOAT;
        case Kind::Double:
            return SQL_C_DOUBLE;
        case Kind::Decimal:
            return SQL_C_CHAR;
        case Kind::Moment:
            return SQL_C_TYPE_TIMESTAMP;
        case Kind::Text:
        case Kind::LongText:
            break;
    }
    return SQL_C_WCHAR;
}

std::size_t bytesOf(Kind kind, SQLULEN size) {
    switch (kind) {
        case Kind::Flag:
            return sizeof(unsigned char);
        case Kind::Whole:
            return sizeof(SQLBIGINT);
        case Kind::Single:
            return sizeof(float);
        case Kind::Double:
            return sizeof(double);
        case Kind::Decimal:
            return decimalBytes;
        case Kind::Moment:
            return sizeof(SQL_TIMESTAMP_STRUCT);
        case Kind::Text:
            return (static_cast<std::size_t>(size) + 1) * sizeof(SQLWCHAR);
        case Kind::LongText:
            break;
    }
    return 0;
}

template <class Value>
Value valueAt(const char* bytes) {
    Value value{};
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

/// The driver gave less than the cell holds.
bool isCut(SQLLEN told, std::size_t capacity) {
    return told == SQL_NO_TOTAL || told < 0 || static_cast<std::size_t>(told) >= capacity;
}

std::string momentText(const SQL_TIMESTAMP_STRUCT& moment) {
    return basics::plainDateTimeText({.date = {.year = moment.year, .month = moment.month, .day = moment.day},
                                      .hour = moment.hour,
                                      .minute = moment.minute,
                                      .second = moment.second});
}

struct Column {
    std::string name;
    Kind kind = Kind::Text;
    std::size_t bytes = 0;
    std::vector<char> cells;
    std::vector<SQLLEN> told;
};

/// One pass over a result set. Columns up to the first long text are bound, a block of rows at a time; from
/// the first long text on they are taken one by one, and then a block is a row.
class Fetching {
public:
    explicit Fetching(const Answer& answer) : answer_(answer), statement_(answer.statement()) {
        const SQLSMALLINT count = answer.columnCount();
        for (SQLSMALLINT column = 1; column <= count; ++column) columns_.push_back(describe(column));
        const auto isLong = [](const Column& column) { return column.kind == Kind::LongText; };
        bound_ = static_cast<std::size_t>(std::find_if(columns_.begin(), columns_.end(), isLong) -
                                          columns_.begin());
    }

    ~Fetching() {
        // The handle goes on to the next result.
        SQLFreeStmt(statement_.get(), SQL_UNBIND);
        SQLSetStmtAttrW(statement_.get(), SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
        SQLSetStmtAttrW(statement_.get(), SQL_ATTR_ROW_STATUS_PTR, nullptr, 0);
    }
    Fetching(const Fetching&) = delete;
    Fetching& operator=(const Fetching&) = delete;

    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const Column& column : columns_) all.push_back(column.name);
        return all;
    }

    void run(Filler& filler) {
        bind();
        for (;;) {
            answer_.sign();
            const SQLRETURN result = SQLFetch(statement_.get());
            answer_.came();
            if (result == SQL_NO_DATA) return;
            statement_.require(result);
            for (std::size_t row = 0; row < fetched_; ++row) addRow(filler, row);
        }
    }

private:
    Column describe(SQLSMALLINT number) const {
        std::array<SQLWCHAR, 256> name{};
        SQLSMALLINT length = 0, type = 0, decimals = 0, nullable = 0;
        SQLULEN size = 0;
        statement_.require(SQLDescribeColW(statement_.get(), static_cast<SQLUSMALLINT>(number), name.data(),
                                           static_cast<SQLSMALLINT>(name.size()), &length, &type, &size,
                                           &decimals, &nullable));
        Column column;
        appendUtf8(column.name, name.data(), std::min(static_cast<std::size_t>(length), name.size() - 1));
        column.kind = kindOf(type, size);
        column.bytes = bytesOf(column.kind, size);
        return column;
    }

    bool allBound() const { return bound_ == columns_.size(); }

    void bind() {
        std::size_t rowBytes = 1;
        for (const Column& column : columns_) rowBytes += column.bytes + sizeof(SQLLEN);
        const std::size_t rows = allBound() ? std::clamp<std::size_t>(blockBytes / rowBytes, 1, mostRows) : 1;
        const auto set = [this](SQLINTEGER name, SQLPOINTER value) {
            statement_.require(SQLSetStmtAttrW(statement_.get(), name, value, 0));
        };
        set(SQL_ATTR_ROW_ARRAY_SIZE, attribute(rows));
        set(SQL_ATTR_ROWS_FETCHED_PTR, &fetched_);
        states_.resize(rows);
        set(SQL_ATTR_ROW_STATUS_PTR, states_.data());
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            Column& column = columns_[i];
            column.cells.resize(column.bytes * rows);
            column.told.resize(rows);
            if (i >= bound_) continue;
            statement_.require(SQLBindCol(statement_.get(), numberOf(i), targetOf(column.kind),
                                          column.cells.data(), static_cast<SQLLEN>(column.bytes),
                                          column.told.data()));
        }
    }

    void addRow(Filler& filler, std::size_t row) {
        if (states_[row] == SQL_ROW_ERROR) throw Fault("a row could not be read");
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            Column& column = columns_[i];
            if (column.kind == Kind::LongText) {
                addLongText(filler, numberOf(i));
                continue;
            }
            if (i > bound_) {
                statement_.require(SQLGetData(statement_.get(), numberOf(i), targetOf(column.kind),
                                              column.cells.data(), static_cast<SQLLEN>(column.bytes),
                                              column.told.data()));
            }
            addCell(filler, column, column.cells.data() + row * column.bytes, column.told[row]);
        }
    }

    void addCell(Filler& filler, const Column& column, const char* bytes, SQLLEN told) {
        if (told == SQL_NULL_DATA) return filler.addNull();
        switch (column.kind) {
            case Kind::Flag:
                return filler.addFlag(*bytes != 0);
            case Kind::Whole:
                return filler.addNumber(std::int64_t{valueAt<SQLBIGINT>(bytes)});
            case Kind::Single:
                return filler.addNumber(valueAt<float>(bytes));
            case Kind::Double:
                return filler.addNumber(valueAt<double>(bytes));
            case Kind::Moment:
                return filler.add(momentText(valueAt<SQL_TIMESTAMP_STRUCT>(bytes)));
            case Kind::Decimal:
                if (isCut(told, column.bytes)) throw Fault("the number in " + column.name + " is too long");
                return filler.addDecimal({bytes, static_cast<std::size_t>(told)});
            case Kind::Text:
            case Kind::LongText:
                break;
        }
        // A text that is longer than its column says is never handed on in part.
        if (isCut(told, column.bytes - sizeof(SQLWCHAR) + 1)) {
            throw Fault("the text in " + column.name + " is longer than its column");
        }
        text_.clear();
        appendUtf8(text_, reinterpret_cast<const SQLWCHAR*>(bytes),
                   static_cast<std::size_t>(told) / sizeof(SQLWCHAR));
        filler.add(text_);
    }

    /// Takes a text of any length, piece by piece.
    void addLongText(Filler& filler, SQLUSMALLINT number) {
        constexpr std::size_t pieceUnits = 16384;
        std::vector<SQLWCHAR>& piece = piece_;
        piece.resize(pieceUnits);
        std::vector<SQLWCHAR>& whole = whole_;
        whole.clear();
        for (;;) {
            SQLLEN told = 0;
            answer_.sign();
            const SQLRETURN result = SQLGetData(statement_.get(), number, SQL_C_WCHAR, piece.data(),
                                                static_cast<SQLLEN>(pieceUnits * sizeof(SQLWCHAR)), &told);
            answer_.came();
            if (result == SQL_NO_DATA) break;
            statement_.require(result);
            if (told == SQL_NULL_DATA) return filler.addNull();
            const bool more = isCut(told, (pieceUnits - 1) * sizeof(SQLWCHAR) + 1);
            const std::size_t units =
                more ? pieceUnits - 1 : static_cast<std::size_t>(told) / sizeof(SQLWCHAR);
            whole.insert(whole.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(units));
            if (!more) break;
        }
        text_.clear();
        appendUtf8(text_, whole.data(), whole.size());
        filler.add(text_);
    }

    static SQLUSMALLINT numberOf(std::size_t column) { return static_cast<SQLUSMALLINT>(column + 1); }

    const Answer& answer_;
    const StatementHandle& statement_;
    std::vector<Column> columns_;
    std::size_t bound_ = 0;
    SQLULEN fetched_ = 0;
    std::vector<SQLUSMALLINT> states_;
    std::string text_;
    std::vector<SQLWCHAR> piece_, whole_;
};

}  // namespace

std::unique_ptr<Filler> fetch(const Answer& answer, data::RecordSet& set) {
    Fetching fetching(answer);
    auto filler = std::make_unique<Filler>(set, fetching.names());
    fetching.run(*filler);
    return filler;
}

}  // namespace zelvo::odbc
