#!/usr/bin/env python3
"""What the page of ipc2581 html costs in headless Chromium with software rendering: bench/page.py PROGRAM BOARD

Prints one row for each figure, with its bar where it has one.
"""

import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service

WIDTH, HEIGHT = 1600, 1000
RUNS = 5

# The times of all frames of a drag of two seconds.
DRAG = """
const [zoom, done] = arguments, view = page.view, pane = view.panes.front.node;
view.fit();
const send = (type, x, y) => pane.dispatchEvent(
  new PointerEvent(type, {pointerId: 1, button: 0, clientX: x, clientY: y, bubbles: true, isPrimary: true}));
pane.setPointerCapture = () => undefined;
setTimeout(() => {
  view.zoomBy(zoom);
  setTimeout(() => {
    const box = pane.getBoundingClientRect(), x = box.left + box.width / 2, y = box.top + box.height / 2;
    const before = view.frames, times = [], start = performance.now();
    send('pointerdown', x, y);
    const step = (now) => {
      times.push(now);
      const turn = (now - start) / 2000 * 2 * Math.PI;
      send('pointermove', x + 200 * Math.sin(turn), y + 150 * Math.sin(2 * turn));
      if (now - start < 2000) { requestAnimationFrame(step); return; }
      send('pointerup', x, y);
      done({times: times.slice(1).map((time, i) => time - times[i]), drawn: view.frames - before});
    };
    requestAnimationFrame(step);
  }, 600);
}, 400);
"""

# Until the net is on the screen: the frame behind the one that draws it.
LIGHT = """
const [net, done] = arguments, start = performance.now();
page.selectNet(net);
requestAnimationFrame(() => requestAnimationFrame(() => done(performance.now() - start)));
"""


# Those of the other side too.
ALL_LAYERS = """
page.settings.change({seeThrough: true});
for (const layer of page.board.layers) page.settings.setLayer(layer.name, {isVisible: true});
"""


def new_browser():
    options = Options()
    options.binary_location = "/usr/bin/chromium"
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--enable-unsafe-swiftshader",
                     f"--window-size={WIDTH},{HEIGHT}"):
        options.add_argument(argument)
    browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                            {"width": WIDTH, "height": HEIGHT, "deviceScaleFactor": 1, "mobile": False})
    browser.set_script_timeout(60)
    return browser


def seconds(arguments):
    start = time.monotonic()
    subprocess.run(arguments, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return time.monotonic() - start


def row(name, figure, bar=""):
    print(f"{name:<57} {figure:>12}  {bar}")


def opened(browser, page):
    """Milliseconds from the start of the navigation to the first picture."""
    browser.get(page.as_uri())
    end = time.time() + 60
    while not browser.execute_script("return window.page?.view?.frames > 0") and time.time() < end:
        time.sleep(0.02)
    return browser.execute_script("return performance.getEntriesByName('first-picture')[0].startTime")


def main():
    program, board = sys.argv[1:3]
    with tempfile.TemporaryDirectory() as folder:
        page = Path(folder) / "board.html"
        making = [program, "html", board, "-o", page]
        made = min(seconds(making) for _ in range(RUNS))
        read = min(seconds([program, "layers", board]) for _ in range(RUNS))
        row("making the page, s", f"{made:.2f}")
        row("the import with one small listing, s", f"{read:.2f}")
        row("size of the page, MB", f"{page.stat().st_size / 1e6:.2f}", "12")
        browser = new_browser()
        try:
            row("opened, s", f"{statistics.median(opened(browser, page) for _ in range(RUNS)) / 1000:.2f}", "3")
            net = browser.execute_script(
                "const counts = new Map(); for (const layer of page.board.layers) for (const item of layer.content)"
                " if (item.net) counts.set(item.net, (counts.get(item.net) ?? 0) + 1);"
                "return page.board.names[[...counts].sort((a, b) => b[1] - a[1])[0][0]]")
            few = browser.execute_script("return page.lists.nets.visibleRows().find(row => row.count > 5).net")
            for name, asked in (("largest", net), ("small", few)):
                times = []
                for _ in range(RUNS):
                    browser.execute_script("page.selection.clear()")
                    time.sleep(0.5)
                    times.append(browser.execute_async_script(LIGHT, asked))
                row(f"the {name} net lit ({asked}), ms", f"{statistics.median(times):.0f}", "100")
            browser.execute_script("page.selection.clear(); page.openTab('groups')")
            for shown in ("", ", all layers"):
                if shown:
                    browser.execute_script(ALL_LAYERS)
                for layout in ("left", "board"):
                    browser.execute_script("page.settings.change({layout: arguments[0], sides: 'front'})", layout)
                    for zoom in (1, 8):
                        drag = browser.execute_async_script(DRAG, zoom)
                        times = sorted(drag["times"])
                        name = "board beside the list" if layout == "left" else "board alone"
                        row(f"pan, {name}, zoom {zoom}{shown}, median ms", f"{statistics.median(times):.1f}", "33")
                        row("  frames, all drawn anew", f"{drag['drawn']}")
                        row("  95 of 100 within, ms", f"{times[int(len(times) * 0.95)]:.1f}")
        finally:
            browser.quit()


if __name__ == "__main__":
    main()
