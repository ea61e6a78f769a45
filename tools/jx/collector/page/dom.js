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
 * An HTML element. Texts among the children become text nodes, so what a device sent is never
 * parsed as markup. `on` maps events to handlers; null, undefined and false leave an attribute out.
 */
export function element(name, attributes = {}, ...children) {
  return fill(document.createElement(name), attributes, children);
}

/** An SVG element; the rest as in element(). */
export function shape(name, attributes = {}, ...children) {
  return fill(document.createElementNS(SVG, name), attributes, children);
}

export function button(text, onClick, attributes = {}) {
  return element('button', { type: 'button', on: { click: onClick }, ...attributes }, text);
}

export function byId(id) {
  return document.getElementById(id);
}

/** Runs `draw` once in the next frame, however often it is asked to before. */
export function oncePerFrame(draw) {
  let isAsked = false;
  return () => {
    if (isAsked) return;
    isAsked = true;
    requestAnimationFrame(() => {
      isAsked = false;
      draw();
    });
  };
}
