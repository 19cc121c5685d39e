"""Chromium without a window, for tests of pages."""

import json
import os
import shutil
import unittest


def skip_reason():
    """Why no browser can run here; nothing if one can."""
    try:
        import selenium  # noqa: F401
    except ImportError:
        return "Debian's python3-selenium is not installed"
    for program in ("chromium", "chromedriver"):
        if shutil.which(program) is None:
            return f"{program} is not installed"
    return None


def start(width=1280, height=900):
    from selenium import webdriver
    from selenium.common.exceptions import WebDriverException
    from selenium.webdriver.chrome.options import Options
    from selenium.webdriver.chrome.service import Service
    options = Options()
    options.binary_location = shutil.which("chromium")
    words = ["--headless=new", "--disable-gpu", "--disable-dev-shm-usage", "--lang=en",
             f"--window-size={width},{height}"]
    if os.geteuid() == 0:
        words.append("--no-sandbox")  # it does not start for root otherwise
    for word in words:
        options.add_argument(word)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
    try:
        return webdriver.Chrome(service=Service(shutil.which("chromedriver")), options=options)
    except WebDriverException as error:
        raise unittest.SkipTest(f"Chromium does not start: {str(error).splitlines()[0]}") from error


def addresses(driver):
    """What the page has asked for since the last call."""
    messages = (json.loads(entry["message"])["message"] for entry in driver.get_log("performance"))
    return [message["params"]["request"]["url"] for message in messages
            if message["method"] == "Network.requestWillBeSent"]


def set_media(driver, **features):
    driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {
        "features": [{"name": name.replace("_", "-"), "value": value} for name, value in features.items()]})


def set_width(driver, width, height=900):
    driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
        "width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})
