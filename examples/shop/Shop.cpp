// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "Shop.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

#include "Catalogue.h"
#include "ShopEvents.h"

namespace {

struct PageName {
  const char* type;
  const char* name;
};

// Indexed by Page.
constexpr PageName kPageNames[] = {
    {"landing", "home"},   {"list", "catalogue"},   {"article", "article"},
    {"checkout", "cart"},  {"checkout", "payment"}, {"confirmation", "thanks"},
    {"player", "trailer"},
};

struct Method {
  const char* label;
  std::string_view method;
};
constexpr Method kMethods[] = {{"Card", jx::EJXPayementMethod_CARD},
                               {"Invoice", jx::EJXPayementMethod_BY_INVOICE},
                               {"Direct debit", jx::EJXPayementMethod_DIRECT_DEBIT}};

constexpr int kSeekStep = 10;

// Sufficiently unique for orders and video sessions of an example.
std::string newId(const std::string& prefix) {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return prefix +
         std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

}  // namespace

Shop::Events Shop::start() {
  show(Page::Home);
  return std::exchange(events_, {});
}

Shop::Events Shop::press(Key key) {
  switch (key) {
    case Key::Up:
      choose(-1);
      break;
    case Key::Down:
      choose(1);
      break;
    case Key::Left:
      if (page_ == Page::Player) seek(-kSeekStep);
      if (page_ == Page::Cart) removeFromCart();
      break;
    case Key::Right:
      if (page_ == Page::Player) seek(kSeekStep);
      break;
    case Key::Ok:
      confirm();
      break;
    case Key::Play:
      if (page_ == Page::Player) play();
      break;
    case Key::Back:
      back();
      break;
    case Key::Quit:
      stop();
      ended_ = true;
      break;
  }
  return std::exchange(events_, {});
}

std::vector<Line> Shop::lines() const {
  std::vector<Line> lines;
  if (page_ == Page::Home) return {{"Shop"}, {"Cart"}, {"Trailer"}, {"Leave"}};
  if (page_ == Page::Catalogue) {
    for (const Article& each : articles())
      lines.push_back({each.name, each.cents});
  }
  if (page_ == Page::Cart) {
    for (const auto& [article, quantity] : cart_)
      lines.push_back({std::to_string(quantity) + " x " + articles()[article].name,
                       articles()[article].cents * quantity});
  }
  if (page_ == Page::Payment) {
    for (const Method& each : kMethods)
      lines.push_back({each.label});
  }
  return lines;
}

int Shop::cartCount() const {
  int count = 0;
  for (const auto& line : cart_)
    count += line.second;
  return count;
}

int Shop::cartCents() const { return centsOf(cart_); }

void Shop::show(Page page) {
  page_ = page;
  chosen_ = 0;
  const PageName& name = kPageNames[static_cast<std::size_t>(page)];
  const bool isArticle = page == Page::Article;
  send(pageEvent(name.type, isArticle ? articles()[article_].name : name.name));
  if (page == Page::Catalogue) send(listEvent());
  if (isArticle) send(viewEvent(article_));
  if (page == Page::Cart && !cart_.empty()) send(cartEvent(cart_));
}

void Shop::back() {
  stop();
  if (page_ == Page::Article) {
    show(Page::Catalogue);
    chosen_ = article_;
  } else if (page_ == Page::Payment) {
    show(Page::Cart);
  } else if (page_ != Page::Home) {
    show(Page::Home);
  }
}

void Shop::choose(int step) {
  const auto count = static_cast<int>(lines().size());
  if (count == 0) return;
  chosen_ = static_cast<std::size_t>((static_cast<int>(chosen_) + count + step) % count);
}

void Shop::confirm() {
  switch (page_) {
    case Page::Home:
      if (chosen_ == 3) {
        ended_ = true;
      } else {
        constexpr Page kTargets[] = {Page::Catalogue, Page::Cart, Page::Player};
        show(kTargets[chosen_]);
        if (page_ == Page::Player) play();
      }
      break;
    case Page::Catalogue:
      article_ = chosen_;
      send(selectEvent(article_));
      show(Page::Article);
      break;
    case Page::Article:
      addToCart();
      break;
    case Page::Cart:
      if (cart_.empty()) break;
      send(checkoutEvent(cart_));
      show(Page::Payment);
      break;
    case Page::Payment:
      pay();
      break;
    case Page::Thanks:
      show(Page::Home);
      break;
    case Page::Player:
      play();
      break;
  }
}

void Shop::addToCart() {
  ++cart_[article_];
  send(addEvent(article_));
}

void Shop::removeFromCart() {
  if (cart_.empty()) return;
  const auto line = std::next(cart_.begin(), static_cast<std::ptrdiff_t>(chosen_));
  send(removeEvent(line->first, line->second));
  cart_.erase(line);
  chosen_ = std::min(chosen_, cart_.empty() ? 0 : cart_.size() - 1);
}

void Shop::pay() {
  const std::string_view method = kMethods[chosen_].method;
  orderId_ = newId("A-");
  send(paymentEvent(cart_, method));
  send(purchaseEvent(cart_, method, orderId_));
  cart_.clear();
  show(Page::Thanks);
}

void Shop::play() {
  film_.running = !film_.running;
  if (film_.running && film_.session.empty()) {
    film_.session = newId("trailer-");
    sendVideo(jx::EJXVideoPlaybackMode_START);
  } else {
    sendVideo(film_.running ? jx::EJXVideoPlaybackMode_RESUME : jx::EJXVideoPlaybackMode_PAUSE);
  }
}

Shop::Events Shop::second() {
  if (film_.running && ++film_.position >= kFilmLength) {
    sendVideo(jx::EJXVideoPlaybackMode_COMPLETE);
    film_ = {};
  }
  return std::exchange(events_, {});
}

void Shop::seek(int seconds) {
  if (film_.session.empty()) return;
  const int target = std::clamp(film_.position + seconds, 0, kFilmLength);
  sendVideo(jx::EJXVideoPlaybackMode_SEEK_START, target);
  film_.position = target;
  sendVideo(jx::EJXVideoPlaybackMode_SEEK_COMPLETE, target);
  if (target < kFilmLength) return;
  sendVideo(jx::EJXVideoPlaybackMode_COMPLETE);
  film_ = {};
}

// Sends a pause for a film that is left before its end.
void Shop::stop() {
  if (film_.running) sendVideo(jx::EJXVideoPlaybackMode_PAUSE);
  film_ = {};
}

void Shop::sendVideo(jx::EJXVideoPlaybackMode mode, int seekPosition) {
  auto event = jx::JXVideoPlaybackEvent::initWithMode_andSessionId(mode, film_.session);
  event->setVideoTitle(kFilmTitle);
  event->contentAssetID().append("lighthouse-trailer");
  event->setCursorPosition(film_.position);
  event->setTotalLength(kFilmLength);
  if (seekPosition >= 0) event->setSeekPosition(seekPosition);
  event->setFullScreen(true);
  event->setVideoPlayer("shop");
  send(event);
}
