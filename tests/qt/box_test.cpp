// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Message boxes.

#include <QPushButton>

#include "qt/support.h"

namespace test {
namespace {

int Show(Screen& s, int flags, const std::optional<std::string>& title,
         const std::function<void(QMessageBox&)>& piece) {
    WhileBox(piece);
    return s.Desktop.MsgBox("<b>1</b>\r\n?", flags, title);
}

TEST(Box, AsksInTheProgramsLanguageAndDefaultsToNo) {
    const std::tuple<const char*, const char*, const char*, Qt::Key> cases[] = {
        {"Svenska", "&Nej", "K&listra in", Qt::Key_J},
        {"Deutsch", "&Nein", "E&infügen", Qt::Key_J},
        {"English", "&No", "&Paste", Qt::Key_Y},
        {"", "&No", "&Paste", Qt::Key_Y}};
    Screen s;
    for (const auto& [language, no, paste, yes] : cases) {
        s.Language = language;
        const auto answer = [&](const std::function<void(QMessageBox&)>& piece) {
            return Show(s, platform::msg::YesNoDefaultNo, std::nullopt, piece);
        };
        EXPECT_EQ(answer([](QMessageBox& box) {
                      EXPECT_EQ(box.windowTitle(), "Vemora");
                      EXPECT_EQ(box.text(), "<b>1</b>\n?");
                      EXPECT_EQ(box.textFormat(), Qt::PlainText);
                      EXPECT_EQ(box.icon(), QMessageBox::Question);
                      QTest::keyClick(&box, Qt::Key_Escape);
                  }),
                  platform::msg::AnswerNo);
        EXPECT_EQ(answer([](QMessageBox& box) { QTest::keyClick(box.focusWidget(), Qt::Key_Return); }),
                  platform::msg::AnswerNo);
        EXPECT_EQ(answer([text = no, key = yes](QMessageBox& box) {
                      EXPECT_EQ(static_cast<QPushButton*>(box.focusWidget())->text(), text);
                      QTest::keyClick(&box, key, Qt::AltModifier);
                  }),
                  platform::msg::AnswerYes);
        EXPECT_EQ(QCoreApplication::translate("QLineEdit", "&Paste"), paste);
    }
}

TEST(Box, ShowsItsIconAndTitleAndHidesTheHourglassMeanwhile) {
    Screen s;
    s.Desktop.MousePointer(platform::pointer::Hourglass);
    s.Desktop.MousePointer(platform::pointer::Hourglass);
    using namespace platform::msg;
    for (const auto& [flags, icon] :
         {std::pair(OkOnly, QMessageBox::NoIcon), std::pair(Critical, QMessageBox::Critical),
          std::pair(Exclamation, QMessageBox::Warning), std::pair(Information, QMessageBox::Information)}) {
        const auto look = [icon = icon](QMessageBox& box) {
            EXPECT_EQ(box.icon(), icon);
            EXPECT_EQ(box.windowTitle(), "Fel");
            EXPECT_EQ(QApplication::overrideCursor(), nullptr);
            QTest::keyClick(&box, Qt::Key_Escape);
        };
        EXPECT_EQ(Show(s, flags, "Fel", look), platform::msg::AnswerOk);
    }
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    s.Desktop.MousePointer(platform::pointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace test
