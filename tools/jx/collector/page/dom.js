// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

const SVG = 'http://www.w3.org/2000/svg';

function fill(node, attributes, children) {
  for (const [name, value] of Object.entries(attributes)) {
    if (value === null || value === undefined || value === false) continue;
    if (name === 'on') {
      for (const [event, handler] of Object.entries(value)) node.addEventListener(event, handler);
    } else {
      node.setAttribute(name, value === true ? '' : value);
    }
  }
  node.append(...children.flat().filter((child) => child !== null && child !== undefined));
  return node;
}

/**
 * Creates an HTML element. String children become text nodes, so data from a device is never
 * parsed as markup. `on` maps events to handlers. Attributes that are null, undefined or false
 * are omitted.
 */
export function element(name, attributes = {}, ...children) {
  return fill(document.createElement(name), attributes, children);
}

/** Creates an SVG element; otherwise the same as element(). */
export function shape(name, attributes = {}, ...children) {
  return fill(document.createElementNS(SVG, name), attributes, children);
}

export function button(text, onClick, attributes = {}) {
  return element('button', { type: 'button', on: { click: onClick }, ...attributes }, text);
}

export function byId(id) {
  return document.getElementById(id);
}

/** Returns a function that runs `draw` in the next frame, at most once per frame. */
export function oncePerFrame(draw) {
  let isScheduled = false;
  return () => {
    if (isScheduled) return;
    isScheduled = true;
    requestAnimationFrame(() => {
      isScheduled = false;
      draw();
    });
  };
}
