// The two pages of DateSelect, with the editors only they need: the visible options, and
// the SQL the settings make.
#include "common/scoped_flag.hpp"
#include "common/text.hpp"
#include <memory>

#include "common/property_bag.hpp"
#include "dateselect/date_select.hpp"
#include "design/pp_pages.hpp"
#include "design/property_page_support.hpp"
#include "host/check_box.hpp"
#include "host/text_box.hpp"

namespace tarnbrook {
namespace {

// VisibleOptions bit by bit: a check box per option, captioned with the option's text. The
// texts themselves are not the page's to change: an option's Text only relabels the list.
class OptionsEditor : public PropertyEditor {
public:
  using PropertyEditor::PropertyEditor;
  static constexpr int32_t Rows = DateSelect::OptionCount;
  static constexpr int32_t RowStep = 19;

  ~OptionsEditor() override {
    for (Row& row : rows_)
      row.visible->Disconnect(&row.relay);
  }

  bool Edits(const std::string& property) const override {
    return EqualsIgnoreCaseAscii(property, "VisibleOptions");
  }

  int32_t Create(PropertyPage& page, int32_t left, int32_t top, int32_t width) override {
    page_ = &page;
    page.AddCaption("VisibleOptions", left, top + 3, width);
    rows_.resize(Rows);
    for (int32_t i = 0; i < Rows; ++i) {
      Row& row = rows_[static_cast<size_t>(i)];
      row.visible = std::make_unique<CheckBox>(page.hWnd());
      row.visible->InitProperties();
      row.visible->Move(left + 8, top + RowHeight + i * RowStep, width - 8, 17);
      row.relay.click = [this, i] { Clicked(i); };
      row.visible->Connect(&row.relay);
    }
    return RowHeight + Rows * RowStep;
  }

  void Load(const std::vector<Dispatch>& targets) override {
    const ScopedFlag loading(loading_);
    for (int32_t i = 0; i < Rows; ++i) {
      Row& row = rows_[static_cast<size_t>(i)];
      // Checked or unchecked while every target agrees, grey once two differ.
      CheckBoxConstants state = vbUnchecked;
      for (size_t t = 0; t < targets.size(); ++t) {
        CheckBoxConstants shown =
            (targets[t].Get("VisibleOptions").ToLong() & (1 << i)) ? vbChecked : vbUnchecked;
        state = t == 0 || state == shown ? shown : vbGrayed;
      }
      if (!targets.empty())
        row.visible->SetCaption(
            Dispatch(targets.front().Get("Options", {Variant(i)}).ToObject(), "CdtsOption")
                .Get("Text")
                .ToString());
      row.visible->SetValue(state);
      row.dirty = false;
    }
    dirty_ = false;
  }

  // Only the options clicked change: the others keep each control's own bit.
  void ApplyTo(const Dispatch& target, UndoLog& undo) override {
    int32_t old = target.Get("VisibleOptions").ToLong(), mask = old;
    for (int32_t i = 0; i < Rows; ++i) {
      const Row& row = rows_[static_cast<size_t>(i)];
      if (row.dirty && row.visible->Value() != vbGrayed)
        mask = row.visible->Value() == vbChecked ? (mask | (1 << i)) : (mask & ~(1 << i));
    }
    if (mask == old)
      return;
    undo.push_back([target, old] { target.Let("VisibleOptions", old); });
    target.Let("VisibleOptions", mask);
  }

  Control& Input() override { return *rows_.front().visible; }

private:
  struct Row {
    std::unique_ptr<CheckBox> visible;
    CheckRelay relay;
    bool dirty = false;
  };

  void Clicked(int32_t index) {
    if (loading_)
      return;
    rows_[static_cast<size_t>(index)].dirty = true;
    Touched();
  }

  std::vector<Row> rows_;
};

// What SQL() returns once the page is applied: the first control's settings with every
// changed field put in, on a DateSelect of the page's own.
class SqlPreview : public PropertyEditor {
public:
  using PropertyEditor::PropertyEditor;

  bool Edits(const std::string& property) const override {
    return EqualsIgnoreCaseAscii(property, "SQL");
  }

  int32_t Create(PropertyPage& page, int32_t left, int32_t top, int32_t width) override {
    page_ = &page;
    AddCaption(page, "SQL()", left, top);
    box_ = std::make_unique<TextBox>(page.hWnd());
    box_->InitProperties();
    box_->SetLocked(true);
    box_->SetBackColor(vbButtonFace);
    box_->Move(left + LabelWidth, top, width - LabelWidth, RowHeight);
    scratch_ = std::make_unique<DateSelect>();
    scratch_->InitProperties();
    return RowHeight;
  }

  void Load(const std::vector<Dispatch>&) override { dirty_ = false; }
  void ApplyTo(const Dispatch&, UndoLog&) override {}
  Control& Input() override { return *box_; }

  void PageChanged() override {
    if (!page_ || page_->Targets().empty())
      return;
    MemoryPropertyBag bag;
    page_->Targets().front()->WriteProperties(bag);
    scratch_->ReadProperties(bag);
    Dispatch scratch(*scratch_);
    for (size_t i = 0; i < page_->EditorCount(); ++i) {
      PropertyEditor& editor = page_->Editor(i);
      if (&editor == this || !editor.Dirty())
        continue;
      try {
        UndoLog ignored;
        editor.Check();
        editor.ApplyTo(scratch, ignored);
      } catch (const FieldRefusal&) {
      } catch (const ControlError&) {
        // What the control will refuse on Apply is left out of the preview.
      }
    }
    box_->SetText(scratch_->SQL());
  }

  std::string Text() const { return box_->Text(); }

private:
  std::unique_ptr<TextBox> box_;
  std::unique_ptr<DateSelect> scratch_;
};

} // namespace

PageDescription ppDateSelectSettings() {
  using K = EditorKind;
  PageDescription page{"ppDateSelectSettings", "Settings", "DateSelect", 2, {}};
  page.fields = {
      {"VisibleOptions",
       K::Custom,
       0,
       {},
       {},
       [](const PropertyField& field) { return std::make_unique<OptionsEditor>(field); }},
      {"Selection", K::Auto, 1},
      {"FirstDayofWeek", K::Choice, 1, {}, FirstDayChoices()},
      {"InputFormat", K::Format, 1},
      {"DisableSelection", K::Auto, 1},
      {"DisableStartDate", K::Auto, 1},
      {"DisableEndDate", K::Auto, 1},
      {"DisableCustomSelection", K::Auto, 1},
      {"SQLFieldName", K::Auto, 1},
      {"SQLDateWrapper", K::Auto, 1},
      {"SQLDateFormat", K::Auto, 1},
      {"SQLUseBETWEEN", K::Auto, 1},
      {"SQLPrefix", K::Auto, 1},
      {"SQL",
       K::Custom,
       1,
       {},
       {},
       [](const PropertyField& field) { return std::make_unique<SqlPreview>(field); }},
  };
  return page;
}

PageDescription ppDateSelectAppearance() {
  using K = EditorKind;
  PageDescription page{"ppDateSelectAppearance", "Appearance", "DateSelect", 2, {}};
  page.fields = {
      {"ButtonWidth"},
      {"ButtonStyle"},
      {"BorderStyle"},
      {"UseFocusColor"},
      {"ShowFocusRect"},
      {"Fonts", K::Fonts, 0, {"Font"}},
      {"Colors", K::Colors, 1, {"BackColor", "ControlBackColor", "ForeColor", "FocusColor"}},
  };
  return page;
}

} // namespace tarnbrook
