#pragma once

#include <utility>

#include "framework/system/KorExport.h"

/// Base of everything that is reference counted. A new object has one reference, its maker's;
/// the last Release destroys it. Used on the user-interface thread only, the count is not atomic.
class KOR_FRAMEWORK_API KorBaseUnknown {
 public:
  KorBaseUnknown() = default;
  KorBaseUnknown(const KorBaseUnknown&) {}
  KorBaseUnknown& operator=(const KorBaseUnknown&) { return *this; }

  unsigned AddRef() { return ++_references; }
  unsigned Release();
  unsigned ReferenceCount() const { return _references; }

 protected:
  virtual ~KorBaseUnknown();

 private:
  unsigned _references = 1;
};

/// Handle that holds one reference. Null until assigned.
template <class T>
class KorVar {
 public:
  KorVar() = default;
  /// Takes a reference of its own.
  KorVar(T* object) : _object(object) {
    if (_object) _object->AddRef();
  }
  template <class Other>
  KorVar(const KorVar<Other>& other) : KorVar(other.Get()) {}
  KorVar(const KorVar& other) : KorVar(other._object) {}
  KorVar(KorVar&& other) noexcept : _object(std::exchange(other._object, nullptr)) {}
  KorVar& operator=(KorVar other) noexcept {
    std::swap(_object, other._object);
    return *this;
  }
  ~KorVar() {
    if (_object) _object->Release();
  }

  /// Takes over the reference that the caller holds (of a newly made object).
  static KorVar Adopt(T* object) {
    KorVar handle;
    handle._object = object;
    return handle;
  }

  T* Get() const { return _object; }
  T* operator->() const { return _object; }
  T& operator*() const { return *_object; }
  explicit operator bool() const { return _object != nullptr; }
  friend bool operator==(const KorVar& left, const KorVar& right) { return left._object == right._object; }

 private:
  T* _object = nullptr;
};

using KorBaseUnknown_var = KorVar<KorBaseUnknown>;
