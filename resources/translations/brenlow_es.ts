<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
    <context>
        <name>English</name>
        <message>
            <source>Clean</source>
            <translation>Limpiar</translation>
        </message>
        <message>
            <source>Stop</source>
            <translation>Detener</translation>
        </message>
        <message>
            <source>Scan</source>
            <translation>Analizar</translation>
        </message>
        <message>
            <source>Re-Scan</source>
            <translation>Volver a analizar</translation>
        </message>
        <message>
            <source>Review</source>
            <translation>Revisar</translation>
        </message>
        <message>
            <source>View Log</source>
            <translation>Ver registro</translation>
        </message>
        <message>
            <source>Hide Log</source>
            <translation>Ocultar registro</translation>
        </message>
        <message>
            <source>Found </source>
            <translation>Encontrado: </translation>
        </message>
        <message>
            <source>Selected: </source>
            <translation>Seleccionado: </translation>
        </message>
        <message>
            <source>Cleaning...</source>
            <translation>Limpiando...</translation>
        </message>
        <message>
            <source>Cleaned: </source>
            <translation>Limpiado: </translation>
        </message>
        <message>
            <source>%1 items</source>
            <translation>%1 elementos</translation>
        </message>
        <message>
            <source>Available in a later version</source>
            <translation>Disponible en una versión posterior</translation>
        </message>
        <message>
            <source>Confirmation</source>
            <translation>Confirmación</translation>
        </message>
        <message>
            <source>Are you sure to delete selected files?</source>
            <translation>¿Seguro que quieres eliminar los archivos seleccionados?</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You - Brenlow</source>
            <translation>¡Hola! Encantados de conocerte - Brenlow</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You</source>
            <translation>¡Hola! Encantados de conocerte</translation>
        </message>
        <message>
            <source>Thank you for installing!</source>
            <translation>¡Gracias por instalarlo!</translation>
        </message>
        <message>
            <source>Enter your email</source>
            <translation>Introduce tu correo electrónico</translation>
        </message>
        <message>
            <source>Subscribe</source>
            <translation>Suscribirse</translation>
        </message>
        <message>
            <source>Visit Our Website</source>
            <translation>Visitar nuestro sitio web</translation>
        </message>
        <message>
            <source>Launch Brenlow</source>
            <translation>Abrir Brenlow</translation>
        </message>
        <message>
            <source>ERROR</source>
            <translation>ERROR</translation>
        </message>
        <message>
            <source>The email address can't be empty!</source>
            <translation>¡La dirección de correo no puede estar vacía!</translation>
        </message>
        <message>
            <source>The input format is incorrect!</source>
            <translation>¡El formato introducido no es correcto!</translation>
        </message>
        <message>
            <source>Success</source>
            <translation>Hecho</translation>
        </message>
        <message>
            <source>Thanks for Subscribing!</source>
            <translation>¡Gracias por suscribirte!</translation>
        </message>
        <message>
            <source>Show in Folder</source>
            <translation>Mostrar en la carpeta</translation>
        </message>
        <message>
            <source>Search</source>
            <translation>Buscar</translation>
        </message>
        <message>
            <source>Back</source>
            <translation>Atrás</translation>
        </message>
        <message>
            <source>Sort</source>
            <translation>Ordenar</translation>
        </message>
        <message>
            <source>Empty</source>
            <translation>Vacío</translation>
        </message>
        <message>
            <source>Deselect All</source>
            <translation>Deseleccionar todo</translation>
        </message>
        <message>
            <source>Select All</source>
            <translation>Seleccionar todo</translation>
        </message>
        <message>
            <source>Error</source>
            <translation>Error</translation>
        </message>
        <message>
            <source>This category is empty!</source>
            <translation>¡Esta categoría está vacía!</translation>
        </message>
        <message>
            <source>Scanning</source>
            <translation>Analizando</translation>
        </message>
        <message>
            <source>Nothing to Clean</source>
            <translation>Nada que limpiar</translation>
        </message>
        <message>
            <source>Scan Done</source>
            <translation>Análisis terminado</translation>
        </message>
        <message>
            <source>Your disk is tidy here.</source>
            <translation>Tu disco está limpio aquí.</translation>
        </message>
        <message>
            <source>Clean Log</source>
            <translation>Registro de limpieza</translation>
        </message>
        <message>
            <source>Clean Done</source>
            <translation>Limpieza terminada</translation>
        </message>
        <message>
            <source>Failed</source>
            <translation>Error</translation>
        </message>
        <message>
            <source>Nothing failed.</source>
            <translation>No ha fallado nada.</translation>
        </message>
        <message>
            <source>Brenlow</source>
            <translation>Brenlow</translation>
        </message>
        <message>
            <source>Brenlow Help</source>
            <translation>Ayuda de Brenlow</translation>
        </message>
        <message>
            <source>Support</source>
            <translation>Soporte</translation>
        </message>
        <message>
            <source>Send Feedback</source>
            <translation>Enviar comentarios</translation>
        </message>
        <message>
            <source>Brenlow Website</source>
            <translation>Sitio web de Brenlow</translation>
        </message>
        <message>
            <source>More Products</source>
            <translation>Más productos</translation>
        </message>
        <message>
            <source>Brenlow on Facebook</source>
            <translation>Brenlow en Facebook</translation>
        </message>
        <message>
            <source>Version </source>
            <translation>Versión </translation>
        </message>
        <message>
            <source>About Brenlow</source>
            <translation>Acerca de Brenlow</translation>
        </message>
        <message>
            <source>Keep a Local Log of Usage Events</source>
            <translation>Guardar un registro local de uso</translation>
        </message>
        <message>
            <source>Quit Brenlow</source>
            <translation>Salir de Brenlow</translation>
        </message>
        <message>
            <source>Language</source>
            <translation>Idioma</translation>
        </message>
        <message>
            <source>Help</source>
            <translation>Ayuda</translation>
        </message>
        <message>
            <source>Subscribe to News…</source>
            <translation>Suscribirse a las novedades…</translation>
        </message>
        <message>
            <source>Warn</source>
            <translation>Advertencia</translation>
        </message>
        <message>
            <source>Info</source>
            <translation>Información</translation>
        </message>
        <message>
            <source>OK</source>
            <translation>Aceptar</translation>
        </message>
        <message>
            <source>Confirm</source>
            <translation>Confirmar</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Cancelar</translation>
        </message>
        <message>
            <source>OverTime</source>
            <translation>Tiempo agotado</translation>
        </message>
        <message>
            <source>delete fail</source>
            <translation>No se pudo eliminar</translation>
        </message>
        <message>
            <source>nocause</source>
            <translation>Causa desconocida</translation>
        </message>
        <message>
            <source>shredfail</source>
            <translation>No se pudo destruir</translation>
        </message>
        <message>
            <source>movefail</source>
            <translation>No se pudo mover</translation>
        </message>
        <message>
            <source>stop</source>
            <translation>Detenido</translation>
        </message>
        <message>
            <source>get root fail</source>
            <translation>No se obtuvieron permisos de administrador</translation>
        </message>
        <message>
            <source>UnKnown</source>
            <translation>Desconocido</translation>
        </message>
        <message>
            <source>A failure when referencing a bundle that doesn't exist</source>
            <translation>Error al hacer referencia a un paquete que no existe</translation>
        </message>
        <message>
            <source>A failure when trying to get the SecStaticCode for a bundle, but it is unsigned</source>
            <translation>Error al obtener el código de un paquete sin firmar</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecStaticCodeCreateWithPath</source>
            <translation>Error desconocido al crear la información del código</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecCodeCopySigningInformation for a bundle</source>
            <translation>Error desconocido al leer la firma de un paquete</translation>
        </message>
        <message>
            <source>Failure when calling SMJobBless</source>
            <translation>Error al instalar el asistente</translation>
        </message>
        <message>
            <source>Authorization was denied by the system when asking a user for authorization</source>
            <translation>El sistema denegó la autorización solicitada</translation>
        </message>
        <message>
            <source>The user canceled a prompt for authorization</source>
            <translation>Se canceló la solicitud de autorización</translation>
        </message>
        <message>
            <source>Unable to prompt the user (interaction disallowed)</source>
            <translation>No se puede pedir autorización (interacción no permitida)</translation>
        </message>
        <message>
            <source>Unknown failure when prompting the user for authorization</source>
            <translation>Error desconocido al pedir autorización</translation>
        </message>
        <message>
            <source>Unkown Error!</source>
            <translation>¡Error desconocido!</translation>
        </message>
        <message>
            <source>Scanning Mail Attachments From</source>
            <translation>Analizando adjuntos de correo de</translation>
        </message>
        <message>
            <source>Scanning Cached Mail From</source>
            <translation>Analizando el correo en caché de</translation>
        </message>
        <message>
            <source>1 byte</source>
            <translation>1 byte</translation>
        </message>
        <message>
            <source>%1 bytes</source>
            <translation>%1 bytes</translation>
        </message>
        <message>
            <source>1 item</source>
            <translation>1 elemento</translation>
        </message>
        <message>
            <source>To be removed: %1</source>
            <translation>Se eliminará: %1</translation>
        </message>
        <message>
            <source>Done</source>
            <translation>Hecho</translation>
        </message>
        <message>
            <source>Cleaned</source>
            <translation>Limpiado</translation>
        </message>
        <message>
            <source>Total</source>
            <translation>Total</translation>
        </message>
        <message>
            <source>Auto Cleanup</source>
            <translation>Limpieza automática</translation>
        </message>
        <message>
            <source>Scan and clean all junk with one click</source>
            <translation>Analiza y limpia toda la basura con un clic</translation>
        </message>
        <message>
            <source>Finds caches, logs, cached mail and trash at once</source>
            <translation>Encuentra a la vez cachés, registros, correo en caché y papelera</translation>
        </message>
        <message>
            <source>Cleans only what you leave selected</source>
            <translation>Solo limpia lo que dejes seleccionado</translation>
        </message>
        <message>
            <source>System Junk</source>
            <translation>Basura del sistema</translation>
        </message>
        <message>
            <source>Caches, logs and leftovers of the system and your applications</source>
            <translation>Cachés, registros y restos del sistema y tus aplicaciones</translation>
        </message>
        <message>
            <source>Photo Cache</source>
            <translation>Caché de fotos</translation>
        </message>
        <message>
            <source>Thumbnails and previews your photo tools can make again</source>
            <translation>Miniaturas y vistas previas que tus herramientas de fotos pueden volver a crear</translation>
        </message>
        <message>
            <source>Mail Trash</source>
            <translation>Basura del correo</translation>
        </message>
        <message>
            <source>Messages your mail client keeps copies of</source>
            <translation>Mensajes de los que su cliente de correo guarda copias</translation>
        </message>
        <message>
            <source>Trash Bin</source>
            <translation>Papelera</translation>
        </message>
        <message>
            <source>Items waiting in the Trash, on this computer and on removable drives</source>
            <translation>Elementos en la papelera de este ordenador y de las unidades extraíbles</translation>
        </message>
        <message>
            <source>iTunes Junk</source>
            <translation>Basura de iTunes</translation>
        </message>
        <message>
            <source>Old device backups and software updates</source>
            <translation>Copias de seguridad antiguas y actualizaciones de software</translation>
        </message>
        <message>
            <source>Remove caches, logs and files your applications no longer need</source>
            <translation>Elimina cachés, registros y archivos que tus aplicaciones ya no necesitan</translation>
        </message>
        <message>
            <source>Caches and logs of the system and your applications</source>
            <translation>Cachés y registros del sistema y tus aplicaciones</translation>
        </message>
        <message>
            <source>Translations you never use</source>
            <translation>Traducciones que nunca usas</translation>
        </message>
        <message>
            <source>User Cache</source>
            <translation>Caché del usuario</translation>
        </message>
        <message>
            <source>Files your applications keep to work faster; they make them again when needed</source>
            <translation>Archivos que tus aplicaciones guardan para ir más rápido; los vuelven a crear cuando hace falta</translation>
        </message>
        <message>
            <source>System Cache</source>
            <translation>Caché del sistema</translation>
        </message>
        <message>
            <source>Downloaded software packages that were already installed</source>
            <translation>Paquetes de software descargados que ya se instalaron</translation>
        </message>
        <message>
            <source>User Logs</source>
            <translation>Registros del usuario</translation>
        </message>
        <message>
            <source>Activity records of your desktop session</source>
            <translation>Registros de actividad de tu sesión de escritorio</translation>
        </message>
        <message>
            <source>Crash Reports</source>
            <translation>Informes de fallos</translation>
        </message>
        <message>
            <source>Reports and memory dumps of programs that stopped unexpectedly</source>
            <translation>Informes y volcados de memoria de programas que se cerraron inesperadamente</translation>
        </message>
        <message>
            <source>Language Files</source>
            <translation>Archivos de idioma</translation>
        </message>
        <message>
            <source>Translations of your applications into languages you do not use</source>
            <translation>Traducciones de tus aplicaciones a idiomas que no usas</translation>
        </message>
        <message>
            <source>Free the space of previews your photo tools can make again</source>
            <translation>Libera el espacio de vistas previas que tus herramientas de fotos pueden volver a crear</translation>
        </message>
        <message>
            <source>Your photos themselves are never touched</source>
            <translation>Tus fotos nunca se tocan</translation>
        </message>
        <message>
            <source>Thumbnails and previews that your photo tools make again</source>
            <translation>Miniaturas y vistas previas que tus herramientas de fotos vuelven a crear</translation>
        </message>
        <message>
            <source>Remove the copies of messages your mail client keeps</source>
            <translation>Elimine las copias de mensajes que guarda su cliente de correo</translation>
        </message>
        <message>
            <source>The messages stay in your mailbox</source>
            <translation>Los mensajes se quedan en tu buzón</translation>
        </message>
        <message>
            <source>Cached Messages</source>
            <translation>Mensajes en caché</translation>
        </message>
        <message>
            <source>Copies of messages kept on your mail server</source>
            <translation>Copias de mensajes que están en su servidor de correo</translation>
        </message>
        <message>
            <source>Empty the Trash of this computer and of removable drives</source>
            <translation>Vacía la papelera de este ordenador y de las unidades extraíbles</translation>
        </message>
        <message>
            <source>Every Trash at once</source>
            <translation>Todas las papeleras a la vez</translation>
        </message>
        <message>
            <source>Trash</source>
            <translation>Papelera</translation>
        </message>
        <message>
            <source>Items in your Trash</source>
            <translation>Elementos de tu papelera</translation>
        </message>
        <message>
            <source>Removable Volumes Trash</source>
            <translation>Papelera de unidades extraíbles</translation>
        </message>
        <message>
            <source>Items in the Trash of your removable drives</source>
            <translation>Elementos en la papelera de tus unidades extraíbles</translation>
        </message>
        <message>
            <source>Remove old device backups and software updates</source>
            <translation>Elimina copias de seguridad antiguas y actualizaciones de software</translation>
        </message>
        <message>
            <source>Old backups of your devices</source>
            <translation>Copias antiguas de tus dispositivos</translation>
        </message>
        <message>
            <source>Downloaded updates</source>
            <translation>Actualizaciones descargadas</translation>
        </message>
        <message>
            <source>iOS Device Backups</source>
            <translation>Copias de seguridad de dispositivos iOS</translation>
        </message>
        <message>
            <source>Backups of your iPhone, iPad and iPod</source>
            <translation>Copias de seguridad de tu iPhone, iPad y iPod</translation>
        </message>
        <message>
            <source>iOS Software Updates</source>
            <translation>Actualizaciones de software de iOS</translation>
        </message>
        <message>
            <source>Downloaded software updates for your devices</source>
            <translation>Actualizaciones de software descargadas para tus dispositivos</translation>
        </message>
        <message>
            <source>Duplicates</source>
            <translation>Duplicados</translation>
        </message>
        <message>
            <source>Find identical files and keep one of each</source>
            <translation>Encuentra archivos idénticos y conserva uno de cada</translation>
        </message>
        <message>
            <source>Compares content, not names</source>
            <translation>Compara el contenido, no los nombres</translation>
        </message>
        <message>
            <source>Large and Old Files</source>
            <translation>Archivos grandes y antiguos</translation>
        </message>
        <message>
            <source>Find big files and files you have not opened for a long time</source>
            <translation>Encuentra archivos grandes y archivos que no abres desde hace mucho</translation>
        </message>
        <message>
            <source>Sorted by size and by age</source>
            <translation>Ordenados por tamaño y antigüedad</translation>
        </message>
        <message>
            <source>Similar Images</source>
            <translation>Imágenes similares</translation>
        </message>
        <message>
            <source>Find pictures that look alike</source>
            <translation>Encuentra imágenes que se parecen</translation>
        </message>
        <message>
            <source>Keeps the best of each group</source>
            <translation>Conserva la mejor de cada grupo</translation>
        </message>
        <message>
            <source>Uninstaller</source>
            <translation>Desinstalador</translation>
        </message>
        <message>
            <source>Remove applications together with their leftovers</source>
            <translation>Elimina aplicaciones junto con sus restos</translation>
        </message>
        <message>
            <source>Settings, caches and support files</source>
            <translation>Ajustes, cachés y archivos de soporte</translation>
        </message>
        <message>
            <source>Eraser</source>
            <translation>Borrador</translation>
        </message>
        <message>
            <source>Erase files so that they cannot be recovered</source>
            <translation>Borra archivos para que no se puedan recuperar</translation>
        </message>
        <message>
            <source>Overwrites before removing</source>
            <translation>Sobrescribe antes de eliminar</translation>
        </message>
        <message>
            <source>Privacy</source>
            <translation>Privacidad</translation>
        </message>
        <message>
            <source>Remove browsing history, cookies and other traces</source>
            <translation>Elimina el historial, las cookies y otros rastros</translation>
        </message>
        <message>
            <source>Chrome and Firefox</source>
            <translation>Chrome y Firefox</translation>
        </message>
        <message>
            <source>Extensions</source>
            <translation>Extensiones</translation>
        </message>
        <message>
            <source>Manage the extensions and plug-ins of your system</source>
            <translation>Gestiona las extensiones y complementos de tu sistema</translation>
        </message>
        <message>
            <source>Turn them off without removing them</source>
            <translation>Desactívalas sin eliminarlas</translation>
        </message>
        <message>
            <source>Cleanup</source>
            <translation>Limpieza</translation>
        </message>
        <message>
            <source>Tools</source>
            <translation>Herramientas</translation>
        </message>
        <message>
            <source>Finds caches, logs, mail attachments and trash at once</source>
            <translation>Encuentra cachés, registros, adjuntos y papelera a la vez</translation>
        </message>
        <message>
            <source>Attachments your mail client already downloaded</source>
            <translation>Adjuntos que tu cliente de correo ya descargó</translation>
        </message>
        <message>
            <source>Temporary files the system left behind</source>
            <translation>Archivos temporales que dejó el sistema</translation>
        </message>
        <message>
            <source>Activity records of your applications</source>
            <translation>Registros de actividad de tus aplicaciones</translation>
        </message>
        <message>
            <source>System Logs</source>
            <translation>Registros del sistema</translation>
        </message>
        <message>
            <source>Activity records of the system</source>
            <translation>Registros de actividad del sistema</translation>
        </message>
        <message>
            <source>Faces and previews that the photo library makes again</source>
            <translation>Caras y vistas previas que la fototeca vuelve a crear</translation>
        </message>
        <message>
            <source>Remove mail attachments you already downloaded</source>
            <translation>Elimina los adjuntos de correo ya descargados</translation>
        </message>
        <message>
            <source>Mail Attachments</source>
            <translation>Adjuntos de correo</translation>
        </message>
        <message>
            <source>Attachments Mail downloaded to show them</source>
            <translation>Adjuntos que Mail descargó para mostrarlos</translation>
        </message>
        <message>
            <source>iTunes Cache</source>
            <translation>Caché de iTunes</translation>
        </message>
        <message>
            <source>Files iTunes keeps to work faster</source>
            <translation>Archivos que iTunes guarda para ir más rápido</translation>
        </message>
        <message>
            <source>Chrome, Firefox and Safari</source>
            <translation>Chrome, Firefox y Safari</translation>
        </message>
        <message>
            <source>Chrome</source>
            <translation>Chrome</translation>
        </message>
        <message>
            <source>Firefox</source>
            <translation>Firefox</translation>
        </message>
        <message>
            <source>Safari</source>
            <translation>Safari</translation>
        </message>
        <message>
            <source>History, downloads, cookies, logins and website data of Chrome</source>
            <translation>Historial, descargas, cookies, inicios de sesión y datos de sitios de Chrome</translation>
        </message>
        <message>
            <source>History, downloads, cookies, logins and website data of Firefox</source>
            <translation>Historial, descargas, cookies, inicios de sesión y datos de sitios de Firefox</translation>
        </message>
        <message>
            <source>History, downloads and website data of Safari</source>
            <translation>Historial, descargas y datos de sitios de Safari</translation>
        </message>
        <message>
            <source>Safari keeps nothing on this system</source>
            <translation>Safari no guarda nada en este sistema</translation>
        </message>
        <message>
            <source>Visit History</source>
            <translation>Historial de visitas</translation>
        </message>
        <message>
            <source>Downloads History</source>
            <translation>Historial de descargas</translation>
        </message>
        <message>
            <source>Downloaded Files</source>
            <translation>Archivos descargados</translation>
        </message>
        <message>
            <source>Search History</source>
            <translation>Historial de búsqueda</translation>
        </message>
        <message>
            <source>Cookies</source>
            <translation>Cookies</translation>
        </message>
        <message>
            <source>Login History</source>
            <translation>Inicios de sesión</translation>
        </message>
        <message>
            <source>Auto Fill History</source>
            <translation>Datos de autocompletar</translation>
        </message>
        <message>
            <source>HTML5 Local Storage</source>
            <translation>Almacenamiento local HTML5</translation>
        </message>
        <message>
            <source>Larger than 100 MB</source>
            <translation>Más de 100 MB</translation>
        </message>
        <message>
            <source>Files of more than 100 MB</source>
            <translation>Archivos de más de 100 MB</translation>
        </message>
        <message>
            <source>Larger than 5 MB</source>
            <translation>Más de 5 MB</translation>
        </message>
        <message>
            <source>Files of more than 5 MB, up to 100 MB</source>
            <translation>Archivos de más de 5 MB, hasta 100 MB</translation>
        </message>
        <message>
            <source>Older than a year</source>
            <translation>Más antiguos de un año</translation>
        </message>
        <message>
            <source>Files last changed more than a year ago</source>
            <translation>Archivos modificados por última vez hace más de un año</translation>
        </message>
        <message>
            <source>Older than a month</source>
            <translation>Más antiguos de un mes</translation>
        </message>
        <message>
            <source>Files last changed more than a month ago, within the year</source>
            <translation>Archivos modificados por última vez hace más de un mes, dentro del año</translation>
        </message>
        <message>
            <source>Analyzing Data</source>
            <translation>Analizando datos</translation>
        </message>
        <message>
            <source>Collating data</source>
            <translation>Recopilando datos</translation>
        </message>
        <message>
            <source>Videos </source>
            <translation>Vídeos </translation>
        </message>
        <message>
            <source>Music </source>
            <translation>Música </translation>
        </message>
        <message>
            <source>Images </source>
            <translation>Imágenes </translation>
        </message>
        <message>
            <source>Documents </source>
            <translation>Documentos </translation>
        </message>
        <message>
            <source>Others</source>
            <translation>Otros</translation>
        </message>
        <message>
            <source>All</source>
            <translation>Todos</translation>
        </message>
        <message>
            <source>Not the same file</source>
            <translation>Ningún archivo igual</translation>
        </message>
        <message>
            <source>No File</source>
            <translation>Ningún archivo</translation>
        </message>
        <message>
            <source>There are no files available for duplication</source>
            <translation>No hay archivos duplicados</translation>
        </message>
        <message>
            <source>The number entered can only be an integer</source>
            <translation>El número introducido solo puede ser un entero</translation>
        </message>
        <message>
            <source>Duplicate Finder Configuration</source>
            <translation>Configuración del buscador de duplicados</translation>
        </message>
        <message>
            <source>File in ***kb smaller than the below value will be automatically skipped.</source>
            <translation>Los archivos de ***kb menores que el valor siguiente se omitirán automáticamente.</translation>
        </message>
        <message>
            <source>Cores</source>
            <translation>Núcleos</translation>
        </message>
        <message>
            <source>Available</source>
            <translation>Disponible</translation>
        </message>
        <message>
            <source>Battery</source>
            <translation>Batería</translation>
        </message>
        <message>
            <source>CPU</source>
            <translation>CPU</translation>
        </message>
        <message>
            <source>Charge Cycles</source>
            <translation>Ciclos de carga</translation>
        </message>
        <message>
            <source>Disk</source>
            <translation>Disco</translation>
        </message>
        <message>
            <source>Free</source>
            <translation>Libre</translation>
        </message>
        <message>
            <source>Memory</source>
            <translation>Memoria</translation>
        </message>
        <message>
            <source>Network</source>
            <translation>Red</translation>
        </message>
        <message>
            <source>No Battery Service Found</source>
            <translation>No se encontró ninguna batería</translation>
        </message>
        <message>
            <source>Used</source>
            <translation>En uso</translation>
        </message>
        <message>
            <source>User</source>
            <translation>Usuario</translation>
        </message>
        <message>
            <source>Optimize Mac</source>
            <translation>Optimizar Mac</translation>
        </message>
        <message>
            <source>Optimize %1</source>
            <translation>Optimizar %1</translation>
        </message>
        <message>
            <source>Configuration</source>
            <translation>Configuración</translation>
        </message>
        <message>
            <source>Duplicate Finder…</source>
            <translation>Buscador de duplicados…</translation>
        </message>
        <message>
            <source>Choose Folder…</source>
            <translation>Elegir carpeta…</translation>
        </message>
        <message>
            <source>Folder: </source>
            <translation>Carpeta: </translation>
        </message>
        <message>
            <source>Choose the folder to search for duplicates</source>
            <translation>Elija la carpeta en la que buscar duplicados</translation>
        </message>
        <message>
            <source>Organize Data</source>
            <translation>Organizando datos</translation>
        </message>
        <message>
            <source>There are no files available for deduplication</source>
            <translation>No hay imágenes similares</translation>
        </message>
        <message>
            <source>Picture</source>
            <translation>Imagen</translation>
        </message>
            <message>
            <source>%1 records</source>
            <translation>%1 registros</translation>
        </message>
        <message>
            <source>The file is damaged and cannot be viewed</source>
            <translation>El archivo está dañado y no se puede ver</translation>
        </message>
        <message>
            <source>shred_sameFile_text</source>
            <translation>Este elemento ya ha sido seleccionado</translation>
        </message>
        <message>
            <source>Add Files</source>
            <translation>Añadir archivos</translation>
        </message>
        <message>
            <source>Add Folder</source>
            <translation>Añadir carpeta</translation>
        </message>
        <message>
            <source>Name (A to Z)</source>
            <translation>Nombre (A a Z)</translation>
        </message>
        <message>
            <source>Name (Z to A)</source>
            <translation>Nombre (Z a A)</translation>
        </message>
        <message>
            <source>Remove from the list</source>
            <translation>Quitar de la lista</translation>
        </message>
        <message>
            <source>Decompression</source>
            <translation>Descompresión</translation>
        </message>
        <message>
            <source>Decompression Progress :</source>
            <translation>Progreso de descompresión :</translation>
        </message>
        <message>
            <source>Enter Password :</source>
            <translation>Introduzca la contraseña :</translation>
        </message>
        <message>
            <source>Compress Failed</source>
            <translation>Error al comprimir</translation>
        </message>
        <message>
            <source>Decompress Failed</source>
            <translation>Error al descomprimir</translation>
        </message>
        <message>
            <source>Not shredded</source>
            <translation>No triturado</translation>
        </message>
        <message>
            <source>Back to the list</source>
            <translation>Volver a la lista</translation>
        </message>
        <message>
            <source>In-depth Uninstallation</source>
            <translation>Desinstalación a fondo</translation>
        </message>
        <message>
            <source>Would you like to completely remove the app and its leftovers</source>
            <translation>¿Desea eliminar por completo la aplicación y sus restos</translation>
        </message>
        <message>
            <source>Clean Fail</source>
            <translation>La limpieza falló</translation>
        </message>
        <message>
            <source>Cleanup Completed</source>
            <translation>Limpieza completada</translation>
        </message>
        <message>
            <source>You had clean </source>
            <translation>Ha limpiado </translation>
        </message>
        <message>
            <source>Switched off</source>
            <translation>Desactivado</translation>
        </message>
        <message>
            <source>Switched on</source>
            <translation>Activado</translation>
        </message>
        <message>
            <source>The helper refused to move it: it lies in none of the extension folders, or an item of its name is already where it would go</source>
            <translation>El asistente se negó a moverlo: no está en ninguna de las carpetas de extensiones, o ya hay un elemento con su nombre en el destino</translation>
        </message>
        <message>
            <source>Startup Applications</source>
            <translation>Aplicaciones al inicio</translation>
        </message>
        <message>
            <source>Programs that start when you log in</source>
            <translation>Programas que se inician al iniciar sesión</translation>
        </message>
        <message>
            <source>User Services</source>
            <translation>Servicios del usuario</translation>
        </message>
        <message>
            <source>Services of your session that systemd starts for you</source>
            <translation>Servicios de su sesión que systemd inicia por usted</translation>
        </message>
        <message>
            <source>Shell Extensions</source>
            <translation>Extensiones de GNOME Shell</translation>
        </message>
        <message>
            <source>Extensions that load into the GNOME Shell</source>
            <translation>Extensiones que se cargan en GNOME Shell</translation>
        </message>
        <message>
            <source>Browser Plug-ins</source>
            <translation>Complementos del navegador</translation>
        </message>
        <message>
            <source>Plug-ins that load into Firefox</source>
            <translation>Complementos que se cargan en Firefox</translation>
        </message>
        <message>
            <source>Launch Agents</source>
            <translation>Agentes de inicio</translation>
        </message>
        <message>
            <source>Internet Plug-ins</source>
            <translation>Complementos de Internet</translation>
        </message>
        <message>
            <source>Plug-ins that load into web browsers</source>
            <translation>Complementos que se cargan en los navegadores</translation>
        </message>
        <message>
            <source>Preference Panes</source>
            <translation>Paneles de preferencias</translation>
        </message>
        <message>
            <source>Panes that load into System Preferences</source>
            <translation>Paneles que se cargan en Preferencias del Sistema</translation>
        </message>
        <message>
            <source>On</source>
            <translation>Activado</translation>
        </message>
        <message>
            <source>Off</source>
            <translation>Desactivado</translation>
        </message>
        <message>
            <source>Turn it off</source>
            <translation>Desactivarlo</translation>
        </message>
        <message>
            <source>Turn it on</source>
            <translation>Activarlo</translation>
        </message>
        <message>
            <source>Name</source>
            <translation>Nombre</translation>
        </message>
        <message>
            <source>Path</source>
            <translation>Ruta</translation>
        </message>
        <message>
            <source>Size</source>
            <translation>Tamaño</translation>
        </message>
        <message>
            <source>Enable NTFS</source>
            <translation>Activar NTFS</translation>
        </message>
        <message>
            <source>No NTFS volume is mounted.</source>
            <translation>No hay ningún volumen NTFS montado.</translation>
        </message>
        <message>
            <source>Are your sure to activate NTFS?</source>
            <translation>¿Seguro que desea activar NTFS?</translation>
        </message>
        <message>
            <source>Activate the system's ntfs function</source>
            <translation>Los volúmenes NTFS montados se volverán a montar con escritura.</translation>
        </message>
        <message>
            <source>Activate Success!</source>
            <translation>Activado</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function success</source>
            <translation>Ahora se puede escribir en los volúmenes NTFS.</translation>
        </message>
        <message>
            <source>Activate Fail!</source>
            <translation>Error de activación</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function failed</source>
            <translation>No se pudo activar la escritura NTFS.</translation>
        </message>
        <message>
            <source>it is not mounted any more</source>
            <translation>ya no está montado</translation>
        </message>
        <message>
            <source>it is not an NTFS volume</source>
            <translation>no es un volumen NTFS</translation>
        </message>
        <message>
            <source>Windows did not close it cleanly; check it in Windows first</source>
            <translation>Windows no lo cerró correctamente; compruébelo primero en Windows</translation>
        </message>
        <message>
            <source>Windows is hibernated on it; shut Windows down fully first</source>
            <translation>Windows está hibernado en él; apague Windows por completo primero</translation>
        </message>
        <message>
            <source>no NTFS driver that writes is installed</source>
            <translation>no hay instalado ningún controlador NTFS con escritura</translation>
        </message>
        <message>
            <source>it is in use; close its files and try again</source>
            <translation>está en uso; cierre sus archivos e inténtelo de nuevo</translation>
        </message>
        <message>
            <source>the driver refused it; it stays read-only</source>
            <translation>el controlador lo rechazó; sigue siendo de solo lectura</translation>
        </message>
        <message>
            <source>it was left as it was</source>
            <translation>se dejó como estaba</translation>
        </message>
        <message>
            <source>Nothing of this application is left</source>
            <translation>No queda nada de esta aplicación</translation>
        </message>
        <message>
            <source>The application itself</source>
            <translation>La aplicación en sí</translation>
        </message>
        <message>
            <source>Left behind by the application</source>
            <translation>Dejado por la aplicación</translation>
        </message>
    </context>
</TS>
