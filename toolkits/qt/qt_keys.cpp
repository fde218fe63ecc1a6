#include "toolkits/qt/qt_keys.hpp"

#include "platform/memory/key_map.hpp"
#include "platform/messages.hpp"

namespace tarnbrook {

namespace {

struct KeyPair {
  int key;
  int virtualKey;
};

// Keys that type no character.
constexpr KeyPair Keys[] = {
    {Qt::Key_Backspace, VK_BACK}, {Qt::Key_Tab, VK_TAB},         {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Return, VK_RETURN},  {Qt::Key_Enter, VK_RETURN},    {Qt::Key_Escape, VK_ESCAPE},
    {Qt::Key_Shift, VK_SHIFT},    {Qt::Key_Control, VK_CONTROL}, {Qt::Key_Alt, VK_MENU},
    {Qt::Key_Meta, VK_MENU},      {Qt::Key_PageUp, VK_PRIOR},    {Qt::Key_PageDown, VK_NEXT},
    {Qt::Key_End, VK_END},        {Qt::Key_Home, VK_HOME},       {Qt::Key_Left, VK_LEFT},
    {Qt::Key_Up, VK_UP},          {Qt::Key_Right, VK_RIGHT},     {Qt::Key_Down, VK_DOWN},
    {Qt::Key_Insert, VK_INSERT},  {Qt::Key_Delete, VK_DELETE},
};

// The keypad's own keys.
constexpr KeyPair Keypad[] = {
    {Qt::Key_Asterisk, VK_MULTIPLY}, {Qt::Key_Plus, VK_ADD},     {Qt::Key_Minus, VK_SUBTRACT},
    {Qt::Key_Period, VK_DECIMAL},    {Qt::Key_Slash, VK_DIVIDE},
};

} // namespace

QtKeyStroke VirtualKeyFromQt(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  if (modifiers & Qt::KeypadModifier) {
    if (key >= Qt::Key_0 && key <= Qt::Key_9) {
      return {VK_NUMPAD0 + (key - Qt::Key_0)};
    }
    for (const KeyPair& pair : Keypad) {
      if (pair.key == key) {
        return {pair.virtualKey};
      }
    }
  }
  for (const KeyPair& pair : Keys) {
    if (pair.key == key) {
      return {pair.virtualKey};
    }
  }
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) {
    return {VK_F1 + (key - Qt::Key_F1)};
  }
  // A character key: the US key typing the same character, whatever the layout that typed it.
  KeyStroke stroke;
  QChar typed = text.size() == 1 ? text[0] : QChar();
  if (typed.unicode() >= 0x20 && typed.unicode() <= 0x7E && !(modifiers & Qt::ControlModifier) &&
      KeyForChar(static_cast<char>(typed.unicode()), stroke)) {
    return {stroke.virtualKey, stroke.shift ? 1 : 0};
  }
  if (key >= 0x20 && key <= 0x7E && KeyForChar(static_cast<char>(key), stroke)) {
    return {stroke.virtualKey};
  }
  return {};
}

} // namespace tarnbrook
