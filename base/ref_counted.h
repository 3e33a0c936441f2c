// Reference counting: the interface of counted objects, its implementation as a mixin, and the
// pointer that owns one count.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

namespace vantry::base {

/// Interface of everything that is owned by reference count.
class IResource {
 public:
  virtual IResource* addRef() = 0;

  /// Gives one reference up. The object dies with its last one, and also when nobody ever counted
  /// it, so that a single release() of a new object destroys it.
  virtual void release() = 0;

  virtual ~IResource() = default;
};

/// Adds a plain counter, for one thread at a time, to the interface `Base`. A new object has count
/// 0.
template <class Base>
class RefCounted : public Base {
 public:
  RefCounted() = default;
  RefCounted(const RefCounted&) : Base() {}  // a copy is a new object: nobody refers to it yet
  RefCounted& operator=(const RefCounted&) = delete;

  RefCounted* addRef() override {
    ++refCount_;
    return this;
  }

  void release() override {
    if (refCount_ > 0 && --refCount_ > 0) return;
    delete this;
  }

  std::uint32_t refCount() const { return refCount_; }

 private:
  std::uint32_t refCount_ = 0;
};

/// Owns one reference to a `T`, or nothing. `T` offers addRef() and release().
template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  Ref(T* object) : object_(object) {
    if (object_) object_->addRef();
  }
  Ref(const Ref& other) : Ref(other.object_) {}
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <class U>
  Ref(const Ref<U>& other) : Ref(other.get()) {}
  template <class U>
  Ref(Ref<U>&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ~Ref() {
    if (object_) object_->release();
  }

  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  T* get() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }

  friend bool operator==(const Ref& a, const Ref& b) { return a.object_ == b.object_; }
  friend bool operator==(const Ref& a, const T* b) { return a.object_ == b; }

  /// The same reference to an object of which the caller knows that it is a `T`.
  template <class U>
  static Ref cast(Ref<U>&& other) {
    Ref result;
    result.object_ = static_cast<T*>(std::exchange(other.object_, nullptr));
    return result;
  }

 private:
  template <class U>
  friend class Ref;

  T* object_ = nullptr;
};

}  // namespace vantry::base
