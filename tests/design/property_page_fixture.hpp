#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "automation/class_factory.hpp"
#include "automation/dispatch.hpp"
#include "calendar/month_calendar.hpp"
#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "design/color_chooser.hpp"
#include "design/font_chooser.hpp"
#include "design/format_list.hpp"
#include "design/property_page.hpp"
#include "host/container.hpp"
#include "picker/date_picker.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/hand.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {

// A form on the simulator (today 10 May 2004, 9:30) with the library's classes, and helpers
// that work a property sheet as a person would.
class PropertyPageTest : public ::testing::Test {
protected:
  PropertyPageTest() {
    platform.SetNow(DateSerial(2004, 5, 10) + TimeSerial(9, 30, 0));
    RegisterTarnbrookClasses();
    form = std::make_unique<Container>(640, 480);
  }

  template <class C> C& Place(const std::string& name, int32_t top = 10) {
    return static_cast<C&>(form->Add(std::make_unique<C>(form->hWnd()), name, 10, top, 200, 24));
  }
  std::unique_ptr<PropertySheet> Open(std::vector<Control*> selection) {
    return std::make_unique<PropertySheet>(selection, form->hWnd());
  }

  Control& Field(PropertySheet& sheet, const std::string& property) {
    PropertyEditor* editor = sheet.Page(sheet.CurrentPage()).FindEditor(property);
    EXPECT_NE(editor, nullptr) << property;
    return editor->Input();
  }
  template <class C> C& FieldAs(PropertySheet& sheet, const std::string& property) {
    return dynamic_cast<C&>(Field(sheet, property));
  }
  // Shows `member` of the group that edits it and returns the group's chooser.
  template <class Chooser> Chooser& Member(PropertySheet& sheet, const std::string& member) {
    PropertyEditor* editor = sheet.Page(sheet.CurrentPage()).FindEditor(member);
    EXPECT_NE(editor, nullptr) << member;
    editor->MemberList()->SetText(member);
    return dynamic_cast<Chooser&>(editor->Input());
  }
  bool HasFocus(const Control& control) { return platform.GetFocus() == control.hWnd(); }
  std::vector<std::string> Messages() const {
    std::vector<std::string> texts;
    for (const auto& box : platform.MessageBoxes())
      texts.push_back(box.text);
    return texts;
  }

  MemoryPlatform platform;
  Hand hand{platform};
  std::unique_ptr<Container> form;
};

} // namespace tarnbrook
