// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace jx {

/// An ordered list that may be absent: a handle that shares its elements with its copies, so
/// `event->items().append(item)` extends the event's own list. An absent list holds nothing and
/// ignores what is appended. Not synchronised.
template <typename T>
class JXList {
 public:
  /// A new empty list.
  JXList() : elements_(std::make_shared<std::vector<T>>()) {}
  /// No list at all.
  JXList(std::nullptr_t) noexcept {}
  /// A new list of these elements.
  JXList(std::initializer_list<T> elements)
      : elements_(std::make_shared<std::vector<T>>(elements)) {}
  /// A new list of copies of the elements.
  JXList(const std::vector<T>& elements) : elements_(std::make_shared<std::vector<T>>(elements)) {}

  /// True when there is a list, the empty one included.
  bool isPresent() const noexcept { return elements_ != nullptr; }
  /// True when both handles share the same elements, or both are absent.
  bool isSameAs(const JXList& other) const noexcept { return elements_ == other.elements_; }
  /// How many elements there are; 0 when absent.
  std::size_t size() const noexcept { return elements_ ? elements_->size() : 0; }

  /// Adds the element behind the others; ignored by an absent list.
  void append(T element) const {
    if (elements_) elements_->push_back(std::move(element));
  }
  /// Appends every element of `other`; an absent list has none.
  void appendAll(const JXList& other) const {
    if (!elements_) return;
    // By position and count, so that a list can be appended to itself.
    const std::size_t count = other.size();
    for (std::size_t i = 0; i < count; ++i)
      append((*other.elements_)[i]);
  }

  /// The elements in order; valid until the list is extended.
  auto begin() const noexcept { return elements().begin(); }
  /// Behind the last element.
  auto end() const noexcept { return elements().end(); }
  /// The element at the index, which is below `size()`; valid until the list is extended.
  const T& operator[](std::size_t index) const { return elements()[index]; }

 private:
  const std::vector<T>& elements() const noexcept {
    static const std::vector<T> none;
    return elements_ ? *elements_ : none;
  }

  std::shared_ptr<std::vector<T>> elements_;
};

}  // namespace jx
