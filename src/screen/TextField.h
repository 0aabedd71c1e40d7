#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "screen/Field.h"
#include "screen/RichText.h"

namespace zelvo::screen {

/// What text fields and rich text fields have in common: a text, a caret with a selection (in characters),
/// typing.
class EditField : public Field {
public:
    const std::string& text() const { return text_; }
    /// Stores the text and runs onChange, at once and inside the call, when and only when it differs. The
    /// caret stays behind the text if it stood there, else where it was as far as the new text reaches.
    void setText(std::string_view text);

    std::size_t selectionStart() const { return selectionStart_; }
    std::size_t selectionLength() const { return selectionLength_; }
    /// In characters; cut to the text.
    void select(std::size_t start, std::size_t length);
    void caretToEnd();

    /// Locked: the user's keys arrive, but the text stays.
    bool readOnly() const { return readOnly_; }
    void setReadOnly(bool readOnly);
    /// At most so many characters by typing and pasting; 0 is no limit. The program may set more.
    std::size_t maxLength() const { return maxLength_; }
    void setMaxLength(std::size_t characters) { maxLength_ = characters; }
    /// A multi-line field takes Enter as a line break (CR LF).
    bool multiLine() const { return multiLine_; }
    void setMultiLine(bool multiLine) { multiLine_ = multiLine; }
    /// Whether the input method goes to Hangul when the field gets the focus.
    bool hangul() const { return hangul_; }
    void setHangul(bool hangul) { hangul_ = hangul; }

    /// The user's text replaces the selection at once, without keys (a paste, a finished composition). A
    /// single-line field takes the first line of it only.
    void userInsert(std::string_view text);
    /// The user changed the text in the toolkit's own editor (undo, a word deleted, text dragged in): the
    /// whole text as it now stands there, and the caret in characters.
    void userEdited(std::string_view text, std::size_t caret);
    void applyKey(const Key& key) override;

    Event<> onChange;
    /// A text is about to come in at once, without keys.
    Event<> onInsert;

protected:
    EditField(Window& window, std::string name, FieldKind kind, Place place);
    /// Stores text and caret (in characters), then runs onChange if the text differs, or its form does.
    void change(std::string text, std::size_t caret, bool formChanged = false);
    /// Whether the field takes what the user made of it in the toolkit's editor; if not, the toolkit is told
    /// to show the field's own text again. Runs onInsert for a text that differs.
    bool takesEdit(std::string_view text, bool formChanged);
    /// A new text stands in the field; onChange comes next.
    virtual void stored() {}

private:
    void replaceSelection(std::string_view with);
    std::size_t stepForward(std::size_t position) const;
    std::size_t stepBackward(std::size_t position) const;
    void removeBehindCaret();
    void removeBeforeCaret();
    void moveCaret(int code);

    std::string text_;
    std::size_t selectionStart_ = 0, selectionLength_ = 0, maxLength_ = 0;
    bool readOnly_ = false, multiLine_ = false, hangul_ = false;
};

class TextField : public EditField {
public:
    TextField(Window& window, std::string name, Place place = {});
    /// A one-word state that the logic keeps at the field.
    const std::string& tag() const { return tag_; }
    void setTag(std::string_view tag) { tag_ = tag; }
    /// Whether what is typed is shown as dots.
    bool masked = false;
    /// Whether the text stands at the right (numbers and money).
    bool alignRight = false;

private:
    std::string tag_;
};

/// A rich text: the RTF form and the plain text of the same content. A plain text that is set or typed has
/// its RTF form written from it.
class RichTextField : public EditField {
public:
    RichTextField(Window& window, std::string name, Place place = {});
    /// The content as RTF; "" while the field is empty.
    const std::string& rtf() const { return rtf_; }
    /// Takes RTF, or a plain text where it doesn't begin as RTF does; onChange runs when the content differs.
    void setRtf(std::string_view rtf);
    /// The content with its form, for a toolkit that draws it. Good until the field next changes.
    const RichText& content() const { return content_; }
    /// The user's content as it now stands in the toolkit's own editor, and the caret in characters (behind
    /// the text without one): text and RTF take it, and onChange runs once, when and only when it differs.
    void userContent(RichText content, std::size_t caret = std::string_view::npos);
    bool locked() const { return readOnly(); }
    void setLocked(bool locked) { setReadOnly(locked); }

private:
    void stored() override;

    std::string rtf_, incomingRtf_;
    RichText content_, incoming_;
};

}  // namespace zelvo::screen
