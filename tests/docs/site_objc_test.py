#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Tests the Objective-C pages of the documentation site.

site_objc_test.py ROOT FOLDER     the root of the tree, and the folder with the pages of the site
"""

import html
import json
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(sys.argv.pop(1)).resolve()
SITE = pathlib.Path(sys.argv.pop(1)).resolve()


def source(name):
    return (SITE / name).read_text(encoding="utf-8")


def text(name):
    """Returns the text of a page, without markup, with single spaces."""
    content = source(name).partition('<div class="contents">')[2].partition("</main>")[0]
    return " ".join(html.unescape(re.sub(r"<[^>]*>", "", content)).split())


def listed(name):
    """Returns the selectors and properties that a page lists as its own."""
    return re.findall(r'<tr class="memitem:\w+" data-name="([^"]+)">', source(name))


class ObjectiveCPages(unittest.TestCase):
    def test_server_side_has_its_operations_in_objective_c(self):
        page = text("objc/interfaceServerSide.html")
        self.assertRegex(page, r"@interface ServerSide : \w+ "
                               "<IJXEventSenderDelegate, IJXEventListenerDelegate>")
        self.assertIn("- (instancetype)initWithSiteID:(int32_t)siteID "
                      "andSourceKey:(nullable NSString*)sourceKey;", page)
        self.assertIn("Swift: init(siteID:sourceKey:)", page)
        self.assertIn("- (void)execute:(nullable JXEvent*)event;", page)
        self.assertIn("@property(nonatomic, copy, nullable) NSString* url;", page)
        self.assertTrue({
            "initWithSiteID:andSourceKey:", "execute:", "addPermanentData:withValue:",
            "disableServerSide", "onNotificationReceived:", "serverSideState"}
            <= set(listed("objc/interfaceServerSide.html")))
        self.assertNotIn("init", listed("objc/interfaceServerSide.html"))

    def test_an_event_has_its_initialisers_properties_and_swift_forms(self):
        page = text("objc/interfaceJXPurchaseEvent.html")
        self.assertIn("@interface JXPurchaseEvent : JXECommerceEvent", page)
        self.assertIn("Swift: init(id:revenue:value:currency:type:paymentMethod:status:items:)",
                      page)
        self.assertIn("@property(nonatomic, copy, nullable) NSDecimalNumber* revenue; "
                      "The revenue, in units of currency. Swift: var revenue: Decimal?", page)
        self.assertEqual([
            "initWithId:withRevenue:withValue:withCurrency:withType:withPaymentMethod:withStatus:"
            "withItems:", "init", "ID", "revenue", "value", "shippingAmount", "taxAmount", "coupon",
            "type", "paymentMethod", "status", "url"],
            listed("objc/interfaceJXPurchaseEvent.html"))
        self.assertIn("Instance methods inherited from JXEvent", page)

    def test_a_protocol_has_its_methods(self):
        page = text("objc/protocolIJXCoreConfigurationDelegate-p.html")
        self.assertIn("@protocol IJXCoreConfigurationDelegate <NSObject>", page)
        self.assertIn("@optional - (void)logMessage:(NSString*)message withLevel:(int32_t)level;",
                      page)
        self.assertEqual(["logMessage:withLevel:", "onDelivery:eventId:status:reason:dropReason:"],
                         listed("objc/protocolIJXCoreConfigurationDelegate-p.html"))

    def test_enumerations_and_constants_have_their_values(self):
        self.assertIn("EJXDefaultBehaviour_DISABLED_BY_DEFAULT "
                      "Starts disabled until it is enabled. Swift: disabledByDefault",
                      text("objc/ServerSide_8h.html"))
        page = text("objc/JXNames_8h.html")
        self.assertIn("Event keys", page)
        self.assertIn("JXE_PAYMENTMETHOD The string payment_method.", page)

    def test_each_class_and_protocol_has_a_page_with_every_member(self):
        kinds = {"interface": "objc/interface{}.html", "protocol": "objc/protocol{}-p.html"}
        names = 0
        for header in sorted((ROOT / "jx/objc").glob("*.h")):
            found = re.findall(r"^@(interface|protocol) (\w+)(?: \((\w+)\))?[^;]*?\n(.*?)^@end",
                               header.read_text(encoding="utf-8"), re.DOTALL | re.MULTILINE)
            for kind, name, category, body in found:
                declared = re.findall(r"^(?:[-+] \(|@property)[^;]*;", body, re.MULTILINE)
                available = [one for one in declared if "JX_OBJC_UNAVAILABLE" not in one]
                page = (f"objc/category{name}_07{category}_08.html" if category
                        else kinds[kind].format(name))
                self.assertEqual(len(available), len(listed(page)), name)
                self.assertIn(f'href="{page}"', source("objc.html"))
                names += 1
        self.assertGreater(names, 50)

    def test_a_category_of_a_class_of_the_system_has_a_page(self):
        page = "objc/categoryNSString_07JXServerSide_08.html"
        self.assertIn("@interface NSString (JXServerSide)", text(page))
        self.assertIn("- (BOOL)testString;", text(page))
        links = re.findall(r'<a class="el" href="([^"]*)"', source("objc/interfaceServerSide.html"))
        self.assertIn("interfaceJXEvent.html", links)
        self.assertNotIn(page.removeprefix("objc/"), links)

    def test_no_page_contains_the_macros_of_the_headers(self):
        pages = sorted((SITE / "objc").glob("*.html"))
        for page in pages:
            found = re.findall(r"JX_(?:SWIFT_NAME|REFINED_FOR_SWIFT|OBJC_\w+)|NS_ASSUME\w+|NS_ENUM",
                               text(f"objc/{page.name}"))
            self.assertEqual([], found, page.name)

    def test_the_pages_of_c_plus_plus_are_not_replaced(self):
        self.assertIn("initWithSiteID_andSourceKey", text("classjx_1_1ServerSide.html"))
        self.assertIn("std::shared_ptr", text("classjx_1_1ServerSide.html"))
        self.assertIn("JXDecimal", text("classjx_1_1JXPurchaseEvent.html"))
        self.assertNotIn("@interface", text("classjx_1_1ServerSide.html"))
        self.assertNotIn("instancetype", text("classjx_1_1ServerSide.html"))

    def test_the_search_finds_the_members_of_both_languages(self):
        index = source("search-index.js").removeprefix("window.jxIndex = ").rstrip(";\n")
        entries = {(title, location): address for title, location, address, _ in json.loads(index)}
        self.assertEqual("classjx_1_1ServerSide.html", entries["ServerSide", "class"])
        self.assertEqual("objc/interfaceServerSide.html",
                         entries["ServerSide", "Objective-C class"])
        self.assertRegex(entries["addPermanentData:withValue:", "ServerSide (Objective-C)"],
                         r"^objc/interfaceServerSide\.html#\w+$")
        self.assertRegex(entries["EJXDefaultBehaviour", "ServerSide.h (Objective-C)"],
                         r"^objc/ServerSide_8h\.html#\w+$")

    def test_the_pages_use_the_style_and_scripts_of_the_site(self):
        page = source("objc/interfaceServerSide.html")
        for name in ("site.css", "site.js", "search-index.js"):
            self.assertIn(f'="../{name}"', page)
            self.assertFalse((SITE / "objc" / name).exists(), name)
        self.assertIn("<title>ServerSide (Objective-C) - JXServerSide</title>", page)
        self.assertIn('<a href="../objc/interfaceServerSide.html" aria-current="page">', page)


if __name__ == "__main__":
    unittest.main()
