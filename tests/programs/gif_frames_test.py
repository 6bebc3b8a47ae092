#!/usr/bin/env python3
"""Lets a reader of GIFs that is not ours judge the animations of the program.

    gif_frames_test.py JUDGE PROGRAM GIF_FRAMES

JUDGE is giflib, gifsicle or convert. Animations are built and encoded in every mode:
the fixed palettes and palettes of their own at every depth, dithering, Supercompress,
Mask background, with and without a comment; and previews. The judge must take each
file without a complaint and see the frames that were handed over, or, where a palette
holds all colours, the very pictures that were encoded. GIF_FRAMES writes what giflib
sees. Exit status 77 if the judge is not installed.
"""
import json
import os
import random
import re
import shutil
import struct
import subprocess
import sys
import tempfile

JUDGE, PROGRAM, GIF_FRAMES = sys.argv[1], *map(os.path.abspath, sys.argv[2:4])
CLEAR = None


class Complaint(Exception):
    pass


def run(*command):
    """Returns what the command writes; it must succeed without a word on errors."""
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    if result.returncode != 0 or result.stderr:
        raise Complaint(f"{' '.join(command)}: {result.stderr.decode(errors='replace')}")
    return result.stdout


def read(path):
    with open(path, "rb") as file:
        return file.read()


# --- What is meant

def bitmap_indexes(path):
    """Returns the indexes of a bitmap's pixels, rows from the top, and its colours."""
    data = read(path)
    start, = struct.unpack_from("<I", data, 10)
    width, height, _, bits = struct.unpack_from("<iiHH", data, 18)
    colors = [(data[p + 2], data[p + 1], data[p]) for p in range(54, 54 + (4 << bits), 4)]
    row_bytes = (width * bits + 31) // 32 * 4
    indexes = []
    for y in reversed(range(height)):
        row = data[start + y * row_bytes:start + (y + 1) * row_bytes]
        for x in range(width):
            place = x * bits
            indexes.append(row[place // 8] >> (8 - bits - place % 8) & (1 << bits) - 1)
    return indexes, colors


def frames_handed_over(folder):
    """Composes what --frames wrote: delay and pixels of each frame, CLEAR for none."""
    with open(os.path.join(folder, "animation.json"), encoding="utf-8") as file:
        animation = json.load(file)
    shown = [CLEAR] * (animation["width"] * animation["height"])
    frames = []
    for frame in animation["frames"]:
        indexes, colors = bitmap_indexes(os.path.join(folder, frame["file"]))
        for place, index in enumerate(indexes):
            if index != frame["transparent_index"]:
                shown[place] = colors[index]
        frames.append((frame["delay"], list(shown)))
    return frames, animation.get("comment") or ""


# --- What the judge sees

def giflib_frames(path, pixels):
    data = run(GIF_FRAMES, path)
    size = 4 + 3 * pixels
    frames = []
    for start in range(0, len(data), size):
        frame = data[start:start + size]
        delay, = struct.unpack_from("<I", frame)
        frames.append((delay, list(zip(frame[4::3], frame[5::3], frame[6::3]))))
    return frames, None


def gifsicle_frames(path, pixels):
    """gifsicle writes the file anew, and giflib reads that."""
    told = run("gifsicle", "--info", path).decode("latin-1")
    comment = re.search(r"^ *comment (.*)$", told, re.MULTILINE)
    text = re.sub(r"\\(.)", lambda escape: {"r": "\r", "n": "\n"}.get(escape[1], escape[1]),
                  comment[1]) if comment else ""
    run("gifsicle", "--careful", path, "-o", "anew.gif")
    return giflib_frames("anew.gif", pixels)[0], text


def convert_frames(path, pixels):
    data = run("convert", path, "-coalesce", "-depth", "8", "rgba:-")
    delays = [int(word) for word in run("identify", "-format", "%T ", path).split()]
    size = 4 * pixels
    frames = []
    for number, start in enumerate(range(0, len(data), size)):
        frame = data[start:start + size]
        seen = [color[:3] if color[3] else CLEAR
                for color in zip(frame[0::4], frame[1::4], frame[2::4], frame[3::4])]
        frames.append((delays[number], seen))
    return frames, run("identify", "-format", "%c", path + "[0]").decode("latin-1")


FRAMES_OF = {"giflib": giflib_frames, "gifsicle": gifsicle_frames, "convert": convert_frames}


def compare(name, path, expected, comment):
    """Raises a Complaint where the judge sees anything but what is expected."""
    seen, seen_comment = FRAMES_OF[JUDGE](path, len(expected[0][1]))
    if JUDGE != "convert":  # there what was never drawn is black
        expected = [(delay, [color or (0, 0, 0) for color in pixels]) for delay, pixels in expected]
    if len(seen) != len(expected):
        raise Complaint(f"{name}: {len(seen)} frames, not {len(expected)}")
    for number, ((delay, pixels), (own_delay, own_pixels)) in enumerate(zip(seen, expected)):
        if delay != own_delay:
            raise Complaint(f"{name}, frame {number}: delay {delay}, not {own_delay}")
        others = [i for i, pixel in enumerate(pixels) if pixel != own_pixels[i]]
        if others:
            raise Complaint(f"{name}, frame {number}: {len(others)} other pixels, the first at "
                            f"{others[0]}: {pixels[others[0]]}, not {own_pixels[others[0]]}")
    if seen_comment is not None and seen_comment != comment:
        raise Complaint(f"{name}: comment {seen_comment!r}, not {comment!r}")


# --- The animations

def modes():
    """Every palette with each of the other settings."""
    for palette in [*range(9), "custom"]:
        for dither in ("no", "yes"):
            for supercompress, mask in (("no", "no"), ("yes", "no"), ("no", "yes"), ("yes", "yes")):
                comment = "yes" if (dither == "yes") == (mask == "yes") else "no"
                yield palette, dither, supercompress, mask, comment


def settings_of(palette, dither, supercompress, mask, comment):
    values = {"custom-palette": "yes" if palette == "custom" else "no", "dither": dither,
              "supercompress": supercompress, "mask-background": mask, "comment": comment}
    if palette != "custom":
        values["palette"] = str(palette)
    return [word for value in values.items() for word in ("--set", "=".join(value))]


STYLES = {"Bubbles": ["width=22", "depth=17", "frames=3", "size=10"],
          "White Noise": ["width=19", "depth=18", "frames=2", "size=2"]}


def judge_builds():
    for mode in modes():
        for style, small in STYLES.items():
            words = [word for value in small for word in ("--set", value)] + settings_of(*mode)
            run(PROGRAM, "build", style, "--quiet", "--defaults", *words, "-o", "a.gif",
                "--frames", "frames")
            expected, comment = frames_handed_over("frames")
            compare(f"build {style} {mode}", "a.gif", expected, comment)
            yield


def judge_previews():
    for mode in modes():
        words = [word for value in STYLES["Bubbles"] for word in ("--set", value)]
        run(PROGRAM, "preview", "Bubbles", "--quiet", "--defaults", *words, *settings_of(*mode),
            "--no-open", "--folder", ".")
        # A preview is not dithered, and has whole frames and no comment.
        palette, _, _, mask, _ = mode
        run(PROGRAM, "build", "Bubbles", "--quiet", "--defaults", *words,
            *settings_of(palette, "no", "no", mask, "no"), "-o", "a.gif", "--frames", "frames")
        compare(f"preview {mode}", "preview.gif", frames_handed_over("frames")[0], "")
        yield


def write_ppm(path, width, height, pixels):
    with open(path, "wb") as file:
        file.write(b"P6 %d %d 255\n" % (width, height) + bytes(c for pixel in pixels for c in pixel))


def judge_encoded():
    """Pictures of so many colours that the palette has room for all of them."""
    width, height = 37, 29
    for depth in range(1, 9):
        colors = [(i, 255 - i, i * 5 & 255) for i in range(min(1 << depth, 250) - 1)]
        colors = (colors or [(0, 0, 0)]) + [(255, 255, 255)]
        draws = random.Random(depth)
        pictures = [[draws.choice(colors[:1 + number * len(colors) // 2]) if y > height // 3
                     else colors[-1] for y in range(height) for _ in range(width)]
                    for number in range(3)]
        for number, picture in enumerate(pictures):
            picture[:len(colors)] = colors if number == 0 else picture[:len(colors)]
            write_ppm(f"{number}.ppm", width, height, picture)
        for options in ([], ["--supercompress"], ["--dither"]):
            run(PROGRAM, "encode", "0.ppm", "1.ppm", "2.ppm", "--quiet", "--delay", "7", *options,
                "-o", "a.gif")
            compare(f"encode {len(colors)} colors {options}", "a.gif",
                    [(7, picture) for picture in pictures], "")
            yield
    for palette in range(9):
        for options in ([], ["--dither"]):
            run(PROGRAM, "encode", "0.ppm", "1.ppm", "--quiet", "--palette", str(palette), *options,
                "-o", "a.gif", "--frames", "frames")
            compare(f"encode palette {palette} {options}", "a.gif",
                    frames_handed_over("frames")[0], "")
            yield


def main():
    if JUDGE != "giflib" and shutil.which(JUDGE) is None:
        print(f"SKIPPED: {JUDGE} is not installed")
        sys.exit(77)
    judged, complaints = 0, 0
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        os.environ["XDG_DATA_HOME"] = folder
        for judging in (judge_builds, judge_previews, judge_encoded):
            try:
                for _ in judging():
                    judged += 1
            except Complaint as complaint:
                print(complaint)
                complaints += 1
    print(f"{JUDGE}: {judged} animations with the frames that are meant")
    sys.exit(1 if complaints else 0)


if __name__ == "__main__":
    main()
