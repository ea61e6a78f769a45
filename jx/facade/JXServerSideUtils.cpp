// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXServerSideUtils.h"

#include <string>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXUtils.h"

namespace jx {
namespace {

constexpr std::string_view kFirebaseItemId = "item_id";
constexpr std::string_view kFirebaseItemName = "item_name";
constexpr std::string_view kItemPrefix = "jx_item_";
constexpr std::string_view kProductPrefix = "jx_product_";
constexpr std::string_view kIndex = "index";

std::string prefixed(std::string_view prefix, const JXString& key) {
  return std::string(prefix).append(key.view());
}

JXJsonObject flatItem(const JXJsonObject& item) {
  JXJsonObject flat;
  for (const JXJsonEntry& entry : item.entries()) {
    if (entry.key.view() == JXI_PRODUCT) {
      JXServerSideUtils::productToDict_into(entry.value.object(), flat);
    } else if (entry.key.view() == JX_ID) {
      JXServerSideUtils::setProperty_forKey_intoPropertiesDict(entry.value, kFirebaseItemId, flat);
    } else {
      JXServerSideUtils::setProperty_forKey_intoPropertiesDict(
          entry.value, prefixed(kItemPrefix, entry.key), flat);
    }
  }
  return flat;
}

}  // namespace

JXJsonObject JXServerSideUtils::eventPropertiesToDictionary(const JXEvent& event) {
  JXJsonObject properties = event.getJsonObject().mutableCopy();
  properties.remove(JXE_CONTEXT);
  properties.remove(JXE_USER);
  JXJsonObject result;
  for (const JXJsonEntry& entry : properties.entries()) {
    if (entry.key.view() == JXE_ITEMS) {
      result.set(JXE_ITEMS, itemsToDict(properties));
    } else {
      setProperty_forKey_intoPropertiesDict(entry.value, entry.key.view(), result);
    }
  }
  return result;
}

JXJsonArray JXServerSideUtils::itemsToDict(const JXJsonObject& dict) {
  JXJsonArray result;
  int index = 0;
  for (const JXJsonValue& item : dict.get(JXE_ITEMS).array().values()) {
    JXJsonObject flat = flatItem(item.object());
    flat.set(kIndex, index);
    ++index;
    result.append(flat);
  }
  return result;
}

void JXServerSideUtils::productToDict_into(const JXJsonObject& product, JXJsonObject& target) {
  for (const JXJsonEntry& entry : product.entries()) {
    if (entry.key.view() == JXP_NAME) {
      setProperty_forKey_intoPropertiesDict(entry.value, kFirebaseItemName, target);
    } else {
      // The product's "id" is prefixed too, because "item_id" is the item's own.
      setProperty_forKey_intoPropertiesDict(entry.value, prefixed(kProductPrefix, entry.key),
                                            target);
    }
  }
  target.remove(JXI_PRODUCT);
}

void JXServerSideUtils::setProperty_forKey_intoPropertiesDict(const JXJsonValue& value,
                                                              std::string_view key,
                                                              JXJsonObject& dict) {
  if (value.kind() == JXJsonValue::Kind::Object) {
    dict.set(key, JXUtils::jsonDictionaryToString(value.object()));
  } else {
    dict.set(key, value);
  }
}

}  // namespace jx
