// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/picture_adapters.h"

#include <QPainter>
#include <QSvgRenderer>

#include "qt/form_window.h"
#include "qt/formula_widget.h"
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

// --- Image ---

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

// --- oFormula ---

FormulaAdapter::FormulaAdapter(FormWindow& window, platform::oFormula& formula)
    : WidgetAdapter(window, formula, Child<FormulaWidget>(ParentOf(window, formula))),
      formula_(formula),
      widget_(static_cast<FormulaWidget*>(Widget())) {}

void FormulaAdapter::CarryOwn() {
    constexpr int kTwipsPerPoint = 20;
    widget_->setFocusPolicy(formula_.TakesFocus() ? Qt::StrongFocus : Qt::NoFocus);
    widget_->Show(formula_.Content(), Window().Measure().Px(formula_.Padding * kTwipsPerPoint));
    Window().NamesChanged();
}

}  // namespace qt
