<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>APIKeysTab</name>
    <message>
        <source>Remove this key</source>
        <translation>Diesen Schlüssel entfernen</translation>
    </message>
    <message>
        <source>Saved in Keychain</source>
        <translation>Im Schlüsselbund gespeichert</translation>
    </message>
    <message>
        <source>What is in the field is not saved yet.</source>
        <translation>Was im Feld steht, ist noch nicht gespeichert.</translation>
    </message>
    <message>
        <source>This key is stored.</source>
        <translation>Dieser Schlüssel ist gespeichert.</translation>
    </message>
</context>
<context>
    <name>AdvancedTab</name>
    <message>
        <source>Provider</source>
        <translation>Anbieter</translation>
    </message>
    <message>
        <source>Auto selects Gemini by default, Grok when NSFW is on.
Pick a specific provider to use it for every generation.</source>
        <translation>„Automatisch“ wählt in der Regel Gemini, bei eingeschaltetem NSFW Grok.
Wählen Sie einen bestimmten Anbieter, um ihn für jedes Bild zu verwenden.</translation>
    </message>
    <message>
        <source>4K Upscaling</source>
        <translation>4K-Hochskalierung</translation>
    </message>
    <message>
        <source>Upscale Method</source>
        <translation>Methode</translation>
    </message>
    <message>
        <source>Gemini uses the API (requires key). Local runs RealESRGAN on-device (offline, no API key needed).</source>
        <translation>Gemini verwendet die API (Schlüssel erforderlich). Lokal führt RealESRGAN auf diesem Gerät aus (offline, ohne API-Schlüssel).</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>Modelle</translation>
    </message>
</context>
<context>
    <name>Album</name>
    <message>
        <source>Favorites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Uncategorized</source>
        <translation>Ohne Prompt</translation>
    </message>
</context>
<context>
    <name>AlbumTile</name>
    <message numerus="yes">
        <source>%1, %n pictures</source>
        <translation>
            <numerusform>%1, %n Bild</numerusform>
            <numerusform>%1, %n Bilder</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AsideFile</name>
    <message>
        <source>%1 cannot be understood, nor be put aside: %2</source>
        <translation>%1 ist nicht verständlich und lässt sich nicht beiseitelegen: %2</translation>
    </message>
    <message>
        <source>%1 could not be understood. It was put aside as %2, and a new one was begun.</source>
        <translation>%1 war nicht verständlich, liegt nun als %2 beiseite und wurde neu begonnen.</translation>
    </message>
</context>
<context>
    <name>Autostart</name>
    <message>
        <source>could not write the autostart entry</source>
        <translation>der Autostart-Eintrag konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Quorvane sets new pictures and keeps yours on every screen.</source>
        <translation>Quorvane setzt neue Bilder und behält Ihres auf jedem Bildschirm.</translation>
    </message>
    <message>
        <source>the desktop offers no autostart to a sandboxed program: %1</source>
        <translation>die Arbeitsumgebung bietet einem Programm in einer Sandbox keinen Autostart: %1</translation>
    </message>
    <message>
        <source>the desktop did not answer whether Quorvane may start with the session</source>
        <translation>die Arbeitsumgebung hat nicht geantwortet, ob Quorvane mit der Sitzung starten darf</translation>
    </message>
    <message>
        <source>the desktop did not allow the change</source>
        <translation>die Arbeitsumgebung hat die Änderung nicht erlaubt</translation>
    </message>
</context>
<context>
    <name>BoundedAllocator</name>
    <message>
        <source>The model needs more than %1 MB of memory</source>
        <translation>Das Modell braucht mehr als %1 MB Speicher</translation>
    </message>
    <message>
        <source>There is not enough memory for the model</source>
        <translation>Für das Modell ist nicht genug Speicher da</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>--prompt needs a text</source>
        <translation>--prompt braucht einen Text</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>unbekannte Option %1</translation>
    </message>
    <message>
        <source>unknown command %1</source>
        <translation>unbekannter Befehl %1</translation>
    </message>
    <message>
        <source>usage: %1</source>
        <translation>Aufruf: %1</translation>
    </message>
    <message>
        <source>--action needs one of: generate, toggle-auto, settings, quit</source>
        <translation>--action braucht eines von: generate, toggle-auto, settings, quit</translation>
    </message>
</context>
<context>
    <name>CommandTable</name>
    <message>
        <source>make a picture and set it as the wallpaper</source>
        <translation>ein Bild erzeugen und als Hintergrund setzen</translation>
    </message>
    <message>
        <source>make a 4K copy of a picture and set it</source>
        <translation>ein Bild in 4K kopieren und die Kopie setzen</translation>
    </message>
    <message>
        <source>set a picture as the wallpaper of every screen</source>
        <translation>ein Bild auf jedem Bildschirm setzen</translation>
    </message>
    <message>
        <source>provider, settings, schedule, wallpaper, screens</source>
        <translation>Anbieter, Einstellungen, Zeitplan, Hintergrund, Bildschirme</translation>
    </message>
    <message>
        <source>list the pictures, newest first</source>
        <translation>die Bilder auflisten, das neueste zuerst</translation>
    </message>
    <message>
        <source>list the pictures by prompt</source>
        <translation>die Bilder nach Prompt auflisten</translation>
    </message>
    <message>
        <source>mark a picture as a favourite, or no longer</source>
        <translation>ein Bild als Favorit markieren oder nicht mehr</translation>
    </message>
    <message>
        <source>delete a picture and its 4K partner for good</source>
        <translation>ein Bild und sein 4K-Gegenstück endgültig löschen</translation>
    </message>
    <message>
        <source>print all settings</source>
        <translation>alle Einstellungen ausgeben</translation>
    </message>
    <message>
        <source>print a setting</source>
        <translation>eine Einstellung ausgeben</translation>
    </message>
    <message>
        <source>change a setting</source>
        <translation>eine Einstellung ändern</translation>
    </message>
    <message>
        <source>go back to the default of a setting</source>
        <translation>zur Vorgabe einer Einstellung zurückkehren</translation>
    </message>
    <message>
        <source>list the services whose API keys are stored</source>
        <translation>die Dienste auflisten, deren API-Schlüssel gespeichert sind</translation>
    </message>
    <message>
        <source>store an API key, read from standard input</source>
        <translation>einen API-Schlüssel von der Standardeingabe speichern</translation>
    </message>
    <message>
        <source>delete an API key</source>
        <translation>einen API-Schlüssel löschen</translation>
    </message>
    <message>
        <source>automatic mode</source>
        <translation>automatischer Betrieb</translation>
    </message>
    <message>
        <source>start with the session</source>
        <translation>mit der Sitzung starten</translation>
    </message>
    <message>
        <source>show the super-resolution network</source>
        <translation>das Netz zum Hochskalieren zeigen</translation>
    </message>
    <message>
        <source>check a network and make it yours</source>
        <translation>ein Netz prüfen und zum eigenen machen</translation>
    </message>
    <message>
        <source>end the running application</source>
        <translation>das laufende Programm beenden</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>DATEI</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>NAME</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>WERT</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>[--prompt TEXT]</source>
        <translation>[--prompt TEXT]</translation>
    </message>
    <message>
        <source>Usage: quorvane [--hidden]
       quorvane --action NAME
       quorvane COMMAND [--json]

Without a command the application starts and opens its window (--hidden: tray only).
--action starts it where it does not run, and does what the desktop entry&apos;s action
does: generate, toggle-auto, settings or quit.
</source>
        <translation>Aufruf: quorvane [--hidden]
        quorvane --action NAME
        quorvane BEFEHL [--json]

Ohne Befehl startet das Programm und öffnet sein Fenster (--hidden: nur das Symbol in der Leiste).
--action startet es, wo es nicht läuft, und tut, was die Aktion des Programmeintrags
tut: generate, toggle-auto, settings oder quit.
</translation>
    </message>
    <message>
        <source>FILE is a path, or the name of a picture in the library.
ID is one of %1.
Exit status: 0 done, 1 ended with an error, 2 the command line is wrong.
</source>
        <translation>DATEI ist ein Pfad oder der Name eines Bildes in der Sammlung. ID ist eine von %1.
Rückgabewert: 0 fertig, 1 mit einem Fehler beendet, 2 der Aufruf ist falsch.
</translation>
    </message>
    <message>
        <source>end what makes a picture</source>
        <translation>beenden, was ein Bild macht</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>could not delete %1</source>
        <translation>%1 konnte nicht gelöscht werden</translation>
    </message>
    <message>
        <source>no such file: %1</source>
        <translation>Datei nicht gefunden: %1</translation>
    </message>
    <message>
        <source>not in the library: %1</source>
        <translation>nicht in der Sammlung: %1</translation>
    </message>
    <message>
        <source>no key on standard input</source>
        <translation>kein Schlüssel auf der Standardeingabe</translation>
    </message>
    <message>
        <source>API key for %1: </source>
        <translation>API-Schlüssel für %1: </translation>
    </message>
    <message>
        <source>standard input holds no key</source>
        <translation>die Standardeingabe enthält keinen Schlüssel</translation>
    </message>
    <message>
        <source>the application is not running</source>
        <translation>das Programm läuft nicht</translation>
    </message>
    <message>
        <source>the application did not answer: %1</source>
        <translation>das Programm hat nicht geantwortet: %1</translation>
    </message>
    <message>
        <source>the application was asked to end and still runs</source>
        <translation>das Programm wurde gebeten, sich zu beenden, und läuft noch</translation>
    </message>
    <message>
        <source>not a regular file: %1</source>
        <translation>keine gewöhnliche Datei: %1</translation>
    </message>
    <message>
        <source>not a picture: %1</source>
        <translation>kein Bild: %1</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>Nothing is being made.</source>
        <translation>Es entsteht gerade nichts.</translation>
    </message>
</context>
<context>
    <name>DescribedError</name>
    <message>
        <source>The reason is not known.</source>
        <translation>Der Grund ist nicht bekannt.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Arbeitsspeicher reicht nicht aus.</translation>
    </message>
</context>
<context>
    <name>DesktopChoice</name>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, which is none of %2</source>
        <translation>QUORVANE_DESKTOP ist „%1“ und damit keines von %2</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but QUORVANE_WALLPAPER_COMMAND is not set</source>
        <translation>QUORVANE_DESKTOP ist „%1“, aber QUORVANE_WALLPAPER_COMMAND ist nicht gesetzt</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but SWAYSOCK is not set</source>
        <translation>QUORVANE_DESKTOP ist „%1“, aber SWAYSOCK ist nicht gesetzt</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but DISPLAY is not set</source>
        <translation>QUORVANE_DESKTOP ist „%1“, aber DISPLAY ist nicht gesetzt</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;</source>
        <translation>QUORVANE_DESKTOP ist „%1“</translation>
    </message>
    <message>
        <source>QUORVANE_WALLPAPER_COMMAND is set</source>
        <translation>QUORVANE_WALLPAPER_COMMAND ist gesetzt</translation>
    </message>
    <message>
        <source>sway answers on SWAYSOCK</source>
        <translation>sway antwortet auf SWAYSOCK</translation>
    </message>
    <message>
        <source>this Wayland desktop is not supported yet; QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture</source>
        <translation>diese Wayland-Arbeitsumgebung wird noch nicht unterstützt; QUORVANE_WALLPAPER_COMMAND kann ein Programm nennen, das das Bild setzt</translation>
    </message>
    <message>
        <source>DISPLAY is set and no desktop paints over the X11 root window</source>
        <translation>DISPLAY ist gesetzt, und keine Arbeitsumgebung übermalt das X11-Wurzelfenster</translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, which is not supported yet; QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture</source>
        <translation>XDG_CURRENT_DESKTOP nennt „%1“, was noch nicht unterstützt wird; QUORVANE_WALLPAPER_COMMAND kann ein Programm nennen, das das Bild setzt</translation>
    </message>
    <message>
        <source>SWAYSOCK is set, but nobody answers on it</source>
        <translation>SWAYSOCK ist gesetzt, aber niemand antwortet darauf</translation>
    </message>
    <message>
        <source>neither SWAYSOCK nor DISPLAY is set</source>
        <translation>weder SWAYSOCK noch DISPLAY ist gesetzt</translation>
    </message>
    <message>
        <source>HYPRLAND_INSTANCE_SIGNATURE is not set</source>
        <translation>HYPRLAND_INSTANCE_SIGNATURE ist nicht gesetzt</translation>
    </message>
    <message>
        <source>WAYLAND_DISPLAY is not set</source>
        <translation>WAYLAND_DISPLAY ist nicht gesetzt</translation>
    </message>
    <message>
        <source>the compositor does not offer zwlr_layer_shell_v1</source>
        <translation>der Compositor bietet zwlr_layer_shell_v1 nicht an</translation>
    </message>
    <message>
        <source>no portal of this session sets wallpapers</source>
        <translation>kein Portal dieser Sitzung setzt Hintergrundbilder</translation>
    </message>
    <message>
        <source>its settings &quot;%1&quot; are not installed</source>
        <translation>deren Einstellungen „%1“ sind nicht installiert</translation>
    </message>
    <message>
        <source>DISPLAY is not set</source>
        <translation>DISPLAY ist nicht gesetzt</translation>
    </message>
    <message>
        <source>%1 is not on the session bus</source>
        <translation>%1 ist nicht auf dem Sitzungsbus</translation>
    </message>
    <message>
        <source> or </source>
        <translation> oder </translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, and it draws the background</source>
        <translation>XDG_CURRENT_DESKTOP nennt „%1“, und diese Arbeitsumgebung zeichnet den Hintergrund</translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, but %2</source>
        <translation>XDG_CURRENT_DESKTOP nennt „%1“, aber %2</translation>
    </message>
    <message>
        <source>this is a sandbox, and its portal sets wallpapers</source>
        <translation>dies ist eine Sandbox, und ihr Portal setzt Hintergrundbilder</translation>
    </message>
    <message>
        <source>Hyprland answers on its socket</source>
        <translation>Hyprland antwortet auf seinem Socket</translation>
    </message>
    <message>
        <source>the compositor offers zwlr_layer_shell_v1; the picture is shown while the application runs</source>
        <translation>der Compositor bietet zwlr_layer_shell_v1 an; das Bild ist zu sehen, solange das Programm läuft</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but %2</source>
        <translation>QUORVANE_DESKTOP ist „%1“, aber %2</translation>
    </message>
    <message>
        <source>nothing else is known here, and the session&apos;s portal sets wallpapers</source>
        <translation>nichts anderes ist hier bekannt, und das Portal der Sitzung setzt Hintergrundbilder</translation>
    </message>
</context>
<context>
    <name>DesktopPictureCommand</name>
    <message>
        <source>The wallpaper command &quot;%1&quot; cannot be started: %2</source>
        <translation>Der Hintergrundbild-Befehl „%1“ kann nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; did not end within %2 seconds</source>
        <translation>Der Hintergrundbild-Befehl „%1“ wurde nicht innerhalb von %2 Sekunden fertig</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; ended with status %2</source>
        <translation>Der Hintergrundbild-Befehl „%1“ endete mit Status %2</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; was ended by a signal</source>
        <translation>Der Hintergrundbild-Befehl „%1“ wurde durch ein Signal beendet</translation>
    </message>
</context>
<context>
    <name>DesktopPictureGnome</name>
    <message>
        <source>The settings of %1 do not answer</source>
        <translation>Die Einstellungen von %1 antworten nicht</translation>
    </message>
</context>
<context>
    <name>DesktopPictureHyprland</name>
    <message>
        <source>hyprpaper does not answer</source>
        <translation>hyprpaper antwortet nicht</translation>
    </message>
    <message>
        <source>hyprpaper cannot take &quot;%1&quot;</source>
        <translation>hyprpaper kann „%1“ nicht annehmen</translation>
    </message>
</context>
<context>
    <name>DesktopPictureLayerShell</name>
    <message>
        <source>This desktop shows a background only while the program that drew it runs; start Quorvane, then set the picture</source>
        <translation>Diese Arbeitsumgebung zeigt einen Hintergrund nur, solange das Programm läuft, das ihn gezeichnet hat; starten Sie Quorvane und setzen Sie dann das Bild</translation>
    </message>
</context>
<context>
    <name>DesktopPictureLxqt</name>
    <message>
        <source>LXQt&apos;s file manager is told not to draw the desktop</source>
        <translation>Die Dateiverwaltung von LXQt ist so eingestellt, dass sie den Schreibtisch nicht zeichnet</translation>
    </message>
    <message>
        <source>The X server cannot be reached</source>
        <translation>Der X-Server ist nicht erreichbar</translation>
    </message>
    <message>
        <source>LXQt is set to one wallpaper for each monitor, which would distort the picture</source>
        <translation>LXQt ist auf ein Hintergrundbild je Bildschirm eingestellt, was das Bild verzerren würde</translation>
    </message>
    <message>
        <source>LXQt does not answer</source>
        <translation>LXQt antwortet nicht</translation>
    </message>
</context>
<context>
    <name>DesktopPicturePlasma</name>
    <message>
        <source>Plasma&apos;s desktop does not run (org.kde.plasmashell is not on the session bus)</source>
        <translation>Die Arbeitsfläche von Plasma läuft nicht (org.kde.plasmashell ist nicht auf dem Sitzungsbus)</translation>
    </message>
    <message>
        <source>Plasma: %1</source>
        <translation>Plasma: %1</translation>
    </message>
    <message>
        <source>Plasma answered: %1</source>
        <translation>Plasma hat geantwortet: %1</translation>
    </message>
    <message>
        <source>Plasma does not answer</source>
        <translation>Plasma antwortet nicht</translation>
    </message>
</context>
<context>
    <name>DesktopPicturePortal</name>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>Das Bild kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>The session bus does not answer</source>
        <translation>Der Sitzungsbus antwortet nicht</translation>
    </message>
    <message>
        <source>Waiting for your answer to the desktop&apos;s question about the background</source>
        <translation>Warten auf Ihre Antwort auf die Frage der Arbeitsumgebung nach dem Hintergrund</translation>
    </message>
    <message>
        <source>You did not allow it to set the background</source>
        <translation>Sie haben das Setzen des Hintergrunds nicht erlaubt</translation>
    </message>
    <message>
        <source>The desktop&apos;s portal refused the picture</source>
        <translation>Das Portal der Arbeitsumgebung hat das Bild abgelehnt</translation>
    </message>
</context>
<context>
    <name>DesktopPictureSway</name>
    <message>
        <source>sway has no screen &quot;%1&quot;</source>
        <translation>sway hat keinen Bildschirm „%1“</translation>
    </message>
    <message>
        <source>sway&apos;s answer cannot be understood</source>
        <translation>die Antwort von sway ist nicht zu verstehen</translation>
    </message>
    <message>
        <source>sway refused the picture</source>
        <translation>sway hat das Bild abgelehnt</translation>
    </message>
</context>
<context>
    <name>DesktopPictureX11</name>
    <message>
        <source>The X server cannot be reached</source>
        <translation>Der X-Server ist nicht erreichbar</translation>
    </message>
    <message>
        <source>The X server&apos;s colours are of a kind that is not supported</source>
        <translation>Die Farben des X-Servers sind von einer Art, die nicht unterstützt wird</translation>
    </message>
    <message>
        <source>The X server has no screen &quot;%1&quot;</source>
        <translation>Der X-Server hat keinen Bildschirm „%1“</translation>
    </message>
    <message>
        <source>There is not enough memory for the picture</source>
        <translation>Für das Bild ist nicht genug Speicher vorhanden</translation>
    </message>
    <message>
        <source>The X server does not answer</source>
        <translation>Der X-Server antwortet nicht</translation>
    </message>
    <message>
        <source>The X server did not take the picture: %1</source>
        <translation>Der X-Server hat das Bild nicht angenommen: %1</translation>
    </message>
</context>
<context>
    <name>DesktopPictureXfce</name>
    <message>
        <source>XFCE did not keep the setting &quot;%1&quot;</source>
        <translation>XFCE hat die Einstellung „%1“ nicht behalten</translation>
    </message>
    <message>
        <source>XFCE does not answer</source>
        <translation>XFCE antwortet nicht</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No wallpapers yet</source>
        <translation>Noch keine Hintergrundbilder</translation>
    </message>
    <message>
        <source>Generate your first wallpaper
using the sidebar controls.</source>
        <translation>Erzeugen Sie Ihr erstes Hintergrundbild
mit den Bedienelementen in der Seitenleiste.</translation>
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
        <translation>Alben</translation>
    </message>
    <message>
        <source>Use Prompt</source>
        <translation>Prompt verwenden</translation>
    </message>
</context>
<context>
    <name>GeminiUpscale</name>
    <message>
        <source>Failed to parse upscale response</source>
        <translation>Antwort auf die Hochskalierung nicht lesbar</translation>
    </message>
    <message>
        <source>No image in upscale response</source>
        <translation>Kein Bild in der Antwort auf die Hochskalierung</translation>
    </message>
    <message>
        <source>Upscale failed: %1</source>
        <translation>Hochskalieren fehlgeschlagen: %1</translation>
    </message>
</context>
<context>
    <name>HandedPicture</name>
    <message>
        <source>The picture cannot be copied for the desktop</source>
        <translation>Das Bild kann nicht für die Arbeitsumgebung kopiert werden</translation>
    </message>
    <message>
        <source>No folder could hold a copy of the picture under a name that the desktop takes</source>
        <translation>Kein Ordner konnte eine Kopie des Bildes unter einem Namen aufnehmen, den die Arbeitsumgebung annimmt</translation>
    </message>
</context>
<context>
    <name>HistoryTile</name>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>Wird auf 4K hochskaliert&#xa0;…</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>Kein Favorit mehr</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>%3, %1 of %2</source>
        <extracomment>What is read out of a picture, then its place among the others</extracomment>
        <translation>%3, %1 von %2</translation>
    </message>
    <message>
        <source>This picture cannot be read.</source>
        <translation>Dieses Bild kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Delete, together with its 4K partner</source>
        <translation>Löschen, mitsamt der 4K-Fassung</translation>
    </message>
</context>
<context>
    <name>HttpClient</name>
    <message>
        <source>The address is neither https nor on this machine.</source>
        <translation>Die Adresse ist weder https noch auf diesem Rechner.</translation>
    </message>
    <message>
        <source>The service redirected to an address without encryption.</source>
        <translation>Der Dienst hat auf eine Adresse ohne Verschlüsselung umgeleitet.</translation>
    </message>
    <message>
        <source>The service redirected too many times.</source>
        <translation>Der Dienst hat zu oft umgeleitet.</translation>
    </message>
    <message>
        <source>The request was cancelled.</source>
        <translation>Die Anfrage wurde abgebrochen.</translation>
    </message>
    <message>
        <source>The answer is larger than %1 MiB.</source>
        <translation>Die Antwort ist größer als %1 MiB.</translation>
    </message>
    <message>
        <source>No secure connection to %1: %2</source>
        <translation>Keine sichere Verbindung zu %1: %2</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>Zeitüberschreitung bei der Anfrage.</translation>
    </message>
    <message>
        <source>The service closed the connection before it answered.</source>
        <translation>Der Dienst hat die Verbindung geschlossen, bevor er geantwortet hat.</translation>
    </message>
    <message>
        <source>The service closed the connection in the middle of its answer.</source>
        <translation>Der Dienst hat die Verbindung mitten in seiner Antwort geschlossen.</translation>
    </message>
    <message>
        <source>The service has moved to %1</source>
        <translation>Der Dienst ist umgezogen nach %1</translation>
    </message>
    <message>
        <source>The service did not accept the API key.</source>
        <translation>Der Dienst hat den API-Schlüssel nicht angenommen.</translation>
    </message>
    <message>
        <source>The proxy asks for a name and a password.</source>
        <translation>Der Proxy verlangt einen Namen und ein Passwort.</translation>
    </message>
</context>
<context>
    <name>ImageRecords</name>
    <message>
        <source>MMM d, HH:mm</source>
        <comment>Day and time below a picture, in the letters of QLocale::toString()</comment>
        <translation>d. MMM, HH:mm</translation>
    </message>
</context>
<context>
    <name>ImageService</name>
    <message>
        <source>Used for default generation and 4K upscaling.</source>
        <translation>Zum Erzeugen in der Voreinstellung und für die 4K-Hochskalierung.</translation>
    </message>
    <message>
        <source>Used when NSFW is enabled.</source>
        <translation>Wird verwendet, wenn NSFW eingeschaltet ist.</translation>
    </message>
    <message>
        <source>Available as an override in Advanced settings.</source>
        <translation>Kann unter „Erweitert“ fest gewählt werden.</translation>
    </message>
</context>
<context>
    <name>ImageStore</name>
    <message>
        <source>%1 could not be deleted: %2</source>
        <translation>%1 konnte nicht gelöscht werden: %2</translation>
    </message>
    <message>
        <source>%1 could not be brought back: %2</source>
        <translation>%1 konnte nicht zurückgeholt werden: %2</translation>
    </message>
</context>
<context>
    <name>IntervalLabel</name>
    <message>
        <source>%1 min</source>
        <comment>an interval</comment>
        <translation>%1 Min.</translation>
    </message>
    <message>
        <source>1 hour</source>
        <comment>an interval</comment>
        <translation>1 Stunde</translation>
    </message>
    <message numerus="yes">
        <source>%n hours</source>
        <comment>an interval of two or more</comment>
        <translation>
            <numerusform>%n Stunde</numerusform>
            <numerusform>%n Stunden</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LayerShellBackgrounds</name>
    <message>
        <source>The compositor does not offer zwlr_layer_shell_v1</source>
        <translation>Der Compositor bietet zwlr_layer_shell_v1 nicht an</translation>
    </message>
    <message>
        <source>The compositor has no screen &quot;%1&quot;</source>
        <translation>Der Compositor hat keinen Bildschirm „%1“</translation>
    </message>
    <message>
        <source>The compositor closed the background</source>
        <translation>Der Compositor hat den Hintergrund geschlossen</translation>
    </message>
    <message>
        <source>The compositor cannot be given the picture: %1</source>
        <translation>Dem Compositor kann das Bild nicht übergeben werden: %1</translation>
    </message>
</context>
<context>
    <name>LocalUpscaler</name>
    <message>
        <source>Failed to crop tile at (%1, %2)</source>
        <translation>Kachel bei (%1, %2) konnte nicht ausgeschnitten werden</translation>
    </message>
    <message>
        <source>Failed to decode image for upscaling</source>
        <translation>Bild konnte zum Hochskalieren nicht dekodiert werden</translation>
    </message>
    <message>
        <source>The RealESRGAN model gave values that are not numbers for the tile at (%1, %2)</source>
        <translation>Das RealESRGAN-Modell hat für die Kachel bei (%1, %2) Werte geliefert, die keine Zahlen sind</translation>
    </message>
    <message>
        <source>Failed to create padding context</source>
        <translation>Kontext zum Auffüllen konnte nicht erstellt werden</translation>
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
        <translation>Wird erzeugt&#xa0;…</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>Nächstes: %1</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Generate Now</source>
        <translation>Jetzt erzeugen</translation>
    </message>
    <message>
        <source>Auto-Generate</source>
        <translation>Automatisch erzeugen</translation>
    </message>
    <message>
        <source>Open Window</source>
        <translation>Fenster öffnen</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>Einstellungen&#xa0;…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>MenuBarButton</name>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
</context>
<context>
    <name>MessageBus</name>
    <message>
        <source>%1 does not answer</source>
        <translation>%1 antwortet nicht</translation>
    </message>
    <message>
        <source>The session bus cannot be reached</source>
        <translation>Der Sitzungsbus ist nicht erreichbar</translation>
    </message>
</context>
<context>
    <name>MissingKeys</name>
    <message>
        <source>Missing %1 API key</source>
        <translation>API-Schlüssel für %1 fehlt</translation>
    </message>
    <message>
        <source>Open Settings (⌘,)</source>
        <translation>Einstellungen öffnen (⌘,)</translation>
    </message>
</context>
<context>
    <name>ModelFiles</name>
    <message>
        <source>RealESRGAN model not found in app bundle</source>
        <translation>RealESRGAN-Modell im Programmpaket nicht gefunden</translation>
    </message>
    <message>
        <source>The model cannot be read: %1</source>
        <translation>Das Modell kann nicht gelesen werden: %1</translation>
    </message>
</context>
<context>
    <name>ModelInstall</name>
    <message>
        <source>The model cannot be copied: %1</source>
        <translation>Das Modell kann nicht kopiert werden: %1</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>No new wallpaper</source>
        <translation>Kein neues Hintergrundbild</translation>
    </message>
    <message>
        <source>New wallpaper</source>
        <translation>Neues Hintergrundbild</translation>
    </message>
</context>
<context>
    <name>Operations</name>
    <message>
        <source>Cancelled. The service may charge for what it was asked for.</source>
        <translation>Abgebrochen. Der Dienst kann berechnen, worum er gebeten wurde.</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Abgebrochen.</translation>
    </message>
</context>
<context>
    <name>PictureFile</name>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>Das Bild kann nicht gelesen werden: %1</translation>
    </message>
</context>
<context>
    <name>PictureMenu</name>
    <message>
        <source>Set as Wallpaper</source>
        <translation>Als Hintergrundbild setzen</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>Kein Favorit mehr</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Show in Files</source>
        <translation>In Dateien anzeigen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>PlasmaScript</name>
    <message>
        <source>Plasma did not take the picture for screen %1</source>
        <translation>Plasma hat das Bild für Bildschirm %1 nicht angenommen</translation>
    </message>
    <message>
        <source>Plasma has a desktop on %1 of its %2 screens</source>
        <translation>Plasma hat auf %1 seiner %2 Bildschirme eine Arbeitsfläche</translation>
    </message>
</context>
<context>
    <name>PngEncoder</name>
    <message>
        <source>Failed to encode upscaled image</source>
        <translation>Hochskaliertes Bild konnte nicht kodiert werden</translation>
    </message>
</context>
<context>
    <name>PortalRequest</name>
    <message>
        <source>The desktop&apos;s portal ended before it answered</source>
        <translation>Das Portal der Arbeitsumgebung hat sich beendet, bevor es antwortete</translation>
    </message>
    <message>
        <source>Nobody waits for the desktop&apos;s question any more</source>
        <translation>Niemand wartet mehr auf die Frage der Arbeitsumgebung</translation>
    </message>
    <message>
        <source>The desktop&apos;s question was not answered</source>
        <translation>Die Frage der Arbeitsumgebung wurde nicht beantwortet</translation>
    </message>
    <message>
        <source>There is no answer</source>
        <translation>Es kommt keine Antwort</translation>
    </message>
</context>
<context>
    <name>Preview</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Vorheriges</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Nächstes</translation>
    </message>
    <message>
        <source>Set as Wallpaper</source>
        <translation>Als Hintergrundbild setzen</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>Kein Favorit mehr</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>Use Prompt</source>
        <translation>Prompt verwenden</translation>
    </message>
    <message>
        <source>Upscale to 4K</source>
        <translation>Auf 4K hochskalieren</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>there is no display; see quorvane --help for what needs none</source>
        <translation>es gibt keine Anzeige; quorvane --help nennt, was keine braucht</translation>
    </message>
    <message>
        <source>the application runs already and can be told nothing without a session bus</source>
        <translation>die Anwendung läuft schon, und ohne Sitzungsbus kann ihr nichts mitgeteilt werden</translation>
    </message>
    <message>
        <source>there is no home folder: HOME names none, and the account has none</source>
        <translation>es gibt keinen persönlichen Ordner: HOME nennt keinen, und das Konto hat keinen</translation>
    </message>
    <message>
        <source>the application that runs already does not do it: %1</source>
        <translation>die Anwendung, die bereits läuft, tut es nicht: %1</translation>
    </message>
</context>
<context>
    <name>ProgressText</name>
    <message numerus="yes">
        <source>%n s left</source>
        <comment>seconds</comment>
        <translation>
            <numerusform>noch %n s</numerusform>
            <numerusform>noch %n s</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n min left</source>
        <comment>minutes</comment>
        <translation>
            <numerusform>noch etwa %n Min.</numerusform>
            <numerusform>noch etwa %n Min.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>%1 von %n Kachel</numerusform>
            <numerusform>%1 von %n Kacheln</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2</source>
        <comment>tiles, time left</comment>
        <translation>%1, %2</translation>
    </message>
</context>
<context>
    <name>PromptEditor</name>
    <message>
        <source>Prompt</source>
        <translation>Prompt</translation>
    </message>
</context>
<context>
    <name>PromptLine</name>
    <message>
        <source>Shows the whole prompt</source>
        <translation>Zeigt den ganzen Prompt</translation>
    </message>
</context>
<context>
    <name>PromptPanel</name>
    <message>
        <source>Prompt</source>
        <translation>Prompt</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>ProviderChoice</name>
    <message>
        <source>Gemini (for 4K upscale)</source>
        <translation>Gemini (für die 4K-Hochskalierung)</translation>
    </message>
</context>
<context>
    <name>ProviderError</name>
    <message>
        <source>Invalid response: %1</source>
        <translation>Ungültige Antwort: %1</translation>
    </message>
    <message>
        <source>API error: %1</source>
        <translation>API-Fehler: %1</translation>
    </message>
    <message>
        <source>Network error: %1</source>
        <translation>Netzwerkfehler: %1</translation>
    </message>
</context>
<context>
    <name>Reports</name>
    <message>
        <source>on</source>
        <translation>ein</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>none</source>
        <translation>–</translation>
    </message>
    <message>
        <source>Provider:     %1, model %2</source>
        <translation>Anbieter:            %1, Modell %2</translation>
    </message>
    <message>
        <source>Missing keys: %1</source>
        <translation>Fehlende Schlüssel:  %1</translation>
    </message>
    <message>
        <source>Prompt:       %1</source>
        <translation>Prompt:              %1</translation>
    </message>
    <message>
        <source>4K:           %1 (upscale method %2)</source>
        <translation>4K:                  %1 (Hochskalierung: %2)</translation>
    </message>
    <message>
        <source>NSFW:         %1</source>
        <translation>NSFW:                %1</translation>
    </message>
    <message>
        <source>Automatic:    %1, every %2</source>
        <translation>Automatik:           %1, Intervall %2</translation>
    </message>
    <message>
        <source>Wallpaper:    %1</source>
        <translation>Hintergrundbild:     %1</translation>
    </message>
    <message>
        <source>Desktop:      %1 (%2)</source>
        <translation>Arbeitsumgebung:     %1 (%2)</translation>
    </message>
    <message>
        <source>Screens:      %1</source>
        <translation>Bildschirme:         %1</translation>
    </message>
    <message>
        <source>No wallpapers yet</source>
        <translation>Noch keine Hintergrundbilder</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>%1 von %n Kachel</numerusform>
            <numerusform>%1 von %n Kacheln</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2:%3 left</source>
        <translation>%1, noch %2:%3</translation>
    </message>
</context>
<context>
    <name>Schedule</name>
    <message>
        <source>Schedule</source>
        <translation>Zeitplan</translation>
    </message>
    <message>
        <source>Auto-generate</source>
        <translation>Automatisch erzeugen</translation>
    </message>
    <message>
        <source>Every</source>
        <translation>Intervall</translation>
    </message>
</context>
<context>
    <name>ServiceRequest</name>
    <message>
        <source>Failed to decode base64 image</source>
        <translation>base64-Bild konnte nicht dekodiert werden</translation>
    </message>
    <message>
        <source>%1 must be an https address, or http on this machine.</source>
        <translation>%1 muss eine https-Adresse sein, oder http auf diesem Rechner.</translation>
    </message>
    <message>
        <source>Invalid URL</source>
        <translation>Ungültige URL</translation>
    </message>
    <message>
        <source>The stored API key has a character that cannot be sent. Save the key again.</source>
        <translation>Der gespeicherte API-Schlüssel enthält ein Zeichen, das nicht gesendet werden kann. Speichern Sie den Schlüssel erneut.</translation>
    </message>
    <message>
        <source>Failed to parse response</source>
        <translation>Antwort nicht lesbar</translation>
    </message>
    <message>
        <source>No image in response</source>
        <translation>Kein Bild in der Antwort</translation>
    </message>
</context>
<context>
    <name>SessionDesktops</name>
    <message>
        <source>%1 does not draw the background now: %2 is not on the session bus</source>
        <translation>%1 zeichnet den Hintergrund zurzeit nicht: %2 ist nicht auf dem Sitzungsbus</translation>
    </message>
    <message>
        <source> or </source>
        <translation> oder </translation>
    </message>
</context>
<context>
    <name>SettingsGroup</name>
    <message>
        <source>The settings &quot;%1&quot; are not installed</source>
        <translation>Die Einstellungen „%1“ sind nicht installiert</translation>
    </message>
    <message>
        <source>The settings &quot;%1&quot; cannot be kept: GLib has no dconf here</source>
        <translation>Die Einstellungen „%1“ können nicht gespeichert werden: GLib hat hier kein dconf</translation>
    </message>
    <message>
        <source>The setting &quot;%1 %2&quot; cannot be changed</source>
        <translation>Die Einstellung „%1 %2“ kann nicht geändert werden</translation>
    </message>
    <message>
        <source>The setting &quot;%1 %2&quot; was not kept</source>
        <translation>Die Einstellung „%1 %2“ wurde nicht behalten</translation>
    </message>
</context>
<context>
    <name>SettingsTable</name>
    <message>
        <source>unknown setting %1</source>
        <translation>unbekannte Einstellung %1</translation>
    </message>
    <message>
        <source>%1 takes true or false</source>
        <translation>%1 nimmt true oder false</translation>
    </message>
    <message>
        <source>%1 takes a whole number of minutes from 1 to %2</source>
        <translation>%1 nimmt eine ganze Zahl von Minuten von 1 bis %2</translation>
    </message>
    <message>
        <source>%1 takes one of: %2</source>
        <translation>%1 nimmt eines von: %2</translation>
    </message>
    <message>
        <source>%1 takes the whole path of a picture</source>
        <translation>%1 nimmt den vollständigen Pfad eines Bildes</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>API Keys</source>
        <translation>API-Schlüssel</translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation>Erweitert</translation>
    </message>
</context>
<context>
    <name>SideFile</name>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>Sidebar</name>
    <message>
        <source>Prompt</source>
        <translation>Prompt</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>4K resolution</source>
        <translation>4K-Auflösung</translation>
    </message>
    <message>
        <source>NSFW</source>
        <translation>NSFW</translation>
    </message>
    <message>
        <source>Generating...</source>
        <translation>Wird erzeugt&#xa0;…</translation>
    </message>
    <message>
        <source>Generate &amp; Set Wallpaper</source>
        <translation>Erzeugen und anwenden</translation>
    </message>
    <message>
        <source>Ctrl+Enter</source>
        <translation>Strg+Eingabe</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>SuperResolutionModel</name>
    <message>
        <source>element type %1</source>
        <translation>Elementtyp %1</translation>
    </message>
    <message>
        <source>any</source>
        <comment>a length</comment>
        <translation>beliebig</translation>
    </message>
    <message>
        <source>The model does not fit: %1; needed is %2</source>
        <translation>Das Modell passt nicht: %1; nötig ist %2</translation>
    </message>
    <message>
        <source>float32 or float16 %1, or any height and width</source>
        <translation>float32 oder float16 %1, oder beliebige Höhe und Breite</translation>
    </message>
    <message>
        <source>its input is %1 %2</source>
        <translation>seine Eingabe ist %1 %2</translation>
    </message>
    <message>
        <source>its output is %1 %2</source>
        <translation>seine Ausgabe ist %1 %2</translation>
    </message>
    <message>
        <source>its input has no declared shape</source>
        <translation>seine Eingabe gibt keine Form an</translation>
    </message>
    <message>
        <source>it has %1 inputs and %2 outputs</source>
        <translation>es hat %1 Eingaben und %2 Ausgaben</translation>
    </message>
    <message>
        <source>one picture in and one out</source>
        <translation>ein Bild hinein und eines heraus</translation>
    </message>
    <message>
        <source>No result from RealESRGAN model</source>
        <translation>Kein Ergebnis vom RealESRGAN-Modell</translation>
    </message>
    <message>
        <source>Failed to convert upscaled tile to CGImage</source>
        <translation>Hochskalierte Kachel konnte nicht in ein CGImage umgewandelt werden</translation>
    </message>
    <message>
        <source>it made %1 of a tile</source>
        <translation>es hat aus einer Kachel %1 gemacht</translation>
    </message>
    <message>
        <source>%1, %2, in &quot;%3&quot;, out &quot;%4&quot;</source>
        <translation>%1, %2, Eingabe „%3“, Ausgabe „%4“</translation>
    </message>
    <message>
        <source>tiles of 512 × 512</source>
        <translation>Kacheln von 512 × 512</translation>
    </message>
    <message>
        <source>tiles of any size</source>
        <translation>Kacheln beliebiger Größe</translation>
    </message>
    <message>
        <source>it keeps weights in other files</source>
        <translation>es hält Gewichte in anderen Dateien</translation>
    </message>
    <message>
        <source>one file with everything in it</source>
        <translation>eine Datei, die alles enthält</translation>
    </message>
    <message>
        <source>its file is empty</source>
        <translation>seine Datei ist leer</translation>
    </message>
    <message>
        <source>an ONNX file</source>
        <translation>eine ONNX-Datei</translation>
    </message>
    <message>
        <source>its reach is &quot;%1&quot;</source>
        <translation>ihre Reichweite ist „%1“</translation>
    </message>
    <message>
        <source>a whole number of 1 to %1</source>
        <translation>eine ganze Zahl von 1 bis %1</translation>
    </message>
</context>
<context>
    <name>SwaySocket</name>
    <message>
        <source>sway cannot be reached: %1</source>
        <translation>sway ist nicht erreichbar: %1</translation>
    </message>
    <message>
        <source>sway&apos;s answer cannot be understood</source>
        <translation>die Antwort von sway ist nicht zu verstehen</translation>
    </message>
    <message>
        <source>sway does not answer</source>
        <translation>sway antwortet nicht</translation>
    </message>
    <message>
        <source>sway ended the connection: %1</source>
        <translation>sway hat die Verbindung beendet: %1</translation>
    </message>
    <message>
        <source>sway ended the connection</source>
        <translation>sway hat die Verbindung beendet</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Deleted</source>
        <translation>Gelöscht</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
</context>
<context>
    <name>UpscaleErrors</name>
    <message>
        <source>The upscale was stopped</source>
        <translation>Das Hochskalieren wurde abgebrochen</translation>
    </message>
</context>
<context>
    <name>UpscaledCanvas</name>
    <message>
        <source>Failed to create output context</source>
        <translation>Ausgabekontext konnte nicht erstellt werden</translation>
    </message>
    <message>
        <source>The upscaled image does not resemble the original at tile (%1, %2)</source>
        <translation>Das hochskalierte Bild ähnelt bei Kachel (%1, %2) nicht dem Original</translation>
    </message>
</context>
<context>
    <name>UpscalingNotice</name>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>Wird auf 4K hochskaliert&#xa0;…</translation>
    </message>
</context>
<context>
    <name>UserDefaults</name>
    <message>
        <source>could not read %1: %2</source>
        <translation>%1 konnte nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>could not write %1: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>WaylandConnection</name>
    <message>
        <source>The compositor cannot be reached</source>
        <translation>Der Compositor ist nicht erreichbar</translation>
    </message>
    <message>
        <source>The compositor ended the connection: %1</source>
        <translation>Der Compositor hat die Verbindung beendet: %1</translation>
    </message>
    <message>
        <source>The compositor does not answer</source>
        <translation>Der Compositor antwortet nicht</translation>
    </message>
</context>
<context>
    <name>WholeFile</name>
    <message>
        <source>Not a regular file</source>
        <translation>Keine gewöhnliche Datei</translation>
    </message>
</context>
<context>
    <name>quorvane::APIKeyRow</name>
    <message>
        <source>%1 API Key</source>
        <translation>%1-API-Schlüssel</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>quorvane::AdvancedModel</name>
    <message>
        <source>%1 Model</source>
        <translation>%1-Modell</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>%1 produces 4K natively — no upscaling needed.</source>
        <translation>%1 erzeugt 4K direkt – kein Hochskalieren nötig.</translation>
    </message>
    <message>
        <source>Gemini (API)</source>
        <translation>Gemini (API)</translation>
    </message>
    <message>
        <source>Local (on-device)</source>
        <translation>Lokal (auf diesem Gerät)</translation>
    </message>
</context>
<context>
    <name>quorvane::ImageListModel</name>
    <message>
        <source>favorite</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>4K</source>
        <translation>4K</translation>
    </message>
    <message>
        <source>current wallpaper</source>
        <translation>aktuelles Hintergrundbild</translation>
    </message>
    <message>
        <source>being upscaled to 4K</source>
        <translation>wird auf 4K hochskaliert</translation>
    </message>
    <message>
        <source>, </source>
        <comment>Between what is read out of one picture</comment>
        <translation>, </translation>
    </message>
</context>
<context>
    <name>quorvane::PreviewModel</name>
    <message>
        <source>This picture is not there any more.</source>
        <translation>Dieses Bild ist nicht mehr da.</translation>
    </message>
    <message>
        <source>This picture cannot be read.</source>
        <translation>Dieses Bild kann nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>quorvane::Scenes</name>
    <message>
        <source>it is no window</source>
        <translation>es ist kein Fenster</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
</context>
<context>
    <name>quorvane::SidebarModel</name>
    <message>
        <source>+ Local 4K</source>
        <translation>+ Lokal 4K</translation>
    </message>
    <message>
        <source>+ Gemini 4K</source>
        <translation>+ Gemini 4K</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>Nächstes: %1</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperApp</name>
    <message>
        <source>The window cannot be opened</source>
        <translation>Das Fenster kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>The settings are not kept</source>
        <translation>Die Einstellungen werden nicht gespeichert</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperManager</name>
    <message>
        <source>Wallpaper set!</source>
        <translation>Hintergrundbild gesetzt!</translation>
    </message>
    <message>
        <source>Missing %1 API key — open Settings (⌘,)</source>
        <translation>API-Schlüssel für %1 fehlt – öffnen Sie die Einstellungen (⌘,)</translation>
    </message>
    <message>
        <source>Failed to save image</source>
        <translation>Bild konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Upscaling to 4K (local)...</source>
        <translation>Wird auf 4K hochskaliert (lokal)&#xa0;…</translation>
    </message>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>Wird auf 4K hochskaliert&#xa0;…</translation>
    </message>
    <message>
        <source>Local upscale failed, using original — %1</source>
        <translation>Lokales Hochskalieren fehlgeschlagen, das Original wird verwendet – %1</translation>
    </message>
    <message>
        <source>Upscale failed, using original — %1</source>
        <translation>Hochskalieren fehlgeschlagen, das Original wird verwendet – %1</translation>
    </message>
    <message>
        <source>No Gemini API key — switch to Local upscale in Settings &gt; Advanced</source>
        <translation>Kein Gemini-API-Schlüssel – wechseln Sie unter Einstellungen &gt; Erweitert zur lokalen Hochskalierung</translation>
    </message>
    <message>
        <source>Upscale failed: %1</source>
        <translation>Hochskalieren fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Failed to save upscaled image</source>
        <translation>Hochskaliertes Bild konnte nicht gespeichert werden</translation>
    </message>
    <message>
        <source>Quorvane is quitting</source>
        <translation>Quorvane wird beendet</translation>
    </message>
    <message>
        <source>the picture was deleted</source>
        <translation>das Bild wurde gelöscht</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperSetter</name>
    <message>
        <source>No screen found</source>
        <translation>Kein Bildschirm gefunden</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Failed to sync wallpaper: %1</source>
        <translation>Hintergrundbild konnte nicht abgeglichen werden: %1</translation>
    </message>
</context>
</TS>
