#include "platform/qt/BoxDialog.h"

#include <QtGui/QClipboard>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>

#include "platform/qt/Owned.h"
#include "platform/qt/Texts.h"
#include "platform/qt/Theme.h"

namespace zelvo::qt {

using screen::Answer;

namespace {

/// Above these a text has to be scrolled.
constexpr qsizetype mostCharacters = 900, mostLines = 18;
/// Nobody reads more in a box.
constexpr qsizetype mostShown = 4000;
constexpr int iconSize = 40, textWidth = 420;

QStyle::StandardPixmap pictureOf(screen::BoxIcon icon) {
    switch (icon) {
        case screen::BoxIcon::Critical:
            return QStyle::SP_MessageBoxCritical;
        case screen::BoxIcon::Question:
            return QStyle::SP_MessageBoxQuestion;
        case screen::BoxIcon::Information:
            break;
    }
    return QStyle::SP_MessageBoxInformation;
}

/// What a picture says, for those who don't see it.
QString nameOf(screen::BoxIcon icon) {
    switch (icon) {
        case screen::BoxIcon::Critical:
            return QStringLiteral("오류");
        case screen::BoxIcon::Question:
            return QStringLiteral("질문");
        case screen::BoxIcon::Information:
            break;
    }
    return QStringLiteral("알림");
}

/// The beginning of a text without end, and where the rest is.
QString shownPart(const QString& text) {
    if (text.size() <= mostShown) return text;
    const qsizetype end = text.at(mostShown).isLowSurrogate() ? mostShown - 1 : mostShown;
    return text.left(end) + QStringLiteral(
                                "…\n\n(전체 %L1자 중 앞부분만 표시합니다. "
                                "Ctrl+C를 누르면 전체가 복사됩니다.)")
                                .arg(charactersIn(text, text.size()));
}

}  // namespace

BoxDialog::BoxDialog(const screen::MessageBox& box, QWidget* over)
    : QDialog(over),
      text_(qtText(box.text)),
      asks_(box.buttons == screen::BoxButtons::YesNo),
      answer_(asks_ ? Answer::No : Answer::Ok) {
    setObjectName(QStringLiteral("messageBox"));
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(qtText(box.caption));
    setAccessibleDescription(text_);
    giveColours(*this);

    auto& icon = owned<QLabel>(this);
    icon.setAccessibleName(nameOf(box.icon));
    icon.setPixmap(style()->standardIcon(pictureOf(box.icon)).pixmap(iconSize, iconSize));
    auto& message = owned<QHBoxLayout>();
    message.setSpacing(16);
    message.addWidget(&icon, 0, Qt::AlignTop);
    message.addWidget(&textWidget(shownPart(text_)), 1);

    auto& row = owned<QHBoxLayout>();
    row.setSpacing(8);
    row.addStretch();
    if (asks_) {
        addButton(row, QStringLiteral("예(&Y)"), Answer::Yes, box.defaultAnswer);
        addButton(row, QStringLiteral("아니오(&N)"), Answer::No, box.defaultAnswer);
    } else {
        addButton(row, QStringLiteral("확인"), Answer::Ok, Answer::Ok);
    }
    auto& layout = owned<QVBoxLayout>(this);
    layout.setContentsMargins(20, 20, 20, 16);
    layout.setSpacing(16);
    layout.addLayout(&message);
    layout.addLayout(&row);
    dress(*this);
    zoomed_.zoomTo(over ? zoomOf(*over) : 1);
}

QWidget& BoxDialog::textWidget(const QString& text) {
    if (text.size() > mostCharacters || text.count(QLatin1Char('\n')) > mostLines) {
        auto& page = owned<QPlainTextEdit>(text, this);
        page.setReadOnly(true);
        page.setObjectName(QStringLiteral("text"));
        page.setAccessibleName(windowTitle());
        page.setMinimumSize(2 * textWidth, textWidth);
        page.setFocusPolicy(Qt::ClickFocus);
        return page;
    }
    auto& label = owned<QLabel>(this);
    label.setTextFormat(Qt::PlainText);
    label.setText(text);
    label.setObjectName(QStringLiteral("text"));
    label.setTextInteractionFlags(Qt::TextSelectableByMouse);
    label.setWordWrap(label.sizeHint().width() > textWidth);
    if (label.wordWrap()) label.setMinimumWidth(textWidth);
    return label;
}

/// As in the windows: what is agreed to stands first, what Enter gives in the accent colour.
void BoxDialog::addButton(QHBoxLayout& row, const QString& caption, Answer answer, Answer defaultAnswer) {
    auto& button = owned<QPushButton>(caption, this);
    row.addWidget(&button);
    button.setProperty("answer", static_cast<int>(answer));
    button.setProperty("primary", answer == defaultAnswer);
    button.installEventFilter(this);
    button.setAutoDefault(true);
    button.setDefault(answer == defaultAnswer);
    if (answer == defaultAnswer) button.setFocus();
    connect(&button, &QPushButton::clicked, this, [this, answer] { give(answer); });
}

void BoxDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    stood_.start();
}

void BoxDialog::give(Answer answer) {
    answer_ = answer;
    done(static_cast<int>(answer));
}

void BoxDialog::done(int result) {
    emit leaving();
    QDialog::done(result);
}

/// A key that is still held from before the box answers nothing, nor does the rest of a double click that
/// brought it up.
bool BoxDialog::eventFilter(QObject*, QEvent* event) {
    const bool pressed =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (pressed && event->spontaneous() && stood_.elapsed() < QApplication::doubleClickInterval())
        return true;
    return event->type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(*event).isAutoRepeat();
}

void BoxDialog::keyPressEvent(QKeyEvent* event) {
    if (event->isAutoRepeat()) return;
    if (event->matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(text_);
        return;
    }
    if (asks_ && event->key() == Qt::Key_Y) return give(Answer::Yes);
    if (asks_ && event->key() == Qt::Key_N) return give(Answer::No);
    QDialog::keyPressEvent(event);
}

}  // namespace zelvo::qt
