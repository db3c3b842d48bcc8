#!/usr/bin/env python3
"""Measures speed and size. Every figure is a ratio to a peer measured in the same run, or a size, and has a limit; the
exit code is 1 when one is exceeded. Times themselves depend on the machine and are only printed."""
import json
import os
import statistics
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

REPO = Path(__file__).resolve().parents[1]
sys.path[:0] = [str(REPO / "tools" / "wine"), str(REPO / "tests" / "e2e")]
from figures import exceeded, line  # noqa: E402
from machine import BIN, DATA, Machine  # noqa: E402
from sizes import bench_size, bench_texts, print_parts  # noqa: E402
from start import bench_dialog  # noqa: E402
from update_host import BASE, Authority, Client  # noqa: E402

INSTALL_RATIO = 1.5
START_RATIO = 2.0
# From the first call to the first painted frame; and the reverse of "ten times cheaper".
WINDOW_RATIO = 1.5
REPAINT_RATIO = 0.1
# Milliseconds: a full frame of the sample dialog from surfaces that are kept.
FRAME_LIMIT = 4.0
PORTABLE_RATIOS = {"text_lookup": 1.0, "utf8": 8.0, "json_lookup": 2.0, "quoting": 4.0, "manifest": 60.0, "configuration": 40.0,
                   "find_by_id": 1.3, "emission": 4.0, "skins": 2.0}
# Painting beside pixman (fills) and cairo (the rest). A fill of a whole screen is as fast as memory on both sides: what
# the two differ by is the noise of the measurement.
SURFACE_SIZES = ("160x40", "1920x1080")
SURFACE_RATIOS = {"solid_fill": 1.05, "translucent_fill": 1.0, "alpha_shape": 1.0, "gradient_down": 1.0,
                  "gradient_diagonal": 1.0, "gradient_radial": 1.0, "rounded_with_border": 1.0}
# Nanoseconds a control; and how much more one costs in a large tree, which no cache holds, than in a small one.
RELAYOUT_LIMIT = 200.0
RELAYOUT_GROWTH = 3.0
# Windows' own SHA-256 and HTTPS, as Wine has them, carry these two; see docs/architecture.md, "Figures".
DIGEST_RATIO = 8.0
DOWNLOAD_RATIO = 12.0

def median_times(machine, rounds, commands):
    """Runs the commands in turn and gives the median time of each measured one in ms."""
    machine.write(r"C:\bench.txt", "\n".join([str(rounds), *commands]))
    machine.wine(BIN / "process_timer.exe", r"C:\bench.txt", r"C:\bench.out", timeout=600)
    times = {}
    for entry in machine.read(r"C:\bench.out").splitlines():
        if entry.startswith("failed"):
            sys.exit(f"a measured program failed: {entry} of {commands}")
        number, microseconds = map(int, entry.split())
        times.setdefault(number, []).append(microseconds / 1000)
    return [statistics.median(times[number]) for number in sorted(times)]


def bench_install(machine):
    package = r"C:\bench\Velquin.msi"
    machine.put(REPO / "build/win64/installer/Velquin.msi", package)
    code = next(value for name, value in machine_properties() if name == "ProductCode")
    msiexec = r"C:\windows\system32\msiexec.exe"
    bare, whole, scheduler, empty = median_times(machine, 9, [
        rf"{msiexec} /i {package} /qn /norestart",
        rf"~{msiexec} /x {code} /qn /norestart",
        r"C:\setup\VelquinSetup.exe --install --no-start",
        r"~C:\setup\VelquinSetup.exe --uninstall",
        r"1|C:\windows\system32\schtasks.exe /Create /TN bench /TR bench /SC ONLOGON /F",
        r"C:\setup\empty_program.exe",
    ])
    line("--install to bare msiexec /i", whole / bare, INSTALL_RATIO, "",
         f"({whole:.0f} ms to {bare:.0f} ms, medians of 9)")
    # Under Wine a package this small installs about as fast as any program starts, so two starts more weigh heavily. What
    # they take is measured in the same run and said, not subtracted.
    print(f"    of the difference of {whole - bare:.0f} ms, schtasks.exe takes {scheduler:.0f} ms and the start of any "
          f"GUI program {empty:.0f} ms")


def machine_properties():
    table = subprocess.run(["msiinfo", "export", str(REPO / "build/win64/installer/Velquin.msi"), "Property"],
                           capture_output=True, text=True, check=True).stdout
    return [row.split("\t", 1) for row in table.replace("\r", "").splitlines() if "\t" in row]


def print_steps(machine):
    """The share of each step of one install, from the moments at which its log lines appear."""
    path = machine.unix(DATA + r"\velquin.log")
    start_size = path.stat().st_size
    moments = []

    def watch():
        seen = start_size
        while not done.is_set():
            size = path.stat().st_size
            if size != seen:
                moments.append((time.perf_counter(), size))
                seen = size
            time.sleep(0.0005)

    done = threading.Event()
    watcher = threading.Thread(target=watch)
    watcher.start()
    began = time.perf_counter()
    machine.setup("--install --no-start")
    ended = time.perf_counter()
    done.set()
    watcher.join()
    content = path.read_bytes()
    previous = began
    for moment, size in moments:
        written = content[start_size:size].decode("utf-8", "replace").splitlines()
        text = written[-1].split("  ", 2)[-1] if written else "?"
        print(f"      {100 * (moment - previous) / (ended - began):5.1f} %  until: {text[:96]}")
        previous = moment
    print(f"      {100 * (ended - previous) / (ended - began):5.1f} %  until the process has ended")


def bench_start(machine):
    empty, ours = median_times(machine, 31, [r"C:\setup\empty_program.exe", r"1|C:\setup\VelquinSetup.exe --self-test"])
    line("start to exit of --self-test to an empty program", ours / empty, START_RATIO, "",
         f"({ours:.1f} ms to {empty:.1f} ms, medians of 31)")


def bench_windows(machine):
    """Windows of the UI framework beside bare ones, in one program."""
    if not machine.wine(BIN / "window_timer.exe", r"C:\windows.out", timeout=300):
        sys.exit("the timer of windows failed")
    rounds = [list(map(int, row.split())) for row in machine.read(r"C:\windows.out").splitlines()]
    # The quickest of the rounds: what else the machine does can only slow them down.
    bare, message, ours, small, whole = map(min, zip(*rounds))
    if min(map(min, rounds)) <= 0:
        sys.exit("a window could not be opened")
    line("a window with 50 controls to a bare one", ours / bare, WINDOW_RATIO, "",
         f"({ours / 1000:.2f} ms to {bare / 1000:.2f} ms, the quickest of {len(rounds)})")
    # A trip through Wine's server for the message takes as long as either paint or longer, depending on whether the machine
    # was idle. What a bare window needs for the same message in the same run is taken off both, and said.
    line("painting one small control to painting all", max(small - message, 0) / (whole - message), REPAINT_RATIO, "",
         f"({small / 40:.0f} us to {whole / 40:.0f} us, of which the message alone takes {message / 40:.0f} us)")


def bench_frames(machine):
    """The sample dialog in each of the shipped skins, painted whole."""
    skins = "Z:" + str(REPO / "resources" / "skins").replace("/", "\\")
    # Some processes: where one happens to lie in memory makes more of a difference than the skins do.
    frames = {}
    for _ in range(3):
        if not machine.wine(BIN / "surface_timer.exe", r"C:\frames.out", skins, timeout=300):
            sys.exit("the timer of frames failed")
        for row in machine.read(r"C:\frames.out").splitlines():
            skin, first, again = row.split()
            best = frames.get(skin, (float("inf"), float("inf")))
            frames[skin] = (min(best[0], int(first) / 1000), min(best[1], int(again) / 1000))
    slowest = max(frames, key=lambda skin: frames[skin][1])
    line("a full frame from kept surfaces", frames[slowest][1], FRAME_LIMIT, "ms",
         f"({slowest}, the slowest of {len(frames)} skins, the quickest of its rounds; "
         f"the mean is {statistics.mean(again for _, again in frames.values()):.2f} ms)")
    first = [first for first, _ in frames.values()]
    print(f"    the first frame of a skin takes {min(first):.0f} to {max(first):.0f} ms")


def bench_portable():
    run = subprocess.run([str(REPO / "build/native-release/bin/portable_bench"), "--benchmark_format=json",
                          "--benchmark_min_time=0.05s", "--benchmark_repetitions=7",
                          "--benchmark_enable_random_interleaving=true"], capture_output=True, text=True, check=True)
    times = {}
    for entry in json.loads(run.stdout)["benchmarks"]:
        if entry.get("error_occurred"):
            sys.exit(f"{entry['name']}: {entry['error_message']}")
        # The quickest of some runs in turn: what else the machine does can only slow them down.
        if entry["run_type"] == "iteration":
            times[entry["name"]] = min(entry["cpu_time"], times.get(entry["name"], entry["cpu_time"]))
    for group, limit in PORTABLE_RATIOS.items():
        line(f"{group} to its plainest peer", times[f"{group}/ours"] / times[f"{group}/peer"], limit)
    for group, limit in SURFACE_RATIOS.items():
        for size in SURFACE_SIZES:
            ours, peer = (times[f"{group}_{size}/{side}"] for side in ("ours", "peer"))
            line(f"{group} {size} to {'pixman' if 'fill' in group else 'cairo'}", ours / peer, limit, "",
                 f"({ours / 1000:.1f} us to {peer / 1000:.1f} us)")
    for kind in ("relayout", "relayout_wide"):
        cost = {count: times[f"{kind}/{count}"] / count for count in (100, 10_000, 100_000)}
        line(f"{kind} of 10,000 controls", cost[10_000], RELAYOUT_LIMIT, "ns", "a control")
        line(f"{kind}, cost a control at 100,000 to that at 100", cost[100_000] / cost[100], RELAYOUT_GROWTH, "",
             f"({cost[100_000]:.0f} ns to {cost[100]:.0f} ns)")
    for name, time_ in times.items():
        if name.startswith("material"):
            print(f"  {name:<44} {time_ / 1e6:10,.2f} ms     690 x 344 pixels")


def timed(command):
    began = time.perf_counter()
    subprocess.run(command, stdout=subprocess.DEVNULL, check=True)
    return (time.perf_counter() - began) * 1000


def bench_update(machine):
    """The digest and the download of one file of 256 MiB, each beside the usual tool, in turn."""
    with tempfile.TemporaryDirectory() as folder:
        client = Client(machine, Authority(folder))
        file, copy = machine.unix(r"C:\bench.bin"), machine.unix(r"C:\bench.copy")
        with open(file, "wb") as out:
            for _ in range(256):
                out.write(os.urandom(1 << 20))
        client.secure.files["/apps/velquin/bench.bin"] = file
        curl = ["curl", "--silent", "--fail", "--proxy", machine.environment["http_proxy"], "--cacert", f"{folder}/ca.crt",
                "--output", copy, BASE + "bench.bin"]
        tasks = {
            "SHA-256 of 256 MiB, to sha256sum": (["sha256", r"C:\bench.bin"], ["sha256sum", file], DIGEST_RATIO),
            "download of 256 MiB over TLS, to curl": (["download", BASE + "bench.bin", r"C:\bench.copy"], curl,
                                                      DOWNLOAD_RATIO),
        }
        for name, (ours, peer, limit) in tasks.items():
            our_times, peer_times = [], []
            for _ in range(5):
                copy.unlink(missing_ok=True)
                peer_times.append(timed(peer))
                copy.unlink(missing_ok=True)
                done, error = client(*ours)
                if not done:
                    sys.exit(f"a measured operation failed: {error}")
                our_times.append(int(client.milliseconds))
            median, peer_median = statistics.median(our_times), statistics.median(peer_times)
            line(name, median / peer_median, limit, "", f"({median:.0f} ms to {peer_median:.0f} ms, medians of 5)")
        client.close()


def main():
    print("Size")
    bench_size()
    print_parts()
    bench_texts()
    print("Portable code")
    bench_portable()
    machine = Machine("bench")
    try:
        print("Under Wine")
        machine.put(BIN / "empty_program.exe", r"C:\setup\empty_program.exe")
        # A window that stays keeps Wine's desktop up, as that of Windows always is.
        machine.start(BIN / "close_target.exe", "stubborn", "bench")
        bench_windows(machine)
        bench_frames(machine)
        bench_dialog(machine)
        bench_start(machine)
        bench_install(machine)
        print("    one install, step by step")
        print_steps(machine)
        bench_update(machine)
    finally:
        machine.stop()
    if exceeded:
        print("exceeded: " + ", ".join(exceeded))
    return 1 if exceeded else 0


if __name__ == "__main__":
    sys.exit(main())
