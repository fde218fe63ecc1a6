#include "common/event_source.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace tarnbrook {
namespace {

struct Events {
  virtual ~Events() = default;
  virtual void Change() {}
};

// A handler may disconnect, and even delete, a sink that would have come after it.
TEST(EventSource, ASinkDisconnectedByAnEarlierHandlerIsNotCalled) {
  EventSource<Events> source;
  struct Counting : Events {
    int calls = 0;
    void Change() override { ++calls; }
  };
  auto later = std::make_unique<Counting>();
  struct Dropping : Events {
    EventSource<Events>* source = nullptr;
    std::unique_ptr<Counting>* victim = nullptr;
    void Change() override {
      source->Disconnect(victim->get());
      victim->reset();
    }
  } first;
  first.source = &source;
  first.victim = &later;
  Counting kept;
  source.Connect(&first);
  source.Connect(later.get());
  source.Connect(&kept);
  source.Raise(&Events::Change);
  EXPECT_EQ(kept.calls, 1);
  EXPECT_FALSE(DispatchDepth::Active());
}

} // namespace
} // namespace tarnbrook
