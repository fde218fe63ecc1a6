#include "draw/text_engine.hpp"
#include "common/text.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <pango/pangocairo.h>

#include "draw/canvas_impl.hpp"

namespace tarnbrook {

namespace {

constexpr size_t CacheLimit = 2048;
// Masks of text in huge fonts are large: the cache is bounded by its bytes as well.
constexpr size_t CacheByteLimit = size_t(64) << 20;
constexpr const char* FallbackFamily = "DejaVu Sans";
constexpr size_t FamilyLimit = 256;

// The text as shown: "&&" is "&", a single "&" underlines the next character (its byte range
// is returned), line breaks become spaces on a single line.
struct DisplayText {
  std::string text;
  int32_t mnemonicStart = -1;
  int32_t mnemonicEnd = -1;
};

// The largest text image kept: a side of the largest surface, and 64 MiB of coverage.
constexpr int32_t MaxMaskSide = 32767;
constexpr int64_t MaxMaskPixels = 64ll << 20;

// Text from outside may not be UTF-8: its bad bytes show as the replacement character
// instead of Pango refusing the whole text.
std::string ValidUtf8(std::string_view text) {
  if (g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr))
    return std::string(text);
  gchar* valid = g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()));
  std::string result(valid);
  g_free(valid);
  return result;
}

DisplayText Display(std::string_view source, uint32_t flags) {
  DisplayText shown;
  bool prefixes = !(flags & DT_NOPREFIX);
  for (size_t i = 0; i < source.size(); ++i) {
    char c = source[i];
    if (prefixes && c == '&') {
      if (++i == source.size()) {
        break;
      }
      c = source[i];
      if (c != '&' && shown.mnemonicStart < 0) {
        shown.mnemonicStart = static_cast<int32_t>(shown.text.size());
        size_t end = i + 1; // the whole UTF-8 character
        while (end < source.size() && (static_cast<unsigned char>(source[end]) & 0xC0) == 0x80) {
          ++end;
        }
        shown.mnemonicEnd = static_cast<int32_t>(shown.text.size() + end - i);
      }
    }
    if (flags & DT_SINGLELINE && (c == '\n' || c == '\r')) {
      c = ' ';
    } else if (c == '\r') {
      continue; // CR LF ends a line as LF does
    }
    shown.text += c;
  }
  return shown;
}

// Fonts in use are numbered so that a key holds a number, not the whole description.
constexpr size_t FontLimit = 64;

// Masks above this many pixels are made for the place they are drawn in only.
constexpr int64_t LargeMaskPixels = 1 << 20;

// The wrap width matters only to word-broken text of several lines.
int32_t UsedWrapWidth(uint32_t flags, int32_t wrapWidth) {
  return flags & DT_WORDBREAK && !(flags & DT_SINGLELINE) ? wrapWidth : -1;
}

// The box holding ink and logical box, turned by `angle` about the logical top-left, relative
// to it.
Rect MaskBounds(const PangoRectangle& ink, const PangoRectangle& logical, double angle) {
  double left = std::min(ink.x, logical.x) - logical.x;
  double top = std::min(ink.y, logical.y) - logical.y;
  double right = std::max(ink.x + ink.width, logical.x + logical.width) - logical.x;
  double bottom = std::max(ink.y + ink.height, logical.y + logical.height) - logical.y;
  double minX = 1e9, minY = 1e9, maxX = -1e9, maxY = -1e9;
  for (double x : {left, right}) {
    for (double y : {top, bottom}) {
      double tx = x * std::cos(angle) - y * std::sin(angle);
      double ty = x * std::sin(angle) + y * std::cos(angle);
      minX = std::min(minX, tx);
      maxX = std::max(maxX, tx);
      minY = std::min(minY, ty);
      maxY = std::max(maxY, ty);
    }
  }
  // Pango's sizes are ints; turned, they may not be: kept where the casts are defined.
  minX = std::clamp(minX, -1e9, 1e9);
  minY = std::clamp(minY, -1e9, 1e9);
  maxX = std::clamp(maxX, minX, 1e9);
  maxY = std::clamp(maxY, minY, 1e9);
  return {static_cast<int32_t>(std::floor(minX)), static_cast<int32_t>(std::floor(minY)),
          static_cast<int32_t>(std::ceil(maxX)), static_cast<int32_t>(std::ceil(maxY))};
}

// Cuts the mask down to the rows and columns that have ink, so that drawing walks no blank.
// Masks of huge text are large: blank rows are found with memcmp, and each row is searched
// a word at a time, only outside the columns already known to have ink.
void TrimToInk(ShapedText& shaped) {
  const int32_t width = shaped.maskWidth;
  auto row = [&](int32_t y) { return shaped.coverage.data() + static_cast<ptrdiff_t>(y) * width; };
  auto blank = [&](int32_t y) { return !row(y)[0] && !std::memcmp(row(y), row(y) + 1, width - 1); };
  int32_t top = 0, bottom = shaped.maskHeight;
  while (top < bottom && blank(top))
    ++top;
  while (bottom > top && blank(bottom - 1))
    --bottom;
  if (top == bottom) {
    shaped.maskWidth = shaped.maskHeight = 0;
    shaped.coverage.clear();
    return;
  }
  int32_t left = width, right = 0;
  for (int32_t y = top; y < bottom; ++y) {
    const uint8_t* ink = row(y);
    auto blankWord = [ink](int32_t x) {
      uint64_t word;
      std::memcpy(&word, ink + x, sizeof word);
      return word == 0;
    };
    int32_t x = 0;
    while (x + 8 <= left && blankWord(x))
      x += 8;
    while (x < left && !ink[x])
      ++x;
    left = x;
    x = width;
    while (x - 8 >= right && blankWord(x - 8))
      x -= 8;
    while (x > right && !ink[x - 1])
      --x;
    right = x;
  }
  std::vector<uint8_t> ink(static_cast<size_t>(right - left) * (bottom - top));
  for (int32_t y = top; y < bottom; ++y) {
    std::copy_n(row(y) + left, right - left,
                ink.begin() + static_cast<ptrdiff_t>(y - top) * (right - left));
  }
  shaped.coverage = std::move(ink);
  shaped.maskX += left;
  shaped.maskY += top;
  shaped.maskWidth = right - left;
  shaped.maskHeight = bottom - top;
}

} // namespace

TextEngine& TextEngine::ForThisThread() {
  thread_local TextEngine engine;
  return engine;
}

TextEngine::TextEngine() {
  // FreeType's default hinting ignores horizontal hints, which blurs the stems of small text;
  // the classic interpreter snaps them to whole pixels (a setting of the caller's wins).
  setenv("FREETYPE_PROPERTIES", "truetype:interpreter-version=35", 0);
  context_ = pango_font_map_create_context(pango_cairo_font_map_get_default());
  // Crisp small text: grey antialiasing, full hinting, whole-pixel metrics.
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_FULL);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
  pango_cairo_context_set_font_options(context_, options);
  cairo_font_options_destroy(options);
  pango_cairo_context_set_resolution(context_, 96);
  layout_ = pango_layout_new(context_);
}

TextEngine::~TextEngine() {
  if (description_) {
    pango_font_description_free(description_);
  }
  g_object_unref(layout_);
  g_object_unref(context_);
}

// An installed family of that name, else DejaVu Sans (which also stands for "MS Sans Serif").
const std::string& TextEngine::Family(const std::string& face) {
  auto found = families_.find(face);
  if (found != families_.end()) {
    return found->second;
  }
  std::string family = FallbackFamily;
  PangoFontFamily** list = nullptr;
  int count = 0;
  pango_font_map_list_families(pango_context_get_font_map(context_), &list, &count);
  for (int i = 0; i < count; ++i) {
    if (EqualsIgnoreCaseAscii(pango_font_family_get_name(list[i]), face)) {
      family = pango_font_family_get_name(list[i]);
      break;
    }
  }
  g_free(list);
  if (families_.size() >= FamilyLimit)
    families_.clear(); // names from files can be anything: the map stays small
  return families_.emplace(face, family).first->second;
}

void TextEngine::SetFont(const FontSpec& font) {
  if (description_ && describedFont_ == font) {
    return;
  }
  if (description_) {
    pango_font_description_free(description_);
  }
  description_ = pango_font_description_new();
  pango_font_description_set_family(description_, Family(font.FaceName).c_str());
  // A negative height is the character (em) height; a positive one the cell height, of which
  // the em is about 86% in the fallback family; 0 is the default 8-point font.
  double pixels = font.Height < 0   ? -static_cast<double>(font.Height)
                  : font.Height > 0 ? font.Height * 0.86
                                    : 11.0;
  pango_font_description_set_absolute_size(description_, pixels * PANGO_SCALE);
  int weight = font.Weight <= 0 ? 400 : std::clamp(font.Weight, 100, 1000);
  pango_font_description_set_weight(description_, static_cast<PangoWeight>(weight));
  pango_font_description_set_style(description_,
                                   font.Italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  describedFont_ = font;
}

void TextEngine::MakeCacheKey(const FontSpec& font, std::string_view text, uint32_t flags,
                              int32_t wrapWidth) {
  if (fonts_.empty() || fonts_[lastFont_] != font) {
    auto known = std::find(fonts_.begin(), fonts_.end(), font);
    if (known == fonts_.end()) {
      if (fonts_.size() >= FontLimit) { // the numbers are reused: what they keyed goes
        fonts_.clear();
        shaped_.clear();
        measured_.clear();
        cachedBytes_ = 0;
      }
      known = fonts_.insert(fonts_.end(), font);
    }
    lastFont_ = static_cast<size_t>(known - fonts_.begin());
  }
  key_.clear();
  for (int32_t n : {static_cast<int32_t>(lastFont_), static_cast<int32_t>(flags), wrapWidth})
    key_.append(reinterpret_cast<const char*>(&n), sizeof n);
  key_ += text;
}

const ShapedText& TextEngine::Shape(const FontSpec& font, std::string_view text, uint32_t flags,
                                    int32_t wrapWidth, const TextPlace& place) {
  flags &= ShapingFlags;
  wrapWidth = UsedWrapWidth(flags, wrapWidth);
  MakeCacheKey(font, text, flags, wrapWidth);
  if (auto found = shaped_.find(key_); found != shaped_.end())
    return found->second;
  const bool someText = Lay(font, text, flags, wrapWidth);
  PangoRectangle ink;
  PangoRectangle logical;
  pango_layout_get_pixel_extents(layout_, &ink, &logical);
  const double angle = -font.Escapement / 10.0 * M_PI / 180.0;
  Rect mask = someText ? MaskBounds(ink, logical, angle) : Rect{};
  // Text too large to keep whole is made only where the surface can show it, and kept for
  // that place.
  if (int64_t{mask.Width()} * mask.Height() > LargeMaskPixels) {
    auto [x, y] = TextOrigin(place, logical.width, logical.height, flags);
    auto near = [](int64_t v) {
      return static_cast<int32_t>(std::clamp<int64_t>(v, -(1 << 30), 1 << 30));
    };
    mask = Intersect(mask, {near(place.visible.left - x), near(place.visible.top - y),
                            near(place.visible.right - x), near(place.visible.bottom - y)});
    key_ += '\1';
    for (int32_t n : {mask.left, mask.top, mask.right, mask.bottom})
      key_.append(reinterpret_cast<const char*>(&n), sizeof n);
    if (auto found = shaped_.find(key_); found != shaped_.end())
      return found->second;
  }
  ShapedText shaped = Rasterise(logical, mask, angle);
  if (shaped_.size() >= CacheLimit || cachedBytes_ + shaped.coverage.size() > CacheByteLimit) {
    shaped_.clear();
    cachedBytes_ = 0;
  }
  cachedBytes_ += shaped.coverage.size();
  return shaped_.emplace(key_, std::move(shaped)).first->second;
}

// Sets the reused layout to the text as shown in that font; false for no text.
bool TextEngine::Lay(const FontSpec& font, std::string_view text, uint32_t flags,
                     int32_t wrapWidth) {
  DisplayText shown = Display(ValidUtf8(text), flags);
  SetFont(font);
  pango_layout_set_font_description(layout_, description_);
  pango_layout_set_text(layout_, shown.text.data(), static_cast<int>(shown.text.size()));
  pango_layout_set_single_paragraph_mode(layout_, (flags & DT_SINGLELINE) != 0);
  pango_layout_set_width(layout_, wrapWidth < 0 ? -1 : wrapWidth * PANGO_SCALE);
  pango_layout_set_wrap(layout_, PANGO_WRAP_WORD_CHAR);
  pango_layout_set_alignment(layout_, flags & DT_CENTER  ? PANGO_ALIGN_CENTER
                                      : flags & DT_RIGHT ? PANGO_ALIGN_RIGHT
                                                         : PANGO_ALIGN_LEFT);
  PangoAttrList* attributes = pango_attr_list_new();
  if (font.Underline) {
    pango_attr_list_insert(attributes, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
  }
  if (font.StrikeOut) {
    pango_attr_list_insert(attributes, pango_attr_strikethrough_new(TRUE));
  }
  if (shown.mnemonicStart >= 0 && !font.Underline) {
    PangoAttribute* mnemonic = pango_attr_underline_new(PANGO_UNDERLINE_SINGLE);
    mnemonic->start_index = static_cast<guint>(shown.mnemonicStart);
    mnemonic->end_index = static_cast<guint>(shown.mnemonicEnd);
    pango_attr_list_insert(attributes, mnemonic);
  }
  pango_layout_set_attributes(layout_, attributes);
  pango_attr_list_unref(attributes);
  return !shown.text.empty();
}

Size TextEngine::Measure(const FontSpec& font, std::string_view text, uint32_t flags,
                         int32_t wrapWidth) {
  flags &= ShapingFlags;
  wrapWidth = UsedWrapWidth(flags, wrapWidth);
  MakeCacheKey(font, text, flags, wrapWidth);
  if (auto shaped = shaped_.find(key_); shaped != shaped_.end())
    return {shaped->second.width, shaped->second.height};
  if (auto measured = measured_.find(key_); measured != measured_.end())
    return measured->second;
  Lay(font, text, flags, wrapWidth);
  PangoRectangle logical;
  pango_layout_get_pixel_extents(layout_, nullptr, &logical);
  if (measured_.size() >= CacheLimit)
    measured_.clear();
  return measured_.emplace(key_, Size{logical.width, logical.height}).first->second;
}

std::vector<int32_t> TextEngine::CharacterEdges(const FontSpec& font, std::string_view text) {
  std::vector<int32_t> edges{0};
  if (!Lay(font, text, DT_SINGLELINE | DT_NOPREFIX, -1))
    return edges;
  // Each character's advance, in the order of the text (the iterator walks the line as it is
  // shown), then summed.
  std::vector<std::pair<int, int>> advances; // byte index, Pango units
  PangoLayoutIter* iter = pango_layout_get_iter(layout_);
  do {
    PangoRectangle extent;
    pango_layout_iter_get_char_extents(iter, &extent);
    advances.emplace_back(pango_layout_iter_get_index(iter), std::abs(extent.width));
  } while (pango_layout_iter_next_char(iter));
  pango_layout_iter_free(iter);
  std::sort(advances.begin(), advances.end());
  const int characters = pango_layout_get_character_count(layout_);
  int64_t sum = 0;
  for (int i = 0; i < characters; ++i) {
    sum += i < int(advances.size()) ? advances[size_t(i)].second : 0;
    edges.push_back(static_cast<int32_t>((sum + PANGO_SCALE / 2) / PANGO_SCALE));
  }
  return edges;
}

// The laid-out text's coverage over `mask` (relative to its logical top-left, the text turned
// by `angle`), cut down to its ink.
ShapedText TextEngine::Rasterise(const PangoRectangle& logical, Rect mask, double angle) {
  ShapedText shaped;
  shaped.width = logical.width;
  shaped.height = logical.height;
  // Text larger than any surface is cut to what one could show, from its top-left.
  mask.right = mask.left + std::min(mask.Width(), MaxMaskSide);
  mask.bottom = mask.top + std::min(mask.Height(), MaxMaskSide);
  mask.right = mask.left + static_cast<int32_t>(std::min<int64_t>(
                               mask.Width(), MaxMaskPixels / std::max(mask.Height(), 1)));
  if (mask.Width() <= 0 || mask.Height() <= 0)
    return shaped;
  shaped.maskX = mask.left;
  shaped.maskY = mask.top;
  shaped.maskWidth = mask.Width();
  shaped.maskHeight = mask.Height();
  cairo_surface_t* surface =
      cairo_image_surface_create(CAIRO_FORMAT_A8, shaped.maskWidth, shaped.maskHeight);
  if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
    cairo_surface_destroy(surface);
    shaped.maskWidth = shaped.maskHeight = 0; // measured, but drawn as nothing
    return shaped;
  }
  cairo_t* cr = cairo_create(surface);
  cairo_translate(cr, -shaped.maskX, -shaped.maskY);
  cairo_rotate(cr, angle);
  cairo_translate(cr, -logical.x, -logical.y);
  pango_cairo_show_layout(cr, layout_);
  cairo_destroy(cr);
  cairo_surface_flush(surface);
  const unsigned char* data = cairo_image_surface_get_data(surface);
  int stride = cairo_image_surface_get_stride(surface);
  shaped.coverage.resize(static_cast<size_t>(shaped.maskWidth) * shaped.maskHeight);
  for (int32_t y = 0; y < shaped.maskHeight; ++y) {
    std::copy_n(data + static_cast<ptrdiff_t>(y) * stride, shaped.maskWidth,
                shaped.coverage.begin() + static_cast<ptrdiff_t>(y) * shaped.maskWidth);
  }
  cairo_surface_destroy(surface);
  TrimToInk(shaped);
  return shaped;
}

} // namespace tarnbrook
