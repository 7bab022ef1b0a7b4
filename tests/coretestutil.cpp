#include "coretestutil.h"

#include <QFile>

bool writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    return file.write(bytes) == bytes.size();
}

QByteArray readBytes(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

QString fixture(const QString &name)
{
    return QStringLiteral(WAYFERN_TEST_DATA "/") + name;
}

QList<QByteArray> undatedLines(const QByteArray &bytes)
{
    QList<QByteArray> lines = bytes.split('\n');
    for (QByteArray &line : lines) {
        if (line.startsWith("# last modified : date = "))
            line = "# last modified : date = <date>";
        else if (line.startsWith("#                 time = "))
            line = "#                 time = <time>";
    }
    return lines;
}
