#pragma once

// A stand-in for the currency catalogue, linked only into the currency list's test: a
// plain dialog that counts how often it was filled.

#include <QDialog>

class WayFernData;

class syncListEdit : public QDialog
{
    Q_OBJECT

public:
    syncListEdit(QWidget *parent, const char *name, bool modal, WayFernData *document);

    int fillList();

    int fillCount = 0;
    WayFernData *document = nullptr;
};
