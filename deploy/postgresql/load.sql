-- Copyright 2026 The JXServerSide authors
-- SPDX-License-Identifier: Apache-2.0
--
-- Loads a finished file of `jx gateway drain` in one transaction. Loading a file again changes
-- nothing.
--
--   psql --no-psqlrc --file load.sql DATABASE < events-20260101T000000.000Z-1.ndjson
\set ON_ERROR_STOP on
SET client_encoding = 'UTF8';
BEGIN;

CREATE TEMPORARY TABLE loading (line text NOT NULL) ON COMMIT DROP;
-- A line is one value, byte for byte: JSON contains neither of these control characters.
\copy loading FROM pstdin WITH (FORMAT csv, DELIMITER E'\x02', QUOTE E'\x01')

CREATE TEMPORARY TABLE reading ON COMMIT DROP AS
SELECT line, jx_object_of(line) AS object,
  split_part(line, ',"event":', 1) LIKE '%,"diagnostics":%' AS is_invalid
FROM loading;

CREATE TEMPORARY TABLE ready ON COMMIT DROP AS
SELECT
  (object ->> 'sequence')::bigint AS sequence,
  (object ->> 'stored_at')::timestamptz AS stored_at,
  (object ->> 'site')::bigint AS site,
  CASE WHEN length(object ->> 'event_id') BETWEEN 1 AND 256 THEN object ->> 'event_id' END
    AS event_id,
  -- The index cannot contain longer names.
  left(object ->> 'event_name', 256) AS event_name,
  nullif(object -> 'event', 'null') AS event,
  CASE WHEN coalesce(object -> 'event', 'null') = 'null' THEN line END AS line,
  nullif(object -> 'diagnostics', 'null') AS diagnostics,
  is_invalid
FROM reading;

INSERT INTO events (sequence, stored_at, site, event_id, event_name, event, line)
SELECT sequence, stored_at, site, event_id, event_name, event, line
FROM ready WHERE NOT is_invalid
ON CONFLICT DO NOTHING;

INSERT INTO invalid_events
  (sequence, stored_at, site, event_id, event_name, event, line, diagnostics)
SELECT sequence, stored_at, site, event_id, event_name, event, line, diagnostics
FROM ready WHERE is_invalid
ON CONFLICT DO NOTHING;

COMMIT;
