// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>

#include "qt/accessible_names.h"
#include "qt/keys.h"
#include "qt/owned.h"
#include "qt/pictures.h"

namespace qt {

namespace {

QEvent::Type FlushEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

QEvent::Type ActivateEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

QEvent::Type RescaleEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

Qt::WindowFlags FlagsOf(const platform::FormDesign& design) {
    Qt::WindowFlags flags =
        Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    return design.Sizable ? flags | Qt::WindowMinMaxButtonsHint : flags;
}

// The controls in the order that the Tab key takes them: as declared, a container's where it stands.
void AppendInTabOrder(const platform::Form& form, const platform::Control* container,
                      std::vector<const platform::Control*>& order) {
    for (const platform::Control* control : form.Controls()) {
        if (control->Container() == container) {
            order.push_back(control);
            AppendInTabOrder(form, control, order);
        }
    }
}

}  // namespace

FormWindow::FormWindow(platform::Form& form, std::function<void()> activated)
    : QWidget(nullptr, FlagsOf(form.DesignState())),
      form_(form),
      activated_(std::move(activated)),
      scale_(Scale::OfDesktop()),
      canvas_(Child<QWidget>(this)) {
    setObjectName(QString::fromStdString(form.Name()));
    auto* layout = Child<QVBoxLayout>(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(canvas_);
    if (form.HasMenu()) {
        bar_ = Child<QMenuBar>(this);
        bar_->setNativeMenuBar(false);
        layout->setMenuBar(bar_);
    }
    canvas_->installEventFilter(this);
    MakeWidgets();
    form.Attach(this);
}

FormWindow::~FormWindow() {
    Detach();
}

void FormWindow::MakeWidgets() {
    for (platform::Control* control : form_.Controls()) {
        std::unique_ptr<Adapter> adapter = MakeAdapter(*this, *control);
        if (adapter == nullptr) {
            continue;
        }
        if (QWidget* widget = adapter->Widget()) {
            widget->installEventFilter(this);
            byWidget_.insert(widget, adapter.get());
        }
        adapters_.push_back(std::move(adapter));
    }
    std::vector<const platform::Control*> order;
    AppendInTabOrder(form_, nullptr, order);
    QWidget* previous = nullptr;
    for (const platform::Control* control : order) {
        const Adapter* const adapter = AdapterOf(*control);
        if (adapter != nullptr && adapter->Widget() != nullptr && control->TakesFocus()) {
            if (previous != nullptr) {
                setTabOrder(previous, adapter->Widget());
            }
            previous = adapter->Widget();
        }
    }
    MarkAll();
}

void FormWindow::Detach() {
    if (!live_) {
        return;
    }
    live_ = false;
    form_.Attach(nullptr);
    for (const auto& adapter : adapters_) {
        adapter->Release();
    }
}

// --- from the form to the screen ---

void FormWindow::FormChanged() {
    formMarked_ = true;
    PostFlush();
}

void FormWindow::Mark(Adapter& adapter) {
    if (live_ && !adapter.Marked) {
        adapter.Marked = true;
        marked_.push_back(&adapter);
        PostFlush();
    }
}

void FormWindow::MarkAll() {
    for (const auto& adapter : adapters_) {
        Mark(*adapter);
    }
    formMarked_ = true;
}

void FormWindow::PostFlush() {
    if (live_ && !flushPosted_) {
        flushPosted_ = true;
        QCoreApplication::postEvent(this, std::make_unique<QEvent>(FlushEvent()).release(),
                                    Qt::HighEventPriority);
    }
}

void FormWindow::Flush() {
    if (!live_ || flushing_) {
        return;
    }
    {
        const QScopedValueRollback<bool> guard(flushing_, true);
        if (formMarked_) {
            formMarked_ = false;
            CarryForm();
        }
        while (!marked_.empty()) {
            for (Adapter* adapter : std::exchange(marked_, {})) {
                adapter->Marked = false;
                adapter->Carry();
            }
        }
        if (namesDue_) {
            namesDue_ = false;
            for (const auto& adapter : adapters_) {
                if (QWidget* widget = adapter->Widget()) {
                    widget->setAccessibleName(AccessibleName(adapter->Model()));
                }
            }
        }
    }
    SettleFocus(false);
}

void FormWindow::CarryForm() {
    setWindowTitle(QString::fromStdString(form_.Caption));
    setWindowIcon(Picture(QString::fromStdString(form_.Icon)));
}

// --- focus ---

Adapter* FormWindow::FocusedAdapter() const {
    return byWidget_.value(focusWidget(), nullptr);
}

void FormWindow::FocusActive() {
    const platform::Control* const active = form_.ActiveControl();
    const Adapter* const adapter = active != nullptr ? AdapterOf(*active) : nullptr;
    if (adapter != nullptr && adapter->Widget() != nullptr) {
        adapter->Widget()->setFocus(Qt::OtherFocusReason);
    }
}

// A focused widget that is disabled or hidden loses the focus to the next one by the window system's choice.
// The form decides where it is; where the form's own choice can't have it, the form takes the other's.
void FormWindow::SettleFocus(bool idle) {
    Adapter* const focused = FocusedAdapter();
    if (!presented_ || (focused == nullptr && focusWidget() != nullptr && focusWidget()->isVisible())) {
        return;  // in the menu bar
    }
    const platform::Control* const active = form_.ActiveControl();
    if (active != nullptr && active->CanFocus()) {
        if (focused == nullptr || &focused->Model() != active) {
            FocusActive();
        }
    } else if (idle && focused != nullptr && isActiveWindow()) {
        Input([focused] { focused->Model().InputFocus(); });
    }
}

bool FormWindow::FocusIn(Adapter& adapter, Qt::FocusReason reason) {
    platform::Control& control = adapter.Model();
    if (reason == Qt::ActiveWindowFocusReason && form_.ActiveControl() == &control) {
        return false;
    }
    Input([&control] { control.InputFocus(); });
    // The form may have led the focus on: this widget must not believe that it has it.
    return !live_ || (!flushing_ && focusWidget() != adapter.Widget());
}

void FormWindow::QueueActivate() {
    if (live_ && !activateDue_) {
        activateDue_ = true;
        QCoreApplication::postEvent(this, std::make_unique<QEvent>(ActivateEvent()).release(),
                                    Qt::HighEventPriority);
    }
}

void FormWindow::DeliverActivate() {
    if (activateDue_ && live_) {
        activateDue_ = false;
        form_.InputActivate();
    }
}

// --- size ---

int FormWindow::BarHeight(int width) const {
    return bar_ != nullptr ? bar_->heightForWidth(width) : 0;
}

void FormWindow::SizeForDesign(const QWidget* owner) {
    const platform::FormDesign& design = form_.DesignState();
    QSize client(scale_.Px(form_.ClientWidth()), scale_.Px(form_.ClientHeight()));
    if (!design.Sizable) {
        setFixedSize(client.width(), client.height() + BarHeight(client.width()));
        return;
    }
    constexpr int kLeastWidth = 3600;
    constexpr int kLeastHeight = 2700;
    const int leastWidth = scale_.Px(std::min(design.ClientWidth, kLeastWidth));
    setMinimumSize(leastWidth,
                   scale_.Px(std::min(design.ClientHeight, kLeastHeight)) + BarHeight(leastWidth));
    const QScreen* const screen = owner != nullptr ? owner->screen() : this->screen();
    const QSize room = screen->availableGeometry().size() -
                       QSize(scale_.Px(form_.FrameWidth()), scale_.Px(form_.FrameHeight()));
    client = client.boundedTo(room);
    resize(client.width(), client.height() + BarHeight(client.width()));
}

void FormWindow::Rescale() {
    scale_ = Scale::OfDesktop();
    if (!live_) {
        return;
    }
    MarkAll();
    Flush();
    if (presented_) {
        {
            // Least size, size and menu bar change one by one: only what comes out is a resize.
            const QScopedValueRollback<bool> guard(sizing_, true);
            if (!isMaximized() && !isFullScreen()) {
                SizeForDesign(this);
            }
            layout()->activate();
        }
        ReportSize();
    }
}

void FormWindow::ReportSize() {
    if (!presented_ || !live_ || sizing_) {
        return;
    }
    const int state = isMinimized()                     ? platform::vbMinimized
                      : isMaximized() || isFullScreen() ? platform::vbMaximized
                                                        : platform::vbNormal;
    // A size that is still the form's own in pixels is handed back to the twip.
    const QSize client = canvas_->size();
    const int width = client.width() == scale_.Px(form_.ClientWidth())
                          ? form_.Width()
                          : scale_.Twips(client.width()) + form_.FrameWidth();
    const int height = client.height() == scale_.Px(form_.ClientHeight())
                           ? form_.Height()
                           : scale_.Twips(client.height()) + form_.FrameHeight();
    if (width == form_.Width() && height == form_.Height() && state == reportedState_) {
        return;
    }
    reportedState_ = state;
    Input([&] { form_.InputResize(width, height, state); });
    Flush();
}

void FormWindow::Present(QWidget* owner, bool modal) {
    if (!presented_) {
        Flush();
        SizeForDesign(owner);
        layout()->activate();
        presented_ = true;
        // The first show is a resize, also when the size is the design's.
        reportedState_ = -1;
        ReportSize();
        if (!live_) {
            return;
        }
    }
    Flush();
    if (modal) {
        if (isHidden()) {
            setWindowFlags((windowFlags() & ~Qt::WindowType_Mask) | Qt::Dialog);
        }
        setWindowModality(Qt::ApplicationModal);
    }
    if (owner != nullptr && owner != this) {
        // Above its owner, yet not its child: each window lives exactly as long as its form is loaded.
        winId();
        windowHandle()->setTransientParent(owner->window()->windowHandle());
    }
    show();
    raise();
    activateWindow();
}

// --- from the user to the form ---

bool FormWindow::event(QEvent* event) {
    if (event->type() == FlushEvent()) {
        flushPosted_ = false;
        Flush();
        if (live_) {
            SettleFocus(true);
        }
        return true;
    }
    if (event->type() == ActivateEvent()) {
        DeliverActivate();
        return true;
    }
    if (event->type() == RescaleEvent()) {
        Rescale();
        return true;
    }
    if (event->type() == QEvent::WindowActivate && live_) {
        activated_();
    } else if (event->type() == QEvent::ApplicationFontChange) {
        // Once all widgets have the new font.
        QCoreApplication::postEvent(this, std::make_unique<QEvent>(RescaleEvent()).release(),
                                    Qt::HighEventPriority);
    }
    return QWidget::event(event);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (!live_) {
        return false;
    }
    if (watched == canvas_) {
        if (event->type() == QEvent::Resize) {
            ReportSize();
        }
        return false;
    }
    Adapter* const adapter = byWidget_.value(watched, nullptr);
    if (adapter == nullptr) {
        return false;
    }
    if (event->type() == QEvent::FocusIn) {
        // Where the keyboard is shows at once, not only after the first Tab.
        setAttribute(Qt::WA_KeyboardFocusChange);
        return FocusIn(*adapter, static_cast<QFocusEvent*>(event)->reason());
    }
    if (event->type() == QEvent::KeyPress && watched == focusWidget()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (KeyPressed(*key)) {
            return true;
        }
        seenKey_ = key;
        seenAt_ = key->timestamp();
    }
    return adapter->Filter(*event);
}

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        ReportSize();
    } else if (event->type() == QEvent::PaletteChange) {
        MarkAll();
    }
}

// A control that lies outside waits for the window to be made larger: Tab passes it by.
bool FormWindow::focusNextPrevChild(bool next) {
    const QWidget* const first = focusWidget();
    do {
        if (!QWidget::focusNextPrevChild(next)) {
            return false;
        }
    } while (focusWidget() != nullptr && focusWidget() != first && focusWidget()->visibleRegion().isEmpty());
    return true;
}

void FormWindow::closeEvent(QCloseEvent* event) {
    Input([this] { form_.InputClose(); });
    // A form that stays open keeps its window.
    event->setAccepted(!live_);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    const bool seen = event == seenKey_ && event->timestamp() == seenAt_;
    if (seen || !KeyPressed(*event)) {
        QWidget::keyPressEvent(event);
    }
}

bool FormWindow::KeyPressed(const QKeyEvent& event) {
    const int key = event.key();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
        return false;
    }
    const int code = KeyCode(event);
    if (event.isAutoRepeat() && (code == platform::key::Return || code == platform::key::Escape)) {
        return true;  // a key held down too long must not answer the window that it has opened
    }
    bool used = false;
    Input([&] { used = form_.InputKey(code, ShiftState(event), Character(event)); });
    return used || !live_;
}

}  // namespace qt
