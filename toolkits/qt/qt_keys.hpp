#pragma once
#include <QString>
#include <Qt>

namespace tarnbrook {

// The simulator's virtual key for a Qt key as the US keyboard has it, and whether Shift must
// be down for the character `text` the key typed; 0 for a key none makes.
struct QtKeyStroke {
  int virtualKey = 0;
  int shift = -1; // 1 down, 0 up, -1 as the modifiers say
};
QtKeyStroke VirtualKeyFromQt(int key, Qt::KeyboardModifiers modifiers, const QString& text);

} // namespace tarnbrook
