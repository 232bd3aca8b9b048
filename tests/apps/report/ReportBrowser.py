"""Opens reports in a real browser, without a screen and without a network."""
import base64
import json
import os
import shutil
import tempfile
import time

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait

ARGUMENTS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
             "--disable-background-networking", "--disable-component-update", "--disable-sync",
             "--force-device-scale-factor=1", "--window-size=1400,900"]
LONGEST_WAIT = 60.0


class Browser:
    """One browser with a profile of its own."""

    def __init__(self):
        self.profile = tempfile.mkdtemp(prefix="report-browser-")
        options = Options()
        for argument in [*ARGUMENTS, f"--user-data-dir={self.profile}"]:
            options.add_argument(argument)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        program = shutil.which("chromium") or shutil.which("chromium-browser")
        if program:
            options.binary_location = program
        self.driver = webdriver.Chrome(options=options,
                                       service=Service(shutil.which("chromedriver")))

    def close(self):
        self.driver.quit()
        shutil.rmtree(self.profile, ignore_errors=True)

    def open(self, path):
        for log in ("browser", "performance"):
            self.driver.get_log(log)
        self.driver.get("file://" + os.path.abspath(path))
        page = ReportPage(self.driver)
        page.wait(lambda: page.interactive_after() is not None)
        return page

    def busy_after_opening(self, path):
        """Milliseconds of processor time that the page took until it could be used. Other programs
        that keep the machine busy do not lengthen it."""
        self.driver.get("about:blank")
        self.driver.execute_cdp_cmd("Performance.enable", {"timeDomain": "threadTicks"})
        before = self.busy_seconds()
        self.open(path)
        spent = self.busy_seconds() - before
        self.driver.execute_cdp_cmd("Performance.disable", {})
        return 1000.0 * spent

    def busy_seconds(self):
        metrics = self.driver.execute_cdp_cmd("Performance.getMetrics", {})["metrics"]
        return next(m["value"] for m in metrics if m["name"] == "TaskDuration")

    def complaints(self):
        """What the browser had to complain of since the last page was opened. That pixels are read
        one by one is the doing of the tests."""
        messages = [entry["message"] for entry in self.driver.get_log("browser")]
        return [message for message in messages if "getImageData" not in message]

    def requested(self):
        """The addresses asked for since the last page was opened."""
        messages = [json.loads(entry["message"])["message"]
                    for entry in self.driver.get_log("performance")]
        return [message["params"]["request"]["url"] for message in messages
                if message["method"] == "Network.requestWillBeSent"]

    def prefer(self, *, scheme="", media=""):
        features = [{"name": "prefers-color-scheme", "value": scheme}]
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia",
                                    {"media": media, "features": features})

    def print_page(self):
        done = self.driver.execute_cdp_cmd("Page.printToPDF", {"printBackground": False})
        return base64.b64decode(done["data"])


class ReportPage:
    """The page of a report as a reader handles it."""

    def __init__(self, driver):
        self.driver = driver
        self.data = json.loads(self.js("return document.getElementById('report-data').textContent"))

    # -- looking -------------------------------------------------------------------------------

    def js(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def wait(self, condition):
        WebDriverWait(self.driver, LONGEST_WAIT, 0.05).until(lambda _: condition())

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def find_all(self, selector):
        return self.driver.find_elements(By.CSS_SELECTOR, selector)

    def text(self, selector):
        return self.find(selector).text

    def active(self):
        return self.driver.switch_to.active_element

    def interactive_after(self):
        """Milliseconds from the start of loading until the page could be used; None before."""
        return self.js("return performance.getEntriesByName('report-interactive')[0]?.startTime")

    def view(self):
        """The drawing's point in the middle of the picture, and pixels for a drawing unit."""
        return tuple(float(n) for n in self.find("#canvas").get_attribute("data-view").split())

    def settle(self):
        """Waits until the picture stands still, then tells its view."""
        end = time.monotonic() + LONGEST_WAIT
        last = None
        while last != (last := self.view()):
            if time.monotonic() > end:
                raise AssertionError("the picture does not come to rest")
            time.sleep(0.25)
        return last

    def on_screen(self, place):
        """Where a place of the drawing stands, pixels from the picture's middle, y downwards."""
        x, y, scale = self.view()
        return (place[0] - x) * scale, (y - place[1]) * scale

    def pixel(self, dx, dy):
        """Red, green and blue of the picture, that far from its middle."""
        return tuple(self.js(PIXEL, dx, dy))

    def colour(self, variable):
        """Red, green and blue of a colour of the style sheet, as it is now."""
        return tuple(self.js(COLOUR, variable))

    def count_pixels(self, variable):
        """How many pixels of the picture have exactly this colour."""
        return self.js(COUNT_PIXELS, list(self.colour(variable)))

    def finding(self, index):
        """The list's entry of a finding, counted from 1."""
        return self.find(f"#finding-{index}")

    def is_in_sight(self, element):
        return self.js(IN_SIGHT, element)

    # -- doing ---------------------------------------------------------------------------------

    def move_to(self, dx, dy):
        canvas = self.find("#canvas")
        ActionChains(self.driver).move_to_element_with_offset(
            canvas, round(dx), round(dy)).perform()

    def click_at(self, dx, dy):
        canvas = self.find("#canvas")
        ActionChains(self.driver).move_to_element_with_offset(
            canvas, round(dx), round(dy)).click().perform()

    def drag(self, dx, dy):
        chain = ActionChains(self.driver).move_to_element(self.find("#canvas")).click_and_hold()
        chain.move_by_offset(dx, dy).release().perform()

    def press(self, *keys):
        chain = ActionChains(self.driver)
        for key in keys:
            chain.send_keys(key)
        chain.perform()

    def tab_to(self, selector, most=80):
        """Presses Tab until the element has the focus; tells how often."""
        for count in range(1, most + 1):
            self.press(Keys.TAB)
            if self.js("return document.activeElement.matches(arguments[0])", selector):
                return count
        raise AssertionError(f"Tab does not lead to {selector}")

    def pinch(self, span_before, span_after):
        """Two fingers on the picture's middle, moved apart or together."""
        frame = self.js("const r = document.getElementById('canvas').getBoundingClientRect();"
                        "return [r.left + r.width / 2, r.top + r.height / 2]")
        for kind, span in (("touchStart", span_before), ("touchMove", span_after)):
            points = [{"x": frame[0] + side * span / 2, "y": frame[1], "id": n}
                      for n, side in enumerate((-1, 1))]
            self.driver.execute_cdp_cmd("Input.dispatchTouchEvent",
                                        {"type": kind, "touchPoints": points})
        self.driver.execute_cdp_cmd("Input.dispatchTouchEvent",
                                    {"type": "touchEnd", "touchPoints": []})

    def wheel(self, turn):
        box = self.js("const r = document.getElementById('canvas').getBoundingClientRect();"
                      "return [r.left + r.width / 2, r.top + r.height / 2]")
        self.driver.execute_cdp_cmd("Input.dispatchMouseEvent", {
            "type": "mouseWheel", "x": box[0], "y": box[1], "deltaX": 0, "deltaY": turn})


PIXEL = """
const canvas = document.getElementById('canvas');
const x = Math.round(canvas.width / 2 + arguments[0]);
const y = Math.round(canvas.height / 2 + arguments[1]);
return [...canvas.getContext('2d').getImageData(x, y, 1, 1).data].slice(0, 3);
"""

COLOUR = """
const probe = document.createElement('span');
probe.style.color = `var(${arguments[0]})`;
document.body.append(probe);
const colour = getComputedStyle(probe).color.match(/\\d+/g).map(Number).slice(0, 3);
probe.remove();
return colour;
"""

COUNT_PIXELS = """
const canvas = document.getElementById('canvas');
const { data } = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height);
const [red, green, blue] = arguments[0];
let count = 0;
for (let i = 0; i < data.length; i += 4) {
    count += data[i] === red && data[i + 1] === green && data[i + 2] === blue;
}
return count;
"""

IN_SIGHT = """
const box = arguments[0].getBoundingClientRect();
const list = document.getElementById('finding-list').getBoundingClientRect();
return box.top >= list.top - 1 && box.bottom <= list.bottom + 1 && box.height > 0;
"""
