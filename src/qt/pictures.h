// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace qt {

/// Where the picture of this name lies.
QString PicturePath(const QString& name);
/// A picture of the program as an icon, sharp at every size; a null icon for an empty name.
QIcon Picture(const QString& name);
/// A picture of one colour in that colour.
QPixmap TintedPicture(const QString& name, const QSize& size, qreal ratio, const QColor& colour);

}  // namespace qt
