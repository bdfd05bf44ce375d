"""What the browser tests share: a phone of its own for each test, and a real browser that looks at it."""

import hashlib
import os
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zlib

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import Select

PARLOR = sys.argv.pop(1) if len(sys.argv) > 1 else os.environ["PARLOR"]
BUNDLE = pathlib.Path(PARLOR).parents[2] / "TruthsAndDares.appex"
PATIENCE = int(os.environ.get("PATIENCE", "120"))  # seconds until a condition must have come about, on a busy machine


def wait_until(condition, what):
    """Returns what the condition gives as soon as that counts as true."""
    end = time.monotonic() + PATIENCE
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise AssertionError(f"did not come about: {what}")
        time.sleep(0.02)


class Phone:
    """A `parlor open` of its own; ended with the test."""

    def __init__(self, *arguments):
        self.process = subprocess.Popen(
            [PARLOR, "open", "--no-browser", *arguments],
            stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        self.told = []
        while True:
            line = self.process.stderr.readline()
            if not line:
                raise AssertionError("no address was told: " + "".join(self.told))
            if line.startswith("http://"):
                break
            self.told.append(line)
        self.address = line.strip()
        self.port, self.token = re.fullmatch(r"http://127\.0\.0\.1:(\d+)/([0-9a-f]{32})/", self.address).groups()
        self.port = int(self.port)

    def end(self):
        """The exit status, and what it said on standard error since the address."""
        self.process.terminate()
        _, errors = self.process.communicate(timeout=PATIENCE)
        return self.process.returncode, errors


def make_browser():
    options = Options()
    for argument in ("--headless=new", "--disable-gpu", "--disable-dev-shm-usage", "--force-device-scale-factor=1",
                     "--window-size=1280,1000", "--disable-background-timer-throttling",
                     "--disable-renderer-backgrounding", "--disable-backgrounding-occluded-windows"):
        options.add_argument(argument)
    if os.geteuid() == 0:
        options.add_argument("--no-sandbox")  # which Chromium refuses to set up for root
    options.binary_location = "/usr/bin/chromium"
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    browser.set_script_timeout(PATIENCE)
    browser.set_page_load_timeout(PATIENCE)
    return browser


def digest(width, height, pixels):
    return f"{width} x {height} {hashlib.sha256(pixels).hexdigest()}"


def digest_of_png(path):
    """Of a picture that Parlor wrote: red, green, blue, alpha, 8 bits a channel, no filters."""
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
    rows = zlib.decompress(compressed)
    stride = 1 + width * channels
    assert depth == 8 and not any(rows[::stride]), "another depth, or rows with filters"
    pixels = b"".join(rows[y * stride + 1:(y + 1) * stride] for y in range(height))
    if channels == 3:
        whole = bytearray(b"\xff" * (width * height * 4))
        for channel in range(3):
            whole[channel::4] = pixels[channel::3]
        pixels = bytes(whole)
    return digest(width, height, pixels)


shots = {}  # digests by arguments


def shot(*arguments):
    """The digest of what `parlor shot` takes."""
    if arguments not in shots or "--content" in arguments or "--bundle" in arguments:
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "shot.png"
            subprocess.run([PARLOR, "shot", "-o", file, *arguments], check=True, capture_output=True)
            shots[arguments] = digest_of_png(file)
    return shots[arguments]


class Page:
    """The page of a phone in the browser's current window."""

    def __init__(self, browser, phone, presentation="expanded"):
        self.browser = browser
        self.address = phone.address
        browser.get(phone.address)
        self.wait_for("presentation", presentation)
        self.settle()

    def run(self, script, *arguments):
        return self.browser.execute_script(script, *arguments)

    def element(self, name):
        return self.browser.find_element(By.ID, name)

    def text(self, name):
        return self.element(name).get_attribute("textContent")

    def value(self, name):
        return self.run("return document.getElementById(arguments[0]).value", name)

    def wait_for(self, control, value):
        wait_until(lambda: self.value(control) == value, f"{control} is {value}")

    def settle(self):
        """Waits until the phone has told all that followed from what was done."""
        wait_until(lambda: self.run("return document.getElementById('phone').ariaBusy") == "false", "a settled phone")

    def choose(self, name, value):
        Select(self.element(name)).select_by_value(value)
        self.settle()

    def press(self, *keys):
        ActionChains(self.browser).send_keys(*keys).perform()
        self.settle()

    def part(self, label, role=""):
        """The button that stands for a part of the phone whose label begins so."""
        return wait_until(lambda: self.run(
            """return [...document.querySelectorAll('#elements .element')].find((part) =>
                   part.textContent.startsWith(arguments[0]) && part.dataset.key.startsWith(arguments[1])) ?? null""",
            label, role), f"a part '{label}' on the phone")

    def has_part(self, label):
        self.settle()
        return self.run("return [...document.querySelectorAll('#elements .element')]"
                        ".some((part) => part.textContent.startsWith(arguments[0]))", label)

    def first_row(self):
        return self.part("", "row ").get_attribute("textContent")

    def at(self, label):
        """Actions that begin in the middle of a part, on a settled phone."""
        part = self.part(label)
        self.settle()
        return ActionChains(self.browser, duration=50).move_to_element(part)

    def click(self, label):
        self.at(label).click().perform()
        self.settle()

    def drag(self, label, down, right=0):
        self.at(label).click_and_hold().move_by_offset(right, down // 2).move_by_offset(right, down - down // 2) \
            .release().perform()
        self.settle()

    def links(self):
        """The values of each opened link's items."""
        return self.run("return [...document.querySelectorAll('#out .card dl')].map((card) =>"
                        " [...card.querySelectorAll('dd')].map((item) => item.textContent))")

    def pixels(self, canvas=False):
        """The digest of the phone's pixels, as the page has them."""
        width, height, pixels = self.browser.execute_async_script(
            """const [canvas, done] = arguments;
               const screen = document.getElementById('screen');
               const none = new ImageData(1, 1); // before the first picture
               const {data, width, height} = canvas
                   ? screen.getContext('2d').getImageData(0, 0, screen.width, screen.height)
                   : window.phonePixels() ?? none;
               crypto.subtle.digest('SHA-256', data).then((sum) => done([width, height,
                   [...new Uint8Array(sum)].map((byte) => byte.toString(16).padStart(2, '0')).join('')]));""", canvas)
        return f"{width} x {height} {pixels}"

    def complaints(self):
        """Errors of this page; that of an earlier test may have missed its phone."""
        place = self.address.removeprefix("http:")
        return [entry["message"] for entry in self.browser.get_log("browser")
                if entry["level"] == "SEVERE" and place in entry["message"]]


class BrowserTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = make_browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    def open(self, *arguments):
        """A phone; when the test is over, no page asks for it any more before it ends."""
        phone = Phone(*arguments)
        self.addCleanup(lambda: phone.process.poll() is None and phone.end())
        self.addCleanup(lambda: self.browser.get("about:blank"))
        return phone

    def assert_shows(self, page, *arguments):
        """The picture may still be on its way when nothing was done in the page: then it is waited for."""
        wanted = shot(*arguments)
        wait_until(lambda: page.pixels() == wanted, f"the pixels of parlor shot {' '.join(arguments)}")
