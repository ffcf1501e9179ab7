# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""The desktops that the test machines have: how each is told its idle time, when it is up, how it is touched, and which of its
services can be started anew."""
import contextlib

from machine import GUEST, Unexpected, eventually

AUTOSTART = "/home/dev/.config/autostart"
# Of a session whose compositor leaves it to its user to tell systemd of it. The login shell stops it.
SESSION_TARGET = "/home/dev/.config/systemd/user/compositor-session.target"
BEGIN_SESSION = ("systemctl --user import-environment WAYLAND_DISPLAY DISPLAY XDG_CURRENT_DESKTOP SWAYSOCK"
                 " && systemctl --user start compositor-session.target")
HASTENED = 45


class Desktop:
    """What most have in common: an X server, a display manager, a panel with a tray, a lock that logind asks for."""

    name = ""
    # In the session bus when the desktop is up.
    services = ("org.kde.StatusNotifierWatcher",)
    # Seconds without activity until the desktop asks for suspend.
    idle_time = 20
    # How much longer it may take.
    slack = 12
    # Reading the table, one should know that.
    footnote = ""
    has_tray = True
    has_x_server = True
    # Its idle suspend can be held off while the display goes off.
    can_spare_display = True
    reads_autostart = True
    is_graphical = True
    # Shell scripts: the display goes off after so many seconds without activity; it stays on.
    display_time = 15
    switch_display_off = "xset +dpms dpms 15 15 15; xset s off"
    leave_display_on = "xset -dpms"
    # A shell script: only the lid makes the machine sleep.
    lid_only = ""
    # Id and program of an application with windows that no X server knows.
    wayland_application = ""
    # Name: shell script that starts it anew, in the session.
    restarts = {}

    def __init__(self, real_time=False):
        self.real_time = real_time

    def furnish(self, machine):
        """Before the machine boots."""

    def set_up(self, machine):
        """In the session."""

    @property
    def configured_idle_time(self):
        """Seconds, as its settings say it; None where nobody can read them."""
        return self.idle_time

    def is_ready(self, machine):
        properties = machine.root("loginctl", "show-session", "--property=Name", "--property=State", self.session(machine),
                                  check=False).split()
        if "Name=dev" not in properties or "State=active" not in properties:
            return False
        names = machine.session("busctl", "--user", "list", "--no-legend", check=False).splitlines()
        owned = {line.split()[0] for line in names if line.split()[1] != "-"}
        return owned.issuperset(self.services)

    @staticmethod
    def session(machine):
        return machine.root("loginctl", "show-seat", "seat0", "--property=ActiveSession", "--value", check=False).strip()

    def touch(self, machine):
        """Somebody is there."""
        machine.session("xdotool", "key", "--clearmodifiers", "shift")

    def dismiss_dialogs(self, machine):
        """Those that ask for a password when a suspend is refused."""
        machine.session("xdotool", "key", "--clearmodifiers", "Escape")

    def lock(self, machine):
        machine.root("loginctl", "lock-session", self.session(machine))

    def unlock(self, machine):
        machine.root("loginctl", "unlock-sessions")

    def log_out_and_in(self, machine):
        machine.root("systemctl", "stop", "display-manager.service")
        # Nobody logs in again at once. The user's systemd ends ten seconds after the session, unless something is left of it.
        with contextlib.suppress(Unexpected):
            eventually(lambda: machine.root("systemctl", "is-active", "user@1000.service", check=False).strip() == "inactive", 30,
                       "the user's systemd ends")
        machine.root("systemctl", "start", "display-manager.service")


class Xfce(Desktop):
    name = "xfce"
    configured_idle_time = 15 * 60
    can_spare_display = False
    # XFCE 4.18 says 14 for never, later releases 0.
    lid_only = """
        never=0
        case $(xfce4-power-manager --version) in *" 4.18"* | *" 4.16"*) never=14 ;; esac
        for source in ac battery; do
            xfconf-query --channel xfce4-power-manager --property /xfce4-power-manager/inactivity-on-$source --set $never
            xfconf-query --channel xfce4-power-manager --property /xfce4-power-manager/lid-action-on-$source \
                --create --type uint --set 1
        done"""
    services = ("org.freedesktop.Notifications", "org.xfce.PowerManager", "org.kde.StatusNotifierWatcher")
    restarts = {
        "panel": "xfce4-panel --restart",
        "power daemon": "xfce4-power-manager --restart",
        "notification daemon": "pkill -x xfce4-notifyd; notify-send again",
    }

    def __init__(self, real_time=False):
        super().__init__(real_time)
        self.idle_time = 15 * 60 if real_time else 15 * 60 // HASTENED
        if not real_time:
            self.footnote = f"xfce: its shortest idle time, 15 minutes, passes {HASTENED} times as fast"

    def furnish(self, machine):
        machine.write("/home/dev/.config/xfce4/xfconf/xfce-perchannel-xml/xfce4-power-manager.xml", """\
<channel name="xfce4-power-manager" version="1.0">
  <property name="xfce4-power-manager" type="empty">
    <property name="inactivity-on-ac" type="uint" value="15"/>
    <property name="inactivity-on-battery" type="uint" value="15"/>
    <property name="inactivity-sleep-mode-on-ac" type="uint" value="1"/>
    <property name="inactivity-sleep-mode-on-battery" type="uint" value="1"/>
    <property name="lock-screen-suspend-hibernate" type="bool" value="false"/>
  </property>
</channel>
""")
        if not self.real_time:
            hastened = f"env LD_PRELOAD=/{GUEST}/hasten-idle.so TARVIK_HASTEN={HASTENED} xfce4-power-manager"
            machine.write(f"{AUTOSTART}/xfce4-power-manager.desktop",
                          f"[Desktop Entry]\nType=Application\nName=Power manager\nExec={hastened}\n")
            # Two cannot run, and the first takes its time to leave.
            leave = "xfce4-power-manager --quit; while pgrep -x xfce4-power-man; do sleep 0.1; done"
            self.restarts = {**self.restarts, "power daemon": f"{leave}; ({hastened} >/dev/null 2>&1 &)"}

    def set_up(self, machine):
        # It would lock after every suspend, and then its greeter is the active session.
        machine.shell("pkill light-locker", check=False)
        # Debian 12's starts with MATE only.
        machine.shell("pgrep -x polkit-mate-aut || (/usr/libexec/polkit-mate-authentication-agent-1 >/dev/null 2>&1 &)")

    def lock(self, machine):
        machine.shell("pgrep light-locker || (light-locker --lock-after-screensaver=0 >/dev/null 2>&1 &)")
        super().lock(machine)


class Plasma(Desktop):
    name = "plasma"
    # Plasma 5, Plasma 6
    set_display_time = """
        kwriteconfig5 --file powermanagementprofilesrc --group AC --group DPMSControl --key idleTime {0} ||
            kwriteconfig6 --file powerdevilrc --group AC --group Display --key TurnOffDisplayIdleTimeoutSec {0}
        for method in reparseConfiguration refreshStatus; do
            busctl --user call org.kde.Solid.PowerManagement /org/kde/Solid/PowerManagement org.kde.Solid.PowerManagement $method
        done"""
    switch_display_off = set_display_time.format(15)
    leave_display_on = set_display_time.format(9999)
    lid_only = """
        for source in AC Battery; do
            if command -v kwriteconfig6 >/dev/null; then
                kwriteconfig6 --file powerdevilrc --group $source --group SuspendAndShutdown --key AutoSuspendAction 0
                kwriteconfig6 --file powerdevilrc --group $source --group SuspendAndShutdown --key LidAction 1
                continue
            fi
            kwriteconfig5 --file powermanagementprofilesrc --group $source --group SuspendSession --key idleTime 999999999
            kwriteconfig5 --file powermanagementprofilesrc --group $source --group HandleButtonEvents --key lidAction 1
        done
        for method in reparseConfiguration refreshStatus; do
            busctl --user call org.kde.Solid.PowerManagement /org/kde/Solid/PowerManagement org.kde.Solid.PowerManagement $method
        done"""
    services = ("org.freedesktop.Notifications", "org.kde.Solid.PowerManagement", "org.kde.StatusNotifierWatcher")
    restarts = {
        "panel": "kquitapp5 plasmashell || kquitapp6 plasmashell; (plasmashell >/dev/null 2>&1 &)",
        "power daemon": "systemctl --user restart plasma-powerdevil.service",
    }

    def furnish(self, machine):
        # Plasma 5, Plasma 6
        machine.write("/home/dev/.config/powermanagementprofilesrc", "".join(
            f"[{source}][SuspendSession]\nidleTime=20000\nsuspendThenHibernate=false\nsuspendType=1\n"
            for source in ("AC", "Battery")))
        machine.write("/home/dev/.config/powerdevilrc", "".join(
            f"[{source}][SuspendAndShutdown]\nAutoSuspendAction=1\nAutoSuspendIdleTimeoutSec=20\n"
            for source in ("AC", "Battery")))
        machine.write("/home/dev/.config/kscreenlockerrc", "[Daemon]\nLockOnResume=false\nAutolock=false\n")


class SettingsDaemon(Desktop):
    """Those that GSettings tells what to do; `settings`: "schema key value" each."""

    settings = ()

    def set_up(self, machine):
        machine.shell("\n".join(f"gsettings set {setting}" for setting in self.settings))
        self.touch(machine)


class Gnome(SettingsDaemon):
    name = "gnome"
    services = ("org.gnome.Shell", "org.gnome.SettingsDaemon.Power")
    settings = (
        "org.gnome.settings-daemon.plugins.power sleep-inactive-ac-timeout 20",
        "org.gnome.settings-daemon.plugins.power sleep-inactive-battery-timeout 20",
        "org.gnome.settings-daemon.plugins.power sleep-inactive-ac-type suspend",
        "org.gnome.settings-daemon.plugins.power sleep-inactive-battery-type suspend",
        "org.gnome.desktop.screensaver lock-enabled false",
        "org.gnome.desktop.session idle-delay 900",
    )
    # Its screen goes dark fifteen seconds after the session is idle.
    display_time = 30
    switch_display_off = "gsettings set org.gnome.desktop.session idle-delay 15"
    leave_display_on = "gsettings set org.gnome.desktop.session idle-delay 900"
    lid_only = """
        for source in ac battery; do
            gsettings set org.gnome.settings-daemon.plugins.power sleep-inactive-$source-type nothing
        done"""
    restarts = {"power daemon": "systemctl --user restart org.gnome.SettingsDaemon.Power.service"}

    def set_up(self, machine):
        super().set_up(machine)
        # It starts with its overview, which takes the keys.
        machine.shell("xdotool key Escape; gnome-extensions enable ubuntu-appindicators@ubuntu.com")


class Mate(SettingsDaemon):
    name = "mate"
    services = ("org.mate.PowerManager", "org.kde.StatusNotifierWatcher")
    # The session is idle after a minute at the earliest; the power manager counts from there.
    idle_time = 80
    display_time = 75
    switch_display_off = "gsettings set org.mate.power-manager sleep-display-ac 15"
    leave_display_on = "gsettings set org.mate.power-manager sleep-display-ac 0"
    settings = (
        "org.mate.session idle-delay 1",
        "org.mate.power-manager sleep-computer-ac 20",
        "org.mate.power-manager sleep-computer-battery 20",
        "org.mate.power-manager action-sleep-type-battery suspend",
        "org.mate.screensaver lock-enabled false",
        "org.mate.screensaver idle-activation-enabled false",
    )
    restarts = {
        "panel": "pkill -x mate-panel",
        "power daemon": "pkill -x mate-power-man; sleep 1; (mate-power-manager >/dev/null 2>&1 &)",
        "notification daemon": "pkill -f mate-notification-daemon; notify-send again",
    }


class Cinnamon(SettingsDaemon):
    name = "cinnamon"
    services = ("org.Cinnamon", "org.cinnamon.SettingsDaemon.Power", "org.kde.StatusNotifierWatcher")
    settings = (
        "org.cinnamon.desktop.screensaver lock-enabled false",
        "org.cinnamon.settings-daemon.plugins.power sleep-inactive-battery-timeout 20",
        "org.cinnamon.settings-daemon.plugins.power sleep-inactive-ac-timeout 20",
    )
    switch_display_off = "gsettings set org.cinnamon.settings-daemon.plugins.power sleep-display-ac 15"
    leave_display_on = "gsettings set org.cinnamon.settings-daemon.plugins.power sleep-display-ac 0"
    restarts = {"power daemon": "pkill -x csd-power; sleep 1; (csd-power >/dev/null 2>&1 &)"}

    def set_up(self, machine):
        # The daemon rounds up what it is told while the session has been idle for longer.
        self.touch(machine)
        super().set_up(machine)


class Lxqt(Desktop):
    name = "lxqt"
    services = ("org.freedesktop.Notifications", "org.kde.StatusNotifierWatcher")
    # The shortest that its settings offer.
    idle_time = 60
    can_spare_display = False
    restarts = {
        "panel": "pkill -x lxqt-panel; (lxqt-panel >/dev/null 2>&1 &)",
        "power daemon": "pkill -x lxqt-powermanag; (lxqt-powermanagement >/dev/null 2>&1 &)",
        "notification daemon": "pkill -x lxqt-notificat; (lxqt-notificationd >/dev/null 2>&1 &)",
    }

    def furnish(self, machine):
        machine.write("/home/dev/.config/lxqt/session.conf", "[General]\nwindow_manager=openbox\n")
        # A QTime of 60000 ms, as QSettings writes it.
        minute = r"@Variant(\0\0\0\xf\0\0\xea`)"
        machine.write("/home/dev/.config/lxqt/lxqt-powermanagement.conf", f"""\
[General]
enableIdlenessWatcher=true
enableIdlenessBacklightWatcher=false
idlenessACAction=4
idlenessBatteryAction=4
idlenessACTime={minute}
idlenessBatteryTime={minute}
runCheckLevel=1
""")

    def lock(self, machine):
        machine.session("xscreensaver-command", "-lock")

    def unlock(self, machine):
        machine.shell("xscreensaver-command -deactivate; pkill -x xscreensaver; (xscreensaver -no-splash >/dev/null 2>&1 &)",
                      check=False)


class Sway(Desktop):
    """swayidle suspends, and the session is a target of the user's systemd, as its users write it into their configuration."""

    name = "sway"
    configured_idle_time = None
    services = ()
    has_x_server = False
    reads_autostart = False
    lid_only = "pkill -x swayidle || true"
    wayland_application = "foot"
    swayidle = "(swayidle timeout {} 'systemctl suspend' >/dev/null 2>&1 &)"
    leave = "swaymsg exit"
    restarts = {
        "panel": "swaymsg reload",
        "power daemon": "pkill -x swayidle; " + swayidle,
        "notification daemon": "pkill -x mako; (mako >/dev/null 2>&1 &)",
    }

    def __init__(self, real_time=False):
        super().__init__(real_time)
        self.restarts = {what: script.replace("{}", str(self.idle_time)) for what, script in self.restarts.items()}

    def furnish(self, machine):
        machine.write(SESSION_TARGET, "[Unit]\nBindsTo=graphical-session.target\n")
        machine.write("/etc/sway/config.d/60-session.conf", f"exec {BEGIN_SESSION}\n")

    def set_up(self, machine):
        machine.shell("pkill swaynag", check=False)
        machine.shell("(mako >/dev/null 2>&1 &)")
        self.touch(machine)

    def touch(self, machine):
        """There are no input devices: the idle daemon is started anew."""
        machine.shell(self.restarts["power daemon"])

    def dismiss_dialogs(self, machine):
        pass

    def log_out_and_in(self, machine):
        machine.shell(self.leave, check=False)

    def lock(self, machine):
        machine.shell("swaylock --daemonize >/dev/null 2>&1")

    def unlock(self, machine):
        machine.shell("pkill -USR1 -x swaylock")


class Labwc(Sway):
    name = "labwc"
    leave = "labwc --exit"
    restarts = {**Sway.restarts, "panel": "pkill -x waybar; (waybar >/dev/null 2>&1 &)"}

    def furnish(self, machine):
        machine.write(SESSION_TARGET, "[Unit]\nBindsTo=graphical-session.target\n")
        machine.write("/home/dev/.config/labwc/autostart", f"waybar >/dev/null 2>&1 &\n{BEGIN_SESSION}\n")


class Bare(Desktop):
    """A text console; logind itself suspends."""

    name = "none"
    services = ()
    # logind looks at the terminals' times, which the kernel keeps to eight seconds.
    slack = 30
    has_tray = False
    has_x_server = False
    reads_autostart = False
    is_graphical = False

    def furnish(self, machine):
        machine.write("/etc/systemd/logind.conf.d/idle.conf",
                      f"[Login]\nIdleAction=suspend\nIdleActionSec={self.idle_time}s\n")

    def touch(self, machine):
        machine.root("sh", "-c", "printf ' ' >/dev/tty1; touch -a /dev/tty1")

    def dismiss_dialogs(self, machine):
        pass


ALL = {desktop.name: desktop for desktop in (Xfce, Plasma, Gnome, Mate, Cinnamon, Lxqt, Sway, Labwc, Bare)}
