#pragma once

#include <memory>

class QWidget;

namespace zelvo::qt {

/// A length that was designed for 100 %, as the window of a widget is zoomed.
int zoomed(const QWidget& widget, int pixels);
/// What its window is zoomed by.
double zoomOf(const QWidget& widget);

/// A window as large as its user reads it: letters, and with them every measure that its form was designed
/// with.
class ZoomedForm {
public:
    /// The window has to be dressed by then.
    explicit ZoomedForm(QWidget& window);
    ~ZoomedForm();
    ZoomedForm(const ZoomedForm&) = delete;
    ZoomedForm& operator=(const ZoomedForm&) = delete;

    /// 1 is the size that it was designed for.
    void zoomTo(double factor);

private:
    struct Design;

    void zoomTexts();
    void zoomGaps();

    QWidget& window_;
    double factor_ = 1;
    std::unique_ptr<Design> design_;  ///< as it was before the first change
};

}  // namespace zelvo::qt
