// The base of everything that can be done and taken back.
#pragma once

namespace Ubase {

/// A change as an object.
class Operation {
 public:
  Operation() = default;
  Operation(const Operation&) = delete;
  Operation& operator=(const Operation&) = delete;
  virtual ~Operation() = default;

  virtual void execute() = 0;
  virtual void undo() = 0;

  /// Does the change again after undo().
  virtual void redo() { execute(); }
};

}  // namespace Ubase
