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

}  // namespace zelvo::qt
