// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/catalogue/CHeaders.h"

#include <string_view>
#include <vector>

#include "jx/events/JXEventClass.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"
#include "tools/catalogue/CNames.h"
#include "tools/catalogue/CSetters.h"
#include "tools/catalogue/CText.h"
#include "tools/catalogue/ClassComment.h"

namespace jx::catalogue {
namespace {

constexpr std::string_view kFolder = "jx/c/events/";

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string enumeration(const std::string& name, const std::string& description,
                        const std::vector<std::string_view>& enumerators,
                        const std::vector<std::string_view>& strings) {
  std::string text = comment(description) + "typedef enum " + name + " {\n";
  for (std::size_t i = 0; i < enumerators.size(); ++i) {
    text += "  " + name + "_" + std::string(enumerators[i]) + " = " + std::to_string(i) +
            (i + 1 < enumerators.size() ? "," : "") + "  ///< " + quoted(strings[i]) + "\n";
  }
  return text + "} " + name + ";\n\n";
}

std::string creation(const CClass& type) {
  const std::string name = type.name + "_create";
  const std::string out = "jx_object** " + type.handle;
  const std::string article = type.handle == "product" ? "a " : "an ";
  const std::string description = "Creates " + article + type.handle + " in `*" + type.handle +
                                  "`; free it with `jx_object_free`.";
  if (type.event == nullptr) {
    return comment(description) +
           function(name, {out}, "jx_" + type.handle + "_create", {type.handle});
  }
  if (!type.event->modes.empty()) {
    return comment(description + " `mode` determines its name; `session_id` may be null.") +
           function(name, {type.name + "_Mode mode", "const char* session_id", out},
                    "jx_event_create_with_mode",
                    {quoted(type.name), "mode", "session_id", type.handle});
  }
  if (takesName(type)) {
    return comment(description + " `name` may be null.") + function(name, {"const char* name", out},
                                                                    "jx_custom_event_create",
                                                                    {"name", type.handle});
  }
  return comment(description) +
         function(name, {out}, "jx_event_create", {quoted(type.name), type.handle});
}

std::string fieldText(const CClass& type, const JXFieldInfo& field, bool isWritten) {
  const std::string name = type.name + "_" + std::string(field.property);
  std::string text;
  if (field.kind == JXFieldKind::Enumeration) {
    text += enumeration(enumName(type, field), "Values of `" + std::string(field.property) + "`.",
                        field.enumStrings.allEnumerators(), field.enumStrings.allStrings());
  }
  const bool isNumbered = field.kind == JXFieldKind::NumberedStrings;
  text += comment("Property `" + std::string(field.property) + "`, JSON key \"" +
                  std::string(field.key) + (isNumbered ? "1\" and so on" : "\"") +
                  (isWritten ? "." : "; written only by derived classes that have this key."));
  text += "#define " + name + " " + quoted(type.name + "." + std::string(field.property)) + "\n";
  for (const CSetter& setter : settersOf(type, field)) {
    std::vector<std::string> parameters{"jx_object* " + type.handle};
    parameters.insert(parameters.end(), setter.parameters.begin(), setter.parameters.end());
    std::vector<std::string> arguments{type.handle, name};
    arguments.insert(arguments.end(), setter.arguments.begin(), setter.arguments.end());
    text +=
        comment(setter.description) + function(setter.name, parameters, setter.calls, arguments);
  }
  return text + "\n";
}

std::string tableText(const CClass& type, const JXFieldTable* table, bool isWritten) {
  std::string text;
  if (table == nullptr) return text;
  const auto& fields = table->fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    // A table may list a field twice; it needs only one setter.
    if (table->findProperty(fields[i].property) == i) text += fieldText(type, fields[i], isWritten);
  }
  return text;
}

std::string header(const CClass& type, const std::string& description, const std::string& fields) {
  std::string text = opening("JX_C_EVENTS_" + type.name + "_H", {"jx/c/jx_object.h"});
  std::string complete = description;
  if (type.event != nullptr && type.event->base != nullptr) {
    complete += " Also has the fields of " + std::string(type.event->base->className) + ".";
  }
  text += comment(complete) + "#define " + type.name + "_class " + quoted(type.name) + "\n\n";
  if (type.event != nullptr && !type.event->modes.empty()) {
    text += enumeration(type.name + "_Mode", "Modes, with the event name of each.",
                        type.event->modes, type.event->eventNames);
  }
  return text + creation(type) + "\n" + fields + closing();
}

}  // namespace

std::map<std::string, std::string> cHeaders(const std::string& sourceFolder) {
  std::map<std::string, std::string> files;
  const auto add = [&](const CClass& type, const std::string& fields) {
    files[std::string(kFolder) + type.name + ".h"] =
        header(type, commentOfClass(sourceFolder, type.name).text, fields);
  };
  for (const CClass& type : cEventClasses()) {
    add(type,
        tableText(type, type.event->written, true) + tableText(type, type.event->unwritten, false));
  }
  const CClass item{"JXItem", "item"};
  add(item, tableText(item, &JXItem::fields(), true));
  const CClass product{"JXProduct", "product"};
  add(product, tableText(product, &JXProduct::fields(), true));
  files[std::string(kFolder) + "jx_names.h"] = namesHeader(sourceFolder);

  std::vector<std::string> all;
  all.reserve(files.size());
  for (const auto& [path, text] : files)
    all.push_back(path);
  files["jx/c/jx_events.h"] =
      opening("JX_C_JX_EVENTS_H", all, false) +
      comment("Includes the headers of all classes, fields and names of the event catalogue.") +
      "\n#endif\n";
  return files;
}

}  // namespace jx::catalogue
