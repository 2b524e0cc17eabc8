// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/forms/pictures.h"
#include "qt/adapter.h"

namespace qt {

class Drawing;

/// Whether a widget shows a picture that nobody can press.
bool IsPicture(const QWidget& widget);

class ImageAdapter final : public WidgetAdapter {
  public:
    ImageAdapter(FormWindow& window, platform::Image& image);

  protected:
    void CarryOwn() override;

  private:
    ImageAdapter(FormWindow& window, platform::Image& image, QWidget* widget);

    platform::Image& image_;
    Drawing* drawing_;
};

class PictureBoxAdapter final : public WidgetAdapter {
  public:
    PictureBoxAdapter(FormWindow& window, platform::PictureBox& box);

  protected:
    void CarryOwn() override {}
};

}  // namespace qt
