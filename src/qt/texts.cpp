// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/texts.h"

#include <QTextDocument>
#include <algorithm>

namespace qt {

QString WithoutMnemonic(const QString& caption) {
    QString text;
    for (int i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && ++i >= caption.size()) {
            break;
        }
        text += caption[i];
    }
    return text;
}

QString ToolTip(const std::string& text) {
    constexpr int kOneLine = 60;
    QString plain = Clean(QString::fromStdString(text), true);
    if (plain.size() <= kOneLine && !Qt::mightBeRichText(plain)) {
        return plain;
    }
    // Only rich text is broken into lines by the tool tip itself.
    return Qt::convertFromPlainText(plain, Qt::WhiteSpaceNormal);
}

QString Clean(const QString& text, bool multiLine) {
    const auto isBreak = [](QChar c) {
        return c == '\r' || c == '\n' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    };
    const auto isControl = [](QChar c) { return c.unicode() < 0x20 || c.unicode() == 0x7F; };
    if (std::none_of(text.begin(), text.end(), [&](QChar c) { return isBreak(c) || isControl(c); })) {
        return text;
    }
    QString clean;
    clean.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (isBreak(c)) {
            if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
                ++i;
            }
            clean += multiLine ? QChar('\n') : QChar(' ');
        } else if (c == '\t') {
            clean += multiLine ? c : QChar(' ');
        } else if (!isControl(c)) {
            clean += c;
        }
    }
    return clean;
}

int Utf16Length(const QString& text, int codePoints) {
    int i = 0;
    for (; codePoints > 0 && i < text.size(); --codePoints) {
        i += text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate() ? 2 : 1;
    }
    return i;
}

int CodePoints(QStringView text) {
    int count = 0;
    for (qsizetype i = 0; i < text.size(); ++i, ++count) {
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            ++i;
        }
    }
    return count;
}

Fitting Fit(const QString& text, int px, const QFontMetrics& metrics) {
    if (metrics.horizontalAdvance(text) <= px) {
        return {text, false};
    }
    const QString elided = metrics.elidedText(text, Qt::ElideRight, px);
    const auto seen = elided.size() - 1;
    if (seen > 0 && seen < text.size() && text[seen - 1].isSpace() && text[seen].isSpace()) {
        QString head = text.left(seen);
        while (head.endsWith(' ')) {
            head.chop(1);
        }
        return {head, false};
    }
    return {elided, true};
}

}  // namespace qt
