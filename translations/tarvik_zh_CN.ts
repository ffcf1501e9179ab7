<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>AdministratorProgram</name>
    <message>
        <source>No administrator’s password was given.</source>
        <translation>未提供管理员密码。</translation>
    </message>
    <message>
        <source>Nothing in this session can ask for an administrator’s password: no polkit agent is running.</source>
        <translation>此会话无法询问管理员密码：没有正在运行的 polkit 代理。</translation>
    </message>
    <message>
        <source>Only an administrator of this computer may do this.</source>
        <translation>只有此电脑的管理员才能执行此操作。</translation>
    </message>
    <message>
        <source>It ended before it was done.</source>
        <translation>操作在完成前就已结束。</translation>
    </message>
</context>
<context>
    <name>AgentList</name>
    <message>
        <source>Agents and editors</source>
        <translation>智能体和编辑器</translation>
    </message>
</context>
<context>
    <name>AgentListPage</name>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Agents Tarvik detects</source>
        <translation>Tarvik 可检测的智能体</translation>
    </message>
</context>
<context>
    <name>AgentListRow</name>
    <message>
        <source>Agents and editors</source>
        <translation>智能体和编辑器</translation>
    </message>
    <message>
        <source>See everything we detect…</source>
        <translation>查看可检测的全部项目…</translation>
    </message>
</context>
<context>
    <name>AgentRequest</name>
    <message>
        <source>Couldn&apos;t send that — try again in a moment.</source>
        <translation>未能发送 — 请稍后重试。</translation>
    </message>
    <message>
        <source>You&apos;ve sent a few already — try again tomorrow.</source>
        <translation>您已发送过几次 — 请明天再试。</translation>
    </message>
    <message>
        <source>Couldn&apos;t reach the server — check your internet connection and try again.</source>
        <translation>无法连接服务器 — 请检查网络连接后重试。</translation>
    </message>
    <message>
        <source>The server didn&apos;t answer — try again in a moment.</source>
        <translation>服务器没有响应 — 请稍后重试。</translation>
    </message>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>此 Tarvik 副本无法发送请求。</translation>
    </message>
</context>
<context>
    <name>AllowedAppRow</name>
    <message>
        <source>Remove %1</source>
        <translation>移除 %1</translation>
    </message>
</context>
<context>
    <name>AllowedApps</name>
    <message>
        <source>Apps</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>No apps added. Keep awake while a chosen app is running.</source>
        <translation>尚未添加应用。所选应用运行时保持唤醒。</translation>
    </message>
    <message>
        <source>Add App…</source>
        <translation>添加应用…</translation>
    </message>
</context>
<context>
    <name>AppList</name>
    <message>
        <source>Installed applications</source>
        <translation>已安装的应用</translation>
    </message>
</context>
<context>
    <name>AppRow</name>
    <message>
        <source>%1, already added</source>
        <translation>%1，已添加</translation>
    </message>
    <message>
        <source>Already added</source>
        <translation>已添加</translation>
    </message>
</context>
<context>
    <name>AppSearch</name>
    <message>
        <source>Add App</source>
        <translation>添加应用</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>No such application.</source>
        <translation>没有匹配的应用。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>其他…</translation>
    </message>
</context>
<context>
    <name>ApplicationChoice</name>
    <message>
        <source>Open now</source>
        <translation>正在运行</translation>
    </message>
    <message>
        <source>Desktop files</source>
        <translation>桌面文件</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>添加应用</translation>
    </message>
    <message>
        <source>%1 is not the desktop file of an application that can be started.</source>
        <translation>%1 不是可启动应用的桌面文件。</translation>
    </message>
</context>
<context>
    <name>BackgroundHelper</name>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items.</source>
        <translation>需要先允许后台助手。</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items, then try again.</source>
        <translation>请允许后台助手，然后重试。</translation>
    </message>
    <message>
        <source>Background helper reinstalled.</source>
        <translation>已重新安装后台助手。</translation>
    </message>
</context>
<context>
    <name>BatteryLevelRow</name>
    <message>
        <source>Battery level</source>
        <translation>电池电量</translation>
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
        <translation>电脑温度过高</translation>
    </message>
    <message>
        <source>running on battery</source>
        <translation>正在使用电池</translation>
    </message>
    <message>
        <source>battery %1% is below %2%</source>
        <translation>电量 %1% 低于 %2%</translation>
    </message>
    <message>
        <source>Paused — Mac is running hot</source>
        <translation>已暂停 — 电脑温度过高</translation>
    </message>
    <message>
        <source>Paused — on battery</source>
        <translation>已暂停 — 使用电池</translation>
    </message>
    <message>
        <source>Paused — battery %1% &lt; %2%</source>
        <translation>已暂停 — 电量 %1% &lt; %2%</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
</context>
<context>
    <name>DesktopHold</name>
    <message>
        <source>Work is in progress</source>
        <translation>有任务正在进行</translation>
    </message>
</context>
<context>
    <name>DetectedAgents</name>
    <message>
        <source>AI editors (while open)</source>
        <translation>AI 编辑器（打开期间）</translation>
    </message>
    <message>
        <source>Agents</source>
        <translation>智能体</translation>
    </message>
</context>
<context>
    <name>EnableRow</name>
    <message>
        <source>Off means Tarvik does nothing. On keeps the Mac awake while a coding agent or chosen app is running.</source>
        <translation>关闭时，Tarvik 不执行任何操作。开启时，只要编程智能体或所选应用在运行，就让电脑保持唤醒。</translation>
    </message>
</context>
<context>
    <name>FoundAgents</name>
    <message>
        <source>No such agent or editor.</source>
        <translation>没有此智能体或编辑器。</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>Also keep the display awake</source>
        <translation>同时保持显示器开启</translation>
    </message>
    <message>
        <source>Launch Tarvik at login</source>
        <translation>登录时启动 Tarvik</translation>
    </message>
    <message>
        <source>Every change is recorded in the Journal tab either way.</source>
        <translation>无论如何，每次变化都会记录在“日志”标签页中。</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>Notify every time Tarvik starts or stops</source>
        <translation>每次 Tarvik 开始或停止时通知</translation>
    </message>
    <message>
        <source>Notify when paused by battery or heat</source>
        <translation>因电量或温度暂停时通知</translation>
    </message>
</context>
<context>
    <name>HelperApproval</name>
    <message>
        <source>The background helper is installed, but this computer does not allow it. If its service was masked, this command allows it again:</source>
        <translation>后台助手已安装，但此电脑不允许它运行。如果它的服务被屏蔽 (mask)，以下命令可重新允许：</translation>
    </message>
    <message>
        <source>Allow the background helper</source>
        <translation>允许后台助手</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Otherwise ask your administrator to allow you the action “%1”. Tarvik notices when you come back.</source>
        <translation>否则，请让管理员允许您执行操作“%1”。您返回时 Tarvik 会察觉到。</translation>
    </message>
</context>
<context>
    <name>HelperErrors</name>
    <message>
        <source>This session is not allowed to switch sleep off.</source>
        <translation>此会话无权关闭睡眠功能。</translation>
    </message>
    <message>
        <source>The background helper is not installed.</source>
        <translation>未安装后台助手。</translation>
    </message>
    <message>
        <source>There is no connection to the system bus.</source>
        <translation>没有到系统总线的连接。</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>后台助手没有响应。</translation>
    </message>
    <message>
        <source>The background helper belongs to another version of Tarvik.</source>
        <translation>后台助手属于另一个版本的 Tarvik。</translation>
    </message>
    <message>
        <source>The administrator of this computer has blocked the background helper.</source>
        <translation>此电脑的管理员已阻止后台助手。</translation>
    </message>
    <message>
        <source>The background helper does not work: %1</source>
        <translation>后台助手无法工作：%1</translation>
    </message>
    <message>
        <source>The background helper has ended unexpectedly.</source>
        <translation>后台助手意外终止。</translation>
    </message>
</context>
<context>
    <name>HelperManager</name>
    <message>
        <source>No helper connection</source>
        <translation>未连接到后台助手</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>后台助手没有响应。</translation>
    </message>
</context>
<context>
    <name>HelperPage</name>
    <message>
        <source>Skip the password prompts</source>
        <translation>省去输入密码的步骤</translation>
    </message>
    <message>
        <source>Install a small background helper so turning lid-closed mode on and off never asks for your admin password — and a safety watchdog can restore normal sleep if Tarvik ever quits or crashes.</source>
        <translation>安装一个小型后台助手后，开启或关闭合盖模式时不再询问管理员密码；如果 Tarvik 退出或崩溃，它还能恢复正常的睡眠功能。</translation>
    </message>
    <message>
        <source>Optional — Tarvik still works without it; it&apos;ll just ask for your password each time you toggle.</source>
        <translation>可选。没有它 Tarvik 也能工作，只是每次切换时都会询问密码。</translation>
    </message>
</context>
<context>
    <name>HelperRow</name>
    <message>
        <source>Background helper active — toggles no longer ask for your password.</source>
        <translation>后台助手已启用，切换时不再询问密码。</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items to finish setup.</source>
        <translation>允许后台助手以完成设置。</translation>
    </message>
    <message>
        <source>Install a background helper so toggling never asks for your admin password. Restored automatically when keep-awake ends or Tarvik quits.</source>
        <translation>安装后台助手后，切换时不再询问管理员密码。保持唤醒结束或 Tarvik 退出时会自动恢复正常睡眠。</translation>
    </message>
    <message>
        <source>Reinstall helper…</source>
        <translation>重新安装助手…</translation>
    </message>
    <message>
        <source>Open Login Items…</source>
        <translation>允许助手…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>安装后台助手…</translation>
    </message>
</context>
<context>
    <name>HelperStatus</name>
    <message>
        <source>Background helper installed and active.</source>
        <translation>后台助手已安装并启用。</translation>
    </message>
    <message>
        <source>Approve Tarvik under System Settings ▸ Login Items, then come back here.</source>
        <translation>请允许后台助手，然后返回此处。</translation>
    </message>
    <message>
        <source>Open Login Items to approve…</source>
        <translation>允许助手…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>安装后台助手…</translation>
    </message>
</context>
<context>
    <name>HookRow</name>
    <message>
        <source>Couldn&apos;t write ~/%1. If you&apos;ve edited it by hand, check it&apos;s valid JSON — Tarvik won&apos;t overwrite a file it can&apos;t read.</source>
        <translation>无法写入 ~/%1。如果您手动编辑过此文件，请检查它是否为有效的 JSON。Tarvik 不会覆盖无法读取的文件。</translation>
    </message>
    <message>
        <source>How hooks of %1 work</source>
        <translation>%1 的钩子如何工作</translation>
    </message>
</context>
<context>
    <name>HookSetupList</name>
    <message>
        <source>Hooks tell Tarvik when an agent starts and finishes a turn, so an agent sitting idle at its prompt lets the Mac sleep. Turning one on adds a Tarvik entry to that agent&apos;s config file and nothing else — and Tarvik stops watching for that agent&apos;s process, since its turns are the better signal. Turning it off removes the entry and restores process detection.</source>
        <translation>钩子会告诉 Tarvik 智能体何时开始和结束一轮工作，因此停在提示符处的智能体不会妨碍电脑睡眠。开启时，只会在该智能体的配置文件中添加一个 Tarvik 条目，而 Tarvik 不再监测其进程，因为工作轮次是更准确的信号。关闭时，会移除该条目并恢复进程检测。</translation>
    </message>
    <message>
        <source>Lifecycle hooks</source>
        <translation>生命周期钩子</translation>
    </message>
</context>
<context>
    <name>HotKeys</name>
    <message>
        <source>pending</source>
        <translation>等待中</translation>
    </message>
    <message>
        <source>registered</source>
        <translation>已注册</translation>
    </message>
    <message>
        <source>taken by another program</source>
        <translation>已被其他程序占用</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>不可用</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>Switched on — plugged in</source>
        <translation>已开启 — 接通电源</translation>
    </message>
    <message>
        <source>Keeping awake</source>
        <translation>保持唤醒</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>已暂停</translation>
    </message>
    <message>
        <source>Resumed</source>
        <translation>已恢复</translation>
    </message>
</context>
<context>
    <name>JournalButtons</name>
    <message>
        <source>Copied</source>
        <translation>已复制</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
</context>
<context>
    <name>JournalList</name>
    <message>
        <source>Journal</source>
        <translation>日志</translation>
    </message>
</context>
<context>
    <name>JournalRow</name>
    <message>
        <source>%1, %2, %3</source>
        <translation>%1，%2，%3</translation>
    </message>
</context>
<context>
    <name>JournalTab</name>
    <message>
        <source>Nothing yet. Tarvik records every time it starts, stops, or pauses.</source>
        <translation>暂无内容。Tarvik 每次开始、停止或暂停时都会记录。</translation>
    </message>
</context>
<context>
    <name>LidClosedMode</name>
    <message>
        <source>The background helper didn’t respond.</source>
        <translation>后台助手没有响应。</translation>
    </message>
</context>
<context>
    <name>LidClosedSection</name>
    <message>
        <source>This computer has no lid — these settings have no effect.</source>
        <translation>此电脑没有盖子，这些设置不起作用。</translation>
    </message>
    <message>
        <source>Lid closed</source>
        <translation>合盖</translation>
    </message>
    <message>
        <source>Keep running with the lid closed</source>
        <translation>合盖后继续运行</translation>
    </message>
    <message>
        <source>Turn the screen off when the lid closes</source>
        <translation>合盖时关闭屏幕</translation>
    </message>
</context>
<context>
    <name>LockScreen</name>
    <message>
        <source>Tarvik could not lock the screen</source>
        <translation>Tarvik 无法锁定屏幕</translation>
    </message>
</context>
<context>
    <name>LockShortcut</name>
    <message>
        <source>Lock the screen</source>
        <translation>锁定屏幕</translation>
    </message>
</context>
<context>
    <name>Notifications</name>
    <message>
        <source>Tarvik is keeping your Mac awake</source>
        <translation>Tarvik 正在让电脑保持唤醒</translation>
    </message>
    <message>
        <source>Tarvik stopped keeping your Mac awake</source>
        <translation>Tarvik 已停止让电脑保持唤醒</translation>
    </message>
    <message>
        <source>Tarvik paused</source>
        <translation>Tarvik 已暂停</translation>
    </message>
</context>
<context>
    <name>OnboardingPage</name>
    <message>
        <source>Step %1 of %2. %3</source>
        <translation>第 %1 步，共 %2 步。%3</translation>
    </message>
</context>
<context>
    <name>OnboardingView</name>
    <message>
        <source>Back</source>
        <translation>上一步</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
</context>
<context>
    <name>OnboardingWindow</name>
    <message>
        <source>Set up lid-closed mode</source>
        <translation>设置合盖模式</translation>
    </message>
</context>
<context>
    <name>PanelContent</name>
    <message>
        <source>Lock &amp; leave</source>
        <translation>锁定并离开</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>设置…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>退出 Tarvik</translation>
    </message>
</context>
<context>
    <name>PowerTab</name>
    <message>
        <source>Only keep awake while on AC power</source>
        <translation>仅在接通电源时保持唤醒</translation>
    </message>
    <message>
        <source>Stop keeping awake below a battery level</source>
        <translation>电量过低时停止保持唤醒</translation>
    </message>
    <message>
        <source>Connecting power switches Tarvik on. Unplugging leaves it on, so turning it off by hand always sticks.</source>
        <translation>接通电源会开启 Tarvik。拔掉电源时它保持开启，因此手动关闭始终有效。</translation>
    </message>
    <message>
        <source>Turn Tarvik on when plugged in</source>
        <translation>接通电源时开启 Tarvik</translation>
    </message>
    <message>
        <source>Temperature is currently %1. Tarvik pauses while macOS reports thermal throttling, and resumes once it cools down.</source>
        <translation>当前温度%1。系统因过热降频时 Tarvik 会暂停，降温后恢复。</translation>
    </message>
    <message>
        <source>Pause when the Mac gets hot</source>
        <translation>电脑过热时暂停</translation>
    </message>
    <message>
        <source>No internal battery detected — these conditions have no effect.</source>
        <translation>未检测到内置电池，这些条件不起作用。</translation>
    </message>
    <message>
        <source>on AC power</source>
        <translation>已接通电源</translation>
    </message>
    <message>
        <source>on battery</source>
        <translation>使用电池</translation>
    </message>
    <message>
        <source>Currently %1% • %2</source>
        <translation>当前 %1% • %2</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>电池</translation>
    </message>
    <message>
        <source>Plugging in</source>
        <translation>接通电源</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>过热</translation>
    </message>
</context>
<context>
    <name>Pressable</name>
    <message>
        <source>Not available</source>
        <translation>不可用</translation>
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
        <translation>无需其他操作。Tarvik 让电脑保持唤醒期间，合盖后也会继续运行。如要关闭，请在设置中使用**合盖后继续运行**。</translation>
    </message>
    <message>
        <source>You&apos;re all set</source>
        <translation>一切就绪</translation>
    </message>
</context>
<context>
    <name>RequestArea</name>
    <message>
        <source>Thanks — we&apos;ll take a look.</source>
        <translation>谢谢 — 我们会看一看。</translation>
    </message>
</context>
<context>
    <name>RequestButtons</name>
    <message>
        <source>Sending…</source>
        <translation>正在发送…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>发送</translation>
    </message>
</context>
<context>
    <name>RequestForm</name>
    <message>
        <source>Agent or app name</source>
        <translation>智能体或应用的名称</translation>
    </message>
    <message>
        <source>The command you run it with</source>
        <translation>用于运行它的命令</translation>
    </message>
    <message>
        <source>Enter a name first.</source>
        <translation>请先输入名称。</translation>
    </message>
</context>
<context>
    <name>RequestInvitation</name>
    <message>
        <source>Missing one?</source>
        <translation>缺少某一个？</translation>
    </message>
    <message>
        <source>Request it…</source>
        <translation>提出请求…</translation>
    </message>
</context>
<context>
    <name>RequestProblem</name>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>此 Tarvik 副本无法发送请求。</translation>
    </message>
</context>
<context>
    <name>RestartAlert</name>
    <message>
        <source>Restart Tarvik to finish connecting to the background helper.</source>
        <translation>重新启动 Tarvik 以完成与后台助手的连接。</translation>
    </message>
    <message>
        <source>Background helper enabled</source>
        <translation>已启用后台助手</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>稍后</translation>
    </message>
    <message>
        <source>Restart Now</source>
        <translation>立即重新启动</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
</context>
<context>
    <name>SessionChoices</name>
    <message>
        <source>10 minutes</source>
        <translation>10 分钟</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 小时</translation>
    </message>
    <message>
        <source>2 hours</source>
        <translation>2 小时</translation>
    </message>
    <message>
        <source>All day (16 h)</source>
        <translation>全天 (16 小时)</translation>
    </message>
    <message>
        <source>Change session…</source>
        <translation>更改时长…</translation>
    </message>
    <message>
        <source>Keep awake for…</source>
        <translation>保持唤醒…</translation>
    </message>
    <message>
        <source>Cancel timer</source>
        <translation>取消定时</translation>
    </message>
</context>
<context>
    <name>SessionRow</name>
    <message>
        <source>Opens a menu</source>
        <translation>打开菜单</translation>
    </message>
</context>
<context>
    <name>SettingsTabs</name>
    <message>
        <source>General</source>
        <translation>通用</translation>
    </message>
    <message>
        <source>Triggers</source>
        <translation>触发条件</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>电源</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>Updates</source>
        <translation>更新</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Tarvik Settings</source>
        <translation>Tarvik 设置</translation>
    </message>
</context>
<context>
    <name>StatusDescription</name>
    <message>
        <source>%1, %2 left, %3</source>
        <translation>%1，剩余 %2，%3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1: %2 (%3)</source>
        <translation>%1：%2 (%3)</translation>
    </message>
    <message>
        <source>%1, not confirmed</source>
        <translation>%1，未确认</translation>
    </message>
    <message>
        <source>external</source>
        <translation>外接电源</translation>
    </message>
    <message>
        <source>battery</source>
        <translation>电池</translation>
    </message>
    <message>
        <source>%1, battery at %2 %</source>
        <translation>%1，电量 %2%</translation>
    </message>
    <message>
        <source>%1 (too hot to be kept awake)</source>
        <translation>%1 (过热，无法保持唤醒)</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>现在</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>活动</translation>
    </message>
    <message>
        <source>Leases</source>
        <translation>租约</translation>
    </message>
    <message>
        <source>Session</source>
        <translation>定时</translation>
    </message>
    <message>
        <source>until %1</source>
        <translation>直到 %1</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>抑制</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>电源</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>过热</translation>
    </message>
    <message>
        <source>Lid</source>
        <translation>盖子</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>已合上</translation>
    </message>
    <message>
        <source>Lock key</source>
        <translation>锁屏键</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>托盘</translation>
    </message>
    <message>
        <source>shown</source>
        <translation>已显示</translation>
    </message>
    <message>
        <source>not shown: no panel offers a place</source>
        <translation>未显示：没有面板提供位置</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>版本</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>更新已安装。待工作结束且窗口关闭后，Tarvik 将重新启动。</translation>
    </message>
</context>
<context>
    <name>StatusHeader</name>
    <message>
        <source>F1 says why</source>
        <translation>按 F1 查看原因</translation>
    </message>
</context>
<context>
    <name>StatusText</name>
    <message>
        <source>Off</source>
        <translation>关闭</translation>
    </message>
    <message numerus="yes">
        <source>%n agent</source>
        <translation>
            <numerusform>%n 个智能体</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n agents</source>
        <translation>
            <numerusform>%n 个智能体</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n app</source>
        <translation>
            <numerusform>%n 个应用</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n apps</source>
        <translation>
            <numerusform>%n 个应用</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1、%2</translation>
    </message>
    <message numerus="yes">
        <source>%n min left</source>
        <translation>
            <numerusform>剩余 %n 分钟</numerusform>
        </translation>
    </message>
    <message>
        <source>charging %1%</source>
        <translation>充电中 %1%</translation>
    </message>
    <message>
        <source>on battery %1%</source>
        <translation>电池 %1%</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>已暂停</translation>
    </message>
    <message>
        <source>Awake</source>
        <translation>保持唤醒</translation>
    </message>
    <message>
        <source>Watching</source>
        <translation>监测中</translation>
    </message>
    <message>
        <source>Dozing — nothing to watch</source>
        <translation>休息中 — 没有可监测的任务</translation>
    </message>
    <message>
        <source>Awake — %1</source>
        <translation>保持唤醒 — %1</translation>
    </message>
    <message>
        <source>Awake — timed</source>
        <translation>保持唤醒 — 定时</translation>
    </message>
    <message>
        <source>Awake · %1</source>
        <translation>保持唤醒 · %1</translation>
    </message>
    <message>
        <source>Not watching</source>
        <translation>未监测</translation>
    </message>
    <message numerus="yes">
        <source>%1 +%n more</source>
        <translation>
            <numerusform>%1 及另外 %n 个</numerusform>
        </translation>
    </message>
    <message>
        <source>Timed session</source>
        <translation>定时进行中</translation>
    </message>
    <message>
        <source>Nothing running to keep awake for</source>
        <translation>没有需要保持唤醒的任务</translation>
    </message>
    <message>
        <source>running %1</source>
        <translation>温度%1</translation>
    </message>
    <message>
        <source>lid closed</source>
        <translation>合盖</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>正常</translation>
    </message>
    <message>
        <source>warm</source>
        <translation>偏高</translation>
    </message>
    <message>
        <source>hot</source>
        <translation>高</translation>
    </message>
    <message>
        <source>very hot</source>
        <translation>很高</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>未知</translation>
    </message>
</context>
<context>
    <name>SystemdHelperService</name>
    <message>
        <source>There is no pkexec, which would ask for an administrator’s password. An administrator can run %1 instead.</source>
        <translation>缺少用于询问管理员密码的 pkexec。管理员可以改为运行 %1。</translation>
    </message>
</context>
<context>
    <name>TarvikApp</name>
    <message>
        <source>The windows of Tarvik are not installed</source>
        <translation>未安装 Tarvik 的窗口</translation>
    </message>
    <message>
        <source>They are in the package “tarvik”.</source>
        <translation>它们在软件包“tarvik”中。</translation>
    </message>
</context>
<context>
    <name>TerminalText</name>
    <message>
        <source>%1 s</source>
        <translation>%1 秒</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 分钟</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 小时 %2 分钟</translation>
    </message>
</context>
<context>
    <name>Texts</name>
    <message numerus="yes">
        <source>%n year ago</source>
        <translation>
            <numerusform>%n 年前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n years ago</source>
        <translation>
            <numerusform>%n 年前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n month ago</source>
        <translation>
            <numerusform>%n 个月前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n months ago</source>
        <translation>
            <numerusform>%n 个月前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n week ago</source>
        <translation>
            <numerusform>%n 周前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n weeks ago</source>
        <translation>
            <numerusform>%n 周前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n day ago</source>
        <translation>
            <numerusform>%n 天前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days ago</source>
        <translation>
            <numerusform>%n 天前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hour ago</source>
        <translation>
            <numerusform>%n 小时前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hours ago</source>
        <translation>
            <numerusform>%n 小时前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minute ago</source>
        <translation>
            <numerusform>%n 分钟前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes ago</source>
        <translation>
            <numerusform>%n 分钟前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n second ago</source>
        <translation>
            <numerusform>%n 秒前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n seconds ago</source>
        <translation>
            <numerusform>%n 秒前</numerusform>
        </translation>
    </message>
    <message>
        <source>Last checked %1</source>
        <translation>上次检查：%1</translation>
    </message>
    <message>
        <source>Not checked yet.</source>
        <translation>尚未检查。</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>刚刚</translation>
    </message>
    <message>
        <source>No event yet. %1 sends the first one with your next prompt.</source>
        <translation>尚无事件。您下次输入提示时，%1 会发送第一个事件。</translation>
    </message>
    <message>
        <source>No event yet. %1 reads its hooks when it starts: restart sessions that are already running.</source>
        <translation>尚无事件。%1 在启动时读取钩子：请重新启动已在运行的会话。</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 and approve the hooks when it asks: it skips them until you do.</source>
        <translation>尚无事件。请重新启动 %1 并在询问时批准钩子：在此之前它会跳过钩子。</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 in a folder that you have told it to trust: it skips hooks elsewhere.</source>
        <translation>尚无事件。请在您已设为受信任的文件夹中重新启动 %1：它在其他位置会跳过钩子。</translation>
    </message>
    <message>
        <source>Last event %1</source>
        <translation>上次事件：%1</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>今天</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>昨天</translation>
    </message>
    <message numerus="yes">
        <source>%n h ago</source>
        <translation>
            <numerusform>%n 小时前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n min ago</source>
        <translation>
            <numerusform>%n 分钟前</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrayPresenter</name>
    <message>
        <source>Open Tarvik…</source>
        <translation>打开 Tarvik…</translation>
    </message>
    <message>
        <source>Lock &amp; leave</source>
        <translation>锁定并离开</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>设置…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>退出 Tarvik</translation>
    </message>
</context>
<context>
    <name>TriggersTab</name>
    <message>
        <source>Coding agents</source>
        <translation>编程智能体</translation>
    </message>
    <message>
        <source>Keep the Mac awake while any of %1 known coding agents is running.</source>
        <translation>%1 个已知编程智能体中有任何一个在运行时，让电脑保持唤醒。</translation>
    </message>
    <message>
        <source>Watch coding agents</source>
        <translation>监测编程智能体</translation>
    </message>
    <message>
        <source>Cursor, Zed, Warp and friends run their agent inside the editor, so Tarvik can only tell that the app is open — not that it&apos;s working. Your Mac stays awake for as long as the editor is running.</source>
        <translation>Cursor、Zed、Warp 等在编辑器内部运行智能体，因此 Tarvik 只能知道应用已打开，而不知道它是否在工作。编辑器运行期间，电脑一直保持唤醒。</translation>
    </message>
    <message>
        <source>Keep awake while an AI editor is open</source>
        <translation>AI 编辑器打开时保持唤醒</translation>
    </message>
</context>
<context>
    <name>UpdatesTab</name>
    <message>
        <source>Automatically check for updates</source>
        <translation>自动检查更新</translation>
    </message>
    <message>
        <source>Automatically download and install updates</source>
        <translation>自动下载并安装更新</translation>
    </message>
    <message>
        <source>Tarvik %1</source>
        <translation>Tarvik %1</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>检查更新…</translation>
    </message>
    <message>
        <source>This copy is updated together with the other packages of this computer.</source>
        <translation>此副本随此电脑的其他软件包一起更新。</translation>
    </message>
    <message>
        <source>This copy was built from source. To update it, build a newer version.</source>
        <translation>此副本由源代码构建。要更新它，请构建较新的版本。</translation>
    </message>
    <message>
        <source>This copy does not come from a package. To update it, install a newer version in its place.</source>
        <translation>此副本并非来自软件包。要更新它，请在原处安装较新的版本。</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>更新已安装。待工作结束且窗口关闭后，Tarvik 将重新启动。</translation>
    </message>
</context>
<context>
    <name>WelcomePage</name>
    <message>
        <source>Keep working, lid closed</source>
        <translation>合盖继续工作</translation>
    </message>
    <message>
        <source>Let agents, builds, and downloads keep running after you shut the lid.</source>
        <translation>合上盖子后，智能体、构建和下载仍可继续运行。</translation>
    </message>
    <message>
        <source>macOS normally sleeps the moment you close the lid. Tarvik can override that — but it needs to install a small background helper first.</source>
        <translation>通常，合上盖子时笔记本电脑会立即睡眠。Tarvik 可以改变这一点，但需要先安装一个小型后台助手。</translation>
    </message>
</context>
<context>
    <name>WhyDescription</name>
    <message>
        <source>sleep when idle</source>
        <translation>空闲时的睡眠</translation>
    </message>
    <message>
        <source>displays off when idle</source>
        <translation>空闲时关闭显示器</translation>
    </message>
    <message>
        <source>every sleep</source>
        <translation>任何睡眠</translation>
    </message>
    <message>
        <source>sleep when the lid is closed</source>
        <translation>合盖时的睡眠</translation>
    </message>
    <message>
        <source>nothing on this desktop</source>
        <translation>在此桌面上无作用</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>%1, not confirmed</source>
        <translation>%1，未确认</translation>
    </message>
    <message>
        <source>%1, without effect on this desktop</source>
        <translation>%1，在此桌面上无效</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>无</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1: %2: %3</source>
        <translation>%1：%2：%3</translation>
    </message>
    <message>
        <source>%1, last event %2</source>
        <translation>%1，最近一次事件 %2</translation>
    </message>
    <message>
        <source>%1, no event yet</source>
        <translation>%1，尚无事件</translation>
    </message>
    <message>
        <source>The computer slept until %1</source>
        <translation>电脑睡眠至 %1</translation>
    </message>
    <message>
        <source>The computer went to sleep</source>
        <translation>电脑进入睡眠</translation>
    </message>
    <message>
        <source>Tarvik: %1</source>
        <translation>Tarvik：%1</translation>
    </message>
    <message>
        <source>Tarvik holds off</source>
        <translation>Tarvik 阻止</translation>
    </message>
    <message>
        <source>Others hold off</source>
        <translation>其他程序阻止</translation>
    </message>
    <message>
        <source>Do not tell</source>
        <translation>未告知</translation>
    </message>
    <message>
        <source>When idle</source>
        <translation>空闲时</translation>
    </message>
    <message>
        <source>Hooks</source>
        <translation>钩子</translation>
    </message>
    <message>
        <source>Lately</source>
        <translation>近期</translation>
    </message>
</context>
<context>
    <name>WhyText</name>
    <message>
        <source>%1; %2.</source>
        <translation>%1；%2。</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake because work is going on: %1.</source>
        <translation>Tarvik 让这台电脑保持唤醒，因为有任务正在进行：%1。</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1.</source>
        <translation>Tarvik 因定时会话让这台电脑保持唤醒，直到 %1。</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1, and because work is going on: %2.</source>
        <translation>Tarvik 因定时会话（直到 %1）以及正在进行的任务让这台电脑保持唤醒：%2。</translation>
    </message>
    <message>
        <source>Other programs keep this computer awake: %1.</source>
        <translation>其他程序让这台电脑保持唤醒：%1。</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake (%2).</source>
        <translation>%1 让这台电脑保持唤醒（%2）。</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake.</source>
        <translation>%1 让这台电脑保持唤醒。</translation>
    </message>
    <message>
        <source>what %1 would do when nobody uses it is not known</source>
        <translation>无从得知 %1 在无人使用时会怎样做</translation>
    </message>
    <message>
        <source>nothing here is set to put it to sleep</source>
        <translation>这里没有任何设置会让它睡眠</translation>
    </message>
    <message>
        <source>what would put it to sleep is not known</source>
        <translation>无从得知什么会让它睡眠</translation>
    </message>
    <message>
        <source>This computer last slept from %1 to %2</source>
        <translation>这台电脑上次睡眠是从 %1 到 %2</translation>
    </message>
    <message>
        <source>This computer last went to sleep at %1</source>
        <translation>这台电脑上次进入睡眠是在 %1</translation>
    </message>
    <message>
        <source>Tarvik&apos;s journal has nothing from before that</source>
        <translation>Tarvik 的历史中没有此前的记录</translation>
    </message>
    <message>
        <source>Tarvik was not keeping it awake (since %1: %2)</source>
        <translation>Tarvik 当时没有让它保持唤醒（自 %1 起：%2）</translation>
    </message>
    <message>
        <source>whether Tarvik was running then is not known (its last word before was at %1: %2)</source>
        <translation>无从得知 Tarvik 当时是否在运行（此前的最后一条记录在 %1：%2）</translation>
    </message>
    <message>
        <source>Tarvik was keeping it awake (since %1: %2), and what put it to sleep all the same is not known</source>
        <translation>Tarvik 当时让它保持唤醒（自 %1 起：%2），仍进入睡眠的原因无从得知</translation>
    </message>
    <message>
        <source>Nothing holds this computer awake</source>
        <translation>没有什么让这台电脑保持唤醒</translation>
    </message>
    <message>
        <source>Nothing that can be seen holds this computer awake</source>
        <translation>没有可见的程序让这台电脑保持唤醒</translation>
    </message>
    <message>
        <source>Tarvik does not keep it awake (%1).</source>
        <translation>Tarvik 没有让它保持唤醒（%1）。</translation>
    </message>
    <message>
        <source>Tarvik wants to keep it awake, but none of its locks is known to work here: it may sleep all the same.</source>
        <translation>Tarvik 想让它保持唤醒，但其抑制在此处都未知是否有效：它仍可能睡眠。</translation>
    </message>
    <message>
        <source>It would stay awake without Tarvik, too, because of %1.</source>
        <translation>即使没有 Tarvik，它也会因 %1 保持唤醒。</translation>
    </message>
    <message>
        <source>Nothing here is set to put it to sleep anyway.</source>
        <translation>反正这里没有任何设置会让它睡眠。</translation>
    </message>
    <message>
        <source>Its lid is closed, and Tarvik keeps it running all the same.</source>
        <translation>它已合盖，而 Tarvik 仍让它继续运行。</translation>
    </message>
    <message>
        <source>When this computer slept last is not known.</source>
        <translation>无从得知这台电脑上次何时睡眠。</translation>
    </message>
    <message>
        <source>This computer has not slept since it was started.</source>
        <translation>这台电脑自启动以来没有睡眠过。</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>%1 does not put it to sleep</source>
        <translation>%1 不会让它睡眠</translation>
    </message>
    <message>
        <source>%1 puts it to sleep when nobody uses it, but after how long is not known</source>
        <translation>%1 会在无人使用时让它睡眠，但无从得知要多久</translation>
    </message>
    <message>
        <source>%1 suspends it after %2 without activity</source>
        <translation>%1 会在无活动 %2 后将其挂起</translation>
    </message>
    <message>
        <source>%1 hibernates it after %2 without activity</source>
        <translation>%1 会在无活动 %2 后将其休眠</translation>
    </message>
    <message>
        <source>%1 shuts it down or logs out after %2 without activity</source>
        <translation>%1 会在无活动 %2 后关机或注销</translation>
    </message>
</context>
</TS>
