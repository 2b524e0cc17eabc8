// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/picture_adapters.h"

#include <QAbstractButton>
#include <QPainter>
#include <QSvgRenderer>

#include "qt/form_window.h"
#include "qt/owned.h"
#include "qt/pictures.h"

namespace qt {

/// A picture as large as its place allows without distortion.
class Drawing {
  public:
    virtual ~Drawing() = default;

    void Show(const QString& name) {
        if (name != name_) {
            name_ = name;
            renderer_.load(name.isEmpty() ? QString() : PicturePath(name));
            renderer_.setAspectRatioMode(Qt::KeepAspectRatio);
            Changed();
        }
    }

  protected:
    virtual void Changed() = 0;
    void Draw(QPainter& painter, const QRect& place) {
        if (renderer_.isValid()) {
            renderer_.render(&painter, QRectF(place));
        }
    }

  private:
    QString name_;
    QSvgRenderer renderer_;
};

namespace {

class PictureWidget final : public QWidget, public Drawing {
  public:
    using QWidget::QWidget;

  protected:
    void Changed() override { update(); }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Draw(painter, rect());
    }
};

/// A picture that can be pressed. Its frame shows the focus, and that it is down.
class PictureButton final : public QAbstractButton, public Drawing {
  public:
    explicit PictureButton(QWidget* parent) : QAbstractButton(parent) { setCursor(Qt::PointingHandCursor); }

  protected:
    void Changed() override { update(); }
    void paintEvent(QPaintEvent*) override {
        constexpr int kFrame = 4;
        QPainter painter(this);
        const int down = isDown() ? 1 : 0;
        Draw(painter, rect().adjusted(kFrame, kFrame, -kFrame, -kFrame).translated(down, down));
        if (hasFocus()) {
            painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
            painter.drawRect(rect().adjusted(1, 1, -1, -1));
        }
    }
};

}  // namespace

bool IsPicture(const QWidget& widget) {
    return dynamic_cast<const PictureWidget*>(&widget) != nullptr;
}

ImageAdapter::ImageAdapter(FormWindow& window, platform::Image& image)
    : ImageAdapter(window, image,
                   image.TakesFocus() ? static_cast<QWidget*>(Child<PictureButton>(ParentOf(window, image)))
                                      : Child<PictureWidget>(ParentOf(window, image))) {
    if (auto* button = qobject_cast<QAbstractButton*>(Widget())) {
        QObject::connect(button, &QAbstractButton::clicked, Context(),
                         [this] { Report([this] { image_.InputClick(); }); });
    }
}

ImageAdapter::ImageAdapter(FormWindow& window, platform::Image& image, QWidget* widget)
    : WidgetAdapter(window, image, widget), image_(image), drawing_(dynamic_cast<Drawing*>(widget)) {}

void ImageAdapter::CarryOwn() {
    drawing_->Show(QString::fromStdString(image_.Picture));
}

// --- PictureBox ---

PictureBoxAdapter::PictureBoxAdapter(FormWindow& window, platform::PictureBox& box)
    : WidgetAdapter(window, box, Child<QWidget>(ParentOf(window, box))) {}

}  // namespace qt
