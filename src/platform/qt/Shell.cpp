#include "platform/qt/Shell.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QTableView>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>

#include "platform/qt/Composition.h"
#include "platform/qt/Deaf.h"
#include "platform/qt/Forms.h"
#include "platform/qt/Owned.h"
#include "platform/qt/Texts.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Twips.h"
#include "screen/Window.h"

namespace zelvo::qt {

namespace {

/// What a title bar takes of the screen's height; the system tells it only once a window stands.
constexpr int titleBar = 32;
/// A note opens inside its panel: beside its edge, below its heading (twips).
constexpr double noteLeft = 150, noteTop = 650;

constexpr std::string_view sizeName = "size";

/// For a telephone call with those who help: it can be read out, or copied.
void showSupportRecord(screen::Desktop& desktop) {
    const std::string lines = desktop.support().lastLines();
    desktop.inform(lines.empty() ? "기록된 내용이 없습니다." : lines, "지원 기록");
}

}  // namespace

QScreen& screenInFront() {
    const QWidget* const front = QApplication::activeWindow();
    return *(front ? front->screen() : QGuiApplication::primaryScreen());
}

Shell::Shell(screen::Window& window, Shell* over)
    : QWidget(over, over ? Qt::Dialog : Qt::Window),
      readers_(over ? nullptr : std::make_unique<Readers>()),
      menuLetters_(over ? nullptr : std::make_unique<MenuLetters>()),
      window_(window),
      over_(over),
      scroll_(owned<QScrollArea>(this)) {
    setObjectName(qtText(window.name()));
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowModality(Qt::ApplicationModal);
    setLocale(QLocale(QLocale::Korean));
    auto& layout = owned<QVBoxLayout>(this);
    layout.setContentsMargins(0, 0, 0, 0);
    layout.addWidget(&scroll_);
    scroll_.setFrameShape(QFrame::NoFrame);
    scroll_.setWidgetResizable(true);
    scroll_.setFocusPolicy(Qt::NoFocus);

    giveColours(*this);
    auto form = makeForm(window.name(), giveColours);
    binder_ = std::make_unique<Binder>(window, *form);
    scroll_.setWidget(form.release());
    dress(*this);
    zoomed_ = std::make_unique<ZoomedForm>(*this);
    zoom();
    whenZoomed_ = window.desktop().zoom().onChange.listen([this] {
        zoom();
        tellPlaces();
    });

    setWindowTitle(qtText(window.caption()));
    whenTouched_ = window.onTouched.listen([this](const screen::Field* field) {
        if (!field) setWindowTitle(qtText(window_.caption()));
    });
    auto& support = owned<QShortcut>(QKeySequence(Qt::Key_F12), this);
    connect(&support, &QShortcut::activated, this, [this] { showSupportRecord(window_.desktop()); });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (!now || !scroll_.isAncestorOf(now)) return;
        for (QWidget* at = now->parentWidget(); at != this; at = at->parentWidget())
            if (auto* area = qobject_cast<QScrollArea*>(at)) area->ensureWidgetVisible(now, 8, 8);
    });
}

Shell::~Shell() = default;

void Shell::open() {
    const QRect room = (over_ ? *over_->screen() : screenInFront()).availableGeometry();
    const QSize designed(pixels(*this, window_.width()), pixels(*this, window_.height()));
    const screen::WindowExtent most{twips(*this, room.width()), twips(*this, room.height() - titleBar)};
    const screen::WindowExtent wanted = screen::times(
        screen::openingExtent(window_.desktop().remembered().text(window_.rememberedName(sizeName)),
                              {window_.width(), window_.height()}, screen::times(most, 1 / sizeZoom())),
        sizeZoom());
    const QSize size(pixels(*this, wanted.width), pixels(*this, wanted.height));
    QPoint corner = wantedCorner(over_);
    // The first window was put in the middle as it was designed.
    if (!over_) corner += QPoint(designed.width() - size.width(), designed.height() - size.height()) / 2;
    move(std::clamp(corner.x(), room.left(), std::max(room.left(), room.right() + 1 - size.width())),
         std::clamp(corner.y(), room.top(),
                    std::max(room.top(), room.bottom() + 1 - titleBar - size.height())));
    resize(size);
    if (wanted.maximized) setWindowState(Qt::WindowMaximized);
    told_ = size;
    show();
    if (size != designed) window_.userResize(wanted.width, wanted.height);
    opened_ = extent();
    activateWindow();
    tellPlaces();
    binder_->flush();
    dropWhatCameBefore(*this);
}

/// A window over another is kept as large as it would be at 100 %, and grows with its letters; the first one
/// scrolls.
double Shell::sizeZoom() const {
    return over_ ? zoomOf(*this) : 1;
}

/// As it stands beside being maximized.
screen::WindowExtent Shell::extent() const {
    const QSize size = normalGeometry().isValid() ? normalGeometry().size() : this->size();
    return {twips(*this, size.width()), twips(*this, size.height()), isMaximized()};
}

void Shell::putAway() {
    const screen::WindowExtent left = extent();
    if (left != opened_) {
        window_.desktop().remembered().keep(window_.rememberedName(sizeName),
                                            screen::textOf(screen::times(left, 1 / sizeZoom())));
    }
    hide();
}

/// Under the cell or over the panel that the window opens at, else where its caller put it, which for the
/// first window means a place on the screen in front.
QPoint Shell::wantedCorner(const Shell* over) const {
    const screen::Field* const at = window_.openedAt;
    const QWidget* const widget = over && at ? over->binder().widgetOf(*at) : nullptr;
    if (const auto* grid = qobject_cast<const QTableView*>(widget)) {
        const QRect cell = grid->visualRect(grid->currentIndex());
        return grid->viewport()->mapToGlobal(cell.isValid() ? cell.bottomLeft() + QPoint(0, 2)
                                                            : QPoint(0, 0));
    }
    if (widget) return widget->mapToGlobal(QPoint(pixels(*this, noteLeft), pixels(*this, noteTop)));
    const QPoint corner(pixels(*this, window_.left), pixels(*this, window_.top));
    if (!over) return screenInFront().geometry().topLeft() + corner;
    // What the zoom makes of it grows about its middle.
    const double grown = (zoomOf(*this) - 1) / 2;
    return corner -
           (QPointF(pixels(*this, window_.width()), pixels(*this, window_.height())) * grown).toPoint();
}

void Shell::zoom() {
    zoomed_->zoomTo(window_.desktop().zoom().percent() / 100.0);
}

void Shell::tellPlaces() {
    window_.left = twips(*this, x());
    window_.top = twips(*this, y());
    binder_->tellPlaces();
}

void Shell::closeEvent(QCloseEvent* event) {
    event->ignore();
    Composition::current().end();
    window_.userClose();
}

void Shell::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (event->size() == told_ || !isVisible()) return;
    told_ = event->size();
    window_.userResize(twips(*this, width()), twips(*this, height()));
    tellPlaces();
}

void Shell::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (isVisible()) tellPlaces();
}

void Shell::wheelEvent(QWheelEvent* event) {
    binder_->turnsZoom(*event);
}

void Shell::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && binder_) binder_->flush();
}

}  // namespace zelvo::qt
