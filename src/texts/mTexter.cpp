// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "texts/mTexter.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/error.h"
#include "platform/files/files.h"
#include "platform/files/ini.h"
#include "platform/text/text.h"

namespace vemora {

namespace {

constexpr std::string_view kSection = "System";
constexpr std::string_view kLanguageFile = "bin/lang.ini";

// Types of control that have no caption, by the exact name that the type reports.
constexpr std::array<std::string_view, 8> kWithoutCaption = {
    "TextBox", "UpDown", "ComboBox", "DTPicker", "FlatScrollBar", "Image", "ListBox", "ListView"};

// The keys that a Tag names.
struct Binding {
    std::string First;
    std::string Second;
    std::string ToolTip;
};

Binding SplitTag(const std::string& tag) {
    Binding keys;
    const auto semicolon = tag.find(';');
    const auto plus = tag.find('+');
    if (semicolon != std::string::npos) {
        keys.ToolTip = tag.substr(semicolon + 1);
    }
    if (plus != std::string::npos) {
        // With a tool tip key behind it the second key takes that along, and so names no entry of the file.
        keys.First = tag.substr(0, plus);
        keys.Second = tag.substr(plus + 1);
    } else {
        keys.First = tag.substr(0, semicolon);
    }
    return keys;
}

}  // namespace

bool LanguageFileExists(const std::filesystem::path& folder) {
    return platform::FindFile(folder, kLanguageFile).has_value();
}

std::string mTexter::ReadText(const std::string& key, std::size_t size) const {
    const auto file = platform::FindFile(folder_, kLanguageFile);
    return file ? platform::ReadKey(kSection, key, size, *file) : std::string();
}

std::string mTexter::TextTillAndra(const std::string& Nyckel) {
    try {
        if (Nyckel.empty()) {
            return {};
        }
        return ReadText(Nyckel, buffer::Text);
    } catch (const platform::Error& error) {
        Report(error, ") in procedure TextTillAndra in Module mTexter");
        return {};
    }
}

bool mTexter::TextTillControl(platform::Control& ctl, const std::string& Tagg, bool SättTips) {
    try {
        if (Tagg.empty()) {
            return false;
        }
        const Binding keys = SplitTag(Tagg);
        std::string text = ReadText(keys.First, buffer::Caption);
        if (!keys.Second.empty()) {
            const std::string second = ReadText(keys.Second, buffer::Caption);
            if (platform::Left(second, 10) != "<<SAKNAS>>") {
                text += second;
            }
        }
        if (!text.empty()) {
            const std::string_view type = ctl.TypeName();
            if (std::find(kWithoutCaption.begin(), kWithoutCaption.end(), type) != kWithoutCaption.end()) {
                if (SättTips) {
                    ctl.SetToolTipText(text);
                }
            } else if (type == "oFormula") {
                ctl.SetToolTipText(text);
            } else if (type != "SSTab") {
                ctl.SetCaption(text);
            }
        }
        if (!keys.ToolTip.empty()) {
            const std::string tip = ReadText(keys.ToolTip, buffer::ToolTip);
            if (!tip.empty()) {
                ctl.SetToolTipText(tip);
            }
        }
        return true;
    } catch (const platform::Error& error) {
        Report(error, ") in procedure TextTillControl in Module mTexter");
        return false;
    }
}

bool mTexter::SetTextOfForm(platform::Form& frm) {
    try {
        if (!frm.Tag->empty()) {
            frm.Caption = TextTillAndra(frm.Tag);
        }
        for (platform::Control* ctl : frm.Controls()) {
            // The first failure, which has been told, leaves the rest as designed.
            if (!ctl->Tag->empty() && !TextTillControl(*ctl, ctl->Tag, true)) {
                return false;
            }
        }
        return true;
    } catch (const platform::Error& error) {
        Report(error, ") in procedure SetTextOfForm in Module mTexter");
        return false;
    }
}

void mTexter::Report(const platform::Error& error, const char* ending) {
    // The look-up of the report's own first word may fail in the same way: then it goes without it.
    std::string begin;
    if (!reporting_) {
        reporting_ = true;
        begin = TextTillAndra("R0030");
        reporting_ = false;
    }
    desktop_.MsgBox(begin + " " + std::to_string(error.Number) + " (" + error.Description + ending);
}

}  // namespace vemora
