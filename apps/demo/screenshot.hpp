#pragma once
#include <string>

typedef struct _XDisplay Display;

namespace tarnbrook {

// Writes what the X server shows on the whole root window as a PNG file.
void WriteScreenshot(Display* display, const std::string& path);

} // namespace tarnbrook
