// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/text_adapter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QValidator>
#include <algorithm>
#include <limits>

#include "qt/form_window.h"
#include "qt/owned.h"
#include "qt/texts.h"

namespace qt {

namespace {

// Takes line breaks and control characters out of what is pasted into one line. Those at its ends come with
// the cell or the line that was copied, and belong to no text.
class OneLine final : public QValidator {
  public:
    using QValidator::QValidator;
    State validate(QString& text, int& caret) const override {
        const auto isControl = [](QChar c) { return c.category() == QChar::Other_Control; };
        const auto from = std::find_if_not(text.begin(), text.end(), isControl) - text.begin();
        const auto behind = std::find_if_not(text.rbegin(), text.rend(), isControl) - text.rbegin();
        const QString trimmed = text.mid(from, std::max<qsizetype>(text.size() - from - behind, 0));
        const QString clean = Clean(trimmed, false);
        if (clean != text) {
            const auto before = std::clamp<qsizetype>(caret - from, 0, trimmed.size());
            caret = static_cast<int>(Clean(trimmed.left(before), false).size());
            text = clean;
        }
        return Acceptable;
    }
};

// Takes pasted text without its formatting and control characters.
class PlainArea final : public QPlainTextEdit {
  public:
    using QPlainTextEdit::QPlainTextEdit;

  protected:
    void insertFromMimeData(const QMimeData* source) override {
        if (source->hasText()) {
            textCursor().insertText(Clean(source->text(), true));
            ensureCursorVisible();
        }
    }
};

QWidget* MakeWidget(const FormWindow& window, const platform::TextBox& box) {
    QWidget* parent = ParentOf(window, box);
    if (box.MultiLine()) {
        auto* area = Child<PlainArea>(parent);
        area->setTabChangesFocus(true);
        return area;
    }
    auto* line = Child<QLineEdit>(parent);
    line->setMaxLength(std::numeric_limits<int>::max());
    line->setValidator(Child<OneLine>(line));
    return line;
}

QString WithCrLf(QString text) {
    return text.replace('\n', "\r\n");
}

}  // namespace

TextBoxAdapter::TextBoxAdapter(FormWindow& window, platform::TextBox& box)
    : WidgetAdapter(window, box, MakeWidget(window, box)),
      box_(box),
      line_(qobject_cast<QLineEdit*>(Widget())),
      area_(qobject_cast<QPlainTextEdit*>(Widget())) {
    if (line_ != nullptr) {
        QObject::connect(line_, &QLineEdit::textChanged, Context(), [this] { Edited(); });
        QObject::connect(line_, &QLineEdit::cursorPositionChanged, Context(), [this] { Mirror(); });
        QObject::connect(line_, &QLineEdit::selectionChanged, Context(), [this] { Mirror(); });
    } else {
        QObject::connect(area_, &QPlainTextEdit::textChanged, Context(), [this] { Edited(); });
        QObject::connect(area_, &QPlainTextEdit::cursorPositionChanged, Context(), [this] { Mirror(); });
        QObject::connect(area_, &QPlainTextEdit::selectionChanged, Context(), [this] { Mirror(); });
    }
}

QString TextBoxAdapter::Shown() const {
    return line_ != nullptr ? line_->text() : area_->toPlainText();
}

std::pair<int, int> TextBoxAdapter::ShownSelection() const {
    if (line_ != nullptr) {
        return line_->hasSelectedText() ? std::pair(line_->selectionStart(), line_->selectionLength())
                                        : std::pair(line_->cursorPosition(), 0);
    }
    const QTextCursor cursor = area_->textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

// --- from the user ---

// The click that brings the focus must not take away what the form selects when it gets it: neither by the
// press nor by a hand that isn't quite still. Who drags on selects from where the press was.
bool TextBoxAdapter::Filter(QEvent& event) {
    if (line_ == nullptr) {
        return false;
    }
    if (event.type() == QEvent::MouseButtonPress) {
        const QPoint at = static_cast<QMouseEvent&>(event).position().toPoint();
        focusClick_ = Marked ? std::optional(at) : std::nullopt;
    } else if (event.type() == QEvent::MouseMove && focusClick_.has_value()) {
        const QPoint at = static_cast<QMouseEvent&>(event).position().toPoint();
        if ((at - *focusClick_).manhattanLength() < QApplication::startDragDistance()) {
            return true;
        }
        line_->setCursorPosition(line_->cursorPositionAt(*focusClick_));
        focusClick_.reset();
    } else if (event.type() == QEvent::MouseButtonRelease) {
        focusClick_.reset();
    } else if (event.type() == QEvent::KeyPress) {
        // Alt and a letter that belongs to nothing in the window is no text. (On some keyboards Alt makes
        // another character out of the key, which is.)
        const auto& key = static_cast<QKeyEvent&>(event);
        return key.modifiers() == Qt::AltModifier && key.text().size() == 1 &&
               key.text().at(0).toUpper().unicode() == key.key();
    }
    return false;
}

void TextBoxAdapter::Edited() {
    if (Window().Flushing()) {
        return;
    }
    MirrorSelection();
    const QString text = line_ != nullptr ? Shown() : WithCrLf(Shown());
    Report([this, text] { box_.InputText(text.toStdString()); });
}

void TextBoxAdapter::Mirror() {
    // A selection that the form has asked for and that isn't carried over yet goes first.
    if (!Window().Flushing() && Window().Live() && !Marked) {
        MirrorSelection();
    }
}

void TextBoxAdapter::MirrorSelection() {
    const auto [start, length] = ShownSelection();
    QString before = Shown().left(start);
    QString selected = Shown().mid(start, length);
    if (area_ != nullptr) {
        before = WithCrLf(before);
        selected = WithCrLf(selected);
    }
    box_.SelStart.SetSilently(CodePoints(before));
    box_.SelLength.SetSilently(CodePoints(selected));
}

// --- from the model ---

void TextBoxAdapter::CarryOwn() {
    const QString text = QString::fromStdString(box_.Text);
    CarryText(Clean(text, area_ != nullptr));
    CarryLocked();
    CarrySelection(text);
}

void TextBoxAdapter::CarryText(const QString& text) {
    if (Shown() == text) {
        return;
    }
    if (line_ != nullptr) {
        line_->setText(text);
    } else {
        area_->setPlainText(text);
    }
}

void TextBoxAdapter::CarryLocked() {
    if (line_ != nullptr) {
        line_->setReadOnly(box_.Locked);
    } else if (area_->isReadOnly() != box_.Locked) {
        area_->setReadOnly(box_.Locked);
        // Locked text can be walked through and copied by keys, too.
        area_->setTextInteractionFlags(box_.Locked ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                                   : Qt::TextEditorInteraction);
    }
}

void TextBoxAdapter::CarrySelection(const QString& text) {
    const QString units = line_ != nullptr ? Shown() : text;
    const int from = Utf16Length(units, std::max<int>(box_.SelStart, 0));
    const int count = Utf16Length(units.mid(from), std::max<int>(box_.SelLength, 0));
    const QString before = Clean(units.left(from), area_ != nullptr);
    const QString selected = Clean(units.mid(from, count), area_ != nullptr);
    const auto start = static_cast<int>(before.size());
    const auto length = static_cast<int>(selected.size());
    // What reaches beyond the text is cut: the next time that it is asked for is a change again.
    box_.SelStart.SetSilently(CodePoints(QStringView(units).left(from)));
    box_.SelLength.SetSilently(CodePoints(QStringView(units).mid(from, count)));
    if (ShownSelection() == std::pair(start, length)) {
        return;
    }
    if (area_ != nullptr) {
        QTextCursor cursor = area_->textCursor();
        cursor.setPosition(start);
        cursor.setPosition(start + length, QTextCursor::KeepAnchor);
        area_->setTextCursor(cursor);
    } else if (length > 0) {
        line_->setSelection(start, length);
    } else {
        line_->setCursorPosition(start);
    }
}

}  // namespace qt
