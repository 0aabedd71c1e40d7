#pragma once

#include <string_view>

#include "platform/qt/Mirror.h"
#include "screen/RichText.h"

class QTextEdit;

namespace zelvo::screen {
class RichTextField;
}

namespace zelvo::qt {

/// A rich text. The editor applies keys, clipboard and input method by itself, form included; the field has
/// the content after each of them.
class RichMirror : public Mirror {
public:
    RichMirror(screen::RichTextField& field, QTextEdit& editor);
    bool ownKey(const QKeyEvent& key) const override;
    bool filter(QWidget& target, QEvent& event) override;

private:
    void draw() override;
    void tellContent();
    void tellSelection();
    /// From a place in the editor to one in the field's text, and back.
    std::size_t inField(std::string_view text, int place) const;
    int inEditor(std::size_t position) const;

    screen::RichTextField& field_;
    QTextEdit& editor_;
    screen::RichText drawn_;
    bool composing_ = false;
};

}  // namespace zelvo::qt
