#pragma once
#include <cstdint>

namespace tarnbrook {

// a + b, held at the ends of the 32-bit range instead of wrapping.
constexpr int32_t SaturatedSum(int64_t a, int64_t b) {
  const int64_t sum = a + b;
  return sum > INT32_MAX ? INT32_MAX : sum < INT32_MIN ? INT32_MIN : static_cast<int32_t>(sum);
}

struct Point {
  int32_t x = 0;
  int32_t y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  int32_t cx = 0;
  int32_t cy = 0;
  bool operator==(const Size&) const = default;
};

// left and top inside, right and bottom outside.
struct Rect {
  int32_t left = 0;
  int32_t top = 0;
  int32_t right = 0;
  int32_t bottom = 0;

  int32_t Width() const { return right - left; }
  int32_t Height() const { return bottom - top; }
  bool Contains(Point p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
  bool operator==(const Rect&) const = default;
};

inline bool PtInRect(const Rect& r, Point p) {
  return r.Contains(p);
}

} // namespace tarnbrook
