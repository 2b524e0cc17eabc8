// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/keys.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <utility>

namespace qt {

namespace {

// Keys that type nothing, or nothing but a control character.
constexpr std::array<std::pair<int, int>, 22> kKeys = {{
    {Qt::Key_Backspace, 8}, {Qt::Key_Return, 13},   {Qt::Key_Enter, 13},  {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},  {Qt::Key_Alt, 18},      {Qt::Key_AltGr, 18},  {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20}, {Qt::Key_Escape, 27},   {Qt::Key_PageUp, 33}, {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},      {Qt::Key_Home, 36},     {Qt::Key_Left, 37},   {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},    {Qt::Key_Down, 40},     {Qt::Key_Insert, 45}, {Qt::Key_Delete, 46},
    {Qt::Key_Menu, 93},     {Qt::Key_NumLock, 144},
}};

constexpr int kCodeF1 = 112;
constexpr int kCodeKeypad0 = 96;
// A key that is known by its character alone.
constexpr int kCodePacket = 231;

}  // namespace

int KeyCode(const QKeyEvent& event) {
    const int key = event.key();
    const auto* const found =
        std::find_if(kKeys.begin(), kKeys.end(), [key](const auto& entry) { return entry.first == key; });
    if (found != kKeys.end()) {
        return found->second;
    }
    if (key >= Qt::Key_0 && key <= Qt::Key_9 && event.modifiers().testFlag(Qt::KeypadModifier)) {
        return kCodeKeypad0 + (key - Qt::Key_0);
    }
    if (key == Qt::Key_Space || (key >= Qt::Key_0 && key <= Qt::Key_9) ||
        (key >= Qt::Key_A && key <= Qt::Key_Z)) {
        return key;  // the same numbers on both sides: upper-case ASCII
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
        return kCodeF1 + (key - Qt::Key_F1);
    }
    return kCodePacket;
}

int ShiftState(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) | (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

int Character(const QKeyEvent& event) {
    constexpr char32_t kDelete = 127;
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    if (modifiers.testFlag(Qt::AltModifier) && !modifiers.testFlag(Qt::ControlModifier)) {
        return 0;  // a menu's letter
    }
    const QList<uint> typed = event.text().toUcs4();
    return typed.isEmpty() || typed.front() == kDelete ? 0 : static_cast<int>(typed.front());
}

}  // namespace qt
