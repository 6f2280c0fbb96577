"""A browser for the tests of pages. Ends with 77 where there is none."""

import shutil
import sys

try:
    from selenium import webdriver
    from selenium.webdriver.chrome.options import Options
    from selenium.webdriver.chrome.service import Service
except ImportError:
    print("Skipped: no python3-selenium")
    sys.exit(77)

CHROMIUM, DRIVER = shutil.which("chromium"), shutil.which("chromedriver")
if CHROMIUM is None or DRIVER is None:
    print("Skipped: no chromium or no chromium-driver")
    sys.exit(77)


def new_browser(logs=("browser",), preferences=None):
    """Chromium with a window of one size, which writes these logs down."""
    options = Options()
    options.binary_location = CHROMIUM
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--enable-unsafe-swiftshader",
                     "--window-size=1400,900", "--force-device-scale-factor=1"):
        options.add_argument(argument)
    options.add_experimental_option("prefs", preferences or {})
    options.set_capability("goog:loggingPrefs", {log: "ALL" for log in logs})
    return webdriver.Chrome(service=Service(DRIVER), options=options)


def drop(browser, *files):
    """Drops files on the page as from a file manager."""
    data = {"items": [], "files": [str(file) for file in files], "dragOperationsMask": 1}
    for kind in ("dragEnter", "dragOver", "drop"):
        browser.execute_cdp_cmd("Input.dispatchDragEvent", {"type": kind, "x": 700, "y": 500, "data": data})
