#pragma once

#include "platform/console/UserActions.h"
#include "platform/qt/Shell.h"

class QAbstractItemView;
class QTableView;

namespace zelvo::stage {

/// A user in front of the real widgets: clicks and keys go to them as the system would send them.
class WidgetUser : public console::UserActions {
public:
    using UserActions::UserActions;

    /// The shell of the window in front: where the clicks and keys go.
    void sitBefore(qt::Shell* shell) { shell_ = shell; }

    void type(const std::string& field, const std::string& text) override;
    void key(const std::string& field, const std::vector<std::string>& names) override;
    void paste(const std::string& field, const std::string& text) override;
    void focus(const std::string& field) override;
    void choose(const std::string& field, const std::string& entry) override;
    void check(const std::string& field, bool on) override;
    void press(const std::string& field) override;
    void tab(const std::string& field, int page) override;
    void date(const std::string& field, const std::string& yyyymmdd) override;
    void row(const std::string& grid, int row) override;
    void cell(const std::string& grid, const std::string& column, const std::string& text) override;
    void cellKey(const std::string& grid, const std::string& column, const std::string& key) override;
    void cellButton(const std::string& grid, const std::string& column) override;
    void head(const std::string& grid, const std::string& column) override;
    void resize() override;
    void close() override;

    /// A key by its name, and a text, to the widget that has the focus. Hangul comes by an input method.
    static void pressKey(int key, Qt::KeyboardModifiers held = Qt::NoModifier, const QString& text = {});
    static void pressNamed(const std::string& name);
    static void typeText(const std::string& text);
    static void click(QWidget& widget, QPoint at);
    static void click(QWidget& widget);

private:
    QWidget& widget(const screen::Field& field) const;
    QTableView& view(const screen::Grid& grid) const;
    void enter(screen::Field& field) const;
    void clickCell(const screen::Grid& grid, int row, int column, bool atButton = false) const;

    qt::Shell* shell_ = nullptr;
};

}  // namespace zelvo::stage
