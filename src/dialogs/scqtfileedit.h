#pragma once

#include <QObject>
#include <QString>

class QWidget;

// The front of the file dialog: each entry point runs one dialog and answers the full
// path when it was accepted, "" when it was cancelled.
class ScQtFileEdit : public QObject
{
    Q_OBJECT

public:
    ScQtFileEdit();
    ~ScQtFileEdit() override;

    static QString getOpenFileName(QWidget *parent, const char *name, const QString &dir,
                                   const QString &filter);
    static QString getSaveFileName(QWidget *parent, const char *name, const QString &dir,
                                   const QString &filter);
    // Lists directories only; the filter is "*".
    static QString getExistingDirectory(QWidget *parent, const char *name, const QString &dir);
    // Offers the button that makes a new directory.
    static QString getNewFileName(QWidget *parent, const char *name, const QString &dir,
                                  const QString &filter);
};
