// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/colours.h"

#include <algorithm>
#include <cmath>

namespace qt {

namespace {

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor Mixed(const QColor& one, const QColor& other, double share) {
    const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(b + (a - b) * share)); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

QColor WarningColour(const QPalette& palette) {
    constexpr double kReadable = 4.5;
    const QColor ground = palette.color(QPalette::Window);
    const bool darken = Contrast(ground, Qt::black) > Contrast(ground, Qt::white);
    QColor red;
    for (int step = 0; step <= 25; ++step) {
        const double lightness = darken ? 0.42 - 0.02 * step : 0.50 + 0.02 * step;
        red = QColor::fromHslF(0, 0.85F, static_cast<float>(std::clamp(lightness, 0.0, 1.0)));
        if (Contrast(red, ground) >= kReadable) {
            break;
        }
    }
    return red;
}

QColor ToneColour(platform::Tone tone, const QPalette& palette) {
    const bool dark = palette.color(QPalette::Base).lightness() < 128;
    switch (tone) {
        case platform::Tone::Good:
            return dark ? QColor("#56b4e9") : QColor("#00619c");
        case platform::Tone::Doubtful:
            return dark ? QColor("#f0c419") : QColor("#7a5c00");
        case platform::Tone::Bad:
            return dark ? QColor("#ff8a50") : QColor("#b53d00");
        case platform::Tone::Plain:
            break;
    }
    return palette.color(QPalette::Text);
}

}  // namespace qt
