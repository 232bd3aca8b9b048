"""The page of a report in a browser: a reader goes from finding to place and back."""
import os
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))

from PipenetProcess import EXAMPLES, PipenetTest, SmallDrawing  # noqa: E402
from ReportBrowser import Browser, Keys  # noqa: E402

TOWN = os.path.join(EXAMPLES, "town.dxf")
SCREENSHOTS = os.environ["TKVLT_SCREENSHOTS"]
ROWS, COLUMNS = 100, 100
HOSTILE = "</script><img src=x onerror=alert(1)>\"'&amp;"


def faulty_drawing():
    """A sewer with a pipe that leads nowhere, a storm drain with a pipe by itself, and a well by
    itself. Each fault lies far from the others."""
    small = SmallDrawing()
    small.well("A1", (0.0, 0.0), "W1")
    small.well("A2", (40.0, 0.0), "W2")
    small.well("A3", (40.0, 30.0), "W3")
    small.pipe("B1", (39.5, 0.0), (0.5, 0.0), low="9.5", high="9.0")
    small.pipe("B2", (40.0, 29.5), (40.0, 0.5), low="10", high="9.6")
    small.pipe("B3", (80.0, 0.0), (40.5, 0.0), low="10", high="9.6")
    small.well("A4", (0.0, 60.0), "Y1", "雨水")
    small.well("A5", (40.0, 60.0), "Y2", "雨水")
    small.pipe("B4", (39.5, 60.0), (0.5, 60.0), "雨水", low="9.5", high="9.0")
    small.pipe("B5", (80.0, 60.0), (120.0, 60.0), "雨水", low="9.5", high="9.0")
    small.well("A6", (120.0, 30.0), "W9")
    return small


def large_drawing():
    """Ten thousand pipes from well to well in rows; every tenth row ends with a pipe that leads to
    no well. No slope fits the elevations, so that there are as many findings as pipes."""
    small = SmallDrawing()
    handle = 0x1000
    for row in range(ROWS):
        y = 40.0 * row
        for column in range(COLUMNS):
            x = 30.0 * column
            small.well(f"{handle:X}", (x, y), f"W{row}-{column}")
            small.pipe(f"{handle + 1:X}", (x + 29.5, y), (x + 0.5, y), low="10", high="9.9")
            handle += 2
        if row % 10 != 0:
            small.well(f"{handle:X}", (30.0 * COLUMNS, y), f"W{row}-{COLUMNS}")
            handle += 1
    return small


class ReportTest(PipenetTest):
    @classmethod
    def setUpClass(cls):
        os.makedirs(SCREENSHOTS, exist_ok=True)
        cls.browser = Browser()
        cls.addClassCleanup(cls.browser.close)

    def setUp(self):
        super().setUp()
        self.browser.prefer(scheme="light")

    def report(self, drawing):
        """Checks the drawing and tells where the page is."""
        path = self.path("report.html")
        run = self.run_program("check", drawing, "--format", "html", "--output", path)
        self.assertIn(run.status, (0, 1), run.err)
        self.assertEqual(run.out, "")
        return path

    def open(self, drawing):
        page = self.browser.open(self.report(drawing))
        page.settle()
        return page

    def open_faulty(self):
        page = self.open(self.write(faulty_drawing()))
        self.assertGreaterEqual(len([f for f in page.data["findings"] if f["at"]]), 3)
        return page

    def assert_quiet(self):
        """No error in the script, and nothing asked for but the page itself."""
        self.assertEqual(self.browser.complaints(), [])
        others = [url for url in self.browser.requested() if not url.startswith("file://")]
        self.assertEqual(others, [])

    def assert_in_middle(self, page, place):
        x, y, scale = page.settle()
        self.assertAlmostEqual((x - place[0]) * scale, 0.0, delta=1.0)
        self.assertAlmostEqual((y - place[1]) * scale, 0.0, delta=1.0)

    def assert_ring(self, page, dx, dy):
        """The ring around the marked place passes there, give or take a pixel."""
        wanted = page.colour("--spot")
        misses = [max(abs(value - aim) for value, aim in zip(page.pixel(dx + i, dy + j), wanted))
                  for i in (-1, 0, 1) for j in (-1, 0, 1)]
        self.assertLess(min(misses), 30)

    def placed(self, page):
        """Numbers and places of the findings that have one."""
        return [(index + 1, finding["at"]) for index, finding in enumerate(page.data["findings"])
                if finding["at"] is not None]


class FindingTest(ReportTest):
    def test_finding_leads_to_its_place(self):
        page = self.open_faulty()
        before = page.view()
        number, place = self.placed(page)[-1]
        page.finding(number).click()
        self.assert_in_middle(page, place)
        self.assertGreater(page.view()[2], before[2])
        # The ring around the place has a radius of 17 pixels.
        for dx, dy in ((17, 0), (-17, 0), (0, 17), (0, -17)):
            self.assert_ring(page, dx, dy)
        self.assertEqual(page.find(".finding.selected > button").get_attribute("id"),
                         f"finding-{number}")
        self.assert_quiet()

    def test_ring_is_seen_as_a_whole(self):
        small = faulty_drawing()
        corners = [(200.0, 0.0), (260.0, 0.0), (260.0, 40.0), (200.0, 40.0)]
        for index, corner in enumerate(corners):
            small.well(f"D{index}", corner, f"R{index}")
            small.pipe(f"E{index}", corner, corners[(index + 1) % 4])
        page = self.open(self.write(small))
        ring = next(index for index, finding in enumerate(page.data["findings"])
                    if finding["code"] == "cycle")
        self.assertEqual(page.data["findings"][ring]["severity"], "error")
        page.finding(ring + 1).click()
        page.settle()
        canvas = page.find("#canvas").rect
        for corner in corners:
            dx, dy = page.on_screen(corner)
            self.assertLess(abs(dx), canvas["width"] / 2)
            self.assertLess(abs(dy), canvas["height"] / 2)

    def test_list_tells_what_was_found(self):
        page = self.open_faulty()
        findings = page.data["findings"]
        entries = page.find_all(".finding")
        self.assertEqual(len(entries), len(findings))
        for entry, finding in zip(entries, findings):
            self.assertIn(finding["code"], entry.text)
            self.assertIn(finding["sentence"], entry.get_property("textContent"))
            for handle in finding["handles"]:
                self.assertIn(handle, entry.text)

    def test_mark_leads_to_its_entry(self):
        page = self.open_faulty()
        for number, place in self.placed(page):
            page.find("#zoom-all").click()
            page.settle()
            page.click_at(*page.on_screen(place))
            entry = page.find(".finding.selected > button")
            shown = page.data["findings"][int(entry.get_attribute("id").split("-")[1]) - 1]
            # Findings at one place share a mark; it leads to them one after the other.
            self.assertEqual(shown["at"], place, number)
            self.assertTrue(page.is_in_sight(entry))
            self.assertEqual(page.active(), entry)
        self.assert_quiet()

    def test_handles_of_an_entry_lead_to_their_entities(self):
        page = self.open_faulty()
        entry = page.find(".finding")
        handle = entry.find_element("css selector", ".handles button")
        wanted = handle.text
        handle.click()
        page.settle()
        self.assertIn(wanted, page.text("#live"))
        self.assert_ring(page, 17, 0)

    def test_filters_narrow_list_and_marks(self):
        page = self.open_faulty()
        findings = page.data["findings"]
        code = findings[0]["code"]
        wanted = [f for f in findings if f["code"] == code]
        page.find(f"#filter-code option[value='{code}']").click()
        self.assertEqual(len(page.find_all(".finding")), len(wanted))
        self.assertEqual(page.text("#shown"), f"{len(wanted)} of {len(findings)} findings shown")
        page.find("#filter-clear").click()
        self.assertEqual(len(page.find_all(".finding")), len(findings))
        severity = findings[0]["severity"]
        colour = f"--{severity}"
        self.assertGreater(page.count_pixels(colour), 0)
        page.find(f"#severities .{severity}").click()
        page.settle()
        left = [f for f in findings if f["severity"] != severity]
        self.assertEqual(len(page.find_all(".finding")), len(left))
        self.assertEqual(page.count_pixels(colour), 0)
        toggle = page.find(f"#severities .{severity}")
        self.assertEqual(toggle.get_attribute("aria-pressed"), "false")

    def test_severities_are_counted(self):
        page = self.open_faulty()
        for severity in ("error", "warning", "note"):
            count = len([f for f in page.data["findings"] if f["severity"] == severity])
            shown = page.text(f"#severities .{severity}")
            self.assertEqual(shown, f"{count} {severity}" + ("" if count == 1 else "s"))


class PictureTest(ReportTest):
    def test_search_by_handle_and_by_number(self):
        page = self.open_faulty()
        page.find("#search").send_keys("b4", Keys.ENTER)
        self.assert_in_middle(page, (20.0, 60.0))
        self.assertIn("Pipe (B4)", page.text("#live"))
        page.find("#search").clear()
        page.find("#search").send_keys("Y2")
        self.assertEqual(page.text("#search-results li span"), "Well Y2 (A5)")
        page.find("#search-results li").click()
        self.assert_in_middle(page, (40.0, 60.0))
        page.find("#search").clear()
        page.find("#search").send_keys("no such")
        self.assertIn("Nothing", page.text("#search-results"))
        page.find("#search").send_keys(Keys.ENTER)
        self.assert_in_middle(page, (40.0, 60.0))
        self.assert_quiet()

    def test_layers_can_be_switched(self):
        page = self.open_faulty()
        names = [system["name"] for system in page.data["systems"]]
        storm = names.index("雨水")
        colour = f"--system-{storm}"
        self.assertGreater(page.count_pixels(colour), 0)
        page.find(f"[data-system='{storm}']").click()
        page.settle()
        self.assertEqual(page.count_pixels(colour), 0)
        self.assertGreater(page.count_pixels(f"--system-{names.index('污水')}"), 0)
        # What lies on a layer that is off can still be gone to: the layer comes on again.
        page.find("#search").send_keys("B4", Keys.ENTER)
        page.settle()
        self.assertTrue(page.find(f"[data-system='{storm}']").is_selected())
        self.assertGreater(page.count_pixels(colour), 0)

    def test_pointing_lights_up_the_network(self):
        page = self.open_faulty()
        names = [system["name"] for system in page.data["systems"]]
        storm, sewer = (f"--system-{names.index(name)}" for name in ("雨水", "污水"))
        before = page.count_pixels(storm), page.count_pixels(sewer)
        page.move_to(*page.on_screen((31.0, 60.0)))
        page.wait(lambda: page.find("#tip").is_displayed())
        self.assertIn("Pipe (B4)", page.text("#tip"))
        self.assertIn("雨水", page.text("#tip"))
        page.settle()
        self.assertGreater(page.count_pixels(storm), before[0])
        self.assertLess(page.count_pixels(sewer), before[1] / 4)
        page.move_to(*page.on_screen((60.0, 45.0)))
        page.wait(lambda: not page.find("#tip").is_displayed())
        page.settle()
        self.assertEqual((page.count_pixels(storm), page.count_pixels(sewer)), before)

    def test_wheel_drag_and_buttons_move_the_picture(self):
        page = self.open_faulty()
        x, y, scale = page.settle()
        page.drag(120, -60)
        moved = page.settle()
        self.assertAlmostEqual((moved[0] - x) * scale, -120.0, delta=0.01)
        self.assertAlmostEqual((moved[1] - y) * scale, -60.0, delta=0.01)
        self.assertEqual(moved[2], scale)
        page.wheel(-200)
        page.wait(lambda: page.view()[2] > scale)
        nearer = page.settle()
        page.find("#zoom-out").click()
        self.assertAlmostEqual(page.settle()[2], nearer[2] / 1.5, delta=1e-9)
        page.find("#zoom-all").click()
        self.assertAlmostEqual(page.settle()[2], scale, delta=scale * 1e-9)

    def test_two_fingers_zoom(self):
        page = self.open_faulty()
        x, y, scale = page.settle()
        page.pinch(100, 200)
        page.wait(lambda: page.view()[2] != scale)
        zoomed = page.settle()
        self.assertAlmostEqual(zoomed[2] / scale, 2.0, delta=0.01)
        self.assertAlmostEqual((zoomed[0] - x) * scale, 0.0, delta=1.0)

    def test_scale_bar_measures_metres(self):
        page = self.open_faulty()
        metres = float(page.text("#scale-bar").split()[0])
        bar = page.find("#scale-bar")
        # One drawing unit is one metre here.
        self.assertAlmostEqual(bar.rect["width"], metres * page.view()[2], delta=1.5)

    def test_systems_show_their_figures(self):
        page = self.open_faulty()
        page.find("#tab-systems").click()
        self.assertFalse(page.find("#findings").is_displayed())
        sections = page.find_all("#systems .figures")
        self.assertEqual(len(sections), len(page.data["systems"]))
        for section, system in zip(sections, page.data["systems"]):
            self.assertIn(system["name"], section.text)
            self.assertIn(f"Pipes\n{system['pipes']}", section.text)
            self.assertIn(f"{system['length']:,.1f} m", section.text)
        section = next(s for s in sections if "雨水" in s.text)
        section.find_element("css selector", "summary").click()
        page.wait(lambda: section.find_elements("css selector", "[data-network]"))
        network = section.find_element("css selector", "[data-network]")
        network.click()
        page.settle()
        self.assertEqual(network.get_attribute("aria-pressed"), "true")
        # B4 is all the pipe of the network: it fills the picture from side to side.
        self.assertAlmostEqual(page.view()[0], 20.0, delta=0.6)
        self.assertAlmostEqual(page.view()[1], 60.0, delta=0.6)
        self.assert_quiet()


class KeyboardTest(ReportTest):
    def test_everything_works_by_keyboard_alone(self):
        page = self.open_faulty()
        findings = page.data["findings"]
        page.tab_to("#canvas")
        outline = page.js("return getComputedStyle(document.activeElement).outlineStyle")
        self.assertEqual(outline, "solid")
        x, y, scale = page.settle()
        page.press(Keys.ARROW_RIGHT)
        self.assertAlmostEqual((page.settle()[0] - x) * scale, 80.0, delta=0.01)
        page.press("+")
        self.assertAlmostEqual(page.settle()[2], scale * 1.5, delta=1e-9)
        page.press("0")
        self.assertAlmostEqual(page.settle()[2], scale, delta=scale * 1e-9)
        page.press("n")
        self.assert_in_middle(page, findings[0]["at"])
        page.press(Keys.ENTER)
        self.assertEqual(page.active().get_attribute("id"), "finding-1")
        page.press(Keys.ARROW_DOWN, Keys.ENTER)
        self.assertEqual(page.active().get_attribute("id"), "finding-2")
        self.assert_in_middle(page, findings[1]["at"])
        page.press(Keys.END)
        self.assertEqual(page.active().get_attribute("id"), f"finding-{len(findings)}")
        page.press("/", "W3", Keys.ENTER)
        self.assertEqual(page.active().get_attribute("id"), "search")
        self.assert_in_middle(page, (40.0, 30.0))
        self.assert_quiet()

    def test_tab_reaches_every_control_once(self):
        page = self.open_faulty()
        order = ["#search", "#theme", "#print", "#canvas", "#layers summary",
                 "[data-system='0']", "[data-part='labels']", "#zoom-in", "#zoom-all",
                 "#keys summary", "#tab-findings", "#severities .error", "#filter-code",
                 "#filter-system", "#finding-1"]
        steps = [page.tab_to(selector) for selector in order]
        # The first entry alone is a stop of the list, not each of them; the skip link comes first.
        self.assertEqual(steps[0], 2)
        self.assertLess(sum(steps), 30)

    def test_layers_and_tabs_by_keyboard(self):
        page = self.open_faulty()
        page.tab_to("[data-system='0']")
        before = page.count_pixels("--system-0")
        page.press(Keys.SPACE)
        page.settle()
        self.assertGreater(before, 0)
        self.assertEqual(page.count_pixels("--system-0"), 0)
        page.tab_to("#tab-findings")
        page.press(Keys.ARROW_RIGHT)
        self.assertEqual(page.active().get_attribute("id"), "tab-systems")
        self.assertTrue(page.find("#systems").is_displayed())

    def test_controls_have_names(self):
        page = self.open_faulty()
        nameless = page.js("""
            return [...document.querySelectorAll('button, input, select, canvas')]
                .filter((control) => !(control.textContent.trim() ||
                                       control.getAttribute('aria-label') ||
                                       control.labels?.length))
                .map((control) => control.outerHTML);""")
        self.assertEqual(nameless, [])


class AppearanceTest(ReportTest):
    def test_light_and_dark(self):
        page = self.open_faulty()
        light = page.colour("--paper")
        self.assertGreater(sum(light), 3 * 200)
        self.assertEqual(page.pixel(0, -300), light)
        self.browser.prefer(scheme="dark")
        page.wait(lambda: sum(page.pixel(0, -300)) < 3 * 60)
        page.find("#theme").click()
        page.wait(lambda: page.pixel(0, -300) == light)
        self.browser.prefer(scheme="light")
        page.find("#theme").click()
        page.wait(lambda: sum(page.pixel(0, -300)) < 3 * 60)
        self.assert_quiet()

    def test_prints_picture_and_list(self):
        page = self.open_faulty()
        page.finding(1).click()
        before = page.settle()
        page.js("addEventListener('beforeprint', () => {"
                "window.printed = [document.getElementById('canvas').width,"
                "document.querySelectorAll('.finding').length]})")
        paper = self.browser.print_page()
        self.assertTrue(paper.startswith(b"%PDF"))
        self.assertGreater(len(paper), 20000)
        self.assertEqual(page.js("return window.printed"), [3000, len(page.data["findings"])])
        self.assertEqual(page.settle(), before)
        self.browser.prefer(scheme="light", media="print")
        shown = {selector: page.find(selector).is_displayed() for selector in
                 ("#canvas", "#finding-1", "#systems", "#search", "#theme", ".zoom")}
        self.browser.prefer(scheme="light")
        self.assertEqual(shown, {"#canvas": True, "#finding-1": True, "#systems": True,
                                 "#search": False, "#theme": False, ".zoom": False})

    def test_narrow_window_shows_picture_and_list(self):
        page = self.open_faulty()
        self.browser.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": 420, "height": 800, "deviceScaleFactor": 2, "mobile": True})
        self.addCleanup(self.browser.driver.execute_cdp_cmd,
                        "Emulation.clearDeviceMetricsOverride", {})
        page.settle()
        picture, panel = page.find("#picture").rect, page.find("#panel").rect
        self.assertEqual((picture["width"], panel["width"]), (420, 420))
        self.assertGreaterEqual(panel["y"], picture["y"] + picture["height"] - 1)
        self.assertEqual(page.js("return document.documentElement.scrollWidth"), 420)
        # The picture still shows the whole drawing.
        self.assertAlmostEqual(page.view()[0], 60.0, delta=1.0)
        self.assertLess(page.view()[2] * 120.0, 420.0)
        self.browser.driver.save_screenshot(os.path.join(SCREENSHOTS, "narrow.png"))

    def test_screenshots_of_the_town(self):
        page = self.open(TOWN)
        for theme in ("light", "dark"):
            self.browser.prefer(scheme=theme)
            page.settle()
            path = os.path.join(SCREENSHOTS, f"town-{theme}.png")
            self.assertTrue(self.browser.driver.save_screenshot(path))
        self.assert_quiet()


class UnusualTest(ReportTest):
    def test_hostile_texts_stay_texts(self):
        small = faulty_drawing()
        small.well("C1", (0.0, 100.0), HOSTILE, "雨水")
        small.pipe("C2", (5.0, 100.0), (30.0, 100.0), "<b>系统</b>")
        page = self.open(self.write(small))
        page.find("#search").send_keys("onerror")
        self.assertEqual(page.text("#search-results li span"), f"Well {HOSTILE} (C1)")
        self.assertEqual(page.find_all("img, b[onerror]"), [])
        page.find("#search").send_keys(Keys.ENTER)
        self.assert_in_middle(page, (0.0, 100.0))
        self.assert_quiet()

    def test_places_out_of_reach_do_not_harm(self):
        small = faulty_drawing()
        small.pipe("C1", (0.0, 0.0), (3e15, 0.0))
        small.well("C2", (1e200, 1e200), "far")
        page = self.open(self.write(small))
        self.assertNotIn("C1", [pipe["handle"] for pipe in page.data["pipes"]])
        # The rest of the drawing fills the picture.
        self.assertGreater(page.view()[2], 1.0)
        for entry in page.find_all(".finding > button"):
            entry.click()
            x, y, scale = page.settle()
            self.assertLess(abs(x) + abs(y), 1000.0)
        self.assert_quiet()

    def test_drawing_without_network_entities(self):
        page = self.open(self.write(SmallDrawing()))
        self.assertTrue(page.find("#no-drawing").is_displayed())
        self.assertIn("Nothing was found amiss", page.text("#finding-list"))
        page.tab_to("#canvas")
        page.press("+", Keys.ARROW_LEFT, "0", "n")
        page.settle()
        self.assert_quiet()


class LargeDrawingTest(ReportTest):
    def test_ten_thousand_pipes(self):
        path = self.report(self.write(large_drawing(), "large.dxf"))
        busy = self.browser.busy_after_opening(path)
        page = self.browser.open(path)
        ready = page.interactive_after()
        print(f"interactive after {ready:.0f} ms; {busy:.0f} ms of processor time")
        self.assertEqual(len(page.data["pipes"]), ROWS * COLUMNS)
        self.assertGreater(busy, 1.0)
        self.assertLess(busy, 2000.0)
        page.settle()
        page.find("#search").send_keys("W99-99", Keys.ENTER)
        self.assert_in_middle(page, (30.0 * 99, 40.0 * 99))
        number, place = self.placed(page)[-1]
        page.tab_to("#finding-1")
        page.press(Keys.END)
        self.assertEqual(page.active().get_attribute("id"), f"finding-{len(page.data['findings'])}")
        page.finding(number).click()
        self.assert_in_middle(page, place)
        self.browser.driver.save_screenshot(os.path.join(SCREENSHOTS, "large.png"))
        self.assert_quiet()


if __name__ == "__main__":
    unittest.main()
