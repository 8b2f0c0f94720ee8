<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
    <context>
        <name>English</name>
        <message>
            <source>Clean</source>
            <translation>Bereinigen</translation>
        </message>
        <message>
            <source>Stop</source>
            <translation>Stoppen</translation>
        </message>
        <message>
            <source>Scan</source>
            <translation>Scannen</translation>
        </message>
        <message>
            <source>Re-Scan</source>
            <translation>Erneut scannen</translation>
        </message>
        <message>
            <source>Review</source>
            <translation>Prüfen</translation>
        </message>
        <message>
            <source>View Log</source>
            <translation>Protokoll anzeigen</translation>
        </message>
        <message>
            <source>Hide Log</source>
            <translation>Protokoll ausblenden</translation>
        </message>
        <message>
            <source>Found </source>
            <translation>Gefunden: </translation>
        </message>
        <message>
            <source>Selected: </source>
            <translation>Ausgewählt: </translation>
        </message>
        <message>
            <source>Cleaning...</source>
            <translation>Wird bereinigt …</translation>
        </message>
        <message>
            <source>Cleaned: </source>
            <translation>Bereinigt: </translation>
        </message>
        <message>
            <source>%1 items</source>
            <translation>%1 Objekte</translation>
        </message>
        <message>
            <source>Available in a later version</source>
            <translation>In einer späteren Version verfügbar</translation>
        </message>
        <message>
            <source>Confirmation</source>
            <translation>Bestätigung</translation>
        </message>
        <message>
            <source>Are you sure to delete selected files?</source>
            <translation>Möchten Sie die ausgewählten Dateien wirklich löschen?</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You - Brenlow</source>
            <translation>Hallo! Schön, Sie kennenzulernen - Brenlow</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You</source>
            <translation>Hallo! Schön, Sie kennenzulernen</translation>
        </message>
        <message>
            <source>Thank you for installing!</source>
            <translation>Danke für die Installation!</translation>
        </message>
        <message>
            <source>Enter your email</source>
            <translation>E-Mail-Adresse eingeben</translation>
        </message>
        <message>
            <source>Subscribe</source>
            <translation>Abonnieren</translation>
        </message>
        <message>
            <source>Visit Our Website</source>
            <translation>Unsere Website besuchen</translation>
        </message>
        <message>
            <source>Launch Brenlow</source>
            <translation>Brenlow starten</translation>
        </message>
        <message>
            <source>ERROR</source>
            <translation>FEHLER</translation>
        </message>
        <message>
            <source>The email address can't be empty!</source>
            <translation>Die E-Mail-Adresse darf nicht leer sein!</translation>
        </message>
        <message>
            <source>The input format is incorrect!</source>
            <translation>Das Eingabeformat ist nicht korrekt!</translation>
        </message>
        <message>
            <source>Success</source>
            <translation>Erfolgreich</translation>
        </message>
        <message>
            <source>Thanks for Subscribing!</source>
            <translation>Danke für Ihr Abonnement!</translation>
        </message>
        <message>
            <source>Show in Folder</source>
            <translation>Im Ordner anzeigen</translation>
        </message>
        <message>
            <source>Search</source>
            <translation>Suchen</translation>
        </message>
        <message>
            <source>Back</source>
            <translation>Zurück</translation>
        </message>
        <message>
            <source>Sort</source>
            <translation>Sortieren</translation>
        </message>
        <message>
            <source>Empty</source>
            <translation>Leer</translation>
        </message>
        <message>
            <source>Deselect All</source>
            <translation>Auswahl aufheben</translation>
        </message>
        <message>
            <source>Select All</source>
            <translation>Alle auswählen</translation>
        </message>
        <message>
            <source>Error</source>
            <translation>Fehler</translation>
        </message>
        <message>
            <source>This category is empty!</source>
            <translation>Diese Kategorie ist leer!</translation>
        </message>
        <message>
            <source>Scanning</source>
            <translation>Wird gescannt</translation>
        </message>
        <message>
            <source>Nothing to Clean</source>
            <translation>Nichts zu bereinigen</translation>
        </message>
        <message>
            <source>Scan Done</source>
            <translation>Scan abgeschlossen</translation>
        </message>
        <message>
            <source>Your disk is tidy here.</source>
            <translation>Hier ist Ihr Laufwerk aufgeräumt.</translation>
        </message>
        <message>
            <source>Clean Log</source>
            <translation>Bereinigungsprotokoll</translation>
        </message>
        <message>
            <source>Clean Done</source>
            <translation>Bereinigung abgeschlossen</translation>
        </message>
        <message>
            <source>Failed</source>
            <translation>Fehlgeschlagen</translation>
        </message>
        <message>
            <source>Nothing failed.</source>
            <translation>Nichts ist fehlgeschlagen.</translation>
        </message>
        <message>
            <source>Brenlow</source>
            <translation>Brenlow</translation>
        </message>
        <message>
            <source>Brenlow Help</source>
            <translation>Brenlow-Hilfe</translation>
        </message>
        <message>
            <source>Support</source>
            <translation>Support</translation>
        </message>
        <message>
            <source>Send Feedback</source>
            <translation>Feedback senden</translation>
        </message>
        <message>
            <source>Brenlow Website</source>
            <translation>Brenlow-Website</translation>
        </message>
        <message>
            <source>More Products</source>
            <translation>Weitere Produkte</translation>
        </message>
        <message>
            <source>Brenlow on Facebook</source>
            <translation>Brenlow auf Facebook</translation>
        </message>
        <message>
            <source>Version </source>
            <translation>Version </translation>
        </message>
        <message>
            <source>About Brenlow</source>
            <translation>Über Brenlow</translation>
        </message>
        <message>
            <source>Keep a Local Log of Usage Events</source>
            <translation>Nutzungsereignisse lokal protokollieren</translation>
        </message>
        <message>
            <source>Quit Brenlow</source>
            <translation>Brenlow beenden</translation>
        </message>
        <message>
            <source>Language</source>
            <translation>Sprache</translation>
        </message>
        <message>
            <source>Help</source>
            <translation>Hilfe</translation>
        </message>
        <message>
            <source>Subscribe to News…</source>
            <translation>Neuigkeiten abonnieren …</translation>
        </message>
        <message>
            <source>Warn</source>
            <translation>Warnung</translation>
        </message>
        <message>
            <source>Info</source>
            <translation>Information</translation>
        </message>
        <message>
            <source>OK</source>
            <translation>OK</translation>
        </message>
        <message>
            <source>Confirm</source>
            <translation>Bestätigen</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Abbrechen</translation>
        </message>
        <message>
            <source>OverTime</source>
            <translation>Zeitüberschreitung</translation>
        </message>
        <message>
            <source>delete fail</source>
            <translation>Löschen fehlgeschlagen</translation>
        </message>
        <message>
            <source>nocause</source>
            <translation>Unbekannte Ursache</translation>
        </message>
        <message>
            <source>shredfail</source>
            <translation>Sicheres Löschen fehlgeschlagen</translation>
        </message>
        <message>
            <source>movefail</source>
            <translation>Verschieben fehlgeschlagen</translation>
        </message>
        <message>
            <source>stop</source>
            <translation>Angehalten</translation>
        </message>
        <message>
            <source>get root fail</source>
            <translation>Keine Administratorrechte erhalten</translation>
        </message>
        <message>
            <source>UnKnown</source>
            <translation>Unbekannt</translation>
        </message>
        <message>
            <source>A failure when referencing a bundle that doesn't exist</source>
            <translation>Fehler beim Verweis auf ein nicht vorhandenes Paket</translation>
        </message>
        <message>
            <source>A failure when trying to get the SecStaticCode for a bundle, but it is unsigned</source>
            <translation>Fehler beim Lesen des Codes eines nicht signierten Pakets</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecStaticCodeCreateWithPath</source>
            <translation>Unbekannter Fehler beim Erstellen der Code-Informationen</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecCodeCopySigningInformation for a bundle</source>
            <translation>Unbekannter Fehler beim Lesen der Signatur eines Pakets</translation>
        </message>
        <message>
            <source>Failure when calling SMJobBless</source>
            <translation>Installation des Hilfsprogramms fehlgeschlagen</translation>
        </message>
        <message>
            <source>Authorization was denied by the system when asking a user for authorization</source>
            <translation>Das System hat die angeforderte Berechtigung verweigert</translation>
        </message>
        <message>
            <source>The user canceled a prompt for authorization</source>
            <translation>Die Berechtigungsabfrage wurde abgebrochen</translation>
        </message>
        <message>
            <source>Unable to prompt the user (interaction disallowed)</source>
            <translation>Berechtigung kann nicht abgefragt werden (Interaktion nicht erlaubt)</translation>
        </message>
        <message>
            <source>Unknown failure when prompting the user for authorization</source>
            <translation>Unbekannter Fehler bei der Berechtigungsabfrage</translation>
        </message>
        <message>
            <source>Unkown Error!</source>
            <translation>Unbekannter Fehler!</translation>
        </message>
        <message>
            <source>Scanning Mail Attachments From</source>
            <translation>Mailanhänge werden gescannt aus</translation>
        </message>
        <message>
            <source>Scanning Cached Mail From</source>
            <translation>Zwischengespeicherte E-Mails werden gescannt aus</translation>
        </message>
        <message>
            <source>1 byte</source>
            <translation>1 Byte</translation>
        </message>
        <message>
            <source>%1 bytes</source>
            <translation>%1 Bytes</translation>
        </message>
        <message>
            <source>1 item</source>
            <translation>1 Objekt</translation>
        </message>
        <message>
            <source>To be removed: %1</source>
            <translation>Wird entfernt: %1</translation>
        </message>
        <message>
            <source>Done</source>
            <translation>Fertig</translation>
        </message>
        <message>
            <source>Cleaned</source>
            <translation>Bereinigt</translation>
        </message>
        <message>
            <source>Total</source>
            <translation>Gesamt</translation>
        </message>
        <message>
            <source>Auto Cleanup</source>
            <translation>Automatische Bereinigung</translation>
        </message>
        <message>
            <source>Scan and clean all junk with one click</source>
            <translation>Den gesamten Datenmüll mit einem Klick scannen und bereinigen</translation>
        </message>
        <message>
            <source>Finds caches, logs, cached mail and trash at once</source>
            <translation>Findet Caches, Protokolle, zwischengespeicherte E-Mails und Papierkorb auf einmal</translation>
        </message>
        <message>
            <source>Cleans only what you leave selected</source>
            <translation>Bereinigt nur, was ausgewählt bleibt</translation>
        </message>
        <message>
            <source>System Junk</source>
            <translation>Systemmüll</translation>
        </message>
        <message>
            <source>Caches, logs and leftovers of the system and your applications</source>
            <translation>Caches, Protokolle und Reste des Systems und Ihrer Programme</translation>
        </message>
        <message>
            <source>Photo Cache</source>
            <translation>Foto-Cache</translation>
        </message>
        <message>
            <source>Thumbnails and previews your photo tools can make again</source>
            <translation>Miniaturen und Vorschauen, die Ihre Foto-Programme neu erstellen können</translation>
        </message>
        <message>
            <source>Mail Trash</source>
            <translation>Mail-Müll</translation>
        </message>
        <message>
            <source>Messages your mail client keeps copies of</source>
            <translation>Nachrichten, von denen Ihr Mailprogramm Kopien aufbewahrt</translation>
        </message>
        <message>
            <source>Trash Bin</source>
            <translation>Papierkorb</translation>
        </message>
        <message>
            <source>Items waiting in the Trash, on this computer and on removable drives</source>
            <translation>Objekte im Papierkorb dieses Computers und der Wechsellaufwerke</translation>
        </message>
        <message>
            <source>iTunes Junk</source>
            <translation>iTunes-Müll</translation>
        </message>
        <message>
            <source>Old device backups and software updates</source>
            <translation>Alte Gerätebackups und Softwareupdates</translation>
        </message>
        <message>
            <source>Remove caches, logs and files your applications no longer need</source>
            <translation>Caches, Protokolle und Dateien entfernen, die Ihre Programme nicht mehr brauchen</translation>
        </message>
        <message>
            <source>Caches and logs of the system and your applications</source>
            <translation>Caches und Protokolle des Systems und Ihrer Programme</translation>
        </message>
        <message>
            <source>Translations you never use</source>
            <translation>Übersetzungen, die Sie nie benutzen</translation>
        </message>
        <message>
            <source>User Cache</source>
            <translation>Benutzer-Cache</translation>
        </message>
        <message>
            <source>Files your applications keep to work faster; they make them again when needed</source>
            <translation>Dateien, die Ihre Programme zum schnelleren Arbeiten behalten; bei Bedarf werden sie neu erstellt</translation>
        </message>
        <message>
            <source>System Cache</source>
            <translation>System-Cache</translation>
        </message>
        <message>
            <source>Downloaded software packages that were already installed</source>
            <translation>Heruntergeladene Softwarepakete, die bereits installiert sind</translation>
        </message>
        <message>
            <source>User Logs</source>
            <translation>Benutzerprotokolle</translation>
        </message>
        <message>
            <source>Activity records of your desktop session</source>
            <translation>Aktivitätsprotokolle Ihrer Desktop-Sitzung</translation>
        </message>
        <message>
            <source>Crash Reports</source>
            <translation>Absturzberichte</translation>
        </message>
        <message>
            <source>Reports and memory dumps of programs that stopped unexpectedly</source>
            <translation>Berichte und Speicherabbilder unerwartet beendeter Programme</translation>
        </message>
        <message>
            <source>Language Files</source>
            <translation>Sprachdateien</translation>
        </message>
        <message>
            <source>Translations of your applications into languages you do not use</source>
            <translation>Übersetzungen Ihrer Programme in Sprachen, die Sie nicht benutzen</translation>
        </message>
        <message>
            <source>Free the space of previews your photo tools can make again</source>
            <translation>Speicher von Vorschauen freigeben, die Ihre Foto-Programme neu erstellen können</translation>
        </message>
        <message>
            <source>Your photos themselves are never touched</source>
            <translation>Ihre Fotos selbst bleiben unangetastet</translation>
        </message>
        <message>
            <source>Thumbnails and previews that your photo tools make again</source>
            <translation>Miniaturen und Vorschauen, die Ihre Foto-Programme neu erstellen</translation>
        </message>
        <message>
            <source>Remove the copies of messages your mail client keeps</source>
            <translation>Entfernen Sie die Nachrichtenkopien Ihres Mailprogramms</translation>
        </message>
        <message>
            <source>The messages stay in your mailbox</source>
            <translation>Die Nachrichten bleiben in Ihrem Postfach</translation>
        </message>
        <message>
            <source>Cached Messages</source>
            <translation>Zwischengespeicherte Nachrichten</translation>
        </message>
        <message>
            <source>Copies of messages kept on your mail server</source>
            <translation>Kopien von Nachrichten, die auf Ihrem Mailserver liegen</translation>
        </message>
        <message>
            <source>Empty the Trash of this computer and of removable drives</source>
            <translation>Den Papierkorb dieses Computers und der Wechsellaufwerke leeren</translation>
        </message>
        <message>
            <source>Every Trash at once</source>
            <translation>Alle Papierkörbe auf einmal</translation>
        </message>
        <message>
            <source>Trash</source>
            <translation>Papierkorb</translation>
        </message>
        <message>
            <source>Items in your Trash</source>
            <translation>Objekte in Ihrem Papierkorb</translation>
        </message>
        <message>
            <source>Removable Volumes Trash</source>
            <translation>Papierkorb der Wechseldatenträger</translation>
        </message>
        <message>
            <source>Items in the Trash of your removable drives</source>
            <translation>Objekte im Papierkorb Ihrer Wechsellaufwerke</translation>
        </message>
        <message>
            <source>Remove old device backups and software updates</source>
            <translation>Alte Gerätebackups und Softwareupdates entfernen</translation>
        </message>
        <message>
            <source>Old backups of your devices</source>
            <translation>Alte Backups Ihrer Geräte</translation>
        </message>
        <message>
            <source>Downloaded updates</source>
            <translation>Heruntergeladene Updates</translation>
        </message>
        <message>
            <source>iOS Device Backups</source>
            <translation>iOS-Gerätebackups</translation>
        </message>
        <message>
            <source>Backups of your iPhone, iPad and iPod</source>
            <translation>Backups Ihres iPhone, iPad und iPod</translation>
        </message>
        <message>
            <source>iOS Software Updates</source>
            <translation>iOS-Softwareupdates</translation>
        </message>
        <message>
            <source>Downloaded software updates for your devices</source>
            <translation>Heruntergeladene Softwareupdates für Ihre Geräte</translation>
        </message>
        <message>
            <source>Duplicates</source>
            <translation>Duplikate</translation>
        </message>
        <message>
            <source>Find identical files and keep one of each</source>
            <translation>Identische Dateien finden und je eine behalten</translation>
        </message>
        <message>
            <source>Compares content, not names</source>
            <translation>Vergleicht Inhalte, nicht Namen</translation>
        </message>
        <message>
            <source>Large and Old Files</source>
            <translation>Große und alte Dateien</translation>
        </message>
        <message>
            <source>Find big files and files you have not opened for a long time</source>
            <translation>Große Dateien und lange nicht geöffnete Dateien finden</translation>
        </message>
        <message>
            <source>Sorted by size and by age</source>
            <translation>Nach Größe und Alter sortiert</translation>
        </message>
        <message>
            <source>Similar Images</source>
            <translation>Ähnliche Bilder</translation>
        </message>
        <message>
            <source>Find pictures that look alike</source>
            <translation>Bilder finden, die sich ähneln</translation>
        </message>
        <message>
            <source>Keeps the best of each group</source>
            <translation>Behält das beste jeder Gruppe</translation>
        </message>
        <message>
            <source>Uninstaller</source>
            <translation>Deinstallation</translation>
        </message>
        <message>
            <source>Remove applications together with their leftovers</source>
            <translation>Programme samt ihren Resten entfernen</translation>
        </message>
        <message>
            <source>Settings, caches and support files</source>
            <translation>Einstellungen, Caches und Hilfsdateien</translation>
        </message>
        <message>
            <source>Eraser</source>
            <translation>Schredder</translation>
        </message>
        <message>
            <source>Erase files so that they cannot be recovered</source>
            <translation>Dateien so löschen, dass sie nicht wiederhergestellt werden können</translation>
        </message>
        <message>
            <source>Overwrites before removing</source>
            <translation>Überschreibt vor dem Entfernen</translation>
        </message>
        <message>
            <source>Privacy</source>
            <translation>Datenschutz</translation>
        </message>
        <message>
            <source>Remove browsing history, cookies and other traces</source>
            <translation>Verlauf, Cookies und andere Spuren entfernen</translation>
        </message>
        <message>
            <source>Chrome and Firefox</source>
            <translation>Chrome und Firefox</translation>
        </message>
        <message>
            <source>Extensions</source>
            <translation>Erweiterungen</translation>
        </message>
        <message>
            <source>Manage the extensions and plug-ins of your system</source>
            <translation>Erweiterungen und Plug-ins Ihres Systems verwalten</translation>
        </message>
        <message>
            <source>Turn them off without removing them</source>
            <translation>Ausschalten, ohne sie zu entfernen</translation>
        </message>
        <message>
            <source>Cleanup</source>
            <translation>Bereinigung</translation>
        </message>
        <message>
            <source>Tools</source>
            <translation>Werkzeuge</translation>
        </message>
        <message>
            <source>Finds caches, logs, mail attachments and trash at once</source>
            <translation>Findet Caches, Protokolle, Mailanhänge und Papierkorb auf einmal</translation>
        </message>
        <message>
            <source>Attachments your mail client already downloaded</source>
            <translation>Anhänge, die Ihr Mailprogramm bereits geladen hat</translation>
        </message>
        <message>
            <source>Temporary files the system left behind</source>
            <translation>Temporäre Dateien, die das System hinterlassen hat</translation>
        </message>
        <message>
            <source>Activity records of your applications</source>
            <translation>Aktivitätsprotokolle Ihrer Programme</translation>
        </message>
        <message>
            <source>System Logs</source>
            <translation>Systemprotokolle</translation>
        </message>
        <message>
            <source>Activity records of the system</source>
            <translation>Aktivitätsprotokolle des Systems</translation>
        </message>
        <message>
            <source>Faces and previews that the photo library makes again</source>
            <translation>Gesichter und Vorschauen, die die Fotomediathek neu erstellt</translation>
        </message>
        <message>
            <source>Remove mail attachments you already downloaded</source>
            <translation>Bereits geladene Mailanhänge entfernen</translation>
        </message>
        <message>
            <source>Mail Attachments</source>
            <translation>Mailanhänge</translation>
        </message>
        <message>
            <source>Attachments Mail downloaded to show them</source>
            <translation>Anhänge, die Mail zum Anzeigen geladen hat</translation>
        </message>
        <message>
            <source>iTunes Cache</source>
            <translation>iTunes-Cache</translation>
        </message>
        <message>
            <source>Files iTunes keeps to work faster</source>
            <translation>Dateien, die iTunes zum schnelleren Arbeiten behält</translation>
        </message>
        <message>
            <source>Chrome, Firefox and Safari</source>
            <translation>Chrome, Firefox und Safari</translation>
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
            <translation>Verlauf, Downloads, Cookies, Anmeldungen und Website-Daten von Chrome</translation>
        </message>
        <message>
            <source>History, downloads, cookies, logins and website data of Firefox</source>
            <translation>Verlauf, Downloads, Cookies, Anmeldungen und Website-Daten von Firefox</translation>
        </message>
        <message>
            <source>History, downloads and website data of Safari</source>
            <translation>Verlauf, Downloads und Website-Daten von Safari</translation>
        </message>
        <message>
            <source>Safari keeps nothing on this system</source>
            <translation>Safari speichert auf diesem System nichts</translation>
        </message>
        <message>
            <source>Visit History</source>
            <translation>Besuchte Seiten</translation>
        </message>
        <message>
            <source>Downloads History</source>
            <translation>Download-Verlauf</translation>
        </message>
        <message>
            <source>Downloaded Files</source>
            <translation>Heruntergeladene Dateien</translation>
        </message>
        <message>
            <source>Search History</source>
            <translation>Suchverlauf</translation>
        </message>
        <message>
            <source>Cookies</source>
            <translation>Cookies</translation>
        </message>
        <message>
            <source>Login History</source>
            <translation>Anmeldungen</translation>
        </message>
        <message>
            <source>Auto Fill History</source>
            <translation>Formulardaten</translation>
        </message>
        <message>
            <source>HTML5 Local Storage</source>
            <translation>Lokaler HTML5-Speicher</translation>
        </message>
        <message>
            <source>Larger than 100 MB</source>
            <translation>Größer als 100 MB</translation>
        </message>
        <message>
            <source>Files of more than 100 MB</source>
            <translation>Dateien mit mehr als 100 MB</translation>
        </message>
        <message>
            <source>Larger than 5 MB</source>
            <translation>Größer als 5 MB</translation>
        </message>
        <message>
            <source>Files of more than 5 MB, up to 100 MB</source>
            <translation>Dateien mit mehr als 5 MB, bis 100 MB</translation>
        </message>
        <message>
            <source>Older than a year</source>
            <translation>Älter als ein Jahr</translation>
        </message>
        <message>
            <source>Files last changed more than a year ago</source>
            <translation>Dateien, die vor mehr als einem Jahr zuletzt geändert wurden</translation>
        </message>
        <message>
            <source>Older than a month</source>
            <translation>Älter als ein Monat</translation>
        </message>
        <message>
            <source>Files last changed more than a month ago, within the year</source>
            <translation>Dateien, die vor mehr als einem Monat, aber innerhalb des Jahres zuletzt geändert wurden</translation>
        </message>
        <message>
            <source>Analyzing Data</source>
            <translation>Daten werden analysiert</translation>
        </message>
        <message>
            <source>Collating data</source>
            <translation>Daten werden zusammengestellt</translation>
        </message>
        <message>
            <source>Videos </source>
            <translation>Videos </translation>
        </message>
        <message>
            <source>Music </source>
            <translation>Musik </translation>
        </message>
        <message>
            <source>Images </source>
            <translation>Bilder </translation>
        </message>
        <message>
            <source>Documents </source>
            <translation>Dokumente </translation>
        </message>
        <message>
            <source>Others</source>
            <translation>Andere</translation>
        </message>
        <message>
            <source>All</source>
            <translation>Alle</translation>
        </message>
        <message>
            <source>Not the same file</source>
            <translation>Keine gleiche Datei</translation>
        </message>
        <message>
            <source>No File</source>
            <translation>Keine Datei</translation>
        </message>
        <message>
            <source>There are no files available for duplication</source>
            <translation>Es gibt keine doppelten Dateien</translation>
        </message>
        <message>
            <source>The number entered can only be an integer</source>
            <translation>Die eingegebene Zahl kann nur eine ganze Zahl sein</translation>
        </message>
        <message>
            <source>Duplicate Finder Configuration</source>
            <translation>Duplikatsuche einrichten</translation>
        </message>
        <message>
            <source>File in ***kb smaller than the below value will be automatically skipped.</source>
            <translation>Dateien mit ***kb oder weniger als dem folgenden Wert werden automatisch übersprungen.</translation>
        </message>
        <message>
            <source>Cores</source>
            <translation>Kerne</translation>
        </message>
        <message>
            <source>Available</source>
            <translation>Verfügbar</translation>
        </message>
        <message>
            <source>Battery</source>
            <translation>Batterie</translation>
        </message>
        <message>
            <source>CPU</source>
            <translation>CPU</translation>
        </message>
        <message>
            <source>Charge Cycles</source>
            <translation>Ladezyklen</translation>
        </message>
        <message>
            <source>Disk</source>
            <translation>Festplatte</translation>
        </message>
        <message>
            <source>Free</source>
            <translation>Frei</translation>
        </message>
        <message>
            <source>Memory</source>
            <translation>Arbeitsspeicher</translation>
        </message>
        <message>
            <source>Network</source>
            <translation>Netzwerk</translation>
        </message>
        <message>
            <source>No Battery Service Found</source>
            <translation>Keine Batterie gefunden</translation>
        </message>
        <message>
            <source>Used</source>
            <translation>Belegt</translation>
        </message>
        <message>
            <source>User</source>
            <translation>Benutzer</translation>
        </message>
        <message>
            <source>Optimize Mac</source>
            <translation>Mac optimieren</translation>
        </message>
        <message>
            <source>Optimize %1</source>
            <translation>%1 optimieren</translation>
        </message>
        <message>
            <source>Configuration</source>
            <translation>Einstellungen</translation>
        </message>
        <message>
            <source>Duplicate Finder…</source>
            <translation>Duplikatsuche…</translation>
        </message>
        <message>
            <source>Choose Folder…</source>
            <translation>Ordner wählen…</translation>
        </message>
        <message>
            <source>Folder: </source>
            <translation>Ordner: </translation>
        </message>
        <message>
            <source>Choose the folder to search for duplicates</source>
            <translation>Ordner für die Duplikatsuche wählen</translation>
        </message>
        <message>
            <source>Organize Data</source>
            <translation>Daten werden geordnet</translation>
        </message>
        <message>
            <source>There are no files available for deduplication</source>
            <translation>Es gibt keine ähnlichen Bilder</translation>
        </message>
        <message>
            <source>Picture</source>
            <translation>Bild</translation>
        </message>
            <message>
            <source>%1 records</source>
            <translation>%1 Einträge</translation>
        </message>
        <message>
            <source>The file is damaged and cannot be viewed</source>
            <translation>Die Datei ist beschädigt und kann nicht angezeigt werden</translation>
        </message>
        <message>
            <source>shred_sameFile_text</source>
            <translation>Dieses Objekt wurde bereits ausgewählt</translation>
        </message>
        <message>
            <source>Add Files</source>
            <translation>Dateien hinzufügen</translation>
        </message>
        <message>
            <source>Add Folder</source>
            <translation>Ordner hinzufügen</translation>
        </message>
        <message>
            <source>Name (A to Z)</source>
            <translation>Name (A bis Z)</translation>
        </message>
        <message>
            <source>Name (Z to A)</source>
            <translation>Name (Z bis A)</translation>
        </message>
        <message>
            <source>Remove from the list</source>
            <translation>Aus der Liste entfernen</translation>
        </message>
        <message>
            <source>Decompression</source>
            <translation>Entpacken</translation>
        </message>
        <message>
            <source>Decompression Progress :</source>
            <translation>Fortschritt beim Entpacken :</translation>
        </message>
        <message>
            <source>Enter Password :</source>
            <translation>Passwort eingeben :</translation>
        </message>
        <message>
            <source>Compress Failed</source>
            <translation>Komprimierung fehlgeschlagen</translation>
        </message>
        <message>
            <source>Decompress Failed</source>
            <translation>Entpacken fehlgeschlagen</translation>
        </message>
        <message>
            <source>Not shredded</source>
            <translation>Nicht geschreddert</translation>
        </message>
        <message>
            <source>Back to the list</source>
            <translation>Zurück zur Liste</translation>
        </message>
        <message>
            <source>In-depth Uninstallation</source>
            <translation>Gründliche Deinstallation</translation>
        </message>
        <message>
            <source>Would you like to completely remove the app and its leftovers</source>
            <translation>Möchten Sie die App mit allen Resten vollständig entfernen</translation>
        </message>
        <message>
            <source>Clean Fail</source>
            <translation>Bereinigung fehlgeschlagen</translation>
        </message>
        <message>
            <source>Cleanup Completed</source>
            <translation>Bereinigung abgeschlossen</translation>
        </message>
        <message>
            <source>You had clean </source>
            <translation>Sie haben bereinigt: </translation>
        </message>
        <message>
            <source>Switched off</source>
            <translation>Ausgeschaltet</translation>
        </message>
        <message>
            <source>Switched on</source>
            <translation>Eingeschaltet</translation>
        </message>
        <message>
            <source>The helper refused to move it: it lies in none of the extension folders, or an item of its name is already where it would go</source>
            <translation>Das Hilfsprogramm hat das Verschieben abgelehnt: Es liegt in keinem der Erweiterungsordner, oder am Ziel liegt bereits ein Objekt dieses Namens</translation>
        </message>
        <message>
            <source>Startup Applications</source>
            <translation>Autostart-Programme</translation>
        </message>
        <message>
            <source>Programs that start when you log in</source>
            <translation>Programme, die beim Anmelden starten</translation>
        </message>
        <message>
            <source>User Services</source>
            <translation>Benutzerdienste</translation>
        </message>
        <message>
            <source>Services of your session that systemd starts for you</source>
            <translation>Dienste Ihrer Sitzung, die systemd für Sie startet</translation>
        </message>
        <message>
            <source>Shell Extensions</source>
            <translation>Shell-Erweiterungen</translation>
        </message>
        <message>
            <source>Extensions that load into the GNOME Shell</source>
            <translation>Erweiterungen, die in die GNOME Shell geladen werden</translation>
        </message>
        <message>
            <source>Browser Plug-ins</source>
            <translation>Browser-Plug-ins</translation>
        </message>
        <message>
            <source>Plug-ins that load into Firefox</source>
            <translation>Plug-ins, die in Firefox geladen werden</translation>
        </message>
        <message>
            <source>Launch Agents</source>
            <translation>Startagenten</translation>
        </message>
        <message>
            <source>Internet Plug-ins</source>
            <translation>Internet-Plug-ins</translation>
        </message>
        <message>
            <source>Plug-ins that load into web browsers</source>
            <translation>Plug-ins, die in Webbrowser geladen werden</translation>
        </message>
        <message>
            <source>Preference Panes</source>
            <translation>Systemeinstellungsbereiche</translation>
        </message>
        <message>
            <source>Panes that load into System Preferences</source>
            <translation>Bereiche, die in die Systemeinstellungen geladen werden</translation>
        </message>
        <message>
            <source>On</source>
            <translation>Ein</translation>
        </message>
        <message>
            <source>Off</source>
            <translation>Aus</translation>
        </message>
        <message>
            <source>Turn it off</source>
            <translation>Ausschalten</translation>
        </message>
        <message>
            <source>Turn it on</source>
            <translation>Einschalten</translation>
        </message>
        <message>
            <source>Name</source>
            <translation>Name</translation>
        </message>
        <message>
            <source>Path</source>
            <translation>Pfad</translation>
        </message>
        <message>
            <source>Size</source>
            <translation>Größe</translation>
        </message>
        <message>
            <source>Enable NTFS</source>
            <translation>NTFS aktivieren</translation>
        </message>
        <message>
            <source>No NTFS volume is mounted.</source>
            <translation>Es ist kein NTFS-Laufwerk eingehängt.</translation>
        </message>
        <message>
            <source>Are your sure to activate NTFS?</source>
            <translation>Möchten Sie NTFS wirklich aktivieren?</translation>
        </message>
        <message>
            <source>Activate the system's ntfs function</source>
            <translation>Die eingehängten NTFS-Laufwerke werden zum Schreiben neu eingehängt.</translation>
        </message>
        <message>
            <source>Activate Success!</source>
            <translation>Aktiviert</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function success</source>
            <translation>Die NTFS-Laufwerke sind jetzt beschreibbar.</translation>
        </message>
        <message>
            <source>Activate Fail!</source>
            <translation>Aktivierung fehlgeschlagen</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function failed</source>
            <translation>Die NTFS-Schreibfunktion konnte nicht aktiviert werden.</translation>
        </message>
        <message>
            <source>it is not mounted any more</source>
            <translation>es ist nicht mehr eingehängt</translation>
        </message>
        <message>
            <source>it is not an NTFS volume</source>
            <translation>es ist kein NTFS-Laufwerk</translation>
        </message>
        <message>
            <source>Windows did not close it cleanly; check it in Windows first</source>
            <translation>Windows hat es nicht sauber geschlossen; prüfen Sie es zuerst unter Windows</translation>
        </message>
        <message>
            <source>Windows is hibernated on it; shut Windows down fully first</source>
            <translation>Windows ist darauf im Ruhezustand; fahren Sie Windows zuerst vollständig herunter</translation>
        </message>
        <message>
            <source>no NTFS driver that writes is installed</source>
            <translation>es ist kein NTFS-Treiber mit Schreibzugriff installiert</translation>
        </message>
        <message>
            <source>it is in use; close its files and try again</source>
            <translation>es wird verwendet; schließen Sie die Dateien darauf und versuchen Sie es erneut</translation>
        </message>
        <message>
            <source>the driver refused it; it stays read-only</source>
            <translation>der Treiber hat es abgelehnt; es bleibt schreibgeschützt</translation>
        </message>
        <message>
            <source>it was left as it was</source>
            <translation>es blieb unverändert</translation>
        </message>
        <message>
            <source>Nothing of this application is left</source>
            <translation>Von dieser Anwendung ist nichts mehr übrig</translation>
        </message>
        <message>
            <source>The application itself</source>
            <translation>Die Anwendung selbst</translation>
        </message>
        <message>
            <source>Left behind by the application</source>
            <translation>Von der Anwendung zurückgelassen</translation>
        </message>
    </context>
</TS>
