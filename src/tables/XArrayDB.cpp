#include "tables/XArrayDB.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>
#include <vector>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "tables/TextStore.h"

namespace zelvo::tables {
namespace {

enum class Kind : std::uint8_t { Nothing, LongText, Whole, Float, Bool, ShortText };

/// One cell. All zero bytes are an empty cell, so a row is cleared in one go.
struct Cell {
    static constexpr std::size_t capacity = 15;  // five Hangul

    std::array<char, capacity> bytes{};
    std::uint8_t tag = 0;  // the kind; for a short text its length is added

    Kind kind() const { return static_cast<Kind>(std::min(tag, static_cast<std::uint8_t>(Kind::ShortText))); }
    bool isText() const { return kind() == Kind::ShortText || kind() == Kind::LongText; }
    std::string_view shortText() const {
        return {bytes.data(), tag - static_cast<std::size_t>(Kind::ShortText)};
    }

    template <class Value>
    Value get() const {
        Value value{};
        std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }
    template <class Value>
    static Cell of(Kind kind, const Value& value) {
        static_assert(sizeof value <= capacity);
        Cell cell;
        cell.tag = static_cast<std::uint8_t>(kind);
        std::memcpy(cell.bytes.data(), &value, sizeof value);
        return cell;
    }
    static Cell ofShort(std::string_view text) {
        Cell cell;
        cell.tag = static_cast<std::uint8_t>(static_cast<std::size_t>(Kind::ShortText) + text.size());
        if (!text.empty()) std::memcpy(cell.bytes.data(), text.data(), text.size());
        return cell;
    }
};
static_assert(sizeof(Cell) == 16);

[[noreturn]] void throwOutside() {
    throw basics::Fault("표에 없는 행이나 열을 가리켰습니다.");
}

}  // namespace

/// The rows stand in blocks and never move; what moves when a row comes or goes is its number in a gap buffer
/// of row numbers, four bytes a row.
struct XArrayDB::Rows {
    static constexpr std::size_t rowsPerBlock = 64;

    std::vector<std::unique_ptr<Cell[]>> blocks;
    std::vector<std::uint32_t> freeRows;
    std::vector<std::uint32_t> order;  // [0, gapStart) and [gapEnd, size) hold the rows in their order
    std::size_t gapStart = 0, gapEnd = 0;
    std::size_t columns = 0;
    TextStore texts;
    std::uint64_t generation = 0;

    std::size_t count() const { return order.size() - (gapEnd - gapStart); }

    Cell* rowAt(std::size_t row) const {
        return block(order[row < gapStart ? row : row + (gapEnd - gapStart)]);
    }
    Cell* block(std::uint32_t number) const {
        return blocks[number / rowsPerBlock].get() + (number % rowsPerBlock) * columns;
    }
    bool holds(std::int64_t row, int column) const {
        return row >= 0 && static_cast<std::size_t>(row) < count() && column >= 0 &&
               static_cast<std::size_t>(column) < columns;
    }
    Cell& cell(int row, int column) const {
        if (!holds(row, column)) throwOutside();
        return rowAt(static_cast<std::size_t>(row))[column];
    }

    void clear();
    void insert(std::size_t row, std::size_t number);
    void erase(std::size_t row, std::size_t number);
    void openGap(std::size_t at, std::size_t size);
    void addBlock();

    void assign(Cell& target, const Cell& value);
    void assignText(Cell& target, std::string_view text);
    std::string_view textOf(const Cell& value) const;
    std::string fullTextOf(const Cell& value) const;
    void compactTexts();
};

void XArrayDB::Rows::clear() {
    blocks.clear();
    freeRows.clear();
    order.clear();
    gapStart = gapEnd = 0;
    texts = TextStore();
}

/// Brings the gap to `at`, at least `size` wide.
void XArrayDB::Rows::openGap(std::size_t at, std::size_t size) {
    if (gapEnd - gapStart < size) {
        const std::size_t behind = order.size() - gapEnd;
        const std::size_t wanted = std::max(count() + size, count() + count() / 2 + 16);
        std::vector<std::uint32_t> wider(wanted);
        std::copy_n(order.begin(), gapStart, wider.begin());
        std::copy_n(order.end() - static_cast<std::ptrdiff_t>(behind), behind,
                    wider.end() - static_cast<std::ptrdiff_t>(behind));
        order = std::move(wider);
        gapEnd = order.size() - behind;
    }
    const auto begin = order.begin();
    const auto offset = [](std::size_t n) { return static_cast<std::ptrdiff_t>(n); };
    if (at < gapStart) {
        std::copy_backward(begin + offset(at), begin + offset(gapStart), begin + offset(gapEnd));
        gapEnd -= gapStart - at;
    } else if (at > gapStart) {
        std::copy_n(begin + offset(gapEnd), at - gapStart, begin + offset(gapStart));
        gapEnd += at - gapStart;
    }
    gapStart = at;
}

void XArrayDB::Rows::addBlock() {
    const auto first = static_cast<std::uint32_t>(blocks.size() * rowsPerBlock);
    blocks.push_back(std::make_unique_for_overwrite<Cell[]>(rowsPerBlock * columns));
    for (std::uint32_t i = rowsPerBlock; i > 0; --i) freeRows.push_back(first + i - 1);
}

void XArrayDB::Rows::insert(std::size_t row, std::size_t number) {
    openGap(row, number);
    for (; number > 0; --number) {
        if (freeRows.empty()) addBlock();
        const std::uint32_t fresh = freeRows.back();
        freeRows.pop_back();
        std::fill_n(block(fresh), columns, Cell{});
        order[gapStart++] = fresh;
    }
}

void XArrayDB::Rows::erase(std::size_t row, std::size_t number) {
    if (number == 0) return;
    openGap(row, 0);
    for (; number > 0; --number) {
        Cell* cells = block(order[gapEnd]);
        for (std::size_t column = 0; column < columns; ++column) assign(cells[column], Cell{});
        freeRows.push_back(order[gapEnd++]);
    }
    if (count() == 0) {
        clear();
    } else {
        compactTexts();
    }
}

void XArrayDB::Rows::assign(Cell& target, const Cell& value) {
    if (target.kind() == Kind::LongText) texts.letGo(target.get<TextStore::Place>());
    target = value;
}

void XArrayDB::Rows::assignText(Cell& target, std::string_view text) {
    // The text may stand in this very array: the new cell is whole before the old one goes.
    const bool fits = text.size() <= Cell::capacity;
    assign(target, fits ? Cell::ofShort(text) : Cell::of(Kind::LongText, texts.put(text)));
}

std::string_view XArrayDB::Rows::textOf(const Cell& value) const {
    if (value.kind() == Kind::ShortText) return value.shortText();
    if (value.kind() == Kind::LongText) return texts.at(value.get<TextStore::Place>());
    return {};
}

std::string XArrayDB::Rows::fullTextOf(const Cell& value) const {
    switch (value.kind()) {
        case Kind::Whole:
            return basics::decimalText(value.get<std::int64_t>());
        case Kind::Float:
            return basics::decimalText(value.get<double>());
        case Kind::Bool:
            return value.get<bool>() ? "-1" : "0";
        case Kind::Nothing:
        case Kind::ShortText:
        case Kind::LongText:
            break;
    }
    return std::string(textOf(value));
}

/// Moves the living texts to a fresh store once the dead ones outweigh them and the walk over the cells.
void XArrayDB::Rows::compactTexts() {
    const std::size_t living = texts.used() - texts.garbage();
    constexpr std::size_t worthwhile = std::size_t{64} * 1024;
    if (texts.garbage() < worthwhile + living + count() * columns * sizeof(Cell) / 8) return;
    TextStore fresh;
    for (std::size_t row = 0; row < count(); ++row) {
        Cell* cells = rowAt(row);
        for (std::size_t column = 0; column < columns; ++column) {
            if (cells[column].kind() != Kind::LongText) continue;
            cells[column] = Cell::of(Kind::LongText, fresh.put(textOf(cells[column])));
        }
    }
    texts = std::move(fresh);
}

XArrayDB::XArrayDB() : rows_(std::make_unique<Rows>()) {}
XArrayDB::~XArrayDB() = default;
XArrayDB::XArrayDB(XArrayDB&& other) noexcept : rows_(std::exchange(other.rows_, std::make_unique<Rows>())) {}

XArrayDB& XArrayDB::operator=(XArrayDB&& other) noexcept {
    std::swap(rows_, other.rows_);
    // Whoever watches either array sees other rows than before.
    const std::uint64_t next = std::max(rows_->generation, other.rows_->generation) + 1;
    rows_->generation = other.rows_->generation = next;
    return *this;
}

void XArrayDB::reDim(int lastRow, int lastColumn) {
    if (lastRow < -1 || lastColumn < -1) throwOutside();
    rows_->clear();
    rows_->columns = static_cast<std::size_t>(lastColumn) + 1;
    ++rows_->generation;
    rows_->insert(0, static_cast<std::size_t>(lastRow) + 1);
}

void XArrayDB::insertRows(int row, int count) {
    if (row < 0 || count < 0) throwOutside();
    const auto first = static_cast<std::size_t>(row);
    if (first > rows_->count()) throwOutside();
    rows_->insert(first, static_cast<std::size_t>(count));
}

void XArrayDB::deleteRows(int row, int count) {
    if (row < 0 || count < 0) throwOutside();
    const auto first = static_cast<std::size_t>(row);
    const auto number = static_cast<std::size_t>(count);
    if (first + number > rows_->count()) throwOutside();
    rows_->erase(first, number);
}

int XArrayDB::upperRow() const {
    return static_cast<int>(rows_->count()) - 1;
}

int XArrayDB::upperColumn() const {
    return static_cast<int>(rows_->columns) - 1;
}

bool XArrayDB::isNothing(int row, int column) const {
    return rows_->cell(row, column).kind() == Kind::Nothing;
}

std::string XArrayDB::text(int row, int column) const {
    return rows_->fullTextOf(rows_->cell(row, column));
}

std::string_view XArrayDB::textView(int row, int column) const {
    return rows_->textOf(rows_->cell(row, column));
}

bool XArrayDB::isTrue(int row, int column) const {
    const Cell& cell = rows_->cell(row, column);
    switch (cell.kind()) {
        case Kind::Nothing:
            return false;
        case Kind::Bool:
            return cell.get<bool>();
        case Kind::Whole:
            return cell.get<std::int64_t>() != 0;
        case Kind::Float:
            return cell.get<double>() != 0;
        case Kind::ShortText:
        case Kind::LongText:
            break;
    }
    const std::string_view text = rows_->textOf(cell);
    if (basics::IsNumeric(text)) return basics::toNumber(text) != 0;
    return text == "True";
}

void XArrayDB::set(int row, int column, std::string_view text) {
    rows_->assignText(rows_->cell(row, column), text);
    rows_->compactTexts();
}

void XArrayDB::set(int row, int column, bool value) {
    rows_->assign(rows_->cell(row, column), Cell::of(Kind::Bool, value));
}

void XArrayDB::set(int row, int column, std::int32_t value) {
    set(row, column, std::int64_t{value});
}

void XArrayDB::set(int row, int column, std::int64_t value) {
    rows_->assign(rows_->cell(row, column), Cell::of(Kind::Whole, value));
}

void XArrayDB::set(int row, int column, float value) {
    set(row, column, basics::toNumber(basics::decimalText(value)));
}

void XArrayDB::set(int row, int column, double value) {
    rows_->assign(rows_->cell(row, column), Cell::of(Kind::Float, value));
}

void XArrayDB::setNothing(int row, int column) {
    rows_->assign(rows_->cell(row, column), Cell{});
}

int XArrayDB::find(int fromRow, int column, std::string_view text) const {
    if (fromRow < 0 || column < 0 || column > upperColumn()) throwOutside();
    if (basics::isBlank(text)) return -1;
    for (int row = fromRow; row <= upperRow(); ++row) {
        const Cell& cell = rows_->cell(row, column);
        if (cell.isText() ? rows_->textOf(cell) == text : rows_->fullTextOf(cell) == text) return row;
    }
    return -1;
}

std::size_t XArrayDB::rowCount() const {
    return rows_->count();
}

int XArrayDB::columnCount() const {
    return static_cast<int>(rows_->columns);
}

int XArrayDB::columnOf(std::string_view) const {
    return -1;
}

std::string XArrayDB::cellText(std::size_t row, int column) const {
    if (!rows_->holds(static_cast<std::int64_t>(row), column)) return {};
    return rows_->fullTextOf(rows_->rowAt(row)[column]);
}

bool XArrayDB::setCellText(std::size_t row, int column, std::string_view text) {
    if (!rows_->holds(static_cast<std::int64_t>(row), column)) return false;
    set(static_cast<int>(row), column, text);
    return true;
}

bool XArrayDB::removeRow(std::size_t row) {
    if (row >= rows_->count()) return false;
    rows_->erase(row, 1);
    return true;
}

bool XArrayDB::writeRow(std::size_t) {
    return true;
}

std::uint64_t XArrayDB::generation() const {
    return rows_->generation;
}

}  // namespace zelvo::tables
