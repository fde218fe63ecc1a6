// The designer: a saved form on a real X display in design mode.
//
//   designer FORM.json
//
// Click a control to select it (Shift or Ctrl+click for more), drag it to move it on a grid
// of 8 px (Alt held: by single pixels), drag a handle to resize it; arrows nudge by a pixel,
// Shift+arrows resize, Tab selects the next control, Delete removes the selection, a double
// click or F4 opens the property pages. Ctrl+S saves the form to FORM.json; Ctrl+R switches
// to run mode to try the form and back. The line at the bottom names the selected control
// with its left, top, width and height in pixels, and tells what was saved or refused.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "automation/class_factory.hpp"
#include "common/control_error.hpp"
#include "design/form_designer.hpp"
#include "design/property_page.hpp"
#include "host/container.hpp"
#include "host/standard_controls.hpp"
#include "platform/x11/x11_platform.hpp"
#include "winplumb/hooks.hpp"

using namespace tarnbrook;

namespace {

constexpr int32_t FormLeft = 40; // the window, caption included, on the screen
constexpr int32_t FormTop = 40;
constexpr int32_t MinWidth = 480; // the client area, at least, and room for every control
constexpr int32_t MinHeight = 360;
constexpr int32_t Margin = 16;
constexpr int32_t StatusHeight = 20;
constexpr uintptr_t PropertiesTimer = 1;

std::string BaseName(const std::string& path) {
  size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

class Designer : private IWindowsHook {
public:
  Designer(X11Platform& platform, const std::string& path) : platform_(platform), path_(path) {
    // In place before the controls are drawn; sized once they are known.
    platform_.MoveWindow(form_.hWnd(), FormLeft, FormTop, MinWidth,
                         MinHeight + StatusHeight + MemoryPlatform::CaptionHeight, true);
    form_.LoadFromFile(path_);
    int32_t width = MinWidth, height = MinHeight;
    for (size_t i = 0; i < form_.Count(); ++i) {
      Rect r = platform_.GetWindowRect(form_.Item(i).hWnd());
      Point p = platform_.ScreenToClient(form_.hWnd(), {r.right, r.bottom});
      width = std::max(width, p.x + Margin);
      height = std::max(height, p.y + Margin);
    }
    platform_.MoveWindow(form_.hWnd(), FormLeft, FormTop, width,
                         height + StatusHeight + MemoryPlatform::CaptionHeight, true);
    status_ = std::make_unique<Label>(form_.hWnd());
    status_->SetBackColor(vbWindowBackground);
    status_->Move(0, height, width, StatusHeight);
    form_.SetErrorHandler([this](const std::string& name, const ControlError& error) {
      Say(name + ": " + error.Description() + " (" + std::to_string(error.Number()) + ")");
    });
    InstallHook(this, WH_KEYBOARD); // before the designer's, to see Ctrl+S and Ctrl+R first
    Design();
  }
  ~Designer() override {
    RemoveHook(this, WH_KEYBOARD);
    Current() = nullptr;
    designer_.reset();
    form_.SetErrorHandler(nullptr);
  }
  Designer(const Designer&) = delete;
  Designer& operator=(const Designer&) = delete;

private:
  static Designer*& Current() {
    static Designer* current = nullptr;
    return current;
  }

  void Design() {
    designer_ = std::make_unique<FormDesigner>(form_);
    designer_->SetSelectionChangedHandler([this] { ShowSelection(); });
    designer_->SetFormChangedHandler([this] { ShowSelection(); });
    designer_->SetShowPropertiesHandler([this](const std::vector<Control*>&) {
      // Opened from the loop, not from inside the input that asked.
      Current() = this;
      platform_.SetTimer(0, PropertiesTimer, 1, OpenProperties);
    });
    Raise();
    ShowSelection();
  }

  static void OpenProperties(HWND, UINT, uintptr_t id, uint32_t) {
    Platform::Current().KillTimer(0, id);
    Designer* self = Current();
    if (!self || !self->designer_)
      return;
    std::vector<Control*> selection = self->designer_->Selection();
    if (selection.empty())
      return;
    if (!ShowPropertyPages(selection, self->form_.hWnd())) {
      self->Say("No property pages for this selection");
      return;
    }
    if (self->designer_) {
      self->designer_->Update(); // the pages may have moved or resized a control
      self->ShowSelection();
    }
  }

  // The status line stays above the controls.
  void Raise() {
    platform_.SetWindowPos(status_->hWnd(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  }

  void ShowSelection() {
    Raise();
    std::vector<Control*> selection = designer_ ? designer_->Selection() : std::vector<Control*>{};
    if (selection.empty()) {
      Say(BaseName(path_) + ": nothing selected. Ctrl+S saves, Ctrl+R runs the form.");
      return;
    }
    Control& first = *selection.front();
    std::string name;
    for (size_t i = 0; i < form_.Count(); ++i)
      if (&form_.Item(i) == &first)
        name = form_.Name(i);
    Rect r = platform_.GetWindowRect(first.hWnd());
    Point p = platform_.ScreenToClient(form_.hWnd(), {r.left, r.top});
    std::string text = name + "   Left " + std::to_string(p.x) + "   Top " + std::to_string(p.y) +
                       "   Width " + std::to_string(r.Width()) + "   Height " +
                       std::to_string(r.Height());
    if (selection.size() > 1)
      text += "   (and " + std::to_string(selection.size() - 1) + " more)";
    Say(text);
  }

  void Say(const std::string& text) { status_->SetCaption(" " + text); }

  void Save() {
    try {
      form_.SaveToFile(path_);
      Say("Saved " + path_);
      std::printf("saved %s\n", path_.c_str());
      std::fflush(stdout);
    } catch (const ControlError& error) {
      Say(error.Description());
    }
  }

  void ToggleRunMode() {
    if (designer_) {
      designer_.reset();
      Say("Run mode: the form works as its users see it. Ctrl+R goes back to design.");
    } else {
      Design();
    }
  }

  // Ctrl+S and Ctrl+R on the form, in design mode and in run mode.
  void HookProc(int32_t, int32_t, WPARAM wParam, LPARAM lParam, bool& bConsume) override {
    constexpr LPARAM Released = LPARAM(1) << 31;
    HWND focus = platform_.GetFocus();
    while (focus && focus != form_.hWnd())
      focus = platform_.GetParent(focus);
    if (!focus || platform_.GetKeyState(VK_CONTROL) >= 0 || (wParam != 'S' && wParam != 'R'))
      return;
    bConsume = true;
    if (lParam & Released)
      return;
    if (wParam == 'S')
      Save();
    else
      ToggleRunMode();
  }

  X11Platform& platform_;
  std::string path_;
  Container form_{MinWidth, MinHeight, BaseName(path_) + " - Tarnbrook designer"};
  std::unique_ptr<Label> status_;
  std::unique_ptr<FormDesigner> designer_;
};

} // namespace

int main(int argc, char** argv) {
  if (argc != 2 || argv[1][0] == '-') {
    std::fputs("usage: designer FORM.json\n", stderr);
    return 2;
  }
  try {
    X11Platform platform;
    RegisterTarnbrookClasses();
    RegisterStandardControls();
    Designer designer(platform, argv[1]);
    platform.Run();
    return 0;
  } catch (const ControlError& error) {
    std::fprintf(stderr, "designer: %s\n", error.Description().c_str());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "designer: %s\n", error.what());
  }
  return 1;
}
