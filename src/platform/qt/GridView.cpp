#include "platform/qt/GridView.h"

#include <QtGui/QPainter>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QScrollBar>
#include <algorithm>
#include <utility>

#include "platform/qt/Contrast.h"
#include "platform/qt/GridDelegate.h"
#include "platform/qt/GridEditor.h"
#include "platform/qt/GridHeader.h"
#include "platform/qt/GridMenu.h"
#include "platform/qt/GridModel.h"
#include "platform/qt/Owned.h"
#include "platform/qt/SuggestionList.h"
#include "platform/qt/TableReader.h"
#include "platform/qt/Texts.h"
#include "platform/qt/Twips.h"
#include "platform/qt/ZoomedForm.h"
#include "screen/Grid.h"
#include "screen/Window.h"

// What the grid holds, on the glass.
namespace zelvo::qt {

namespace {

/// The column that takes what the others leave: the last one that holds much text.
int fillingColumn(const screen::Grid& grid) {
    double widest = 0;
    for (int i = 0; i < grid.columnCount(); ++i)
        if (grid.onGlass(i)) widest = std::max(widest, grid.column(i).width);
    int found = -1;
    for (int i = 0; i < grid.columnCount(); ++i) {
        const screen::GridColumn& column = grid.column(i);
        const bool text = grid.onGlass(i) && !column.button && !column.flag && !column.alignRight;
        if (text && column.width >= widest * 0.6) found = i;
    }
    return found;
}

}  // namespace

GridView::GridView(QWidget* parent)
    : QTableView(parent),
      header_(&owned<GridHeader>(this)),
      editor_(&owned<GridEditor>(*this, *viewport())),
      passing_(owned<QTimer>(this)) {
    passing_.setSingleShot(true);
    passing_.callOnTimeout(this, [this] { restOnRow(); });
    setHorizontalHeader(header_);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setFocusPolicy(Qt::StrongFocus);
    setTabKeyNavigation(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    viewport()->setMouseTracking(true);
    connect(header_, &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { columnDragged(column, width); });
    connect(header_, &QHeaderView::sectionClicked, this,
            [this](int column) { tell([this, column] { grid_->userHead(column); }); });
    header_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header_, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        if (grid_) menu().openColumns(header_->viewport()->mapToGlobal(at));
    });
    connect(header_, &GridHeader::letGo, this, [this] { columnsLetGo(); });
    connect(editor_, &QLineEdit::cursorPositionChanged, this, [this] { updateMicroFocus(); });
}

GridView::~GridView() = default;

void GridView::hangOn(screen::Grid& grid) {
    grid_ = &grid;
    model_ = std::make_unique<GridModel>(grid);
    delegate_ = &owned<GridDelegate>(grid, this);
    header_->hangOn(grid);
    editor_->hangOn(grid);
    fitRows();
    setItemDelegate(delegate_);
    setModel(model_.get());
    // Rows that replace all others are shown from the first on.
    whenRowChanges_ = grid.onRowChange.listen([this](int before, int) {
        if (before < 0 && grid_->currentRow() == 0) verticalScrollBar()->setValue(0);
    });
    showGrid();
}

/// Something the user did; then the keys that the logic has sent.
void GridView::tell(const std::function<void()>& act) {
    if (!grid_) return;
    act();
    grid_->window().desktop().deliverKeys();
    showGrid();
}

void GridView::showGrid() {
    if (!grid_) return;
    model_->follow();
    const bool named = !property("noCaption").toBool();
    header_->setCaption(named ? qtText(grid_->caption()).trimmed() : QString());
    header_->showSorting();
    fitColumns();
    followCursor();
    showEditor();
    showSuggestions();
    setAttribute(Qt::WA_InputMethodEnabled, textColumn() >= 0);
    tellPlaces();
    viewport()->update();
}

void GridView::fitRows() {
    const bool compact = property("compactRows").toBool();
    const int height = std::max(zoomed(*this, compact ? 20 : 26), fontMetrics().height() + (compact ? 2 : 6));
    delegate_->setZoom(zoomOf(*this));
    if (verticalHeader()->defaultSectionSize() == height) return;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

std::vector<double> GridView::widthsOnGlass() const {
    std::vector<double> widths;
    widths.reserve(static_cast<std::size_t>(grid_->columnCount()));
    for (int i = 0; i < grid_->columnCount(); ++i) widths.push_back(grid_->widthOnGlass(i));
    return widths;
}

/// Columns that came, went or got another width: its proportions, instead of those dragged.
void GridView::fitColumns() {
    if (widthsOnGlass() == designed_) return;
    designed_ = widthsOnGlass();
    const bool nested = std::exchange(laying_, true);
    std::vector<GridColumns::Column> columns;
    const int fills = fillingColumn(*grid_);
    const QStringList samples = property("samples").toStringList();
    qsizetype shown = 0;
    for (int i = 0; i < grid_->columnCount(); ++i) {
        setColumnHidden(i, !grid_->onGlass(i));
        const QString sample = grid_->column(i).shown ? samples.value(shown++) : QString();
        columns.push_back(
            {designed_[static_cast<std::size_t>(i)], header_->leastWidth(i, sample), i == fills});
    }
    columns_.reset(std::move(columns));
    layColumns();
    laying_ = nested;
}

void GridView::layColumns() {
    const bool nested = std::exchange(laying_, true);
    const std::vector<int> widths = columns_.widths(viewport()->width());
    for (std::size_t i = 0; i < widths.size(); ++i)
        if (widths[i] > 0) header_->resizeSection(static_cast<int>(i), widths[i]);
    laying_ = nested;
    placeEditor();
}

void GridView::columnDragged(int column, int width) {
    if (laying_ || !grid_) return;
    dragged_ = true;
    columns_.drag(column, width, viewport()->width());
    layColumns();
    tellPlaces();
}

/// What was dragged is the grid's own from here on.
void GridView::columnsLetGo() {
    if (!grid_ || !std::exchange(dragged_, false)) return;
    tell([this] { grid_->userWidths(columns_.shares()); });
}

/// The nearest column on the glass.
int GridView::shownColumn(int column) const {
    int shown = column;
    while (shown < grid_->columnCount() && !grid_->onGlass(shown)) ++shown;
    while (shown > 0 && (shown >= grid_->columnCount() || !grid_->onGlass(shown))) --shown;
    return shown;
}

void GridView::followCursor() {
    executeDelayedItemsLayout();
    if (!grid_->onRow()) {
        if (currentIndex().isValid()) selectionModel()->clear();
        return;
    }
    const QModelIndex wanted = model_->index(grid_->currentRow(), shownColumn(grid_->currentColumn()));
    if (wanted == currentIndex()) return;
    selectionModel()->setCurrentIndex(wanted,
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void GridView::showEditor() {
    if (!grid_->editing()) {
        if (editor_->isOpen() && !editor_->composing()) editor_->close();
        return;
    }
    const bool sameCell = editedRow_ == grid_->currentRow() && editedColumn_ == grid_->currentColumn();
    if (!editor_->isOpen() || (!sameCell && !editor_->composing())) {
        openEditor(grid_->currentRow(), grid_->currentColumn());
    } else {
        editor_->showText();
    }
}

void GridView::openEditor(int row, int column) {
    editedRow_ = row;
    editedColumn_ = column;
    editor_->setFont(font());
    editor_->open(column);
    placeEditor();
    editor_->blink(hasFocus());
}

void GridView::placeEditor() {
    if (!editor_->isOpen()) return;
    editor_->placeOver(visualRect(model_->index(editedRow_, editedColumn_)));
}

void GridView::showSuggestions() {
    if (!suggestions_) {
        if (grid_->suggestions().empty()) return;
        suggestions_ = &owned<SuggestionList>(*this, *grid_);
    }
    suggestions_->follow(*viewport(), visualRect(model_->index(editedRow_, editedColumn_)));
}

void GridView::tellPlaces() {
    if (!grid_) return;
    grid_->rowHeight = twips(*this, verticalHeader()->defaultSectionSize());
    grid_->topRow = std::max(0, rowAt(0));
    const int left = viewport()->x();
    grid_->columnLefts.resize(static_cast<std::size_t>(grid_->columnCount()));
    for (int i = 0; i < grid_->columnCount(); ++i)
        grid_->columnLefts[static_cast<std::size_t>(i)] = twips(*this, left + columnViewportPosition(i));
}

void GridView::resizeEvent(QResizeEvent* event) {
    const QModelIndex current = currentIndex();
    const bool seen = current.isValid() && rowViewportPosition(current.row()) >= 0 &&
                      rowViewportPosition(current.row()) < event->oldSize().height();
    QTableView::resizeEvent(event);
    if (!grid_) return;
    layColumns();
    if (seen) scrollTo(current);
    placeEditor();
    tellPlaces();
}

void GridView::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (!grid_) return;
    placeEditor();
    tellPlaces();
}

/// Of what the toolkit tells a reader of the screen here, the numbers would count the hidden columns too.
void GridView::currentChanged(const QModelIndex& now, const QModelIndex& before) {
    QAbstractItemView::currentChanged(now, before);  // NOLINT(bugprone-parent-virtual-call)
    tellCurrentCell(*this);
}

void GridView::selectionChanged(const QItemSelection& now, const QItemSelection& before) {
    QAbstractItemView::selectionChanged(now, before);  // NOLINT(bugprone-parent-virtual-call)
}

void GridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (!grid_ || (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)) return;
    fitRows();
    designed_.clear();
    showGrid();
}

void GridView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (!grid_ || grid_->rowCount() > 0) return;
    QPainter painter(viewport());
    const QColor ground = palette().color(QPalette::Base);
    painter.setPen(readableOn(ground, blended(palette().color(QPalette::Text), ground, 0.6)));
    painter.drawText(viewport()->rect().adjusted(12, 8, -12, -8), Qt::AlignCenter | Qt::TextWordWrap,
                     qtText(grid_->emptyHint));
    if (!hasFocus()) return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
}

}  // namespace zelvo::qt
