#include "data/wayfernconfig.h"

#include <cstdio>
#include <cstdlib>

WayFernConfig::WayFernConfig()
{
    cfgpath = getEnv(QStringLiteral("WAYFERNCFG"));
    if (cfgpath.isEmpty())
        cfgpath = QStringLiteral(".");
}

QString WayFernConfig::getEnv(const QString &name) const
{
    const char *value = std::getenv(name.toLocal8Bit().constData());
    if (!value) {
        printf("\nWayFernData::getEnv(%s) : not found", name.toLocal8Bit().constData());
        fflush(stdout);
        return QString();
    }
    return QString::fromLocal8Bit(value);
}
