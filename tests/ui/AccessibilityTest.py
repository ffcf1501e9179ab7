#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""What a screen reader finds in the windows of the built UI process, and what it can do there. Runs inside scripts/desktop."""
import pathlib
import subprocess
import sys
import unittest

import pyatspi
from gi.repository import Atspi, GLib
from windows import DEADLINE, WindowsTestCase, x_focus

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))
from waiting import eventually
from x_windows import x_windows

HELP = "Off means Tarvik does nothing. On keeps the Mac awake while a coding agent or chosen app is running."
CONTROLS = ("Tarvik", "Keep awake for…", "Lock & leave", "Settings…", "Quit Tarvik")
# What every part of an open panel is, and that what is a check box can be checked, which only newer versions of Qt say; only what
# differs is looked at.
COMMON = {"enabled", "sensitive", "showing", "visible", "checkable"}
# What newer versions of AT-SPI and Qt call them, and older ones.
ROLES = {"button": "push button", "push button menu": "push button"}


def settle():
    """Lets what the bus has sent arrive."""
    while GLib.MainContext.default().iteration(False):
        pass


def await_told(condition, what):
    def holds():
        settle()
        try:
            return condition()
        except GLib.Error:
            # What was there a moment ago is gone.
            return None

    return eventually(holds, what)


def children(accessible):
    return [child for child in (accessible.getChildAtIndex(index) for index in range(accessible.childCount)) if child]


def descendants(accessible):
    for child in children(accessible):
        yield child
        yield from descendants(child)


def states(accessible):
    return {pyatspi.stateToString(state) for state in accessible.getState().getStates()}


def actions(accessible):
    try:
        offered = accessible.queryAction()
    except NotImplementedError:
        return []
    return [offered.getName(index) for index in range(offered.nActions)]


def described(accessible):
    role = accessible.getRoleName()
    return (ROLES.get(role, role), accessible.name, accessible.description, states(accessible) - COMMON)


def press(*keys):
    subprocess.run(["xdotool", "key", "--delay", "30", *keys], check=True, timeout=DEADLINE)


class AccessibleWindowTest(WindowsTestCase):
    """One window of the UI process, as a screen reader finds it."""
    maxDiff = None
    title: str
    arguments: tuple
    lines = ()

    def setUp(self):
        Atspi.set_timeout(DEADLINE * 1000, DEADLINE * 1000)
        self.start_windows()
        self.tarvik.tell(*self.lines)
        self.show(*self.arguments)
        await_told(lambda: self.focused() is not None, "the window has the focus")
        # Something in it has the focus before the window has it.
        await_told(lambda: x_focus() in x_windows("--name", f"^{self.title}$"), "the keys go to the window")

    def tearDown(self):
        self.assertEqual(self.ui_log.read_text(encoding="utf-8"), "")

    def frame(self, title=None):
        desktop = pyatspi.Registry.getDesktop(0)
        # Names and states as they are now, not as they were when they were first asked for.
        desktop.set_cache_mask(Atspi.Cache.NONE)
        for application in children(desktop):
            application.set_cache_mask(Atspi.Cache.NONE)
            if application.get_process_id() == self.ui.pid:
                return next((frame for frame in children(application) if frame.name == (title or self.title)), None)
        return None

    def everything(self):
        frame = self.frame()
        return list(descendants(frame)) if frame else []

    def find(self, name, role=None):
        return next((part for part in self.everything() if part.name == name and role in (None, part.getRoleName())), None)

    def is_unchecked(self, name):
        part = self.find(name, "check box")
        return part and "checked" not in states(part)

    def control(self, name):
        return await_told(lambda: next((part for part in self.everything() if part.name == name and actions(part)), None),
                          f"there is no control {name}")

    def focused(self):
        # A menu counts as focused together with its entry, so the innermost is the one.
        return next((part for part in reversed(self.everything()) if "focused" in states(part)), None)

    def perform(self, name, action):
        offered = self.control(name).queryAction()
        # Of two of one name, both have to do it.
        index = next(index for index in range(offered.nActions) if offered.getName(index) == action)
        self.assertTrue(offered.doAction(index))

    def follow(self, event):
        """What is told of it from now on, as names."""
        told = []

        def listener(happened):
            if happened.detail1 and happened.source:
                told.append((happened.source.getRoleName(), happened.source.name, happened.source.description))
        pyatspi.Registry.registerEventListener(listener, event)
        self.addCleanup(pyatspi.Registry.deregisterEventListener, listener, event)
        return told


class PanelTest(AccessibleWindowTest):
    title = "Tarvik"
    arguments = ("ShowPanel", "iis", "900", "14", "")

    def test_everything_has_its_role_name_description_and_states(self):
        frame = self.frame()
        self.assertEqual((frame.getRoleName(), frame.name), ("frame", "Tarvik"))
        panel, = children(frame)
        self.assertEqual(described(panel), ("panel", "Tarvik", "Awake · 2 agents, 1 app", {"focused"}))
        # This version of Qt calls every text focusable and everything enabled, so that a description says what is not.
        self.assertEqual([described(part) for part in descendants(panel)], [
            ("heading", "Awake · 2 agents, 1 app", "F1 says why", set()),
            ("label", "Claude Code, Codex +1 more", "", {"focusable", "read only"}),
            ("label", "charging 80%", "", {"focusable", "read only"}),
            ("check box", "Tarvik", HELP, {"checked", "focusable"}),
            ("push button", "Keep awake for…", "Opens a menu", {"focusable"}),
            ("push button", "Lock & leave", "", {"focusable"}),
            ("push button", "Settings…", "", {"focusable"}),
            ("push button", "Quit Tarvik", "", {"focusable"}),
        ])

    def test_what_is_shown_and_said_is_the_same(self):
        self.tarvik.enter("asleep")
        await_told(lambda: self.find("Dozing — nothing to watch", "heading"), "the new headline")
        self.assertEqual([part.name for part in self.everything() if part.getRoleName() == "label"], ["Nothing running to keep awake for"])
        self.tarvik.enter("session")
        await_told(lambda: self.find("Change session…"), "the new title")
        self.tarvik.enter("off")
        await_told(lambda: self.is_unchecked("Tarvik"), "unchecked")

    def test_a_change_is_announced_once(self):
        told = self.follow("object:state-changed:showing")
        for state, headline in ("asleep", "Dozing — nothing to watch"), ("off", "Off"):
            self.tarvik.enter(state)
            await_told(lambda wanted=headline: ("alert", wanted, "") in told, f"{headline} is told: {told}")
            await_told(lambda: not any(part.getRoleName() == "alert" for part in self.everything()), "whoever looks around does not meet it")
            self.assertEqual([part[1] for part in told if part[0] == "alert"].count(headline), 1, told)

    def test_the_minutes_that_pass_are_not_announced(self):
        self.tarvik.enter("session")
        await_told(lambda: self.find("Change session…"), "a session")
        told = self.follow("object:state-changed:showing")
        before = next(part.name for part in self.everything() if part.getRoleName() == "heading")
        self.tarvik.tell("wait 120")
        await_told(lambda: not self.find(before, "heading"), "the time passes")
        self.tarvik.tell("set isEnabled false")
        await_told(lambda: ("alert", "Off", "") in told, f"what comes after that is told: {told}")
        self.assertEqual([part for part in told if part[0] == "alert"], [("alert", "Off", "")])

    def test_the_keyboards_focus_is_told(self):
        told = []

        def listener(event):
            if event.detail1 and event.source:
                told.append(event.source.name)
        pyatspi.Registry.registerEventListener(listener, "object:state-changed:focused")
        self.addCleanup(pyatspi.Registry.deregisterEventListener, listener, "object:state-changed:focused")
        for name in CONTROLS:
            press("Down")
            await_told(lambda wanted=name: (part := self.focused()) and part.name == wanted, f"{name} has the focus")
            await_told(lambda wanted=name: wanted in told, f"the focus of {name} is announced: {told}")

    def test_the_menu_has_a_name_and_its_entries_get_the_focus(self):
        self.tarvik.enter("session")
        await_told(lambda: self.find("Change session…"), "a session")
        press("Down", "Down", "Return")
        menu = await_told(lambda: next((part for part in self.everything() if part.getRoleName() == "popup menu"), None), "the menu")
        self.assertEqual(menu.name, "Change session…")
        self.assertEqual([(part.getRoleName(), part.name) for part in children(menu)],
                         [("menu item", "10 minutes"), ("menu item", "1 hour"), ("menu item", "2 hours"),
                          ("menu item", "All day (16 h)"), ("separator", ""), ("menu item", "Cancel timer")])
        for key, name in (None, "10 minutes"), ("Up", "Cancel timer"), ("Home", "10 minutes"), ("Down", "1 hour"):
            if key:
                press(key)
            await_told(lambda wanted=name: (part := self.focused()) and part.name == wanted, f"{name} has the focus")
        press("Escape")
        await_told(lambda: not self.find("Cancel timer"), "the menu is gone from the tree")
        await_told(lambda: (part := self.focused()) and part.name == "Change session…", "the focus is back on the row")

    def test_a_screen_reader_flips_the_switch(self):
        self.perform("Tarvik", "Toggle")
        self.assertEqual(self.tarvik.request(), "set isEnabled false")
        await_told(lambda: self.is_unchecked("Tarvik"), "unchecked")
        self.perform("Tarvik", "Press")
        self.assertEqual(self.tarvik.request(), "set isEnabled true")

    def test_a_screen_reader_starts_a_session(self):
        self.perform("Keep awake for…", "Press")
        await_told(lambda: self.find("2 hours"), "the menu opens")
        self.perform("2 hours", "Press")
        self.assertEqual(self.tarvik.request(), "SetTimedSession 120")
        await_told(lambda: not self.find("2 hours"), "the menu closes")

    def test_a_screen_reader_locks_and_leaves(self):
        self.perform("Lock & leave", "Press")
        self.assertEqual(self.tarvik.request(), "LockScreen")
        await_told(lambda: not ((part := self.find("Lock & leave")) and "showing" in states(part)), "the panel is closed")

    def test_a_screen_reader_sets_the_focus(self):
        self.perform("Quit Tarvik", "SetFocus")
        await_told(lambda: (part := self.focused()) and part.name == "Quit Tarvik", "focused")

    def test_a_screen_reader_opens_the_settings(self):
        self.perform("Settings…", "Press")
        window = await_told(lambda: self.frame("Tarvik Settings"), "the settings window opens")
        await_told(lambda: any(part.name == "General" for part in descendants(window)), "it has tabs")


class SettingsTest(AccessibleWindowTest):
    title = "Tarvik Settings"
    arguments = ("ShowSettings", "s", "")
    lines = ("set keepDisplayAwake true", "set notifyOnToggle true", "set notifyOnPause true", "set batteryThreshold 20",
             "set batteryLimitEnabled true", "hooks fail", "helper installed", "set clamshellEnabled true")

    def setUp(self):
        super().setUp()
        # Whether updates can be had is found out when somebody may want to know.
        self.assertEqual(self.tarvik.request(), "Prepare")

    def parts(self):
        """What is shown of the window, without its layout."""
        return [(*described(part)[:2], states(part) & {"checked", "selected"}) for part in self.everything()
                if part.name and "showing" in states(part)]

    def test_everything_has_its_role_and_name(self):
        tabs = [("page tab", name, {"checked", "selected"} if name == "General" else set())
                for name in ("General", "Triggers", "Power", "Journal", "Updates")]
        self.assertEqual(self.parts(), [
            ("page tab list", "Settings", set()),
            *tabs,
            ("check box", "Also keep the display awake", {"checked"}),
            ("check box", "Launch Tarvik at login", {"checked"}),
            ("heading", "Lid closed", set()),
            ("check box", "Keep running with the lid closed", {"checked"}),
            ("check box", "Turn the screen off when the lid closes", {"checked"}),
            ("alert", "Background helper active — toggles no longer ask for your password.", set()),
            ("push button", "Reinstall helper…", set()),
            ("heading", "Notifications", set()),
            ("check box", "Notify every time Tarvik starts or stops", {"checked"}),
        ])
        press("End")
        last = [
            ("check box", "Notify when paused by battery or heat", {"checked"}),
            ("label", "Every change is recorded in the Journal tab either way.", set()),
        ]
        await_told(lambda: self.parts()[-2:] == last, "the rest is shown")

    def open_tab(self, name):
        self.perform(name, "Press")
        await_told(lambda: (part := self.find(name, "page tab")) and "selected" in states(part), f"{name} is shown")

    def test_only_what_has_a_name_takes_the_focus(self):
        for tab in "General", "Triggers", "Power", "Journal", "Updates":
            self.open_tab(tab)
            nameless = [described(part) for part in self.everything() if not part.name and {"focusable", "showing"} <= states(part)]
            self.assertEqual(nameless, [], tab)

    def test_the_focus_is_on_the_tab_alone(self):
        self.open_tab("Power")
        await_told(lambda: [part.name for part in self.everything() if "focused" in states(part)] == ["Power"], "one thing has the focus")

    def test_a_screen_reader_that_walks_through_the_tabs_leaves_no_warning(self):
        for tab in "Updates", "General", "Journal":
            self.perform(tab, "SetFocus")
            await_told(lambda wanted=tab: (part := self.focused()) and part.name == wanted, f"{tab} has the focus")
            self.open_tab(tab)

    def test_a_button_that_is_not_available_says_so_and_refuses(self):
        self.tarvik.tell("updates off")
        self.open_tab("Updates")
        button = self.control("Check for Updates…")
        self.assertEqual(button.description, "Not available")
        self.perform("Check for Updates…", "Press")
        # This would come after it.
        self.open_tab("General")
        self.perform("Also keep the display awake", "Toggle")
        self.assertEqual(self.tarvik.request(), "set keepDisplayAwake false")

    def test_a_switch_writes_its_setting(self):
        self.perform("Also keep the display awake", "Toggle")
        self.assertEqual(self.tarvik.request(), "set keepDisplayAwake false")

    def test_a_hook_is_installed_and_a_failure_told(self):
        self.perform("Triggers", "Press")
        await_told(lambda: self.find("Claude Code", "check box"), "the tab is shown")
        self.perform("Claude Code", "Toggle")
        self.assertEqual(self.tarvik.request(), "Install claude")
        row = await_told(lambda: (part := self.find("Claude Code", "check box")) and part.description and part, "the failure is told")
        self.assertIn("Couldn't write ~/.claude/settings.json.", row.description)
        await_told(lambda: self.is_unchecked("Claude Code"), "the switch is back")

    def test_applications_are_list_items_that_say_when_they_were_added(self):
        folder = pathlib.Path.home() / ".local" / "share" / "applications"
        folder.mkdir(parents=True, exist_ok=True)
        for name in "One", "Two":
            entry = f"[Desktop Entry]\nType=Application\nName={name}\nExec=true\n"
            (folder / f"{name}.desktop").write_text(entry, encoding="utf-8")
        self.tarvik.tell("apps Two")
        self.perform("Triggers", "Press")
        self.perform("Add App…", "Press")
        rows = await_told(lambda: [part for part in self.everything() if part.getRoleName() == "list item"], "the applications")
        listed = {part.name: part.description for part in rows}
        self.assertEqual(listed["One"], "")
        self.assertEqual(listed["Two"], "Open now, already added")
        # Those on the allow-list are shown below, by the same names.
        by_name = {part.name: part for part in rows}
        for name in "Two", "One":
            self.assertIn("Press", actions(by_name[name]))
            by_name[name].queryAction().doAction(actions(by_name[name]).index("Press"))
        self.assertEqual(self.tarvik.request(), "AddToAllowlist One One")

    def test_an_application_that_no_menu_shows_is_added_by_its_file(self):
        notes = pathlib.Path.home() / "notes.desktop"
        notes.write_text("Buy milk.", encoding="utf-8")
        hidden = pathlib.Path.home() / ".local" / "share" / "applications" / "org.example.hidden.desktop"
        hidden.parent.mkdir(parents=True, exist_ok=True)
        hidden.write_text("[Desktop Entry]\nType=Application\nName=Hidden.app\nExec=true\nNoDisplay=true\n", encoding="utf-8")
        portal = self.start_fake("fake_portal.py", f"file={notes}")
        self.perform("Triggers", "Press")
        self.perform("Add App…", "Press")
        self.perform("Other…", "Press")
        await_told(lambda: self.find("notes.desktop is not the desktop file of an application that can be started.", "alert"), "why not")
        portal.stdin.write(f"file={hidden}\n")
        portal.stdin.flush()
        self.assertEqual(portal.stdout.readline(), f"told file={hidden}\n")
        self.perform("Other…", "Press")
        self.assertEqual(self.tarvik.request(), "AddToAllowlist org.example.hidden Hidden")
        await_told(lambda: not self.find("Other…"), "the chooser closes")

    def listed(self):
        """The names of the agents and editors that are shown, with what is said of each."""
        agents = self.find("Agents and editors", "list")
        return [(part.name, part.description) for part in descendants(agents) if part.getRoleName() == "list item"] if agents else []

    def test_everything_that_is_detected_is_listed_and_searched(self):
        self.perform("Triggers", "Press")
        self.perform("See everything we detect…", "Press")
        await_told(lambda: self.find("Agents Tarvik detects", "dialog"), "the sheet opens")
        await_told(lambda: self.listed()[:2] == [("Claude Code", "claude"), ("Codex", "codex")], "the agents are listed")
        await_told(lambda: (part := self.focused()) and part.name == "Search", "the search has the focus")
        press("p", "d", "x")
        await_told(lambda: self.listed() == [("Plandex", "plandex, pdx")], "one is found")
        press("Down")
        await_told(lambda: (part := self.focused()) and (part.getRoleName(), part.name) == ("list item", "Plandex"), "the keyboard reaches it")
        self.perform("Done", "Press")
        await_told(lambda: not self.find("Agents Tarvik detects", "dialog"), "the sheet is gone from the tree")

    def test_a_copy_that_has_nowhere_to_send_requests_says_so(self):
        self.perform("Triggers", "Press")
        self.perform("See everything we detect…", "Press")
        self.perform("Request it…", "Press")
        reason = "This copy of Tarvik can't send requests."
        await_told(lambda: self.find(reason, "alert"), "it says so")
        await_told(lambda: (part := self.focused()) and part.name == "Agent or app name", "the form has the focus")
        press("x")
        self.perform("Send", "Press")
        self.assertEqual(self.control("Send").description, reason)
        press("Escape")
        await_told(lambda: not self.find("Send"), "the sheet is gone from the tree")
        await_told(lambda: (part := self.focused()) and part.name == "See everything we detect…", "the focus is back")

    def test_the_battery_level_is_a_slider_with_a_value(self):
        self.perform("Power", "Press")
        slider = await_told(lambda: self.find("Battery level", "slider"), "the slider")
        value = slider.queryValue()
        self.assertEqual((value.minimumValue, value.maximumValue, value.currentValue), (5, 95, 20))

    def test_escape_closes_it(self):
        press("Escape")
        await_told(lambda: not ((frame := self.frame()) and "showing" in states(frame)), "the window is closed")


class OnboardingTest(AccessibleWindowTest):
    title = "Set up lid-closed mode"
    arguments = ("ShowOnboarding", "s", "")
    lines = ("helper missing",)

    def parts(self):
        """What is shown, with what a screen reader says of it besides its name."""
        shown = [part for part in self.everything() if part.name and "showing" in states(part)]
        return [described(part)[:2] for part in shown]

    def test_every_step_has_its_roles_and_names(self):
        self.assertEqual(self.parts(), [
            ("panel", "Keep working, lid closed"),
            ("heading", "Keep working, lid closed"),
            ("label", "Let agents, builds, and downloads keep running after you shut the lid."),
            ("label", "macOS normally sleeps the moment you close the lid. Tarvik can override that — but it needs to install a small "
                      "background helper first."),
            ("push button", "Continue"),
        ])
        self.perform("Continue", "Press")
        await_told(lambda: self.find("Install background helper…"), "the second step")
        await_told(lambda: self.parts()[:1] == [("panel", "Skip the password prompts")], "the first step is gone")
        self.assertEqual(self.parts()[:2], [("panel", "Skip the password prompts"), ("heading", "Skip the password prompts")])
        self.assertEqual(self.parts()[-2:], [("push button", "Back"), ("push button", "Continue")])
        self.perform("Continue", "Press")
        await_told(lambda: self.parts()[:1] == [("panel", "You're all set")], "the second step is gone")
        self.assertEqual(self.parts(), [
            ("panel", "You're all set"),
            ("heading", "You're all set"),
            ("label", "Nothing else to do. Whenever Tarvik is keeping your Mac awake, it now keeps going with the lid closed — turn that off "
                      "under Keep running with the lid closed in Settings."),
            ("push button", "Back"),
            ("push button", "Done"),
        ])
        self.perform("Done", "Press")
        self.assertEqual(self.tarvik.request(), "FinishOnboarding")

    def test_a_new_step_is_told(self):
        told = self.follow("object:state-changed:focused")
        press("Return")
        await_told(lambda: any(name == "Skip the password prompts" and text.startswith("Step 2 of 3. ") for _, name, text in told),
                   "the step is told")

    def test_what_becomes_of_the_helper_is_told(self):
        press("Return")
        self.perform("Install background helper…", "Press")
        self.assertEqual(self.tarvik.request(), "InstallHelper")
        told = self.follow("object:state-changed:showing")
        for lines, text in ((["installed-helper The background helper isn’t responding."], "The background helper isn’t responding."),
                            (["install-helper", "helper unapproved", "installed-helper"],
                             "Approve Tarvik under System Settings ▸ Login Items, then come back here."),
                            (["helper installed"], "Background helper installed and active.")):
            self.tarvik.tell(*lines)
            await_told(lambda wanted=text: any(part[:2] == ("alert", wanted) for part in told), f"{text} is told: {told}")

    def test_escape_closes_it(self):
        press("Escape")
        await_told(lambda: not ((frame := self.frame()) and "showing" in states(frame)), "the window is closed")


class RestartAlertTest(AccessibleWindowTest):
    title = "Tarvik"
    arguments = ("ShowRestartAlert", "s", "")

    def test_it_is_read_out_and_answered(self):
        alert = await_told(lambda: self.find("Background helper enabled", "alert"), "the alert")
        self.assertEqual(alert.description, "Restart Tarvik to finish connecting to the background helper.")
        self.assertEqual(self.focused().name, "Restart Now")
        self.perform("Restart Now", "Press")
        self.assertEqual(self.tarvik.request(), "Relaunch")


if __name__ == "__main__":
    unittest.main()
