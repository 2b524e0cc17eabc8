// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/formula_box.h"

#include <algorithm>

#include "platform/forms/form.h"
#include "platform/richtext/rtf.h"

namespace platform {

namespace {

std::size_t Place(int position) {
    return static_cast<std::size_t>(std::max(position, 0));
}

}  // namespace

oFormula::oFormula(Form& parent, std::string name, const Design& design, int index)
    : Control(parent, std::move(name), design, index), Locked(*this, design.Locked), Padding(*this, 0) {}

std::string oFormula::PlainText() const {
    return platform::PlainText(content_);
}

void oFormula::SetPlainText(const std::string& text) {
    Load({Run{text}}, {});
    Notify();
}

std::string oFormula::RichText() const {
    if (!stored_.empty() && content_ == storedContent_) {
        return stored_;
    }
    return content_.empty() ? std::string() : WriteRtf(content_, Font->Name, Font->Size);
}

void oFormula::SetRichText(const std::string& rtf) {
    Load(ParseRtf(rtf), rtf);
    Notify();
}

void oFormula::Reset() {
    Load({}, {});
    Control::Reset();
}

void oFormula::Load(const platform::RichText& content, const std::string& rtf) {
    formula_ = FormulaText(content);
    content_ = formula_.Content();
    stored_ = rtf;
    storedContent_ = content_;
    next_.reset();
}

// --- the user ---

template <class F>
void oFormula::Edit(F&& change) {
    Parent().Screen().Event([&] {
        if (Reachable() && !Locked) {
            change();
            content_ = formula_.Content();
            Notify();
        }
    });
}

void oFormula::InputText(int start, int removed, const std::string& text) {
    Edit([&] {
        const std::size_t from = Place(start);
        const std::size_t count = Place(removed);
        if (next_ && (next_->Position < from || next_->Position > from + count)) {
            next_.reset();
        }
        const platform::RichText typed = OneLine({Run{text, next_ ? next_->Height : Run::Normal}});
        const std::size_t added = formula_.Replace(from, count, typed, next_.has_value());
        if (next_) {
            next_->Position = from + added;
        }
    });
}

void oFormula::InputHeight(int start, int length, Run::Height height) {
    Edit([&] {
        if (length > 0) {
            next_.reset();
            formula_.SetHeight(Place(start), Place(length), height);
        } else if (next_ && next_->Position == Place(start) && next_->Height == height) {
            next_.reset();
        } else {
            next_ = NextHeight{Place(start), height};
        }
    });
}

void oFormula::InputFormula(const FormulaText& formula) {
    Edit([&] {
        next_.reset();
        formula_ = formula;
        formula_.ApplyRule();
    });
}

void oFormula::InputEarlier(const FormulaText& formula) {
    Edit([&] {
        next_.reset();
        formula_ = formula;
    });
}

void oFormula::InputCaret(int position) {
    if (next_ && next_->Position != Place(position)) {
        next_.reset();
    }
}

}  // namespace platform
