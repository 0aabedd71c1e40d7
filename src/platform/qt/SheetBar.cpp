#include "platform/qt/SheetBar.h"

#include <QtGui/QAction>
#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>
#include <QtGui/QInputMethod>
#include <QtGui/QTextBlock>
#include <QtGui/QTextList>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QToolButton>
#include <array>

#include "platform/qt/Owned.h"
#include "platform/qt/RichDocument.h"
#include "platform/qt/RichPieces.h"
#include "platform/qt/SheetPaper.h"
#include "platform/qt/Texts.h"
#include "screen/RichText.h"

namespace zelvo::qt {

namespace {

struct NamedColor {
    const char* name;
    QRgb color;
};
constexpr std::array colors{NamedColor{"검정", 0xff000000}, NamedColor{"빨강", 0xffc00000},
                            NamedColor{"파랑", 0xff0000c0}, NamedColor{"초록", 0xff1c810a},
                            NamedColor{"회색", 0xff606060}};
constexpr std::array sizes{8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 28, 36};

QToolButton& addButton(QHBoxLayout& row, const QString& caption, const QString& tip) {
    auto& button = owned<QToolButton>();
    button.setText(caption);
    button.setToolTip(tip);
    button.setAccessibleName(tip);
    button.setFocusPolicy(Qt::NoFocus);
    row.addWidget(&button);
    return button;
}

/// The bar takes no focus, so a syllable that is being composed has to be finished by it.
void finishSyllable() {
    QGuiApplication::inputMethod()->commit();
}

/// Takes the paragraphs of the selection out of their lists; their form stays.
void removeBullets(const QTextCursor& selection) {
    const QTextDocument& document = *selection.document();
    const QTextBlock end = document.findBlock(selection.selectionEnd()).next();
    for (QTextBlock block = document.findBlock(selection.selectionStart()); block.isValid() && block != end;
         block = block.next()) {
        if (block.textList()) block.textList()->remove(block);
        QTextBlockFormat form = block.blockFormat();
        form.setIndent(0);
        QTextCursor(block).setBlockFormat(form);
    }
}

/// Shows what the selection has, also where the list does not offer it.
void showChoice(QComboBox& combo, const QString& text) {
    if (combo.findText(text) < 0) combo.addItem(text);
    combo.setCurrentText(text);
}

}  // namespace

SheetBar::SheetBar(QWidget* parent) : QWidget(parent), row_(owned<QHBoxLayout>(this)) {
    row_.setContentsMargins(0, 0, 0, 0);
    row_.setSpacing(2);
    addFonts();
    addStyle(
        QStringLiteral("bold"), QStringLiteral("가"), QStringLiteral("굵게 (Ctrl+B)"), QKeySequence::Bold,
        [](QTextCharFormat& format, bool on) { format.setFontWeight(on ? QFont::Bold : QFont::Normal); });
    addStyle(QStringLiteral("italic"), QStringLiteral("가"), QStringLiteral("기울임 (Ctrl+I)"),
             QKeySequence::Italic, [](QTextCharFormat& format, bool on) { format.setFontItalic(on); });
    addStyle(QStringLiteral("underline"), QStringLiteral("가"), QStringLiteral("밑줄 (Ctrl+U)"),
             QKeySequence::Underline, [](QTextCharFormat& format, bool on) { format.setFontUnderline(on); });
    addStyle(QStringLiteral("strike"), QStringLiteral("가"), QStringLiteral("취소선"), {},
             [](QTextCharFormat& format, bool on) { format.setFontStrikeOut(on); });
    addColors();
    row_.addSpacing(8);
    addAlignment(QStringLiteral("왼쪽"), QStringLiteral("왼쪽 맞춤"), Qt::AlignLeft);
    addAlignment(QStringLiteral("가운데"), QStringLiteral("가운데 맞춤"), Qt::AlignHCenter);
    addAlignment(QStringLiteral("오른쪽"), QStringLiteral("오른쪽 맞춤"), Qt::AlignRight);
    addBullets();
    row_.addStretch(1);
    addPaper();
}

void SheetBar::addFonts() {
    family_ = &owned<QComboBox>(this);
    family_->setToolTip(QStringLiteral("글꼴"));
    family_->addItem(qtText(screen::standardFamily));
    family_->addItems(QFontDatabase::families(QFontDatabase::Korean));
    family_->setMaximumWidth(150);
    size_ = &owned<QComboBox>(this);
    size_->setToolTip(QStringLiteral("글자 크기"));
    for (const int size : sizes) size_->addItem(QString::number(size));
    for (QComboBox* combo : {family_, size_}) {
        combo->setFocusPolicy(Qt::NoFocus);
        combo->setAccessibleName(combo->toolTip());
        row_.addWidget(combo);
    }
    connect(family_, &QComboBox::textActivated, this, [this](const QString& family) {
        format([&](QTextCharFormat& form) { form.setFontFamilies({family}); });
    });
    connect(size_, &QComboBox::textActivated, this, [this](const QString& size) {
        format([&](QTextCharFormat& form) { form.setFontPointSize(size.toDouble()); });
    });
}

void SheetBar::addStyle(const QString& name, const QString& caption, const QString& tip,
                        const QKeySequence& keys, Change change) {
    QToolButton& button = addButton(row_, caption, tip);
    button.setObjectName(name);
    button.setCheckable(true);
    QFont font;  // of the bar's size
    font.setBold(name == QLatin1String("bold"));
    font.setItalic(name == QLatin1String("italic"));
    font.setUnderline(name == QLatin1String("underline"));
    font.setStrikeOut(name == QLatin1String("strike"));
    button.setFont(font);
    if (!keys.isEmpty()) button.setShortcut(keys);
    connect(&button, &QToolButton::clicked, this, [this, change = std::move(change)](bool on) {
        format([&](QTextCharFormat& form) { change(form, on); });
    });
}

void SheetBar::addColors() {
    QToolButton& button = addButton(row_, QStringLiteral("글자색"), QStringLiteral("글자색"));
    auto& menu = owned<QMenu>(&button);
    for (const NamedColor& color : colors) {
        const QAction* action = menu.addAction(QString::fromUtf8(color.name));
        connect(action, &QAction::triggered, this, [this, rgb = color.color] {
            format([&](QTextCharFormat& form) { form.setForeground(QColor(rgb)); });
        });
    }
    button.setMenu(&menu);
    button.setPopupMode(QToolButton::InstantPopup);
}

void SheetBar::addAlignment(const QString& caption, const QString& tip, Qt::Alignment alignment) {
    connect(&addButton(row_, caption, tip), &QToolButton::clicked, this, [this, alignment] {
        if (!editor_ || editor_->isReadOnly()) return;
        finishSyllable();
        QTextBlockFormat form;
        form.setAlignment(alignment);
        fromParagraphStart(editor_->textCursor()).mergeBlockFormat(form);
    });
}

void SheetBar::addBullets() {
    QToolButton& button = addButton(row_, QStringLiteral("• 목록"), QStringLiteral("글머리 기호"));
    connect(&button, &QToolButton::clicked, this, [this] {
        if (!editor_ || editor_->isReadOnly()) return;
        finishSyllable();
        QTextCursor cursor = fromParagraphStart(editor_->textCursor());
        if (firstPiece(cursor.block()).textList()) return removeBullets(cursor);
        QTextListFormat bullet;
        bullet.setStyle(QTextListFormat::ListDisc);
        cursor.createList(bullet);
    });
}

void SheetBar::addPaper() {
    const auto onPaper = [this](const QString& caption, const QString& tip,
                                void (*act)(QWidget&, const SheetPaper&)) {
        connect(&addButton(row_, caption, tip), &QToolButton::clicked, this, [this, act] {
            finishSyllable();
            if (const auto sheet = paper()) act(*window(), *sheet);
        });
    };
    onPaper(QStringLiteral("미리보기"), QStringLiteral("인쇄 미리보기"), previewSheet);
    onPaper(QStringLiteral("인쇄"), QStringLiteral("복용법 인쇄"), printSheet);
    onPaper(QStringLiteral("PDF"), QStringLiteral("PDF 파일로 저장"), saveSheet);
}

std::unique_ptr<SheetPaper> SheetBar::paper() const {
    if (!editor_) return nullptr;
    const SheetHead head{textOf("txtHospName"), textOf("txtPhoneNo"), textOf("lblPatient"),
                         textOf("lblDate")};
    return std::make_unique<SheetPaper>(contentOf(*editor_->document()), head);
}

QString SheetBar::textOf(const char* field) const {
    const auto* widget = window()->findChild<QWidget*>(QLatin1String(field));
    return widget ? widget->property("text").toString().trimmed() : QString();
}

void SheetBar::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!editor_) follow();
}

void SheetBar::follow() {
    editor_ = window()->findChild<QTextEdit*>(editorName_);
    if (!editor_) return;
    connect(editor_, &QTextEdit::currentCharFormatChanged, this, [this] { showForm(); });
    connect(editor_, &QTextEdit::cursorPositionChanged, this, [this] { showForm(); });
    showForm();
}

void SheetBar::format(const std::function<void(QTextCharFormat&)>& change) {
    if (!editor_ || editor_->isReadOnly()) return;
    finishSyllable();
    QTextCharFormat form;
    change(form);
    editor_->mergeCurrentCharFormat(form);
    editor_->setFocus(Qt::ShortcutFocusReason);
}

void SheetBar::showForm() {
    const QTextCharFormat form = editor_->currentCharFormat();
    const auto mark = [this](const char* name, bool on) {
        if (auto* button = findChild<QToolButton*>(QLatin1String(name))) button->setChecked(on);
    };
    mark("bold", form.fontWeight() > QFont::Medium);
    mark("italic", form.fontItalic());
    mark("underline", form.fontUnderline());
    mark("strike", form.fontStrikeOut());
    const QStringList families = form.fontFamilies().toStringList();
    showChoice(*family_, families.isEmpty() ? qtText(screen::standardFamily) : families.front());
    const double size = form.fontPointSize() > 0 ? form.fontPointSize() : standardFont().pointSizeF();
    showChoice(*size_, QString::number(size));
}

}  // namespace zelvo::qt
