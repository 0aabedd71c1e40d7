#include "platform/qt/Contrast.h"

#include <algorithm>
#include <cmath>

namespace zelvo::qt {

namespace {

constexpr double readable = 4.5;

double luminance(const QColor& color) {
    const auto light = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * light(color.redF()) + 0.7152 * light(color.greenF()) + 0.0722 * light(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

}  // namespace

QColor blended(const QColor& first, const QColor& second, double share) {
    const auto mixed = [share](float one, float other) {
        return static_cast<float>(share * one + (1 - share) * other);
    };
    return QColor::fromRgbF(mixed(first.redF(), second.redF()), mixed(first.greenF(), second.greenF()),
                            mixed(first.blueF(), second.blueF()));
}

QColor readableOn(const QColor& ground, const QColor& color) {
    const QColor white(Qt::white), black(Qt::black);
    const QColor& end = contrast(white, ground) > contrast(black, ground) ? white : black;
    constexpr int steps = 20;
    for (int step = 0; step < steps; ++step) {
        const QColor tried = blended(end, color, static_cast<double>(step) / steps);
        if (contrast(tried, ground) >= readable) return tried;
    }
    return end;
}

QPalette paper(QPalette palette) {
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x60, 0x60, 0x60));
    palette.setColor(QPalette::Link, QColor(paperLink));
    return palette;
}

}  // namespace zelvo::qt
