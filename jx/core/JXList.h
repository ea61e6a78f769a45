// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
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
  JXList() noexcept = default;
  /// Creates a null list.
  JXList(std::nullptr_t) noexcept : isNull_(true) {}
  /// Creates a list of the given elements.
  JXList(std::initializer_list<T> elements) : JXList() { change().assign(elements); }
  /// Creates a list of copies of the given elements.
  JXList(const std::vector<T>& elements) : JXList() {
    change().assign(elements.begin(), elements.end());
  }

  /// Shares the elements, or both are null.
  JXList(const JXList& other) : block_(other.share()), isNull_(other.isNull_) {}
  /// Moves the list; `other` is null afterwards.
  JXList(JXList&& other) noexcept
      : block_(other.block_.exchange(nullptr)), isNull_(std::exchange(other.isNull_, true)) {}
  /// Replaces the list by a copy or by a moved list.
  JXList& operator=(JXList other) noexcept {
    block_ = other.block_.exchange(block_);
    std::swap(isNull_, other.isNull_);
    return *this;
  }
  /// Destroys the elements with their last handle.
  ~JXList() {
    Block* const block = block_.load(std::memory_order_relaxed);
    if (block != nullptr && block->references.fetch_sub(1) == 1) delete block;
  }

  /// Returns whether the list is not null; an empty list is not null.
  bool isPresent() const noexcept { return !isNull_; }
  /// Returns whether both handles share the same elements, or both are null.
  bool isSameAs(const JXList& other) const noexcept {
    if (this == &other || (isNull_ && other.isNull_)) return true;
    const Block* const block = block_;
    return block != nullptr && block == other.block_;
  }
  /// Returns the number of elements; 0 for a null list.
  std::size_t size() const noexcept { return elements().size(); }

  /// Appends an element; ignored when this list is null.
  void append(T element) const {
    if (!isNull_) change().push_back(std::move(element));
  }
  /// Appends every element of `other`; ignored when either list is null.
  void appendAll(const JXList& other) const {
    // By position and count, so that a list can be appended to itself.
    const std::size_t count = isNull_ ? 0 : other.size();
    for (std::size_t i = 0; i < count; ++i)
      append(other[i]);
  }

  /// Inserts an element before the one at `index`, or appends it if there is none; ignored when
  /// this list is null.
  void insert(std::size_t index, T element) const {
    if (!isNull_) change().insert(at(std::min(index, size())), std::move(element));
  }
  /// Removes the element at `index`. Returns false, without a change, if there is none.
  bool removeAt(std::size_t index) const {
    if (index >= size()) return false;
    change().erase(at(index));
    return true;
  }
  /// Removes all elements, for all handles that share them; a null list stays null.
  void clear() const {
    if (size() != 0) change().clear();
  }

  /// Iterates over the elements in order; valid until the list changes.
  auto begin() const noexcept { return elements().begin(); }
  /// Past-the-end iterator.
  auto end() const noexcept { return elements().end(); }
  /// Returns the element at `index`, which must be less than `size()`; valid until the list
  /// changes.
  const T& operator[](std::size_t index) const { return elements()[index]; }

 private:
  // Memory for the first elements, so that a short list needs one allocation.
  struct Room {
    static constexpr std::size_t kCount = 4;
    alignas(T) unsigned char bytes[kCount * sizeof(T)];
    bool isTaken = false;
  };

  // Takes the room if it suffices, otherwise other memory.
  template <typename Element>
  struct Allocator {
    using value_type = Element;

    explicit Allocator(Room* given) noexcept : room(given) {}
    template <typename Other>
    Allocator(const Allocator<Other>& other) noexcept : room(other.room) {}

    Element* allocate(std::size_t count) {
      if (room == nullptr || room->isTaken || count > Room::kCount)
        return std::allocator<Element>().allocate(count);
      room->isTaken = true;
      return reinterpret_cast<Element*>(room->bytes);
    }
    void deallocate(Element* elements, std::size_t count) noexcept {
      if (room == nullptr || static_cast<void*>(elements) != room->bytes)
        return std::allocator<Element>().deallocate(elements, count);
      room->isTaken = false;
    }
    friend bool operator==(const Allocator& a, const Allocator& b) noexcept {
      return a.room == b.room;
    }
    friend bool operator!=(const Allocator& a, const Allocator& b) noexcept { return !(a == b); }

    Room* room;
  };
  using Elements = std::vector<T, Allocator<T>>;

  // What the handles share.
  struct Block {
    Block() { elements.reserve(Room::kCount); }

    std::atomic<std::uint32_t> references{1};
    Room room;
    Elements elements{Allocator<T>(&room)};
  };

  const Elements& elements() const noexcept {
    static const Elements none{Allocator<T>(nullptr)};
    const Block* const block = block_.load(std::memory_order_acquire);
    return block != nullptr ? block->elements : none;
  }

  // Creates the block at the first change or copy. Several threads may copy one list.
  Block* block() const {
    Block* known = block_.load(std::memory_order_acquire);
    if (known != nullptr) return known;
    auto created = std::make_unique<Block>();
    return block_.compare_exchange_strong(known, created.get()) ? created.release() : known;
  }
  Elements& change() const { return block()->elements; }
  Block* share() const {
    if (isNull_) return nullptr;
    Block* const shared = block();
    shared->references.fetch_add(1, std::memory_order_relaxed);
    return shared;
  }

  typename Elements::iterator at(std::size_t index) const {
    return change().begin() + static_cast<std::ptrdiff_t>(index);
  }

  /// Null until the list is changed or copied, because most lists stay empty.
  mutable std::atomic<Block*> block_{nullptr};
  bool isNull_ = false;
};

}  // namespace jx
