// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/formula_adapter.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <algorithm>

#include "qt/form_window.h"
#include "qt/formula_document.h"
#include "qt/formula_widget.h"
#include "qt/owned.h"

namespace qt {

FormulaAdapter::FormulaAdapter(FormWindow& window, platform::oFormula& formula)
    : WidgetAdapter(window, formula, Child<FormulaWidget>(ParentOf(window, formula))),
      formula_(formula),
      widget_(static_cast<FormulaWidget*>(Widget())) {
    QObject::connect(widget_, &QTextEdit::textChanged, Context(), [this] { Edited(); });
    QObject::connect(widget_, &QTextEdit::cursorPositionChanged, Context(), [this] { CaretMoved(); });
}

// --- from the user ---

void FormulaAdapter::Edited() {
    if (Window().Flushing() || amending_ || !Window().Live()) {
        return;
    }
    const QTextDocument& document = *widget_->document();
    const ShownFormula shown = ReadFormula(document);
    if (shown.Characters == formula_.Formula().Characters() && !shown.Foreign && shown.PastedEnd == 0) {
        return;  // an input method is about to write something
    }
    // A step taken back or done again brings the heights along. Nothing is left to be done again behind the
    // last one, which is known by what it leads to.
    const bool undone = document.isRedoAvailable();
    const platform::FormulaText whole(shown.Characters);
    if (undone || shown.Characters == latest_) {
        Window().Input([&] { formula_.InputEarlier(whole); });
    } else if (shown.PastedEnd > 0) {
        Window().Input([&] { formula_.InputFormula(whole); });
    } else {
        Typed(shown.Characters);
    }
    Amend(shown, true);
    if (!undone) {
        latest_ = formula_.Formula().Characters();
    }
    Window().Mark(*this);
}

// What has been typed ends at the caret.
void FormulaAdapter::Typed(const Characters& now) {
    const Characters& before = formula_.Formula().Characters();
    const std::size_t least = std::min(now.size(), before.size());
    const auto caret = static_cast<std::size_t>(CharactersIn(now, widget_->textCursor().position()));
    const auto sameAtEnd = [&](std::size_t tail) {
        return now[now.size() - 1 - tail].Code == before[before.size() - 1 - tail].Code;
    };
    std::size_t tail = 0;
    while (tail < std::min(least, now.size() - caret) && sameAtEnd(tail)) {
        ++tail;
    }
    std::size_t start = 0;
    while (start < least - tail && now[start].Code == before[start].Code) {
        ++start;
    }
    while (tail < least - start && sameAtEnd(tail)) {
        ++tail;  // it isn't the caret's hand that has written
    }
    std::u32string text;
    for (std::size_t i = start; i < now.size() - tail; ++i) {
        text += now[i].Code;
    }
    Window().Input([&] {
        formula_.InputText(static_cast<int>(start), static_cast<int>(before.size() - tail - start),
                           QString::fromStdU32String(text).toStdString());
    });
}

void FormulaAdapter::CaretMoved() {
    if (!Window().Flushing() && Window().Live() && widget_->document()->revision() == revision_) {
        formula_.InputCaret(CharactersIn(formula_.Formula().Characters(), widget_->textCursor().position()));
    }
}

bool FormulaAdapter::Filter(QEvent& event) {
    return event.type() == QEvent::KeyPress && KeyPressed(static_cast<QKeyEvent&>(event));
}

bool FormulaAdapter::KeyPressed(const QKeyEvent& key) {
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    switch (key.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return true;  // the window has had it, and a formula is one line
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_0:
            if (modifiers == Qt::ControlModifier) {
                SetHeight(key.key() == Qt::Key_Up     ? platform::Run::Super
                          : key.key() == Qt::Key_Down ? platform::Run::Sub
                                                      : platform::Run::Normal);
                return true;
            }
            break;
        default:
            break;
    }
    // Alt and a letter that belongs to nothing in the window is no text, unless it makes another character.
    return modifiers == Qt::AltModifier && key.text().size() == 1 &&
           key.text().at(0).toUpper().unicode() == key.key();
}

void FormulaAdapter::SetHeight(platform::Run::Height height) {
    const Characters& characters = formula_.Formula().Characters();
    const QTextCursor cursor = widget_->textCursor();
    const int start = CharactersIn(characters, cursor.selectionStart());
    const int length = CharactersIn(characters, cursor.selectionEnd()) - start;
    Window().Input([&] { formula_.InputHeight(start, length, height); });
    Amend({settled_}, false);
    latest_ = characters;
    Window().Mark(*this);
}

void FormulaAdapter::Amend(const ShownFormula& shown, bool partOfLastStep) {
    if (Window().Live()) {
        const QScopedValueRollback<bool> guard(amending_, true);
        AmendFormula(*widget_, shown, formula_.Formula(), partOfLastStep);
        Settle();
    }
}

void FormulaAdapter::Settle() {
    settled_ = formula_.Formula().Characters();
    revision_ = widget_->document()->revision();
}

// --- from the model ---

void FormulaAdapter::CarryOwn() {
    constexpr int kTwipsPerPoint = 20;
    QTextDocument& document = *widget_->document();
    if (widget_->isReadOnly() != formula_.Locked) {
        widget_->SetEditable(!formula_.Locked);
        document.clearUndoRedoStacks();
    }
    if (revision_ != document.revision() || settled_ != formula_.Formula().Characters()) {
        LoadFormula(document, formula_.Formula());
        widget_->moveCursor(QTextCursor::End);
        latest_.clear();
        Settle();
    }
    widget_->Show(formula_.Content(), Window().Measure().Px(formula_.Padding * kTwipsPerPoint));
}

// --- RichTextBox ---

RichTextBoxAdapter::RichTextBoxAdapter(FormWindow& window, platform::RichTextBox& box)
    : WidgetAdapter(window, box, Child<FormulaWidget>(ParentOf(window, box))),
      box_(box),
      widget_(static_cast<FormulaWidget*>(Widget())) {}

void RichTextBoxAdapter::CarryOwn() {
    constexpr int kPadding = 80;  // twips
    // For a reader of the screen; what is seen is drawn.
    if (const QString text = QString::fromStdString(platform::PlainText(box_.Content()));
        widget_->toPlainText() != text) {
        widget_->setPlainText(text);
    }
    widget_->Show(box_.Content(), Window().Measure().Px(kPadding));
}

}  // namespace qt
