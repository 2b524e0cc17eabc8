// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/accessible_names.h"

#include <limits>

#include "qt/texts.h"

namespace qt {

namespace {

// Distance in twips when the label stands at the left of the control or above it; the largest number when it
// stands elsewhere.
int Distance(const platform::Label& label, const platform::Control& control) {
    constexpr int kOverlap = 60;  // twips that neighbours may reach into each other
    constexpr int kNowhere = std::numeric_limits<int>::max();
    const int right = label.Left + label.Width;
    const int bottom = label.Top + label.Height;
    const bool sameLine = label.Top < control.Top + control.Height && bottom > control.Top;
    if (sameLine && right <= control.Left + kOverlap) {
        return control.Left - right;
    }
    const bool sameColumn = label.Left < control.Left + control.Width && right > control.Left;
    if (sameColumn && bottom <= control.Top + kOverlap) {
        return control.Top - bottom;
    }
    return kNowhere;
}

const platform::Label* NearestLabel(const platform::Control& control) {
    const platform::Label* nearest = nullptr;
    int least = std::numeric_limits<int>::max();
    for (const platform::Control* other : control.Parent().Controls()) {
        const auto* label = dynamic_cast<const platform::Label*>(other);
        if (label == nullptr || !label->Visible || label->Container() != control.Container() ||
            label->Caption->empty()) {
            continue;
        }
        const int distance = Distance(*label, control);
        if (distance < least) {
            least = distance;
            nearest = label;
        }
    }
    return nearest;
}

}  // namespace

QString AccessibleName(const platform::Control& control) {
    const auto read = [](const std::string& text) { return WithoutMnemonic(QString::fromStdString(text)); };
    if (QString caption = read(control.CaptionText()); !caption.isEmpty()) {
        return caption;
    }
    QString name;
    const bool picture = dynamic_cast<const platform::Image*>(&control) != nullptr;
    const bool labelled = control.TakesFocus() && !picture;
    if (const platform::Label* label = labelled ? NearestLabel(control) : nullptr) {
        name = read(label->Caption);
    } else {
        name = QString::fromStdString(control.ToolTipText);
    }
    // What fills a page is called after it.
    const auto* const pages = dynamic_cast<const platform::SSTab*>(control.Container());
    if (name.isEmpty() && pages != nullptr) {
        name = read(pages->TabCaption(control.Page()));
    }
    // A picture without words of its own belongs to the window as a whole.
    if (name.isEmpty() && picture) {
        name = QString::fromStdString(control.Parent().Caption);
    }
    return name;
}

}  // namespace qt
