"""The page in a real browser: what a person does with pointer and keys, and what they then see."""

import json
import pathlib
import struct
import subprocess
import tempfile
import unittest
import zlib

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.actions.wheel_input import ScrollOrigin
from selenium.webdriver.common.keys import Keys

from browser import PARLOR, BrowserTest, Page, wait_until


def read_png(path):
    """(width, height, red-green-blue-alpha bytes) of a picture that Parlor wrote: 8 bits a channel, no filters."""
    data = pathlib.Path(path).read_bytes()
    at, compressed = 8, b""
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colour = struct.unpack(">IIBB", body[:10])
        elif kind == b"IDAT":
            compressed += body
        at += 12 + length
    channels = {2: 3, 6: 4}[colour]
    assert depth == 8
    rows = zlib.decompress(compressed)
    stride = 1 + width * channels
    pixels = bytearray()
    for y in range(height):
        row = rows[y * stride:(y + 1) * stride]
        assert row[0] == 0, "a row with a filter"
        pixels += row[1:]
    if channels == 3:
        whole = bytearray(b"\xff" * (width * height * 4))
        for channel in range(3):
            whole[channel::4] = pixels[channel::3]
        pixels = whole
    return width, height, bytes(pixels)


class PageTest(BrowserTest):
    def shot(self, *arguments):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "shot.png"
            subprocess.run([PARLOR, "shot", "-o", file, *arguments], check=True, capture_output=True)
            return read_png(file)

    def assert_shows(self, page, *arguments):
        wanted = self.shot(*arguments)
        wait_until(lambda: page.pixels() == wanted, f"the pixels of parlor shot {' '.join(arguments)}")

    def test_the_typical_road_by_pointer(self):
        phone = self.open()
        page = Page(self.browser, phone)
        page.wait_for_presentation("expanded")
        self.assert_shows(page)

        page.click("Player group")
        page.click("Friends")
        page.wait_for_group("Friends")
        self.assert_shows(page, "--group", "Friends")

        page.choose("appearance", "dark")
        self.assert_shows(page, "--group", "Friends", "--dark")

        first = wait_until(lambda: page.browser.execute_script(
            "return [...document.querySelectorAll('#elements .element')]"
            ".find((part) => part.dataset.key.startsWith('row '))?.textContent"), "a row")
        page.click(first)
        wait_until(page.links, "a card of the link")
        group, section, item, icon = page.links()[0]
        self.assertEqual(group, "Friends")
        self.assertIn(item, first)
        self.assertTrue(section and icon)

        page.drag("Handle", 200)
        page.wait_for_presentation("compact")
        self.assert_shows(page, "--group", "Friends", "--dark", "--style", "compact")
        page.drag("Handle", 200)
        page.wait_for_presentation("closed")
        wait_until(lambda: not page.find_part("Handle"), "the parts of a closed extension")
        page.click("Truths & Dares")
        page.wait_for_presentation("expanded")
        page.wait_for_group("Adult (18+)")
        self.assertEqual(page.complaints(), [])
        status, said = phone.end()
        self.assertEqual((status, said), (0, ""))

    def is_mode(self, page, label):
        """Whether the part is a row of the list."""
        return page.browser.execute_script(
            "return [...document.querySelectorAll('#elements .element')]"
            ".some((part) => part.textContent === arguments[0] && part.dataset.key.startsWith('row '))", label)

    def test_keys_only(self):
        page = Page(self.browser, self.open())
        page.wait_for_presentation("expanded")

        def press(*keys):
            ActionChains(page.browser).send_keys(*keys).perform()

        press("g")
        page.wait_for_group("Friends")
        press("d")
        self.assert_shows(page, "--group", "Friends", "--dark")
        press("v")
        wait_until(lambda: page.value("device") == "15max", "the next device")
        self.assert_shows(page, "--dark", "--device", "15max")
        press("?")
        wait_until(lambda: page.element("help").get_property("open"), "the list of keys")
        press(Keys.ESCAPE)
        page.element("phone").send_keys(Keys.TAB)
        focused = wait_until(
            lambda: page.browser.execute_script("return document.activeElement.className === 'element' "
                                                "? document.activeElement.textContent : ''"), "focus on the phone")
        while not self.is_mode(page, focused):
            press(Keys.TAB)
            now = page.browser.execute_script("return document.activeElement.textContent")
            self.assertNotEqual(now, focused)
            focused = now
        press(Keys.ENTER)
        wait_until(page.links, "a card of the link")
        self.assertIn(page.links()[0][2], focused)

    def test_the_wheel_scrolls_the_list(self):
        page = Page(self.browser, self.open())
        page.wait_for_presentation("expanded")
        page.part("Player group")
        scale = page.browser.execute_script("return document.getElementById('phone').clientWidth / 393")
        origin = ScrollOrigin.from_element(page.element("phone"), 0, 60)
        ActionChains(page.browser).scroll_from_origin(origin, 0, round(100 * scale)).perform()
        before = self.shot()
        wait_until(lambda: page.pixels() != before, "a scrolled list")

    def test_a_bubble_opens_the_extension(self):
        page = Page(self.browser, self.open())
        page.choose("presentation", "closed")
        page.wait_for_presentation("closed")
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
            second.choose("group", "Couple")
            second.wait_for_group("Couple")
            self.assert_shows(second, "--group", "Couple")
            self.browser.refresh()
            second.wait_for_group("Couple")
            self.assert_shows(second, "--group", "Couple")
        finally:
            self.browser.close()
            self.browser.switch_to.window(first)
        page.wait_for_group("Couple")
        self.assert_shows(page, "--group", "Couple")

    def test_a_saved_file_shows_and_a_broken_one_is_told(self):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "Friends.json"
            original = (pathlib.Path(PARLOR).parents[2] / "TruthsAndDares.appex/Friends.json").read_text()
            file.write_text(original)
            page = Page(self.browser, self.open(str(file)))
            page.wait_for_presentation("expanded")
            page.choose("group", "Friends")
            page.wait_for_group("Friends")
            title = json.loads(original)[0]["items"][0]["title"]
            page.part(title)
            file.write_text(original.replace(title, "Mended Title"))
            page.part("Mended Title")
            page.wait_for_group("Friends")
            page.wait_for_presentation("expanded")
            self.assert_shows(page, "--content", str(file), "--group", "Friends")
            good = page.pixels()

            file.write_text(original[:-20])
            wait_until(lambda: not page.element("findings").get_property("hidden"), "the finding")
            self.assertIn("Friends.json:", page.text("findings"))
            self.assertEqual(page.pixels(), good)
            file.write_text(original)
            wait_until(lambda: page.element("findings").get_property("hidden"), "no finding")
            page.part(title)

    def test_the_canvas_draws_under_the_finger(self):
        flow = pathlib.Path(__file__).parents[2] / "flows/canvas.yaml"
        phone = self.open(str(flow))
        self.browser.get(phone.address)
        page = Page.__new__(Page)
        page.browser = self.browser
        page.choose("presentation", "expanded")
        page.wait_for_presentation("expanded")
        page.part("Clear")
        before = page.pixels()
        phone_element = page.element("phone")
        ActionChains(self.browser, duration=50).move_to_element(phone_element).click_and_hold() \
            .move_by_offset(60, 40).move_by_offset(-90, 20).release().perform()
        wait_until(lambda: page.pixels() != before, "a stroke")


if __name__ == "__main__":
    unittest.main()
