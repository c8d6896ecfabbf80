#!/usr/bin/env python3
"""The HTML reports in a real browser: what a person sees and does with them.

Reports of a comparison and of a healing are made with the program and opened from the disk in
headless Chromium, which is steered through chromedriver (the W3C WebDriver protocol, plain HTTP on
this machine): no messages in the console, nothing asked from a network, drawings that are there, a
difference that is marked by a click and by a key, the same without script, in the dark and on paper.

Usage: reports_in_browser.py PROGRAM SAMPLES      PROGRAM is ktrcl, SAMPLES the folder of drawings
Exit status: 0 all as it should be, 1 not, 77 there is no browser.
"""

import base64
import contextlib
import json
import os
import queue
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
import urllib.error
import urllib.request
from pathlib import Path

SKIPPED = 77
PATIENCE = 40.0  # seconds, for the start and for any single answer
ENTER = "\ue007"
ELEMENT = "element-6066-11e4-a52e-4f735466cecf"
DIFFERENT = 1

# What text must stand out by, and strokes of a drawing (Web Content Accessibility Guidelines 2.1).
TEXT_CONTRAST = 4.5
STROKE_CONTRAST = 3.0

# A sheet of A4 without margins of 14 mm, in pixels of 1/96 inch.
PAPER_WIDTH = 688

# Seen from the page: functions for all questions below.
LIBRARY = r"""
// Red, green, blue up to 255, and how opaque; null for what has no colour.
function rgba(text) {
  const v = (text.match(/[\d.]+/g) || []).map(Number);
  if (v.length < 3) return null;
  const full = text.startsWith('color(srgb') ? 255 : 1;
  return [v[0] * full, v[1] * full, v[2] * full, v.length > 3 ? v[3] : 1];
}
function luminance(c) {
  const l = c.map(v => v / 255).map(v => v <= 0.04045 ? v / 12.92 : ((v + 0.055) / 1.055) ** 2.4);
  return 0.2126 * l[0] + 0.7152 * l[1] + 0.0722 * l[2];
}
function contrast(a, b) {
  const l = [luminance(a), luminance(b)].sort((x, y) => y - x);
  return (l[0] + 0.05) / (l[1] + 0.05);
}
function over(c, below) { return below.map((b, i) => c[3] * c[i] + (1 - c[3]) * b); }
function ground(e) {
  if (!e) return [255, 255, 255];
  const c = rgba(getComputedStyle(e).backgroundColor);
  return c[3] === 1 ? c.slice(0, 3) : over(c, ground(e.parentElement));
}
function keys(e) { return (e.getAttribute('data-mark') || '').split(' ').filter(Boolean); }
function having(key) {
  return Array.from(document.querySelectorAll('[data-mark]')).filter(e => keys(e).includes(key));
}
function look(e) {
  const parts = e.matches('g') ? e.querySelectorAll('path, rect, circle')
              : e.matches('tr') ? e.cells : [e];
  return Array.from(parts).map(p => {
    const s = getComputedStyle(p);
    return [s.strokeWidth, s.stroke, s.fill, s.visibility, s.backgroundColor].join('|');
  }).join('; ');
}
"""


class Failure(Exception):
    """Something is not as it should be."""


def check(holds, *words):
    if not holds:
        raise Failure(" ".join(str(word) for word in words))


class Browser:
    """One session of Chromium, with a profile of its own that is gone at the end."""

    def __init__(self, chromium, driver):
        self.profile = tempfile.mkdtemp(prefix="ktrcl-browser-")
        self.session = None
        self.direct = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        # In a group of its own, so that nothing is left of it, whatever happens.
        self.process = subprocess.Popen(
            [driver, "--port=0"],
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
            text=True,
            start_new_session=True,
            env={**os.environ, "HOME": self.profile},
        )
        try:
            self.address = f"http://127.0.0.1:{self._port()}"
            self._begin(chromium)
        except BaseException:
            self.close()
            raise

    def _port(self):
        lines = queue.Queue()

        def read():
            for line in self.process.stdout:
                lines.put(line)
            lines.put("")

        threading.Thread(target=read, daemon=True).start()
        deadline = time.monotonic() + PATIENCE
        while True:
            try:
                line = lines.get(timeout=max(0.0, deadline - time.monotonic()))
            except queue.Empty:
                raise Failure("chromedriver names no port") from None
            check(line, "chromedriver ended by itself")
            found = re.search(r"started successfully on port (\d+)", line)
            if found:
                return int(found.group(1))

    def _begin(self, chromium):
        arguments = [
            "--headless=new",
            "--disable-gpu",
            "--disable-dev-shm-usage",
            "--no-first-run",
            "--window-size=1280,900",
            f"--user-data-dir={self.profile}/profile",
        ]
        if os.geteuid() == 0:  # as whom Chromium refuses its sandbox
            arguments.append("--no-sandbox")
        capabilities = {
            "browserName": "chrome",
            "goog:chromeOptions": {"binary": chromium, "args": arguments},
            "goog:loggingPrefs": {"browser": "ALL", "performance": "ALL"},
        }
        answer = self.ask("POST", "/session", {"capabilities": {"alwaysMatch": capabilities}})
        self.session = f"/session/{answer['sessionId']}"

    def ask(self, method, path, body=None):
        data = None if body is None else json.dumps(body).encode()
        request = urllib.request.Request(
            self.address + path, data, {"Content-Type": "application/json"}, method=method
        )
        try:
            with self.direct.open(request, timeout=PATIENCE) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            raise Failure(f"{method} {path}: {error.read().decode()[:600]}") from None
        except OSError as error:
            raise Failure(f"{method} {path}: {error}") from None

    def command(self, path, body):
        return self.ask("POST", self.session + path, body)

    def run(self, script, *arguments):
        return self.command("/execute/sync", {"script": LIBRARY + script, "args": list(arguments)})

    def tell(self, method, **parameters):
        return self.command("/goog/cdp/execute", {"cmd": method, "params": parameters})

    def log(self, kind):
        return self.command("/se/log", {"type": kind})

    def open(self, page):
        self.command("/url", {"url": page.as_uri()})

    def face(self, scheme="light", media="", width=1280):
        features = [{"name": "prefers-color-scheme", "value": scheme}]
        self.tell("Emulation.setEmulatedMedia", media=media, features=features)
        self.tell(
            "Emulation.setDeviceMetricsOverride",
            width=width,
            height=900,
            deviceScaleFactor=1,
            mobile=False,
        )

    def element(self, selector):
        return self.command("/element", {"using": "css selector", "value": selector})[ELEMENT]

    def click(self, selector):
        self.command(f"/element/{self.element(selector)}/click", {})

    def press(self, selector, key):
        self.command(f"/element/{self.element(selector)}/value", {"text": key})

    def close(self):
        with contextlib.suppress(Exception):
            if self.session:
                self.ask("DELETE", self.session)
        with contextlib.suppress(ProcessLookupError):
            os.killpg(self.process.pid, signal.SIGKILL)
        self.process.wait()
        shutil.rmtree(self.profile, ignore_errors=True)


def check_silence(browser):
    """Nothing in the console, and nothing asked for but files of this machine."""
    messages = [entry["message"] for entry in browser.log("browser")]
    check(not messages, "the console says:", messages)
    for entry in browser.log("performance"):
        event = json.loads(entry["message"])["message"]
        if event["method"] not in ("Network.requestWillBeSent", "Network.webSocketCreated"):
            continue
        params = event["params"]
        url = params.get("request", params).get("url", "")
        check(re.match(r"(file:///|data:|about:|chrome:)", url), "asked from a network:", url)


def check_drawings(browser, least):
    """The first pictures are there, and so is every stroke in them, in a colour that is seen."""
    pictures = browser.run(
        """
        const least = arguments[0];
        return Array.from(document.querySelectorAll('svg.picture')).map(svg => {
          const box = svg.getBoundingClientRect();
          const back = ground(svg);
          const paths = Array.from(svg.querySelectorAll('path:not(.spot path):not(.badge path):not(.sheet)'));
          const empty = [], pale = [], outside = [];
          paths.forEach(p => {
            const r = p.getBoundingClientRect();
            const s = getComputedStyle(p);
            const d = p.getAttribute('d');
            const dot = p.classList.contains('dots');
            if (r.width + r.height === 0 && !dot) empty.push(d);
            const c = rgba(s.stroke);
            if (c && contrast(over(c, back), back) < least) pale.push(d + ' ' + s.stroke);
            if (r.right < box.left || r.left > box.right || r.bottom < box.top ||
                r.top > box.bottom) outside.push(d);
          });
          const seen = svg.checkVisibility({ opacityProperty: true, visibilityProperty: true });
          return { view: svg.getAttribute('data-view'), width: box.width, height: box.height,
                   count: paths.length, empty, pale, outside, seen };
        });
        """,
        STROKE_CONTRAST,
    )
    check(len(pictures) >= least, "pictures:", len(pictures))
    for picture in pictures:
        name = picture["view"]
        check(picture["seen"] and picture["width"] > 50 and picture["height"] > 30, picture)
        check(picture["count"] > 0, name, "has no strokes")
        check(not picture["empty"], name, "has strokes without size:", picture["empty"][:3])
        check(not picture["pale"], name, "has strokes too pale:", picture["pale"][:3])
        # An enlarged part of a drawing leaves most of it outside.
        if name != "detail":
            check(not picture["outside"], name, "has strokes outside:", picture["outside"][:3])


def check_tables(browser, least):
    tables = browser.run(
        """
        return Array.from(document.querySelectorAll('table')).map(t => ({
          rows: t.tBodies[0].rows.length, seen: t.checkVisibility(),
          height: t.getBoundingClientRect().height, folded: Boolean(t.closest('details')) }));
        """
    )
    check(len(tables) >= least, "tables:", tables)
    for table in tables:
        check(table["rows"] > 0, "a table without rows")
        check(table["folded"] or (table["seen"] and table["height"] > 20), "a table is not seen")


def check_contrast(browser):
    """Every text against what is behind it."""
    poor = browser.run(
        """
        const poor = [];
        for (const e of document.body.querySelectorAll('*')) {
          const own = Array.from(e.childNodes).some(n => n.nodeType === 3 && n.data.trim());
          if (!own || ['SCRIPT', 'STYLE'].includes(e.tagName) || !e.checkVisibility()) continue;
          const svg = e.closest('svg');
          const plate = svg && e.parentElement.querySelector('rect, path');
          const colour = rgba(svg ? getComputedStyle(e).fill : getComputedStyle(e).color);
          const back = plate ? over(rgba(getComputedStyle(plate).fill), ground(e)) : ground(e);
          const ratio = contrast(over(colour, back), back);
          if (ratio < arguments[0]) poor.push([ratio.toFixed(2), e.textContent.slice(0, 40)]);
        }
        return poor;
        """,
        TEXT_CONTRAST,
    )
    check(not poor, "texts of too little contrast:", poor[:5])


# A key that stands in a table, and in how many of the first two pictures; the row is `row`.
MARKED_ROW = """
const pictures = Array.from(document.querySelectorAll('svg.picture')).slice(0, 2);
const rows = Array.from(document.querySelectorAll('tr.first[data-mark], tr[data-mark]'));
rows.sort((a, b) => b.classList.contains('first') - a.classList.contains('first'));
for (const row of rows) {
  if (row.closest('details')) continue;
  for (const key of keys(row)) {
    const inPictures = pictures.filter(p => having(key).some(e => p.contains(e))).length;
    if (inPictures === 0) continue;
    document.querySelectorAll('.aim').forEach(e => e.classList.remove('aim'));
    row.classList.add('aim');
    row.scrollIntoView({ block: 'center' });
    return { key, inPictures };
  }
}
return null;
"""


def looks(browser, key):
    return browser.run(
        """
        return having(arguments[0]).map(e => ({
          marked: e.classList.contains('marked'), pressed: e.getAttribute('aria-pressed'),
          look: look(e), name: e.tagName + '.' + e.getAttribute('class') }));
        """,
        key,
    )


def others_marked(browser, key):
    return browser.run(
        "return document.querySelectorAll('.marked').length"
        " - having(arguments[0]).filter(e => e.classList.contains('marked')).length;",
        key,
    )


def check_marks(browser, least):
    """A click on a row, a second one, and a key."""
    found = browser.run(MARKED_ROW)
    check(found, "no row of a table belongs to anything in a picture")
    check(found["inPictures"] >= least, found, "should be in", least, "pictures")
    key = found["key"]
    plain = looks(browser, key)
    check(not any(e["marked"] for e in plain), "marked from the beginning:", plain)
    for act in (lambda: browser.click("tr.aim td"), lambda: browser.press("tr.aim", ENTER)):
        act()
        marked = looks(browser, key)
        for before, after in zip(plain, marked):
            check(after["marked"] and after["pressed"] == "true", "not marked:", after)
            check(after["look"] != before["look"], "marked but looks as before:", after)
        check(others_marked(browser, key) == 0, "others are marked as well")
        check_contrast(browser)
        browser.run("document.querySelector('tr.aim').scrollIntoView({ block: 'center' });")
        act()
        left = [e for e in looks(browser, key) if e["marked"] or e["pressed"] != "false"]
        check(not left, "a second time does not take the mark away:", left)


def background(browser):
    return browser.run("return getComputedStyle(document.body).backgroundColor;")


def check_faces(browser):
    """Light and dark differ, and both can be read."""
    browser.face("light")
    light = background(browser)
    check_contrast(browser)
    browser.face("dark")
    check(background(browser) != light, "dark looks like light:", light)
    check_drawings(browser, 2)
    check_contrast(browser)
    browser.face("light", width=380)
    wide = browser.run("return document.documentElement.scrollWidth;")
    check(wide <= 380, "a narrow page is", wide, "wide")
    check_drawings(browser, 2)
    browser.face()


def check_paper(browser):
    """On paper nothing is folded away or cut off, and the ground is white, by night as well."""
    browser.face("dark", media="print", width=PAPER_WIDTH)
    check(background(browser) == "rgb(255, 255, 255)", "paper is", background(browser))
    lost = browser.run(
        """
        const lost = [];
        document.querySelectorAll('details').forEach(d => {
          Array.from(d.children).slice(1).forEach(e => {
            const r = e.getBoundingClientRect();
            if (r.width * r.height === 0 || !e.checkVisibility())
              lost.push('folded: ' + d.querySelector('summary').textContent);
          });
        });
        document.querySelectorAll('.scroll, pre').forEach(e => {
          if (e.scrollHeight > e.clientHeight + 1 || e.scrollWidth > e.clientWidth + 1)
            lost.push('cut off: ' + e.textContent.trim().slice(0, 60) + ' ' +
                      [e.scrollWidth, e.clientWidth, e.scrollHeight, e.clientHeight].join(' '));
        });
        document.querySelectorAll('button').forEach(e => {
          if (e.checkVisibility()) lost.push('a button on paper');
        });
        return lost;
        """
    )
    check(not lost, lost)
    check_drawings(browser, 2)
    check_contrast(browser)
    browser.face()
    paper = base64.b64decode(browser.command("/print", {}))
    check(paper.startswith(b"%PDF") and len(paper) > 5000, "no PDF comes of it")


def check_without_script(browser, page, least):
    browser.tell("Emulation.setScriptExecutionDisabled", value=True)
    try:
        browser.open(page)
        ran = browser.run("return document.querySelectorAll('[aria-pressed], .zoom').length;")
        check(ran == 0, "the script ran all the same")
        folded = browser.run("return document.querySelectorAll('details:not([open])').length;")
        check(folded == 0, folded, "folds are closed and nothing can open them")
        check_drawings(browser, 2)
        check_tables(browser, least)
    finally:
        browser.tell("Emulation.setScriptExecutionDisabled", value=False)


def check_report(browser, page, least):
    """`least` is in how many of the first two pictures a row's counterpart stands."""
    browser.face()
    browser.open(page)
    check_drawings(browser, 2)
    check_tables(browser, 1)
    check_marks(browser, least)
    check_faces(browser)
    check_paper(browser)
    check_without_script(browser, page, 1)
    check_silence(browser)


def make(program, arguments, page, expected):
    run = subprocess.run(
        [program, *map(str, arguments), "--report", str(page)],
        capture_output=True,
        text=True,
        timeout=PATIENCE,
        check=False,
    )
    check(run.returncode in expected, run.args, "ended with", run.returncode, run.stderr)
    check(page.is_file(), "no report was written")
    return page


def reports(program, samples, folder):
    """Title, page, and in how many pictures what a row names is to be seen."""
    # A name that would break out of the page if it could.
    sly = folder / "<script>alert(1)</script> & \"it's\"'.dxf".replace("/", "\u2044")
    shutil.copy(samples / "bracket.dxf", sly)
    for name, other in (
        ("moved", "bracket-hole-moved.dxf"),
        ("radius", "bracket-radius.dxf"),
        ("extra", "bracket-extra-hole.dxf"),
    ):
        arguments = ["compare", sly, samples / other]
        page = make(program, arguments, folder / f"{name}.html", [DIFFERENT])
        yield f"comparison with {other}", page, 2
    arguments = ["heal", samples / "messy-bracket.dxf", folder / "healed.dxf"]
    yield "healing", make(program, arguments, folder / "healing.html", [0, 1]), 1


def main():
    program, samples = sys.argv[1], Path(sys.argv[2])
    chromium = shutil.which("chromium") or shutil.which("chromium-browser")
    driver = shutil.which("chromedriver")
    if not chromium or not driver:
        print("skipped: no browser to look with (Debian: chromium, chromium-driver)")
        return SKIPPED
    failures = 0
    with tempfile.TemporaryDirectory(prefix="ktrcl-reports-") as folder:
        browser = Browser(chromium, driver)
        try:
            for title, page, least in reports(program, samples, Path(folder)):
                try:
                    check_report(browser, page, least)
                    print(f"fine: {title}")
                except Failure as failure:
                    failures += 1
                    print(f"WRONG: {title}: {failure}")
        finally:
            browser.close()
    return 1 if failures else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failure as cause:
        print(f"WRONG: {cause}")
        sys.exit(1)
