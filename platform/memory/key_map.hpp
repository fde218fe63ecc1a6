#pragma once

namespace tarnbrook {

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
