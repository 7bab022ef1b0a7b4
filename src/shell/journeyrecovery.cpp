#include "shell/journeyrecovery.h"

#include "data/wayferndata.h"
#include "storage/wayfernio.h"

#include <QCryptographicHash>
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

namespace {
// A folder as the file system names it, or as written when it does not exist.
QString folderName(const QString &folder)
{
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(QDir(folder).absolutePath()) : canonical;
}
} // namespace

QString JourneyRecovery::pathFor(const QString &dataDir, const QString &journeyFile)
{
    QString name = QStringLiteral("new journey");
    if (!journeyFile.isEmpty()) {
        const QFileInfo journey(journeyFile);
        name = journey.fileName();
        // Journeys of one name in two folders must not share a recovery file: one outside
        // the journey directory carries a mark of its folder, the same at every start.
        const QString folder = folderName(journey.absolutePath());
        if (folder != folderName(dataDir))
            name += u'-'
                + QString::fromLatin1(
                        QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha1)
                            .toHex()
                            .left(8));
    }
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
