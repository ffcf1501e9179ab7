# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Tarvik's windows, each with the situations that it can be in."""
from offline import SCENES
from stage import xdotool
from waiting import eventually
from window import CHECK_BOX, LIST_ITEM, PUSH_BUTTON, SLIDER, Window

APPLICATIONS = ("Blender", "GIMP", "HandBrake", "Inkscape", "Kdenlive", "LibreOffice", "OBS Studio", "Transmission", "Visual Studio Code",
                "A program whose name is longer than anybody would have thought of")
# What the settings show: switches of both kinds, an installed hook, and a journal of what the machine went through.
CONTENT = (
    "set keepDisplayAwake false", "set watchEditors false", "set batteryLimitEnabled true", "set batteryThreshold 20",
    # What it goes through ends now.
    "forget", f"earlier {4 * 5 * 7000}", *(line for _ in range(4) for line in (
        "set requireAC true", "work off", "wait 7000", "work claude codex", "wait 7000", "mains off", "wait 7000", "mains on", "wait 7000",
        "set requireAC false", "mains off", "battery 15", "wait 7000", "battery 80", "mains on")),
    f"apps {';'.join((APPLICATIONS[0], APPLICATIONS[2], APPLICATIONS[-1]))}", "hooks work", "install gemini",
    "event gemini", "install codex", "updates on", "helper installed", "set clamshellEnabled true",
)
# How far the background helper can be, and what the windows have it do for that.
HELPER_STATES = {
    "not-installed": ("helper missing",),
    "error": ("helper missing", "install-helper", "installed-helper The background helper isn’t responding."),
    "needs-approval": ("helper missing", "install-helper", "helper unapproved", "installed-helper"),
    "installed": ("helper missing", "install-helper", "helper installed", "installed-helper"),
}


class Panel(Window):
    """The panel, opened as by clicks on the tray."""

    def click_tray(self):
        self.show("ShowPanel", "iis", "1200", "14", "")

    def open(self):
        self.close()
        # It would open at an edge that the pointer is near to.
        self.leave()
        self.click_tray()
        self.await_focus()
        self.leave()

    def close(self):
        if self.windows():
            self.click_tray()
            eventually(lambda: not self.windows(), "the panel closes")

    def scenes(self, tarvik, _look):
        """Brings the panel into one situation after the other and names it."""
        for scene in SCENES:
            tarvik.enter(scene)
            self.open()
            yield scene
        tarvik.enter("awake")
        self.open()
        self.point_at(PUSH_BUTTON, -1)
        yield "hover"
        xdotool("mousedown", 1)
        yield "pressed"
        # Let go elsewhere, so that nothing is chosen.
        self.leave()
        xdotool("mouseup", 1)
        self.open()
        self.point_at(CHECK_BOX)
        eventually(lambda: any(part.getRoleName() == "tool tip" for part in self.parts()), "the help tip opens")
        yield "tip"
        tarvik.tell("others Firefox;Backup of the photos", "wait 60", "sleep 3600")
        self.open()
        xdotool("key", "F1")
        eventually(lambda: any(part.getRoleName() == "tool tip" for part in self.parts()), "the explanation opens")
        yield "why"
        tarvik.tell("others")
        for presses, name in ((1, "focus-on-switch"), (2, "focus-on-row")):
            self.open()
            xdotool("key", *["Down"] * presses)
            yield name
        for scene in "awake", "session":
            tarvik.enter(scene)
            self.open()
            xdotool("key", "Down", "Down", "Return", "Down", "Down")
            yield f"menu-{scene}"


class Settings(Window):
    """The settings, gone through by keys."""

    def open(self):
        self.show("ShowSettings", "s", "")
        self.await_focus()
        self.leave()

    def leaf(self):
        """To the next tab, with the focus on it."""
        self.leave()
        xdotool("key", "ctrl+Page_Down")

    def scroll_to_end(self):
        # On the labels: a slider has the wheel for itself.
        self.point(0.1, 0.7)
        xdotool("click", "--repeat", 40, "--delay", 5, 5)
        self.leave()

    def scenes(self, tarvik, look):
        """Brings the settings into one situation after the other and names it."""
        tarvik.enter("awake")
        tarvik.tell(*CONTENT)
        self.open()
        for scenes in self.general, self.triggers, self.power, self.journal, self.updates:
            yield from scenes(tarvik, look)
            self.leaf()

    def general(self, tarvik, _look):
        yield "general"
        xdotool("key", "Tab")
        yield "general-focus-on-switch"
        for state in helper_states(tarvik):
            yield f"general-{state}"
        tarvik.tell("reinstall-helper", "installed-helper", "wait 1", "installed-helper")
        self.tab_to(PUSH_BUTTON)
        yield "general-focus-on-helper"
        self.scroll_to_end()
        yield "general-end"
        tarvik.tell("set clamshellEnabled false", "lid none")
        xdotool("key", "ctrl+Page_Up", "ctrl+Page_Down")
        yield "general-no-lid"
        tarvik.tell("helper installed")

    def agents(self):
        """The list of everything that is detected. Without a web service that this copy knows of, its form says so."""
        self.tab_to(PUSH_BUTTON)
        xdotool("key", "Return")
        yield "agents"
        xdotool("type", "cu")
        yield "agents-found"
        xdotool("type", " no such")
        yield "agents-none"
        xdotool("key", "Escape")
        eventually(lambda: (part := self.focused()) and part.getRoleName() in PUSH_BUTTON, "the focus comes back")
        xdotool("key", "Return")
        eventually(lambda: (part := self.focused()) and part.getRoleName() not in PUSH_BUTTON, "the sheet has the focus")
        xdotool("key", "Down", "Down")
        yield "agents-focus-on-row"
        xdotool("key", "Tab")
        yield "agents-focus-on-request"
        xdotool("key", "Return")
        yield "agents-form"
        xdotool("type", "An agent")
        yield "agents-form-name"
        xdotool("key", "Escape")
        eventually(lambda: (part := self.focused()) and part.getRoleName() in PUSH_BUTTON, "the focus comes back")

    def triggers(self, tarvik, _look):
        yield "triggers"
        yield from self.agents()
        tarvik.tell("hooks fail")
        self.tab_to(CHECK_BOX)
        xdotool("key", "space")
        yield "triggers-failed"
        self.scroll_to_end()
        yield "triggers-end"
        xdotool("key", "ctrl+Page_Up", "ctrl+Page_Down")
        self.tab_to(PUSH_BUTTON, 2, "shift+Tab")
        yield "triggers-focus-on-remove"
        self.tab_to(PUSH_BUTTON)
        xdotool("key", "Return")
        yield "chooser"
        xdotool("type", "no such")
        yield "chooser-none"
        xdotool("key", "Escape")
        tarvik.tell("apps")
        self.scroll_to_end()
        yield "triggers-none"

    def power(self, tarvik, _look):
        yield "power"
        self.tab_to(SLIDER)
        yield "power-focus-on-slider"
        tarvik.tell("battery none")
        self.scroll_to_end()
        yield "power-no-battery"

    def journal(self, tarvik, _look):
        yield "journal"
        self.tab_to(LIST_ITEM + ("list",))
        xdotool("key", "Down")
        yield "journal-focus-on-row"
        self.scroll_to_end()
        yield "journal-end"
        self.point_at(PUSH_BUTTON, -1)
        yield "journal-hover"
        xdotool("mousedown", 1)
        yield "journal-pressed"
        self.leave()
        xdotool("mouseup", 1)
        tarvik.tell("forget")
        yield "journal-none"

    def updates(self, tarvik, _look):
        yield "updates"
        tarvik.tell("updates checked", "updates off")
        yield "updates-checking"
        tarvik.tell("updates on")
        self.tab_to(PUSH_BUTTON)
        yield "updates-focus-on-button"
        tarvik.tell("upgrade")
        yield "updates-upgrade-waits"


class Onboarding(Window):
    """The introduction to lid-closed mode."""

    def scenes(self, tarvik, _look):
        """Goes through the steps."""
        self.show("ShowOnboarding", "s", "")
        self.await_focus()
        self.leave()
        yield "welcome"
        xdotool("key", "Tab")
        yield "welcome-focus-on-continue"
        xdotool("key", "Return")
        for state in helper_states(tarvik):
            yield f"helper-{state}"
        xdotool("key", "Tab")
        yield "helper-focus"
        self.point(0.5, 0.92)
        xdotool("key", "shift+Tab", "Return")
        yield "ready"


class Alerts(Window):
    """What is asked about the background helper."""

    def scenes(self, _tarvik, _look):
        """One after the other."""
        for name, method in (("restart", "ShowRestartAlert"), ("approval", "ShowHelperApproval")):
            self.show(method, "s", "")
            self.await_focus()
            self.leave()
            yield name
            xdotool("key", "shift+Tab")
            yield f"{name}-focus"
            xdotool("key", "Escape")
            eventually(lambda: not self.windows(), "the alert closes")


def helper_states(tarvik):
    """Brings the background helper into one state after the other and names it."""
    for state, lines in HELPER_STATES.items():
        tarvik.tell(*lines)
        yield state


WINDOWS = {"panel": Panel, "settings": Settings, "onboarding": Onboarding, "alerts": Alerts}
