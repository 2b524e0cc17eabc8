// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/list_header.h"

#include <QPainter>
#include <QStyleOptionHeader>
#include <algorithm>

#include "qt/pictures.h"

namespace qt {

namespace {

constexpr int kGap = 4;  // px, between the text and the sort picture

}  // namespace

ListHeader::ListHeader(const platform::ListView& list, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), list_(&list) {
    setSectionsMovable(false);
    setHighlightSections(false);
    setStretchLastSection(false);
}

QString ListHeader::SortPicture(int section) const {
    if (list_ == nullptr || section >= list_->ColumnCount() || list_->ColumnHeaderIcons() == nullptr) {
        return {};
    }
    const std::optional<int> image = list_->Column(section).SortImage;
    return image ? QString::fromStdString(list_->ColumnHeaderIcons()->PictureAt(*image)) : QString();
}

int ListHeader::SortPictureSize() const {
    return std::max(8, fontMetrics().height() * 3 / 4);
}

int ListHeader::NeededWidth(int section) const {
    // The base class would measure in bold, which nothing here is drawn in.
    QStyleOptionHeaderV2 option;
    initStyleOption(&option);
    initStyleOptionForIndex(&option, section);
    const int icon =
        option.icon.isNull() ? 0 : style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this) + kGap;
    const int sort = SortPicture(section).isEmpty() ? 0 : kGap + SortPictureSize();
    return 2 * style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this) + icon +
           fontMetrics().horizontalAdvance(model()->headerData(section, Qt::Horizontal).toString()) + sort;
}

void ListHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    if (!rect.isValid()) {
        return;
    }
    QStyleOptionHeaderV2 option;
    initStyleOption(&option);
    option.rect = rect;
    initStyleOptionForIndex(&option, section);

    painter->save();
    style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);

    const QString picture = SortPicture(section);
    QRect label = style()->subElementRect(QStyle::SE_HeaderLabel, &option, this);
    const int size = picture.isEmpty() ? 0 : SortPictureSize();
    if (size > 0) {
        label.setWidth(std::max(0, label.width() - size - kGap));
    }
    const int icon =
        option.icon.isNull() ? 0 : style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this) + kGap;
    option.text = fontMetrics().elidedText(model()->headerData(section, Qt::Horizontal).toString(),
                                           Qt::ElideRight, std::max(0, label.width() - icon));
    option.rect = label;
    style()->drawControl(QStyle::CE_HeaderLabel, &option, painter, this);

    if (size > 0) {
        const int text = icon + fontMetrics().horizontalAdvance(option.text);
        const bool right = (option.textAlignment & Qt::AlignRight) != 0;
        const bool centre = (option.textAlignment & Qt::AlignHCenter) != 0;
        const int end = right ? label.right() : centre ? label.center().x() + text / 2 : label.left() + text;
        const QRect place(end + kGap, rect.center().y() - size / 2, size, size);
        painter->setClipRect(rect);
        painter->drawPixmap(place,
                            TintedPicture(picture, place.size(), devicePixelRatioF(),
                                          option.palette.color(QPalette::Active, QPalette::ButtonText)));
    }
    painter->restore();
}

}  // namespace qt
