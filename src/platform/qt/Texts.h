#pragma once

#include <QtCore/QString>
#include <cstddef>
#include <string>
#include <string_view>

namespace zelvo::qt {

inline QString qtText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string utf8(const QString& text) {
    return text.toStdString();
}

/// A caption as a button or tab takes it: its ampersands are letters, no shortcuts.
inline QString plainCaption(std::string_view text) {
    return qtText(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// Characters in the first `units` units of a text of the toolkit, which counts a character beyond U+FFFF as
/// two.
std::size_t charactersIn(const QString& text, qsizetype units);
/// The other way round: the units that so many characters take.
qsizetype unitsIn(const QString& text, std::size_t characters);

/// Where a position of a field's text, in characters, stands in an editor, which has one character for a line
/// break where the field has CR LF.
int editorPosition(std::string_view text, std::size_t characters);
/// The other way round. Only where the field has CR LF is a break two characters long: a text that another
/// program wrote may have single ones.
std::size_t fieldPosition(std::string_view text, int position);

}  // namespace zelvo::qt
