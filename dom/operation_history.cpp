#include "dom/operation_history.h"

#include <utility>

namespace Arbor {

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

void OperationHistory::add(std::unique_ptr<Ubase::Operation> operation) {
  if (!operation || limit_ == 0 || replaying_) return;
  if (canRedo()) dropRedoable();
  if (startNewGroup_) {
    groupStarts_.push_back(operations_.size());
    ++position_;
    startNewGroup_ = false;
    if (groupStarts_.size() > limit_) dropOldestGroup();
  }
  operations_.push_back(std::move(operation));
}

void OperationHistory::undo() {
  if (!canUndo() || replaying_) return;
  const Replay replay(*this);
  const std::size_t group = --position_;
  for (std::size_t i = groupEnd(group); i > groupStarts_[group]; --i) operations_[i - 1]->undo();
}

void OperationHistory::redo() {
  if (!canRedo() || replaying_) return;
  const Replay replay(*this);
  const std::size_t end = groupEnd(position_);
  for (std::size_t i = groupStarts_[position_]; i < end; ++i) operations_[i]->redo();
  ++position_;
}

void OperationHistory::setLimit(unsigned limit) {
  clear();
  limit_ = limit;
}

void OperationHistory::clear() {
  clearAfterReplay_ = replaying_;
  if (replaying_) return;
  operations_.clear();
  groupStarts_.clear();
  position_ = 0;
  startNewGroup_ = true;
}

std::size_t OperationHistory::groupEnd(std::size_t group) const {
  return group + 1 < groupStarts_.size() ? groupStarts_[group + 1] : operations_.size();
}

void OperationHistory::dropRedoable() {
  operations_.resize(groupStarts_[position_]);
  groupStarts_.resize(position_);
  startNewGroup_ = true;
}

void OperationHistory::dropOldestGroup() {
  const std::size_t count = groupEnd(0);
  operations_.erase(operations_.begin(), operations_.begin() + static_cast<std::ptrdiff_t>(count));
  groupStarts_.pop_front();
  for (std::size_t& start : groupStarts_) start -= count;
  --position_;
}

}  // namespace Arbor
