-- Safari 17 (macOS 14), ~/Library/Safari/LocalStorage/StorageTracker.db, in
-- the layout WebKit's storage tracker keeps. Not captured: no Safari runs on
-- the machines that build Brenlow.
CREATE TABLE Origins (origin TEXT UNIQUE ON CONFLICT REPLACE, path TEXT);
