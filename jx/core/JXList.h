// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace jx {

/// An ordered list that can be null. It is a handle: copies share their elements, so
/// `event->items().append(item)` extends the event's own list. A null list has no elements and
/// ignores changes. Not synchronised.
template <typename T>
class JXList {
 public:
  /// Creates an empty list.
  JXList() : elements_(std::make_shared<std::vector<T>>()) {}
  /// Creates a null list.
  JXList(std::nullptr_t) noexcept {}
  /// Creates a list of the given elements.
  JXList(std::initializer_list<T> elements)
      : elements_(std::make_shared<std::vector<T>>(elements)) {}
  /// Creates a list of copies of the given elements.
  JXList(const std::vector<T>& elements) : elements_(std::make_shared<std::vector<T>>(elements)) {}

  /// Returns whether the list is not null; an empty list is not null.
  bool isPresent() const noexcept { return elements_ != nullptr; }
  /// Returns whether both handles share the same elements, or both are null.
  bool isSameAs(const JXList& other) const noexcept { return elements_ == other.elements_; }
  /// Returns the number of elements; 0 for a null list.
  std::size_t size() const noexcept { return elements_ ? elements_->size() : 0; }

  /// Appends an element; ignored when this list is null.
  void append(T element) const {
    if (elements_) elements_->push_back(std::move(element));
  }
  /// Appends every element of `other`; ignored when either list is null.
  void appendAll(const JXList& other) const {
    if (!elements_) return;
    // By position and count, so that a list can be appended to itself.
    const std::size_t count = other.size();
    for (std::size_t i = 0; i < count; ++i)
      append((*other.elements_)[i]);
  }

  /// Inserts an element before the one at `index`, or appends it if there is none; ignored when
  /// this list is null.
  void insert(std::size_t index, T element) const {
    if (elements_) elements_->insert(at(std::min(index, size())), std::move(element));
  }
  /// Removes the element at `index`. Returns false, without a change, if there is none.
  bool removeAt(std::size_t index) const {
    if (index >= size()) return false;
    elements_->erase(at(index));
    return true;
  }
  /// Removes all elements, for all handles that share them; a null list stays null.
  void clear() const {
    if (elements_) elements_->clear();
  }

  /// Iterates over the elements in order; valid until the list changes.
  auto begin() const noexcept { return elements().begin(); }
  /// Past-the-end iterator.
  auto end() const noexcept { return elements().end(); }
  /// Returns the element at `index`, which must be less than `size()`; valid until the list
  /// changes.
  const T& operator[](std::size_t index) const { return elements()[index]; }

 private:
  const std::vector<T>& elements() const noexcept {
    static const std::vector<T> none;
    return elements_ ? *elements_ : none;
  }

  typename std::vector<T>::iterator at(std::size_t index) const {
    return elements_->begin() + static_cast<std::ptrdiff_t>(index);
  }

  std::shared_ptr<std::vector<T>> elements_;
};

}  // namespace jx
