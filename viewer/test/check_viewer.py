#!/usr/bin/env python3
"""The viewer in a browser: check_viewer.py VIEWER PROGRAM BOARD...

Files are dropped as a person drops them. Ends with 77 where there is no browser.
"""

import gzip
import json
import random
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tests" / "support"))
from browser import drop, new_browser

VIEWER, PROGRAM, BOARDS = Path(), Path(), []
HOSTILE = "<img src=x onerror=hit()>&quot;'`${hit()}.xml"


class ViewerTest(unittest.TestCase):
    """Each test has a page of its own, opened from the disk."""

    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = Path(cls.temporary.name)
        cls.downloads = cls.folder / "downloads"
        cls.downloads.mkdir()
        cls.browser = new_browser(("browser", "performance"),
                                  {"download.default_directory": str(cls.downloads),
                                   "profile.default_content_setting_values.automatic_downloads": 1})
        cls.board = next(path for path in BOARDS if path.suffix == ".cvg")

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        cls.temporary.cleanup()

    def setUp(self):
        self.browser.get(VIEWER.as_uri())
        self.wait("return !!window.viewer")
        for log in ("browser", "performance"):
            self.browser.get_log(log)

    def run_js(self, script, *arguments):
        return self.browser.execute_script(script, *arguments)

    def wait(self, script, *arguments, seconds=60):
        end = time.time() + seconds
        while time.time() < end:
            if self.run_js(script, *arguments):
                return
            time.sleep(0.05)
        self.fail(f"never true: {script}; the page says {self.message()!r}")

    def drop(self, *files):
        drop(self.browser, *(Path(file).resolve() for file in files))

    def message(self):
        return self.run_js("const m = document.querySelector('.message'); return m.hidden ? '' : "
                           "m.querySelector('span').textContent")

    def wait_for_board(self, file):
        self.wait("return viewer.app?.board.file === arguments[0]", Path(file).name)
        self.wait("return viewer.app.view.frames > 0")

    def wait_for_message(self):
        self.wait("return !document.querySelector('.message').hidden")
        return self.message()

    def write(self, name, content):
        path = self.folder / name
        path.write_bytes(content)
        return path

    def saved(self, name):
        path = self.downloads / name
        end = time.time() + 30
        while not path.exists() and time.time() < end:
            time.sleep(0.05)
        return path.read_bytes()

    def program(self, board, *arguments):
        return subprocess.run([PROGRAM.resolve(), *arguments], cwd=board.parent, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, check=False).stdout

    def test_every_board_is_shown(self):
        for board in BOARDS:
            with self.subTest(board.name):
                self.drop(board)
                self.wait_for_board(board)
                told = json.loads(self.program(board, "nets", board.name, "--format", "json"))["nets"]
                self.assertEqual(self.run_js("return viewer.app.board.tables.nets.rows.length"), len(told))
                self.assertEqual(self.run_js("return document.querySelectorAll('.app').length"), 1)

    def test_packed_files_are_shown(self):
        plain = self.board.read_bytes()
        packed = [self.write("board.cvg.gz", gzip.compress(plain))]
        with zipfile.ZipFile(self.folder / "board.zip", "w", zipfile.ZIP_DEFLATED) as archive:
            archive.writestr("folder/board.cvg", plain)
            archive.writestr("read.me", b"nothing")
        packed.append(self.folder / "board.zip")
        for tool, ending in (("zstd", "zst"), ("xz", "xz"), ("bzip2", "bz2")):
            if shutil.which(tool):
                made = subprocess.run([tool, "-c", self.board], stdout=subprocess.PIPE, check=True).stdout
                packed.append(self.write(f"board.cvg.{ending}", made))
        for path in packed:
            with self.subTest(path.name):
                self.drop(path)
                self.wait_for_board(path)

    def test_two_boards_are_compared(self):
        after = self.write("after.cvg", self.board.read_bytes().replace(b'"R1"', b'"R99"'))
        self.drop(after, self.board)
        self.wait("return viewer.app?.board.comparison?.file === arguments[0]", self.board.name)
        self.assertEqual(self.run_js("return viewer.app.board.file"), "after.cvg")
        self.assertGreater(self.run_js("return viewer.app.board.comparison.differences.rows.length"), 0)
        before = self.folder / self.board.name
        before.write_bytes(self.board.read_bytes())
        self.run_js("viewer.save('diff', 'csv')")
        self.assertEqual(self.saved("after-diff.csv"), self.program(after, "diff", before.name, "after.cvg", "--format",
                                                                    "csv"))
        self.run_js("[...document.querySelectorAll('.viewer-bar button')].find("
                    "(one) => one.textContent === 'Swap the two').click()")
        self.wait("return viewer.app.board.file === arguments[0]", self.board.name)

    def test_more_than_two_files_are_refused(self):
        self.drop(self.board, self.board, self.board)
        self.assertIn("3 files", self.wait_for_message())

    def test_saved_listings_are_those_of_the_program(self):
        self.drop(self.board)
        self.wait_for_board(self.board)
        names = self.run_js("return [...document.querySelector('.viewer-bar select').options].map((one) => one.value)")
        self.assertIn("check", names)
        self.assertNotIn("diff", names)
        for name in names:
            for form in ("csv", "json"):
                with self.subTest(f"{name} {form}"):
                    self.run_js("viewer.save(arguments[0], arguments[1])", name, form)
                    own = self.saved(f"{self.board.stem}-{name}.{form}")
                    self.assertEqual(own, self.program(self.board, name, self.board.name, "--format", form))
        self.run_js("viewer.saveBoard()")
        self.program(self.board, "convert", self.board.name, self.folder / "told.cvg")
        self.assertEqual(self.saved(f"{self.board.stem}.cvg"), (self.folder / "told.cvg").read_bytes())

    def test_a_broken_file_is_told_with_its_place_and_the_page_stays(self):
        self.drop(self.board)
        self.wait_for_board(self.board)
        text = self.board.read_bytes()
        self.drop(self.write("cut.cvg", text[:len(text) // 2]))
        told = self.wait_for_message()
        self.assertRegex(told, r"^cut\.cvg:\d+:\d+: the file ends here and is not whole")
        refused = subprocess.run([PROGRAM.resolve(), "info", "cut.cvg"], cwd=self.folder, stderr=subprocess.PIPE,
                                 check=False).stderr.decode()
        self.assertIn(told.partition(": ")[2], refused)
        # What was there stays until there is something else.
        self.assertEqual(self.run_js("return viewer.app.board.file"), self.board.name)
        self.drop(next(path for path in BOARDS if path != self.board))
        self.wait("return viewer.app.board.file !== arguments[0]", self.board.name)
        self.assertEqual(self.message(), "")

    def test_anything_may_be_dropped(self):
        chance = random.Random(2581)
        text = self.board.read_bytes()
        anything = {"empty.xml": b"", "random.xml": chance.randbytes(100000), "random.gz": chance.randbytes(5000),
                    "cut.gz": gzip.compress(text)[:-100], "text.txt": b"nothing of a board",
                    "zero.zip": b"PK\x03\x04" + bytes(1000), "deep.xml": b"<a>" * 100000,
                    "entities.xml": b'<!DOCTYPE a [<!ENTITY b "' + b"b" * 10000 + b'">]><a>' + b"&b;" * 100000 + b"</a>"}
        for name, content in anything.items():
            with self.subTest(name):
                self.drop(self.write(name, content))
                self.assertIn(name, self.wait_for_message())
                self.run_js("document.querySelector('.message').hidden = true")
        self.drop(self.folder)
        self.wait_for_message()
        self.drop(self.board)
        self.wait_for_board(self.board)

    def test_names_are_never_markup(self):
        self.run_js("window.hits = 0; window.hit = () => ++window.hits")
        path = self.write(HOSTILE, self.board.read_bytes().replace(b'"R1"', b'"&lt;img src=x onerror=hit()&gt;"'))
        self.drop(path)
        self.wait_for_board(path)
        self.run_js("viewer.app.openTab('parts')")
        self.drop(self.write("x" + HOSTILE, b"<a"))
        self.wait_for_message()
        self.assertEqual(self.run_js("return window.hits + document.querySelectorAll('img').length"), 0)

    def test_work_can_be_stopped(self):
        large = max(BOARDS, key=lambda path: path.stat().st_size)
        self.drop(large)
        self.wait("return !document.querySelector('.busy').hidden || viewer.app")
        self.run_js("viewer.stop()")
        self.assertEqual(self.message(), "Stopped.")
        self.assertTrue(self.run_js("return document.querySelector('.busy').hidden"))
        self.drop(self.board)
        self.wait_for_board(self.board)

    def test_want_of_memory_is_told(self):
        # As where the browser gives no more.
        self.run_js("window.Worker = class { terminate() {} postMessage() { this.take({data: {kind: 'noMemory'}}); } "
                    "addEventListener(kind, take) { if (kind === 'message') this.take = take; } }")
        self.drop(self.board)
        self.assertIn("no more memory", self.wait_for_message())

    def test_a_bomb_is_bounded(self):
        bomb = self.folder / "bomb.xml.gz"
        with gzip.open(bomb, "wb", compresslevel=1) as file:
            for _ in range(1100):
                file.write(b" " * 1_000_000)
        self.drop(bomb)
        self.assertIn("no more memory", self.wait_for_message())
        self.drop(self.board)
        self.wait_for_board(self.board)

    def test_nothing_is_sent(self):
        self.drop(self.board)
        self.wait_for_board(self.board)
        for script in ("fetch('https://example.com/')", "fetch('file:///etc/hostname')",
                       "new Promise((yes, no) => { const r = new XMLHttpRequest(); r.onload = yes; r.onerror = no; "
                       "r.open('GET', 'https://example.com/'); r.send(); })",
                       "new Promise((yes, no) => { const i = new Image(); i.onload = yes; i.onerror = no; "
                       "i.src = 'https://example.com/a.png'; })"):
            told = self.browser.execute_async_script(
                f"const done = arguments[0]; {script}.then(() => done('sent'), () => done('refused'))")
            self.assertEqual(told, "refused", script)
        self.assertIsNone(self.run_js("const script = document.createElement('script'); script.textContent = "
                                      "'window.ran = true'; document.head.append(script); return window.ran"))
        # A worker of the page is bound by the same.
        told = self.browser.execute_async_script(
            "const done = arguments[0], code = `fetch('https://example.com/').then(() => postMessage('sent'), "
            "() => postMessage('refused'))`; const worker = new Worker(URL.createObjectURL(new Blob([code]))); "
            "worker.onmessage = (event) => done(event.data);")
        self.assertEqual(told, "refused")
        sent = [json.loads(entry["message"])["message"] for entry in self.browser.get_log("performance")]
        # The browser tells of those too that the policy has kept back.
        refused = {entry["params"]["requestId"] for entry in sent
                   if entry["method"] == "Network.loadingFailed" and entry["params"].get("blockedReason") == "csp"}
        addresses = [entry["params"]["request"]["url"] for entry in sent
                     if entry["method"] == "Network.requestWillBeSent" and entry["params"]["requestId"] not in refused]
        self.assertEqual([address for address in addresses if not address.startswith("blob:")], [])


if __name__ == "__main__":
    VIEWER, PROGRAM = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    BOARDS = [Path(path).resolve() for path in sys.argv[3:] if Path(path).exists()]
    unittest.main(argv=[sys.argv[0], *(name for name in sys.argv[3:] if not Path(name).exists())], verbosity=2)
