// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/adapter.h"

#include "platform/forms/list_view.h"
#include "qt/application.h"
#include "qt/button_adapters.h"
#include "qt/caption_adapters.h"
#include "qt/colours.h"
#include "qt/combo_adapter.h"
#include "qt/form_window.h"
#include "qt/formula_adapter.h"
#include "qt/list_adapter.h"
#include "qt/list_box_adapter.h"
#include "qt/menu_adapter.h"
#include "qt/picture_adapters.h"
#include "qt/tab_adapter.h"
#include "qt/text_adapter.h"
#include "qt/texts.h"

namespace qt {

namespace {

// A View that is attached to a control of a form window is an adapter: nothing else attaches one.
Adapter* Cast(platform::View* view) {
    return static_cast<Adapter*>(view);
}

template <class Model, class View>
bool Make(FormWindow& window, platform::Control& control, std::unique_ptr<Adapter>& adapter) {
    auto* model = dynamic_cast<Model*>(&control);
    if (model != nullptr) {
        adapter = std::make_unique<View>(window, *model);
    }
    return model != nullptr;
}

}  // namespace

// --- Adapter ---

Adapter::Adapter(FormWindow& window, platform::Control& control) : window_(window), control_(control) {
    control.Attach(this);
}

void Adapter::ControlChanged() {
    window_.Mark(*this);
}

void Adapter::Release() {
    control_.Attach(nullptr);
}

bool Adapter::Filter(QEvent&) {
    return false;
}

void Adapter::Report(const std::function<void()>& input) {
    if (window_.Flushing()) {
        return;
    }
    const auto run = [this, input] {
        if (!Application::IsDeaf()) {
            window_.Input(input);
        }
        window_.Mark(*this);
    };
    if (Application::InUserEvent()) {
        run();
    } else {
        QMetaObject::invokeMethod(&context_, run, Qt::QueuedConnection);
    }
}

// --- WidgetAdapter ---

WidgetAdapter::WidgetAdapter(FormWindow& window, platform::Control& control, QWidget* widget)
    : Adapter(window, control), widget_(widget) {
    widget->setObjectName(QString::fromStdString(control.FullName()));
    widget->setFocusPolicy(control.TakesFocus() ? Qt::StrongFocus : Qt::NoFocus);
}

void WidgetAdapter::Carry() {
    const platform::Control& control = Model();
    const Scale& scale = Window().Measure();

    // Right and bottom edges are measured from the container, so that neighbours keep meeting each other.
    const int left = scale.Px(control.Left);
    const int top = scale.Px(control.Top);
    widget_->setGeometry(left, top, scale.Px(control.Left + control.Width) - left,
                         scale.Px(control.Top + control.Height) - top);
    widget_->setFont(control.Font == platform::Font() ? QFont() : scale.FontOf(control.Font));

    QPalette palette;
    if (control.ForeColor == platform::Colour::Warning) {
        const QColor red = WarningColour(QApplication::palette());
        for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
            palette.setColor(QPalette::Active, role, red);
            palette.setColor(QPalette::Inactive, role, red);
        }
    }
    widget_->setPalette(palette);

    widget_->setToolTip(ToolTip(control.ToolTipText));
    // What its container says already isn't said again for each control on it.
    const bool said =
        control.Container() != nullptr && control.Container()->ToolTipText.Get() == control.ToolTipText.Get();
    // An empty description would be the tool tip again.
    const QString description = said ? QStringLiteral(" ") : QString::fromStdString(control.ToolTipText);
    if (widget_->accessibleDescription() != description) {
        widget_->setAccessibleDescription(description);
    }
    widget_->setEnabled(control.Enabled);
    CarryOwn();
}

// --- the types ---

std::unique_ptr<Adapter> MakeAdapter(FormWindow& window, platform::Control& control) {
    std::unique_ptr<Adapter> adapter;
    Make<platform::Label, LabelAdapter>(window, control, adapter) ||
        Make<platform::Frame, FrameAdapter>(window, control, adapter) ||
        Make<platform::CommandButton, CommandButtonAdapter>(window, control, adapter) ||
        Make<platform::CheckBox, CheckBoxAdapter>(window, control, adapter) ||
        Make<platform::OptionButton, OptionButtonAdapter>(window, control, adapter) ||
        Make<platform::TextBox, TextBoxAdapter>(window, control, adapter) ||
        Make<platform::ComboBox, ComboBoxAdapter>(window, control, adapter) ||
        Make<platform::ListView, ListViewAdapter>(window, control, adapter) ||
        Make<platform::SSTab, TabAdapter>(window, control, adapter) ||
        Make<platform::ListBox, ListBoxAdapter>(window, control, adapter) ||
        Make<platform::PictureBox, PictureBoxAdapter>(window, control, adapter) ||
        Make<platform::RichTextBox, RichTextBoxAdapter>(window, control, adapter) ||
        Make<platform::Image, ImageAdapter>(window, control, adapter) ||
        Make<platform::oFormula, FormulaAdapter>(window, control, adapter) ||
        Make<platform::Menu, MenuAdapter>(window, control, adapter);
    return adapter;
}

Adapter* AdapterOf(const platform::Control& control) {
    return Cast(control.AttachedView());
}

QWidget* ParentOf(const FormWindow& window, const platform::Control& control) {
    const Adapter* const container =
        control.Container() != nullptr ? AdapterOf(*control.Container()) : nullptr;
    QWidget* const content = container != nullptr ? container->Content(control) : nullptr;
    return content != nullptr ? content : window.Canvas();
}

}  // namespace qt
