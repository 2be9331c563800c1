// The growing arrays of the framework.
#pragma once

#include <algorithm>
#include <climits>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

#include "rytree_host/cstring.h"

/// A growing array of `T`; `A` is the type that the framework passes elements in and has no effect here.
///
/// Sizes below 0 count as 0. An index outside the array reads an empty element; what is written there is
/// dropped. Every element of a `bool` array is a real `bool` of one byte.
template <class T, class A = const T&>
class CArray {
 public:
  int GetSize() const noexcept { return static_cast<int>((std::min<std::size_t>)(items_.size(), INT_MAX)); }
  int GetCount() const noexcept { return GetSize(); }
  int GetUpperBound() const noexcept { return GetSize() - 1; }
  bool IsEmpty() const noexcept { return items_.empty(); }

  /// New elements are zero or empty. `growBy` has no effect.
  void SetSize(int size, int growBy = -1) {
    static_cast<void>(growBy);
    items_.resize(Count(size));
  }
  void Reserve(int size) { items_.reserve(Count(size)); }
  void FreeExtra() { items_.shrink_to_fit(); }
  void RemoveAll() noexcept { items_.clear(); }

  /// Appends an element and gives its index.
  int Add(const T& value) {
    items_.emplace_back(value);
    return GetUpperBound();
  }
  int Add(T&& value) {
    items_.emplace_back(std::move(value));
    return GetUpperBound();
  }
  /// Appends the elements of another array, or of this one, and gives the index of the first.
  int Append(const CArray& other) {
    const int first = GetSize();
    if (this == &other) return Append(CArray(other));
    items_.insert(items_.end(), other.items_.begin(), other.items_.end());
    return first;
  }
  void Copy(const CArray& other) { items_ = other.items_; }

  const T& GetAt(int index) const { return Inside(index) ? Data()[index] : Spare(); }
  T& ElementAt(int index) { return Inside(index) ? Data()[index] : Spare(); }
  const T& operator[](int index) const { return GetAt(index); }
  T& operator[](int index) { return ElementAt(index); }
  void SetAt(int index, T value) { ElementAt(index) = std::move(value); }

  /// As `SetAt`, but an index past the end makes the array grow to it.
  void SetAtGrow(int index, T value) {
    if (index >= 0 && !Inside(index)) items_.resize(Count(index) + 1);
    SetAt(index, std::move(value));
  }
  /// Puts `count` copies before `index`; an index past the end makes the array grow to it, one below 0 does
  /// nothing.
  void InsertAt(int index, T value, int count = 1) {
    if (index < 0 || count <= 0) return;
    if (Count(index) > items_.size()) items_.resize(Count(index));
    items_.insert(items_.begin() + index, Count(count), Slot{std::move(value)});
  }
  /// Removes up to `count` elements from `index` on; an index outside the array does nothing.
  void RemoveAt(int index, int count = 1) {
    if (!Inside(index) || count <= 0) return;
    items_.erase(items_.begin() + index, items_.begin() + index + (std::min)(count, GetSize() - index));
  }

  const T* GetData() const noexcept { return Data(); }
  T* GetData() noexcept { return Data(); }
  const T* begin() const noexcept { return Data(); }
  const T* end() const noexcept { return Data() + items_.size(); }
  T* begin() noexcept { return Data(); }
  T* end() noexcept { return Data() + items_.size(); }

 private:
  // std::vector packs plain bools into bits, and a bit has no address.
  struct Wrapped {
    Wrapped() = default;
    explicit Wrapped(T wrapped) : value(wrapped) {}
    T value = T();
  };
  using Slot = std::conditional_t<std::is_same_v<T, bool>, Wrapped, T>;
  static_assert(sizeof(Slot) == sizeof(T));

  static std::size_t Count(int size) noexcept { return size > 0 ? static_cast<std::size_t>(size) : 0; }
  bool Inside(int index) const noexcept {
    return index >= 0 && static_cast<std::size_t>(index) < items_.size();
  }

  const T* Data() const noexcept { return reinterpret_cast<const T*>(items_.data()); }
  T* Data() noexcept { return reinterpret_cast<T*>(items_.data()); }
  T& Spare() const { return spare_ = T(); }

  std::vector<Slot> items_;
  mutable T spare_ = T();  // stands in for an element outside the array, empty again at each use
};

class CStringArray : public CArray<CString, const CString&> {};
