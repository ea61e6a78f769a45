// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Calls that would lose a value or create an event of the wrong class do not compile.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include "jx/events/JXEventClasses.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"

namespace jx::test {
namespace {

template <typename Quantity, typename = void>
constexpr bool isItemQuantity = false;
template <typename Quantity>
constexpr bool
    isItemQuantity<Quantity, std::void_t<decltype(JXItem::initWithItemId_withProduct_withQuantity(
                                 "1", JXProduct::init(), std::declval<Quantity>()))>> = true;

static_assert(isItemQuantity<std::int32_t> && isItemQuantity<std::int16_t>);
static_assert(isItemQuantity<std::uint16_t> && isItemQuantity<std::int8_t>);
static_assert(!isItemQuantity<double> && !isItemQuantity<float> && !isItemQuantity<long double>);
static_assert(!isItemQuantity<std::int64_t> && !isItemQuantity<std::uint64_t>);
static_assert(!isItemQuantity<std::size_t> && !isItemQuantity<std::uint32_t>);

// A setter of an amount accepts exact numbers only.
template <typename Setter, typename Object>
constexpr bool acceptsExactNumbersOnly =
    std::is_invocable_v<Setter, Object&, JXDecimal>&& std::is_invocable_v<Setter, Object&, int>&&
        std::is_invocable_v<Setter, Object&, std::int64_t>&&
            std::is_invocable_v<Setter, Object&, std::uint64_t>&&
                std::is_invocable_v<Setter, Object&, std::nullopt_t> &&
    !std::is_invocable_v<Setter, Object&, double> && !std::is_invocable_v<Setter, Object&, float> &&
    !std::is_invocable_v<Setter, Object&, long double> &&
    !std::is_invocable_v<Setter, Object&, bool> && !std::is_invocable_v<Setter, Object&, char>;

static_assert(acceptsExactNumbersOnly<decltype(&JXItem::setQuantity), JXItem>);
static_assert(acceptsExactNumbersOnly<decltype(&JXItem::setDiscount), JXItem>);
static_assert(acceptsExactNumbersOnly<decltype(&JXItem::setList_position), JXItem>);
static_assert(acceptsExactNumbersOnly<decltype(&JXProduct::setPrice), JXProduct>);
static_assert(acceptsExactNumbersOnly<decltype(&JXPurchaseEvent::setRevenue), JXPurchaseEvent>);
static_assert(acceptsExactNumbersOnly<decltype(&JXPurchaseEvent::setValue), JXPurchaseEvent>);
static_assert(acceptsExactNumbersOnly<decltype(&JXVideoEvent::setTotalLength), JXVideoEvent>);
static_assert(acceptsExactNumbersOnly<decltype(&JXVideoEvent::setCursorPosition), JXVideoEvent>);
static_assert(acceptsExactNumbersOnly<decltype(&JXVideoAdEvent::setAdQuartile), JXVideoAdEvent>);

#ifdef __SIZEOF_INT128__
__extension__ using Wide = __int128;
static_assert(!std::is_constructible_v<JXDecimal, Wide>);
static_assert(!std::is_invocable_v<decltype(&JXItem::setQuantity), JXItem&, Wide>);
#endif

template <typename Event, typename = void>
constexpr bool hasInit = false;
template <typename Event>
constexpr bool hasInit<Event, std::void_t<decltype(Event::init())>> = true;

static_assert(!hasInit<JXCustomEvent> && !hasInit<JXVideoPlaybackEvent>);
static_assert(!hasInit<JXVideoAdEvent> && !hasInit<JXVideoContentEvent>);
static_assert(!hasInit<JXVideoSettingEvent>);
static_assert(hasInit<JXEvent> && hasInit<JXVideoEvent> && hasInit<JXECommerceEvent>);

// A class that inherited `init` would create an object of its base class.
template <typename Event>
constexpr bool initCreatesItsOwnClass =
    std::is_same_v<decltype(Event::init()), std::shared_ptr<Event>>;

static_assert(initCreatesItsOwnClass<JXEvent> && initCreatesItsOwnClass<JXECommerceEvent>);
static_assert(initCreatesItsOwnClass<JXPurchaseEvent> && initCreatesItsOwnClass<JXRefundEvent>);
static_assert(initCreatesItsOwnClass<JXAddToCartEvent> && initCreatesItsOwnClass<JXViewItem>);
static_assert(initCreatesItsOwnClass<JXRemoveFromCartEvent>);
static_assert(initCreatesItsOwnClass<JXViewCartEvent>);
static_assert(initCreatesItsOwnClass<JXAddToWishlistEvent>);
static_assert(initCreatesItsOwnClass<JXBeginCheckoutEvent>);
static_assert(initCreatesItsOwnClass<JXAddShippingInfoEvent>);
static_assert(initCreatesItsOwnClass<JXAddPaymentInfoEvent>);
static_assert(initCreatesItsOwnClass<JXPageViewEvent> && initCreatesItsOwnClass<JXSearchEvent>);
static_assert(initCreatesItsOwnClass<JXLoginEvent> && initCreatesItsOwnClass<JXSignUpEvent>);
static_assert(initCreatesItsOwnClass<JXGenerateLeadEvent>);
static_assert(initCreatesItsOwnClass<JXSelectContentEvent>);
static_assert(initCreatesItsOwnClass<JXSelectItemEvent>);
static_assert(initCreatesItsOwnClass<JXViewItemListEvent>);
static_assert(initCreatesItsOwnClass<JXVideoEvent>);

// The checks above fail at compile time; this test shows that they were compiled.
TEST(CompileTimeChecks, ItemQuantityAcceptsTheWholeRangeOfItsType) {
  const auto item =
      JXItem::initWithItemId_withProduct_withQuantity("1", nullptr, std::int32_t{-2147483647} - 1);
  EXPECT_EQ(item->quantity(), JXDecimal(std::int64_t{-2147483648}));
}

}  // namespace
}  // namespace jx::test
