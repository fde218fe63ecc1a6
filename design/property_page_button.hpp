#pragma once
#include <functional>
#include <string>

#include "common/push_tracker.hpp"
#include "host/control.hpp"

namespace tarnbrook {

// A push button of a dialog: the caption on the classic raised face, pressed while the
// left button is held over it; a click, Space or Return runs the handler.
class PageButton : public Control {
public:
  static constexpr int32_t DefaultWidth = 75;
  static constexpr int32_t DefaultHeight = 23;

  explicit PageButton(HWND parent, std::string caption = "");
  std::string ClassName() const override { return "PageButton"; }

  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);
  void SetOnClick(std::function<void()> handler) { onClick_ = std::move(handler); }
  // Runs the handler as a click would (nothing while disabled).
  void Click();

  void SetEnabled(bool enabled) override;

protected:
  void OnPaint() override;
  void OnMouseDown(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseMove(int16_t button, int16_t shift, float x, float y) override;
  void OnMouseUp(int16_t button, int16_t shift, float x, float y) override;
  void OnKeyDown(int16_t& keyCode, int16_t shift) override;
  void OnGotFocus() override { Refresh(); }
  void OnLostFocus() override { Refresh(); }

private:
  bool Inside(float x, float y) const;

  std::string caption_;
  std::function<void()> onClick_;
  PushTracker mouse_;
};

} // namespace tarnbrook
