// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

#include "platform/error.h"
#include "platform/forms/desktop.h"
#include "platform/forms/form.h"

namespace vemora {

/// Sizes of the buffers that texts of the language file are read into: a text is cut to one character less.
namespace buffer {
inline constexpr std::size_t Text = 255;
inline constexpr std::size_t Caption = 500;
inline constexpr std::size_t ToolTip = 2000;
inline constexpr std::size_t Language = 100;
}  // namespace buffer

/// The texts of the active language file, and their binding to the controls of a window.
///
/// Nothing is cached: each call reads the file again, so that a change of language holds at once.
class mTexter {
  public:
    mTexter(platform::Desktop& desktop, std::filesystem::path folder)
        : desktop_(desktop), folder_(std::move(folder)) {}

    /// Text of a key ("R0026"); empty for an empty or missing key and a missing file.
    std::string TextTillAndra(const std::string& Nyckel);

    /// Gives a control the texts that its Tag names: "first key[+second key][;tool tip key]". What takes no
    /// caption gets the text as tool tip, if SättTips. False for an empty Tag and after a failure.
    bool TextTillControl(platform::Control& ctl, const std::string& Tagg, bool SättTips);

    /// Gives a window its title and all its controls their texts. False after a failure, which leaves the
    /// rest of the controls as designed.
    bool SetTextOfForm(platform::Form& frm);

  private:
    std::string ReadText(const std::string& key, std::size_t size) const;
    void Report(const platform::Error& error, const char* ending);

    platform::Desktop& desktop_;
    std::filesystem::path folder_;
    bool reporting_ = false;
};

/// Whether the active language file is there.
bool LanguageFileExists(const std::filesystem::path& folder);

}  // namespace vemora
