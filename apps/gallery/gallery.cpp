// The gallery: every look of the controls, one PNG per control family, for people to look at.
#include "apps/gallery/gallery.hpp"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <utility>

namespace tarnbrook::gallery {
namespace {

std::vector<std::pair<std::string, PictureWriter>>& Pictures() {
  static std::vector<std::pair<std::string, PictureWriter>> pictures;
  return pictures;
}

} // namespace

bool RegisterPicture(const char* fileName, PictureWriter write) {
  Pictures().emplace_back(fileName, write);
  return true;
}

void Label(cMDC& surface, const std::string& text, int32_t left, int32_t top, int32_t width,
           int32_t height, int32_t flags) {
  surface.DrawText(text, left, top, width, height, vbButtonText, OleColorNone, flags, true);
}

void StartPicture(cMDC& surface, int32_t width, int32_t height) {
  surface.SetBackColor(vbButtonFace);
  surface.Resize(width, height);
  surface.SetFont("MS Sans Serif", 8.25f);
}

} // namespace tarnbrook::gallery

// gallery [DIR]: writes every picture into DIR (the current folder when not given).
int main(int argc, char** argv) {
  std::filesystem::path folder = argc > 1 ? argv[1] : ".";
  std::filesystem::create_directories(folder);
  auto pictures = tarnbrook::gallery::Pictures();
  std::sort(pictures.begin(), pictures.end());
  for (const auto& [fileName, write] : pictures) {
    std::string path = (folder / fileName).string();
    write(path);
    std::cout << path << "\n";
  }
  return 0;
}
