// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "Screen.h"

#include <algorithm>
#include <vector>

#include "Catalogue.h"

namespace {

constexpr std::size_t kWidth = 78;
constexpr std::size_t kBodyHeight = 16;

constexpr const char* kBar = "\033[48;5;24;38;5;255m";
constexpr const char* kTitle = "\033[1;38;5;215m";
constexpr const char* kChosen = "\033[1;48;5;31;38;5;255m";
constexpr const char* kDim = "\033[38;5;244m";
constexpr const char* kPlain = "\033[0m";

using Lines = std::vector<std::string>;

// Returns the number of columns of a string. Every character used here is one column wide.
std::size_t widthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u;
  }));
}

// Aligns `left` to the left and `right` to the right edge.
std::string spread(const std::string& left, const std::string& right) {
  const std::size_t used = widthOf(left) + widthOf(right);
  return left + std::string(used < kWidth ? kWidth - used : 1, ' ') + right;
}

std::string styled(const char* style, const std::string& text) { return style + text + kPlain; }

std::string row(const std::string& left, const std::string& right, bool isChosen) {
  const std::string text = spread((isChosen ? "  ▸ " : "    ") + left, right + "  ");
  return isChosen ? styled(kChosen, text) : text;
}

std::string repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i)
    all += text;
  return all;
}

std::string clock(int seconds) {
  const int rest = seconds % 60;
  return std::to_string(seconds / 60) + (rest < 10 ? ":0" : ":") + std::to_string(rest);
}

std::string money(int cents) { return price(cents) + " " + kCurrency; }

Lines listLines(const Shop& shop) {
  Lines lines;
  for (const Line& line : shop.lines()) {
    const std::string right = line.cents < 0 ? "" : money(line.cents);
    lines.push_back(row(line.label, right, lines.size() == shop.chosen()));
  }
  return lines;
}

Lines articleLines(const Shop& shop) {
  const Article& article = articles()[shop.article()];
  return {"    " + article.text,         "", styled(kDim, "    " + article.category), "",
          "    " + money(article.cents), "", row("Put into the cart", "", true)};
}

Lines cartLines(const Shop& shop) {
  if (shop.cartCount() == 0) return {styled(kDim, "    The cart is empty.")};
  Lines lines = listLines(shop);
  lines.push_back(styled(kDim, "    " + repeated("─", kWidth - 6)));
  lines.push_back(spread("    Together", money(shop.cartCents()) + "  "));
  return lines;
}

// The beam moves with the position of the film.
Lines playerLines(const Shop& shop) {
  const Film& film = shop.film();
  const bool isLeft = film.position % 2 == 0;
  const std::string beam = styled(kTitle, "▒▒▒▒▒▒▒▒▒▒▒▒▒▒▒▒▒▒");
  const std::string dark(18, ' ');
  const std::string margin(19, ' ');
  const int done = film.position * static_cast<int>(kWidth - 22) / kFilmLength;
  const std::string state = film.session.empty() ? "over" : film.running ? "plays" : "paused";
  return {
      "",
      margin + dark + " ▄█▄",
      margin + (isLeft ? beam : dark) + " █" + styled(kTitle, "●") + "█ " + (isLeft ? dark : beam),
      margin + dark + " ███",
      margin + dark + " ███",
      margin + dark + "▗███▖",
      margin + dark + "▐███▌",
      styled(kDim, repeated("≈", kWidth)),
      "",
      "    " + std::string(film.running ? "▶" : "‖") + "  " + styled(kTitle, repeated("━", done)) +
          styled(kDim, repeated("─", static_cast<int>(kWidth - 22) - done)) + "  " +
          clock(film.position) + " / " + clock(kFilmLength),
      styled(kDim, "    " + state)};
}

Lines body(const Shop& shop) {
  switch (shop.page()) {
    case Page::Article:
      return articleLines(shop);
    case Page::Cart:
      return cartLines(shop);
    case Page::Thanks:
      return {"    Your order " + shop.orderId() + " is on its way.", "",
              row("Back to the harbour", "", true)};
    case Page::Player:
      return playerLines(shop);
    default:
      return listLines(shop);
  }
}

std::string title(const Shop& shop) {
  switch (shop.page()) {
    case Page::Home:
      return "What shall it be?";
    case Page::Catalogue:
      return "From the harbour";
    case Page::Article:
      return articles()[shop.article()].name;
    case Page::Cart:
      return "Your cart";
    case Page::Payment:
      return "How do you pay?";
    case Page::Thanks:
      return "Thank you";
    case Page::Player:
      return kFilmTitle;
  }
  return {};
}

std::string hint(Page page) {
  if (page == Page::Player) return "space pause   ← → ten seconds   b back   q leave";
  if (page == Page::Cart) return "↑ ↓ choose   ⏎ check out   ← take out   b back   q leave";
  return "↑ ↓ choose   ⏎ enter   b back   q leave";
}

}  // namespace

std::string drawPage(const Shop& shop, const std::string& sent) {
  const std::string cart =
      std::to_string(shop.cartCount()) + " in the cart · " + money(shop.cartCents());
  Lines lines{styled(kBar, spread("  HARBOUR TV", cart + "  ")), "",
              styled(kTitle, "    " + title(shop)), ""};
  for (const std::string& line : body(shop))
    lines.push_back(line);
  lines.resize(4 + kBodyHeight);
  lines.push_back(styled(kDim, repeated("─", kWidth)));
  lines.push_back(styled(kDim, "  " + hint(shop.page())));
  lines.push_back(styled(kDim, "  sent: " + sent));
  std::string screen = "\033[H";
  for (const std::string& line : lines)
    screen += line + "\033[K\r\n";
  return screen + "\033[J";
}
