#include "platform/qt/TableReader.h"

#include <QtCore/QPointer>
#include <QtWidgets/QHeaderView>

#include "platform/qt/GridView.h"
#include "platform/qt/Owned.h"

namespace zelvo::qt {

namespace {

constexpr int headRow = -1;

TableReader* readerOf(GridView* view) {
    return view ? dynamic_cast<TableReader*>(QAccessible::queryAccessibleInterface(view)) : nullptr;
}

/// A head or a cell, by its column in the model.
class CellReader : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    CellReader(GridView& view, int row, int column) : view_(&view), row_(row), column_(column) {}

    bool isValid() const override {
        return view_ && view_->model() && row_ < view_->model()->rowCount() &&
               column_ < view_->model()->columnCount() && !view_->isColumnHidden(column_);
    }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return view_ ? view_->window()->windowHandle() : nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return readerOf(view_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text kind) const override {
        if (!isValid()) return {};
        if (kind != QAccessible::Name && kind != QAccessible::Value) return {};
        if (row_ == headRow) return kind == QAccessible::Name ? head() : QString();
        return index().data(kind == QAccessible::Name ? Qt::AccessibleTextRole : Qt::DisplayRole).toString();
    }
    QRect rect() const override {
        if (!isValid()) return {};
        if (row_ != headRow) {
            const QRect cell = view_->visualRect(index());
            return {view_->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
        }
        const QHeaderView& heads = *view_->horizontalHeader();
        const QPoint corner(heads.sectionViewportPosition(column_), 0);
        return {heads.mapToGlobal(corner), QSize(heads.sectionSize(column_), heads.height())};
    }
    QAccessible::Role role() const override {
        return row_ == headRow ? QAccessible::ColumnHeader : QAccessible::Cell;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        if (state.invalid) return state;
        state.disabled = !view_->isEnabled();
        state.invisible = !view_->isVisible();
        if (row_ == headRow) return state;
        state.offscreen = !view_->viewport()->rect().intersects(view_->visualRect(index()));
        state.focusable = state.selectable = true;
        state.selected = isSelected();
        state.focused = view_->hasFocus() && index() == view_->currentIndex();
        state.editable = index().flags().testFlag(Qt::ItemIsEditable);
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : nullptr;
    }

    bool isSelected() const override {
        return row_ != headRow && isValid() && view_->selectionModel()->isSelected(index());
    }
    QList<QAccessibleInterface*> columnHeaderCells() const override {
        const TableReader* const table = readerOf(view_);
        if (!table || row_ == headRow) return {};
        return {table->part(headRow, column_)};
    }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override {
        const TableReader* const table = readerOf(view_);
        return table ? table->shownPlace(column_) : -1;
    }
    int rowIndex() const override { return row_; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

    int modelColumn() const { return column_; }

private:
    QModelIndex index() const { return view_->model()->index(row_, column_); }
    QString head() const { return view_->model()->headerData(column_, Qt::Horizontal).toString(); }

    QPointer<GridView> view_;
    int row_, column_;
};

}  // namespace

TableReader::TableReader(GridView& view) : QAccessibleWidget(&view, QAccessible::Table), view_(view) {}

TableReader::~TableReader() {
    forget();
}

void TableReader::forget() {
    for (const auto& [place, id] : parts_) QAccessible::deleteAccessibleInterface(id);
    parts_.clear();
}

QString TableReader::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? QString() : QAccessibleWidget::text(kind);
}

int TableReader::columnCount() const {
    const int all = view_.model() ? view_.model()->columnCount() : 0;
    int shown = 0;
    for (int column = 0; column < all; ++column) shown += view_.isColumnHidden(column) ? 0 : 1;
    return shown;
}

int TableReader::rowCount() const {
    return view_.model() ? view_.model()->rowCount() : 0;
}

int TableReader::shownPlace(int column) const {
    if (column < 0 || view_.isColumnHidden(column)) return -1;
    int place = 0;
    for (int before = 0; before < column; ++before) place += view_.isColumnHidden(before) ? 0 : 1;
    return place;
}

int TableReader::modelColumn(int place) const {
    const int all = view_.model() ? view_.model()->columnCount() : 0;
    for (int column = 0; column < all; ++column)
        if (!view_.isColumnHidden(column) && place-- == 0) return column;
    return -1;
}

QAccessibleInterface* TableReader::part(int row, int column) const {
    const auto known = parts_.find({row, column});
    if (known != parts_.end()) return QAccessible::accessibleInterface(known->second);
    auto& made = owned<CellReader>(view_, row, column);
    parts_.emplace(std::pair{row, column}, QAccessible::registerAccessibleInterface(&made));
    return &made;
}

int TableReader::placeOf(int row, int column) const {
    const int place = shownPlace(column);
    return place < 0 ? -1 : (row - headRow) * columnCount() + place;
}

int TableReader::childCount() const {
    return (rowCount() + 1) * columnCount();
}

QAccessibleInterface* TableReader::child(int index) const {
    const int columns = columnCount();
    if (index < 0 || columns == 0 || index >= childCount()) return nullptr;
    return part(index / columns + headRow, modelColumn(index % columns));
}

int TableReader::indexOfChild(const QAccessibleInterface* child) const {
    const auto* const cell = dynamic_cast<const CellReader*>(child);
    return cell && cell->isValid() ? placeOf(cell->rowIndex(), cell->modelColumn()) : -1;
}

QAccessibleInterface* TableReader::childAt(int x, int y) const {
    const QModelIndex at = view_.indexAt(view_.viewport()->mapFromGlobal(QPoint(x, y)));
    return at.isValid() ? part(at.row(), at.column()) : nullptr;
}

QAccessibleInterface* TableReader::focusChild() const {
    const QModelIndex at = view_.currentIndex();
    return view_.hasFocus() && at.isValid() ? part(at.row(), at.column()) : nullptr;
}

void* TableReader::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* TableReader::cellAt(int row, int column) const {
    const int inModel = modelColumn(column);
    return inModel < 0 || row < 0 || row >= rowCount() ? nullptr : part(row, inModel);
}

QString TableReader::columnDescription(int column) const {
    return view_.model()->headerData(modelColumn(column), Qt::Horizontal).toString();
}

QList<int> TableReader::selectedRows() const {
    const QModelIndex at = view_.currentIndex();
    return at.isValid() ? QList<int>{at.row()} : QList<int>();
}

int TableReader::selectedCellCount() const {
    return selectedRowCount() * columnCount();
}

QList<QAccessibleInterface*> TableReader::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows())
        for (int column = 0; column < columnCount(); ++column) cells.append(cellAt(row, column));
    return cells;
}

bool TableReader::selectRow(int) {
    return false;  // a row is chosen by keys or clicks, which the grid hears
}

/// What stood where is no longer sure.
void TableReader::modelChange(QAccessibleTableModelChangeEvent* event) {
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged) forget();
}

void tellCurrentCell(GridView& view) {
    const QModelIndex at = view.currentIndex();
    if (!QAccessible::isActive() || !at.isValid() || !view.hasFocus()) return;
    const TableReader* const reader = readerOf(&view);
    if (!reader) return;
    QAccessibleEvent event(&view, QAccessible::Focus);
    event.setChild(reader->placeOf(at.row(), at.column()));
    QAccessible::updateAccessibility(&event);
}

}  // namespace zelvo::qt
