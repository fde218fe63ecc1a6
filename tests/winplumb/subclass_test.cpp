#include <algorithm>
#include <vector>

#include "winplumb/subclass.hpp"
#include "winplumb_fixture.hpp"

namespace tarnbrook {
namespace {

// Notes its name and the message it was told about; answers its number.
class Client : public ISubclass {
public:
  Client(char name, EMsgResponse response = emrConsume) : name_(name), response_(response) {}
  EMsgResponse MsgResponse() override { return response_; }
  void SetMsgResponse(EMsgResponse response) override { response_ = response; }
  LRESULT WindowProc(HWND, int32_t iMsg, WPARAM, LPARAM) override {
    trail += std::string(1, name_) + std::to_string(CurrentMessage()) + ";";
    return iMsg == static_cast<int32_t>(WM_USER) ? name_ - '@' : 0; // A 1, B 2, C 3
  }

private:
  char name_;
  EMsgResponse response_;
};

class SubclassTest : public WinplumbTest {
protected:
  HWND w = Window(10, 10, 100, 100);
  std::string H = std::to_string(w);
  std::vector<std::string> Props() { return p.PropertyNames(w); }
  std::vector<std::string> Names(std::vector<std::string> names) {
    std::sort(names.begin(), names.end());
    auto props = Props();
    std::sort(props.begin(), props.end());
    EXPECT_EQ(props, names);
    return names;
  }
};

TEST_F(SubclassTest, OnlyTheFirstAnswerPreprocessesAndOnlyTheLastPostprocesses) {
  struct Case {
    std::vector<EMsgResponse> answers;
    std::string trail;
    LRESULT result;
  } cases[] = {
      {{emrConsume}, "A1024;", 1},
      {{emrPreprocess}, "P1024;A1024;", 1},
      {{emrPostProcess}, "A1024;P1024;", 7},
      {{emrConsume, emrConsume}, "A1024;B1024;", 2},
      {{emrPreprocess, emrConsume}, "P1024;A1024;B1024;", 2},
      {{emrConsume, emrPostProcess}, "A1024;B1024;P1024;", 7},
      {{emrPreprocess, emrPostProcess}, "P1024;A1024;B1024;", 2}, // at most once
      {{emrPostProcess, emrPreprocess}, "A1024;B1024;", 2},
      {{emrConsume, emrPreprocess, emrConsume}, "A1024;B1024;C1024;", 3},
      {{emrPreprocess, emrPostProcess, emrConsume}, "P1024;A1024;B1024;C1024;", 3},
      {{emrConsume, emrConsume, emrPostProcess}, "A1024;B1024;C1024;P1024;", 7},
  };
  for (const Case& c : cases) {
    std::vector<Client> clients;
    for (size_t i = 0; i < c.answers.size(); ++i) {
      clients.emplace_back(static_cast<char>('A' + i), c.answers[i]);
    }
    for (Client& client : clients) {
      AttachMessage(&client, w, WM_USER);
    }
    trail.clear();
    EXPECT_EQ(p.SendMessage(w, WM_USER, 0, 0), c.result) << c.trail;
    EXPECT_EQ(trail, c.trail);
    for (Client& client : clients) {
      DetachMessage(&client, w, WM_USER);
    }
    EXPECT_TRUE(Props().empty());
  }
}

TEST_F(SubclassTest, StateLivesInNamedWindowPropertiesUntilTheLastDetach) {
  const LONG_PTR original = p.GetWindowLong(w, GWL_WNDPROC);
  Client a('A'), b('B');
  AttachMessage(&a, w, WM_USER);
  Names({H, "C" + H, H + "#1024C", H + "#1024#1"});
  EXPECT_EQ(p.GetProp(w, H), original);
  EXPECT_EQ(p.GetWindowLong(w, GWL_WNDPROC), reinterpret_cast<LONG_PTR>(&SubclassDispatcher));
  AttachMessage(&b, w, WM_USER);
  AttachMessage(&a, w, WM_LBUTTONDOWN);
  Names({H, "C" + H, H + "#1024C", H + "#1024#1", H + "#1024#2", H + "#513C", H + "#513#1"});
  EXPECT_EQ(p.GetProp(w, "C" + H), 3);
  EXPECT_EQ(p.GetProp(w, H + "#1024#2"), reinterpret_cast<intptr_t>(static_cast<ISubclass*>(&b)));

  DetachMessage(&a, w, WM_USER); // b moves up
  Names({H, "C" + H, H + "#1024C", H + "#1024#1", H + "#513C", H + "#513#1"});
  EXPECT_EQ(p.GetProp(w, H + "#1024#1"), reinterpret_cast<intptr_t>(static_cast<ISubclass*>(&b)));
  EXPECT_EQ(p.GetProp(w, "C" + H), 2);

  trail.clear(); // a message nobody attached to goes straight on
  EXPECT_EQ(p.SendMessage(w, WM_USER + 1, 0, 0), 7);
  p.Click(50, 50);
  EXPECT_EQ(trail, "A513;");

  DetachMessage(&b, w, WM_USER);
  DetachMessage(&a, w, WM_LBUTTONDOWN);
  EXPECT_TRUE(Props().empty());
  EXPECT_EQ(p.GetWindowLong(w, GWL_WNDPROC), original);
  trail.clear();
  EXPECT_EQ(p.SendMessage(w, WM_USER, 0, 0), 7);
  EXPECT_EQ(trail, "P1024;");
}

TEST_F(SubclassTest, SecondAttachRaisesAfterCountingAndAStrangerDetachDropsTheLast) {
  Client a('A'), b('B'), stranger('S');
  AttachMessage(&a, w, WM_USER);
  EXPECT_PLUMBING_ERROR(AttachMessage(&a, w, WM_USER), 0x8004331A, "Tarnbrook.WindowProc",
                        "Message already handled by another class");
  EXPECT_EQ(p.GetProp(w, "C" + H), 2);
  EXPECT_EQ(p.GetProp(w, H + "#1024C"), 1);

  AttachMessage(&b, w, WM_USER);
  DetachMessage(&stranger, w, WM_USER);
  EXPECT_EQ(p.GetProp(w, "C" + H), 2);
  EXPECT_EQ(p.GetProp(w, H + "#1024C"), 1);
  trail.clear();
  EXPECT_EQ(p.SendMessage(w, WM_USER, 0, 0), 1);
  EXPECT_EQ(trail, "A1024;");
}

TEST_F(SubclassTest, RefusedWindowsChangeNothing) {
  Client a('A');
  EXPECT_PLUMBING_ERROR(AttachMessage(&a, 12345, WM_USER), 0x8004331B, "Tarnbrook.WindowProc",
                        "Invalid window");
  HWND foreign = p.CreateForeignWindow(0, 0, 10, 10);
  EXPECT_PLUMBING_ERROR(AttachMessage(&a, foreign, WM_USER), 0x8004331C, "Tarnbrook.WindowProc",
                        "Can't modify external window");
  EXPECT_TRUE(p.PropertyNames(foreign).empty());
  p.refuseProcedures = true;
  EXPECT_PLUMBING_ERROR(AttachMessage(&a, w, WM_USER), 0x80043319, "Tarnbrook.WindowProc",
                        "Can't subclass window");
  EXPECT_TRUE(Props().empty());
}

} // namespace
} // namespace tarnbrook
