#pragma once
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "automation/dispatch.hpp"
#include "design/property_page_button.hpp"
#include "host/combo_box.hpp"
#include "host/control.hpp"
#include "host/type_info.hpp"

namespace tarnbrook {

class PropertyEditor;
class PropertyPage;

// How a page edits one property (or, for Colors and Fonts, a group of them).
enum class EditorKind {
  Auto,    // from the property's type: Boolean, enumeration, number, date, text, picture
  Text,    // a text box
  Number,  // a text box that takes only numbers
  Check,   // a check box, grayed where the controls differ
  Choice,  // a list of named values (the enumeration's, or `choices`)
  Date,    // a date picker
  Picture, // the path of a PNG file
  Format,  // a custom date format with the ready-made ones and a preview
  Colors,  // the colour properties in `members`, one colour chooser for them all
  Fonts,   // the font properties in `members`, one font chooser for them all
  Custom,  // made by `make`
};

struct PropertyField;
using EditorMaker = std::function<std::unique_ptr<PropertyEditor>(const PropertyField&)>;

// One entry of a page: the property it edits and how; Auto takes the editor from the
// property's description (its type and enumeration).
struct PropertyField {
  std::string name; // the property; for a group, its caption
  EditorKind kind = EditorKind::Auto;
  int column = 0;                                            // the page's columns, left to right
  std::vector<std::string> members = {};                     // Colors and Fonts
  std::vector<std::pair<std::string, int32_t>> choices = {}; // Choice without an enumeration
  EditorMaker make = {};                                     // Custom
};

// A page: the class it edits and its fields. Everything else (reading the controls, blank
// fields where they differ, validation, Apply) is the same for every page.
struct PageDescription {
  std::string name;      // "ppDatePickerProperties"
  std::string caption;   // its tab
  std::string className; // the class of the controls it edits
  int columns = 2;
  std::vector<PropertyField> fields;
};

// How to take back one assignment Apply made, should a later one be refused.
using UndoLog = std::vector<std::function<void()>>;

// Assigns a property by name: Set for an object, Let for anything else.
void AssignProperty(const Dispatch& target, const std::string& name, const Variant& value);
// Whether two property values are the same (fonts by their parts, pictures by their pixels).
bool SameValue(const Variant& a, const Variant& b);

// The editor of one field. It reads the selected controls, shows what they share (blank where
// they differ) and, once the user changed it (Dirty), writes its value to each of them.
class PropertyEditor {
public:
  static constexpr int32_t RowHeight = 21;
  static constexpr int32_t RowGap = 4;
  static constexpr int32_t LabelWidth = 140;

  explicit PropertyEditor(PropertyField field) : field_(std::move(field)) {}
  virtual ~PropertyEditor() = default;
  PropertyEditor(const PropertyEditor&) = delete;
  PropertyEditor& operator=(const PropertyEditor&) = delete;

  const PropertyField& Field() const { return field_; }
  const std::string& Name() const { return field_.name; }
  // Whether it edits `property` (case-blind).
  virtual bool Edits(const std::string& property) const;

  // Creates its controls on the page at (left, top), `width` wide; returns the height taken.
  virtual int32_t Create(PropertyPage& page, int32_t left, int32_t top, int32_t width) = 0;
  // Shows what the controls hold; not dirty afterwards.
  virtual void Load(const std::vector<Dispatch>& targets) = 0;
  // Raises FieldRefusal when a changed field's text cannot be a value.
  virtual void Check() {}
  // Writes the changed values to one control, each assignment recorded in `undo` first.
  virtual void ApplyTo(const Dispatch& target, UndoLog& undo) = 0;
  // Something on the page changed (for previews).
  virtual void PageChanged() {}
  virtual void Focus() { Input().SetFocus(); }
  // The control the user edits it with (for a group, its chooser).
  virtual Control& Input() = 0;
  // A group's list of the properties it edits (null for a single property).
  virtual ComboBox* MemberList() { return nullptr; }

  bool Dirty() const { return dirty_; }

protected:
  // The user changed the field.
  void Touched();
  // A caption at the left of a row.
  void AddCaption(PropertyPage& page, const std::string& caption, int32_t left, int32_t top);

  PropertyField field_;
  PropertyPage* page_ = nullptr;
  bool dirty_ = false;
  bool loading_ = false;
};

// The editor a field gets (its kind, or the kind its property's type calls for).
std::unique_ptr<PropertyEditor> MakeEditor(const PropertyField& field, const ClassInfo& info);

// One page on one or more controls of its class.
class PropertyPage : public Control {
public:
  static constexpr int32_t ColumnWidth = 328;
  static constexpr int32_t Margin = 8;

  PropertyPage(HWND parent, const PageDescription& description, std::vector<Control*> targets);
  ~PropertyPage() override;
  std::string ClassName() const override { return "PropertyPage"; }

  const PageDescription& Description() const { return description_; }
  const std::vector<Control*>& Targets() const { return targets_; }
  const ClassInfo& Info() const { return *info_; }
  // The size the page needs.
  int32_t NeededWidth() const { return neededWidth_; }
  int32_t NeededHeight() const { return neededHeight_; }

  size_t EditorCount() const { return editors_.size(); }
  PropertyEditor& Editor(size_t index) const { return *editors_.at(index); }
  // The editor of a property, or of a group by its caption; null when none.
  PropertyEditor* FindEditor(const std::string& property) const;

  bool Dirty() const;
  // Shows the controls' values again; nothing is dirty afterwards.
  void Load();

  // Where editors report.
  void EditorChanged(PropertyEditor& editor);
  void Message(const std::string& text) const;
  // A caption on the page, kept with it.
  void AddCaption(const std::string& text, int32_t left, int32_t top, int32_t width);
  void SetOnChange(std::function<void()> handler) { onChange_ = std::move(handler); }
  void SetMessenger(std::function<void(const std::string&)> messenger) {
    messenger_ = std::move(messenger);
  }

protected:
  void OnPaint() override;
  bool Focusable() const override { return false; }

private:
  PageDescription description_;
  std::vector<Control*> targets_;
  const ClassInfo* info_;
  std::vector<std::unique_ptr<PropertyEditor>> editors_;
  std::vector<std::unique_ptr<Control>> captions_;
  std::function<void()> onChange_;
  std::function<void(const std::string&)> messenger_;
  int32_t neededWidth_ = 0;
  int32_t neededHeight_ = 0;
};

// The pages of a class, in the order a sheet shows them (none for a class without pages).
std::vector<PageDescription> PropertyPagesFor(const std::string& className);
bool HasPropertyPages(const std::vector<Control*>& selection);

class SheetBody;

// The property pages of a selection in one dialog: a tab per page, each page editing the
// selected controls of its class at once, with OK, Cancel and Apply. Apply is enabled only
// while something changed; a refusal (a field that takes no such text, a value a control
// refuses) shows a message box, puts the focus on the field and applies nothing.
class PropertySheet {
public:
  static constexpr int32_t TabHeight = 22;

  // Opens the dialog (not modal), centred on the form of `owner` or on the screen. Raises 5
  // when no selected control has pages.
  explicit PropertySheet(const std::vector<Control*>& selection, HWND owner = 0);
  ~PropertySheet();
  PropertySheet(const PropertySheet&) = delete;
  PropertySheet& operator=(const PropertySheet&) = delete;

  HWND hWnd() const { return frame_; }
  const std::string& Caption() const { return caption_; }
  size_t PageCount() const { return pages_.size(); }
  PropertyPage& Page(size_t index) const { return *pages_.at(index); }
  PropertyPage* FindPage(const std::string& name) const;
  size_t CurrentPage() const { return current_; }
  void ShowPage(size_t index);
  // A tab's place in the dialog's client area.
  Rect TabRect(size_t index) const;

  PageButton& OkButton() { return *ok_; }
  PageButton& CancelButton() { return *cancel_; }
  PageButton& ApplyButton() { return *apply_; }

  // What the buttons do. Apply returns whether everything was applied.
  bool Apply();
  void Ok();
  void Cancel();
  bool Closed() const { return closed_; }
  // Called once the dialog closed.
  void SetOnClose(std::function<void()> handler) { onClose_ = std::move(handler); }

private:
  friend class SheetBody;
  void Message(const std::string& text) const;
  void UpdateApply();
  void Close();
  static LRESULT FrameProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam);

  HWND frame_ = 0;
  std::string caption_;
  std::unique_ptr<SheetBody> body_;
  std::vector<std::unique_ptr<PropertyPage>> pages_;
  std::unique_ptr<PageButton> ok_, cancel_, apply_;
  size_t current_ = 0;
  bool closed_ = false;
  std::function<void()> onClose_;
};

// Shows the property pages of a selection modally (the owner's form takes no input
// meanwhile) and returns once the dialog closed; false, showing nothing, when no selected
// control has pages.
bool ShowPropertyPages(const std::vector<Control*>& selection, HWND owner = 0);

} // namespace tarnbrook
