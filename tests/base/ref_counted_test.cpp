#include "vantry/base/ref_counted.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "vantry/base/operation.h"

namespace {

using namespace vantry::base;

// Counts how many of its kind are alive.
class Counted : public RefCounted<IResource> {
 public:
  explicit Counted(int& alive) : alive_(alive) { ++alive_; }
  Counted(const Counted& other) : RefCounted(other), alive_(other.alive_) { ++alive_; }
  ~Counted() override { --alive_; }

 private:
  int& alive_;
};

class SpecialCounted : public Counted {
  using Counted::Counted;
};

TEST(RefCounted, BeginsAtZero) {
  int alive = 0;
  Counted* object = new Counted(alive);
  EXPECT_EQ(object->refCount(), 0u);
  EXPECT_EQ(object->addRef(), object);
  EXPECT_EQ(object->refCount(), 1u);
  object->release();
  EXPECT_EQ(alive, 0);
}

TEST(RefCounted, DiesOnTheFirstReleaseOfWhatNobodyCounted) {
  int alive = 0;
  (new Counted(alive))->release();
  EXPECT_EQ(alive, 0);
}

TEST(RefCounted, DiesWithItsLastReference) {
  int alive = 0;
  IResource* object = new Counted(alive);
  object->addRef();
  object->addRef();
  object->addRef();
  object->release();
  object->release();
  EXPECT_EQ(alive, 1);
  object->release();
  EXPECT_EQ(alive, 0);
}

TEST(RefCounted, CopiesWithoutReferences) {
  int alive = 0;
  const Ref<Counted> original(new Counted(alive));
  Counted* copy = new Counted(*original);
  EXPECT_EQ(copy->refCount(), 0u);
  EXPECT_EQ(alive, 2);
  copy->release();
  EXPECT_EQ(alive, 1);
}

TEST(Ref, OwnsOneReference) {
  int alive = 0;
  {
    const Ref<Counted> first(new Counted(alive));
    EXPECT_EQ(first->refCount(), 1u);
    const Ref<Counted> second = first;
    EXPECT_EQ(first->refCount(), 2u);
    EXPECT_EQ(first, second);
    EXPECT_EQ((*second).refCount(), 2u);
  }
  EXPECT_EQ(alive, 0);
}

TEST(Ref, MayOwnNothing) {
  const Ref<Counted> none;
  EXPECT_FALSE(none);
  EXPECT_EQ(none.get(), nullptr);
  EXPECT_EQ(none, Ref<Counted>(nullptr));
}

TEST(Ref, GivesUpItsObjectByAssignment) {
  int alive = 0;
  Ref<Counted> ref(new Counted(alive));
  ref = new Counted(alive);
  EXPECT_EQ(alive, 1);
  const Ref<Counted>& same = ref;
  ref = same;
  EXPECT_EQ(alive, 1);
  EXPECT_EQ(ref->refCount(), 1u);
  ref = ref.get();
  EXPECT_EQ(ref->refCount(), 1u);
  ref = nullptr;
  EXPECT_EQ(alive, 0);
}

TEST(Ref, MovesItsReference) {
  int alive = 0;
  Ref<Counted> source(new Counted(alive));
  Ref<Counted> target = std::move(source);
  EXPECT_EQ(target->refCount(), 1u);
  std::vector<Ref<Counted>> list;
  for (int i = 0; i < 10; ++i) list.push_back(target);
  EXPECT_EQ(target->refCount(), 11u);
}

TEST(Ref, TakesAReferenceToADerivedObject) {
  int alive = 0;
  const Ref<SpecialCounted> special(new SpecialCounted(alive));
  const Ref<Counted> plain = special;
  EXPECT_EQ(plain.get(), special.get());
  EXPECT_EQ(plain->refCount(), 2u);
}

TEST(Ref, KeepsItsCountWhenAnExceptionPasses) {
  int alive = 0;
  try {
    const Ref<Counted> ref(new Counted(alive));
    throw 1;
  } catch (int) {
  }
  EXPECT_EQ(alive, 0);
}

class CountingOperation : public Operation {
 public:
  void execute() override { ++executed; }
  void undo() override { --executed; }

  int executed = 0;
};

TEST(Operation, IsExecutedOnceMoreByRedo) {
  CountingOperation operation;
  operation.execute();
  operation.undo();
  EXPECT_EQ(operation.executed, 0);
  operation.redo();
  EXPECT_EQ(operation.executed, 1);
}

}  // namespace
