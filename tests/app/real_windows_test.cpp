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

struct Shown {
    explicit Shown(const std::string& language) : Folder(language) {}
    test::ProgramFolder Folder;
    vemora::Program* Running = nullptr;
    qt::QtDesktop Desktop{
        [this] { return Running != nullptr ? Running->Main.TextTillAndra("lang") : std::string(); }};
    vemora::Program Program{Desktop, Folder.Path()};

    QWidget* Start() {
        Running = &Program;
        Desktop.Event([this] { Program.Main.Main(); });
        Desktop.Flush();
        QWidget* window = WindowNamed("frmMain");
        EXPECT_TRUE(window == nullptr || QTest::qWaitForWindowActive(window));
        return window;
    }
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
    static const std::map<std::string_view, QAccessible::Role> roles = {
        {"CommandButton", QAccessible::Button},
        {"CheckBox", QAccessible::CheckBox},
        {"OptionButton", QAccessible::RadioButton},
        {"TextBox", QAccessible::EditableText},
        {"ComboBox", QAccessible::ComboBox},
        {"ListView", QAccessible::Tree},
        {"ListBox", QAccessible::Tree},
        {"Image", QAccessible::Graphic},
        {"Label", QAccessible::StaticText},
        {"Frame", QAccessible::Grouping},
        {"oFormula", QAccessible::EditableText},
        {"RichTextBox", QAccessible::EditableText}};
    test::Log missing;
    const auto check = [&](const std::string& name, QWidget* widget, QAccessible::Role role) {
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
        if (spoken->role() != role) {
            missing.push_back(name + " has role " + std::to_string(spoken->role()));
        }
        const auto* label = qobject_cast<QLabel*>(widget);
        if (spoken->text(QAccessible::Name).isEmpty() && (label == nullptr || !label->text().isEmpty())) {
            missing.push_back(name + " has no name");
        }
    };
    check(form.Name(), window, form.Name() == "frmMain" ? QAccessible::Window : QAccessible::Dialog);
    for (const platform::Control* control : form.Controls()) {
        auto* widget = window->findChild<QWidget*>(QString::fromStdString(control->FullName()));
        if (widget != nullptr && widget->isVisible() && roles.contains(control->TypeName())) {
            check(control->FullName(), widget,
                  control->TypeName() == "Image" && control->TakesFocus() ? QAccessible::Button
                                                                          : roles.at(control->TypeName()));
        }
    }
    return missing;
}

class EveryText : public testing::TestWithParam<std::tuple<std::string, double>> {
  protected:
    void SetUp() override {
        before_ = QApplication::font();
        QFont font = before_;
        font.setPointSizeF(before_.pointSizeF() * std::get<1>(GetParam()));
        QApplication::setFont(font);
    }
    void TearDown() override { QApplication::setFont(before_); }

  private:
    QFont before_;
};

TEST_P(EveryText, FitsItsPlace) {
    const auto& [language, scale] = GetParam();
    Shown run(language);
    QWidget* main = run.Start();
    run.ExpectWhole(main, "frmMain as it opens");
    main->resize(main->width() * 2 + 200, main->height());
    QApplication::processEvents();
    run.ExpectWhole(main, "frmMain made wide");

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
    main->close();
}

TEST_P(EveryText, OfTheLanguageChoiceFits) {
    Shown run("");
    WhileUp("frmLang", [&](QWidget* window) {
        run.ExpectWhole(window, "frmLang");
        window->close();
    });
    EXPECT_EQ(run.Start(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Languages, EveryText,
                         testing::Combine(testing::Values("Svenska", "English", "Deutsch"),
                                          testing::Values(1.0, 1.5)));

TEST(RealWindows, SearchOpenNarrowCopyAndCloseByKeyboard) {
    Shown run("English");
    QWidget* main = run.Start();
    auto* text = Child<QLineEdit>(main, "txtChem");
    QTest::keyClicks(text, "acid");
    QTest::keyClick(text, Qt::Key_Return);
    run.Desktop.Flush();

    auto* list = Child<QTreeView>(main, "lvwResultat");
    ASSERT_GT(list->model()->rowCount(), 0);
    EXPECT_EQ(list->currentIndex().row(), 0);
    EXPECT_EQ(main->focusWidget(), list);

    QString box;
    int rows = 0;
    int narrowed = 0;
    WhileUp("frmChemical", [&](QWidget* sheet) {
        auto* table = Child<QTreeView>(sheet, "lvwMaterial");
        rows = table->model()->rowCount();
        AnswerBox(box);
        QTest::keyClick(sheet->focusWidget(), Qt::Key_C, Qt::ControlModifier);
        auto* temperatures = Child<QComboBox>(sheet, "cboTemp");
        temperatures->setFocus();
        QTest::keyClick(temperatures, Qt::Key_Down);
        run.Desktop.Flush();
        narrowed = table->model()->rowCount();
        table->setFocus();
        QTest::keyClick(table, Qt::Key_Escape);
    });
    QTest::keyClick(list, Qt::Key_Return);

    EXPECT_GT(rows, 0);
    EXPECT_LT(narrowed, rows);
    EXPECT_FALSE(box.isEmpty());
    const QString report = QApplication::clipboard()->text();
    EXPECT_TRUE(report.startsWith("Formula: ")) << report.toStdString();
    EXPECT_EQ(WindowNamed("frmChemical"), nullptr);
    main->close();
    EXPECT_EQ(run.Program.Main.gCn, nullptr);
}

TEST(RealWindows, AChemicalIsAddedByKeyboardAndTheEditModeOpened) {
    Shown run("English");
    QWidget* main = run.Start();
    const auto key = [](Qt::Key code, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(QApplication::focusWidget(), code, with);
        QApplication::processEvents();
    };
    auto& chemicals = dynamic_cast<vemora::RecordWindow&>(run.Program.Main.Windows.UChemicals());
    std::vector<std::string> way;
    const auto focus = [&] { way.push_back(QApplication::focusWidget()->objectName().toStdString()); };
    WhileUp("frmUChemicals", [&](QWidget* window) {
        auto* list = Child<QWidget>(window, "lstChemicals");
        ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() == list; }));
        key(Qt::Key_Down);  // from nothing to the first line
        EXPECT_EQ(chemicals.lst.ListIndex, 0);
        key(Qt::Key_N, Qt::AltModifier);
        focus();
        QTest::keyClicks(QApplication::focusWidget(), "H2SO4");
        key(Qt::Key_Tab);
        focus();
        QTest::keyClicks(QApplication::focusWidget(), "provsyra");
        key(Qt::Key_E, Qt::AltModifier);  // lies under Cancel
        key(Qt::Key_Tab);
        focus();
        key(Qt::Key_S, Qt::AltModifier);
        focus();
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
    EXPECT_EQ(way, (std::vector<std::string>{"oFormula1", "txtFields(2)", "txtFields(3)", "lstChemicals"}));
    platform::adodb::Recordset rs;
    rs.Open("SELECT NameSE, Formula, FormulaRTF FROM Chemical WHERE ID = 6", *run.Program.Main.gCn);
    EXPECT_EQ(rs["NameSE"].Text() + rs["Formula"].Text(), "ProvsyraH2SO4");
    EXPECT_NE(rs["FormulaRTF"].Text().find("{\\sub 4}"), std::string::npos);
    rs.Close();
    main->close();
}

TEST(RealWindows, AVerdictIsStatedAndAChoiceMadeByKeyboard) {
    Shown run("Svenska");
    QWidget* main = run.Start();
    const auto keys = [](std::initializer_list<std::pair<int, Qt::KeyboardModifiers>> all) {
        for (const auto& [code, with] : all) {
            QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(code), with);
            QApplication::processEvents();
        }
    };
    const auto focused = [](QWidget* window, const char* name) {
        return QTest::qWaitFor([&] { return QApplication::focusWidget() == Child<QWidget>(window, name); });
    };
    WhileUp("frmURelations", [&](QWidget* window) {
        ASSERT_TRUE(focused(window, "lstChemicals"));
        QTest::keyClicks(QApplication::focusWidget(), "sv");
        keys({{Qt::Key_Tab, {}},
              {Qt::Key_Down, {}},
              {Qt::Key_Down, {}},
              {Qt::Key_Tab, {}},
              {Qt::Key_Down, {}}});
        keys({{Qt::Key_PageDown, Qt::ControlModifier}});  // to the plastics, whose list gets the focus
        EXPECT_TRUE(focused(window, "lvwPlast"));
        keys({{Qt::Key_Down, {}}, {Qt::Key_Tab, {}}, {Qt::Key_Down, {}}, {Qt::Key_S, Qt::AltModifier}});
        keys({{Qt::Key_Escape, {}}});
        EXPECT_FALSE(window->isVisible());
    });
    run.Program.Main.Windows.URelations().Show(platform::vbModal);
    WhileUp("frmInställningar", [&](QWidget* window) {
        auto* pages = Child<QTabWidget>(window, "SSTab1");
        pages->tabBar()->setFocus();
        keys({{Qt::Key_Right, {}}, {Qt::Key_Tab, {}}});
        EXPECT_TRUE(focused(window, "lvwMetal"));
        keys({{Qt::Key_Home, {}}, {Qt::Key_Down, Qt::ShiftModifier}, {Qt::Key_Space, {}}});
        keys({{Qt::Key_Return, {}}});
        EXPECT_FALSE(window->isVisible());
    });
    run.Program.Main.Windows.Inställningar().Show(platform::vbModal);
    platform::adodb::Connection& cn = *run.Program.Main.gCn;
    EXPECT_EQ(test::Ask(cn, "SELECT ConcID, TempID, PlastID, TheValue, Egen FROM relPlast WHERE ChemID = 2"),
              "1|1|2|+|-1");
    EXPECT_EQ(test::Ask(cn, "SELECT Name, Med FROM Metal"), "Stål|0/Zink|0/Guld|0");
    main->close();
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
    QWidget* main = run.Start();
    run.Program.Main.Published.UpdateHost = server.Host();
    auto& window = dynamic_cast<vemora::frmUPD&>(run.Program.Main.Windows.UPD());
    int turns = 0;
    bool painted = false;
    window.Inet.Waiting = [&, paint = window.Inet.Waiting] {
        QWidget* shown = WindowNamed("frmUPD");
        if (++turns == 1) {
            QApplication::postEvent(Child<QLineEdit>(main, "txtChem"),
                                    new QKeyEvent(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x"));
            for (QWidget* each : {main, shown}) {
                QTimer::singleShot(0, each, &QWidget::close);
            }
            shown->update();
        }
        paint();
        painted = painted || !Child<QPushButton>(shown, "cmdImport")->isEnabled();
        answer = turns > 3;
    };
    QString box;
    WhileUp("frmUPD", [&](QWidget* shown) {
        AnswerBox(box);
        QTest::keyClick(shown->focusWidget(), Qt::Key_Return);
        EXPECT_EQ(WindowNamed("frmUPD"), nullptr);
    });
    window.Show(platform::vbModal);
    EXPECT_TRUE(painted);
    EXPECT_EQ(box, "1 change(s) made in the database.");
    EXPECT_EQ(Child<QLineEdit>(main, "txtChem")->text(), "");
    EXPECT_TRUE(main->isVisible());
    EXPECT_EQ(test::Ask(*run.Program.Main.gCn, "SELECT Formula FROM Chemical WHERE ID = 7"), "HF");
    main->close();
}

TEST(RealWindows, ThePicturesOfTheAboutBoxArePressed) {
    Shown run("English");
    QWidget* main = run.Start();
    auto& about = dynamic_cast<vemora::frmAbout&>(run.Program.Main.Windows.About());
    int pressed = 0;
    about.imgMaker.Click = [&pressed] { ++pressed; };
    WhileUp("frmAbout", [&](QWidget* window) {
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window->focusWidget()->accessibleName(),
                  "About the data: where it comes from and its licences");
        QTest::keyClick(window->focusWidget(), Qt::Key_Space);
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
        QTest::mouseClick(Child<QWidget>(window, "imgMaker"), Qt::LeftButton);
        QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
    });
    about.Show(platform::vbModal);
    EXPECT_EQ(pressed, 3);
    main->close();
}

TEST(RealWindows, TabPassesByWhatLiesOutsideDoubleClickOpensAndTheCloseButtonCloses) {
    Shown run("Svenska");
    QWidget* main = run.Start();
    for (int i = 0; i < 8; ++i) {
        const QWidget* focus = main->focusWidget();
        EXPECT_FALSE(focus->visibleRegion().isEmpty()) << focus->objectName().toStdString();
        QTest::keyClick(main->focusWidget(), Qt::Key_Tab);
    }
    QTest::mouseClick(Child<QWidget>(main, "cmdSök"), Qt::LeftButton);
    run.Desktop.Flush();
    auto* list = Child<QTreeView>(main, "lvwResultat");
    ASSERT_GT(list->model()->rowCount(), 1);
    const QPoint second = list->visualRect(list->model()->index(1, 0)).center();
    bool opened = false;
    WhileUp("frmChemical", [&](QWidget* sheet) {
        opened = true;
        QTest::mouseClick(Child<QWidget>(sheet, "cmdStäng"), Qt::LeftButton);
    });
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second);
    EXPECT_TRUE(opened);
    main->close();
}

TEST(RealWindows, AQuoteEndsTheProgramWithAMessageAndAClosedDatabase) {
    Shown run("English");
    QWidget* main = run.Start();
    auto* text = Child<QLineEdit>(main, "txtChem");
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
