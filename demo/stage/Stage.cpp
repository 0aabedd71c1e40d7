#include "Stage.h"

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QPushButton>
#include <iomanip>
#include <sstream>

#include "basics/Fault.h"
#include "platform/qt/BoxDialog.h"
#include "platform/qt/SheetBar.h"
#include "platform/qt/SheetPaper.h"
#include "platform/qt/Texts.h"

namespace zelvo::stage {

namespace {

constexpr double twipsPerInch = 1440;

void settle() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

}  // namespace

Stage::Stage(console::ConsoleParts parts, std::string pictures)
    : ConsoleDesktop(std::move(parts)), pictures_(std::move(pictures)) {}

void Stage::runModal(screen::Window& window) {
    qt::Shell shell(window, shells_.empty() ? nullptr : shells_.back());
    shells_.push_back(&shell);
    user_.sitBefore(&shell);
    shell.open();
    settle();
    keepPicture(shell, window.name());
    ConsoleDesktop::runModal(window);
    keepTestPrint(shell);
    shells_.pop_back();
    shell.putAway();
    user_.sitBefore(shells_.empty() ? nullptr : shells_.back());
    if (shells_.empty()) return;
    shells_.back()->activateWindow();
    settle();
}

/// The box comes up and its button is clicked, by a user who knows the answer beforehand.
screen::Answer Stage::messageBox(const screen::MessageBox& box) {
    const screen::Answer wanted = answered(box);
    qt::BoxDialog dialog(box, shells_.empty() ? nullptr : shells_.back());
    dialog.show();
    settle();
    keepPicture(dialog, "box");
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
        if (button->property("answer").toInt() == static_cast<int>(wanted)) WidgetUser::click(*button);
    }
    if (dialog.isVisible() || dialog.answer() != wanted)
        throw basics::Fault("the box \"" + box.caption + "\" could not be answered");
    if (!shells_.empty()) shells_.back()->activateWindow();
    settle();
    return wanted;
}

void Stage::setPointer(screen::Pointer pointer) {
    ConsoleDesktop::setPointer(pointer);
    settle();
}

void Stage::processEvents(bool userInput) {
    ConsoleDesktop::processEvents(userInput);
    QCoreApplication::processEvents(userInput ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
}

double Stage::screenWidth() const {
    return QGuiApplication::primaryScreen()->size().width() * twipsPerInch /
           QGuiApplication::primaryScreen()->logicalDotsPerInchX();
}

double Stage::screenHeight() const {
    return QGuiApplication::primaryScreen()->size().height() * twipsPerInch /
           QGuiApplication::primaryScreen()->logicalDotsPerInchY();
}

void Stage::await(std::chrono::milliseconds atMost) {
    QTimer wake;
    wake.setSingleShot(true);
    wake.start(atMost);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void Stage::commandDone() {
    settle();
    if (!shells_.empty()) keepPicture(*shells_.back(), "step");
}

void Stage::keepPicture(QWidget& shown, const std::string& name) {
    if (!pictures_.empty()) keepPicture(shown.grab().toImage(), name);
}

void Stage::keepPicture(const QImage& picture, const std::string& name) {
    std::ostringstream path;
    path << pictures_ << "/" << std::setw(3) << std::setfill('0') << ++kept_ << "-" << name << ".png";
    if (!picture.save(qt::qtText(path.str()))) throw basics::Fault("can't write " + path.str());
}

/// The pages of a sheet as they would be printed when its editor was left.
void Stage::keepTestPrint(const qt::Shell& editor) {
    constexpr int dots = 100;
    const auto* bar = editor.findChild<qt::SheetBar*>();
    const auto paper = bar && !pictures_.empty() ? bar->paper() : nullptr;
    if (!paper) return;
    for (const QImage& page : paper->pictures(dots)) keepPicture(page, "print");
}

}  // namespace zelvo::stage
