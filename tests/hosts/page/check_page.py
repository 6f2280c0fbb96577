#!/usr/bin/env python3
"""The page of ipc2581 html in a browser: check_page.py PROGRAM FOLDER [TEST...]

The example board of the folder is looked at closely; for each board of it the page is compared with what the program
lists. Ends with 77 where there is no browser, or no board.
"""

import csv
import io
import json
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "support"))
from browser import new_browser

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

PROGRAM = ""
FOLDER = Path()
HOSTILE = "<img src=x onerror=hit()>\"'`${hit()}</script><script>hit()</script>"


def xml(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;").replace('"', "&quot;")


def boards():
    return [path for path in sorted(FOLDER.iterdir()) if path.suffix in (".cvg", ".xml", ".zst")]


class PageTest(unittest.TestCase):
    """Each test has a page of its own, and a browser that has kept nothing."""

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.browser = new_browser()
        cls.board = boards()[0]
        cls.path = cls.make(cls.board)

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        cls.folder.cleanup()

    @classmethod
    def make(cls, board, *options, name=None):
        page = Path(cls.folder.name) / f"{name or board.name}.html"
        subprocess.run([PROGRAM, "html", board, "-o", page, *options], check=True, stderr=subprocess.DEVNULL)
        return page

    def open(self, path, forget=True):
        self.browser.get(path.as_uri())
        self.wait("return !!window.page?.board")
        if forget:
            self.run_js("localStorage.clear()")
            self.browser.get(path.as_uri())
            self.wait("return !!window.page?.board")
        self.wait("return page.view.frames > 0")

    def setUp(self):
        self.open(self.path)

    def run_js(self, script, *arguments):
        return self.browser.execute_script(script, *arguments)

    def wait(self, script, *arguments):
        end = time.time() + 20
        while time.time() < end:
            if self.run_js(script, *arguments):
                return
            time.sleep(0.05)
        self.fail(f"never true: {script}")

    def click_board(self, x, y, side="front", *keys):
        """Clicks on a place of the board, in millimetres."""
        at = self.run_js("return page.view.pageOf(arguments[2], arguments[0], arguments[1])", x, y, side)
        pane = self.browser.find_element(By.CSS_SELECTOR, f".pane[data-side={side}]")
        box = self.run_js("const b = arguments[0].getBoundingClientRect(); return [b.left + b.width / 2, "
                          "b.top + b.height / 2]", pane)
        chain = ActionChains(self.browser)
        for key in keys:
            chain.key_down(key)
        chain.move_to_element_with_offset(pane, round(at["x"] - box[0]), round(at["y"] - box[1])).click()
        for key in keys:
            chain.key_up(key)
        chain.perform()

    def middle(self, part):
        place = self.run_js("return page.view.middleOf(arguments[0])", part)
        return place["x"], place["y"]

    def keys(self, *keys):
        self.run_js("document.activeElement.blur()")
        ActionChains(self.browser).send_keys(*keys).perform()

    def parts(self):
        return sorted(self.run_js("return [...page.selection.parts]"))

    def color(self, x, y, side="front"):
        return self.run_js(
            "const [x, y, side] = arguments, v = page.view, at = v.pageOf(side, x, y);"
            "const box = v.node.getBoundingClientRect(), image = v.image();"
            "return [...image.getContext('2d').getImageData(at.x - box.left, at.y - box.top, 1, 1).data]", x, y, side)

    def tab(self, name):
        self.browser.find_element(By.ID, f"tab-{name}").click()

    # What is lit

    def test_a_click_on_a_part_lights_its_row(self):
        self.tab("parts")
        before = self.color(*self.middle("U1"))
        self.click_board(*self.middle("U1"))
        self.assertEqual(self.parts(), ["U1"])
        self.wait("return document.querySelectorAll('#panel-parts .tabulator-row.lit').length === 1")
        row = self.browser.find_element(By.CSS_SELECTOR, "#panel-parts .tabulator-row.lit")
        self.assertIn("U1", row.text)
        self.assertEqual(row.get_attribute("aria-selected"), "true")
        self.assertNotEqual(self.color(*self.middle("U1")), before)
        self.assertIn("U1", self.browser.find_element(By.CSS_SELECTOR, ".status").text)

    def test_a_click_on_a_row_lights_its_parts(self):
        self.wait("return document.querySelectorAll('#panel-groups .tabulator-row').length > 3")
        group = self.run_js("return page.lists.groups.visibleRows().find(row => row.designators.length > 1).designators")
        for row in self.browser.find_elements(By.CSS_SELECTOR, "#panel-groups .tabulator-row"):
            if row.text.startswith(" ".join(group)):
                row.find_element(By.CSS_SELECTOR, "[tabulator-field=quantity]").click()
        self.assertEqual(self.parts(), sorted(group))

    def test_a_click_on_copper_names_its_net(self):
        track = self.run_js(
            "for (const layer of page.board.layers) for (const item of layer.content) {"
            " if (layer.role !== 'copper' || layer.side !== 'top' || item.kind !== 1 || !item.net) continue;"
            " for (const path of item.paths) for (let i = 1; i < path.length; ++i) {"
            "  const x = (path[i - 1].x + path[i].x) / 2, y = (path[i - 1].y + path[i].y) / 2;"
            "  if (path[i].kind === 1 && !page.view.told('front', {x, y}).part)"
            "   return [x, y, page.board.names[item.net]]; } }")
        dark = self.color(track[0], track[1])
        self.click_board(track[0], track[1])
        self.assertEqual(self.run_js("return page.selection.net"), track[2])
        self.assertNotEqual(self.color(track[0], track[1]), dark)
        status = self.browser.find_element(By.CSS_SELECTOR, ".status").text
        self.assertTrue(status.startswith(f"Net {track[2]}: "), status)
        self.assertIn(" mm of tracks", status)
        self.wait("return document.querySelectorAll('#panel-nets .tabulator-row.lit').length === 1")

    def test_a_click_with_a_key_held_takes_the_net_of_a_pad(self):
        pad = self.run_js(
            "const part = page.scene.parts.get('U1'); const pad = page.scene.padsOf(part).find(one => one.net);"
            "const box = page.scene.shapes.boxOf(pad.item);"
            "return [(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2]")
        self.click_board(*pad)
        self.assertEqual(self.parts(), ["U1"])
        self.click_board(*pad, "front", Keys.CONTROL)
        self.assertEqual(self.parts(), [])
        self.assertNotEqual(self.run_js("return page.selection.net"), "")

    def test_a_click_beside_the_board_clears_and_a_drag_moves(self):
        self.click_board(*self.middle("U1"))
        before = self.run_js("return page.view.panes.front.camera.x")
        pane = self.browser.find_element(By.CSS_SELECTOR, ".pane[data-side=front]")
        ActionChains(self.browser).drag_and_drop_by_offset(pane, 60, 0).perform()
        self.assertLess(self.run_js("return page.view.panes.front.camera.x"), before)
        self.assertEqual(self.parts(), ["U1"])
        self.run_js("page.view.fit()")
        box = self.run_js("return page.scene.bounds")
        self.wait("return page.view.panes.front.isFitted")
        self.click_board(box["minX"] - 0.4, box["minY"] - 0.2)
        self.assertEqual(self.parts(), [])

    def test_the_back_is_seen_from_behind(self):
        self.keys("f")
        self.wait("return page.settings.values.sides === 'back' && page.view.panes.back.isFitted")
        part = self.run_js("return page.board.parts.find(part => part.side === 'back').name")
        self.click_board(*self.middle(part), "back")
        self.assertEqual(self.parts(), [part])
        left = self.run_js("return page.view.pageOf('back', 0, 0).x - page.view.pageOf('back', 1, 0).x")
        self.assertGreater(left, 0)

    # Lists

    def test_search_and_filters_leave_rows_out(self):
        self.tab("parts")
        search = self.browser.find_element(By.CSS_SELECTOR, "input[type=search]")
        search.send_keys("res")
        names = self.run_js("return page.lists.parts.visibleRows().map(row => row.designator)")
        self.assertEqual(names, ["R1", "R2", "R3"])
        search.send_keys(Keys.ESCAPE)
        self.assertGreater(self.run_js("return page.lists.parts.visibleRows().length"), 3)
        self.run_js("const s = document.querySelector('select[aria-label=Side]'); s.value = 'bottom';"
                    "s.dispatchEvent(new Event('change'))")
        sides = self.run_js("return page.lists.parts.visibleRows().map(row => row.side)")
        self.assertEqual(set(sides), {"bottom"})

    def test_designators_are_in_the_order_of_people(self):
        self.tab("parts")
        names = self.run_js("return page.lists.parts.visibleRows().map(row => row.designator)")
        self.assertEqual([name for name in names if name[0] in "CRDU"],
                         ["C1", "C2", "R1", "R2", "R3", "D1", "U1"])

    def test_a_click_on_a_head_sorts(self):
        self.tab("parts")
        self.wait("return document.querySelectorAll('#panel-parts .tabulator-row').length > 3")
        head = self.browser.find_element(By.CSS_SELECTOR, "#panel-parts .tabulator-col[tabulator-field=designator]")
        head.click()
        up = self.run_js("return page.lists.parts.visibleRows().map(row => row.designator)")
        head.click()
        self.assertEqual(self.run_js("return page.lists.parts.visibleRows().map(row => row.designator)"), up[::-1])

    def test_a_list_is_saved_as_it_is_shown(self):
        self.tab("parts")
        self.wait("return document.querySelectorAll('#panel-parts .tabulator-row').length > 3")
        self.browser.find_element(By.CSS_SELECTOR, "#panel-parts summary").click()
        for box in self.browser.find_elements(By.CSS_SELECTOR, "#panel-parts .menu label"):
            if box.text in ("Package", "Part number"):
                box.click()
        rows = list(csv.reader(io.StringIO(self.run_js("return page.lists.parts.csv()"))))
        self.assertNotIn("Package", rows[0])
        self.assertIn("Part number", rows[0])
        self.assertEqual(len(rows) - 1, self.run_js("return page.board.parts.length"))
        self.open(self.path, forget=False)
        self.assertNotIn("Package", self.run_js("return page.lists.parts.csv()").split("\n")[0])

    # Check boxes and settings

    def test_checked_parts_are_counted_and_kept_for_their_board(self):
        self.tab("parts")
        self.wait("return document.querySelectorAll('#panel-parts .tabulator-row').length > 3")
        self.browser.find_element(By.CSS_SELECTOR, "input[aria-label='Placed C1']").click()
        self.click_board(*self.middle("U1"))
        self.keys(" ")
        self.assertIn("Placed 2 of 16", self.browser.find_element(By.CSS_SELECTOR, ".counts").text)
        self.open(self.path, forget=False)
        self.assertIn("Placed 2 of 16", self.browser.find_element(By.CSS_SELECTOR, ".counts").text)
        other = Path(self.folder.name) / "other.cvg"
        other.write_bytes(self.board.read_bytes().replace(b"RES-47K", b"RES-48K"))
        self.open(self.make(other), forget=False)
        self.assertIn("Placed 0 of 16", self.browser.find_element(By.CSS_SELECTOR, ".counts").text)

    def test_settings_are_loaded_as_they_were_saved(self):
        self.run_js("page.settings.change({checks: ['Seen'], turn: 90, units: 'inch'});"
                    "page.settings.check('Seen', ['U1'], true)")
        text = self.run_js("return page.settings.text()")
        self.open(self.path)
        self.assertEqual(self.run_js("return page.settings.values.turn"), 0)
        self.assertTrue(self.run_js("return page.settings.load(arguments[0])", text))
        self.assertIn("Seen 1 of 16", self.browser.find_element(By.CSS_SELECTOR, ".counts").text)
        self.assertFalse(self.run_js("return page.settings.load('{}')"))

    def test_layers_and_kinds_are_turned_off(self):
        x, y = self.run_js("const hole = page.board.holes.find(one => one.diameter > 0.5);"
                           "return [hole.x + hole.diameter / 2 + 0.1, hole.y]")
        shown = self.color(x, y)
        self.run_js("for (const layer of page.board.layers) page.settings.setLayer(layer.name, {isVisible: false});"
                    "page.settings.show('fabrication', false); page.settings.show('references', false)")
        self.assertNotEqual(self.color(x, y), shown)

    # What is left out

    def picture(self):
        return self.run_js("const image = page.view.image();"
                           "return image.getContext('2d').getImageData(0, 0, image.width, image.height).data.join()")

    def test_what_a_negative_layer_covers_is_left_out_and_looks_the_same(self):
        self.run_js("page.settings.change({seeThrough: true});"
                    "for (const layer of page.board.layers) page.settings.setLayer(layer.name, {isVisible: true})")
        left = self.picture()
        beyond = self.run_js("return [...page.view.drawables].filter(([name]) => name.endsWith(' beyond'))"
                             ".map(([name, drawn]) => [name, drawn.marks?.chunks.order.length ?? 0])")
        bottom = self.run_js("return page.board.layers.find(layer => layer.name === 'BOTTOM').place")
        tracks = dict(beyond)[f"{bottom} tracks beyond"]
        self.run_js("page.scene.interior.margin = 0")
        self.assertEqual(self.picture(), left)
        self.assertLess(tracks, self.run_js("return page.view.drawables.get(`${arguments[0]} tracks`).marks.chunks.order"
                                            ".length", bottom))

    def test_a_picture_at_rest_is_whole_again(self):
        whole = self.picture()
        size = self.run_js("return page.view.canvas.width")
        moving = self.run_js("page.view.quick = 4; page.view.refreshInMotion(); page.view.draw();"
                             "return page.view.canvas.width")
        self.assertAlmostEqual(moving, size / 2, delta=1)
        self.wait("return page.view.canvas.width === arguments[0]", size)
        self.assertEqual(self.picture(), whole)

    # Keys

    def test_keys(self):
        self.tab("parts")
        self.wait("return document.querySelectorAll('#panel-parts .tabulator-row').length > 3")
        self.keys("n")
        self.assertEqual(self.parts(), ["C1"])
        self.keys("n")
        self.assertEqual(self.parts(), ["C2"])
        self.keys("p")
        self.assertEqual(self.parts(), ["C1"])
        self.keys(Keys.ESCAPE)
        self.assertEqual(self.parts(), [])
        self.keys("r")
        self.assertEqual(self.run_js("return page.settings.values.turn"), 270)
        self.keys("b")
        self.assertEqual(self.run_js("return page.settings.values.sides"), "both")
        self.keys("1")
        self.assertEqual(len(self.browser.find_elements(By.CSS_SELECTOR, ".view")), 0)
        self.keys("2")
        self.keys("/")
        self.assertEqual(self.run_js("return document.activeElement.type"), "search")
        self.keys("?")
        self.assertTrue(self.browser.find_element(By.TAG_NAME, "dialog").is_displayed())

    def test_arrow_keys_go_through_the_list_that_has_the_focus(self):
        self.tab("parts")
        self.wait("return document.querySelectorAll('#panel-parts .tabulator-row').length > 3")
        self.run_js("document.querySelector('#panel-parts .tabulator-tableholder').focus()")
        for key, part in ((Keys.ARROW_DOWN, "C1"), (Keys.ARROW_DOWN, "C2"), (Keys.ARROW_UP, "C1")):
            ActionChains(self.browser).send_keys(key).perform()
            self.assertEqual(self.parts(), [part])
        # The side of the part is shown.
        side = self.run_js("return page.settings.values.sides")
        camera = f"return page.view.panes.{side}.camera.y"
        before = self.run_js(camera)
        self.run_js("document.querySelector(`.pane[data-side=${arguments[0]}]`).focus()", side)
        ActionChains(self.browser).send_keys(Keys.ARROW_DOWN).perform()
        self.assertEqual(self.parts(), ["C1"])
        self.assertNotEqual(self.run_js(camera), before)

    # Gestures

    def touch(self, kind, *points):
        self.browser.execute_cdp_cmd("Input.dispatchTouchEvent", {
            "type": kind, "touchPoints": [{"x": x, "y": y, "id": i} for i, (x, y) in enumerate(points)]})

    def test_two_fingers_zoom_about_their_place(self):
        self.browser.execute_cdp_cmd("Emulation.setTouchEmulationEnabled", {"enabled": True, "maxTouchPoints": 2})
        x, y = self.run_js("const box = document.querySelector('.pane[data-side=front]').getBoundingClientRect();"
                           "return [box.left + box.width / 2, box.top + box.height / 2]")
        distance = "return page.view.pageOf('front', 1, 0).x - page.view.pageOf('front', 0, 0).x"
        before = self.run_js(distance)
        self.touch("touchStart", (x - 40, y), (x + 40, y))
        for step in (60, 80):
            self.touch("touchMove", (x - step, y), (x + step, y))
        self.touch("touchEnd")
        self.browser.execute_cdp_cmd("Emulation.setTouchEmulationEnabled", {"enabled": False})
        self.assertAlmostEqual(self.run_js(distance) / before, 2, delta=0.2)
        self.assertEqual(self.parts(), [])

    def test_the_split_is_dragged_and_kept(self):
        gutter = self.browser.find_element(By.CSS_SELECTOR, ".gutter[role=separator]")
        before = gutter.location["x"]
        ActionChains(self.browser).drag_and_drop_by_offset(gutter, 150, 0).perform()
        self.assertAlmostEqual(gutter.location["x"], before + 150, delta=5)
        self.open(self.path, forget=False)
        gutter = self.browser.find_element(By.CSS_SELECTOR, ".gutter[role=separator]")
        self.assertAlmostEqual(gutter.location["x"], before + 150, delta=5)

    def test_a_column_is_dragged_and_kept(self):
        self.tab("parts")
        self.wait("return document.querySelectorAll('#panel-parts .tabulator-row').length > 3")
        head = "#panel-parts .tabulator-col[tabulator-field={}]"
        moved = self.browser.find_element(By.CSS_SELECTOR, head.format("value"))
        target = self.browser.find_element(By.CSS_SELECTOR, head.format("designator"))
        chain = ActionChains(self.browser)
        chain.move_to_element(moved).click_and_hold().pause(0.5)
        # To the left half of the other one.
        chain.move_to_element_with_offset(target, -target.size["width"] // 4, 0).pause(0.2)
        chain.move_by_offset(-5, 0).pause(0.2).release().perform()
        order = "return page.lists.parts.cells().head"
        self.wait(f"{order.replace('return ', 'const head = ')}; "
                  "return head.indexOf('Value') < head.indexOf('Designator')")
        kept = self.run_js(order)
        self.open(self.path, forget=False)
        self.assertEqual(self.run_js(order), kept)

    def test_a_list_is_copied(self):
        self.tab("parts")
        self.wait("return document.querySelectorAll('#panel-parts .tabulator-row').length > 3")
        self.browser.execute_cdp_cmd("Browser.grantPermissions", {"permissions": ["clipboardReadWrite"]})
        self.browser.find_element(By.CSS_SELECTOR, "#panel-parts button[aria-label='Copy the list']").click()
        self.wait("return document.querySelector('#panel-parts .told').textContent === 'Copied'")
        text = self.browser.execute_async_script("navigator.clipboard.readText().then(arguments[0])")
        cells = self.run_js("return page.lists.parts.cells()")
        self.assertEqual(text, "\n".join("\t".join(row) for row in [cells["head"], *cells["rows"]]))

    def test_files_are_saved(self):
        folder = Path(tempfile.mkdtemp(dir=self.folder.name))
        self.browser.execute_cdp_cmd("Browser.setDownloadBehavior",
                                     {"behavior": "allow", "downloadPath": str(folder)})
        self.tab("parts")
        self.browser.find_element(By.XPATH, "//button[text()='Save image']").click()
        self.browser.find_element(By.CSS_SELECTOR, "#panel-parts button[aria-label='Save the list as CSV']").click()
        end = time.time() + 10
        while time.time() < end and len(list(folder.glob("*.[cp][sn][vg]"))) < 2:
            time.sleep(0.1)
        image, = folder.glob("*.png")
        self.assertEqual(image.read_bytes()[:8], b"\x89PNG\r\n\x1a\n")
        self.assertGreater(image.stat().st_size, 10000)
        saved, = folder.glob("*.csv")
        self.assertEqual(saved.read_bytes().decode().replace("\r\n", "\n").lstrip("\ufeff"),
                         self.run_js("return page.lists.parts.csv()").replace("\r\n", "\n").lstrip("\ufeff"))

    def test_the_ruler_measures(self):
        self.keys("m")
        self.click_board(5, 5)
        self.click_board(15, 5)
        text = self.run_js("return page.view.rulerText()")
        self.assertAlmostEqual(float(text.split()[0]), 10, delta=0.15)
        self.assertEqual(self.parts(), [])

    def test_every_control_has_a_name(self):
        nameless = self.run_js(
            "return [...document.querySelectorAll('button, input, select, [role=separator], [role=img]')].filter(one =>"
            " !(one.getAttribute('aria-label') || one.textContent.trim() || one.closest('label')?.textContent.trim()))"
            ".map(one => one.outerHTML)")
        self.assertEqual(nameless, [])

    # The page as a whole

    def test_the_print_view_has_picture_and_list(self):
        self.tab("parts")
        self.run_js("window.dispatchEvent(new Event('beforeprint'))")
        printed = self.run_js("const p = document.querySelector('.printed'); return [p.querySelectorAll('img').length,"
                              "p.querySelectorAll('tbody tr').length, p.textContent.includes('U1')]")
        self.assertEqual(printed, [1, self.run_js("return page.board.parts.length"), True])
        pdf = self.browser.execute_cdp_cmd("Page.printToPDF", {})
        self.assertGreater(len(pdf["data"]), 10000)

    def test_stackup_drills_and_report_are_shown(self):
        self.assertGreater(self.run_js("return document.querySelectorAll('#panel-stackup svg rect').length"), 2)
        drills = json.loads(self.list(self.board, "info"))["holes"]
        self.assertEqual(self.run_js("return document.querySelectorAll('#panel-drills tbody tr').length"), len(drills))
        self.assertGreater(self.run_js("return document.querySelectorAll('#panel-report tbody tr').length"), 0)
        layers = json.loads(self.list(self.board, "layers"))["layers"]
        self.assertGreaterEqual(self.run_js("return document.querySelectorAll('#panel-layers tbody tr').length"),
                                len(layers))

    def test_differences_are_listed_and_jumped_to(self):
        new = Path(self.folder.name) / "new.cvg"
        text = self.board.read_text().replace("RES-47K", "RES-100K")
        new.write_text(text.replace('<Location x="17.300000" y="15.635000"', '<Location x="17.4" y="15.635000"'))
        page = self.make(self.board, "--against", new, name="changes")
        self.open(page)
        listed = list(csv.reader(io.StringIO(self.list(self.board, "diff", new, form="csv"))))
        self.wait("return document.querySelectorAll('#panel-differences .tabulator-row').length > 1")
        rows = self.browser.find_elements(By.CSS_SELECTOR, "#panel-differences .tabulator-row")
        self.assertEqual(len(rows), len(listed) - 1)
        next(row for row in rows if row.text.startswith("componentR2changed")).click()
        self.assertEqual(self.parts(), ["R2"])
        next(row for row in rows if row.text.startswith("featureTOPadded")).click()
        place = self.run_js("return page.selection.place")
        self.assertAlmostEqual(place["x"], 17.4)
        green = self.color(17.4, 15.635)
        self.assertGreater(green[1], green[0] + 40)

    def compared(self, name, *changes):
        """Opens the page of the example board against one in which texts are replaced by others."""
        text = self.board.read_text()
        for before, after in changes:
            self.assertIn(before, text)
            text = text.replace(before, after)
        new = Path(self.folder.name) / f"{name}.cvg"
        new.write_text(text)
        self.open(self.make(self.board, "--against", new, name=name))
        self.wait("return document.querySelectorAll('#panel-differences .tabulator-row').length > 0")

    def difference(self, begin):
        rows = self.browser.find_elements(By.CSS_SELECTOR, "#panel-differences .tabulator-row")
        found = [row for row in rows if row.text.startswith(begin)]
        self.assertEqual(len(found), 1, [row.text for row in rows])
        return found[0]

    def state_at(self, x, y, side="front"):
        """The state whose colour a place of the board has, nearly; None for another colour."""
        color = self.color(x, y, side)
        palette = self.run_js("return page.view.palette")
        for state in ("added", "removed", "moved", "changed"):
            if all(abs(255 * palette[state][part] - own) < 30 for part, own in zip("rgb", color)):
                return state
        return None

    def test_changed_holes_are_listed_and_coloured(self):
        self.compared("holes", ('diameter="2.0"', 'diameter="2.5"'), ('x="4.000000" y="26.000000" />', 'x="5" y="24" />'))
        self.assertIn("diameter", self.difference("holeat 29,5.5changed").text)
        self.difference("holeat 4,26removed")
        # Beside the sign in the middle.
        self.assertEqual(self.state_at(30, 5.5), "changed")
        self.assertEqual(self.state_at(4, 27.3), "removed")
        self.assertEqual(self.state_at(5.2, 22.8), "added")
        self.difference("holeat 5,24added").click()
        self.assertEqual(self.run_js("return page.selection.place"), {"x": 5, "y": 24})
        self.run_js("page.settings.show('holes', false)")
        self.assertIsNone(self.state_at(30, 5.5))

    def test_a_changed_edge_is_listed_and_coloured(self):
        self.compared("edge", ('x="40.000000" y="3.000000"', 'x="43.000000" y="3.000000"'),
                      ('x="40.000000" y="27.000000"', 'x="43.000000" y="27.000000"'))
        self.assertEqual(self.state_at(40, 10), "removed")
        self.assertEqual(self.state_at(43, 10), "added")
        self.assertIsNone(self.state_at(0, 10))
        self.run_js("page.view.zoomBy(8)")
        self.difference("boardchangedprofile").click()
        self.wait("return page.view.panes.front.isFitted")
        self.assertEqual(self.state_at(43, 10), "added")

    def test_layers_that_only_the_older_board_has_are_drawn(self):
        self.compared("layers", ('"SILK_BOTTOM"', '"LEGEND_BOTTOM"'))
        self.run_js("page.settings.change({sides: 'back'});"
                    "page.settings.setLayer('LEGEND_BOTTOM', {isVisible: false})")
        place = self.run_js(
            "const layer = page.board.layers.find(one => one.isRemoved), item = page.board.removed.get(layer.place)"
            ".find(one => one.kind === 1 && one.width > 0.1), [from, to] = item.paths[0];"
            "return [(from.x + to.x) / 2, (from.y + to.y) / 2]")
        self.run_js("page.view.panes.back.camera.zoomBy(8, 0, 0);"
                    "page.view.show({x: arguments[0], y: arguments[1]}, 'back')", *place)
        red, green, _, _ = self.color(*place, "back")
        self.assertGreater(red, green + 80)
        self.tab("layers")
        self.browser.find_element(By.CSS_SELECTOR, "input[aria-label='Show SILK_BOTTOM']").click()
        red, green, _, _ = self.color(*place, "back")
        self.assertLess(red, green + 20)
        self.assertIn("\u2212 SILK_BOTTOM", self.browser.find_element(By.ID, "panel-layers").text)

    def test_nothing_in_a_board_runs_as_script(self):
        text = self.board.read_text()
        for name in ("\"R1\"", "\"DIS\"", "\"RES-47K\"", "\"TOP\"", "\"blinker\""):
            self.assertIn(name, text)
            text = text.replace(name, f"\"{xml(HOSTILE)}{name[1:]}")
        board = Path(self.folder.name) / "<img src=x onerror=hit()>.cvg"
        board.write_text(text)
        page = self.make(board, name="hostile")
        self.browser.get(page.as_uri())
        self.wait("return !!window.page?.board")
        self.run_js("window.hits = 0; window.hit = () => ++window.hits; window.broken = 0;"
                    "document.addEventListener('securitypolicyviolation', () => ++window.broken)")
        for tab in ("groups", "parts", "nets", "layers", "stackup", "drills", "report", "settings"):
            self.tab(tab)
            time.sleep(0.2)
        self.keys("n")
        self.run_js("page.selectParts([arguments[0]]); page.selectNet(arguments[1]);"
                    "window.dispatchEvent(new Event('beforeprint'))", HOSTILE + "R1", HOSTILE + "DIS")
        time.sleep(0.3)
        self.assertIn(HOSTILE + "DIS", self.browser.find_element(By.CSS_SELECTOR, ".status").text)
        self.assertEqual(self.run_js("return [hits, broken, document.querySelectorAll('[onerror]').length,"
                                     "document.scripts.length]"), [0, 0, 0, 2])
        self.assertTrue(self.run_js("return page.board.parts.some(part => part.name === arguments[0])", HOSTILE + "R1"))

    def test_nothing_is_asked_of_the_network(self):
        for tab in ("parts", "nets", "settings"):
            self.tab(tab)
        self.assertEqual(self.run_js("return performance.getEntriesByType('resource').map(one => one.name)"), [])
        blocked = self.browser.execute_async_script(
            "const done = arguments[0]; fetch('data:,x').then(() => done('open'), () => done('closed'))")
        self.assertEqual(blocked, "closed")
        severe = [entry["message"] for entry in self.browser.get_log("browser") if entry["level"] == "SEVERE"]
        self.assertEqual([message for message in severe if "data:,x" not in message], [])

    # Against the listings

    @staticmethod
    def list(board, command, *options, form="json"):
        done = subprocess.run([PROGRAM, command, board, *options, "--format", form], check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        return done.stdout

    def test_the_page_has_what_the_program_lists(self):
        for board in boards():
            with self.subTest(board=board.name):
                self.open(self.make(board))
                self.compare_bom(board)
                self.compare_nets(board)

    def compare_bom(self, board):
        items = json.loads(self.list(board, "bom"))["items"]
        wanted = {}
        for item in items:
            for key, fitted in (("fitted", True), ("not_fitted", False)):
                for designator in item[key]:
                    wanted[designator] = (fitted, item["part_number"] or "")
        rows = self.run_js("return page.lists.parts.visibleRows().map(row => [row.designator, row.fitted, "
                           "row.partNumber])")
        components = json.loads(self.list(board, "components"))["components"]
        self.assertEqual(sorted(row[0] for row in rows), sorted(one["designator"] for one in components))
        for designator, fitted, number in rows:
            self.assertEqual((fitted, number), wanted.get(designator, (None, "")), designator)
        grouped = self.run_js("return page.lists.groups.visibleRows().flatMap(row => row.designators)")
        self.assertEqual(sorted(grouped), sorted(row[0] for row in rows))

    def compare_nets(self, board):
        nets = json.loads(self.list(board, "nets", "--sort"))["nets"]
        rows = self.run_js("return page.lists.nets.visibleRows().map(row => [row.net, row.count, row.pins])")
        self.assertEqual(rows, [[net["net"], net["count"], net["pins"]] for net in nets])


if __name__ == "__main__":
    PROGRAM, FOLDER = sys.argv[1], Path(sys.argv[2])
    if not FOLDER.is_dir() or not boards():
        print(f"Skipped: no boards in {FOLDER}")
        sys.exit(77)
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
