<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AdministratorProgram</name>
    <message>
        <source>No administrator’s password was given.</source>
        <translation>Es wurde kein Administratorpasswort eingegeben.</translation>
    </message>
    <message>
        <source>Nothing in this session can ask for an administrator’s password: no polkit agent is running.</source>
        <translation>In dieser Sitzung kann nicht nach einem Administratorpasswort gefragt werden: Es läuft kein Polkit-Agent.</translation>
    </message>
    <message>
        <source>Only an administrator of this computer may do this.</source>
        <translation>Das darf nur ein Administrator dieses Computers.</translation>
    </message>
    <message>
        <source>It ended before it was done.</source>
        <translation>Der Vorgang wurde vorzeitig beendet.</translation>
    </message>
</context>
<context>
    <name>AgentList</name>
    <message>
        <source>Agents and editors</source>
        <translation>Agenten und Editoren</translation>
    </message>
</context>
<context>
    <name>AgentListPage</name>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Agents Tarvik detects</source>
        <translation>Agenten, die Tarvik erkennt</translation>
    </message>
</context>
<context>
    <name>AgentListRow</name>
    <message>
        <source>Agents and editors</source>
        <translation>Agenten und Editoren</translation>
    </message>
    <message>
        <source>See everything we detect…</source>
        <translation>Alles anzeigen, was erkannt wird&#xa0;…</translation>
    </message>
</context>
<context>
    <name>AgentRequest</name>
    <message>
        <source>Couldn&apos;t send that — try again in a moment.</source>
        <translation>Das konnte nicht gesendet werden – versuchen Sie es gleich noch einmal.</translation>
    </message>
    <message>
        <source>You&apos;ve sent a few already — try again tomorrow.</source>
        <translation>Sie haben heute schon einige gesendet – versuchen Sie es morgen noch einmal.</translation>
    </message>
    <message>
        <source>Couldn&apos;t reach the server — check your internet connection and try again.</source>
        <translation>Der Server ist nicht erreichbar – prüfen Sie Ihre Internetverbindung und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The server didn&apos;t answer — try again in a moment.</source>
        <translation>Der Server hat nicht geantwortet – versuchen Sie es gleich noch einmal.</translation>
    </message>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>Diese Installation von Tarvik kann keine Anfragen senden.</translation>
    </message>
</context>
<context>
    <name>AllowedAppRow</name>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
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
        <translation>Keine Apps hinzugefügt. Hält wach, solange eine gewählte App läuft.</translation>
    </message>
    <message>
        <source>Add App…</source>
        <translation>App hinzufügen&#xa0;…</translation>
    </message>
</context>
<context>
    <name>AppList</name>
    <message>
        <source>Installed applications</source>
        <translation>Installierte Anwendungen</translation>
    </message>
</context>
<context>
    <name>AppRow</name>
    <message>
        <source>%1, already added</source>
        <translation>%1, bereits hinzugefügt</translation>
    </message>
    <message>
        <source>Already added</source>
        <translation>Bereits hinzugefügt</translation>
    </message>
</context>
<context>
    <name>AppSearch</name>
    <message>
        <source>Add App</source>
        <translation>App hinzufügen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>No such application.</source>
        <translation>Keine passende Anwendung.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Andere&#xa0;…</translation>
    </message>
</context>
<context>
    <name>ApplicationChoice</name>
    <message>
        <source>Open now</source>
        <translation>Gerade geöffnet</translation>
    </message>
    <message>
        <source>Desktop files</source>
        <translation>Desktop-Dateien</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>App hinzufügen</translation>
    </message>
    <message>
        <source>%1 is not the desktop file of an application that can be started.</source>
        <translation>%1 ist nicht die Desktop-Datei einer Anwendung, die gestartet werden kann.</translation>
    </message>
</context>
<context>
    <name>BackgroundHelper</name>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items.</source>
        <translation>Der Hilfsdienst muss zuerst erlaubt werden.</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items, then try again.</source>
        <translation>Erlauben Sie den Hilfsdienst und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Background helper reinstalled.</source>
        <translation>Hilfsdienst neu installiert.</translation>
    </message>
</context>
<context>
    <name>BatteryLevelRow</name>
    <message>
        <source>Battery level</source>
        <translation>Akkustand</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1&#xa0;%</translation>
    </message>
</context>
<context>
    <name>BlockReason</name>
    <message>
        <source>the Mac is running hot</source>
        <translation>der Computer ist zu heiß</translation>
    </message>
    <message>
        <source>running on battery</source>
        <translation>läuft im Akkubetrieb</translation>
    </message>
    <message>
        <source>battery %1% is below %2%</source>
        <translation>Akku %1&#xa0;% liegt unter %2&#xa0;%</translation>
    </message>
    <message>
        <source>Paused — Mac is running hot</source>
        <translation>Pausiert – Computer zu heiß</translation>
    </message>
    <message>
        <source>Paused — on battery</source>
        <translation>Pausiert – Akkubetrieb</translation>
    </message>
    <message>
        <source>Paused — battery %1% &lt; %2%</source>
        <translation>Pausiert – Akku %1&#xa0;% &lt; %2&#xa0;%</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>DesktopHold</name>
    <message>
        <source>Work is in progress</source>
        <translation>Es wird gearbeitet</translation>
    </message>
</context>
<context>
    <name>DetectedAgents</name>
    <message>
        <source>AI editors (while open)</source>
        <translation>KI-Editoren (solange sie geöffnet sind)</translation>
    </message>
    <message>
        <source>Agents</source>
        <translation>Agenten</translation>
    </message>
</context>
<context>
    <name>EnableRow</name>
    <message>
        <source>Off means Tarvik does nothing. On keeps the Mac awake while a coding agent or chosen app is running.</source>
        <translation>Ausgeschaltet tut Tarvik nichts. Eingeschaltet hält es den Computer wach, solange ein Coding-Agent oder eine gewählte App läuft.</translation>
    </message>
</context>
<context>
    <name>FoundAgents</name>
    <message>
        <source>No such agent or editor.</source>
        <translation>Kein solcher Agent oder Editor.</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>Also keep the display awake</source>
        <translation>Auch den Bildschirm anlassen</translation>
    </message>
    <message>
        <source>Launch Tarvik at login</source>
        <translation>Tarvik bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Every change is recorded in the Journal tab either way.</source>
        <translation>Jede Änderung steht in jedem Fall im Reiter „Verlauf“.</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Benachrichtigungen</translation>
    </message>
    <message>
        <source>Notify every time Tarvik starts or stops</source>
        <translation>Melden, wenn Tarvik beginnt oder aufhört</translation>
    </message>
    <message>
        <source>Notify when paused by battery or heat</source>
        <translation>Pausen wegen Akku oder Hitze melden</translation>
    </message>
</context>
<context>
    <name>HelperApproval</name>
    <message>
        <source>The background helper is installed, but this computer does not allow it. If its service was masked, this command allows it again:</source>
        <translation>Der Hilfsdienst ist installiert, aber auf diesem Computer nicht erlaubt. Falls er maskiert wurde, erlaubt ihn dieser Befehl wieder:</translation>
    </message>
    <message>
        <source>Allow the background helper</source>
        <translation>Den Hilfsdienst erlauben</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Otherwise ask your administrator to allow you the action “%1”. Tarvik notices when you come back.</source>
        <translation>Bitten Sie andernfalls Ihren Administrator, Ihnen die Aktion „%1“ zu erlauben. Tarvik bemerkt es, wenn Sie zurückkommen.</translation>
    </message>
</context>
<context>
    <name>HelperErrors</name>
    <message>
        <source>This session is not allowed to switch sleep off.</source>
        <translation>Diese Sitzung darf den Ruhezustand nicht ausschalten.</translation>
    </message>
    <message>
        <source>The background helper is not installed.</source>
        <translation>Der Hilfsdienst ist nicht installiert.</translation>
    </message>
    <message>
        <source>There is no connection to the system bus.</source>
        <translation>Es besteht keine Verbindung zum Systembus.</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>Der Hilfsdienst antwortet nicht.</translation>
    </message>
    <message>
        <source>The background helper belongs to another version of Tarvik.</source>
        <translation>Der Hilfsdienst gehört zu einer anderen Version von Tarvik.</translation>
    </message>
    <message>
        <source>The administrator of this computer has blocked the background helper.</source>
        <translation>Der Administrator dieses Computers hat den Hilfsdienst gesperrt.</translation>
    </message>
    <message>
        <source>The background helper does not work: %1</source>
        <translation>Der Hilfsdienst funktioniert nicht: %1</translation>
    </message>
    <message>
        <source>The background helper has ended unexpectedly.</source>
        <translation>Der Hilfsdienst wurde unerwartet beendet.</translation>
    </message>
</context>
<context>
    <name>HelperManager</name>
    <message>
        <source>No helper connection</source>
        <translation>Keine Verbindung zum Hilfsdienst</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>Der Hilfsdienst antwortet nicht.</translation>
    </message>
</context>
<context>
    <name>HelperPage</name>
    <message>
        <source>Skip the password prompts</source>
        <translation>Ohne Passwortabfragen</translation>
    </message>
    <message>
        <source>Install a small background helper so turning lid-closed mode on and off never asks for your admin password — and a safety watchdog can restore normal sleep if Tarvik ever quits or crashes.</source>
        <translation>Installieren Sie einen kleinen Hilfsdienst, damit das Ein- und Ausschalten des Betriebs mit geschlossenem Deckel nie nach Ihrem Administratorpasswort fragt – und damit der normale Ruhezustand sicher wiederhergestellt wird, falls Tarvik beendet wird oder abstürzt.</translation>
    </message>
    <message>
        <source>Optional — Tarvik still works without it; it&apos;ll just ask for your password each time you toggle.</source>
        <translation>Nicht zwingend – Tarvik funktioniert auch ohne ihn, fragt dann aber bei jedem Umschalten nach Ihrem Passwort.</translation>
    </message>
</context>
<context>
    <name>HelperRow</name>
    <message>
        <source>Background helper active — toggles no longer ask for your password.</source>
        <translation>Hilfsdienst aktiv – beim Umschalten wird nicht mehr nach dem Passwort gefragt.</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items to finish setup.</source>
        <translation>Erlauben Sie den Hilfsdienst, um die Einrichtung abzuschließen.</translation>
    </message>
    <message>
        <source>Install a background helper so toggling never asks for your admin password. Restored automatically when keep-awake ends or Tarvik quits.</source>
        <translation>Installieren Sie einen Hilfsdienst, damit das Umschalten nie nach Ihrem Administratorpasswort fragt. Der normale Ruhezustand kehrt von selbst zurück, wenn das Wachhalten endet oder Tarvik beendet wird.</translation>
    </message>
    <message>
        <source>Reinstall helper…</source>
        <translation>Hilfsdienst neu installieren&#xa0;…</translation>
    </message>
    <message>
        <source>Open Login Items…</source>
        <translation>Hilfsdienst erlauben&#xa0;…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>Hilfsdienst installieren&#xa0;…</translation>
    </message>
</context>
<context>
    <name>HelperStatus</name>
    <message>
        <source>Background helper installed and active.</source>
        <translation>Hilfsdienst installiert und aktiv.</translation>
    </message>
    <message>
        <source>Approve Tarvik under System Settings ▸ Login Items, then come back here.</source>
        <translation>Erlauben Sie den Hilfsdienst und kommen Sie dann hierher zurück.</translation>
    </message>
    <message>
        <source>Open Login Items to approve…</source>
        <translation>Hilfsdienst erlauben&#xa0;…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>Hilfsdienst installieren&#xa0;…</translation>
    </message>
</context>
<context>
    <name>HookRow</name>
    <message>
        <source>Couldn&apos;t write ~/%1. If you&apos;ve edited it by hand, check it&apos;s valid JSON — Tarvik won&apos;t overwrite a file it can&apos;t read.</source>
        <translation>~/%1 konnte nicht geschrieben werden. Falls Sie die Datei von Hand bearbeitet haben, prüfen Sie, ob sie gültiges JSON enthält – Tarvik überschreibt keine Datei, die es nicht lesen kann.</translation>
    </message>
    <message>
        <source>How hooks of %1 work</source>
        <translation>Wie Hooks von %1 funktionieren</translation>
    </message>
</context>
<context>
    <name>HookSetupList</name>
    <message>
        <source>Hooks tell Tarvik when an agent starts and finishes a turn, so an agent sitting idle at its prompt lets the Mac sleep. Turning one on adds a Tarvik entry to that agent&apos;s config file and nothing else — and Tarvik stops watching for that agent&apos;s process, since its turns are the better signal. Turning it off removes the entry and restores process detection.</source>
        <translation>Über Hooks erfährt Tarvik, wann ein Agent eine Runde beginnt und beendet; so lässt ein Agent, der auf eine Eingabe wartet, den Computer schlafen. Beim Einschalten wird nur ein Tarvik-Eintrag in die Konfigurationsdatei des Agenten geschrieben – und Tarvik achtet nicht mehr auf seinen Prozess, weil die Runden das bessere Signal sind. Beim Ausschalten wird der Eintrag entfernt und die Prozesserkennung wiederhergestellt.</translation>
    </message>
    <message>
        <source>Lifecycle hooks</source>
        <translation>Hooks</translation>
    </message>
</context>
<context>
    <name>HotKeys</name>
    <message>
        <source>pending</source>
        <translation>noch offen</translation>
    </message>
    <message>
        <source>registered</source>
        <translation>registriert</translation>
    </message>
    <message>
        <source>taken by another program</source>
        <translation>von einem anderen Programm belegt</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>Switched on — plugged in</source>
        <translation>Eingeschaltet – Netzteil angeschlossen</translation>
    </message>
    <message>
        <source>Keeping awake</source>
        <translation>Wird wach gehalten</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Beendet</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Pausiert</translation>
    </message>
    <message>
        <source>Resumed</source>
        <translation>Fortgesetzt</translation>
    </message>
</context>
<context>
    <name>JournalButtons</name>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>JournalList</name>
    <message>
        <source>Journal</source>
        <translation>Verlauf</translation>
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
        <translation>Noch nichts. Tarvik hält jeden Beginn, jedes Ende und jede Pause fest.</translation>
    </message>
</context>
<context>
    <name>LidClosedMode</name>
    <message>
        <source>The background helper didn’t respond.</source>
        <translation>Der Hilfsdienst hat nicht geantwortet.</translation>
    </message>
</context>
<context>
    <name>LidClosedSection</name>
    <message>
        <source>This computer has no lid — these settings have no effect.</source>
        <translation>Dieser Computer hat keinen Deckel – diese Einstellungen sind wirkungslos.</translation>
    </message>
    <message>
        <source>Lid closed</source>
        <translation>Geschlossener Deckel</translation>
    </message>
    <message>
        <source>Keep running with the lid closed</source>
        <translation>Bei geschlossenem Deckel weiterlaufen</translation>
    </message>
    <message>
        <source>Turn the screen off when the lid closes</source>
        <translation>Bildschirm beim Schließen des Deckels ausschalten</translation>
    </message>
</context>
<context>
    <name>LockScreen</name>
    <message>
        <source>Tarvik could not lock the screen</source>
        <translation>Tarvik konnte den Bildschirm nicht sperren</translation>
    </message>
</context>
<context>
    <name>LockShortcut</name>
    <message>
        <source>Lock the screen</source>
        <translation>Bildschirm sperren</translation>
    </message>
</context>
<context>
    <name>Notifications</name>
    <message>
        <source>Tarvik is keeping your Mac awake</source>
        <translation>Tarvik hält Ihren Computer wach</translation>
    </message>
    <message>
        <source>Tarvik stopped keeping your Mac awake</source>
        <translation>Tarvik hält Ihren Computer nicht mehr wach</translation>
    </message>
    <message>
        <source>Tarvik paused</source>
        <translation>Tarvik pausiert</translation>
    </message>
</context>
<context>
    <name>OnboardingPage</name>
    <message>
        <source>Step %1 of %2. %3</source>
        <translation>Schritt %1 von %2. %3</translation>
    </message>
</context>
<context>
    <name>OnboardingView</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>OnboardingWindow</name>
    <message>
        <source>Set up lid-closed mode</source>
        <translation>Betrieb mit geschlossenem Deckel einrichten</translation>
    </message>
</context>
<context>
    <name>PanelContent</name>
    <message>
        <source>Lock &amp; leave</source>
        <translation>Sperren und gehen</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen&#xa0;…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>Tarvik beenden</translation>
    </message>
</context>
<context>
    <name>PowerTab</name>
    <message>
        <source>Only keep awake while on AC power</source>
        <translation>Nur am Stromnetz wach halten</translation>
    </message>
    <message>
        <source>Stop keeping awake below a battery level</source>
        <translation>Unter einem Akkustand nicht wach halten</translation>
    </message>
    <message>
        <source>Connecting power switches Tarvik on. Unplugging leaves it on, so turning it off by hand always sticks.</source>
        <translation>Das Anschließen des Netzteils schaltet Tarvik ein. Nach dem Trennen bleibt es eingeschaltet; von Hand ausgeschaltet bleibt es aus.</translation>
    </message>
    <message>
        <source>Turn Tarvik on when plugged in</source>
        <translation>Tarvik am Stromnetz einschalten</translation>
    </message>
    <message>
        <source>Temperature is currently %1. Tarvik pauses while macOS reports thermal throttling, and resumes once it cools down.</source>
        <translation>Die Temperatur ist derzeit %1. Tarvik pausiert, solange das System wegen Hitze gedrosselt wird, und macht nach dem Abkühlen weiter.</translation>
    </message>
    <message>
        <source>Pause when the Mac gets hot</source>
        <translation>Pausieren, wenn der Computer heiß wird</translation>
    </message>
    <message>
        <source>No internal battery detected — these conditions have no effect.</source>
        <translation>Kein eingebauter Akku gefunden – diese Bedingungen sind wirkungslos.</translation>
    </message>
    <message>
        <source>on AC power</source>
        <translation>am Stromnetz</translation>
    </message>
    <message>
        <source>on battery</source>
        <translation>im Akkubetrieb</translation>
    </message>
    <message>
        <source>Currently %1% • %2</source>
        <translation>Derzeit %1&#xa0;% • %2</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Akku</translation>
    </message>
    <message>
        <source>Plugging in</source>
        <translation>Anschließen ans Stromnetz</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>Hitze</translation>
    </message>
</context>
<context>
    <name>Pressable</name>
    <message>
        <source>Not available</source>
        <translation>Nicht verfügbar</translation>
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
        <translation>Mehr ist nicht zu tun. Wenn Tarvik Ihren Computer wach hält, läuft er jetzt auch bei geschlossenem Deckel weiter. Ausschalten können Sie das in den Einstellungen unter **Bei geschlossenem Deckel weiterlaufen**.</translation>
    </message>
    <message>
        <source>You&apos;re all set</source>
        <translation>Alles bereit</translation>
    </message>
</context>
<context>
    <name>RequestArea</name>
    <message>
        <source>Thanks — we&apos;ll take a look.</source>
        <translation>Danke – wir sehen uns das an.</translation>
    </message>
</context>
<context>
    <name>RequestButtons</name>
    <message>
        <source>Sending…</source>
        <translation>Wird gesendet&#xa0;…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
</context>
<context>
    <name>RequestForm</name>
    <message>
        <source>Agent or app name</source>
        <translation>Name des Agenten oder der App</translation>
    </message>
    <message>
        <source>The command you run it with</source>
        <translation>Der Befehl, mit dem Sie ihn starten</translation>
    </message>
    <message>
        <source>Enter a name first.</source>
        <translation>Geben Sie zuerst einen Namen ein.</translation>
    </message>
</context>
<context>
    <name>RequestInvitation</name>
    <message>
        <source>Missing one?</source>
        <translation>Fehlt einer?</translation>
    </message>
    <message>
        <source>Request it…</source>
        <translation>Anfragen&#xa0;…</translation>
    </message>
</context>
<context>
    <name>RequestProblem</name>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>Diese Installation von Tarvik kann keine Anfragen senden.</translation>
    </message>
</context>
<context>
    <name>RestartAlert</name>
    <message>
        <source>Restart Tarvik to finish connecting to the background helper.</source>
        <translation>Starten Sie Tarvik neu, um die Verbindung zum Hilfsdienst herzustellen.</translation>
    </message>
    <message>
        <source>Background helper enabled</source>
        <translation>Hilfsdienst aktiviert</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>Restart Now</source>
        <translation>Jetzt neu starten</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>SessionChoices</name>
    <message>
        <source>10 minutes</source>
        <translation>10&#xa0;Minuten</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1&#xa0;Stunde</translation>
    </message>
    <message>
        <source>2 hours</source>
        <translation>2&#xa0;Stunden</translation>
    </message>
    <message>
        <source>All day (16 h)</source>
        <translation>Den ganzen Tag (16&#xa0;Std.)</translation>
    </message>
    <message>
        <source>Change session…</source>
        <translation>Dauer ändern&#xa0;…</translation>
    </message>
    <message>
        <source>Keep awake for…</source>
        <translation>Wach halten für&#xa0;…</translation>
    </message>
    <message>
        <source>Cancel timer</source>
        <translation>Timer abbrechen</translation>
    </message>
</context>
<context>
    <name>SessionRow</name>
    <message>
        <source>Opens a menu</source>
        <translation>Öffnet ein Menü</translation>
    </message>
</context>
<context>
    <name>SettingsTabs</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Triggers</source>
        <translation>Auslöser</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Energie</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>Verlauf</translation>
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
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Tarvik Settings</source>
        <translation>Tarvik-Einstellungen</translation>
    </message>
</context>
<context>
    <name>StatusDescription</name>
    <message>
        <source>%1, %2 left, %3</source>
        <translation>%1, noch %2, %3</translation>
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
        <translation>%1, nicht bestätigt</translation>
    </message>
    <message>
        <source>external</source>
        <translation>extern</translation>
    </message>
    <message>
        <source>battery</source>
        <translation>Akku</translation>
    </message>
    <message>
        <source>%1, battery at %2 %</source>
        <translation>%1, Akku bei %2&#xa0;%</translation>
    </message>
    <message>
        <source>%1 (too hot to be kept awake)</source>
        <translation>%1 (zu heiß, um wach gehalten zu werden)</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>Aktiv</translation>
    </message>
    <message>
        <source>Leases</source>
        <translation>Leases</translation>
    </message>
    <message>
        <source>Session</source>
        <translation>Sitzung</translation>
    </message>
    <message>
        <source>until %1</source>
        <translation>bis %1</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>Sperren</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Strom</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>Hitze</translation>
    </message>
    <message>
        <source>Lid</source>
        <translation>Deckel</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>geschlossen</translation>
    </message>
    <message>
        <source>Lock key</source>
        <translation>Sperrtaste</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>Infobereich</translation>
    </message>
    <message>
        <source>shown</source>
        <translation>sichtbar</translation>
    </message>
    <message>
        <source>not shown: no panel offers a place</source>
        <translation>nicht sichtbar: keine Leiste bietet einen Platz</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>Ein Update ist installiert. Tarvik startet neu, sobald die Arbeit beendet ist und seine Fenster geschlossen sind.</translation>
    </message>
</context>
<context>
    <name>StatusHeader</name>
    <message>
        <source>F1 says why</source>
        <translation>F1 sagt warum</translation>
    </message>
</context>
<context>
    <name>StatusText</name>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message numerus="yes">
        <source>%n agent</source>
        <translation>
            <numerusform>%n&#xa0;Agent</numerusform>
            <numerusform>%n&#xa0;Agenten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n agents</source>
        <translation>
            <numerusform>%n&#xa0;Agent</numerusform>
            <numerusform>%n&#xa0;Agenten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n app</source>
        <translation>
            <numerusform>%n&#xa0;App</numerusform>
            <numerusform>%n&#xa0;Apps</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n apps</source>
        <translation>
            <numerusform>%n&#xa0;App</numerusform>
            <numerusform>%n&#xa0;Apps</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message numerus="yes">
        <source>%n min left</source>
        <translation>
            <numerusform>noch&#xa0;%n&#xa0;min</numerusform>
            <numerusform>noch&#xa0;%n&#xa0;min</numerusform>
        </translation>
    </message>
    <message>
        <source>charging %1%</source>
        <translation>lädt, %1&#xa0;%</translation>
    </message>
    <message>
        <source>on battery %1%</source>
        <translation>Akku %1&#xa0;%</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Pausiert</translation>
    </message>
    <message>
        <source>Awake</source>
        <translation>Wach</translation>
    </message>
    <message>
        <source>Watching</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Dozing — nothing to watch</source>
        <translation>Ruht – nichts zu beobachten</translation>
    </message>
    <message>
        <source>Awake — %1</source>
        <translation>Wach – %1</translation>
    </message>
    <message>
        <source>Awake — timed</source>
        <translation>Wach – mit Timer</translation>
    </message>
    <message>
        <source>Awake · %1</source>
        <translation>Wach · %1</translation>
    </message>
    <message>
        <source>Not watching</source>
        <translation>Keine Beobachtung</translation>
    </message>
    <message numerus="yes">
        <source>%1 +%n more</source>
        <translation>
            <numerusform>%1 +%n weiterer</numerusform>
            <numerusform>%1 +%n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Timed session</source>
        <translation>Timer läuft</translation>
    </message>
    <message>
        <source>Nothing running to keep awake for</source>
        <translation>Nichts läuft, das Wachhalten erfordert</translation>
    </message>
    <message>
        <source>running %1</source>
        <translation>Temperatur %1</translation>
    </message>
    <message>
        <source>lid closed</source>
        <translation>Deckel geschlossen</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normal</translation>
    </message>
    <message>
        <source>warm</source>
        <translation>erhöht</translation>
    </message>
    <message>
        <source>hot</source>
        <translation>hoch</translation>
    </message>
    <message>
        <source>very hot</source>
        <translation>sehr hoch</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
</context>
<context>
    <name>SystemdHelperService</name>
    <message>
        <source>There is no pkexec, which would ask for an administrator’s password. An administrator can run %1 instead.</source>
        <translation>Es gibt kein pkexec, das nach einem Administratorpasswort fragen würde. Ein Administrator kann stattdessen %1 ausführen.</translation>
    </message>
</context>
<context>
    <name>TarvikApp</name>
    <message>
        <source>The windows of Tarvik are not installed</source>
        <translation>Die Fenster von Tarvik sind nicht installiert</translation>
    </message>
    <message>
        <source>They are in the package “tarvik”.</source>
        <translation>Sie sind im Paket „tarvik“.</translation>
    </message>
</context>
<context>
    <name>TerminalText</name>
    <message>
        <source>%1 s</source>
        <translation>%1&#xa0;s</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1&#xa0;min</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1&#xa0;h %2&#xa0;min</translation>
    </message>
</context>
<context>
    <name>Texts</name>
    <message numerus="yes">
        <source>%n year ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Jahr</numerusform>
            <numerusform>vor %n&#xa0;Jahren</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n years ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Jahr</numerusform>
            <numerusform>vor %n&#xa0;Jahren</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n month ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Monat</numerusform>
            <numerusform>vor %n&#xa0;Monaten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n months ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Monat</numerusform>
            <numerusform>vor %n&#xa0;Monaten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n week ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Woche</numerusform>
            <numerusform>vor %n&#xa0;Wochen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n weeks ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Woche</numerusform>
            <numerusform>vor %n&#xa0;Wochen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n day ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Tag</numerusform>
            <numerusform>vor %n&#xa0;Tagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Tag</numerusform>
            <numerusform>vor %n&#xa0;Tagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hour ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Stunde</numerusform>
            <numerusform>vor %n&#xa0;Stunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hours ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Stunde</numerusform>
            <numerusform>vor %n&#xa0;Stunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minute ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Minute</numerusform>
            <numerusform>vor %n&#xa0;Minuten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Minute</numerusform>
            <numerusform>vor %n&#xa0;Minuten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n second ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Sekunde</numerusform>
            <numerusform>vor %n&#xa0;Sekunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n seconds ago</source>
        <translation>
            <numerusform>vor %n&#xa0;Sekunde</numerusform>
            <numerusform>vor %n&#xa0;Sekunden</numerusform>
        </translation>
    </message>
    <message>
        <source>Last checked %1</source>
        <translation>Letzte Suche %1</translation>
    </message>
    <message>
        <source>Not checked yet.</source>
        <translation>Noch nicht gesucht.</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>gerade eben</translation>
    </message>
    <message>
        <source>No event yet. %1 sends the first one with your next prompt.</source>
        <translation>Noch kein Ereignis. %1 sendet das erste mit Ihrer nächsten Eingabe.</translation>
    </message>
    <message>
        <source>No event yet. %1 reads its hooks when it starts: restart sessions that are already running.</source>
        <translation>Noch kein Ereignis. %1 liest Hooks beim Start: Starten Sie bereits laufende Sitzungen neu.</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 and approve the hooks when it asks: it skips them until you do.</source>
        <translation>Noch kein Ereignis. Starten Sie %1 neu und erlauben Sie die Hooks auf Nachfrage: Bis dahin überspringt es sie.</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 in a folder that you have told it to trust: it skips hooks elsewhere.</source>
        <translation>Noch kein Ereignis. Starten Sie %1 in einem Ordner neu, dem es vertraut: Anderswo überspringt es Hooks.</translation>
    </message>
    <message>
        <source>Last event %1</source>
        <translation>Letztes Ereignis %1</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message numerus="yes">
        <source>%n h ago</source>
        <translation>
            <numerusform>vor %n&#xa0;h</numerusform>
            <numerusform>vor %n&#xa0;h</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n min ago</source>
        <translation>
            <numerusform>vor %n&#xa0;min</numerusform>
            <numerusform>vor %n&#xa0;min</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrayPresenter</name>
    <message>
        <source>Open Tarvik…</source>
        <translation>Tarvik öffnen&#xa0;…</translation>
    </message>
    <message>
        <source>Lock &amp; leave</source>
        <translation>Sperren und gehen</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen&#xa0;…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>Tarvik beenden</translation>
    </message>
</context>
<context>
    <name>TriggersTab</name>
    <message>
        <source>Coding agents</source>
        <translation>Coding-Agenten</translation>
    </message>
    <message>
        <source>Keep the Mac awake while any of %1 known coding agents is running.</source>
        <translation>Den Computer wach halten, solange einer von %1 bekannten Coding-Agenten läuft.</translation>
    </message>
    <message>
        <source>Watch coding agents</source>
        <translation>Coding-Agenten beobachten</translation>
    </message>
    <message>
        <source>Cursor, Zed, Warp and friends run their agent inside the editor, so Tarvik can only tell that the app is open — not that it&apos;s working. Your Mac stays awake for as long as the editor is running.</source>
        <translation>Bei Cursor, Zed, Warp und Co. läuft der Agent im Editor; Tarvik sieht daher nur, dass die App geöffnet ist, nicht, ob sie arbeitet. Ihr Computer bleibt wach, solange der Editor läuft.</translation>
    </message>
    <message>
        <source>Keep awake while an AI editor is open</source>
        <translation>Wach halten, solange ein KI-Editor offen ist</translation>
    </message>
</context>
<context>
    <name>UpdatesTab</name>
    <message>
        <source>Automatically check for updates</source>
        <translation>Automatisch nach Updates suchen</translation>
    </message>
    <message>
        <source>Automatically download and install updates</source>
        <translation>Updates automatisch herunterladen und installieren</translation>
    </message>
    <message>
        <source>Tarvik %1</source>
        <translation>Tarvik %1</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Nach Updates suchen&#xa0;…</translation>
    </message>
    <message>
        <source>This copy is updated together with the other packages of this computer.</source>
        <translation>Diese Installation wird mit den übrigen Paketen dieses Computers aktualisiert.</translation>
    </message>
    <message>
        <source>This copy was built from source. To update it, build a newer version.</source>
        <translation>Diese Installation wurde aus dem Quelltext gebaut. Bauen Sie zum Aktualisieren eine neuere Version.</translation>
    </message>
    <message>
        <source>This copy does not come from a package. To update it, install a newer version in its place.</source>
        <translation>Diese Installation stammt nicht aus einem Paket. Installieren Sie zum Aktualisieren eine neuere Version an ihrer Stelle.</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>Ein Update ist installiert. Tarvik startet neu, sobald die Arbeit beendet ist und seine Fenster geschlossen sind.</translation>
    </message>
</context>
<context>
    <name>WelcomePage</name>
    <message>
        <source>Keep working, lid closed</source>
        <translation>Weiterarbeiten bei geschlossenem Deckel</translation>
    </message>
    <message>
        <source>Let agents, builds, and downloads keep running after you shut the lid.</source>
        <translation>Agenten, Builds und Downloads laufen weiter, auch wenn Sie den Deckel schließen.</translation>
    </message>
    <message>
        <source>macOS normally sleeps the moment you close the lid. Tarvik can override that — but it needs to install a small background helper first.</source>
        <translation>Normalerweise geht ein Laptop beim Schließen des Deckels sofort in den Ruhezustand. Tarvik kann das verhindern – dafür muss zuerst ein kleiner Hilfsdienst installiert werden.</translation>
    </message>
</context>
<context>
    <name>WhyDescription</name>
    <message>
        <source>sleep when idle</source>
        <translation>Schlaf bei Untätigkeit</translation>
    </message>
    <message>
        <source>displays off when idle</source>
        <translation>Abschalten der Bildschirme bei Untätigkeit</translation>
    </message>
    <message>
        <source>every sleep</source>
        <translation>jeden Schlaf</translation>
    </message>
    <message>
        <source>sleep when the lid is closed</source>
        <translation>Schlaf bei geschlossenem Deckel</translation>
    </message>
    <message>
        <source>nothing on this desktop</source>
        <translation>nichts auf diesem Desktop</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1, not confirmed</source>
        <translation>%1, nicht bestätigt</translation>
    </message>
    <message>
        <source>%1, without effect on this desktop</source>
        <translation>%1, auf diesem Desktop ohne Wirkung</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
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
        <translation>%1, letztes Ereignis %2</translation>
    </message>
    <message>
        <source>%1, no event yet</source>
        <translation>%1, noch kein Ereignis</translation>
    </message>
    <message>
        <source>The computer slept until %1</source>
        <translation>Der Computer schlief bis %1</translation>
    </message>
    <message>
        <source>The computer went to sleep</source>
        <translation>Der Computer ging schlafen</translation>
    </message>
    <message>
        <source>Tarvik: %1</source>
        <translation>Tarvik: %1</translation>
    </message>
    <message>
        <source>Tarvik holds off</source>
        <translation>Tarvik verhindert</translation>
    </message>
    <message>
        <source>Others hold off</source>
        <translation>Andere verhindern</translation>
    </message>
    <message>
        <source>Do not tell</source>
        <translation>Sagen nichts</translation>
    </message>
    <message>
        <source>When idle</source>
        <translation>Bei Untätigkeit</translation>
    </message>
    <message>
        <source>Hooks</source>
        <translation>Hooks</translation>
    </message>
    <message>
        <source>Lately</source>
        <translation>Zuletzt</translation>
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
        <translation>Tarvik hält diesen Computer wach, weil gearbeitet wird: %1.</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1.</source>
        <translation>Tarvik hält diesen Computer für eine Sitzung auf Zeit wach, bis %1.</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1, and because work is going on: %2.</source>
        <translation>Tarvik hält diesen Computer für eine Sitzung auf Zeit wach, bis %1, und weil gearbeitet wird: %2.</translation>
    </message>
    <message>
        <source>Other programs keep this computer awake: %1.</source>
        <translation>Andere Programme halten diesen Computer wach: %1.</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake (%2).</source>
        <translation>%1 hält diesen Computer wach (%2).</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake.</source>
        <translation>%1 hält diesen Computer wach.</translation>
    </message>
    <message>
        <source>what %1 would do when nobody uses it is not known</source>
        <translation>was %1 tut, wenn niemand ihn benutzt, ist nicht bekannt</translation>
    </message>
    <message>
        <source>nothing here is set to put it to sleep</source>
        <translation>nichts ist hier so eingestellt, dass es ihn schlafen legt</translation>
    </message>
    <message>
        <source>what would put it to sleep is not known</source>
        <translation>was ihn schlafen legen würde, ist nicht bekannt</translation>
    </message>
    <message>
        <source>This computer last slept from %1 to %2</source>
        <translation>Dieser Computer hat zuletzt von %1 bis %2 geschlafen</translation>
    </message>
    <message>
        <source>This computer last went to sleep at %1</source>
        <translation>Dieser Computer ging zuletzt um %1 schlafen</translation>
    </message>
    <message>
        <source>Tarvik&apos;s journal has nothing from before that</source>
        <translation>der Verlauf von Tarvik hat nichts aus der Zeit davor</translation>
    </message>
    <message>
        <source>Tarvik was not keeping it awake (since %1: %2)</source>
        <translation>Tarvik hielt ihn nicht wach (seit %1: %2)</translation>
    </message>
    <message>
        <source>whether Tarvik was running then is not known (its last word before was at %1: %2)</source>
        <translation>ob Tarvik damals lief, ist nicht bekannt (sein letzter Eintrag davor war um %1: %2)</translation>
    </message>
    <message>
        <source>Tarvik was keeping it awake (since %1: %2), and what put it to sleep all the same is not known</source>
        <translation>Tarvik hielt ihn wach (seit %1: %2), und was ihn trotzdem schlafen legte, ist nicht bekannt</translation>
    </message>
    <message>
        <source>Nothing holds this computer awake</source>
        <translation>Nichts hält diesen Computer wach</translation>
    </message>
    <message>
        <source>Nothing that can be seen holds this computer awake</source>
        <translation>Nichts, was zu sehen wäre, hält diesen Computer wach</translation>
    </message>
    <message>
        <source>Tarvik does not keep it awake (%1).</source>
        <translation>Tarvik hält ihn nicht wach (%1).</translation>
    </message>
    <message>
        <source>Tarvik wants to keep it awake, but none of its locks is known to work here: it may sleep all the same.</source>
        <translation>Tarvik will ihn wach halten, aber von keiner seiner Sperren ist bekannt, dass sie hier wirkt: Er kann trotzdem schlafen gehen.</translation>
    </message>
    <message>
        <source>It would stay awake without Tarvik, too, because of %1.</source>
        <translation>Er bliebe auch ohne Tarvik wach, wegen %1.</translation>
    </message>
    <message>
        <source>Nothing here is set to put it to sleep anyway.</source>
        <translation>Ohnehin ist hier nichts so eingestellt, dass es ihn schlafen legt.</translation>
    </message>
    <message>
        <source>Its lid is closed, and Tarvik keeps it running all the same.</source>
        <translation>Sein Deckel ist geschlossen, und Tarvik hält ihn trotzdem am Laufen.</translation>
    </message>
    <message>
        <source>When this computer slept last is not known.</source>
        <translation>Wann dieser Computer zuletzt geschlafen hat, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>This computer has not slept since it was started.</source>
        <translation>Dieser Computer hat seit seinem Start nicht geschlafen.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1 does not put it to sleep</source>
        <translation>%1 legt ihn nicht schlafen</translation>
    </message>
    <message>
        <source>%1 puts it to sleep when nobody uses it, but after how long is not known</source>
        <translation>%1 legt ihn schlafen, wenn niemand ihn benutzt, aber nach welcher Zeit, ist nicht bekannt</translation>
    </message>
    <message>
        <source>%1 suspends it after %2 without activity</source>
        <translation>%1 versetzt ihn nach %2 ohne Aktivität in Bereitschaft</translation>
    </message>
    <message>
        <source>%1 hibernates it after %2 without activity</source>
        <translation>%1 versetzt ihn nach %2 ohne Aktivität in den Ruhezustand</translation>
    </message>
    <message>
        <source>%1 shuts it down or logs out after %2 without activity</source>
        <translation>%1 fährt ihn nach %2 ohne Aktivität herunter oder meldet ab</translation>
    </message>
</context>
</TS>
