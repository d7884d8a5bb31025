<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>APIKeysTab</name>
    <message>
        <source>Remove this key</source>
        <translation>Quitar esta clave</translation>
    </message>
    <message>
        <source>Saved in Keychain</source>
        <translation>Guardada en el llavero</translation>
    </message>
    <message>
        <source>What is in the field is not saved yet.</source>
        <translation>Lo que hay en el campo aún no está guardado.</translation>
    </message>
    <message>
        <source>This key is stored.</source>
        <translation>Esta clave está guardada.</translation>
    </message>
</context>
<context>
    <name>AdvancedTab</name>
    <message>
        <source>Provider</source>
        <translation>Proveedor</translation>
    </message>
    <message>
        <source>Auto selects Gemini by default, Grok when NSFW is on.
Pick a specific provider to use it for every generation.</source>
        <translation>«Automático» elige Gemini de forma predeterminada y Grok cuando NSFW está activado.
Elija un proveedor concreto para usarlo en cada generación.</translation>
    </message>
    <message>
        <source>4K Upscaling</source>
        <translation>Ampliación a 4K</translation>
    </message>
    <message>
        <source>Upscale Method</source>
        <translation>Método</translation>
    </message>
    <message>
        <source>Gemini uses the API (requires key). Local runs RealESRGAN on-device (offline, no API key needed).</source>
        <translation>Gemini usa la API (requiere clave). Local ejecuta RealESRGAN en este equipo (sin conexión y sin clave de API).</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>Modelos</translation>
    </message>
</context>
<context>
    <name>Album</name>
    <message>
        <source>Favorites</source>
        <translation>Favoritos</translation>
    </message>
    <message>
        <source>Uncategorized</source>
        <translation>Sin indicación</translation>
    </message>
</context>
<context>
    <name>AlbumTile</name>
    <message numerus="yes">
        <source>%1, %n pictures</source>
        <translation>
            <numerusform>%1, %n imagen</numerusform>
            <numerusform>%1, %n imágenes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>AsideFile</name>
    <message>
        <source>%1 cannot be understood, nor be put aside: %2</source>
        <translation>%1 no se entiende ni se puede apartar: %2</translation>
    </message>
    <message>
        <source>%1 could not be understood. It was put aside as %2, and a new one was begun.</source>
        <translation>%1 no se entendía. Se apartó como %2 y se empezó uno nuevo.</translation>
    </message>
</context>
<context>
    <name>Autostart</name>
    <message>
        <source>could not write the autostart entry</source>
        <translation>no se pudo escribir la entrada de inicio automático</translation>
    </message>
    <message>
        <source>Quorvane sets new pictures and keeps yours on every screen.</source>
        <translation>Quorvane pone imágenes nuevas y mantiene la suya en todas las pantallas.</translation>
    </message>
    <message>
        <source>the desktop offers no autostart to a sandboxed program: %1</source>
        <translation>el escritorio no ofrece inicio automático a un programa en un entorno aislado: %1</translation>
    </message>
    <message>
        <source>the desktop did not answer whether Quorvane may start with the session</source>
        <translation>el escritorio no respondió si Quorvane puede iniciarse con la sesión</translation>
    </message>
    <message>
        <source>the desktop did not allow the change</source>
        <translation>el escritorio no permitió el cambio</translation>
    </message>
</context>
<context>
    <name>BoundedAllocator</name>
    <message>
        <source>The model needs more than %1 MB of memory</source>
        <translation>El modelo necesita más de %1 MB de memoria</translation>
    </message>
    <message>
        <source>There is not enough memory for the model</source>
        <translation>No hay memoria suficiente para el modelo</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>--prompt needs a text</source>
        <translation>--prompt necesita un texto</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>opción desconocida %1</translation>
    </message>
    <message>
        <source>unknown command %1</source>
        <translation>orden desconocida %1</translation>
    </message>
    <message>
        <source>usage: %1</source>
        <translation>uso: %1</translation>
    </message>
    <message>
        <source>--action needs one of: generate, toggle-auto, settings, quit</source>
        <translation>--action necesita uno de: generate, toggle-auto, settings, quit</translation>
    </message>
</context>
<context>
    <name>CommandTable</name>
    <message>
        <source>make a picture and set it as the wallpaper</source>
        <translation>generar una imagen y ponerla de fondo de pantalla</translation>
    </message>
    <message>
        <source>make a 4K copy of a picture and set it</source>
        <translation>hacer una copia 4K de una imagen y ponerla</translation>
    </message>
    <message>
        <source>set a picture as the wallpaper of every screen</source>
        <translation>poner una imagen de fondo en todas las pantallas</translation>
    </message>
    <message>
        <source>provider, settings, schedule, wallpaper, screens</source>
        <translation>proveedor, ajustes, programación, fondo, pantallas</translation>
    </message>
    <message>
        <source>list the pictures, newest first</source>
        <translation>listar las imágenes, las más nuevas primero</translation>
    </message>
    <message>
        <source>list the pictures by prompt</source>
        <translation>listar las imágenes por indicación</translation>
    </message>
    <message>
        <source>mark a picture as a favourite, or no longer</source>
        <translation>marcar una imagen como favorita, o dejar de hacerlo</translation>
    </message>
    <message>
        <source>delete a picture and its 4K partner for good</source>
        <translation>eliminar para siempre una imagen y su versión 4K</translation>
    </message>
    <message>
        <source>print all settings</source>
        <translation>mostrar todos los ajustes</translation>
    </message>
    <message>
        <source>print a setting</source>
        <translation>mostrar un ajuste</translation>
    </message>
    <message>
        <source>change a setting</source>
        <translation>cambiar un ajuste</translation>
    </message>
    <message>
        <source>go back to the default of a setting</source>
        <translation>volver al valor predeterminado de un ajuste</translation>
    </message>
    <message>
        <source>list the services whose API keys are stored</source>
        <translation>listar los servicios cuyas claves de API están guardadas</translation>
    </message>
    <message>
        <source>store an API key, read from standard input</source>
        <translation>guardar una clave de API leída de la entrada estándar</translation>
    </message>
    <message>
        <source>delete an API key</source>
        <translation>eliminar una clave de API</translation>
    </message>
    <message>
        <source>automatic mode</source>
        <translation>modo automático</translation>
    </message>
    <message>
        <source>start with the session</source>
        <translation>iniciar con la sesión</translation>
    </message>
    <message>
        <source>show the super-resolution network</source>
        <translation>mostrar la red de ampliación</translation>
    </message>
    <message>
        <source>check a network and make it yours</source>
        <translation>comprobar una red y hacerla suya</translation>
    </message>
    <message>
        <source>end the running application</source>
        <translation>cerrar la aplicación en ejecución</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>ARCHIVO</translation>
    </message>
    <message>
        <source>KEY</source>
        <translation>NOMBRE</translation>
    </message>
    <message>
        <source>VALUE</source>
        <translation>VALOR</translation>
    </message>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>[--prompt TEXT]</source>
        <translation>[--prompt TEXTO]</translation>
    </message>
    <message>
        <source>Usage: quorvane [--hidden]
       quorvane --action NAME
       quorvane COMMAND [--json]

Without a command the application starts and opens its window (--hidden: tray only).
--action starts it where it does not run, and does what the desktop entry&apos;s action
does: generate, toggle-auto, settings or quit.
</source>
        <translation>Uso: quorvane [--hidden]
     quorvane --action NOMBRE
     quorvane ORDEN [--json]

Sin orden, la aplicación se inicia y abre su ventana (--hidden: solo el icono de la bandeja).
--action la inicia donde no se ejecuta y hace lo que hace la acción de la entrada de
escritorio: generate, toggle-auto, settings o quit.
</translation>
    </message>
    <message>
        <source>FILE is a path, or the name of a picture in the library.
ID is one of %1.
Exit status: 0 done, 1 ended with an error, 2 the command line is wrong.
</source>
        <translation>ARCHIVO es una ruta, o el nombre de una imagen de la biblioteca. ID es uno de %1.
Estado de salida: 0 hecho, 1 terminó con un error, 2 la línea de órdenes es errónea.
</translation>
    </message>
    <message>
        <source>end what makes a picture</source>
        <translation>termina lo que crea una imagen</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>could not delete %1</source>
        <translation>no se pudo eliminar %1</translation>
    </message>
    <message>
        <source>no such file: %1</source>
        <translation>no existe el archivo: %1</translation>
    </message>
    <message>
        <source>not in the library: %1</source>
        <translation>no está en la biblioteca: %1</translation>
    </message>
    <message>
        <source>no key on standard input</source>
        <translation>no hay ninguna clave en la entrada estándar</translation>
    </message>
    <message>
        <source>API key for %1: </source>
        <translation>Clave de API para %1: </translation>
    </message>
    <message>
        <source>standard input holds no key</source>
        <translation>la entrada estándar no contiene ninguna clave</translation>
    </message>
    <message>
        <source>the application is not running</source>
        <translation>la aplicación no se está ejecutando</translation>
    </message>
    <message>
        <source>the application did not answer: %1</source>
        <translation>la aplicación no respondió: %1</translation>
    </message>
    <message>
        <source>the application was asked to end and still runs</source>
        <translation>se pidió a la aplicación que terminara y sigue en ejecución</translation>
    </message>
    <message>
        <source>not a regular file: %1</source>
        <translation>no es un archivo normal: %1</translation>
    </message>
    <message>
        <source>not a picture: %1</source>
        <translation>no es una imagen: %1</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Cancelado.</translation>
    </message>
    <message>
        <source>Nothing is being made.</source>
        <translation>No se está creando nada.</translation>
    </message>
</context>
<context>
    <name>DescribedError</name>
    <message>
        <source>The reason is not known.</source>
        <translation>Se desconoce el motivo.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>No hay memoria suficiente.</translation>
    </message>
</context>
<context>
    <name>DesktopChoice</name>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, which is none of %2</source>
        <translation>QUORVANE_DESKTOP es «%1», que no es ninguno de %2</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but QUORVANE_WALLPAPER_COMMAND is not set</source>
        <translation>QUORVANE_DESKTOP es «%1», pero QUORVANE_WALLPAPER_COMMAND no está definida</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but SWAYSOCK is not set</source>
        <translation>QUORVANE_DESKTOP es «%1», pero SWAYSOCK no está definida</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but DISPLAY is not set</source>
        <translation>QUORVANE_DESKTOP es «%1», pero DISPLAY no está definida</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;</source>
        <translation>QUORVANE_DESKTOP es «%1»</translation>
    </message>
    <message>
        <source>QUORVANE_WALLPAPER_COMMAND is set</source>
        <translation>QUORVANE_WALLPAPER_COMMAND está definida</translation>
    </message>
    <message>
        <source>sway answers on SWAYSOCK</source>
        <translation>sway responde en SWAYSOCK</translation>
    </message>
    <message>
        <source>this Wayland desktop is not supported yet; QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture</source>
        <translation>este escritorio Wayland aún no se admite; QUORVANE_WALLPAPER_COMMAND puede indicar un programa que establezca la imagen</translation>
    </message>
    <message>
        <source>DISPLAY is set and no desktop paints over the X11 root window</source>
        <translation>DISPLAY está definida y ningún escritorio pinta sobre la ventana raíz de X11</translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, which is not supported yet; QUORVANE_WALLPAPER_COMMAND can name a program that sets the picture</source>
        <translation>XDG_CURRENT_DESKTOP indica «%1», que aún no se admite; QUORVANE_WALLPAPER_COMMAND puede indicar un programa que establezca la imagen</translation>
    </message>
    <message>
        <source>SWAYSOCK is set, but nobody answers on it</source>
        <translation>SWAYSOCK está definida, pero nadie responde en ella</translation>
    </message>
    <message>
        <source>neither SWAYSOCK nor DISPLAY is set</source>
        <translation>no están definidas ni SWAYSOCK ni DISPLAY</translation>
    </message>
    <message>
        <source>HYPRLAND_INSTANCE_SIGNATURE is not set</source>
        <translation>HYPRLAND_INSTANCE_SIGNATURE no está definida</translation>
    </message>
    <message>
        <source>WAYLAND_DISPLAY is not set</source>
        <translation>WAYLAND_DISPLAY no está definida</translation>
    </message>
    <message>
        <source>the compositor does not offer zwlr_layer_shell_v1</source>
        <translation>el compositor no ofrece zwlr_layer_shell_v1</translation>
    </message>
    <message>
        <source>no portal of this session sets wallpapers</source>
        <translation>ningún portal de esta sesión establece fondos de pantalla</translation>
    </message>
    <message>
        <source>its settings &quot;%1&quot; are not installed</source>
        <translation>sus ajustes «%1» no están instalados</translation>
    </message>
    <message>
        <source>DISPLAY is not set</source>
        <translation>DISPLAY no está definida</translation>
    </message>
    <message>
        <source>%1 is not on the session bus</source>
        <translation>%1 no está en el bus de sesión</translation>
    </message>
    <message>
        <source> or </source>
        <translation> o </translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, and it draws the background</source>
        <translation>XDG_CURRENT_DESKTOP indica «%1», que dibuja el fondo</translation>
    </message>
    <message>
        <source>XDG_CURRENT_DESKTOP names &quot;%1&quot;, but %2</source>
        <translation>XDG_CURRENT_DESKTOP indica «%1», pero %2</translation>
    </message>
    <message>
        <source>this is a sandbox, and its portal sets wallpapers</source>
        <translation>esto es un entorno aislado y su portal establece fondos de pantalla</translation>
    </message>
    <message>
        <source>Hyprland answers on its socket</source>
        <translation>Hyprland responde en su socket</translation>
    </message>
    <message>
        <source>the compositor offers zwlr_layer_shell_v1; the picture is shown while the application runs</source>
        <translation>el compositor ofrece zwlr_layer_shell_v1; la imagen se muestra mientras la aplicación se ejecuta</translation>
    </message>
    <message>
        <source>QUORVANE_DESKTOP is &quot;%1&quot;, but %2</source>
        <translation>QUORVANE_DESKTOP es «%1», pero %2</translation>
    </message>
    <message>
        <source>nothing else is known here, and the session&apos;s portal sets wallpapers</source>
        <translation>no se conoce nada más aquí y el portal de la sesión establece fondos de pantalla</translation>
    </message>
</context>
<context>
    <name>DesktopPictureCommand</name>
    <message>
        <source>The wallpaper command &quot;%1&quot; cannot be started: %2</source>
        <translation>No se puede iniciar la orden de fondo de pantalla «%1»: %2</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; did not end within %2 seconds</source>
        <translation>La orden de fondo de pantalla «%1» no terminó en %2 segundos</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; ended with status %2</source>
        <translation>La orden de fondo de pantalla «%1» terminó con el estado %2</translation>
    </message>
    <message>
        <source>The wallpaper command &quot;%1&quot; was ended by a signal</source>
        <translation>La orden de fondo de pantalla «%1» fue terminada por una señal</translation>
    </message>
</context>
<context>
    <name>DesktopPictureGnome</name>
    <message>
        <source>The settings of %1 do not answer</source>
        <translation>Los ajustes de %1 no responden</translation>
    </message>
</context>
<context>
    <name>DesktopPictureHyprland</name>
    <message>
        <source>hyprpaper does not answer</source>
        <translation>hyprpaper no responde</translation>
    </message>
    <message>
        <source>hyprpaper cannot take &quot;%1&quot;</source>
        <translation>hyprpaper no puede aceptar «%1»</translation>
    </message>
</context>
<context>
    <name>DesktopPictureLayerShell</name>
    <message>
        <source>This desktop shows a background only while the program that drew it runs; start Quorvane, then set the picture</source>
        <translation>Este escritorio muestra un fondo solo mientras se ejecuta el programa que lo dibujó; inicie Quorvane y después establezca la imagen</translation>
    </message>
</context>
<context>
    <name>DesktopPictureLxqt</name>
    <message>
        <source>LXQt&apos;s file manager is told not to draw the desktop</source>
        <translation>El gestor de archivos de LXQt está configurado para no dibujar el escritorio</translation>
    </message>
    <message>
        <source>The X server cannot be reached</source>
        <translation>No se puede acceder al servidor X</translation>
    </message>
    <message>
        <source>LXQt is set to one wallpaper for each monitor, which would distort the picture</source>
        <translation>LXQt está configurado con un fondo de pantalla por monitor, lo que deformaría la imagen</translation>
    </message>
    <message>
        <source>LXQt does not answer</source>
        <translation>LXQt no responde</translation>
    </message>
</context>
<context>
    <name>DesktopPicturePlasma</name>
    <message>
        <source>Plasma&apos;s desktop does not run (org.kde.plasmashell is not on the session bus)</source>
        <translation>El escritorio de Plasma no se está ejecutando (org.kde.plasmashell no está en el bus de sesión)</translation>
    </message>
    <message>
        <source>Plasma: %1</source>
        <translation>Plasma: %1</translation>
    </message>
    <message>
        <source>Plasma answered: %1</source>
        <translation>Plasma respondió: %1</translation>
    </message>
    <message>
        <source>Plasma does not answer</source>
        <translation>Plasma no responde</translation>
    </message>
</context>
<context>
    <name>DesktopPicturePortal</name>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>No se puede leer la imagen: %1</translation>
    </message>
    <message>
        <source>The session bus does not answer</source>
        <translation>El bus de sesión no responde</translation>
    </message>
    <message>
        <source>Waiting for your answer to the desktop&apos;s question about the background</source>
        <translation>Esperando su respuesta a la pregunta del escritorio sobre el fondo</translation>
    </message>
    <message>
        <source>You did not allow it to set the background</source>
        <translation>Usted no permitió establecer el fondo</translation>
    </message>
    <message>
        <source>The desktop&apos;s portal refused the picture</source>
        <translation>El portal del escritorio rechazó la imagen</translation>
    </message>
</context>
<context>
    <name>DesktopPictureSway</name>
    <message>
        <source>sway has no screen &quot;%1&quot;</source>
        <translation>sway no tiene ninguna pantalla «%1»</translation>
    </message>
    <message>
        <source>sway&apos;s answer cannot be understood</source>
        <translation>no se entiende la respuesta de sway</translation>
    </message>
    <message>
        <source>sway refused the picture</source>
        <translation>sway rechazó la imagen</translation>
    </message>
</context>
<context>
    <name>DesktopPictureX11</name>
    <message>
        <source>The X server cannot be reached</source>
        <translation>No se puede acceder al servidor X</translation>
    </message>
    <message>
        <source>The X server&apos;s colours are of a kind that is not supported</source>
        <translation>Los colores del servidor X son de un tipo no admitido</translation>
    </message>
    <message>
        <source>The X server has no screen &quot;%1&quot;</source>
        <translation>El servidor X no tiene ninguna pantalla «%1»</translation>
    </message>
    <message>
        <source>There is not enough memory for the picture</source>
        <translation>No hay memoria suficiente para la imagen</translation>
    </message>
    <message>
        <source>The X server does not answer</source>
        <translation>El servidor X no responde</translation>
    </message>
    <message>
        <source>The X server did not take the picture: %1</source>
        <translation>El servidor X no aceptó la imagen: %1</translation>
    </message>
</context>
<context>
    <name>DesktopPictureXfce</name>
    <message>
        <source>XFCE did not keep the setting &quot;%1&quot;</source>
        <translation>XFCE no conservó el ajuste «%1»</translation>
    </message>
    <message>
        <source>XFCE does not answer</source>
        <translation>XFCE no responde</translation>
    </message>
</context>
<context>
    <name>EmptyState</name>
    <message>
        <source>No wallpapers yet</source>
        <translation>Aún no hay fondos de pantalla</translation>
    </message>
    <message>
        <source>Generate your first wallpaper
using the sidebar controls.</source>
        <translation>Genere su primer fondo de pantalla
con los controles de la barra lateral.</translation>
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
        <translation>Álbumes</translation>
    </message>
    <message>
        <source>Use Prompt</source>
        <translation>Usar indicación</translation>
    </message>
</context>
<context>
    <name>GeminiUpscale</name>
    <message>
        <source>Failed to parse upscale response</source>
        <translation>No se pudo interpretar la respuesta de la ampliación</translation>
    </message>
    <message>
        <source>No image in upscale response</source>
        <translation>No hay ninguna imagen en la respuesta de la ampliación</translation>
    </message>
    <message>
        <source>Upscale failed: %1</source>
        <translation>Falló la ampliación: %1</translation>
    </message>
</context>
<context>
    <name>HandedPicture</name>
    <message>
        <source>The picture cannot be copied for the desktop</source>
        <translation>No se puede copiar la imagen para el escritorio</translation>
    </message>
    <message>
        <source>No folder could hold a copy of the picture under a name that the desktop takes</source>
        <translation>Ninguna carpeta pudo guardar una copia de la imagen con un nombre que el escritorio acepte</translation>
    </message>
</context>
<context>
    <name>HistoryTile</name>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>Ampliando a 4K…</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>Quitar de favoritos</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Añadir a favoritos</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Aplicar</translation>
    </message>
    <message>
        <source>%3, %1 of %2</source>
        <extracomment>What is read out of a picture, then its place among the others</extracomment>
        <translation>%3, %1 de %2</translation>
    </message>
    <message>
        <source>This picture cannot be read.</source>
        <translation>No se puede leer esta imagen.</translation>
    </message>
    <message>
        <source>Delete, together with its 4K partner</source>
        <translation>Eliminar, junto con su versión 4K</translation>
    </message>
</context>
<context>
    <name>HttpClient</name>
    <message>
        <source>The address is neither https nor on this machine.</source>
        <translation>La dirección no es https ni está en este equipo.</translation>
    </message>
    <message>
        <source>The service redirected to an address without encryption.</source>
        <translation>El servicio redirigió a una dirección sin cifrado.</translation>
    </message>
    <message>
        <source>The service redirected too many times.</source>
        <translation>El servicio redirigió demasiadas veces.</translation>
    </message>
    <message>
        <source>The request was cancelled.</source>
        <translation>La petición se canceló.</translation>
    </message>
    <message>
        <source>The answer is larger than %1 MiB.</source>
        <translation>La respuesta supera los %1 MiB.</translation>
    </message>
    <message>
        <source>No secure connection to %1: %2</source>
        <translation>No hay conexión segura con %1: %2</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>Se agotó el tiempo de espera de la petición.</translation>
    </message>
    <message>
        <source>The service closed the connection before it answered.</source>
        <translation>El servicio cerró la conexión antes de responder.</translation>
    </message>
    <message>
        <source>The service closed the connection in the middle of its answer.</source>
        <translation>El servicio cerró la conexión en medio de su respuesta.</translation>
    </message>
    <message>
        <source>The service has moved to %1</source>
        <translation>El servicio se ha trasladado a %1</translation>
    </message>
    <message>
        <source>The service did not accept the API key.</source>
        <translation>El servicio no aceptó la clave de API.</translation>
    </message>
    <message>
        <source>The proxy asks for a name and a password.</source>
        <translation>El proxy pide un nombre y una contraseña.</translation>
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
        <translation>Para la generación predeterminada y la ampliación a 4K.</translation>
    </message>
    <message>
        <source>Used when NSFW is enabled.</source>
        <translation>Se usa cuando NSFW está activado.</translation>
    </message>
    <message>
        <source>Available as an override in Advanced settings.</source>
        <translation>Se puede elegir en los ajustes avanzados.</translation>
    </message>
</context>
<context>
    <name>ImageStore</name>
    <message>
        <source>%1 could not be deleted: %2</source>
        <translation>No se pudo eliminar %1: %2</translation>
    </message>
    <message>
        <source>%1 could not be brought back: %2</source>
        <translation>No se pudo recuperar %1: %2</translation>
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
        <translation>1 hora</translation>
    </message>
    <message numerus="yes">
        <source>%n hours</source>
        <comment>an interval of two or more</comment>
        <translation>
            <numerusform>%n hora</numerusform>
            <numerusform>%n horas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LayerShellBackgrounds</name>
    <message>
        <source>The compositor does not offer zwlr_layer_shell_v1</source>
        <translation>El compositor no ofrece zwlr_layer_shell_v1</translation>
    </message>
    <message>
        <source>The compositor has no screen &quot;%1&quot;</source>
        <translation>El compositor no tiene ninguna pantalla «%1»</translation>
    </message>
    <message>
        <source>The compositor closed the background</source>
        <translation>El compositor cerró el fondo</translation>
    </message>
    <message>
        <source>The compositor cannot be given the picture: %1</source>
        <translation>No se puede entregar la imagen al compositor: %1</translation>
    </message>
</context>
<context>
    <name>LocalUpscaler</name>
    <message>
        <source>Failed to crop tile at (%1, %2)</source>
        <translation>No se pudo recortar la tesela (%1, %2)</translation>
    </message>
    <message>
        <source>Failed to decode image for upscaling</source>
        <translation>No se pudo descodificar la imagen para ampliarla</translation>
    </message>
    <message>
        <source>The RealESRGAN model gave values that are not numbers for the tile at (%1, %2)</source>
        <translation>El modelo RealESRGAN dio valores que no son números en la tesela (%1, %2)</translation>
    </message>
    <message>
        <source>Failed to create padding context</source>
        <translation>No se pudo crear el contexto de relleno</translation>
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
        <translation>Generando…</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>Siguiente: %1</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>Inactivo</translation>
    </message>
    <message>
        <source>Generate Now</source>
        <translation>Generar ahora</translation>
    </message>
    <message>
        <source>Auto-Generate</source>
        <translation>Generación automática</translation>
    </message>
    <message>
        <source>Open Window</source>
        <translation>Abrir ventana</translation>
    </message>
    <message>
        <source>Settings...</source>
        <translation>Ajustes…</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
</context>
<context>
    <name>MenuBarButton</name>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
</context>
<context>
    <name>MessageBus</name>
    <message>
        <source>%1 does not answer</source>
        <translation>%1 no responde</translation>
    </message>
    <message>
        <source>The session bus cannot be reached</source>
        <translation>No se puede acceder al bus de sesión</translation>
    </message>
</context>
<context>
    <name>MissingKeys</name>
    <message>
        <source>Missing %1 API key</source>
        <translation>Falta la clave de API de %1</translation>
    </message>
    <message>
        <source>Open Settings (⌘,)</source>
        <translation>Abrir Ajustes (⌘,)</translation>
    </message>
</context>
<context>
    <name>ModelFiles</name>
    <message>
        <source>RealESRGAN model not found in app bundle</source>
        <translation>No se encontró el modelo RealESRGAN en la aplicación</translation>
    </message>
    <message>
        <source>The model cannot be read: %1</source>
        <translation>No se puede leer el modelo: %1</translation>
    </message>
</context>
<context>
    <name>ModelInstall</name>
    <message>
        <source>The model cannot be copied: %1</source>
        <translation>No se puede copiar el modelo: %1</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>No new wallpaper</source>
        <translation>No hay fondo de pantalla nuevo</translation>
    </message>
    <message>
        <source>New wallpaper</source>
        <translation>Fondo de pantalla nuevo</translation>
    </message>
</context>
<context>
    <name>Operations</name>
    <message>
        <source>Cancelled. The service may charge for what it was asked for.</source>
        <translation>Cancelado. El servicio puede cobrar lo que se le pidió.</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Cancelado.</translation>
    </message>
</context>
<context>
    <name>PictureFile</name>
    <message>
        <source>The picture cannot be read: %1</source>
        <translation>No se puede leer la imagen: %1</translation>
    </message>
</context>
<context>
    <name>PictureMenu</name>
    <message>
        <source>Set as Wallpaper</source>
        <translation>Establecer como fondo</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>Quitar de favoritos</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Añadir a favoritos</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Show in Files</source>
        <translation>Mostrar en Archivos</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
</context>
<context>
    <name>PlasmaScript</name>
    <message>
        <source>Plasma did not take the picture for screen %1</source>
        <translation>Plasma no aceptó la imagen para la pantalla %1</translation>
    </message>
    <message>
        <source>Plasma has a desktop on %1 of its %2 screens</source>
        <translation>Plasma tiene un escritorio en %1 de sus %2 pantallas</translation>
    </message>
</context>
<context>
    <name>PngEncoder</name>
    <message>
        <source>Failed to encode upscaled image</source>
        <translation>No se pudo codificar la imagen ampliada</translation>
    </message>
</context>
<context>
    <name>PortalRequest</name>
    <message>
        <source>The desktop&apos;s portal ended before it answered</source>
        <translation>El portal del escritorio terminó antes de responder</translation>
    </message>
    <message>
        <source>Nobody waits for the desktop&apos;s question any more</source>
        <translation>Ya nadie espera la pregunta del escritorio</translation>
    </message>
    <message>
        <source>The desktop&apos;s question was not answered</source>
        <translation>La pregunta del escritorio quedó sin respuesta</translation>
    </message>
    <message>
        <source>There is no answer</source>
        <translation>No hay respuesta</translation>
    </message>
</context>
<context>
    <name>Preview</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Anterior</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
    <message>
        <source>Set as Wallpaper</source>
        <translation>Establecer como fondo</translation>
    </message>
    <message>
        <source>Unfavorite</source>
        <translation>Quitar de favoritos</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Añadir a favoritos</translation>
    </message>
    <message>
        <source>Use Prompt</source>
        <translation>Usar indicación</translation>
    </message>
    <message>
        <source>Upscale to 4K</source>
        <translation>Ampliar a 4K</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Pantalla completa</translation>
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
        <translation>no hay pantalla; quorvane --help indica qué no la necesita</translation>
    </message>
    <message>
        <source>the application runs already and can be told nothing without a session bus</source>
        <translation>la aplicación ya está en marcha y sin bus de sesión no se le puede comunicar nada</translation>
    </message>
    <message>
        <source>there is no home folder: HOME names none, and the account has none</source>
        <translation>no hay carpeta personal: HOME no indica ninguna y la cuenta no tiene ninguna</translation>
    </message>
    <message>
        <source>the application that runs already does not do it: %1</source>
        <translation>la aplicación que ya está en ejecución no lo hace: %1</translation>
    </message>
</context>
<context>
    <name>ProgressText</name>
    <message numerus="yes">
        <source>%n s left</source>
        <comment>seconds</comment>
        <translation>
            <numerusform>queda %n s</numerusform>
            <numerusform>quedan %n s</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>about %n min left</source>
        <comment>minutes</comment>
        <translation>
            <numerusform>queda aproximadamente %n min</numerusform>
            <numerusform>quedan aproximadamente %n min</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>%1 de %n tesela</numerusform>
            <numerusform>%1 de %n teselas</numerusform>
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
        <translation>Indicación</translation>
    </message>
</context>
<context>
    <name>PromptLine</name>
    <message>
        <source>Shows the whole prompt</source>
        <translation>Muestra la indicación completa</translation>
    </message>
</context>
<context>
    <name>PromptPanel</name>
    <message>
        <source>Prompt</source>
        <translation>Indicación</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
</context>
<context>
    <name>ProviderChoice</name>
    <message>
        <source>Gemini (for 4K upscale)</source>
        <translation>Gemini (para la ampliación a 4K)</translation>
    </message>
</context>
<context>
    <name>ProviderError</name>
    <message>
        <source>Invalid response: %1</source>
        <translation>Respuesta no válida: %1</translation>
    </message>
    <message>
        <source>API error: %1</source>
        <translation>Error de la API: %1</translation>
    </message>
    <message>
        <source>Network error: %1</source>
        <translation>Error de red: %1</translation>
    </message>
</context>
<context>
    <name>Reports</name>
    <message>
        <source>on</source>
        <translation>activado</translation>
    </message>
    <message>
        <source>off</source>
        <translation>desactivado</translation>
    </message>
    <message>
        <source>none</source>
        <translation>—</translation>
    </message>
    <message>
        <source>Provider:     %1, model %2</source>
        <translation>Proveedor:        %1, modelo %2</translation>
    </message>
    <message>
        <source>Missing keys: %1</source>
        <translation>Claves que faltan: %1</translation>
    </message>
    <message>
        <source>Prompt:       %1</source>
        <translation>Indicación:       %1</translation>
    </message>
    <message>
        <source>4K:           %1 (upscale method %2)</source>
        <translation>4K:               %1 (ampliación: %2)</translation>
    </message>
    <message>
        <source>NSFW:         %1</source>
        <translation>NSFW:             %1</translation>
    </message>
    <message>
        <source>Automatic:    %1, every %2</source>
        <translation>Automático:       %1, cada %2</translation>
    </message>
    <message>
        <source>Wallpaper:    %1</source>
        <translation>Fondo:            %1</translation>
    </message>
    <message>
        <source>Desktop:      %1 (%2)</source>
        <translation>Escritorio:       %1 (%2)</translation>
    </message>
    <message>
        <source>Screens:      %1</source>
        <translation>Pantallas:        %1</translation>
    </message>
    <message>
        <source>No wallpapers yet</source>
        <translation>Aún no hay fondos de pantalla</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n tiles</source>
        <translation>
            <numerusform>%1 de %n tesela</numerusform>
            <numerusform>%1 de %n teselas</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2:%3 left</source>
        <translation>%1, quedan %2:%3</translation>
    </message>
</context>
<context>
    <name>Schedule</name>
    <message>
        <source>Schedule</source>
        <translation>Programación</translation>
    </message>
    <message>
        <source>Auto-generate</source>
        <translation>Generación automática</translation>
    </message>
    <message>
        <source>Every</source>
        <translation>Cada</translation>
    </message>
</context>
<context>
    <name>ServiceRequest</name>
    <message>
        <source>Failed to decode base64 image</source>
        <translation>No se pudo descodificar la imagen en base64</translation>
    </message>
    <message>
        <source>%1 must be an https address, or http on this machine.</source>
        <translation>%1 debe ser una dirección https, o http en este equipo.</translation>
    </message>
    <message>
        <source>Invalid URL</source>
        <translation>URL no válida</translation>
    </message>
    <message>
        <source>The stored API key has a character that cannot be sent. Save the key again.</source>
        <translation>La clave de API guardada tiene un carácter que no se puede enviar. Guarde la clave de nuevo.</translation>
    </message>
    <message>
        <source>Failed to parse response</source>
        <translation>No se pudo interpretar la respuesta</translation>
    </message>
    <message>
        <source>No image in response</source>
        <translation>No hay ninguna imagen en la respuesta</translation>
    </message>
</context>
<context>
    <name>SessionDesktops</name>
    <message>
        <source>%1 does not draw the background now: %2 is not on the session bus</source>
        <translation>%1 no dibuja el fondo ahora: %2 no está en el bus de sesión</translation>
    </message>
    <message>
        <source> or </source>
        <translation> o </translation>
    </message>
</context>
<context>
    <name>SettingsGroup</name>
    <message>
        <source>The settings &quot;%1&quot; are not installed</source>
        <translation>Los ajustes «%1» no están instalados</translation>
    </message>
    <message>
        <source>The settings &quot;%1&quot; cannot be kept: GLib has no dconf here</source>
        <translation>Los ajustes «%1» no se pueden conservar: GLib no tiene dconf aquí</translation>
    </message>
    <message>
        <source>The setting &quot;%1 %2&quot; cannot be changed</source>
        <translation>El ajuste «%1 %2» no se puede cambiar</translation>
    </message>
    <message>
        <source>The setting &quot;%1 %2&quot; was not kept</source>
        <translation>El ajuste «%1 %2» no se conservó</translation>
    </message>
</context>
<context>
    <name>SettingsTable</name>
    <message>
        <source>unknown setting %1</source>
        <translation>ajuste desconocido %1</translation>
    </message>
    <message>
        <source>%1 takes true or false</source>
        <translation>%1 admite true o false</translation>
    </message>
    <message>
        <source>%1 takes a whole number of minutes from 1 to %2</source>
        <translation>%1 admite un número entero de minutos de 1 a %2</translation>
    </message>
    <message>
        <source>%1 takes one of: %2</source>
        <translation>%1 admite uno de: %2</translation>
    </message>
    <message>
        <source>%1 takes the whole path of a picture</source>
        <translation>%1 acepta la ruta completa de una imagen</translation>
    </message>
</context>
<context>
    <name>SettingsWindow</name>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>API Keys</source>
        <translation>Claves de API</translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation>Avanzado</translation>
    </message>
</context>
<context>
    <name>SideFile</name>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>No se pudo escribir %1: %2</translation>
    </message>
</context>
<context>
    <name>Sidebar</name>
    <message>
        <source>Prompt</source>
        <translation>Indicación</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Opciones</translation>
    </message>
    <message>
        <source>4K resolution</source>
        <translation>Resolución 4K</translation>
    </message>
    <message>
        <source>NSFW</source>
        <translation>NSFW</translation>
    </message>
    <message>
        <source>Generating...</source>
        <translation>Generando…</translation>
    </message>
    <message>
        <source>Generate &amp; Set Wallpaper</source>
        <translation>Generar y aplicar</translation>
    </message>
    <message>
        <source>Ctrl+Enter</source>
        <translation>Ctrl+Intro</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>SuperResolutionModel</name>
    <message>
        <source>element type %1</source>
        <translation>tipo de elemento %1</translation>
    </message>
    <message>
        <source>any</source>
        <comment>a length</comment>
        <translation>cualquiera</translation>
    </message>
    <message>
        <source>The model does not fit: %1; needed is %2</source>
        <translation>El modelo no sirve: %1; se necesita %2</translation>
    </message>
    <message>
        <source>float32 or float16 %1, or any height and width</source>
        <translation>float32 o float16 %1, o cualquier altura y anchura</translation>
    </message>
    <message>
        <source>its input is %1 %2</source>
        <translation>su entrada es %1 %2</translation>
    </message>
    <message>
        <source>its output is %1 %2</source>
        <translation>su salida es %1 %2</translation>
    </message>
    <message>
        <source>its input has no declared shape</source>
        <translation>su entrada no declara ninguna forma</translation>
    </message>
    <message>
        <source>it has %1 inputs and %2 outputs</source>
        <translation>tiene %1 entradas y %2 salidas</translation>
    </message>
    <message>
        <source>one picture in and one out</source>
        <translation>una imagen de entrada y una de salida</translation>
    </message>
    <message>
        <source>No result from RealESRGAN model</source>
        <translation>Ningún resultado del modelo RealESRGAN</translation>
    </message>
    <message>
        <source>Failed to convert upscaled tile to CGImage</source>
        <translation>No se pudo convertir la tesela ampliada en CGImage</translation>
    </message>
    <message>
        <source>it made %1 of a tile</source>
        <translation>hizo %1 de una tesela</translation>
    </message>
    <message>
        <source>%1, %2, in &quot;%3&quot;, out &quot;%4&quot;</source>
        <translation>%1, %2, entrada «%3», salida «%4»</translation>
    </message>
    <message>
        <source>tiles of 512 × 512</source>
        <translation>teselas de 512 × 512</translation>
    </message>
    <message>
        <source>tiles of any size</source>
        <translation>teselas de cualquier tamaño</translation>
    </message>
    <message>
        <source>it keeps weights in other files</source>
        <translation>guarda pesos en otros archivos</translation>
    </message>
    <message>
        <source>one file with everything in it</source>
        <translation>un único archivo que lo contenga todo</translation>
    </message>
    <message>
        <source>its file is empty</source>
        <translation>su archivo está vacío</translation>
    </message>
    <message>
        <source>an ONNX file</source>
        <translation>un archivo ONNX</translation>
    </message>
    <message>
        <source>its reach is &quot;%1&quot;</source>
        <translation>su alcance es «%1»</translation>
    </message>
    <message>
        <source>a whole number of 1 to %1</source>
        <translation>un número entero de 1 a %1</translation>
    </message>
</context>
<context>
    <name>SwaySocket</name>
    <message>
        <source>sway cannot be reached: %1</source>
        <translation>no se puede acceder a sway: %1</translation>
    </message>
    <message>
        <source>sway&apos;s answer cannot be understood</source>
        <translation>no se entiende la respuesta de sway</translation>
    </message>
    <message>
        <source>sway does not answer</source>
        <translation>sway no responde</translation>
    </message>
    <message>
        <source>sway ended the connection: %1</source>
        <translation>sway cerró la conexión: %1</translation>
    </message>
    <message>
        <source>sway ended the connection</source>
        <translation>sway cerró la conexión</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Deleted</source>
        <translation>Eliminado</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
</context>
<context>
    <name>UpscaleErrors</name>
    <message>
        <source>The upscale was stopped</source>
        <translation>La ampliación se detuvo</translation>
    </message>
</context>
<context>
    <name>UpscaledCanvas</name>
    <message>
        <source>Failed to create output context</source>
        <translation>No se pudo crear el contexto de salida</translation>
    </message>
    <message>
        <source>The upscaled image does not resemble the original at tile (%1, %2)</source>
        <translation>La imagen ampliada no se parece a la original en la tesela (%1, %2)</translation>
    </message>
</context>
<context>
    <name>UpscalingNotice</name>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>Ampliando a 4K…</translation>
    </message>
</context>
<context>
    <name>UserDefaults</name>
    <message>
        <source>could not read %1: %2</source>
        <translation>no se pudo leer %1: %2</translation>
    </message>
    <message>
        <source>could not write %1: %2</source>
        <translation>no se pudo escribir %1: %2</translation>
    </message>
</context>
<context>
    <name>WaylandConnection</name>
    <message>
        <source>The compositor cannot be reached</source>
        <translation>No se puede acceder al compositor</translation>
    </message>
    <message>
        <source>The compositor ended the connection: %1</source>
        <translation>El compositor cerró la conexión: %1</translation>
    </message>
    <message>
        <source>The compositor does not answer</source>
        <translation>El compositor no responde</translation>
    </message>
</context>
<context>
    <name>WholeFile</name>
    <message>
        <source>Not a regular file</source>
        <translation>No es un archivo normal</translation>
    </message>
</context>
<context>
    <name>quorvane::APIKeyRow</name>
    <message>
        <source>%1 API Key</source>
        <translation>Clave de API de %1</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Actualizar</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
</context>
<context>
    <name>quorvane::AdvancedModel</name>
    <message>
        <source>%1 Model</source>
        <translation>Modelo de %1</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Automático</translation>
    </message>
    <message>
        <source>%1 produces 4K natively — no upscaling needed.</source>
        <translation>%1 produce 4K de forma nativa; no hace falta ampliar.</translation>
    </message>
    <message>
        <source>Gemini (API)</source>
        <translation>Gemini (API)</translation>
    </message>
    <message>
        <source>Local (on-device)</source>
        <translation>Local (en este equipo)</translation>
    </message>
</context>
<context>
    <name>quorvane::ImageListModel</name>
    <message>
        <source>favorite</source>
        <translation>favorita</translation>
    </message>
    <message>
        <source>4K</source>
        <translation>4K</translation>
    </message>
    <message>
        <source>current wallpaper</source>
        <translation>fondo actual</translation>
    </message>
    <message>
        <source>being upscaled to 4K</source>
        <translation>ampliándose a 4K</translation>
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
        <translation>Esta imagen ya no está.</translation>
    </message>
    <message>
        <source>This picture cannot be read.</source>
        <translation>No se puede leer esta imagen.</translation>
    </message>
</context>
<context>
    <name>quorvane::Scenes</name>
    <message>
        <source>it is no window</source>
        <translation>no es una ventana</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>no se puede abrir %1: %2</translation>
    </message>
</context>
<context>
    <name>quorvane::SidebarModel</name>
    <message>
        <source>+ Local 4K</source>
        <translation>+ 4K local</translation>
    </message>
    <message>
        <source>+ Gemini 4K</source>
        <translation>+ 4K de Gemini</translation>
    </message>
    <message>
        <source>Next: %1</source>
        <translation>Siguiente: %1</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperApp</name>
    <message>
        <source>The window cannot be opened</source>
        <translation>No se puede abrir la ventana</translation>
    </message>
    <message>
        <source>The settings are not kept</source>
        <translation>Los ajustes no se guardan</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperManager</name>
    <message>
        <source>Wallpaper set!</source>
        <translation>¡Fondo de pantalla establecido!</translation>
    </message>
    <message>
        <source>Missing %1 API key — open Settings (⌘,)</source>
        <translation>Falta la clave de API de %1: abra Ajustes (⌘,)</translation>
    </message>
    <message>
        <source>Failed to save image</source>
        <translation>No se pudo guardar la imagen</translation>
    </message>
    <message>
        <source>Upscaling to 4K (local)...</source>
        <translation>Ampliando a 4K (local)…</translation>
    </message>
    <message>
        <source>Upscaling to 4K...</source>
        <translation>Ampliando a 4K…</translation>
    </message>
    <message>
        <source>Local upscale failed, using original — %1</source>
        <translation>Falló la ampliación local, se usa el original: %1</translation>
    </message>
    <message>
        <source>Upscale failed, using original — %1</source>
        <translation>Falló la ampliación, se usa el original: %1</translation>
    </message>
    <message>
        <source>No Gemini API key — switch to Local upscale in Settings &gt; Advanced</source>
        <translation>No hay clave de API de Gemini: cambie a la ampliación local en Ajustes &gt; Avanzado</translation>
    </message>
    <message>
        <source>Upscale failed: %1</source>
        <translation>Falló la ampliación: %1</translation>
    </message>
    <message>
        <source>Failed to save upscaled image</source>
        <translation>No se pudo guardar la imagen ampliada</translation>
    </message>
    <message>
        <source>Quorvane is quitting</source>
        <translation>Quorvane se está cerrando</translation>
    </message>
    <message>
        <source>the picture was deleted</source>
        <translation>la imagen se ha eliminado</translation>
    </message>
</context>
<context>
    <name>quorvane::WallpaperSetter</name>
    <message>
        <source>No screen found</source>
        <translation>No se encontró ninguna pantalla</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Falló: %1</translation>
    </message>
    <message>
        <source>Failed to sync wallpaper: %1</source>
        <translation>No se pudo sincronizar el fondo de pantalla: %1</translation>
    </message>
</context>
</TS>
