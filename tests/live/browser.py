"""What the browser tests share: a phone of its own for each test, and a real browser that looks at it."""

import base64
import json
import os
import re
import subprocess
import sys
import time
import unittest

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import Select

PARLOR = sys.argv.pop(1) if len(sys.argv) > 1 else os.environ["PARLOR"]
PATIENCE = 60  # seconds until a condition must have come about, on a busy machine


def wait_until(condition, what):
    """Returns what the condition gives as soon as that counts as true."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.02)
    raise AssertionError(f"did not come about: {what}")


class Phone:
    """A `parlor open` of its own; ended with the test."""

    def __init__(self, *arguments):
        self.process = subprocess.Popen(
            [PARLOR, "open", "--no-browser", *arguments],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
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
        output, errors = self.process.communicate(timeout=PATIENCE)
        self.debug_lines = output
        return self.process.returncode, errors


def make_browser(width=1280, height=1000, dark=False):
    options = Options()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                     f"--window-size={width},{height}", "--force-device-scale-factor=1"):
        options.add_argument(argument)
    options.binary_location = "/usr/bin/chromium"
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    if dark:
        browser.execute_cdp_cmd("Emulation.setEmulatedMedia",
                                {"features": [{"name": "prefers-color-scheme", "value": "dark"}]})
    return browser


class Page:
    """The page of a phone in the browser's current window."""

    def __init__(self, browser, phone):
        self.browser = browser
        self.address = phone.address
        browser.get(phone.address)
        self.wait_for_group("Adult (18+)")

    def element(self, name):
        return self.browser.find_element(By.ID, name)

    def text(self, name):
        return self.element(name).get_attribute("textContent")

    def value(self, name):
        return self.element(name).get_property("value")

    def choose(self, name, value):
        Select(self.element(name)).select_by_value(value)

    def wait_for_group(self, group):
        wait_until(lambda: self.value("group") == group, f"the group {group}")

    def wait_for_presentation(self, name):
        wait_until(lambda: self.value("presentation") == name, f"the presentation {name}")

    def find_part(self, label):
        """The button that stands for a part of the phone whose label begins so; None when there is none."""
        return self.browser.execute_script(
            "return [...document.querySelectorAll('#elements .element')]"
            ".find((part) => part.textContent.startsWith(arguments[0])) ?? null", label)

    def part(self, label):
        return wait_until(lambda: self.find_part(label), f"a part '{label}' on the phone")

    def middle_of(self, label):
        """Where a part's middle is, from the middle of the phone, as pointer actions count."""
        return wait_until(lambda: self.browser.execute_script(
            """const part = [...document.querySelectorAll('#elements .element')]
                   .find((known) => known.textContent.startsWith(arguments[0]));
               if (!part) return null;
               const phone = document.getElementById('phone').getBoundingClientRect();
               const box = part.getBoundingClientRect();
               return [Math.round(box.x + box.width / 2 - phone.x - phone.width / 2),
                       Math.round(box.y + box.height / 2 - phone.y - phone.height / 2)];""", label),
            f"a part '{label}' on the phone")

    def click(self, label):
        x, y = self.middle_of(label)
        ActionChains(self.browser).move_to_element_with_offset(self.element("phone"), x, y).click().perform()

    def drag(self, label, down):
        x, y = self.middle_of(label)
        actions = ActionChains(self.browser, duration=50).move_to_element_with_offset(self.element("phone"), x, y)
        actions.click_and_hold().move_by_offset(0, down // 2).move_by_offset(0, down - down // 2).release().perform()

    def links(self):
        return [json.loads(text) for text in self.browser.execute_script(
            "return [...document.querySelectorAll('#out .card dl')].map((card) =>"
            " JSON.stringify([...card.querySelectorAll('dd')].map((item) => item.textContent)))")]

    def pixels(self):
        """(width, height, red-green-blue bytes) of the phone, read back from the page's canvas."""
        width, height, data = self.browser.execute_script(
            """const canvas = window.phonePixels;
               const {data} = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height);
               let text = '';
               for (let at = 0; at < data.length; at += 32768) {
                   text += String.fromCharCode(...data.subarray(at, at + 32768));
               }
               return [canvas.width, canvas.height, btoa(text)];""")
        return width, height, base64.b64decode(data)

    def complaints(self):
        """Errors of this page; that of an earlier test may have missed its phone."""
        return [entry["message"] for entry in self.browser.get_log("browser")
                if entry["level"] == "SEVERE" and self.address in entry["message"]]


class BrowserTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = make_browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    def open(self, *arguments):
        phone = Phone(*arguments)
        self.addCleanup(lambda: phone.process.poll() is None and phone.end())
        return phone
