#include "platform/qt/Mirrors.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDateEdit>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTextBrowser>
#include <QtWidgets/QTextEdit>
#include <utility>

#include "basics/Fault.h"
#include "platform/qt/Contrast.h"
#include "platform/qt/FramePanel.h"
#include "platform/qt/GridView.h"
#include "platform/qt/LongTextMirror.h"
#include "platform/qt/Readers.h"
#include "platform/qt/RichMirror.h"
#include "platform/qt/TextMirror.h"
#include "platform/qt/Texts.h"
#include "platform/qt/WebMirror.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "screen/TextField.h"

namespace zelvo::qt {

namespace {

class LabelMirror : public Mirror {
public:
    LabelMirror(screen::Label& field, QLabel& label) : Mirror(field, label), field_(field), label_(label) {
        label.setTextFormat(Qt::PlainText);
    }

private:
    void draw() override {
        label_.setText(qtText(field_.caption()));
        if (!label_.property("spoken").toBool()) return;
        const QString now = field_.visible() ? label_.text() : QString();
        if (now != std::exchange(spoken_, now)) speak(label_, now);
    }

    screen::Label& field_;
    QLabel& label_;
    QString spoken_;
};

class ButtonMirror : public Mirror {
public:
    ButtonMirror(screen::Button& field, QPushButton& button)
        : Mirror(field, button), field_(field), button_(button) {
        button.setAutoDefault(false);
        connect(&button, &QPushButton::clicked, this, [this] { userDoes([this] { field_.userPress(); }); });
    }

private:
    void draw() override {
        button_.setText(plainCaption(field_.caption()));
        const screen::Color& color = field_.textColor();
        if (color == shown_) return;
        shown_ = color;
        QPalette own;
        if (color != screen::Color{}) {
            const QColor ground = button_.palette().color(QPalette::Window);
            own.setColor(QPalette::ButtonText,
                         readableOn(ground, QColor(color.red, color.green, color.blue)));
        }
        button_.setPalette(own);
    }

    screen::Button& field_;
    QPushButton& button_;
    screen::Color shown_;
};

class TwoStateMirror : public Mirror {
public:
    TwoStateMirror(screen::TwoStateButton& field, QPushButton& button)
        : Mirror(field, button), field_(field), button_(button) {
        button.setAutoDefault(false);
        connect(&button, &QPushButton::clicked, this, [this] { userDoes([this] { field_.userPress(); }); });
    }

private:
    void draw() override {
        button_.setText(plainCaption(field_.caption()));
        button_.setDown(field_.value());
    }

    screen::TwoStateButton& field_;
    QPushButton& button_;
};

/// A check or option button. What the widget has turned by itself is turned back where the field did not
/// follow.
template <class FieldKind, class Widget>
class MarkMirror : public Mirror {
public:
    MarkMirror(FieldKind& field, Widget& widget) : Mirror(field, widget), field_(field), widget_(widget) {
        widget.setAutoExclusive(false);
        connect(&widget, &Widget::clicked, this, [this] {
            userDoes([this] { field_.userClick(); });
            show();
        });
    }

private:
    void draw() override {
        widget_.setText(plainCaption(field_.caption()));
        widget_.setChecked(field_.value());
    }

    FieldKind& field_;
    Widget& widget_;
};

class ComboMirror : public Mirror {
public:
    ComboMirror(screen::ComboList& field, QComboBox& combo)
        : Mirror(field, combo), field_(field), combo_(combo) {
        connect(&combo, &QComboBox::activated, this, [this](int index) {
            userDoes([this, index] { field_.userSelect(index); });
            show();
        });
    }
    /// Letters look an entry up, a blank opens the list.
    bool ownKey(const QKeyEvent& key) const override {
        return !key.text().isEmpty() && key.text().at(0) >= u' ';
    }

private:
    void draw() override {
        bool same = combo_.count() == field_.entryCount();
        for (int i = 0; same && i < combo_.count(); ++i) same = combo_.itemText(i) == qtText(field_.entry(i));
        if (!same) {
            combo_.clear();
            for (int i = 0; i < field_.entryCount(); ++i) combo_.addItem(qtText(field_.entry(i)));
        }
        combo_.setCurrentIndex(field_.selectedIndex());
    }

    screen::ComboList& field_;
    QComboBox& combo_;
};

class ListMirror : public Mirror {
public:
    ListMirror(screen::ItemList& field, QListWidget& list) : Mirror(field, list), field_(field), list_(list) {
        connect(&list, &QListWidget::itemClicked, this, [this](const QListWidgetItem* item) {
            userDoes([this, row = list_.row(item)] { field_.userClick(row); });
            show();
        });
    }

private:
    void draw() override {
        while (list_.count() > field_.itemCount())
            std::unique_ptr<QListWidgetItem>(list_.takeItem(list_.count() - 1)).reset();
        while (list_.count() < field_.itemCount()) list_.addItem(QString());
        const bool marked = !list_.property("noMarks").toBool();
        for (int row = 0; row < field_.itemCount(); ++row) {
            QListWidgetItem* item = list_.item(row);
            item->setText(qtText(field_.item(row)));
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            if (marked) item->setCheckState(field_.itemChecked(row) ? Qt::Checked : Qt::Unchecked);
        }
        list_.setCurrentRow(field_.selectedIndex());
    }

    screen::ItemList& field_;
    QListWidget& list_;
};

class PanelMirror : public Mirror {
public:
    PanelMirror(screen::Panel& field, FramePanel& panel)
        : Mirror(field, panel), field_(field), panel_(panel) {}

private:
    void draw() override {
        const bool named = !panel_.property("noCaption").toBool();
        panel_.setCaption(named ? qtText(field_.caption()).trimmed() : QString());
        const screen::Color& color = field_.backColor();
        if (color == screen::Color{240, 240, 240}) {
            panel_.setBackColor(std::nullopt);
        } else {
            panel_.setBackColor(QColor(color.red, color.green, color.blue));
        }
    }

    screen::Panel& field_;
    FramePanel& panel_;
};

class TabsMirror : public Mirror {
public:
    TabsMirror(screen::TabControl& field, QTabWidget& tabs)
        : Mirror(field, tabs), field_(field), tabs_(tabs) {
        tabs.tabBar()->installEventFilter(this);
        if (tabs.count() != field.pageCount())
            throw basics::Fault(field.name() + ": the form has another number of pages");
        connect(tabs.tabBar(), &QTabBar::tabBarClicked, this, [this](int page) {
            if (page < 0) return;
            userDoes([this, page] { static_cast<void>(field_.userClick(page)); });
        });
        // The bar turns the page by itself; the field says whether it stays.
        connect(&tabs, &QTabWidget::currentChanged, this, [this](int page) {
            if (!drawing() && page != field_.current()) show();
        });
    }

    /// Only the left button turns a page.
    bool eventFilter(QObject*, QEvent* event) override {
        return event->type() == QEvent::MouseButtonPress &&
               static_cast<const QMouseEvent&>(*event).button() != Qt::LeftButton;
    }

private:
    void draw() override {
        // On the bar alone: the pages have tips of their own.
        tabs_.setToolTip(QString());
        tabs_.tabBar()->setToolTip(tip());
        for (int page = 0; page < field_.pageCount(); ++page) {
            tabs_.setTabText(page, plainCaption(field_.pageCaption(page)).trimmed());
            tabs_.setTabEnabled(page, field_.selectable(page));
        }
        tabs_.setCurrentIndex(field_.current());
    }

    screen::TabControl& field_;
    QTabWidget& tabs_;
};

class StatusMirror : public Mirror {
public:
    StatusMirror(screen::StatusBar& field, QWidget& bar) : Mirror(field, bar), field_(field) {
        for (std::size_t i = 0; i < panels_.size(); ++i) {
            const QString name = qtText(field.name()) + QLatin1Char('_') + QString::number(i + 1);
            panels_[i] = bar.findChild<QLabel*>(name);
            if (!panels_[i]) throw basics::Fault(field.name() + ": the form lacks " + utf8(name));
            panels_[i]->setTextFormat(Qt::PlainText);
        }
    }

private:
    void draw() override {
        for (std::size_t i = 0; i < panels_.size(); ++i)
            panels_[i]->setText(qtText(field_.panel(static_cast<int>(i) + 1)));
    }

    screen::StatusBar& field_;
    std::array<QLabel*, 3> panels_{};
};

class DateMirror : public Mirror {
public:
    DateMirror(screen::DateField& field, QDateEdit& edit) : Mirror(field, edit), field_(field), edit_(edit) {
        connect(&edit, &QDateEdit::dateChanged, this, [this](QDate date) {
            if (drawing()) return;
            userDoes([&] { field_.userSetValue({date.year(), date.month(), date.day()}); });
            show();
        });
    }
    bool ownKey(const QKeyEvent& key) const override {
        switch (key.key()) {
            case Qt::Key_Return:
            case Qt::Key_Enter:
            case Qt::Key_Escape:
                return false;
            default:
                return true;
        }
    }

private:
    void draw() override {
        const basics::Date& date = field_.value();
        edit_.setDate(QDate(date.year, date.month, date.day));
    }

    screen::DateField& field_;
    QDateEdit& edit_;
};

class GridMirror : public Mirror {
public:
    GridMirror(screen::Grid& field, GridView& view) : Mirror(field, view), view_(view) { view.hangOn(field); }
    bool ownKey(const QKeyEvent&) const override { return true; }

private:
    void draw() override { view_.showGrid(); }

    GridView& view_;
};

class PictureMirror : public Mirror {
public:
    using Mirror::Mirror;

private:
    void draw() override {}
};

template <class Widget>
Widget& as(const screen::Field& field, QWidget& widget) {
    auto* fitting = qobject_cast<Widget*>(&widget);
    if (!fitting) throw basics::Fault(field.name() + ": the form has a " + widget.metaObject()->className());
    return *fitting;
}

std::unique_ptr<Mirror> makeText(screen::EditField& field, QWidget& widget) {
    if (field.multiLine()) return std::make_unique<LongTextMirror>(field, as<QPlainTextEdit>(field, widget));
    return std::make_unique<LineMirror>(field, as<QLineEdit>(field, widget));
}

/// Memos and notes are stored as plain text: their editors take nothing else.
std::unique_ptr<Mirror> makeRich(screen::RichTextField& field, QWidget& widget) {
    if (auto* plain = qobject_cast<QPlainTextEdit*>(&widget))
        return std::make_unique<LongTextMirror>(field, *plain);
    return std::make_unique<RichMirror>(field, as<QTextEdit>(field, widget));
}

}  // namespace

std::unique_ptr<Mirror> makeMirror(screen::Field& field, QWidget& widget) {
    using screen::FieldKind;
    const auto make = [&]<class Made, class Kind, class Widget>() -> std::unique_ptr<Mirror> {
        return std::make_unique<Made>(static_cast<Kind&>(field), as<Widget>(field, widget));
    };
    switch (field.kind()) {
        case FieldKind::RichText:
            return makeRich(static_cast<screen::RichTextField&>(field), widget);
        case FieldKind::Text:
            return makeText(static_cast<screen::EditField&>(field), widget);
        case FieldKind::Label:
            return make.operator()<LabelMirror, screen::Label, QLabel>();
        case FieldKind::Combo:
            return make.operator()<ComboMirror, screen::ComboList, QComboBox>();
        case FieldKind::List:
            return make.operator()<ListMirror, screen::ItemList, QListWidget>();
        case FieldKind::Check:
            return make.
            operator()<MarkMirror<screen::CheckButton, QCheckBox>, screen::CheckButton, QCheckBox>();
        case FieldKind::Option:
            return make.
            operator()<MarkMirror<screen::OptionButton, QRadioButton>, screen::OptionButton, QRadioButton>();
        case FieldKind::Button:
            return make.operator()<ButtonMirror, screen::Button, QPushButton>();
        case FieldKind::TwoState:
            return make.operator()<TwoStateMirror, screen::TwoStateButton, QPushButton>();
        case FieldKind::Panel:
            return make.operator()<PanelMirror, screen::Panel, FramePanel>();
        case FieldKind::Tabs:
            return make.operator()<TabsMirror, screen::TabControl, QTabWidget>();
        case FieldKind::Status:
            return std::make_unique<StatusMirror>(static_cast<screen::StatusBar&>(field), widget);
        case FieldKind::Grid:
            return make.operator()<GridMirror, screen::Grid, GridView>();
        case FieldKind::Date:
            return make.operator()<DateMirror, screen::DateField, QDateEdit>();
        case FieldKind::Web:
            return make.operator()<WebMirror, screen::WebView, QTextBrowser>();
        case FieldKind::Picture:
            return std::make_unique<PictureMirror>(field, widget);
    }
    throw basics::Fault(field.name() + ": a field of no kind");
}

}  // namespace zelvo::qt
