<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>AdministratorProgram</name>
    <message>
        <source>No administrator’s password was given.</source>
        <translation>No administrator’s password was given.</translation>
    </message>
    <message>
        <source>Nothing in this session can ask for an administrator’s password: no polkit agent is running.</source>
        <translation>Nothing in this session can ask for an administrator’s password: no polkit agent is running.</translation>
    </message>
    <message>
        <source>Only an administrator of this computer may do this.</source>
        <translation>Only an administrator of this computer may do this.</translation>
    </message>
    <message>
        <source>It ended before it was done.</source>
        <translation>It ended before it was done.</translation>
    </message>
</context>
<context>
    <name>AgentList</name>
    <message>
        <source>Agents and editors</source>
        <translation>Agents and editors</translation>
    </message>
</context>
<context>
    <name>AgentListPage</name>
    <message>
        <source>Done</source>
        <translation>Done</translation>
    </message>
    <message>
        <source>Agents Tarvik detects</source>
        <translation>Agents Tarvik detects</translation>
    </message>
</context>
<context>
    <name>AgentListRow</name>
    <message>
        <source>Agents and editors</source>
        <translation>Agents and editors</translation>
    </message>
    <message>
        <source>See everything we detect…</source>
        <translation>See everything we detect…</translation>
    </message>
</context>
<context>
    <name>AgentRequest</name>
    <message>
        <source>Couldn&apos;t send that — try again in a moment.</source>
        <translation>Couldn&apos;t send that — try again in a moment.</translation>
    </message>
    <message>
        <source>You&apos;ve sent a few already — try again tomorrow.</source>
        <translation>You&apos;ve sent a few already — try again tomorrow.</translation>
    </message>
    <message>
        <source>Couldn&apos;t reach the server — check your internet connection and try again.</source>
        <translation>Couldn&apos;t reach the server — check your internet connection and try again.</translation>
    </message>
    <message>
        <source>The server didn&apos;t answer — try again in a moment.</source>
        <translation>The server didn&apos;t answer — try again in a moment.</translation>
    </message>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>This copy of Tarvik can&apos;t send requests.</translation>
    </message>
</context>
<context>
    <name>AllowedAppRow</name>
    <message>
        <source>Remove %1</source>
        <translation>Remove %1</translation>
    </message>
</context>
<context>
    <name>AllowedApps</name>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>No apps added. Keep awake while a chosen app is running.</source>
        <translation>No apps added. Keep awake while a chosen app is running.</translation>
    </message>
    <message>
        <source>Add App…</source>
        <translation>Add App…</translation>
    </message>
</context>
<context>
    <name>AppList</name>
    <message>
        <source>Installed applications</source>
        <translation>Installed applications</translation>
    </message>
</context>
<context>
    <name>AppRow</name>
    <message>
        <source>%1, already added</source>
        <translation>%1, already added</translation>
    </message>
    <message>
        <source>Already added</source>
        <translation>Already added</translation>
    </message>
</context>
<context>
    <name>AppSearch</name>
    <message>
        <source>Add App</source>
        <translation>Add App</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>No such application.</source>
        <translation>No such application.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Other…</translation>
    </message>
</context>
<context>
    <name>ApplicationChoice</name>
    <message>
        <source>Open now</source>
        <translation>Open now</translation>
    </message>
    <message>
        <source>Desktop files</source>
        <translation>Desktop files</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>Add App</translation>
    </message>
    <message>
        <source>%1 is not the desktop file of an application that can be started.</source>
        <translation>%1 is not the desktop file of an application that can be started.</translation>
    </message>
</context>
<context>
    <name>BackgroundHelper</name>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items.</source>
        <translation>The background helper has to be allowed first.</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items, then try again.</source>
        <translation>Allow the background helper, then try again.</translation>
    </message>
    <message>
        <source>Background helper reinstalled.</source>
        <translation>Background helper reinstalled.</translation>
    </message>
</context>
<context>
    <name>BatteryLevelRow</name>
    <message>
        <source>Battery level</source>
        <translation>Battery level</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
</context>
<context>
    <name>BlockReason</name>
    <message>
        <source>the Mac is running hot</source>
        <translation>the computer is running hot</translation>
    </message>
    <message>
        <source>running on battery</source>
        <translation>running on battery</translation>
    </message>
    <message>
        <source>battery %1% is below %2%</source>
        <translation>battery %1% is below %2%</translation>
    </message>
    <message>
        <source>Paused — Mac is running hot</source>
        <translation>Paused — computer is running hot</translation>
    </message>
    <message>
        <source>Paused — on battery</source>
        <translation>Paused — on battery</translation>
    </message>
    <message>
        <source>Paused — battery %1% &lt; %2%</source>
        <translation>Paused — battery %1% &lt; %2%</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
</context>
<context>
    <name>DesktopHold</name>
    <message>
        <source>Work is in progress</source>
        <translation>Work is in progress</translation>
    </message>
</context>
<context>
    <name>DetectedAgents</name>
    <message>
        <source>AI editors (while open)</source>
        <translation>AI editors (while open)</translation>
    </message>
    <message>
        <source>Agents</source>
        <translation>Agents</translation>
    </message>
</context>
<context>
    <name>EnableRow</name>
    <message>
        <source>Off means Tarvik does nothing. On keeps the Mac awake while a coding agent or chosen app is running.</source>
        <translation>Off means Tarvik does nothing. On keeps the computer awake while a coding agent or chosen app is running.</translation>
    </message>
</context>
<context>
    <name>FoundAgents</name>
    <message>
        <source>No such agent or editor.</source>
        <translation>No such agent or editor.</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>Also keep the display awake</source>
        <translation>Also keep the display awake</translation>
    </message>
    <message>
        <source>Launch Tarvik at login</source>
        <translation>Launch Tarvik at login</translation>
    </message>
    <message>
        <source>Every change is recorded in the Journal tab either way.</source>
        <translation>Every change is recorded in the Journal tab either way.</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Notifications</translation>
    </message>
    <message>
        <source>Notify every time Tarvik starts or stops</source>
        <translation>Notify every time Tarvik starts or stops</translation>
    </message>
    <message>
        <source>Notify when paused by battery or heat</source>
        <translation>Notify when paused by battery or heat</translation>
    </message>
</context>
<context>
    <name>HelperApproval</name>
    <message>
        <source>The background helper is installed, but this computer does not allow it. If its service was masked, this command allows it again:</source>
        <translation>The background helper is installed, but this computer does not allow it. If its service was masked, this command allows it again:</translation>
    </message>
    <message>
        <source>Allow the background helper</source>
        <translation>Allow the background helper</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Otherwise ask your administrator to allow you the action “%1”. Tarvik notices when you come back.</source>
        <translation>Otherwise ask your administrator to allow you the action “%1”. Tarvik notices when you come back.</translation>
    </message>
</context>
<context>
    <name>HelperErrors</name>
    <message>
        <source>This session is not allowed to switch sleep off.</source>
        <translation>This session is not allowed to switch sleep off.</translation>
    </message>
    <message>
        <source>The background helper is not installed.</source>
        <translation>The background helper is not installed.</translation>
    </message>
    <message>
        <source>There is no connection to the system bus.</source>
        <translation>There is no connection to the system bus.</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>The background helper isn’t responding.</translation>
    </message>
    <message>
        <source>The background helper belongs to another version of Tarvik.</source>
        <translation>The background helper belongs to another version of Tarvik.</translation>
    </message>
    <message>
        <source>The administrator of this computer has blocked the background helper.</source>
        <translation>The administrator of this computer has blocked the background helper.</translation>
    </message>
    <message>
        <source>The background helper does not work: %1</source>
        <translation>The background helper does not work: %1</translation>
    </message>
    <message>
        <source>The background helper has ended unexpectedly.</source>
        <translation>The background helper has ended unexpectedly.</translation>
    </message>
</context>
<context>
    <name>HelperManager</name>
    <message>
        <source>No helper connection</source>
        <translation>No helper connection</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>The background helper isn’t responding.</translation>
    </message>
</context>
<context>
    <name>HelperPage</name>
    <message>
        <source>Skip the password prompts</source>
        <translation>Skip the password prompts</translation>
    </message>
    <message>
        <source>Install a small background helper so turning lid-closed mode on and off never asks for your admin password — and a safety watchdog can restore normal sleep if Tarvik ever quits or crashes.</source>
        <translation>Install a small background helper so turning lid-closed mode on and off never asks for your admin password — and a safety watchdog can restore normal sleep if Tarvik ever quits or crashes.</translation>
    </message>
    <message>
        <source>Optional — Tarvik still works without it; it&apos;ll just ask for your password each time you toggle.</source>
        <translation>Optional — Tarvik still works without it; it&apos;ll just ask for your password each time you toggle.</translation>
    </message>
</context>
<context>
    <name>HelperRow</name>
    <message>
        <source>Background helper active — toggles no longer ask for your password.</source>
        <translation>Background helper active — toggles no longer ask for your password.</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items to finish setup.</source>
        <translation>Allow the background helper to finish setup.</translation>
    </message>
    <message>
        <source>Install a background helper so toggling never asks for your admin password. Restored automatically when keep-awake ends or Tarvik quits.</source>
        <translation>Install a background helper so toggling never asks for your admin password. Restored automatically when keep-awake ends or Tarvik quits.</translation>
    </message>
    <message>
        <source>Reinstall helper…</source>
        <translation>Reinstall helper…</translation>
    </message>
    <message>
        <source>Open Login Items…</source>
        <translation>Allow the helper…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>Install background helper…</translation>
    </message>
</context>
<context>
    <name>HelperStatus</name>
    <message>
        <source>Background helper installed and active.</source>
        <translation>Background helper installed and active.</translation>
    </message>
    <message>
        <source>Approve Tarvik under System Settings ▸ Login Items, then come back here.</source>
        <translation>Allow the background helper, then come back here.</translation>
    </message>
    <message>
        <source>Open Login Items to approve…</source>
        <translation>Allow the helper…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>Install background helper…</translation>
    </message>
</context>
<context>
    <name>HookRow</name>
    <message>
        <source>Couldn&apos;t write ~/%1. If you&apos;ve edited it by hand, check it&apos;s valid JSON — Tarvik won&apos;t overwrite a file it can&apos;t read.</source>
        <translation>Couldn&apos;t write ~/%1. If you&apos;ve edited it by hand, check it&apos;s valid JSON — Tarvik won&apos;t overwrite a file it can&apos;t read.</translation>
    </message>
    <message>
        <source>How hooks of %1 work</source>
        <translation>How hooks of %1 work</translation>
    </message>
</context>
<context>
    <name>HookSetupList</name>
    <message>
        <source>Hooks tell Tarvik when an agent starts and finishes a turn, so an agent sitting idle at its prompt lets the Mac sleep. Turning one on adds a Tarvik entry to that agent&apos;s config file and nothing else — and Tarvik stops watching for that agent&apos;s process, since its turns are the better signal. Turning it off removes the entry and restores process detection.</source>
        <translation>Hooks tell Tarvik when an agent starts and finishes a turn, so an agent sitting idle at its prompt lets the computer sleep. Turning one on adds a Tarvik entry to that agent&apos;s config file and nothing else — and Tarvik stops watching for that agent&apos;s process, since its turns are the better signal. Turning it off removes the entry and restores process detection.</translation>
    </message>
    <message>
        <source>Lifecycle hooks</source>
        <translation>Lifecycle hooks</translation>
    </message>
</context>
<context>
    <name>HotKeys</name>
    <message>
        <source>pending</source>
        <translation>pending</translation>
    </message>
    <message>
        <source>registered</source>
        <translation>registered</translation>
    </message>
    <message>
        <source>taken by another program</source>
        <translation>taken by another program</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>not available</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>Switched on — plugged in</source>
        <translation>Switched on — plugged in</translation>
    </message>
    <message>
        <source>Keeping awake</source>
        <translation>Keeping awake</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Stopped</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Paused</translation>
    </message>
    <message>
        <source>Resumed</source>
        <translation>Resumed</translation>
    </message>
</context>
<context>
    <name>JournalButtons</name>
    <message>
        <source>Copied</source>
        <translation>Copied</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Clear</translation>
    </message>
</context>
<context>
    <name>JournalList</name>
    <message>
        <source>Journal</source>
        <translation>Journal</translation>
    </message>
</context>
<context>
    <name>JournalRow</name>
    <message>
        <source>%1, %2, %3</source>
        <translation>%1, %2, %3</translation>
    </message>
</context>
<context>
    <name>JournalTab</name>
    <message>
        <source>Nothing yet. Tarvik records every time it starts, stops, or pauses.</source>
        <translation>Nothing yet. Tarvik records every time it starts, stops, or pauses.</translation>
    </message>
</context>
<context>
    <name>LidClosedMode</name>
    <message>
        <source>The background helper didn’t respond.</source>
        <translation>The background helper didn’t respond.</translation>
    </message>
</context>
<context>
    <name>LidClosedSection</name>
    <message>
        <source>This computer has no lid — these settings have no effect.</source>
        <translation>This computer has no lid — these settings have no effect.</translation>
    </message>
    <message>
        <source>Lid closed</source>
        <translation>Lid closed</translation>
    </message>
    <message>
        <source>Keep running with the lid closed</source>
        <translation>Keep running with the lid closed</translation>
    </message>
    <message>
        <source>Turn the screen off when the lid closes</source>
        <translation>Turn the screen off when the lid closes</translation>
    </message>
</context>
<context>
    <name>LockScreen</name>
    <message>
        <source>Tarvik could not lock the screen</source>
        <translation>Tarvik could not lock the screen</translation>
    </message>
</context>
<context>
    <name>LockShortcut</name>
    <message>
        <source>Lock the screen</source>
        <translation>Lock the screen</translation>
    </message>
</context>
<context>
    <name>Notifications</name>
    <message>
        <source>Tarvik is keeping your Mac awake</source>
        <translation>Tarvik is keeping your computer awake</translation>
    </message>
    <message>
        <source>Tarvik stopped keeping your Mac awake</source>
        <translation>Tarvik stopped keeping your computer awake</translation>
    </message>
    <message>
        <source>Tarvik paused</source>
        <translation>Tarvik paused</translation>
    </message>
</context>
<context>
    <name>OnboardingPage</name>
    <message>
        <source>Step %1 of %2. %3</source>
        <translation>Step %1 of %2. %3</translation>
    </message>
</context>
<context>
    <name>OnboardingView</name>
    <message>
        <source>Back</source>
        <translation>Back</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continue</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Done</translation>
    </message>
</context>
<context>
    <name>OnboardingWindow</name>
    <message>
        <source>Set up lid-closed mode</source>
        <translation>Set up lid-closed mode</translation>
    </message>
</context>
<context>
    <name>PanelContent</name>
    <message>
        <source>Lock &amp; leave</source>
        <translation>Lock &amp; leave</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Settings…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>Quit Tarvik</translation>
    </message>
</context>
<context>
    <name>PowerTab</name>
    <message>
        <source>Only keep awake while on AC power</source>
        <translation>Only keep awake while on AC power</translation>
    </message>
    <message>
        <source>Stop keeping awake below a battery level</source>
        <translation>Stop keeping awake below a battery level</translation>
    </message>
    <message>
        <source>Connecting power switches Tarvik on. Unplugging leaves it on, so turning it off by hand always sticks.</source>
        <translation>Connecting power switches Tarvik on. Unplugging leaves it on, so turning it off by hand always sticks.</translation>
    </message>
    <message>
        <source>Turn Tarvik on when plugged in</source>
        <translation>Turn Tarvik on when plugged in</translation>
    </message>
    <message>
        <source>Temperature is currently %1. Tarvik pauses while macOS reports thermal throttling, and resumes once it cools down.</source>
        <translation>Temperature is currently %1. Tarvik pauses while the system reports thermal throttling, and resumes once it cools down.</translation>
    </message>
    <message>
        <source>Pause when the Mac gets hot</source>
        <translation>Pause when the computer gets hot</translation>
    </message>
    <message>
        <source>No internal battery detected — these conditions have no effect.</source>
        <translation>No internal battery detected — these conditions have no effect.</translation>
    </message>
    <message>
        <source>on AC power</source>
        <translation>on AC power</translation>
    </message>
    <message>
        <source>on battery</source>
        <translation>on battery</translation>
    </message>
    <message>
        <source>Currently %1% • %2</source>
        <translation>Currently %1% • %2</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Battery</translation>
    </message>
    <message>
        <source>Plugging in</source>
        <translation>Plugging in</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>Heat</translation>
    </message>
</context>
<context>
    <name>Pressable</name>
    <message>
        <source>Not available</source>
        <translation>Not available</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>LTR</translation>
    </message>
</context>
<context>
    <name>ReadyPage</name>
    <message>
        <source>Nothing else to do. Whenever Tarvik is keeping your Mac awake, it now keeps going with the lid closed — turn that off under **Keep running with the lid closed** in Settings.</source>
        <translation>Nothing else to do. Whenever Tarvik is keeping your computer awake, it now keeps going with the lid closed — turn that off under **Keep running with the lid closed** in Settings.</translation>
    </message>
    <message>
        <source>You&apos;re all set</source>
        <translation>You&apos;re all set</translation>
    </message>
</context>
<context>
    <name>RequestArea</name>
    <message>
        <source>Thanks — we&apos;ll take a look.</source>
        <translation>Thanks — we&apos;ll take a look.</translation>
    </message>
</context>
<context>
    <name>RequestButtons</name>
    <message>
        <source>Sending…</source>
        <translation>Sending…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Send</translation>
    </message>
</context>
<context>
    <name>RequestForm</name>
    <message>
        <source>Agent or app name</source>
        <translation>Agent or app name</translation>
    </message>
    <message>
        <source>The command you run it with</source>
        <translation>The command you run it with</translation>
    </message>
    <message>
        <source>Enter a name first.</source>
        <translation>Enter a name first.</translation>
    </message>
</context>
<context>
    <name>RequestInvitation</name>
    <message>
        <source>Missing one?</source>
        <translation>Missing one?</translation>
    </message>
    <message>
        <source>Request it…</source>
        <translation>Request it…</translation>
    </message>
</context>
<context>
    <name>RequestProblem</name>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>This copy of Tarvik can&apos;t send requests.</translation>
    </message>
</context>
<context>
    <name>RestartAlert</name>
    <message>
        <source>Restart Tarvik to finish connecting to the background helper.</source>
        <translation>Restart Tarvik to finish connecting to the background helper.</translation>
    </message>
    <message>
        <source>Background helper enabled</source>
        <translation>Background helper enabled</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Later</translation>
    </message>
    <message>
        <source>Restart Now</source>
        <translation>Restart Now</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search</source>
        <translation>Search</translation>
    </message>
</context>
<context>
    <name>SessionChoices</name>
    <message>
        <source>10 minutes</source>
        <translation>10 minutes</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 hour</translation>
    </message>
    <message>
        <source>2 hours</source>
        <translation>2 hours</translation>
    </message>
    <message>
        <source>All day (16 h)</source>
        <translation>All day (16 h)</translation>
    </message>
    <message>
        <source>Change session…</source>
        <translation>Change session…</translation>
    </message>
    <message>
        <source>Keep awake for…</source>
        <translation>Keep awake for…</translation>
    </message>
    <message>
        <source>Cancel timer</source>
        <translation>Cancel timer</translation>
    </message>
</context>
<context>
    <name>SessionRow</name>
    <message>
        <source>Opens a menu</source>
        <translation>Opens a menu</translation>
    </message>
</context>
<context>
    <name>SettingsTabs</name>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Triggers</source>
        <translation>Triggers</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Power</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Updates</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Tarvik Settings</source>
        <translation>Tarvik Settings</translation>
    </message>
</context>
<context>
    <name>StatusDescription</name>
    <message>
        <source>%1, %2 left, %3</source>
        <translation>%1, %2 left, %3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: %2 (%3)</source>
        <translation>%1: %2 (%3)</translation>
    </message>
    <message>
        <source>%1, not confirmed</source>
        <translation>%1, not confirmed</translation>
    </message>
    <message>
        <source>external</source>
        <translation>external</translation>
    </message>
    <message>
        <source>battery</source>
        <translation>battery</translation>
    </message>
    <message>
        <source>%1, battery at %2 %</source>
        <translation>%1, battery at %2 %</translation>
    </message>
    <message>
        <source>%1 (too hot to be kept awake)</source>
        <translation>%1 (too hot to be kept awake)</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Now</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Active</translation>
    </message>
    <message>
        <source>Leases</source>
        <translation>Leases</translation>
    </message>
    <message>
        <source>Session</source>
        <translation>Session</translation>
    </message>
    <message>
        <source>until %1</source>
        <translation>until %1</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>Holds</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Power</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>Heat</translation>
    </message>
    <message>
        <source>Lid</source>
        <translation>Lid</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>closed</translation>
    </message>
    <message>
        <source>Lock key</source>
        <translation>Lock key</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>Tray</translation>
    </message>
    <message>
        <source>shown</source>
        <translation>shown</translation>
    </message>
    <message>
        <source>not shown: no panel offers a place</source>
        <translation>not shown: no panel offers a place</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</translation>
    </message>
</context>
<context>
    <name>StatusHeader</name>
    <message>
        <source>F1 says why</source>
        <translation>F1 says why</translation>
    </message>
</context>
<context>
    <name>StatusText</name>
    <message>
        <source>Off</source>
        <translation>Off</translation>
    </message>
    <message numerus="yes">
        <source>%n agent</source>
        <translation>
            <numerusform>%n agent</numerusform>
            <numerusform>%n agent</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n agents</source>
        <translation>
            <numerusform>%n agents</numerusform>
            <numerusform>%n agents</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n app</source>
        <translation>
            <numerusform>%n app</numerusform>
            <numerusform>%n app</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n apps</source>
        <translation>
            <numerusform>%n apps</numerusform>
            <numerusform>%n apps</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message numerus="yes">
        <source>%n min left</source>
        <translation>
            <numerusform>%n min left</numerusform>
            <numerusform>%n min left</numerusform>
        </translation>
    </message>
    <message>
        <source>charging %1%</source>
        <translation>charging %1%</translation>
    </message>
    <message>
        <source>on battery %1%</source>
        <translation>on battery %1%</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Paused</translation>
    </message>
    <message>
        <source>Awake</source>
        <translation>Awake</translation>
    </message>
    <message>
        <source>Watching</source>
        <translation>Watching</translation>
    </message>
    <message>
        <source>Dozing — nothing to watch</source>
        <translation>Dozing — nothing to watch</translation>
    </message>
    <message>
        <source>Awake — %1</source>
        <translation>Awake — %1</translation>
    </message>
    <message>
        <source>Awake — timed</source>
        <translation>Awake — timed</translation>
    </message>
    <message>
        <source>Awake · %1</source>
        <translation>Awake · %1</translation>
    </message>
    <message>
        <source>Not watching</source>
        <translation>Not watching</translation>
    </message>
    <message numerus="yes">
        <source>%1 +%n more</source>
        <translation>
            <numerusform>%1 +%n more</numerusform>
            <numerusform>%1 +%n more</numerusform>
        </translation>
    </message>
    <message>
        <source>Timed session</source>
        <translation>Timed session</translation>
    </message>
    <message>
        <source>Nothing running to keep awake for</source>
        <translation>Nothing running to keep awake for</translation>
    </message>
    <message>
        <source>running %1</source>
        <translation>running %1</translation>
    </message>
    <message>
        <source>lid closed</source>
        <translation>lid closed</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normal</translation>
    </message>
    <message>
        <source>warm</source>
        <translation>warm</translation>
    </message>
    <message>
        <source>hot</source>
        <translation>hot</translation>
    </message>
    <message>
        <source>very hot</source>
        <translation>very hot</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unknown</translation>
    </message>
</context>
<context>
    <name>SystemdHelperService</name>
    <message>
        <source>There is no pkexec, which would ask for an administrator’s password. An administrator can run %1 instead.</source>
        <translation>There is no pkexec, which would ask for an administrator’s password. An administrator can run %1 instead.</translation>
    </message>
</context>
<context>
    <name>TarvikApp</name>
    <message>
        <source>The windows of Tarvik are not installed</source>
        <translation>The windows of Tarvik are not installed</translation>
    </message>
    <message>
        <source>They are in the package “tarvik”.</source>
        <translation>They are in the package “tarvik”.</translation>
    </message>
</context>
<context>
    <name>TerminalText</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 h %2 min</translation>
    </message>
</context>
<context>
    <name>Texts</name>
    <message numerus="yes">
        <source>%n year ago</source>
        <translation>
            <numerusform>%n year ago</numerusform>
            <numerusform>%n year ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n years ago</source>
        <translation>
            <numerusform>%n years ago</numerusform>
            <numerusform>%n years ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n month ago</source>
        <translation>
            <numerusform>%n month ago</numerusform>
            <numerusform>%n month ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n months ago</source>
        <translation>
            <numerusform>%n months ago</numerusform>
            <numerusform>%n months ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n week ago</source>
        <translation>
            <numerusform>%n week ago</numerusform>
            <numerusform>%n week ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n weeks ago</source>
        <translation>
            <numerusform>%n weeks ago</numerusform>
            <numerusform>%n weeks ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n day ago</source>
        <translation>
            <numerusform>%n day ago</numerusform>
            <numerusform>%n day ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days ago</source>
        <translation>
            <numerusform>%n days ago</numerusform>
            <numerusform>%n days ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hour ago</source>
        <translation>
            <numerusform>%n hour ago</numerusform>
            <numerusform>%n hour ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hours ago</source>
        <translation>
            <numerusform>%n hours ago</numerusform>
            <numerusform>%n hours ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minute ago</source>
        <translation>
            <numerusform>%n minute ago</numerusform>
            <numerusform>%n minute ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes ago</source>
        <translation>
            <numerusform>%n minutes ago</numerusform>
            <numerusform>%n minutes ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n second ago</source>
        <translation>
            <numerusform>%n second ago</numerusform>
            <numerusform>%n second ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n seconds ago</source>
        <translation>
            <numerusform>%n seconds ago</numerusform>
            <numerusform>%n seconds ago</numerusform>
        </translation>
    </message>
    <message>
        <source>Last checked %1</source>
        <translation>Last checked %1</translation>
    </message>
    <message>
        <source>Not checked yet.</source>
        <translation>Not checked yet.</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>just now</translation>
    </message>
    <message>
        <source>No event yet. %1 sends the first one with your next prompt.</source>
        <translation>No event yet. %1 sends the first one with your next prompt.</translation>
    </message>
    <message>
        <source>No event yet. %1 reads its hooks when it starts: restart sessions that are already running.</source>
        <translation>No event yet. %1 reads its hooks when it starts: restart sessions that are already running.</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 and approve the hooks when it asks: it skips them until you do.</source>
        <translation>No event yet. Restart %1 and approve the hooks when it asks: it skips them until you do.</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 in a folder that you have told it to trust: it skips hooks elsewhere.</source>
        <translation>No event yet. Restart %1 in a folder that you have told it to trust: it skips hooks elsewhere.</translation>
    </message>
    <message>
        <source>Last event %1</source>
        <translation>Last event %1</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Today</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Yesterday</translation>
    </message>
    <message numerus="yes">
        <source>%n h ago</source>
        <translation>
            <numerusform>%n h ago</numerusform>
            <numerusform>%n h ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n min ago</source>
        <translation>
            <numerusform>%n min ago</numerusform>
            <numerusform>%n min ago</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrayPresenter</name>
    <message>
        <source>Open Tarvik…</source>
        <translation>Open Tarvik…</translation>
    </message>
    <message>
        <source>Lock &amp; leave</source>
        <translation>Lock &amp; leave</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Settings…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>Quit Tarvik</translation>
    </message>
</context>
<context>
    <name>TriggersTab</name>
    <message>
        <source>Coding agents</source>
        <translation>Coding agents</translation>
    </message>
    <message>
        <source>Keep the Mac awake while any of %1 known coding agents is running.</source>
        <translation>Keep the computer awake while any of %1 known coding agents is running.</translation>
    </message>
    <message>
        <source>Watch coding agents</source>
        <translation>Watch coding agents</translation>
    </message>
    <message>
        <source>Cursor, Zed, Warp and friends run their agent inside the editor, so Tarvik can only tell that the app is open — not that it&apos;s working. Your Mac stays awake for as long as the editor is running.</source>
        <translation>Cursor, Zed, Warp and friends run their agent inside the editor, so Tarvik can only tell that the app is open — not that it&apos;s working. Your computer stays awake for as long as the editor is running.</translation>
    </message>
    <message>
        <source>Keep awake while an AI editor is open</source>
        <translation>Keep awake while an AI editor is open</translation>
    </message>
</context>
<context>
    <name>UpdatesTab</name>
    <message>
        <source>Automatically check for updates</source>
        <translation>Automatically check for updates</translation>
    </message>
    <message>
        <source>Automatically download and install updates</source>
        <translation>Automatically download and install updates</translation>
    </message>
    <message>
        <source>Tarvik %1</source>
        <translation>Tarvik %1</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Check for Updates…</translation>
    </message>
    <message>
        <source>This copy is updated together with the other packages of this computer.</source>
        <translation>This copy is updated together with the other packages of this computer.</translation>
    </message>
    <message>
        <source>This copy was built from source. To update it, build a newer version.</source>
        <translation>This copy was built from source. To update it, build a newer version.</translation>
    </message>
    <message>
        <source>This copy does not come from a package. To update it, install a newer version in its place.</source>
        <translation>This copy does not come from a package. To update it, install a newer version in its place.</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</translation>
    </message>
</context>
<context>
    <name>WelcomePage</name>
    <message>
        <source>Keep working, lid closed</source>
        <translation>Keep working, lid closed</translation>
    </message>
    <message>
        <source>Let agents, builds, and downloads keep running after you shut the lid.</source>
        <translation>Let agents, builds, and downloads keep running after you shut the lid.</translation>
    </message>
    <message>
        <source>macOS normally sleeps the moment you close the lid. Tarvik can override that — but it needs to install a small background helper first.</source>
        <translation>A laptop normally sleeps the moment you close the lid. Tarvik can override that — but it needs to install a small background helper first.</translation>
    </message>
</context>
<context>
    <name>WhyDescription</name>
    <message>
        <source>sleep when idle</source>
        <translation>sleep when idle</translation>
    </message>
    <message>
        <source>displays off when idle</source>
        <translation>displays off when idle</translation>
    </message>
    <message>
        <source>every sleep</source>
        <translation>every sleep</translation>
    </message>
    <message>
        <source>sleep when the lid is closed</source>
        <translation>sleep when the lid is closed</translation>
    </message>
    <message>
        <source>nothing on this desktop</source>
        <translation>nothing on this desktop</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1, not confirmed</source>
        <translation>%1, not confirmed</translation>
    </message>
    <message>
        <source>%1, without effect on this desktop</source>
        <translation>%1, without effect on this desktop</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nothing</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: %2: %3</source>
        <translation>%1: %2: %3</translation>
    </message>
    <message>
        <source>%1, last event %2</source>
        <translation>%1, last event %2</translation>
    </message>
    <message>
        <source>%1, no event yet</source>
        <translation>%1, no event yet</translation>
    </message>
    <message>
        <source>The computer slept until %1</source>
        <translation>The computer slept until %1</translation>
    </message>
    <message>
        <source>The computer went to sleep</source>
        <translation>The computer went to sleep</translation>
    </message>
    <message>
        <source>Tarvik: %1</source>
        <translation>Tarvik: %1</translation>
    </message>
    <message>
        <source>Tarvik holds off</source>
        <translation>Tarvik holds off</translation>
    </message>
    <message>
        <source>Others hold off</source>
        <translation>Others hold off</translation>
    </message>
    <message>
        <source>Do not tell</source>
        <translation>Do not tell</translation>
    </message>
    <message>
        <source>When idle</source>
        <translation>When idle</translation>
    </message>
    <message>
        <source>Hooks</source>
        <translation>Hooks</translation>
    </message>
    <message>
        <source>Lately</source>
        <translation>Lately</translation>
    </message>
</context>
<context>
    <name>WhyText</name>
    <message>
        <source>%1; %2.</source>
        <translation>%1; %2.</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake because work is going on: %1.</source>
        <translation>Tarvik keeps this computer awake because work is going on: %1.</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1.</source>
        <translation>Tarvik keeps this computer awake for a timed session, until %1.</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1, and because work is going on: %2.</source>
        <translation>Tarvik keeps this computer awake for a timed session, until %1, and because work is going on: %2.</translation>
    </message>
    <message>
        <source>Other programs keep this computer awake: %1.</source>
        <translation>Other programs keep this computer awake: %1.</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake (%2).</source>
        <translation>%1 keeps this computer awake (%2).</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake.</source>
        <translation>%1 keeps this computer awake.</translation>
    </message>
    <message>
        <source>what %1 would do when nobody uses it is not known</source>
        <translation>what %1 would do when nobody uses it is not known</translation>
    </message>
    <message>
        <source>nothing here is set to put it to sleep</source>
        <translation>nothing here is set to put it to sleep</translation>
    </message>
    <message>
        <source>what would put it to sleep is not known</source>
        <translation>what would put it to sleep is not known</translation>
    </message>
    <message>
        <source>This computer last slept from %1 to %2</source>
        <translation>This computer last slept from %1 to %2</translation>
    </message>
    <message>
        <source>This computer last went to sleep at %1</source>
        <translation>This computer last went to sleep at %1</translation>
    </message>
    <message>
        <source>Tarvik&apos;s journal has nothing from before that</source>
        <translation>Tarvik&apos;s journal has nothing from before that</translation>
    </message>
    <message>
        <source>Tarvik was not keeping it awake (since %1: %2)</source>
        <translation>Tarvik was not keeping it awake (since %1: %2)</translation>
    </message>
    <message>
        <source>whether Tarvik was running then is not known (its last word before was at %1: %2)</source>
        <translation>whether Tarvik was running then is not known (its last word before was at %1: %2)</translation>
    </message>
    <message>
        <source>Tarvik was keeping it awake (since %1: %2), and what put it to sleep all the same is not known</source>
        <translation>Tarvik was keeping it awake (since %1: %2), and what put it to sleep all the same is not known</translation>
    </message>
    <message>
        <source>Nothing holds this computer awake</source>
        <translation>Nothing holds this computer awake</translation>
    </message>
    <message>
        <source>Nothing that can be seen holds this computer awake</source>
        <translation>Nothing that can be seen holds this computer awake</translation>
    </message>
    <message>
        <source>Tarvik does not keep it awake (%1).</source>
        <translation>Tarvik does not keep it awake (%1).</translation>
    </message>
    <message>
        <source>Tarvik wants to keep it awake, but none of its locks is known to work here: it may sleep all the same.</source>
        <translation>Tarvik wants to keep it awake, but none of its locks is known to work here: it may sleep all the same.</translation>
    </message>
    <message>
        <source>It would stay awake without Tarvik, too, because of %1.</source>
        <translation>It would stay awake without Tarvik, too, because of %1.</translation>
    </message>
    <message>
        <source>Nothing here is set to put it to sleep anyway.</source>
        <translation>Nothing here is set to put it to sleep anyway.</translation>
    </message>
    <message>
        <source>Its lid is closed, and Tarvik keeps it running all the same.</source>
        <translation>Its lid is closed, and Tarvik keeps it running all the same.</translation>
    </message>
    <message>
        <source>When this computer slept last is not known.</source>
        <translation>When this computer slept last is not known.</translation>
    </message>
    <message>
        <source>This computer has not slept since it was started.</source>
        <translation>This computer has not slept since it was started.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1 does not put it to sleep</source>
        <translation>%1 does not put it to sleep</translation>
    </message>
    <message>
        <source>%1 puts it to sleep when nobody uses it, but after how long is not known</source>
        <translation>%1 puts it to sleep when nobody uses it, but after how long is not known</translation>
    </message>
    <message>
        <source>%1 suspends it after %2 without activity</source>
        <translation>%1 suspends it after %2 without activity</translation>
    </message>
    <message>
        <source>%1 hibernates it after %2 without activity</source>
        <translation>%1 hibernates it after %2 without activity</translation>
    </message>
    <message>
        <source>%1 shuts it down or logs out after %2 without activity</source>
        <translation>%1 shuts it down or logs out after %2 without activity</translation>
    </message>
</context>
</TS>
