// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTranslator>
#include <string>

namespace qt {

/// The few texts of the window system itself that users see, in the language of the program: buttons of
/// message boxes and menus of text boxes. The toolkit's own translations are not there for every language,
/// nor on every system.
class Language {
  public:
    Language();
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;
    ~Language();

    /// "Svenska", "English", "Deutsch"; any other name stands for English.
    void Use(const std::string& name);

  private:
    class Table : public QTranslator {
      public:
        bool isEmpty() const override { return false; }
        QString translate(const char* context, const char* source, const char* disambiguation,
                          int n) const override;
        std::string Name;
    };
    Table table_;
    QTranslator toolkit_;
    bool used_ = false;
};

/// A button's text in the language in use.
QString ButtonText(const char* source);

}  // namespace qt
