// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFontMetrics>
#include <QString>
#include <string>

namespace qt {

/// The caption as a person reads it: without the "&" of its mnemonic.
QString WithoutMnemonic(const QString& caption);

/// A tool tip that shows the text as it is, never as marking, and breaks long ones into lines.
QString ToolTip(const std::string& text);

/// Pasted or stored text as a box can show it: no control characters. In a box of one line a line break or a
/// tab is a blank; otherwise every kind of line break is "\n".
QString Clean(const QString& text, bool multiLine);

/// Number of UTF-16 units of the first `codePoints` code points of the text.
int Utf16Length(const QString& text, int codePoints);
int CodePoints(QStringView text);

/// What of a one-line text can be seen in a width of px pixels. Cut says that something worth reading is not
/// seen; a rest behind a run of blanks is not meant to be.
struct Fitting {
    QString Text;
    bool Cut = false;
};
Fitting Fit(const QString& text, int px, const QFontMetrics& metrics);

}  // namespace qt
