#include "vantry/dom/operation_history.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using vantry::dom::OperationHistory;

/// Writes down what is done with it, under one letter.
class NotingOperation final : public vantry::base::Operation {
 public:
  NotingOperation(std::string& log, char letter) : log_(log), letter_(letter) {}
  ~NotingOperation() override { log_ += std::string("~") + letter_; }
  void execute() override { log_ += std::string("+") + letter_; }
  void undo() override {
    log_ += std::string("-") + letter_;
    if (onUndo) onUndo();
  }

  std::function<void()> onUndo;

 private:
  std::string& log_;
  char letter_;
};

class OperationHistoryTest : public testing::Test {
 protected:
  /// Adds one operation for each letter; a blank starts a new group.
  void add(const std::string& letters) {
    for (const char letter : letters) {
      if (letter == ' ') {
        history.startGroup();
      } else {
        history.add(std::make_unique<NotingOperation>(log, letter));
      }
    }
  }

  std::string takeLog() {
    std::string taken;
    taken.swap(log);
    return taken;
  }

  std::string log;
  OperationHistory history;
};

TEST_F(OperationHistoryTest, BeginsEmptyWithALimitOf100) {
  EXPECT_FALSE(history.canUndo());
  EXPECT_FALSE(history.canRedo());
  EXPECT_EQ(history.limit(), 100U);
  history.undo();
  history.redo();
  EXPECT_EQ(log, "");
}

TEST_F(OperationHistoryTest, AddExecutesNothing) {
  add("a");
  history.add(nullptr);
  EXPECT_EQ(log, "");
  EXPECT_TRUE(history.canUndo());
}

TEST_F(OperationHistoryTest, AGroupIsUndoneBackwardsAndRedoneForwards) {
  add("abc");
  history.undo();
  EXPECT_EQ(takeLog(), "-c-b-a");
  EXPECT_FALSE(history.canUndo());
  EXPECT_TRUE(history.canRedo());
  history.redo();
  EXPECT_EQ(takeLog(), "+a+b+c");
  EXPECT_TRUE(history.canUndo());
  EXPECT_FALSE(history.canRedo());
}

TEST_F(OperationHistoryTest, AGroupLastsUntilTheNextIsStarted) {
  add("ab  c d");
  history.undo();
  history.undo();
  EXPECT_EQ(takeLog(), "-d-c");
  history.undo();
  EXPECT_EQ(takeLog(), "-b-a");
  history.undo();
  EXPECT_EQ(takeLog(), "");
  history.redo();
  history.redo();
  EXPECT_EQ(takeLog(), "+a+b+c");
}

TEST_F(OperationHistoryTest, UndoAndRedoStartANewGroup) {
  add("a b");
  history.undo();
  history.redo();
  add("c");
  takeLog();
  history.undo();
  EXPECT_EQ(takeLog(), "-c");
}

TEST_F(OperationHistoryTest, ANewOperationThrowsAwayWhatCouldBeRedone) {
  add("a b cd");
  history.undo();
  history.undo();
  takeLog();
  add("e");
  EXPECT_EQ(takeLog(), "~b~c~d");
  EXPECT_FALSE(history.canRedo());
  history.undo();
  history.undo();
  EXPECT_EQ(takeLog(), "-e-a");
}

TEST_F(OperationHistoryTest, TheOldestGroupGoesWhenThereAreMoreThanTheLimit) {
  history.setLimit(2);
  add("ab c d");
  EXPECT_EQ(takeLog(), "~a~b");
  add("e f");
  EXPECT_EQ(takeLog(), "~c");
  history.undo();
  history.undo();
  history.undo();
  EXPECT_EQ(takeLog(), "-f-e-d");
  history.redo();
  EXPECT_EQ(takeLog(), "+d+e");
}

TEST_F(OperationHistoryTest, AHundredGroupsCanBeUndone) {
  for (int i = 0; i < 101; ++i) add(i == 0 ? " a" : " b");
  EXPECT_EQ(takeLog(), "~a");
  int undone = 0;
  for (; history.canUndo(); ++undone) history.undo();
  EXPECT_EQ(undone, 100);
}

TEST_F(OperationHistoryTest, WithLimitZeroNothingIsKept) {
  history.setLimit(0);
  add("a");
  EXPECT_EQ(takeLog(), "~a");
  EXPECT_FALSE(history.canUndo());
}

TEST_F(OperationHistoryTest, SettingTheLimitEmptiesTheHistory) {
  add("a b");
  history.undo();
  takeLog();
  history.setLimit(5);
  EXPECT_EQ(takeLog(), "~a~b");
  EXPECT_EQ(history.limit(), 5U);
  EXPECT_FALSE(history.canUndo());
  EXPECT_FALSE(history.canRedo());
  add("cd");
  history.undo();
  EXPECT_EQ(takeLog(), "-d-c");
}

TEST_F(OperationHistoryTest, ClearKeepsTheLimit) {
  history.setLimit(7);
  add("a");
  history.clear();
  EXPECT_EQ(takeLog(), "~a");
  EXPECT_EQ(history.limit(), 7U);
  EXPECT_FALSE(history.canUndo());
}

TEST_F(OperationHistoryTest, ChangesDuringAnUndoAreNotRecorded) {
  auto meddler = std::make_unique<NotingOperation>(log, 'm');
  meddler->onUndo = [this] {
    add("x");
    history.undo();
    history.redo();
  };
  add("a ");
  history.add(std::move(meddler));
  add("b");
  history.undo();
  EXPECT_EQ(takeLog(), "-b-m~x");
  EXPECT_TRUE(history.canRedo());
  history.redo();
  EXPECT_EQ(takeLog(), "+m+b");
}

TEST_F(OperationHistoryTest, ClearDuringAnUndoWaitsForItsEnd) {
  auto meddler = std::make_unique<NotingOperation>(log, 'm');
  meddler->onUndo = [this] { history.setLimit(3); };
  add("a");
  history.add(std::move(meddler));
  add("b");
  history.undo();
  EXPECT_EQ(takeLog(), "-b-m-a~a~m~b");
  EXPECT_FALSE(history.canRedo());
  EXPECT_EQ(history.limit(), 3U);
}

TEST_F(OperationHistoryTest, AfterAnExceptionTheHistoryRecordsAgain) {
  auto thrower = std::make_unique<NotingOperation>(log, 't');
  thrower->onUndo = [] { throw 1; };
  history.add(std::move(thrower));
  EXPECT_THROW(history.undo(), int);
  EXPECT_TRUE(history.canUndo()) << "it is not undone";
  EXPECT_FALSE(history.canRedo());
  takeLog();
  add("a");
  EXPECT_EQ(takeLog(), "");
  history.undo();
  EXPECT_EQ(takeLog(), "-a");
}

TEST_F(OperationHistoryTest, AnExceptionDividesTheGroup) {
  bool throws = true;
  auto thrower = std::make_unique<NotingOperation>(log, 't');
  thrower->onUndo = [&] {
    if (throws) throw 1;
  };
  add("z a");
  history.add(std::move(thrower));
  add("bc");
  EXPECT_THROW(history.undo(), int);
  EXPECT_EQ(takeLog(), "-c-b-t");
  history.redo();
  EXPECT_EQ(takeLog(), "+b+c");
  EXPECT_FALSE(history.canRedo());
  history.undo();
  EXPECT_EQ(takeLog(), "-c-b");
  throws = false;
  history.undo();
  EXPECT_EQ(takeLog(), "-t-a");
  history.undo();
  EXPECT_EQ(takeLog(), "-z");
  for (const char* group : {"+z", "+a+t", "+b+c", ""}) {
    history.redo();
    EXPECT_EQ(takeLog(), group);
  }
}

}  // namespace
