// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <limits>
#include <memory>
#include <string>

#include "platform/forms/desktop.h"

struct sqlite3;
struct sqlite3_stmt;

namespace bench {

inline constexpr int kChemicals = 100'000;
inline constexpr int kVerdicts = 1'000'000;
/// A text that 20 of the made-up chemicals hold, and no more.
inline constexpr const char* kRareText = "xyloquin";
/// A chemical with 2,000 verdicts.
inline constexpr int kBigChemical = 4711;

/// The made-up program folder with its database and an English language file; made once, then kept.
std::filesystem::path ProgramFolder(const std::filesystem::path& where);

/// The bare store: the library's own connection on the file, with the file's cipher settings and cache, but
/// with the built-in comparison and LIKE.
class BareStore {
  public:
    explicit BareStore(const std::filesystem::path& file);
    ~BareStore();
    BareStore(const BareStore&) = delete;
    BareStore& operator=(const BareStore&) = delete;

    /// Runs a statement and reads every column of every row, or of the first few, as text; returns the
    /// number of rows.
    long ReadAll(const std::string& sql, long most = std::numeric_limits<long>::max()) const;
    /// Runs one prepared statement for each ID from 1 on, each on the disk when it returns.
    void RunEach(const std::string& sql, int last) const;
    /// How the store would look for the rows.
    std::string Plan(const std::string& sql) const;

  private:
    struct Closer {
        void operator()(sqlite3* db) const;
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Closer> Prepare(const std::string& sql) const;
    std::unique_ptr<sqlite3, Closer> db_;
};

/// A desktop that shows nothing and fails on any message.
class NullDesktop : public platform::Desktop {
  public:
    int MsgBox(const std::string& text, int flags, const std::optional<std::string>& title) override;
    void Show(platform::Form& form, bool modal, platform::Form* owner) override;
    void Closed(platform::Form&) override {}
    void Focus(platform::Control&) override {}
    void Beep() override {}
    void MousePointer(int) override {}
    void ClipboardClear() override {}
    void ClipboardSetText(const std::string&) override {}
    std::string InputBox(const std::string&, const std::string&) override { return {}; }
    bool OpenWebPage(const std::string&) override { return false; }
    int TextWidth(const platform::Font&, const std::string& text) const override;
    bool OpenSystemInformation() override { return false; }
    void Paint() override {}

  protected:
    void Quit() override {}
};

}  // namespace bench
