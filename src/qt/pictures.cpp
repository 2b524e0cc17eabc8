// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/pictures.h"

#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>
#include <memory>

// Outside any namespace, as the macro demands: a static library's resources must be asked for.
static void InitPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace qt {

namespace {

class SvgEngine final : public QIconEngine {
  public:
    explicit SvgEngine(const QString& path) : renderer_(std::make_shared<QSvgRenderer>(path)) {
        renderer_->setAspectRatioMode(Qt::KeepAspectRatio);
    }

    QIconEngine* clone() const override { return std::make_unique<SvgEngine>(*this).release(); }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        if (mode == QIcon::Disabled) {
            painter->setOpacity(0.5);
        }
        renderer_->render(painter, QRectF(rect));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        return {{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}, {128, 128}};
    }
    bool isNull() override { return !renderer_->isValid(); }

  private:
    std::shared_ptr<QSvgRenderer> renderer_;
};

}  // namespace

QString PicturePath(const QString& name) {
    InitPictures();
    return ":/pictures/" + name + ".svg";
}

QIcon Picture(const QString& name) {
    return name.isEmpty() ? QIcon() : QIcon(std::make_unique<SvgEngine>(PicturePath(name)).release());
}

QPixmap TintedPicture(const QString& name, const QSize& size, qreal ratio, const QColor& colour) {
    QPixmap pixmap(size * ratio);
    pixmap.fill(Qt::transparent);
    {
        QPainter painter(&pixmap);
        QSvgRenderer renderer(PicturePath(name));
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(&painter, QRectF(pixmap.rect()));
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), colour);
    }
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

}  // namespace qt
