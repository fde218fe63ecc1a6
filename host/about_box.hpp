#pragma once
#include <string>
#include <vector>

#include "common/geometry.hpp"
#include "common/push_tracker.hpp"
#include "host/control.hpp"

namespace tarnbrook {

// The library's name, version (the project's version) and copyright line.
std::string LibraryName();      // "Tarnbrook"
std::string LibraryVersion();   // "0.1.0"
std::string LibraryCopyright(); // "Copyright (c) 2026 Tarnbrook"

// The body of the about box: the library's name and version, the control's class, the
// copyright line and an OK button; OK, Return and Escape close it.
class AboutBox : public Control {
public:
  static constexpr int32_t BoxWidth = 300;
  static constexpr int32_t BoxHeight = 150;

  AboutBox(HWND parent, std::string className);
  std::string ClassName() const override { return "AboutBox"; }

  const std::vector<std::string>& Lines() const { return lines_; }
  Rect OkButton() const; // client coordinates
  bool Closed() const { return closed_; }
  void Close();

  // The box now open (the innermost), null when none is.
  static AboutBox* Current();

protected:
  void OnPaint() override;
  void OnMouseDown(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseMove(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseUp(int16_t button, int16_t shift, float x, float y) override;
  void OnKeyDown(int16_t& keyCode, int16_t shift) override;

private:
  bool OnOk(float x, float y) const;

  std::vector<std::string> lines_;
  PushTracker ok_;
  bool closed_ = false;
};

// Shows the about box for `className` modally, centred on the form `owner` belongs to (else
// the screen), which takes no input meanwhile; returns once it is closed, with the focus
// back where it was. The loop pumps the platform's messages; where nothing can ever happen
// any more (a simulator without timers) it gives up and closes the box.
void ShowAboutBox(const std::string& className, HWND owner = 0);

} // namespace tarnbrook
