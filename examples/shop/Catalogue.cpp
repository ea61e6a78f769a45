// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "Catalogue.h"

const std::vector<Article>& articles() {
  static const std::vector<Article> all{
      {"poster-50x70", "Poster: The Last Lighthouse", "posters",
       "Printed on heavy paper, 50 x 70 cm.", 2490},
      {"mug-07", "Lighthouse mug", "kitchen", "Stoneware. Keeps the tea warm until the tide turns.",
       1250},
      {"lamp-2", "Storm lamp", "home", "Brass and glass, burns for nine hours.", 4900},
      {"score-lp", "The score on vinyl", "music", "Two records, with the composer's notes.", 3195},
      {"map-1881", "Sea chart of 1881", "posters", "A facsimile, folded as it was on board.", 1800},
  };
  return all;
}

std::string price(int cents) {
  const int rest = cents % 100;
  return std::to_string(cents / 100) + (rest < 10 ? ".0" : ".") + std::to_string(rest);
}
