#include "host/container.hpp"

#include <algorithm>

#include "common/control_error.hpp"
#include "common/dispatch_depth.hpp"
#include "common/regular_file.hpp"
#include "common/text.hpp"
#include "host/control_registry.hpp"
#include "host/file_replace.hpp"
#include "host/form_file.hpp"
#include "platform/escaped_error.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

// Posted to the form to destroy the controls handlers removed.
constexpr UINT WM_RELEASE_DISCARDED = WM_USER + 0x7F0;

// Names and texts from the file are echoed as mended UTF-8.
[[noreturn]] void LoadFailure(const std::string& fileName, const std::string& message) {
  throw ControlError(errFormFileLoad, "Tarnbrook",
                     MendUtf8("Form file '" + fileName + "': " + message));
}

[[noreturn]] void SaveFailure(const std::string& path, const std::string& what) {
  throw ControlError(errFormFileSave, "Tarnbrook",
                     MendUtf8("Form file '" + path + "': cannot be written (" + what + ")"));
}

} // namespace

// A control's view of the form: ambient properties, and a record of changed keys.
class Container::Site : public ControlSite {
public:
  Site(const Container& form, std::string name) : form_(form), name_(std::move(name)) {}
  void PropertyChanged(const std::string& key) override { changedKeys.push_back(key); }
  void ReportError(const ControlError& error) override {
    if (form_.errorHandler_)
      form_.errorHandler_(name_, error);
    else
      ControlSite::ReportError(error);
  }
  bool UserMode() const override { return form_.userMode_; }
  Font AmbientFont() const override { return form_.ambientFont_; }
  OleColor AmbientBackColor() const override { return form_.ambientBackColor_; }
  HWND ContainerWindow() const override { return form_.hwnd_; }

  std::vector<std::string> changedKeys;

private:
  const Container& form_;
  std::string name_;
};

Container::Container(int32_t width, int32_t height, const std::string& caption) {
  Platform& platform = Platform::Current();
  hwnd_ = platform.CreateWindowEx(0, caption, WS_POPUP | WS_VISIBLE, 0, 0, width, height, 0,
                                  WindowProc);
  platform.SetWindowLong(hwnd_, GWL_USERDATA, reinterpret_cast<LONG_PTR>(this));
  platform.InvalidateRect(hwnd_);
}

Container::~Container() {
  entries_.clear(); // the controls' windows go before the form's
  discarded_.clear();
  Platform& platform = Platform::Current();
  platform.SetWindowLong(hwnd_, GWL_USERDATA, 0);
  platform.DestroyWindow(hwnd_);
}

LRESULT Container::WindowProc(HWND hwnd, UINT msg, WPARAM, LPARAM) try {
  Platform& platform = Platform::Current();
  auto* form = reinterpret_cast<Container*>(platform.GetWindowLong(hwnd, GWL_USERDATA));
  if (form && msg == WM_RELEASE_DISCARDED)
    form->ReleaseDiscarded();
  if (form && msg == WM_PAINT) {
    if (Canvas* canvas = Canvas::FromHandle(platform.GetDC(hwnd)))
      canvas->FillRect(platform.GetClientRect(hwnd),
                       static_cast<COLORREF>(TranslateColor(form->ambientBackColor_)));
  }
  return 0;
} catch (...) {
  ReportCurrentException(hwnd);
  return 0;
}

Container::Entry Container::Place(std::unique_ptr<Control> control, const std::string& name,
                                  const Rect& bounds) {
  Platform& platform = Platform::Current();
  HWND hwnd = control->hWnd();
  if (control->Parent() != hwnd_) {
    platform.SetParent(hwnd, hwnd_);
    LONG_PTR style = platform.GetWindowLong(hwnd, GWL_STYLE);
    platform.SetWindowLong(hwnd, GWL_STYLE, (style & ~LONG_PTR(WS_POPUP)) | WS_CHILD);
  }
  Entry entry{name, std::make_unique<Site>(*this, name), std::move(control)};
  entry.control->SetSite(entry.site.get());
  entry.control->Move(bounds.left, bounds.top, bounds.Width(), bounds.Height());
  return entry;
}

Control& Container::Add(std::unique_ptr<Control> control, const std::string& name, int32_t left,
                        int32_t top, int32_t width, int32_t height) {
  if (!control || name.empty() || FindEntry(name))
    RaiseRuntimeError(rtInvalidProcedureCall);
  PaintBatch batch; // placed, initialised and shown, then painted once
  Entry entry = Place(std::move(control), name, {left, top, left + width, top + height});
  entry.control->InitProperties(); // a control that cannot be made is not added
  entries_.push_back(std::move(entry));
  Control& added = *entries_.back().control;
  added.SetVisible(true);
  added.Refresh();
  return added;
}

const Container::Entry* Container::FindEntry(const std::string& name) const {
  for (const Entry& entry : entries_)
    if (EqualsIgnoreCaseAscii(entry.name, name))
      return &entry;
  return nullptr;
}

Control* Container::Find(const std::string& name) const {
  const Entry* entry = FindEntry(name);
  return entry ? entry->control.get() : nullptr;
}

void Container::Remove(const std::string& name) {
  auto it = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return EqualsIgnoreCaseAscii(entry.name, name);
  });
  if (it == entries_.end())
    RaiseRuntimeError(rtInvalidProcedureCall);
  Entry gone = std::move(*it); // off the list before its control goes
  entries_.erase(it);
  Discard(std::move(gone));
}

void Container::Discard(Entry entry) {
  if (!DispatchDepth::Active())
    return; // destroyed here
  const HWND window = entry.control->hWnd();
  if (discarded_.empty())
    Platform::Current().PostMessage(hwnd_, WM_RELEASE_DISCARDED, 0, 0);
  discarded_.push_back(std::move(entry)); // kept before anything it hears can throw
  Platform::Current().ShowWindow(window, SW_HIDE);
}

// On the form's own message, so never below a control's frame; inside a handler's modal loop
// it waits for the handlers to return.
void Container::ReleaseDiscarded() {
  if (!DispatchDepth::Active()) {
    discarded_.clear();
    return;
  }
  const HWND form = hwnd_;
  DispatchDepth::WhenQuiet(
      [form] { Platform::Current().PostMessage(form, WM_RELEASE_DISCARDED, 0, 0); });
}

const std::vector<std::string>& Container::ChangedKeys(const std::string& name) const {
  const Entry* entry = FindEntry(name);
  if (!entry)
    RaiseRuntimeError(rtInvalidProcedureCall);
  return entry->site->changedKeys;
}

void Container::ClearChangedKeys() {
  for (Entry& entry : entries_)
    entry.site->changedKeys.clear();
}

std::string Container::SaveToText(const std::string& fileName) const {
  Platform& platform = Platform::Current();
  std::vector<ControlRecord> records;
  for (const Entry& entry : entries_) {
    ControlRecord& record = records.emplace_back();
    record.ClassName = entry.control->ClassName();
    record.Name = entry.name;
    Rect window = platform.GetWindowRect(entry.control->hWnd());
    Point topLeft = platform.ScreenToClient(hwnd_, {window.left, window.top});
    record.Bounds = {topLeft.x, topLeft.y, topLeft.x + window.Width(), topLeft.y + window.Height()};
    entry.control->WriteProperties(record.Properties);
  }
  return WriteFormText(records, fileName);
}

// The text goes to a new file beside the old one, reaches the disk, and only then takes the
// old one's name: a failure at any step leaves the old file as it was.
void Container::SaveToFile(const std::string& path) const {
  if (const std::string failure = ReplaceFile(path, SaveToText(path)); !failure.empty())
    SaveFailure(path, failure);
}

void Container::LoadFromText(const std::string& text, const std::string& fileName) {
  std::vector<ControlRecord> records = ReadFormText(text, fileName);

  // Everything is built aside; the form changes only once the whole file has loaded.
  PaintBatch batch;
  std::vector<Entry> loaded;
  for (ControlRecord& record : records) {
    for (const Entry& entry : loaded)
      if (EqualsIgnoreCaseAscii(entry.name, record.Name))
        LoadFailure(fileName, "the name '" + record.Name + "' is used twice");
    const ControlFactory* factory = FindControlClass(record.ClassName);
    if (!factory)
      LoadFailure(fileName,
                  "control '" + record.Name + "' has the unknown class '" + record.ClassName + "'");
    if (record.Name.empty())
      LoadFailure(fileName, "a control of class '" + record.ClassName + "' has no name");
    try {
      std::unique_ptr<Control> control = (*factory)(hwnd_);
      if (!control)
        LoadFailure(fileName, "class '" + record.ClassName + "' made no control");
      Entry entry = Place(std::move(control), record.Name, record.Bounds);
      entry.control->SetVisible(false);
      loaded.push_back(std::move(entry));
      loaded.back().control->ReadProperties(record.Properties);
    } catch (const ControlError& error) {
      if (error.Number() == errFormFileLoad)
        throw;
      LoadFailure(fileName, "control '" + record.Name + "': " + error.Description());
    } catch (const std::bad_alloc&) {
      LoadFailure(fileName, "control '" + record.Name + "': out of memory");
    }
  }
  entries_.swap(loaded);
  for (Entry& old : loaded)
    Discard(std::move(old));
  for (Entry& entry : entries_) {
    entry.control->SetVisible(true);
    entry.control->Refresh();
  }
}

void Container::LoadFromFile(const std::string& path) {
  FileRead file = ReadRegularFile(path, MaxFormFileBytes);
  if (!file.bytes)
    LoadFailure(path,
                file.problem == "is a folder" ? "is a folder, not a form file" : file.problem);
  LoadFromText(*file.bytes, path);
}

} // namespace tarnbrook
