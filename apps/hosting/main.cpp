// The README's hosting example: a small control on a form, clicked through the simulator.
#include <cstdio>
#include <memory>

#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"

using namespace tarnbrook;

// A control that paints a swatch and counts the clicks it receives.
class Swatch : public Control {
public:
  using Control::Control;
  std::string ClassName() const override { return "Swatch"; }
  int Clicks = 0;

protected:
  void OnPaint() override {
    Surface().DrawBox(0, 0, Surface().Width() - 1, Surface().Height() - 1, 1, vbWindowText,
                      Clicks % 2 ? vbHighlight : vbWindowBackground);
  }
  void OnMouseDown(int16_t, int16_t, float, float) override {
    ++Clicks;
    PropertyChanged("Clicks");
    Refresh();
  }
};

int main(int argc, char** argv) {
  MemoryPlatform screen; // the window system every test uses; X11 works the same way
  Container form(320, 200, "Form1");
  auto& swatch = static_cast<Swatch&>(
      form.Add(std::make_unique<Swatch>(form.hWnd()), "swatch1", 20, 20, 100, 60));
  Point centre = screen.ClientToScreen(swatch.hWnd(), {50, 30});
  screen.Click(centre.x, centre.y);

  const char* path = argc > 1 ? argv[1] : "hosting.png";
  screen.WriteScreenPng(path);
  std::printf("%d click(s); screen written to %s\n", swatch.Clicks, path);
}
