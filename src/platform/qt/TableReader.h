#pragma once

#include <QtWidgets/QAccessibleWidget>
#include <map>
#include <utility>

namespace zelvo::qt {

class GridView;

/// A table for a reader of the screen: its label, the heads and cells of the columns that are shown, row by
/// row, the heads first.
class TableReader : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit TableReader(GridView& view);
    ~TableReader() override;
    TableReader(const TableReader&) = delete;
    TableReader& operator=(const TableReader&) = delete;

    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* focusChild() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int) const override { return {}; }
    int columnCount() const override;
    int rowCount() const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedColumnCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    QList<int> selectedRows() const override;
    bool isRowSelected(int row) const override { return selectedRows().contains(row); }
    bool selectRow(int row) override;
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

    /// The place among the shown columns of one of the model's, and the other way round; -1 for none.
    int shownPlace(int column) const;
    int modelColumn(int place) const;
    /// The head (row -1) or cell of a column of the model.
    QAccessibleInterface* part(int row, int column) const;
    /// Where a part stands among the children.
    int placeOf(int row, int column) const;
    GridView& view() const { return view_; }

private:
    void forget();

    GridView& view_;
    mutable std::map<std::pair<int, int>, QAccessible::Id> parts_;
};

/// Tells a reader of the screen that a table's cursor stands in another cell.
void tellCurrentCell(GridView& view);

}  // namespace zelvo::qt
