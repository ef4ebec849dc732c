#!/usr/bin/python3
"""Runs every command of the documents, as a reader who follows them in one terminal would.

Commands are the blocks marked "sh", the jobs of the blocks marked "yaml", and the examples of a man
page. Each document has a folder of its own that looks like the source tree with some photos and a
show in it. A command must succeed, do something, and make the files that it names. What another
step of .ci/run runs stands in RUN_ELSEWHERE. Commands within the text must name what there is, and
the C++ of each section must compile.

Needs the release build. usage: check-docs.py [DOCUMENT]...     default: all
"""

import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import yaml

from documents import Problem, commands, man_blocks, markdown_blocks, markdown_inline

TOP = Path(__file__).resolve().parent.parent
BUILD = TOP / "build/release"
DOCUMENTS = ("README.md", "CONTRIBUTING.md", "docs/*.md", "apps/*/share/*.1")

# Commands that are not run here: the script that runs them for the gate, and its line.
DEMO = (".ci/run",
        "env -u DISPLAY -u WAYLAND_DISPLAY ./scripts/demo.sh docs/filters/*.jpg >/dev/null")
TESTS = (".ci/run", "CXXFLAGS=-Werror ./scripts/test.sh")
RUN_ELSEWHERE = {
    "./scripts/demo.sh": DEMO,
    "./scripts/demo.sh ~/holiday/*.jpg": DEMO,
    "./scripts/test.sh": TESTS,
    "./scripts/test.sh -R Catalogue": TESTS,
    "./scripts/fuzz.sh 60": (".ci/run", "./scripts/fuzz.sh 10"),
    "./scripts/filter-ratios.sh": (
        ".ci/run", "./scripts/filter-ratios.sh --benchmark_filter=/2/ --benchmark_min_time=0.01"),
    "./scripts/filter-memory.sh": (".ci/run", "./scripts/filter-memory.sh 1"),
    "./bench/compare_peers.sh": (".ci/run", "./bench/compare_peers.sh docs/filters/original.jpg"),
    "QT_QPA_PLATFORM=offscreen build/release/bench/vellora_desktop_bench 2000 *.jpg": (
        ".ci/run",
        "QT_QPA_PLATFORM=offscreen build/release/bench/vellora_desktop_bench 20 docs/filters/*.jpg"),
    "cmake --preset release": ("scripts/test.sh", "cmake --preset release"),
    "cmake --build --preset release":
        ("scripts/test.sh", 'cmake --build --preset release --parallel "$(nproc)"'),
    "cmake --build --preset release --target translations":
        (".ci/run", "cmake --build --preset release --target translations"),
    "cmake --build --preset release --target package":
        ("scripts/check-debs.sh", "cmake --build --preset release --target package >/dev/null"),
}
# They stay open until somebody closes them: it is enough that they do.
WINDOWS = ("vellora edit ", "vellora-desktop", "build/photo-editor ")
SECONDS_OPEN = 2
# They say nothing when all is well.
SILENT = ("vellora project check ", "export ", "cd ")
SECONDS_AT_MOST = 600
PHOTOS = 17  # more than the documents' jobs have parts

OUTPUT_OPTIONS = ("-o", "--out", "--sheet", "--save-project", "--prefix", "-B")
A_FILE = re.compile(r"[\w./-]+\.(jpg|png|xml|vshow|svg|wmf|emf)")
TOOLS = ("cmake", "cpack", "ctest", "apt", "apt-get", "sudo", "git", "g++", "find", "parallel",
         "pkg-config", "doxygen", "sh", "python3")
GOOGLE_BENCHMARK_SECONDS = "0.01"


def is_newer(path, start):
    """Whether a file, or something in a folder, was written since."""
    files = [path, *path.rglob("*")] if path.is_dir() else [path]
    return any(file.lstat().st_mtime > start for file in files)


class Terminal:
    """A shell in a folder that looks like the source tree; exports and folder last."""

    def __init__(self, work, name):
        self.folder = work / name.replace("/", "-")
        self.state = work / f"state-{self.folder.name}"
        self.folder.mkdir()
        self.state.mkdir()
        for entry in TOP.iterdir():
            if entry.name in ("assets", "docs"):
                shutil.copytree(entry, self.folder / entry.name)
            elif entry.name not in (".git", "out"):
                (self.folder / entry.name).symlink_to(entry)
        shutil.copytree(work / "photos", self.folder, dirs_exist_ok=True)
        (self.state / "folder").write_text(str(self.folder))
        (self.state / "exports").write_text("")
        home = self.folder / "home"
        home.mkdir()
        self.environment = {
            "PATH": f"{work}/installed/bin:" + os.environ["PATH"], "HOME": str(home),
            "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen", "STATE": str(self.state),
            "BENCHMARK_MIN_TIME": GOOGLE_BENCHMARK_SECONDS}

    def present_folder(self):
        """Where the last command left the shell."""
        return Path((self.state / "folder").read_text().strip())

    def shell(self, script, **variables):
        """The exit status of a script and the end of what it says."""
        try:
            process = subprocess.run(
                ["sh", "-c", script], cwd=self.folder, env=self.environment | variables,
                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                text=True, errors="replace", timeout=SECONDS_AT_MOST, check=False)
        except subprocess.TimeoutExpired:
            return -1, f"still running after {SECONDS_AT_MOST} seconds"
        return process.returncode, process.stdout[-2000:]

    def run(self, command):
        """Runs a command; what is wrong, or "". """
        start = time.time() - 0.02  # files have the time of the last tick
        is_window = command.startswith(WINDOWS)
        prefix = f"timeout {SECONDS_OPEN} " if is_window else ""
        script = ('. "$STATE/exports"\ncd "$(cat "$STATE/folder")"\nset -e\n' + prefix + command +
                  '\nexport -p >"$STATE/exports"\npwd >"$STATE/folder"\n')
        status, said = self.shell(script)
        if status != (124 if is_window else 0):
            return f"exit status {status}\n{said}"
        if is_window:
            return ""
        if not (command.startswith(SILENT) or said or is_newer(self.folder, start)):
            return "prints nothing and writes nothing"
        return self.missing_result(command, start)

    def missing_result(self, command, start):
        """What the command names and does not leave behind."""
        folder = self.present_folder()
        words = shlex.split(command, comments=True)
        results = [word for option, word in zip(words, words[1:]) if option in OUTPUT_OPTIONS]
        files = [word for word in words if A_FILE.fullmatch(word)]
        for name in results + files:
            path = folder / name.replace("~", self.environment["HOME"])
            if not path.exists():
                return f"leaves no {name}"
            if name in results and not is_newer(path, start):
                return f"does not write {name}"
        return ""

    def run_array(self, block):
        """A job script of Slurm, once for each index of its array."""
        script = self.folder / "array.sh"
        script.write_text(block.text())
        first, last = map(int, re.search(r"#SBATCH --array=(\d+)-(\d+)", block.text()).groups())
        return self.run_parts("sh array.sh", block.lines[-1], "SLURM_ARRAY_TASK_ID",
                              range(first, last + 1))

    def run_job(self, block):
        """An indexed job of Kubernetes, once for each index, its volume being the folder."""
        spec = yaml.safe_load(block.text())["spec"]
        container = spec["template"]["spec"]["containers"][0]
        call = container["command"] + container["args"]
        for mount in container["volumeMounts"]:
            call = [word.replace(mount["mountPath"], str(self.folder)) for word in call]
        return self.run_parts(shlex.join(call), call[-1], "JOB_COMPLETION_INDEX",
                              range(spec["completions"]))

    def run_parts(self, call, command, variable, indices):
        """All parts together must write every result anew."""
        start = time.time() - 0.02
        for index in indices:
            status, said = self.shell(call, **{variable: str(index)})
            if status != 0:
                return f"part {index}: exit status {status}\n{said}"
        words = shlex.split(command)
        results = self.folder / words[words.index("--out") + 1]
        left = [file.name for file in results.iterdir() if not is_newer(file, start)]
        photos = len(list((self.folder / "photos").iterdir()))
        if left or len(list(results.iterdir())) != photos:
            return f"the parts do not write all of {results}: {left}"
        return ""


def gate_problem(command):
    """Whether the gate really runs a command that stands in RUN_ELSEWHERE."""
    script, line = RUN_ELSEWHERE[command]
    gate = (TOP / ".ci/run").read_text().splitlines()
    called = script == ".ci/run" or any(f"./{script}" in text.split() for text in gate)
    if not called:
        return f".ci/run does not call {script}"
    if line not in map(str.strip, (TOP / script).read_text().splitlines()):
        return f"{script} has no line '{line}'"
    return ""


def run_block(terminal, block):
    """What is wrong with the commands of a block, each with its line."""
    if block.file:
        (terminal.present_folder() / block.file).write_text(block.text())
    elif block.language == "yaml":
        yield block.line, terminal.run_job(block)
    elif block.language == "sh" and block.lines[0].startswith("#!"):
        yield block.line, terminal.run_array(block)
    elif block.language == "sh":
        for line, command in commands(block):
            bare = re.sub(r"\s+# .*", "", command)
            problem = gate_problem(bare) if bare in RUN_ELSEWHERE else terminal.run(command)
            yield line, problem and f"{command}: {problem}"


CODE_BEFORE = """
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <cstdio>
#include <opencv2/core/core_c.h>
#include <vellora/vellora.h>
using namespace vellora;
"""
# What the text speaks of and the code takes for granted.
CODE_GIVEN = "int argc, char** argv, QString path, QString result, QString edits, " \
             "CImageObj& show, QObject& host, QEvent* event"


def code_problem(blocks, name, installed):
    """Compiles the C++ of a document, each section being one function."""
    sections = {}
    for block in blocks:
        if block.language == "cpp":
            code = "".join(f'#line {number} "{name}"\n{line}\n'
                           for number, line in enumerate(block.lines, block.line)
                           if not line.startswith("#include"))
            sections[block.section] = sections.get(block.section, "") + code
    if not sections:
        return ""
    code = CODE_BEFORE + "".join(f"void section{section}({CODE_GIVEN}) {{ {{\n{text}\n}} }}\n"
                                 for section, text in sections.items())
    flags = subprocess.run(
        ["pkg-config", "--cflags", "vellora"], check=True, capture_output=True, text=True,
        env=os.environ | {"PKG_CONFIG_PATH": f"{installed}/lib/pkgconfig"}).stdout.split()
    process = subprocess.run(
        ["g++", "-std=c++20", "-fPIC", "-w", "-fsyntax-only", *flags,
         "-isystem", "/usr/include/opencv4", "-x", "c++", "-"], input=code, capture_output=True, text=True, check=False)
    return process.stderr if process.returncode else ""


def inline_problem(code, helps):
    """Whether code within the text names a command, option or file that there is."""
    words = code.split()
    if words[0] in TOOLS and len(words) > 1:
        return f"'{code}' is a command: give it a block of its own"
    if "/" in words[0] and (TOP / words[0].split("/")[0]).exists():
        if not (TOP / words[0]).exists():
            return f"there is no {words[0]}"
    if words[0] != "vellora" or len(words) == 1:
        return ""
    if words[1] not in helps:
        return f"there is no command 'vellora {words[1]}'"
    for option in re.findall(r"(?<![\w-])--?[a-z][a-z-]*", " ".join(words[2:])):
        if not re.search(rf"(?<![\w-]){option}(?![\w-])", helps[words[1]]):
            return f"'vellora {words[1]}' has no option {option}"
    return ""


def command_helps():
    """The help of each command of the program."""
    def help_of(*words):
        return subprocess.run([BUILD / "apps/vellora/vellora", *words, "--help"],
                              capture_output=True, text=True, check=True).stdout
    names = re.findall(r"^  ([a-z]+) ", help_of().split("Subcommands:")[1], re.M)
    helps = {name: help_of(name) for name in names}
    for name in re.findall(r"^  ([a-z]+) ", helps["project"].split("Subcommands:")[1], re.M):
        helps["project"] += help_of("project", name)
    return helps


def prepare(work):
    """The photos that the documents speak of, and an installed Vellora."""
    photos = work / "photos"
    subprocess.run([BUILD / "tools/scenes/vellora-scenes", "--size", "600x400", photos],
                   check=True, stdout=subprocess.DEVNULL)
    painted = list(photos.glob("*.jpg"))
    for folder, count in (("photos", PHOTOS), ("holiday", len(painted))):
        (photos / folder).mkdir()
        for number in range(count):
            photo = painted[number % len(painted)]
            shutil.copy(photo, photos / folder / f"{photo.stem}-{number}.jpg")
    shutil.copy(photos / "landscape.jpg", photos / "lake.jpg")
    shutil.copytree(TOP / "assets/demo", photos, dirs_exist_ok=True)
    subprocess.run(["cmake", "--install", BUILD, "--prefix", work / "installed"], check=True,
                   stdout=subprocess.DEVNULL)


def check(document, work, helps):
    """What is wrong in a document."""
    text = document.read_text()
    name = document.relative_to(TOP)
    is_markdown = document.suffix == ".md"
    problems = []
    try:
        blocks = markdown_blocks(text) if is_markdown else man_blocks(text)
        inline = markdown_inline(text) if is_markdown else []
        problems += [(code.line, inline_problem(code.text, helps)) for code in inline]
        terminal = Terminal(work, str(name))
        problems.append((1, code_problem(blocks, name, work / "installed")))
        for block in blocks:
            problems += run_block(terminal, block)
    except Problem as problem:
        problems.append((problem.line, str(problem)))
    return [f"{name}:{line}: {problem}" for line, problem in problems if problem]


def main():
    named = [Path(name).resolve() for name in sys.argv[1:]]
    documents = named or sorted(file for names in DOCUMENTS for file in TOP.glob(names))
    failed = False
    with tempfile.TemporaryDirectory() as work, ThreadPoolExecutor(os.cpu_count()) as pool:
        prepare(Path(work))
        helps = command_helps()
        for problems in pool.map(lambda document: check(document, Path(work), helps), documents):
            for problem in problems:
                print(problem, file=sys.stderr)
                failed = True
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
