// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/richtext/formula_text.h"

#include <algorithm>
#include <string>

#include "platform/richtext/formula.h"

namespace platform {

namespace {

using CharacterList = std::vector<FormulaText::Character>;

CharacterList CharactersOf(const RichText& text, bool set) {
    CharacterList characters;
    for (const Run& run : Normalised(text)) {
        for (const char32_t code : CodePoints(run.Text)) {
            characters.push_back({code, run.Position, set});
        }
    }
    return characters;
}

RichText RichTextOf(const CharacterList& characters) {
    RichTextBuilder text;
    for (const FormulaText::Character& character : characters) {
        text.Add(static_cast<UChar32>(character.Code), character.Position);
    }
    return text.Take();
}

bool IsControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

}  // namespace

FormulaText::FormulaText(const RichText& stored) : characters_(CharactersOf(stored, true)) {}

RichText FormulaText::Content() const {
    return RichTextOf(characters_);
}

std::size_t FormulaText::Replace(std::size_t start, std::size_t removed, const RichText& text, bool set) {
    const CharacterList added = CharactersOf(text, set);
    start = std::min(start, characters_.size());
    removed = std::min(removed, characters_.size() - start);
    const auto at = characters_.begin() + static_cast<std::ptrdiff_t>(start);
    characters_.insert(characters_.erase(at, at + static_cast<std::ptrdiff_t>(removed)), added.begin(),
                       added.end());
    ApplyRule();
    return added.size();
}

void FormulaText::SetHeight(std::size_t start, std::size_t length, Run::Height height) {
    start = std::min(start, characters_.size());
    length = std::min(length, characters_.size() - start);
    for (std::size_t i = start; i < start + length; ++i) {
        characters_[i].Position = height;
        characters_[i].Set = true;
    }
    ApplyRule();
}

void FormulaText::ApplyRule() {
    std::u32string codes;
    for (const Character& character : characters_) {
        codes += character.Code;
    }
    const std::vector<Run::Height> heights = TypedHeights(codes);
    bool follows = false;  // a digit goes on with the number that it stands behind
    for (std::size_t i = 0; i < characters_.size(); ++i) {
        Character& character = characters_[i];
        follows = IsDigit(character.Code) && (character.Set || follows);
        if (!character.Set) {
            character.Position =
                follows && heights[i] != Run::Super ? characters_[i - 1].Position : heights[i];
        }
    }
}

RichText OneLine(const RichText& text) {
    CharacterList characters = CharactersOf(text, false);
    const auto isText = [](const FormulaText::Character& c) { return !IsControl(c.Code); };
    characters.erase(std::find_if(characters.rbegin(), characters.rend(), isText).base(), characters.end());
    characters.erase(characters.begin(), std::find_if(characters.begin(), characters.end(), isText));
    for (FormulaText::Character& character : characters) {
        if (character.Code == '\n' || character.Code == '\t') {
            character.Code = ' ';
        }
    }
    std::erase_if(characters, [&](const FormulaText::Character& c) { return !isText(c); });
    return RichTextOf(characters);
}

bool HasHeights(const RichText& text) {
    return std::any_of(text.begin(), text.end(), [](const Run& run) { return run.Position != Run::Normal; });
}

}  // namespace platform
