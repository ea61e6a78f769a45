// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// An application with a consent module. Commands on standard input represent the viewer's actions
// and decisions; each opened page prints the data that is sent for it.
#include <iostream>
#include <string>

#include "MobileConsent.h"
#include "jx/JXServerSide.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/core/notifications/JXNotificationCenter.h"

namespace {

// Returns the user block of a request: an object, or the marker that consent is pending.
std::string userBlock(const jx::JXNotification& request) {
  const jx::JXString body = request.userInfo.get(jx::kJXUserInfo_POSTData).string();
  const jx::JXJsonValue user = jx::JXJsonReader::read(body.view()).value.object().get(jx::JXE_USER);
  if (user.string().isPresent()) return user.string().toStdString();
  return jx::JXJsonWriter::write(user.object(), jx::JXJsonStyle::Compact).text;
}

void open(jx::ServerSide& serverSide, const std::string& page) {
  std::string sent = "nothing is sent";
  const auto center = jx::JXNotificationCenter::defaultCenter();
  center->addObserver(&sent, jx::kJXNotification_HTTPRequest,
                      [&sent](const jx::JXNotification& request) { sent = userBlock(request); });
  const auto event = jx::JXPageViewEvent::initWithType("page");
  event->setPageName(page);
  serverSide.execute(event);
  center->removeObserver(&sent);
  std::cout << page << ": " << sent << std::endl;
}

std::string toString(MobileConsent::Decision decision) {
  switch (decision) {
    case MobileConsent::Decision::Agreed:
      return "agreed";
    case MobileConsent::Decision::Refused:
      return "refused";
    case MobileConsent::Decision::Open:
      break;
  }
  return "open";
}

}  // namespace

// consent STATE_FOLDER [HOST [CA_FILE]]
int main(int argc, char** argv) {
  if (argc < 2) {
    std::cerr << "usage: consent STATE_FOLDER [HOST [CA_FILE]]\n";
    return 2;
  }
  const std::string folder = argv[1];
  jx::JXCoreConfiguration configuration;
  configuration.storageFolder = folder;
  configuration.dryRun = argc < 3;
  if (argc > 2) configuration.collectionHost = argv[2];
  if (argc > 3) configuration.caFile = argv[3];
  jx::JXCoreConfiguration::set(configuration);

  MobileConsent consent(folder + "/consent");
  const auto serverSide = jx::ServerSide::initWithSiteID_andSourceKey(1, "source-key");
  consent.start();

  std::cout << "May we collect usage data? (agree, refuse, open PAGE) Decision: "
            << toString(consent.decision()) << std::endl;
  std::string word;
  while (std::cin >> word) {
    if (word == "agree") consent.agree();
    if (word == "refuse") consent.refuse();
    if (word == "open" && std::cin >> word) open(*serverSide, word);
  }
  if (configuration.dryRun || consent.decision() == MobileConsent::Decision::Refused) return 0;
  return jx::JXNetworkManager::sharedInstance().flush(std::chrono::seconds(5)) ? 0 : 1;
}
