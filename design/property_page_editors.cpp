// The editors a page is made of, one per kind of field, and the factory that picks one.
#include "common/scoped_flag.hpp"
#include "common/text.hpp"
#include <algorithm>
#include <optional>

#include "automation/type_library.hpp"
#include "common/picture.hpp"
#include "design/color_chooser.hpp"
#include "design/font_chooser.hpp"
#include "design/format_list.hpp"
#include "design/property_page.hpp"
#include "design/property_page_support.hpp"
#include "host/label.hpp"

namespace tarnbrook {

void AssignProperty(const Dispatch& target, const std::string& name, const Variant& value) {
  const PropertyInfo* info = target.Info().FindProperty(name);
  if (info && info->IsObject())
    target.Set(name, value);
  else
    target.Let(name, value);
}

bool SameValue(const Variant& a, const Variant& b) {
  if (a.IsObject() && b.IsObject()) {
    auto fa = std::dynamic_pointer_cast<Font>(a.ToObject());
    auto fb = std::dynamic_pointer_cast<Font>(b.ToObject());
    if (fa && fb)
      return *fa == *fb;
    auto pa = std::dynamic_pointer_cast<Picture>(a.ToObject());
    auto pb = std::dynamic_pointer_cast<Picture>(b.ToObject());
    if (pa && pb)
      return pa == pb || *pa == *pb;
    return a.ToObject() == b.ToObject();
  }
  return a == b;
}

bool PropertyEditor::Edits(const std::string& property) const {
  if (EqualsIgnoreCaseAscii(field_.name, property))
    return true;
  return std::any_of(field_.members.begin(), field_.members.end(), [&](const std::string& member) {
    return EqualsIgnoreCaseAscii(member, property);
  });
}

void PropertyEditor::Touched() {
  if (loading_)
    return;
  dirty_ = true;
  if (page_)
    page_->EditorChanged(*this);
}

void PropertyEditor::AddCaption(PropertyPage& page, const std::string& caption, int32_t left,
                                int32_t top) {
  page.AddCaption(caption, left, top + 3, LabelWidth - 4);
}

namespace {

// An editor of one property: the value the controls share, or blank.
class ValueEditor : public PropertyEditor {
public:
  using PropertyEditor::PropertyEditor;

  void Load(const std::vector<Dispatch>& targets) override {
    std::optional<Variant> common;
    for (size_t i = 0; i < targets.size(); ++i) {
      Variant value = targets[i].Get(Name());
      if (i == 0) {
        common = value;
      } else if (common && !SameValue(*common, value)) {
        common.reset();
        break;
      }
    }
    {
      const ScopedFlag loading(loading_);
      Show(common);
    }
    dirty_ = false;
  }

  void ApplyTo(const Dispatch& target, UndoLog& undo) override {
    if (!dirty_)
      return;
    Variant value = Value();
    Variant old = target.Get(Name());
    if (SameValue(old, value))
      return;
    std::string name = Name();
    undo.push_back([target, name, old] { AssignProperty(target, name, old); });
    AssignProperty(target, name, value);
  }

protected:
  virtual void Show(const std::optional<Variant>& value) = 0;
  virtual Variant Value() const = 0;
};

class TextEditor : public ValueEditor {
public:
  using ValueEditor::ValueEditor;

  int32_t Create(PropertyPage& page, int32_t left, int32_t top, int32_t width) override {
    page_ = &page;
    AddCaption(page, Name(), left, top);
    box_ = std::make_unique<TextBox>(page.hWnd());
    box_->InitProperties();
    box_->Move(left + LabelWidth, top, width - LabelWidth, RowHeight);
    relay_.change = [this] { Touched(); };
    SelectAllOnFocus(*box_, relay_);
    box_->Connect(&relay_);
    return RowHeight;
  }
  ~TextEditor() override {
    if (box_)
      box_->Disconnect(&relay_);
  }
  Control& Input() override { return *box_; }

protected:
  void Show(const std::optional<Variant>& value) override {
    box_->SetText(value ? value->ToString() : "");
  }
  Variant Value() const override { return Variant(box_->Text()); }

  std::unique_ptr<TextBox> box_;
  TextRelay relay_;
};

// Takes only numbers: other text is refused when the focus leaves and on Apply.
class NumberEditor : public TextEditor {
public:
  using TextEditor::TextEditor;

  int32_t Create(PropertyPage& page, int32_t left, int32_t top, int32_t width) override {
    int32_t height = TextEditor::Create(page, left, top, width);
    box_->SetAlignment(1);
    relay_.validate = [this](bool& cancel) {
      if (!dirty_ || ParseNumber(box_->Text()))
        return;
      page_->Message(NumericMessage(Name()));
      cancel = true;
    };
    return height;
  }
  void Check() override {
    if (dirty_ && !ParseNumber(box_->Text()))
      throw FieldRefusal(NumericMessage(Name()), box_.get());
  }

protected:
  void Show(const std::optional<Variant>& value) override {
    box_->SetText(value ? NumberText(value->ToDouble()) : "");
  }
  Variant Value() const override {
    std::optional<double> number = ParseNumber(box_->Text());
    if (!number)
      throw FieldRefusal(NumericMessage(Name()), box_.get());
    return Variant(*number);
  }
};

class CheckEditor : public ValueEditor {
public:
  using ValueEditor::ValueEditor;

  int32_t Create(PropertyPage& page, int32_t left, int32_t top, int32_t width) override {
    page_ = &page;
    box_ = std::make_unique<CheckBox>(page.hWnd());
    box_->InitProperties();
    box_->SetCaption(Name());
    box_->Move(left, top + 2, width, 17);
    relay_.click = [this] { Touched(); };
    box_->Connect(&relay_);
    return RowHeight;
  }
  ~CheckEditor() override {
    if (box_)
      box_->Disconnect(&relay_);
  }
  Control& Input() override { return *box_; }

protected:
  void Show(const std::optional<Variant>& value) override {
    box_->SetValue(!value ? vbGrayed : value->ToBoolean() ? vbChecked : vbUnchecked);
  }
  Variant Value() const override { return Variant(box_->Value() == vbChecked); }

private:
  std::unique_ptr<CheckBox> box_;
  CheckRelay relay_;
};

class ChoiceEditor : public ValueEditor {
public:
  ChoiceEditor(PropertyField field, std::vector<std::pair<std::string, int32_t>> choices)
      : ValueEditor(std::move(field)), choices_(std::move(choices)) {}

  int32_t Create(PropertyPage& page, int32_t left, int32_t top, int32_t width) override {
    page_ = &page;
    AddCaption(page, Name(), left, top);
    list_ = std::make_unique<ComboListX>(page.hWnd());
    list_->InitProperties();
    for (const auto& [name, value] : choices_) {
      list_->AddItem(std::to_string(value) + " - " + name);
      list_->SetItemData(list_->NewIndex(), value);
    }
    list_->Move(left + LabelWidth, top, width - LabelWidth, RowHeight);
    relay_.click = [this] { Touched(); };
    list_->Connect(&relay_);
    return RowHeight;
  }
  ~ChoiceEditor() override {
    if (list_)
      list_->Disconnect(&relay_);
  }
  Control& Input() override { return *list_; }

protected:
  void Show(const std::optional<Variant>& value) override {
    int32_t index = -1;
    if (value) {
      int32_t wanted = value->ToLong();
      for (int32_t i = 0; i < list_->ListCount() && index < 0; ++i)
        if (list_->ItemData(i) == wanted)
          index = i;
      if (index < 0) { // a value outside the enumeration is shown as its number
        list_->AddItem(std::to_string(wanted));
        index = list_->NewIndex();
        list_->SetItemData(index, wanted);
      }
    }
    list_->SetListIndex(index);
  }
  Variant Value() const override { return Variant(list_->ItemData(list_->ListIndex())); }

private:
  std::vector<std::pair<std::string, int32_t>> choices_;
  std::unique_ptr<ComboListX> list_;
  ListRelay relay_;
};

class DateEditor : public ValueEditor {
public:
  using ValueEditor::ValueEditor;

  int32_t Create(PropertyPage& page, int32_t left, int32_t top, int32_t width) override {
    page_ = &page;
    AddCaption(page, Name(), left, top);
    picker_ = std::make_unique<DatePicker>(page.hWnd());
    picker_->InitProperties();
    picker_->SetUseFocusColor(false);
    picker_->Move(left + LabelWidth, top, width - LabelWidth, RowHeight);
    relay_.change = [this] { Touched(); };
    picker_->Connect(&relay_);
    return RowHeight;
  }
  ~DateEditor() override {
    if (picker_)
      picker_->Disconnect(&relay_);
  }
  Control& Input() override { return *picker_; }

protected:
  void Show(const std::optional<Variant>& value) override {
    // The limits of the page's own picker must not refuse the date it shows.
    picker_->SetMinDate(DateSerial(100, 1, 1));
    picker_->SetMaxDate(DateSerial(9999, 12, 31));
    picker_->SetValue(value ? Variant::Date(value->ToDate()) : Variant::Null());
  }
  Variant Value() const override { return picker_->Value(); }

private:
  std::unique_ptr<DatePicker> picker_;
  PickerRelay relay_;
};

// A picture by the path of its PNG file; an emptied field removes the picture.
class PictureEditor : public TextEditor {
public:
  using TextEditor::TextEditor;

protected:
  void Show(const std::optional<Variant>& value) override {
    std::string text;
    if (value) {
      auto picture =
          value->IsObject() ? std::dynamic_pointer_cast<Picture>(value->ToObject()) : nullptr;
      text = picture ? "(Picture " + std::to_string(picture->Width()) + " x " +
                           std::to_string(picture->Height()) + ")"
                     : "(None)";
    }
    box_->SetText(text);
  }
  Variant Value() const override {
    const std::string& path = box_->Text();
    if (path.empty() || path == "(None)")
      return Variant();
    return Variant(std::shared_ptr<Object>(std::make_shared<Picture>(Picture::FromPngFile(path))));
  }
};

class FormatEditor : public ValueEditor {
public:
  using ValueEditor::ValueEditor;

  int32_t Create(PropertyPage& page, int32_t left, int32_t top, int32_t width) override {
    page_ = &page;
    list_ = std::make_unique<FormatList>(page.hWnd());
    list_->Move(left, top, width, FormatList::PreferredHeight);
    list_->SetIndent(LabelWidth);
    AddCaption(page, Name(), left, top); // after the list: above it
    list_->SetOnChange([this] { Touched(); });
    return FormatList::PreferredHeight;
  }
  Control& Input() override { return list_->txtFormat(); }

protected:
  void Show(const std::optional<Variant>& value) override {
    list_->SetFormat(value ? value->ToString() : "");
  }
  Variant Value() const override { return Variant(list_->Format()); }

private:
  std::unique_ptr<FormatList> list_;
};

// A group of properties edited one at a time by one chooser, picked from a list: each keeps
// its own pending value while another is shown.
template <class Value, class Chooser> class GroupEditor : public PropertyEditor {
public:
  using PropertyEditor::PropertyEditor;
  ~GroupEditor() override {
    if (members_)
      members_->Disconnect(&relay_);
  }

  int32_t Create(PropertyPage& page, int32_t left, int32_t top, int32_t width) override {
    page_ = &page;
    slots_.resize(field_.members.size());
    AddCaption(page, Name(), left, top);
    members_ = std::make_unique<ComboBox>(page.hWnd());
    for (const std::string& member : field_.members)
      members_->AddItem(member);
    members_->Move(left + LabelWidth, top, width - LabelWidth, RowHeight);
    relay_.click = [this] { MemberPicked(); };
    members_->Connect(&relay_);
    chooser_ = std::make_unique<Chooser>(page.hWnd());
    chooser_->Move(left, top + RowHeight + RowGap, width, Chooser::PreferredHeight);
    chooser_->SetOnChange([this] { ChooserChanged(); });
    chooser_->SetOnRefusal([this](const std::string& text) { page_->Message(text); });
    {
      const ScopedFlag loading(loading_);
      members_->SetListIndex(0);
    }
    shown_ = 0;
    return RowHeight + RowGap + Chooser::PreferredHeight;
  }

  void Load(const std::vector<Dispatch>& targets) override {
    for (size_t i = 0; i < slots_.size(); ++i) {
      std::vector<Variant> values;
      for (const Dispatch& target : targets)
        values.push_back(target.Get(field_.members[i]));
      slots_[i] = Slot{Common(values), false, {}};
    }
    dirty_ = false;
    ShowSlot();
  }

  void Check() override {
    if (slots_.empty() || !slots_[shown_].dirty)
      return;
    chooser_->Check();
  }

  void ApplyTo(const Dispatch& target, UndoLog& undo) override {
    for (size_t i = 0; i < slots_.size(); ++i) {
      if (!slots_[i].dirty || !Chosen(slots_[i].pending))
        continue;
      const std::string& name = field_.members[i];
      Variant old = target.Get(name);
      Variant value = Make(slots_[i].pending, old);
      if (SameValue(old, value))
        continue;
      undo.push_back([target, name, old] { AssignProperty(target, name, old); });
      AssignProperty(target, name, value);
    }
  }

  Control& Input() override { return *chooser_; }
  void Focus() override { members_->SetFocus(); }
  ComboBox* MemberList() override { return members_.get(); }

protected:
  struct Slot {
    Value common{};
    bool dirty = false;
    Value pending{};
  };
  virtual Value Common(const std::vector<Variant>& values) const = 0;
  virtual Value Shown() const = 0;
  virtual void Show(const Value& value) = 0;
  virtual bool Chosen(const Value& value) const = 0;
  virtual Variant Make(const Value& value, const Variant& old) const = 0;

  std::unique_ptr<Chooser> chooser_;

private:
  void ShowSlot() {
    if (slots_.empty())
      return;
    const Slot& slot = slots_[shown_];
    const ScopedFlag loading(loading_);
    Show(slot.dirty ? slot.pending : slot.common);
  }
  void MemberPicked() {
    if (loading_)
      return;
    int32_t index = members_->ListIndex();
    if (index < 0 || static_cast<size_t>(index) == shown_)
      return;
    // A half-typed value stays with its property until it is one.
    try {
      Check();
    } catch (const FieldRefusal& refusal) {
      {
        const ScopedFlag loading(loading_);
        members_->SetListIndex(static_cast<int32_t>(shown_));
      }
      page_->Message(refusal.what());
      if (refusal.Field())
        refusal.Field()->SetFocus();
      return;
    }
    shown_ = static_cast<size_t>(index);
    ShowSlot();
  }
  void ChooserChanged() {
    if (loading_ || slots_.empty())
      return;
    slots_[shown_].dirty = true;
    slots_[shown_].pending = Shown();
    Touched();
  }

  std::unique_ptr<ComboBox> members_;
  ComboRelay relay_;
  std::vector<Slot> slots_;
  size_t shown_ = 0;
};

class ColorGroup : public GroupEditor<std::optional<OleColor>, ColorChooser> {
public:
  using GroupEditor::GroupEditor;

protected:
  std::optional<OleColor> Common(const std::vector<Variant>& values) const override {
    if (values.empty())
      return std::nullopt;
    for (const Variant& value : values)
      if (value.ToLong() != values.front().ToLong())
        return std::nullopt;
    return values.front().ToLong();
  }
  std::optional<OleColor> Shown() const override { return chooser_->Color(); }
  void Show(const std::optional<OleColor>& value) override { chooser_->SetColor(value); }
  bool Chosen(const std::optional<OleColor>& value) const override { return value.has_value(); }
  Variant Make(const std::optional<OleColor>& value, const Variant&) const override {
    return Variant(static_cast<int32_t>(*value));
  }
};

class FontGroup : public GroupEditor<FontChoice, FontChooser> {
public:
  using GroupEditor::GroupEditor;

protected:
  FontChoice Common(const std::vector<Variant>& values) const override {
    std::vector<Font> fonts;
    for (const Variant& value : values)
      if (auto font = std::dynamic_pointer_cast<Font>(value.ToObject()))
        fonts.push_back(*font);
    if (!fonts.empty())
      chooser_->SetPreviewBase(fonts.front());
    return FontChoice::Common(fonts);
  }
  FontChoice Shown() const override { return chooser_->Choice(); }
  void Show(const FontChoice& value) override { chooser_->SetChoice(value); }
  bool Chosen(const FontChoice&) const override { return true; }
  // The parts chosen go over each control's own font: parts left blank stay as they are.
  Variant Make(const FontChoice& value, const Variant& old) const override {
    auto font = std::dynamic_pointer_cast<Font>(old.ToObject());
    return Variant(
        std::shared_ptr<Object>(std::make_shared<Font>(value.Over(font ? *font : Font()))));
  }
};

// An enumeration by name: the class's own first, then any in the library (the picker's
// calendar properties use the calendar's, DateSelect the picker's).
std::vector<std::pair<std::string, int32_t>> EnumerationOf(const ClassInfo& info,
                                                           const std::string& name) {
  for (const EnumInfo& enumeration : info.enums)
    if (enumeration.name == name)
      return enumeration.values;
  for (const ClassInfo* other : TarnbrookClasses())
    for (const EnumInfo& enumeration : other->enums)
      if (enumeration.name == name)
        return enumeration.values;
  return {};
}

} // namespace

std::unique_ptr<PropertyEditor> MakeEditor(const PropertyField& field, const ClassInfo& info) {
  EditorKind kind = field.kind;
  const PropertyInfo* property = info.FindProperty(field.name);
  std::vector<std::pair<std::string, int32_t>> choices = field.choices;
  if (kind == EditorKind::Auto || kind == EditorKind::Choice) {
    if (!property)
      RaiseDispatchError(rtNotSupported);
    if (choices.empty() && !property->enumName.empty())
      choices = EnumerationOf(info, property->enumName);
  }
  if (kind == EditorKind::Auto) {
    switch (property->type) {
    case MemberType::Boolean:
      kind = EditorKind::Check;
      break;
    case MemberType::Integer:
    case MemberType::Long:
    case MemberType::Double:
      kind = choices.empty() ? EditorKind::Number : EditorKind::Choice;
      break;
    case MemberType::Date:
      kind = EditorKind::Date;
      break;
    case MemberType::Picture:
      kind = EditorKind::Picture;
      break;
    case MemberType::Color:
      kind = EditorKind::Colors;
      break;
    case MemberType::Font:
      kind = EditorKind::Fonts;
      break;
    default:
      kind = EditorKind::Text;
      break;
    }
  }
  PropertyField made = field;
  if ((kind == EditorKind::Colors || kind == EditorKind::Fonts) && made.members.empty())
    made.members = {field.name};
  switch (kind) {
  case EditorKind::Number:
    return std::make_unique<NumberEditor>(made);
  case EditorKind::Check:
    return std::make_unique<CheckEditor>(made);
  case EditorKind::Choice:
    return std::make_unique<ChoiceEditor>(made, choices);
  case EditorKind::Date:
    return std::make_unique<DateEditor>(made);
  case EditorKind::Picture:
    return std::make_unique<PictureEditor>(made);
  case EditorKind::Format:
    return std::make_unique<FormatEditor>(made);
  case EditorKind::Colors:
    return std::make_unique<ColorGroup>(made);
  case EditorKind::Fonts:
    return std::make_unique<FontGroup>(made);
  case EditorKind::Custom:
    if (!field.make)
      RaiseRuntimeError(rtInvalidProcedureCall);
    return field.make(made);
  default:
    return std::make_unique<TextEditor>(made);
  }
}

} // namespace tarnbrook
