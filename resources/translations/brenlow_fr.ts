<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
    <context>
        <name>English</name>
        <message>
            <source>Clean</source>
            <translation>Nettoyer</translation>
        </message>
        <message>
            <source>Stop</source>
            <translation>Arrêter</translation>
        </message>
        <message>
            <source>Scan</source>
            <translation>Analyser</translation>
        </message>
        <message>
            <source>Re-Scan</source>
            <translation>Analyser à nouveau</translation>
        </message>
        <message>
            <source>Review</source>
            <translation>Examiner</translation>
        </message>
        <message>
            <source>View Log</source>
            <translation>Voir le journal</translation>
        </message>
        <message>
            <source>Hide Log</source>
            <translation>Masquer le journal</translation>
        </message>
        <message>
            <source>Found </source>
            <translation>Trouvé : </translation>
        </message>
        <message>
            <source>Selected: </source>
            <translation>Sélectionné : </translation>
        </message>
        <message>
            <source>Cleaning...</source>
            <translation>Nettoyage...</translation>
        </message>
        <message>
            <source>Cleaned: </source>
            <translation>Nettoyé : </translation>
        </message>
        <message>
            <source>%1 items</source>
            <translation>%1 éléments</translation>
        </message>
        <message>
            <source>Available in a later version</source>
            <translation>Disponible dans une version ultérieure</translation>
        </message>
        <message>
            <source>Confirmation</source>
            <translation>Confirmation</translation>
        </message>
        <message>
            <source>Are you sure to delete selected files?</source>
            <translation>Voulez-vous vraiment supprimer les fichiers sélectionnés ?</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You - Brenlow</source>
            <translation>Bonjour ! Ravis de vous rencontrer - Brenlow</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You</source>
            <translation>Bonjour ! Ravis de vous rencontrer</translation>
        </message>
        <message>
            <source>Thank you for installing!</source>
            <translation>Merci de l’avoir installé !</translation>
        </message>
        <message>
            <source>Enter your email</source>
            <translation>Saisissez votre adresse e-mail</translation>
        </message>
        <message>
            <source>Subscribe</source>
            <translation>S’abonner</translation>
        </message>
        <message>
            <source>Visit Our Website</source>
            <translation>Visiter notre site web</translation>
        </message>
        <message>
            <source>Launch Brenlow</source>
            <translation>Lancer Brenlow</translation>
        </message>
        <message>
            <source>ERROR</source>
            <translation>ERREUR</translation>
        </message>
        <message>
            <source>The email address can't be empty!</source>
            <translation>L’adresse e-mail ne peut pas être vide !</translation>
        </message>
        <message>
            <source>The input format is incorrect!</source>
            <translation>Le format saisi est incorrect !</translation>
        </message>
        <message>
            <source>Success</source>
            <translation>Réussi</translation>
        </message>
        <message>
            <source>Thanks for Subscribing!</source>
            <translation>Merci de votre abonnement !</translation>
        </message>
        <message>
            <source>Show in Folder</source>
            <translation>Afficher dans le dossier</translation>
        </message>
        <message>
            <source>Search</source>
            <translation>Rechercher</translation>
        </message>
        <message>
            <source>Back</source>
            <translation>Retour</translation>
        </message>
        <message>
            <source>Sort</source>
            <translation>Trier</translation>
        </message>
        <message>
            <source>Empty</source>
            <translation>Vide</translation>
        </message>
        <message>
            <source>Deselect All</source>
            <translation>Tout désélectionner</translation>
        </message>
        <message>
            <source>Select All</source>
            <translation>Tout sélectionner</translation>
        </message>
        <message>
            <source>Error</source>
            <translation>Erreur</translation>
        </message>
        <message>
            <source>This category is empty!</source>
            <translation>Cette catégorie est vide !</translation>
        </message>
        <message>
            <source>Scanning</source>
            <translation>Analyse en cours</translation>
        </message>
        <message>
            <source>Nothing to Clean</source>
            <translation>Rien à nettoyer</translation>
        </message>
        <message>
            <source>Scan Done</source>
            <translation>Analyse terminée</translation>
        </message>
        <message>
            <source>Your disk is tidy here.</source>
            <translation>Votre disque est propre ici.</translation>
        </message>
        <message>
            <source>Clean Log</source>
            <translation>Journal de nettoyage</translation>
        </message>
        <message>
            <source>Clean Done</source>
            <translation>Nettoyage terminé</translation>
        </message>
        <message>
            <source>Failed</source>
            <translation>Échec</translation>
        </message>
        <message>
            <source>Nothing failed.</source>
            <translation>Aucun échec.</translation>
        </message>
        <message>
            <source>Brenlow</source>
            <translation>Brenlow</translation>
        </message>
        <message>
            <source>Brenlow Help</source>
            <translation>Aide de Brenlow</translation>
        </message>
        <message>
            <source>Support</source>
            <translation>Assistance</translation>
        </message>
        <message>
            <source>Send Feedback</source>
            <translation>Envoyer un avis</translation>
        </message>
        <message>
            <source>Brenlow Website</source>
            <translation>Site web de Brenlow</translation>
        </message>
        <message>
            <source>More Products</source>
            <translation>Autres produits</translation>
        </message>
        <message>
            <source>Brenlow on Facebook</source>
            <translation>Brenlow sur Facebook</translation>
        </message>
        <message>
            <source>Version </source>
            <translation>Version </translation>
        </message>
        <message>
            <source>About Brenlow</source>
            <translation>À propos de Brenlow</translation>
        </message>
        <message>
            <source>Keep a Local Log of Usage Events</source>
            <translation>Tenir un journal local d’utilisation</translation>
        </message>
        <message>
            <source>Quit Brenlow</source>
            <translation>Quitter Brenlow</translation>
        </message>
        <message>
            <source>Language</source>
            <translation>Langue</translation>
        </message>
        <message>
            <source>Help</source>
            <translation>Aide</translation>
        </message>
        <message>
            <source>Subscribe to News…</source>
            <translation>S’abonner aux nouveautés…</translation>
        </message>
        <message>
            <source>Warn</source>
            <translation>Avertissement</translation>
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
            <translation>Confirmer</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Annuler</translation>
        </message>
        <message>
            <source>OverTime</source>
            <translation>Délai dépassé</translation>
        </message>
        <message>
            <source>delete fail</source>
            <translation>Suppression impossible</translation>
        </message>
        <message>
            <source>nocause</source>
            <translation>Cause inconnue</translation>
        </message>
        <message>
            <source>shredfail</source>
            <translation>Effacement sécurisé impossible</translation>
        </message>
        <message>
            <source>movefail</source>
            <translation>Déplacement impossible</translation>
        </message>
        <message>
            <source>stop</source>
            <translation>Arrêté</translation>
        </message>
        <message>
            <source>get root fail</source>
            <translation>Droits d’administrateur non obtenus</translation>
        </message>
        <message>
            <source>UnKnown</source>
            <translation>Inconnu</translation>
        </message>
        <message>
            <source>A failure when referencing a bundle that doesn't exist</source>
            <translation>Échec lors de la référence à un paquet inexistant</translation>
        </message>
        <message>
            <source>A failure when trying to get the SecStaticCode for a bundle, but it is unsigned</source>
            <translation>Échec lors de la lecture du code d’un paquet non signé</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecStaticCodeCreateWithPath</source>
            <translation>Échec inconnu lors de la création des informations de code</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecCodeCopySigningInformation for a bundle</source>
            <translation>Échec inconnu lors de la lecture de la signature d’un paquet</translation>
        </message>
        <message>
            <source>Failure when calling SMJobBless</source>
            <translation>Échec de l’installation de l’assistant</translation>
        </message>
        <message>
            <source>Authorization was denied by the system when asking a user for authorization</source>
            <translation>Le système a refusé l’autorisation demandée</translation>
        </message>
        <message>
            <source>The user canceled a prompt for authorization</source>
            <translation>La demande d’autorisation a été annulée</translation>
        </message>
        <message>
            <source>Unable to prompt the user (interaction disallowed)</source>
            <translation>Impossible de demander l’autorisation (interaction interdite)</translation>
        </message>
        <message>
            <source>Unknown failure when prompting the user for authorization</source>
            <translation>Échec inconnu lors de la demande d’autorisation</translation>
        </message>
        <message>
            <source>Unkown Error!</source>
            <translation>Erreur inconnue !</translation>
        </message>
        <message>
            <source>Scanning Mail Attachments From</source>
            <translation>Analyse des pièces jointes de</translation>
        </message>
        <message>
            <source>Scanning Cached Mail From</source>
            <translation>Analyse du courrier en cache de</translation>
        </message>
        <message>
            <source>1 byte</source>
            <translation>1 octet</translation>
        </message>
        <message>
            <source>%1 bytes</source>
            <translation>%1 octets</translation>
        </message>
        <message>
            <source>1 item</source>
            <translation>1 élément</translation>
        </message>
        <message>
            <source>To be removed: %1</source>
            <translation>Sera supprimé : %1</translation>
        </message>
        <message>
            <source>Done</source>
            <translation>Terminé</translation>
        </message>
        <message>
            <source>Cleaned</source>
            <translation>Nettoyé</translation>
        </message>
        <message>
            <source>Total</source>
            <translation>Total</translation>
        </message>
        <message>
            <source>Auto Cleanup</source>
            <translation>Nettoyage automatique</translation>
        </message>
        <message>
            <source>Scan and clean all junk with one click</source>
            <translation>Analysez et nettoyez tous les fichiers inutiles en un clic</translation>
        </message>
        <message>
            <source>Finds caches, logs, cached mail and trash at once</source>
            <translation>Trouve en une fois caches, journaux, courrier en cache et corbeille</translation>
        </message>
        <message>
            <source>Cleans only what you leave selected</source>
            <translation>Ne nettoie que ce que vous laissez sélectionné</translation>
        </message>
        <message>
            <source>System Junk</source>
            <translation>Fichiers inutiles du système</translation>
        </message>
        <message>
            <source>Caches, logs and leftovers of the system and your applications</source>
            <translation>Caches, journaux et restes du système et de vos applications</translation>
        </message>
        <message>
            <source>Photo Cache</source>
            <translation>Cache des photos</translation>
        </message>
        <message>
            <source>Thumbnails and previews your photo tools can make again</source>
            <translation>Vignettes et aperçus que vos outils photo peuvent recréer</translation>
        </message>
        <message>
            <source>Mail Trash</source>
            <translation>Fichiers inutiles de Mail</translation>
        </message>
        <message>
            <source>Messages your mail client keeps copies of</source>
            <translation>Messages dont votre client de courrier garde des copies</translation>
        </message>
        <message>
            <source>Trash Bin</source>
            <translation>Corbeille</translation>
        </message>
        <message>
            <source>Items waiting in the Trash, on this computer and on removable drives</source>
            <translation>Éléments de la corbeille de cet ordinateur et des disques amovibles</translation>
        </message>
        <message>
            <source>iTunes Junk</source>
            <translation>Fichiers inutiles d’iTunes</translation>
        </message>
        <message>
            <source>Old device backups and software updates</source>
            <translation>Anciennes sauvegardes d’appareils et mises à jour logicielles</translation>
        </message>
        <message>
            <source>Remove caches, logs and files your applications no longer need</source>
            <translation>Supprimez caches, journaux et fichiers dont vos applications n’ont plus besoin</translation>
        </message>
        <message>
            <source>Caches and logs of the system and your applications</source>
            <translation>Caches et journaux du système et de vos applications</translation>
        </message>
        <message>
            <source>Translations you never use</source>
            <translation>Traductions que vous n’utilisez jamais</translation>
        </message>
        <message>
            <source>User Cache</source>
            <translation>Cache de l’utilisateur</translation>
        </message>
        <message>
            <source>Files your applications keep to work faster; they make them again when needed</source>
            <translation>Fichiers que vos applications gardent pour aller plus vite ; elles les recréent au besoin</translation>
        </message>
        <message>
            <source>System Cache</source>
            <translation>Cache du système</translation>
        </message>
        <message>
            <source>Downloaded software packages that were already installed</source>
            <translation>Paquets logiciels téléchargés déjà installés</translation>
        </message>
        <message>
            <source>User Logs</source>
            <translation>Journaux de l’utilisateur</translation>
        </message>
        <message>
            <source>Activity records of your desktop session</source>
            <translation>Journaux d’activité de votre session de bureau</translation>
        </message>
        <message>
            <source>Crash Reports</source>
            <translation>Rapports de plantage</translation>
        </message>
        <message>
            <source>Reports and memory dumps of programs that stopped unexpectedly</source>
            <translation>Rapports et vidages mémoire de programmes arrêtés de façon inattendue</translation>
        </message>
        <message>
            <source>Language Files</source>
            <translation>Fichiers de langue</translation>
        </message>
        <message>
            <source>Translations of your applications into languages you do not use</source>
            <translation>Traductions de vos applications dans des langues que vous n’utilisez pas</translation>
        </message>
        <message>
            <source>Free the space of previews your photo tools can make again</source>
            <translation>Libérez l’espace des aperçus que vos outils photo peuvent recréer</translation>
        </message>
        <message>
            <source>Your photos themselves are never touched</source>
            <translation>Vos photos elles-mêmes ne sont jamais touchées</translation>
        </message>
        <message>
            <source>Thumbnails and previews that your photo tools make again</source>
            <translation>Vignettes et aperçus que vos outils photo recréent</translation>
        </message>
        <message>
            <source>Remove the copies of messages your mail client keeps</source>
            <translation>Supprimez les copies de messages que garde votre client de courrier</translation>
        </message>
        <message>
            <source>The messages stay in your mailbox</source>
            <translation>Les messages restent dans votre boîte aux lettres</translation>
        </message>
        <message>
            <source>Cached Messages</source>
            <translation>Messages en cache</translation>
        </message>
        <message>
            <source>Copies of messages kept on your mail server</source>
            <translation>Copies de messages conservés sur votre serveur de courrier</translation>
        </message>
        <message>
            <source>Empty the Trash of this computer and of removable drives</source>
            <translation>Videz la corbeille de cet ordinateur et des disques amovibles</translation>
        </message>
        <message>
            <source>Every Trash at once</source>
            <translation>Toutes les corbeilles à la fois</translation>
        </message>
        <message>
            <source>Trash</source>
            <translation>Corbeille</translation>
        </message>
        <message>
            <source>Items in your Trash</source>
            <translation>Éléments de votre corbeille</translation>
        </message>
        <message>
            <source>Removable Volumes Trash</source>
            <translation>Corbeille des volumes amovibles</translation>
        </message>
        <message>
            <source>Items in the Trash of your removable drives</source>
            <translation>Éléments de la corbeille de vos disques amovibles</translation>
        </message>
        <message>
            <source>Remove old device backups and software updates</source>
            <translation>Supprimez les anciennes sauvegardes et mises à jour logicielles</translation>
        </message>
        <message>
            <source>Old backups of your devices</source>
            <translation>Anciennes sauvegardes de vos appareils</translation>
        </message>
        <message>
            <source>Downloaded updates</source>
            <translation>Mises à jour téléchargées</translation>
        </message>
        <message>
            <source>iOS Device Backups</source>
            <translation>Sauvegardes d’appareils iOS</translation>
        </message>
        <message>
            <source>Backups of your iPhone, iPad and iPod</source>
            <translation>Sauvegardes de votre iPhone, iPad et iPod</translation>
        </message>
        <message>
            <source>iOS Software Updates</source>
            <translation>Mises à jour logicielles iOS</translation>
        </message>
        <message>
            <source>Downloaded software updates for your devices</source>
            <translation>Mises à jour logicielles téléchargées pour vos appareils</translation>
        </message>
        <message>
            <source>Duplicates</source>
            <translation>Doublons</translation>
        </message>
        <message>
            <source>Find identical files and keep one of each</source>
            <translation>Trouvez les fichiers identiques et gardez-en un de chaque</translation>
        </message>
        <message>
            <source>Compares content, not names</source>
            <translation>Compare le contenu, pas les noms</translation>
        </message>
        <message>
            <source>Large and Old Files</source>
            <translation>Fichiers volumineux et anciens</translation>
        </message>
        <message>
            <source>Find big files and files you have not opened for a long time</source>
            <translation>Trouvez les gros fichiers et ceux que vous n’avez pas ouverts depuis longtemps</translation>
        </message>
        <message>
            <source>Sorted by size and by age</source>
            <translation>Classés par taille et par ancienneté</translation>
        </message>
        <message>
            <source>Similar Images</source>
            <translation>Images similaires</translation>
        </message>
        <message>
            <source>Find pictures that look alike</source>
            <translation>Trouvez les images qui se ressemblent</translation>
        </message>
        <message>
            <source>Keeps the best of each group</source>
            <translation>Garde la meilleure de chaque groupe</translation>
        </message>
        <message>
            <source>Uninstaller</source>
            <translation>Désinstalleur</translation>
        </message>
        <message>
            <source>Remove applications together with their leftovers</source>
            <translation>Supprimez les applications avec leurs restes</translation>
        </message>
        <message>
            <source>Settings, caches and support files</source>
            <translation>Réglages, caches et fichiers de support</translation>
        </message>
        <message>
            <source>Eraser</source>
            <translation>Broyeur</translation>
        </message>
        <message>
            <source>Erase files so that they cannot be recovered</source>
            <translation>Effacez des fichiers pour qu’ils ne puissent pas être récupérés</translation>
        </message>
        <message>
            <source>Overwrites before removing</source>
            <translation>Écrase avant de supprimer</translation>
        </message>
        <message>
            <source>Privacy</source>
            <translation>Confidentialité</translation>
        </message>
        <message>
            <source>Remove browsing history, cookies and other traces</source>
            <translation>Supprimez l’historique, les cookies et autres traces</translation>
        </message>
        <message>
            <source>Chrome and Firefox</source>
            <translation>Chrome et Firefox</translation>
        </message>
        <message>
            <source>Extensions</source>
            <translation>Extensions</translation>
        </message>
        <message>
            <source>Manage the extensions and plug-ins of your system</source>
            <translation>Gérez les extensions et modules de votre système</translation>
        </message>
        <message>
            <source>Turn them off without removing them</source>
            <translation>Désactivez-les sans les supprimer</translation>
        </message>
        <message>
            <source>Cleanup</source>
            <translation>Nettoyage</translation>
        </message>
        <message>
            <source>Tools</source>
            <translation>Outils</translation>
        </message>
        <message>
            <source>Finds caches, logs, mail attachments and trash at once</source>
            <translation>Trouve caches, journaux, pièces jointes et corbeille en une fois</translation>
        </message>
        <message>
            <source>Attachments your mail client already downloaded</source>
            <translation>Pièces jointes déjà téléchargées par votre messagerie</translation>
        </message>
        <message>
            <source>Temporary files the system left behind</source>
            <translation>Fichiers temporaires laissés par le système</translation>
        </message>
        <message>
            <source>Activity records of your applications</source>
            <translation>Journaux d’activité de vos applications</translation>
        </message>
        <message>
            <source>System Logs</source>
            <translation>Journaux du système</translation>
        </message>
        <message>
            <source>Activity records of the system</source>
            <translation>Journaux d’activité du système</translation>
        </message>
        <message>
            <source>Faces and previews that the photo library makes again</source>
            <translation>Visages et aperçus que la photothèque recrée</translation>
        </message>
        <message>
            <source>Remove mail attachments you already downloaded</source>
            <translation>Supprimez les pièces jointes déjà téléchargées</translation>
        </message>
        <message>
            <source>Mail Attachments</source>
            <translation>Pièces jointes</translation>
        </message>
        <message>
            <source>Attachments Mail downloaded to show them</source>
            <translation>Pièces jointes téléchargées par Mail pour les afficher</translation>
        </message>
        <message>
            <source>iTunes Cache</source>
            <translation>Cache d’iTunes</translation>
        </message>
        <message>
            <source>Files iTunes keeps to work faster</source>
            <translation>Fichiers qu’iTunes garde pour aller plus vite</translation>
        </message>
        <message>
            <source>Chrome, Firefox and Safari</source>
            <translation>Chrome, Firefox et Safari</translation>
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
            <translation>Historique, téléchargements, cookies, identifiants et données de sites de Chrome</translation>
        </message>
        <message>
            <source>History, downloads, cookies, logins and website data of Firefox</source>
            <translation>Historique, téléchargements, cookies, identifiants et données de sites de Firefox</translation>
        </message>
        <message>
            <source>History, downloads and website data of Safari</source>
            <translation>Historique, téléchargements et données de sites de Safari</translation>
        </message>
        <message>
            <source>Safari keeps nothing on this system</source>
            <translation>Safari ne conserve rien sur ce système</translation>
        </message>
        <message>
            <source>Visit History</source>
            <translation>Historique des visites</translation>
        </message>
        <message>
            <source>Downloads History</source>
            <translation>Historique des téléchargements</translation>
        </message>
        <message>
            <source>Downloaded Files</source>
            <translation>Fichiers téléchargés</translation>
        </message>
        <message>
            <source>Search History</source>
            <translation>Historique des recherches</translation>
        </message>
        <message>
            <source>Cookies</source>
            <translation>Cookies</translation>
        </message>
        <message>
            <source>Login History</source>
            <translation>Identifiants enregistrés</translation>
        </message>
        <message>
            <source>Auto Fill History</source>
            <translation>Saisie automatique</translation>
        </message>
        <message>
            <source>HTML5 Local Storage</source>
            <translation>Stockage local HTML5</translation>
        </message>
        <message>
            <source>Larger than 100 MB</source>
            <translation>Plus de 100 Mo</translation>
        </message>
        <message>
            <source>Files of more than 100 MB</source>
            <translation>Fichiers de plus de 100 Mo</translation>
        </message>
        <message>
            <source>Larger than 5 MB</source>
            <translation>Plus de 5 Mo</translation>
        </message>
        <message>
            <source>Files of more than 5 MB, up to 100 MB</source>
            <translation>Fichiers de plus de 5 Mo, jusqu’à 100 Mo</translation>
        </message>
        <message>
            <source>Older than a year</source>
            <translation>Plus d’un an</translation>
        </message>
        <message>
            <source>Files last changed more than a year ago</source>
            <translation>Fichiers modifiés pour la dernière fois il y a plus d’un an</translation>
        </message>
        <message>
            <source>Older than a month</source>
            <translation>Plus d’un mois</translation>
        </message>
        <message>
            <source>Files last changed more than a month ago, within the year</source>
            <translation>Fichiers modifiés pour la dernière fois il y a plus d’un mois, dans l’année</translation>
        </message>
        <message>
            <source>Analyzing Data</source>
            <translation>Analyse des données</translation>
        </message>
        <message>
            <source>Collating data</source>
            <translation>Regroupement des données</translation>
        </message>
        <message>
            <source>Videos </source>
            <translation>Vidéos </translation>
        </message>
        <message>
            <source>Music </source>
            <translation>Musique </translation>
        </message>
        <message>
            <source>Images </source>
            <translation>Images </translation>
        </message>
        <message>
            <source>Documents </source>
            <translation>Documents </translation>
        </message>
        <message>
            <source>Others</source>
            <translation>Autres</translation>
        </message>
        <message>
            <source>All</source>
            <translation>Tout</translation>
        </message>
        <message>
            <source>Not the same file</source>
            <translation>Aucun fichier identique</translation>
        </message>
        <message>
            <source>No File</source>
            <translation>Aucun fichier</translation>
        </message>
        <message>
            <source>There are no files available for duplication</source>
            <translation>Aucun fichier en double</translation>
        </message>
        <message>
            <source>The number entered can only be an integer</source>
            <translation>Le nombre saisi ne peut être qu’un entier</translation>
        </message>
        <message>
            <source>Duplicate Finder Configuration</source>
            <translation>Configuration de la recherche de doublons</translation>
        </message>
        <message>
            <source>File in ***kb smaller than the below value will be automatically skipped.</source>
            <translation>Les fichiers de ***ko inférieurs à la valeur ci-dessous seront ignorés automatiquement.</translation>
        </message>
        <message>
            <source>Cores</source>
            <translation>Cœurs</translation>
        </message>
        <message>
            <source>Available</source>
            <translation>Disponible</translation>
        </message>
        <message>
            <source>Battery</source>
            <translation>Batterie</translation>
        </message>
        <message>
            <source>CPU</source>
            <translation>Processeur</translation>
        </message>
        <message>
            <source>Charge Cycles</source>
            <translation>Cycles de charge</translation>
        </message>
        <message>
            <source>Disk</source>
            <translation>Disque</translation>
        </message>
        <message>
            <source>Free</source>
            <translation>Libre</translation>
        </message>
        <message>
            <source>Memory</source>
            <translation>Mémoire</translation>
        </message>
        <message>
            <source>Network</source>
            <translation>Réseau</translation>
        </message>
        <message>
            <source>No Battery Service Found</source>
            <translation>Aucune batterie trouvée</translation>
        </message>
        <message>
            <source>Used</source>
            <translation>Utilisé</translation>
        </message>
        <message>
            <source>User</source>
            <translation>Utilisateur</translation>
        </message>
        <message>
            <source>Optimize Mac</source>
            <translation>Optimiser le Mac</translation>
        </message>
        <message>
            <source>Optimize %1</source>
            <translation>Optimiser %1</translation>
        </message>
        <message>
            <source>Configuration</source>
            <translation>Configuration</translation>
        </message>
        <message>
            <source>Duplicate Finder…</source>
            <translation>Recherche de doublons…</translation>
        </message>
        <message>
            <source>Choose Folder…</source>
            <translation>Choisir un dossier…</translation>
        </message>
        <message>
            <source>Folder: </source>
            <translation>Dossier : </translation>
        </message>
        <message>
            <source>Choose the folder to search for duplicates</source>
            <translation>Choisissez le dossier où chercher les doublons</translation>
        </message>
        <message>
            <source>Organize Data</source>
            <translation>Organisation des données</translation>
        </message>
        <message>
            <source>There are no files available for deduplication</source>
            <translation>Il n'y a aucune image similaire</translation>
        </message>
        <message>
            <source>Picture</source>
            <translation>Image</translation>
        </message>
            <message>
            <source>%1 records</source>
            <translation>%1 enregistrements</translation>
        </message>
        <message>
            <source>The file is damaged and cannot be viewed</source>
            <translation>Le fichier est endommagé et ne peut pas être affiché</translation>
        </message>
        <message>
            <source>shred_sameFile_text</source>
            <translation>Cet élément est déjà sélectionné</translation>
        </message>
        <message>
            <source>Add Files</source>
            <translation>Ajouter des fichiers</translation>
        </message>
        <message>
            <source>Add Folder</source>
            <translation>Ajouter un dossier</translation>
        </message>
        <message>
            <source>Name (A to Z)</source>
            <translation>Nom (A à Z)</translation>
        </message>
        <message>
            <source>Name (Z to A)</source>
            <translation>Nom (Z à A)</translation>
        </message>
        <message>
            <source>Remove from the list</source>
            <translation>Retirer de la liste</translation>
        </message>
        <message>
            <source>Decompression</source>
            <translation>Décompression</translation>
        </message>
        <message>
            <source>Decompression Progress :</source>
            <translation>Progression de la décompression :</translation>
        </message>
        <message>
            <source>Enter Password :</source>
            <translation>Saisir le mot de passe :</translation>
        </message>
        <message>
            <source>Compress Failed</source>
            <translation>Échec de la compression</translation>
        </message>
        <message>
            <source>Decompress Failed</source>
            <translation>Échec de la décompression</translation>
        </message>
        <message>
            <source>Not shredded</source>
            <translation>Non broyé</translation>
        </message>
        <message>
            <source>Back to the list</source>
            <translation>Retour à la liste</translation>
        </message>
        <message>
            <source>In-depth Uninstallation</source>
            <translation>Désinstallation complète</translation>
        </message>
        <message>
            <source>Would you like to completely remove the app and its leftovers</source>
            <translation>Voulez-vous supprimer complètement l’application et ses restes</translation>
        </message>
        <message>
            <source>Clean Fail</source>
            <translation>Le nettoyage a échoué</translation>
        </message>
        <message>
            <source>Cleanup Completed</source>
            <translation>Nettoyage terminé</translation>
        </message>
        <message>
            <source>You had clean </source>
            <translation>Vous avez nettoyé </translation>
        </message>
        <message>
            <source>Switched off</source>
            <translation>Désactivé</translation>
        </message>
        <message>
            <source>Switched on</source>
            <translation>Activé</translation>
        </message>
        <message>
            <source>The helper refused to move it: it lies in none of the extension folders, or an item of its name is already where it would go</source>
            <translation>L’assistant a refusé de le déplacer : il ne se trouve dans aucun des dossiers d’extensions, ou un élément du même nom se trouve déjà à destination</translation>
        </message>
        <message>
            <source>Startup Applications</source>
            <translation>Applications au démarrage</translation>
        </message>
        <message>
            <source>Programs that start when you log in</source>
            <translation>Programmes lancés à l’ouverture de session</translation>
        </message>
        <message>
            <source>User Services</source>
            <translation>Services de l’utilisateur</translation>
        </message>
        <message>
            <source>Services of your session that systemd starts for you</source>
            <translation>Services de votre session que systemd démarre pour vous</translation>
        </message>
        <message>
            <source>Shell Extensions</source>
            <translation>Extensions du Shell</translation>
        </message>
        <message>
            <source>Extensions that load into the GNOME Shell</source>
            <translation>Extensions chargées dans GNOME Shell</translation>
        </message>
        <message>
            <source>Browser Plug-ins</source>
            <translation>Modules du navigateur</translation>
        </message>
        <message>
            <source>Plug-ins that load into Firefox</source>
            <translation>Modules chargés dans Firefox</translation>
        </message>
        <message>
            <source>Launch Agents</source>
            <translation>Agents de lancement</translation>
        </message>
        <message>
            <source>Internet Plug-ins</source>
            <translation>Modules Internet</translation>
        </message>
        <message>
            <source>Plug-ins that load into web browsers</source>
            <translation>Modules chargés dans les navigateurs web</translation>
        </message>
        <message>
            <source>Preference Panes</source>
            <translation>Sous-fenêtres de préférences</translation>
        </message>
        <message>
            <source>Panes that load into System Preferences</source>
            <translation>Sous-fenêtres chargées dans les Préférences Système</translation>
        </message>
        <message>
            <source>On</source>
            <translation>Activé</translation>
        </message>
        <message>
            <source>Off</source>
            <translation>Désactivé</translation>
        </message>
        <message>
            <source>Turn it off</source>
            <translation>Le désactiver</translation>
        </message>
        <message>
            <source>Turn it on</source>
            <translation>L’activer</translation>
        </message>
        <message>
            <source>Name</source>
            <translation>Nom</translation>
        </message>
        <message>
            <source>Path</source>
            <translation>Chemin</translation>
        </message>
        <message>
            <source>Size</source>
            <translation>Taille</translation>
        </message>
        <message>
            <source>Enable NTFS</source>
            <translation>Activer NTFS</translation>
        </message>
        <message>
            <source>No NTFS volume is mounted.</source>
            <translation>Aucun volume NTFS n’est monté.</translation>
        </message>
        <message>
            <source>Are your sure to activate NTFS?</source>
            <translation>Voulez-vous vraiment activer NTFS ?</translation>
        </message>
        <message>
            <source>Activate the system's ntfs function</source>
            <translation>Les volumes NTFS montés seront remontés en écriture.</translation>
        </message>
        <message>
            <source>Activate Success!</source>
            <translation>Activé</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function success</source>
            <translation>Les volumes NTFS sont maintenant accessibles en écriture.</translation>
        </message>
        <message>
            <source>Activate Fail!</source>
            <translation>Échec de l’activation</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function failed</source>
            <translation>L’écriture NTFS n’a pas pu être activée.</translation>
        </message>
        <message>
            <source>it is not mounted any more</source>
            <translation>il n’est plus monté</translation>
        </message>
        <message>
            <source>it is not an NTFS volume</source>
            <translation>ce n’est pas un volume NTFS</translation>
        </message>
        <message>
            <source>Windows did not close it cleanly; check it in Windows first</source>
            <translation>Windows ne l’a pas fermé proprement ; vérifiez-le d’abord sous Windows</translation>
        </message>
        <message>
            <source>Windows is hibernated on it; shut Windows down fully first</source>
            <translation>Windows y est en veille prolongée ; arrêtez d’abord complètement Windows</translation>
        </message>
        <message>
            <source>no NTFS driver that writes is installed</source>
            <translation>aucun pilote NTFS capable d’écrire n’est installé</translation>
        </message>
        <message>
            <source>it is in use; close its files and try again</source>
            <translation>il est utilisé ; fermez ses fichiers et réessayez</translation>
        </message>
        <message>
            <source>the driver refused it; it stays read-only</source>
            <translation>le pilote l’a refusé ; il reste en lecture seule</translation>
        </message>
        <message>
            <source>it was left as it was</source>
            <translation>il est resté tel quel</translation>
        </message>
        <message>
            <source>Nothing of this application is left</source>
            <translation>Il ne reste rien de cette application</translation>
        </message>
        <message>
            <source>The application itself</source>
            <translation>L’application elle-même</translation>
        </message>
        <message>
            <source>Left behind by the application</source>
            <translation>Laissé par l’application</translation>
        </message>
    </context>
</TS>
