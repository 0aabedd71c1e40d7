#include "platform/qt/SuggestionList.h"

#include <algorithm>

#include "platform/qt/Readers.h"
#include "platform/qt/Texts.h"
#include "screen/Grid.h"

namespace zelvo::qt {

namespace {

constexpr int mostRows = 9;

}  // namespace

SuggestionList::SuggestionList(QWidget& table, screen::Grid& grid)
    : QListWidget(table.window()), grid_(grid) {
    setObjectName("suggestions_" + table.objectName());
    setAccessibleName(QStringLiteral("약재 찾기"));
    setFocusPolicy(Qt::NoFocus);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    hide();
    connect(this, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem* item) { grid_.userSuggestion(row(item)); });
}

void SuggestionList::follow(const QWidget& viewport, const QRect& cell) {
    const auto& lines = grid_.suggestions();
    if (lines.empty()) return hide();
    QStringList shown;
    for (const std::string& line : lines) shown.push_back(qtText(line));
    bool same = count() == shown.size();
    for (int i = 0; same && i < count(); ++i) same = item(i)->text() == shown.at(i);
    if (!same) {
        clear();
        addItems(shown);
    }
    const int before = same ? currentRow() : -1;
    setCurrentRow(grid_.suggested());
    if (currentRow() >= 0 && currentRow() != before) speak(*this, currentItem()->text());
    place(viewport, cell);
    show();
    raise();
}

void SuggestionList::place(const QWidget& viewport, const QRect& cell) {
    const QWidget& glass = *parentWidget();
    const int rows = std::min(count(), mostRows), rowHeight = std::max(sizeHintForRow(0), 1);
    const int wanted = rows * rowHeight + 2 * frameWidth();
    const QPoint below = viewport.mapTo(&glass, cell.bottomLeft() + QPoint(0, 1));
    const int room = glass.height() - below.y(), above = below.y() - cell.height();
    const int height = std::min(wanted, std::max(room, above));
    const int width = std::min(std::max(cell.width(), fontMetrics().averageCharWidth() * 52), glass.width());
    const int left = std::clamp(below.x(), 0, glass.width() - width);
    setGeometry(left, height <= room ? below.y() : above - height, width, height);
}

}  // namespace zelvo::qt
