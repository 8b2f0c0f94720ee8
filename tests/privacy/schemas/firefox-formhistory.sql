-- Firefox ESR 153.7.0esr (Debian 12), <profile>/formhistory.sqlite
-- Captured with sqlite3 .schema from a profile the browser made itself; the
-- tests build their stores from this text.
CREATE TABLE moz_formhistory (
      id INTEGER PRIMARY KEY, fieldname TEXT NOT NULL, value TEXT NOT NULL, timesUsed INTEGER, firstUsed INTEGER, lastUsed INTEGER, guid TEXT
      
    );
CREATE INDEX moz_formhistory_index ON moz_formhistory(fieldname);
CREATE INDEX moz_formhistory_lastused_index ON moz_formhistory(lastUsed);
CREATE INDEX moz_formhistory_guid_index ON moz_formhistory(guid);
