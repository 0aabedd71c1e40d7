#include "platform/qt/Readers.h"

#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QComboBox>

#include "platform/qt/Forms.h"
#include "platform/qt/GridView.h"
#include "platform/qt/Owned.h"
#include "platform/qt/Shell.h"
#include "platform/qt/TableReader.h"
#include "screen/Key.h"

namespace zelvo::qt {

namespace {

/// A dot in a window's corner that bears the words which were said last.
class Voice : public QWidget {
    Q_OBJECT

public:
    explicit Voice(QWidget& window) : QWidget(&window) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFixedSize(1, 1);
        show();
    }
};

/// A widget under another role than the toolkit would give it.
class RoleReader : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;
};

/// A list to choose from: named by its label, its entry is its value.
class ComboReader : public QAccessibleWidget {
public:
    explicit ComboReader(QComboBox& combo)
        : QAccessibleWidget(&combo, QAccessible::ComboBox), combo_(combo) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value) return combo_.currentText();
        return QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.hasPopup = true;
        return state;
    }
    QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action != pressAction()) return QAccessibleWidget::doAction(action);
        if (combo_.isEnabled()) combo_.showPopup();
    }

private:
    QComboBox& combo_;
};

/// Whether a widget stands in a window of ours, or in a form that waits for its window.
bool isOurs(const QWidget& widget) {
    const QWidget* const top = widget.window();
    return qobject_cast<const Shell*>(top) || top->property(formMark).toBool();
}

QAccessibleInterface* readerOf(const QString&, QObject* object) {
    auto* const widget = qobject_cast<QWidget*>(object);
    if (!widget || !isOurs(*widget)) return nullptr;
    if (auto* shell = qobject_cast<Shell*>(widget))
        return &owned<RoleReader>(shell, shell->parentWidget() ? QAccessible::Dialog : QAccessible::Window);
    if (auto* table = qobject_cast<GridView*>(widget)) return &owned<TableReader>(*table);
    if (auto* combo = qobject_cast<QComboBox*>(widget)) return &owned<ComboReader>(*combo);
    if (qobject_cast<Voice*>(widget)) return &owned<RoleReader>(widget, QAccessible::AlertMessage);
    return nullptr;
}

}  // namespace

Readers::Readers() {
    QAccessible::installFactory(readerOf);
}

Readers::~Readers() {
    QAccessible::removeFactory(readerOf);
}

void speak(const QWidget& within, const QString& text) {
    QWidget& window = *within.window();
    if (text.isEmpty() || !window.isVisible()) return;
    auto* voice = window.findChild<Voice*>(QString(), Qt::FindDirectChildrenOnly);
    if (!voice) voice = &owned<Voice>(window);
    voice->setAccessibleName(text);
    // One of the two is what a system listens to.
    for (const QAccessible::Event kind : {QAccessible::ObjectShow, QAccessible::Alert}) {
        QAccessibleEvent event(voice, kind);
        QAccessible::updateAccessibility(&event);
    }
}

void speakRefusal(const QWidget& within, const screen::Key& key) {
    const auto character = static_cast<char32_t>(key.character);
    speak(within, QStringLiteral("'%1'은(는) 입력할 수 없습니다.").arg(QString::fromUcs4(&character, 1)));
}

}  // namespace zelvo::qt

#include "Readers.moc"
