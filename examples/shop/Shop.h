// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "jx/JXServerSide.h"

enum class Key { Up, Down, Left, Right, Ok, Back, Play, Quit };

enum class Page { Home, Catalogue, Article, Cart, Payment, Thanks, Player };

// A selectable line of a page.
struct Line {
  std::string label;
  int cents = -1;  // no price if negative
};

struct Film {
  std::string session;
  int position = 0;  // seconds
  bool running = false;
};

constexpr int kFilmLength = 90;
constexpr const char* kFilmTitle = "The Last Lighthouse (trailer)";

// The application without its terminal: the current page, the cart, and the events of each key.
// Uses neither threads nor a clock.
class Shop {
 public:
  using Events = std::vector<std::shared_ptr<jx::JXEvent>>;

  // Returns the events of the start, before a key is pressed.
  Events start();
  // Handles a key and returns its events.
  Events press(Key key);
  // Advances the film by one second and returns its events.
  Events second();

  Page page() const { return page_; }
  bool hasEnded() const { return ended_; }
  // Index of the selected line of the page.
  std::size_t chosen() const { return chosen_; }
  std::vector<Line> lines() const;
  // Index of the current article.
  std::size_t article() const { return article_; }
  int cartCount() const;
  int cartCents() const;
  const Film& film() const { return film_; }
  const std::string& orderId() const { return orderId_; }

 private:
  void show(Page page);
  void back();
  void confirm();
  void choose(int step);
  void addToCart();
  void removeFromCart();
  void pay();
  void play();
  void seek(int seconds);
  void stop();

  void send(std::shared_ptr<jx::JXEvent> event) { events_.push_back(std::move(event)); }
  void sendVideo(jx::EJXVideoPlaybackMode mode, int seekPosition = -1);

  Page page_ = Page::Home;
  std::size_t chosen_ = 0;
  std::size_t article_ = 0;
  std::map<std::size_t, int> cart_;  // article and quantity
  Film film_;
  std::string orderId_;
  bool ended_ = false;
  Events events_;
};
