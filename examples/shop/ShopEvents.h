// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>

#include "jx/JXServerSide.h"

// Functions that create the events of the shop. A cart contains quantities by article.
using Cart = std::map<std::size_t, int>;

int centsOf(const Cart& cart);

std::shared_ptr<jx::JXEvent> pageEvent(const std::string& type, const std::string& name);
std::shared_ptr<jx::JXEvent> listEvent();
std::shared_ptr<jx::JXEvent> selectEvent(std::size_t article);
std::shared_ptr<jx::JXEvent> viewEvent(std::size_t article);
std::shared_ptr<jx::JXEvent> addEvent(std::size_t article);
std::shared_ptr<jx::JXEvent> removeEvent(std::size_t article, int quantity);
std::shared_ptr<jx::JXEvent> cartEvent(const Cart& cart);
std::shared_ptr<jx::JXEvent> checkoutEvent(const Cart& cart);
std::shared_ptr<jx::JXEvent> paymentEvent(const Cart& cart, std::string_view method);
std::shared_ptr<jx::JXEvent> purchaseEvent(const Cart& cart, std::string_view method,
                                           const std::string& orderId);
