#include <vector>

#include "winplumb/subclass.hpp"
#include "winplumb_fixture.hpp"

namespace tarnbrook {
namespace {

// Notes its name and the current message; answers 1 for A, 2 for B, 3 for C.
struct Client : ISubclass {
  Client(char name, EMsgResponse response = emrConsume) : name(name), response(response) {}
  EMsgResponse MsgResponse() override { return response; }
  LRESULT WindowProc(HWND, int32_t, WPARAM, LPARAM) override {
    trail += name + std::to_string(CurrentMessage()) + ";";
    return name - '@';
  }
  char name;
  EMsgResponse response;
};

class SubclassTest : public WinplumbTest {
protected:
  // The window's property names in the simulator's order, its handle written as "H".
  std::string Store() {
    std::string names;
    for (std::string name : p.PropertyNames(w)) {
      names += name.replace(name.find(H), H.size(), "H") + " ";
    }
    return names;
  }
  HWND w = Window(10, 10, 100, 100);
  std::string H = std::to_string(w);
};

TEST_F(SubclassTest, OnlyTheFirstAnswerPreprocessesAndOnlyTheLastPostprocesses) {
  struct Case {
    std::vector<EMsgResponse> answers;
    std::string trail;
    LRESULT result;
  } cases[] = {
      {{emrPreprocess}, "P1024;A1024;", 1},
      {{emrPostProcess}, "A1024;P1024;", 7},
      {{emrConsume, emrConsume}, "A1024;B1024;", 2},
      {{emrPreprocess, emrPostProcess}, "P1024;A1024;B1024;", 2}, // at most once
      {{emrPostProcess, emrPreprocess}, "A1024;B1024;", 2},
      {{emrConsume, emrPreprocess, emrPostProcess}, "A1024;B1024;C1024;P1024;", 7},
      {{emrPreprocess, emrPostProcess, emrConsume}, "P1024;A1024;B1024;C1024;", 3},
  };
  for (const Case& c : cases) {
    std::vector<Client> clients;
    for (EMsgResponse answer : c.answers) {
      clients.emplace_back(static_cast<char>('A' + clients.size()), answer);
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
  }
}

TEST_F(SubclassTest, StateLivesInNamedWindowPropertiesUntilTheLastDetach) {
  const LONG_PTR original = p.GetWindowLong(w, GWL_WNDPROC);
  Client a('A'), b('B');
  AttachMessage(&a, w, WM_USER);
  EXPECT_EQ(Store(), "H H#1024#1 H#1024C CH ");
  EXPECT_EQ(p.GetProp(w, H), original);
  AttachMessage(&b, w, WM_USER);
  AttachMessage(&a, w, WM_LBUTTONDOWN);
  DetachMessage(&a, w, WM_USER); // b moves up
  EXPECT_EQ(Store(), "H H#1024#1 H#1024C H#513#1 H#513C CH ");
  EXPECT_EQ(p.GetProp(w, H + "#1024#1"), reinterpret_cast<intptr_t>(static_cast<ISubclass*>(&b)));
  EXPECT_EQ(p.GetProp(w, "C" + H), 2);
  trail.clear(); // a message nobody attached to goes straight on
  EXPECT_EQ(p.SendMessage(w, WM_USER + 1, 0, 0), 7);
  p.Click(50, 50);
  EXPECT_EQ(trail, "A513;");

  DetachMessage(&b, w, WM_USER);
  DetachMessage(&a, w, WM_LBUTTONDOWN);
  EXPECT_EQ(Store(), "");
  EXPECT_EQ(p.GetWindowLong(w, GWL_WNDPROC), original);
}

TEST_F(SubclassTest, RefusalsAndTheKeptAsymmetries) {
  Client a('A'), b('B'), stranger('S');
  EXPECT_EQ(ErrorText([&] { AttachMessage(&a, 12345, WM_USER); }),
            "8004331B Tarnbrook.WindowProc: Invalid window");
  EXPECT_EQ(ErrorText([&] { AttachMessage(&a, p.CreateForeignWindow(0, 0, 9, 9), WM_USER); }),
            "8004331C Tarnbrook.WindowProc: Can't modify external window");
  p.refuseProcedures = true;
  EXPECT_EQ(ErrorText([&] { AttachMessage(&a, w, WM_USER); }),
            "80043319 Tarnbrook.WindowProc: Can't subclass window");
  EXPECT_EQ(Store(), "");

  p.refuseProcedures = false;
  AttachMessage(&a, w, WM_USER);
  EXPECT_EQ(ErrorText([&] { AttachMessage(&a, w, WM_USER); }),
            "8004331A Tarnbrook.WindowProc: Message already handled by another class");
  EXPECT_EQ(p.GetProp(w, "C" + H), 2); // counted all the same
  AttachMessage(&b, w, WM_USER);
  DetachMessage(&stranger, w, WM_USER); // drops the last client, b
  EXPECT_EQ(p.GetProp(w, "C" + H), 2);
  trail.clear();
  EXPECT_EQ(p.SendMessage(w, WM_USER, 0, 0), 1);
  EXPECT_EQ(trail, "A1024;");
}

} // namespace
} // namespace tarnbrook
