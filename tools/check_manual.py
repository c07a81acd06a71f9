#!/usr/bin/env python3
"""Looks at every page of the manual in a headless browser: narrow and wide, light and dark.

usage: tools/check_manual.py [--pictures OUT] [FOLDER]

Prints what is wrong, one line each, and ends with exit code 1 then: a picture that is not shown, a
link or anchor without a target, a page or table wider than the window, a text whose contrast with what is
behind it is below 4.5:1, and anything that would be fetched from elsewhere. With --pictures each
page is kept as it looked. Needs Debian's chromium (tools/setup.sh manual), spoken to through a pipe;
no network. tools/manual.py check looks at what needs no browser.
"""

import argparse
import base64
import fcntl
import json
import os
import subprocess
import sys
import tempfile
import urllib.parse

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
WIDTHS = (400, 1280)  # pixels
SCHEMES = ("light", "dark")
HEIGHT = 900
LEAST_CONTRAST = 4.5

# What a page says of itself, as a list of faults and a list of links.
LOOK = """
(() => {
  const faults = [];
  const root = document.documentElement;
  if (root.scrollWidth > root.clientWidth)
    faults.push(`wider than the window: ${root.scrollWidth} for ${root.clientWidth} pixels`);
  for (const table of document.querySelectorAll('table'))
    if (table.scrollWidth > table.clientWidth) faults.push('a table wider than the page: ' +
      table.rows[0].innerText.replace(/\\s+/g, ' '));
  for (const image of document.images)
    if (!image.complete || image.naturalWidth === 0)
      faults.push('a picture is not shown: ' + image.getAttribute('src'));
  for (const entry of performance.getEntriesByType('resource'))
    if (!entry.name.startsWith('file:')) faults.push('fetched from elsewhere: ' + entry.name);
  const parts = text => text.match(/[0-9.]+/g).map(Number);
  const luminance = rgb => rgb.slice(0, 3)
    .map(c => c / 255).map(c => c <= 0.03928 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4)
    .reduce((sum, c, i) => sum + c * [0.2126, 0.7152, 0.0722][i], 0);
  const behind = element => {
    for (let e = element; e; e = e.parentElement) {
      const colour = parts(getComputedStyle(e).backgroundColor);
      if (colour.length < 4 || colour[3] === 1) return colour;
      if (colour[3] > 0) faults.push('a half transparent background: ' + e.tagName);
    }
    faults.push('no background at all');
    return [255, 255, 255];
  };
  const seen = new Set();
  const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
  while (walker.nextNode()) {
    const text = walker.currentNode.data.trim();
    const element = walker.currentNode.parentElement;
    if (!text) continue;
    const colours = [parts(getComputedStyle(element).color), behind(element)];
    const [high, low] = colours.map(luminance).sort((a, b) => b - a);
    const contrast = (high + 0.05) / (low + 0.05);
    const key = element.tagName + colours;
    if (contrast < LEAST && !seen.has(key))
      faults.push(`contrast ${contrast.toFixed(2)}: ${element.tagName} "${text.slice(0, 30)}"`);
    seen.add(key);
  }
  return {faults, links: [...document.links].map(link => link.href),
          ids: [...document.querySelectorAll('[id]')].map(e => e.id),
          texts: seen.size, title: document.title};
})()
""".replace("LEAST", str(LEAST_CONTRAST))


class Browser:
    """A headless browser at the other end of two pipes: one JSON object and a zero byte each way."""

    def __init__(self, profile):
        to_browser, from_us = os.pipe()
        from_browser, to_us = os.pipe()
        # The browser listens on 3 and answers on 4.
        taken = [fcntl.fcntl(end, fcntl.F_DUPFD, 10) for end in (to_browser, to_us)]
        words = ["bash", "-c", 'exec "$0" "$@" 3<&{} 4>&{}'.format(*taken), "chromium",
                 "--headless=new", "--no-sandbox", "--disable-gpu", "--no-first-run",
                 "--disable-background-networking", "--host-resolver-rules=MAP * ~NOTFOUND",
                 "--hide-scrollbars", f"--user-data-dir={profile}", "--remote-debugging-pipe",
                 "about:blank"]
        self.process = subprocess.Popen(words, pass_fds=taken, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        for end in taken:
            os.close(end)
        os.close(to_browser)
        os.close(to_us)
        self.to, self.back = from_us, from_browser
        self.rest, self.count, self.session = b"", 0, None
        target = next(info for info in self.ask("Target.getTargets")["targetInfos"]
                      if info["type"] == "page")
        self.session = self.ask("Target.attachToTarget", targetId=target["targetId"],
                                flatten=True)["sessionId"]
        self.ask("Page.enable")

    def message(self):
        while b"\0" not in self.rest:
            some = os.read(self.back, 1 << 20)
            if not some:
                raise RuntimeError("the browser has ended")
            self.rest += some
        whole, self.rest = self.rest.split(b"\0", 1)
        return json.loads(whole)

    def ask(self, method, **parameters):
        self.count += 1
        question = {"id": self.count, "method": method, "params": parameters}
        if self.session:
            question["sessionId"] = self.session
        os.write(self.to, json.dumps(question).encode() + b"\0")
        while True:
            answer = self.message()
            if answer.get("id") == self.count:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']['message']}")
                return answer["result"]

    def open(self, address, width, scheme):
        self.ask("Emulation.setDeviceMetricsOverride", width=width, height=HEIGHT,
                 deviceScaleFactor=1, mobile=False)
        self.ask("Emulation.setEmulatedMedia",
                 features=[{"name": "prefers-color-scheme", "value": scheme}])
        gone = self.ask("Page.navigate", url=address).get("errorText")
        if gone:
            raise RuntimeError(f"{address}: {gone}")
        while self.message().get("method") != "Page.loadEventFired":
            pass
        return self.ask("Runtime.evaluate", expression=LOOK, returnByValue=True)["result"]["value"]

    def picture(self, path):
        data = self.ask("Page.captureScreenshot", captureBeyondViewport=True)["data"]
        with open(path, "wb") as file:
            file.write(base64.b64decode(data))

    def close(self):
        try:
            self.session = None
            self.ask("Browser.close")
        except (RuntimeError, OSError):
            pass
        self.process.wait(timeout=30)


def link_faults(pages, names):
    for name, page in pages.items():
        for link in sorted(set(page["links"])):
            address = urllib.parse.urlsplit(link)
            target = os.path.basename(address.path)
            if address.scheme != "file" or target not in names:
                yield f"{name}: a link to nothing: {link}"
            elif address.fragment and address.fragment not in pages[target]["ids"]:
                yield f"{name}: no such anchor: {target}#{address.fragment}"


def look_at_all(browser, folder, names, out):
    for width in WIDTHS:
        for scheme in SCHEMES:
            pages = {}
            for name in names:
                pages[name] = browser.open(f"file://{folder}/{name}", width, scheme)
                for fault in pages[name]["faults"]:
                    yield f"{name}, {width} pixels, {scheme}: {fault}"
                if out:
                    browser.picture(os.path.join(out, f"{name[:-5]}-{width}-{scheme}.png"))
    yield from link_faults(pages, names)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", nargs="?", default=os.path.join(ROOT, "docs/manual"))
    parser.add_argument("--pictures", metavar="OUT")
    options = parser.parse_args()
    folder = os.path.abspath(options.folder)
    names = sorted(name for name in os.listdir(folder) if name.endswith(".html"))
    if options.pictures:
        os.makedirs(options.pictures, exist_ok=True)
    with tempfile.TemporaryDirectory() as profile:
        browser = Browser(profile)
        try:
            found = list(look_at_all(browser, folder, names, options.pictures))
        finally:
            browser.close()
    print("\n".join(found) if found else
          f"{len(names)} pages, {len(WIDTHS)} widths, light and dark: nothing wrong.")
    sys.exit(1 if found else 0)


main()
