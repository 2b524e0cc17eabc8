// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <array>
#include <string_view>

namespace qt {

namespace {

struct Entry {
    std::string_view Source, Swedish, German;
};

constexpr std::array<Entry, 13> kEntries = {{
    {"OK", "OK", "OK"},
    {"Cancel", "Avbryt", "Abbrechen"},
    {"&Yes", "&Ja", "&Ja"},
    {"&No", "&Nej", "&Nein"},
    {"&Undo", "&Ångra", "&Rückgängig"},
    {"&Redo", "&Gör om", "Wieder&herstellen"},
    {"Cu&t", "Klipp &ut", "&Ausschneiden"},
    {"&Copy", "&Kopiera", "&Kopieren"},
    {"&Paste", "K&listra in", "E&infügen"},
    {"Delete", "Ta bort", "Löschen"},
    {"Select All", "Markera allt", "Alles auswählen"},
    {"ascending", "stigande", "aufsteigend"},
    {"descending", "fallande", "absteigend"},
}};

std::string_view LocaleOf(std::string_view name) {
    return name == "Svenska" ? "sv" : name == "Deutsch" ? "de" : "";
}

}  // namespace

QString Language::Table::translate(const char*, const char* source, const char*, int) const {
    const std::string_view locale = LocaleOf(Name);
    if (locale.empty() || source == nullptr) {
        return {};
    }
    for (const Entry& entry : kEntries) {
        if (entry.Source == source) {
            const std::string_view text = locale == "sv" ? entry.Swedish : entry.German;
            return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        }
    }
    return {};
}

Language::Language() = default;

Language::~Language() {
    QCoreApplication::removeTranslator(&table_);
    QCoreApplication::removeTranslator(&toolkit_);
}

void Language::Use(const std::string& name) {
    if (used_ && name == table_.Name) {
        return;
    }
    used_ = true;
    QCoreApplication::removeTranslator(&table_);
    QCoreApplication::removeTranslator(&toolkit_);
    table_.Name = name;
    const std::string_view locale = LocaleOf(name);
    if (locale.empty()) {
        return;
    }
    const QString file = "qtbase_" + QString::fromUtf8(locale.data(), static_cast<qsizetype>(locale.size()));
    if (toolkit_.load(file, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&toolkit_);
    }
    // The one installed last is asked first.
    QCoreApplication::installTranslator(&table_);
}

QString ButtonText(const char* source) {
    return QCoreApplication::translate("qt::MessageBox", source);
}

}  // namespace qt
