#pragma once
#include <cstdint>
#include <string>

#include "common/date_format.hpp"
#include "common/date_value.hpp"

namespace tarnbrook {

class cMDC;

// One field of a date picker's text: a date/time part the user selects and edits (day,
// month, year, hour, minute, second, AM/PM) or a piece of literal text that is only drawn.
// Every field holds the whole date; the picker copies its value into all of them.
//
// Colours: a selected field draws in the system highlight colours; any other field draws the
// surface's ForeColor on its BackColor, so the picker sets both on the surface (for instance
// its focus colour) before it draws the fields.
class CDateMask {
public:
  // Stores the place and the text, measures the width and derives the type. A text that is
  // no token, or any text with ForceLiteral, is a literal exactly as wide as its text.
  void SetMask(cMDC& Surface, const std::string& Mask, int32_t Left, int32_t Height,
               bool ForceLiteral = false);

  // The token, minute tokens stored as "n"/"nn" and "yyy" as "yyyy"; a literal's text.
  const std::string& Mask() const { return mask_; }
  // "M", "d", "y", "h", "m", "s", "t", or "" for a literal.
  const std::string& MaskType() const { return maskType_; }
  bool isliteral() const { return isliteral_; }

  DateValue Value() const { return value_; }
  void SetValue(DateValue value) { value_ = value; }

  int32_t Left() const { return left_; }
  int32_t Width() const { return width_; }
  int32_t Height() const { return height_; }

  bool Selected() const { return selected_; }
  void SetSelected(bool selected) { selected_ = selected; }

  // Digits typed since the field became current, not yet written back.
  const std::string& TypedText() const { return typedText_; }
  void SetTypedText(std::string text) { typedText_ = std::move(text); }

  // Adds Amount units of the field's part to Value with the runtime's date-add rule; an
  // AM/PM field moves by Amount x 12 hours (error 6 beyond 16 bits).
  void Increment(int16_t Amount);

  // Feeds one typed character into TypedText.
  void TypeDigit(int16_t key);

  // Writes TypedText into Value when it is in range; returns whether it did.
  bool Commit();

  // The text Draw shows: the literal, the pending digits, or Value as the token shows it.
  std::string Text() const;
  // Draws Text centred in (Left, 0, Width, Height).
  void Draw();

  bool HitTest(int32_t x, int32_t y) const;

private:
  std::string TypedTextShown() const;

  cMDC* surface_ = nullptr;
  std::string mask_;
  std::string literalText_;          // a literal's text as given, before the minute replacement
  CompiledDateFormat runtimeFormat_; // shows the token; compiled at layout
  std::string maskType_;
  bool isliteral_ = true;
  DateValue value_ = 0;
  int32_t left_ = 0;
  int32_t width_ = 0;
  int32_t height_ = 0;
  bool selected_ = false;
  std::string typedText_;
};

} // namespace tarnbrook
