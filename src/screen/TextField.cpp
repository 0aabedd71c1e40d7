#include "screen/TextField.h"

#include <algorithm>
#include <utility>

#include "basics/Text.h"
#include "basics/Utf8.h"
#include "screen/RtfReader.h"
#include "screen/RtfWriter.h"
#include "screen/Window.h"

namespace zelvo::screen {

namespace {

bool isControl(char32_t character) {
    return character < U' ' || character == 127;
}

/// What of an inserted text a field takes: line breaks as CR LF and tabs where it has several lines, else the
/// first line only; no other control characters.
std::string insertable(std::string_view text, bool multiLine) {
    std::string taken;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char byte = text[at];
        if (byte == '\r' || byte == '\n') {
            if (!multiLine) break;
            if (byte == '\r' && at + 1 < text.size() && text[at + 1] == '\n') ++at;
            taken += basics::lineBreak;
        } else if (!isControl(static_cast<unsigned char>(byte)) || (byte == '\t' && multiLine)) {
            taken += byte;
        }
    }
    return taken;
}

}  // namespace

EditField::EditField(Window& window, std::string name, FieldKind kind, Place place)
    : Field(window, std::move(name), kind, place) {}

void EditField::setText(std::string_view text) {
    if (text == text_) return;
    const std::size_t caret = selectionStart_ + selectionLength_;
    const std::size_t length = basics::characterCount(text);
    const bool behind = caret >= basics::characterCount(text_);
    change(std::string(text), behind ? length : std::min(selectionStart_, length));
}

void EditField::change(std::string text, std::size_t caret, bool formChanged) {
    const bool differs = text != text_ || formChanged;
    text_ = std::move(text);
    selectionStart_ = caret;
    selectionLength_ = 0;
    if (differs) stored();
    touch();
    if (differs) onChange();
}

void EditField::select(std::size_t start, std::size_t length) {
    const std::size_t end = basics::characterCount(text_);
    start = std::min(start, end);
    length = std::min(length, end - start);
    if (start == selectionStart_ && length == selectionLength_) return;
    selectionStart_ = start;
    selectionLength_ = length;
    touch();
}

void EditField::caretToEnd() {
    select(basics::characterCount(text_), 0);
}

void EditField::setReadOnly(bool readOnly) {
    if (readOnly == readOnly_) return;
    readOnly_ = readOnly;
    touch();
}

void EditField::userInsert(std::string_view text) {
    window().userInput([this, taken = insertable(basics::cleanUtf8(text), multiLine_)] {
        if (!reachable()) return;
        onInsert();
        replaceSelection(taken);
    });
}

void EditField::userEdited(std::string_view text, std::size_t caret) {
    window().userInput([this, edited = basics::cleanUtf8(text), caret] {
        if (takesEdit(edited, false)) change(edited, std::min(caret, basics::characterCount(edited)));
    });
}

bool EditField::takesEdit(std::string_view text, bool formChanged) {
    const bool textChanged = text != text_;
    bool taken = !readOnly_ && reachable() && (textChanged || formChanged);
    if (taken && textChanged) {
        onInsert();
        const std::size_t length = basics::characterCount(text);
        taken = maxLength_ == 0 || length <= maxLength_ || length <= basics::characterCount(text_);
    }
    if (!taken) touch();
    return taken;
}

void EditField::applyKey(const Key& key) {
    switch (key.character) {
        case 0:
            if (key.code == keys::remove) removeBehindCaret();
            moveCaret(key.code);
            return;
        case U'\b':
            removeBeforeCaret();
            return;
        case U'\r':
            if (multiLine_) replaceSelection(basics::lineBreak);
            return;
        default:
            if (!isControl(key.character)) replaceSelection(basics::toUtf8(key.character));
    }
}

/// Puts a text in the place of the selection, as much of it as the field still takes.
void EditField::replaceSelection(std::string_view with) {
    if (readOnly_) return;
    const std::size_t from = basics::byteOffset(text_, selectionStart_);
    const std::size_t to = basics::byteOffset(text_, selectionStart_ + selectionLength_);
    const std::string_view text = text_;
    if (maxLength_ > 0 && !with.empty()) {
        const std::size_t kept = basics::characterCount(text) - selectionLength_;
        const std::size_t room = maxLength_ > kept ? maxLength_ - kept : 0;
        with = with.substr(0, basics::byteOffset(with, room));
        if (with.ends_with('\r')) with.remove_suffix(1);  // no half line break
        if (with.empty()) return;
    }
    std::string changed(text.substr(0, from));
    changed += with;
    changed += text.substr(to);
    change(std::move(changed), selectionStart_ + basics::characterCount(with));
}

/// Characters that one step from `position` passes: both of a line break.
std::size_t EditField::stepForward(std::size_t position) const {
    const std::size_t offset = basics::byteOffset(text_, position);
    if (offset >= text_.size()) return 0;
    return text_.compare(offset, 2, basics::lineBreak) == 0 ? 2 : 1;
}

std::size_t EditField::stepBackward(std::size_t position) const {
    if (position == 0) return 0;
    const std::size_t offset = basics::byteOffset(text_, position);
    return offset >= 2 && text_.compare(offset - 2, 2, basics::lineBreak) == 0 ? 2 : 1;
}

void EditField::removeBehindCaret() {
    if (readOnly_) return;
    if (selectionLength_ == 0) selectionLength_ = stepForward(selectionStart_);
    replaceSelection({});
}

void EditField::removeBeforeCaret() {
    if (readOnly_) return;
    if (selectionLength_ == 0) {
        selectionLength_ = stepBackward(selectionStart_);
        selectionStart_ -= selectionLength_;
    }
    replaceSelection({});
}

void EditField::moveCaret(int code) {
    const std::size_t end = selectionStart_ + selectionLength_;
    switch (code) {
        case keys::left:
            select(selectionLength_ > 0 ? selectionStart_ : selectionStart_ - stepBackward(selectionStart_),
                   0);
            break;
        case keys::right:
            select(selectionLength_ > 0 ? end : end + stepForward(end), 0);
            break;
        case keys::home:
            select(0, 0);
            break;
        case keys::end:
            caretToEnd();
            break;
        default:
            break;
    }
}

TextField::TextField(Window& window, std::string name, Place place)
    : EditField(window, std::move(name), FieldKind::Text, place) {}

RichTextField::RichTextField(Window& window, std::string name, Place place)
    : EditField(window, std::move(name), FieldKind::RichText, place) {
    setMultiLine(true);
}

void RichTextField::setRtf(std::string_view rtf) {
    if (!looksLikeRtf(rtf)) {
        // A content without any text (a picture, say) is emptied too.
        if (rtf.empty() && text().empty() && !rtf_.empty()) return change({}, 0, true);
        setText(rtf);
        return;
    }
    if (rtf == rtf_) return;
    incomingRtf_ = rtf;
    incoming_ = readRtf(rtf, window().desktop().components().codePages());
    std::string plain = plainText(incoming_);
    const std::size_t length = basics::characterCount(plain);
    change(std::move(plain), std::min(selectionStart(), length), true);
}

void RichTextField::userContent(RichText content, std::size_t caret) {
    window().userInput([this, edited = tidied(std::move(content)), caret]() mutable {
        std::string plain = plainText(edited);
        if (!takesEdit(plain, edited != content_)) return;
        incomingRtf_ = writeRtf(edited);
        incoming_ = std::move(edited);
        const std::size_t length = basics::characterCount(plain);
        change(std::move(plain), std::min(caret, length), true);
    });
}

/// A text that brings no form of its own gets the standard one.
void RichTextField::stored() {
    if (incomingRtf_.empty()) {
        content_ = richText(text());
        rtf_ = writeRtf(content_);
    } else {
        content_ = std::exchange(incoming_, {});
        rtf_ = std::exchange(incomingRtf_, {});
    }
}

}  // namespace zelvo::screen
