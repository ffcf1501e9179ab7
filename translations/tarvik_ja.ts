<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>AdministratorProgram</name>
    <message>
        <source>No administrator’s password was given.</source>
        <translation>管理者のパスワードが入力されませんでした。</translation>
    </message>
    <message>
        <source>Nothing in this session can ask for an administrator’s password: no polkit agent is running.</source>
        <translation>polkit エージェントが実行されていないため、このセッションでは管理者のパスワードを入力できません。</translation>
    </message>
    <message>
        <source>Only an administrator of this computer may do this.</source>
        <translation>この操作を実行できるのは、このコンピューターの管理者だけです。</translation>
    </message>
    <message>
        <source>It ended before it was done.</source>
        <translation>完了する前に終了しました。</translation>
    </message>
</context>
<context>
    <name>AgentList</name>
    <message>
        <source>Agents and editors</source>
        <translation>エージェントとエディター</translation>
    </message>
</context>
<context>
    <name>AgentListPage</name>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Agents Tarvik detects</source>
        <translation>Tarvik が検出するエージェント</translation>
    </message>
</context>
<context>
    <name>AgentListRow</name>
    <message>
        <source>Agents and editors</source>
        <translation>エージェントとエディター</translation>
    </message>
    <message>
        <source>See everything we detect…</source>
        <translation>検出できるものをすべて見る…</translation>
    </message>
</context>
<context>
    <name>AgentRequest</name>
    <message>
        <source>Couldn&apos;t send that — try again in a moment.</source>
        <translation>送信できませんでした — しばらくしてからもう一度お試しください。</translation>
    </message>
    <message>
        <source>You&apos;ve sent a few already — try again tomorrow.</source>
        <translation>すでに何件か送信済みです — 明日もう一度お試しください。</translation>
    </message>
    <message>
        <source>Couldn&apos;t reach the server — check your internet connection and try again.</source>
        <translation>サーバーに接続できませんでした — インターネット接続を確認してもう一度お試しください。</translation>
    </message>
    <message>
        <source>The server didn&apos;t answer — try again in a moment.</source>
        <translation>サーバーが応答しませんでした — しばらくしてからもう一度お試しください。</translation>
    </message>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>この Tarvik からはリクエストを送信できません。</translation>
    </message>
</context>
<context>
    <name>AllowedAppRow</name>
    <message>
        <source>Remove %1</source>
        <translation>%1 を削除</translation>
    </message>
</context>
<context>
    <name>AllowedApps</name>
    <message>
        <source>Apps</source>
        <translation>アプリ</translation>
    </message>
    <message>
        <source>No apps added. Keep awake while a chosen app is running.</source>
        <translation>アプリは追加されていません。選択したアプリの実行中はスリープを防止します。</translation>
    </message>
    <message>
        <source>Add App…</source>
        <translation>アプリを追加…</translation>
    </message>
</context>
<context>
    <name>AppList</name>
    <message>
        <source>Installed applications</source>
        <translation>インストール済みのアプリ</translation>
    </message>
</context>
<context>
    <name>AppRow</name>
    <message>
        <source>%1, already added</source>
        <translation>%1、追加済み</translation>
    </message>
    <message>
        <source>Already added</source>
        <translation>追加済み</translation>
    </message>
</context>
<context>
    <name>AppSearch</name>
    <message>
        <source>Add App</source>
        <translation>アプリを追加</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>No such application.</source>
        <translation>該当するアプリはありません。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Other…</source>
        <translation>その他…</translation>
    </message>
</context>
<context>
    <name>ApplicationChoice</name>
    <message>
        <source>Open now</source>
        <translation>実行中</translation>
    </message>
    <message>
        <source>Desktop files</source>
        <translation>デスクトップファイル</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>アプリを追加</translation>
    </message>
    <message>
        <source>%1 is not the desktop file of an application that can be started.</source>
        <translation>%1 は、起動できるアプリのデスクトップファイルではありません。</translation>
    </message>
</context>
<context>
    <name>BackgroundHelper</name>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items.</source>
        <translation>先にバックグラウンドヘルパーを許可する必要があります。</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items, then try again.</source>
        <translation>バックグラウンドヘルパーを許可してから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Background helper reinstalled.</source>
        <translation>バックグラウンドヘルパーを再インストールしました。</translation>
    </message>
</context>
<context>
    <name>BatteryLevelRow</name>
    <message>
        <source>Battery level</source>
        <translation>バッテリー残量</translation>
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
        <translation>コンピューターが高温です</translation>
    </message>
    <message>
        <source>running on battery</source>
        <translation>バッテリーで動作中</translation>
    </message>
    <message>
        <source>battery %1% is below %2%</source>
        <translation>バッテリー残量 %1% が %2% を下回っています</translation>
    </message>
    <message>
        <source>Paused — Mac is running hot</source>
        <translation>一時停止中 — コンピューターが高温です</translation>
    </message>
    <message>
        <source>Paused — on battery</source>
        <translation>一時停止中 — バッテリーで動作中</translation>
    </message>
    <message>
        <source>Paused — battery %1% &lt; %2%</source>
        <translation>一時停止中 — バッテリー %1% &lt; %2%</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
</context>
<context>
    <name>DesktopHold</name>
    <message>
        <source>Work is in progress</source>
        <translation>作業が進行中です</translation>
    </message>
</context>
<context>
    <name>DetectedAgents</name>
    <message>
        <source>AI editors (while open)</source>
        <translation>AI エディター（開いている間）</translation>
    </message>
    <message>
        <source>Agents</source>
        <translation>エージェント</translation>
    </message>
</context>
<context>
    <name>EnableRow</name>
    <message>
        <source>Off means Tarvik does nothing. On keeps the Mac awake while a coding agent or chosen app is running.</source>
        <translation>オフのとき、Tarvik は何もしません。オンのときは、コーディングエージェントまたは選択したアプリの実行中、コンピューターのスリープを防止します。</translation>
    </message>
</context>
<context>
    <name>FoundAgents</name>
    <message>
        <source>No such agent or editor.</source>
        <translation>該当するエージェントやエディターはありません。</translation>
    </message>
</context>
<context>
    <name>GeneralTab</name>
    <message>
        <source>Also keep the display awake</source>
        <translation>画面も点灯したままにする</translation>
    </message>
    <message>
        <source>Launch Tarvik at login</source>
        <translation>ログイン時に Tarvik を起動</translation>
    </message>
    <message>
        <source>Every change is recorded in the Journal tab either way.</source>
        <translation>いずれの場合も、すべての変化は「履歴」タブに記録されます。</translation>
    </message>
    <message>
        <source>Notifications</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>Notify every time Tarvik starts or stops</source>
        <translation>Tarvik が開始・停止するたびに通知</translation>
    </message>
    <message>
        <source>Notify when paused by battery or heat</source>
        <translation>バッテリーや温度により一時停止したときに通知</translation>
    </message>
</context>
<context>
    <name>HelperApproval</name>
    <message>
        <source>The background helper is installed, but this computer does not allow it. If its service was masked, this command allows it again:</source>
        <translation>バックグラウンドヘルパーはインストールされていますが、このコンピューターでは許可されていません。サービスがマスクされている場合は、次のコマンドで再び許可できます:</translation>
    </message>
    <message>
        <source>Allow the background helper</source>
        <translation>バックグラウンドヘルパーを許可</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Otherwise ask your administrator to allow you the action “%1”. Tarvik notices when you come back.</source>
        <translation>それ以外の場合は、操作「%1」を許可するよう管理者に依頼してください。戻ってきたときに Tarvik が自動的に確認します。</translation>
    </message>
</context>
<context>
    <name>HelperErrors</name>
    <message>
        <source>This session is not allowed to switch sleep off.</source>
        <translation>このセッションには、スリープを無効にする権限がありません。</translation>
    </message>
    <message>
        <source>The background helper is not installed.</source>
        <translation>バックグラウンドヘルパーがインストールされていません。</translation>
    </message>
    <message>
        <source>There is no connection to the system bus.</source>
        <translation>システムバスに接続されていません。</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>バックグラウンドヘルパーが応答していません。</translation>
    </message>
    <message>
        <source>The background helper belongs to another version of Tarvik.</source>
        <translation>バックグラウンドヘルパーは、別のバージョンの Tarvik のものです。</translation>
    </message>
    <message>
        <source>The administrator of this computer has blocked the background helper.</source>
        <translation>このコンピューターの管理者が、バックグラウンドヘルパーをブロックしています。</translation>
    </message>
    <message>
        <source>The background helper does not work: %1</source>
        <translation>バックグラウンドヘルパーが動作しません: %1</translation>
    </message>
    <message>
        <source>The background helper has ended unexpectedly.</source>
        <translation>バックグラウンドヘルパーが予期せず終了しました。</translation>
    </message>
</context>
<context>
    <name>HelperManager</name>
    <message>
        <source>No helper connection</source>
        <translation>ヘルパーに接続されていません</translation>
    </message>
    <message>
        <source>The background helper isn’t responding.</source>
        <translation>バックグラウンドヘルパーが応答していません。</translation>
    </message>
</context>
<context>
    <name>HelperPage</name>
    <message>
        <source>Skip the password prompts</source>
        <translation>パスワードの入力を省略</translation>
    </message>
    <message>
        <source>Install a small background helper so turning lid-closed mode on and off never asks for your admin password — and a safety watchdog can restore normal sleep if Tarvik ever quits or crashes.</source>
        <translation>小さなバックグラウンドヘルパーをインストールすると、ふた閉じモードのオン・オフで管理者のパスワードを求められなくなります。また、Tarvik が終了したりクラッシュしたりしても、通常のスリープに戻すことができます。</translation>
    </message>
    <message>
        <source>Optional — Tarvik still works without it; it&apos;ll just ask for your password each time you toggle.</source>
        <translation>省略可能です。なくても Tarvik は動作しますが、切り替えるたびにパスワードを求められます。</translation>
    </message>
</context>
<context>
    <name>HelperRow</name>
    <message>
        <source>Background helper active — toggles no longer ask for your password.</source>
        <translation>バックグラウンドヘルパーは有効です。切り替え時にパスワードは求められません。</translation>
    </message>
    <message>
        <source>Approve Tarvik in System Settings ▸ Login Items to finish setup.</source>
        <translation>セットアップを完了するには、バックグラウンドヘルパーを許可してください。</translation>
    </message>
    <message>
        <source>Install a background helper so toggling never asks for your admin password. Restored automatically when keep-awake ends or Tarvik quits.</source>
        <translation>バックグラウンドヘルパーをインストールすると、切り替え時に管理者のパスワードを求められなくなります。スリープ防止が終わるか Tarvik が終了すると、自動的に元に戻ります。</translation>
    </message>
    <message>
        <source>Reinstall helper…</source>
        <translation>ヘルパーを再インストール…</translation>
    </message>
    <message>
        <source>Open Login Items…</source>
        <translation>ヘルパーを許可…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>バックグラウンドヘルパーをインストール…</translation>
    </message>
</context>
<context>
    <name>HelperStatus</name>
    <message>
        <source>Background helper installed and active.</source>
        <translation>バックグラウンドヘルパーはインストール済みで、有効です。</translation>
    </message>
    <message>
        <source>Approve Tarvik under System Settings ▸ Login Items, then come back here.</source>
        <translation>バックグラウンドヘルパーを許可してから、ここに戻ってください。</translation>
    </message>
    <message>
        <source>Open Login Items to approve…</source>
        <translation>ヘルパーを許可…</translation>
    </message>
    <message>
        <source>Install background helper…</source>
        <translation>バックグラウンドヘルパーをインストール…</translation>
    </message>
</context>
<context>
    <name>HookRow</name>
    <message>
        <source>Couldn&apos;t write ~/%1. If you&apos;ve edited it by hand, check it&apos;s valid JSON — Tarvik won&apos;t overwrite a file it can&apos;t read.</source>
        <translation>~/%1 に書き込めませんでした。手動で編集した場合は、有効な JSON であることを確認してください。Tarvik は読み取れないファイルを上書きしません。</translation>
    </message>
    <message>
        <source>How hooks of %1 work</source>
        <translation>%1 のフックの仕組み</translation>
    </message>
</context>
<context>
    <name>HookSetupList</name>
    <message>
        <source>Hooks tell Tarvik when an agent starts and finishes a turn, so an agent sitting idle at its prompt lets the Mac sleep. Turning one on adds a Tarvik entry to that agent&apos;s config file and nothing else — and Tarvik stops watching for that agent&apos;s process, since its turns are the better signal. Turning it off removes the entry and restores process detection.</source>
        <translation>フックにより、Tarvik はエージェントがターンを開始・終了した時点を知ることができます。そのため、入力待ちのエージェントはスリープを妨げません。オンにすると、エージェントの設定ファイルに Tarvik の項目が 1 つ追加されるだけで、以後 Tarvik はそのプロセスを監視しません。ターンのほうが確実な手がかりになるためです。オフにすると項目が削除され、プロセスの検出に戻ります。</translation>
    </message>
    <message>
        <source>Lifecycle hooks</source>
        <translation>ライフサイクルフック</translation>
    </message>
</context>
<context>
    <name>HotKeys</name>
    <message>
        <source>pending</source>
        <translation>応答待ち</translation>
    </message>
    <message>
        <source>registered</source>
        <translation>登録済み</translation>
    </message>
    <message>
        <source>taken by another program</source>
        <translation>別のプログラムが使用中</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>利用できません</translation>
    </message>
</context>
<context>
    <name>Journal</name>
    <message>
        <source>Switched on — plugged in</source>
        <translation>オンになりました — 電源に接続</translation>
    </message>
    <message>
        <source>Keeping awake</source>
        <translation>スリープ防止中</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>一時停止中</translation>
    </message>
    <message>
        <source>Resumed</source>
        <translation>再開</translation>
    </message>
</context>
<context>
    <name>JournalButtons</name>
    <message>
        <source>Copied</source>
        <translation>コピーしました</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>消去</translation>
    </message>
</context>
<context>
    <name>JournalList</name>
    <message>
        <source>Journal</source>
        <translation>履歴</translation>
    </message>
</context>
<context>
    <name>JournalRow</name>
    <message>
        <source>%1, %2, %3</source>
        <translation>%1、%2、%3</translation>
    </message>
</context>
<context>
    <name>JournalTab</name>
    <message>
        <source>Nothing yet. Tarvik records every time it starts, stops, or pauses.</source>
        <translation>まだ何もありません。Tarvik は開始・停止・一時停止のたびに記録します。</translation>
    </message>
</context>
<context>
    <name>LidClosedMode</name>
    <message>
        <source>The background helper didn’t respond.</source>
        <translation>バックグラウンドヘルパーが応答しませんでした。</translation>
    </message>
</context>
<context>
    <name>LidClosedSection</name>
    <message>
        <source>This computer has no lid — these settings have no effect.</source>
        <translation>このコンピューターにはふたがないため、これらの設定は効果がありません。</translation>
    </message>
    <message>
        <source>Lid closed</source>
        <translation>ふたを閉じたとき</translation>
    </message>
    <message>
        <source>Keep running with the lid closed</source>
        <translation>ふたを閉じても動作を続ける</translation>
    </message>
    <message>
        <source>Turn the screen off when the lid closes</source>
        <translation>ふたを閉じたら画面を消す</translation>
    </message>
</context>
<context>
    <name>LockScreen</name>
    <message>
        <source>Tarvik could not lock the screen</source>
        <translation>Tarvik は画面をロックできませんでした</translation>
    </message>
</context>
<context>
    <name>LockShortcut</name>
    <message>
        <source>Lock the screen</source>
        <translation>画面をロック</translation>
    </message>
</context>
<context>
    <name>Notifications</name>
    <message>
        <source>Tarvik is keeping your Mac awake</source>
        <translation>Tarvik がスリープを防止しています</translation>
    </message>
    <message>
        <source>Tarvik stopped keeping your Mac awake</source>
        <translation>Tarvik はスリープの防止を終了しました</translation>
    </message>
    <message>
        <source>Tarvik paused</source>
        <translation>Tarvik は一時停止しました</translation>
    </message>
</context>
<context>
    <name>OnboardingPage</name>
    <message>
        <source>Step %1 of %2. %3</source>
        <translation>ステップ %1/%2。%3</translation>
    </message>
</context>
<context>
    <name>OnboardingView</name>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>続ける</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
</context>
<context>
    <name>OnboardingWindow</name>
    <message>
        <source>Set up lid-closed mode</source>
        <translation>ふた閉じモードの設定</translation>
    </message>
</context>
<context>
    <name>PanelContent</name>
    <message>
        <source>Lock &amp; leave</source>
        <translation>ロックして離席</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>設定…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>Tarvik を終了</translation>
    </message>
</context>
<context>
    <name>PowerTab</name>
    <message>
        <source>Only keep awake while on AC power</source>
        <translation>電源接続時のみスリープを防止</translation>
    </message>
    <message>
        <source>Stop keeping awake below a battery level</source>
        <translation>バッテリー残量が少ないときは防止しない</translation>
    </message>
    <message>
        <source>Connecting power switches Tarvik on. Unplugging leaves it on, so turning it off by hand always sticks.</source>
        <translation>電源に接続すると Tarvik がオンになります。取り外してもオンのままなので、手動でオフにした状態はそのまま保たれます。</translation>
    </message>
    <message>
        <source>Turn Tarvik on when plugged in</source>
        <translation>電源に接続したら Tarvik をオンにする</translation>
    </message>
    <message>
        <source>Temperature is currently %1. Tarvik pauses while macOS reports thermal throttling, and resumes once it cools down.</source>
        <translation>現在の温度は%1です。システムが高温のため性能を抑えている間、Tarvik は一時停止し、温度が下がると再開します。</translation>
    </message>
    <message>
        <source>Pause when the Mac gets hot</source>
        <translation>コンピューターが高温になったら一時停止</translation>
    </message>
    <message>
        <source>No internal battery detected — these conditions have no effect.</source>
        <translation>内蔵バッテリーが検出されないため、これらの条件は効果がありません。</translation>
    </message>
    <message>
        <source>on AC power</source>
        <translation>電源に接続</translation>
    </message>
    <message>
        <source>on battery</source>
        <translation>バッテリーで動作中</translation>
    </message>
    <message>
        <source>Currently %1% • %2</source>
        <translation>現在 %1% • %2</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>バッテリー</translation>
    </message>
    <message>
        <source>Plugging in</source>
        <translation>電源の接続</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>熱</translation>
    </message>
</context>
<context>
    <name>Pressable</name>
    <message>
        <source>Not available</source>
        <translation>使用できません</translation>
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
        <translation>これで完了です。Tarvik がスリープを防止している間は、ふたを閉じても動作を続けます。オフにするには、設定の**ふたを閉じても動作を続ける**を使います。</translation>
    </message>
    <message>
        <source>You&apos;re all set</source>
        <translation>準備ができました</translation>
    </message>
</context>
<context>
    <name>RequestArea</name>
    <message>
        <source>Thanks — we&apos;ll take a look.</source>
        <translation>ありがとうございます — 確認いたします。</translation>
    </message>
</context>
<context>
    <name>RequestButtons</name>
    <message>
        <source>Sending…</source>
        <translation>送信中…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>送信</translation>
    </message>
</context>
<context>
    <name>RequestForm</name>
    <message>
        <source>Agent or app name</source>
        <translation>エージェントまたはアプリの名前</translation>
    </message>
    <message>
        <source>The command you run it with</source>
        <translation>起動に使うコマンド</translation>
    </message>
    <message>
        <source>Enter a name first.</source>
        <translation>先に名前を入力してください。</translation>
    </message>
</context>
<context>
    <name>RequestInvitation</name>
    <message>
        <source>Missing one?</source>
        <translation>見つかりませんか？</translation>
    </message>
    <message>
        <source>Request it…</source>
        <translation>リクエストする…</translation>
    </message>
</context>
<context>
    <name>RequestProblem</name>
    <message>
        <source>This copy of Tarvik can&apos;t send requests.</source>
        <translation>この Tarvik からはリクエストを送信できません。</translation>
    </message>
</context>
<context>
    <name>RestartAlert</name>
    <message>
        <source>Restart Tarvik to finish connecting to the background helper.</source>
        <translation>バックグラウンドヘルパーへの接続を完了するには、Tarvik を再起動してください。</translation>
    </message>
    <message>
        <source>Background helper enabled</source>
        <translation>バックグラウンドヘルパーが有効になりました</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>後で</translation>
    </message>
    <message>
        <source>Restart Now</source>
        <translation>今すぐ再起動</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
</context>
<context>
    <name>SessionChoices</name>
    <message>
        <source>10 minutes</source>
        <translation>10 分</translation>
    </message>
    <message>
        <source>1 hour</source>
        <translation>1 時間</translation>
    </message>
    <message>
        <source>2 hours</source>
        <translation>2 時間</translation>
    </message>
    <message>
        <source>All day (16 h)</source>
        <translation>終日 (16 時間)</translation>
    </message>
    <message>
        <source>Change session…</source>
        <translation>時間を変更…</translation>
    </message>
    <message>
        <source>Keep awake for…</source>
        <translation>スリープを防止する時間…</translation>
    </message>
    <message>
        <source>Cancel timer</source>
        <translation>タイマーをキャンセル</translation>
    </message>
</context>
<context>
    <name>SessionRow</name>
    <message>
        <source>Opens a menu</source>
        <translation>メニューを開きます</translation>
    </message>
</context>
<context>
    <name>SettingsTabs</name>
    <message>
        <source>General</source>
        <translation>一般</translation>
    </message>
    <message>
        <source>Triggers</source>
        <translation>きっかけ</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>電源</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>履歴</translation>
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
        <translation>設定</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Tarvik Settings</source>
        <translation>Tarvik の設定</translation>
    </message>
</context>
<context>
    <name>StatusDescription</name>
    <message>
        <source>%1, %2 left, %3</source>
        <translation>%1、残り %2、%3</translation>
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
        <translation>%1、未確認</translation>
    </message>
    <message>
        <source>external</source>
        <translation>外部電源</translation>
    </message>
    <message>
        <source>battery</source>
        <translation>バッテリー</translation>
    </message>
    <message>
        <source>%1, battery at %2 %</source>
        <translation>%1、バッテリー残量 %2%</translation>
    </message>
    <message>
        <source>%1 (too hot to be kept awake)</source>
        <translation>%1 (高温のためスリープを防止しません)</translation>
    </message>
    <message>
        <source>Now</source>
        <translation>現在</translation>
    </message>
    <message>
        <source>Active</source>
        <translation>実行中</translation>
    </message>
    <message>
        <source>Leases</source>
        <translation>リース</translation>
    </message>
    <message>
        <source>Session</source>
        <translation>タイマー</translation>
    </message>
    <message>
        <source>until %1</source>
        <translation>%1 まで</translation>
    </message>
    <message>
        <source>Holds</source>
        <translation>抑止</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>電源</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>熱</translation>
    </message>
    <message>
        <source>Lid</source>
        <translation>ふた</translation>
    </message>
    <message>
        <source>closed</source>
        <translation>閉じています</translation>
    </message>
    <message>
        <source>Lock key</source>
        <translation>ロックキー</translation>
    </message>
    <message>
        <source>Tray</source>
        <translation>トレイ</translation>
    </message>
    <message>
        <source>shown</source>
        <translation>表示中</translation>
    </message>
    <message>
        <source>not shown: no panel offers a place</source>
        <translation>非表示: 場所を提供するパネルがありません</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>バージョン</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>アップデートがインストールされました。作業が終わり、ウインドウが閉じられると、Tarvik は再起動します。</translation>
    </message>
</context>
<context>
    <name>StatusHeader</name>
    <message>
        <source>F1 says why</source>
        <translation>F1 で理由を表示</translation>
    </message>
</context>
<context>
    <name>StatusText</name>
    <message>
        <source>Off</source>
        <translation>オフ</translation>
    </message>
    <message numerus="yes">
        <source>%n agent</source>
        <translation>
            <numerusform>エージェント %n 件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n agents</source>
        <translation>
            <numerusform>エージェント %n 件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n app</source>
        <translation>
            <numerusform>アプリ %n 件</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n apps</source>
        <translation>
            <numerusform>アプリ %n 件</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1、%2</translation>
    </message>
    <message numerus="yes">
        <source>%n min left</source>
        <translation>
            <numerusform>残り %n 分</numerusform>
        </translation>
    </message>
    <message>
        <source>charging %1%</source>
        <translation>充電中 %1%</translation>
    </message>
    <message>
        <source>on battery %1%</source>
        <translation>バッテリー %1%</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>一時停止中</translation>
    </message>
    <message>
        <source>Awake</source>
        <translation>スリープ防止中</translation>
    </message>
    <message>
        <source>Watching</source>
        <translation>監視中</translation>
    </message>
    <message>
        <source>Dozing — nothing to watch</source>
        <translation>待機中 — 監視対象なし</translation>
    </message>
    <message>
        <source>Awake — %1</source>
        <translation>スリープ防止中 — %1</translation>
    </message>
    <message>
        <source>Awake — timed</source>
        <translation>スリープ防止中 — タイマー</translation>
    </message>
    <message>
        <source>Awake · %1</source>
        <translation>スリープ防止中 · %1</translation>
    </message>
    <message>
        <source>Not watching</source>
        <translation>監視していません</translation>
    </message>
    <message numerus="yes">
        <source>%1 +%n more</source>
        <translation>
            <numerusform>%1 ほか %n 件</numerusform>
        </translation>
    </message>
    <message>
        <source>Timed session</source>
        <translation>タイマー実行中</translation>
    </message>
    <message>
        <source>Nothing running to keep awake for</source>
        <translation>スリープを防止する対象はありません</translation>
    </message>
    <message>
        <source>running %1</source>
        <translation>温度: %1</translation>
    </message>
    <message>
        <source>lid closed</source>
        <translation>ふた閉じ</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>正常</translation>
    </message>
    <message>
        <source>warm</source>
        <translation>やや高い</translation>
    </message>
    <message>
        <source>hot</source>
        <translation>高い</translation>
    </message>
    <message>
        <source>very hot</source>
        <translation>非常に高い</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>不明</translation>
    </message>
</context>
<context>
    <name>SystemdHelperService</name>
    <message>
        <source>There is no pkexec, which would ask for an administrator’s password. An administrator can run %1 instead.</source>
        <translation>管理者のパスワードを尋ねる pkexec がありません。代わりに管理者が %1 を実行できます。</translation>
    </message>
</context>
<context>
    <name>TarvikApp</name>
    <message>
        <source>The windows of Tarvik are not installed</source>
        <translation>Tarvik のウインドウがインストールされていません</translation>
    </message>
    <message>
        <source>They are in the package “tarvik”.</source>
        <translation>パッケージ「tarvik」に含まれています。</translation>
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
        <translation>%1 分</translation>
    </message>
    <message>
        <source>%1 h %2 min</source>
        <translation>%1 時間 %2 分</translation>
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
            <numerusform>%n か月前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n months ago</source>
        <translation>
            <numerusform>%n か月前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n week ago</source>
        <translation>
            <numerusform>%n 週間前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n weeks ago</source>
        <translation>
            <numerusform>%n 週間前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n day ago</source>
        <translation>
            <numerusform>%n 日前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days ago</source>
        <translation>
            <numerusform>%n 日前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hour ago</source>
        <translation>
            <numerusform>%n 時間前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n hours ago</source>
        <translation>
            <numerusform>%n 時間前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minute ago</source>
        <translation>
            <numerusform>%n 分前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes ago</source>
        <translation>
            <numerusform>%n 分前</numerusform>
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
        <translation>最終確認: %1</translation>
    </message>
    <message>
        <source>Not checked yet.</source>
        <translation>まだ確認していません。</translation>
    </message>
    <message>
        <source>just now</source>
        <translation>たった今</translation>
    </message>
    <message>
        <source>No event yet. %1 sends the first one with your next prompt.</source>
        <translation>まだイベントはありません。次のプロンプトで %1 が最初のイベントを送信します。</translation>
    </message>
    <message>
        <source>No event yet. %1 reads its hooks when it starts: restart sessions that are already running.</source>
        <translation>まだイベントはありません。%1 は起動時にフックを読み込むため、実行中のセッションを再起動してください。</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 and approve the hooks when it asks: it skips them until you do.</source>
        <translation>まだイベントはありません。%1 を再起動し、確認されたらフックを承認してください。承認するまでフックは実行されません。</translation>
    </message>
    <message>
        <source>No event yet. Restart %1 in a folder that you have told it to trust: it skips hooks elsewhere.</source>
        <translation>まだイベントはありません。信頼済みのフォルダーで %1 を再起動してください。それ以外の場所ではフックは実行されません。</translation>
    </message>
    <message>
        <source>Last event %1</source>
        <translation>最後のイベント: %1</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>今日</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>昨日</translation>
    </message>
    <message numerus="yes">
        <source>%n h ago</source>
        <translation>
            <numerusform>%n 時間前</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n min ago</source>
        <translation>
            <numerusform>%n 分前</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrayPresenter</name>
    <message>
        <source>Open Tarvik…</source>
        <translation>Tarvik を開く…</translation>
    </message>
    <message>
        <source>Lock &amp; leave</source>
        <translation>ロックして離席</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>設定…</translation>
    </message>
    <message>
        <source>Quit Tarvik</source>
        <translation>Tarvik を終了</translation>
    </message>
</context>
<context>
    <name>TriggersTab</name>
    <message>
        <source>Coding agents</source>
        <translation>コーディングエージェント</translation>
    </message>
    <message>
        <source>Keep the Mac awake while any of %1 known coding agents is running.</source>
        <translation>既知の %1 種類のコーディングエージェントのいずれかが実行中の間、スリープを防止します。</translation>
    </message>
    <message>
        <source>Watch coding agents</source>
        <translation>コーディングエージェントを監視</translation>
    </message>
    <message>
        <source>Cursor, Zed, Warp and friends run their agent inside the editor, so Tarvik can only tell that the app is open — not that it&apos;s working. Your Mac stays awake for as long as the editor is running.</source>
        <translation>Cursor、Zed、Warp などはエディター内でエージェントを実行するため、Tarvik に分かるのはアプリが開いていることだけで、作業中かどうかは分かりません。エディターの実行中は、コンピューターはスリープしません。</translation>
    </message>
    <message>
        <source>Keep awake while an AI editor is open</source>
        <translation>AI エディターの使用中はスリープを防止</translation>
    </message>
</context>
<context>
    <name>UpdatesTab</name>
    <message>
        <source>Automatically check for updates</source>
        <translation>更新を自動的に確認</translation>
    </message>
    <message>
        <source>Automatically download and install updates</source>
        <translation>更新を自動的にダウンロードしてインストール</translation>
    </message>
    <message>
        <source>Tarvik %1</source>
        <translation>Tarvik %1</translation>
    </message>
    <message>
        <source>Check for Updates…</source>
        <translation>更新を確認…</translation>
    </message>
    <message>
        <source>This copy is updated together with the other packages of this computer.</source>
        <translation>このインストールは、このコンピューターの他のパッケージと一緒に更新されます。</translation>
    </message>
    <message>
        <source>This copy was built from source. To update it, build a newer version.</source>
        <translation>このインストールはソースからビルドされています。更新するには、新しいバージョンをビルドしてください。</translation>
    </message>
    <message>
        <source>This copy does not come from a package. To update it, install a newer version in its place.</source>
        <translation>このインストールはパッケージによるものではありません。更新するには、同じ場所に新しいバージョンをインストールしてください。</translation>
    </message>
    <message>
        <source>An update is installed. Tarvik restarts when the work has ended and its windows are closed.</source>
        <translation>アップデートがインストールされました。作業が終わり、ウインドウが閉じられると、Tarvik は再起動します。</translation>
    </message>
</context>
<context>
    <name>WelcomePage</name>
    <message>
        <source>Keep working, lid closed</source>
        <translation>ふたを閉じても作業を続ける</translation>
    </message>
    <message>
        <source>Let agents, builds, and downloads keep running after you shut the lid.</source>
        <translation>ふたを閉じた後も、エージェントやビルド、ダウンロードを実行し続けます。</translation>
    </message>
    <message>
        <source>macOS normally sleeps the moment you close the lid. Tarvik can override that — but it needs to install a small background helper first.</source>
        <translation>通常、ノートパソコンはふたを閉じるとすぐにスリープします。Tarvik はこれを変更できますが、先に小さなバックグラウンドヘルパーをインストールする必要があります。</translation>
    </message>
</context>
<context>
    <name>WhyDescription</name>
    <message>
        <source>sleep when idle</source>
        <translation>アイドル時のスリープ</translation>
    </message>
    <message>
        <source>displays off when idle</source>
        <translation>アイドル時のディスプレイのオフ</translation>
    </message>
    <message>
        <source>every sleep</source>
        <translation>すべてのスリープ</translation>
    </message>
    <message>
        <source>sleep when the lid is closed</source>
        <translation>ふたを閉じたときのスリープ</translation>
    </message>
    <message>
        <source>nothing on this desktop</source>
        <translation>このデスクトップでは効果なし</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>%1, not confirmed</source>
        <translation>%1、未確認</translation>
    </message>
    <message>
        <source>%1, without effect on this desktop</source>
        <translation>%1、このデスクトップでは効果なし</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>なし</translation>
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
        <translation>%1、最後のイベント %2</translation>
    </message>
    <message>
        <source>%1, no event yet</source>
        <translation>%1、イベントなし</translation>
    </message>
    <message>
        <source>The computer slept until %1</source>
        <translation>コンピューターは %1 までスリープ</translation>
    </message>
    <message>
        <source>The computer went to sleep</source>
        <translation>コンピューターがスリープに入りました</translation>
    </message>
    <message>
        <source>Tarvik: %1</source>
        <translation>Tarvik: %1</translation>
    </message>
    <message>
        <source>Tarvik holds off</source>
        <translation>Tarvik が防止</translation>
    </message>
    <message>
        <source>Others hold off</source>
        <translation>ほかが防止</translation>
    </message>
    <message>
        <source>Do not tell</source>
        <translation>情報なし</translation>
    </message>
    <message>
        <source>When idle</source>
        <translation>アイドル時</translation>
    </message>
    <message>
        <source>Hooks</source>
        <translation>フック</translation>
    </message>
    <message>
        <source>Lately</source>
        <translation>最近</translation>
    </message>
</context>
<context>
    <name>WhyText</name>
    <message>
        <source>%1; %2.</source>
        <translation>%1。%2。</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake because work is going on: %1.</source>
        <translation>作業中のため、Tarvik がこのコンピューターのスリープを防止しています: %1。</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1.</source>
        <translation>時間指定のセッションのため、Tarvik が %1 までこのコンピューターのスリープを防止しています。</translation>
    </message>
    <message>
        <source>Tarvik keeps this computer awake for a timed session, until %1, and because work is going on: %2.</source>
        <translation>時間指定のセッション（%1 まで）と作業のため、Tarvik がこのコンピューターのスリープを防止しています: %2。</translation>
    </message>
    <message>
        <source>Other programs keep this computer awake: %1.</source>
        <translation>ほかのプログラムがこのコンピューターのスリープを防止しています: %1。</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake (%2).</source>
        <translation>%1 がこのコンピューターのスリープを防止しています（%2）。</translation>
    </message>
    <message>
        <source>%1 keeps this computer awake.</source>
        <translation>%1 がこのコンピューターのスリープを防止しています。</translation>
    </message>
    <message>
        <source>what %1 would do when nobody uses it is not known</source>
        <translation>使用されていないときに %1 が何をするかは不明です</translation>
    </message>
    <message>
        <source>nothing here is set to put it to sleep</source>
        <translation>スリープさせる設定はありません</translation>
    </message>
    <message>
        <source>what would put it to sleep is not known</source>
        <translation>何によってスリープするかは不明です</translation>
    </message>
    <message>
        <source>This computer last slept from %1 to %2</source>
        <translation>このコンピューターの前回のスリープは %1 から %2 まででした</translation>
    </message>
    <message>
        <source>This computer last went to sleep at %1</source>
        <translation>このコンピューターは前回 %1 にスリープしました</translation>
    </message>
    <message>
        <source>Tarvik&apos;s journal has nothing from before that</source>
        <translation>それ以前の Tarvik の履歴はありません</translation>
    </message>
    <message>
        <source>Tarvik was not keeping it awake (since %1: %2)</source>
        <translation>Tarvik はスリープを防止していませんでした（%1 以降: %2）</translation>
    </message>
    <message>
        <source>whether Tarvik was running then is not known (its last word before was at %1: %2)</source>
        <translation>そのとき Tarvik が動作していたかは不明です（それ以前の最後の記録は %1: %2）</translation>
    </message>
    <message>
        <source>Tarvik was keeping it awake (since %1: %2), and what put it to sleep all the same is not known</source>
        <translation>Tarvik はスリープを防止していました（%1 以降: %2）が、それでもスリープした理由は不明です</translation>
    </message>
    <message>
        <source>Nothing holds this computer awake</source>
        <translation>このコンピューターのスリープを防止しているものはありません</translation>
    </message>
    <message>
        <source>Nothing that can be seen holds this computer awake</source>
        <translation>確認できる範囲では、このコンピューターのスリープを防止しているものはありません</translation>
    </message>
    <message>
        <source>Tarvik does not keep it awake (%1).</source>
        <translation>Tarvik はスリープを防止していません（%1）。</translation>
    </message>
    <message>
        <source>Tarvik wants to keep it awake, but none of its locks is known to work here: it may sleep all the same.</source>
        <translation>Tarvik はスリープを防止しようとしていますが、ここで有効とわかっている抑止がないため、スリープする可能性があります。</translation>
    </message>
    <message>
        <source>It would stay awake without Tarvik, too, because of %1.</source>
        <translation>Tarvik がなくても、%1 のためスリープしません。</translation>
    </message>
    <message>
        <source>Nothing here is set to put it to sleep anyway.</source>
        <translation>そもそも、スリープさせる設定はありません。</translation>
    </message>
    <message>
        <source>Its lid is closed, and Tarvik keeps it running all the same.</source>
        <translation>ふたは閉じていますが、Tarvik が動作を続けさせています。</translation>
    </message>
    <message>
        <source>When this computer slept last is not known.</source>
        <translation>このコンピューターが前回いつスリープしたかは不明です。</translation>
    </message>
    <message>
        <source>This computer has not slept since it was started.</source>
        <translation>このコンピューターは起動してからスリープしていません。</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1、%2</translation>
    </message>
    <message>
        <source>%1 does not put it to sleep</source>
        <translation>%1 はスリープさせません</translation>
    </message>
    <message>
        <source>%1 puts it to sleep when nobody uses it, but after how long is not known</source>
        <translation>%1 は使用されていないときにスリープさせますが、何分後かは不明です</translation>
    </message>
    <message>
        <source>%1 suspends it after %2 without activity</source>
        <translation>操作がないまま %2 経つと、%1 がサスペンドします</translation>
    </message>
    <message>
        <source>%1 hibernates it after %2 without activity</source>
        <translation>操作がないまま %2 経つと、%1 が休止状態にします</translation>
    </message>
    <message>
        <source>%1 shuts it down or logs out after %2 without activity</source>
        <translation>操作がないまま %2 経つと、%1 がシャットダウンまたはログアウトします</translation>
    </message>
</context>
</TS>
