#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QTableView>
#include <functional>
#include <memory>
#include <vector>

#include "platform/qt/GridColumns.h"
#include "screen/Event.h"

namespace zelvo::screen {
class Grid;
}

namespace zelvo::qt {

class GridDelegate;
class GridEditor;
class GridHeader;
class GridMenu;
class GridModel;
class SuggestionList;

/// A table in front of a grid of the screen model: it draws the grid's rows live and feeds it what the user
/// does. Dynamic properties: compactRows (low rows), noCaption (the caption stands elsewhere), samples (a
/// text for each shown column that it must at least have room for). The Tab keys are the binder's.
class GridView : public QTableView {
    Q_OBJECT

public:
    explicit GridView(QWidget* parent = nullptr);
    ~GridView() override;
    /// Hangs the view in front of the grid, which must outlive it.
    void hangOn(screen::Grid& grid);
    /// Draws anew what the grid holds: called when the grid was touched.
    void showGrid();
    /// Tells the grid where its columns and rows stand (twips).
    void tellPlaces();

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex& now, const QModelIndex& before) override;
    void selectionChanged(const QItemSelection& now, const QItemSelection& before) override;

private:
    void tell(const std::function<void()>& act);
    // What the grid holds (GridView.cpp).
    void fitRows();
    void fitColumns();
    void layColumns();
    void columnDragged(int column, int width);
    void columnsLetGo();
    std::vector<double> widthsOnGlass() const;
    void followCursor();
    void showEditor();
    void openEditor(int row, int column);
    void placeEditor();
    void showSuggestions();
    int shownColumn(int column) const;
    // What the user does (GridInput.cpp).
    bool specialKey(const QKeyEvent& event);
    void passRows(const QKeyEvent& event);
    void restOnRow();
    bool turnsPage(const QKeyEvent& event);
    int pageRows() const;
    bool marksRows(const QKeyEvent& event);
    void goToCell(const QModelIndex& index);
    GridMenu menu();
    void openMenu();
    bool pressesButton(const QKeyEvent& event);
    int buttonColumn() const;
    int choiceColumn() const;
    int textColumn() const;
    void edit();
    void openForComposition(const QString& sign);
    void paste();
    QModelIndex buttonAt(const QPoint& point) const;
    void setHot(const QModelIndex& index);
    void setHeld(const QModelIndex& index);

    screen::Grid* grid_ = nullptr;
    std::unique_ptr<GridModel> model_;
    GridDelegate* delegate_ = nullptr;
    GridHeader* header_;
    GridEditor* editor_;
    SuggestionList* suggestions_ = nullptr;  ///< made with the first line that is offered
    GridColumns columns_;
    std::vector<double> designed_;  ///< widths of the columns on the glass as the model has them
    int editedRow_ = -1, editedColumn_ = -1;
    bool laying_ = false, dragged_ = false;
    QTimer& passing_;  ///< runs while a key that is held down passes rows over
    screen::Event<int, int>::Subscription whenRowChanges_;
};

}  // namespace zelvo::qt
