#include "data/RecordSet.h"

#include <algorithm>
#include <numeric>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "data/PackedCell.h"

namespace zelvo::data {

using basics::Fault;

struct RecordSet::Rows {
    std::vector<std::string> fields, foldedFields;
    std::vector<PackedCell> cells;
    tables::TextStore store;
    UpdateTarget target;
    std::unique_ptr<RowWriter> writer;

    std::size_t width() const { return fields.size(); }
    std::size_t count() const { return fields.empty() ? 0 : cells.size() / fields.size(); }
    PackedCell* row(std::size_t index) { return cells.data() + index * width(); }
    int find(std::string_view field) const {
        const std::string folded = basics::foldCase(field);
        const auto found = std::find(foldedFields.begin(), foldedFields.end(), folded);
        return found == foldedFields.end() ? -1 : static_cast<int>(found - foldedFields.begin());
    }
    std::string_view keyOf(std::size_t index) {
        const int key = find(target.key);
        if (key < 0) throw Fault("결과에 키 [" + target.key + "] 항목이 없습니다.");
        return row(index)[key].text(store);
    }
};

RecordSet::RecordSet() = default;
RecordSet::~RecordSet() = default;

bool RecordSet::isOpen() const {
    return rows_ != nullptr;
}

void RecordSet::close() {
    if (!rows_) return;
    rows_.reset();
    position_ = 0;
    ++generation_;
}

bool RecordSet::atEnd() const {
    return position_ >= rowCount();
}
std::size_t RecordSet::position() const {
    return position_;
}
void RecordSet::moveFirst() {
    position_ = 0;
}

void RecordSet::moveNext() {
    if (atEnd()) throw Fault("현재 행이 없습니다.");
    ++position_;
}

void RecordSet::moveTo(std::size_t row) {
    position_ = std::min(row, rowCount());
}

const PackedCell& RecordSet::current(int column) const {
    const PackedCell* found = cell(position_, column);
    if (found) return *found;
    if (atEnd()) throw Fault("현재 행이 없습니다.");
    throw Fault("결과에 " + basics::decimalText(static_cast<std::int64_t>(column)) + "번째 항목이 없습니다.");
}

const PackedCell* RecordSet::cell(std::size_t row, int column) const {
    if (!rows_ || row >= rows_->count() || column < 0 || static_cast<std::size_t>(column) >= rows_->width())
        return nullptr;
    return rows_->row(row) + column;
}

std::string RecordSet::text(std::string_view field) const {
    return text(column(field));
}
std::string RecordSet::text(int column) const {
    return std::string(view(column));
}
bool RecordSet::isNull(std::string_view field) const {
    return isNull(column(field));
}
bool RecordSet::isNull(int column) const {
    return current(column).isNull();
}
std::string_view RecordSet::view(int column) const {
    return current(column).text(rows_->store);
}

int RecordSet::column(std::string_view field) const {
    const int found = columnOf(field);
    if (found < 0) throw Fault("결과에 [" + std::string(field) + "] 항목이 없습니다.");
    return found;
}

const std::vector<std::string>& RecordSet::fields() const {
    static const std::vector<std::string> none;
    return rows_ ? rows_->fields : none;
}

namespace {

struct SortKey {
    int column = 0;
    bool descending = false;
};

/// What one column sorts by: values if every cell that is not NULL came as a number, else texts in the
/// server's order. NULL comes first.
class SortColumn {
public:
    SortColumn(std::vector<const PackedCell*> cells, const tables::TextStore& store, bool descending)
        : descending_(descending), cells_(std::move(cells)) {
        numeric_ = std::all_of(cells_.begin(), cells_.end(), [](const PackedCell* cell) {
            return cell->isNull() || cell->kind() == PackedCell::Kind::Number;
        });
        for (const PackedCell* cell : cells_) {
            if (numeric_)
                numbers_.push_back(basics::numberFromStart(cell->text(store)));
            else
                texts_.push_back(basics::foldCase(cell->text(store)));
        }
    }

    /// Negative when row a stands before row b, 0 when this column does not tell.
    int compare(std::size_t a, std::size_t b) const {
        const int order = ascending(a, b);
        return descending_ ? -order : order;
    }

private:
    int ascending(std::size_t a, std::size_t b) const {
        const bool nullA = cells_[a]->isNull(), nullB = cells_[b]->isNull();
        if (nullA || nullB) return static_cast<int>(nullB) - static_cast<int>(nullA);
        if (numeric_)
            return static_cast<int>(numbers_[a] > numbers_[b]) - static_cast<int>(numbers_[a] < numbers_[b]);
        return texts_[a].compare(texts_[b]);
    }

    bool descending_, numeric_ = false;
    std::vector<const PackedCell*> cells_;
    std::vector<double> numbers_;
    std::vector<std::string> texts_;
};

SortKey readSortKey(const RecordSet& set, std::string_view item) {
    std::vector<std::string> words;
    for (std::string& word : basics::split(item, " ")) {
        if (!word.empty()) words.push_back(std::move(word));
    }
    const std::string direction = words.size() == 2 ? basics::foldCase(words[1]) : "asc";
    if (words.empty() || words.size() > 2 || (direction != "asc" && direction != "desc")) {
        throw Fault("정렬 순서를 알 수 없습니다: " + std::string(item));
    }
    return {set.column(words[0]), direction == "desc"};
}

}  // namespace

void RecordSet::sort(std::string_view order) {
    if (!rows_) throw Fault("결과가 열려 있지 않습니다.");
    std::vector<SortColumn> columns;
    for (const std::string& item : basics::split(order, ",")) {
        const SortKey key = readSortKey(*this, item);
        std::vector<const PackedCell*> cells(rowCount());
        for (std::size_t row = 0; row < cells.size(); ++row) cells[row] = cell(row, key.column);
        columns.emplace_back(std::move(cells), rows_->store, key.descending);
    }
    std::vector<std::size_t> places(rowCount());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::stable_sort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) {
        for (const SortColumn& column : columns) {
            if (const int ordered = column.compare(a, b)) return ordered < 0;
        }
        return false;
    });
    std::vector<PackedCell> sorted;
    sorted.reserve(rows_->cells.size());
    for (const std::size_t place : places) {
        const PackedCell* row = rows_->row(place);
        sorted.insert(sorted.end(), row, row + rows_->width());
    }
    rows_->cells = std::move(sorted);
    position_ = 0;
    ++generation_;
}

void RecordSet::find(std::string_view condition) {
    const std::size_t equals = condition.find('=');
    if (equals == std::string_view::npos)
        throw Fault("찾을 조건을 알 수 없습니다: " + std::string(condition));
    const int wantedColumn = column(basics::trim(condition.substr(0, equals)));
    std::string wanted = basics::trim(condition.substr(equals + 1));
    const bool quoted = wanted.size() >= 2 && wanted.front() == '\'' && wanted.back() == '\'';
    if (quoted)
        wanted = basics::replaceAll(std::string_view(wanted).substr(1, wanted.size() - 2), "''", "'");
    else if (!basics::IsNumeric(wanted))
        throw Fault("찾을 조건을 알 수 없습니다: " + std::string(condition));

    const double number = quoted ? 0 : basics::toNumber(wanted);
    const std::string folded = basics::foldCase(wanted);
    const auto fulfils = [&](const PackedCell& found) {
        if (found.isNull()) return false;
        if (quoted) return basics::foldCase(found.text(rows_->store)) == folded;
        return basics::IsNumeric(found.text(rows_->store)) &&
               basics::toNumber(found.text(rows_->store)) == number;
    };
    for (position_ = 0; !atEnd(); ++position_) {
        if (fulfils(current(wantedColumn))) return;
    }
}

std::size_t RecordSet::rowCount() const {
    return rows_ ? rows_->count() : 0;
}
int RecordSet::columnCount() const {
    return static_cast<int>(fields().size());
}
int RecordSet::columnOf(std::string_view field) const {
    return rows_ ? rows_->find(field) : -1;
}

std::string RecordSet::cellText(std::size_t row, int column) const {
    const PackedCell* found = cell(row, column);
    return found ? std::string(found->text(rows_->store)) : std::string();
}

bool RecordSet::setCellText(std::size_t row, int column, std::string_view text) {
    if (!cell(row, column) || !rows_->writer || column == rows_->find(rows_->target.key)) return false;
    PackedCell& place = rows_->row(row)[column];
    place = PackedCell(basics::cleanUtf8(text), PackedCell::Kind::Text, rows_->store);
    place.setChanged(true);
    return true;
}

bool RecordSet::removeRow(std::size_t row) {
    if (row >= rowCount() || !rows_->writer) return false;
    try {
        rows_->writer->remove(rows_->target, rows_->keyOf(row));
    } catch (const Fault&) {
        return false;
    }
    const auto first = rows_->cells.begin() + static_cast<std::ptrdiff_t>(row * rows_->width());
    rows_->cells.erase(first, first + static_cast<std::ptrdiff_t>(rows_->width()));
    if (position_ > row) --position_;
    return true;
}

bool RecordSet::writeRow(std::size_t row) {
    if (row >= rowCount()) return true;
    PackedCell* cells = rows_->row(row);
    std::vector<std::pair<std::string, std::string>> changed;
    for (std::size_t i = 0; i < rows_->width(); ++i) {
        if (cells[i].changed()) changed.emplace_back(rows_->fields[i], cells[i].text(rows_->store));
    }
    if (changed.empty()) return true;
    try {
        rows_->writer->update(rows_->target, rows_->keyOf(row), changed);
    } catch (const Fault&) {
        return false;
    }
    for (std::size_t i = 0; i < rows_->width(); ++i) cells[i].setChanged(false);
    return true;
}

std::uint64_t RecordSet::generation() const {
    return generation_;
}

RecordSet::Filler::Filler(RecordSet& set, std::vector<std::string> fields)
    : set_(set), rows_(std::make_unique<Rows>()) {
    for (const std::string& field : fields) rows_->foldedFields.push_back(basics::foldCase(field));
    rows_->fields = std::move(fields);
}

RecordSet::Filler::~Filler() = default;

void RecordSet::Filler::add(std::string_view text) {
    if (basics::isUtf8(text) && text.find('\0') == std::string_view::npos) {
        rows_->cells.emplace_back(text, PackedCell::Kind::Text, rows_->store);
    } else {
        rows_->cells.emplace_back(basics::cleanUtf8(text), PackedCell::Kind::Text, rows_->store);
    }
}

void RecordSet::Filler::addNumber(std::int64_t value) {
    rows_->cells.emplace_back(basics::decimalText(value), PackedCell::Kind::Number, rows_->store);
}

void RecordSet::Filler::addNumber(double value) {
    rows_->cells.emplace_back(basics::decimalText(value), PackedCell::Kind::Number, rows_->store);
}

void RecordSet::Filler::addNull() {
    rows_->cells.emplace_back();
}

void RecordSet::Filler::finish(Cursor cursor, UpdateTarget target, std::unique_ptr<RowWriter> writer) {
    rows_->target = std::move(target);
    if (cursor == Cursor::Keyset && !rows_->target.table.empty()) rows_->writer = std::move(writer);
    set_.rows_ = std::move(rows_);
    set_.position_ = 0;
    ++set_.generation_;
}

}  // namespace zelvo::data
