// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <filesystem>

#include "app/program.h"
#include "qt/application.h"
#include "qt/desktop.h"
#include "qt/pictures.h"

int main(int argc, char* argv[]) {
    qt::Application application(argc, argv);
    QApplication::setApplicationName("Vemora");
    QApplication::setApplicationVersion(VEMORA_VERSION);
    QApplication::setDesktopFileName("org.vemora.Vemora");
    QApplication::setWindowIcon(qt::Picture("vemora"));

    vemora::Program* running = nullptr;
    qt::QtDesktop desktop(
        [&running] { return running != nullptr ? running->Main.TextTillAndra("lang") : std::string(); });
    const std::filesystem::path folder(QApplication::applicationDirPath().toStdU16String());
    vemora::Program program(desktop, folder);
    running = &program;

    desktop.Event([&program] { program.Main.Main(); });
    return desktop.Run();
}
