// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/formula_document.h"

#include <QHash>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <algorithm>
#include <array>

#include "platform/richtext/rtf.h"

namespace qt {

namespace {

using Character = platform::FormulaText::Character;
using platform::Run;

// What a format's own property adds up from.
constexpr int kOrigin = QTextFormat::UserProperty;
constexpr int kSet = 1;
constexpr int kPasted = 2;

QTextCharFormat FormatOf(Run::Height height, int origin) {
    QTextCharFormat format;
    if (height != Run::Normal) {
        format.setVerticalAlignment(height == Run::Sub ? QTextCharFormat::AlignSubScript
                                                       : QTextCharFormat::AlignSuperScript);
    }
    if (origin != 0) {
        format.setProperty(kOrigin, origin);
    }
    return format;
}

Run::Height HeightOf(const QTextCharFormat& format) {
    switch (format.verticalAlignment()) {
        case QTextCharFormat::AlignSubScript:
            return Run::Sub;
        case QTextCharFormat::AlignSuperScript:
            return Run::Super;
        default:
            return Run::Normal;
    }
}

int Units(const Character& character) {
    return character.Code > 0xFFFF ? 2 : 1;
}

// Inserts the characters from begin to end; a line end is one in the one block of a formula.
void Insert(QTextCursor& cursor, const std::vector<Character>& characters, std::size_t begin,
            std::size_t end) {
    for (std::size_t i = begin; i < end;) {
        const Character& first = characters[i];
        QString text;
        for (; i < end && characters[i].Position == first.Position && characters[i].Set == first.Set; ++i) {
            const char32_t code = characters[i].Code;
            text += code == '\n' ? QString(QChar::LineSeparator) : QString::fromUcs4(&code, 1);
        }
        cursor.insertText(text, FormatOf(first.Position, first.Set ? kSet : 0));
    }
}

void AppendTo(std::vector<Character>& characters, const QString& text, Run::Height height, bool set) {
    for (const uint code : text.toUcs4()) {
        const bool breaks = code == QChar::LineSeparator || code == QChar::ParagraphSeparator;
        characters.push_back({breaks ? U'\n' : static_cast<char32_t>(code), height, set});
    }
}

// Marking that is read for its text and heights alone: nothing that it names is fetched.
class PastedDocument final : public QTextDocument {
  protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

platform::RichText OfHtml(const QString& html) {
    PastedDocument document;
    document.setHtml(html);
    platform::RichText text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.position() > 0) {
            text.push_back({"\n"});
        }
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment fragment = at.fragment();
            text.push_back({fragment.text().remove(QChar::ObjectReplacementCharacter).toStdString(),
                            HeightOf(fragment.charFormat())});
        }
    }
    return text;
}

}  // namespace

ShownFormula ReadFormula(const QTextDocument& document) {
    struct Format {
        Run::Height Height;
        int Origin;
        bool Foreign;
    };
    QHash<int, Format> formats;
    const auto formatOf = [&formats](const QTextFragment& fragment) {
        const int index = fragment.charFormatIndex();
        const auto known = formats.constFind(index);
        if (known != formats.constEnd()) {
            return *known;
        }
        const QTextCharFormat format = fragment.charFormat();
        const Run::Height height = HeightOf(format);
        const int origin = format.intProperty(kOrigin);
        return *formats.insert(index, {height, origin, format != FormatOf(height, origin)});
    };
    ShownFormula shown;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.position() > 0) {
            shown.Characters.push_back({U'\n'});
            shown.Foreign = true;
        }
        shown.Foreign = shown.Foreign || block.blockFormat().propertyCount() > 0;
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment fragment = at.fragment();
            const Format format = formatOf(fragment);
            const std::size_t begin = shown.Characters.size();
            AppendTo(shown.Characters, fragment.text(), format.Height, (format.Origin & kSet) != 0);
            if ((format.Origin & kPasted) != 0) {
                shown.PastedBegin = shown.PastedEnd == 0 ? begin : shown.PastedBegin;
                shown.PastedEnd = shown.Characters.size();
            }
            shown.Foreign = shown.Foreign || format.Foreign;
        }
    }
    return shown;
}

void LoadFormula(QTextDocument& document, const platform::FormulaText& formula) {
    document.setUndoRedoEnabled(false);
    document.clear();
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    Insert(cursor, formula.Characters(), 0, formula.Characters().size());
    cursor.endEditBlock();
    document.setUndoRedoEnabled(true);
}

void AmendFormula(QTextEdit& editor, const ShownFormula& shown, const platform::FormulaText& formula,
                  bool partOfLastStep) {
    const std::vector<Character>& wanted = formula.Characters();
    const std::vector<Character>& are = shown.Characters;
    if (shown.Foreign) {
        LoadFormula(*editor.document(), formula);
        editor.moveCursor(QTextCursor::End);
        return;
    }
    std::size_t begin = static_cast<std::size_t>(
        std::mismatch(are.begin(), are.end(), wanted.begin(), wanted.end()).first - are.begin());
    std::size_t most = std::min(are.size(), wanted.size()) - begin;
    if (shown.PastedEnd > 0) {
        begin = std::min(begin, shown.PastedBegin);
        most = std::min(most, are.size() - shown.PastedEnd);
    } else if (begin == are.size() && begin == wanted.size()) {
        return;
    }
    std::size_t tail = 0;
    while (tail < most && are[are.size() - 1 - tail] == wanted[wanted.size() - 1 - tail]) {
        ++tail;
    }

    // The text is written anew instead of formatted: only then a step that is done again leaves the caret at
    // its end.
    QTextCursor cursor = editor.textCursor();
    const int from = UnitsOf(are, begin);
    const int to = UnitsOf(are, are.size() - tail);
    const int grown = UnitsOf(wanted, wanted.size()) - UnitsOf(are, are.size());
    const auto moved = [&](int position) {
        return position < to ? std::min(position, to + grown) : position + grown;
    };
    const int anchor = moved(cursor.anchor());
    const int caret = moved(cursor.position());
    if (partOfLastStep) {
        cursor.joinPreviousEditBlock();
    } else {
        cursor.beginEditBlock();
    }
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    Insert(cursor, wanted, begin, wanted.size() - tail);
    cursor.endEditBlock();
    cursor.setPosition(anchor);
    cursor.setPosition(caret, QTextCursor::KeepAnchor);
    editor.setTextCursor(cursor);
}

void PasteFormula(QTextCursor cursor, const platform::RichText& text) {
    const int set = platform::HasHeights(text) ? kSet : 0;
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    for (const Run& run : text) {
        cursor.insertText(QString::fromStdString(run.Text), FormatOf(run.Position, kPasted | set));
    }
    cursor.endEditBlock();
}

platform::RichText FormulaOf(const QMimeData& data) {
    constexpr std::array kRtf = {"text/rtf", "application/rtf", "text/richtext",
                                 "application/x-qt-windows-mime;value=\"Rich Text Format\""};
    if (data.hasHtml()) {
        return platform::OneLine(OfHtml(data.html()));
    }
    for (const char* type : kRtf) {
        if (data.hasFormat(type)) {
            return platform::OneLine(platform::ParseRtf(data.data(type).toStdString()));
        }
    }
    return platform::OneLine({{data.text().toStdString()}});
}

int UnitsOf(const std::vector<Character>& characters, std::size_t count) {
    int units = 0;
    for (std::size_t i = 0; i < count; ++i) {
        units += Units(characters[i]);
    }
    return units;
}

int CharactersIn(const std::vector<Character>& characters, int units) {
    int count = 0;
    for (const Character& character : characters) {
        units -= Units(character);
        if (units < 0) {
            break;
        }
        ++count;
    }
    return count;
}

}  // namespace qt
