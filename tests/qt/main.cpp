// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QFont>

#include "qt/application.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();  // the build asks for the names where there may be no display
    }
    // What the user's session sets must not reach in.
    qputenv("QT_QPA_PLATFORMTHEME", "");
    qputenv("LC_ALL", "C.UTF-8");
    qt::Application application(argc, argv);
    // The same font everywhere: its widths decide what fits.
    QApplication::setFont(QFont("DejaVu Sans", 9));
    return RUN_ALL_TESTS();
}
