<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>APIKeysTab</name>
    <message>
        <source>Remove this key</source>
        <translation>Supprimer cette clé</translation>
    </message>
    <message>
        <source>Saved in Keychain</source>
        <translation>Enregistrée dans le trousseau</translation>
    </message>
    <message>
        <source>What is in the field is not saved yet.</source>
        <translation>Le contenu du champ n’est pas encore enregistré.</translation>
    </message>
    <message>
        <source>This key is stored.</source>
        <translation>Cette clé est enregistrée.</translation>
    </message>
</context>
<context>
    <name>AdvancedTab</name>
    <message>
        <source>Provider</source>
        <translation>Fournisseur</translation>
    </message>
    <message>
        <source>Auto selects Gemini by default, Grok when NSFW is on.
Pick a specific provider to use it for every generation.</source>
        <translation>«&#xa0;Automatique&#xa0;» choisit Gemini par défaut, Grok quand NSFW est activé.
Choisissez un fournisseur précis pour l’utiliser à chaque génération.</translation>
    </message>
    <message>
        <source>4K Upscaling</source>
        <translation>Agrandissement 4K</translation>
    </message>
    <message>
        <source>Upscale Method</source>
        <translation>Méthode</translation>
    </message>
    <message>
        <source>Gemini uses the API (requires key). Local runs RealESRGAN on-device (offline, no API key needed).</source>
        <translation>Gemini utilise l’API (clé requise). Local exécute RealESRGAN sur cet appareil (hors ligne, sans clé API).</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>Modèles</translation>
    </message>
</context>
<context>
    <name>Album</name>
    <message>
        <source>Favorites</source>
        <translation>Favoris</translation>
    </message>
    <message>
        <source>Uncategorized</source>
        <translation>Sans invite</translation>
    </message>
</context>
<context>
    <name>AlbumTile</name>
    <message numerus="yes">
        <source>%1, %n pictures</source>
        <translation>
            <numerusform>%1, %n image</numerusform>
            <numerusform>%1, %n images</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AsideFile</name>
    <message>
        <source>%1 cannot be understood, nor be put aside: %2</source>
        <translation>%1 est incompréhensible et ne peut être mis de côté : %2</translation>
    </message>
    <message>
        <source>%1 could not be understood. It was put aside as %2, and a new one was begun.</source>
        <translation>%1 était incompréhensible. Il a été mis de côté sous %2 et un nouveau a été commencé.</translation>
    </message>
</context>
<context>
    <name>Autostart</name>
    <message>
        <source>could not write the autostart entry</source>
        <translation>impossible d’écrire l’entrée de démarrage automatique</translation>
    </message>
    <message>
        <source>Quorvane sets new pictures and keeps yours on every screen.</source>
        <translation>Quorvane applique de nouvelles images et garde la vôtre sur chaque écran.</translation>
    </message>
    <message>
        <source>the desktop offers no autostart to a sandboxed program: %1</source>
        <translation>l’environnement de bureau n’offre pas de démarrage automatique à un programme en bac à sable&#xa0;: %1</translation>
    </message>
    <message>
        <source>the desktop did not answer whether Quorvane may start with the session</source>
        <translation>l’environnement de bureau n’a pas répondu si Quorvane peut démarrer avec la session</translation>
    </message>
    <message>
        <source>the desktop did not allow the change</source>
        <translation>l’environnement de bureau n’a pas autorisé la modification</translation>
    </message>
</context>
<context>
    <name>BoundedAllocator</name>
    <message>
        <source>The model needs more than %1 MB of memory</source>
        <translation>Le modèle a besoin de plus de %1 Mo de mémoire</translation>
    </message>
    <message>
        <source>There is not enough memory for the model</source>
        <translation>Il n&apos;y a pas assez de mémoire pour le modèle</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>--prompt needs a text</source>
        <translation>--prompt attend un texte</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>option inconnue %1</translation>
    </message>
    <message>
        <source>unknown command %1</source>
        <translation>commande inconnue %1</translation>
    </message>
    <message>
        <source>usage: %1</source>
        <translation>utilisation&#xa0;: %1</translation>
    </message>
    <message>
        <source>--action needs one of: generate, toggle-auto, settings, quit</source>
        <translation>--action attend l’une de ces valeurs&#xa0;: generate, toggle-auto, settings, quit</translation>
    </message>
</context>
<context>
    <name>CommandTable</name>
    <message>
        <source>make a picture and set it as the wallpaper</source>
        <translation>générer une image et l’appliquer en fond d’écran</translation>
    </message>
    <message>
        <source>make a 4K copy of a picture and set it</source>
        <translation>faire une copie 4K d’une image et l’appliquer</translation>
    </message>
    <message>
        <source>set a picture as the wallpaper of every screen</source>
        <translation>appliquer une image à tous les écrans</translation>
    </message>
    <message>
        <source>provider, settings, schedule, wallpaper, screens</source>
        <translation>fournisseur, réglages, programmation, fond d’écran, écrans</translation>
    </message>
    <message>
        <source>list the pictures, newest first</source>
        <translation>lister les images, la plus récente d’abord</translation>
    </message>
    <message>
        <source>list the pictures by prompt</source>
        <translation>lister les images par invite</translation>
    </message>
    <message>
        <source>mark a picture as a favourite, or no longer</source>
        <translation>marquer une image comme favorite, ou ne plus</translation>
    </message>
    <message>
        <source>delete a picture and its 4K partner for good</source>
        <translation>supprimer définitivement une image et son équivalent 4K</translation>
    </message>
    <message>
        <source>print all settings</source>
        <translation>afficher tous les réglages</translation>
    </message>
    <message>
        <source>print a setting</source>
        <translation>afficher un réglage</translation>
    </message>
    <message>
        <source>change a setting</source>
        <translation>modifier un réglage</translation>
    </message>
    <message>
        <source>go back to the default of a setting</source>
        <translation>revenir à la valeur par défaut d’un réglage</translation>
    </message>
    <message>
        <source>list the services whose API keys are stored</source>
        <translation>lister les services dont la clé API est enregistrée</translation>
    </message>
    <message>
        <source>store an API key, read from standard input</source>
        <translation>enregistrer une clé API lue sur l’entrée standard</translation>
    </message>
    <message>
        <source>delete an API key</source>
        <translation>supprimer une clé API</translation>
    </message>
    <message>
        <source>automatic mode</source>
        <translation>mode automatique</translation>
    </message>
    <message>
        <source>start with the session</source>
        <translation>démarrer avec la session</translation>
    </message>
    <message>
        <source>show the super-resolution network</source>
        <translation>afficher le réseau d’agrandissement</translation>
    </message>
    <message>
        <source>check a network and make it yours</source>
        <translation>vérifier un réseau et l’adopter</translation>
    </message>
    <message>
        <source>end the running application</source>
        <translation>quitter l’application lancée</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>FICHIER</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>NOM</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>VALEUR</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>[--prompt TEXT]</source>
        <translation>[--prompt TEXTE]</translation>
    </message>
    <message>
        <source>Usage: quorvane [--hidden]
       quorvane --action NAME
       quorvane COMMAND [--json]

Without a command the application starts and opens its window (--hidden: tray only).
--action starts it where it does not run, and does what the desktop entry&apos;s action
does: generate, toggle-auto, settings or quit.
</source>
        <translation>Utilisation&#xa0;: quorvane [--hidden]
              quorvane --action NOM
              quorvane COMMANDE [--json]

Sans commande, l’application démarre et ouvre sa fenêtre (--hidden&#xa0;: seulement l’icône de notification).
--action la démarre là où elle n’est pas lancée, et fait ce que fait l’action de
l’entrée de bureau&#xa0;: generate, toggle-auto, settings ou quit.
</translation>
    </message>
    <message>
        <source>FILE is a path, or the name of a picture in the library.
ID is one of %1.
Exit status: 0 done, 1 ended with an error, 2 the command line is wrong.
</source>
        <translation>FICHIER est un chemin, ou le nom d’une image de la bibliothèque. ID est l’un de %1.
Code de retour&#xa0;: 0 terminé, 1 terminé par une erreur, 2 ligne de commande fausse.
</translation>
    </message>
    <message>
        <source>end what makes a picture</source>
        <translation>arrête ce qui crée une image</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>could not delete %1</source>
        <translation>impossible de supprimer %1</translation>
    </message>
    <message>
        <source>no such file: %1</source>
        <translation>aucun fichier de ce nom&#xa0;: %1</translation>
    </message>
    <message>
        <source>not in the library: %1</source>
        <translation>absent de la bibliothèque&#xa0;: %1</translation>
    </message>
    <message>
        <source>no key on standard input</source>
        <translation>aucune clé sur l’entrée standard</translation>
    </message>
    <message>
        <source>API key for %1: </source>
        <translation>Clé API pour %1&#xa0;: </translation>
    </message>
    <message>
        <source>standard input holds no key</source>
        <translation>l’entrée standard ne contient aucune clé</translation>
    </message>
    <message>
        <source>the application is not running</source>
        <translation>l’application n’est pas lancée</translation>
    </message>
    <message>
        <source>the application did not answer: %1</source>
        <translation>l’application n’a pas répondu&#xa0;: %1</translation>
    </message>
    <message>
        <source>the application was asked to end and still runs</source>
        <translation>l’application a été priée de quitter et tourne encore</translation>
    </message>
    <message>
        <source>not a regular file: %1</source>
        <translation>n&apos;est pas un fichier ordinaire : %1</translation>
    </message>
    <message>
        <source>not a picture: %1</source>
        <translation>ce n&apos;est pas une image : %1</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Annulé.</translation>
    </message>
    <message>
        <source>Nothing is being made.</source>
        <translation>Rien n’est en cours de création.</translation>
    </message>
</context>
<context>
    <name>DescribedError</name>
    <message>
        <source>The reason is not known.</source>
        <translation>La raison n’est pas connue.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>La mémoire ne suffit pas.</translation>
    </message>
</context>
<context>
    <name>DesktopChoice</name>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, which is none of %2</source>
        <translation>QUORVANE_DESKTOP vaut «&#xa0;%1&#xa0;», qui ne figure pas parmi %2</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but QUORVANE_WALLPAPER_COMMAND is not set</source>
        <translation>QUORVANE_DESKTOP vaut «&#xa0;%1&#xa0;», mais QUORVANE_WALLPAPER_COMMAND n’est pas définie</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but SWAYSOCK is not set</source>
        <translation>QUORVANE_DESKTOP vaut «&#xa0;%1&#xa0;», mais SWAYSOCK n’est pas définie</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but DISPLAY is not set</source>
        <translation>QUORVANE_DESKTOP vaut «&#xa0;%1&#xa0;», mais DISPLAY n’est pas définie</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;</source>
        <translation>QUORVANE_DESKTOP vaut «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>QUORVANE_WALLPAPER_COMMAND is set</source>
        <translation>QUORVANE_WALLPAPER_COMMAND est définie</translation>
    </message>
    <message>
        <source>sway answers on SWAYSOCK</source>
        <translation>sway répond sur SWAYSOCK</translation>
    </message>
    <message>
        <source>this Wayland desktop is not supported yet; QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture</source>
        <translation>cet environnement Wayland n’est pas encore pris en charge&#x202f;; QUORVANE_WALLPAPER_COMMAND peut désigner un programme qui applique l’image</translation>
    </message>
    <message>
        <source>DISPLAY is set and no desktop paints over the X11 root window</source>
        <translation>DISPLAY est définie et aucun environnement de bureau ne recouvre la fenêtre racine X11</translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, which is not supported yet; QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture</source>
        <translation>XDG_CURRENT_DESKTOP désigne «&#xa0;%1&#xa0;», qui n’est pas encore pris en charge&#x202f;; QUORVANE_WALLPAPER_COMMAND peut désigner un programme qui applique l’image</translation>
    </message>
    <message>
        <source>SWAYSOCK is set, but nobody answers on it</source>
        <translation>SWAYSOCK est définie, mais personne n’y répond</translation>
    </message>
    <message>
        <source>neither SWAYSOCK nor DISPLAY is set</source>
        <translation>ni SWAYSOCK ni DISPLAY n’est définie</translation>
    </message>
    <message>
        <source>HYPRLAND_INSTANCE_SIGNATURE is not set</source>
        <translation>HYPRLAND_INSTANCE_SIGNATURE n’est pas définie</translation>
    </message>
    <message>
        <source>WAYLAND_DISPLAY is not set</source>
        <translation>WAYLAND_DISPLAY n’est pas définie</translation>
    </message>
    <message>
        <source>the compositor does not offer zwlr_layer_shell_v1</source>
        <translation>le compositeur ne propose pas zwlr_layer_shell_v1</translation>
    </message>
    <message>
        <source>no portal of this session sets wallpapers</source>
        <translation>aucun portail de cette session n’applique de fonds d’écran</translation>
    </message>
    <message>
        <source>its settings &quot;%1&quot; are not installed</source>
        <translation>ses réglages «&#xa0;%1&#xa0;» ne sont pas installés</translation>
    </message>
    <message>
        <source>DISPLAY is not set</source>
        <translation>DISPLAY n’est pas définie</translation>
    </message>
    <message>
        <source>%1 is not on the session bus</source>
        <translation>%1 n’est pas sur le bus de session</translation>
    </message>
    <message>
        <source> or </source>
        <translation> ou </translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, and it draws the background</source>
        <translation>XDG_CURRENT_DESKTOP désigne «&#xa0;%1&#xa0;», qui dessine l’arrière-plan</translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, but %2</source>
        <translation>XDG_CURRENT_DESKTOP désigne «&#xa0;%1&#xa0;», mais %2</translation>
    </message>
    <message>
        <source>this is a sandbox, and its portal sets wallpapers</source>
        <translation>ceci est un bac à sable, et son portail applique les fonds d’écran</translation>
    </message>
    <message>
        <source>Hyprland answers on its socket</source>
        <translation>Hyprland répond sur son socket</translation>
    </message>
    <message>
        <source>the compositor offers zwlr_layer_shell_v1; the picture is shown while the application runs</source>
        <translation>le compositeur propose zwlr_layer_shell_v1&#x202f;; l’image est affichée tant que l’application est lancée</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but %2</source>
        <translation>QUORVANE_DESKTOP vaut «&#xa0;%1&#xa0;», mais %2</translation>
    </message>
    <message>
        <source>nothing else is known here, and the session&apos;s portal sets wallpapers</source>
        <translation>rien d’autre n’est connu ici, et le portail de la session applique les fonds d’écran</translation>
    </message>
</context>
<context>
    <name>DesktopPictureCommand</name>
    <message>
        <source>The wallpaper command &quot;%1&quot; cannot be started: %2</source>
        <translation>Impossible de lancer la commande de fond d’écran «&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; did not end within %2 seconds</source>
        <translation>La commande de fond d’écran «&#xa0;%1&#xa0;» ne s’est pas terminée en %2 secondes</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; ended with status %2</source>
        <translation>La commande de fond d’écran «&#xa0;%1&#xa0;» s’est terminée avec l’état %2</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; was ended by a signal</source>
        <translation>La commande de fond d’écran «&#xa0;%1&#xa0;» a été interrompue par un signal</translation>
    </message>
</context>
<context>
    <name>DesktopPictureGnome</name>
    <message>
        <source>The settings of %1 do not answer</source>
        <translation>Les réglages de %1 ne répondent pas</translation>
    </message>
</context>
<context>
    <name>DesktopPictureHyprland</name>
    <message>
        <source>hyprpaper does not answer</source>
        <translation>hyprpaper ne répond pas</translation>
    </message>
    <message>
        <source>hyprpaper cannot take &quot;%1&quot;</source>
        <translation>hyprpaper ne peut pas accepter «&#xa0;%1&#xa0;»</translation>
    </message>
</context>
<context>
    <name>DesktopPictureLayerShell</name>
    <message>
        <source>This desktop shows a background only while the program that drew it runs; start Quorvane, then set the picture</source>
        <translation>Cet environnement de bureau n’affiche un arrière-plan que tant que le programme qui l’a dessiné est lancé&#x202f;; lancez Quorvane, puis appliquez l’image</translation>
    </message>
</context>
<context>
    <name>DesktopPictureLxqt</name>
    <message>
        <source>LXQt&apos;s file manager is told not to draw the desktop</source>
        <translation>Le gestionnaire de fichiers de LXQt est réglé pour ne pas dessiner le bureau</translation>
    </message>
    <message>
        <source>The X server cannot be reached</source>
        <translation>Le serveur X est injoignable</translation>
    </message>
    <message>
        <source>LXQt is set to one wallpaper for each monitor, which would distort the picture</source>
        <translation>LXQt est réglé sur un fond d’écran par moniteur, ce qui déformerait l’image</translation>
    </message>
    <message>
        <source>LXQt does not answer</source>
        <translation>LXQt ne répond pas</translation>
    </message>
</context>
<context>
    <name>DesktopPicturePlasma</name>
    <message>
        <source>Plasma&apos;s desktop does not run (org.kde.plasmashell is not on the session bus)</source>
        <translation>Le bureau de Plasma n’est pas lancé (org.kde.plasmashell n’est pas sur le bus de session)</translation>
    </message>
    <message>
        <source>Plasma: %1</source>
        <translation>Plasma&#xa0;: %1</translation>
    </message>
    <message>
        <source>Plasma answered: %1</source>
        <translation>Plasma a répondu&#xa0;: %1</translation>
    </message>
    <message>
        <source>Plasma does not answer</source>
        <translation>Plasma ne répond pas</translation>
    </message>
</context>
<context>
    <name>DesktopPicturePortal</name>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>Impossible de lire l’image&#xa0;: %1</translation>
    </message>
    <message>
        <source>The session bus does not answer</source>
        <translation>Le bus de session ne répond pas</translation>
    </message>
    <message>
        <source>Waiting for your answer to the desktop&apos;s question about the background</source>
        <translation>En attente de votre réponse à la question de l’environnement de bureau sur l’arrière-plan</translation>
    </message>
    <message>
        <source>You did not allow it to set the background</source>
        <translation>Vous n’avez pas autorisé la modification de l’arrière-plan</translation>
    </message>
    <message>
        <source>The desktop&apos;s portal refused the picture</source>
        <translation>Le portail de l’environnement de bureau a refusé l’image</translation>
    </message>
</context>
<context>
    <name>DesktopPictureSway</name>
    <message>
        <source>sway has no screen &quot;%1&quot;</source>
        <translation>sway n’a pas d’écran «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>sway&apos;s answer cannot be understood</source>
        <translation>la réponse de sway est incompréhensible</translation>
    </message>
    <message>
        <source>sway refused the picture</source>
        <translation>sway a refusé l’image</translation>
    </message>
</context>
<context>
    <name>DesktopPictureX11</name>
    <message>
        <source>The X server cannot be reached</source>
        <translation>Le serveur X est injoignable</translation>
    </message>
    <message>
        <source>The X server&apos;s colours are of a kind that is not supported</source>
        <translation>Les couleurs du serveur X sont d’un type non pris en charge</translation>
    </message>
    <message>
        <source>The X server has no screen &quot;%1&quot;</source>
        <translation>Le serveur X n’a pas d’écran «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>There is not enough memory for the picture</source>
        <translation>La mémoire ne suffit pas pour cette image</translation>
    </message>
    <message>
        <source>The X server does not answer</source>
        <translation>Le serveur X ne répond pas</translation>
    </message>
    <message>
        <source>The X server did not take the picture: %1</source>
        <translation>Le serveur X n’a pas accepté l’image : %1</translation>
    </message>
</context>
<context>
    <name>DesktopPictureXfce</name>
    <message>
        <source>XFCE did not keep the setting &quot;%1&quot;</source>
        <translation>XFCE n’a pas conservé le réglage «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>XFCE does not answer</source>
        <translation>XFCE ne répond pas</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No wallpapers yet</source>
        <translation>Aucun fond d’écran pour l’instant</translation>
    </message>
    <message>
        <source>Generate your first wallpaper
using the sidebar controls.</source>
        <translation>Générez votre premier fond d’écran
avec les commandes du panneau latéral.</translation>
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
        <translation>Albums</translation>
    </message>
    <message>
        <source>Use Prompt</source>
        <translation>Utiliser l’invite</translation>
    </message>
</context>
<context>
    <name>GeminiUpscale</name>
    <message>
        <source>Failed to parse upscale response</source>
        <translation>Réponse d’agrandissement illisible</translation>
    </message>
    <message>
        <source>No image in upscale response</source>
        <translation>Aucune image dans la réponse d’agrandissement</translation>
    </message>
    <message>
        <source>Upscale failed: %1</source>
        <translation>Échec de l’agrandissement&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>HandedPicture</name>
    <message>
        <source>The picture cannot be copied for the desktop</source>
        <translation>Impossible de copier l’image pour l’environnement de bureau</translation>
    </message>
    <message>
        <source>No folder could hold a copy of the picture under a name that the desktop takes</source>
        <translation>Aucun dossier n’a pu recevoir une copie de l’image sous un nom que l’environnement de bureau accepte</translation>
    </message>
</context>
<context>
    <name>HistoryTile</name>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>Agrandissement en 4K…</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>%3, %1 of %2</source>
        <extracomment>What is read out of a picture, then its place among the others</extracomment>
        <translation>%3, %1 sur %2</translation>
    </message>
    <message>
        <source>This picture cannot be read.</source>
        <translation>Impossible de lire cette image.</translation>
    </message>
    <message>
        <source>Delete, together with its 4K partner</source>
        <translation>Supprimer, avec sa version 4K</translation>
    </message>
</context>
<context>
    <name>HttpClient</name>
    <message>
        <source>The address is neither https nor on this machine.</source>
        <translation>L’adresse n’est ni en https ni sur cette machine.</translation>
    </message>
    <message>
        <source>The service redirected to an address without encryption.</source>
        <translation>Le service a redirigé vers une adresse sans chiffrement.</translation>
    </message>
    <message>
        <source>The service redirected too many times.</source>
        <translation>Le service a redirigé trop de fois.</translation>
    </message>
    <message>
        <source>The request was cancelled.</source>
        <translation>La requête a été annulée.</translation>
    </message>
    <message>
        <source>The answer is larger than %1 MiB.</source>
        <translation>La réponse dépasse %1 Mio.</translation>
    </message>
    <message>
        <source>No secure connection to %1: %2</source>
        <translation>Pas de connexion sûre à %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>La requête a expiré.</translation>
    </message>
    <message>
        <source>The service closed the connection before it answered.</source>
        <translation>Le service a fermé la connexion avant de répondre.</translation>
    </message>
    <message>
        <source>The service closed the connection in the middle of its answer.</source>
        <translation>Le service a fermé la connexion au milieu de sa réponse.</translation>
    </message>
    <message>
        <source>The service has moved to %1</source>
        <translation>Le service a déménagé à l’adresse %1</translation>
    </message>
    <message>
        <source>The service did not accept the API key.</source>
        <translation>Le service n’a pas accepté la clé API.</translation>
    </message>
    <message>
        <source>The proxy asks for a name and a password.</source>
        <translation>Le proxy demande un nom et un mot de passe.</translation>
    </message>
</context>
<context>
    <name>ImageRecords</name>
    <message>
        <source>MMM d, HH:mm</source>
        <comment>Day and time below a picture, in the letters of QLocale::toString()</comment>
        <translation>d MMM, HH:mm</translation>
    </message>
</context>
<context>
    <name>ImageService</name>
    <message>
        <source>Used for default generation and 4K upscaling.</source>
        <translation>Utilisée pour la génération par défaut et l’agrandissement 4K.</translation>
    </message>
    <message>
        <source>Used when NSFW is enabled.</source>
        <translation>Utilisée quand NSFW est activé.</translation>
    </message>
    <message>
        <source>Available as an override in Advanced settings.</source>
        <translation>Peut être choisi dans les paramètres avancés.</translation>
    </message>
</context>
<context>
    <name>ImageStore</name>
    <message>
        <source>%1 could not be deleted: %2</source>
        <translation>%1 n’a pas pu être supprimé : %2</translation>
    </message>
    <message>
        <source>%1 could not be brought back: %2</source>
        <translation>%1 n’a pas pu être récupéré : %2</translation>
    </message>
</context>
<context>
    <name>IntervalLabel</name>
    <message>
        <source>%1 min</source>
        <comment>an interval</comment>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>1 hour</source>
        <comment>an interval</comment>
        <translation>1 heure</translation>
    </message>
    <message numerus="yes">
        <source>%n hours</source>
        <comment>an interval of two or more</comment>
        <translation>
            <numerusform>%n heure</numerusform>
            <numerusform>%n heures</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LayerShellBackgrounds</name>
    <message>
        <source>The compositor does not offer zwlr_layer_shell_v1</source>
        <translation>Le compositeur ne propose pas zwlr_layer_shell_v1</translation>
    </message>
    <message>
        <source>The compositor has no screen &quot;%1&quot;</source>
        <translation>Le compositeur n’a pas d’écran «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>The compositor closed the background</source>
        <translation>Le compositeur a fermé l’arrière-plan</translation>
    </message>
    <message>
        <source>The compositor cannot be given the picture: %1</source>
        <translation>L’image ne peut pas être transmise au compositeur : %1</translation>
    </message>
</context>
<context>
    <name>LocalUpscaler</name>
    <message>
        <source>Failed to crop tile at (%1, %2)</source>
        <translation>Échec du découpage de la tuile (%1, %2)</translation>
    </message>
    <message>
        <source>Failed to decode image for upscaling</source>
        <translation>Échec du décodage de l’image à agrandir</translation>
    </message>
    <message>
        <source>The RealESRGAN model gave values that are not numbers for the tile at (%1, %2)</source>
        <translation>Le modèle RealESRGAN a donné des valeurs qui ne sont pas des nombres pour la tuile (%1, %2)</translation>
    </message>
    <message>
        <source>Failed to create padding context</source>
        <translation>Échec de la création du contexte de remplissage</translation>
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
        <translation>Génération…</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>Prochain&#xa0;: %1</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>En attente</translation>
    </message>
    <message>
        <source>Generate Now</source>
        <translation>Générer maintenant</translation>
    </message>
    <message>
        <source>Auto-Generate</source>
        <translation>Génération automatique</translation>
    </message>
    <message>
        <source>Open Window</source>
        <translation>Ouvrir la fenêtre</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>Paramètres…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
</context>
<context>
    <name>MenuBarButton</name>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
</context>
<context>
    <name>MessageBus</name>
    <message>
        <source>%1 does not answer</source>
        <translation>%1 ne répond pas</translation>
    </message>
    <message>
        <source>The session bus cannot be reached</source>
        <translation>Le bus de session est injoignable</translation>
    </message>
</context>
<context>
    <name>MissingKeys</name>
    <message>
        <source>Missing %1 API key</source>
        <translation>Clé API manquante&#xa0;: %1</translation>
    </message>
    <message>
        <source>Open Settings (⌘,)</source>
        <translation>Ouvrir les paramètres (⌘,)</translation>
    </message>
</context>
<context>
    <name>ModelFiles</name>
    <message>
        <source>RealESRGAN model not found in app bundle</source>
        <translation>Modèle RealESRGAN introuvable dans l’application</translation>
    </message>
    <message>
        <source>The model cannot be read: %1</source>
        <translation>Impossible de lire le modèle&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>ModelInstall</name>
    <message>
        <source>The model cannot be copied: %1</source>
        <translation>Impossible de copier le modèle&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>No new wallpaper</source>
        <translation>Pas de nouveau fond d’écran</translation>
    </message>
    <message>
        <source>New wallpaper</source>
        <translation>Nouveau fond d’écran</translation>
    </message>
</context>
<context>
    <name>Operations</name>
    <message>
        <source>Cancelled. The service may charge for what it was asked for.</source>
        <translation>Annulé. Le service peut facturer ce qui lui a été demandé.</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Annulé.</translation>
    </message>
</context>
<context>
    <name>PictureFile</name>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>Impossible de lire l’image&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>PictureMenu</name>
    <message>
        <source>Set as Wallpaper</source>
        <translation>Définir comme fond d’écran</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Show in Files</source>
        <translation>Afficher dans Fichiers</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Supprimer</translation>
    </message>
</context>
<context>
    <name>PlasmaScript</name>
    <message>
        <source>Plasma did not take the picture for screen %1</source>
        <translation>Plasma n’a pas accepté l’image pour l’écran %1</translation>
    </message>
    <message>
        <source>Plasma has a desktop on %1 of its %2 screens</source>
        <translation>Plasma a un bureau sur %1 de ses %2 écrans</translation>
    </message>
</context>
<context>
    <name>PngEncoder</name>
    <message>
        <source>Failed to encode upscaled image</source>
        <translation>Échec de l’encodage de l’image agrandie</translation>
    </message>
</context>
<context>
    <name>PortalRequest</name>
    <message>
        <source>The desktop&apos;s portal ended before it answered</source>
        <translation>Le portail de l’environnement de bureau s’est arrêté avant de répondre</translation>
    </message>
    <message>
        <source>Nobody waits for the desktop&apos;s question any more</source>
        <translation>Plus personne n’attend la question de l’environnement de bureau</translation>
    </message>
    <message>
        <source>The desktop&apos;s question was not answered</source>
        <translation>La question de l’environnement de bureau est restée sans réponse</translation>
    </message>
    <message>
        <source>There is no answer</source>
        <translation>Il n’y a pas de réponse</translation>
    </message>
</context>
<context>
    <name>Preview</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Précédente</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Suivante</translation>
    </message>
    <message>
        <source>Set as Wallpaper</source>
        <translation>Définir comme fond d’écran</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>Retirer des favoris</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Ajouter aux favoris</translation>
    </message>
    <message>
        <source>Use Prompt</source>
        <translation>Utiliser l’invite</translation>
    </message>
    <message>
        <source>Upscale to 4K</source>
        <translation>Agrandir en 4K</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Plein écran</translation>
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
        <translation>il n’y a pas d’affichage&#x202f;; quorvane --help indique ce qui n’en demande pas</translation>
    </message>
    <message>
        <source>the application runs already and can be told nothing without a session bus</source>
        <translation>l’application est déjà lancée et, sans bus de session, rien ne peut lui être transmis</translation>
    </message>
    <message>
        <source>there is no home folder: HOME names none, and the account has none</source>
        <translation>il n’y a pas de dossier personnel : HOME n’en indique aucun et le compte n’en a pas</translation>
    </message>
    <message>
        <source>the application that runs already does not do it: %1</source>
        <translation>l’application déjà en cours d’exécution ne le fait pas : %1</translation>
    </message>
</context>
<context>
    <name>ProgressText</name>
    <message numerus="yes">
        <source>%n s left</source>
        <comment>seconds</comment>
        <translation>
            <numerusform>encore %n s</numerusform>
            <numerusform>encore %n s</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n min left</source>
        <comment>minutes</comment>
        <translation>
            <numerusform>encore %n min environ</numerusform>
            <numerusform>encore %n min environ</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>tuile&#xa0;: %1 sur %n</numerusform>
            <numerusform>tuiles&#xa0;: %1 sur %n</numerusform>
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
        <translation>Invite</translation>
    </message>
</context>
<context>
    <name>PromptLine</name>
    <message>
        <source>Shows the whole prompt</source>
        <translation>Affiche l’invite entière</translation>
    </message>
</context>
<context>
    <name>PromptPanel</name>
    <message>
        <source>Prompt</source>
        <translation>Invite</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
</context>
<context>
    <name>ProviderChoice</name>
    <message>
        <source>Gemini (for 4K upscale)</source>
        <translation>Gemini (pour l’agrandissement 4K)</translation>
    </message>
</context>
<context>
    <name>ProviderError</name>
    <message>
        <source>Invalid response: %1</source>
        <translation>Réponse non valide&#xa0;: %1</translation>
    </message>
    <message>
        <source>API error: %1</source>
        <translation>Erreur de l’API&#xa0;: %1</translation>
    </message>
    <message>
        <source>Network error: %1</source>
        <translation>Erreur réseau&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>Reports</name>
    <message>
        <source>on</source>
        <translation>activé</translation>
    </message>
    <message>
        <source>off</source>
        <translation>désactivé</translation>
    </message>
    <message>
        <source>none</source>
        <translation>—</translation>
    </message>
    <message>
        <source>Provider:     %1, model %2</source>
        <translation>Fournisseur&#xa0;:      %1, modèle %2</translation>
    </message>
    <message>
        <source>Missing keys: %1</source>
        <translation>Clés manquantes&#xa0;:  %1</translation>
    </message>
    <message>
        <source>Prompt:       %1</source>
        <translation>Invite&#xa0;:           %1</translation>
    </message>
    <message>
        <source>4K:           %1 (upscale method %2)</source>
        <translation>4K&#xa0;:               %1 (agrandissement&#xa0;: %2)</translation>
    </message>
    <message>
        <source>NSFW:         %1</source>
        <translation>NSFW&#xa0;:             %1</translation>
    </message>
    <message>
        <source>Automatic:    %1, every %2</source>
        <translation>Automatique&#xa0;:      %1, intervalle %2</translation>
    </message>
    <message>
        <source>Wallpaper:    %1</source>
        <translation>Fond d’écran&#xa0;:     %1</translation>
    </message>
    <message>
        <source>Desktop:      %1 (%2)</source>
        <translation>Bureau&#xa0;:           %1 (%2)</translation>
    </message>
    <message>
        <source>Screens:      %1</source>
        <translation>Écrans&#xa0;:           %1</translation>
    </message>
    <message>
        <source>No wallpapers yet</source>
        <translation>Aucun fond d’écran pour l’instant</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>tuile&#xa0;: %1 sur %n</numerusform>
            <numerusform>tuiles&#xa0;: %1 sur %n</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2:%3 left</source>
        <translation>%1, encore %2:%3</translation>
    </message>
</context>
<context>
    <name>Schedule</name>
    <message>
        <source>Schedule</source>
        <translation>Programmation</translation>
    </message>
    <message>
        <source>Auto-generate</source>
        <translation>Génération automatique</translation>
    </message>
    <message>
        <source>Every</source>
        <translation>Intervalle</translation>
    </message>
</context>
<context>
    <name>ServiceRequest</name>
    <message>
        <source>Failed to decode base64 image</source>
        <translation>Échec du décodage de l’image base64</translation>
    </message>
    <message>
        <source>%1 must be an https address, or http on this machine.</source>
        <translation>%1 doit être une adresse https, ou http sur cette machine.</translation>
    </message>
    <message>
        <source>Invalid URL</source>
        <translation>URL non valide</translation>
    </message>
    <message>
        <source>The stored API key has a character that cannot be sent. Save the key again.</source>
        <translation>La clé API enregistrée contient un caractère qui ne peut pas être envoyé. Enregistrez de nouveau la clé.</translation>
    </message>
    <message>
        <source>Failed to parse response</source>
        <translation>Réponse illisible</translation>
    </message>
    <message>
        <source>No image in response</source>
        <translation>Aucune image dans la réponse</translation>
    </message>
</context>
<context>
    <name>SessionDesktops</name>
    <message>
        <source>%1 does not draw the background now: %2 is not on the session bus</source>
        <translation>%1 ne dessine pas l’arrière-plan en ce moment&#xa0;: %2 n’est pas sur le bus de session</translation>
    </message>
    <message>
        <source> or </source>
        <translation> ou </translation>
    </message>
</context>
<context>
    <name>SettingsGroup</name>
    <message>
        <source>The settings &quot;%1&quot; are not installed</source>
        <translation>Les réglages «&#xa0;%1&#xa0;» ne sont pas installés</translation>
    </message>
    <message>
        <source>The settings &quot;%1&quot; cannot be kept: GLib has no dconf here</source>
        <translation>Les réglages «&#xa0;%1&#xa0;» ne peuvent pas être conservés&#xa0;: GLib n’a pas dconf ici</translation>
    </message>
    <message>
        <source>The setting &quot;%1 %2&quot; cannot be changed</source>
        <translation>Le réglage «&#xa0;%1 %2&#xa0;» ne peut pas être modifié</translation>
    </message>
    <message>
        <source>The setting &quot;%1 %2&quot; was not kept</source>
        <translation>Le réglage «&#xa0;%1 %2&#xa0;» n’a pas été conservé</translation>
    </message>
</context>
<context>
    <name>SettingsTable</name>
    <message>
        <source>unknown setting %1</source>
        <translation>réglage inconnu %1</translation>
    </message>
    <message>
        <source>%1 takes true or false</source>
        <translation>%1 accepte true ou false</translation>
    </message>
    <message>
        <source>%1 takes a whole number of minutes from 1 to %2</source>
        <translation>%1 accepte un nombre entier de minutes de 1 à %2</translation>
    </message>
    <message>
        <source>%1 takes one of: %2</source>
        <translation>%1 accepte une valeur parmi&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 takes the whole path of a picture</source>
        <translation>%1 accepte le chemin complet d’une image</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>API Keys</source>
        <translation>Clés API</translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation>Avancé</translation>
    </message>
</context>
<context>
    <name>SideFile</name>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 n’a pas pu être écrit : %2</translation>
    </message>
</context>
<context>
    <name>Sidebar</name>
    <message>
        <source>Prompt</source>
        <translation>Invite</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>4K resolution</source>
        <translation>Résolution 4K</translation>
    </message>
    <message>
        <source>NSFW</source>
        <translation>NSFW</translation>
    </message>
    <message>
        <source>Generating...</source>
        <translation>Génération…</translation>
    </message>
    <message>
        <source>Generate &amp; Set Wallpaper</source>
        <translation>Générer et appliquer</translation>
    </message>
    <message>
        <source>Ctrl+Enter</source>
        <translation>Ctrl+Entrée</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>SuperResolutionModel</name>
    <message>
        <source>element type %1</source>
        <translation>type d’élément %1</translation>
    </message>
    <message>
        <source>any</source>
        <comment>a length</comment>
        <translation>quelconque</translation>
    </message>
    <message>
        <source>The model does not fit: %1; needed is %2</source>
        <translation>Le modèle ne convient pas&#xa0;: %1&#x202f;; il faut %2</translation>
    </message>
    <message>
        <source>float32 or float16 %1, or any height and width</source>
        <translation>float32 ou float16 %1, ou une hauteur et une largeur quelconques</translation>
    </message>
    <message>
        <source>its input is %1 %2</source>
        <translation>son entrée est %1 %2</translation>
    </message>
    <message>
        <source>its output is %1 %2</source>
        <translation>sa sortie est %1 %2</translation>
    </message>
    <message>
        <source>its input has no declared shape</source>
        <translation>son entrée ne déclare pas de forme</translation>
    </message>
    <message>
        <source>it has %1 inputs and %2 outputs</source>
        <translation>il a %1 entrées et %2 sorties</translation>
    </message>
    <message>
        <source>one picture in and one out</source>
        <translation>une image en entrée et une en sortie</translation>
    </message>
    <message>
        <source>No result from RealESRGAN model</source>
        <translation>Aucun résultat du modèle RealESRGAN</translation>
    </message>
    <message>
        <source>Failed to convert upscaled tile to CGImage</source>
        <translation>Échec de la conversion de la tuile agrandie en CGImage</translation>
    </message>
    <message>
        <source>it made %1 of a tile</source>
        <translation>il a fait %1 d’une tuile</translation>
    </message>
    <message>
        <source>%1, %2, in &quot;%3&quot;, out &quot;%4&quot;</source>
        <translation>%1, %2, entrée «&#xa0;%3&#xa0;», sortie «&#xa0;%4&#xa0;»</translation>
    </message>
    <message>
        <source>tiles of 512 × 512</source>
        <translation>tuiles de 512 × 512</translation>
    </message>
    <message>
        <source>tiles of any size</source>
        <translation>tuiles de toute taille</translation>
    </message>
    <message>
        <source>it keeps weights in other files</source>
        <translation>il garde des poids dans d’autres fichiers</translation>
    </message>
    <message>
        <source>one file with everything in it</source>
        <translation>un seul fichier qui contient tout</translation>
    </message>
    <message>
        <source>its file is empty</source>
        <translation>son fichier est vide</translation>
    </message>
    <message>
        <source>an ONNX file</source>
        <translation>un fichier ONNX</translation>
    </message>
    <message>
        <source>its reach is &quot;%1&quot;</source>
        <translation>sa portée est « %1 »</translation>
    </message>
    <message>
        <source>a whole number of 1 to %1</source>
        <translation>un nombre entier de 1 à %1</translation>
    </message>
</context>
<context>
    <name>SwaySocket</name>
    <message>
        <source>sway cannot be reached: %1</source>
        <translation>sway est injoignable&#xa0;: %1</translation>
    </message>
    <message>
        <source>sway&apos;s answer cannot be understood</source>
        <translation>la réponse de sway est incompréhensible</translation>
    </message>
    <message>
        <source>sway does not answer</source>
        <translation>sway ne répond pas</translation>
    </message>
    <message>
        <source>sway ended the connection: %1</source>
        <translation>sway a mis fin à la connexion&#xa0;: %1</translation>
    </message>
    <message>
        <source>sway ended the connection</source>
        <translation>sway a mis fin à la connexion</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Deleted</source>
        <translation>Supprimé</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler la suppression</translation>
    </message>
</context>
<context>
    <name>UpscaleErrors</name>
    <message>
        <source>The upscale was stopped</source>
        <translation>L’agrandissement a été arrêté</translation>
    </message>
</context>
<context>
    <name>UpscaledCanvas</name>
    <message>
        <source>Failed to create output context</source>
        <translation>Échec de la création du contexte de sortie</translation>
    </message>
    <message>
        <source>The upscaled image does not resemble the original at tile (%1, %2)</source>
        <translation>L’image agrandie ne ressemble pas à l’original à la tuile (%1, %2)</translation>
    </message>
</context>
<context>
    <name>UpscalingNotice</name>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>Agrandissement en 4K…</translation>
    </message>
</context>
<context>
    <name>UserDefaults</name>
    <message>
        <source>could not read %1: %2</source>
        <translation>impossible de lire %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>could not write %1: %2</source>
        <translation>impossible d’écrire %1&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>WaylandConnection</name>
    <message>
        <source>The compositor cannot be reached</source>
        <translation>Le compositeur est injoignable</translation>
    </message>
    <message>
        <source>The compositor ended the connection: %1</source>
        <translation>Le compositeur a mis fin à la connexion&#xa0;: %1</translation>
    </message>
    <message>
        <source>The compositor does not answer</source>
        <translation>Le compositeur ne répond pas</translation>
    </message>
</context>
<context>
    <name>WholeFile</name>
    <message>
        <source>Not a regular file</source>
        <translation>Ce n’est pas un fichier ordinaire</translation>
    </message>
</context>
<context>
    <name>quorvane::APIKeyRow</name>
    <message>
        <source>%1 API Key</source>
        <translation>Clé API %1</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Mettre à jour</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
</context>
<context>
    <name>quorvane::AdvancedModel</name>
    <message>
        <source>%1 Model</source>
        <translation>Modèle %1</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Automatique</translation>
    </message>
    <message>
        <source>%1 produces 4K natively — no upscaling needed.</source>
        <translation>%1 produit la 4K nativement — aucun agrandissement nécessaire.</translation>
    </message>
    <message>
        <source>Gemini (API)</source>
        <translation>Gemini (API)</translation>
    </message>
    <message>
        <source>Local (on-device)</source>
        <translation>Local (sur cet appareil)</translation>
    </message>
</context>
<context>
    <name>quorvane::ImageListModel</name>
    <message>
        <source>favorite</source>
        <translation>favorite</translation>
    </message>
    <message>
        <source>4K</source>
        <translation>4K</translation>
    </message>
    <message>
        <source>current wallpaper</source>
        <translation>fond d’écran actuel</translation>
    </message>
    <message>
        <source>being upscaled to 4K</source>
        <translation>en cours d’agrandissement en 4K</translation>
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
        <translation>Cette image n’est plus là.</translation>
    </message>
    <message>
        <source>This picture cannot be read.</source>
        <translation>Impossible de lire cette image.</translation>
    </message>
</context>
<context>
    <name>quorvane::Scenes</name>
    <message>
        <source>it is no window</source>
        <translation>ce n’est pas une fenêtre</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>impossible d’ouvrir %1&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>quorvane::SidebarModel</name>
    <message>
        <source>+ Local 4K</source>
        <translation>+ 4K locale</translation>
    </message>
    <message>
        <source>+ Gemini 4K</source>
        <translation>+ 4K Gemini</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>Prochain&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperApp</name>
    <message>
        <source>The window cannot be opened</source>
        <translation>Impossible d’ouvrir la fenêtre</translation>
    </message>
    <message>
        <source>The settings are not kept</source>
        <translation>Les réglages ne sont pas enregistrés</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperManager</name>
    <message>
        <source>Wallpaper set!</source>
        <translation>Fond d’écran appliqué&#x202f;!</translation>
    </message>
    <message>
        <source>Missing %1 API key — open Settings (⌘,)</source>
        <translation>Clé API manquante&#xa0;: %1 — ouvrez les paramètres (⌘,)</translation>
    </message>
    <message>
        <source>Failed to save image</source>
        <translation>Échec de l’enregistrement de l’image</translation>
    </message>
    <message>
        <source>Upscaling to 4K (local)...</source>
        <translation>Agrandissement en 4K (local)…</translation>
    </message>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>Agrandissement en 4K…</translation>
    </message>
    <message>
        <source>Local upscale failed, using original — %1</source>
        <translation>Échec de l’agrandissement local, l’original est utilisé — %1</translation>
    </message>
    <message>
        <source>Upscale failed, using original — %1</source>
        <translation>Échec de l’agrandissement, l’original est utilisé — %1</translation>
    </message>
    <message>
        <source>No Gemini API key — switch to Local upscale in Settings &gt; Advanced</source>
        <translation>Pas de clé API Gemini — passez à l’agrandissement local dans Paramètres &gt; Avancé</translation>
    </message>
    <message>
        <source>Upscale failed: %1</source>
        <translation>Échec de l’agrandissement&#xa0;: %1</translation>
    </message>
    <message>
        <source>Failed to save upscaled image</source>
        <translation>Échec de l’enregistrement de l’image agrandie</translation>
    </message>
    <message>
        <source>Quorvane is quitting</source>
        <translation>Quorvane se ferme</translation>
    </message>
    <message>
        <source>the picture was deleted</source>
        <translation>l’image a été supprimée</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperSetter</name>
    <message>
        <source>No screen found</source>
        <translation>Aucun écran trouvé</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Échec&#xa0;: %1</translation>
    </message>
    <message>
        <source>Failed to sync wallpaper: %1</source>
        <translation>Échec de la synchronisation du fond d’écran&#xa0;: %1</translation>
    </message>
</context>
</TS>
