#pragma once
// Where the demo's form and controls stand, shared by the demo and its end-to-end test.
#include <cstdint>

#include "common/geometry.hpp"

namespace tarnbrook::demo_layout {

constexpr const char* FormCaption = "Tarnbrook demo";
constexpr int32_t FormLeft = 40; // the window, caption included, on the screen
constexpr int32_t FormTop = 40;
constexpr int32_t FormWidth = 640; // the client area
constexpr int32_t FormHeight = 600;

constexpr const char* CustomFormat = "MM/dd/yyyy hh:mm:ss tt";

// The controls, in the form's client coordinates.
constexpr Rect Calendar1{12, 26, 216, 206};
constexpr Rect Picker1{232, 26, 382, 47};
constexpr Rect Picker2{400, 26, 628, 47};
constexpr Rect Select1{12, 236, 312, 310}; // the DateSelect sets its own height
constexpr Rect Sql1{12, 320, 628, 336};
constexpr Rect Rows1{12, 340, 628, 404};
constexpr Rect Log1{12, 424, 628, 588};
// Nothing stands here, nor a calendar dropped down from picker1.
constexpr Point EmptySpot{540, 160};

} // namespace tarnbrook::demo_layout
