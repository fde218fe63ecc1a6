#pragma once
// A toolkit's example program under an Xvfb of its own, driven as a person would with
// xdotool. The program takes commands on its standard input and answers, and tells what
// happens, in lines on its standard output.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <poll.h>
#include <signal.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tarnbrook {

struct Box {
  int x = 0, y = 0, width = 0, height = 0;
};

class ExampleWindow {
public:
  using Environment = std::vector<std::pair<std::string, std::string>>;

  // Starts the server and the program with `environment` added; false, with the reason, when
  // no Xvfb starts here. The toolkits keep what they allocate until exit, so the program runs
  // without leak checks: those are for our own programs.
  bool Start(const char* program, const Environment& environment, std::string& whyNot) {
    FILE* server = popen("echo $$; exec Xvfb -displayfd 1 -screen 0 800x600x24 -nolisten tcp "
                         "2>/dev/null",
                         "r");
    int number = -1;
    if (!server || std::fscanf(server, "%d %d", &xvfb_, &number) != 2) {
      whyNot = "Xvfb could not start (is the xvfb package installed?)";
      return false;
    }
    xvfbOutput_ = server;
    setenv("DISPLAY", (":" + std::to_string(number)).c_str(), 1); // for xdotool too

    int toChild[2], fromChild[2];
    if (pipe(toChild) != 0 || pipe(fromChild) != 0) {
      whyNot = "no pipes";
      return false;
    }
    if ((child_ = fork()) == 0) {
      dup2(toChild[0], 0);
      dup2(fromChild[1], 1);
      close(toChild[1]);
      close(fromChild[0]);
      setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
      for (const auto& [name, value] : environment)
        setenv(name.c_str(), value.c_str(), 1);
      execl(program, program, "--today", "2026-03-15", nullptr);
      _exit(127);
    }
    close(toChild[0]);
    close(fromChild[1]);
    commands_ = toChild[1];
    output_ = fromChild[0];
    return true;
  }

  ~ExampleWindow() {
    if (child_ > 0) {
      Command("quit");
      int status = 0;
      for (int i = 0; i < 50 && waitpid(child_, &status, WNOHANG) == 0; ++i)
        usleep(100000);
      kill(child_, SIGKILL);
      waitpid(child_, &status, 0);
      close(commands_);
      close(output_);
    }
    if (xvfb_ > 0) {
      kill(xvfb_, SIGTERM);
      pclose(xvfbOutput_);
    }
  }

  void Command(const std::string& line) {
    std::string text = line + "\n";
    ASSERT_EQ(write(commands_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }

  // Reads lines until one starts with `prefix` (then Line()); false after 5 s.
  bool WaitForLine(const std::string& prefix) {
    auto until = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    for (;;) {
      for (size_t end; (end = pending_.find('\n')) != std::string::npos;) {
        line_ = pending_.substr(0, end);
        pending_.erase(0, end + 1);
        seen_ += line_ + "\n";
        if (line_.starts_with(prefix))
          return true;
      }
      auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
          until - std::chrono::steady_clock::now());
      pollfd fd{output_, POLLIN, 0};
      if (left.count() <= 0 || poll(&fd, 1, static_cast<int>(left.count())) <= 0)
        return false;
      char buffer[4096];
      ssize_t got = read(output_, buffer, sizeof buffer);
      if (got <= 0)
        return false;
      pending_.append(buffer, static_cast<size_t>(got));
    }
  }
  const std::string& Line() const { return line_; }
  const std::string& Seen() const { return seen_; } // every line so far, for failure messages

  // The widgets and open pop-ups on the screen by name, as the program tells them.
  std::map<std::string, Box> Bounds() {
    std::map<std::string, Box> bounds;
    Command("bounds");
    while (WaitForLine("bounds ") && line_ != "bounds done") {
      std::istringstream in(line_.substr(7));
      std::string name;
      Box box;
      in >> name >> box.x >> box.y >> box.width >> box.height;
      bounds[name] = box;
    }
    return bounds;
  }

  // Each step is given a moment to reach the program's loop and come back.
  void Xdotool(const std::string& arguments) {
    ASSERT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << "xdotool " << arguments;
    usleep(150000);
  }
  void Click(int x, int y) {
    Xdotool("mousemove " + std::to_string(x) + " " + std::to_string(y) + " click 1");
  }

private:
  pid_t xvfb_ = 0, child_ = 0;
  FILE* xvfbOutput_ = nullptr;
  int commands_ = -1, output_ = -1;
  std::string pending_, line_, seen_;
};

} // namespace tarnbrook
