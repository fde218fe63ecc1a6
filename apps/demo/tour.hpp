#pragma once
#include <string>
#include <vector>

namespace tarnbrook {

class Container;
class X11Platform;

// A short scripted tour with real X input from xdotool: the form, picker1's calendar dropped
// down, a day picked, a month typed into picker2. Writes a screenshot of each sight into
// `directory` and returns their paths.
std::vector<std::string> RunTour(X11Platform& platform, Container& form,
                                 const std::string& directory);

} // namespace tarnbrook
