// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#pragma once

#include <string_view>

namespace jx {

/// @name Predefined strings for `paymentMethod`
/// Any other string is allowed too. The spelling of the prefix is historic and part of the
/// interface.
/// @{
inline constexpr std::string_view EJXPayementMethod_BY_INVOICE = "by_invoice";
inline constexpr std::string_view EJXPayementMethod_BY_BANK_TRANSFER_IN_A =
    "by_bank_transfer_in_advance";
inline constexpr std::string_view EJXPayementMethod_CARD = "card";
inline constexpr std::string_view EJXPayementMethod_CHECK_IN_ADVANCE = "check_in_advance";
inline constexpr std::string_view EJXPayementMethod_COD = "cod";
inline constexpr std::string_view EJXPayementMethod_COUPON = "coupon";
inline constexpr std::string_view EJXPayementMethod_DIRECT_DEBIT = "direct_debit";
inline constexpr std::string_view EJXPayementMethod_ONLINE_PAYMENT_SYSTEM = "online_payment_system";
inline constexpr std::string_view EJXPayementMethod_OTHER = "other";
/// @}

}  // namespace jx
