"""Plays every example of the documents as a reader would: docs_test.py PARLOR ROOT

Each page gets a folder of its own, in which ./run is Parlor. A fenced block with a file name is written there. A list is
then checked and a flow played, unless a console block of the page has to do with the file. Of a console block each "$ "
line is run; the lines below it are what it must say, "…" standing for anything. So are commands within the text that
begin with ./run. Links and paths of the tree must lead to something.
"""
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

FENCE = re.compile(r"^```(\w+) ?(\S*)\n(.*?)^```$", re.M | re.S)
COMMAND = re.compile(r"`(\./run [^`]*)`")
PATH = re.compile(r"`([\w.-]+/[\w./+-]*)`")
LINK = re.compile(r"\]\(([^):#]+)[^)]*\)")
PLAYED = set()  # commands within the text of earlier pages
COPIED = ["flows", "resources", "schemas", "tests/golden"]
MADE = ["build", "out"]  # folders of the tree that commands make


class Page:
    def __init__(self, path, root, folder):
        self.path, self.root, self.folder = path, root, folder
        self.text = path.read_text()
        self.consoles = "".join(text for language, _, text in FENCE.findall(self.text) if language == "console")
        self.failures = []

    def fail(self, what):
        self.failures.append(f"{self.path.relative_to(self.root)}: {what}")

    def run(self, command, expected=""):
        """Fails for other output, and for success where an error is expected."""
        environment = {key: value for key, value in os.environ.items() if key != "CI"}
        done = subprocess.run(["bash", "-c", command], cwd=self.folder, env=environment, timeout=120, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if (done.returncode != 0) != ("error:" in expected):
            self.fail(f"{command} ends with {done.returncode}:\n{done.stdout}")
        elif not re.search(re.escape(expected.strip()).replace("…", ".*"), done.stdout, re.S):
            self.fail(f"{command} says, other than the page:\n{done.stdout}")

    def play_block(self, language, name, text):
        if name:
            (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
            (self.folder / name).write_text(text)
        if language == "console":
            for command, expected in re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", text, re.M):
                self.run(command, expected)
        elif name and name in self.consoles:
            pass
        elif language == "yaml" and name:
            self.run(f"./run run {name}")
        elif language == "json" and isinstance(json.loads(text), list):
            self.run(f"./run check {name}")

    def play(self):
        for block in FENCE.findall(self.text):
            self.play_block(*block)
        for command in dict.fromkeys(COMMAND.findall(self.text)):
            is_about_page = any(name and name in command for _, name, _ in FENCE.findall(self.text))
            if " open" in command or command in self.consoles or (command in PLAYED and not is_about_page):
                continue  # the browser has tests of its own
            PLAYED.add(command)
            self.run(command)
        text = FENCE.sub("", self.text)
        for path in PATH.findall(text):
            folder = path.split("/")[0]
            if folder in os.listdir(self.root) and folder not in MADE and not (self.root / path).exists():
                self.fail(f"there is no {path}")
        for link in LINK.findall(text):
            if not (self.path.parent / link).exists():
                self.fail(f"there is no {link}")


def main(parlor, root):
    failures = []
    for path in [root / "README.md", *sorted((root / "docs").glob("*.md"))]:
        with tempfile.TemporaryDirectory() as folder:
            for name in filter(lambda name: (root / name).exists(), COPIED):
                shutil.copytree(root / name, Path(folder) / name)
            (Path(folder) / "run").symlink_to(parlor)
            page = Page(path, root, Path(folder))
            page.play()
            failures += page.failures
    print("\n".join(failures))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()))
