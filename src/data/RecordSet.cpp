#include "data/RecordSet.h"

#include <algorithm>
#include <numeric>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"
#include "data/PackedRows.h"

namespace zelvo::data {

using basics::Fault;

struct RecordSet::Rows {
    explicit Rows(std::vector<std::string> names) : fields(std::move(names)), cells(fields.size()) {
        for (const std::string& field : fields) foldedFields.push_back(basics::foldCase(field));
    }

    std::vector<std::string> fields, foldedFields;
    PackedRows cells;
    UpdateTarget target;
    std::unique_ptr<RowWriter> writer;

    int find(std::string_view field) const {
        const std::string folded = basics::foldCase(field);
        const auto found = std::find(foldedFields.begin(), foldedFields.end(), folded);
        return found == foldedFields.end() ? -1 : static_cast<int>(found - foldedFields.begin());
    }
    std::string_view keyOf(std::size_t row) const {
        const int key = find(target.key);
        if (key < 0) throw Fault("결과에 키 [" + target.key + "] 항목이 없습니다.");
        return cells.text(row, static_cast<std::size_t>(key));
    }
};

RecordSet::RecordSet() = default;
RecordSet::~RecordSet() = default;

bool RecordSet::isOpen() const {
    return rows_ != nullptr;
}

void RecordSet::takeOver(RecordSet& other) {
    rows_ = std::move(other.rows_);
    other.close();
    position_ = 0;
    ++generation_;
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

bool RecordSet::holds(std::size_t row, int column) const {
    return row < rowCount() && column >= 0 && static_cast<std::size_t>(column) < rows_->cells.width();
}

void RecordSet::requireCurrent(int column) const {
    if (holds(position_, column)) return;
    if (atEnd()) throw Fault("현재 행이 없습니다.");
    throw Fault("결과에 " + basics::decimalText(static_cast<std::int64_t>(column)) + "번째 항목이 없습니다.");
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
    requireCurrent(column);
    return rows_->cells.kind(position_, static_cast<std::size_t>(column)) == PackedRows::Kind::Null;
}

std::string_view RecordSet::view(int column) const {
    requireCurrent(column);
    return rows_->cells.text(position_, static_cast<std::size_t>(column));
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
    SortColumn(const PackedRows& cells, SortKey key) : descending_(key.descending) {
        const auto column = static_cast<std::size_t>(key.column);
        for (std::size_t row = 0; row < cells.count(); ++row) {
            nulls_.push_back(cells.kind(row, column) == PackedRows::Kind::Null);
            numeric_ = numeric_ && cells.kind(row, column) != PackedRows::Kind::Text;
        }
        for (std::size_t row = 0; row < cells.count(); ++row) {
            if (numeric_) {
                numbers_.push_back(basics::numberFromStart(cells.text(row, column)));
            } else {
                texts_.push_back(basics::foldCase(cells.text(row, column)));
            }
        }
    }

    /// Negative when row a stands before row b, 0 when this column does not tell.
    int compare(std::size_t a, std::size_t b) const {
        const int order = ascending(a, b);
        return descending_ ? -order : order;
    }

private:
    int ascending(std::size_t a, std::size_t b) const {
        if (nulls_[a] || nulls_[b]) return static_cast<int>(nulls_[b]) - static_cast<int>(nulls_[a]);
        if (numeric_) {
            return static_cast<int>(numbers_[a] > numbers_[b]) - static_cast<int>(numbers_[a] < numbers_[b]);
        }
        return texts_[a].compare(texts_[b]);
    }

    bool descending_, numeric_ = true;
    std::vector<bool> nulls_;
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
    for (const std::string& item : basics::split(order, ","))
        columns.emplace_back(rows_->cells, readSortKey(*this, item));
    std::vector<std::size_t> places(rowCount());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::stable_sort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) {
        for (const SortColumn& column : columns) {
            if (const int ordered = column.compare(a, b)) return ordered < 0;
        }
        return false;
    });
    take(places);
}

void RecordSet::arrange(const std::vector<std::size_t>& ranks) {
    std::vector<std::size_t> places(ranks.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::stable_sort(places.begin(), places.end(),
                     [&](std::size_t a, std::size_t b) { return ranks[a] < ranks[b]; });
    take(places);
}

void RecordSet::take(const std::vector<std::size_t>& places) {
    rows_->cells.arrange(places);
    position_ = 0;
    ++generation_;
}

void RecordSet::find(std::string_view condition) {
    const std::size_t equals = condition.find('=');
    if (equals == std::string_view::npos) {
        throw Fault("찾을 조건을 알 수 없습니다: " + std::string(condition));
    }
    const auto wantedColumn = static_cast<std::size_t>(column(basics::trim(condition.substr(0, equals))));
    std::string wanted = basics::trim(condition.substr(equals + 1));
    const bool quoted = wanted.size() >= 2 && wanted.front() == '\'' && wanted.back() == '\'';
    if (quoted) {
        wanted = basics::replaceAll(std::string_view(wanted).substr(1, wanted.size() - 2), "''", "'");
    } else if (!basics::IsNumeric(wanted)) {
        throw Fault("찾을 조건을 알 수 없습니다: " + std::string(condition));
    }

    const double number = quoted ? 0 : basics::toNumber(wanted);
    const std::string folded = basics::foldCase(wanted);
    const auto fulfils = [&](std::size_t row) {
        const std::string_view text = rows_->cells.text(row, wantedColumn);
        if (quoted) return basics::foldCase(text) == folded;
        return basics::IsNumeric(text) && basics::toNumber(text) == number;
    };
    for (position_ = 0; !atEnd() && !fulfils(position_);) ++position_;
}

std::size_t RecordSet::rowCount() const {
    return rows_ ? rows_->cells.count() : 0;
}
int RecordSet::columnCount() const {
    return static_cast<int>(fields().size());
}
int RecordSet::columnOf(std::string_view field) const {
    return rows_ ? rows_->find(field) : -1;
}

std::string RecordSet::cellText(std::size_t row, int column) const {
    return holds(row, column) ? std::string(rows_->cells.text(row, static_cast<std::size_t>(column)))
                              : std::string();
}

bool RecordSet::setCellText(std::size_t row, int column, std::string_view text) {
    if (!holds(row, column) || !rows_->writer || column == rows_->find(rows_->target.key)) return false;
    rows_->cells.change(row, static_cast<std::size_t>(column), basics::cleanUtf8(text));
    return true;
}

bool RecordSet::removeRow(std::size_t row) {
    if (row >= rowCount() || !rows_->writer) return false;
    try {
        rows_->writer->remove(rows_->target, rows_->keyOf(row));
    } catch (const Fault&) {
        tellFailure("DELETE");
        return false;
    }
    rows_->cells.erase(row);
    if (position_ > row) --position_;
    return true;
}

bool RecordSet::writeRow(std::size_t row) {
    if (row >= rowCount()) return true;
    std::vector<std::pair<std::string, std::string>> changed;
    for (std::size_t i = 0; i < rows_->cells.width(); ++i) {
        if (rows_->cells.isChanged(row, i)) changed.emplace_back(rows_->fields[i], rows_->cells.text(row, i));
    }
    if (changed.empty()) return true;
    try {
        rows_->writer->update(rows_->target, rows_->keyOf(row), changed);
    } catch (const Fault&) {
        tellFailure("UPDATE");
        return false;
    }
    rows_->cells.forgetChanges(row);
    return true;
}

/// Inside a handler: of the fault that it has caught.
void RecordSet::tellFailure(const std::string& verb) const {
    if (onWriteFailed) onWriteFailed(verb + " " + rows_->target.table, std::current_exception());
}

std::uint64_t RecordSet::generation() const {
    return generation_;
}

RecordSet::Filler::Filler(RecordSet& set, std::vector<std::string> fields)
    : set_(set), rows_(std::make_unique<Rows>(std::move(fields))) {}

RecordSet::Filler::~Filler() = default;

void RecordSet::Filler::add(std::string_view text) {
    const bool clean = basics::isUtf8(text) && text.find('\0') == std::string_view::npos;
    if (clean) {
        rows_->cells.add(text, PackedRows::Kind::Text);
    } else {
        rows_->cells.add(basics::cleanUtf8(text), PackedRows::Kind::Text);
    }
}

void RecordSet::Filler::addNumber(std::int64_t value) {
    rows_->cells.add(basics::decimalText(value), PackedRows::Kind::Number);
}

void RecordSet::Filler::addNumber(float value) {
    rows_->cells.add(basics::decimalText(value), PackedRows::Kind::Number);
}

void RecordSet::Filler::addNumber(double value) {
    rows_->cells.add(basics::decimalText(value), PackedRows::Kind::Number);
}

void RecordSet::Filler::addDecimal(std::string_view digits) {
    if (digits.find('.') != std::string_view::npos) {
        while (digits.back() == '0') digits.remove_suffix(1);
        if (digits.back() == '.') digits.remove_suffix(1);
    }
    std::string text(digits);
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    if (first == text.size() || text[first] == '.') text.insert(first, "0");
    rows_->cells.add(text == "-0" ? "0" : text, PackedRows::Kind::Number);
}

void RecordSet::Filler::addNull() {
    rows_->cells.add({}, PackedRows::Kind::Null);
}

void RecordSet::Filler::finish(Cursor cursor, UpdateTarget target, std::unique_ptr<RowWriter> writer) {
    rows_->target = std::move(target);
    if (cursor == Cursor::Keyset && !rows_->target.table.empty()) rows_->writer = std::move(writer);
    set_.rows_ = std::move(rows_);
    set_.position_ = 0;
    ++set_.generation_;
}

}  // namespace zelvo::data
