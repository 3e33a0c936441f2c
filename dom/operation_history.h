// The record of what was done to a document, for undo and redo.
#pragma once

#include <deque>
#include <memory>
#include <vector>

#include "vantry/base/operation.h"

namespace vantry::dom {

/// Operations in groups; a group is undone and redone as one. What is added joins the group under
/// way until startGroup() is called or something is undone or redone.
///
/// While undo() or redo() runs, an observer may cause further changes. Those are not recorded, and
/// clear() takes effect when the run is over.
class OperationHistory {
 public:
  /// Takes over an operation that was executed just now. All that could be redone is lost, and the
  /// oldest group if there are more than the limit.
  void add(std::unique_ptr<base::Operation> operation);

  /// Undo the last group that is done, its last operation first, and do the first one that is
  /// undone again. Nothing happens without such a group, nor while one of the two is under way. An
  /// exception of an operation reaches the caller; what is done and what is undone by then are a
  /// group each.
  void undo();
  void redo();
  bool canUndo() const { return position_ > 0; }
  bool canRedo() const { return position_ < groups_.size(); }
  /// Whether undo() or redo() is under way.
  bool isReplaying() const { return replaying_; }

  /// The largest number of groups kept; with 0 nothing is recorded. Empties the history.
  void setLimit(unsigned limit);
  unsigned limit() const { return limit_; }

  /// Forgets everything, but not the limit.
  void clear();
  /// Makes the operation that is added next begin a group.
  void startGroup() { startNewGroup_ = true; }

 private:
  using Group = std::vector<std::unique_ptr<base::Operation>>;
  class Replay;

  void divide(std::size_t group, std::size_t done);

  std::deque<Group> groups_;
  std::size_t position_ = 0;  // number of groups that are done
  unsigned limit_ = 100;
  bool startNewGroup_ = true;
  bool replaying_ = false;
  bool clearAfterReplay_ = false;
};

}  // namespace vantry::dom
