#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QTimer>

class WayFernData;

// Keeps the unsaved state of the window's journey in a recovery file in the journey
// directory, so that a crash loses no more than the last few seconds of work. While the
// journey is modified, the state is written (whole, through a save file) at most `interval`
// after a change; saving, or leaving the journey, removes it.
class JourneyRecovery : public QObject
{
    Q_OBJECT

public:
    JourneyRecovery(WayFernData *doc, QObject *parent = nullptr);

    // The recovery file of the journey at `journeyFile` (empty: a journey without a file yet),
    // kept in `dataDir`: the journey's file name with ".recovery" behind it, and for a
    // journey outside `dataDir` a mark of its folder between them.
    static QString pathFor(const QString &dataDir, const QString &journeyFile);

    // The journey in the window now; its recovery file is where the state goes.
    void follow(const QString &dataDir, const QString &journeyFile);
    QString path() const { return recoveryPath; }
    // Writes the state now if it changed since the last write; false when it could not.
    bool writeIfChanged();
    // Removes the recovery file of the journey in the window: it was saved or given up.
    void discard();
    // Moves a recovery file aside under a name with its date, so that nothing is lost
    // without asking; the name it got, or empty when it could not be moved.
    static QString keepAside(const QString &path);

    // How often a change is looked for; a change reaches the file within this time.
    static int interval;

private:
    WayFernData *doc;
    QString recoveryPath;
    quint64 written = 0; // the change count that the file holds
    QTimer timer;
};
