// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/forms/control.h"

namespace platform {

/// A fixed picture, by the name under which the window system keeps it. One with a Click can be pressed, by
/// mouse and keyboard.
class Image final : public Control {
  public:
    Image(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "Image"; }
    Property<std::string> Picture;
    std::function<void()> Click;

    bool TakesFocus() const override { return static_cast<bool>(Click); }
    bool Press() override;
    bool WantsEnter() const override { return TakesFocus(); }
    void InputClick();
};

/// A plain area that holds other controls.
class PictureBox final : public Control {
  public:
    PictureBox(Form& parent, std::string name, const Design& design, int index = -1)
        : Control(parent, std::move(name), design, index) {}
    std::string_view TypeName() const override { return "PictureBox"; }
};

/// Pictures for the headings of lists, by index from 0 or by key.
class ImageList final : public Control {
  public:
    struct Entry {
        std::string Key;
        std::string Picture;
    };
    ImageList(Form& parent, std::string name, std::vector<Entry> images);
    std::string_view TypeName() const override { return "ImageList"; }
    /// Name of the picture, empty when there is none.
    std::string PictureOf(const std::string& key) const;
    std::string PictureAt(int index) const;

  private:
    std::vector<Entry> images_;
};

}  // namespace platform
