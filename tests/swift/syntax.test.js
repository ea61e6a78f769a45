// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Parses every Swift source, and the Swift examples of the documentation, with a grammar. It finds
// syntax errors only: types and names are not checked.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, join } from "node:path";
import { test } from "node:test";
import { fileURLToPath } from "node:url";
import Parser from "web-tree-sitter";

const root = join(dirname(fileURLToPath(import.meta.url)), "../..");
const require = createRequire(import.meta.url);
await Parser.init();
const parser = new Parser();
parser.setLanguage(
  await Parser.Language.load(require.resolve("tree-sitter-wasms/out/tree-sitter-swift.wasm")));

/** Returns "line:column" of each syntax error. */
function errors(text) {
  const found = [];
  const visit = (node) => {
    if (node.type === "ERROR" || node.isMissing) {
      found.push(`${node.startPosition.row + 1}:${node.startPosition.column + 1}`);
    }
    node.children.forEach(visit);
  };
  visit(parser.parse(text).rootNode);
  return found;
}

function tracked(...patterns) {
  const listing = execFileSync("git", ["-c", "safe.directory=*", "ls-files", "--cached",
    "--others", "--exclude-standard", ...patterns], { cwd: root, encoding: "utf8" });
  return listing.split("\n").filter(Boolean);
}

/** Returns the Swift examples of a page, each with the line before it. */
function examples(page) {
  const text = readFileSync(join(root, page), "utf8");
  return [...text.matchAll(/^```swift\n(.*?)^```/gms)].map((match) => ({
    line: text.slice(0, match.index).split("\n").length,
    text: match[1],
  }));
}

test("FindsSyntaxErrors", () => {
  assert.deepEqual(errors("let a = 1\n"), []);
  assert.notDeepEqual(errors("extension A {\n  var b: Int? {\n    get { 1 }\n}\n"), []);
  assert.notDeepEqual(errors("func a( -> Int { 1 }\n"), []);
});

test("ParsesEverySwiftSource", () => {
  const sources = tracked("*.swift");
  assert.ok(sources.includes("Package.swift"));
  assert.ok(sources.includes("swift/JXServerSide/Ecommerce.swift"));
  for (const source of sources) {
    assert.deepEqual(errors(readFileSync(join(root, source), "utf8")), [], source);
  }
});

test("ParsesTheSwiftExamplesOfThePages", () => {
  const found = tracked("*.md").flatMap((page) =>
    examples(page).map((example) => ({ ...example, page })));
  assert.ok(found.length > 0);
  for (const { page, line, text } of found) {
    assert.deepEqual(errors(text), [], `${page}:${line}`);
  }
});
