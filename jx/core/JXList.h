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
  JXList(std::initializer_list<T> elements)
      : elements_(std::make_shared<std::vector<T>>(elements)) {}
  /// A new list of copies of the elements.
  JXList(const std::vector<T>& elements) : elements_(std::make_shared<std::vector<T>>(elements)) {}

  bool isPresent() const noexcept { return elements_ != nullptr; }
  bool isSameAs(const JXList& other) const noexcept { return elements_ == other.elements_; }
  std::size_t size() const noexcept { return elements_ ? elements_->size() : 0; }

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

  auto begin() const noexcept { return elements().begin(); }
  auto end() const noexcept { return elements().end(); }
  const T& operator[](std::size_t index) const { return elements()[index]; }

 private:
  const std::vector<T>& elements() const noexcept {
    static const std::vector<T> none;
    return elements_ ? *elements_ : none;
  }

  std::shared_ptr<std::vector<T>> elements_;
};

}  // namespace jx
