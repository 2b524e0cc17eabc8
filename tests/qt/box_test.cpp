// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Message boxes.

#include <QPushButton>

#include "qt/support.h"

namespace test {
namespace {

struct Case {
    const char* Language;
    const char *Yes, *No;
    friend std::ostream& operator<<(std::ostream& out, const Case& c) {
        return out << (*c.Language != 0 ? c.Language : "none");
    }
};

class BoxTest : public testing::TestWithParam<Case> {};

TEST_P(BoxTest, AsksInTheProgramsLanguageAndDefaultsToNo) {
    Screen s;
    s.Language = GetParam().Language;
    const auto ask = [&](const std::function<void(QMessageBox&)>& piece) {
        WhileBox(piece);
        return s.Desktop.MsgBox("<b>1</b>\r\n?", platform::msg::YesNoDefaultNo, std::nullopt);
    };
    const int answer = ask([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Vemora");
        EXPECT_EQ(box.text(), "<b>1</b>\n?");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        ASSERT_EQ(box.buttons().size(), 2);
        QStringList texts;
        for (QAbstractButton* button : box.buttons()) {
            texts.append(button->text());
        }
        EXPECT_TRUE(texts.contains(GetParam().Yes)) << texts.join(' ').toStdString();
        EXPECT_TRUE(texts.contains(GetParam().No));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(answer, platform::msg::AnswerNo);
    EXPECT_EQ(ask([](QMessageBox& box) { QTest::keyClick(box.focusWidget(), Qt::Key_Return); }),
              platform::msg::AnswerNo);
    const auto first = GetParam().Yes[1] == 'J' ? Qt::Key_J : Qt::Key_Y;
    EXPECT_EQ(ask([first](QMessageBox& box) { QTest::keyClick(&box, first, Qt::AltModifier); }),
              platform::msg::AnswerYes);
}

INSTANTIATE_TEST_SUITE_P(Languages, BoxTest,
                         testing::Values(Case{"Svenska", "&Ja", "&Nej"}, Case{"Deutsch", "&Ja", "&Nein"},
                                         Case{"English", "&Yes", "&No"}, Case{"", "&Yes", "&No"}));

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
    desktop = std::make_unique<qt::QtDesktop>([&] {
        ++asked;
        WhileBox([](QMessageBox& box) { box.close(); });
        desktop->MsgBox("can't be read", platform::msg::Critical, std::nullopt);
        return std::string();
    });
    WhileBox([](QMessageBox& box) { box.close(); });
    desktop->MsgBox("text", platform::msg::OkOnly, std::nullopt);
    EXPECT_EQ(asked, 1);
}

TEST(Box, TextBoxMenusSpeakTheLanguage) {
    Screen s;
    s.Language = "Svenska";
    WhileBox([](QMessageBox& box) { box.close(); });
    s.Desktop.MsgBox("text", platform::msg::OkOnly, std::nullopt);
    EXPECT_EQ(QCoreApplication::translate("QLineEdit", "&Paste"), "K&listra in");
    s.Language = "English";
    WhileBox([](QMessageBox& box) { box.close(); });
    s.Desktop.MsgBox("text", platform::msg::OkOnly, std::nullopt);
    EXPECT_EQ(QCoreApplication::translate("QLineEdit", "&Paste"), "&Paste");
}

}  // namespace
}  // namespace test
