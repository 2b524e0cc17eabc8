// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/pictures.h"

#include "platform/forms/form.h"

namespace platform {

Image::Image(Form& parent, std::string name, const Design& design, int index)
    : Control(parent, std::move(name), design, index), Picture(*this, design.Picture) {}

bool Image::Press() {
    if (!Reachable()) {
        return false;
    }
    Raise(Click);
    return true;
}

void Image::InputClick() {
    Parent().Screen().Event([this] { Press(); });
}

ImageList::ImageList(Form& parent, std::string name, std::vector<Entry> images)
    : Control(parent, std::move(name), Design{.Visible = false}), images_(std::move(images)) {}

std::string ImageList::PictureOf(const std::string& key) const {
    for (const Entry& image : images_) {
        if (image.Key == key) {
            return image.Picture;
        }
    }
    return {};
}

std::string ImageList::PictureAt(int index) const {
    return index >= 0 && static_cast<std::size_t>(index) < images_.size()
               ? images_[static_cast<std::size_t>(index)].Picture
               : std::string();
}

}  // namespace platform
