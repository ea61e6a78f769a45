-- Copyright 2026 The JXServerSide authors
-- SPDX-License-Identifier: Apache-2.0
--
-- Tables for the files of `jx gateway drain`, in a database with the encoding UTF8. May be run
-- again: it changes nothing that exists.
\set ON_ERROR_STOP on
SET client_min_messages = warning;
BEGIN;

-- A message of the broker is identified by its sequence number and its time, because the sequence
-- starts again when a stream is created again.
CREATE TABLE IF NOT EXISTS events (
  sequence bigint NOT NULL,
  stored_at timestamptz NOT NULL,
  site bigint,
  event_id text,     -- NULL without one, or if it is longer than 256 characters
  event_name text,   -- at most its first 256 characters
  event jsonb,       -- numbers are exact; NULL if jsonb cannot represent the event
  line text,         -- the line of the file, only if "event" is NULL
  PRIMARY KEY (stored_at, sequence)
);
-- Drops repeats that arrive later than the drain remembers event IDs.
CREATE UNIQUE INDEX IF NOT EXISTS events_event_id ON events (event_id);
CREATE INDEX IF NOT EXISTS events_name_time ON events (event_name, stored_at);

-- Events that did not pass validation, with the validation errors.
CREATE TABLE IF NOT EXISTS invalid_events (
  LIKE events INCLUDING ALL,
  diagnostics jsonb
);

-- Returns the object of a line, or its longest beginning that jsonb can represent: jsonb cannot
-- represent \u0000, half a surrogate pair, and numbers above its range.
CREATE OR REPLACE FUNCTION jx_object_of(line text) RETURNS jsonb
LANGUAGE plpgsql IMMUTABLE STRICT AS $$
DECLARE
  cut text;
BEGIN
  -- A raw quote cannot occur inside a string, so these are never part of a value.
  FOREACH cut IN ARRAY ARRAY['', ',"event":', ',"event_id":'] LOOP
    BEGIN
      IF cut = '' THEN
        RETURN line::jsonb;
      END IF;
      RETURN (left(line, position(cut IN line) - 1) || '}')::jsonb;
    EXCEPTION
      WHEN data_exception OR program_limit_exceeded THEN NULL;
    END;
  END LOOP;
  RAISE EXCEPTION 'not a line of jx gateway drain: %', left(line, 200);
END
$$;

COMMIT;
