// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    // The same font everywhere: its widths decide what fits.
    QApplication::setFont(QFont("DejaVu Sans", 9));
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
