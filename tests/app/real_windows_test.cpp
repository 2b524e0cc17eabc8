// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The program's own windows on the real window system, driven by keyboard and mouse.

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeView>
#include <atomic>
#include <thread>
#include <tuple>

#include "about/frmAbout.h"
#include "app/program.h"
#include "maintenance/record_window.h"
#include "qt/clipping.h"
#include "qt/support.h"
#include "relations/frmURelations.h"
#include "sheet/frmChemical.h"
#include "support/http_server.h"
#include "support/program_folder.h"
#include "update/frmUPD.h"

namespace {

using test::WindowNamed;

template <class Widget>
Widget* Child(QWidget* window, const char* name) {
    auto* child = window->findChild<Widget*>(name);
    EXPECT_NE(child, nullptr) << name;
    return child;
}

void WhileUp(const char* name, const std::function<void(QWidget*)>& piece) {
    test::WhileUp([name] { return WindowNamed(name); },
                  [piece](QWidget* window) {
                      piece(window);
                      window->close();  // should the piece have failed to
                  });
}

// Closes the next message box by a key and keeps its text.
void AnswerBox(QString& text) {
    test::WhileBox([&text](QMessageBox& box) {
        text = box.text();
        QTest::keyClick(&box, Qt::Key_Return);
    });
}

/// The keys, between blanks, one by one where the focus is.
void Press(const QString& keys) {
    for (const QString& name : keys.split(' ')) {
        const QKeyCombination key = QKeySequence(name)[0];
        QTest::keyClick(QApplication::focusWidget(), key.key(), key.keyboardModifiers());
        QApplication::processEvents();
    }
}

bool Focused(QWidget* window, const char* name) {
    return QTest::qWaitFor([=] { return QApplication::focusWidget() == Child<QWidget>(window, name); });
}

/// The program with its main window up, until it is closed at the end.
struct Shown {
    explicit Shown(const std::string& language) : Folder(language) {
        Running = &Program;
        Desktop.Event([this] { Program.Main.Main(); });
        Desktop.Flush();
        Main = WindowNamed("frmMain");
        EXPECT_TRUE(Main == nullptr || QTest::qWaitForWindowActive(Main));
    }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;
    ~Shown() {
        if (QWidget* window = WindowNamed("frmMain")) {
            window->close();
        }
        EXPECT_TRUE(Program.Main.gCn == nullptr || !Program.Main.gCn->IsOpen());
    }
    std::string Ask(const char* statement) { return test::Ask(*Program.Main.gCn, statement); }

    test::ProgramFolder Folder;
    vemora::Program* Running = nullptr;
    qt::QtDesktop Desktop{
        [this] { return Running != nullptr ? Running->Main.TextTillAndra("lang") : std::string(); }};
    vemora::Program Program{Desktop, Folder.Path()};
    QWidget* Main = nullptr;

    void ExpectWhole(QWidget* window, const std::string& what) {
        Desktop.Flush();
        test::Log clipped = ClippedTexts(*window);
        if (Program.Main.gSpråk == "Deutsch") {
            // Without a chemical the table has columns that nobody ever gets to see.
            std::erase_if(clipped, [](const auto& text) { return text.starts_with("lvwMaterial: "); });
        }
        EXPECT_EQ(clipped, test::Log{}) << what;
    }
};

/// What Tab leads to, once round, in its order; and what it should.
std::string TabRound(QWidget* window) {
    std::string names;
    for (int i = 0; i < 30; ++i) {
        QWidget* focus = window->focusWidget();
        const QWidget* named = focus->objectName().startsWith("qt_") ? focus->parentWidget() : focus;
        const std::string name = named->objectName().toStdString() + " ";
        if (names.starts_with(name)) {
            break;
        }
        names += name;
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    return names;
}
std::string InTabOrder(const platform::Form& form, const platform::Control* container = nullptr) {
    std::string names;
    for (const platform::Control* control : form.Controls()) {
        if (control->Container() == container) {
            const auto* option = dynamic_cast<const platform::OptionButton*>(control);
            const bool stops =
                control->TakesFocus() && control->Reachable() && (option == nullptr || option->Value);
            names += stops ? control->FullName() + " " : "";
            names += InTabOrder(form, control);
        }
    }
    return names;
}

/// What a reader of the screen would miss: names, and roles of the control's own.
test::Log Unspoken(QWidget* window, const platform::Form& form) {
    test::Log missing;
    const auto check = [&](const std::string& name, QWidget* widget, std::optional<QAccessible::Role> role) {
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
        if (role && spoken->role() != *role) {
            missing.push_back(name + " has role " + std::to_string(spoken->role()));
        }
        const auto* label = qobject_cast<QLabel*>(widget);
        if (spoken->text(QAccessible::Name).isEmpty() && (label == nullptr || !label->text().isEmpty())) {
            missing.push_back(name + " has no name");
        }
    };
    check(form.Name(), window, QAccessible::Dialog);
    // Both kinds of lists are the toolkit's view of rows.
    const std::map<std::string_view, QAccessible::Role> roles = {{"CheckBox", QAccessible::CheckBox},
                                                                 {"ComboBox", QAccessible::ComboBox},
                                                                 {"CommandButton", QAccessible::Button},
                                                                 {"Frame", QAccessible::Grouping},
                                                                 {"Image", QAccessible::Graphic},
                                                                 {"ListBox", QAccessible::Tree},
                                                                 {"ListView", QAccessible::Tree},
                                                                 {"OptionButton", QAccessible::RadioButton},
                                                                 {"RichTextBox", QAccessible::EditableText},
                                                                 {"TextBox", QAccessible::EditableText}};
    for (const platform::Control* control : form.Controls()) {
        auto* widget = window->findChild<QWidget*>(QString::fromStdString(control->FullName()));
        const std::string_view type = control->TypeName();
        if (widget != nullptr && widget->isVisible() && type != "SSTab" && type != "PictureBox") {
            const auto role = roles.find(type == "Image" && control->TakesFocus() ? "CommandButton" : type);
            check(control->FullName(), widget,
                  role == roles.end() ? std::nullopt : std::optional(role->second));
        }
    }
    return missing;
}

class EveryText : public testing::TestWithParam<std::tuple<std::string, double>> {
  protected:
    EveryText() {
        QFont font = before_;
        font.setPointSizeF(before_.pointSizeF() * std::get<1>(GetParam()));
        QApplication::setFont(font);
    }
    ~EveryText() override { QApplication::setFont(before_); }
    const QFont before_ = QApplication::font();
};

TEST_P(EveryText, FitsItsPlace) {
    const auto& [language, scale] = GetParam();
    Shown run(language);
    run.ExpectWhole(run.Main, "frmMain as it opens");
    run.Main->resize(run.Main->width() * 2 + 200, run.Main->height());
    QApplication::processEvents();
    run.ExpectWhole(run.Main, "frmMain made wide");

    vemora::Windows& all = run.Program.Main.Windows;
    // In German the queries fail by design, with a box each: there the sheet comes up without its table.
    all.Chemical().Nyckel(language == "Deutsch" ? -1 : 1);
    std::vector<platform::Form*> forms = {&all.Chemical(), &all.UTight(), &all.UPD(), &all.About()};
    if (language != "Deutsch") {
        for (vemora::Windows::Any* window :
             {&all.UChemicals, &all.UConcentration, &all.UTemperature, &all.UMetal, &all.UPlast, &all.UMisc,
              &all.URelations, &all.Inställningar}) {
            forms.push_back(&(*window)());
        }
    }
    for (platform::Form* form : forms) {
        WhileUp(form->Name().c_str(), [&](QWidget* shown) {
            if (form == forms.front()) {
                // The test's screen is smaller than anybody's; the window keeps within it.
                shown->resize(QSize(1150, 700) * scale);
                QApplication::processEvents();
            }
            run.ExpectWhole(shown, form->Name());
            if (auto* record = dynamic_cast<vemora::RecordWindow*>(form)) {
                record->lst.InputIndex(0);
                record->cmdAdd.InputClick();
                run.ExpectWhole(shown, form->Name() + " while a record is added");
                record->cmdCancel.InputClick();
            }
            if (auto* relations = dynamic_cast<vemora::frmURelations*>(form)) {
                relations->lstChemicals.InputIndex(0);
                relations->cboConc.InputIndex(0);
                relations->cboTemp.InputIndex(0);
            }
            run.Desktop.Flush();
            form->FirstReachable()->SetFocus();
            EXPECT_EQ(Unspoken(shown, *form), test::Log{});
            EXPECT_EQ(TabRound(shown), InTabOrder(*form));
            shown->close();
        });
        form->Show(platform::vbModal);
    }
}

TEST_P(EveryText, OfTheLanguageChoiceFits) {
    WhileUp("frmLang", [&](QWidget* window) {
        EXPECT_EQ(ClippedTexts(*window), test::Log{});
        window->close();
    });
    EXPECT_EQ(Shown("").Main, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Languages, EveryText,
                         testing::Combine(testing::Values("Svenska", "English", "Deutsch"),
                                          testing::Values(1.0, 1.5)));

TEST(RealWindows, SearchOpenNarrowCopyAndCloseByKeyboardAndOpenByMouse) {
    Shown run("English");
    for (int i = 0; i < 8; ++i) {  // passes by what lies outside
        EXPECT_FALSE(run.Main->focusWidget()->visibleRegion().isEmpty());
        Press("Tab");
    }
    auto* text = Child<QLineEdit>(run.Main, "txtChem");
    QTest::keyClicks(text, "acid");
    QTest::keyClick(text, Qt::Key_Return);
    run.Desktop.Flush();
    auto* list = Child<QTreeView>(run.Main, "lvwResultat");
    EXPECT_EQ(list->currentIndex().row(), 0);
    EXPECT_EQ(run.Main->focusWidget(), list);

    QString box;
    WhileUp("frmChemical", [&](QWidget* sheet) {
        auto* table = Child<QTreeView>(sheet, "lvwMaterial");
        const int rows = table->model()->rowCount();
        AnswerBox(box);
        Press("Ctrl+C");
        sheet->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(sheet));
        Child<QComboBox>(sheet, "cboTemp")->setFocus();
        Press("Down");
        run.Desktop.Flush();
        EXPECT_LT(table->model()->rowCount(), rows);
        table->setFocus();
        Press("Esc");
        EXPECT_EQ(WindowNamed("frmChemical"), nullptr);
    });
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(box.isEmpty());
    const QString report = QApplication::clipboard()->text();
    EXPECT_TRUE(report.startsWith("Formula: ")) << report.toStdString();

    text->clear();
    QTest::mouseClick(Child<QWidget>(run.Main, "cmdSök"), Qt::LeftButton);
    run.Desktop.Flush();
    ASSERT_GT(list->model()->rowCount(), 1);
    const QPoint second = list->visualRect(list->model()->index(1, 0)).center();
    bool opened = false;
    WhileUp("frmChemical", [&](QWidget* sheet) {
        opened = true;
        QTest::mouseClick(Child<QWidget>(sheet, "cmdStäng"), Qt::LeftButton);
        EXPECT_EQ(WindowNamed("frmChemical"), nullptr);
    });
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second);
    EXPECT_TRUE(opened);
}

TEST(RealWindows, AChemicalIsAddedByKeyboardAndTheEditModeOpened) {
    Shown run("English");
    auto& chemicals = dynamic_cast<vemora::RecordWindow&>(run.Program.Main.Windows.UChemicals());
    WhileUp("frmUChemicals", [&](QWidget* window) {
        ASSERT_TRUE(Focused(window, "lstChemicals"));
        Press("Down");  // from nothing to the first line
        EXPECT_EQ(chemicals.lst.ListIndex, 0);
        Press("Alt+N");
        EXPECT_TRUE(Focused(window, "oFormula1"));
        QTest::keyClicks(QApplication::focusWidget(), "H2SO4");
        Press("Tab");
        EXPECT_TRUE(Focused(window, "txtFields(2)"));
        QTest::keyClicks(QApplication::focusWidget(), "provsyra");
        Press("Alt+E Tab");  // lies under Cancel
        EXPECT_TRUE(Focused(window, "txtFields(3)"));
        Press("Alt+S");
        EXPECT_TRUE(Focused(window, "lstChemicals"));
        EXPECT_EQ(chemicals.lst.ListCount(), 6);
        EXPECT_FALSE(run.Program.Main.gRedigeraAllt);
        Child<QWidget>(window, "cmdClose")->setFocus();
        test::WhileUp([] { return qobject_cast<QInputDialog*>(QApplication::activeModalWidget()); },
                      [](QWidget* box) {
                          QTest::keyClicks(box->focusWidget(), "ordaK");
                          QTest::keyClick(box, Qt::Key_Return);
                      });
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Alt, Qt::AltModifier);
        EXPECT_TRUE(run.Program.Main.gRedigeraAllt);
    });
    chemicals.Show(platform::vbModal);
    const std::string row = run.Ask("SELECT NameSE, Formula, FormulaRTF FROM Chemical WHERE ID = 6");
    EXPECT_TRUE(row.starts_with("Provsyra|H2SO4|")) << row;
    EXPECT_NE(row.find("{\\sub 4}"), std::string::npos) << row;
}

TEST(RealWindows, AVerdictIsStatedAndAChoiceMadeByKeyboard) {
    Shown run("Svenska");
    WhileUp("frmURelations", [&](QWidget* window) {
        ASSERT_TRUE(Focused(window, "lstChemicals"));
        QTest::keyClicks(QApplication::focusWidget(), "sv");
        Press("Tab Tab Down Down Tab Down Ctrl+PgDown");  // to the plastics, whose list gets the focus
        EXPECT_TRUE(Focused(window, "lvwPlast"));
        Press("Down Tab Down Alt+S Esc");
        EXPECT_FALSE(window->isVisible());
    });
    run.Program.Main.Windows.URelations().Show(platform::vbModal);
    WhileUp("frmInställningar", [&](QWidget* window) {
        Child<QTabWidget>(window, "SSTab1")->tabBar()->setFocus();
        Press("Right Tab");
        EXPECT_TRUE(Focused(window, "lvwMetal"));
        Press("Home Shift+Down Space Return");
        EXPECT_FALSE(window->isVisible());
    });
    run.Program.Main.Windows.Inställningar().Show(platform::vbModal);
    EXPECT_EQ(run.Ask("SELECT ConcID, TempID, PlastID, TheValue, Egen FROM relPlast WHERE ChemID = 2"),
              "1|1|2|+|-1");
    EXPECT_EQ(run.Ask("SELECT Name, Med FROM Metal"), "Stål|0/Zink|0/Guld|0");
}

// While the program waits for the server, the windows are painted, and what the user does is dropped.
TEST(RealWindows, AnUpdateIsShownAndTakesNoInput) {
    Shown run("English");
    std::atomic<bool> answer = false;
    test::HttpServer server([&](const std::string&) {
        while (!answer) {
            std::this_thread::yield();
        }
        return test::HttpServer::Ok("heading\r\n7;HF;Fluor;;;;;;;;\r\n");
    });
    run.Program.Main.Published.UpdateHost = server.Host();
    auto& window = dynamic_cast<vemora::frmUPD&>(run.Program.Main.Windows.UPD());
    int turns = 0;
    window.Inet.Waiting = [&, paint = window.Inet.Waiting] {
        QWidget* shown = WindowNamed("frmUPD");
        if (++turns == 1) {
            QApplication::postEvent(Child<QLineEdit>(run.Main, "txtChem"),
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x"));
            for (QWidget* each : {run.Main, shown}) {
                QTimer::singleShot(0, each, &QWidget::close);
            }
            shown->update();
        }
        paint();
        answer = turns > 3;
    };
    QString box;
    WhileUp("frmUPD", [&](QWidget* shown) {
        AnswerBox(box);
        QTest::keyClick(shown->focusWidget(), Qt::Key_Return);
        EXPECT_EQ(WindowNamed("frmUPD"), nullptr);
    });
    window.Show(platform::vbModal);
    EXPECT_EQ(box, "1 change(s) made in the database.");
    EXPECT_EQ(Child<QLineEdit>(run.Main, "txtChem")->text(), "");
    EXPECT_TRUE(run.Main->isVisible());
    EXPECT_EQ(run.Ask("SELECT Formula FROM Chemical WHERE ID = 7"), "HF");
}

TEST(RealWindows, ThePicturesOfTheAboutBoxArePressed) {
    Shown run("English");
    auto& about = dynamic_cast<vemora::frmAbout&>(run.Program.Main.Windows.About());
    int pressed = 0;
    about.imgMaker.Click = [&pressed] { ++pressed; };
    WhileUp("frmAbout", [&](QWidget* window) {
        Press("Tab Space Return");
        EXPECT_EQ(window->focusWidget()->accessibleName(),
                  "About the data: where it comes from and its licences");
        QTest::mouseClick(Child<QWidget>(window, "imgMaker"), Qt::LeftButton);
        Press("Esc");
    });
    about.Show(platform::vbModal);
    EXPECT_EQ(pressed, 3);
}

TEST(RealWindows, AQuoteEndsTheProgramWithAMessageAndAClosedDatabase) {
    Shown run("English");
    auto* text = Child<QLineEdit>(run.Main, "txtChem");
    QTest::keyClicks(text, "l'eau");
    QString box;
    AnswerBox(box);
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_TRUE(box.startsWith("-2147217900")) << box.toStdString();
    EXPECT_TRUE(run.Desktop.Ended());
    EXPECT_FALSE(run.Program.Main.gCn->IsOpen());
    EXPECT_FALSE(std::filesystem::exists(run.Folder.Path() / "Vemora.mdb-wal"));
}

}  // namespace
