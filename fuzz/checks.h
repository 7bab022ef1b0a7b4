#pragma once

#include <cstddef>
#include <cstdint>

// What the file readers and the record tools promise, checked on arbitrary bytes. Each check
// answers null when every promise held and otherwise a short text naming the broken one.
// The fuzz targets abort on such a text; the corpus test reports it.
//
// The readers print their trace lines on standard output; callers that care about speed or
// about their own output send it elsewhere first.

// The bytes as a journey file: a read that fails leaves the document as it was; a read that
// succeeds gives a document that is written, read back with the same record counts and
// written again to the same bytes.
const char *checkJourney(const uint8_t *data, size_t size);

// The bytes as "wayfern.cfg": the result follows from the section heads present, a failure
// leaves untouched what it has not read, and the fields of "Header" survive the writer.
const char *checkConfig(const uint8_t *data, size_t size);

// The bytes as the last-state file: a failure leaves the journey name alone, a success
// writes a file that reads back to the same name and writes the same bytes again.
const char *checkLastState(const uint8_t *data, size_t size);

// The bytes as a record line and as a value: splitting, the value conversions, the first
// capital, the n-th word, file and date parts, and the line reader with its section search.
const char *checkRecordTools(const uint8_t *data, size_t size);

// The checks by name ("journey", "config", "laststate", "recordtools"); null for another.
using FuzzCheck = const char *(*)(const uint8_t *, size_t);
FuzzCheck fuzzCheckByName(const char *name);
