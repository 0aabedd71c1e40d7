#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "screen/ColumnChoices.h"
#include "screen/Field.h"
#include "tables/GridSource.h"

namespace zelvo::screen {

/// Shows a GridSource live. It owns the current row and column and the open edit of a cell. Rows and columns
/// count from 0; the current row is -1 when there is none.
class Grid : public Field {
public:
    Grid(Window& window, std::string name, Place place, std::vector<GridColumn> columns);

    /// Binds the rows (nullptr: none) and refreshes. The source must outlive the binding.
    void bind(tables::GridSource* source);
    /// Takes the row count anew. Where no row was current, or all rows were replaced, row 0 becomes current
    /// and onRowChange runs with no previous row (-1, -1); while the grid can't be seen in its window, that
    /// event is held until it can.
    void refresh();
    void refreshRow(int row);
    /// Rows as of the last refresh.
    int rowCount() const { return rows_; }

    const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption);
    int columnCount() const { return static_cast<int>(columns_.size()); }
    const GridColumn& column(int index) const { return columns_.at(static_cast<std::size_t>(index)); }
    void setColumnShown(int index, bool shown);
    /// Whether a column stands on the glass: the logic shows it and the user has not taken it away.
    bool onGlass(int column) const;
    /// Its width there in twips, as the user left it, else as designed; 0 where it doesn't stand there.
    double widthOnGlass(int column) const;
    /// Whether the user may take a column away: nothing is typed or pressed in it, and others stay.
    bool mayHide(int column) const;
    void setColumnWidth(int index, double twips);
    /// Column by caption; -1 when there is none.
    int columnOf(std::string_view caption) const;
    /// The column that the rows stand sorted by, -1 for none, and their direction: for the head's mark.
    int sortedColumn() const { return sortedColumn_; }
    bool sortedDescending() const { return sortedDescending_; }
    void markSorted(int column, bool descending = false);
    /// Whether the user may change cells of editable columns and delete rows (the Delete key is not the
    /// grid's own).
    bool allowsUpdate = true;
    /// What a toolkit may say in grey while there are no rows.
    std::string emptyHint;

    int currentRow() const { return row_; }
    int currentColumn() const { return column_; }
    bool onRow() const { return row_ >= 0 && row_ < rows_; }
    /// Makes a row current; onRowChange runs when row or column really change. Pending editing is committed
    /// first.
    void setCurrentRow(int row);
    void setCurrentColumn(int column);
    void moveFirst();
    /// One row on; behind the last row the grid stands at its end.
    void moveNext();
    bool atEnd() const { return row_ < 0 || row_ >= rows_; }
    /// First row on the glass; told by the toolkit.
    int topRow = 0;
    /// Position of the current row on the glass, from 0; told by the toolkit, else the row itself. -1 without
    /// a current row.
    int visibleRow() const;

    /// Value of a column in the current row, or in a given row, as it is stored; "" where there is none.
    std::string value(int column) const;
    std::string value(std::string_view caption) const;
    std::string valueAt(int row, int column) const;
    /// Stores a value in the current row. No onCellAccepted: that is for what the user types.
    void setValue(int column, std::string_view text);
    void setValue(std::string_view caption, std::string_view text);
    /// The cell as it is shown: display format, then onCellShow.
    std::string shownText(int row, int column);
    /// The cell as it stands on the glass and in a copy: a flag is a mark, or nothing.
    std::string glassText(int row, int column);
    /// Whether a flag says yes.
    bool says(int row, int column) const;
    struct Rows {
        int first = -1, last = -1;
        bool hold(int row) const { return row >= first && row <= last; }
    };
    /// The rows that a copy takes: those that the user has marked, else the current one; {-1, -1} for none.
    Rows markedRows() const;
    bool marks() const { return marked_.has_value(); }
    /// The row's named style, "" for none.
    std::string rowStyle(int row);

    /// Named row styles and their text colours.
    void addStyle(std::string name, Color textColor);
    void dropStyles();
    const Color* style(std::string_view name) const;

    /// Ends the open edit of a cell: a value that changed is stored, then onCellAccepted runs with its
    /// column.
    void commitEdit();
    /// Drops the open edit; the cell keeps its value.
    void cancelEdit();
    bool editing() const { return edit_.has_value(); }
    const std::string& editText() const;
    /// Offers lines beneath the open cell, none of them marked; they go when the edit ends. None without an
    /// edit.
    void suggest(std::vector<std::string> lines);
    const std::vector<std::string>& suggestions() const { return suggestions_; }
    /// The marked line, from 0; -1 for none.
    int suggested() const { return suggested_; }
    void markSuggestion(int line);
    /// Sends the current row's changes to where the rows came from. False when the database refused.
    bool writeCurrentRow();
    /// Removes the current row from the source, then onRowDeleted runs. False when the source refused.
    bool deleteCurrentRow();

    /// Row height in twips; left edge of a column and top of the first row, told by the toolkit, 0 in the
    /// console.
    double rowHeight = 0;
    std::vector<double> columnLefts;
    double columnLeft(int column) const;

    /// What the user does.
    void userRow(int row);               ///< clicks a row
    bool userCell(int row, int column);  ///< puts the cursor into a cell; false where it doesn't stop
    /// Types over the cell of the current row, key by key, and leaves it; "" empties it. False where the cell
    /// can't be changed.
    bool userType(int column, std::string_view text);
    bool userCellButton(
        int column);            ///< presses the cell's button in the current row; false where there is none
    void userHead(int column);  ///< clicks a column's head
    void userSuggestion(int line);  ///< clicks a line beneath the open cell
    /// Marks the rows from the current one to this one, which moves no cursor; the next move ends it.
    void userMark(int row);
    void userMarkAll();
    /// To the clipboard: the marked rows with the heads of the columns on the glass, parted by tabs; the
    /// current cell alone.
    void userCopy();
    void userCopyCell();
    bool userHide(int column, bool hidden);  ///< false where that may not be
    /// The columns are let go at these widths, of whatever measure; standard ones again with none.
    void userWidths(const std::vector<double>& widths);
    void recall() override;
    /// The toolkit's own editor: the text as it stands in the open cell. Begins the edit where none is open;
    /// false where the cell can't be changed.
    bool userEdit(std::string_view text);
    void applyKey(const Key& key) override;
    void leave() override { commitEdit(); }
    /// Runs the row event that was held while the grid could not be seen. For windows and toolkits.
    void releaseHeldEvent();
    /// While a key is held down rows are passed over: the row event is held, and runs once for the row that
    /// is rested on. For toolkits.
    void setPassing(bool passing);
    bool passing() const { return passing_; }

    Event<int> onCellAccepted;  ///< column
    Event<int> onEditBegin;     ///< column; the user begins to change the cell
    Event<int> onEditText;      ///< column; the text of the open cell has changed
    Event<int> onSuggestion;    ///< line that the user has clicked
    Event<> onRowDeleted;
    Event<int> onCellButton;                   ///< column
    Event<int, int> onRowChange;               ///< previous row and column, -1 for none
    Event<> onRowAgain;                        ///< the user pressed the row that was current already
    Event<int> onHeadClick;                    ///< column
    Event<int, std::string&> onRowStyle;       ///< row, style name to fill in
    Event<int, int, std::string&> onCellShow;  ///< row, column, text to rewrite

private:
    struct Edit {
        int row, column;
        std::string text;
    };
    struct Style {
        std::string name;
        Color textColor;
    };
    int sourceColumn(int column) const;
    bool canEdit(int column) const;
    bool beginEdit(std::string text);
    void setEditText(std::string text);
    std::string editedText() const;
    bool inView() const;
    void keepColumns();
    bool stopsAt(int column) const;
    int nextStop(int from, int direction) const;
    void moveTo(int row, int column);
    void place(int row, int column);
    void applyCode(int code);
    void typeCharacter(char32_t character);
    void announce(int previousRow, int previousColumn);

    tables::GridSource* source_ = nullptr;
    bool rebound_ = false;
    std::vector<GridColumn> columns_;
    ColumnChoices choices_;
    std::optional<Rows> marked_;
    std::vector<Style> styles_;
    std::string caption_;
    std::optional<Edit> edit_;
    std::vector<std::string> suggestions_;
    int suggested_ = -1;
    std::uint64_t generation_ = 0;
    int rows_ = 0, row_ = -1, column_ = 0;
    int sortedColumn_ = -1;
    bool sortedDescending_ = false;
    bool held_ = false, passing_ = false;
    int passedFrom_ = -1;  ///< the row that was told last, while rows are passed over
    Event<Field*>::Subscription whenTouched_;
};

}  // namespace zelvo::screen
