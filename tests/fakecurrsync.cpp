#include "fakecurrsync.h"

#include "rates/currsync.h"

#include <QLabel>

namespace FakeGrab {
QStringList requests;
QList<double> rates;
bool failStart = false;
} // namespace FakeGrab

currSync::currSync(WayFernData *, QLabel *) {}

currSync::~currSync() = default;

bool currSync::requestRate(const QString &from, const QString &to)
{
    FakeGrab::requests << QStringLiteral("rate %1 %2").arg(from, to);
    return !FakeGrab::failStart;
}

bool currSync::requestPage(const QString &address)
{
    FakeGrab::requests << QStringLiteral("page ") + address;
    return !FakeGrab::failStart;
}

double currSync::readRate()
{
    return FakeGrab::rates.isEmpty() ? -1.0 : FakeGrab::rates.takeFirst();
}

bool currSync::testFile(const QString &)
{
    return false;
}

void currSync::deleteFile(const QString &) {}

void currSync::slotTestResult() {}

void currSync::slotGetResult() {}

void currSync::slotDelStatus() {}
