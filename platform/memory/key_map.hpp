#pragma once

#include "platform/messages.hpp"

namespace tarnbrook {

// Keys the platform's own list leaves out: the keypad's digits and operators, and F1.
constexpr int VK_NUMPAD0 = 0x60;
constexpr int VK_MULTIPLY = 0x6A;
constexpr int VK_ADD = 0x6B;
constexpr int VK_F1 = VK_F4 - 3;

// The US keyboard: the key (and whether Shift is held) that types a character, and the
// character a key types. Keys of the numeric keypad type the same with or without Shift.
struct KeyStroke {
  int virtualKey = 0;
  bool shift = false;
};

// False for a character no key types.
bool KeyForChar(char ch, KeyStroke& stroke);
// 0 for a key that types nothing.
char CharForKey(int virtualKey, bool shift);

} // namespace tarnbrook
