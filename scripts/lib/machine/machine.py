# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""A booted test machine, seen from the host."""
import pathlib
import shutil
import signal
import subprocess
import time

LIBRARY = pathlib.Path(__file__).parent
GUEST = "usr/local/lib/tarvik-machine"
USER = "dev"
LID_SERVICES = {"systemd-logind": "lid-logind", "upower": "lid-upower"}
BOOT_PATIENCE = 120
# A command in the machine that takes longer than this hangs.
COMMAND_PATIENCE = 60
STOP_PATIENCE = 20


class Unexpected(Exception):
    """The machine did something else; the message says what was seen."""


def eventually(condition, patience, what):
    """The first true value of the condition; Unexpected when there is none in so many seconds."""
    deadline = time.monotonic() + patience
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise Unexpected(f"{what}: not within {patience:.0f} s")
        time.sleep(0.3)


class Machine:
    """Boots an image over a directory that takes what the machine writes; `with` it, that is gone in the end."""

    def __init__(self, image, directory):
        self._image = image
        self._directory = directory
        self._process = None
        self._leader = 0

    def __enter__(self):
        shutil.rmtree(self._directory, ignore_errors=True)
        (self.changes / GUEST).mkdir(parents=True)
        for program in (LIBRARY / "guest").iterdir():
            if program.suffix != ".c":
                shutil.copy(program, self.changes / GUEST)
        self._add_lid()
        return self

    def __exit__(self, *_):
        if self._process:
            self._stop()
        shutil.rmtree(self._directory)

    def _add_lid(self):
        shim = f"{GUEST}/lid-switch.so"
        subprocess.run(["gcc", "-std=c17", "-O2", "-Wall", "-Wextra", "-Werror", "-shared", "-fPIC",
                        "-o", self.changes / shim, LIBRARY / "guest/lid-switch.c"], check=True)
        units = "/etc/systemd/system"
        self.write(f"{units}/tarvik-machine-lid.service", f"""\
[Unit]
DefaultDependencies=no
Requires=tarvik-machine-hardware.service
After=tarvik-machine-hardware.service
Before=sysinit.target systemd-logind.service upower.service
[Service]
Type=notify
NotifyAccess=all
ExecStart=/{GUEST}/hardware keep-lid
""")
        wants = self.changes / units.lstrip("/") / "sysinit.target.wants"
        wants.mkdir(parents=True)
        (wants / "tarvik-machine-lid.service").symlink_to("../tarvik-machine-lid.service")
        for service, pipe in LID_SERVICES.items():
            self.write(f"{units}/{service}.service.d/tarvik-machine.conf", f"""\
[Service]
Environment=LD_PRELOAD=/{shim} SYSTEMD_DEVICE_VERIFY_SYSFS=0
BindPaths=-/run/tarvik-machine/{pipe}:/dev/input/event99
""")

    @property
    def changes(self):
        """Laid over the image: what is put here before `boot` is part of the machine."""
        return self._directory / "changes"

    def write(self, path, text):
        """Writes a file of the machine before it boots; those below /home/dev belong to the user."""
        file = self.changes / path.lstrip("/")
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def boot(self, is_ready):
        home = self.changes / "home" / USER
        if home.exists():
            # The first user of an image.
            subprocess.run(["chown", "--recursive", "1000:1000", home], check=True)
        with open(self._directory / "console.log", "wb") as log:
            self._process = subprocess.Popen([LIBRARY / "boot", self._image, self._directory], stdin=subprocess.DEVNULL,
                                             stdout=log, stderr=log, start_new_session=True)
        self._leader = eventually(self._find_leader, BOOT_PATIENCE, "the first process")
        eventually(lambda: self.root("systemctl", "is-system-running", check=False).strip() in ("running", "degraded"),
                   BOOT_PATIENCE, "systemd is up")
        eventually(is_ready, BOOT_PATIENCE, "the desktop is up")

    def _find_leader(self):
        """The machine's first process, as the host numbers it: the child of systemd-nspawn that calls itself 1."""
        process = self._process.pid
        if self._process.poll() is not None:
            raise Unexpected("systemd-nspawn ended: " + (self._directory / "console.log").read_text(errors="replace"))
        for child in pathlib.Path(f"/proc/{process}/task/{process}/children").read_text().split():
            try:
                status = pathlib.Path(f"/proc/{child}/status").read_text()
            except OSError:
                continue
            own = next(line for line in status.splitlines() if line.startswith("NSpid")).split()[-1]
            if own == "1" and status.startswith("Name:\tsystemd\n"):
                return int(child)
        return 0

    def _stop(self):
        if self._leader:
            # With its lid closed it may sleep, and then its users' processes do not end.
            self.root(f"/{GUEST}/hardware", "lid", "open", check=False)
        power_off = signal.SIGRTMIN + 4
        subprocess.run(["kill", f"-{power_off}", str(self._leader or self._process.pid)], check=False)
        try:
            self._process.wait(STOP_PATIENCE)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()

    def start(self, who, *command):
        """Starts a command as root or in a user's session on the seat; a Popen."""
        return subprocess.Popen(self._entering(who, command), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)

    def run(self, who, *command, check=True):
        """What the command printed. A failure is Unexpected, unless check is False."""
        done = subprocess.run(self._entering(who, command), stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, timeout=COMMAND_PATIENCE)
        if check and done.returncode != 0:
            raise Unexpected(f"{' '.join(command)}: {done.stderr.decode(errors='replace').strip()}")
        return done.stdout.decode(errors="replace")

    def _entering(self, who, command):
        # Without a fork nsenter leaves the waiting to `enter`.
        return ["nsenter", "--no-fork", f"--target={self._leader}", "--mount", "--uts", "--ipc", "--net", "--pid",
                "--cgroup", "--root", "--wd", "env", "--ignore-environment", f"/{GUEST}/enter", who, *command]

    def root(self, *command, check=True):
        return self.run("root", *command, check=check)

    def session(self, *command, check=True, user=USER):
        return self.run(user, *command, check=check)

    def shell(self, script, check=True, user=USER):
        """A shell script in the user's session."""
        return self.run(user, "sh", "-c", script, check=check)

    def picture(self, file):
        """Bytes of a PNG that a command in the session prints."""
        with open(file, "wb") as output:
            subprocess.run(self._entering(USER, ("sh", "-c", "import -silent -window root png:- || grim -")), stdout=output,
                           stderr=subprocess.DEVNULL, timeout=COMMAND_PATIENCE, check=False)

    def suspends(self):
        """When suspend was asked for, in seconds since the epoch."""
        return [float(line) for line in self.root("cat", "/var/log/tarvik-machine-suspends", check=False).split()]

    def display_is_off(self):
        """Whether the X server has switched its screen off."""
        levels = self.root("cat", "/run/tarvik-machine/display.log", check=False).split()
        return bool(levels) and levels[-1] != "0"
