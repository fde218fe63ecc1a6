#pragma once
#include <cstdint>
#include <string>

#include "common/control_error.hpp"
#include "common/font.hpp"
#include "common/ole_color.hpp"
#include "platform/messages.hpp"

namespace tarnbrook {

// What a control knows of its container. The base class is the site of a control that no
// container holds (a constituent, a drop-down calendar): run mode, nobody listening.
class ControlSite {
public:
  virtual ~ControlSite() = default;

  // A property changed under its persistence key.
  virtual void PropertyChanged(const std::string& key);

  // Ambient properties.
  virtual bool UserMode() const { return true; } // run mode; false in the designer
  virtual Font AmbientFont() const { return Font(); }
  virtual OleColor AmbientBackColor() const { return vbButtonFace; }
  virtual OleColor AmbientForeColor() const { return vbButtonText; }

  // The container's window (0 when there is none): owner of message boxes.
  virtual HWND ContainerWindow() const { return 0; }

  // An error raised while the control handled a message (a click, a key, a timer), which the
  // window system cannot be given. The default beeps.
  virtual void ReportError(const ControlError& error);

  // A message box owned by the container; returns the answer (IDOK, IDYES ...).
  int MessageBox(const std::string& text, const std::string& caption, UINT buttons = MB_OK);

  int32_t TwipsPerPixelX() const;
  int32_t TwipsPerPixelY() const;

  // The site of controls outside any container.
  static ControlSite& Standalone();
};

} // namespace tarnbrook
