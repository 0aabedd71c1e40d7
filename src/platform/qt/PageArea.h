#pragma once

#include <QtWidgets/QScrollArea>

namespace zelvo::qt {

/// Holds a page of the main window. The page gets the room that there is, down to the least that it can do
/// with; only in less than that it scrolls.
class PageArea : public QScrollArea {
    Q_OBJECT

public:
    /// Takes the page over.
    PageArea(QWidget& page, QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();
};

}  // namespace zelvo::qt
