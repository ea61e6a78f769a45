// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Tests that freed, null and mismatched handles are reported and never dereferenced.

#include "jx/c/internal/JXHandles.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <thread>
#include <vector>

#include "jx/c/jx.h"
#include "tests/c/CTestTools.h"

namespace jx::test {
namespace {

void ignore(void*, const char*, const char*) {}

jx_status statusOf(const JXHandles& handles, const void* handle,
                   JXHandleKind kind = JXHandleKind::Object) {
  std::shared_ptr<void> found;
  return handles.find(handle, kind, found);
}

TEST(CHandles, RejectsFreedHandlesAfterNewOnesAreCreated) {
  eventPlatform();
  jx_object* first = nullptr;
  ASSERT_EQ(jx_item_create(&first), JX_OK);
  ASSERT_EQ(jx_object_free(first), JX_OK);
  std::vector<Object> later;
  for (int i = 0; i < 1000; ++i)
    later.push_back(makeProduct("p", "1"));
  EXPECT_EQ(jx_object_free(first), JX_ERROR_DEAD_HANDLE);
  EXPECT_EQ(jx_object_set_string(first, "ID", "1"), JX_ERROR_DEAD_HANDLE);
  EXPECT_EQ(jx_object_verify(first), JX_ERROR_DEAD_HANDLE);
  EXPECT_EQ(jx_object_class(first), nullptr);
  EXPECT_STREQ(jx_error_detail(), "handle was freed or is invalid");
}

TEST(CHandles, FreesEveryTypeOfHandleOnce) {
  eventPlatform();
  jx_observer* observer = nullptr;
  ASSERT_EQ(jx_observer_create("name", &ignore, nullptr, &observer), JX_OK);
  EXPECT_EQ(jx_observer_free(observer), JX_OK);
  EXPECT_EQ(jx_observer_free(observer), JX_ERROR_DEAD_HANDLE);
  jx_server_side* serverSide = nullptr;
  ASSERT_EQ(jx_server_side_create(1, "key", JX_BEHAVIOUR_DEFAULT, nullptr, &serverSide), JX_OK);
  EXPECT_EQ(jx_server_side_free(serverSide), JX_OK);
  EXPECT_EQ(jx_server_side_free(serverSide), JX_ERROR_DEAD_HANDLE);
  EXPECT_EQ(jx_enable(serverSide), JX_ERROR_DEAD_HANDLE);
}

TEST(CHandles, RejectsHandlesOfAnotherType) {
  eventPlatform();
  const Object item = makeItem("1", 1, nullptr);
  auto* const asServerSide = reinterpret_cast<jx_server_side*>(item.get());
  EXPECT_EQ(jx_enable(asServerSide), JX_ERROR_WRONG_HANDLE);
  EXPECT_EQ(jx_server_side_free(asServerSide), JX_ERROR_WRONG_HANDLE);
  EXPECT_EQ(jx_observer_free(reinterpret_cast<jx_observer*>(item.get())), JX_ERROR_WRONG_HANDLE);
  EXPECT_STREQ(jx_object_class(item.get()), "JXItem");
}

TEST(CHandles, RejectsOtherPointers) {
  int something = 0;
  EXPECT_EQ(jx_object_free(reinterpret_cast<jx_object*>(&something)), JX_ERROR_DEAD_HANDLE);
  for (const std::uintptr_t bits :
       {std::uintptr_t{1}, std::uintptr_t{1} << 32, std::numeric_limits<std::uintptr_t>::max()}) {
    EXPECT_EQ(jx_object_free(reinterpret_cast<jx_object*>(bits)), JX_ERROR_DEAD_HANDLE) << bits;
  }
}

TEST(CHandles, IgnoresFreeingNull) {
  EXPECT_EQ(jx_object_free(nullptr), JX_OK);
  EXPECT_EQ(jx_server_side_free(nullptr), JX_OK);
  EXPECT_EQ(jx_observer_free(nullptr), JX_OK);
}

TEST(CHandles, CountsLiveHandles) {
  eventPlatform();
  EXPECT_EQ(jx_handle_count(), 0u);
  {
    const Object product = makeProduct("p", "1");
    const Object item = makeItem("1", 1, product.get());
    EXPECT_EQ(jx_handle_count(), 2u);
  }
  EXPECT_EQ(jx_handle_count(), 0u);
}

TEST(CHandles, NeverReusesHandles) {
  // One bit for the slot and two for the use count: three handles per slot, and two slots.
  JXHandles handles(std::numeric_limits<std::uintptr_t>::digits - 2);
  std::set<void*> handlesReturned;
  for (int i = 0; i < 3; ++i) {
    void* const handle = handles.add(JXHandleKind::Object, std::make_shared<int>(i));
    ASSERT_NE(handle, nullptr);
    EXPECT_TRUE(handlesReturned.insert(handle).second);
    std::shared_ptr<void> object;
    EXPECT_EQ(handles.remove(handle, JXHandleKind::Object, object), JX_OK);
    EXPECT_EQ(*static_cast<int*>(object.get()), i);
  }
  void* const next = handles.add(JXHandleKind::Object, std::make_shared<int>(3));
  EXPECT_TRUE(
      handlesReturned.insert(next).second);  // in another slot, because the first is exhausted
  for (void* const handle : handlesReturned)
    EXPECT_EQ(statusOf(handles, handle), handle == next ? JX_OK : JX_ERROR_DEAD_HANDLE);
}

TEST(CHandles, ReturnsNullWithoutAFreeSlot) {
  JXHandles handles(1);
  std::vector<void*> created;
  for (int i = 0; i < 2; ++i)
    created.push_back(handles.add(JXHandleKind::Object, std::make_shared<int>(i)));
  EXPECT_EQ(handles.add(JXHandleKind::Object, std::make_shared<int>(2)), nullptr);
  EXPECT_EQ(handles.count(), 2u);
  std::shared_ptr<void> object;
  EXPECT_EQ(handles.remove(created[0], JXHandleKind::Object, object), JX_OK);
  EXPECT_NE(handles.add(JXHandleKind::Object, std::make_shared<int>(2)), nullptr);
}

TEST(CHandles, AreSafeOnManyThreads) {
  JXHandles handles(8);
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&handles] {
      for (int i = 0; i < 1000; ++i) {
        void* const handle = handles.add(JXHandleKind::Object, std::make_shared<int>(i));
        EXPECT_EQ(statusOf(handles, handle), JX_OK);
        EXPECT_EQ(statusOf(handles, handle, JXHandleKind::Observer), JX_ERROR_WRONG_HANDLE);
        std::shared_ptr<void> object;
        EXPECT_EQ(handles.remove(handle, JXHandleKind::Object, object), JX_OK);
        EXPECT_EQ(*static_cast<int*>(object.get()), i);
        EXPECT_EQ(statusOf(handles, handle), JX_ERROR_DEAD_HANDLE);
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(handles.count(), 0u);
}

}  // namespace
}  // namespace jx::test
