#include "platform/qt/Glass.h"

#include <QtCore/QDateTime>
#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>
#include <initializer_list>

#include "platform/qt/FramePanel.h"
#include "platform/qt/Owned.h"
#include "platform/qt/Readers.h"

namespace zelvo::qt {

namespace {

using namespace std::chrono_literals;

/// A wait shorter than this is none for the eye.
constexpr auto unseen = 500ms;
constexpr int veil = 150;

}  // namespace

Glass::Glass(const QString& what, QWidget* over, std::chrono::steady_clock::time_point since)
    : QWidget(over, over ? Qt::Widget : Qt::Dialog), over_(over), since_(since) {
    setObjectName(QStringLiteral("glass"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setAccessibleName(what);
    setWindowTitle(QStringLiteral("ZELVO"));
    hide();
    const auto waited =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - since_);
    clock_ = QDateTime::currentDateTime().addMSecs(-waited.count()).toString(QStringLiteral("HH:mm:ss"));

    auto& words = owned<QLabel>(what);
    QFont bold = font();
    bold.setBold(true);
    words.setFont(bold);
    time_ = &owned<QLabel>();
    cancel_ = &owned<QPushButton>(QStringLiteral("취소"));
    cancel_->setFocusPolicy(Qt::NoFocus);
    setFocusPolicy(Qt::StrongFocus);
    connect(cancel_, &QPushButton::clicked, this, &Glass::giveUp);
    auto& card = owned<FramePanel>();
    card.setFramed(true);
    card.setBackColor(palette().color(QPalette::Base));
    auto& middle = owned<QGridLayout>(this);
    middle.addWidget(&card, 0, 0, Qt::AlignCenter);
    auto& column = owned<QVBoxLayout>(&card);
    column.setContentsMargins(28, 20, 28, 20);
    column.setSpacing(12);
    for (QWidget* part : std::initializer_list<QWidget*>{&words, time_, cancel_})
        column.addWidget(part, 0, Qt::AlignCenter);

    if (over_) {
        cancel_->setStyle(over_->style());
        over_->installEventFilter(this);
    }
    connect(&second_, &QTimer::timeout, this, [this] {
        if (!isVisible()) appear();
        tellTime();
    });
    second_.start(std::max(0ms, unseen - waited));
}

Glass::~Glass() {
    if (isVisible()) emit leaving();
}

void Glass::appear() {
    second_.start(1s);
    if (over_) setGeometry(over_->rect());
    emit appearing(this);
    show();
    raise();
    emit appeared(this);
    setFocus();
    speak(*this, accessibleName());
}

void Glass::tellTime() {
    const auto waited =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - since_);
    time_->setText(QStringLiteral("%1부터 %2초째 기다리고 있습니다.").arg(clock_).arg(waited.count()));
}

void Glass::giveUp() {
    if (givenUp_) return;
    givenUp_ = true;
    cancel_->setText(QStringLiteral("취소하는 중입니다."));
    cancel_->setEnabled(false);
    emit givenUp();
}

bool Glass::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize) setGeometry(over_->rect());
    return false;
}

/// Its user can't close it; the system does, with the window that it belongs to.
void Glass::closeEvent(QCloseEvent* event) {
    giveUp();
    second_.stop();
    QWidget::closeEvent(event);
}

void Glass::paintEvent(QPaintEvent*) {
    QColor ground = palette().color(QPalette::Window);
    if (over_) ground.setAlpha(veil);
    QPainter(this).fillRect(rect(), ground);
}

/// A blank or Enter that was typed on gives nothing up.
bool Glass::Hearing::passes(QWidget& target, QEvent& event) {
    const bool ours = &target == &glass_ || glass_.isAncestorOf(&target);
    if (event.type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(event);
        if (key.key() == Qt::Key_Escape && !key.isAutoRepeat()) glass_.giveUp();
        return false;
    }
    return ours && event.type() != QEvent::Close;
}

}  // namespace zelvo::qt
