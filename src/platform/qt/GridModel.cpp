#include "platform/qt/GridModel.h"

#include "platform/qt/Texts.h"
#include "screen/Grid.h"

namespace zelvo::qt {

bool holdsChoice(const screen::Grid& grid, int column) {
    return grid.column(column).flag && grid.column(column).button;
}

namespace {

constexpr int longInsert = 1000;  // rows

}  // namespace

void GridModel::follow() {
    const int wanted = grid_.rowCount();
    if (wanted - rows_ > longInsert) {
        // The view's heads take a whole list in at once, where they would take in each new row.
        beginResetModel();
        rows_ = wanted;
        endResetModel();
    } else if (wanted > rows_) {
        beginInsertRows({}, rows_, wanted - 1);
        rows_ = wanted;
        endInsertRows();
    } else if (wanted < rows_) {
        beginRemoveRows({}, wanted, rows_ - 1);
        rows_ = wanted;
        endRemoveRows();
    }
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : grid_.columnCount();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    switch (role) {
        case Qt::DisplayRole:
            return qtText(grid_.glassText(index.row(), index.column()));
        case Qt::AccessibleTextRole:
            return spokenText(index);
        case Qt::TextAlignmentRole:
            return QVariant((grid_.column(index.column()).alignRight ? Qt::AlignRight : Qt::AlignLeft) |
                            Qt::AlignVCenter);
        default:
            return {};
    }
}

/// A cell in words: its head, its text or what its mark says.
QString GridModel::spokenText(const QModelIndex& index) const {
    const QString head = qtText(grid_.column(index.column()).caption) + QLatin1Char(' ');
    if (!grid_.column(index.column()).flag)
        return head + qtText(grid_.shownText(index.row(), index.column()));
    return head + (grid_.says(index.row(), index.column()) ? QStringLiteral("예") : QStringLiteral("아니오"));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    if (section < 0 || section >= grid_.columnCount()) return {};
    return qtText(grid_.column(section).caption);
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    const bool editable = grid_.allowsUpdate && grid_.column(index.column()).editable;
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    return editable ? flags | Qt::ItemIsEditable : flags;
}

}  // namespace zelvo::qt
