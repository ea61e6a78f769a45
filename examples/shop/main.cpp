// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// A TV shop in a terminal. Each key acts like a key of a remote control and sends the events that a
// real application would send.
#include <iostream>
#include <string>

#include "Screen.h"
#include "Shop.h"
#include "Terminal.h"
#include "jx/JXServerSide.h"

namespace {

// Executes the events and returns their names.
std::string execute(jx::ServerSide& serverSide, const Shop::Events& events) {
  std::string names;
  for (const auto& event : events) {
    serverSide.execute(event);
    names += (names.empty() ? "" : ", ") + event->name().toStdString();
  }
  return names;
}

void run(jx::ServerSide& serverSide) {
  Shop shop;
  Terminal terminal;
  std::string sent;
  const auto update = [&](const Shop::Events& events) {
    const std::string names = execute(serverSide, events);
    if (!names.empty()) sent = names;
    if (terminal.drawsPages()) {
      Terminal::write(drawPage(shop, sent));
    } else if (!names.empty()) {
      Terminal::write(names + "\n");
    }
  };
  update(shop.start());
  while (!shop.hasEnded()) {
    Key key = Key::Quit;
    const Terminal::Input input = terminal.wait(shop.film().running, key);
    update(input == Terminal::Input::Second ? shop.second() : shop.press(key));
  }
}

}  // namespace

// shop [HOST [CA_FILE [STORAGE_FOLDER]]]
int main(int argc, char** argv) {
  jx::JXCoreConfiguration configuration;
  configuration.dryRun = argc < 2;  // nothing is sent without HOST
  if (argc > 1) configuration.collectionHost = argv[1];
  if (argc > 2) configuration.caFile = argv[2];
  if (argc > 3) configuration.storageFolder = argv[3];
  configuration.bundle.name = "Harbour TV";
  configuration.bundle.shortVersion = "1.0";
  configuration.logLevel = 0;  // log messages would overwrite the screen
  jx::JXCoreConfiguration::set(configuration);
  const auto serverSide = jx::ServerSide::initWithSiteID_andSourceKey(1, "source-key");

  run(*serverSide);
  if (configuration.dryRun) return 0;
  return jx::JXNetworkManager::sharedInstance().flush(std::chrono::seconds(5)) ? 0 : 1;
}
