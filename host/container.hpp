#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "common/font.hpp"
#include "common/ole_color.hpp"
#include "host/control.hpp"
#include "host/control_site.hpp"

namespace tarnbrook {

// A form: a top-level window holding named controls, each with a site of its own, saved to
// and loaded from a JSON form file.
class Container {
public:
  explicit Container(int32_t width = 640, int32_t height = 480,
                     const std::string& caption = "Form1");
  ~Container();
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;

  HWND hWnd() const { return hwnd_; }

  // Ambient properties the controls see through their sites.
  bool UserMode() const { return userMode_; }
  void SetUserMode(bool userMode) { userMode_ = userMode; }
  const Font& AmbientFont() const { return ambientFont_; }
  void SetAmbientFont(const Font& font) { ambientFont_ = font; }
  OleColor AmbientBackColor() const { return ambientBackColor_; }
  void SetAmbientBackColor(OleColor color) { ambientBackColor_ = color; }

  // Places a new control on the form (pixels), gives it its site and initialises it
  // (InitProperties). Raises 5 for an empty or duplicate name.
  Control& Add(std::unique_ptr<Control> control, const std::string& name, int32_t left, int32_t top,
               int32_t width, int32_t height);
  size_t Count() const { return entries_.size(); }
  Control& Item(size_t index) const { return *entries_.at(index).control; }
  const std::string& Name(size_t index) const { return entries_.at(index).name; }
  Control* Find(const std::string& name) const; // null when absent
  // Takes the control off the form and destroys it; removed by one of its handlers, or while
  // any control is handling a message, it is hidden at once and destroyed when the form is
  // next idle. Raises 5 when no control has the name.
  void Remove(const std::string& name);

  // The keys a control's site was told of through PropertyChanged, in order.
  const std::vector<std::string>& ChangedKeys(const std::string& name) const;
  void ClearChangedKeys();

  // Errors a control raised while handling a message (a click, a key, a timer) come here
  // with the control's name instead of ending the program; without a handler they beep.
  using ErrorHandler = std::function<void(const std::string& control, const ControlError& error)>;
  void SetErrorHandler(ErrorHandler handler) { errorHandler_ = std::move(handler); }

  // Form files. Saving raises 31036; loading raises 31037 with the place of the fault and
  // leaves the form as it was.
  std::string SaveToText(const std::string& fileName = "(text)") const;
  void SaveToFile(const std::string& path) const;
  void LoadFromText(const std::string& text, const std::string& fileName = "(text)");
  void LoadFromFile(const std::string& path);

private:
  class Site;
  struct Entry {
    std::string name;
    std::unique_ptr<Site> site; // outlives its control
    std::unique_ptr<Control> control;
  };
  Entry Place(std::unique_ptr<Control> control, const std::string& name, const Rect& bounds);
  // Destroys a control taken off the list; while an event or a control's window procedure
  // runs, hides it and keeps it until they have all returned and the form is next idle.
  void Discard(Entry entry);
  void ReleaseDiscarded();
  const Entry* FindEntry(const std::string& name) const;
  static LRESULT WindowProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

  HWND hwnd_ = 0;
  bool userMode_ = true;
  Font ambientFont_;
  OleColor ambientBackColor_ = vbButtonFace;
  std::vector<Entry> entries_;
  std::vector<Entry> discarded_; // removed by a handler, not yet destroyed
  ErrorHandler errorHandler_;
};

} // namespace tarnbrook
