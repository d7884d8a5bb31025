<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>APIKeysTab</name>
    <message>
        <source>Remove this key</source>
        <translation>移除此密钥</translation>
    </message>
    <message>
        <source>Saved in Keychain</source>
        <translation>已保存到钥匙串</translation>
    </message>
    <message>
        <source>What is in the field is not saved yet.</source>
        <translation>输入框中的内容尚未保存。</translation>
    </message>
    <message>
        <source>This key is stored.</source>
        <translation>此密钥已保存。</translation>
    </message>
</context>
<context>
    <name>AdvancedTab</name>
    <message>
        <source>Provider</source>
        <translation>服务商</translation>
    </message>
    <message>
        <source>Auto selects Gemini by default, Grok when NSFW is on.
Pick a specific provider to use it for every generation.</source>
        <translation>“自动”默认选择 Gemini，开启 NSFW 时选择 Grok。
选择某个服务商后，每次生成都会使用它。</translation>
    </message>
    <message>
        <source>4K Upscaling</source>
        <translation>4K 放大</translation>
    </message>
    <message>
        <source>Upscale Method</source>
        <translation>放大方式</translation>
    </message>
    <message>
        <source>Gemini uses the API (requires key). Local runs RealESRGAN on-device (offline, no API key needed).</source>
        <translation>Gemini 使用 API（需要密钥）。本地在此设备上运行 RealESRGAN（离线，无需 API 密钥）。</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>模型</translation>
    </message>
</context>
<context>
    <name>Album</name>
    <message>
        <source>Favorites</source>
        <translation>收藏</translation>
    </message>
    <message>
        <source>Uncategorized</source>
        <translation>未分类</translation>
    </message>
</context>
<context>
    <name>AlbumTile</name>
    <message numerus="yes">
        <source>%1, %n pictures</source>
        <translation>
            <numerusform>%1，%n 张图片</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AsideFile</name>
    <message>
        <source>%1 cannot be understood, nor be put aside: %2</source>
        <translation>无法理解 %1，也无法将其移至一旁：%2</translation>
    </message>
    <message>
        <source>%1 could not be understood. It was put aside as %2, and a new one was begun.</source>
        <translation>无法理解 %1。已将其另存为 %2，并重新开始。</translation>
    </message>
</context>
<context>
    <name>Autostart</name>
    <message>
        <source>could not write the autostart entry</source>
        <translation>无法写入自动启动项</translation>
    </message>
    <message>
        <source>Quorvane sets new pictures and keeps yours on every screen.</source>
        <translation>Quorvane 设置新图片，并让您的图片保持在每个屏幕上。</translation>
    </message>
    <message>
        <source>the desktop offers no autostart to a sandboxed program: %1</source>
        <translation>桌面不为沙盒中的程序提供自动启动：%1</translation>
    </message>
    <message>
        <source>the desktop did not answer whether Quorvane may start with the session</source>
        <translation>桌面没有应答 Quorvane 是否可以随会话启动</translation>
    </message>
    <message>
        <source>the desktop did not allow the change</source>
        <translation>桌面不允许此更改</translation>
    </message>
</context>
<context>
    <name>BoundedAllocator</name>
    <message>
        <source>The model needs more than %1 MB of memory</source>
        <translation>模型需要超过 %1 MB 内存</translation>
    </message>
    <message>
        <source>There is not enough memory for the model</source>
        <translation>内存不足，无法运行模型</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>--prompt needs a text</source>
        <translation>--prompt 需要一段文字</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>未知选项 %1</translation>
    </message>
    <message>
        <source>unknown command %1</source>
        <translation>未知命令 %1</translation>
    </message>
    <message>
        <source>usage: %1</source>
        <translation>用法：%1</translation>
    </message>
    <message>
        <source>--action needs one of: generate, toggle-auto, settings, quit</source>
        <translation>--action 需要以下之一：generate, toggle-auto, settings, quit</translation>
    </message>
</context>
<context>
    <name>CommandTable</name>
    <message>
        <source>make a picture and set it as the wallpaper</source>
        <translation>生成图片并设为壁纸</translation>
    </message>
    <message>
        <source>make a 4K copy of a picture and set it</source>
        <translation>制作图片的 4K 副本并设为壁纸</translation>
    </message>
    <message>
        <source>set a picture as the wallpaper of every screen</source>
        <translation>将图片设为所有屏幕的壁纸</translation>
    </message>
    <message>
        <source>provider, settings, schedule, wallpaper, screens</source>
        <translation>服务商、设置、计划、壁纸、屏幕</translation>
    </message>
    <message>
        <source>list the pictures, newest first</source>
        <translation>列出图片，最新的在前</translation>
    </message>
    <message>
        <source>list the pictures by prompt</source>
        <translation>按提示词列出图片</translation>
    </message>
    <message>
        <source>mark a picture as a favourite, or no longer</source>
        <translation>收藏图片，或取消收藏</translation>
    </message>
    <message>
        <source>delete a picture and its 4K partner for good</source>
        <translation>永久删除图片及其 4K 对应图片</translation>
    </message>
    <message>
        <source>print all settings</source>
        <translation>显示全部设置</translation>
    </message>
    <message>
        <source>print a setting</source>
        <translation>显示一项设置</translation>
    </message>
    <message>
        <source>change a setting</source>
        <translation>更改一项设置</translation>
    </message>
    <message>
        <source>go back to the default of a setting</source>
        <translation>将一项设置恢复为默认值</translation>
    </message>
    <message>
        <source>list the services whose API keys are stored</source>
        <translation>列出已保存 API 密钥的服务</translation>
    </message>
    <message>
        <source>store an API key, read from standard input</source>
        <translation>保存从标准输入读取的 API 密钥</translation>
    </message>
    <message>
        <source>delete an API key</source>
        <translation>删除 API 密钥</translation>
    </message>
    <message>
        <source>automatic mode</source>
        <translation>自动模式</translation>
    </message>
    <message>
        <source>start with the session</source>
        <translation>随会话启动</translation>
    </message>
    <message>
        <source>show the super-resolution network</source>
        <translation>显示超分辨率网络</translation>
    </message>
    <message>
        <source>check a network and make it yours</source>
        <translation>检查一个网络并用作自己的网络</translation>
    </message>
    <message>
        <source>end the running application</source>
        <translation>结束正在运行的应用程序</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>键</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>值</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>[--prompt TEXT]</source>
        <translation>[--prompt 文字]</translation>
    </message>
    <message>
        <source>Usage: quorvane [--hidden]
       quorvane --action NAME
       quorvane COMMAND [--json]

Without a command the application starts and opens its window (--hidden: tray only).
--action starts it where it does not run, and does what the desktop entry&apos;s action
does: generate, toggle-auto, settings or quit.
</source>
        <translation>用法：quorvane [--hidden]
      quorvane --action 名称
      quorvane 命令 [--json]

不带命令时，启动应用程序并打开其窗口（--hidden：仅托盘）。
--action 在应用程序未运行时启动它，并执行桌面条目中的操作：
generate、toggle-auto、settings 或 quit。
</translation>
    </message>
    <message>
        <source>FILE is a path, or the name of a picture in the library.
ID is one of %1.
Exit status: 0 done, 1 ended with an error, 2 the command line is wrong.
</source>
        <translation>文件可以是路径，也可以是图库中图片的名称。ID 为 %1 之一。
退出状态：0 完成，1 因错误结束，2 命令行有误。
</translation>
    </message>
    <message>
        <source>end what makes a picture</source>
        <translation>结束正在生成的图片</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>could not delete %1</source>
        <translation>无法删除 %1</translation>
    </message>
    <message>
        <source>no such file: %1</source>
        <translation>没有此文件：%1</translation>
    </message>
    <message>
        <source>not in the library: %1</source>
        <translation>不在图库中：%1</translation>
    </message>
    <message>
        <source>no key on standard input</source>
        <translation>标准输入中没有密钥</translation>
    </message>
    <message>
        <source>API key for %1: </source>
        <translation>%1 的 API 密钥：</translation>
    </message>
    <message>
        <source>standard input holds no key</source>
        <translation>标准输入不包含密钥</translation>
    </message>
    <message>
        <source>the application is not running</source>
        <translation>应用程序未在运行</translation>
    </message>
    <message>
        <source>the application did not answer: %1</source>
        <translation>应用程序没有应答：%1</translation>
    </message>
    <message>
        <source>the application was asked to end and still runs</source>
        <translation>已要求应用程序结束，但它仍在运行</translation>
    </message>
    <message>
        <source>not a regular file: %1</source>
        <translation>不是普通文件：%1</translation>
    </message>
    <message>
        <source>not a picture: %1</source>
        <translation>不是图片：%1</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>已取消。</translation>
    </message>
    <message>
        <source>Nothing is being made.</source>
        <translation>当前没有正在生成的内容。</translation>
    </message>
</context>
<context>
    <name>DescribedError</name>
    <message>
        <source>The reason is not known.</source>
        <translation>原因不明。</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>内存不足。</translation>
    </message>
</context>
<context>
    <name>DesktopChoice</name>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, which is none of %2</source>
        <translation>QUORVANE_DESKTOP 为“%1”，不属于 %2</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but QUORVANE_WALLPAPER_COMMAND is not set</source>
        <translation>QUORVANE_DESKTOP 为“%1”，但未设置 QUORVANE_WALLPAPER_COMMAND</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but SWAYSOCK is not set</source>
        <translation>QUORVANE_DESKTOP 为“%1”，但未设置 SWAYSOCK</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but DISPLAY is not set</source>
        <translation>QUORVANE_DESKTOP 为“%1”，但未设置 DISPLAY</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;</source>
        <translation>QUORVANE_DESKTOP 为“%1”</translation>
    </message>
    <message>
        <source>QUORVANE_WALLPAPER_COMMAND is set</source>
        <translation>已设置 QUORVANE_WALLPAPER_COMMAND</translation>
    </message>
    <message>
        <source>sway answers on SWAYSOCK</source>
        <translation>sway 在 SWAYSOCK 上应答</translation>
    </message>
    <message>
        <source>this Wayland desktop is not supported yet; QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture</source>
        <translation>尚不支持此 Wayland 桌面；可用 QUORVANE_WALLPAPER_COMMAND 指定设置图片的程序</translation>
    </message>
    <message>
        <source>DISPLAY is set and no desktop paints over the X11 root window</source>
        <translation>已设置 DISPLAY，且没有桌面遮盖 X11 根窗口</translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, which is not supported yet; QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture</source>
        <translation>XDG_CURRENT_DESKTOP 为“%1”，尚不支持；可用 QUORVANE_WALLPAPER_COMMAND 指定设置图片的程序</translation>
    </message>
    <message>
        <source>SWAYSOCK is set, but nobody answers on it</source>
        <translation>已设置 SWAYSOCK，但无人应答</translation>
    </message>
    <message>
        <source>neither SWAYSOCK nor DISPLAY is set</source>
        <translation>SWAYSOCK 和 DISPLAY 均未设置</translation>
    </message>
    <message>
        <source>HYPRLAND_INSTANCE_SIGNATURE is not set</source>
        <translation>未设置 HYPRLAND_INSTANCE_SIGNATURE</translation>
    </message>
    <message>
        <source>WAYLAND_DISPLAY is not set</source>
        <translation>未设置 WAYLAND_DISPLAY</translation>
    </message>
    <message>
        <source>the compositor does not offer zwlr_layer_shell_v1</source>
        <translation>合成器不提供 zwlr_layer_shell_v1</translation>
    </message>
    <message>
        <source>no portal of this session sets wallpapers</source>
        <translation>此会话中没有能设置壁纸的门户</translation>
    </message>
    <message>
        <source>its settings &quot;%1&quot; are not installed</source>
        <translation>其设置“%1”未安装</translation>
    </message>
    <message>
        <source>DISPLAY is not set</source>
        <translation>未设置 DISPLAY</translation>
    </message>
    <message>
        <source>%1 is not on the session bus</source>
        <translation>%1 不在会话总线上</translation>
    </message>
    <message>
        <source> or </source>
        <translation> 或 </translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, and it draws the background</source>
        <translation>XDG_CURRENT_DESKTOP 为“%1”，且由它绘制背景</translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, but %2</source>
        <translation>XDG_CURRENT_DESKTOP 为“%1”，但%2</translation>
    </message>
    <message>
        <source>this is a sandbox, and its portal sets wallpapers</source>
        <translation>这是沙盒，由其门户设置壁纸</translation>
    </message>
    <message>
        <source>Hyprland answers on its socket</source>
        <translation>Hyprland 在其套接字上应答</translation>
    </message>
    <message>
        <source>the compositor offers zwlr_layer_shell_v1; the picture is shown while the application runs</source>
        <translation>合成器提供 zwlr_layer_shell_v1；图片在应用程序运行期间显示</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but %2</source>
        <translation>QUORVANE_DESKTOP 为“%1”，但%2</translation>
    </message>
    <message>
        <source>nothing else is known here, and the session&apos;s portal sets wallpapers</source>
        <translation>此处没有其他已知方式，由会话的门户设置壁纸</translation>
    </message>
</context>
<context>
    <name>DesktopPictureCommand</name>
    <message>
        <source>The wallpaper command &quot;%1&quot; cannot be started: %2</source>
        <translation>无法启动壁纸命令“%1”：%2</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; did not end within %2 seconds</source>
        <translation>壁纸命令“%1”未在 %2 秒内结束</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; ended with status %2</source>
        <translation>壁纸命令“%1”以状态 %2 结束</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; was ended by a signal</source>
        <translation>壁纸命令“%1”被信号终止</translation>
    </message>
</context>
<context>
    <name>DesktopPictureGnome</name>
    <message>
        <source>The settings of %1 do not answer</source>
        <translation>%1 的设置没有应答</translation>
    </message>
</context>
<context>
    <name>DesktopPictureHyprland</name>
    <message>
        <source>hyprpaper does not answer</source>
        <translation>hyprpaper 没有应答</translation>
    </message>
    <message>
        <source>hyprpaper cannot take &quot;%1&quot;</source>
        <translation>hyprpaper 无法接受“%1”</translation>
    </message>
</context>
<context>
    <name>DesktopPictureLayerShell</name>
    <message>
        <source>This desktop shows a background only while the program that drew it runs; start Quorvane, then set the picture</source>
        <translation>此桌面仅在绘制背景的程序运行期间显示背景；请先启动 Quorvane，再设置图片</translation>
    </message>
</context>
<context>
    <name>DesktopPictureLxqt</name>
    <message>
        <source>LXQt&apos;s file manager is told not to draw the desktop</source>
        <translation>LXQt 的文件管理器被设为不绘制桌面</translation>
    </message>
    <message>
        <source>The X server cannot be reached</source>
        <translation>无法连接 X 服务器</translation>
    </message>
    <message>
        <source>LXQt is set to one wallpaper for each monitor, which would distort the picture</source>
        <translation>LXQt 被设为每个显示器一张壁纸，这会使图片变形</translation>
    </message>
    <message>
        <source>LXQt does not answer</source>
        <translation>LXQt 没有应答</translation>
    </message>
</context>
<context>
    <name>DesktopPicturePlasma</name>
    <message>
        <source>Plasma&apos;s desktop does not run (org.kde.plasmashell is not on the session bus)</source>
        <translation>Plasma 的桌面未在运行（org.kde.plasmashell 不在会话总线上）</translation>
    </message>
    <message>
        <source>Plasma: %1</source>
        <translation>Plasma：%1</translation>
    </message>
    <message>
        <source>Plasma answered: %1</source>
        <translation>Plasma 应答：%1</translation>
    </message>
    <message>
        <source>Plasma does not answer</source>
        <translation>Plasma 没有应答</translation>
    </message>
</context>
<context>
    <name>DesktopPicturePortal</name>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>无法读取图片：%1</translation>
    </message>
    <message>
        <source>The session bus does not answer</source>
        <translation>会话总线没有应答</translation>
    </message>
    <message>
        <source>Waiting for your answer to the desktop&apos;s question about the background</source>
        <translation>正在等待您回答桌面有关背景的询问</translation>
    </message>
    <message>
        <source>You did not allow it to set the background</source>
        <translation>您不允许设置背景</translation>
    </message>
    <message>
        <source>The desktop&apos;s portal refused the picture</source>
        <translation>桌面的门户拒绝了图片</translation>
    </message>
</context>
<context>
    <name>DesktopPictureSway</name>
    <message>
        <source>sway has no screen &quot;%1&quot;</source>
        <translation>sway 没有屏幕“%1”</translation>
    </message>
    <message>
        <source>sway&apos;s answer cannot be understood</source>
        <translation>无法理解 sway 的应答</translation>
    </message>
    <message>
        <source>sway refused the picture</source>
        <translation>sway 拒绝了图片</translation>
    </message>
</context>
<context>
    <name>DesktopPictureX11</name>
    <message>
        <source>The X server cannot be reached</source>
        <translation>无法连接 X 服务器</translation>
    </message>
    <message>
        <source>The X server&apos;s colours are of a kind that is not supported</source>
        <translation>不支持 X 服务器的颜色格式</translation>
    </message>
    <message>
        <source>The X server has no screen &quot;%1&quot;</source>
        <translation>X 服务器没有屏幕“%1”</translation>
    </message>
    <message>
        <source>There is not enough memory for the picture</source>
        <translation>内存不足，无法处理图片</translation>
    </message>
    <message>
        <source>The X server does not answer</source>
        <translation>X 服务器没有应答</translation>
    </message>
    <message>
        <source>The X server did not take the picture: %1</source>
        <translation>X 服务器未接受图片：%1</translation>
    </message>
</context>
<context>
    <name>DesktopPictureXfce</name>
    <message>
        <source>XFCE did not keep the setting &quot;%1&quot;</source>
        <translation>XFCE 没有保留设置“%1”</translation>
    </message>
    <message>
        <source>XFCE does not answer</source>
        <translation>XFCE 没有应答</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No wallpapers yet</source>
        <translation>还没有壁纸</translation>
    </message>
    <message>
        <source>Generate your first wallpaper
using the sidebar controls.</source>
        <translation>使用侧边栏的控件
生成您的第一张壁纸。</translation>
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
        <translation>相册</translation>
    </message>
    <message>
        <source>Use Prompt</source>
        <translation>使用提示词</translation>
    </message>
</context>
<context>
    <name>GeminiUpscale</name>
    <message>
        <source>Failed to parse upscale response</source>
        <translation>无法解析放大应答</translation>
    </message>
    <message>
        <source>No image in upscale response</source>
        <translation>放大应答中没有图片</translation>
    </message>
    <message>
        <source>Upscale failed: %1</source>
        <translation>放大失败：%1</translation>
    </message>
</context>
<context>
    <name>HandedPicture</name>
    <message>
        <source>The picture cannot be copied for the desktop</source>
        <translation>无法为桌面复制图片</translation>
    </message>
    <message>
        <source>No folder could hold a copy of the picture under a name that the desktop takes</source>
        <translation>没有文件夹能以桌面接受的名称存放图片副本</translation>
    </message>
</context>
<context>
    <name>HistoryTile</name>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>正在放大到 4K…</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>取消收藏</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>收藏</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>%3, %1 of %2</source>
        <extracomment>What is read out of a picture, then its place among the others</extracomment>
        <translation>%3，第 %1 张，共 %2 张</translation>
    </message>
    <message>
        <source>This picture cannot be read.</source>
        <translation>无法读取这张图片。</translation>
    </message>
    <message>
        <source>Delete, together with its 4K partner</source>
        <translation>删除，连同其 4K 版本</translation>
    </message>
</context>
<context>
    <name>HttpClient</name>
    <message>
        <source>The address is neither https nor on this machine.</source>
        <translation>地址既不是 https，也不在本机上。</translation>
    </message>
    <message>
        <source>The service redirected to an address without encryption.</source>
        <translation>服务重定向到了未加密的地址。</translation>
    </message>
    <message>
        <source>The service redirected too many times.</source>
        <translation>服务重定向次数过多。</translation>
    </message>
    <message>
        <source>The request was cancelled.</source>
        <translation>请求已取消。</translation>
    </message>
    <message>
        <source>The answer is larger than %1 MiB.</source>
        <translation>应答超过 %1 MiB。</translation>
    </message>
    <message>
        <source>No secure connection to %1: %2</source>
        <translation>无法与 %1 建立安全连接：%2</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>请求超时。</translation>
    </message>
    <message>
        <source>The service closed the connection before it answered.</source>
        <translation>服务在应答之前关闭了连接。</translation>
    </message>
    <message>
        <source>The service closed the connection in the middle of its answer.</source>
        <translation>服务在应答途中关闭了连接。</translation>
    </message>
    <message>
        <source>The service has moved to %1</source>
        <translation>服务已迁移到 %1</translation>
    </message>
    <message>
        <source>The service did not accept the API key.</source>
        <translation>服务不接受该 API 密钥。</translation>
    </message>
    <message>
        <source>The proxy asks for a name and a password.</source>
        <translation>代理要求提供用户名和密码。</translation>
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
        <translation>用于默认生成和 4K 放大。</translation>
    </message>
    <message>
        <source>Used when NSFW is enabled.</source>
        <translation>开启 NSFW 时使用。</translation>
    </message>
    <message>
        <source>Available as an override in Advanced settings.</source>
        <translation>可在“高级”设置中指定使用。</translation>
    </message>
</context>
<context>
    <name>ImageStore</name>
    <message>
        <source>%1 could not be deleted: %2</source>
        <translation>无法删除 %1：%2</translation>
    </message>
    <message>
        <source>%1 could not be brought back: %2</source>
        <translation>无法恢复 %1：%2</translation>
    </message>
</context>
<context>
    <name>IntervalLabel</name>
    <message>
        <source>%1 min</source>
        <comment>an interval</comment>
        <translation>%1 分钟</translation>
    </message>
    <message>
        <source>1 hour</source>
        <comment>an interval</comment>
        <translation>1 小时</translation>
    </message>
    <message numerus="yes">
        <source>%n hours</source>
        <comment>an interval of two or more</comment>
        <translation>
            <numerusform>%n 小时</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LayerShellBackgrounds</name>
    <message>
        <source>The compositor does not offer zwlr_layer_shell_v1</source>
        <translation>合成器不提供 zwlr_layer_shell_v1</translation>
    </message>
    <message>
        <source>The compositor has no screen &quot;%1&quot;</source>
        <translation>合成器没有屏幕“%1”</translation>
    </message>
    <message>
        <source>The compositor closed the background</source>
        <translation>合成器关闭了背景</translation>
    </message>
    <message>
        <source>The compositor cannot be given the picture: %1</source>
        <translation>无法将图片交给合成器：%1</translation>
    </message>
</context>
<context>
    <name>LocalUpscaler</name>
    <message>
        <source>Failed to crop tile at (%1, %2)</source>
        <translation>无法裁剪图块 (%1, %2)</translation>
    </message>
    <message>
        <source>Failed to decode image for upscaling</source>
        <translation>无法解码要放大的图片</translation>
    </message>
    <message>
        <source>The RealESRGAN model gave values that are not numbers for the tile at (%1, %2)</source>
        <translation>RealESRGAN 模型在图块 (%1, %2) 处给出的值不是数字</translation>
    </message>
    <message>
        <source>Failed to create padding context</source>
        <translation>无法创建填充上下文</translation>
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
        <translation>正在生成…</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>下一次：%1</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>空闲</translation>
    </message>
    <message>
        <source>Generate Now</source>
        <translation>立即生成</translation>
    </message>
    <message>
        <source>Auto-Generate</source>
        <translation>自动生成</translation>
    </message>
    <message>
        <source>Open Window</source>
        <translation>打开窗口</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>设置…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
</context>
<context>
    <name>MenuBarButton</name>
    <message>
        <source>Menu</source>
        <translation>菜单</translation>
    </message>
</context>
<context>
    <name>MessageBus</name>
    <message>
        <source>%1 does not answer</source>
        <translation>%1 没有应答</translation>
    </message>
    <message>
        <source>The session bus cannot be reached</source>
        <translation>无法连接会话总线</translation>
    </message>
</context>
<context>
    <name>MissingKeys</name>
    <message>
        <source>Missing %1 API key</source>
        <translation>缺少 %1 API 密钥</translation>
    </message>
    <message>
        <source>Open Settings (⌘,)</source>
        <translation>打开设置 (⌘,)</translation>
    </message>
</context>
<context>
    <name>ModelFiles</name>
    <message>
        <source>RealESRGAN model not found in app bundle</source>
        <translation>应用程序中找不到 RealESRGAN 模型</translation>
    </message>
    <message>
        <source>The model cannot be read: %1</source>
        <translation>无法读取模型：%1</translation>
    </message>
</context>
<context>
    <name>ModelInstall</name>
    <message>
        <source>The model cannot be copied: %1</source>
        <translation>无法复制模型：%1</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>No new wallpaper</source>
        <translation>没有新壁纸</translation>
    </message>
    <message>
        <source>New wallpaper</source>
        <translation>新壁纸</translation>
    </message>
</context>
<context>
    <name>Operations</name>
    <message>
        <source>Cancelled. The service may charge for what it was asked for.</source>
        <translation>已取消。服务可能仍会对已发出的请求收费。</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>已取消。</translation>
    </message>
</context>
<context>
    <name>PictureFile</name>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>无法读取图片：%1</translation>
    </message>
</context>
<context>
    <name>PictureMenu</name>
    <message>
        <source>Set as Wallpaper</source>
        <translation>设为壁纸</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>取消收藏</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>收藏</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Show in Files</source>
        <translation>在文件管理器中显示</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
</context>
<context>
    <name>PlasmaScript</name>
    <message>
        <source>Plasma did not take the picture for screen %1</source>
        <translation>Plasma 没有接受屏幕 %1 的图片</translation>
    </message>
    <message>
        <source>Plasma has a desktop on %1 of its %2 screens</source>
        <translation>Plasma 在 %2 个屏幕中的 %1 个上有桌面</translation>
    </message>
</context>
<context>
    <name>PngEncoder</name>
    <message>
        <source>Failed to encode upscaled image</source>
        <translation>无法编码放大后的图片</translation>
    </message>
</context>
<context>
    <name>PortalRequest</name>
    <message>
        <source>The desktop&apos;s portal ended before it answered</source>
        <translation>桌面的门户在应答前就结束了</translation>
    </message>
    <message>
        <source>Nobody waits for the desktop&apos;s question any more</source>
        <translation>已无人等待桌面的询问</translation>
    </message>
    <message>
        <source>The desktop&apos;s question was not answered</source>
        <translation>桌面的询问没有得到回答</translation>
    </message>
    <message>
        <source>There is no answer</source>
        <translation>没有应答</translation>
    </message>
</context>
<context>
    <name>Preview</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>上一张</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一张</translation>
    </message>
    <message>
        <source>Set as Wallpaper</source>
        <translation>设为壁纸</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>取消收藏</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>收藏</translation>
    </message>
    <message>
        <source>Use Prompt</source>
        <translation>使用提示词</translation>
    </message>
    <message>
        <source>Upscale to 4K</source>
        <translation>放大到 4K</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>全屏</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>原图</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>there is no display; see quorvane --help for what needs none</source>
        <translation>没有显示器；无需显示器的用法见 quorvane --help</translation>
    </message>
    <message>
        <source>the application runs already and can be told nothing without a session bus</source>
        <translation>应用程序已在运行，但没有会话总线，无法向其传达任何内容</translation>
    </message>
    <message>
        <source>there is no home folder: HOME names none, and the account has none</source>
        <translation>没有主文件夹：HOME 未指定，账户也没有</translation>
    </message>
    <message>
        <source>the application that runs already does not do it: %1</source>
        <translation>已在运行的应用程序没有执行：%1</translation>
    </message>
</context>
<context>
    <name>ProgressText</name>
    <message numerus="yes">
        <source>%n s left</source>
        <comment>seconds</comment>
        <translation>
            <numerusform>剩余 %n 秒</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n min left</source>
        <comment>minutes</comment>
        <translation>
            <numerusform>剩余约 %n 分钟</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>%1/%n 块</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>tiles, time left</comment>
        <translation>%1，%2</translation>
    </message>
</context>
<context>
    <name>PromptEditor</name>
    <message>
        <source>Prompt</source>
        <translation>提示词</translation>
    </message>
</context>
<context>
    <name>PromptLine</name>
    <message>
        <source>Shows the whole prompt</source>
        <translation>显示完整提示词</translation>
    </message>
</context>
<context>
    <name>PromptPanel</name>
    <message>
        <source>Prompt</source>
        <translation>提示词</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
</context>
<context>
    <name>ProviderChoice</name>
    <message>
        <source>Gemini (for 4K upscale)</source>
        <translation>Gemini（用于 4K 放大）</translation>
    </message>
</context>
<context>
    <name>ProviderError</name>
    <message>
        <source>Invalid response: %1</source>
        <translation>无效应答：%1</translation>
    </message>
    <message>
        <source>API error: %1</source>
        <translation>API 错误：%1</translation>
    </message>
    <message>
        <source>Network error: %1</source>
        <translation>网络错误：%1</translation>
    </message>
</context>
<context>
    <name>Reports</name>
    <message>
        <source>on</source>
        <translation>开</translation>
    </message>
    <message>
        <source>off</source>
        <translation>关</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Provider:     %1, model %2</source>
        <translation>服务商：    %1，模型 %2</translation>
    </message>
    <message>
        <source>Missing keys: %1</source>
        <translation>缺少密钥：  %1</translation>
    </message>
    <message>
        <source>Prompt:       %1</source>
        <translation>提示词：    %1</translation>
    </message>
    <message>
        <source>4K:           %1 (upscale method %2)</source>
        <translation>4K：        %1（放大方式 %2）</translation>
    </message>
    <message>
        <source>NSFW:         %1</source>
        <translation>NSFW：      %1</translation>
    </message>
    <message>
        <source>Automatic:    %1, every %2</source>
        <translation>自动：      %1，间隔 %2</translation>
    </message>
    <message>
        <source>Wallpaper:    %1</source>
        <translation>壁纸：      %1</translation>
    </message>
    <message>
        <source>Desktop:      %1 (%2)</source>
        <translation>桌面：      %1（%2）</translation>
    </message>
    <message>
        <source>Screens:      %1</source>
        <translation>屏幕：      %1</translation>
    </message>
    <message>
        <source>No wallpapers yet</source>
        <translation>还没有壁纸</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>%1/%n 块</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2:%3 left</source>
        <translation>%1，剩余 %2:%3</translation>
    </message>
</context>
<context>
    <name>Schedule</name>
    <message>
        <source>Schedule</source>
        <translation>计划</translation>
    </message>
    <message>
        <source>Auto-generate</source>
        <translation>自动生成</translation>
    </message>
    <message>
        <source>Every</source>
        <translation>间隔</translation>
    </message>
</context>
<context>
    <name>ServiceRequest</name>
    <message>
        <source>Failed to decode base64 image</source>
        <translation>无法解码 base64 图片</translation>
    </message>
    <message>
        <source>%1 must be an https address, or http on this machine.</source>
        <translation>%1 必须是 https 地址，或本机上的 http 地址。</translation>
    </message>
    <message>
        <source>Invalid URL</source>
        <translation>无效的 URL</translation>
    </message>
    <message>
        <source>The stored API key has a character that cannot be sent. Save the key again.</source>
        <translation>保存的 API 密钥含有无法发送的字符。请重新保存密钥。</translation>
    </message>
    <message>
        <source>Failed to parse response</source>
        <translation>无法解析应答</translation>
    </message>
    <message>
        <source>No image in response</source>
        <translation>应答中没有图片</translation>
    </message>
</context>
<context>
    <name>SessionDesktops</name>
    <message>
        <source>%1 does not draw the background now: %2 is not on the session bus</source>
        <translation>%1 目前不绘制背景：%2 不在会话总线上</translation>
    </message>
    <message>
        <source> or </source>
        <translation> 或 </translation>
    </message>
</context>
<context>
    <name>SettingsGroup</name>
    <message>
        <source>The settings &quot;%1&quot; are not installed</source>
        <translation>设置“%1”未安装</translation>
    </message>
    <message>
        <source>The settings &quot;%1&quot; cannot be kept: GLib has no dconf here</source>
        <translation>无法保存设置“%1”：此处的 GLib 没有 dconf</translation>
    </message>
    <message>
        <source>The setting &quot;%1 %2&quot; cannot be changed</source>
        <translation>无法更改设置“%1 %2”</translation>
    </message>
    <message>
        <source>The setting &quot;%1 %2&quot; was not kept</source>
        <translation>设置“%1 %2”没有保留</translation>
    </message>
</context>
<context>
    <name>SettingsTable</name>
    <message>
        <source>unknown setting %1</source>
        <translation>未知设置 %1</translation>
    </message>
    <message>
        <source>%1 takes true or false</source>
        <translation>%1 可取 true 或 false</translation>
    </message>
    <message>
        <source>%1 takes a whole number of minutes from 1 to %2</source>
        <translation>%1 可取 1 到 %2 的整数分钟</translation>
    </message>
    <message>
        <source>%1 takes one of: %2</source>
        <translation>%1 可取以下之一：%2</translation>
    </message>
    <message>
        <source>%1 takes the whole path of a picture</source>
        <translation>%1 接受图片的完整路径</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>API Keys</source>
        <translation>API 密钥</translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation>高级</translation>
    </message>
</context>
<context>
    <name>SideFile</name>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
</context>
<context>
    <name>Sidebar</name>
    <message>
        <source>Prompt</source>
        <translation>提示词</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>4K resolution</source>
        <translation>4K 分辨率</translation>
    </message>
    <message>
        <source>NSFW</source>
        <translation>NSFW</translation>
    </message>
    <message>
        <source>Generating...</source>
        <translation>正在生成…</translation>
    </message>
    <message>
        <source>Generate &amp; Set Wallpaper</source>
        <translation>生成并设为壁纸</translation>
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
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>SuperResolutionModel</name>
    <message>
        <source>element type %1</source>
        <translation>元素类型 %1</translation>
    </message>
    <message>
        <source>any</source>
        <comment>a length</comment>
        <translation>任意</translation>
    </message>
    <message>
        <source>The model does not fit: %1; needed is %2</source>
        <translation>模型不适用：%1；需要 %2</translation>
    </message>
    <message>
        <source>float32 or float16 %1, or any height and width</source>
        <translation>float32 或 float16 %1，或任意高度和宽度</translation>
    </message>
    <message>
        <source>its input is %1 %2</source>
        <translation>其输入为 %1 %2</translation>
    </message>
    <message>
        <source>its output is %1 %2</source>
        <translation>其输出为 %1 %2</translation>
    </message>
    <message>
        <source>its input has no declared shape</source>
        <translation>其输入没有声明形状</translation>
    </message>
    <message>
        <source>it has %1 inputs and %2 outputs</source>
        <translation>它有 %1 个输入和 %2 个输出</translation>
    </message>
    <message>
        <source>one picture in and one out</source>
        <translation>一张图片输入，一张图片输出</translation>
    </message>
    <message>
        <source>No result from RealESRGAN model</source>
        <translation>RealESRGAN 模型没有给出结果</translation>
    </message>
    <message>
        <source>Failed to convert upscaled tile to CGImage</source>
        <translation>无法将放大后的图块转换为 CGImage</translation>
    </message>
    <message>
        <source>it made %1 of a tile</source>
        <translation>它把图块变成了 %1</translation>
    </message>
    <message>
        <source>%1, %2, in &quot;%3&quot;, out &quot;%4&quot;</source>
        <translation>%1，%2，输入“%3”，输出“%4”</translation>
    </message>
    <message>
        <source>tiles of 512 × 512</source>
        <translation>512 × 512 的图块</translation>
    </message>
    <message>
        <source>tiles of any size</source>
        <translation>任意大小的图块</translation>
    </message>
    <message>
        <source>it keeps weights in other files</source>
        <translation>它将权重保存在其他文件中</translation>
    </message>
    <message>
        <source>one file with everything in it</source>
        <translation>一个包含全部内容的文件</translation>
    </message>
    <message>
        <source>its file is empty</source>
        <translation>其文件为空</translation>
    </message>
    <message>
        <source>an ONNX file</source>
        <translation>一个 ONNX 文件</translation>
    </message>
    <message>
        <source>its reach is &quot;%1&quot;</source>
        <translation>其感受范围是“%1”</translation>
    </message>
    <message>
        <source>a whole number of 1 to %1</source>
        <translation>1 到 %1 的整数</translation>
    </message>
</context>
<context>
    <name>SwaySocket</name>
    <message>
        <source>sway cannot be reached: %1</source>
        <translation>无法连接 sway：%1</translation>
    </message>
    <message>
        <source>sway&apos;s answer cannot be understood</source>
        <translation>无法理解 sway 的应答</translation>
    </message>
    <message>
        <source>sway does not answer</source>
        <translation>sway 没有应答</translation>
    </message>
    <message>
        <source>sway ended the connection: %1</source>
        <translation>sway 结束了连接：%1</translation>
    </message>
    <message>
        <source>sway ended the connection</source>
        <translation>sway 结束了连接</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Deleted</source>
        <translation>已删除</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
</context>
<context>
    <name>UpscaleErrors</name>
    <message>
        <source>The upscale was stopped</source>
        <translation>放大已停止</translation>
    </message>
</context>
<context>
    <name>UpscaledCanvas</name>
    <message>
        <source>Failed to create output context</source>
        <translation>无法创建输出上下文</translation>
    </message>
    <message>
        <source>The upscaled image does not resemble the original at tile (%1, %2)</source>
        <translation>放大后的图片在图块 (%1, %2) 处与原图不相似</translation>
    </message>
</context>
<context>
    <name>UpscalingNotice</name>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>正在放大到 4K…</translation>
    </message>
</context>
<context>
    <name>UserDefaults</name>
    <message>
        <source>could not read %1: %2</source>
        <translation>无法读取 %1：%2</translation>
    </message>
    <message>
        <source>could not write %1: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
</context>
<context>
    <name>WaylandConnection</name>
    <message>
        <source>The compositor cannot be reached</source>
        <translation>无法连接合成器</translation>
    </message>
    <message>
        <source>The compositor ended the connection: %1</source>
        <translation>合成器结束了连接：%1</translation>
    </message>
    <message>
        <source>The compositor does not answer</source>
        <translation>合成器没有应答</translation>
    </message>
</context>
<context>
    <name>WholeFile</name>
    <message>
        <source>Not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
</context>
<context>
    <name>quorvane::APIKeyRow</name>
    <message>
        <source>%1 API Key</source>
        <translation>%1 API 密钥</translation>
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
        <translation>%1 模型</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自动</translation>
    </message>
    <message>
        <source>%1 produces 4K natively — no upscaling needed.</source>
        <translation>%1 可直接生成 4K — 无需放大。</translation>
    </message>
    <message>
        <source>Gemini (API)</source>
        <translation>Gemini (API)</translation>
    </message>
    <message>
        <source>Local (on-device)</source>
        <translation>本地（此设备）</translation>
    </message>
</context>
<context>
    <name>quorvane::ImageListModel</name>
    <message>
        <source>favorite</source>
        <translation>已收藏</translation>
    </message>
    <message>
        <source>4K</source>
        <translation>4K</translation>
    </message>
    <message>
        <source>current wallpaper</source>
        <translation>当前壁纸</translation>
    </message>
    <message>
        <source>being upscaled to 4K</source>
        <translation>正在放大到 4K</translation>
    </message>
    <message>
        <source>, </source>
        <comment>Between what is read out of one picture</comment>
        <translation>，</translation>
    </message>
</context>
<context>
    <name>quorvane::PreviewModel</name>
    <message>
        <source>This picture is not there any more.</source>
        <translation>这张图片已不存在。</translation>
    </message>
    <message>
        <source>This picture cannot be read.</source>
        <translation>无法读取这张图片。</translation>
    </message>
</context>
<context>
    <name>quorvane::Scenes</name>
    <message>
        <source>it is no window</source>
        <translation>它不是窗口</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>无法打开 %1：%2</translation>
    </message>
</context>
<context>
    <name>quorvane::SidebarModel</name>
    <message>
        <source>+ Local 4K</source>
        <translation>+ 本地 4K</translation>
    </message>
    <message>
        <source>+ Gemini 4K</source>
        <translation>+ Gemini 4K</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>下一次：%1</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperApp</name>
    <message>
        <source>The window cannot be opened</source>
        <translation>无法打开窗口</translation>
    </message>
    <message>
        <source>The settings are not kept</source>
        <translation>设置未保存</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperManager</name>
    <message>
        <source>Wallpaper set!</source>
        <translation>壁纸已设置！</translation>
    </message>
    <message>
        <source>Missing %1 API key — open Settings (⌘,)</source>
        <translation>缺少 %1 API 密钥 — 请打开设置 (⌘,)</translation>
    </message>
    <message>
        <source>Failed to save image</source>
        <translation>无法保存图片</translation>
    </message>
    <message>
        <source>Upscaling to 4K (local)...</source>
        <translation>正在放大到 4K（本地）…</translation>
    </message>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>正在放大到 4K…</translation>
    </message>
    <message>
        <source>Local upscale failed, using original — %1</source>
        <translation>本地放大失败，使用原图 — %1</translation>
    </message>
    <message>
        <source>Upscale failed, using original — %1</source>
        <translation>放大失败，使用原图 — %1</translation>
    </message>
    <message>
        <source>No Gemini API key — switch to Local upscale in Settings &gt; Advanced</source>
        <translation>没有 Gemini API 密钥 — 请在“设置 &gt; 高级”中改用本地放大</translation>
    </message>
    <message>
        <source>Upscale failed: %1</source>
        <translation>放大失败：%1</translation>
    </message>
    <message>
        <source>Failed to save upscaled image</source>
        <translation>无法保存放大后的图片</translation>
    </message>
    <message>
        <source>Quorvane is quitting</source>
        <translation>Quorvane 正在退出</translation>
    </message>
    <message>
        <source>the picture was deleted</source>
        <translation>图片已被删除</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperSetter</name>
    <message>
        <source>No screen found</source>
        <translation>未找到屏幕</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>失败：%1</translation>
    </message>
    <message>
        <source>Failed to sync wallpaper: %1</source>
        <translation>无法同步壁纸：%1</translation>
    </message>
</context>
</TS>
