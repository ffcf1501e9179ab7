<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES">
<context>
    <name>AdministratorProgram</name>
    <message>
        <source>No administrator’s password was given.</source>
        <translation>No se ha introducido ninguna contraseña de administrador.</translation>
    </message>
    <message>
        <source>Nothing in this session can ask for an administrator’s password: no polkit agent is running.</source>
        <translation>Nada en esta sesión puede solicitar una contraseña de administrador: no hay ningún agente de polkit en ejecución.</translation>
    </message>
    <message>
        <source>Only an administrator of this computer may do this.</source>
        <translation>Solo un administrador de este equipo puede hacer esto.</translation>
    </message>
    <message>
        <source>It ended before it was done.</source>
        <translation>La operación terminó antes de completarse.</translation>
    </message>
</context>
<context>
    <name>AgentList</name>
    <message>
        <source>Agents and editors</source>
        <translation>Agentes y editores</translation>
    </message>
</context>
<context>
    <name>AgentListPage</name>
    <message>
        <source>Done</source>
        <translation>Hecho</translation>
    </message>
    <message>
        <source>Agents Tarvik detects</source>
        <translation>Agentes que Tarvik detecta</translation>
    </message>
</context>
<context>
    <name>AgentListRow</name>
    <message>
        <source>Agents and editors</source>
        <translation>Agentes y editores</translation>
    </message>
    <message>
        <source>See everything we detect…</source>
        <translation>Ver todo lo que se detecta…</translation>
    </message>
</context>
<context>
    <name>AgentRequest</name>
    <message>
        <source>Couldn&apos;t send that — try again in a moment.</source>
        <translation>No se ha podido enviar — vuelva a intentarlo en un momento.</translation>
    </message>
    <message>
        <source>You&apos;ve sent a few already — try again tomorrow.</source>
        <translation>Ya ha enviado unas cuantas — vuelva a intentarlo mañana.</translation>
    </message>
    <message>
        <source>Couldn&apos;t reach the server — check your internet connection and try again.</source>
        <translation>No se ha podido contactar con el servidor — compruebe su conexión a Internet y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>The server didn&apos;t answer — try again in a moment.</source>
        <translation>El servidor no ha respondido — vuelva a intentarlo en un momento.</translation>
    </message>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>Esta instalación de Tarvik no puede enviar solicitudes.</translation>
    </message>
</context>
<context>
    <name>AllowedAppRow</name>
    <message>
        <source>Remove %1</source>
        <translation>Quitar %1</translation>
    </message>
</context>
<context>
    <name>AllowedApps</name>
    <message>
        <source>Apps</source>
        <translation>Aplicaciones</translation>
    </message>
    <message>
        <source>No apps added. Keep awake while a chosen app is running.</source>
        <translation>No hay aplicaciones añadidas. Mantiene activo mientras se ejecuta una aplicación elegida.</translation>
    </message>
    <message>
        <source>Add App…</source>
        <translation>Añadir aplicación…</translation>
    </message>
</context>
<context>
    <name>AppList</name>
    <message>
        <source>Installed applications</source>
        <translation>Aplicaciones instaladas</translation>
    </message>
</context>
<context>
    <name>AppRow</name>
    <message>
        <source>%1, already added</source>
        <translation>%1, ya añadida</translation>
    </message>
    <message>
        <source>Already added</source>
        <translation>Ya añadida</translation>
    </message>
</context>
<context>
    <name>AppSearch</name>
    <message>
        <source>Add App</source>
        <translation>Añadir aplicación</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>No such application.</source>
        <translation>No hay ninguna aplicación así.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>Otra…</translation>
    </message>
</context>
<context>
    <name>ApplicationChoice</name>
    <message>
        <source>Open now</source>
        <translation>Abierta ahora</translation>
    </message>
    <message>
        <source>Desktop files</source>
        <translation>Archivos .desktop</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>Añadir aplicación</translation>
    </message>
    <message>
        <source>%1 is not the desktop file of an application that can be started.</source>
        <translation>%1 no es el archivo .desktop de una aplicación que se pueda iniciar.</translation>
    </message>
</context>
<context>
    <name>BackgroundHelper</name>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items.</source>
        <translation>Primero hay que permitir el servicio auxiliar.</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items, then try again.</source>
        <translation>Permita el servicio auxiliar y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>Background helper reinstalled.</source>
        <translation>Servicio auxiliar reinstalado.</translation>
    </message>
</context>
<context>
    <name>BatteryLevelRow</name>
    <message>
        <source>Battery level</source>
        <translation>Nivel de batería</translation>
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
        <translation>el equipo está demasiado caliente</translation>
    </message>
    <message>
        <source>running on battery</source>
        <translation>funcionando con batería</translation>
    </message>
    <message>
        <source>battery %1% is below %2%</source>
        <translation>la batería (%1&#xa0;%) está por debajo del %2&#xa0;%</translation>
    </message>
    <message>
        <source>Paused — Mac is running hot</source>
        <translation>En pausa — equipo demasiado caliente</translation>
    </message>
    <message>
        <source>Paused — on battery</source>
        <translation>En pausa — con batería</translation>
    </message>
    <message>
        <source>Paused — battery %1% &lt; %2%</source>
        <translation>En pausa — batería %1&#xa0;% &lt; %2&#xa0;%</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
</context>
<context>
    <name>DesktopHold</name>
    <message>
        <source>Work is in progress</source>
        <translation>Hay trabajo en curso</translation>
    </message>
</context>
<context>
    <name>DetectedAgents</name>
    <message>
        <source>AI editors (while open)</source>
        <translation>Editores de IA (mientras están abiertos)</translation>
    </message>
    <message>
        <source>Agents</source>
        <translation>Agentes</translation>
    </message>
</context>
<context>
    <name>EnableRow</name>
    <message>
        <source>Off means Tarvik does nothing. On keeps the Mac awake while a coding agent or chosen app is running.</source>
        <translation>Desactivado, Tarvik no hace nada. Activado, mantiene activo el equipo mientras se ejecuta un agente de programación o una aplicación elegida.</translation>
    </message>
</context>
<context>
    <name>FoundAgents</name>
    <message>
        <source>No such agent or editor.</source>
        <translation>No hay ningún agente ni editor con ese nombre.</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>Also keep the display awake</source>
        <translation>Mantener también la pantalla encendida</translation>
    </message>
    <message>
        <source>Launch Tarvik at login</source>
        <translation>Iniciar Tarvik al iniciar sesión</translation>
    </message>
    <message>
        <source>Every change is recorded in the Journal tab either way.</source>
        <translation>En cualquier caso, cada cambio queda anotado en la pestaña «Registro».</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>Notificaciones</translation>
    </message>
    <message>
        <source>Notify every time Tarvik starts or stops</source>
        <translation>Notificar cada vez que Tarvik empieza o se detiene</translation>
    </message>
    <message>
        <source>Notify when paused by battery or heat</source>
        <translation>Notificar las pausas por batería o temperatura</translation>
    </message>
</context>
<context>
    <name>HelperApproval</name>
    <message>
        <source>The background helper is installed, but this computer does not allow it. If its service was masked, this command allows it again:</source>
        <translation>El servicio auxiliar está instalado, pero este equipo no lo permite. Si se enmascaró, esta orden vuelve a permitirlo:</translation>
    </message>
    <message>
        <source>Allow the background helper</source>
        <translation>Permitir el servicio auxiliar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Otherwise ask your administrator to allow you the action “%1”. Tarvik notices when you come back.</source>
        <translation>Si no, pida a su administrador que le permita la acción «%1». Tarvik lo notará cuando vuelva.</translation>
    </message>
</context>
<context>
    <name>HelperErrors</name>
    <message>
        <source>This session is not allowed to switch sleep off.</source>
        <translation>Esta sesión no tiene permiso para desactivar la suspensión.</translation>
    </message>
    <message>
        <source>The background helper is not installed.</source>
        <translation>El servicio auxiliar no está instalado.</translation>
    </message>
    <message>
        <source>There is no connection to the system bus.</source>
        <translation>No hay conexión con el bus del sistema.</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>El servicio auxiliar no responde.</translation>
    </message>
    <message>
        <source>The background helper belongs to another version of Tarvik.</source>
        <translation>El servicio auxiliar pertenece a otra versión de Tarvik.</translation>
    </message>
    <message>
        <source>The administrator of this computer has blocked the background helper.</source>
        <translation>El administrador de este equipo ha bloqueado el servicio auxiliar.</translation>
    </message>
    <message>
        <source>The background helper does not work: %1</source>
        <translation>El servicio auxiliar no funciona: %1</translation>
    </message>
    <message>
        <source>The background helper has ended unexpectedly.</source>
        <translation>El servicio auxiliar ha terminado inesperadamente.</translation>
    </message>
</context>
<context>
    <name>HelperManager</name>
    <message>
        <source>No helper connection</source>
        <translation>Sin conexión con el servicio auxiliar</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>El servicio auxiliar no responde.</translation>
    </message>
</context>
<context>
    <name>HelperPage</name>
    <message>
        <source>Skip the password prompts</source>
        <translation>Sin pedir la contraseña</translation>
    </message>
    <message>
        <source>Install a small background helper so turning lid-closed mode on and off never asks for your admin password — and a safety watchdog can restore normal sleep if Tarvik ever quits or crashes.</source>
        <translation>Instale un pequeño servicio auxiliar para que activar o desactivar el modo de tapa cerrada nunca pida su contraseña de administrador, y para que la suspensión normal se restablezca si Tarvik se cierra o falla.</translation>
    </message>
    <message>
        <source>Optional — Tarvik still works without it; it&apos;ll just ask for your password each time you toggle.</source>
        <translation>Opcional: Tarvik también funciona sin él, pero pedirá su contraseña en cada cambio.</translation>
    </message>
</context>
<context>
    <name>HelperRow</name>
    <message>
        <source>Background helper active — toggles no longer ask for your password.</source>
        <translation>Servicio auxiliar activo: los cambios ya no piden su contraseña.</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items to finish setup.</source>
        <translation>Permita el servicio auxiliar para terminar la configuración.</translation>
    </message>
    <message>
        <source>Install a background helper so toggling never asks for your admin password. Restored automatically when keep-awake ends or Tarvik quits.</source>
        <translation>Instale un servicio auxiliar para que los cambios nunca pidan su contraseña de administrador. La suspensión normal se restablece sola cuando el equipo ya no se mantiene activo o Tarvik se cierra.</translation>
    </message>
    <message>
        <source>Reinstall helper…</source>
        <translation>Reinstalar el servicio…</translation>
    </message>
    <message>
        <source>Open Login Items…</source>
        <translation>Permitir el servicio…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>Instalar el servicio auxiliar…</translation>
    </message>
</context>
<context>
    <name>HelperStatus</name>
    <message>
        <source>Background helper installed and active.</source>
        <translation>Servicio auxiliar instalado y activo.</translation>
    </message>
    <message>
        <source>Approve Tarvik under System Settings ▸ Login Items, then come back here.</source>
        <translation>Permita el servicio auxiliar y vuelva aquí.</translation>
    </message>
    <message>
        <source>Open Login Items to approve…</source>
        <translation>Permitir el servicio…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>Instalar el servicio auxiliar…</translation>
    </message>
</context>
<context>
    <name>HookRow</name>
    <message>
        <source>Couldn&apos;t write ~/%1. If you&apos;ve edited it by hand, check it&apos;s valid JSON — Tarvik won&apos;t overwrite a file it can&apos;t read.</source>
        <translation>No se pudo escribir ~/%1. Si lo ha editado a mano, compruebe que es JSON válido: Tarvik no sobrescribe un archivo que no puede leer.</translation>
    </message>
    <message>
        <source>How hooks of %1 work</source>
        <translation>Cómo funcionan los hooks de %1</translation>
    </message>
</context>
<context>
    <name>HookSetupList</name>
    <message>
        <source>Hooks tell Tarvik when an agent starts and finishes a turn, so an agent sitting idle at its prompt lets the Mac sleep. Turning one on adds a Tarvik entry to that agent&apos;s config file and nothing else — and Tarvik stops watching for that agent&apos;s process, since its turns are the better signal. Turning it off removes the entry and restores process detection.</source>
        <translation>Con los hooks, Tarvik sabe cuándo un agente empieza y termina un turno, de modo que un agente que espera una entrada deja que el equipo se suspenda. Activar uno solo añade una entrada de Tarvik al archivo de configuración del agente, y Tarvik deja de vigilar su proceso, porque los turnos son mejor señal. Desactivarlo quita la entrada y restablece la detección del proceso.</translation>
    </message>
    <message>
        <source>Lifecycle hooks</source>
        <translation>Hooks de ciclo de vida</translation>
    </message>
</context>
<context>
    <name>HotKeys</name>
    <message>
        <source>pending</source>
        <translation>pendiente</translation>
    </message>
    <message>
        <source>registered</source>
        <translation>registrada</translation>
    </message>
    <message>
        <source>taken by another program</source>
        <translation>en uso por otro programa</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>no disponible</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>Switched on — plugged in</source>
        <translation>Activado — conectado a la corriente</translation>
    </message>
    <message>
        <source>Keeping awake</source>
        <translation>Manteniendo activo</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Detenido</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pausa</translation>
    </message>
    <message>
        <source>Resumed</source>
        <translation>Reanudado</translation>
    </message>
</context>
<context>
    <name>JournalButtons</name>
    <message>
        <source>Copied</source>
        <translation>Copiado</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Borrar</translation>
    </message>
</context>
<context>
    <name>JournalList</name>
    <message>
        <source>Journal</source>
        <translation>Registro</translation>
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
        <translation>Nada todavía. Tarvik anota cada vez que empieza, se detiene o se pausa.</translation>
    </message>
</context>
<context>
    <name>LidClosedMode</name>
    <message>
        <source>The background helper didn’t respond.</source>
        <translation>El servicio auxiliar no respondió.</translation>
    </message>
</context>
<context>
    <name>LidClosedSection</name>
    <message>
        <source>This computer has no lid — these settings have no effect.</source>
        <translation>Este equipo no tiene tapa: estos ajustes no tienen efecto.</translation>
    </message>
    <message>
        <source>Lid closed</source>
        <translation>Tapa cerrada</translation>
    </message>
    <message>
        <source>Keep running with the lid closed</source>
        <translation>Seguir funcionando con la tapa cerrada</translation>
    </message>
    <message>
        <source>Turn the screen off when the lid closes</source>
        <translation>Apagar la pantalla al cerrar la tapa</translation>
    </message>
</context>
<context>
    <name>LockScreen</name>
    <message>
        <source>Tarvik could not lock the screen</source>
        <translation>Tarvik no pudo bloquear la pantalla</translation>
    </message>
</context>
<context>
    <name>LockShortcut</name>
    <message>
        <source>Lock the screen</source>
        <translation>Bloquear la pantalla</translation>
    </message>
</context>
<context>
    <name>Notifications</name>
    <message>
        <source>Tarvik is keeping your Mac awake</source>
        <translation>Tarvik mantiene activo su equipo</translation>
    </message>
    <message>
        <source>Tarvik stopped keeping your Mac awake</source>
        <translation>Tarvik ya no mantiene activo su equipo</translation>
    </message>
    <message>
        <source>Tarvik paused</source>
        <translation>Tarvik está en pausa</translation>
    </message>
</context>
<context>
    <name>OnboardingPage</name>
    <message>
        <source>Step %1 of %2. %3</source>
        <translation>Paso %1 de %2. %3</translation>
    </message>
</context>
<context>
    <name>OnboardingView</name>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuar</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Hecho</translation>
    </message>
</context>
<context>
    <name>OnboardingWindow</name>
    <message>
        <source>Set up lid-closed mode</source>
        <translation>Configurar el modo de tapa cerrada</translation>
    </message>
</context>
<context>
    <name>PanelContent</name>
    <message>
        <source>Lock &amp; leave</source>
        <translation>Bloquear e irse</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Ajustes…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>Salir de Tarvik</translation>
    </message>
</context>
<context>
    <name>PowerTab</name>
    <message>
        <source>Only keep awake while on AC power</source>
        <translation>Mantener activo solo con corriente</translation>
    </message>
    <message>
        <source>Stop keeping awake below a battery level</source>
        <translation>Dejar de mantener activo con batería baja</translation>
    </message>
    <message>
        <source>Connecting power switches Tarvik on. Unplugging leaves it on, so turning it off by hand always sticks.</source>
        <translation>Al conectar la corriente, Tarvik se activa. Al desconectarla sigue activado; si lo desactiva a mano, así se queda.</translation>
    </message>
    <message>
        <source>Turn Tarvik on when plugged in</source>
        <translation>Activar Tarvik al conectar la corriente</translation>
    </message>
    <message>
        <source>Temperature is currently %1. Tarvik pauses while macOS reports thermal throttling, and resumes once it cools down.</source>
        <translation>La temperatura es ahora %1. Tarvik se pausa mientras el sistema reduce el rendimiento por calor y continúa cuando se enfría.</translation>
    </message>
    <message>
        <source>Pause when the Mac gets hot</source>
        <translation>Pausar si el equipo se calienta</translation>
    </message>
    <message>
        <source>No internal battery detected — these conditions have no effect.</source>
        <translation>No se ha detectado ninguna batería interna: estas condiciones no tienen efecto.</translation>
    </message>
    <message>
        <source>on AC power</source>
        <translation>con corriente</translation>
    </message>
    <message>
        <source>on battery</source>
        <translation>con batería</translation>
    </message>
    <message>
        <source>Currently %1% • %2</source>
        <translation>Ahora %1&#xa0;% • %2</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Batería</translation>
    </message>
    <message>
        <source>Plugging in</source>
        <translation>Conexión a la corriente</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>Calor</translation>
    </message>
</context>
<context>
    <name>Pressable</name>
    <message>
        <source>Not available</source>
        <translation>No disponible</translation>
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
        <translation>No hay nada más que hacer. Cuando Tarvik mantiene activo su equipo, ahora sigue funcionando con la tapa cerrada. Puede desactivarlo en los ajustes, en **Seguir funcionando con la tapa cerrada**.</translation>
    </message>
    <message>
        <source>You&apos;re all set</source>
        <translation>Todo listo</translation>
    </message>
</context>
<context>
    <name>RequestArea</name>
    <message>
        <source>Thanks — we&apos;ll take a look.</source>
        <translation>Gracias — le echaremos un vistazo.</translation>
    </message>
</context>
<context>
    <name>RequestButtons</name>
    <message>
        <source>Sending…</source>
        <translation>Enviando…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Enviar</translation>
    </message>
</context>
<context>
    <name>RequestForm</name>
    <message>
        <source>Agent or app name</source>
        <translation>Nombre del agente o la aplicación</translation>
    </message>
    <message>
        <source>The command you run it with</source>
        <translation>La orden con la que lo ejecuta</translation>
    </message>
    <message>
        <source>Enter a name first.</source>
        <translation>Introduzca primero un nombre.</translation>
    </message>
</context>
<context>
    <name>RequestInvitation</name>
    <message>
        <source>Missing one?</source>
        <translation>¿Falta alguno?</translation>
    </message>
    <message>
        <source>Request it…</source>
        <translation>Solicitarlo…</translation>
    </message>
</context>
<context>
    <name>RequestProblem</name>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>Esta instalación de Tarvik no puede enviar solicitudes.</translation>
    </message>
</context>
<context>
    <name>RestartAlert</name>
    <message>
        <source>Restart Tarvik to finish connecting to the background helper.</source>
        <translation>Reinicie Tarvik para terminar de conectar con el servicio auxiliar.</translation>
    </message>
    <message>
        <source>Background helper enabled</source>
        <translation>Servicio auxiliar activado</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Más tarde</translation>
    </message>
    <message>
        <source>Restart Now</source>
        <translation>Reiniciar ahora</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
</context>
<context>
    <name>SessionChoices</name>
    <message>
        <source>10 minutes</source>
        <translation>10&#xa0;minutos</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1&#xa0;hora</translation>
    </message>
    <message>
        <source>2 hours</source>
        <translation>2&#xa0;horas</translation>
    </message>
    <message>
        <source>All day (16 h)</source>
        <translation>Todo el día (16&#xa0;h)</translation>
    </message>
    <message>
        <source>Change session…</source>
        <translation>Cambiar la duración…</translation>
    </message>
    <message>
        <source>Keep awake for…</source>
        <translation>Mantener activo durante…</translation>
    </message>
    <message>
        <source>Cancel timer</source>
        <translation>Cancelar temporizador</translation>
    </message>
</context>
<context>
    <name>SessionRow</name>
    <message>
        <source>Opens a menu</source>
        <translation>Abre un menú</translation>
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
        <translation>Activadores</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Energía</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>Registro</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>Actualizaciones</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Tarvik Settings</source>
        <translation>Ajustes de Tarvik</translation>
    </message>
</context>
<context>
    <name>StatusDescription</name>
    <message>
        <source>%1, %2 left, %3</source>
        <translation>%1, quedan %2, %3</translation>
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
        <translation>%1, sin confirmar</translation>
    </message>
    <message>
        <source>external</source>
        <translation>externa</translation>
    </message>
    <message>
        <source>battery</source>
        <translation>batería</translation>
    </message>
    <message>
        <source>%1, battery at %2 %</source>
        <translation>%1, batería al %2&#xa0;%</translation>
    </message>
    <message>
        <source>%1 (too hot to be kept awake)</source>
        <translation>%1 (demasiado caliente para seguir activo)</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>Ahora</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>En curso</translation>
    </message>
    <message>
        <source>Leases</source>
        <translation>Concesiones</translation>
    </message>
    <message>
        <source>Session</source>
        <translation>Sesión</translation>
    </message>
    <message>
        <source>until %1</source>
        <translation>hasta las %1</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>Bloqueos</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Alimentación</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>Calor</translation>
    </message>
    <message>
        <source>Lid</source>
        <translation>Tapa</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>cerrada</translation>
    </message>
    <message>
        <source>Lock key</source>
        <translation>Tecla de bloqueo</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>Bandeja</translation>
    </message>
    <message>
        <source>shown</source>
        <translation>visible</translation>
    </message>
    <message>
        <source>not shown: no panel offers a place</source>
        <translation>no visible: ningún panel ofrece un sitio</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Versión</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>Hay una actualización instalada. Tarvik se reiniciará cuando termine el trabajo y se cierren sus ventanas.</translation>
    </message>
</context>
<context>
    <name>StatusHeader</name>
    <message>
        <source>F1 says why</source>
        <translation>F1 explica el motivo</translation>
    </message>
</context>
<context>
    <name>StatusText</name>
    <message>
        <source>Off</source>
        <translation>Desactivado</translation>
    </message>
    <message numerus="yes">
        <source>%n agent</source>
        <translation>
            <numerusform>%n&#xa0;agente</numerusform>
            <numerusform>%n&#xa0;agentes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n agents</source>
        <translation>
            <numerusform>%n&#xa0;agente</numerusform>
            <numerusform>%n&#xa0;agentes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n app</source>
        <translation>
            <numerusform>%n&#xa0;aplicación</numerusform>
            <numerusform>%n&#xa0;aplicaciones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n apps</source>
        <translation>
            <numerusform>%n&#xa0;aplicación</numerusform>
            <numerusform>%n&#xa0;aplicaciones</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message numerus="yes">
        <source>%n min left</source>
        <translation>
            <numerusform>queda&#xa0;%n&#xa0;min</numerusform>
            <numerusform>quedan&#xa0;%n&#xa0;min</numerusform>
        </translation>
    </message>
    <message>
        <source>charging %1%</source>
        <translation>cargando, %1&#xa0;%</translation>
    </message>
    <message>
        <source>on battery %1%</source>
        <translation>batería %1&#xa0;%</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pausa</translation>
    </message>
    <message>
        <source>Awake</source>
        <translation>Activo</translation>
    </message>
    <message>
        <source>Watching</source>
        <translation>Vigilando</translation>
    </message>
    <message>
        <source>Dozing — nothing to watch</source>
        <translation>En reposo — nada que vigilar</translation>
    </message>
    <message>
        <source>Awake — %1</source>
        <translation>Activo — %1</translation>
    </message>
    <message>
        <source>Awake — timed</source>
        <translation>Activo — con temporizador</translation>
    </message>
    <message>
        <source>Awake · %1</source>
        <translation>Activo · %1</translation>
    </message>
    <message>
        <source>Not watching</source>
        <translation>Sin vigilar</translation>
    </message>
    <message numerus="yes">
        <source>%1 +%n more</source>
        <translation>
            <numerusform>%1 y %n más</numerusform>
            <numerusform>%1 y %n más</numerusform>
        </translation>
    </message>
    <message>
        <source>Timed session</source>
        <translation>Temporizador en marcha</translation>
    </message>
    <message>
        <source>Nothing running to keep awake for</source>
        <translation>Nada en ejecución que lo requiera</translation>
    </message>
    <message>
        <source>running %1</source>
        <translation>temperatura %1</translation>
    </message>
    <message>
        <source>lid closed</source>
        <translation>tapa cerrada</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normal</translation>
    </message>
    <message>
        <source>warm</source>
        <translation>algo alta</translation>
    </message>
    <message>
        <source>hot</source>
        <translation>alta</translation>
    </message>
    <message>
        <source>very hot</source>
        <translation>muy alta</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>desconocida</translation>
    </message>
</context>
<context>
    <name>SystemdHelperService</name>
    <message>
        <source>There is no pkexec, which would ask for an administrator’s password. An administrator can run %1 instead.</source>
        <translation>Falta pkexec, que pediría una contraseña de administrador. En su lugar, un administrador puede ejecutar %1.</translation>
    </message>
</context>
<context>
    <name>TarvikApp</name>
    <message>
        <source>The windows of Tarvik are not installed</source>
        <translation>Las ventanas de Tarvik no están instaladas</translation>
    </message>
    <message>
        <source>They are in the package “tarvik”.</source>
        <translation>Están en el paquete «tarvik».</translation>
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
            <numerusform>hace %n&#xa0;año</numerusform>
            <numerusform>hace %n&#xa0;años</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n years ago</source>
        <translation>
            <numerusform>hace %n&#xa0;año</numerusform>
            <numerusform>hace %n&#xa0;años</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n month ago</source>
        <translation>
            <numerusform>hace %n&#xa0;mes</numerusform>
            <numerusform>hace %n&#xa0;meses</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n months ago</source>
        <translation>
            <numerusform>hace %n&#xa0;mes</numerusform>
            <numerusform>hace %n&#xa0;meses</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n week ago</source>
        <translation>
            <numerusform>hace %n&#xa0;semana</numerusform>
            <numerusform>hace %n&#xa0;semanas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n weeks ago</source>
        <translation>
            <numerusform>hace %n&#xa0;semana</numerusform>
            <numerusform>hace %n&#xa0;semanas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n day ago</source>
        <translation>
            <numerusform>hace %n&#xa0;día</numerusform>
            <numerusform>hace %n&#xa0;días</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days ago</source>
        <translation>
            <numerusform>hace %n&#xa0;día</numerusform>
            <numerusform>hace %n&#xa0;días</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hour ago</source>
        <translation>
            <numerusform>hace %n&#xa0;hora</numerusform>
            <numerusform>hace %n&#xa0;horas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hours ago</source>
        <translation>
            <numerusform>hace %n&#xa0;hora</numerusform>
            <numerusform>hace %n&#xa0;horas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minute ago</source>
        <translation>
            <numerusform>hace %n&#xa0;minuto</numerusform>
            <numerusform>hace %n&#xa0;minutos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes ago</source>
        <translation>
            <numerusform>hace %n&#xa0;minuto</numerusform>
            <numerusform>hace %n&#xa0;minutos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n second ago</source>
        <translation>
            <numerusform>hace %n&#xa0;segundo</numerusform>
            <numerusform>hace %n&#xa0;segundos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n seconds ago</source>
        <translation>
            <numerusform>hace %n&#xa0;segundo</numerusform>
            <numerusform>hace %n&#xa0;segundos</numerusform>
        </translation>
    </message>
    <message>
        <source>Last checked %1</source>
        <translation>Última búsqueda %1</translation>
    </message>
    <message>
        <source>Not checked yet.</source>
        <translation>Aún no se ha buscado.</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>ahora mismo</translation>
    </message>
    <message>
        <source>No event yet. %1 sends the first one with your next prompt.</source>
        <translation>Aún no hay eventos. %1 enviará el primero con su próxima petición.</translation>
    </message>
    <message>
        <source>No event yet. %1 reads its hooks when it starts: restart sessions that are already running.</source>
        <translation>Aún no hay eventos. %1 lee sus hooks al iniciarse: reinicie las sesiones que ya estén en marcha.</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 and approve the hooks when it asks: it skips them until you do.</source>
        <translation>Aún no hay eventos. Reinicie %1 y apruebe los hooks cuando lo pida: hasta entonces los omite.</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 in a folder that you have told it to trust: it skips hooks elsewhere.</source>
        <translation>Aún no hay eventos. Reinicie %1 en una carpeta de confianza: en las demás omite los hooks.</translation>
    </message>
    <message>
        <source>Last event %1</source>
        <translation>Último evento %1</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Hoy</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Ayer</translation>
    </message>
    <message numerus="yes">
        <source>%n h ago</source>
        <translation>
            <numerusform>hace %n&#xa0;h</numerusform>
            <numerusform>hace %n&#xa0;h</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n min ago</source>
        <translation>
            <numerusform>hace %n&#xa0;min</numerusform>
            <numerusform>hace %n&#xa0;min</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrayPresenter</name>
    <message>
        <source>Open Tarvik…</source>
        <translation>Abrir Tarvik…</translation>
    </message>
    <message>
        <source>Lock &amp; leave</source>
        <translation>Bloquear e irse</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Ajustes…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>Salir de Tarvik</translation>
    </message>
</context>
<context>
    <name>TriggersTab</name>
    <message>
        <source>Coding agents</source>
        <translation>Agentes de programación</translation>
    </message>
    <message>
        <source>Keep the Mac awake while any of %1 known coding agents is running.</source>
        <translation>Mantiene activo el equipo mientras se ejecuta alguno de los %1 agentes de programación conocidos.</translation>
    </message>
    <message>
        <source>Watch coding agents</source>
        <translation>Vigilar agentes de programación</translation>
    </message>
    <message>
        <source>Cursor, Zed, Warp and friends run their agent inside the editor, so Tarvik can only tell that the app is open — not that it&apos;s working. Your Mac stays awake for as long as the editor is running.</source>
        <translation>Cursor, Zed, Warp y similares ejecutan su agente dentro del editor, así que Tarvik solo sabe que la aplicación está abierta, no si trabaja. Su equipo sigue activo mientras el editor esté en ejecución.</translation>
    </message>
    <message>
        <source>Keep awake while an AI editor is open</source>
        <translation>Mantener activo con un editor de IA abierto</translation>
    </message>
</context>
<context>
    <name>UpdatesTab</name>
    <message>
        <source>Automatically check for updates</source>
        <translation>Buscar actualizaciones automáticamente</translation>
    </message>
    <message>
        <source>Automatically download and install updates</source>
        <translation>Descargar e instalar automáticamente</translation>
    </message>
    <message>
        <source>Tarvik %1</source>
        <translation>Tarvik %1</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>Buscar actualizaciones…</translation>
    </message>
    <message>
        <source>This copy is updated together with the other packages of this computer.</source>
        <translation>Esta instalación se actualiza junto con los demás paquetes de este equipo.</translation>
    </message>
    <message>
        <source>This copy was built from source. To update it, build a newer version.</source>
        <translation>Esta instalación se compiló a partir del código fuente. Para actualizarla, compile una versión más reciente.</translation>
    </message>
    <message>
        <source>This copy does not come from a package. To update it, install a newer version in its place.</source>
        <translation>Esta instalación no procede de un paquete. Para actualizarla, instale una versión más reciente en su lugar.</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>Hay una actualización instalada. Tarvik se reiniciará cuando termine el trabajo y se cierren sus ventanas.</translation>
    </message>
</context>
<context>
    <name>WelcomePage</name>
    <message>
        <source>Keep working, lid closed</source>
        <translation>Seguir con la tapa cerrada</translation>
    </message>
    <message>
        <source>Let agents, builds, and downloads keep running after you shut the lid.</source>
        <translation>Deje que agentes, compilaciones y descargas continúen después de cerrar la tapa.</translation>
    </message>
    <message>
        <source>macOS normally sleeps the moment you close the lid. Tarvik can override that — but it needs to install a small background helper first.</source>
        <translation>Normalmente, un portátil se suspende en cuanto cierra la tapa. Tarvik puede evitarlo, pero antes tiene que instalar un pequeño servicio auxiliar.</translation>
    </message>
</context>
<context>
    <name>WhyDescription</name>
    <message>
        <source>sleep when idle</source>
        <translation>la suspensión por inactividad</translation>
    </message>
    <message>
        <source>displays off when idle</source>
        <translation>el apagado de las pantallas por inactividad</translation>
    </message>
    <message>
        <source>every sleep</source>
        <translation>toda suspensión</translation>
    </message>
    <message>
        <source>sleep when the lid is closed</source>
        <translation>la suspensión al cerrar la tapa</translation>
    </message>
    <message>
        <source>nothing on this desktop</source>
        <translation>nada en este escritorio</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>%1, not confirmed</source>
        <translation>%1, sin confirmar</translation>
    </message>
    <message>
        <source>%1, without effect on this desktop</source>
        <translation>%1, sin efecto en este escritorio</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nada</translation>
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
        <translation>%1, último evento %2</translation>
    </message>
    <message>
        <source>%1, no event yet</source>
        <translation>%1, ningún evento aún</translation>
    </message>
    <message>
        <source>The computer slept until %1</source>
        <translation>El equipo estuvo suspendido hasta las %1</translation>
    </message>
    <message>
        <source>The computer went to sleep</source>
        <translation>El equipo se suspendió</translation>
    </message>
    <message>
        <source>Tarvik: %1</source>
        <translation>Tarvik: %1</translation>
    </message>
    <message>
        <source>Tarvik holds off</source>
        <translation>Tarvik impide</translation>
    </message>
    <message>
        <source>Others hold off</source>
        <translation>Otros impiden</translation>
    </message>
    <message>
        <source>Do not tell</source>
        <translation>No lo dicen</translation>
    </message>
    <message>
        <source>When idle</source>
        <translation>En inactividad</translation>
    </message>
    <message>
        <source>Hooks</source>
        <translation>Hooks</translation>
    </message>
    <message>
        <source>Lately</source>
        <translation>Últimamente</translation>
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
        <translation>Tarvik mantiene activo este equipo porque hay trabajo en curso: %1.</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1.</source>
        <translation>Tarvik mantiene activo este equipo durante una sesión temporizada, hasta las %1.</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1, and because work is going on: %2.</source>
        <translation>Tarvik mantiene activo este equipo durante una sesión temporizada, hasta las %1, y porque hay trabajo en curso: %2.</translation>
    </message>
    <message>
        <source>Other programs keep this computer awake: %1.</source>
        <translation>Otros programas mantienen activo este equipo: %1.</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake (%2).</source>
        <translation>%1 mantiene activo este equipo (%2).</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake.</source>
        <translation>%1 mantiene activo este equipo.</translation>
    </message>
    <message>
        <source>what %1 would do when nobody uses it is not known</source>
        <translation>no se sabe qué haría %1 cuando nadie lo usa</translation>
    </message>
    <message>
        <source>nothing here is set to put it to sleep</source>
        <translation>nada está configurado aquí para suspenderlo</translation>
    </message>
    <message>
        <source>what would put it to sleep is not known</source>
        <translation>no se sabe qué lo suspendería</translation>
    </message>
    <message>
        <source>This computer last slept from %1 to %2</source>
        <translation>Este equipo estuvo suspendido por última vez de %1 a %2</translation>
    </message>
    <message>
        <source>This computer last went to sleep at %1</source>
        <translation>Este equipo se suspendió por última vez a las %1</translation>
    </message>
    <message>
        <source>Tarvik&apos;s journal has nothing from before that</source>
        <translation>el registro de Tarvik no tiene nada anterior</translation>
    </message>
    <message>
        <source>Tarvik was not keeping it awake (since %1: %2)</source>
        <translation>Tarvik no lo mantenía activo (desde %1: %2)</translation>
    </message>
    <message>
        <source>whether Tarvik was running then is not known (its last word before was at %1: %2)</source>
        <translation>no se sabe si Tarvik estaba en marcha entonces (su última entrada anterior fue a las %1: %2)</translation>
    </message>
    <message>
        <source>Tarvik was keeping it awake (since %1: %2), and what put it to sleep all the same is not known</source>
        <translation>Tarvik lo mantenía activo (desde %1: %2), y no se sabe qué lo suspendió a pesar de ello</translation>
    </message>
    <message>
        <source>Nothing holds this computer awake</source>
        <translation>Nada mantiene activo este equipo</translation>
    </message>
    <message>
        <source>Nothing that can be seen holds this computer awake</source>
        <translation>Nada que pueda verse mantiene activo este equipo</translation>
    </message>
    <message>
        <source>Tarvik does not keep it awake (%1).</source>
        <translation>Tarvik no lo mantiene activo (%1).</translation>
    </message>
    <message>
        <source>Tarvik wants to keep it awake, but none of its locks is known to work here: it may sleep all the same.</source>
        <translation>Tarvik quiere mantenerlo activo, pero no consta que ninguno de sus bloqueos funcione aquí: puede suspenderse de todos modos.</translation>
    </message>
    <message>
        <source>It would stay awake without Tarvik, too, because of %1.</source>
        <translation>También seguiría activo sin Tarvik, debido a %1.</translation>
    </message>
    <message>
        <source>Nothing here is set to put it to sleep anyway.</source>
        <translation>De todos modos, nada está configurado aquí para suspenderlo.</translation>
    </message>
    <message>
        <source>Its lid is closed, and Tarvik keeps it running all the same.</source>
        <translation>Su tapa está cerrada, y Tarvik lo mantiene en marcha de todos modos.</translation>
    </message>
    <message>
        <source>When this computer slept last is not known.</source>
        <translation>No se sabe cuándo estuvo suspendido este equipo por última vez.</translation>
    </message>
    <message>
        <source>This computer has not slept since it was started.</source>
        <translation>Este equipo no se ha suspendido desde que se encendió.</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1 does not put it to sleep</source>
        <translation>%1 no lo suspende</translation>
    </message>
    <message>
        <source>%1 puts it to sleep when nobody uses it, but after how long is not known</source>
        <translation>%1 lo suspende cuando nadie lo usa, pero no se sabe al cabo de cuánto tiempo</translation>
    </message>
    <message>
        <source>%1 suspends it after %2 without activity</source>
        <translation>%1 lo suspende tras %2 sin actividad</translation>
    </message>
    <message>
        <source>%1 hibernates it after %2 without activity</source>
        <translation>%1 lo hiberna tras %2 sin actividad</translation>
    </message>
    <message>
        <source>%1 shuts it down or logs out after %2 without activity</source>
        <translation>%1 lo apaga o cierra la sesión tras %2 sin actividad</translation>
    </message>
</context>
</TS>
