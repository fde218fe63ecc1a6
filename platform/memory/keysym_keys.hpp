#pragma once

namespace tarnbrook {

// The virtual-key code of an X keysym (GDK's keyvals are the same numbers) as the US
// keyboard has it; 0 for a keysym no key of that keyboard makes (a Latin-1 letter of
// another layout, a dead key ...).
int VirtualKeyFromKeysym(unsigned long keysym);

} // namespace tarnbrook
