#pragma once

#include "data/wayferndata.h"
#include "storage/scqtutil.h"

class QIODevice;

// The last-state file: the bare name of the journey to reopen at the next start.
class WayfernIOLast : public ScQtUtil
{
public:
    explicit WayfernIOLast(WayFernData *document);

    // Reads `path`/`name` (or `name` alone when `path` is empty): 0 read; -1 any failure.
    int ReadFile(const QString &path, const QString &name);
    // The same from a device, opened for reading when it is closed; `name` stands for it in
    // the printed lines.
    int ReadFile(QIODevice *device, const QString &name);
    // Writes the complete `path`: 0 written; -1 when the file cannot be written.
    int WriteFile(const QString &path);
    // The same into a device, opened for writing when it is closed; `name` stands for it in
    // the printed lines.
    int WriteFile(QIODevice *device, const QString &name);

    WayFernData *document;
};
