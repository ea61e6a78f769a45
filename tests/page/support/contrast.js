// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
/**
 * Returns the lowest contrast between text and background for each selector, as defined by WCAG.
 * Runs in the page. The value is null for a selector without visible text.
 */
export function contrastsOf(page, selectors) {
  return page.evaluate((wanted) => {
    const canvas = document.createElement('canvas').getContext('2d', { willReadFrequently: true });
    const parse = (text) => {
      canvas.clearRect(0, 0, 1, 1);
      canvas.fillStyle = text;
      canvas.fillRect(0, 0, 1, 1);
      const [red, green, blue, alpha] = canvas.getImageData(0, 0, 1, 1).data;
      return { rgb: [red, green, blue], alpha: alpha / 255 };
    };
    const luminance = (rgb) => {
      const [red, green, blue] = rgb.map((value) => {
        const part = value / 255;
        return part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4;
      });
      return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
    };
    // All backgrounds are opaque; the nearest one counts.
    const background = (node) => {
      for (let at = node; at; at = at.parentElement) {
        const { rgb, alpha } = parse(getComputedStyle(at).backgroundColor);
        if (alpha === 1) return rgb;
      }
      return [255, 255, 255];
    };
    const contrast = (node) => {
      const style = getComputedStyle(node);
      const own = node instanceof SVGElement ? style.fill : style.color;
      const [high, low] = [luminance(parse(own).rgb), luminance(background(node))]
        .sort((a, b) => b - a);
      return (high + 0.05) / (low + 0.05);
    };
    const isVisible = (node) => node.getClientRects().length > 0 && node.textContent.trim() !== '';
    return Object.fromEntries(wanted.map((selector) => {
      const found = [...document.querySelectorAll(selector)].filter(isVisible).map(contrast);
      return [selector, found.length > 0 ? Math.min(...found) : null];
    }));
  }, selectors);
}
