#pragma once
// A form of every class worked by a hostile program and a careless user at once: by-name
// writes of values no setter expects, method calls with such arguments, mouse, keys, typing and
// time, while handlers remove controls and add new ones in their place. Every choice comes from
// `next`: a fuzzer's bytes or a seeded generator. Nothing but a ControlError may come out.
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "automation/class_factory.hpp"
#include "automation/dispatch.hpp"
#include "common/font.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

class HostileSession {
public:
  HostileSession(MemoryPlatform& platform, std::function<uint32_t()> next)
      : platform_(platform), next_(std::move(next)) {
    RegisterTarnbrookClasses();
    for (const ClassRegistration& registration : RegisteredClasses())
      Place(registration.progId, registration.className + "1");
    form_.SetErrorHandler([this](const std::string&, const ControlError&) { ++reported_; });
  }
  ~HostileSession() {
    connections_.clear();
    dropped_.clear();
  }

  // One action. Handlers run within it; connections they dropped go once it is over.
  void Step() {
    dropped_.clear();
    switch (Below(10)) {
    case 0:
    case 1:
      Write();
      break;
    case 2:
      Call();
      break;
    case 3:
      platform_.Advance(Below(1500));
      break;
    case 4:
      platform_.Type(std::string(1, "0129aZ/ .-\t"[Below(11)]));
      break;
    case 5: {
      static const int keys[] = {VK_LEFT,   VK_RIGHT,  VK_UP,   VK_DOWN, VK_F4,    VK_ESCAPE,
                                 VK_RETURN, VK_DELETE, VK_BACK, VK_HOME, VK_PRIOR, VK_TAB};
      platform_.Key(keys[Below(std::size(keys))], Below(4) == 0 ? MemoryPlatform::ShiftKey : 0);
      break;
    }
    default: {
      const Point p = platform_.ClientToScreen(form_.hWnd(), {Below(640), Below(480)});
      if (Below(3) == 0)
        platform_.MouseDown(VK_LBUTTON, p.x, p.y);
      else if (Below(2) == 0)
        platform_.MouseUp(VK_LBUTTON, p.x, p.y);
      else
        platform_.Click(p.x, p.y);
    }
    }
    platform_.PumpMessages();
  }

  int Replaced() const { return replaced_; }

private:
  int32_t Below(size_t n) { return static_cast<int32_t>(next_() % n); }

  void Place(const std::string& progId, const std::string& name) {
    Control& control =
        form_.Add(CreateObject(progId, form_.hWnd()), name, Below(400), Below(300), 220, 190);
    const ClassInfo& info = Dispatch(control).Info();
    // Now and then a handler takes its control off the form and puts a new one in its place.
    connections_[name] =
        info.connect(control, [this, progId, name](const std::string&, std::vector<Variant>& args) {
          if (!args.empty() && Below(2) == 0)
            args[0] = HostileValue(); // by-reference arguments written back
          if (Below(40) != 0)
            return;
          dropped_.push_back(std::move(connections_[name]));
          form_.Remove(name);
          Place(progId, name);
          ++replaced_;
        });
  }

  Control* AnyControl() {
    return form_.Count() ? form_.Find(form_.Name(size_t(Below(form_.Count())))) : nullptr;
  }

  Variant HostileValue() {
    switch (Below(14)) {
    case 0:
      return Variant(int16_t(Below(2) ? INT16_MIN : INT16_MAX));
    case 1:
      return Variant(int32_t(Below(2) ? INT32_MIN : INT32_MAX));
    case 2:
      return Variant(int32_t(Below(40)) - 5);
    case 3:
      return Variant(std::numeric_limits<double>::quiet_NaN());
    case 4:
      return Variant(Below(2) ? 1e308 : -1e308);
    case 5:
      return Variant::Date(Below(2) ? -657435.0 : 2958466.0);
    case 6:
      return Variant::Date(38117.5 + Below(20000) - 10000);
    case 7:
      return Variant(std::string(size_t(Below(3000)), "x&\xFF"[Below(3)]));
    case 8:
      return Variant(std::string("dd\0MM", 5));
    case 9: {
      static const char* texts[] = {"",      "0",  "abc",  "dd/MM/yyyy hh:mm:ss tt", "9999",
                                    "Weeks", "<>", "1e12", "'; DROP TABLE x; --"};
      return Variant(texts[Below(std::size(texts))]);
    }
    case 10:
      return Variant::Null();
    case 11:
      return Variant();
    case 12: {
      auto font = std::make_shared<Font>();
      font->Name = Below(2) ? "DejaVu Sans" : "\xFF";
      font->Size = Below(2) ? std::numeric_limits<float>::quiet_NaN() : float(Below(200)) - 20;
      return Variant(std::shared_ptr<Object>(font));
    }
    default:
      return Variant(Below(2) == 0);
    }
  }

  void Write() {
    if (!AnyControl())
      return;
    const Dispatch control(*AnyControl());
    const std::vector<PropertyInfo>& properties = control.Info().properties;
    const PropertyInfo& property = properties[size_t(Below(properties.size()))];
    try {
      if (property.IsObject())
        control.Set(property.name, HostileValue());
      else if (!property.index.empty())
        control.Get(property.name, {HostileValue()});
      else
        control.Let(property.name, HostileValue());
    } catch (const ControlError&) {
    }
  }

  void Call() {
    if (!AnyControl())
      return;
    const Dispatch control(*AnyControl());
    const std::vector<MethodInfo>& methods = control.Info().methods;
    const MethodInfo& method = methods[size_t(Below(methods.size()))];
    if (method.name == "About")
      return; // a modal box waits for a person
    std::vector<Variant> args;
    for (size_t i = 0; i < method.args.size(); ++i)
      args.push_back(HostileValue());
    try {
      control.Call(method.name, args);
    } catch (const ControlError&) {
    }
  }

  MemoryPlatform& platform_;
  std::function<uint32_t()> next_;
  Container form_{640, 480};
  std::map<std::string, EventConnection> connections_;
  std::vector<EventConnection> dropped_; // by handlers, released after the step
  int replaced_ = 0;
  int reported_ = 0;
};

} // namespace tarnbrook
