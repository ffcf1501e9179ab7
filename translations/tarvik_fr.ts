<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>AdministratorProgram</name>
    <message>
        <source>No administrator’s password was given.</source>
        <translation>Aucun mot de passe administrateur n’a été saisi.</translation>
    </message>
    <message>
        <source>Nothing in this session can ask for an administrator’s password: no polkit agent is running.</source>
        <translation>Rien dans cette session ne peut demander le mot de passe d’un administrateur&#xa0;: aucun agent polkit n’est en cours d’exécution.</translation>
    </message>
    <message>
        <source>Only an administrator of this computer may do this.</source>
        <translation>Seul un administrateur de cet ordinateur peut faire cela.</translation>
    </message>
    <message>
        <source>It ended before it was done.</source>
        <translation>L’opération s’est interrompue avant la fin.</translation>
    </message>
</context>
<context>
    <name>AgentList</name>
    <message>
        <source>Agents and editors</source>
        <translation>Agents et éditeurs</translation>
    </message>
</context>
<context>
    <name>AgentListPage</name>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Agents Tarvik detects</source>
        <translation>Agents détectés par Tarvik</translation>
    </message>
</context>
<context>
    <name>AgentListRow</name>
    <message>
        <source>Agents and editors</source>
        <translation>Agents et éditeurs</translation>
    </message>
    <message>
        <source>See everything we detect…</source>
        <translation>Voir tout ce qui est détecté…</translation>
    </message>
</context>
<context>
    <name>AgentRequest</name>
    <message>
        <source>Couldn&apos;t send that — try again in a moment.</source>
        <translation>L’envoi a échoué – réessayez dans un instant.</translation>
    </message>
    <message>
        <source>You&apos;ve sent a few already — try again tomorrow.</source>
        <translation>Vous en avez déjà envoyé quelques-unes – réessayez demain.</translation>
    </message>
    <message>
        <source>Couldn&apos;t reach the server — check your internet connection and try again.</source>
        <translation>Impossible de joindre le serveur – vérifiez votre connexion à Internet et réessayez.</translation>
    </message>
    <message>
        <source>The server didn&apos;t answer — try again in a moment.</source>
        <translation>Le serveur n’a pas répondu – réessayez dans un instant.</translation>
    </message>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>Cette installation de Tarvik ne peut pas envoyer de demandes.</translation>
    </message>
</context>
<context>
    <name>AllowedAppRow</name>
    <message>
        <source>Remove %1</source>
        <translation>Supprimer %1</translation>
    </message>
</context>
<context>
    <name>AllowedApps</name>
    <message>
        <source>Apps</source>
        <translation>Applications</translation>
    </message>
    <message>
        <source>No apps added. Keep awake while a chosen app is running.</source>
        <translation>Aucune application ajoutée. Reste actif tant qu’une application choisie est en cours d’exécution.</translation>
    </message>
    <message>
        <source>Add App…</source>
        <translation>Ajouter une application…</translation>
    </message>
</context>
<context>
    <name>AppList</name>
    <message>
        <source>Installed applications</source>
        <translation>Applications installées</translation>
    </message>
</context>
<context>
    <name>AppRow</name>
    <message>
        <source>%1, already added</source>
        <translation>%1, déjà ajoutée</translation>
    </message>
    <message>
        <source>Already added</source>
        <translation>Déjà ajoutée</translation>
    </message>
</context>
<context>
    <name>AppSearch</name>
    <message>
        <source>Add App</source>
        <translation>Ajouter une application</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>No such application.</source>
        <translation>Aucune application correspondante.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Autre…</translation>
    </message>
</context>
<context>
    <name>ApplicationChoice</name>
    <message>
        <source>Open now</source>
        <translation>Ouverte en ce moment</translation>
    </message>
    <message>
        <source>Desktop files</source>
        <translation>Fichiers .desktop</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>Ajouter une application</translation>
    </message>
    <message>
        <source>%1 is not the desktop file of an application that can be started.</source>
        <translation>%1 n’est pas le fichier .desktop d’une application pouvant être lancée.</translation>
    </message>
</context>
<context>
    <name>BackgroundHelper</name>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items.</source>
        <translation>Le service auxiliaire doit d’abord être autorisé.</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items, then try again.</source>
        <translation>Autorisez le service auxiliaire, puis réessayez.</translation>
    </message>
    <message>
        <source>Background helper reinstalled.</source>
        <translation>Service auxiliaire réinstallé.</translation>
    </message>
</context>
<context>
    <name>BatteryLevelRow</name>
    <message>
        <source>Battery level</source>
        <translation>Niveau de la batterie</translation>
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
        <translation>l’ordinateur chauffe</translation>
    </message>
    <message>
        <source>running on battery</source>
        <translation>fonctionne sur batterie</translation>
    </message>
    <message>
        <source>battery %1% is below %2%</source>
        <translation>batterie à %1&#xa0;%, sous %2&#xa0;%</translation>
    </message>
    <message>
        <source>Paused — Mac is running hot</source>
        <translation>En pause – l’ordinateur chauffe</translation>
    </message>
    <message>
        <source>Paused — on battery</source>
        <translation>En pause – sur batterie</translation>
    </message>
    <message>
        <source>Paused — battery %1% &lt; %2%</source>
        <translation>En pause – batterie %1&#xa0;% &lt; %2&#xa0;%</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
</context>
<context>
    <name>DesktopHold</name>
    <message>
        <source>Work is in progress</source>
        <translation>Un travail est en cours</translation>
    </message>
</context>
<context>
    <name>DetectedAgents</name>
    <message>
        <source>AI editors (while open)</source>
        <translation>Éditeurs IA (tant qu’ils sont ouverts)</translation>
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
        <translation>Désactivé, Tarvik ne fait rien. Activé, il maintient l’ordinateur actif tant qu’un agent de programmation ou une application choisie est en cours d’exécution.</translation>
    </message>
</context>
<context>
    <name>FoundAgents</name>
    <message>
        <source>No such agent or editor.</source>
        <translation>Aucun agent ni éditeur correspondant.</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>Also keep the display awake</source>
        <translation>Garder aussi l’écran allumé</translation>
    </message>
    <message>
        <source>Launch Tarvik at login</source>
        <translation>Lancer Tarvik à l’ouverture de session</translation>
    </message>
    <message>
        <source>Every change is recorded in the Journal tab either way.</source>
        <translation>Dans tous les cas, chaque changement est consigné dans l’onglet «&#xa0;Journal&#xa0;».</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Notifications</translation>
    </message>
    <message>
        <source>Notify every time Tarvik starts or stops</source>
        <translation>Notifier chaque fois que Tarvik commence ou s’arrête</translation>
    </message>
    <message>
        <source>Notify when paused by battery or heat</source>
        <translation>Notifier les pauses dues à la batterie ou à la chaleur</translation>
    </message>
</context>
<context>
    <name>HelperApproval</name>
    <message>
        <source>The background helper is installed, but this computer does not allow it. If its service was masked, this command allows it again:</source>
        <translation>Le service auxiliaire est installé, mais cet ordinateur ne l’autorise pas. S’il a été masqué, cette commande l’autorise à nouveau&#xa0;:</translation>
    </message>
    <message>
        <source>Allow the background helper</source>
        <translation>Autoriser le service auxiliaire</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Otherwise ask your administrator to allow you the action “%1”. Tarvik notices when you come back.</source>
        <translation>Sinon, demandez à votre administrateur de vous autoriser l’action «&#xa0;%1&#xa0;». Tarvik le remarquera à votre retour.</translation>
    </message>
</context>
<context>
    <name>HelperErrors</name>
    <message>
        <source>This session is not allowed to switch sleep off.</source>
        <translation>Cette session n’est pas autorisée à désactiver la mise en veille.</translation>
    </message>
    <message>
        <source>The background helper is not installed.</source>
        <translation>Le service auxiliaire n’est pas installé.</translation>
    </message>
    <message>
        <source>There is no connection to the system bus.</source>
        <translation>Aucune connexion au bus système.</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>Le service auxiliaire ne répond pas.</translation>
    </message>
    <message>
        <source>The background helper belongs to another version of Tarvik.</source>
        <translation>Le service auxiliaire appartient à une autre version de Tarvik.</translation>
    </message>
    <message>
        <source>The administrator of this computer has blocked the background helper.</source>
        <translation>L’administrateur de cet ordinateur a bloqué le service auxiliaire.</translation>
    </message>
    <message>
        <source>The background helper does not work: %1</source>
        <translation>Le service auxiliaire ne fonctionne pas&#xa0;: %1</translation>
    </message>
    <message>
        <source>The background helper has ended unexpectedly.</source>
        <translation>Le service auxiliaire s’est arrêté de façon inattendue.</translation>
    </message>
</context>
<context>
    <name>HelperManager</name>
    <message>
        <source>No helper connection</source>
        <translation>Pas de connexion au service auxiliaire</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>Le service auxiliaire ne répond pas.</translation>
    </message>
</context>
<context>
    <name>HelperPage</name>
    <message>
        <source>Skip the password prompts</source>
        <translation>Plus de mots de passe à saisir</translation>
    </message>
    <message>
        <source>Install a small background helper so turning lid-closed mode on and off never asks for your admin password — and a safety watchdog can restore normal sleep if Tarvik ever quits or crashes.</source>
        <translation>Installez un petit service auxiliaire pour que l’activation du mode capot fermé ne demande jamais votre mot de passe administrateur, et pour que la mise en veille normale soit rétablie si Tarvik se ferme ou plante.</translation>
    </message>
    <message>
        <source>Optional — Tarvik still works without it; it&apos;ll just ask for your password each time you toggle.</source>
        <translation>Facultatif – Tarvik fonctionne aussi sans lui, mais demande alors votre mot de passe à chaque changement.</translation>
    </message>
</context>
<context>
    <name>HelperRow</name>
    <message>
        <source>Background helper active — toggles no longer ask for your password.</source>
        <translation>Service auxiliaire actif – les changements ne demandent plus votre mot de passe.</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items to finish setup.</source>
        <translation>Autorisez le service auxiliaire pour terminer la configuration.</translation>
    </message>
    <message>
        <source>Install a background helper so toggling never asks for your admin password. Restored automatically when keep-awake ends or Tarvik quits.</source>
        <translation>Installez un service auxiliaire pour que les changements ne demandent jamais votre mot de passe administrateur. La mise en veille normale revient d’elle-même quand le maintien actif se termine ou que Tarvik se ferme.</translation>
    </message>
    <message>
        <source>Reinstall helper…</source>
        <translation>Réinstaller le service…</translation>
    </message>
    <message>
        <source>Open Login Items…</source>
        <translation>Autoriser le service…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>Installer le service auxiliaire…</translation>
    </message>
</context>
<context>
    <name>HelperStatus</name>
    <message>
        <source>Background helper installed and active.</source>
        <translation>Service auxiliaire installé et actif.</translation>
    </message>
    <message>
        <source>Approve Tarvik under System Settings ▸ Login Items, then come back here.</source>
        <translation>Autorisez le service auxiliaire, puis revenez ici.</translation>
    </message>
    <message>
        <source>Open Login Items to approve…</source>
        <translation>Autoriser le service…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>Installer le service auxiliaire…</translation>
    </message>
</context>
<context>
    <name>HookRow</name>
    <message>
        <source>Couldn&apos;t write ~/%1. If you&apos;ve edited it by hand, check it&apos;s valid JSON — Tarvik won&apos;t overwrite a file it can&apos;t read.</source>
        <translation>Impossible d’écrire ~/%1. Si vous l’avez modifié à la main, vérifiez que c’est du JSON valide&#xa0;: Tarvik n’écrase pas un fichier qu’il ne peut pas lire.</translation>
    </message>
    <message>
        <source>How hooks of %1 work</source>
        <translation>Fonctionnement des hooks de %1</translation>
    </message>
</context>
<context>
    <name>HookSetupList</name>
    <message>
        <source>Hooks tell Tarvik when an agent starts and finishes a turn, so an agent sitting idle at its prompt lets the Mac sleep. Turning one on adds a Tarvik entry to that agent&apos;s config file and nothing else — and Tarvik stops watching for that agent&apos;s process, since its turns are the better signal. Turning it off removes the entry and restores process detection.</source>
        <translation>Grâce aux hooks, Tarvik sait quand un agent commence et termine un tour&#xa0;: un agent qui attend une saisie laisse donc l’ordinateur se mettre en veille. En activer un ajoute seulement une entrée Tarvik au fichier de configuration de l’agent, et Tarvik ne surveille plus son processus, car les tours sont un meilleur signal. Le désactiver retire l’entrée et rétablit la détection du processus.</translation>
    </message>
    <message>
        <source>Lifecycle hooks</source>
        <translation>Hooks de cycle de vie</translation>
    </message>
</context>
<context>
    <name>HotKeys</name>
    <message>
        <source>pending</source>
        <translation>en attente</translation>
    </message>
    <message>
        <source>registered</source>
        <translation>enregistré</translation>
    </message>
    <message>
        <source>taken by another program</source>
        <translation>pris par un autre programme</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>non disponible</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>Switched on — plugged in</source>
        <translation>Activé – branché au secteur</translation>
    </message>
    <message>
        <source>Keeping awake</source>
        <translation>Maintien actif</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Arrêté</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pause</translation>
    </message>
    <message>
        <source>Resumed</source>
        <translation>Reprise</translation>
    </message>
</context>
<context>
    <name>JournalButtons</name>
    <message>
        <source>Copied</source>
        <translation>Copié</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
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
        <translation>Rien pour l’instant. Tarvik consigne chaque début, chaque arrêt et chaque pause.</translation>
    </message>
</context>
<context>
    <name>LidClosedMode</name>
    <message>
        <source>The background helper didn’t respond.</source>
        <translation>Le service auxiliaire n’a pas répondu.</translation>
    </message>
</context>
<context>
    <name>LidClosedSection</name>
    <message>
        <source>This computer has no lid — these settings have no effect.</source>
        <translation>Cet ordinateur n’a pas de capot&#xa0;: ces réglages sont sans effet.</translation>
    </message>
    <message>
        <source>Lid closed</source>
        <translation>Capot fermé</translation>
    </message>
    <message>
        <source>Keep running with the lid closed</source>
        <translation>Continuer avec le capot fermé</translation>
    </message>
    <message>
        <source>Turn the screen off when the lid closes</source>
        <translation>Éteindre l’écran à la fermeture du capot</translation>
    </message>
</context>
<context>
    <name>LockScreen</name>
    <message>
        <source>Tarvik could not lock the screen</source>
        <translation>Tarvik n’a pas pu verrouiller l’écran</translation>
    </message>
</context>
<context>
    <name>LockShortcut</name>
    <message>
        <source>Lock the screen</source>
        <translation>Verrouiller l’écran</translation>
    </message>
</context>
<context>
    <name>Notifications</name>
    <message>
        <source>Tarvik is keeping your Mac awake</source>
        <translation>Tarvik maintient votre ordinateur actif</translation>
    </message>
    <message>
        <source>Tarvik stopped keeping your Mac awake</source>
        <translation>Tarvik ne maintient plus votre ordinateur actif</translation>
    </message>
    <message>
        <source>Tarvik paused</source>
        <translation>Tarvik est en pause</translation>
    </message>
</context>
<context>
    <name>OnboardingPage</name>
    <message>
        <source>Step %1 of %2. %3</source>
        <translation>Étape %1 sur %2. %3</translation>
    </message>
</context>
<context>
    <name>OnboardingView</name>
    <message>
        <source>Back</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
</context>
<context>
    <name>OnboardingWindow</name>
    <message>
        <source>Set up lid-closed mode</source>
        <translation>Configurer le mode capot fermé</translation>
    </message>
</context>
<context>
    <name>PanelContent</name>
    <message>
        <source>Lock &amp; leave</source>
        <translation>Verrouiller et partir</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Paramètres…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>Quitter Tarvik</translation>
    </message>
</context>
<context>
    <name>PowerTab</name>
    <message>
        <source>Only keep awake while on AC power</source>
        <translation>Rester actif uniquement sur secteur</translation>
    </message>
    <message>
        <source>Stop keeping awake below a battery level</source>
        <translation>S’arrêter sous un niveau de batterie</translation>
    </message>
    <message>
        <source>Connecting power switches Tarvik on. Unplugging leaves it on, so turning it off by hand always sticks.</source>
        <translation>Le branchement au secteur active Tarvik. Le débranchement le laisse activé&#xa0;; désactivé à la main, il le reste.</translation>
    </message>
    <message>
        <source>Turn Tarvik on when plugged in</source>
        <translation>Activer Tarvik au branchement</translation>
    </message>
    <message>
        <source>Temperature is currently %1. Tarvik pauses while macOS reports thermal throttling, and resumes once it cools down.</source>
        <translation>La température est actuellement %1. Tarvik se met en pause quand le système ralentit à cause de la chaleur, et reprend une fois refroidi.</translation>
    </message>
    <message>
        <source>Pause when the Mac gets hot</source>
        <translation>Mettre en pause si l’ordinateur chauffe</translation>
    </message>
    <message>
        <source>No internal battery detected — these conditions have no effect.</source>
        <translation>Aucune batterie interne détectée&#xa0;: ces conditions sont sans effet.</translation>
    </message>
    <message>
        <source>on AC power</source>
        <translation>sur secteur</translation>
    </message>
    <message>
        <source>on battery</source>
        <translation>sur batterie</translation>
    </message>
    <message>
        <source>Currently %1% • %2</source>
        <translation>Actuellement %1&#xa0;% • %2</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Batterie</translation>
    </message>
    <message>
        <source>Plugging in</source>
        <translation>Branchement sur secteur</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>Chaleur</translation>
    </message>
</context>
<context>
    <name>Pressable</name>
    <message>
        <source>Not available</source>
        <translation>Non disponible</translation>
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
        <translation>Rien d’autre à faire. Quand Tarvik maintient votre ordinateur actif, il continue désormais avec le capot fermé. Pour l’éviter, désactivez **Continuer avec le capot fermé** dans les paramètres.</translation>
    </message>
    <message>
        <source>You&apos;re all set</source>
        <translation>Tout est prêt</translation>
    </message>
</context>
<context>
    <name>RequestArea</name>
    <message>
        <source>Thanks — we&apos;ll take a look.</source>
        <translation>Merci – nous allons y jeter un œil.</translation>
    </message>
</context>
<context>
    <name>RequestButtons</name>
    <message>
        <source>Sending…</source>
        <translation>Envoi…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Envoyer</translation>
    </message>
</context>
<context>
    <name>RequestForm</name>
    <message>
        <source>Agent or app name</source>
        <translation>Nom de l’agent ou de l’application</translation>
    </message>
    <message>
        <source>The command you run it with</source>
        <translation>La commande qui le lance</translation>
    </message>
    <message>
        <source>Enter a name first.</source>
        <translation>Saisissez d’abord un nom.</translation>
    </message>
</context>
<context>
    <name>RequestInvitation</name>
    <message>
        <source>Missing one?</source>
        <translation>Il en manque un&#xa0;?</translation>
    </message>
    <message>
        <source>Request it…</source>
        <translation>Le demander…</translation>
    </message>
</context>
<context>
    <name>RequestProblem</name>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>Cette installation de Tarvik ne peut pas envoyer de demandes.</translation>
    </message>
</context>
<context>
    <name>RestartAlert</name>
    <message>
        <source>Restart Tarvik to finish connecting to the background helper.</source>
        <translation>Redémarrez Tarvik pour terminer la connexion au service auxiliaire.</translation>
    </message>
    <message>
        <source>Background helper enabled</source>
        <translation>Service auxiliaire activé</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Plus tard</translation>
    </message>
    <message>
        <source>Restart Now</source>
        <translation>Redémarrer maintenant</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
</context>
<context>
    <name>SessionChoices</name>
    <message>
        <source>10 minutes</source>
        <translation>10&#xa0;minutes</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1&#xa0;heure</translation>
    </message>
    <message>
        <source>2 hours</source>
        <translation>2&#xa0;heures</translation>
    </message>
    <message>
        <source>All day (16 h)</source>
        <translation>Toute la journée (16&#xa0;h)</translation>
    </message>
    <message>
        <source>Change session…</source>
        <translation>Modifier la durée…</translation>
    </message>
    <message>
        <source>Keep awake for…</source>
        <translation>Garder actif pendant…</translation>
    </message>
    <message>
        <source>Cancel timer</source>
        <translation>Annuler le minuteur</translation>
    </message>
</context>
<context>
    <name>SessionRow</name>
    <message>
        <source>Opens a menu</source>
        <translation>Ouvre un menu</translation>
    </message>
</context>
<context>
    <name>SettingsTabs</name>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Triggers</source>
        <translation>Déclencheurs</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Énergie</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Mises à jour</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Tarvik Settings</source>
        <translation>Paramètres de Tarvik</translation>
    </message>
</context>
<context>
    <name>StatusDescription</name>
    <message>
        <source>%1, %2 left, %3</source>
        <translation>%1, encore %2, %3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1: %2 (%3)</source>
        <translation>%1&#xa0;: %2 (%3)</translation>
    </message>
    <message>
        <source>%1, not confirmed</source>
        <translation>%1, non confirmé</translation>
    </message>
    <message>
        <source>external</source>
        <translation>externe</translation>
    </message>
    <message>
        <source>battery</source>
        <translation>batterie</translation>
    </message>
    <message>
        <source>%1, battery at %2 %</source>
        <translation>%1, batterie à %2&#xa0;%</translation>
    </message>
    <message>
        <source>%1 (too hot to be kept awake)</source>
        <translation>%1 (trop chaud pour rester actif)</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Maintenant</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>En cours</translation>
    </message>
    <message>
        <source>Leases</source>
        <translation>Baux</translation>
    </message>
    <message>
        <source>Session</source>
        <translation>Session</translation>
    </message>
    <message>
        <source>until %1</source>
        <translation>jusqu’à %1</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>Blocages</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Alimentation</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>Chaleur</translation>
    </message>
    <message>
        <source>Lid</source>
        <translation>Capot</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>fermé</translation>
    </message>
    <message>
        <source>Lock key</source>
        <translation>Verrouillage</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>Zone de notification</translation>
    </message>
    <message>
        <source>shown</source>
        <translation>affiché</translation>
    </message>
    <message>
        <source>not shown: no panel offers a place</source>
        <translation>non affiché&#xa0;: aucun tableau de bord n’offre de place</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>Une mise à jour est installée. Tarvik redémarrera une fois le travail terminé et ses fenêtres fermées.</translation>
    </message>
</context>
<context>
    <name>StatusHeader</name>
    <message>
        <source>F1 says why</source>
        <translation>F1 dit pourquoi</translation>
    </message>
</context>
<context>
    <name>StatusText</name>
    <message>
        <source>Off</source>
        <translation>Désactivé</translation>
    </message>
    <message numerus="yes">
        <source>%n agent</source>
        <translation>
            <numerusform>%n&#xa0;agent</numerusform>
            <numerusform>%n&#xa0;agents</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n agents</source>
        <translation>
            <numerusform>%n&#xa0;agent</numerusform>
            <numerusform>%n&#xa0;agents</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n app</source>
        <translation>
            <numerusform>%n&#xa0;application</numerusform>
            <numerusform>%n&#xa0;applications</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n apps</source>
        <translation>
            <numerusform>%n&#xa0;application</numerusform>
            <numerusform>%n&#xa0;applications</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message numerus="yes">
        <source>%n min left</source>
        <translation>
            <numerusform>encore&#xa0;%n&#xa0;min</numerusform>
            <numerusform>encore&#xa0;%n&#xa0;min</numerusform>
        </translation>
    </message>
    <message>
        <source>charging %1%</source>
        <translation>en charge, %1&#xa0;%</translation>
    </message>
    <message>
        <source>on battery %1%</source>
        <translation>batterie %1&#xa0;%</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pause</translation>
    </message>
    <message>
        <source>Awake</source>
        <translation>Actif</translation>
    </message>
    <message>
        <source>Watching</source>
        <translation>Surveillance</translation>
    </message>
    <message>
        <source>Dozing — nothing to watch</source>
        <translation>Au repos – rien à surveiller</translation>
    </message>
    <message>
        <source>Awake — %1</source>
        <translation>Actif – %1</translation>
    </message>
    <message>
        <source>Awake — timed</source>
        <translation>Actif – avec minuteur</translation>
    </message>
    <message>
        <source>Awake · %1</source>
        <translation>Actif · %1</translation>
    </message>
    <message>
        <source>Not watching</source>
        <translation>Aucune surveillance</translation>
    </message>
    <message numerus="yes">
        <source>%1 +%n more</source>
        <translation>
            <numerusform>%1 +%n autre</numerusform>
            <numerusform>%1 +%n autres</numerusform>
        </translation>
    </message>
    <message>
        <source>Timed session</source>
        <translation>Minuteur en cours</translation>
    </message>
    <message>
        <source>Nothing running to keep awake for</source>
        <translation>Rien ne demande de rester actif</translation>
    </message>
    <message>
        <source>running %1</source>
        <translation>température %1</translation>
    </message>
    <message>
        <source>lid closed</source>
        <translation>capot fermé</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normale</translation>
    </message>
    <message>
        <source>warm</source>
        <translation>modérée</translation>
    </message>
    <message>
        <source>hot</source>
        <translation>élevée</translation>
    </message>
    <message>
        <source>very hot</source>
        <translation>très élevée</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>inconnue</translation>
    </message>
</context>
<context>
    <name>SystemdHelperService</name>
    <message>
        <source>There is no pkexec, which would ask for an administrator’s password. An administrator can run %1 instead.</source>
        <translation>pkexec, qui demanderait un mot de passe administrateur, est absent. Un administrateur peut exécuter %1 à la place.</translation>
    </message>
</context>
<context>
    <name>TarvikApp</name>
    <message>
        <source>The windows of Tarvik are not installed</source>
        <translation>Les fenêtres de Tarvik ne sont pas installées</translation>
    </message>
    <message>
        <source>They are in the package “tarvik”.</source>
        <translation>Elles se trouvent dans le paquet «&#xa0;tarvik&#xa0;».</translation>
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
            <numerusform>il y a %n&#xa0;an</numerusform>
            <numerusform>il y a %n&#xa0;ans</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n years ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;an</numerusform>
            <numerusform>il y a %n&#xa0;ans</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n month ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;mois</numerusform>
            <numerusform>il y a %n&#xa0;mois</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n months ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;mois</numerusform>
            <numerusform>il y a %n&#xa0;mois</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n week ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;semaine</numerusform>
            <numerusform>il y a %n&#xa0;semaines</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n weeks ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;semaine</numerusform>
            <numerusform>il y a %n&#xa0;semaines</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n day ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;jour</numerusform>
            <numerusform>il y a %n&#xa0;jours</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;jour</numerusform>
            <numerusform>il y a %n&#xa0;jours</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hour ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;heure</numerusform>
            <numerusform>il y a %n&#xa0;heures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hours ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;heure</numerusform>
            <numerusform>il y a %n&#xa0;heures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minute ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;minute</numerusform>
            <numerusform>il y a %n&#xa0;minutes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;minute</numerusform>
            <numerusform>il y a %n&#xa0;minutes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n second ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;seconde</numerusform>
            <numerusform>il y a %n&#xa0;secondes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n seconds ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;seconde</numerusform>
            <numerusform>il y a %n&#xa0;secondes</numerusform>
        </translation>
    </message>
    <message>
        <source>Last checked %1</source>
        <translation>Dernière recherche %1</translation>
    </message>
    <message>
        <source>Not checked yet.</source>
        <translation>Aucune recherche pour l’instant.</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>à l’instant</translation>
    </message>
    <message>
        <source>No event yet. %1 sends the first one with your next prompt.</source>
        <translation>Aucun événement pour l’instant. %1 enverra le premier à votre prochaine requête.</translation>
    </message>
    <message>
        <source>No event yet. %1 reads its hooks when it starts: restart sessions that are already running.</source>
        <translation>Aucun événement pour l’instant. %1 lit ses hooks au démarrage&#xa0;: relancez les sessions déjà ouvertes.</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 and approve the hooks when it asks: it skips them until you do.</source>
        <translation>Aucun événement pour l’instant. Relancez %1 et approuvez les hooks quand il le demande&#xa0;: d’ici là, il les ignore.</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 in a folder that you have told it to trust: it skips hooks elsewhere.</source>
        <translation>Aucun événement pour l’instant. Relancez %1 dans un dossier approuvé&#xa0;: ailleurs, il ignore les hooks.</translation>
    </message>
    <message>
        <source>Last event %1</source>
        <translation>Dernier événement %1</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Aujourd’hui</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Hier</translation>
    </message>
    <message numerus="yes">
        <source>%n h ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;h</numerusform>
            <numerusform>il y a %n&#xa0;h</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n min ago</source>
        <translation>
            <numerusform>il y a %n&#xa0;min</numerusform>
            <numerusform>il y a %n&#xa0;min</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrayPresenter</name>
    <message>
        <source>Open Tarvik…</source>
        <translation>Ouvrir Tarvik…</translation>
    </message>
    <message>
        <source>Lock &amp; leave</source>
        <translation>Verrouiller et partir</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Paramètres…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>Quitter Tarvik</translation>
    </message>
</context>
<context>
    <name>TriggersTab</name>
    <message>
        <source>Coding agents</source>
        <translation>Agents de programmation</translation>
    </message>
    <message>
        <source>Keep the Mac awake while any of %1 known coding agents is running.</source>
        <translation>Garde l’ordinateur actif tant qu’un des %1 agents de programmation connus est en cours d’exécution.</translation>
    </message>
    <message>
        <source>Watch coding agents</source>
        <translation>Surveiller les agents de programmation</translation>
    </message>
    <message>
        <source>Cursor, Zed, Warp and friends run their agent inside the editor, so Tarvik can only tell that the app is open — not that it&apos;s working. Your Mac stays awake for as long as the editor is running.</source>
        <translation>Cursor, Zed, Warp et d’autres exécutent leur agent dans l’éditeur&#xa0;: Tarvik voit seulement que l’application est ouverte, pas qu’elle travaille. Votre ordinateur reste actif tant que l’éditeur est ouvert.</translation>
    </message>
    <message>
        <source>Keep awake while an AI editor is open</source>
        <translation>Rester actif si un éditeur d’IA est ouvert</translation>
    </message>
</context>
<context>
    <name>UpdatesTab</name>
    <message>
        <source>Automatically check for updates</source>
        <translation>Rechercher automatiquement les mises à jour</translation>
    </message>
    <message>
        <source>Automatically download and install updates</source>
        <translation>Télécharger et installer automatiquement</translation>
    </message>
    <message>
        <source>Tarvik %1</source>
        <translation>Tarvik %1</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Rechercher les mises à jour…</translation>
    </message>
    <message>
        <source>This copy is updated together with the other packages of this computer.</source>
        <translation>Cette installation est mise à jour avec les autres paquets de cet ordinateur.</translation>
    </message>
    <message>
        <source>This copy was built from source. To update it, build a newer version.</source>
        <translation>Cette installation a été compilée à partir des sources. Pour la mettre à jour, compilez une version plus récente.</translation>
    </message>
    <message>
        <source>This copy does not come from a package. To update it, install a newer version in its place.</source>
        <translation>Cette installation ne provient pas d’un paquet. Pour la mettre à jour, installez une version plus récente à sa place.</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>Une mise à jour est installée. Tarvik redémarrera une fois le travail terminé et ses fenêtres fermées.</translation>
    </message>
</context>
<context>
    <name>WelcomePage</name>
    <message>
        <source>Keep working, lid closed</source>
        <translation>Continuer, capot fermé</translation>
    </message>
    <message>
        <source>Let agents, builds, and downloads keep running after you shut the lid.</source>
        <translation>Laissez les agents, compilations et téléchargements continuer une fois le capot fermé.</translation>
    </message>
    <message>
        <source>macOS normally sleeps the moment you close the lid. Tarvik can override that — but it needs to install a small background helper first.</source>
        <translation>Normalement, un portable se met en veille dès que vous fermez le capot. Tarvik peut l’empêcher, mais doit d’abord installer un petit service auxiliaire.</translation>
    </message>
</context>
<context>
    <name>WhyDescription</name>
    <message>
        <source>sleep when idle</source>
        <translation>la veille en cas d’inactivité</translation>
    </message>
    <message>
        <source>displays off when idle</source>
        <translation>l’extinction des écrans en cas d’inactivité</translation>
    </message>
    <message>
        <source>every sleep</source>
        <translation>toute mise en veille</translation>
    </message>
    <message>
        <source>sleep when the lid is closed</source>
        <translation>la veille à la fermeture du capot</translation>
    </message>
    <message>
        <source>nothing on this desktop</source>
        <translation>rien sur ce bureau</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1, not confirmed</source>
        <translation>%1, non confirmé</translation>
    </message>
    <message>
        <source>%1, without effect on this desktop</source>
        <translation>%1, sans effet sur ce bureau</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>rien</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1: %2: %3</source>
        <translation>%1&#xa0;: %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>%1, last event %2</source>
        <translation>%1, dernier événement %2</translation>
    </message>
    <message>
        <source>%1, no event yet</source>
        <translation>%1, aucun événement</translation>
    </message>
    <message>
        <source>The computer slept until %1</source>
        <translation>L’ordinateur a été en veille jusqu’à %1</translation>
    </message>
    <message>
        <source>The computer went to sleep</source>
        <translation>L’ordinateur s’est mis en veille</translation>
    </message>
    <message>
        <source>Tarvik: %1</source>
        <translation>Tarvik&#xa0;: %1</translation>
    </message>
    <message>
        <source>Tarvik holds off</source>
        <translation>Tarvik empêche</translation>
    </message>
    <message>
        <source>Others hold off</source>
        <translation>D’autres empêchent</translation>
    </message>
    <message>
        <source>Do not tell</source>
        <translation>Ne le disent pas</translation>
    </message>
    <message>
        <source>When idle</source>
        <translation>Si inactif</translation>
    </message>
    <message>
        <source>Hooks</source>
        <translation>Hooks</translation>
    </message>
    <message>
        <source>Lately</source>
        <translation>Dernièrement</translation>
    </message>
</context>
<context>
    <name>WhyText</name>
    <message>
        <source>%1; %2.</source>
        <translation>%1&#xa0;; %2.</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake because work is going on: %1.</source>
        <translation>Tarvik maintient cet ordinateur actif parce qu’un travail est en cours&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1.</source>
        <translation>Tarvik maintient cet ordinateur actif pour une session minutée, jusqu’à %1.</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1, and because work is going on: %2.</source>
        <translation>Tarvik maintient cet ordinateur actif pour une session minutée, jusqu’à %1, et parce qu’un travail est en cours&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Other programs keep this computer awake: %1.</source>
        <translation>D’autres programmes maintiennent cet ordinateur actif&#xa0;: %1.</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake (%2).</source>
        <translation>%1 maintient cet ordinateur actif (%2).</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake.</source>
        <translation>%1 maintient cet ordinateur actif.</translation>
    </message>
    <message>
        <source>what %1 would do when nobody uses it is not known</source>
        <translation>on ne sait pas ce que ferait %1 en cas d’inactivité</translation>
    </message>
    <message>
        <source>nothing here is set to put it to sleep</source>
        <translation>rien n’est réglé ici pour le mettre en veille</translation>
    </message>
    <message>
        <source>what would put it to sleep is not known</source>
        <translation>on ne sait pas ce qui le mettrait en veille</translation>
    </message>
    <message>
        <source>This computer last slept from %1 to %2</source>
        <translation>Cet ordinateur a été en veille pour la dernière fois de %1 à %2</translation>
    </message>
    <message>
        <source>This computer last went to sleep at %1</source>
        <translation>Cet ordinateur s’est mis en veille pour la dernière fois à %1</translation>
    </message>
    <message>
        <source>Tarvik&apos;s journal has nothing from before that</source>
        <translation>le journal de Tarvik n’a rien d’antérieur</translation>
    </message>
    <message>
        <source>Tarvik was not keeping it awake (since %1: %2)</source>
        <translation>Tarvik ne le maintenait pas actif (depuis %1&#xa0;: %2)</translation>
    </message>
    <message>
        <source>whether Tarvik was running then is not known (its last word before was at %1: %2)</source>
        <translation>on ne sait pas si Tarvik fonctionnait alors (sa dernière entrée précédente est de %1&#xa0;: %2)</translation>
    </message>
    <message>
        <source>Tarvik was keeping it awake (since %1: %2), and what put it to sleep all the same is not known</source>
        <translation>Tarvik le maintenait actif (depuis %1&#xa0;: %2), et on ne sait pas ce qui l’a tout de même mis en veille</translation>
    </message>
    <message>
        <source>Nothing holds this computer awake</source>
        <translation>Rien ne maintient cet ordinateur actif</translation>
    </message>
    <message>
        <source>Nothing that can be seen holds this computer awake</source>
        <translation>Rien de visible ne maintient cet ordinateur actif</translation>
    </message>
    <message>
        <source>Tarvik does not keep it awake (%1).</source>
        <translation>Tarvik ne le maintient pas actif (%1).</translation>
    </message>
    <message>
        <source>Tarvik wants to keep it awake, but none of its locks is known to work here: it may sleep all the same.</source>
        <translation>Tarvik veut le maintenir actif, mais aucun de ses blocages n’a d’effet connu ici&#xa0;: il peut tout de même se mettre en veille.</translation>
    </message>
    <message>
        <source>It would stay awake without Tarvik, too, because of %1.</source>
        <translation>Il resterait actif même sans Tarvik, à cause de %1.</translation>
    </message>
    <message>
        <source>Nothing here is set to put it to sleep anyway.</source>
        <translation>De toute façon, rien n’est réglé ici pour le mettre en veille.</translation>
    </message>
    <message>
        <source>Its lid is closed, and Tarvik keeps it running all the same.</source>
        <translation>Son capot est fermé, et Tarvik le maintient tout de même en marche.</translation>
    </message>
    <message>
        <source>When this computer slept last is not known.</source>
        <translation>On ne sait pas quand cet ordinateur a été en veille pour la dernière fois.</translation>
    </message>
    <message>
        <source>This computer has not slept since it was started.</source>
        <translation>Cet ordinateur n’a pas été en veille depuis son démarrage.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1 does not put it to sleep</source>
        <translation>%1 ne le met pas en veille</translation>
    </message>
    <message>
        <source>%1 puts it to sleep when nobody uses it, but after how long is not known</source>
        <translation>%1 le met en veille en cas d’inactivité, mais on ne sait pas au bout de combien de temps</translation>
    </message>
    <message>
        <source>%1 suspends it after %2 without activity</source>
        <translation>%1 le met en veille après %2 d’inactivité</translation>
    </message>
    <message>
        <source>%1 hibernates it after %2 without activity</source>
        <translation>%1 le met en veille prolongée après %2 d’inactivité</translation>
    </message>
    <message>
        <source>%1 shuts it down or logs out after %2 without activity</source>
        <translation>%1 l’éteint ou ferme la session après %2 d’inactivité</translation>
    </message>
</context>
</TS>
