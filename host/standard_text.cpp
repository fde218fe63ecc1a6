#include "host/standard_text.hpp"
#include "common/text.hpp"

#include <vector>

namespace tarnbrook {
namespace {

// A surface of its own to measure on, so that a control measures before it has a size.
cMDC& Probe(const Font& font) {
  thread_local cMDC probe;
  if (!probe.hDC())
    probe.Resize(1, 1);
  SelectFont(probe, font);
  return probe;
}

} // namespace

void SelectFont(cMDC& surface, const Font& font) {
  surface.SetFont(font.Name, font.Size, font.Bold, font.Italic, font.Strikethrough, font.Underline);
}

Size MeasureLine(const Font& font, std::string_view text, bool mnemonics) {
  Canvas& canvas = *Canvas::FromHandle(Probe(font).hDC());
  int32_t lineHeight = canvas.GetTextExtent("Ag").cy;
  if (text.empty())
    return {0, lineHeight};
  Rect bounds;
  canvas.DrawText(text, &bounds,
                  DT_CALCRECT | DT_SINGLELINE | (mnemonics ? 0u : uint32_t{DT_NOPREFIX}));
  return {bounds.Width(), lineHeight};
}

std::vector<int32_t> CharacterEdges(const Font& font, std::string_view text) {
  std::vector<int32_t> edges = Canvas::FromHandle(Probe(font).hDC())->CharacterEdges(text);
  // Bytes that are no UTF-8 show as one replacement each: one edge per character of the text.
  edges.resize(Utf8Length(text) + 1, edges.back());
  return edges;
}

} // namespace tarnbrook
