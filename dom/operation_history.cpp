#include "vantry/dom/operation_history.h"

#include <iterator>
#include <utility>

namespace vantry::dom {

/// Guards the history while a group runs, and closes the run however it ends.
class OperationHistory::Replay {
 public:
  explicit Replay(OperationHistory& history) : history_(history) { history_.replaying_ = true; }
  Replay(const Replay&) = delete;
  Replay& operator=(const Replay&) = delete;
  ~Replay() {
    history_.replaying_ = false;
    history_.startNewGroup_ = true;
    if (history_.clearAfterReplay_) history_.clear();
  }

 private:
  OperationHistory& history_;
};

void OperationHistory::add(std::unique_ptr<base::Operation> operation) {
  if (!operation || limit_ == 0 || replaying_) return;
  if (canRedo()) {
    groups_.resize(position_);
    startNewGroup_ = true;
  }
  if (startNewGroup_) {
    Group group;
    group.push_back(std::move(operation));
    groups_.push_back(std::move(group));
    ++position_;
    startNewGroup_ = false;
  } else {
    groups_.back().push_back(std::move(operation));
  }
  for (; groups_.size() > limit_; --position_) groups_.pop_front();
}

void OperationHistory::undo() {
  if (!canUndo() || replaying_) return;
  const Replay replay(*this);
  const std::size_t group = --position_;
  std::size_t done = groups_[group].size();
  try {
    for (; done > 0; --done) groups_[group][done - 1]->undo();
  } catch (...) {
    divide(group, done);
    throw;
  }
}

void OperationHistory::redo() {
  if (!canRedo() || replaying_) return;
  const Replay replay(*this);
  const std::size_t group = position_;
  std::size_t done = 0;
  try {
    for (; done < groups_[group].size(); ++done) groups_[group][done]->redo();
  } catch (...) {
    divide(group, done);
    throw;
  }
  ++position_;
}

void OperationHistory::setLimit(unsigned limit) {
  clear();
  limit_ = limit;
}

void OperationHistory::clear() {
  clearAfterReplay_ = replaying_;
  if (replaying_) return;
  groups_.clear();
  position_ = 0;
  startNewGroup_ = true;
}

/// Only the first `done` operations of the group are done. They and the others part.
void OperationHistory::divide(std::size_t group, std::size_t done) {
  position_ = group;
  if (done == 0) return;
  Group& whole = groups_[group];
  const auto firstUndone = whole.begin() + static_cast<std::ptrdiff_t>(done);
  Group undone(std::make_move_iterator(firstUndone), std::make_move_iterator(whole.end()));
  whole.erase(firstUndone, whole.end());
  ++position_;
  if (undone.empty()) return;
  groups_.insert(groups_.begin() + static_cast<std::ptrdiff_t>(position_), std::move(undone));
}

}  // namespace vantry::dom
