#include "platform/memory/keysym_keys.hpp"

#include <X11/keysym.h>

#include "platform/memory/key_map.hpp"
#include "platform/messages.hpp"

namespace tarnbrook {

namespace {

struct KeysymKey {
  unsigned long keysym;
  int virtualKey;
};

// Keys that type no character, and the keypad's own keys.
constexpr KeysymKey Keys[] = {
    {XK_BackSpace, VK_BACK},
    {XK_Tab, VK_TAB},
    {XK_ISO_Left_Tab, VK_TAB},
    {XK_Return, VK_RETURN},
    {XK_KP_Enter, VK_RETURN},
    {XK_Escape, VK_ESCAPE},
    {XK_Shift_L, VK_SHIFT},
    {XK_Shift_R, VK_SHIFT},
    {XK_Control_L, VK_CONTROL},
    {XK_Control_R, VK_CONTROL},
    {XK_Alt_L, VK_MENU},
    {XK_Alt_R, VK_MENU},
    {XK_Meta_L, VK_MENU},
    {XK_Meta_R, VK_MENU},
    {XK_Prior, VK_PRIOR},
    {XK_KP_Prior, VK_PRIOR},
    {XK_Next, VK_NEXT},
    {XK_KP_Next, VK_NEXT},
    {XK_End, VK_END},
    {XK_KP_End, VK_END},
    {XK_Home, VK_HOME},
    {XK_KP_Home, VK_HOME},
    {XK_Left, VK_LEFT},
    {XK_KP_Left, VK_LEFT},
    {XK_Up, VK_UP},
    {XK_KP_Up, VK_UP},
    {XK_Right, VK_RIGHT},
    {XK_KP_Right, VK_RIGHT},
    {XK_Down, VK_DOWN},
    {XK_KP_Down, VK_DOWN},
    {XK_Insert, VK_INSERT},
    {XK_KP_Insert, VK_INSERT},
    {XK_Delete, VK_DELETE},
    {XK_KP_Delete, VK_DELETE},
    {XK_KP_Multiply, VK_MULTIPLY},
    {XK_KP_Add, VK_ADD},
    {XK_KP_Subtract, VK_SUBTRACT},
    {XK_KP_Decimal, VK_DECIMAL},
    {XK_KP_Divide, VK_DIVIDE},
};

} // namespace

int VirtualKeyFromKeysym(unsigned long keysym) {
  if (keysym >= 0x20 && keysym <= 0x7E) {
    KeyStroke stroke;
    return KeyForChar(static_cast<char>(keysym), stroke) ? stroke.virtualKey : 0;
  }
  if (keysym >= XK_KP_0 && keysym <= XK_KP_9) {
    return VK_NUMPAD0 + static_cast<int>(keysym - XK_KP_0);
  }
  if (keysym >= XK_F1 && keysym <= XK_F12) {
    return VK_F1 + static_cast<int>(keysym - XK_F1);
  }
  for (const KeysymKey& key : Keys) {
    if (key.keysym == keysym) {
      return key.virtualKey;
    }
  }
  return 0;
}

} // namespace tarnbrook
