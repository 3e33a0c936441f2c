// The base of everything that can be done and taken back.
#pragma once

namespace vantry::base {

/// A change as an object. If one of the following throws, nothing has changed.
class Operation {
 public:
  Operation() = default;
  Operation(const Operation&) = delete;
  Operation& operator=(const Operation&) = delete;
  virtual ~Operation() = default;

  /// Does the change.
  virtual void execute() = 0;
  /// Takes it back. To be called in the state that execute() or redo() left.
  virtual void undo() = 0;

  /// Does the change again after undo().
  virtual void redo() { execute(); }
};

}  // namespace vantry::base
