#include "platform/qt/Theme.h"

#include <QtGui/QFontDatabase>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTabBar>
#include <algorithm>

#include "platform/qt/ClinicStyle.h"
#include "platform/qt/Contrast.h"
#include "platform/qt/FocusRing.h"
#include "platform/qt/Owned.h"

namespace zelvo::qt {

namespace {

constexpr double leastPoints = 9.5;

QFont clinicFont(const QFont& platform) {
    QFont font = platform;
    for (const char* const preferred : {"NanumGothic", "Malgun Gothic"}) {
        const QString family = QLatin1String(preferred);
        if (!QFontDatabase::hasFamily(family)) continue;
        font.setFamilies({family});
        break;
    }
    if (font.pointSizeF() > 0) font.setPointSizeF(std::max(font.pointSizeF(), leastPoints));
    return font;
}

/// The platform's colours, made readable where they are not.
QPalette clinicPalette(QPalette palette) {
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor ground = palette.color(QPalette::Active, QPalette::Window);
    const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
    const QColor onAccent = palette.color(QPalette::Active, QPalette::HighlightedText);
    palette.setColor(QPalette::Active, QPalette::Highlight, readableOn(onAccent, accent));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, readableOn(onAccent, accent));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, onAccent);
    palette.setColor(QPalette::PlaceholderText, blended(text, ground, 0.65));
    const QColor dim = blended(text, ground, 0.55);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, dim);
    return palette;
}

void makeBold(QWidget& widget) {
    QFont bold;
    bold.setBold(true);
    widget.setFont(bold);
}

/// As easy to read while nothing in it can be changed; a long text then stands on its panel's ground.
void makeReadable(QWidget& widget) {
    QPalette own;
    const QColor text = blended(widget.palette().color(QPalette::Active, QPalette::WindowText),
                                widget.palette().color(QPalette::Active, QPalette::Window), 0.8);
    for (const auto role : {QPalette::WindowText, QPalette::Text})
        own.setColor(QPalette::Disabled, role, text);
    own.setColor(QPalette::Disabled, QPalette::Base, Qt::transparent);
    widget.setPalette(own);
}

/// What is read rather than filled in: no box of its own.
void makeRecord(QWidget& widget) {
    if (auto* area = qobject_cast<QAbstractScrollArea*>(&widget))
        area->viewport()->setAutoFillBackground(false);
    makeReadable(widget);
}

void dressWidget(QWidget& widget, QStyle& style) {
    widget.setStyle(&style);
    if (widget.property("keepsRoom").toBool()) {
        QSizePolicy policy = widget.sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        widget.setSizePolicy(policy);
    }
    const auto* tabs = qobject_cast<const QTabBar*>(&widget);
    if (widget.property("primary").toBool() || (tabs && tabs->count() == 1)) makeBold(widget);
    if (qobject_cast<const QPlainTextEdit*>(&widget)) makeReadable(widget);
    if (widget.property("record").toBool()) makeRecord(widget);
    if (widget.property("quiet").toBool() && widget.inherits("QLabel"))
        widget.setForegroundRole(QPalette::PlaceholderText);
}

}  // namespace

void giveColours(QWidget& widget) {
    widget.setFont(clinicFont(widget.font()));
    widget.setPalette(clinicPalette(widget.palette()));
}

void dress(QWidget& topLevel) {
    auto& style = owned<ClinicStyle>();
    style.setParent(&topLevel);
    dressWidget(topLevel, style);
    for (QWidget* widget : topLevel.findChildren<QWidget*>()) dressWidget(*widget, style);
    owned<FocusRing>(topLevel).raise();
}

bool koreanFontInstalled() {
    return !QFontDatabase::families(QFontDatabase::Korean).isEmpty();
}

}  // namespace zelvo::qt
