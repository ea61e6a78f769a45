// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "jx/core/json/JXUtf8.h"
#include "jx/platform/linux/JXLanguageTags.h"
#include "jx/platform/linux/JXLinuxPlatform.h"
#include "jx/session/JXTextEncoding.h"
#include "tests/fuzz/Fuzz.h"

namespace jx::fuzz {
namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 20> kFiles{"etc/os-release",
                                             "usr/lib/os-release",
                                             "etc/timezone",
                                             "sys/firmware/devicetree/base/model",
                                             "sys/class/dmi/id/product_name",
                                             "sys/class/drm/card0-HDMI-A-1/status",
                                             "sys/class/drm/card0-HDMI-A-1/modes",
                                             "sys/class/drm/card1-DP-1/status",
                                             "sys/class/drm/card1-DP-1/modes",
                                             "sys/class/graphics/fb0/mode",
                                             "sys/class/graphics/fb0/virtual_size",
                                             "proc/net/route",
                                             "proc/net/ipv6_route",
                                             "sys/class/net/eth0/uevent",
                                             "sys/class/net/eth0/type",
                                             "sys/class/net/eth0/device",
                                             "sys/class/net/wwan0/uevent",
                                             "sys/class/net/wwan0/type",
                                             "usr/share/zoneinfo/Asia/Tokyo",
                                             "usr/share/zoneinfo/CET"};
constexpr std::array<const char*, 10> kVariables{
    "LANGUAGE", "LC_ALL", "LC_MESSAGES", "LC_MONETARY", "LC_CTYPE",
    "LANG",     "TZ",     "TZDIR",       "HOME",        "XDG_STATE_HOME"};
constexpr std::array<const char*, 6> kInterfaces{"lo", "eth0", "wlan0", "wwan0", "docker0", "tun0"};

const std::string& root() {
  static const std::string path = scratchFolder() + "/root";
  return path;
}

bool isAlnum(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

bool consistsOf(std::string_view text, std::string_view others) {
  return std::all_of(text.begin(), text.end(), [&](char c) {
    return isAlnum(c) || others.find(c) != std::string_view::npos;
  });
}

bool isTrimmed(std::string_view text) {
  return !text.empty() && static_cast<unsigned char>(text.front()) > ' ' &&
         static_cast<unsigned char>(text.back()) > ' ';
}

void requireSame(const JXString& found, const JXString& expected, const char* property) {
  require(found == expected, property, found.view(), expected.view());
}

// A system of which the input decides all files and variables.
struct System {
  JXLinuxSystem system;
  JXHostOverrides overrides;
  std::vector<JXNetworkInterface> interfaces;
};

void writeFiles(Input& input) {
  fs::remove_all(root());
  fs::create_directory(root());
  for (std::size_t count = input.byte() % 8u; count != 0 && !input.isEmpty(); --count) {
    const std::uint8_t which = input.byte();
    std::string content(input.bytes(input.byte()));
    // Longer than any limit of a value.
    if ((which & 64) != 0) content.resize(content.size() * 16, 'x');
    if (which % 32 < kFiles.size()) {
      const std::string path = root() + "/" + kFiles[which % 32];
      fs::create_directories(fs::path(path).parent_path());
      writeFile(path, content);
    } else if (const std::string target = content.substr(0, content.find('\0')); !target.empty()) {
      fs::create_directories(root() + "/etc");
      std::error_code ignored;  // the link exists
      fs::create_symlink(target, root() + "/etc/localtime", ignored);
    }
  }
}

System systemOf(Input& input) {
  System result;
  JXLinuxSystem& system = result.system;
  system.root = root();
  for (std::size_t count = input.byte() % 6u; count != 0 && !input.isEmpty(); --count) {
    const char* const name = kVariables[input.byte() % kVariables.size()];
    const std::string_view value = input.bytes(input.byte());
    system.environment[name] = JXString(value.substr(0, value.find('\0')));
  }
  const std::uint8_t locale = input.byte();
  system.installedLocale = [locale](const JXString& name) -> std::optional<JXInstalledLocale> {
    if (locale % 4 == 0) return findInstalledLocale(name);
    if (locale % 4 == 1) return std::nullopt;
    const JXString code = (locale & 4) != 0 ? JXString("EUR") : JXString();
    return JXInstalledLocale{(locale & 8) != 0 ? "ISO-8859-15" : "UTF-8", code,
                             (locale & 8) != 0 ? "\xA4" : "\xE2\x82\xAC"};
  };
  system.kernelNames = [] { return JXKernelNames{"Linux", "6.1.0", "x86_64"}; };
  for (std::size_t count = input.byte() % 4u; count != 0; --count) {
    const std::uint8_t form = input.byte();
    result.interfaces.push_back({kInterfaces[form % kInterfaces.size()], (form & 32) == 0,
                                 form % kInterfaces.size() == 0, (form & 64) == 0});
  }
  system.networkReading = [interfaces = result.interfaces] {
    return JXNetworkReading{interfaces, {}};
  };
  system.steadyNow = [] { return std::chrono::steady_clock::time_point(); };
  const std::string_view identifier = input.bytes(input.byte());
  if (!identifier.empty()) result.overrides.bundle.identifier = JXString(identifier);
  return result;
}

void checkZone(JXPlatform& platform) {
  const JXString zone = platform.timeZoneName();
  require(zone.testString() && zone.size() <= 64 && consistsOf(zone.view(), "/_-+"),
          "a zone name is short and has no dots", zone.view(), {});
  require(zone.view().front() != '/' && zone.view().back() != '/', "a zone name is not a path",
          zone.view(), {});
}

void checkLanguages(JXPlatform& platform) {
  const std::vector<JXString> languages = platform.preferredLanguages();
  require(languages.size() <= 16, "the number of languages is limited");
  std::set<std::string> different;
  for (const JXString& tag : languages) {
    require(tag.size() >= 2 && tag.size() <= 35 && consistsOf(tag.view(), "-"),
            "a language is a tag", tag.view(), {});
    requireSame(languageTag(tag.view()), tag, "a tag is the tag of itself");
    different.insert(tag.toStdString());
  }
  require(different.size() == languages.size(), "no language is repeated");
}

void checkLocale(JXPlatform& platform) {
  const JXString code = platform.currencyCode();
  const JXString symbol = platform.currencySymbol();
  require(code.isPresent() == symbol.isPresent(), "a currency has a code and a symbol", code.view(),
          symbol.view());
  require(!code.isPresent() || (code.size() == 3 && consistsOf(code.view(), "")),
          "a currency code has three letters", code.view(), {});
  require(isUtf8(symbol.view()), "a currency symbol is UTF-8", symbol.view(), code.view());
  require(!nameOfTextEncoding(platform.defaultEncoding()).empty(), "each encoding has a name");
}

void checkSystem(JXPlatform& platform) {
  for (const JXString& value : {platform.systemName(), platform.systemVersion()})
    require(isTrimmed(value.view()) && value.size() <= 256, "a system has a short name and version",
            value.view(), {});
  const JXString model = platform.deviceModel();
  require(!model.isPresent() || (isTrimmed(model.view()) && model.size() <= 256),
          "a model is a short string", model.view(), {});
  platform.requestUserAgent([](const JXString& userAgent) {
    require(userAgent.testString() && consistsOf(userAgent.view(), " /()._-+"),
            "a user agent has no special characters", userAgent.view(), {});
  });
  const JXScreenBounds screen = platform.screenBounds();
  const auto isSide = [](double side) { return side >= 1 && side <= 99'999; };
  require(
      (screen.width == 0 && screen.height == 0) || (isSide(screen.width) && isSide(screen.height)),
      "a screen has two sides or none");
}

void checkNetwork(JXPlatform& platform, const std::vector<JXNetworkInterface>& interfaces) {
  const auto isUsable = [](const JXNetworkInterface& each) {
    return each.isUp && !each.isLoopback && each.hasAddress;
  };
  const bool isConnected = std::any_of(
      interfaces.begin(), interfaces.end(),
      [&](const JXNetworkInterface& each) { return isUsable(each) && each.name != "docker0"; });
  const JXNetworkKind kind = platform.networkKind();
  require(!isConnected || kind != JXNetworkKind::None, "a connected interface is a connection");
  require(
      kind == JXNetworkKind::None || std::any_of(interfaces.begin(), interfaces.end(), isUsable),
      "a connection has an interface");
}

void checkFolder(JXPlatform& platform, const System& system) {
  const JXString folder = platform.defaultStorageFolder();
  if (!folder.isPresent()) return;
  require(folder.view().front() == '/' && folder.size() < 4'000, "a folder is an absolute path",
          folder.view(), {});
  const std::string_view name = folder.view().substr(folder.view().rfind('/') + 1);
  require(!name.empty() && name.front() != '.' && consistsOf(name, "._-"),
          "an identifier is one folder", name, system.overrides.bundle.identifier.view());
}

// Expects a value that is written by the rules of the file to be read unchanged.
void checkRelease(std::string_view value) {
  std::string quoted;
  std::string expected;
  for (const char c : value.substr(0, 256)) {
    if (static_cast<unsigned char>(c) < ' ' || c == 0x7F) continue;
    if (std::string_view("\"\\$`").find(c) != std::string_view::npos) quoted += '\\';
    quoted += c;
    expected += c;
  }
  const auto first = expected.find_first_not_of(' ');
  if (first == std::string::npos) return;
  expected = expected.substr(first, expected.find_last_not_of(' ') + 1 - first);
  fs::create_directories(root() + "/etc");
  writeFile(root() + "/etc/os-release",
            "ID=x\nNAME=\"" + quoted + "\"\n# VERSION_ID=1\nVERSION_ID='2'\n");
  const JXOsRelease release = readOsRelease(root(), {});
  requireSame(release.name, JXString(expected), "a quoted value is read unchanged");
  requireSame(release.version, JXString("2"), "comments are not values");
}

void check(Input input) {
  writeFiles(input);
  const System system = systemOf(input);
  JXLinuxPlatform platform(system.overrides, system.system);
  checkZone(platform);
  checkLanguages(platform);
  checkLocale(platform);
  checkSystem(platform);
  checkNetwork(platform, system.interfaces);
  checkFolder(platform, system);
  checkRelease(input.rest());
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::check({data, size});
  return 0;
}
