// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/picture_adapters.h"

#include <QPainter>
#include <QSvgRenderer>

#include "qt/form_window.h"
#include "qt/owned.h"
#include "qt/pictures.h"

namespace qt {

/// A picture as large as its place allows without distortion.
class PictureWidget final : public QWidget {
  public:
    using QWidget::QWidget;

    void Show(const QString& name) {
        if (name != name_) {
            name_ = name;
            renderer_.load(name.isEmpty() ? QString() : PicturePath(name));
            renderer_.setAspectRatioMode(Qt::KeepAspectRatio);
            update();
        }
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (renderer_.isValid()) {
            renderer_.render(&painter, QRectF(rect()));
        }
    }

  private:
    QString name_;
    QSvgRenderer renderer_;
};

ImageAdapter::ImageAdapter(FormWindow& window, platform::Image& image)
    : WidgetAdapter(window, image, Child<PictureWidget>(ParentOf(window, image))),
      image_(image),
      widget_(static_cast<PictureWidget*>(Widget())) {}

void ImageAdapter::CarryOwn() {
    widget_->Show(QString::fromStdString(image_.Picture));
}

// --- PictureBox ---

PictureBoxAdapter::PictureBoxAdapter(FormWindow& window, platform::PictureBox& box)
    : WidgetAdapter(window, box, Child<QWidget>(ParentOf(window, box))) {}

}  // namespace qt
