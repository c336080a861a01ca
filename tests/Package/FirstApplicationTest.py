#!/usr/bin/env python3
"""Builds what docs/first-application.md says, step by step, against an installed framework, and runs it:
FirstApplicationTest.py <docs> <build tree of the framework> <folder for the work> <CMake's generator>

A block of code is a file, or stands in place of a line of one. After each step, the program is built and draws its
window; at the end, the tests of the page run. The examples of docs/from-plain-qt.md are compiled, too.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys

STEP = re.compile(r"^## (\d+\. .*)$", re.M)
BLOCK = re.compile(r"^(?:In )?`([\w.]+)`(?:, in place of `([^`\n]+)`)?:\n```\w+\n(.*?)^```$", re.M | re.S)
EXAMPLE = re.compile(r"^```cpp\n(.*?)^```$", re.M | re.S)
CODE = re.compile(r"^```(?:cpp|cmake|xml)$", re.M)


def run(*command, **environment):
    result = subprocess.run(command, capture_output=True, text=True, check=False,
                            env=dict(os.environ, **environment))
    if result.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}\n{result.stdout}\n{result.stderr}")


def steps_of(page):
    """The titles and texts of the steps; every block of code of theirs must say where it belongs."""
    parts = STEP.split(page)[1:]
    for title, text in zip(parts[::2], parts[1::2]):
        blocks = BLOCK.findall(text)
        if not blocks or len(blocks) != len(CODE.findall(text)):
            sys.exit(f"{title}: a block of code does not say where it belongs.")
        yield title, blocks


def apply(file, place, code):
    """Writes a file, or puts code in place of the only line that is like \a place."""
    if not place:
        file.write_text(code)
        return
    lines = file.read_text().split("\n")
    found = [index for index, line in enumerate(lines) if line.strip() == place]
    if len(found) != 1:
        sys.exit(f"{file.name} has {len(found)} lines “{place}”.")
    lines[found[0]:found[0] + 1] = code.rstrip("\n").split("\n")
    file.write_text("\n".join(lines))


def build_and_draw(source, build, home):
    run("cmake", "--build", build)
    picture = build / "window.png"
    picture.unlink(missing_ok=True)
    run(build / "first", picture, QT_QPA_PLATFORM="offscreen", HOME=str(home), LC_ALL="C.UTF-8")
    if not picture.exists() or picture.stat().st_size < 1000:
        sys.exit(f"{source}: the window was not drawn.")


def examples_of(page):
    """A source with a function for each example of a page; the first block is what all of them have."""
    blocks = EXAMPLE.findall(page)
    functions = [f"void example{number}()\n{{\n{code}}}\n" for number, code in enumerate(blocks[1:])]
    return "\n".join([blocks[0], *functions])


def main(docs, framework, work, generator):
    docs, work = pathlib.Path(docs), pathlib.Path(work).resolve()
    shutil.rmtree(work, ignore_errors=True)
    cached = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    source, build, home, prefix = work / "source", work / "build", work / "home", work / "prefix"
    for folder in (source, home):
        folder.mkdir(parents=True)
    run("cmake", "--install", framework, "--component", "KTUtility", "--prefix", prefix)
    for title, blocks in steps_of((docs / "first-application.md").read_text()):
        print(title, flush=True)
        for name, place, code in blocks:
            apply(source / name, place, code)
        if not build.exists():
            run("cmake", "-S", source, "-B", build, "-G", generator, f"-DCMAKE_PREFIX_PATH={prefix}",
                "-DCMAKE_BUILD_TYPE=Debug", *cached)
        build_and_draw(source, build, home)
    print("Examples", flush=True)
    (source / "examples.cpp").write_text(examples_of((docs / "from-plain-qt.md").read_text()))
    with open(source / "CMakeLists.txt", "a") as lists:
        lists.write("\nadd_library(examples STATIC examples.cpp)\n"
                    "target_link_libraries(examples PRIVATE KTUtility::KTUtility)\n")
    run("cmake", "--build", build)
    run("ctest", "--test-dir", build, "--output-on-failure", "--no-tests=error", QT_QPA_PLATFORM="offscreen",
        HOME=str(home))


if __name__ == "__main__":
    main(*sys.argv[1:])
