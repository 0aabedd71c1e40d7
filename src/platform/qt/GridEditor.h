#pragma once

#include <QtWidgets/QLineEdit>

namespace zelvo::screen {
class Grid;
struct Key;
}  // namespace zelvo::screen

namespace zelvo::qt {

/// The line in which a cell is changed: it shows the text of the grid's open edit. The table keeps the focus
/// and hands on keys and compositions, so that none is cut when the line opens in the middle of a syllable.
class GridEditor : public QLineEdit {
    Q_OBJECT

public:
    explicit GridEditor(QWidget& table, QWidget& glass);
    void hangOn(screen::Grid& grid) { grid_ = &grid; }

    /// Opens for a cell of this column with the text of the open edit.
    void open(int column);
    /// Stands over the cell; wider where that is too narrow for a text without limit.
    void placeOver(const QRect& cell);
    void close();
    bool isOpen() const { return isVisibleTo(parentWidget()); }
    /// Takes over the open edit's text where it differs; not while a syllable is being composed.
    void showText();
    /// Shows or hides the caret with the table's focus.
    void blink(bool on);

    /// A key while the line is open: first the listeners', then the line's or the grid's.
    void takeKey(QKeyEvent& event);
    /// A character goes to the grid at the text's end, into the line elsewhere.
    void type(const screen::Key& key);
    /// Shows what is being composed; "" ends it.
    void showPreedit(const QInputMethodEvent& event);
    bool composing() const { return composing_; }
    /// Takes an input method's event as it comes (one that replaces what stands around the caret).
    void takeAsItIs(QInputMethodEvent& event) { inputMethodEvent(&event); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void tellText(const QString& text);
    bool atEnd() const { return cursorPosition() == text().size() && !hasSelectedText(); }
    bool hasRoom() const;

    screen::Grid* grid_ = nullptr;
    int column_ = 0;
    bool composing_ = false, showing_ = false;
};

}  // namespace zelvo::qt
