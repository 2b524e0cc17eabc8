// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/button_adapters.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcutEvent>
#include <algorithm>
#include <vector>

#include "platform/forms/form.h"
#include "qt/form_window.h"
#include "qt/owned.h"

namespace qt {

namespace {

// A button that is on or off as its control is: a click alone doesn't turn it.
template <class Button>
class Shown final : public Button {
  public:
    using Button::Button;

  protected:
    void nextCheckState() override {}
};

QAbstractButton* MakeCheckBox(const FormWindow& window, const platform::CheckBox& box) {
    if (!box.ButtonLike()) {
        return Child<Shown<QCheckBox>>(ParentOf(window, box));
    }
    auto* button = Child<Shown<QPushButton>>(ParentOf(window, box));
    button->setAutoDefault(false);
    button->setCheckable(true);
    return button;
}

// The options that exclude each other with this one, itself too.
std::vector<platform::OptionButton*> Group(const platform::OptionButton& option) {
    std::vector<platform::OptionButton*> group;
    for (platform::Control* control : option.Parent().Controls()) {
        auto* other = dynamic_cast<platform::OptionButton*>(control);
        if (other != nullptr && other->Container() == option.Container()) {
            group.push_back(other);
        }
    }
    return group;
}

}  // namespace

// --- all buttons ---

ButtonAdapter::ButtonAdapter(FormWindow& window, platform::CaptionControl& control, QAbstractButton* button)
    : WidgetAdapter(window, control, button), control_(control), button_(button) {
    const auto pressed = [this] { Report([this] { Pressed(); }); };
    QObject::connect(button, &QAbstractButton::clicked, Context(), pressed);
    // Not by a click, see Shown: an accessibility interface has turned it.
    QObject::connect(button, &QAbstractButton::toggled, Context(), pressed);
}

void ButtonAdapter::CarryOwn() {
    const QString caption = QString::fromStdString(control_.Caption);
    // Setting a text grabs its mnemonic anew, even when it is the same.
    if (button_->text() != caption) {
        button_->setText(caption);
    }
    Window().NamesChanged();
}

bool ButtonAdapter::Filter(QEvent& event) {
    if (event.type() != QEvent::Shortcut || static_cast<QShortcutEvent&>(event).isAmbiguous()) {
        return false;
    }
    button_->setFocus(Qt::ShortcutFocusReason);
    if (button_->hasFocus()) {
        button_->click();
    }
    return true;
}

// --- CommandButton ---

CommandButtonAdapter::CommandButtonAdapter(FormWindow& window, platform::CommandButton& button)
    : ButtonAdapter(window, button, Child<QPushButton>(ParentOf(window, button))),
      button_(button),
      widget_(static_cast<QPushButton*>(Widget())) {
    widget_->setAutoDefault(false);
}

void CommandButtonAdapter::CarryOwn() {
    ButtonAdapter::CarryOwn();
    // For the eye only: the Enter key is the window's.
    widget_->setDefault(button_.Default);
}

// --- CheckBox ---

CheckBoxAdapter::CheckBoxAdapter(FormWindow& window, platform::CheckBox& box)
    : ButtonAdapter(window, box, MakeCheckBox(window, box)),
      box_(box),
      widget_(static_cast<QAbstractButton*>(Widget())) {}

void CheckBoxAdapter::CarryOwn() {
    ButtonAdapter::CarryOwn();
    if (auto* box = qobject_cast<QCheckBox*>(widget_)) {
        box->setTristate(box_.Value == 2);
        box->setCheckState(box_.Value == 0   ? Qt::Unchecked
                           : box_.Value == 1 ? Qt::Checked
                                             : Qt::PartiallyChecked);
    } else {
        widget_->setChecked(box_.Value != 0);
    }
}

// --- OptionButton ---

OptionButtonAdapter::OptionButtonAdapter(FormWindow& window, platform::OptionButton& option)
    : ButtonAdapter(window, option, Child<Shown<QRadioButton>>(ParentOf(window, option))),
      option_(option),
      widget_(static_cast<QRadioButton*>(Widget())) {
    widget_->setAutoExclusive(false);  // which one is on is the model's business
}

void OptionButtonAdapter::CarryOwn() {
    ButtonAdapter::CarryOwn();
    widget_->setChecked(option_.Value);
    // Tab leads to the option that is on; the arrow keys lead on from it.
    const std::vector<platform::OptionButton*> group = Group(option_);
    const bool any =
        std::any_of(group.begin(), group.end(), [](const auto* other) { return other->Value.Get(); });
    for (const platform::OptionButton* other : group) {
        if (const Adapter* adapter = AdapterOf(*other)) {
            adapter->Widget()->setFocusPolicy(other->Value || !any ? Qt::StrongFocus : Qt::ClickFocus);
        }
    }
}

bool OptionButtonAdapter::Filter(QEvent& event) {
    if (event.type() != QEvent::KeyPress) {
        return ButtonAdapter::Filter(event);
    }
    const int key = static_cast<QKeyEvent&>(event).key();
    const bool next = key == Qt::Key_Down || key == Qt::Key_Right;
    if (!next && key != Qt::Key_Up && key != Qt::Key_Left) {
        return false;
    }
    std::vector<platform::OptionButton*> group = Group(option_);
    std::erase_if(group, [this](const auto* other) { return other != &option_ && !other->Reachable(); });
    const auto self =
        static_cast<std::size_t>(std::find(group.begin(), group.end(), &option_) - group.begin());
    const std::size_t place = (self + (next ? 1 : group.size() - 1)) % group.size();
    if (place != self) {
        auto* button = static_cast<QRadioButton*>(AdapterOf(*group[place])->Widget());
        button->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        if (button->hasFocus()) {
            button->click();
        }
    }
    return true;
}

}  // namespace qt
