<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>APIKeysTab</name>
    <message>
        <source>Remove this key</source>
        <translation>このキーを削除</translation>
    </message>
    <message>
        <source>Saved in Keychain</source>
        <translation>キーチェーンに保存済み</translation>
    </message>
    <message>
        <source>What is in the field is not saved yet.</source>
        <translation>入力欄の内容はまだ保存されていません。</translation>
    </message>
    <message>
        <source>This key is stored.</source>
        <translation>このキーは保存されています。</translation>
    </message>
</context>
<context>
    <name>AdvancedTab</name>
    <message>
        <source>Provider</source>
        <translation>プロバイダー</translation>
    </message>
    <message>
        <source>Auto selects Gemini by default, Grok when NSFW is on.
Pick a specific provider to use it for every generation.</source>
        <translation>「自動」は通常Geminiを、NSFWがオンのときはGrokを選びます。
特定のプロバイダーを選ぶと、すべての生成で使われます。</translation>
    </message>
    <message>
        <source>4K Upscaling</source>
        <translation>4Kアップスケール</translation>
    </message>
    <message>
        <source>Upscale Method</source>
        <translation>方法</translation>
    </message>
    <message>
        <source>Gemini uses the API (requires key). Local runs RealESRGAN on-device (offline, no API key needed).</source>
        <translation>GeminiはAPIを使います（キーが必要）。ローカルはこのデバイスでRealESRGANを実行します（オフライン、APIキー不要）。</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>モデル</translation>
    </message>
</context>
<context>
    <name>Album</name>
    <message>
        <source>Favorites</source>
        <translation>お気に入り</translation>
    </message>
    <message>
        <source>Uncategorized</source>
        <translation>未分類</translation>
    </message>
</context>
<context>
    <name>AlbumTile</name>
    <message numerus="yes">
        <source>%1, %n pictures</source>
        <translation>
            <numerusform>%1、画像%n枚</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AsideFile</name>
    <message>
        <source>%1 cannot be understood, nor be put aside: %2</source>
        <translation>%1 を解釈できず、退避もできません: %2</translation>
    </message>
    <message>
        <source>%1 could not be understood. It was put aside as %2, and a new one was begun.</source>
        <translation>%1 を解釈できませんでした。%2 として退避し、新しく作り直しました。</translation>
    </message>
</context>
<context>
    <name>Autostart</name>
    <message>
        <source>could not write the autostart entry</source>
        <translation>自動起動の項目を書き込めませんでした</translation>
    </message>
    <message>
        <source>Quorvane sets new pictures and keeps yours on every screen.</source>
        <translation>Quorvaneは新しい画像を設定し、あなたの画像をすべての画面に保ちます。</translation>
    </message>
    <message>
        <source>the desktop offers no autostart to a sandboxed program: %1</source>
        <translation>このデスクトップはサンドボックス内のプログラムに自動起動を提供していません: %1</translation>
    </message>
    <message>
        <source>the desktop did not answer whether Quorvane may start with the session</source>
        <translation>Quorvaneをセッションとともに起動してよいか、デスクトップが応答しませんでした</translation>
    </message>
    <message>
        <source>the desktop did not allow the change</source>
        <translation>デスクトップが変更を許可しませんでした</translation>
    </message>
</context>
<context>
    <name>BoundedAllocator</name>
    <message>
        <source>The model needs more than %1 MB of memory</source>
        <translation>モデルには%1 MBを超えるメモリが必要です</translation>
    </message>
    <message>
        <source>There is not enough memory for the model</source>
        <translation>モデルに必要なメモリが足りません</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>--prompt needs a text</source>
        <translation>--promptにはテキストが必要です</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>不明なオプション%1</translation>
    </message>
    <message>
        <source>unknown command %1</source>
        <translation>不明なコマンド%1</translation>
    </message>
    <message>
        <source>usage: %1</source>
        <translation>使い方: %1</translation>
    </message>
    <message>
        <source>--action needs one of: generate, toggle-auto, settings, quit</source>
        <translation>--actionには次のいずれかが必要です: generate, toggle-auto, settings, quit</translation>
    </message>
</context>
<context>
    <name>CommandTable</name>
    <message>
        <source>make a picture and set it as the wallpaper</source>
        <translation>画像を生成して壁紙に設定</translation>
    </message>
    <message>
        <source>make a 4K copy of a picture and set it</source>
        <translation>画像の4Kコピーを作って壁紙に設定</translation>
    </message>
    <message>
        <source>set a picture as the wallpaper of every screen</source>
        <translation>画像をすべての画面の壁紙に設定</translation>
    </message>
    <message>
        <source>provider, settings, schedule, wallpaper, screens</source>
        <translation>プロバイダー、設定、スケジュール、壁紙、画面</translation>
    </message>
    <message>
        <source>list the pictures, newest first</source>
        <translation>画像を新しい順に一覧表示</translation>
    </message>
    <message>
        <source>list the pictures by prompt</source>
        <translation>画像をプロンプトごとに一覧表示</translation>
    </message>
    <message>
        <source>mark a picture as a favourite, or no longer</source>
        <translation>画像をお気に入りに追加、または解除</translation>
    </message>
    <message>
        <source>delete a picture and its 4K partner for good</source>
        <translation>画像とその4Kの対を完全に削除</translation>
    </message>
    <message>
        <source>print all settings</source>
        <translation>すべての設定を表示</translation>
    </message>
    <message>
        <source>print a setting</source>
        <translation>設定を1つ表示</translation>
    </message>
    <message>
        <source>change a setting</source>
        <translation>設定を変更</translation>
    </message>
    <message>
        <source>go back to the default of a setting</source>
        <translation>設定を既定値に戻す</translation>
    </message>
    <message>
        <source>list the services whose API keys are stored</source>
        <translation>APIキーが保存されているサービスを一覧表示</translation>
    </message>
    <message>
        <source>store an API key, read from standard input</source>
        <translation>標準入力から読み込んだAPIキーを保存</translation>
    </message>
    <message>
        <source>delete an API key</source>
        <translation>APIキーを削除</translation>
    </message>
    <message>
        <source>automatic mode</source>
        <translation>自動モード</translation>
    </message>
    <message>
        <source>start with the session</source>
        <translation>セッションとともに起動</translation>
    </message>
    <message>
        <source>show the super-resolution network</source>
        <translation>超解像ネットワークを表示</translation>
    </message>
    <message>
        <source>check a network and make it yours</source>
        <translation>ネットワークを確認して自分用に設定</translation>
    </message>
    <message>
        <source>end the running application</source>
        <translation>実行中のアプリケーションを終了</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>キー</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>値</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>[--prompt TEXT]</source>
        <translation>[--prompt テキスト]</translation>
    </message>
    <message>
        <source>Usage: quorvane [--hidden]
       quorvane --action NAME
       quorvane COMMAND [--json]

Without a command the application starts and opens its window (--hidden: tray only).
--action starts it where it does not run, and does what the desktop entry&apos;s action
does: generate, toggle-auto, settings or quit.
</source>
        <translation>使い方: quorvane [--hidden]
        quorvane --action 名前
        quorvane コマンド [--json]

コマンドなしではアプリケーションを起動し、ウィンドウを開きます（--hidden: トレイのみ）。
--actionは実行中でなければアプリケーションを起動し、デスクトップエントリーの
アクションを行います: generate、toggle-auto、settings、quit。
</translation>
    </message>
    <message>
        <source>FILE is a path, or the name of a picture in the library.
ID is one of %1.
Exit status: 0 done, 1 ended with an error, 2 the command line is wrong.
</source>
        <translation>ファイルはパス、またはライブラリの画像の名前です。IDは%1のいずれかです。
終了ステータス: 0 完了、1 エラーで終了、2 コマンドラインの誤り。
</translation>
    </message>
    <message>
        <source>end what makes a picture</source>
        <translation>画像の作成を終える</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>could not delete %1</source>
        <translation>%1を削除できませんでした</translation>
    </message>
    <message>
        <source>no such file: %1</source>
        <translation>そのようなファイルはありません: %1</translation>
    </message>
    <message>
        <source>not in the library: %1</source>
        <translation>ライブラリにありません: %1</translation>
    </message>
    <message>
        <source>no key on standard input</source>
        <translation>標準入力にキーがありません</translation>
    </message>
    <message>
        <source>API key for %1: </source>
        <translation>%1のAPIキー: </translation>
    </message>
    <message>
        <source>standard input holds no key</source>
        <translation>標準入力にキーが含まれていません</translation>
    </message>
    <message>
        <source>the application is not running</source>
        <translation>アプリケーションは実行されていません</translation>
    </message>
    <message>
        <source>the application did not answer: %1</source>
        <translation>アプリケーションが応答しませんでした: %1</translation>
    </message>
    <message>
        <source>the application was asked to end and still runs</source>
        <translation>アプリケーションに終了を求めましたが、まだ実行中です</translation>
    </message>
    <message>
        <source>not a regular file: %1</source>
        <translation>通常のファイルではありません: %1</translation>
    </message>
    <message>
        <source>not a picture: %1</source>
        <translation>画像ではありません: %1</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>キャンセルしました。</translation>
    </message>
    <message>
        <source>Nothing is being made.</source>
        <translation>作成中のものはありません。</translation>
    </message>
</context>
<context>
    <name>DescribedError</name>
    <message>
        <source>The reason is not known.</source>
        <translation>理由は不明です。</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>メモリーが足りません。</translation>
    </message>
</context>
<context>
    <name>DesktopChoice</name>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, which is none of %2</source>
        <translation>QUORVANE_DESKTOPは“%1”ですが、%2のいずれでもありません</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but QUORVANE_WALLPAPER_COMMAND is not set</source>
        <translation>QUORVANE_DESKTOPは“%1”ですが、QUORVANE_WALLPAPER_COMMANDが設定されていません</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but SWAYSOCK is not set</source>
        <translation>QUORVANE_DESKTOPは“%1”ですが、SWAYSOCKが設定されていません</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but DISPLAY is not set</source>
        <translation>QUORVANE_DESKTOPは“%1”ですが、DISPLAYが設定されていません</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;</source>
        <translation>QUORVANE_DESKTOPは“%1”です</translation>
    </message>
    <message>
        <source>QUORVANE_WALLPAPER_COMMAND is set</source>
        <translation>QUORVANE_WALLPAPER_COMMANDが設定されています</translation>
    </message>
    <message>
        <source>sway answers on SWAYSOCK</source>
        <translation>swayがSWAYSOCKで応答しています</translation>
    </message>
    <message>
        <source>this Wayland desktop is not supported yet; QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture</source>
        <translation>このWaylandデスクトップにはまだ対応していません。QUORVANE_WALLPAPER_COMMANDで画像を設定するプログラムを指定できます</translation>
    </message>
    <message>
        <source>DISPLAY is set and no desktop paints over the X11 root window</source>
        <translation>DISPLAYが設定されており、X11のルートウィンドウの上に描画するデスクトップはありません</translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, which is not supported yet; QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture</source>
        <translation>XDG_CURRENT_DESKTOPは“%1”ですが、まだ対応していません。QUORVANE_WALLPAPER_COMMANDで画像を設定するプログラムを指定できます</translation>
    </message>
    <message>
        <source>SWAYSOCK is set, but nobody answers on it</source>
        <translation>SWAYSOCKは設定されていますが、応答がありません</translation>
    </message>
    <message>
        <source>neither SWAYSOCK nor DISPLAY is set</source>
        <translation>SWAYSOCKもDISPLAYも設定されていません</translation>
    </message>
    <message>
        <source>HYPRLAND_INSTANCE_SIGNATURE is not set</source>
        <translation>HYPRLAND_INSTANCE_SIGNATUREが設定されていません</translation>
    </message>
    <message>
        <source>WAYLAND_DISPLAY is not set</source>
        <translation>WAYLAND_DISPLAYが設定されていません</translation>
    </message>
    <message>
        <source>the compositor does not offer zwlr_layer_shell_v1</source>
        <translation>コンポジターがzwlr_layer_shell_v1を提供していません</translation>
    </message>
    <message>
        <source>no portal of this session sets wallpapers</source>
        <translation>このセッションには壁紙を設定するポータルがありません</translation>
    </message>
    <message>
        <source>its settings &quot;%1&quot; are not installed</source>
        <translation>その設定“%1”がインストールされていません</translation>
    </message>
    <message>
        <source>DISPLAY is not set</source>
        <translation>DISPLAYが設定されていません</translation>
    </message>
    <message>
        <source>%1 is not on the session bus</source>
        <translation>%1がセッションバスにありません</translation>
    </message>
    <message>
        <source> or </source>
        <translation>または</translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, and it draws the background</source>
        <translation>XDG_CURRENT_DESKTOPは“%1”で、これが背景を描画しています</translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, but %2</source>
        <translation>XDG_CURRENT_DESKTOPは“%1”ですが、%2</translation>
    </message>
    <message>
        <source>this is a sandbox, and its portal sets wallpapers</source>
        <translation>ここはサンドボックスで、そのポータルが壁紙を設定します</translation>
    </message>
    <message>
        <source>Hyprland answers on its socket</source>
        <translation>Hyprlandがソケットで応答しています</translation>
    </message>
    <message>
        <source>the compositor offers zwlr_layer_shell_v1; the picture is shown while the application runs</source>
        <translation>コンポジターがzwlr_layer_shell_v1を提供しています。画像はアプリケーションの実行中に表示されます</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but %2</source>
        <translation>QUORVANE_DESKTOPは“%1”ですが、%2</translation>
    </message>
    <message>
        <source>nothing else is known here, and the session&apos;s portal sets wallpapers</source>
        <translation>ほかに使える方法がなく、セッションのポータルが壁紙を設定します</translation>
    </message>
</context>
<context>
    <name>DesktopPictureCommand</name>
    <message>
        <source>The wallpaper command &quot;%1&quot; cannot be started: %2</source>
        <translation>壁紙コマンド“%1”を起動できません: %2</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; did not end within %2 seconds</source>
        <translation>壁紙コマンド“%1”は%2秒以内に終了しませんでした</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; ended with status %2</source>
        <translation>壁紙コマンド“%1”はステータス%2で終了しました</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; was ended by a signal</source>
        <translation>壁紙コマンド“%1”はシグナルで終了しました</translation>
    </message>
</context>
<context>
    <name>DesktopPictureGnome</name>
    <message>
        <source>The settings of %1 do not answer</source>
        <translation>%1の設定が応答しません</translation>
    </message>
</context>
<context>
    <name>DesktopPictureHyprland</name>
    <message>
        <source>hyprpaper does not answer</source>
        <translation>hyprpaperが応答しません</translation>
    </message>
    <message>
        <source>hyprpaper cannot take &quot;%1&quot;</source>
        <translation>hyprpaperは“%1”を受け付けられません</translation>
    </message>
</context>
<context>
    <name>DesktopPictureLayerShell</name>
    <message>
        <source>This desktop shows a background only while the program that drew it runs; start Quorvane, then set the picture</source>
        <translation>このデスクトップでは、背景を描画したプログラムの実行中にのみ背景が表示されます。Quorvaneを起動してから画像を設定してください</translation>
    </message>
</context>
<context>
    <name>DesktopPictureLxqt</name>
    <message>
        <source>LXQt&apos;s file manager is told not to draw the desktop</source>
        <translation>LXQtのファイルマネージャーはデスクトップを描画しない設定になっています</translation>
    </message>
    <message>
        <source>The X server cannot be reached</source>
        <translation>Xサーバーに接続できません</translation>
    </message>
    <message>
        <source>LXQt is set to one wallpaper for each monitor, which would distort the picture</source>
        <translation>LXQtがモニターごとに1つの壁紙を使う設定になっており、画像がゆがみます</translation>
    </message>
    <message>
        <source>LXQt does not answer</source>
        <translation>LXQtが応答しません</translation>
    </message>
</context>
<context>
    <name>DesktopPicturePlasma</name>
    <message>
        <source>Plasma&apos;s desktop does not run (org.kde.plasmashell is not on the session bus)</source>
        <translation>Plasmaのデスクトップが実行されていません（org.kde.plasmashellがセッションバスにありません）</translation>
    </message>
    <message>
        <source>Plasma: %1</source>
        <translation>Plasma: %1</translation>
    </message>
    <message>
        <source>Plasma answered: %1</source>
        <translation>Plasmaの応答: %1</translation>
    </message>
    <message>
        <source>Plasma does not answer</source>
        <translation>Plasmaが応答しません</translation>
    </message>
</context>
<context>
    <name>DesktopPicturePortal</name>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>画像を読み込めません: %1</translation>
    </message>
    <message>
        <source>The session bus does not answer</source>
        <translation>セッションバスが応答しません</translation>
    </message>
    <message>
        <source>Waiting for your answer to the desktop&apos;s question about the background</source>
        <translation>背景についてのデスクトップからの確認に、あなたの回答を待っています</translation>
    </message>
    <message>
        <source>You did not allow it to set the background</source>
        <translation>背景の設定が許可されませんでした</translation>
    </message>
    <message>
        <source>The desktop&apos;s portal refused the picture</source>
        <translation>デスクトップのポータルが画像を拒否しました</translation>
    </message>
</context>
<context>
    <name>DesktopPictureSway</name>
    <message>
        <source>sway has no screen &quot;%1&quot;</source>
        <translation>swayに画面“%1”はありません</translation>
    </message>
    <message>
        <source>sway&apos;s answer cannot be understood</source>
        <translation>swayの応答を理解できません</translation>
    </message>
    <message>
        <source>sway refused the picture</source>
        <translation>swayが画像を拒否しました</translation>
    </message>
</context>
<context>
    <name>DesktopPictureX11</name>
    <message>
        <source>The X server cannot be reached</source>
        <translation>Xサーバーに接続できません</translation>
    </message>
    <message>
        <source>The X server&apos;s colours are of a kind that is not supported</source>
        <translation>Xサーバーの色の形式には対応していません</translation>
    </message>
    <message>
        <source>The X server has no screen &quot;%1&quot;</source>
        <translation>Xサーバーに画面“%1”はありません</translation>
    </message>
    <message>
        <source>There is not enough memory for the picture</source>
        <translation>画像に必要なメモリが足りません</translation>
    </message>
    <message>
        <source>The X server does not answer</source>
        <translation>Xサーバーが応答しません</translation>
    </message>
    <message>
        <source>The X server did not take the picture: %1</source>
        <translation>Xサーバーが画像を受け付けませんでした: %1</translation>
    </message>
</context>
<context>
    <name>DesktopPictureXfce</name>
    <message>
        <source>XFCE did not keep the setting &quot;%1&quot;</source>
        <translation>XFCEが設定“%1”を保持しませんでした</translation>
    </message>
    <message>
        <source>XFCE does not answer</source>
        <translation>XFCEが応答しません</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No wallpapers yet</source>
        <translation>壁紙はまだありません</translation>
    </message>
    <message>
        <source>Generate your first wallpaper
using the sidebar controls.</source>
        <translation>サイドバーで最初の壁紙を
生成しましょう。</translation>
    </message>
</context>
<context>
    <name>FullScreenViewer</name>
    <message>
        <source>Quorvane</source>
        <translation>Quorvane</translation>
    </message>
</context>
<context>
    <name>Gallery</name>
    <message>
        <source>Albums</source>
        <translation>アルバム</translation>
    </message>
    <message>
        <source>Use Prompt</source>
        <translation>プロンプトを使う</translation>
    </message>
</context>
<context>
    <name>GeminiUpscale</name>
    <message>
        <source>Failed to parse upscale response</source>
        <translation>アップスケールの応答を解析できませんでした</translation>
    </message>
    <message>
        <source>No image in upscale response</source>
        <translation>アップスケールの応答に画像がありません</translation>
    </message>
    <message>
        <source>Upscale failed: %1</source>
        <translation>アップスケールに失敗しました: %1</translation>
    </message>
</context>
<context>
    <name>HandedPicture</name>
    <message>
        <source>The picture cannot be copied for the desktop</source>
        <translation>デスクトップ用に画像をコピーできません</translation>
    </message>
    <message>
        <source>No folder could hold a copy of the picture under a name that the desktop takes</source>
        <translation>デスクトップが受け付ける名前で画像のコピーを置けるフォルダーがありませんでした</translation>
    </message>
</context>
<context>
    <name>HistoryTile</name>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>4Kにアップスケール中…</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>お気に入りから外す</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>お気に入り</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>適用</translation>
    </message>
    <message>
        <source>%3, %1 of %2</source>
        <extracomment>What is read out of a picture, then its place among the others</extracomment>
        <translation>%3、%2枚中%1枚目</translation>
    </message>
    <message>
        <source>This picture cannot be read.</source>
        <translation>この画像を読み込めません。</translation>
    </message>
    <message>
        <source>Delete, together with its 4K partner</source>
        <translation>4K 版とともに削除</translation>
    </message>
</context>
<context>
    <name>HttpClient</name>
    <message>
        <source>The address is neither https nor on this machine.</source>
        <translation>アドレスがhttpsでもこのコンピューター上でもありません。</translation>
    </message>
    <message>
        <source>The service redirected to an address without encryption.</source>
        <translation>サービスが暗号化されないアドレスへ転送しました。</translation>
    </message>
    <message>
        <source>The service redirected too many times.</source>
        <translation>サービスの転送が多すぎます。</translation>
    </message>
    <message>
        <source>The request was cancelled.</source>
        <translation>要求はキャンセルされました。</translation>
    </message>
    <message>
        <source>The answer is larger than %1 MiB.</source>
        <translation>応答が%1 MiBを超えています。</translation>
    </message>
    <message>
        <source>No secure connection to %1: %2</source>
        <translation>%1との安全な接続がありません: %2</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>要求がタイムアウトしました。</translation>
    </message>
    <message>
        <source>The service closed the connection before it answered.</source>
        <translation>サービスが応答する前に接続を閉じました。</translation>
    </message>
    <message>
        <source>The service closed the connection in the middle of its answer.</source>
        <translation>サービスが応答の途中で接続を閉じました。</translation>
    </message>
    <message>
        <source>The service has moved to %1</source>
        <translation>サービスは %1 に移転しました</translation>
    </message>
    <message>
        <source>The service did not accept the API key.</source>
        <translation>サービスが API キーを受け付けませんでした。</translation>
    </message>
    <message>
        <source>The proxy asks for a name and a password.</source>
        <translation>プロキシが名前とパスワードを求めています。</translation>
    </message>
</context>
<context>
    <name>ImageRecords</name>
    <message>
        <source>MMM d, HH:mm</source>
        <comment>Day and time below a picture, in the letters of QLocale::toString()</comment>
        <translation>M月d日 HH:mm</translation>
    </message>
</context>
<context>
    <name>ImageService</name>
    <message>
        <source>Used for default generation and 4K upscaling.</source>
        <translation>通常の生成と4Kアップスケールに使います。</translation>
    </message>
    <message>
        <source>Used when NSFW is enabled.</source>
        <translation>NSFWがオンのときに使います。</translation>
    </message>
    <message>
        <source>Available as an override in Advanced settings.</source>
        <translation>「詳細」でプロバイダーとして選べます。</translation>
    </message>
</context>
<context>
    <name>ImageStore</name>
    <message>
        <source>%1 could not be deleted: %2</source>
        <translation>%1 を削除できませんでした: %2</translation>
    </message>
    <message>
        <source>%1 could not be brought back: %2</source>
        <translation>%1 を元に戻せませんでした: %2</translation>
    </message>
</context>
<context>
    <name>IntervalLabel</name>
    <message>
        <source>%1 min</source>
        <comment>an interval</comment>
        <translation>%1分</translation>
    </message>
    <message>
        <source>1 hour</source>
        <comment>an interval</comment>
        <translation>1時間</translation>
    </message>
    <message numerus="yes">
        <source>%n hours</source>
        <comment>an interval of two or more</comment>
        <translation>
            <numerusform>%n時間</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LayerShellBackgrounds</name>
    <message>
        <source>The compositor does not offer zwlr_layer_shell_v1</source>
        <translation>コンポジターがzwlr_layer_shell_v1を提供していません</translation>
    </message>
    <message>
        <source>The compositor has no screen &quot;%1&quot;</source>
        <translation>コンポジターに画面“%1”はありません</translation>
    </message>
    <message>
        <source>The compositor closed the background</source>
        <translation>コンポジターが背景を閉じました</translation>
    </message>
    <message>
        <source>The compositor cannot be given the picture: %1</source>
        <translation>コンポジターに画像を渡せません: %1</translation>
    </message>
</context>
<context>
    <name>LocalUpscaler</name>
    <message>
        <source>Failed to crop tile at (%1, %2)</source>
        <translation>(%1, %2)のタイルを切り出せませんでした</translation>
    </message>
    <message>
        <source>Failed to decode image for upscaling</source>
        <translation>アップスケールする画像をデコードできませんでした</translation>
    </message>
    <message>
        <source>The RealESRGAN model gave values that are not numbers for the tile at (%1, %2)</source>
        <translation>RealESRGANモデルが(%1, %2)のタイルで数値でない値を出力しました</translation>
    </message>
    <message>
        <source>Failed to create padding context</source>
        <translation>パディング用コンテキストを作成できませんでした</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Quorvane</source>
        <translation>Quorvane</translation>
    </message>
</context>
<context>
    <name>MenuBar</name>
    <message>
        <source>Generating...</source>
        <translation>生成中…</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>次回: %1</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>待機中</translation>
    </message>
    <message>
        <source>Generate Now</source>
        <translation>今すぐ生成</translation>
    </message>
    <message>
        <source>Auto-Generate</source>
        <translation>自動生成</translation>
    </message>
    <message>
        <source>Open Window</source>
        <translation>ウィンドウを開く</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>設定…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
</context>
<context>
    <name>MenuBarButton</name>
    <message>
        <source>Menu</source>
        <translation>メニュー</translation>
    </message>
</context>
<context>
    <name>MessageBus</name>
    <message>
        <source>%1 does not answer</source>
        <translation>%1が応答しません</translation>
    </message>
    <message>
        <source>The session bus cannot be reached</source>
        <translation>セッションバスに接続できません</translation>
    </message>
</context>
<context>
    <name>MissingKeys</name>
    <message>
        <source>Missing %1 API key</source>
        <translation>%1のAPIキーがありません</translation>
    </message>
    <message>
        <source>Open Settings (⌘,)</source>
        <translation>設定を開く (⌘,)</translation>
    </message>
</context>
<context>
    <name>ModelFiles</name>
    <message>
        <source>RealESRGAN model not found in app bundle</source>
        <translation>アプリケーションにRealESRGANモデルが見つかりません</translation>
    </message>
    <message>
        <source>The model cannot be read: %1</source>
        <translation>モデルを読み込めません: %1</translation>
    </message>
</context>
<context>
    <name>ModelInstall</name>
    <message>
        <source>The model cannot be copied: %1</source>
        <translation>モデルをコピーできません: %1</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>No new wallpaper</source>
        <translation>新しい壁紙はありません</translation>
    </message>
    <message>
        <source>New wallpaper</source>
        <translation>新しい壁紙</translation>
    </message>
</context>
<context>
    <name>Operations</name>
    <message>
        <source>Cancelled. The service may charge for what it was asked for.</source>
        <translation>キャンセルしました。依頼済みの分はサービスから請求されることがあります。</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>キャンセルしました。</translation>
    </message>
</context>
<context>
    <name>PictureFile</name>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>画像を読み込めません: %1</translation>
    </message>
</context>
<context>
    <name>PictureMenu</name>
    <message>
        <source>Set as Wallpaper</source>
        <translation>壁紙に設定</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>お気に入りから外す</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>お気に入り</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Show in Files</source>
        <translation>ファイルで表示</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
</context>
<context>
    <name>PlasmaScript</name>
    <message>
        <source>Plasma did not take the picture for screen %1</source>
        <translation>Plasmaが画面%1の画像を受け付けませんでした</translation>
    </message>
    <message>
        <source>Plasma has a desktop on %1 of its %2 screens</source>
        <translation>Plasmaのデスクトップは%2画面のうち%1画面にあります</translation>
    </message>
</context>
<context>
    <name>PngEncoder</name>
    <message>
        <source>Failed to encode upscaled image</source>
        <translation>アップスケールした画像をエンコードできませんでした</translation>
    </message>
</context>
<context>
    <name>PortalRequest</name>
    <message>
        <source>The desktop&apos;s portal ended before it answered</source>
        <translation>デスクトップのポータルが応答前に終了しました</translation>
    </message>
    <message>
        <source>Nobody waits for the desktop&apos;s question any more</source>
        <translation>デスクトップからの確認を待つものがなくなりました</translation>
    </message>
    <message>
        <source>The desktop&apos;s question was not answered</source>
        <translation>デスクトップからの確認に回答がありませんでした</translation>
    </message>
    <message>
        <source>There is no answer</source>
        <translation>応答がありません</translation>
    </message>
</context>
<context>
    <name>Preview</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>前へ</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>次へ</translation>
    </message>
    <message>
        <source>Set as Wallpaper</source>
        <translation>壁紙に設定</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>お気に入りから外す</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>お気に入り</translation>
    </message>
    <message>
        <source>Use Prompt</source>
        <translation>プロンプトを使う</translation>
    </message>
    <message>
        <source>Upscale to 4K</source>
        <translation>4Kにアップスケール</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>全画面表示</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>元の画像</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>there is no display; see quorvane --help for what needs none</source>
        <translation>ディスプレイがありません。不要な操作はquorvane --helpをご覧ください</translation>
    </message>
    <message>
        <source>the application runs already and can be told nothing without a session bus</source>
        <translation>アプリケーションはすでに動作していますが、セッションバスがないため何も伝えられません</translation>
    </message>
    <message>
        <source>there is no home folder: HOME names none, and the account has none</source>
        <translation>ホームフォルダーがありません: HOMEに指定がなく、アカウントにもありません</translation>
    </message>
    <message>
        <source>the application that runs already does not do it: %1</source>
        <translation>すでに実行中のアプリケーションが処理しません: %1</translation>
    </message>
</context>
<context>
    <name>ProgressText</name>
    <message numerus="yes">
        <source>%n s left</source>
        <comment>seconds</comment>
        <translation>
            <numerusform>残り%n秒</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n min left</source>
        <comment>minutes</comment>
        <translation>
            <numerusform>残り約%n分</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>%nタイル中%1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>tiles, time left</comment>
        <translation>%1、%2</translation>
    </message>
</context>
<context>
    <name>PromptEditor</name>
    <message>
        <source>Prompt</source>
        <translation>プロンプト</translation>
    </message>
</context>
<context>
    <name>PromptLine</name>
    <message>
        <source>Shows the whole prompt</source>
        <translation>プロンプト全体を表示</translation>
    </message>
</context>
<context>
    <name>PromptPanel</name>
    <message>
        <source>Prompt</source>
        <translation>プロンプト</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
</context>
<context>
    <name>ProviderChoice</name>
    <message>
        <source>Gemini (for 4K upscale)</source>
        <translation>Gemini（4Kアップスケール用）</translation>
    </message>
</context>
<context>
    <name>ProviderError</name>
    <message>
        <source>Invalid response: %1</source>
        <translation>無効な応答: %1</translation>
    </message>
    <message>
        <source>API error: %1</source>
        <translation>APIエラー: %1</translation>
    </message>
    <message>
        <source>Network error: %1</source>
        <translation>ネットワークエラー: %1</translation>
    </message>
</context>
<context>
    <name>Reports</name>
    <message>
        <source>on</source>
        <translation>オン</translation>
    </message>
    <message>
        <source>off</source>
        <translation>オフ</translation>
    </message>
    <message>
        <source>none</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Provider:     %1, model %2</source>
        <translation>プロバイダー:   %1、モデル %2</translation>
    </message>
    <message>
        <source>Missing keys: %1</source>
        <translation>不足するキー:   %1</translation>
    </message>
    <message>
        <source>Prompt:       %1</source>
        <translation>プロンプト:     %1</translation>
    </message>
    <message>
        <source>4K:           %1 (upscale method %2)</source>
        <translation>4K:             %1（アップスケール方法 %2）</translation>
    </message>
    <message>
        <source>NSFW:         %1</source>
        <translation>NSFW:           %1</translation>
    </message>
    <message>
        <source>Automatic:    %1, every %2</source>
        <translation>自動:           %1、間隔 %2</translation>
    </message>
    <message>
        <source>Wallpaper:    %1</source>
        <translation>壁紙:           %1</translation>
    </message>
    <message>
        <source>Desktop:      %1 (%2)</source>
        <translation>デスクトップ:   %1（%2）</translation>
    </message>
    <message>
        <source>Screens:      %1</source>
        <translation>画面:           %1</translation>
    </message>
    <message>
        <source>No wallpapers yet</source>
        <translation>壁紙はまだありません</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>%nタイル中%1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2:%3 left</source>
        <translation>%1、残り%2:%3</translation>
    </message>
</context>
<context>
    <name>Schedule</name>
    <message>
        <source>Schedule</source>
        <translation>スケジュール</translation>
    </message>
    <message>
        <source>Auto-generate</source>
        <translation>自動生成</translation>
    </message>
    <message>
        <source>Every</source>
        <translation>間隔</translation>
    </message>
</context>
<context>
    <name>ServiceRequest</name>
    <message>
        <source>Failed to decode base64 image</source>
        <translation>base64の画像をデコードできませんでした</translation>
    </message>
    <message>
        <source>%1 must be an https address, or http on this machine.</source>
        <translation>%1はhttpsのアドレスか、このコンピューター上のhttpでなければなりません。</translation>
    </message>
    <message>
        <source>Invalid URL</source>
        <translation>無効なURL</translation>
    </message>
    <message>
        <source>The stored API key has a character that cannot be sent. Save the key again.</source>
        <translation>保存されたAPIキーに送信できない文字があります。キーを保存し直してください。</translation>
    </message>
    <message>
        <source>Failed to parse response</source>
        <translation>応答を解析できませんでした</translation>
    </message>
    <message>
        <source>No image in response</source>
        <translation>応答に画像がありません</translation>
    </message>
</context>
<context>
    <name>SessionDesktops</name>
    <message>
        <source>%1 does not draw the background now: %2 is not on the session bus</source>
        <translation>%1は現在背景を描画していません: %2がセッションバスにありません</translation>
    </message>
    <message>
        <source> or </source>
        <translation>または</translation>
    </message>
</context>
<context>
    <name>SettingsGroup</name>
    <message>
        <source>The settings &quot;%1&quot; are not installed</source>
        <translation>設定“%1”がインストールされていません</translation>
    </message>
    <message>
        <source>The settings &quot;%1&quot; cannot be kept: GLib has no dconf here</source>
        <translation>設定“%1”を保存できません: ここではGLibにdconfがありません</translation>
    </message>
    <message>
        <source>The setting &quot;%1 %2&quot; cannot be changed</source>
        <translation>設定“%1 %2”を変更できません</translation>
    </message>
    <message>
        <source>The setting &quot;%1 %2&quot; was not kept</source>
        <translation>設定“%1 %2”は保持されませんでした</translation>
    </message>
</context>
<context>
    <name>SettingsTable</name>
    <message>
        <source>unknown setting %1</source>
        <translation>不明な設定%1</translation>
    </message>
    <message>
        <source>%1 takes true or false</source>
        <translation>%1にはtrueまたはfalseを指定します</translation>
    </message>
    <message>
        <source>%1 takes a whole number of minutes from 1 to %2</source>
        <translation>%1には1から%2までの整数の分を指定します</translation>
    </message>
    <message>
        <source>%1 takes one of: %2</source>
        <translation>%1には次のいずれかを指定します: %2</translation>
    </message>
    <message>
        <source>%1 takes the whole path of a picture</source>
        <translation>%1には画像の完全なパスを指定します</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>API Keys</source>
        <translation>APIキー</translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation>詳細</translation>
    </message>
</context>
<context>
    <name>SideFile</name>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 に書き込めませんでした: %2</translation>
    </message>
</context>
<context>
    <name>Sidebar</name>
    <message>
        <source>Prompt</source>
        <translation>プロンプト</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>4K resolution</source>
        <translation>4K解像度</translation>
    </message>
    <message>
        <source>NSFW</source>
        <translation>NSFW</translation>
    </message>
    <message>
        <source>Generating...</source>
        <translation>生成中…</translation>
    </message>
    <message>
        <source>Generate &amp; Set Wallpaper</source>
        <translation>生成して壁紙に設定</translation>
    </message>
    <message>
        <source>Ctrl+Enter</source>
        <translation>Ctrl+Enter</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>SuperResolutionModel</name>
    <message>
        <source>element type %1</source>
        <translation>要素型%1</translation>
    </message>
    <message>
        <source>any</source>
        <comment>a length</comment>
        <translation>任意</translation>
    </message>
    <message>
        <source>The model does not fit: %1; needed is %2</source>
        <translation>モデルが適合しません: %1。必要なのは%2です</translation>
    </message>
    <message>
        <source>float32 or float16 %1, or any height and width</source>
        <translation>float32またはfloat16の%1、または任意の高さと幅</translation>
    </message>
    <message>
        <source>its input is %1 %2</source>
        <translation>入力が%1 %2です</translation>
    </message>
    <message>
        <source>its output is %1 %2</source>
        <translation>出力が%1 %2です</translation>
    </message>
    <message>
        <source>its input has no declared shape</source>
        <translation>入力の形状が宣言されていません</translation>
    </message>
    <message>
        <source>it has %1 inputs and %2 outputs</source>
        <translation>入力が%1個、出力が%2個あります</translation>
    </message>
    <message>
        <source>one picture in and one out</source>
        <translation>入力画像1つと出力画像1つ</translation>
    </message>
    <message>
        <source>No result from RealESRGAN model</source>
        <translation>RealESRGANモデルから結果が得られませんでした</translation>
    </message>
    <message>
        <source>Failed to convert upscaled tile to CGImage</source>
        <translation>アップスケールしたタイルをCGImageに変換できませんでした</translation>
    </message>
    <message>
        <source>it made %1 of a tile</source>
        <translation>タイルから%1を作りました</translation>
    </message>
    <message>
        <source>%1, %2, in &quot;%3&quot;, out &quot;%4&quot;</source>
        <translation>%1、%2、入力“%3”、出力“%4”</translation>
    </message>
    <message>
        <source>tiles of 512 × 512</source>
        <translation>512 × 512のタイル</translation>
    </message>
    <message>
        <source>tiles of any size</source>
        <translation>任意の大きさのタイル</translation>
    </message>
    <message>
        <source>it keeps weights in other files</source>
        <translation>重みが別のファイルにあります</translation>
    </message>
    <message>
        <source>one file with everything in it</source>
        <translation>すべてを含む一つのファイル</translation>
    </message>
    <message>
        <source>its file is empty</source>
        <translation>ファイルが空です</translation>
    </message>
    <message>
        <source>an ONNX file</source>
        <translation>ONNX ファイル</translation>
    </message>
    <message>
        <source>its reach is &quot;%1&quot;</source>
        <translation>参照範囲が「%1」です</translation>
    </message>
    <message>
        <source>a whole number of 1 to %1</source>
        <translation>1 から %1 までの整数</translation>
    </message>
</context>
<context>
    <name>SwaySocket</name>
    <message>
        <source>sway cannot be reached: %1</source>
        <translation>swayに接続できません: %1</translation>
    </message>
    <message>
        <source>sway&apos;s answer cannot be understood</source>
        <translation>swayの応答を理解できません</translation>
    </message>
    <message>
        <source>sway does not answer</source>
        <translation>swayが応答しません</translation>
    </message>
    <message>
        <source>sway ended the connection: %1</source>
        <translation>swayが接続を終了しました: %1</translation>
    </message>
    <message>
        <source>sway ended the connection</source>
        <translation>swayが接続を終了しました</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Deleted</source>
        <translation>削除しました</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
</context>
<context>
    <name>UpscaleErrors</name>
    <message>
        <source>The upscale was stopped</source>
        <translation>アップスケールは中止されました</translation>
    </message>
</context>
<context>
    <name>UpscaledCanvas</name>
    <message>
        <source>Failed to create output context</source>
        <translation>出力用コンテキストを作成できませんでした</translation>
    </message>
    <message>
        <source>The upscaled image does not resemble the original at tile (%1, %2)</source>
        <translation>アップスケールした画像が(%1, %2)のタイルで元の画像と似ていません</translation>
    </message>
</context>
<context>
    <name>UpscalingNotice</name>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>4Kにアップスケール中…</translation>
    </message>
</context>
<context>
    <name>UserDefaults</name>
    <message>
        <source>could not read %1: %2</source>
        <translation>%1を読み込めませんでした: %2</translation>
    </message>
    <message>
        <source>could not write %1: %2</source>
        <translation>%1に書き込めませんでした: %2</translation>
    </message>
</context>
<context>
    <name>WaylandConnection</name>
    <message>
        <source>The compositor cannot be reached</source>
        <translation>コンポジターに接続できません</translation>
    </message>
    <message>
        <source>The compositor ended the connection: %1</source>
        <translation>コンポジターが接続を終了しました: %1</translation>
    </message>
    <message>
        <source>The compositor does not answer</source>
        <translation>コンポジターが応答しません</translation>
    </message>
</context>
<context>
    <name>WholeFile</name>
    <message>
        <source>Not a regular file</source>
        <translation>通常のファイルではありません</translation>
    </message>
</context>
<context>
    <name>quorvane::APIKeyRow</name>
    <message>
        <source>%1 API Key</source>
        <translation>%1のAPIキー</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>更新</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
</context>
<context>
    <name>quorvane::AdvancedModel</name>
    <message>
        <source>%1 Model</source>
        <translation>%1のモデル</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>%1 produces 4K natively — no upscaling needed.</source>
        <translation>%1は4Kを直接生成します — アップスケールは不要です。</translation>
    </message>
    <message>
        <source>Gemini (API)</source>
        <translation>Gemini (API)</translation>
    </message>
    <message>
        <source>Local (on-device)</source>
        <translation>ローカル（このデバイス）</translation>
    </message>
</context>
<context>
    <name>quorvane::ImageListModel</name>
    <message>
        <source>favorite</source>
        <translation>お気に入り</translation>
    </message>
    <message>
        <source>4K</source>
        <translation>4K</translation>
    </message>
    <message>
        <source>current wallpaper</source>
        <translation>現在の壁紙</translation>
    </message>
    <message>
        <source>being upscaled to 4K</source>
        <translation>4Kにアップスケール中</translation>
    </message>
    <message>
        <source>, </source>
        <comment>Between what is read out of one picture</comment>
        <translation>、</translation>
    </message>
</context>
<context>
    <name>quorvane::PreviewModel</name>
    <message>
        <source>This picture is not there any more.</source>
        <translation>この画像はもうありません。</translation>
    </message>
    <message>
        <source>This picture cannot be read.</source>
        <translation>この画像を読み込めません。</translation>
    </message>
</context>
<context>
    <name>quorvane::Scenes</name>
    <message>
        <source>it is no window</source>
        <translation>ウィンドウではありません</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1を開けません: %2</translation>
    </message>
</context>
<context>
    <name>quorvane::SidebarModel</name>
    <message>
        <source>+ Local 4K</source>
        <translation>+ ローカル4K</translation>
    </message>
    <message>
        <source>+ Gemini 4K</source>
        <translation>+ Gemini 4K</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>次回: %1</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperApp</name>
    <message>
        <source>The window cannot be opened</source>
        <translation>ウィンドウを開けません</translation>
    </message>
    <message>
        <source>The settings are not kept</source>
        <translation>設定が保存されません</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperManager</name>
    <message>
        <source>Wallpaper set!</source>
        <translation>壁紙を設定しました！</translation>
    </message>
    <message>
        <source>Missing %1 API key — open Settings (⌘,)</source>
        <translation>%1のAPIキーがありません — 設定を開いてください (⌘,)</translation>
    </message>
    <message>
        <source>Failed to save image</source>
        <translation>画像を保存できませんでした</translation>
    </message>
    <message>
        <source>Upscaling to 4K (local)...</source>
        <translation>4Kにアップスケール中（ローカル）…</translation>
    </message>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>4Kにアップスケール中…</translation>
    </message>
    <message>
        <source>Local upscale failed, using original — %1</source>
        <translation>ローカルでのアップスケールに失敗したため、元の画像を使います — %1</translation>
    </message>
    <message>
        <source>Upscale failed, using original — %1</source>
        <translation>アップスケールに失敗したため、元の画像を使います — %1</translation>
    </message>
    <message>
        <source>No Gemini API key — switch to Local upscale in Settings &gt; Advanced</source>
        <translation>GeminiのAPIキーがありません — 設定 &gt; 詳細でローカルのアップスケールに切り替えてください</translation>
    </message>
    <message>
        <source>Upscale failed: %1</source>
        <translation>アップスケールに失敗しました: %1</translation>
    </message>
    <message>
        <source>Failed to save upscaled image</source>
        <translation>アップスケールした画像を保存できませんでした</translation>
    </message>
    <message>
        <source>Quorvane is quitting</source>
        <translation>Quorvane を終了しています</translation>
    </message>
    <message>
        <source>the picture was deleted</source>
        <translation>画像が削除されました</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperSetter</name>
    <message>
        <source>No screen found</source>
        <translation>画面が見つかりません</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>失敗しました: %1</translation>
    </message>
    <message>
        <source>Failed to sync wallpaper: %1</source>
        <translation>壁紙を同期できませんでした: %1</translation>
    </message>
</context>
</TS>
