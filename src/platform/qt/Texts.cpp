#include "platform/qt/Texts.h"

#include <algorithm>

namespace zelvo::qt {

std::size_t charactersIn(const QString& text, qsizetype units) {
    const qsizetype end = std::min(units, text.size());
    std::size_t characters = 0;
    for (qsizetype at = 0; at < end; ++at) {
        if (!text.at(at).isLowSurrogate()) ++characters;
    }
    return characters;
}

qsizetype unitsIn(const QString& text, std::size_t characters) {
    qsizetype at = 0;
    for (; at < text.size() && characters > 0; --characters) {
        at += text.at(at).isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
    }
    return at;
}

int editorPosition(std::string_view text, std::size_t characters) {
    const QString whole = qtText(text);
    const QString before = whole.left(unitsIn(whole, characters));
    return static_cast<int>(before.size() - before.count(QLatin1String("\r\n")));
}

std::size_t fieldPosition(std::string_view text, int position) {
    const QString whole = qtText(text);
    qsizetype at = 0;
    for (; at < whole.size() && position > 0; --position)
        at += QStringView(whole).mid(at).startsWith(QLatin1String("\r\n")) ? 2 : 1;
    return charactersIn(whole, at);
}

}  // namespace zelvo::qt
