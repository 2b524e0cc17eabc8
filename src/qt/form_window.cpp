// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWindow>

#include "qt/accessible_names.h"
#include "qt/list_widget.h"
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

// What a window shows of its canvas. It scrolls only on a screen that is too small for the window, and then
// by the focus and the mouse: the keys are the controls'.
class CanvasArea final : public QScrollArea {
  public:
    explicit CanvasArea(QWidget* parent) : QScrollArea(parent) {
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
    // The toolkit's own would scroll once more, and differently: see FormWindow::Follow.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    bool focusNextPrevChild(bool next) override { return QWidget::focusNextPrevChild(next); }
};

}  // namespace

FormWindow::FormWindow(platform::Form& form, std::function<void()> activated)
    : QWidget(nullptr, FlagsOf(form.DesignState())),
      form_(form),
      activated_(std::move(activated)),
      scale_(Scale::OfDesktop()),
      scroll_(Child<CanvasArea>(this)),
      canvas_(Child<QWidget>(scroll_)) {
    setObjectName(QString::fromStdString(form.Name()));
    auto* layout = Child<QVBoxLayout>(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll_);
    scroll_->setWidget(canvas_);
    canvas_->setAutoFillBackground(false);
    scroll_->viewport()->setAutoFillBackground(false);
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
            if (QWidget* const keyboard = widget->focusProxy()) {
                keyboard->installEventFilter(this);
                byWidget_.insert(keyboard, adapter.get());
            }
            if (const auto* const list = qobject_cast<ListWidget*>(widget)) {
                connect(list, &ListWidget::Moved, this, [this, list] { Follow(*list); });
            }
        }
        adapters_.push_back(std::move(adapter));
    }
    std::vector<const platform::Control*> order;
    AppendInTabOrder(form_, nullptr, order);
    QWidget* previous = nullptr;
    for (const platform::Control* control : order) {
        const Adapter* const adapter = AdapterOf(*control);
        QWidget* widget = adapter != nullptr ? adapter->Widget() : nullptr;
        if (widget != nullptr && widget->focusProxy() != nullptr) {
            widget = widget->focusProxy();  // not the whole of it, with what lies on its pages
        }
        if (widget != nullptr && widget->focusPolicy() != Qt::NoFocus) {
            if (previous != nullptr) {
                setTabOrder(previous, widget);
            }
            previous = widget;
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
        CarryVisible();
        if (namesDue_) {
            namesDue_ = false;
            for (const auto& adapter : adapters_) {
                if (QWidget* widget = adapter->Widget()) {
                    // Setting a name tells of it, even when it is the same.
                    if (const QString name = AccessibleName(adapter->Model());
                        widget->accessibleName() != name) {
                        widget->setAccessibleName(name);
                    }
                }
            }
        }
    }
    SettleFocus(false);
}

// What nobody sees isn't to be had by key or accessibility interface either.
void FormWindow::CarryVisible() {
    for (const auto& adapter : adapters_) {
        if (QWidget* widget = adapter->Widget()) {
            const platform::Control& control = adapter->Model();
            widget->setVisible(control.Visible && !control.Covered());
        }
    }
}

void FormWindow::CarryForm() {
    setWindowTitle(QString::fromStdString(form_.Caption));
    setAccessibleName(QString::fromStdString(form_.SpokenName->empty() ? form_.Caption : form_.SpokenName));
    setWindowIcon(Picture(QString::fromStdString(form_.Icon)));
}

// --- life on the screen ---

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

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        ReportSize();
    } else if (event->type() == QEvent::PaletteChange) {
        MarkAll();
    }
}

void FormWindow::closeEvent(QCloseEvent* event) {
    Input([this] { form_.InputClose(); });
    // A form that stays open keeps its window.
    event->setAccepted(!live_);
}

}  // namespace qt
