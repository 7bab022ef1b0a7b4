#include "shell/journeyrecovery.h"

#include "data/wayferndata.h"
#include "storage/wayfernio.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

int JourneyRecovery::interval = 15000;

JourneyRecovery::JourneyRecovery(WayFernData *document, QObject *parent)
    : QObject(parent), doc(document)
{
    connect(&timer, &QTimer::timeout, this, [this] { writeIfChanged(); });
    timer.start(interval);
}

QString JourneyRecovery::pathFor(const QString &dataDir, const QString &journeyFile)
{
    const QString name = journeyFile.isEmpty() ? QStringLiteral("new journey")
                                               : QFileInfo(journeyFile).fileName();
    return QDir(dataDir).filePath(name + QStringLiteral(".recovery"));
}

void JourneyRecovery::follow(const QString &dataDir, const QString &journeyFile)
{
    recoveryPath = pathFor(dataDir, journeyFile);
    written = doc->changeCount();
    if (timer.interval() != interval)
        timer.start(interval);
}

bool JourneyRecovery::writeIfChanged()
{
    if (!doc->isModified() || doc->changeCount() == written || recoveryPath.isEmpty())
        return true;
    WayfernIO io(doc);
    if (io.WriteFile(recoveryPath) != 0)
        return false;
    written = doc->changeCount();
    return true;
}

void JourneyRecovery::discard()
{
    if (!recoveryPath.isEmpty())
        QFile::remove(recoveryPath);
    written = doc->changeCount();
}

QString JourneyRecovery::keepAside(const QString &path)
{
    const QDateTime when = QFileInfo(path).lastModified();
    QString aside = path + when.toString(QStringLiteral("'-'yyyy-MM-dd-HHmmss"));
    for (int n = 2; QFile::exists(aside); ++n)
        aside = path + when.toString(QStringLiteral("'-'yyyy-MM-dd-HHmmss")) + u'-'
            + QString::number(n);
    return QFile::rename(path, aside) ? aside : QString();
}
