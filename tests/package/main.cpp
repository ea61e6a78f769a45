// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Tests the binary interface of the library: types that are used on both sides, virtual calls in
// both directions, and templates of the headers that are instantiated for a class of the
// application.
#include <iostream>
#include <typeinfo>

#include "jx/JXServerSide.h"
#include "jx/core/json/JXJsonReader.h"

namespace {

class RatingEvent final : public jx::JXEvent {
 public:
  static std::shared_ptr<RatingEvent> init() { return std::make_shared<RatingEvent>(); }
  static const jx::JXEventClass& eventClass() {
    static const auto& type = jx::JXEventClass::of<RatingEvent>(
        jx::JXEvent::eventClass(), "RatingEvent", {"rating"},
        {{"stars", "stars", &RatingEvent::stars_}}, {jx::nonEmptyString("stars")});
    return type;
  }
  const jx::JXEventClass& ownEventClass() const override { return eventClass(); }

  RatingEvent() { setName("rating"); }
  void setStars(jx::JXDecimal value) { stars_ = value; }

 private:
  std::optional<jx::JXDecimal> stars_;
};

class NineOClock final : public jx::JXClock {
 public:
  std::int64_t nowMs() const override { return 1'764'579'600'000; }
};

class Listener final : public jx::IJXEventListenerDelegate {
 public:
  Listener() {
    listener_->setParent(this);
    listener_->listen(jx::kJXNotification_HTTPRequest);
  }
  std::shared_ptr<jx::JXEventListener> listenerDelegate() const override { return listener_; }
  void onNotificationReceived(const jx::JXNotification& notification) override {
    const jx::JXString body = notification.userInfo.get(jx::kJXUserInfo_POSTData).string();
    const jx::JXJsonObject sent = jx::JXJsonReader::read(body.view()).value.object();
    std::cout << sent.get("event_name").string() << ' ' << sent.get("stars").numberString()
              << " at " << sent.get("context").object().get("event_timestamp").numberString()
              << '\n';
  }

 private:
  std::shared_ptr<jx::JXEventListener> listener_ = jx::JXEventListener::init();
};

}  // namespace

int main() {
  std::cout << JX_VERSION_STRING << '\n';
  const jx::JXEventClass* named = jx::eventClassNamed("JXPurchaseEvent");
  const std::shared_ptr<jx::JXEvent> made = named->create(0, nullptr);
  const jx::JXEvent& event = *made;
  std::cout << (dynamic_cast<const jx::JXECommerceEvent*>(made.get()) != nullptr)
            << (typeid(event) == typeid(jx::JXPurchaseEvent))
            << (dynamic_cast<const jx::JXSearchEvent*>(made.get()) != nullptr) << '\n';

  jx::JXCoreConfiguration configuration;
  configuration.dryRun = true;
  configuration.clock = std::make_shared<NineOClock>();
  configuration.logSink = [](int, std::string_view line) { std::cout << line << '\n'; };
  jx::JXCoreConfiguration::set(configuration);
  const auto serverSide = jx::ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour(
      1, "source-key", jx::EJXDefaultBehaviour_ALWAYS_ENABLED);

  const Listener listener;
  const auto rating = RatingEvent::init();
  std::cout << rating->firstFailedCondition() << '\n';
  rating->setStars(jx::JXDecimal::fromString("4.50"));
  serverSide->execute(rating);
}
