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
    struct Case {
        const char* Language;
        const char *No, *Paste;
        Qt::Key Yes;
    };
    Screen s;
    for (const Case& c :
         {Case{"Svenska", "&Nej", "K&listra in", Qt::Key_J}, Case{"Deutsch", "&Nein", "E&infügen", Qt::Key_J},
          Case{"English", "&No", "&Paste", Qt::Key_Y}, Case{"", "&No", "&Paste", Qt::Key_Y}}) {
        s.Language = c.Language;
        const auto answer = [&](const std::function<void(QMessageBox&)>& piece) {
            return Show(s, platform::msg::YesNoDefaultNo, std::nullopt, piece);
        };
        EXPECT_EQ(answer([&](QMessageBox& box) {
                      EXPECT_EQ(box.windowTitle(), "Vemora");
                      EXPECT_EQ(box.text(), "<b>1</b>\n?");
                      EXPECT_EQ(box.textFormat(), Qt::PlainText);
                      EXPECT_EQ(box.icon(), QMessageBox::Question);
                      QTest::keyClick(&box, Qt::Key_Escape);
                  }),
                  platform::msg::AnswerNo);
        EXPECT_EQ(answer([](QMessageBox& box) { QTest::keyClick(box.focusWidget(), Qt::Key_Return); }),
                  platform::msg::AnswerNo);
        EXPECT_EQ(answer([&](QMessageBox& box) {
                      EXPECT_EQ(static_cast<QPushButton*>(box.focusWidget())->text(), c.No);
                      QTest::keyClick(&box, c.Yes, Qt::AltModifier);
                  }),
                  platform::msg::AnswerYes);
        EXPECT_EQ(QCoreApplication::translate("QLineEdit", "&Paste"), c.Paste);
    }
}

TEST(Box, ShowsItsIconAndTitleAndHidesTheHourglassMeanwhile) {
    Screen s;
    s.Desktop.MousePointer(platform::pointer::Hourglass);
    s.Desktop.MousePointer(platform::pointer::Hourglass);
    for (const auto& [flags, icon] : {std::pair(platform::msg::OkOnly, QMessageBox::NoIcon),
                                      std::pair(platform::msg::Critical, QMessageBox::Critical),
                                      std::pair(platform::msg::Exclamation, QMessageBox::Warning),
                                      std::pair(platform::msg::Information, QMessageBox::Information)}) {
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
