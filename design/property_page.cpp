#include "design/property_page.hpp"
#include "common/text.hpp"

#include <algorithm>

#include "automation/type_library.hpp"
#include "design/pp_pages.hpp"
#include "design/property_page_support.hpp"
#include "draw/canvas.hpp"
#include "host/label.hpp"
#include "host/standard_text.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

// ---- one page ----

PropertyPage::PropertyPage(HWND parent, const PageDescription& description,
                           std::vector<Control*> targets)
    : Control(parent), description_(description), targets_(std::move(targets)),
      info_(FindClassInfo(description.className)) {
  if (!info_)
    RaiseDispatchError(rtNotSupported);
  SetTabStop(false);
  int columns = std::max(1, description_.columns);
  std::vector<int32_t> tops(static_cast<size_t>(columns), Margin);
  for (const PropertyField& field : description_.fields) {
    int column = std::clamp(field.column, 0, columns - 1);
    auto editor = MakeEditor(field, *info_);
    int32_t& top = tops[static_cast<size_t>(column)];
    top += editor->Create(*this, Margin + column * ColumnWidth, top, ColumnWidth - 2 * Margin) +
           PropertyEditor::RowGap;
    editors_.push_back(std::move(editor));
  }
  neededWidth_ = columns * ColumnWidth;
  neededHeight_ = *std::max_element(tops.begin(), tops.end()) + Margin;
  Load();
}

PropertyPage::~PropertyPage() {
  editors_.clear(); // their controls go before the page's window
  captions_.clear();
}

void PropertyPage::AddCaption(const std::string& text, int32_t left, int32_t top, int32_t width) {
  auto label = std::make_unique<tarnbrook::Label>(hWnd());
  label->SetCaption(text);
  label->Move(left, top, width, label->CaptionHeight());
  captions_.push_back(std::move(label));
}

PropertyEditor* PropertyPage::FindEditor(const std::string& property) const {
  for (const auto& editor : editors_)
    if (editor->Edits(property))
      return editor.get();
  return nullptr;
}

bool PropertyPage::Dirty() const {
  return std::any_of(editors_.begin(), editors_.end(),
                     [](const auto& editor) { return editor->Dirty(); });
}

void PropertyPage::Load() {
  std::vector<Dispatch> targets;
  for (Control* control : targets_)
    targets.emplace_back(*control);
  for (const auto& editor : editors_)
    editor->Load(targets);
  for (const auto& editor : editors_)
    editor->PageChanged();
}

void PropertyPage::EditorChanged(PropertyEditor&) {
  for (const auto& editor : editors_)
    editor->PageChanged();
  if (onChange_)
    onChange_();
}

void PropertyPage::Message(const std::string& text) const {
  if (messenger_)
    messenger_(text);
  else
    Platform::Current().MessageBox(0, text, "Property Pages", MB_OK | MB_ICONWARNING);
}

void PropertyPage::OnPaint() {
  cMDC& surface = Surface();
  if (surface.hDC())
    Canvas::FromHandle(surface.hDC())
        ->FillRect({0, 0, surface.Width(), surface.Height()},
                   static_cast<COLORREF>(GetSysColor(COLOR_BTNFACE)));
}

// ---- the pages of a class ----

// Every page names the class it edits; a class's pages are those, in this order.
std::vector<PageDescription> PropertyPagesFor(const std::string& className) {
  std::vector<PageDescription> pages;
  for (PageDescription (*make)() :
       {ppMonthCalendar, ppDatePickerProperties, ppDateSelectSettings, ppDateSelectAppearance}) {
    PageDescription page = make();
    if (EqualsIgnoreCaseAscii(page.className, className))
      pages.push_back(std::move(page));
  }
  return pages;
}

bool HasPropertyPages(const std::vector<Control*>& selection) {
  return std::any_of(selection.begin(), selection.end(), [](Control* control) {
    return control && !PropertyPagesFor(control->ClassName()).empty();
  });
}

// ---- the dialog ----

// The dialog's client area: the tabs, the frame round the page, the buttons' face. A press
// on a tab shows its page; the body never takes the focus, so a press on it validates nothing.
class SheetBody : public Control {
public:
  SheetBody(HWND parent, PropertySheet& sheet) : Control(parent), sheet_(sheet) {
    SetTabStop(false);
  }
  std::string ClassName() const override { return "PropertySheet"; }
  Rect PageArea() const { return pageArea_; }
  void SetPageArea(const Rect& area) { pageArea_ = area; }

protected:
  bool Focusable() const override { return false; }
  void OnPaint() override {
    cMDC& surface = Surface();
    if (!surface.hDC())
      return;
    Canvas& canvas = *Canvas::FromHandle(surface.hDC());
    canvas.FillRect({0, 0, surface.Width(), surface.Height()},
                    static_cast<COLORREF>(GetSysColor(COLOR_BTNFACE)));
    Rect frame{pageArea_.left - 2, pageArea_.top - 2, pageArea_.right + 2, pageArea_.bottom + 2};
    canvas.DrawEdge(frame, EDGE_RAISED, BF_RECT);
    SelectFont(surface, Font());
    canvas.SetBkMode(TRANSPARENT);
    canvas.SetTextColor(static_cast<COLORREF>(GetSysColor(COLOR_BTNTEXT)));
    for (size_t i = 0; i < sheet_.PageCount(); ++i) {
      Rect tab = sheet_.TabRect(i);
      bool current = i == sheet_.CurrentPage();
      if (current) // the current tab stands out and joins its page
        tab = {tab.left - 2, tab.top - 2, tab.right + 2, frame.top + 2};
      canvas.FillRect(tab, static_cast<COLORREF>(GetSysColor(COLOR_BTNFACE)));
      canvas.DrawEdge(tab, EDGE_RAISED, BF_LEFT | BF_TOP | BF_RIGHT | BF_SOFT);
      canvas.DrawText(sheet_.Page(i).Description().caption, tab,
                      DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }
  }
  void OnMouseDown(int16_t button, int16_t, float x, float y) override {
    if (button != vbLeftButton)
      return;
    Point at{static_cast<int32_t>(x), static_cast<int32_t>(y)};
    for (size_t i = 0; i < sheet_.PageCount(); ++i)
      if (sheet_.TabRect(i).Contains(at))
        sheet_.ShowPage(i);
  }

private:
  PropertySheet& sheet_;
  Rect pageArea_;
};

namespace {

constexpr int32_t Margin = 8;
constexpr int32_t ButtonGap = 6;

} // namespace

PropertySheet::PropertySheet(const std::vector<Control*>& selection, HWND owner) {
  // The classes in the order they were selected, each with its own controls.
  std::vector<std::pair<std::string, std::vector<Control*>>> classes;
  for (Control* control : selection) {
    if (!control)
      continue;
    auto found = std::find_if(classes.begin(), classes.end(),
                              [&](const auto& c) { return c.first == control->ClassName(); });
    if (found == classes.end())
      classes.push_back({control->ClassName(), {control}});
    else if (std::find(found->second.begin(), found->second.end(), control) == found->second.end())
      found->second.push_back(control);
  }
  std::vector<std::pair<PageDescription, std::vector<Control*>>> wanted;
  for (const auto& [className, controls] : classes)
    for (PageDescription& description : PropertyPagesFor(className))
      wanted.push_back({std::move(description), controls});
  if (wanted.empty())
    RaiseRuntimeError(rtInvalidProcedureCall);
  caption_ = classes.size() == 1 && classes.front().second.size() == 1
                 ? classes.front().first + " Properties"
                 : "Property Pages";

  Platform& platform = Platform::Current();
  frame_ = platform.CreateWindowEx(0, caption_, WS_POPUP, 0, 0, 100, 100, 0, FrameProc);
  platform.SetWindowLong(frame_, GWL_USERDATA, reinterpret_cast<LONG_PTR>(this));
  body_ = std::make_unique<SheetBody>(frame_, *this);

  int32_t pageWidth = 0, pageHeight = 0;
  for (auto& [description, controls] : wanted) {
    auto page = std::make_unique<PropertyPage>(body_->hWnd(), description, controls);
    page->SetOnChange([this] { UpdateApply(); });
    page->SetMessenger([this](const std::string& text) { Message(text); });
    pageWidth = std::max(pageWidth, page->NeededWidth());
    pageHeight = std::max(pageHeight, page->NeededHeight());
    pages_.push_back(std::move(page));
  }
  ok_ = std::make_unique<PageButton>(body_->hWnd(), "OK");
  cancel_ = std::make_unique<PageButton>(body_->hWnd(), "Cancel");
  apply_ = std::make_unique<PageButton>(body_->hWnd(), "Apply");
  cancel_->SetCausesValidation(false); // Cancel leaves whatever a field holds
  ok_->SetOnClick([this] { Ok(); });
  cancel_->SetOnClick([this] { Cancel(); });
  apply_->SetOnClick([this] { Apply(); });

  Rect area{Margin + 2, Margin + TabHeight + 2, Margin + 2 + pageWidth,
            Margin + TabHeight + 2 + pageHeight};
  body_->SetPageArea(area);
  int32_t width = area.right + Margin + 2;
  int32_t buttonsTop = area.bottom + 2 + Margin;
  int32_t height = buttonsTop + PageButton::DefaultHeight + Margin;
  for (auto& page : pages_) {
    page->Move(area.left, area.top, area.Width(), area.Height());
    page->SetVisible(false);
  }
  int32_t left = width - Margin - 3 * PageButton::DefaultWidth - 2 * ButtonGap;
  for (PageButton* button : {ok_.get(), cancel_.get(), apply_.get()}) {
    button->Move(left, buttonsTop, PageButton::DefaultWidth, PageButton::DefaultHeight);
    left += PageButton::DefaultWidth + ButtonGap;
  }
  apply_->SetEnabled(false);

  // The frame's caption comes on top of the client area: grow the frame by it.
  Rect client = platform.GetClientRect(frame_);
  int32_t frameWidth = width + 100 - client.Width(), frameHeight = height + 100 - client.Height();
  HWND form = FormOf(owner);
  Rect around = form ? platform.GetWindowRect(form)
                     : Rect{0, 0, platform.GetSystemMetrics(SM_CXSCREEN),
                            platform.GetSystemMetrics(SM_CYSCREEN)};
  platform.MoveWindow(frame_, std::max(0, around.left + (around.Width() - frameWidth) / 2),
                      std::max(0, around.top + (around.Height() - frameHeight) / 2), frameWidth,
                      frameHeight, false);
  body_->Move(0, 0, width, height);
  ShowPage(0);
  platform.ShowWindow(frame_, SW_SHOW);
  body_->Refresh();
  // The focus starts in the first field of the first page.
  if (pages_.front()->EditorCount() > 0)
    pages_.front()->Editor(0).Focus();
}

PropertySheet::~PropertySheet() {
  Platform& platform = Platform::Current();
  if (platform.IsWindow(frame_))
    platform.SetWindowLong(frame_, GWL_USERDATA, 0);
  ok_.reset();
  cancel_.reset();
  apply_.reset();
  pages_.clear();
  body_.reset();
  if (platform.IsWindow(frame_))
    platform.DestroyWindow(frame_);
}

LRESULT PropertySheet::FrameProc(HWND hwnd, UINT msg, WPARAM, LPARAM) {
  auto* sheet =
      reinterpret_cast<PropertySheet*>(Platform::Current().GetWindowLong(hwnd, GWL_USERDATA));
  if (msg == WM_CLOSE && sheet)
    sheet->Cancel();
  return 0;
}

PropertyPage* PropertySheet::FindPage(const std::string& name) const {
  for (const auto& page : pages_)
    if (EqualsIgnoreCaseAscii(page->Description().name, name))
      return page.get();
  return nullptr;
}

Rect PropertySheet::TabRect(size_t index) const {
  int32_t left = Margin + 2;
  for (size_t i = 0; i < pages_.size(); ++i) {
    int32_t width = MeasureLine(Font(), pages_[i]->Description().caption).cx + 20;
    if (i == index)
      return {left, Margin + 2, left + width, Margin + TabHeight};
    left += width;
  }
  return {};
}

void PropertySheet::ShowPage(size_t index) {
  if (index >= pages_.size())
    return;
  current_ = index;
  for (size_t i = 0; i < pages_.size(); ++i)
    pages_[i]->SetVisible(i == index);
  body_->Refresh();
}

void PropertySheet::Message(const std::string& text) const {
  Platform::Current().MessageBox(frame_, text, caption_, MB_OK | MB_ICONWARNING);
}

void PropertySheet::UpdateApply() {
  bool dirty = std::any_of(pages_.begin(), pages_.end(), [](const auto& p) { return p->Dirty(); });
  if (apply_->Enabled() != dirty)
    apply_->SetEnabled(dirty);
}

bool PropertySheet::Apply() {
  // Every changed field must hold a value before anything is written.
  for (size_t p = 0; p < pages_.size(); ++p) {
    PropertyPage& page = *pages_[p];
    for (size_t e = 0; e < page.EditorCount(); ++e) {
      PropertyEditor& editor = page.Editor(e);
      if (!editor.Dirty())
        continue;
      try {
        editor.Check();
      } catch (const FieldRefusal& refusal) {
        ShowPage(p);
        Message(refusal.what());
        if (refusal.Field())
          refusal.Field()->SetFocus();
        else
          editor.Focus();
        return false;
      }
    }
  }

  struct Step {
    size_t page;
    PropertyEditor* editor;
    Control* target;
  };
  std::vector<Step> steps;
  for (size_t p = 0; p < pages_.size(); ++p)
    for (size_t e = 0; e < pages_[p]->EditorCount(); ++e)
      if (pages_[p]->Editor(e).Dirty())
        for (Control* target : pages_[p]->Targets())
          steps.push_back({p, &pages_[p]->Editor(e), target});

  // A value refused only because of one not yet written (a MinDate above the old MaxDate)
  // goes in on a second round; one refused again takes back everything written.
  UndoLog undo;
  for (int round = 0; round < 2 && !steps.empty(); ++round) {
    std::vector<Step> refused;
    for (const Step& step : steps) {
      try {
        step.editor->ApplyTo(Dispatch(*step.target), undo);
      } catch (const ControlError& error) {
        if (round == 0) {
          refused.push_back(step);
          continue;
        }
        for (auto it = undo.rbegin(); it != undo.rend(); ++it) {
          try {
            (*it)();
          } catch (const ControlError&) {
          }
        }
        ShowPage(step.page);
        Message(error.Description());
        step.editor->Focus();
        return false;
      }
    }
    steps = std::move(refused);
  }
  for (auto& page : pages_)
    page->Load();
  UpdateApply();
  return true;
}

void PropertySheet::Ok() {
  bool dirty = std::any_of(pages_.begin(), pages_.end(), [](const auto& p) { return p->Dirty(); });
  if (!dirty || Apply())
    Close();
}

void PropertySheet::Cancel() {
  Close();
}

void PropertySheet::Close() {
  if (closed_)
    return;
  closed_ = true;
  Platform::Current().ShowWindow(frame_, SW_HIDE);
  if (onClose_)
    onClose_();
}

bool ShowPropertyPages(const std::vector<Control*>& selection, HWND owner) {
  if (!HasPropertyPages(selection))
    return false;
  Platform& platform = Platform::Current();
  HWND form = FormOf(owner);
  HWND focus = platform.GetFocus();
  PropertySheet sheet(selection, owner);
  bool formWasEnabled = form && !platform.EnableWindow(form, false);
  while (!sheet.Closed() && platform.IsWindow(sheet.hWnd())) {
    platform.PumpMessages();
    if (sheet.Closed() || !platform.WaitMessage())
      break;
  }
  if (formWasEnabled)
    platform.EnableWindow(form, true);
  if (focus && platform.IsWindow(focus))
    platform.SetFocus(focus);
  return true;
}

} // namespace tarnbrook
