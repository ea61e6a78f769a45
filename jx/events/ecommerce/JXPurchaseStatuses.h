// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#pragma once

#include <string_view>

namespace jx {

/// @name Predefined strings for `status`
/// Any other string is allowed too. The spelling SHIPPE is historic and part of the interface.
/// @{
inline constexpr std::string_view EJXPurchaseStatus_CANCELED = "canceled";
inline constexpr std::string_view EJXPurchaseStatus_DELIVERED = "delivered";
inline constexpr std::string_view EJXPurchaseStatus_IN_PROGRESS = "in_progress";
inline constexpr std::string_view EJXPurchaseStatus_PARTIALLY_DELIVERED = "partially_delivered";
inline constexpr std::string_view EJXPurchaseStatus_PARTIALLY_RETURNED = "partially_returned";
inline constexpr std::string_view EJXPurchaseStatus_PARTIALLY_SHIPPED = "partially_shipped";
inline constexpr std::string_view EJXPurchaseStatus_PENDING_SHIPMENT = "pending_shipment";
inline constexpr std::string_view EJXPurchaseStatus_RETURNED = "returned";
inline constexpr std::string_view EJXPurchaseStatus_SHIPPE = "shipped";
inline constexpr std::string_view EJXPurchaseStatus_PENDING = "pending";
/// @}

}  // namespace jx
