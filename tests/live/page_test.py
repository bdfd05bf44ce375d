"""The page in a real browser: what a person does with pointer and keys, and what they then see."""

import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest
from xml.etree import ElementTree

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.actions.wheel_input import ScrollOrigin
from selenium.webdriver.common.keys import Keys

from browser import BUNDLE, PARLOR, BrowserTest, Page, digest_of_png, shot, wait_until

ROOT = pathlib.Path(__file__).parents[2]
CANVAS = str(ROOT / "flows/canvas.yaml")
RESOURCES = ROOT / "resources"
SCREENSHOTS = os.environ.get("SCREENSHOTS")  # a folder, for those who want to look

# Texts whose contrast to what lies behind them is less than 4.5:1, or 3:1 for large ones.
FAINT_TEXTS = """
    const channels = (colour) => colour.match(/[\\d.]+/g).map(Number);
    const over = ([r, g, b, a = 1], below) => [r, g, b].map((value, i) => value * a + below[i] * (1 - a));
    const ground = (node) => {
        if (!node) return [255, 255, 255];
        const colour = channels(getComputedStyle(node).backgroundColor);
        return (colour[3] ?? 1) === 1 ? colour : over(colour, ground(node.parentElement));
    };
    const luminance = (colour) => colour.slice(0, 3).map((value) => value / 255)
        .map((value) => value <= 0.04045 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4)
        .reduce((sum, value, i) => sum + value * [0.2126, 0.7152, 0.0722][i], 0);
    const faint = [];
    const texts = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
    for (let text = texts.nextNode(); text; text = texts.nextNode()) {
        const node = text.parentElement;
        if (!text.textContent.trim() || node.closest('.element') || !node.checkVisibility()) continue;
        const style = getComputedStyle(node);
        const below = ground(node);
        const [one, other] = [luminance(over(channels(style.color), below)), luminance(below)].sort((a, b) => b - a);
        const size = parseFloat(style.fontSize);
        const isLarge = size >= 24 || (size >= 18.66 && Number(style.fontWeight) >= 700);
        if ((one + 0.05) / (other + 0.05) < (isLarge ? 3 : 4.5)) {
            faint.push(`${text.textContent.trim().slice(0, 40)}: ${style.color} on ${below}`);
        }
    }
    return faint;"""


class PageTest(BrowserTest):
    def test_the_typical_road_by_pointer(self):
        phone = self.open()
        page = Page(self.browser, phone)
        self.assert_shows(page)
        page.click("Player group")
        page.click("Friends")
        page.wait_for("group", "Friends")
        self.assert_shows(page, "--group", "Friends")
        page.choose("appearance", "dark")
        self.assert_shows(page, "--group", "Friends", "--dark")

        first = page.first_row()
        page.click(first)
        group, section, item, icon = wait_until(page.links, "a card of the link")[0]
        self.assertEqual(group, "Friends")
        self.assertIn(item, first)
        self.assertTrue(section and icon)

        page.drag("Handle", 200)
        page.wait_for("presentation", "compact")
        self.assert_shows(page, "--group", "Friends", "--dark", "--style", "compact")
        page.drag("Handle", 200)
        page.wait_for("presentation", "closed")
        self.assertFalse(page.has_part("Handle"))
        page.click("Truths & Dares")
        page.wait_for("presentation", "expanded")
        page.wait_for("group", "Adult (18+)")
        self.assertEqual(page.complaints(), [])
        status, said = phone.end()
        self.assertEqual((status, said), (0, ""))

    def test_keys_only(self):
        page = Page(self.browser, self.open())
        page.part("Player group")
        page.press("g")
        page.wait_for("group", "Friends")
        page.press("d")
        self.assert_shows(page, "--group", "Friends", "--dark")
        page.press("v")
        page.wait_for("device", "15max")
        self.assert_shows(page, "--dark", "--device", "15max")
        page.press("?")
        wait_until(lambda: page.element("help").get_property("open"), "the list of keys")
        page.press(Keys.ESCAPE)
        page.part("", "row ")
        page.element("phone").send_keys("")
        focused, role = None, ""
        while role != "row":
            before = focused
            page.press(Keys.TAB)
            focused, role = page.run("return [document.activeElement.textContent,"
                                     " document.activeElement.dataset.key?.split(' ')[0]]")
            self.assertNotEqual(focused, before)
        page.press(Keys.ENTER)
        self.assertIn(wait_until(page.links, "a card of the link")[0][2], focused)

    def test_what_was_done_by_finger_and_wheel_replays_to_the_same_pixels(self):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            phone = self.open("--record", str(folder / "recorded.yaml"))
            self.browser.execute_cdp_cmd("Browser.setDownloadBehavior",
                                         {"behavior": "allow", "downloadPath": str(folder / "saved")})
            page = Page(self.browser, phone)
            page.click("Player group")
            page.click("Friends")
            self.touch(page, page.first_row(), [(0, 0), (0, -90), (3, -140)])
            origin = ScrollOrigin.from_element(page.element("phone"), 0, 60)
            ActionChains(self.browser).scroll_from_origin(origin, 0, 37).perform()
            page.settle()
            self.touch(page, page.first_row(), [(0, 0)])
            wait_until(page.links, "a card of the link")
            page.drag("Handle", 200)
            page.wait_for("presentation", "compact")
            page.settle()
            shown, flow = page.pixels(), page.text("flow")
            page.press("s")
            saved = folder / "saved/recorded.yaml"
            wait_until(lambda: saved.exists() and saved.read_text() == flow, "the saved flow")
            self.assertEqual(phone.end()[0], 0)
            self.assertEqual((folder / "recorded.yaml").read_text(), flow)
            saved.write_text(flow + "- takeScreenshot: end\n")
            played = subprocess.run([PARLOR, "run", "--output", folder, saved], capture_output=True, text=True,
                                    check=False)
            self.assertEqual(played.returncode, 0, flow + played.stderr)
            self.assertEqual(digest_of_png(folder / "end.png"), shown, flow)

    def touch(self, page, label, way):
        """A real finger, from the middle of a part along a way."""
        part = page.part(label)
        page.settle()
        x, y = page.run("const box = arguments[0].getBoundingClientRect();"
                        "return [box.x + box.width / 2, box.y + box.height / 2]", part)

        def tell(kind, *points):
            page.browser.execute_cdp_cmd("Input.dispatchTouchEvent", {
                "type": kind, "touchPoints": [{"x": x + right, "y": y + down} for right, down in points]})
        tell("touchStart", way[0])
        for point in way[1:]:
            tell("touchMove", point)
        tell("touchEnd")
        page.settle()

    def test_keys_go_to_a_field_of_the_phone_that_has_its_keyboard(self):
        with tempfile.TemporaryDirectory() as name:
            bundle = pathlib.Path(name) / "Test.appex"
            shutil.copytree(BUNDLE, bundle)
            storyboard = ElementTree.parse(bundle / "MainInterface.storyboard")
            storyboard.find(".//view[@id='JWY-bo-d6k']/subviews").append(ElementTree.fromstring(
                """<textField opaque="NO" contentMode="scaleToFill" placeholder="Nobody" id="fld-na-me1">
                       <rect key="frame" x="40" y="300" width="200" height="34"/>
                       <autoresizingMask key="autoresizingMask" flexibleMaxX="YES" flexibleMaxY="YES"/>
                       <color key="backgroundColor" name="PanelBackground"/>
                       <fontDescription key="fontDescription" type="system" pointSize="14"/>
                       <textInputTraits key="textInputTraits"/>
                   </textField>"""))
            storyboard.write(bundle / "MainInterface.storyboard", encoding="UTF-8", xml_declaration=True)
            page = Page(self.browser, self.open("--bundle", str(bundle)))
            page.click("Nobody")
            page.press("gd?")
            page.press("éX", Keys.BACKSPACE)
            page.part("gd?é", "field")
            self.assertEqual((page.value("group"), page.value("appearance")), ("Adult (18+)", "light"))
            page.press(Keys.ESCAPE)
            page.press("d")
            page.wait_for("appearance", "dark")

    def test_a_bubble_opens_the_extension(self):
        page = Page(self.browser, self.open())
        page.choose("presentation", "closed")
        page.element("messageText").send_keys("Look at this")
        page.element("messageLink").send_keys("https://truths-and-dares.example/Category?mainCategory=Couple")
        page.element("messageText").send_keys(Keys.ENTER)
        page.click("Look at this")
        wait_until(lambda: "Recieved" in page.text("debug"), "that the extension was opened from the bubble")

    def test_two_pages_and_one_that_comes_back(self):
        phone = self.open()
        page = Page(self.browser, phone)
        first = self.browser.current_window_handle
        self.browser.switch_to.new_window("window")
        try:
            second = Page(self.browser, phone)
            second.part("Player group")
            second.choose("group", "Couple")
            self.assert_shows(second, "--group", "Couple")
            self.browser.refresh()
            second.wait_for("group", "Couple")
            self.assert_shows(second, "--group", "Couple")
        finally:
            self.browser.close()
            self.browser.switch_to.window(first)
        page.wait_for("group", "Couple")
        self.assert_shows(page, "--group", "Couple")

    def test_a_saved_file_shows_and_a_broken_one_is_told(self):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "Friends.json"
            original = (BUNDLE / "Friends.json").read_text()
            file.write_text(original)
            page = Page(self.browser, self.open(str(file)))
            page.part("Player group")
            page.choose("group", "Friends")
            title = json.loads(original)[0]["items"][0]["title"]
            page.part(title)
            file.write_text(original.replace(title, "Mended Title"))
            page.part("Mended Title")
            self.assert_shows(page, "--content", str(file), "--group", "Friends")
            good = page.pixels()

            file.write_text(original[:-20])
            wait_until(lambda: not page.element("findings").get_property("hidden"), "the finding")
            self.assertIn("Friends.json:", page.text("findings"))
            page.settle()
            self.assertEqual(page.pixels(), good)
            file.write_text(original)
            wait_until(lambda: page.element("findings").get_property("hidden"), "no finding")
            page.part(title)

    def test_a_lost_connection_comes_back_with_a_whole_picture(self):
        script = self.browser.execute_cdp_cmd("Page.addScriptToEvaluateOnNewDocument", {"source": """
            window.WebSocket = class extends WebSocket {
                constructor(...address) { super(...address); window.sockets = [...window.sockets ?? [], this]; }
            };"""})
        self.addCleanup(lambda: self.browser.execute_cdp_cmd("Page.removeScriptToEvaluateOnNewDocument", script))
        page = Page(self.browser, self.open())
        page.part("Player group")
        page.run("window.phonePixels().data.fill(0); sockets[0].close();")
        wait_until(lambda: page.run("return sockets.length > 1"), "another attempt")
        self.assert_shows(page)
        page.settle()
        page.choose("group", "Couple")
        self.assert_shows(page, "--group", "Couple")

    def test_the_canvas_has_the_very_pixels_where_a_pixel_of_the_page_is_one_of_the_phone(self):
        self.addCleanup(lambda: self.browser.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {}))
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": 1280, "height": 1000, "deviceScaleFactor": 3, "mobile": False})
        page = Page(self.browser, self.open())
        page.part("", "row ")
        page.choose("zoom", "1")
        self.assertEqual(page.pixels(canvas=True), shot())
        page.choose("appearance", "dark")
        page.drag(page.first_row(), -120)
        self.assertEqual(page.pixels(canvas=True), page.pixels())

    def test_the_inspector_tells_what_holds_a_view_and_where_that_stands(self):
        with tempfile.TemporaryDirectory() as name:
            bundle = pathlib.Path(name) / "Test.appex"
            shutil.copytree(BUNDLE, bundle)
            xib = bundle / "ModeTblCell.xib"
            held = '<constraint firstAttribute="height" constant="44" id="o9p-2K-h6B"/>'
            lines = xib.read_text().replace(held, held + "\n" + held.replace("44", "60").replace("o9p", "o9q"))
            xib.write_text(lines)
            line = 1 + lines[:lines.index(held)].count("\n")
            page = Page(self.browser, self.open("--bundle", str(bundle)))
            row = page.part("", "row ")
            page.press("i")
            scale = page.run("return document.getElementById('phone').clientWidth / 393")
            left = round(40 * scale - row.rect["width"] / 2)
            ActionChains(self.browser).move_to_element_with_offset(row, left, 0).click().perform()
            facts = wait_until(lambda: page.text("details"), "the details of the icon")
            self.assertIn("UIImageView", facts)
            states = {source: state for state, source in page.run(
                """return [...document.querySelectorAll('#details .constraints > li')].map((row) =>
                       [row.querySelector('.state').textContent, row.querySelector('code')?.textContent])""")}
            heights = [state for source, state in states.items() if source.split(":")[1] in (str(line), str(line + 1))]
            self.assertEqual(sorted(heights), ["contradicting", "satisfied"], states)
            self.assertNotIn("contradicting", [state for source, state in states.items()
                                               if source.split(":")[1] not in (str(line), str(line + 1))], states)
            self.browser.execute_cdp_cmd("Browser.grantPermissions", {
                "permissions": ["clipboardReadWrite", "clipboardSanitizedWrite"]})
            page.run("document.querySelector('#details .constraints button').click()")
            source = page.run("return document.querySelector('#details .constraints code').textContent")
            self.assertRegex(source, r"\.xib:\d+:\d+$")
            wait_until(lambda: self.browser.execute_async_script("navigator.clipboard.readText().then(arguments[0])")
                       == source, "the place on the clipboard")

    def test_everything_can_be_read_at_every_width_in_light_and_dark(self):
        with tempfile.TemporaryDirectory() as name:
            file = pathlib.Path(name) / "Friends.json"
            file.write_text((BUNDLE / "Friends.json").read_text())
            page = Page(self.browser, self.open(str(file)))
            page.click(page.first_row())
            wait_until(page.links, "a card of the link")
            page.press("i")
            ActionChains(self.browser).move_to_element(page.element("phone")).click().perform()
            wait_until(lambda: page.text("details"), "the details of a view")
            file.write_text("[]]")
            wait_until(lambda: page.text("findings"), "a finding")
            try:
                for scheme in ("light", "dark"):
                    self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {
                        "features": [{"name": "prefers-color-scheme", "value": scheme}]})
                    for width in (360, 600, 800, 1100, 1280, 2560):
                        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
                            "width": width, "height": 900, "deviceScaleFactor": 1, "mobile": False})
                        for panel in ("out", "debug", "flow", "inspector"):
                            page.run("document.getElementById(`tab-${arguments[0]}`).click()", panel)
                            self.assertEqual(page.run(FAINT_TEXTS), [], f"{scheme}, {width}, {panel}")
                            self.assertLessEqual(page.run("return document.documentElement.scrollWidth"), width, panel)
                            if SCREENSHOTS:
                                self.browser.save_screenshot(f"{SCREENSHOTS}/{scheme}-{width}-{panel}.png")
                    page.run("document.getElementById('help').showModal()")
                    self.assertEqual(page.run(FAINT_TEXTS), [], f"{scheme}, keys")
                    page.run("document.getElementById('help').close()")
            finally:
                self.browser.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})
                self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": []})

    def test_what_is_saved_in_the_sources_shows_and_what_is_broken_is_told(self):
        with tempfile.TemporaryDirectory() as name:
            sources = pathlib.Path(name) / "sources"
            shutil.copytree(RESOURCES, sources)
            page = Page(self.browser, self.open("--bundle", str(sources)))
            page.part("Player group")
            page.choose("group", "Friends")
            page.choose("presentation", "compact")
            page.drag(page.first_row(), -60)
            scrolled = page.pixels()

            def save(file, old, new):
                path = sources / file
                original = path.read_text()
                path.write_text(original.replace(old, new))
                self.assertTrue(old in original, f"{file} has another text")
                return lambda: path.write_text(original)

            def findings():
                return wait_until(lambda: self.browser.execute_script(
                    "const box = document.getElementById('findings'); return box.hidden ? '' : box.textContent"),
                    "a finding")

            colour = "Assets.xcassets/ScreenBackground.colorset/Contents.json"
            for file, old, new in ((colour, '"red" : "0xE3"', '"red" : "0.5"'),
                                   ("ModeTblCell.xib", 'value="14"', 'value="2"'),
                                   ("Assets.xcassets/list_arrow.imageset/list_arrow.svg", "<svg ", "<svg opacity='0.4' "),
                                   ("content/Friends.json", "Group Chat", "Other Chat")):
                before = page.pixels()
                put_back = save(file, old, new)
                wait_until(lambda: page.pixels() != before, f"what was saved in {file}")
                put_back()
                wait_until(lambda: page.pixels() == scrolled, "the group, the place in the list and the presentation")

            for file, old, new in (("MainInterface.storyboard", "</scenes>", ""),
                                   ("Assets.xcassets/list_arrow.imageset/list_arrow.svg", "</svg>", ""),
                                   ("Assets.xcassets/AppGreen.colorset/Contents.json", "{", "")):
                put_back = save(file, old, new)
                self.assertIn(str(sources / file), findings())
                page.settle()
                self.assertEqual(page.pixels(), scrolled)
                put_back()
                wait_until(lambda: page.element("findings").get_property("hidden"), "no finding")
            wait_until(lambda: page.pixels() == scrolled, "the screen as before")

    def test_the_canvas_draws_under_the_finger(self):
        page = Page(self.browser, self.open(CANVAS), "compact")
        page.choose("presentation", "expanded")
        page.part("Clear")
        before = page.pixels()
        ActionChains(self.browser, duration=50).move_to_element(page.element("phone")).click_and_hold() \
            .move_by_offset(60, 40).move_by_offset(-90, 20).release().perform()
        wait_until(lambda: page.pixels() != before, "a stroke")


if __name__ == "__main__":
    unittest.main()
