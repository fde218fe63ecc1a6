#include "platform/memory/key_map.hpp"

#include "platform/messages.hpp"

namespace tarnbrook {

namespace {

struct KeyChars {
  int virtualKey;
  char plain;
  char shifted;
};

// Main keys first, so that a character is typed on the main keyboard.
constexpr KeyChars Keys[] = {
    {VK_SPACE, ' ', ' '},      {VK_RETURN, '\r', '\r'}, {VK_TAB, '\t', '\t'},
    {VK_BACK, '\b', '\b'},     {VK_ESCAPE, 0x1B, 0x1B}, {VK_OEM_1, ';', ':'},
    {0xBB, '=', '+'},          {0xBC, ',', '<'},        {VK_OEM_MINUS, '-', '_'},
    {VK_OEM_PERIOD, '.', '>'}, {VK_OEM_2, '/', '?'},    {0xC0, '`', '~'},
    {0xDB, '[', '{'},          {0xDC, '\\', '|'},       {0xDD, ']', '}'},
    {0xDE, '\'', '"'},         {VK_MULTIPLY, '*', '*'}, {VK_ADD, '+', '+'},
    {VK_SUBTRACT, '-', '-'},   {VK_DECIMAL, '.', '.'},  {VK_DIVIDE, '/', '/'},
};

constexpr char ShiftedDigits[] = ")!@#$%^&*(";

} // namespace

bool KeyForChar(char ch, KeyStroke& stroke) {
  if (ch >= 'a' && ch <= 'z') {
    stroke = {ch - 'a' + 'A', false};
    return true;
  }
  if ((ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9')) {
    stroke = {ch, ch >= 'A'};
    return true;
  }
  for (int digit = 0; digit < 10; ++digit) {
    if (ShiftedDigits[digit] == ch) {
      stroke = {'0' + digit, true};
      return true;
    }
  }
  for (const KeyChars& key : Keys) {
    if (key.plain == ch || key.shifted == ch) {
      stroke = {key.virtualKey, key.plain != ch};
      return true;
    }
  }
  return false;
}

char CharForKey(int virtualKey, bool shift) {
  if (virtualKey >= 'A' && virtualKey <= 'Z') {
    return static_cast<char>(shift ? virtualKey : virtualKey - 'A' + 'a');
  }
  if (virtualKey >= '0' && virtualKey <= '9') {
    return shift ? ShiftedDigits[virtualKey - '0'] : static_cast<char>(virtualKey);
  }
  if (virtualKey >= VK_NUMPAD0 && virtualKey <= VK_NUMPAD0 + 9) {
    return static_cast<char>('0' + virtualKey - VK_NUMPAD0);
  }
  for (const KeyChars& key : Keys) {
    if (key.virtualKey == virtualKey) {
      return shift ? key.shifted : key.plain;
    }
  }
  return 0;
}

} // namespace tarnbrook
