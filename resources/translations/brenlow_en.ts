<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
    <context>
        <name>English</name>
        <message>
            <source>Clean</source>
            <translation>Clean</translation>
        </message>
        <message>
            <source>Stop</source>
            <translation>Stop</translation>
        </message>
        <message>
            <source>Scan</source>
            <translation>Scan</translation>
        </message>
        <message>
            <source>Re-Scan</source>
            <translation>Re-Scan</translation>
        </message>
        <message>
            <source>Review</source>
            <translation>Review</translation>
        </message>
        <message>
            <source>View Log</source>
            <translation>View Log</translation>
        </message>
        <message>
            <source>Hide Log</source>
            <translation>Hide Log</translation>
        </message>
        <message>
            <source>Found </source>
            <translation>Found </translation>
        </message>
        <message>
            <source>Selected: </source>
            <translation>Selected: </translation>
        </message>
        <message>
            <source>Cleaning...</source>
            <translation>Cleaning...</translation>
        </message>
        <message>
            <source>Cleaned: </source>
            <translation>Cleaned: </translation>
        </message>
        <message>
            <source>%1 items</source>
            <translation>%1 items</translation>
        </message>
        <message>
            <source>Available in a later version</source>
            <translation>Available in a later version</translation>
        </message>
        <message>
            <source>Confirmation</source>
            <translation>Confirmation</translation>
        </message>
        <message>
            <source>Are you sure to delete selected files?</source>
            <translation>Are you sure to delete selected files?</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You - Brenlow</source>
            <translation>Hi! Nice to Meet You - Brenlow</translation>
        </message>
        <message>
            <source>Hi! Nice to Meet You</source>
            <translation>Hi! Nice to Meet You</translation>
        </message>
        <message>
            <source>Thank you for installing!</source>
            <translation>Thank you for installing!</translation>
        </message>
        <message>
            <source>Enter your email</source>
            <translation>Enter your email</translation>
        </message>
        <message>
            <source>Subscribe</source>
            <translation>Subscribe</translation>
        </message>
        <message>
            <source>Visit Our Website</source>
            <translation>Visit Our Website</translation>
        </message>
        <message>
            <source>Launch Brenlow</source>
            <translation>Launch Brenlow</translation>
        </message>
        <message>
            <source>ERROR</source>
            <translation>ERROR</translation>
        </message>
        <message>
            <source>The email address can't be empty!</source>
            <translation>The email address can't be empty!</translation>
        </message>
        <message>
            <source>The input format is incorrect!</source>
            <translation>The input format is incorrect!</translation>
        </message>
        <message>
            <source>Success</source>
            <translation>Success</translation>
        </message>
        <message>
            <source>Thanks for Subscribing!</source>
            <translation>Thanks for Subscribing!</translation>
        </message>
        <message>
            <source>Show in Folder</source>
            <translation>Show in Folder</translation>
        </message>
        <message>
            <source>Search</source>
            <translation>Search</translation>
        </message>
        <message>
            <source>Back</source>
            <translation>Back</translation>
        </message>
        <message>
            <source>Sort</source>
            <translation>Sort</translation>
        </message>
        <message>
            <source>Empty</source>
            <translation>Empty</translation>
        </message>
        <message>
            <source>Deselect All</source>
            <translation>Deselect All</translation>
        </message>
        <message>
            <source>Select All</source>
            <translation>Select All</translation>
        </message>
        <message>
            <source>Error</source>
            <translation>Error</translation>
        </message>
        <message>
            <source>This category is empty!</source>
            <translation>This category is empty!</translation>
        </message>
        <message>
            <source>Scanning</source>
            <translation>Scanning</translation>
        </message>
        <message>
            <source>Nothing to Clean</source>
            <translation>Nothing to Clean</translation>
        </message>
        <message>
            <source>Scan Done</source>
            <translation>Scan Done</translation>
        </message>
        <message>
            <source>Your disk is tidy here.</source>
            <translation>Your disk is tidy here.</translation>
        </message>
        <message>
            <source>Clean Log</source>
            <translation>Clean Log</translation>
        </message>
        <message>
            <source>Clean Done</source>
            <translation>Clean Done</translation>
        </message>
        <message>
            <source>Failed</source>
            <translation>Failed</translation>
        </message>
        <message>
            <source>Nothing failed.</source>
            <translation>Nothing failed.</translation>
        </message>
        <message>
            <source>Brenlow</source>
            <translation>Brenlow</translation>
        </message>
        <message>
            <source>Brenlow Help</source>
            <translation>Brenlow Help</translation>
        </message>
        <message>
            <source>Support</source>
            <translation>Support</translation>
        </message>
        <message>
            <source>Send Feedback</source>
            <translation>Send Feedback</translation>
        </message>
        <message>
            <source>Brenlow Website</source>
            <translation>Brenlow Website</translation>
        </message>
        <message>
            <source>More Products</source>
            <translation>More Products</translation>
        </message>
        <message>
            <source>Brenlow on Facebook</source>
            <translation>Brenlow on Facebook</translation>
        </message>
        <message>
            <source>Version </source>
            <translation>Version </translation>
        </message>
        <message>
            <source>About Brenlow</source>
            <translation>About Brenlow</translation>
        </message>
        <message>
            <source>Keep a Local Log of Usage Events</source>
            <translation>Keep a Local Log of Usage Events</translation>
        </message>
        <message>
            <source>Quit Brenlow</source>
            <translation>Quit Brenlow</translation>
        </message>
        <message>
            <source>Language</source>
            <translation>Language</translation>
        </message>
        <message>
            <source>Help</source>
            <translation>Help</translation>
        </message>
        <message>
            <source>Subscribe to News…</source>
            <translation>Subscribe to News…</translation>
        </message>
        <message>
            <source>Warn</source>
            <translation>Warn</translation>
        </message>
        <message>
            <source>Info</source>
            <translation>Info</translation>
        </message>
        <message>
            <source>OK</source>
            <translation>OK</translation>
        </message>
        <message>
            <source>Confirm</source>
            <translation>Confirm</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message>
            <source>OverTime</source>
            <translation>OverTime</translation>
        </message>
        <message>
            <source>delete fail</source>
            <translation>delete fail</translation>
        </message>
        <message>
            <source>nocause</source>
            <translation>nocause</translation>
        </message>
        <message>
            <source>shredfail</source>
            <translation>shredfail</translation>
        </message>
        <message>
            <source>movefail</source>
            <translation>movefail</translation>
        </message>
        <message>
            <source>stop</source>
            <translation>stop</translation>
        </message>
        <message>
            <source>get root fail</source>
            <translation>get root fail</translation>
        </message>
        <message>
            <source>UnKnown</source>
            <translation>UnKnown</translation>
        </message>
        <message>
            <source>A failure when referencing a bundle that doesn't exist</source>
            <translation>A failure when referencing a bundle that doesn't exist</translation>
        </message>
        <message>
            <source>A failure when trying to get the SecStaticCode for a bundle, but it is unsigned</source>
            <translation>A failure when trying to get the SecStaticCode for a bundle, but it is unsigned</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecStaticCodeCreateWithPath</source>
            <translation>Unknown failure when calling SecStaticCodeCreateWithPath</translation>
        </message>
        <message>
            <source>Unknown failure when calling SecCodeCopySigningInformation for a bundle</source>
            <translation>Unknown failure when calling SecCodeCopySigningInformation for a bundle</translation>
        </message>
        <message>
            <source>Failure when calling SMJobBless</source>
            <translation>Failure when calling SMJobBless</translation>
        </message>
        <message>
            <source>Authorization was denied by the system when asking a user for authorization</source>
            <translation>Authorization was denied by the system when asking a user for authorization</translation>
        </message>
        <message>
            <source>The user canceled a prompt for authorization</source>
            <translation>The user canceled a prompt for authorization</translation>
        </message>
        <message>
            <source>Unable to prompt the user (interaction disallowed)</source>
            <translation>Unable to prompt the user (interaction disallowed)</translation>
        </message>
        <message>
            <source>Unknown failure when prompting the user for authorization</source>
            <translation>Unknown failure when prompting the user for authorization</translation>
        </message>
        <message>
            <source>Unkown Error!</source>
            <translation>Unkown Error!</translation>
        </message>
        <message>
            <source>Scanning Mail Attachments From</source>
            <translation>Scanning Mail Attachments From</translation>
        </message>
        <message>
            <source>Scanning Cached Mail From</source>
            <translation>Scanning Cached Mail From</translation>
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
            <translation>1 item</translation>
        </message>
        <message>
            <source>To be removed: %1</source>
            <translation>To be removed: %1</translation>
        </message>
        <message>
            <source>Done</source>
            <translation>Done</translation>
        </message>
        <message>
            <source>Cleaned</source>
            <translation>Cleaned</translation>
        </message>
        <message>
            <source>Total</source>
            <translation>Total</translation>
        </message>
        <message>
            <source>Auto Cleanup</source>
            <translation>Auto Cleanup</translation>
        </message>
        <message>
            <source>Scan and clean all junk with one click</source>
            <translation>Scan and clean all junk with one click</translation>
        </message>
        <message>
            <source>Finds caches, logs, cached mail and trash at once</source>
            <translation>Finds caches, logs, cached mail and trash at once</translation>
        </message>
        <message>
            <source>Cleans only what you leave selected</source>
            <translation>Cleans only what you leave selected</translation>
        </message>
        <message>
            <source>System Junk</source>
            <translation>System Junk</translation>
        </message>
        <message>
            <source>Caches, logs and leftovers of the system and your applications</source>
            <translation>Caches, logs and leftovers of the system and your applications</translation>
        </message>
        <message>
            <source>Photo Cache</source>
            <translation>Photo Cache</translation>
        </message>
        <message>
            <source>Thumbnails and previews your photo tools can make again</source>
            <translation>Thumbnails and previews your photo tools can make again</translation>
        </message>
        <message>
            <source>Mail Trash</source>
            <translation>Mail Trash</translation>
        </message>
        <message>
            <source>Messages your mail client keeps copies of</source>
            <translation>Messages your mail client keeps copies of</translation>
        </message>
        <message>
            <source>Trash Bin</source>
            <translation>Trash Bin</translation>
        </message>
        <message>
            <source>Items waiting in the Trash, on this computer and on removable drives</source>
            <translation>Items waiting in the Trash, on this computer and on removable drives</translation>
        </message>
        <message>
            <source>iTunes Junk</source>
            <translation>iTunes Junk</translation>
        </message>
        <message>
            <source>Old device backups and software updates</source>
            <translation>Old device backups and software updates</translation>
        </message>
        <message>
            <source>Remove caches, logs and files your applications no longer need</source>
            <translation>Remove caches, logs and files your applications no longer need</translation>
        </message>
        <message>
            <source>Caches and logs of the system and your applications</source>
            <translation>Caches and logs of the system and your applications</translation>
        </message>
        <message>
            <source>Translations you never use</source>
            <translation>Translations you never use</translation>
        </message>
        <message>
            <source>User Cache</source>
            <translation>User Cache</translation>
        </message>
        <message>
            <source>Files your applications keep to work faster; they make them again when needed</source>
            <translation>Files your applications keep to work faster; they make them again when needed</translation>
        </message>
        <message>
            <source>System Cache</source>
            <translation>System Cache</translation>
        </message>
        <message>
            <source>Downloaded software packages that were already installed</source>
            <translation>Downloaded software packages that were already installed</translation>
        </message>
        <message>
            <source>User Logs</source>
            <translation>User Logs</translation>
        </message>
        <message>
            <source>Activity records of your desktop session</source>
            <translation>Activity records of your desktop session</translation>
        </message>
        <message>
            <source>Crash Reports</source>
            <translation>Crash Reports</translation>
        </message>
        <message>
            <source>Reports and memory dumps of programs that stopped unexpectedly</source>
            <translation>Reports and memory dumps of programs that stopped unexpectedly</translation>
        </message>
        <message>
            <source>Language Files</source>
            <translation>Language Files</translation>
        </message>
        <message>
            <source>Translations of your applications into languages you do not use</source>
            <translation>Translations of your applications into languages you do not use</translation>
        </message>
        <message>
            <source>Free the space of previews your photo tools can make again</source>
            <translation>Free the space of previews your photo tools can make again</translation>
        </message>
        <message>
            <source>Your photos themselves are never touched</source>
            <translation>Your photos themselves are never touched</translation>
        </message>
        <message>
            <source>Thumbnails and previews that your photo tools make again</source>
            <translation>Thumbnails and previews that your photo tools make again</translation>
        </message>
        <message>
            <source>Remove the copies of messages your mail client keeps</source>
            <translation>Remove the copies of messages your mail client keeps</translation>
        </message>
        <message>
            <source>The messages stay in your mailbox</source>
            <translation>The messages stay in your mailbox</translation>
        </message>
        <message>
            <source>Cached Messages</source>
            <translation>Cached Messages</translation>
        </message>
        <message>
            <source>Copies of messages kept on your mail server</source>
            <translation>Copies of messages kept on your mail server</translation>
        </message>
        <message>
            <source>Empty the Trash of this computer and of removable drives</source>
            <translation>Empty the Trash of this computer and of removable drives</translation>
        </message>
        <message>
            <source>Every Trash at once</source>
            <translation>Every Trash at once</translation>
        </message>
        <message>
            <source>Trash</source>
            <translation>Trash</translation>
        </message>
        <message>
            <source>Items in your Trash</source>
            <translation>Items in your Trash</translation>
        </message>
        <message>
            <source>Removable Volumes Trash</source>
            <translation>Removable Volumes Trash</translation>
        </message>
        <message>
            <source>Items in the Trash of your removable drives</source>
            <translation>Items in the Trash of your removable drives</translation>
        </message>
        <message>
            <source>Remove old device backups and software updates</source>
            <translation>Remove old device backups and software updates</translation>
        </message>
        <message>
            <source>Old backups of your devices</source>
            <translation>Old backups of your devices</translation>
        </message>
        <message>
            <source>Downloaded updates</source>
            <translation>Downloaded updates</translation>
        </message>
        <message>
            <source>iOS Device Backups</source>
            <translation>iOS Device Backups</translation>
        </message>
        <message>
            <source>Backups of your iPhone, iPad and iPod</source>
            <translation>Backups of your iPhone, iPad and iPod</translation>
        </message>
        <message>
            <source>iOS Software Updates</source>
            <translation>iOS Software Updates</translation>
        </message>
        <message>
            <source>Downloaded software updates for your devices</source>
            <translation>Downloaded software updates for your devices</translation>
        </message>
        <message>
            <source>Duplicates</source>
            <translation>Duplicates</translation>
        </message>
        <message>
            <source>Find identical files and keep one of each</source>
            <translation>Find identical files and keep one of each</translation>
        </message>
        <message>
            <source>Compares content, not names</source>
            <translation>Compares content, not names</translation>
        </message>
        <message>
            <source>Large and Old Files</source>
            <translation>Large and Old Files</translation>
        </message>
        <message>
            <source>Find big files and files you have not opened for a long time</source>
            <translation>Find big files and files you have not opened for a long time</translation>
        </message>
        <message>
            <source>Sorted by size and by age</source>
            <translation>Sorted by size and by age</translation>
        </message>
        <message>
            <source>Similar Images</source>
            <translation>Similar Images</translation>
        </message>
        <message>
            <source>Find pictures that look alike</source>
            <translation>Find pictures that look alike</translation>
        </message>
        <message>
            <source>Keeps the best of each group</source>
            <translation>Keeps the best of each group</translation>
        </message>
        <message>
            <source>Uninstaller</source>
            <translation>Uninstaller</translation>
        </message>
        <message>
            <source>Remove applications together with their leftovers</source>
            <translation>Remove applications together with their leftovers</translation>
        </message>
        <message>
            <source>Settings, caches and support files</source>
            <translation>Settings, caches and support files</translation>
        </message>
        <message>
            <source>Eraser</source>
            <translation>Eraser</translation>
        </message>
        <message>
            <source>Erase files so that they cannot be recovered</source>
            <translation>Erase files so that they cannot be recovered</translation>
        </message>
        <message>
            <source>Overwrites before removing</source>
            <translation>Overwrites before removing</translation>
        </message>
        <message>
            <source>Privacy</source>
            <translation>Privacy</translation>
        </message>
        <message>
            <source>Remove browsing history, cookies and other traces</source>
            <translation>Remove browsing history, cookies and other traces</translation>
        </message>
        <message>
            <source>Chrome and Firefox</source>
            <translation>Chrome and Firefox</translation>
        </message>
        <message>
            <source>Extensions</source>
            <translation>Extensions</translation>
        </message>
        <message>
            <source>Manage the extensions and plug-ins of your system</source>
            <translation>Manage the extensions and plug-ins of your system</translation>
        </message>
        <message>
            <source>Turn them off without removing them</source>
            <translation>Turn them off without removing them</translation>
        </message>
        <message>
            <source>Cleanup</source>
            <translation>Cleanup</translation>
        </message>
        <message>
            <source>Tools</source>
            <translation>Tools</translation>
        </message>
        <message>
            <source>Finds caches, logs, mail attachments and trash at once</source>
            <translation>Finds caches, logs, mail attachments and trash at once</translation>
        </message>
        <message>
            <source>Attachments your mail client already downloaded</source>
            <translation>Attachments your mail client already downloaded</translation>
        </message>
        <message>
            <source>Temporary files the system left behind</source>
            <translation>Temporary files the system left behind</translation>
        </message>
        <message>
            <source>Activity records of your applications</source>
            <translation>Activity records of your applications</translation>
        </message>
        <message>
            <source>System Logs</source>
            <translation>System Logs</translation>
        </message>
        <message>
            <source>Activity records of the system</source>
            <translation>Activity records of the system</translation>
        </message>
        <message>
            <source>Faces and previews that the photo library makes again</source>
            <translation>Faces and previews that the photo library makes again</translation>
        </message>
        <message>
            <source>Remove mail attachments you already downloaded</source>
            <translation>Remove mail attachments you already downloaded</translation>
        </message>
        <message>
            <source>Mail Attachments</source>
            <translation>Mail Attachments</translation>
        </message>
        <message>
            <source>Attachments Mail downloaded to show them</source>
            <translation>Attachments Mail downloaded to show them</translation>
        </message>
        <message>
            <source>iTunes Cache</source>
            <translation>iTunes Cache</translation>
        </message>
        <message>
            <source>Files iTunes keeps to work faster</source>
            <translation>Files iTunes keeps to work faster</translation>
        </message>
        <message>
            <source>Chrome, Firefox and Safari</source>
            <translation>Chrome, Firefox and Safari</translation>
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
            <translation>History, downloads, cookies, logins and website data of Chrome</translation>
        </message>
        <message>
            <source>History, downloads, cookies, logins and website data of Firefox</source>
            <translation>History, downloads, cookies, logins and website data of Firefox</translation>
        </message>
        <message>
            <source>History, downloads and website data of Safari</source>
            <translation>History, downloads and website data of Safari</translation>
        </message>
        <message>
            <source>Safari keeps nothing on this system</source>
            <translation>Safari keeps nothing on this system</translation>
        </message>
        <message>
            <source>Visit History</source>
            <translation>Visit History</translation>
        </message>
        <message>
            <source>Downloads History</source>
            <translation>Downloads History</translation>
        </message>
        <message>
            <source>Downloaded Files</source>
            <translation>Downloaded Files</translation>
        </message>
        <message>
            <source>Search History</source>
            <translation>Search History</translation>
        </message>
        <message>
            <source>Cookies</source>
            <translation>Cookies</translation>
        </message>
        <message>
            <source>Login History</source>
            <translation>Login History</translation>
        </message>
        <message>
            <source>Auto Fill History</source>
            <translation>Auto Fill History</translation>
        </message>
        <message>
            <source>HTML5 Local Storage</source>
            <translation>HTML5 Local Storage</translation>
        </message>
        <message>
            <source>Larger than 100 MB</source>
            <translation>Larger than 100 MB</translation>
        </message>
        <message>
            <source>Files of more than 100 MB</source>
            <translation>Files of more than 100 MB</translation>
        </message>
        <message>
            <source>Larger than 5 MB</source>
            <translation>Larger than 5 MB</translation>
        </message>
        <message>
            <source>Files of more than 5 MB, up to 100 MB</source>
            <translation>Files of more than 5 MB, up to 100 MB</translation>
        </message>
        <message>
            <source>Older than a year</source>
            <translation>Older than a year</translation>
        </message>
        <message>
            <source>Files last changed more than a year ago</source>
            <translation>Files last changed more than a year ago</translation>
        </message>
        <message>
            <source>Older than a month</source>
            <translation>Older than a month</translation>
        </message>
        <message>
            <source>Files last changed more than a month ago, within the year</source>
            <translation>Files last changed more than a month ago, within the year</translation>
        </message>
        <message>
            <source>Analyzing Data</source>
            <translation>Analyzing Data</translation>
        </message>
        <message>
            <source>Collating data</source>
            <translation>Collating data</translation>
        </message>
        <message>
            <source>Videos </source>
            <translation>Videos </translation>
        </message>
        <message>
            <source>Music </source>
            <translation>Music </translation>
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
            <translation>Others</translation>
        </message>
        <message>
            <source>All</source>
            <translation>All</translation>
        </message>
        <message>
            <source>Not the same file</source>
            <translation>Not the same file</translation>
        </message>
        <message>
            <source>No File</source>
            <translation>No File</translation>
        </message>
        <message>
            <source>There are no files available for duplication</source>
            <translation>There are no files available for duplication</translation>
        </message>
        <message>
            <source>The number entered can only be an integer</source>
            <translation>The number entered can only be an integer</translation>
        </message>
        <message>
            <source>Duplicate Finder Configuration</source>
            <translation>Duplicate Finder Configuration</translation>
        </message>
        <message>
            <source>File in ***kb smaller than the below value will be automatically skipped.</source>
            <translation>File in ***kb smaller than the below value will be automatically skipped.</translation>
        </message>
        <message>
            <source>Cores</source>
            <translation>Cores</translation>
        </message>
        <message>
            <source>Available</source>
            <translation>Available</translation>
        </message>
        <message>
            <source>Battery</source>
            <translation>Battery</translation>
        </message>
        <message>
            <source>CPU</source>
            <translation>CPU</translation>
        </message>
        <message>
            <source>Charge Cycles</source>
            <translation>Charge Cycles</translation>
        </message>
        <message>
            <source>Disk</source>
            <translation>Disk</translation>
        </message>
        <message>
            <source>Free</source>
            <translation>Free</translation>
        </message>
        <message>
            <source>Memory</source>
            <translation>Memory</translation>
        </message>
        <message>
            <source>Network</source>
            <translation>Network</translation>
        </message>
        <message>
            <source>No Battery Service Found</source>
            <translation>No Battery Service Found</translation>
        </message>
        <message>
            <source>Used</source>
            <translation>Used</translation>
        </message>
        <message>
            <source>User</source>
            <translation>User</translation>
        </message>
        <message>
            <source>Optimize Mac</source>
            <translation>Optimize Mac</translation>
        </message>
        <message>
            <source>Optimize %1</source>
            <translation>Optimize %1</translation>
        </message>
        <message>
            <source>Configuration</source>
            <translation>Configuration</translation>
        </message>
        <message>
            <source>Duplicate Finder…</source>
            <translation>Duplicate Finder…</translation>
        </message>
        <message>
            <source>Choose Folder…</source>
            <translation>Choose Folder…</translation>
        </message>
        <message>
            <source>Folder: </source>
            <translation>Folder: </translation>
        </message>
        <message>
            <source>Choose the folder to search for duplicates</source>
            <translation>Choose the folder to search for duplicates</translation>
        </message>
        <message>
            <source>Organize Data</source>
            <translation>Organize Data</translation>
        </message>
        <message>
            <source>There are no files available for deduplication</source>
            <translation>There are no files available for deduplication</translation>
        </message>
        <message>
            <source>Picture</source>
            <translation>Picture</translation>
        </message>
            <message>
            <source>%1 records</source>
            <translation>%1 records</translation>
        </message>
        <message>
            <source>The file is damaged and cannot be viewed</source>
            <translation>The file is damaged and cannot be viewed</translation>
        </message>
        <message>
            <source>shred_sameFile_text</source>
            <translation>This item has already been selected</translation>
        </message>
        <message>
            <source>Add Files</source>
            <translation>Add Files</translation>
        </message>
        <message>
            <source>Add Folder</source>
            <translation>Add Folder</translation>
        </message>
        <message>
            <source>Name (A to Z)</source>
            <translation>Name (A to Z)</translation>
        </message>
        <message>
            <source>Name (Z to A)</source>
            <translation>Name (Z to A)</translation>
        </message>
        <message>
            <source>Remove from the list</source>
            <translation>Remove from the list</translation>
        </message>
        <message>
            <source>Decompression</source>
            <translation>Decompression</translation>
        </message>
        <message>
            <source>Decompression Progress :</source>
            <translation>Decompression Progress :</translation>
        </message>
        <message>
            <source>Enter Password :</source>
            <translation>Enter Password :</translation>
        </message>
        <message>
            <source>Compress Failed</source>
            <translation>Compress Failed</translation>
        </message>
        <message>
            <source>Decompress Failed</source>
            <translation>Decompress Failed</translation>
        </message>
        <message>
            <source>Not shredded</source>
            <translation>Not shredded</translation>
        </message>
        <message>
            <source>Back to the list</source>
            <translation>Back to the list</translation>
        </message>
        <message>
            <source>In-depth Uninstallation</source>
            <translation>In-depth Uninstallation</translation>
        </message>
        <message>
            <source>Would you like to completely remove the app and its leftovers</source>
            <translation>Would you like to completely remove the app and its leftovers</translation>
        </message>
        <message>
            <source>Clean Fail</source>
            <translation>Clean Fail</translation>
        </message>
        <message>
            <source>Cleanup Completed</source>
            <translation>Cleanup Completed</translation>
        </message>
        <message>
            <source>You had clean </source>
            <translation>You had clean </translation>
        </message>
        <message>
            <source>Switched off</source>
            <translation>Switched off</translation>
        </message>
        <message>
            <source>Switched on</source>
            <translation>Switched on</translation>
        </message>
        <message>
            <source>The helper refused to move it: it lies in none of the extension folders, or an item of its name is already where it would go</source>
            <translation>The helper refused to move it: it lies in none of the extension folders, or an item of its name is already where it would go</translation>
        </message>
        <message>
            <source>Startup Applications</source>
            <translation>Startup Applications</translation>
        </message>
        <message>
            <source>Programs that start when you log in</source>
            <translation>Programs that start when you log in</translation>
        </message>
        <message>
            <source>User Services</source>
            <translation>User Services</translation>
        </message>
        <message>
            <source>Services of your session that systemd starts for you</source>
            <translation>Services of your session that systemd starts for you</translation>
        </message>
        <message>
            <source>Shell Extensions</source>
            <translation>Shell Extensions</translation>
        </message>
        <message>
            <source>Extensions that load into the GNOME Shell</source>
            <translation>Extensions that load into the GNOME Shell</translation>
        </message>
        <message>
            <source>Browser Plug-ins</source>
            <translation>Browser Plug-ins</translation>
        </message>
        <message>
            <source>Plug-ins that load into Firefox</source>
            <translation>Plug-ins that load into Firefox</translation>
        </message>
        <message>
            <source>Launch Agents</source>
            <translation>Launch Agents</translation>
        </message>
        <message>
            <source>Internet Plug-ins</source>
            <translation>Internet Plug-ins</translation>
        </message>
        <message>
            <source>Plug-ins that load into web browsers</source>
            <translation>Plug-ins that load into web browsers</translation>
        </message>
        <message>
            <source>Preference Panes</source>
            <translation>Preference Panes</translation>
        </message>
        <message>
            <source>Panes that load into System Preferences</source>
            <translation>Panes that load into System Preferences</translation>
        </message>
        <message>
            <source>On</source>
            <translation>On</translation>
        </message>
        <message>
            <source>Off</source>
            <translation>Off</translation>
        </message>
        <message>
            <source>Turn it off</source>
            <translation>Turn it off</translation>
        </message>
        <message>
            <source>Turn it on</source>
            <translation>Turn it on</translation>
        </message>
        <message>
            <source>Name</source>
            <translation>Name</translation>
        </message>
        <message>
            <source>Path</source>
            <translation>Path</translation>
        </message>
        <message>
            <source>Size</source>
            <translation>Size</translation>
        </message>
        <message>
            <source>Enable NTFS</source>
            <translation>Enable NTFS</translation>
        </message>
        <message>
            <source>No NTFS volume is mounted.</source>
            <translation>No NTFS volume is mounted.</translation>
        </message>
        <message>
            <source>Are your sure to activate NTFS?</source>
            <translation>Are you sure you want to activate NTFS?</translation>
        </message>
        <message>
            <source>Activate the system's ntfs function</source>
            <translation>The NTFS volumes mounted now will be mounted again for writing.</translation>
        </message>
        <message>
            <source>Activate Success!</source>
            <translation>Activated</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function success</source>
            <translation>The NTFS volumes can now be written to.</translation>
        </message>
        <message>
            <source>Activate Fail!</source>
            <translation>Activation failed</translation>
        </message>
        <message>
            <source>Activating the system's ntfs function failed</source>
            <translation>NTFS writing could not be activated.</translation>
        </message>
        <message>
            <source>it is not mounted any more</source>
            <translation>it is not mounted any more</translation>
        </message>
        <message>
            <source>it is not an NTFS volume</source>
            <translation>it is not an NTFS volume</translation>
        </message>
        <message>
            <source>Windows did not close it cleanly; check it in Windows first</source>
            <translation>Windows did not close it cleanly; check it in Windows first</translation>
        </message>
        <message>
            <source>Windows is hibernated on it; shut Windows down fully first</source>
            <translation>Windows is hibernated on it; shut Windows down fully first</translation>
        </message>
        <message>
            <source>no NTFS driver that writes is installed</source>
            <translation>no NTFS driver that writes is installed</translation>
        </message>
        <message>
            <source>it is in use; close its files and try again</source>
            <translation>it is in use; close its files and try again</translation>
        </message>
        <message>
            <source>the driver refused it; it stays read-only</source>
            <translation>the driver refused it; it stays read-only</translation>
        </message>
        <message>
            <source>it was left as it was</source>
            <translation>it was left as it was</translation>
        </message>
        <message>
            <source>Nothing of this application is left</source>
            <translation>Nothing of this application is left</translation>
        </message>
        <message>
            <source>The application itself</source>
            <translation>The application itself</translation>
        </message>
        <message>
            <source>Left behind by the application</source>
            <translation>Left behind by the application</translation>
        </message>
    </context>
</TS>
