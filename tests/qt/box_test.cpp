// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Message boxes.

#include <QPushButton>

#include "qt/support.h"

namespace test {
namespace {

int Ask(Screen& s, const std::function<void(QMessageBox&)>& piece) {
    WhileBox(piece);
    return s.Desktop.MsgBox("<b>1</b>\r\n?", platform::msg::YesNoDefaultNo, std::nullopt);
}

TEST(Box, AsksInTheProgramsLanguageAndDefaultsToNo) {
    struct Case {
        const char* Language;
        const char *Texts, *Paste;
        Qt::Key Mnemonic;
    };
    Screen s;
    for (const Case& c :
         {Case{"Svenska", "&Ja &Nej", "K&listra in", Qt::Key_J},
          Case{"Deutsch", "&Ja &Nein", "E&infügen", Qt::Key_J},
          Case{"English", "&No &Yes", "&Paste", Qt::Key_Y}, Case{"", "&No &Yes", "&Paste", Qt::Key_Y}}) {
        s.Language = c.Language;
        const int answer = Ask(s, [&](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Vemora");
            EXPECT_EQ(box.text(), "<b>1</b>\n?");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), QMessageBox::Question);
            QStringList texts;
            for (QAbstractButton* button : box.buttons()) {
                texts.append(button->text());
            }
            texts.sort();  // where which one stands is the desktop's habit
            EXPECT_EQ(texts.join(' '), c.Texts);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        EXPECT_EQ(answer, platform::msg::AnswerNo);
        EXPECT_EQ(Ask(s, [](QMessageBox& box) { QTest::keyClick(box.focusWidget(), Qt::Key_Return); }),
                  platform::msg::AnswerNo);
        EXPECT_EQ(Ask(s, [&](QMessageBox& box) { QTest::keyClick(&box, c.Mnemonic, Qt::AltModifier); }),
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
        WhileBox([icon = icon](QMessageBox& box) {
            EXPECT_EQ(box.icon(), icon);
            EXPECT_EQ(box.windowTitle(), "Fel");
            EXPECT_EQ(QApplication::overrideCursor(), nullptr);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        EXPECT_EQ(s.Desktop.MsgBox("text", flags, "Fel"), platform::msg::AnswerOk);
    }
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    s.Desktop.MousePointer(platform::pointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(Box, TheLanguageFileThatCantBeReadIsReportedOnce) {
    std::unique_ptr<qt::QtDesktop> desktop;
    int asked = 0;
    const auto box = [&] {
        WhileBox([](QMessageBox& up) { up.close(); });
        desktop->MsgBox("can't be read", platform::msg::Critical, std::nullopt);
    };
    desktop = std::make_unique<qt::QtDesktop>([&] {
        ++asked;
        box();
        return std::string();
    });
    box();
    EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace test
