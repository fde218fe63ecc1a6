#pragma once
#include <string>
#include <vector>

#include "common/geometry.hpp"
#include "common/property_bag.hpp"

namespace tarnbrook {

// Raised for a form file that cannot be read or written.
constexpr int32_t errFormFileSave = 31036; // "Error saving to file"
constexpr int32_t errFormFileLoad = 31037; // "Error loading from file"

// Limits of what a form file may hold: brackets nested deeper than MaxFormNesting, a control
// wider or taller than MaxControlSize pixels (the largest surface) and a file larger than
// MaxFormFileBytes are refused, as is a picture beyond Picture::MaxPixels and pictures of
// more than MaxFormPixels in all (a small file can claim gigabytes of them).
constexpr size_t MaxFormNesting = 64;
constexpr int32_t MaxControlSize = 32767;
constexpr uint64_t MaxFormFileBytes = 64ull << 20;        // 64 MiB
constexpr uint64_t MaxFormPixels = 2 * 4096ull * 4096ull; // two of the largest pictures

// One control as a form file keeps it.
struct ControlRecord {
  std::string ClassName;
  std::string Name;
  Rect Bounds; // pixels, in the form's client area
  MemoryPropertyBag Properties;
};

// The JSON text of a form: one object per control, each property a typed value that reads
// back exactly. `fileName` only names the file in error messages.
std::string WriteFormText(const std::vector<ControlRecord>& controls, const std::string& fileName);
std::vector<ControlRecord> ReadFormText(const std::string& text, const std::string& fileName);

} // namespace tarnbrook
