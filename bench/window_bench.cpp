// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The real windows: the start against an empty window's, the empty search with its memory, and typing.

#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QKeyEvent>
#include <QProcess>
#include <QTextEdit>
#include <QTimer>
#include <QTreeView>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include "app/program.h"
#include "platform/store/store.h"
#include "qt/desktop.h"
#include "search/frmMain.h"
#include "sheet/frmChemical.h"
#include "support.h"

namespace {

// Ends the process at the first picture of a window on the screen.
class FirstPaint : public QObject {
  public:
    std::function<void()> Before = [] {};

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint && object->isWidgetType()) {
            QTimer::singleShot(0, [this] {
                Before();
                std::_Exit(0);
            });
        }
        return false;
    }
};

int StartEmpty(int argc, char** argv) {
    QApplication application(argc, argv);
    FirstPaint paint;
    application.installEventFilter(&paint);
    QWidget window;
    window.resize(507, 507);
    window.show();
    return QApplication::exec();
}

int StartVemora(int argc, char** argv) {
    QApplication application(argc, argv);
    FirstPaint paint;
    application.installEventFilter(&paint);
    qt::QtDesktop desktop([] { return std::string("English"); });
    vemora::Program program(desktop, argv[2]);
    // Left open, the database would have a journal for the next start to prove first.
    paint.Before = [&program] { program.Main.gCn->Close(); };
    desktop.Event([&program] { program.Main.Main(); });
    return desktop.Run();
}

// Opening alone: nearly all of it is the derivation of the key. In a process like the program's, since with
// the window system's threads about it takes half as long again.
int OpenStore(int argc, char** argv) {
    const QApplication application(argc, argv);
    const platform::Store store(std::filesystem::path(argv[2]) / "Vemora.mdb", "mora27",
                                platform::Store::Access::Exclusive);
    return 0;
}

int Nothing(int argc, char** argv) {
    const QApplication application(argc, argv);
    return 0;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double RunOnce(const QString& self, const QStringList& arguments) {
    QElapsedTimer timer;
    timer.start();
    if (QProcess::execute(self, arguments) != 0) {
        std::fprintf(stderr, "a start failed\n");
        std::_Exit(1);
    }
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void MeasureStart(const QString& self, const QString& folder) {
    std::vector<double> vemora, empty, open, nothing;
    for (int i = 0; i < 15; ++i) {
        empty.push_back(RunOnce(self, {"start-empty"}));
        vemora.push_back(RunOnce(self, {"start-vemora", folder}));
        open.push_back(RunOnce(self, {"open", folder}));
        nothing.push_back(RunOnce(self, {"nothing"}));
    }
    const double derivation = Median(open) - Median(nothing);
    std::printf("start to the shown window|%.0f|%.0f|%.2f|less %.0f ms of key derivation\n", Median(vemora),
                Median(empty), (Median(vemora) - derivation) / Median(empty), derivation);
}

void MeasureEmptySearch(const std::filesystem::path& folder) {
    qt::QtDesktop desktop([] { return std::string("English"); });
    vemora::Program program(desktop, folder);
    program.Main.Main();
    auto& window = static_cast<vemora::frmMain&>(program.Main.Windows.Main());
    QApplication::processEvents();

    QElapsedTimer timer;
    timer.start();
    window.cmdSök.InputClick();
    const double search = static_cast<double>(timer.nsecsElapsed()) / 1e6;

    QWidget* list = nullptr;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == "lvwResultat") {
            list = widget;
        }
    }
    // The next key: everything that the search has left to draw comes before it.
    timer.restart();
    QApplication::postEvent(list, new QKeyEvent(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier));
    QApplication::processEvents();
    const double key = static_cast<double>(timer.nsecsElapsed()) / 1e6;

    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("empty search in the real window|%.0f|||%d rows\n", search, window.lvwResultat.ItemCount());
    std::printf("next key after it|%.1f|100|%.2f|\n", key, key / 100);
    std::printf("whole process, peak (MB)|%ld|350|%.2f|\n", usage.ru_maxrss / 1024,
                static_cast<double>(usage.ru_maxrss) / 1024 / 350);
    window.Unload();
}

struct FormulaWindow : platform::Form {
    explicit FormulaWindow(platform::Desktop& desktop)
        : Form(desktop, "frmFormula", {.ClientWidth = 4000, .ClientHeight = 1000}) {}
    platform::oFormula Formula{*this, "oFormula1", {.Width = 4000, .Height = 345}};
};

// A key from its press to the picture. What it types is set up and down by the rule of formulas.
double MeasureKey(QTextEdit& editor) {
    std::vector<double> times;
    for (const char key : std::string("K4[Fe(CN)6]H2SO4 CuSO4.5H2O Al2(SO4)3")) {
        QElapsedTimer timer;
        timer.start();
        QApplication::postEvent(
            &editor, new QKeyEvent(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar::fromLatin1(key))));
        QApplication::processEvents();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    return Median(times);
}

void MeasureFormulaKeys() {
    qt::QtDesktop desktop([] { return std::string("English"); });
    FormulaWindow window(desktop);
    window.Show();
    QTextEdit bare;
    bare.setLineWrapMode(QTextEdit::NoWrap);
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == "oFormula1") {
            bare.resize(widget->size());
            bare.show();
            QApplication::processEvents();
            const double ours = MeasureKey(static_cast<QTextEdit&>(*widget));
            const double theirs = MeasureKey(bare);
            std::printf("key typed in a formula|%.2f|%.2f|%.2f|\n", ours, theirs, ours / theirs);
            break;
        }
    }
    window.Unload();
}

// From the call to the picture, the first time: the window is made, filled and drawn.
void MeasureWindows(const std::filesystem::path& folder) {
    qt::QtDesktop desktop([] { return std::string("English"); });
    vemora::Program program(desktop, folder);
    program.Main.Main();
    QApplication::processEvents();
    vemora::Windows& all = program.Main.Windows;
    const std::pair<const char*, vemora::Windows::Any> windows[] = {
        {"sheet", [&all]() -> platform::Form& { return all.Chemical(); }},
        {"chemicals", all.UChemicals},
        {"relations", all.URelations},
        {"settings", all.Inställningar},
        {"update", all.UPD},
        {"about", all.About}};
    all.Chemical().Nyckel(1);
    for (const auto& [name, make] : windows) {
        QElapsedTimer timer;
        timer.start();
        platform::Form& form = make();
        form.Show();
        QApplication::processEvents();
        const double time = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        std::printf("shipped data, %s|%.0f|100|%.2f|\n", name, time, time / 100);
        form.Unload();
    }
    all.Main().Unload();
}

}  // namespace

int main(int argc, char** argv) {
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "start-empty") {
        return StartEmpty(argc, argv);
    }
    if (mode == "start-vemora") {
        return StartVemora(argc, argv);
    }
    if (mode == "open") {
        return OpenStore(argc, argv);
    }
    if (mode == "nothing") {
        return Nothing(argc, argv);
    }
    if (mode.empty()) {
        return 2;
    }
    const std::filesystem::path folder = bench::ProgramFolder(mode);
    MeasureStart(QString::fromLocal8Bit(argv[0]), QString::fromStdString(folder.string()));
    QApplication application(argc, argv);
    MeasureEmptySearch(folder);
    MeasureFormulaKeys();
    if (argc > 2) {
        const auto shipped = folder.parent_path() / "shipped";
        std::filesystem::remove_all(shipped);
        std::filesystem::create_directories(shipped / "bin");
        std::filesystem::copy_file(folder / "bin" / "lang.ini", shipped / "bin" / "lang.ini");
        std::filesystem::copy_file(argv[2], shipped / "Vemora.mdb");
        MeasureWindows(shipped);
    }
    return 0;
}
