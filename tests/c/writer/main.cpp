// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Prints the source of tests/c/EverySetter.h: C that calls what the headers below jx/c/events offer
// for each class and each field.
#include <iostream>
#include <set>
#include <string>

#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#include "tests/c/SampleValues.h"
#include "tools/catalogue/CSetters.h"

namespace {

using jx::JXFieldInfo;
using jx::JXFieldKind;
using jx::JXFieldTable;
using jx::catalogue::CClass;
using jx::catalogue::CSetter;

constexpr const char* kBegin = R"(/* Written by the build. */
#include "tests/c/EverySetter.h"

#include "jx/c/jx_events.h"

static int failures;
static jx_object* item;
static jx_object* product;

static void expect(jx_status status) { failures += status != JX_OK; }

static const char* const texts[] = {"one", 0, "three"};
static const char values[] = "[1,\"two\",{\"three\":3.0}]";

)";

constexpr const char* kEverySetter =
    R"(int every_setter(every_setter_visitor visitor, void* context) {
  failures = 0;
  expect(JXProduct_create(&product));
  expect(JXProduct_setID(product, "p1"));
  expect(JXProduct_setPrice(product, "3.390"));
  expect(JXItem_create(&item));
  expect(JXItem_setID(item, "i1"));
  expect(JXItem_setQuantity_integer(item, 2));
  expect(JXItem_setProduct(item, product));
)";

// What a setter takes behind the object.
std::string argumentsOf(const CClass& type, const JXFieldInfo& field, const CSetter& setter) {
  switch (field.kind) {
    case JXFieldKind::String:
      return jx::test::sampleJson(field);
    case JXFieldKind::Number:
      // The text comes last, so that it stays.
      return setter.calls == "jx_object_set_integer" ? "7" : "\"12.50\"";
    case JXFieldKind::Boolean:
      return "true";
    case JXFieldKind::Strings:
    case JXFieldKind::NumberedStrings:
      return "texts, 3";
    case JXFieldKind::Values:
      return "values";
    case JXFieldKind::Enumeration:
      return enumName(type, field) + "_" +
             std::string(field.enumStrings.members[field.enumStrings.count - 1]);
    case JXFieldKind::Items:
      return "item";
    case JXFieldKind::Product:
      return "product";
  }
  return {};
}

void printSetters(const CClass& type, const JXFieldTable* table) {
  if (table == nullptr) return;
  std::set<std::string> done;
  for (const JXFieldInfo& field : table->fields()) {
    if (!done.insert(std::string(field.property)).second) continue;
    const auto setters = settersOf(type, field);
    for (auto setter = setters.rbegin(); setter != setters.rend(); ++setter) {
      const std::string call =
          "  expect(" + setter->name + "(object, " + argumentsOf(type, field, *setter) + "));\n";
      if (field.kind == JXFieldKind::Items) {
        // Two items, because an append appends; the base may have appended some before.
        std::cout << "  expect(jx_object_set_null(object, " << type.name << "_" << field.property
                  << "));\n"
                  << call;
      }
      std::cout << call;
    }
  }
}

void printFields(const CClass& type) {
  std::cout << "static void fields_of_" << type.name << "(jx_object* object) {\n";
  if (type.event == nullptr) {
    printSetters(type, type.name == "JXItem" ? &jx::JXItem::fields() : &jx::JXProduct::fields());
  } else {
    if (type.event->base != nullptr) {
      std::cout << "  fields_of_" << type.event->base->className << "(object);\n";
    }
    printSetters(type, type.event->written);
    printSetters(type, type.event->unwritten);
  }
  std::cout << "  (void)object;\n}\n\n";
}

void printVisit(const CClass& type) {
  std::string arguments;
  if (type.event != nullptr && !type.event->modes.empty()) {
    arguments = type.name + "_Mode_" + std::string(type.event->modes.back()) + ", \"session\", ";
  } else if (takesName(type)) {
    arguments = "\"a custom name\", ";
  }
  std::cout << "  {\n    jx_object* object = 0;\n    expect(" << type.name << "_create("
            << arguments << "&object));\n    fields_of_" << type.name
            << "(object);\n    visitor(context, " << type.name
            << "_class, object);\n    expect(jx_object_free(object));\n  }\n";
}

}  // namespace

int main() {
  std::vector<CClass> classes = jx::catalogue::cEventClasses();
  classes.push_back({"JXItem", "item"});
  classes.push_back({"JXProduct", "product"});
  std::cout << kBegin;
  for (const CClass& type : classes)
    printFields(type);
  std::cout << kEverySetter;
  for (const CClass& type : classes)
    printVisit(type);
  std::cout << "  expect(jx_object_free(item));\n  expect(jx_object_free(product));\n"
               "  return failures;\n}\n";
  return 0;
}
