#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "screen/Desktop.h"
#include "screen/Grid.h"
#include "screen/Window.h"

namespace zelvo::console {

/// Something that a user could not do: no such field, not reachable, a cell where the cursor does not stop …
class ActionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A request that can't be read (no such key, no such day) or names no field.
class UnreadableError : public ActionError {
public:
    using ActionError::ActionError;
};

/// What a user does to the window in front, field by field, with the keys that it takes. Injected keys are
/// delivered after each event. All but `find` throw ActionError for what a user could not do. Columns are
/// numbers from 0 or captions. Here a field is told directly; a screen with widgets does it by their events.
class UserActions {
public:
    explicit UserActions(screen::Desktop& desktop) : desktop_(desktop) {}
    virtual ~UserActions() = default;
    UserActions(const UserActions&) = delete;
    UserActions& operator=(const UserActions&) = delete;

    virtual void type(const std::string& field, const std::string& text);
    virtual void key(const std::string& field, const std::vector<std::string>& names);
    virtual void paste(const std::string& field, const std::string& text);
    virtual void focus(const std::string& field);
    virtual void choose(const std::string& field, const std::string& entry);
    virtual void check(const std::string& field, bool on);
    virtual void press(const std::string& field);
    virtual void tab(const std::string& field, int page);
    virtual void date(const std::string& field, const std::string& yyyymmdd);
    virtual void row(const std::string& grid, int row);
    virtual void cell(const std::string& grid, const std::string& column, const std::string& text);
    virtual void cellKey(const std::string& grid, const std::string& column, const std::string& key);
    virtual void cellButton(const std::string& grid, const std::string& column);
    virtual void head(const std::string& grid, const std::string& column);
    /// Takes a column off the glass, or puts it back.
    void column(const std::string& grid, const std::string& column, bool shown);
    /// Widths for the columns on the glass, in their order; none: the standard ones.
    void widths(const std::string& grid, const std::vector<double>& widths);
    /// Marks the rows up to this one, or all.
    void mark(const std::string& grid, std::optional<int> row);
    void copy(const std::string& grid);
    /// A combination of keys, "Ctrl+Z"; an error where it does nothing as the window stands.
    void shortcut(const std::string& keys);
    virtual void resize();
    virtual void close();

    /// The window in front; an error when there is none.
    screen::Window& front() const;
    /// A field of the window in front; an error when it has none of that name.
    screen::Field& find(const std::string& field) const;
    /// A column by number, or by caption; an error when there is none.
    static int columnIn(const screen::Grid& grid, const std::string& column);

protected:
    /// A field of the window in front that the user can reach, of this kind.
    template <class Kind>
    Kind& reachAs(const std::string& field, const char* kind) const {
        auto* found = dynamic_cast<Kind*>(&reach(field));
        if (!found) throw ActionError(field + " is no " + kind);
        return *found;
    }
    screen::Field& reach(const std::string& field) const;
    bool stillIn(const screen::Window& window) const;

private:
    bool enter(screen::Field& field);
    void run(const std::function<void()>& event);

    screen::Desktop& desktop_;
};

}  // namespace zelvo::console
