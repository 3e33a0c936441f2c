// What the tree raises when it is asked for something that it refuses.
#pragma once

#include <exception>
#include <memory>
#include <string>

namespace vantry::dom {

/// A refused change or question. It is thrown before anything has changed.
class DomException : public std::exception {
 public:
  enum Code : int {
    IndexSize = 1,
    DomStringSize = 2,
    HierarchyRequest = 3,
    WrongDocument = 4,
    InvalidCharacter = 5,
    NoDataAllowed = 6,
    NoModificationAllowed = 7,
    NotFound = 8,
    NotSupported = 9,
    InUseAttribute = 10,
    InvalidState = 11,
    Syntax = 12,
    InvalidModification = 13,
    Namespace = 14,
    InvalidAccess = 15,
  };

  explicit DomException(int code) : code_(code) {}

  /// `about` says in words what was refused: which element, which attribute, which value.
  DomException(int code, const std::string& about);

  int code() const { return code_; }

  /// "INDEX_SIZE_ERR" and so on; "<<invalid>>" for a number that is no code.
  const char* name() const noexcept;

  /// The name, and what was refused where that is known: "SYNTAX_ERR: element 'Canvas'".
  const char* what() const noexcept override { return text_ ? text_->c_str() : name(); }

  /// Whether what() says more than name().
  bool saysWhatWasRefused() const noexcept { return text_ != nullptr; }

 private:
  int code_;
  std::shared_ptr<const std::string> text_;  // shared, for an exception must be copied without fail
};

/// A pair of boundary points that makes no range.
class RangeException : public std::exception {
 public:
  enum Code : int { BadBoundaryPoints = 1, InvalidNodeType = 2 };

  explicit RangeException(int code) : code_(code) {}
  int code() const { return code_; }

  /// "BAD_BOUNDARYPOINTS_ERR" or "INVALID_NODE_TYPE_ERR"; "<<invalid>>" for any other number.
  const char* name() const noexcept;

  const char* what() const noexcept override { return name(); }

 private:
  int code_;
};

}  // namespace vantry::dom
