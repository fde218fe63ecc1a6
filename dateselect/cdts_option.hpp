#pragma once
#include <cstdint>
#include <string>

#include "common/event_source.hpp"
#include "common/object.hpp"

namespace tarnbrook {

struct ClassInfo;

class CdtsOptionEvents {
public:
  virtual ~CdtsOptionEvents() = default;
  virtual void TextChange(int32_t /*Index*/, const std::string& /*Text*/) {}
  virtual void VisibleChange(int32_t /*Index*/, bool /*Visible*/) {}
};

enum CdtsOptionEventId {
  dtsEventTextChange = 1,
  dtsEventVisibleChange = 2,
};

// A detached view of one DateSelect option. Its setters store nothing: they tell the owner,
// which decides what changes. One object serves every option, so a kept reference shows and
// acts on the option asked for last.
class CdtsOption : public Object {
public:
  // The option's members as hosts reach them by name.
  static const ClassInfo& TypeInfo();

  void Connect(CdtsOptionEvents* sink) { events_.Connect(sink); }
  void Disconnect(CdtsOptionEvents* sink) { events_.Disconnect(sink); }

  const std::string& Text() const { return text_; }
  void SetText(const std::string& text) {
    events_.Raise(&CdtsOptionEvents::TextChange, index_, text);
  }
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) {
    events_.Raise(&CdtsOptionEvents::VisibleChange, index_, visible);
  }

  // Refilled by the owner on each request.
  void Fill(int32_t index, const std::string& text, bool visible) {
    index_ = index;
    text_ = text;
    visible_ = visible;
  }

private:
  EventSource<CdtsOptionEvents> events_;
  int32_t index_ = 0;
  std::string text_;
  bool visible_ = false;
};

} // namespace tarnbrook
