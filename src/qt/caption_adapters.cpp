// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/caption_adapters.h"

#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QShortcutEvent>
#include <algorithm>

#include "platform/forms/form.h"
#include "qt/accessible_roles.h"
#include "qt/form_window.h"
#include "qt/owned.h"
#include "qt/texts.h"

namespace qt {

namespace {

// A label can't have the focus: its mnemonic leads to the next control that can.
platform::Control* NextFocusable(const platform::Label& label) {
    const auto& controls = label.Parent().Controls();
    const auto self = std::find(controls.begin(), controls.end(), &label);
    const auto next = std::find_if(self, controls.end(), [](const platform::Control* control) {
        return control->TakesFocus() && control->Reachable();
    });
    return next == controls.end() ? nullptr : *next;
}

int Horizontal(platform::Align alignment) {
    switch (alignment) {
        case platform::Align::Right:
            return Qt::AlignRight;
        case platform::Align::Centre:
            return Qt::AlignHCenter;
        case platform::Align::Left:
            break;
    }
    return Qt::AlignLeft;
}

}  // namespace

// --- Label ---

LabelAdapter::LabelAdapter(FormWindow& window, platform::Label& label)
    : WidgetAdapter(window, label, Child<QLabel>(ParentOf(window, label))),
      label_(label),
      widget_(static_cast<QLabel*>(Widget())) {
    widget_->setTextFormat(Qt::PlainText);
    // Without a text of its own it is there for what comes up. Readers of the screen ask for its role once.
    widget_->setProperty(kOutcome, label.Caption->empty() && label.Tag->empty());
}

void LabelAdapter::CarryOwn() {
    constexpr int kTwoLines = 2 * 195;
    const bool wraps = label_.Height >= kTwoLines;
    widget_->setWordWrap(wraps);
    widget_->setAlignment(Qt::Alignment(Horizontal(label_.Alignment)) |
                          (wraps ? Qt::AlignTop : Qt::AlignVCenter));

    const QString caption = QString::fromStdString(label_.Caption);
    const platform::Control* const next = caption.contains('&') ? NextFocusable(label_) : nullptr;
    const Adapter* const buddy = next != nullptr ? AdapterOf(*next) : nullptr;
    // The window system draws and grabs the mnemonic of a label with a buddy only.
    widget_->setBuddy(buddy != nullptr ? buddy->Widget() : nullptr);
    const QString text = buddy != nullptr ? caption : WithoutMnemonic(caption);
    // What comes up while the window is there is an outcome, and worth hearing.
    const bool outcome = widget_->isVisible() && text != widget_->text() && !text.trimmed().isEmpty();
    widget_->setText(text);
    if (outcome) {
        widget_->setAccessibleName(text);
        // One system listens for the first, another for the second.
        for (const auto kind : {QAccessible::Alert, QAccessible::ObjectShow}) {
            QAccessibleEvent event(widget_, kind);
            QAccessible::updateAccessibility(&event);
        }
    }
    Window().NamesChanged();
}

bool LabelAdapter::Filter(QEvent& event) {
    if (event.type() != QEvent::Shortcut) {
        return false;
    }
    const platform::Control* const next = NextFocusable(label_);
    const Adapter* const adapter = next != nullptr ? AdapterOf(*next) : nullptr;
    if (adapter != nullptr && adapter->Widget() != nullptr) {
        adapter->Widget()->setFocus(Qt::ShortcutFocusReason);
    }
    return true;
}

// --- Frame ---

FrameAdapter::FrameAdapter(FormWindow& window, platform::Frame& frame)
    : WidgetAdapter(window, frame, Child<QGroupBox>(ParentOf(window, frame))),
      frame_(frame),
      widget_(static_cast<QGroupBox*>(Widget())) {}

void FrameAdapter::CarryOwn() {
    widget_->setTitle(QString::fromStdString(frame_.Caption));
}

}  // namespace qt
