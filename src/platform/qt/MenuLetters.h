#pragma once

#include <QtCore/QObject>

namespace zelvo::qt {

/// While it lives, the menus that the toolkit opens in our windows have the windows' letters, zoomed as they
/// are; left alone, a menu takes its letters from the program.
class MenuLetters : public QObject {
    Q_OBJECT

public:
    MenuLetters();

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace zelvo::qt
